#include "valueformat.h"

#include <QCoreApplication>

#include <cmath>

const FormatMultiplierEntry formatMultiplierTable[FORMAT_MULTIPLIER_COUNT] = {
    {1.0, 1.0, L"", L"", L"", L""},
    {1e3, 1024.0, L"k", L"kilo", L"Ki", L"kibi"},
    {1e6, 1048576.0, L"M", L"mega", L"Mi", L"mebi"},
    {1e9, 1073741824.0, L"G", L"giga", L"Gi", L"gibi"},
    // Spelled "teti" on purpose: displayed texts must stay as they are, do not "fix" it.
    {1e12, 1099511627776.0, L"T", L"tera", L"Ti", L"teti"},
    {1e15, 1125899906842624.0, L"P", L"peta", L"Pi", L"pebi"},
    {1e18, 1152921504606846976.0, L"E", L"exa", L"Ei", L"exbi"},
    {1e21, 1180591620717411303424.0, L"Z", L"zetta", L"Zi", L"zebi"},
    {1e24, 1208925819614629174706176.0, L"Y", L"yotta", L"Yi", L"yobi"},
    {1e-3, 1.0, L"m", L"milli", L"", L""},
    // U+00B5 MICRO SIGN, not U+03BC GREEK SMALL LETTER MU: they look alike but compare unequal.
    {1e-6, 1.0, L"\u00b5", L"micro", L"", L""},
    {1e-9, 1.0, L"n", L"nano", L"", L""},
    {1e-12, 1.0, L"p", L"pico", L"", L""},
    {1e-15, 1.0, L"f", L"femto", L"", L""},
    {1e-18, 1.0, L"a", L"atto", L"", L""},
    {1e-21, 1.0, L"z", L"zepto", L"", L""},
    {1e-24, 1.0, L"y", L"yocto", L"", L""},
};

namespace {

// A double holds 17 significant digits; more only repeat its binary noise.
const int kMaxSignificantDigits = 17;
// Enough decimals for the smallest subnormal double with all of its digits.
const int kMaxDecimals = 340;

// Qt 6 turns these QChar accessors into QString; going through QString works with both.
QString groupSeparatorOf(const QLocale& locale)
{
    return QString(locale.groupSeparator());
}
QString decimalPointOf(const QLocale& locale)
{
    return QString(locale.decimalPoint());
}
QString zeroDigitOf(const QLocale& locale)
{
    return QString(locale.zeroDigit());
}

QString withoutGroupSeparators(QString text, const QLocale& locale)
{
    const QString separator = groupSeparatorOf(locale);
    if (!separator.isEmpty())
        text.remove(separator);
    return text;
}

// Locales with native digits (Arabic, Persian, ...) pad with their own zero, not '0'.
void stripTrailingZeros(QString& text, const QLocale& locale)
{
    const QString point = decimalPointOf(locale);
    const int pointAt = text.indexOf(point);
    if (pointAt < 0)
        return;
    const QString zero = zeroDigitOf(locale);
    const int firstDigitAt = pointAt + point.size();
    int end = text.size();
    while (end - zero.size() > firstDigitAt && text.midRef(end - zero.size(), zero.size()) == zero)
        end -= zero.size();
    text.truncate(end);
}

} // namespace

const QLocale& getSystemLocale()
{
    static const QLocale systemLocale = QLocale::system();
    return systemLocale;
}

QString formatDoubleValue(double value, int precision, QFlags<FormatValueFlag> flags,
                          const QLocale& locale)
{
    const bool general = flags.testFlag(FormatValueGeneralFormat);
    // The precision comes from the camera's description: a billion digits would take
    // gigabytes and seconds, and say no more than the double holds.
    const int digits = precision == QLocale::FloatingPointShortest
                           ? precision
                           : qBound(0, precision, general ? kMaxSignificantDigits : kMaxDecimals);
    QString text = locale.toString(value, general ? 'g' : 'f', digits);

    if (!flags.testFlag(FormatValueKeepGroupSeparators) && std::fabs(value) >= 1000.0)
        text = withoutGroupSeparators(text, locale);

    if (general)
        return text;

    if (flags.testFlag(FormatValueOmitFractionOfWholeValue) && std::isfinite(value) &&
        std::trunc(value) == value) {
        const int pointAt = text.indexOf(decimalPointOf(locale));
        if (pointAt >= 0)
            text.truncate(pointAt);
    }

    if (flags.testFlag(FormatValueStripTrailingZeros))
        stripTrailingZeros(text, locale);

    return text;
}

