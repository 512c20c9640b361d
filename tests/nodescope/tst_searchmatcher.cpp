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
        // The same answer as Qt's own case-insensitive search
        QCOMPARE(name.contains(text, Qt::CaseInsensitive), found);
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
