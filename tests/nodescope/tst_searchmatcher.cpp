#include "internal/legacy/searchmatcher.h"

#include <QtTest>

class tst_SearchMatcher : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldFindTextAsPlainSubstringIgnoringCase_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("found");
        QTest::newRow("same case") << "Gain"
                                   << "GainAuto" << true;
        QTest::newRow("other case") << "gAIN"
                                    << "AutoGain" << true;
        QTest::newRow("inside") << "posure"
                                << "ExposureTime" << true;
        QTest::newRow("at the end") << "time"
                                    << "ExposureTime" << true;
        QTest::newRow("whole name") << "width"
                                    << "Width" << true;
        QTest::newRow("longer than the name") << "Widths"
                                              << "Width" << false;
        QTest::newRow("absent") << "Gamma"
                                << "Gain" << false;
        QTest::newRow("pattern characters are text") << "Gain("
                                                     << "Gain(dB)" << true;
        QTest::newRow("no pattern meaning") << "G.in"
                                            << "Gain" << false;
        QTest::newRow("dot is a dot") << "1.5"
                                      << "Version 1.5" << true;
        QTest::newRow("blank") << "time a"
                               << "Exposure Time Abs" << true;
        QTest::newRow("one character") << "x"
                                       << "OffsetX" << true;
        QTest::newRow("empty name") << "Gain"
                                    << "" << false;
        QTest::newRow("non-ASCII text") << "µS"
                                        << "Exposure (µs)" << true;
        QTest::newRow("non-ASCII name, ASCII text") << "us"
                                                    << "Exposure (µs)" << false;
        QTest::newRow("non-ASCII case") << "ÄRGER"
                                        << "Ärger" << true;
        QTest::newRow("Latin-1 letter is not folded to ASCII") << "a"
                                                               << "Ä" << false;
    }
    void shouldFindTextAsPlainSubstringIgnoringCase()
    {
        QFETCH(QString, text);
        QFETCH(QString, name);
        QFETCH(bool, found);
        QCOMPARE(SearchMatcher(text).matches(name), found);
        // And the quick test by characters never rules out a name that holds the text
        if (found) {
            QVERIFY(SearchMatcher(text).mayMatch(SearchMatcher::charactersOf(name)));
        }
        // The same answer as Qt's own case-insensitive search
        QCOMPARE(name.contains(text, Qt::CaseInsensitive), found);
    }

    void shouldRuleOutNamesLackingACharacterOfAnAsciiText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("possible");
        const struct {
            const char* row;
            const char* text;
            const char* name;
            bool possible;
        } cases[] = {
            {"letter missing", "x", "GainAuto", false},
            {"letters present, other order", "niag", "GainAuto", true},
            {"other case", "GAIN", "gain", true},
            {"digit missing", "2", "Line3", false},
            {"digit sharing its bits", "2", "Line6", true},
            {"blank missing", "e t", "ExposureTime", false},
            {"other characters share one bit", "_", "Exposure (us)", true},
            {"non-ASCII text rules out nothing", "\u00b5s", "Gain", true},
            {"non-ASCII name characters count for nothing", "s", "\u00b5", false},
            {"empty text rules out nothing", "", "Gain", true},
        };
        for (const auto& c : cases) {
            QTest::newRow(c.row) << QString::fromUtf8(c.text) << QString::fromUtf8(c.name)
                                 << c.possible;
        }
    }
    void shouldRuleOutNamesLackingACharacterOfAnAsciiText()
    {
        QFETCH(QString, text);
        QFETCH(QString, name);
        QFETCH(bool, possible);
        QCOMPARE(SearchMatcher(text).mayMatch(SearchMatcher::charactersOf(name)), possible);
        // Ruled out means not found
        if (!possible) {
            QVERIFY(!SearchMatcher(text).matches(name));
        }
    }

    void shouldGiveEveryNameSomeCharacters()
    {
        // 0 stays free for "not known yet"
        QVERIFY(SearchMatcher::charactersOf(QString()) != 0);
        QVERIFY(SearchMatcher::charactersOf(QStringLiteral("\u00e4")) != 0);
    }

    void shouldMatchNothingForAnEmptyText()
    {
        const SearchMatcher matcher{QString()};
        QVERIFY(matcher.isEmpty());
        QVERIFY(!matcher.matches(QStringLiteral("Gain")));
        QVERIFY(!matcher.matches(QString()));
    }
};

QTEST_GUILESS_MAIN(tst_SearchMatcher)
#include "tst_searchmatcher.moc"
