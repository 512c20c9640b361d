#include "doublecomboslider.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/editnotice.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <cmath>

namespace {

// More grid positions than this and the slider falls back to its fixed resolution.
constexpr double kMaxGridPositions = 1000000.0;

} // namespace

DoubleComboSlider::DoubleComboSlider(QWidget* parent) : QWidget(parent)
{
    // Editors sit on top of the value cell; its text must not shine through.
    setAutoFillBackground(true);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);

    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_slider->setFocusPolicy(Qt::StrongFocus);
    m_slider->installEventFilter(this);
    layout->addWidget(m_slider, 1);

    m_spinBox = new DoubleSpinBox(this);
    layout->addWidget(m_spinBox);
    setFocusProxy(m_spinBox);

    // Twelve digits always fit.
    QStyleOptionSpinBox option;
    option.initFrom(m_spinBox);
    option.rect = QRect(0, 0, 200, m_spinBox->sizeHint().height());
    option.subControls = QStyle::SC_All;
    const QRect field = m_spinBox->style()->subControlRect(QStyle::CC_SpinBox, &option,
                                                           QStyle::SC_SpinBoxEditField, m_spinBox);
    const int chrome = option.rect.width() - field.width() + 4;
    setEditBoxWidth(
        QFontMetrics(m_spinBox->font()).horizontalAdvance(QStringLiteral("999999999999")) + chrome);

    connect(m_slider, &QSlider::valueChanged, this, &DoubleComboSlider::onSliderValueChanged);
    connect(m_spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &DoubleComboSlider::onSpinBoxValueChanged);
    // The device may answer while the handle is held; show the answer once it is let go.
    connect(m_slider, &QSlider::sliderReleased, this, &DoubleComboSlider::showValueOnSlider);

    applyRange(0.0, 0.0, 0.0);
}

double DoubleComboSlider::singleStep() const
{
    return m_spinBox->singleStep();
}

double DoubleComboSlider::trimValue(double value) const
{
    return m_spinBox->trimValue(value);
}

bool DoubleComboSlider::usesIncrementGrid() const
{
    const double span = m_maximum - m_minimum;
    return m_increment > 0.0 && span >= 0.0 && std::isfinite(span) &&
           span / m_increment <= kMaxGridPositions;
}

double DoubleComboSlider::sliderPositionToValue(int position) const
{
    const int first = m_slider->minimum();
    const int last = m_slider->maximum();
    if (last <= first) {
        return m_minimum;
    }
    double value = m_minimum;
    if (usesIncrementGrid()) {
        value = m_minimum + double(position - first) * m_increment;
    } else {
        value =
            m_minimum + (m_maximum - m_minimum) * double(position - first) / double(last - first);
    }
    return qBound(m_minimum, value, m_maximum);
}

int DoubleComboSlider::valueToSliderPosition(double value) const
{
    const int first = m_slider->minimum();
    const int last = m_slider->maximum();
    const double span = m_maximum - m_minimum;
    if (last <= first || !std::isfinite(value) || !(span > 0.0)) {
        return first;
    }
    double position = first;
    if (usesIncrementGrid()) {
        position = first + (value - m_minimum) / m_increment;
    } else {
        position = first + (value - m_minimum) / span * double(last - first);
    }
    if (!std::isfinite(position)) {
        return first;
    }
    return int(std::round(qBound(double(first), position, double(last))));
}

int DoubleComboSlider::sliderPositionsFor(double step) const
{
    const int positions = m_slider->maximum() - m_slider->minimum();
    const double span = m_maximum - m_minimum;
    if (positions <= 0 || !(step > 0.0) || !(span > 0.0) || !std::isfinite(span)) {
        return 1;
    }
    const double count = usesIncrementGrid() ? step / m_increment : step / span * double(positions);
    return int(qBound(1.0, std::round(count), double(positions)));
}

void DoubleComboSlider::configureSlider()
{
    const double span = m_maximum - m_minimum;
    int positions = 0;
    if (usesIncrementGrid()) {
        positions = int(std::floor(span / m_increment + 1e-9));
    } else if (span > 0.0 && std::isfinite(span)) {
        positions = SliderResolution;
    }
    // An unbounded feature keeps the slider at one position; the spin box still edits it.
    m_slider->setRange(0, positions);
    m_slider->setSingleStep(sliderPositionsFor(singleStep()));
    m_slider->setPageStep(sliderPositionsFor(m_pageStep > 0.0 ? m_pageStep : 10.0 * singleStep()));
}

void DoubleComboSlider::reconfigureSlider()
{
    const bool emitting = m_emit;
    m_emit = false;
    m_syncingSlider = true;
    configureSlider();
    m_syncingSlider = false;
    showValueOnSlider();
    m_emit = emitting;
}

