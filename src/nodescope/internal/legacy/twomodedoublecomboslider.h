#pragma once

#include "internal/legacy/doublecomboslider.h"

// A DoubleComboSlider whose slider runs either linearly or logarithmically over the range. The
// logarithmic mode suits exposure times and other features that span decades: every decade
// gets the same length of slider.
class TwoModeDoubleComboSlider : public DoubleComboSlider {
    Q_OBJECT
public:
    enum Mode { LinearMode, LogarithmicMode };

    explicit TwoModeDoubleComboSlider(QWidget* parent = nullptr, Mode mode = LinearMode);

    Mode mode() const { return m_mode; }
    // A program update: the handle moves to the value's place in the new mode, nothing is
    // emitted.
    void setMode(Mode mode);
    // True when the slider really runs logarithmically: the logarithmic mode over a range
    // whose minimum is positive.
    bool isLogarithmic() const { return m_logarithmic; }

    // log2 of the minimum and maximum, and the log2 units per slider position.
    double logMin() const { return m_logMin; }
    double logMax() const { return m_logMax; }
    double scale() const { return m_scale; }

    double sliderPositionToValue(int position) const override;
    int valueToSliderPosition(double value) const override;

protected:
    void configureSlider() override;

private:
    Mode m_mode = LinearMode;
    bool m_logarithmic = false;
    double m_logMin = 0.0;
    double m_logMax = 0.0;
    double m_scale = 0.0;
};
