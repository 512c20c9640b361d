#include "floateditor.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/spinboxeventcatcher.h"

#include <QDebug>
#include <QHBoxLayout>

using namespace ParameterCollection;

FloatEditor::FloatEditor(QWidget* parent, QString aliasKey)
    : QWidget(parent), m_aliasKey(std::move(aliasKey))
{
    setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_spinBox = new DoubleSpinBox(this);
    layout->addWidget(m_spinBox);
    // The spin box is a child, so that the keys it takes (Escape, Enter) never reach the
    // delegate's filter on the editor and close it.
    setFocusProxy(m_spinBox);

    connect(m_spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &FloatEditor::onSpinBoxValueChanged);
    connect(m_spinBox, &VantoQtDoubleSpinBox::editingFinished, this, &FloatEditor::loadIfPending);
    connect(m_spinBox, &VantoQtDoubleSpinBox::editingCancelled, this, &FloatEditor::load);
    // Leaving the box by any way (click elsewhere, Tab) shows what the device said meanwhile.
    auto* focusCatcher = new SpinBoxEventCatcher(this);
    m_spinBox->installEventFilter(focusCatcher);
    connect(focusCatcher, &SpinBoxEventCatcher::focusEvent, this, [this](bool focusIn) {
        if (!focusIn) {
            loadIfPending();
        }
    });
}

FloatEditor::~FloatEditor()
{
    follow({});
}

void FloatEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    QString name;
    try {
        name = data.parameter ? data.parameter->getName() : QString();
        if (!qobject_cast<IFloatParameter*>(data.parameter.data())) {
            qDebug().noquote() << name + QStringLiteral(" is called with non-float node????");
            return;
        }
        m_data = data;
        QSharedPointer<IParameter> alias;
        if (data.collection && !m_aliasKey.isEmpty()) {
            alias = data.collection->getParameter(m_aliasKey);
        }
        if (alias && !qobject_cast<IFloatParameter*>(alias.data())) {
            qDebug().noquote() << alias->getName() +
                                      QStringLiteral(" is called with non-float node????");
            alias.reset();
        }
        follow(alias);
    } catch (const std::exception& e) {
        qDebug("Feature %s: no editor data: %s", qPrintable(name), e.what());
        return;
    } catch (...) {
        qDebug("Feature %s: no editor data.", qPrintable(name));
        return;
    }
    load();
}

QVariant FloatEditor::editorData()
{
    if (m_alias) {
        try {
            const auto data = m_data.parameter ? m_data.parameter->getParameterData() : nullptr;
            return data ? data->value : QVariant();
        } catch (...) {
            return QVariant();
        }
    }
    return QVariant(m_spinBox->value());
}

void FloatEditor::follow(const QSharedPointer<IParameter>& alias)
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
            // The view refreshes the feature, not its alias: the editor keeps up with the
            // alias itself, and lets it be polled while shown.
            m_aliasConnection = connect(m_alias.data(), &IParameter::parameterDataChanged, this,
                                        &FloatEditor::load);
            m_alias->addObserver();
        }
    } catch (...) {
        m_alias.reset();
    }
}

void FloatEditor::load()
{
    const QSharedPointer<IParameter> shown = m_alias ? m_alias : m_data.parameter;
    if (!shown) {
        return;
    }
    if (m_spinBox->isEditing()) {
        m_pendingLoad = true;
        return;
    }
    m_pendingLoad = false;
    QSharedPointer<const FloatParameterData> data;
    try {
        data = shown->getParameterData().dynamicCast<const FloatParameterData>();
    } catch (...) {
        data.reset();
    }
    if (!data || data->type != FloatType) {
        return;
    }
    const bool emitting = m_emit;
    m_emit = false;
    m_spinBox->setUnit(data->unit);
    m_spinBox->setNotation(data->displayNotation, data->displayPrecision);
    const double increment = data->hasIncrement ? data->increment : 0.0;
    if (data->min != m_spinBox->minimum() || data->max != m_spinBox->maximum() ||
        increment != m_spinBox->increment()) {
        m_spinBox->setRangeAndStep(data->min, data->max, increment);
    }
    if (data->readable) {
        m_spinBox->setSpecialValueText(QString());
        m_spinBox->setValue(data->value.toDouble());
    } else {
        // Shown in place of the minimum, the one value the box can stand on without a number.
        m_spinBox->setSpecialValueText(tr("<not readable>"));
        m_spinBox->setValue(m_spinBox->minimum());
    }
    if (isEnabled() != data->writable) {
        setEnabled(data->writable);
    }
    setToolTip(m_spinBox->toolTip());
    m_emit = emitting;
}

void FloatEditor::loadIfPending()
{
    if (m_pendingLoad) {
        load();
    }
}

void FloatEditor::onSpinBoxValueChanged(double value)
{
    if (!m_emit) {
        return;
    }
    if (m_alias) {
        try {
            m_alias->setValue(QVariant(value));
        } catch (const std::exception& e) {
            qDebug("Feature %s: the alias refused %g: %s", qPrintable(m_alias->getName()), value,
                   e.what());
            load();
            return;
        } catch (...) {
            qDebug("Feature %s: the alias refused %g.", qPrintable(m_alias->getName()), value);
            load();
            return;
        }
    }
    Q_EMIT boxValueChanged(value);
}
