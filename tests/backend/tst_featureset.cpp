#include "testsupport.h"

#include <featureset.h>

#include <parametercollection/exception.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace ParameterCollection;
using Backend::FeatureSet;

class tst_FeatureSet : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldReadBackWhatItWrote();
    void shouldKeepStringsExactlyThroughQuotes();
    void shouldIgnoreCommentsAndBlankLines();
    void shouldRefuseBrokenFiles_data();
    void shouldRefuseBrokenFiles();
    void shouldRefuseAnOversizedFileBeforeReadingIt();
    void shouldListOnlyTheDifferences();
};

namespace {

FeatureSet example()
{
    FeatureSet set;
    set.vendor = QStringLiteral("Vanto");
    set.model = QStringLiteral("Sim");
    set.serial = QStringLiteral("0001");
    set.time = QStringLiteral("2026-11-24T15:00:00Z");
    set.lines.append({0, {}, QStringLiteral("Width"), QStringLiteral("1024"), false});
    set.lines.append({0, {}, QStringLiteral("GainSelector"), QStringLiteral("All"), false});
    set.lines.append({0,
                      {{QStringLiteral("GainSelector"), QStringLiteral("AnalogAll")}},
                      QStringLiteral("Gain"),
                      QStringLiteral("3.5"),
                      false});
    set.lines.append({0,
                      {{QStringLiteral("GainSelector"), QStringLiteral("DigitalAll")}},
                      QStringLiteral("Gain"),
                      QStringLiteral("0"),
                      false});
    return set;
}

QStringList linesOf(const FeatureSet& set)
{
    QStringList result;
    for (const auto& line : set.lines) {
        result << FeatureSet::qualifiedName(line) + QStringLiteral(" = ") + line.value;
    }
    return result;
}

const QByteArray kHeader = "Nodescope feature set\nFormat: 1\nVendor: V\nModel: M\nSerial: S\n"
                           "Time: 2026-11-24T15:00:00Z\n\n";

} // namespace

void tst_FeatureSet::shouldReadBackWhatItWrote()
{
    // Given a set with a plain feature, a selector and two selected values
    const FeatureSet set = example();
    // When it is written and read again
    const QByteArray text = set.toText();
    const FeatureSet back = FeatureSet::parse(text, QStringLiteral("example"));
    // Then every line comes back under its selector, with the header
    QCOMPARE(linesOf(back), linesOf(set));
    QCOMPARE(back.vendor, set.vendor);
    QCOMPARE(back.serial, set.serial);
    QCOMPARE(back.time, set.time);
    QVERIFY2(text.contains("\n[GainSelector = AnalogAll]\nGain = 3.5\n"), text.constData());
    QVERIFY(text.endsWith("[End]\n"));
    QCOMPARE(back.lines.at(2).lineNumber, text.left(text.indexOf("Gain = 3.5")).count('\n') + 1);
}

void tst_FeatureSet::shouldKeepStringsExactlyThroughQuotes()
{
    FeatureSet set = example();
    const QString awkward = QStringLiteral(" lab \"A\"\\\n\t end ");
    set.lines.append({0, {}, QStringLiteral("DeviceUserID"), awkward, true});
    set.lines.append({0, {}, QStringLiteral("VntTestString"), QString(), true});
    const FeatureSet back = FeatureSet::parse(set.toText(), QStringLiteral("strings"));
    QCOMPARE(back.lines.at(4).value, awkward);
    QVERIFY(back.lines.at(4).quoted);
    QCOMPARE(back.lines.at(5).value, QString());
}

void tst_FeatureSet::shouldIgnoreCommentsAndBlankLines()
{
    const QByteArray text = kHeader + "# tuned on the line\n\nWidth = 640   \r\n[End]\n\n";
    const FeatureSet set = FeatureSet::parse(text, QStringLiteral("edited"));
    QCOMPARE(linesOf(set), QStringList{QStringLiteral("Width = 640")});
}

