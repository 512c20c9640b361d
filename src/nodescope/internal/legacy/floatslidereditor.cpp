#include "floatslidereditor.h"

#include "internal/legacy/spinboxeventcatcher.h"

#include "internal/legacy/doublespinbox.h"

#include <QDebug>
#include <QSlider>

#include <cmath>

using namespace ParameterCollection;

FloatSliderEditor::FloatSliderEditor(QWidget* parent,
                                     QSharedPointer<IParameterCollection> collection)
    : TwoModeDoubleComboSlider(parent), m_collection(std::move(collection))
{
    connect(this, &DoubleComboSlider::valueChanged, this, &FloatSliderEditor::onValueChanged);
    connect(spinBox(), &VantoQtDoubleSpinBox::editingFinished, this,
            &FloatSliderEditor::loadIfPending);
    connect(spinBox(), &VantoQtDoubleSpinBox::editingCancelled, this, &FloatSliderEditor::load);
    // Leaving the box by any way (click elsewhere, Tab) shows what the device said meanwhile.
    auto* focusCatcher = new SpinBoxEventCatcher(this);
    spinBox()->installEventFilter(focusCatcher);
    connect(focusCatcher, &SpinBoxEventCatcher::focusEvent, this, [this](bool focusIn) {
        if (!focusIn) {
            loadIfPending();
        }
    });
}

FloatSliderEditor::~FloatSliderEditor()
{
    follow({});
}

void FloatSliderEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    QString name;
    try {
        name = data.parameter ? data.parameter->getName() : QString();
        if (!qobject_cast<IFloatParameter*>(data.parameter.data())) {
            qDebug().noquote() << name + QStringLiteral(" is called with non-float node????");
            return;
        }
        m_parameter = data.parameter;
        const QSharedPointer<IParameterCollection> collection =
            m_collection ? m_collection : data.collection;
        QSharedPointer<IParameter> alias;
        if (collection) {
            alias = collection->getParameter(name + QStringLiteral("/Alias"));
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

QVariant FloatSliderEditor::editorData()
{
    if (m_alias) {
        try {
            const auto data = m_parameter ? m_parameter->getParameterData() : nullptr;
            return data ? data->value : QVariant();
        } catch (...) {
            return QVariant();
        }
    }
    return QVariant(value());
}

void FloatSliderEditor::follow(const QSharedPointer<IParameter>& alias)
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
                                        &FloatSliderEditor::load);
            m_alias->addObserver();
        }
    } catch (...) {
        m_alias.reset();
    }
}

void FloatSliderEditor::load()
{
    const QSharedPointer<IParameter> shown = m_alias ? m_alias : m_parameter;
    if (!shown) {
        return;
    }
    if (spinBox()->isEditing()) {
        m_pendingLoad = true;
        return;
    }
    m_pendingLoad = false;
    QSharedPointer<const FloatParameterData> data;
    QString name;
    try {
        name = shown->getName();
        data = shown->getParameterData().dynamicCast<const FloatParameterData>();
    } catch (...) {
        data.reset();
    }
    if (!data || data->type != FloatType) {
        return;
    }
    const QByteArray printable = name.toUtf8();
    if (!data->readable) {
        qDebug("Non-readable slider: %s??????", printable.constData());
        return;
    }
    const double value = data->value.toDouble();
    if (data->max < data->min) {
        qDebug("Feature %s: min value %g > max value %g???", printable.constData(), data->min,
               data->max);
    }
    if (value < data->min || value > data->max) {
        qDebug("Feature %s: value %g out of range??? min = %g, max = %g", printable.constData(),
               value, data->min, data->max);
    }
    if (isEnabled() != data->writable) {
        setEnabled(data->writable);
    }
    spinBox()->setUnit(data->unit);
    spinBox()->setNotation(data->displayNotation, data->displayPrecision);
    setMode(data->representation == QLatin1String("Logarithmic") ? LogarithmicMode : LinearMode);
    const double increment = data->hasIncrement ? data->increment : 0.0;
    if (data->min != minimum() || data->max != maximum() || increment != this->increment()) {
        setRangeAndStep(data->min, data->max, increment);
    }
    const double step =
        increment > 0.0 ? increment : DoubleSpinBox::derivedStep(data->min, data->max);
    const double page = qMax(2.0 * step, std::fabs(data->max - data->min) / 20.0);
    if (page != pageStep()) {
        setPageStep(page);
    }
    setValue(value);
}

void FloatSliderEditor::loadIfPending()
{
    if (m_pendingLoad) {
        load();
    }
}

void FloatSliderEditor::onValueChanged(double value)
{
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
