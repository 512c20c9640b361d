#include "intslidereditor.h"

#include "editnotice.h"
#include "integereditordata.h"
#include "trimtoint32.h"
#include "vantoqtspinbox.h"

#include <QLocale>
#include <QSlider>

#include <cstdlib>

using namespace ParameterCollection;

IntSliderEditor::IntSliderEditor(QWidget* parent) : ComboSlider(parent)
{
    // The cell's own text must not show through between slider and spin box.
    setAutoFillBackground(true);
    connect(m_spinBox, &VantoQtSpinBox::typingCommitted, this, &IntSliderEditor::onTypingCommitted);
    connect(m_spinBox, &VantoQtSpinBox::typingRefused, this, &IntSliderEditor::onTypingRefused);
}

void IntSliderEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    try {
        IParameter* parameter = data.parameter.data();
        const QSharedPointer<const IntegerParameterData> integer = integerEditorData(parameter);
        if (!integer) {
            return;
        }
        const QByteArray name = parameter->getName().toUtf8();
        m_feature = EditNotice::featureLabel(parameter);
        if (m_unit != integer->unit) {
            m_unit = integer->unit;
            updateToolTip();
        }
        if (!integer->readable) {
            qDebug("Non-readable slider: %s??????", name.constData());
            return;
        }

        const int minimum = trimToInt32(integer->min);
        const int maximum = trimToInt32(integer->max);
        const int value = trimToInt32(integer->value.toLongLong());
        const int increment = trimToInt32(integer->increment);
        if (maximum < minimum) {
            qDebug("Feature %s: min value % d > max value %d???", name.constData(), minimum,
                   maximum);
        }
        if (value < minimum || value > maximum) {
            qDebug("Feature %s: value %d out of range??? min = %d, max = %d", name.constData(),
                   value, minimum, maximum);
        }

        // The editor's own state, not the one inherited from a disabled view.
        const bool enabled = !testAttribute(Qt::WA_ForceDisabled);
        if (enabled != integer->writable) {
            setEnabled(integer->writable);
        }
        const bool rangeChanged = m_slider->minimum() != minimum ||
                                  m_slider->maximum() != maximum ||
                                  m_slider->singleStep() != increment;
        if (rangeChanged) {
            setRangeAndStep(minimum, maximum, increment);
        }
        if (rangeChanged || m_slider->value() != value) {
            setValue(value);
        }
        const long long span = std::llabs(static_cast<long long>(maximum) - minimum);
        setPageStep(trimToInt32(qMax(2LL * increment, span / 20)));
    } catch (...) {
        // A parameter that fails to answer leaves the editor as it was.
    }
}

QVariant IntSliderEditor::editorData()
{
    return QVariant(m_slider->value());
}

void IntSliderEditor::updateToolTip()
{
    ComboSlider::updateToolTip();
    setToolTip(EditNotice::withUnit(toolTip(), m_unit));
}

void IntSliderEditor::onTypingCommitted(const QString& typed)
{
    bool ok = false;
    const qint64 typedValue = locale().toLongLong(typed, &ok);
    if (!ok) {
        return;
    }
    const QString text =
        EditNotice::integerWritten(m_feature, typed, typedValue, value(), minimum(), maximum(),
                                   m_spinBox->singleStep(), m_unit);
    if (!text.isEmpty()) {
        Q_EMIT notice(text);
    }
}

void IntSliderEditor::onTypingRefused(const QString& attempt)
{
    const QString current = QString::number(value());
    Q_EMIT notice(EditNotice::notANumber(
        m_feature, attempt, m_unit.isEmpty() ? current : current + QLatin1Char(' ') + m_unit));
}
