#pragma once

#include "internal/legacy/vantoqtdoublespinbox.h"

#include <QLocale>
#include <QString>

// The spin box of the float editors: shows a feature's value in its display notation and
// precision with its unit, steps on the feature's increment grid (or, without an increment, by
// a step derived from the range), and accepts typed numbers in the widget's locale, in C
// notation and in exponent notation.
class DoubleSpinBox : public VantoQtDoubleSpinBox {
    Q_OBJECT
public:
    // Numbered like FloatParameterData::DisplayNotation.
    enum Notation { Automatic = 0, Fixed = 1, Scientific = 2 };

    explicit DoubleSpinBox(QWidget* parent = nullptr);

    void setNotation(int notation, int precision);
    int notation() const { return m_notation; }
    int precision() const { return m_precision; }

    // Shown as the suffix " <unit>"; an empty unit shows no suffix.
    void setUnit(const QString& unit);
    QString unit() const { return m_unit; }

    // An increment <= 0 means none: the single step is then derived from the range.
    void setRangeAndStep(double minimum, double maximum, double increment);
    // 0 when the feature has no increment.
    double increment() const { return m_increment; }

    // Clamped to the range and, with an increment, moved to the nearest grid point from the
    // minimum that does not pass the maximum.
    double trimValue(double value) const;

    // About a hundredth of the range, rounded to a power of ten; 1 for an empty or unbounded
    // range.
    static double derivedStep(double minimum, double maximum);
    // "Range: min..max", with " (Increment: inc)" when there is one.
    static QString rangeToolTip(double minimum, double maximum, double increment,
                                const QLocale& locale);

    virtual void updateToolTip();

    // Reads typed text as a number, as the box does, without clamping it; false when the text
    // is no number.
    bool parseNumber(const QString& text, double* value) const;

    QString textFromValue(double value) const override;
    double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& input, int& pos) const override;
    void fixup(QString& input) const override;

protected:
    double steppedValue(double from, int steps) const override;
    void changeEvent(QEvent* event) override;

private:
    QString numberText(const QString& text) const;
    bool parse(const QString& text, double* value) const;
    bool isNumberCharacter(QChar c) const;
    int fixedDecimals() const;
    void refreshText();

    int m_notation = Automatic;
    int m_precision = 6;
    QString m_unit;
    double m_increment = 0.0;
    // The range as given, before the spin box rounds it to its decimals.
    double m_minimum = 0.0;
    double m_maximum = 0.0;
};
