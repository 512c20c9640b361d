#include "internal/legacy/valueformat.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>
#include <QtTest>

#include <climits>
#include <cmath>
#include <memory>

Q_DECLARE_METATYPE(FormatValueFlags)
Q_DECLARE_METATYPE(FormatMultiplier)

namespace {

const FormatValueFlags NoFlags;
const FormatValueFlags Strip = FormatValueStripTrailingZeros;
const FormatValueFlags General = FormatValueGeneralFormat;
const FormatValueFlags OmitFraction = FormatValueOmitFractionOfWholeValue;
const FormatValueFlags KeepGroups = FormatValueKeepGroupSeparators;
const FormatValueFlags Binary = FormatValueBinaryPrefix;
const FormatValueFlags PrefixBefore = FormatValuePrefixBeforeUnits;
const FormatValueFlags LongName = FormatValueLongPrefixName;

QLocale english()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}
QLocale german()
{
    return QLocale(QLocale::German, QLocale::Germany);
}
QLocale french()
{
    return QLocale(QLocale::French, QLocale::France);
}
QLocale swissGerman()
{
    return QLocale(QLocale::German, QLocale::Switzerland);
}
QLocale arabic()
{
    return QLocale(QLocale::Arabic, QLocale::Egypt);
}

// A locale whose number texts differ from those of the system locale, to tell the two apart.
QLocale localeOtherThanSystem()
{
    const QLocale candidate = german();
    if (candidate.decimalPoint() != QLocale::system().decimalPoint())
        return candidate;
    return english();
}

const QString micro = QString(QChar(0x00b5));

class FakeTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        if (qstrcmp(context, "ValueFormat") == 0 &&
            qstrcmp(sourceText, "Images: %1; Errors: %2") == 0)
            return QStringLiteral("Bilder: %1; Fehler: %2");
        return QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestValueFormat : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_originalDefaultLocale = QLocale(); }

    void cleanup()
    {
        QLocale::setDefault(m_originalDefaultLocale);
        if (m_translator) {
            QCoreApplication::removeTranslator(m_translator.get());
            m_translator.reset();
        }
    }

    // --- Named edge cases -------------------------------------------------------------------

    void shouldDropEnglishSeparatorOfDoubleUnlessKept()
    {
        QCOMPARE(formatDoubleValue(1234.5, 1, NoFlags, english()), QStringLiteral("1234.5"));
        QCOMPARE(formatDoubleValue(1234.5, 1, KeepGroups, english()), QStringLiteral("1,234.5"));
    }

    void shouldRemoveDoubleSeparatorsOnlyFromMagnitude1000()
    {
        // 999.96 rounds to a text with a separator, but the value itself is below 1000.
        QCOMPARE(formatDoubleValue(999.96, 1, NoFlags, english()), QStringLiteral("1,000.0"));
        QCOMPARE(formatDoubleValue(-999.96, 1, NoFlags, english()), QStringLiteral("-1,000.0"));
        QCOMPARE(formatDoubleValue(1000.0, 1, NoFlags, english()), QStringLiteral("1000.0"));
        QCOMPARE(formatDoubleValue(-1000.0, 1, NoFlags, english()), QStringLiteral("-1000.0"));
        QCOMPARE(formatDoubleValue(999.96, 1, NoFlags, german()), QStringLiteral("1.000,0"));
        QCOMPARE(formatDoubleValue(1000.0, 1, NoFlags, german()), QStringLiteral("1000,0"));
    }

    void shouldWriteBinaryKiloBeforeBytes()
    {
        QCOMPARE(formatDoubleValueAndUnits(2048.0, 0, FormatMultiplierKilo, QStringLiteral("B"),
                                           Binary | PrefixBefore, english()),
                 QStringLiteral("2 KiB"));
        QCOMPARE(formatDoubleValueAndUnits(2048.0, 0, FormatMultiplierKilo, QStringLiteral("B"),
                                           Binary | PrefixBefore, QLocale::c()),
                 QStringLiteral("2 KiB"));
    }

    void shouldLeaveValueUnscaledForMilliWithBinaryPrefix()
    {
        QCOMPARE(formatDoubleValueAndUnits(2048.0, 0, FormatMultiplierMilli, QStringLiteral("B"),
                                           Binary | PrefixBefore, english()),
                 QStringLiteral("2048 B"));
        QCOMPARE(formatDoubleValueAndUnits(2048.0, 0, FormatMultiplierMilli, QStringLiteral("B"),
                                           Binary, english()),
                 QStringLiteral("2048 B"));
        // The same multiplier does scale with decimal prefixes.
        QCOMPARE(formatDoubleValueAndUnits(2.048, 0, FormatMultiplierMilli, QStringLiteral("s"),
                                           PrefixBefore, english()),
                 QStringLiteral("2048 ms"));
    }

    void shouldAddNoTrailingBlankForEmptyUnits()
    {
        QCOMPARE(formatDoubleValueAndUnits(1500.0, 1, FormatMultiplierKilo, QString(), NoFlags,
                                           english()),
                 QStringLiteral("1.5"));
        QCOMPARE(formatDoubleValueAndUnits(1500.0, 1, FormatMultiplierNone, QString(), PrefixBefore,
                                           english()),
                 QStringLiteral("1500.0"));
        QCOMPARE(formatDoubleValueAndUnits(1500.0, 1, FormatMultiplierMilli, QString(), Binary,
                                           english()),
                 QStringLiteral("1500.0"));
        QCOMPARE(
            formatIntegerValueAndUnits(7, 0, FormatMultiplierNone, QString(), NoFlags, english()),
            QStringLiteral("7"));
        QCOMPARE(formatUnsignedIntegerValueAndUnits(7, 0, FormatMultiplierNone, QString(), NoFlags,
                                                    english()),
                 QStringLiteral("7"));
    }

    // --- Data model ---------------------------------------------------------------------------

    void shouldUseDocumentedFlagBits()
    {
        QCOMPARE(int(FormatValueStripTrailingZeros), 1);
        QCOMPARE(int(FormatValueGeneralFormat), 2);
        QCOMPARE(int(FormatValueOmitFractionOfWholeValue), 4);
        QCOMPARE(int(FormatValueKeepGroupSeparators), 8);
        QCOMPARE(int(FormatValueBinaryPrefix), 16);
        QCOMPARE(int(FormatValuePrefixBeforeUnits), 32);
        QCOMPARE(int(FormatValueLongPrefixName), 64);
        const QFlags<FormatValueFlag> combined =
            FormatValueBinaryPrefix | FormatValueLongPrefixName;
        QCOMPARE(int(combined), 80);
    }

    void shouldHaveSeventeenMultipliers()
    {
        QCOMPARE(int(sizeof(formatMultiplierTable) / sizeof(formatMultiplierTable[0])), 17);
        QCOMPARE(FORMAT_MULTIPLIER_COUNT, 17);
        QCOMPARE(int(FormatMultiplierNone), 0);
        QCOMPARE(int(FormatMultiplierYotta), 8);
        QCOMPARE(int(FormatMultiplierMilli), 9);
        QCOMPARE(int(FormatMultiplierYocto), 16);
    }

    void shouldDescribeEveryMultiplier_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<double>("decimalFactor");
        QTest::addColumn<double>("binaryFactor");
        QTest::addColumn<QString>("decimalSymbol");
        QTest::addColumn<QString>("decimalName");
        QTest::addColumn<QString>("binarySymbol");
        QTest::addColumn<QString>("binaryName");

        struct Row {
            const char* symbol;
            const char* name;
            const char* binarySymbol;
            const char* binaryName;
        };
        const Row rows[] = {
            {"", "", "", ""},
            {"k", "kilo", "Ki", "kibi"},
            {"M", "mega", "Mi", "mebi"},
            {"G", "giga", "Gi", "gibi"},
            {"T", "tera", "Ti", "teti"},
            {"P", "peta", "Pi", "pebi"},
            {"E", "exa", "Ei", "exbi"},
            {"Z", "zetta", "Zi", "zebi"},
            {"Y", "yotta", "Yi", "yobi"},
            {"m", "milli", "", ""},
            {"\xc2\xb5", "micro", "", ""},
            {"n", "nano", "", ""},
            {"p", "pico", "", ""},
            {"f", "femto", "", ""},
            {"a", "atto", "", ""},
            {"z", "zepto", "", ""},
            {"y", "yocto", "", ""},
        };
        for (int i = 0; i < 17; ++i) {
            const int decimalExponent = i <= 8 ? 3 * i : -3 * (i - 8);
            const double binaryFactor = (i >= 1 && i <= 8) ? std::ldexp(1.0, 10 * i) : 1.0;
            QTest::addRow("%d %s", i, rows[i].name)
                << i << std::pow(10.0, decimalExponent) << binaryFactor
                << QString::fromUtf8(rows[i].symbol) << QString::fromUtf8(rows[i].name)
                << QString::fromUtf8(rows[i].binarySymbol) << QString::fromUtf8(rows[i].binaryName);
        }
    }

    void shouldDescribeEveryMultiplier()
    {
        QFETCH(int, index);
        QFETCH(double, decimalFactor);
        QFETCH(double, binaryFactor);
        QFETCH(QString, decimalSymbol);
        QFETCH(QString, decimalName);
        QFETCH(QString, binarySymbol);
        QFETCH(QString, binaryName);

        const FormatMultiplierEntry& entry = formatMultiplierTable[index];
        QCOMPARE(entry.decimalFactor, decimalFactor);
        QCOMPARE(entry.binaryFactor, binaryFactor);
        QCOMPARE(QString::fromWCharArray(entry.decimalSymbol), decimalSymbol);
        QCOMPARE(QString::fromWCharArray(entry.decimalName), decimalName);
        QCOMPARE(QString::fromWCharArray(entry.binarySymbol), binarySymbol);
        QCOMPARE(QString::fromWCharArray(entry.binaryName), binaryName);
    }

    void shouldUseMicroSignRatherThanGreekMu()
    {
        const QString symbol = QString::fromWCharArray(formatMultiplierTable[10].decimalSymbol);
        QCOMPARE(symbol.size(), 1);
        QCOMPARE(symbol.at(0).unicode(), ushort(0x00b5));
    }

    // --- System locale ------------------------------------------------------------------------

    void shouldKeepOneSystemLocaleObject()
    {
        const QLocale* first = &getSystemLocale();
        const QLocale* second = &getSystemLocale();
        QCOMPARE(first, second);
        QCOMPARE(getSystemLocale().name(), QLocale::system().name());
    }

    void shouldNotFollowTheDefaultLocaleInSystemLocale()
    {
        const QString before = getSystemLocale().name();
        const QLocale other = localeOtherThanSystem();
        QLocale::setDefault(other);
        QCOMPARE(QLocale().name(), other.name());
        QCOMPARE(getSystemLocale().name(), before);
        QVERIFY(getSystemLocale().name() != other.name());
    }

    void shouldFormatInSystemLocaleWhenNoLocaleIsGiven()
    {
        QLocale::setDefault(localeOtherThanSystem());
        const QLocale system = QLocale::system();
        QCOMPARE(formatDoubleValue(1234.5, 1, KeepGroups),
                 formatDoubleValue(1234.5, 1, KeepGroups, system));
        QVERIFY(formatDoubleValue(1234.5, 1, KeepGroups) !=
                formatDoubleValue(1234.5, 1, KeepGroups, QLocale()));
        QCOMPARE(formatIntegerValue(1234567, KeepGroups),
                 formatIntegerValue(1234567, KeepGroups, system));
        QCOMPARE(formatDoubleValueAndUnits(0.5, 1, FormatMultiplierMilli, QStringLiteral("s"),
                                           PrefixBefore),
                 formatDoubleValueAndUnits(0.5, 1, FormatMultiplierMilli, QStringLiteral("s"),
                                           PrefixBefore, system));
    }

    // --- formatDoubleValue --------------------------------------------------------------------

    void shouldFormatDoubleValue_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("precision");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();
        const QLocale fr = french();
        const QLocale ch = swissGerman();
        const QLocale ar = arabic();

        QTest::newRow("C fixed") << c << 3.14159 << 2 << NoFlags << QStringLiteral("3.14");
        QTest::newRow("C large") << c << 1234567.5 << 1 << NoFlags << QStringLiteral("1234567.5");
        // The C locale omits separators by itself: keeping them has nothing to keep.
        QTest::newRow("C keep") << c << 1234567.5 << 1 << KeepGroups << QStringLiteral("1234567.5");
        QTest::newRow("C negative") << c << -2.5 << 3 << NoFlags << QStringLiteral("-2.500");
        QTest::newRow("C zero precision") << c << 2.6 << 0 << NoFlags << QStringLiteral("3");

        QTest::newRow("en below 1000") << en << 999.5 << 1 << NoFlags << QStringLiteral("999.5");
        QTest::newRow("en million")
            << en << 1234567.25 << 2 << NoFlags << QStringLiteral("1234567.25");
        QTest::newRow("en million keep")
            << en << 1234567.25 << 2 << KeepGroups << QStringLiteral("1,234,567.25");
        QTest::newRow("en negative million")
            << en << -1234567.25 << 2 << NoFlags << QStringLiteral("-1234567.25");

        QTest::newRow("en strip") << en << 1.5 << 3 << Strip << QStringLiteral("1.5");
        QTest::newRow("en strip keeps one digit")
            << en << 2.0 << 3 << Strip << QStringLiteral("2.0");
        QTest::newRow("en strip zero") << en << 0.0 << 4 << Strip << QStringLiteral("0.0");
        QTest::newRow("en strip nothing to strip")
            << en << 1.25 << 2 << Strip << QStringLiteral("1.25");
        QTest::newRow("en strip one digit only")
            << en << 3.0 << 1 << Strip << QStringLiteral("3.0");
        QTest::newRow("en strip leaves integer part")
            << en << 100.0 << 2 << Strip << QStringLiteral("100.0");
        QTest::newRow("en strip no point") << en << 1000.0 << 0 << Strip << QStringLiteral("1000");
        QTest::newRow("en strip inner zero") << en << 1.05 << 4 << Strip << QStringLiteral("1.05");
        QTest::newRow("en strip negative") << en << -0.5 << 3 << Strip << QStringLiteral("-0.5");
        QTest::newRow("en strip large keep")
            << en << 1234.5 << 3 << (Strip | KeepGroups) << QStringLiteral("1,234.5");

        QTest::newRow("en omit whole") << en << 12.0 << 3 << OmitFraction << QStringLiteral("12");
        QTest::newRow("en omit keeps fraction")
            << en << 12.5 << 3 << OmitFraction << QStringLiteral("12.500");
        QTest::newRow("en omit negative whole")
            << en << -40.0 << 2 << OmitFraction << QStringLiteral("-40");
        QTest::newRow("en omit large keep")
            << en << 5000000.0 << 2 << (OmitFraction | KeepGroups) << QStringLiteral("5,000,000");
        QTest::newRow("en omit and strip whole")
            << en << 12.0 << 3 << (OmitFraction | Strip) << QStringLiteral("12");
        QTest::newRow("en omit and strip fraction")
            << en << 12.5 << 3 << (OmitFraction | Strip) << QStringLiteral("12.5");
        // A value that only looks whole after rounding keeps its fraction.
        QTest::newRow("en omit rounded")
            << en << 12.0001 << 2 << OmitFraction << QStringLiteral("12.00");

        QTest::newRow("en general") << en << 12.0 << 6 << General << QStringLiteral("12");
        QTest::newRow("en general exponent")
            << en << 1234567.0 << 4 << General << QStringLiteral("1.235e+06");
        QTest::newRow("en general grouped")
            << en << 1234567.0 << 10 << General << QStringLiteral("1234567");
        QTest::newRow("en general grouped keep")
            << en << 1234567.0 << 10 << (General | KeepGroups) << QStringLiteral("1,234,567");
        QTest::newRow("en general ignores strip")
            << en << 0.1 << 1 << (General | Strip) << QStringLiteral("0.1");
        QTest::newRow("en general ignores omit")
            << en << 2.5 << 6 << (General | OmitFraction) << QStringLiteral("2.5");

        QTest::newRow("en general ignores omit of whole value")
            << en << 1200.0 << 2 << (General | OmitFraction) << QStringLiteral("1.2e+03");
        // The exponent's zero is not a fraction digit.
        QTest::newRow("en general ignores strip of exponent")
            << en << 1.2e10 << 2 << (General | Strip) << QStringLiteral("1.2e+10");

        QTest::newRow("en infinity")
            << en << qInf() << 2 << (OmitFraction | Strip) << QStringLiteral("inf");
        QTest::newRow("en nan") << en << qQNaN() << 2 << (OmitFraction | Strip)
                                << QStringLiteral("nan");

        QTest::newRow("de comma") << de << 3.25 << 2 << NoFlags << QStringLiteral("3,25");
        QTest::newRow("de large") << de << 1234.5 << 1 << NoFlags << QStringLiteral("1234,5");
        QTest::newRow("de large keep")
            << de << 1234.5 << 1 << KeepGroups << QStringLiteral("1.234,5");
        QTest::newRow("de strip") << de << 1.5 << 3 << Strip << QStringLiteral("1,5");
        QTest::newRow("de strip keeps one digit")
            << de << 2.0 << 3 << Strip << QStringLiteral("2,0");
        QTest::newRow("de omit whole") << de << 12.0 << 3 << OmitFraction << QStringLiteral("12");
        QTest::newRow("de omit large keep")
            << de << 12000.0 << 3 << (OmitFraction | KeepGroups) << QStringLiteral("12.000");
        QTest::newRow("de general") << de << 0.000125 << 3 << General << QStringLiteral("0,000125");

        QTest::newRow("fr large") << fr << 1234567.25 << 2 << NoFlags
                                  << QStringLiteral("1234567,25");
        QTest::newRow("fr large keep")
            << fr << 1234567.25 << 2 << KeepGroups << QStringLiteral("1\u202f234\u202f567,25");

        QTest::newRow("de_CH large") << ch << 1234.5 << 1 << NoFlags << QStringLiteral("1234.5");
        QTest::newRow("de_CH large keep")
            << ch << 1234.5 << 1 << KeepGroups << QStringLiteral("1\u2019234.5");

        // Native digits: the zeros to strip are Arabic-Indic zeros.
        QTest::newRow("ar strip") << ar << 1.5 << 3 << Strip
                                  << QStringLiteral("\u0661\u066b\u0665");
        QTest::newRow("ar omit") << ar << 12.0 << 2 << OmitFraction
                                 << QStringLiteral("\u0661\u0662");
        QTest::newRow("ar large") << ar << 1234.0 << 0 << NoFlags
                                  << QStringLiteral("\u0661\u0662\u0663\u0664");
    }

    void shouldFormatDoubleValue()
    {
        QFETCH(QLocale, locale);
        QFETCH(double, value);
        QFETCH(int, precision);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(formatDoubleValue(value, precision, flags, locale), expected);
    }

    void shouldIgnoreUnitFlagsInDoubleValue()
    {
        const FormatValueFlags unitFlags = Binary | PrefixBefore | LongName;
        QCOMPARE(formatDoubleValue(1234.5, 2, unitFlags, english()), QStringLiteral("1234.50"));
    }

    // --- formatIntegerValue -------------------------------------------------------------------

    void shouldFormatIntegerValue_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<qlonglong>("value");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();
        const QLocale fr = french();
        const QLocale ar = arabic();

        QTest::newRow("C zero") << c << 0LL << NoFlags << QStringLiteral("0");
        QTest::newRow("C large keep") << c << 1234567LL << KeepGroups << QStringLiteral("1234567");
        QTest::newRow("C min") << c << LLONG_MIN << NoFlags
                               << QStringLiteral("-9223372036854775808");

        QTest::newRow("en small") << en << 999LL << NoFlags << QStringLiteral("999");
        QTest::newRow("en thousand") << en << 1000LL << NoFlags << QStringLiteral("1000");
        QTest::newRow("en thousand keep") << en << 1000LL << KeepGroups << QStringLiteral("1,000");
        QTest::newRow("en negative") << en << -1234567LL << NoFlags << QStringLiteral("-1234567");
        QTest::newRow("en negative keep")
            << en << -1234567LL << KeepGroups << QStringLiteral("-1,234,567");
        QTest::newRow("en max keep")
            << en << LLONG_MAX << KeepGroups << QStringLiteral("9,223,372,036,854,775,807");
        QTest::newRow("en other flags ignored")
            << en << 1234LL << (Strip | General | OmitFraction | Binary | PrefixBefore | LongName)
            << QStringLiteral("1234");

        QTest::newRow("de large") << de << 1234567LL << NoFlags << QStringLiteral("1234567");
        QTest::newRow("de large keep")
            << de << 1234567LL << KeepGroups << QStringLiteral("1.234.567");
        QTest::newRow("fr large keep")
            << fr << 65536LL << KeepGroups << QStringLiteral("65\u202f536");
        QTest::newRow("fr large") << fr << 65536LL << NoFlags << QStringLiteral("65536");
        QTest::newRow("ar large") << ar << 1234LL << NoFlags
                                  << QStringLiteral("\u0661\u0662\u0663\u0664");
        QTest::newRow("ar large keep")
            << ar << 1234LL << KeepGroups << QStringLiteral("\u0661\u066c\u0662\u0663\u0664");
    }

    void shouldFormatIntegerValue()
    {
        QFETCH(QLocale, locale);
        QFETCH(qlonglong, value);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(formatIntegerValue(value, flags, locale), expected);
    }

    void shouldFormatUnsignedIntegerValue_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<qulonglong>("value");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();
        const QLocale ch = swissGerman();

        QTest::newRow("C zero") << c << 0ULL << NoFlags << QStringLiteral("0");
        QTest::newRow("C max keep")
            << c << ULLONG_MAX << KeepGroups << QStringLiteral("18446744073709551615");
        QTest::newRow("en max") << en << ULLONG_MAX << NoFlags
                                << QStringLiteral("18446744073709551615");
        QTest::newRow("en max keep")
            << en << ULLONG_MAX << KeepGroups << QStringLiteral("18,446,744,073,709,551,615");
        QTest::newRow("en small keep") << en << 42ULL << KeepGroups << QStringLiteral("42");
        QTest::newRow("en other flags ignored")
            << en << 4096ULL << (Strip | General | OmitFraction | Binary) << QStringLiteral("4096");
        QTest::newRow("de large") << de << 4294967295ULL << NoFlags << QStringLiteral("4294967295");
        QTest::newRow("de large keep")
            << de << 4294967295ULL << KeepGroups << QStringLiteral("4.294.967.295");
        QTest::newRow("de_CH keep")
            << ch << 1000000ULL << KeepGroups << QStringLiteral("1\u2019000\u2019000");
    }

    void shouldFormatUnsignedIntegerValue()
    {
        QFETCH(QLocale, locale);
        QFETCH(qulonglong, value);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(formatUnsignedIntegerValue(value, flags, locale), expected);
    }

    // --- Values with units --------------------------------------------------------------------

    void shouldFormatDoubleValueAndUnits_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("precision");
        QTest::addColumn<FormatMultiplier>("multiplier");
        QTest::addColumn<QString>("units");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();
        const QLocale fr = french();

        QTest::newRow("none") << en << 1500.0 << 1 << FormatMultiplierNone << QStringLiteral("Hz")
                              << NoFlags << QStringLiteral("1500.0 Hz");
        QTest::newRow("none prefix flag")
            << en << 1500.0 << 1 << FormatMultiplierNone << QStringLiteral("Hz") << PrefixBefore
            << QStringLiteral("1500.0 Hz");
        // Scaled although no prefix is written: the caller's units carry it.
        QTest::newRow("kilo scaled only")
            << en << 1500.0 << 1 << FormatMultiplierKilo << QStringLiteral("kHz") << NoFlags
            << QStringLiteral("1.5 kHz");
        QTest::newRow("kilo prefix")
            << en << 1500.0 << 1 << FormatMultiplierKilo << QStringLiteral("Hz") << PrefixBefore
            << QStringLiteral("1.5 kHz");
        QTest::newRow("kilo long name")
            << en << 1500.0 << 1 << FormatMultiplierKilo << QStringLiteral("hertz")
            << (PrefixBefore | LongName) << QStringLiteral("1.5 kilohertz");
        QTest::newRow("long name without prefix flag")
            << en << 1500.0 << 1 << FormatMultiplierKilo << QStringLiteral("Hz") << LongName
            << QStringLiteral("1.5 Hz");
        QTest::newRow("kilo prefix empty units")
            << en << 1500.0 << 1 << FormatMultiplierKilo << QString() << PrefixBefore
            << QStringLiteral("1.5 k");
        QTest::newRow("mega negative")
            << en << -2500000.0 << 2 << FormatMultiplierMega << QStringLiteral("V") << PrefixBefore
            << QStringLiteral("-2.50 MV");
        QTest::newRow("milli") << en << 0.0025 << 1 << FormatMultiplierMilli << QStringLiteral("s")
                               << PrefixBefore << QStringLiteral("2.5 ms");
        QTest::newRow("micro") << en << 12.5e-6 << 1 << FormatMultiplierMicro << QStringLiteral("s")
                               << PrefixBefore
                               << QStringLiteral("12.5 ") + micro + QStringLiteral("s");
        QTest::newRow("micro long")
            << en << 12.5e-6 << 1 << FormatMultiplierMicro << QStringLiteral("seconds")
            << (PrefixBefore | LongName) << QStringLiteral("12.5 microseconds");
        QTest::newRow("nano") << en << 3e-9 << 0 << FormatMultiplierNano << QStringLiteral("m")
                              << PrefixBefore << QStringLiteral("3 nm");
        QTest::newRow("yocto") << en << 7e-24 << 0 << FormatMultiplierYocto << QStringLiteral("g")
                               << PrefixBefore << QStringLiteral("7 yg");
        QTest::newRow("giga large scaled")
            << en << 1234.5e9 << 1 << FormatMultiplierGiga << QStringLiteral("Hz") << PrefixBefore
            << QStringLiteral("1234.5 GHz");
        QTest::newRow("giga large scaled keep")
            << en << 1234.5e9 << 1 << FormatMultiplierGiga << QStringLiteral("Hz")
            << (PrefixBefore | KeepGroups) << QStringLiteral("1,234.5 GHz");
        QTest::newRow("strip passes through")
            << en << 1500.0 << 3 << FormatMultiplierKilo << QStringLiteral("Hz")
            << (PrefixBefore | Strip) << QStringLiteral("1.5 kHz");
        QTest::newRow("omit passes through")
            << en << 2000.0 << 2 << FormatMultiplierKilo << QStringLiteral("Hz")
            << (PrefixBefore | OmitFraction) << QStringLiteral("2 kHz");

        QTest::newRow("binary mebi")
            << en << 3145728.0 << 1 << FormatMultiplierMega << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("3.0 MiB");
        QTest::newRow("binary mebi long")
            << en << 3145728.0 << 1 << FormatMultiplierMega << QStringLiteral("bytes")
            << (Binary | PrefixBefore | LongName) << QStringLiteral("3.0 mebibytes");
        QTest::newRow("binary teti long")
            << en << 2.0 * std::ldexp(1.0, 40) << 0 << FormatMultiplierTera
            << QStringLiteral("bytes") << (Binary | PrefixBefore | LongName)
            << QStringLiteral("2 tetibytes");
        QTest::newRow("binary yobi")
            << en << std::ldexp(1.0, 80) << 0 << FormatMultiplierYotta << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("1 YiB");
        QTest::newRow("binary scaled only")
            << en << 2048.0 << 0 << FormatMultiplierKilo << QStringLiteral("KiB") << Binary
            << QStringLiteral("2 KiB");
        QTest::newRow("binary none")
            << en << 2048.0 << 0 << FormatMultiplierNone << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("2048 B");
        QTest::newRow("binary yocto unscaled")
            << en << 2048.0 << 0 << FormatMultiplierYocto << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("2048 B");
        QTest::newRow("beyond table unscaled")
            << en << 2048.0 << 0 << static_cast<FormatMultiplier>(17) << QStringLiteral("B")
            << PrefixBefore << QStringLiteral("2048 B");
        QTest::newRow("negative index unscaled")
            << en << 2048.0 << 0 << static_cast<FormatMultiplier>(-1) << QStringLiteral("B")
            << PrefixBefore << QStringLiteral("2048 B");
        QTest::newRow("unscaled separators")
            << en << 1234567.0 << 0 << static_cast<FormatMultiplier>(20) << QStringLiteral("B")
            << KeepGroups << QStringLiteral("1,234,567 B");

        QTest::newRow("C kilo") << c << 1500.0 << 2 << FormatMultiplierKilo << QStringLiteral("Hz")
                                << PrefixBefore << QStringLiteral("1.50 kHz");
        QTest::newRow("de kilo") << de << 1500.0 << 1 << FormatMultiplierKilo
                                 << QStringLiteral("Hz") << PrefixBefore
                                 << QStringLiteral("1,5 kHz");
        QTest::newRow("de binary")
            << de << 1536.0 << 2 << FormatMultiplierKilo << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("1,50 KiB");
        QTest::newRow("de unscaled keep")
            << de << 1234567.0 << 0 << FormatMultiplierNone << QStringLiteral("px") << KeepGroups
            << QStringLiteral("1.234.567 px");
        QTest::newRow("fr milli") << fr << 0.0125 << 1 << FormatMultiplierMilli
                                  << QStringLiteral("s") << PrefixBefore
                                  << QStringLiteral("12,5 ms");
    }

    void shouldFormatDoubleValueAndUnits()
    {
        QFETCH(QLocale, locale);
        QFETCH(double, value);
        QFETCH(int, precision);
        QFETCH(FormatMultiplier, multiplier);
        QFETCH(QString, units);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(formatDoubleValueAndUnits(value, precision, multiplier, units, flags, locale),
                 expected);
    }

    void shouldFormatIntegerValueAndUnits_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<qlonglong>("value");
        QTest::addColumn<int>("precision");
        QTest::addColumn<FormatMultiplier>("multiplier");
        QTest::addColumn<QString>("units");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();

        QTest::newRow("C binary kibi")
            << c << 2048LL << 0 << FormatMultiplierKilo << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("2 KiB");
        QTest::newRow("en plain") << en << 640LL << 0 << FormatMultiplierNone
                                  << QStringLiteral("px") << NoFlags << QStringLiteral("640 px");
        QTest::newRow("en fraction from integer")
            << en << -1500LL << 1 << FormatMultiplierKilo << QStringLiteral("Hz") << PrefixBefore
            << QStringLiteral("-1.5 kHz");
        QTest::newRow("en large unscaled")
            << en << 5000000LL << 0 << FormatMultiplierNone << QStringLiteral("px") << NoFlags
            << QStringLiteral("5000000 px");
        QTest::newRow("en large unscaled keep")
            << en << 5000000LL << 0 << FormatMultiplierNone << QStringLiteral("px") << KeepGroups
            << QStringLiteral("5,000,000 px");
        QTest::newRow("en milli scales integer")
            << en << 3LL << 0 << FormatMultiplierMilli << QStringLiteral("s") << PrefixBefore
            << QStringLiteral("3000 ms");
        QTest::newRow("de mega") << de << 2500000LL << 2 << FormatMultiplierMega
                                 << QStringLiteral("B") << (PrefixBefore | Strip)
                                 << QStringLiteral("2,5 MB");
        QTest::newRow("de binary long")
            << de << 1048576LL << 0 << FormatMultiplierMega << QStringLiteral("byte")
            << (Binary | PrefixBefore | LongName) << QStringLiteral("1 mebibyte");
    }

    void shouldFormatIntegerValueAndUnits()
    {
        QFETCH(QLocale, locale);
        QFETCH(qlonglong, value);
        QFETCH(int, precision);
        QFETCH(FormatMultiplier, multiplier);
        QFETCH(QString, units);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(formatIntegerValueAndUnits(value, precision, multiplier, units, flags, locale),
                 expected);
    }

    void shouldFormatUnsignedIntegerValueAndUnits_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<qulonglong>("value");
        QTest::addColumn<int>("precision");
        QTest::addColumn<FormatMultiplier>("multiplier");
        QTest::addColumn<QString>("units");
        QTest::addColumn<FormatValueFlags>("flags");
        QTest::addColumn<QString>("expected");

        const QLocale c = QLocale::c();
        const QLocale en = english();
        const QLocale de = german();

        QTest::newRow("C gibi") << c << 5ULL * 1073741824ULL << 2 << FormatMultiplierGiga
                                << QStringLiteral("B") << (Binary | PrefixBefore)
                                << QStringLiteral("5.00 GiB");
        QTest::newRow("en max exbi")
            << en << ULLONG_MAX << 1 << FormatMultiplierExa << QStringLiteral("B")
            << (Binary | PrefixBefore) << QStringLiteral("16.0 EiB");
        QTest::newRow("en exa decimal")
            << en << 2000000000000000000ULL << 0 << FormatMultiplierExa << QStringLiteral("B")
            << PrefixBefore << QStringLiteral("2 EB");
        QTest::newRow("en plain") << en << 12ULL << 0 << FormatMultiplierNone
                                  << QStringLiteral("fps") << NoFlags << QStringLiteral("12 fps");
        QTest::newRow("de kilo") << de << 1250ULL << 2 << FormatMultiplierKilo
                                 << QStringLiteral("Hz") << PrefixBefore
                                 << QStringLiteral("1,25 kHz");
        QTest::newRow("de unscaled binary beyond yotta")
            << de << 1250ULL << 1 << FormatMultiplierPico << QStringLiteral("B")
            << (Binary | PrefixBefore | KeepGroups) << QStringLiteral("1.250,0 B");
    }

    void shouldFormatUnsignedIntegerValueAndUnits()
    {
        QFETCH(QLocale, locale);
        QFETCH(qulonglong, value);
        QFETCH(int, precision);
        QFETCH(FormatMultiplier, multiplier);
        QFETCH(QString, units);
        QFETCH(FormatValueFlags, flags);
        QFETCH(QString, expected);

        QCOMPARE(
            formatUnsignedIntegerValueAndUnits(value, precision, multiplier, units, flags, locale),
            expected);
    }

    // --- Image count --------------------------------------------------------------------------

    void shouldFormatImageCount_data()
    {
        QTest::addColumn<QLocale>("defaultLocale");
        QTest::addColumn<qulonglong>("images");
        QTest::addColumn<qulonglong>("errors");
        QTest::addColumn<QString>("expected");

        QTest::newRow("C") << QLocale::c() << 1234567ULL << 3ULL
                           << QStringLiteral("Images: 1234567; Errors: 3");
        QTest::newRow("en zero") << english() << 0ULL << 0ULL
                                 << QStringLiteral("Images: 0; Errors: 0");
        QTest::newRow("en keeps separators") << english() << 1234567ULL << 1000ULL
                                             << QStringLiteral("Images: 1,234,567; Errors: 1,000");
        QTest::newRow("en beyond signed range")
            << english() << ULLONG_MAX << 0ULL
            << QStringLiteral("Images: 18,446,744,073,709,551,615; Errors: 0");
        QTest::newRow("de") << german() << 1234567ULL << 2500ULL
                            << QStringLiteral("Images: 1.234.567; Errors: 2.500");
        QTest::newRow("fr") << french() << 10000ULL << 12ULL
                            << QStringLiteral("Images: 10\u202f000; Errors: 12");
    }

    void shouldFormatImageCount()
    {
        QFETCH(QLocale, defaultLocale);
        QFETCH(qulonglong, images);
        QFETCH(qulonglong, errors);
        QFETCH(QString, expected);

        QLocale::setDefault(defaultLocale);
        QCOMPARE(formatImageCount(images, errors), expected);
    }

    void shouldTranslateImageCount()
    {
        m_translator.reset(new FakeTranslator);
        QCoreApplication::installTranslator(m_translator.get());
        QLocale::setDefault(german());
        QCOMPARE(formatImageCount(1234, 0), QStringLiteral("Bilder: 1.234; Fehler: 0"));
    }

    void shouldPutImagesBeforeErrors()
    {
        QLocale::setDefault(english());
        QCOMPARE(formatImageCount(2, 1), QStringLiteral("Images: 2; Errors: 1"));
        QCOMPARE(formatImageCount(1, 2), QStringLiteral("Images: 1; Errors: 2"));
    }

