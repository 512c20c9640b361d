#pragma once

#include <QFlags>
#include <QLocale>
#include <QString>

// Number-to-text helpers for value cells and editors. Everything is locale-aware; the locale
// defaults to the system locale, not QLocale(), so that a host changing the default locale
// does not change how feature values look.

enum FormatValueFlag {
    FormatValueNoFlags = 0x00,
    // 1.500 -> 1.5, 2.000 -> 2.0: one digit always stays so the value still reads as a float.
    FormatValueStripTrailingZeros = 0x01,
    // 'g' instead of 'f'; the two flags that edit the fraction are then ignored.
    FormatValueGeneralFormat = 0x02,
    // 12.000 -> 12, but only for whole values, so 12.5 keeps its fraction.
    FormatValueOmitFractionOfWholeValue = 0x04,
    // Without it separators are removed: values must stay parseable when copied.
    FormatValueKeepGroupSeparators = 0x08,
    FormatValueBinaryPrefix = 0x10,
    // Writes the prefix in front of the units; without it the value is still scaled and the
    // caller is expected to carry the prefix in the units text itself.
    FormatValuePrefixBeforeUnits = 0x20,
    FormatValueLongPrefixName = 0x40,
};
Q_DECLARE_FLAGS(FormatValueFlags, FormatValueFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(FormatValueFlags)

// Index into formatMultiplierTable. Only Kilo to Yotta have a binary counterpart. The fixed
// underlying type keeps out-of-table values (which format unscaled) well defined.
enum FormatMultiplier : int {
    FormatMultiplierNone = 0,
    FormatMultiplierKilo = 1,
    FormatMultiplierMega = 2,
    FormatMultiplierGiga = 3,
    FormatMultiplierTera = 4,
    FormatMultiplierPeta = 5,
    FormatMultiplierExa = 6,
    FormatMultiplierZetta = 7,
    FormatMultiplierYotta = 8,
    FormatMultiplierMilli = 9,
    FormatMultiplierMicro = 10,
    FormatMultiplierNano = 11,
    FormatMultiplierPico = 12,
    FormatMultiplierFemto = 13,
    FormatMultiplierAtto = 14,
    FormatMultiplierZepto = 15,
    FormatMultiplierYocto = 16,
};

struct FormatMultiplierEntry {
    double decimalFactor;
    double binaryFactor;
    const wchar_t* decimalSymbol;
    const wchar_t* decimalName;
    const wchar_t* binarySymbol;
    const wchar_t* binaryName;
};

constexpr int FORMAT_MULTIPLIER_COUNT = 17;

extern const FormatMultiplierEntry formatMultiplierTable[FORMAT_MULTIPLIER_COUNT];

// QLocale::system() as it was on first use; later changes of the system locale are not seen.
const QLocale& getSystemLocale();

// Separators are only removed from |value| >= 1000.0, judged on the value, not on the text.
QString formatDoubleValue(double value, int precision, QFlags<FormatValueFlag> flags = {},
                          const QLocale& locale = getSystemLocale());

// A plain decimal, never in exponent form: `significantDigits` significant digits (at least
// one), trailing zeros of the fraction and a bare decimal point dropped, no group separators.
// 1e7 gives 10000000 and 1.5e-7 gives 0.00000015.
QString formatPlainDouble(double value, int significantDigits,
                          const QLocale& locale = getSystemLocale());

// Only FormatValueKeepGroupSeparators applies; without it separators go at every magnitude.
QString formatIntegerValue(long long value, QFlags<FormatValueFlag> flags = {},
                           const QLocale& locale = getSystemLocale());
QString formatUnsignedIntegerValue(unsigned long long value, QFlags<FormatValueFlag> flags = {},
                                   const QLocale& locale = getSystemLocale());

// A multiplier outside the table (or above Yotta with binary prefixes) leaves the value
// unscaled. Units are appended after a blank; an empty units text adds nothing.
QString formatDoubleValueAndUnits(double value, int precision, FormatMultiplier multiplier,
                                  const QString& units, QFlags<FormatValueFlag> flags = {},
                                  const QLocale& locale = getSystemLocale());
// Converted to double first, so magnitudes beyond 2^53 lose their last digits.
QString formatIntegerValueAndUnits(long long value, int precision, FormatMultiplier multiplier,
                                   const QString& units, QFlags<FormatValueFlag> flags = {},
                                   const QLocale& locale = getSystemLocale());
QString formatUnsignedIntegerValueAndUnits(unsigned long long value, int precision,
                                           FormatMultiplier multiplier, const QString& units,
                                           QFlags<FormatValueFlag> flags = {},
                                           const QLocale& locale = getSystemLocale());

// "Images: 1,234; Errors: 5" in the default QLocale, separators kept for readability.
QString formatImageCount(unsigned long long images, unsigned long long errors);
