#pragma once

#include <QWidget>

class DoubleSpinBox;
class QSlider;

// A slider and a spin box that edit one double. The slider works on integer positions: one per
// increment where the feature has an increment (and not too many of them), otherwise a fixed
// resolution over the range. valueChanged is emitted only for what the user does, never while
// the program sets the range or the value.
class DoubleComboSlider : public QWidget {
    Q_OBJECT
public:
    explicit DoubleComboSlider(QWidget* parent = nullptr);

    QSlider* slider() const { return m_slider; }
    DoubleSpinBox* spinBox() const { return m_spinBox; }

    double value() const { return m_value; }
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    // 0 when there is none.
    double increment() const { return m_increment; }
    double singleStep() const;
    double pageStep() const { return m_pageStep; }

    // Clamped to the range and moved onto the increment grid, if there is one.
    double trimValue(double value) const;

    virtual double sliderPositionToValue(int position) const;
    virtual int valueToSliderPosition(double value) const;

    virtual void setMinimum(double minimum);
    virtual void setMaximum(double maximum);
    virtual void setRange(double minimum, double maximum);
    // An increment <= 0 means none.
    virtual void setRangeAndStep(double minimum, double maximum, double increment);
    virtual void setSingleStep(double step);
    virtual void setPageStep(double step);
    virtual void setEditBoxWidth(int width);
    virtual void updateToolTip();
    // Shows `value` as given (only clamped to the range): a device's answer is not re-snapped.
    virtual void setValue(double value);

    // Positions over the range where there is no increment grid to follow.
    static constexpr int SliderResolution = 10000;

Q_SIGNALS:
    void valueChanged(double value);
    void rangeChanged(double minimum, double maximum);

protected:
    // Sets the slider's positions and steps for the current range, step and page step.
    virtual void configureSlider();
    // Re-runs configureSlider() and puts the handle where the value is, as a program update.
    void reconfigureSlider();
    // Slider positions that `step` value units cover, at least one.
    virtual int sliderPositionsFor(double step) const;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

protected Q_SLOTS:
    void onSliderValueChanged(int position);
    void onSpinBoxValueChanged(double value);

private:
    void applyRange(double minimum, double maximum, double increment);
    void showValueInSpinBox();
    void showValueOnSlider();
    bool usesIncrementGrid() const;

    QSlider* m_slider = nullptr;        // a child of this widget
    DoubleSpinBox* m_spinBox = nullptr; // a child of this widget
    double m_value = 0.0;
    double m_minimum = 0.0;
    double m_maximum = 0.0;
    double m_increment = 0.0;
    double m_pageStep = 0.0;
    // Cleared while the program updates range or value: no valueChanged then.
    bool m_emit = true;
    // Set while the program moves the handle or the spin box, whose signals then carry no news.
    bool m_syncingSlider = false;
    bool m_syncingSpinBox = false;
    int m_wheelRemainder = 0;
};
