#include "internal/legacy/featuretreehighlighter.h"

#include <QColor>
#include <QtTest>

namespace {

using Ranges = QVector<QPair<int, int>>;

const QString kOpen = QStringLiteral("<span style='background-color:#ffffa7; font-weight:bold'>");
const QString kClose = QStringLiteral("</span>");

QString marked(const QString& text)
{
    return kOpen + text + kClose;
}

} // namespace

class tst_FeatureTreeHighlighter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldStartWithoutTextAndHighlightNothing();
    void shouldReturnStoredTextAndItsLength_data();
    void shouldReturnStoredTextAndItsLength();
    void shouldUseOpaqueSearchYellow();
    void shouldFindEveryOccurrenceIgnoringCaseWithoutOverlap_data();
    void shouldFindEveryOccurrenceIgnoringCaseWithoutOverlap();
    void shouldWrapEachOccurrenceInHighlightSpan_data();
    void shouldWrapEachOccurrenceInHighlightSpan();
    void shouldFollowANewHighlightText();
};

void tst_FeatureTreeHighlighter::shouldStartWithoutTextAndHighlightNothing()
{
    const FeatureTreeHighlighter highlighter;

    QCOMPARE(highlighter.getTextToHighlight(), QString());
    QCOMPARE(highlighter.getTextToHighlightLength(), 0);
    QCOMPARE(highlighter.getIndicesToHighlight(QStringLiteral("Width")), Ranges());
    QCOMPARE(highlighter.highlightText(QStringLiteral("Width")), QStringLiteral("Width"));
}

void tst_FeatureTreeHighlighter::shouldReturnStoredTextAndItsLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("length");

    QTest::newRow("word") << QStringLiteral("Gain") << 4;
    QTest::newRow("with blank") << QStringLiteral("Black Level") << 11;
    QTest::newRow("umlaut") << QStringLiteral("Gr\u00f6\u00dfe") << 5;
    QTest::newRow("empty") << QString() << 0;
}

void tst_FeatureTreeHighlighter::shouldReturnStoredTextAndItsLength()
{
    QFETCH(QString, text);
    QFETCH(int, length);
    FeatureTreeHighlighter highlighter;

    highlighter.setTextToHighlight(text);

    QCOMPARE(highlighter.getTextToHighlight(), text);
    QCOMPARE(highlighter.getTextToHighlightLength(), length);
}

void tst_FeatureTreeHighlighter::shouldUseOpaqueSearchYellow()
{
    const FeatureTreeHighlighter highlighter;

    const QColor color = highlighter.getHighlightColor();

    QCOMPARE(color, QColor(255, 255, 167));
    QCOMPARE(color.alpha(), 255);
    QCOMPARE(color.name(), QStringLiteral("#ffffa7"));
    QCOMPARE(SEARCH_HIGHLIGHT_COLOR, color);
}

void tst_FeatureTreeHighlighter::shouldFindEveryOccurrenceIgnoringCaseWithoutOverlap_data()
{
    QTest::addColumn<QString>("highlight");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Ranges>("ranges");

    QTest::newRow("whole text") << QStringLiteral("Gain") << QStringLiteral("Gain")
                                << Ranges{{0, 4}};
    QTest::newRow("other case") << QStringLiteral("GAIN") << QStringLiteral("AnalogGain")
                                << Ranges{{6, 10}};
    QTest::newRow("several") << QStringLiteral("ai") << QStringLiteral("GainRaw_gAIn")
                             << Ranges{{1, 3}, {9, 11}};
    QTest::newRow("continues after each match")
        << QStringLiteral("aa") << QStringLiteral("aaaa") << Ranges{{0, 2}, {2, 4}};
    QTest::newRow("no overlap") << QStringLiteral("aa") << QStringLiteral("aaa") << Ranges{{0, 2}};
    QTest::newRow("at the end") << QStringLiteral("th") << QStringLiteral("Width")
                                << Ranges{{3, 5}};
    QTest::newRow("single letters")
        << QStringLiteral("a") << QStringLiteral("Banana") << Ranges{{1, 2}, {3, 4}, {5, 6}};
    QTest::newRow("parenthesis is text")
        << QStringLiteral("Gain(") << QStringLiteral("Gain(dB)") << Ranges{{0, 5}};
    QTest::newRow("dot is text") << QStringLiteral(".") << QStringLiteral("a.b.c")
                                 << Ranges{{1, 2}, {3, 4}};
    QTest::newRow("dot matches no letter")
        << QStringLiteral(".") << QStringLiteral("abc") << Ranges();
    QTest::newRow("non-Latin case")
        << QStringLiteral("\u00e4") << QStringLiteral("\u00c4x\u00e4") << Ranges{{0, 1}, {2, 3}};
    QTest::newRow("absent") << QStringLiteral("x") << QStringLiteral("Width") << Ranges();
    QTest::newRow("longer than text")
        << QStringLiteral("Widths") << QStringLiteral("Width") << Ranges();
    QTest::newRow("empty highlight") << QString() << QStringLiteral("Width") << Ranges();
    QTest::newRow("empty text") << QStringLiteral("W") << QString() << Ranges();
}