void DoubleComboSlider::applyRange(double minimum, double maximum, double increment)
{
    const bool emitting = m_emit;
    m_emit = false;
    m_minimum = minimum;
    m_maximum = maximum;
    m_increment = std::isfinite(increment) && increment > 0.0 ? increment : 0.0;
    m_syncingSpinBox = true;
    m_spinBox->setRangeAndStep(minimum, maximum, m_increment);
    m_syncingSpinBox = false;
    if (std::isfinite(m_value)) {
        m_value = qBound(m_spinBox->minimum(), m_value, m_spinBox->maximum());
    }
    reconfigureSlider();
    showValueInSpinBox();
    Q_EMIT rangeChanged(m_minimum, m_maximum);
    updateToolTip();
    m_emit = emitting;
}

void DoubleComboSlider::setMinimum(double minimum)
{
    applyRange(minimum, qMax(minimum, m_maximum), m_increment);
}

void DoubleComboSlider::setMaximum(double maximum)
{
    applyRange(qMin(m_minimum, maximum), maximum, m_increment);
}

void DoubleComboSlider::setRange(double minimum, double maximum)
{
    applyRange(minimum, maximum, m_increment);
}

void DoubleComboSlider::setRangeAndStep(double minimum, double maximum, double increment)
{
    applyRange(minimum, maximum, increment);
}

void DoubleComboSlider::setSingleStep(double step)
{
    if (!(step > 0.0) || !std::isfinite(step)) {
        return;
    }
    m_syncingSpinBox = true;
    m_spinBox->setSingleStep(step);
    m_syncingSpinBox = false;
    reconfigureSlider();
}

void DoubleComboSlider::setPageStep(double step)
{
    m_pageStep = std::isfinite(step) && step > 0.0 ? step : 0.0;
    m_spinBox->setPageStep(m_pageStep);
    reconfigureSlider();
}

void DoubleComboSlider::setEditBoxWidth(int width)
{
    m_spinBox->setMinimumWidth(width);
}

void DoubleComboSlider::updateToolTip()
{
    try {
        setToolTip(EditNotice::withUnit(
            DoubleSpinBox::rangeToolTip(m_minimum, m_maximum, m_increment, locale()),
            m_spinBox->unit()));
    } catch (const std::exception& e) {
        qDebug("Error creating tooltip text! Err='%s'", e.what());
    }
}

void DoubleComboSlider::setValue(double value)
{
    if (!std::isfinite(value)) {
        return;
    }
    const bool emitting = m_emit;
    m_emit = false;
    m_value = qBound(m_spinBox->minimum(), value, m_spinBox->maximum());
    showValueInSpinBox();
    showValueOnSlider();
    m_emit = emitting;
}

void DoubleComboSlider::showValueInSpinBox()
{
    m_syncingSpinBox = true;
    m_spinBox->setValue(m_value);
    m_syncingSpinBox = false;
}

void DoubleComboSlider::showValueOnSlider()
{
    // Never pull the handle away from under the user's mouse.
    if (m_slider->isSliderDown()) {
        return;
    }
    m_syncingSlider = true;
    m_slider->setValue(valueToSliderPosition(m_value));
    m_syncingSlider = false;
}

void DoubleComboSlider::onSliderValueChanged(int position)
{
    if (m_syncingSlider) {
        return;
    }
    const double previous = m_value;
    m_value = trimValue(sliderPositionToValue(position));
    showValueInSpinBox();
    if (m_emit && m_value != previous) {
        Q_EMIT valueChanged(m_value);
    }
}

void DoubleComboSlider::onSpinBoxValueChanged(double value)
{
    if (m_syncingSpinBox) {
        return;
    }
    const double previous = m_value;
    m_value = trimValue(value);
    if (m_value != value) {
        showValueInSpinBox();
    }
    showValueOnSlider();
    if (m_emit && m_value != previous) {
        Q_EMIT valueChanged(m_value);
    }
}

bool DoubleComboSlider::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_slider && event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (!m_slider->hasFocus()) {
            // Let the view scroll instead.
            wheel->ignore();
            return true;
        }
        // One increment per notch, not QSlider's three.
        m_wheelRemainder += wheel->angleDelta().y();
        const int notches = m_wheelRemainder / 120;
        m_wheelRemainder -= notches * 120;
        for (int i = 0; i < std::abs(notches); ++i) {
            m_slider->triggerAction(notches > 0 ? QAbstractSlider::SliderSingleStepAdd
                                                : QAbstractSlider::SliderSingleStepSub);
        }
        wheel->accept();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DoubleComboSlider::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange) {
        updateToolTip();
    }
}
