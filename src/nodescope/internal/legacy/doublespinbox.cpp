#include "doublespinbox.h"

#include "internal/legacy/editnotice.h"
#include "internal/legacy/valueformat.h"

#include <QDebug>
#include <QEvent>
#include <QLineEdit>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

// Enough to show every digit of a tool tip bound without the noise of binary fractions.
constexpr int kToolTipPrecision = 15;
constexpr int kMaxShownDecimals = 15;

// How many decimals write `step` exactly (up to kMaxShownDecimals): 0.05 needs 2.
int decimalsOf(double step)
{
    if (!(step > 0.0) || !std::isfinite(step)) {
        return 0;
    }
    for (int decimals = 0; decimals < kMaxShownDecimals; ++decimals) {
        const double scaled = step * std::pow(10.0, decimals);
        if (std::fabs(scaled - std::round(scaled)) <= 1e-9 * std::max(1.0, scaled)) {
            return decimals;
        }
    }
    return kMaxShownDecimals;
}

// QDoubleSpinBox keeps its value rounded to decimals(), so they must reach well below the
// smallest magnitude in play, or a value like 5e-7 would be stored as 0.
int internalDecimals(double minimum, double maximum, double step)
{
    double smallest = std::numeric_limits<double>::infinity();
    for (double x : {minimum, maximum, step}) {
        if (x != 0.0 && std::isfinite(x)) {
            smallest = std::min(smallest, std::fabs(x));
        }
    }
    if (!std::isfinite(smallest)) {
        return 17;
    }
    const int decimals = 17 - int(std::floor(std::log10(smallest)));
    return qBound(6, decimals, 300);
}