private:
    QLocale m_originalDefaultLocale;
    std::unique_ptr<FakeTranslator> m_translator;

    // A camera's description decides the precision; absurd ones cost neither memory nor time.
    void shouldBoundAbsurdPrecisionsOfTheDescription()
    {
        const int absurd[] = {2147483647, 1000000000, -2147483647 - 1, -7};
        for (const int precision : absurd) {
            const QString fixed = formatDoubleValue(1.5, precision, NoFlags, english());
            QVERIFY2(fixed.size() < 400, qPrintable(QString::number(precision)));
            QVERIFY(fixed.startsWith(QStringLiteral("1")));
            const QString general = formatDoubleValue(1.5, precision, General, english());
            QVERIFY2(general.size() < 32, qPrintable(general));
            QVERIFY(!formatDoubleValue(std::nan(""), precision, NoFlags, english()).isEmpty());
        }
        // At most a double's digits; the value keeps its magnitude.
        QCOMPARE(formatPlainDouble(0.001234, 2147483647, english()), QStringLiteral("0.001234"));
        QCOMPARE(formatPlainDouble(1234.5, 1000000000, english()), QStringLiteral("1234.5"));
        const QString fewest = formatPlainDouble(1234.5, -2147483647 - 1, english());
        QVERIFY2(fewest.startsWith(QStringLiteral("123")) && fewest.size() == 4,
                 qPrintable(fewest));
    }
};

QTEST_GUILESS_MAIN(TestValueFormat)

#include "tst_valueformat.moc"
