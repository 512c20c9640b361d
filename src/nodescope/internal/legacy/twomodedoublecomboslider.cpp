#include "twomodedoublecomboslider.h"

#include <QSlider>

#include <cmath>

TwoModeDoubleComboSlider::TwoModeDoubleComboSlider(QWidget* parent, Mode mode)
    : DoubleComboSlider(parent), m_mode(mode)
{
    reconfigureSlider();
}

void TwoModeDoubleComboSlider::setMode(Mode mode)
{
    if (mode == m_mode) {
        return;
    }
    m_mode = mode;
    reconfigureSlider();
}

void TwoModeDoubleComboSlider::configureSlider()
{
    m_logarithmic = false;
    m_logMin = m_logMax = m_scale = 0.0;
    // A logarithm needs a positive minimum. A range reaching down to zero or below runs the
    // slider linearly instead of inventing a lower bound: no NaN or infinity ever reaches
    // the slider, and every value of the range stays reachable.
    if (m_mode == LogarithmicMode && minimum() > 0.0 && maximum() > minimum() &&
        std::isfinite(maximum())) {
        QSlider* s = slider();
        s->setRange(0, SliderResolution);
        const double logMin = std::log2(minimum());
        const double logMax = std::log2(maximum());
        const double scale = (logMax - logMin) / double(s->maximum() - s->minimum());
        if (std::isfinite(logMin) && std::isfinite(logMax) && scale > 0.0 && std::isfinite(scale)) {
            m_logarithmic = true;
            m_logMin = logMin;
            m_logMax = logMax;
            m_scale = scale;
            // Steps of a hundredth and a tenth of the slider: the same ratio anywhere on it.
            s->setSingleStep(SliderResolution / 100);
            s->setPageStep(SliderResolution / 10);
            return;
        }
    }
    DoubleComboSlider::configureSlider();
}

double TwoModeDoubleComboSlider::sliderPositionToValue(int position) const
{
    if (!m_logarithmic) {
        return DoubleComboSlider::sliderPositionToValue(position);
    }
    const double value = std::exp2(m_logMin + double(position - slider()->minimum()) * m_scale);
    return qBound(minimum(), value, maximum());
}

int TwoModeDoubleComboSlider::valueToSliderPosition(double value) const
{
    if (!m_logarithmic) {
        return DoubleComboSlider::valueToSliderPosition(value);
    }
    const int first = slider()->minimum();
    const int last = slider()->maximum();
    // The range's minimum is positive here, so a value at or below it sits at the start.
    if (!std::isfinite(value) || value <= minimum()) {
        return first;
    }
    const double position = (std::log2(value) - m_logMin) / m_scale + double(first);
    if (!std::isfinite(position)) {
        return first;
    }
    return int(std::round(qBound(double(first), position, double(last))));
}