QLocale withoutGroupSeparators(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator |
                            QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

DoubleSpinBox::DoubleSpinBox(QWidget* parent) : VantoQtDoubleSpinBox(parent)
{
    setDecimals(17);
    setRangeAndStep(0.0, 0.0, 0.0);
}

void DoubleSpinBox::setNotation(int notation, int precision)
{
    const int n = notation == Fixed || notation == Scientific ? notation : Automatic;
    const int p = qBound(0, precision, kMaxShownDecimals);
    if (n == m_notation && p == m_precision) {
        return;
    }
    m_notation = n;
    m_precision = p;
    refreshText();
}

void DoubleSpinBox::setUnit(const QString& unit)
{
    if (unit == m_unit) {
        return;
    }
    m_unit = unit;
    setSuffix(unit.isEmpty() ? QString() : QLatin1Char(' ') + unit);
    updateToolTip();
}

void DoubleSpinBox::setRangeAndStep(double minimum, double maximum, double increment)
{
    m_minimum = minimum;
    m_maximum = maximum;
    m_increment = std::isfinite(increment) && increment > 0.0 ? increment : 0.0;
    const double step = m_increment > 0.0 ? m_increment : derivedStep(minimum, maximum);
    setDecimals(internalDecimals(minimum, maximum, step));
    setRange(minimum, maximum);
    setSingleStep(step);
    updateToolTip();
    refreshText();
}

double DoubleSpinBox::trimValue(double value) const
{
    if (std::isnan(value)) {
        return minimum();
    }
    double trimmed = qBound(minimum(), value, maximum());
    if (m_increment > 0.0) {
        const double lastStep = std::floor((maximum() - minimum()) / m_increment + 1e-9);
        const double step = qBound(0.0, std::round((trimmed - minimum()) / m_increment), lastStep);
        trimmed = qBound(minimum(), minimum() + step * m_increment, maximum());
    }
    return trimmed;
}

double DoubleSpinBox::derivedStep(double minimum, double maximum)
{
    const double span = maximum - minimum;
    if (!(span > 0.0) || !std::isfinite(span)) {
        return 1.0;
    }
    const double step = std::pow(10.0, std::round(std::log10(span / 100.0)));
    return std::isfinite(step) && step > 0.0 ? step : 1.0;
}

QString DoubleSpinBox::rangeToolTip(double minimum, double maximum, double increment,
                                    const QLocale& locale)
{
    // Plain decimals: a bound of 1e7 reads as 10000000.
    const QString min = formatPlainDouble(minimum, kToolTipPrecision, locale);
    const QString max = formatPlainDouble(maximum, kToolTipPrecision, locale);
    if (increment > 0.0) {
        return tr("Range: %1..%2 (Increment: %3)")
            .arg(min, max, formatPlainDouble(increment, kToolTipPrecision, locale));
    }
    return tr("Range: %1..%2").arg(min, max);
}

void DoubleSpinBox::updateToolTip()
{
    try {
        setToolTip(EditNotice::withUnit(rangeToolTip(m_minimum, m_maximum, m_increment, locale()),
                                        m_unit));
    } catch (const std::exception& e) {
        qDebug("Error creating tooltip text! Err='%s'", e.what());
    }
}

QString DoubleSpinBox::textFromValue(double value) const
{
    const QLocale numbers = withoutGroupSeparators(locale());
    switch (m_notation) {
    case Fixed:
        return numbers.toString(value, 'f', fixedDecimals());
    case Scientific:
        return numbers.toString(value, 'e', m_precision);
    default:
        // As the value column writes it: never in exponent form.
        return formatPlainDouble(value, qMax(m_precision, 6), numbers);
    }
}

bool DoubleSpinBox::parseNumber(const QString& text, double* value) const
{
    return parse(numberText(text), value);
}

double DoubleSpinBox::valueFromText(const QString& text) const
{
    if (!specialValueText().isEmpty() && text == specialValueText()) {
        return minimum();
    }
    double number = 0.0;
    if (!parse(numberText(text), &number)) {
        return value();
    }
    return trimValue(number);
}

QValidator::State DoubleSpinBox::validate(QString& input, int& pos) const
{
    Q_UNUSED(pos)
    const QString number = numberText(input);
    if (number.isEmpty()) {
        return QValidator::Intermediate;
    }
    for (const QChar c : number) {
        if (!isNumberCharacter(c)) {
            return QValidator::Invalid;
        }
    }
    double value = 0.0;
    if (!parse(number, &value)) {
        // "1e", "-", "2." on the way to a number.
        return QValidator::Intermediate;
    }
    if (value < minimum() || value > maximum()) {
        return QValidator::Intermediate;
    }
    return QValidator::Acceptable;
}

void DoubleSpinBox::fixup(QString& input) const
{
    // A number outside the range is taken as the nearest bound rather than thrown away;
    // written with all digits so that nothing is lost before valueFromText reads it again.
    double number = 0.0;
    if (!parse(numberText(input), &number)) {
        return;
    }
    input =
        prefix() + withoutGroupSeparators(locale()).toString(trimValue(number), 'g', 17) + suffix();
}

double DoubleSpinBox::steppedValue(double from, int steps) const
{
    if (m_increment <= 0.0) {
        return VantoQtDoubleSpinBox::steppedValue(from, steps);
    }
    // From the grid point nearest to where the value is, so that steps stay on the grid even
    // from a value the device placed off it, and never past the last grid point.
    const double lastStep = std::floor((maximum() - minimum()) / m_increment + 1e-9);
    const double step =
        qBound(0.0, std::round((from - minimum()) / m_increment) + double(steps), lastStep);
    return qBound(minimum(), minimum() + step * m_increment, maximum());
}

void DoubleSpinBox::changeEvent(QEvent* event)
{
    VantoQtDoubleSpinBox::changeEvent(event);
    if (event->type() == QEvent::LocaleChange) {
        updateToolTip();
        refreshText();
    }
}

QString DoubleSpinBox::numberText(const QString& text) const
{
    QString number = text;
    if (!prefix().isEmpty() && number.startsWith(prefix())) {
        number.remove(0, prefix().size());
    }
    if (!suffix().isEmpty() && number.endsWith(suffix())) {
        number.chop(suffix().size());
    }
    return number.trimmed();
}

bool DoubleSpinBox::parse(const QString& text, double* value) const
{
    bool ok = false;
    double number = withoutGroupSeparators(locale()).toDouble(text, &ok);
    if (!ok) {
        // Engineers paste numbers from scripts and data sheets.
        number = withoutGroupSeparators(QLocale::c()).toDouble(text, &ok);
    }
    if (!ok || !std::isfinite(number)) {
        return false;
    }
    *value = number;
    return true;
}

bool DoubleSpinBox::isNumberCharacter(QChar c) const
{
    if (c.isDigit() || c.isSpace()) {
        return true;
    }
    const QLocale l = locale();
    static const QString plain = QStringLiteral(".,+-eE");
    return plain.contains(c) || c == l.decimalPoint() || c == l.exponential() ||
           c == l.negativeSign() || c == l.positiveSign();
}

int DoubleSpinBox::fixedDecimals() const
{
    // Never hide a step: an increment of 0.05 shows two decimals even at precision 1.
    return qMax(m_precision, decimalsOf(singleStep()));
}

void DoubleSpinBox::refreshText()
{
    // Re-renders the text for the current value; unchanged, so nothing is emitted.
    setValue(value());
}
