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
        QTest::newRow("letter missing") << "x"
                                        << "GainAuto" << false;
        QTest::newRow("letters present, other order") << "niag"
                                                      << "GainAuto" << true;
        QTest::newRow("other case") << "GAIN"
                                    << "gain" << true;
        QTest::newRow("digit missing") << "2"
                                       << "Line3" << false;
        QTest::newRow("digit sharing its bits") << "2"
                                                << "Line6" << true;
        QTest::newRow("blank missing") << "e t"
                                       << "ExposureTime" << false;
        QTest::newRow("other characters share one bit") << "_"
                                                        << "Exposure (us)" << true;
        QTest::newRow("non-ASCII text rules out nothing") << "\u00b5s"
                                                          << "Gain" << true;
        QTest::newRow("non-ASCII name characters count for nothing") << "s"
                                                                     << "\u00b5" << false;
        QTest::newRow("empty text rules out nothing") << ""
                                                      << "Gain" << true;
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
