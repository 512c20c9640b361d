#include "floataliasfollower.h"

#include "internal/legacy/spinboxeventcatcher.h"
#include "internal/legacy/vantoqtdoublespinbox.h"

#include <QDebug>

using namespace ParameterCollection;

FloatAliasFollower::FloatAliasFollower(VantoQtDoubleSpinBox* spinBox, QObject* parent)
    : QObject(parent), m_spinBox(spinBox)
{
    Q_ASSERT(m_spinBox);
    connect(m_spinBox, &VantoQtDoubleSpinBox::editingFinished, this,
            &FloatAliasFollower::loadIfPending);
    connect(m_spinBox, &VantoQtDoubleSpinBox::editingCancelled, this,
            &FloatAliasFollower::loadRequested);
    // Leaving the box by any way (click elsewhere, Tab) shows what the device said meanwhile.
    auto* focusCatcher = new SpinBoxEventCatcher(this);
    m_spinBox->installEventFilter(focusCatcher);
    connect(focusCatcher, &SpinBoxEventCatcher::focusEvent, this, [this](bool focusIn) {
        if (!focusIn) {
            loadIfPending();
        }
    });
}

FloatAliasFollower::FloatAliasFollower(VantoQtDoubleSpinBox* spinBox, QString aliasKey,
                                       QObject* parent)
    : FloatAliasFollower(spinBox, parent)
{
    m_aliasKey = std::move(aliasKey);
}

FloatAliasFollower::~FloatAliasFollower()
{
    follow({});
}

bool FloatAliasFollower::setFeature(const QSharedPointer<IParameter>& parameter,
                                    const QSharedPointer<IParameterCollection>& collection)
{
    QString name;
    try {
        name = parameter ? parameter->getName() : QString();
        if (!qobject_cast<IFloatParameter*>(parameter.data())) {
            qDebug().noquote() << name + QStringLiteral(" is called with non-float node????");
            return false;
        }
        m_feature = parameter;
        const QString aliasKey = m_aliasKey ? *m_aliasKey : name + QStringLiteral("/Alias");
        QSharedPointer<IParameter> alias;
        if (collection && !aliasKey.isEmpty()) {
            alias = collection->getParameter(aliasKey);
        }
        if (alias && !qobject_cast<IFloatParameter*>(alias.data())) {
            qDebug().noquote() << alias->getName() +
                                      QStringLiteral(" is called with non-float node????");
            alias.reset();
        }
        follow(alias);
    } catch (const std::exception& e) {
        qDebug("Feature %s: no editor data: %s", qPrintable(name), e.what());
        return false;
    } catch (...) {
        qDebug("Feature %s: no editor data.", qPrintable(name));
        return false;
    }
    return true;
}

QSharedPointer<const FloatParameterData> FloatAliasFollower::dataToShow(QString* name)
{
    const QSharedPointer<IParameter> shown = m_alias ? m_alias : m_feature;
    if (!shown) {
        return {};
    }
    if (m_spinBox->isEditing()) {
        m_pendingLoad = true;
        return {};
    }
    m_pendingLoad = false;
    QSharedPointer<const FloatParameterData> data;
    try {
        if (name) {
            *name = shown->getName();
        }
        data = shown->getParameterData().dynamicCast<const FloatParameterData>();
    } catch (...) {
        data.reset();
    }
    if (!data || data->type != FloatType) {
        return {};
    }
    return data;
}

QVariant FloatAliasFollower::editorData(double value) const
{
    if (!m_alias) {
        return QVariant(value);
    }
    try {
        const auto data = m_feature ? m_feature->getParameterData() : nullptr;
        return data ? data->value : QVariant();
    } catch (...) {
        return QVariant();
    }
}

bool FloatAliasFollower::write(double value)
{
    if (!m_alias) {
        return true;
    }
    try {
        m_alias->setValue(QVariant(value));
    } catch (const std::exception& e) {
        qDebug("Feature %s: the alias refused %g: %s", qPrintable(m_alias->getName()), value,
               e.what());
        return false;
    } catch (...) {
        qDebug("Feature %s: the alias refused %g.", qPrintable(m_alias->getName()), value);
        return false;
    }
    return true;
}

void FloatAliasFollower::follow(const QSharedPointer<IParameter>& alias)
{
    if (alias == m_alias) {
        return;
    }
    try {
        if (m_alias) {
            disconnect(m_aliasConnection);
            m_alias->removeObserver();
        }
        m_alias = alias;
        if (m_alias) {
            m_aliasConnection = connect(m_alias.data(), &IParameter::parameterDataChanged, this,
                                        &FloatAliasFollower::loadRequested);
            m_alias->addObserver();
        }
    } catch (...) {
        m_alias.reset();
    }
}

void FloatAliasFollower::loadIfPending()
{
    if (m_pendingLoad) {
        Q_EMIT loadRequested();
    }
}
