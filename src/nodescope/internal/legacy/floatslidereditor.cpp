#include "floatslidereditor.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/editnotice.h"
#include "internal/legacy/floataliasfollower.h"

#include <QDebug>
#include <QSlider>

#include <cmath>

using namespace ParameterCollection;

FloatSliderEditor::FloatSliderEditor(QWidget* parent,
                                     QSharedPointer<IParameterCollection> collection)
    : TwoModeDoubleComboSlider(parent), m_collection(std::move(collection))
{
    connect(this, &DoubleComboSlider::valueChanged, this, &FloatSliderEditor::onValueChanged);
    connect(spinBox(), &VantoQtDoubleSpinBox::typingCommitted, this,
            &FloatSliderEditor::onTypingCommitted);
    connect(spinBox(), &VantoQtDoubleSpinBox::typingRefused, this,
            &FloatSliderEditor::onTypingRefused);
    m_follower = new FloatAliasFollower(spinBox(), this);
    connect(m_follower, &FloatAliasFollower::loadRequested, this, &FloatSliderEditor::load);
}

void FloatSliderEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    if (m_follower->setFeature(data.parameter, m_collection ? m_collection : data.collection)) {
        load();
    }
}

QVariant FloatSliderEditor::editorData()
{
    return m_follower->editorData(value());
}

QSharedPointer<IParameter> FloatSliderEditor::alias() const
{
    return m_follower->alias();
}

void FloatSliderEditor::load()
{
    QString name;
    const QSharedPointer<const FloatParameterData> data = m_follower->dataToShow(&name);
    if (!data) {
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
    if (spinBox()->unit() != data->unit) {
        spinBox()->setUnit(data->unit);
        updateToolTip();
    }
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

void FloatSliderEditor::onValueChanged(double value)
{
    if (!m_follower->write(value)) {
        load();
        return;
    }
    Q_EMIT boxValueChanged(value);
}

void FloatSliderEditor::onTypingCommitted(const QString& typed)
{
    double typedValue = 0.0;
    if (!spinBox()->parseNumber(typed, &typedValue)) {
        return;
    }
    const QString text = EditNotice::floatWritten(
        EditNotice::featureLabel(m_follower->feature().data()), typed, typedValue, value(),
        minimum(), maximum(), increment(), spinBox()->unit(), spinBox()->locale());
    if (!text.isEmpty()) {
        Q_EMIT notice(text);
    }
}

void FloatSliderEditor::onTypingRefused(const QString& attempt)
{
    Q_EMIT notice(EditNotice::notANumber(EditNotice::featureLabel(m_follower->feature().data()),
                                         attempt, spinBox()->text()));
}