void tst_FeatureSet::shouldRefuseBrokenFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QByteArray whole = example().toText();
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\x02\x01\x01\0\0\0",
                                          10)
                            << QStringLiteral("not text");
    QTest::newRow("not utf-8") << QByteArray(kHeader + "Width = \xff\xfe\n[End]\n")
                               << QStringLiteral("not text");
    QTest::newRow("truncated") << whole.left(whole.size() - 8) << QStringLiteral("truncated");
    QTest::newRow("cut in a quote")
        << QByteArray(kHeader + "DeviceUserID = \"abc\n") << QStringLiteral("closing quote");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("does not start");
    QTest::newRow("other file") << QByteArray("<?xml version=\"1.0\"?>\n")
                                << QStringLiteral("does not start");
    QTest::newRow("unknown header")
        << QByteArray("Nodescope feature set\nFormat: 1\nColour: blue\n\n[End]\n")
        << QStringLiteral("unknown header 'Colour'");
    QTest::newRow("future version")
        << QByteArray("Nodescope feature set\nFormat: 2\n\n[End]\n") << QStringLiteral("format 2");
    QTest::newRow("no version") << QByteArray("Nodescope feature set\nVendor: V\n\n[End]\n")
                                << QStringLiteral("no Format");
    QTest::newRow("long line") << QByteArray(kHeader + "Width = " +
                                             QByteArray(FeatureSet::kMaxLineBytes, '1') +
                                             "\n[End]\n")
                               << QStringLiteral("longer than");
    QTest::newRow("too long") << QByteArray(int(FeatureSet::kMaxFileBytes) + 1, ' ')
                              << QStringLiteral("too long");
    QTest::newRow("not a pair") << QByteArray(kHeader + "Width 640\n[End]\n")
                                << QStringLiteral("line 8: expected Name = Value");
    QTest::newRow("bad name") << QByteArray(kHeader + "Wid th = 640\n[End]\n")
                              << QStringLiteral("not a feature name");
    QTest::newRow("quoted selector value")
        << QByteArray(kHeader + "[GainSelector = \"All\"]\nGain = 1\n[End]\n")
        << QStringLiteral("line 8: a block names its selectors");
    QTest::newRow("after end") << QByteArray(kHeader + "[End]\nWidth = 1\n")
                               << QStringLiteral("text after [End]");
}

void tst_FeatureSet::shouldRefuseBrokenFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QString thrown = thrownText<InvalidArgumentException>(
        [&] { FeatureSet::parse(bytes, QStringLiteral("broken.txt")); });
    QVERIFY2(thrown.startsWith(QStringLiteral("[broken.txt]")), qPrintable(thrown));
    QVERIFY2(thrown.contains(reason), qPrintable(thrown));
}

void tst_FeatureSet::shouldRefuseAnOversizedFileBeforeReadingIt()
{
    QTemporaryDir dir;
    QFile big(dir.filePath(QStringLiteral("big.txt")));
    QVERIFY(big.open(QIODevice::WriteOnly));
    QVERIFY(big.resize(qint64(4) * 1024 * 1024 * 1024)); // sparse: 4 GiB of nothing
    big.close();
    const QString thrown =
        thrownText<InvalidArgumentException>([&] { FeatureSet::read(big.fileName()); });
    QVERIFY2(thrown.contains(QStringLiteral("too long")), qPrintable(thrown));
    const QString missing = thrownText<InvalidArgumentException>(
        [&] { FeatureSet::read(dir.filePath(QStringLiteral("none.txt"))); });
    QVERIFY2(missing.contains(QStringLiteral("cannot be read")), qPrintable(missing));
}

void tst_FeatureSet::shouldListOnlyTheDifferences()
{
    // Given two sets that share Width, differ in one Gain and each have a line of their own
    FeatureSet left = example();
    FeatureSet right = example();
    right.lines[3].value = QStringLiteral("6");
    left.lines.append({0, {}, QStringLiteral("Height"), QStringLiteral("480"), false});
    right.lines.append({0, {}, QStringLiteral("ReverseX"), QStringLiteral("true"), false});
    // When they are compared
    const auto differences = FeatureSet::compare(left, right);
    // Then only those three are listed, sorted by name
    QStringList rows;
    for (const auto& d : differences) {
        rows << QStringLiteral("%1|%2|%3|%4").arg(d.name, d.left, d.right).arg(int(d.side));
    }
    QCOMPARE(rows,
             (QStringList{QStringLiteral("Gain [GainSelector = DigitalAll]|0|6|0"),
                          QStringLiteral("Height|480||1"), QStringLiteral("ReverseX||true|2")}));
    QVERIFY(FeatureSet::compare(left, left).isEmpty());
}

QTEST_GUILESS_MAIN(tst_FeatureSet)
#include "tst_featureset.moc"