void tst_FeatureTreeHighlighter::shouldFindEveryOccurrenceIgnoringCaseWithoutOverlap()
{
    QFETCH(QString, highlight);
    QFETCH(QString, text);
    QFETCH(Ranges, ranges);
    FeatureTreeHighlighter highlighter;
    highlighter.setTextToHighlight(highlight);

    const Ranges found = highlighter.getIndicesToHighlight(text);

    QCOMPARE(found, ranges);
    // Each range covers exactly one occurrence of the highlight text.
    for (const auto& range : found) {
        QCOMPARE(range.second - range.first, highlighter.getTextToHighlightLength());
        QCOMPARE(text.mid(range.first, range.second - range.first).toCaseFolded(),
                 highlight.toCaseFolded());
    }
}

void tst_FeatureTreeHighlighter::shouldWrapEachOccurrenceInHighlightSpan_data()
{
    QTest::addColumn<QString>("highlight");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("markup");

    QTest::newRow("suffix, original case kept")
        << QStringLiteral("gain") << QStringLiteral("AnalogGain")
        << QStringLiteral("Analog") + marked(QStringLiteral("Gain"));
    QTest::newRow("whole text") << QStringLiteral("WIDTH") << QStringLiteral("Width")
                                << marked(QStringLiteral("Width"));
    QTest::newRow("prefix") << QStringLiteral("bl") << QStringLiteral("Black Level")
                            << marked(QStringLiteral("Bl")) + QStringLiteral("ack Level");
    QTest::newRow("every occurrence")
        << QStringLiteral("a") << QStringLiteral("Banana")
        << QStringLiteral("B") + marked(QStringLiteral("a")) + QStringLiteral("n") +
               marked(QStringLiteral("a")) + QStringLiteral("n") + marked(QStringLiteral("a"));
    QTest::newRow("no overlap") << QStringLiteral("aa") << QStringLiteral("aaa")
                                << marked(QStringLiteral("aa")) + QStringLiteral("a");
    QTest::newRow("adjacent") << QStringLiteral("ab") << QStringLiteral("abAB")
                              << marked(QStringLiteral("ab")) + marked(QStringLiteral("AB"));
    QTest::newRow("absent") << QStringLiteral("x") << QStringLiteral("Width")
                            << QStringLiteral("Width");
    QTest::newRow("empty highlight")
        << QString() << QStringLiteral("Width") << QStringLiteral("Width");
    QTest::newRow("empty text") << QStringLiteral("W") << QString() << QString();
}

void tst_FeatureTreeHighlighter::shouldWrapEachOccurrenceInHighlightSpan()
{
    QFETCH(QString, highlight);
    QFETCH(QString, text);
    QFETCH(QString, markup);
    FeatureTreeHighlighter highlighter;
    highlighter.setTextToHighlight(highlight);

    QCOMPARE(highlighter.highlightText(text), markup);
}

void tst_FeatureTreeHighlighter::shouldFollowANewHighlightText()
{
    // Given a highlighter that marks "Gain"
    FeatureTreeHighlighter highlighter;
    highlighter.setTextToHighlight(QStringLiteral("Gain"));
    QCOMPARE(highlighter.getIndicesToHighlight(QStringLiteral("GainAuto")), (Ranges{{0, 4}}));

    // When the search text changes
    highlighter.setTextToHighlight(QStringLiteral("Auto"));

    // Then only the new text is marked
    QCOMPARE(highlighter.getTextToHighlightLength(), 4);
    QCOMPARE(highlighter.getIndicesToHighlight(QStringLiteral("GainAuto")), (Ranges{{4, 8}}));
    QCOMPARE(highlighter.highlightText(QStringLiteral("GainAuto")),
             QStringLiteral("Gain") + marked(QStringLiteral("Auto")));

    // and clearing it marks nothing
    highlighter.setTextToHighlight(QString());
    QCOMPARE(highlighter.getIndicesToHighlight(QStringLiteral("GainAuto")), Ranges());
    QCOMPARE(highlighter.highlightText(QStringLiteral("GainAuto")), QStringLiteral("GainAuto"));
}

QTEST_MAIN(tst_FeatureTreeHighlighter)
#include "tst_featuretreehighlighter.moc"
