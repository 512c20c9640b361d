#pragma once

#include <QWidget>

class QSlider;
class VantoQtSpinBox;

// A slider with a spin box beside it, both on the same range and increment grid. valueChanged
// fires once for every value the user picks, never while the program sets range or value.
class ComboSlider : public QWidget {
    Q_OBJECT
public:
    explicit ComboSlider(QWidget* parent = nullptr);

    virtual void setMinimum(int minimum);
    virtual void setMaximum(int maximum);
    virtual void setRange(int minimum, int maximum);
    virtual void setRangeAndStep(int minimum, int maximum, int step);
    virtual void setSingleStep(int step);
    virtual void setPageStep(int step);
    virtual void setEditBoxWidth(int width);
    virtual void updateToolTip();
    virtual void setValue(int value);

    int value() const;
    int minimum() const;
    int maximum() const;
    int singleStep() const;
    int pageStep() const;

    // `value` clamped to the range and moved down onto the increment grid counted from the
    // minimum.
    int trimValue(int value) const;

    QSlider* slider() const { return m_slider; }
    VantoQtSpinBox* spinBox() const { return m_spinBox; }

Q_SIGNALS:
    void valueChanged(int value);
    void rangeChanged(int minimum, int maximum);

public Q_SLOTS:
    void onSliderValueChanged(int value);
    void onComboBoxEditingFinished();

protected:
    QSlider* m_slider = nullptr;         // child
    VantoQtSpinBox* m_spinBox = nullptr; // child
    bool m_emit = true;

private:
    // The value last announced or set, so that a slider bouncing back onto the grid is not
    // reported as a change.
    int m_value = 0;
};
