#include "floateditor.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/editnotice.h"
#include "internal/legacy/floataliasfollower.h"

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
    connect(m_spinBox, &VantoQtDoubleSpinBox::typingCommitted, this,
            &FloatEditor::onTypingCommitted);
    connect(m_spinBox, &VantoQtDoubleSpinBox::typingRefused, this, &FloatEditor::onTypingRefused);
    m_follower = new FloatAliasFollower(m_spinBox, m_aliasKey, this);
    connect(m_follower, &FloatAliasFollower::loadRequested, this, &FloatEditor::load);
}

void FloatEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    if (m_follower->setFeature(data.parameter, data.collection)) {
        load();
    }
}

QVariant FloatEditor::editorData()
{
    return m_follower->editorData(m_spinBox->value());
}

QSharedPointer<IParameter> FloatEditor::alias() const
{
    return m_follower->alias();
}

void FloatEditor::load()
{
    const QSharedPointer<const FloatParameterData> data = m_follower->dataToShow();
    if (!data) {
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

void FloatEditor::onSpinBoxValueChanged(double value)
{
    if (!m_emit) {
        return;
    }
    if (!m_follower->write(value)) {
        load();
        return;
    }
    Q_EMIT boxValueChanged(value);
}

void FloatEditor::onTypingCommitted(const QString& typed)
{
    double typedValue = 0.0;
    if (!m_spinBox->parseNumber(typed, &typedValue)) {
        return;
    }
    const QString text = EditNotice::floatWritten(
        EditNotice::featureLabel(m_follower->feature().data()), typed, typedValue,
        m_spinBox->value(), m_spinBox->minimum(), m_spinBox->maximum(), m_spinBox->increment(),
        m_spinBox->unit(), m_spinBox->locale());
    if (!text.isEmpty()) {
        Q_EMIT notice(text);
    }
}

void FloatEditor::onTypingRefused(const QString& attempt)
{
    Q_EMIT notice(EditNotice::notANumber(EditNotice::featureLabel(m_follower->feature().data()),
                                         attempt, m_spinBox->text()));
}