QString formatPlainDouble(double value, int significantDigits, const QLocale& locale)
{
    if (!std::isfinite(value)) {
        return locale.toString(value);
    }
    // Bounded first, so that a description's absurd precision neither overflows the sum below
    // nor asks for digits a double does not have.
    const int digits = qBound(1, significantDigits, kMaxSignificantDigits);
    const int magnitude = value == 0.0 ? 0 : int(std::floor(std::log10(std::fabs(value))));
    const int decimals = qBound(0, digits - 1 - magnitude, kMaxDecimals);
    QString text = withoutGroupSeparators(locale.toString(value, 'f', decimals), locale);
    const QString point = decimalPointOf(locale);
    const int pointAt = text.indexOf(point);
    if (pointAt >= 0) {
        const QString zero = zeroDigitOf(locale);
        while (text.endsWith(zero)) {
            text.chop(zero.size());
        }
        if (text.endsWith(point)) {
            text.chop(point.size());
        }
    }
    return text;
}

QString formatIntegerValue(long long value, QFlags<FormatValueFlag> flags, const QLocale& locale)
{
    const QString text = locale.toString(static_cast<qlonglong>(value));
    if (flags.testFlag(FormatValueKeepGroupSeparators))
        return text;
    return withoutGroupSeparators(text, locale);
}

QString formatUnsignedIntegerValue(unsigned long long value, QFlags<FormatValueFlag> flags,
                                   const QLocale& locale)
{
    const QString text = locale.toString(static_cast<qulonglong>(value));
    if (flags.testFlag(FormatValueKeepGroupSeparators))
        return text;
    return withoutGroupSeparators(text, locale);
}

QString formatDoubleValueAndUnits(double value, int precision, FormatMultiplier multiplier,
                                  const QString& units, QFlags<FormatValueFlag> flags,
                                  const QLocale& locale)
{
    const bool binary = flags.testFlag(FormatValueBinaryPrefix);
    const int index = static_cast<int>(multiplier);
    const int lastIndex =
        binary ? static_cast<int>(FormatMultiplierYotta) : static_cast<int>(FormatMultiplierYocto);

    QString text;
    if (index < 0 || index > lastIndex) {
        // No such prefix: better an unscaled value than a wrong one.
        text = formatDoubleValue(value, precision, flags, locale);
    } else {
        const FormatMultiplierEntry& entry = formatMultiplierTable[index];
        const bool longName = flags.testFlag(FormatValueLongPrefixName);
        const wchar_t* prefix = binary ? (longName ? entry.binaryName : entry.binarySymbol)
                                       : (longName ? entry.decimalName : entry.decimalSymbol);
        const QString prefixText = QString::fromWCharArray(prefix);
        const double factor = binary ? entry.binaryFactor : entry.decimalFactor;
        text = formatDoubleValue(value / factor, precision, flags, locale);

        if (flags.testFlag(FormatValuePrefixBeforeUnits) && index != FormatMultiplierNone &&
            !prefixText.isEmpty()) {
            text += QLatin1Char(' ') + prefixText + units;
            return text;
        }
    }

    if (!units.isEmpty())
        text += QLatin1Char(' ') + units;
    return text;
}

QString formatIntegerValueAndUnits(long long value, int precision, FormatMultiplier multiplier,
                                   const QString& units, QFlags<FormatValueFlag> flags,
                                   const QLocale& locale)
{
    return formatDoubleValueAndUnits(static_cast<double>(value), precision, multiplier, units,
                                     flags, locale);
}

QString formatUnsignedIntegerValueAndUnits(unsigned long long value, int precision,
                                           FormatMultiplier multiplier, const QString& units,
                                           QFlags<FormatValueFlag> flags, const QLocale& locale)
{
    return formatDoubleValueAndUnits(static_cast<double>(value), precision, multiplier, units,
                                     flags, locale);
}

QString formatImageCount(unsigned long long images, unsigned long long errors)
{
    // Unsigned formatting: counters of long runs must never wrap to a negative number.
    const QLocale locale;
    return QCoreApplication::translate("ValueFormat", "Images: %1; Errors: %2")
        .arg(formatUnsignedIntegerValue(images, FormatValueKeepGroupSeparators, locale),
             formatUnsignedIntegerValue(errors, FormatValueKeepGroupSeparators, locale));
}
