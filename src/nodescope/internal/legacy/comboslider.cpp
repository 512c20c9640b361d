#include "comboslider.h"

#include "editorwheelguard.h"
#include "vantoqtspinbox.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSpinBox>

#include <exception>

ComboSlider::ComboSlider(QWidget* parent)
    : QWidget(parent), m_slider(new QSlider(Qt::Horizontal, this)),
      m_spinBox(new VantoQtSpinBox(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_slider);
    layout->addWidget(m_spinBox);

    m_slider->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_spinBox->setRange(m_slider->minimum(), m_slider->maximum());
    m_spinBox->setSingleStep(m_slider->singleStep());
    m_spinBox->setPageStep(m_slider->pageStep());
    m_spinBox->setValue(m_slider->value());
    m_value = m_slider->value();

    // Twelve digits always fit, whatever the range.
    QStyleOptionSpinBox option;
    option.initFrom(m_spinBox);
    option.frame = m_spinBox->hasFrame();
    option.buttonSymbols = m_spinBox->buttonSymbols();
    const QFontMetrics metrics(m_spinBox->font());
    const QSize text(metrics.horizontalAdvance(QStringLiteral("999999999999")), metrics.height());
    m_spinBox->setMinimumWidth(
        m_spinBox->style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, m_spinBox).width());

    // Scrolling a view across the slider must not move it.
    EditorWheelGuard::guard(this);
    connect(m_slider, &QSlider::valueChanged, this, &ComboSlider::onSliderValueChanged);
    connect(m_spinBox, &VantoQtSpinBox::editingFinished, this,
            &ComboSlider::onComboBoxEditingFinished);
    updateToolTip();
}

void ComboSlider::setMinimum(int minimum)
{
    const QScopedValueRollback<bool> silent(m_emit, false);
    m_spinBox->setMinimum(minimum);
    m_slider->setMinimum(minimum);
    Q_EMIT rangeChanged(m_slider->minimum(), m_slider->maximum());
    updateToolTip();
}

void ComboSlider::setMaximum(int maximum)
{
    const QScopedValueRollback<bool> silent(m_emit, false);
    m_spinBox->setMaximum(maximum);
    m_slider->setMaximum(maximum);
    Q_EMIT rangeChanged(m_slider->minimum(), m_slider->maximum());
    updateToolTip();
}

void ComboSlider::setRange(int minimum, int maximum)
{
    const QScopedValueRollback<bool> silent(m_emit, false);
    m_spinBox->setRange(minimum, maximum);
    m_slider->setRange(minimum, maximum);
    Q_EMIT rangeChanged(m_slider->minimum(), m_slider->maximum());
    updateToolTip();
}

void ComboSlider::setRangeAndStep(int minimum, int maximum, int step)
{
    const QScopedValueRollback<bool> silent(m_emit, false);
    m_slider->setSingleStep(step);
    m_slider->setMinimum(minimum);
    m_slider->setMaximum(maximum);
    m_spinBox->setSingleStep(step);
    m_spinBox->setMinimum(minimum);
    m_spinBox->setMaximum(maximum);
    Q_EMIT rangeChanged(m_slider->minimum(), m_slider->maximum());
    updateToolTip();
}

void ComboSlider::setSingleStep(int step)
{
    m_slider->setSingleStep(step);
    m_spinBox->setSingleStep(step);
    updateToolTip();
}

void ComboSlider::setPageStep(int step)
{
    m_slider->setPageStep(step);
    m_spinBox->setPageStep(step);
}

void ComboSlider::setEditBoxWidth(int width)
{
    m_spinBox->setFixedWidth(width);
}

void ComboSlider::updateToolTip()
{
    try {
        const QString text = m_spinBox->singleStep() == 1
                                 ? tr("Range: %1..%2")
                                       .arg(QString::number(m_spinBox->minimum(), 10),
                                            QString::number(m_spinBox->maximum(), 10))
                                 : tr("Range: %1..%2 (Increment: %3)")
                                       .arg(QString::number(m_spinBox->minimum(), 10),
                                            QString::number(m_spinBox->maximum(), 10),
                                            QString::number(m_spinBox->singleStep(), 10));
        setToolTip(text);
    } catch (const std::exception& e) {
        qDebug("Error creating tooltip text! Err='%s'", e.what());
    }
}

void ComboSlider::setValue(int value)
{
    const QScopedValueRollback<bool> silent(m_emit, false);
    m_slider->setValue(trimValue(value));
    // The slider stays silent when it already holds the value; the spin box may not.
    if (m_spinBox->value() != m_slider->value()) {
        m_spinBox->setValue(m_slider->value());
    }
    m_value = m_slider->value();
}

int ComboSlider::value() const
{
    return m_slider->value();
}

int ComboSlider::minimum() const
{
    return m_slider->minimum();
}

int ComboSlider::maximum() const
{
    return m_slider->maximum();
}

int ComboSlider::singleStep() const
{
    return m_slider->singleStep();
}

int ComboSlider::pageStep() const
{
    return m_slider->pageStep();
}

int ComboSlider::trimValue(int value) const
{
    const int clamped =
        qBound(m_slider->minimum(), value, qMax(m_slider->minimum(), m_slider->maximum()));
    const int step = m_spinBox->singleStep();
    if (step == 0) {
        return clamped;
    }
    // 64 bits: the distance from the minimum may exceed the int range.
    const long long offset = (static_cast<long long>(clamped) - m_spinBox->minimum()) % step;
    return static_cast<int>(clamped - offset);
}

void ComboSlider::onSliderValueChanged(int value)
{
    const int trimmed = trimValue(value);
    if (m_spinBox->value() != trimmed) {
        m_spinBox->setValue(trimmed);
    }
    if (value != trimmed) {
        // The slider's next signal carries the value on the grid.
        m_slider->setValue(trimmed);
        return;
    }
    const bool changed = trimmed != m_value;
    m_value = trimmed;
    if (m_emit && changed) {
        Q_EMIT valueChanged(trimmed);
    }
}

void ComboSlider::onComboBoxEditingFinished()
{
    const int value = m_spinBox->value();
    const int trimmed = trimValue(value);
    if (trimmed != value) {
        m_spinBox->setValue(trimmed);
    }
    m_slider->setValue(trimmed);
}
