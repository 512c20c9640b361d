#include "featuredump.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <parametercollection/iparametercollection.h>

#include <QtTest>

using ParameterCollection::CommandParameterData;
using ParameterCollection::Exception;
using ParameterCollection::ParameterData;
using ParameterCollection::RegisterParameterData;
using VantoViewer::FeatureDump;

namespace {

// A camera with what the dump must tell apart: a register shown as such, a reference cycle
// that cannot be read, a long text and a command.
const char kDescription[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<RegisterDescription ModelName=\"DumpCheck\" VendorName=\"Vanto\" StandardNameSpace=\"None\"\n"
    "    SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\"\n"
    "    MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\"\n"
    "    ProductGuid=\"2a0e5a3c-0f4e-4c7b-9a61-3b1f7c2d9e11\" "
    "VersionGuid=\"6b8f2d1e-7c3a-4e59-8d20-1a9c5e7f3b52\"\n"
    "    xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
    "  <Category Name=\"Root\">\n"
    "    <pFeature>Width</pFeature>\n"
    "    <pFeature>OffsetReg</pFeature>\n"
    "    <pFeature>CycleA</pFeature>\n"
    "    <pFeature>LongText</pFeature>\n"
    "    <pFeature>Start</pFeature>\n"
    "  </Category>\n"
    "  <Integer Name=\"Width\"><pValue>WidthReg</pValue><Min>16</Min><Max>4096</Max></Integer>\n"
    "  <IntReg "
    "Name=\"WidthReg\"><Address>0x100</Address><Length>4</Length><AccessMode>RW</AccessMode>\n"
    "    <pPort>Device</pPort><Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></IntReg>\n"
    "  <IntReg "
    "Name=\"OffsetReg\"><Address>0x104</Address><Length>4</Length><AccessMode>RW</AccessMode>\n"
    "    <pPort>Device</pPort><Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></IntReg>\n"
    "  <Integer Name=\"CycleA\"><pValue>CycleB</pValue></Integer>\n"
    "  <Integer Name=\"CycleB\"><pValue>CycleA</pValue></Integer>\n"
    "  <StringReg Name=\"LongText\"><Address>0x200</Address><Length>1024</Length>\n"
    "    <AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg>\n"
    "  <Command Name=\"Start\"><pValue>StartReg</pValue><CommandValue>1</CommandValue></Command>\n"
    "  <IntReg "
    "Name=\"StartReg\"><Address>0x108</Address><Length>4</Length><AccessMode>RW</AccessMode>\n"
    "    <pPort>Device</pPort><Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></IntReg>\n"
    "  <Port Name=\"Device\"/>\n"
    "</RegisterDescription>\n";

// `levels` categories, each reached through two parents from the one above: the paths from
// the root double at every level. Each level has one feature of its own.
QByteArray sharedCategories(int levels)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                     "<RegisterDescription ModelName=\"Shared\" VendorName=\"Vanto\" "
                     "StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" "
                     "SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\" "
                     "SubMinorVersion=\"0\" ProductGuid=\"2a0e5a3c-0f4e-4c7b-9a61-3b1f7c2d9e12\" "
                     "VersionGuid=\"6b8f2d1e-7c3a-4e59-8d20-1a9c5e7f3b53\" "
                     "xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
                     "  <Category Name=\"Root\"><pFeature>Level0</pFeature></Category>\n";
    for (int level = 0; level < levels; ++level) {
        const QByteArray n = QByteArray::number(level);
        const QByteArray next = QByteArray::number(level + 1);
        xml += "  <Category Name=\"Level" + n + "\"><pFeature>Left" + n +
               "</pFeature><pFeature>Right" + n + "</pFeature><pFeature>Value" + n +
               "</pFeature></Category>\n";
        for (const char* side : {"Left", "Right"}) {
            xml += "  <Category Name=\"" + QByteArray(side) + n + "\">";
            if (level + 1 < levels) {
                xml += "<pFeature>Level" + next + "</pFeature>";
            }
            xml += "</Category>\n";
        }
        xml += "  <Integer Name=\"Value" + n + "\"><Value>" + n + "</Value></Integer>\n";
    }
    xml += "</RegisterDescription>\n";
    return xml;
}

struct DumpLine {
    QString feature;
    QString type;
    QString access;
    QString value;
};

// Feature lines of a dump: "  Display (Feature)\tType\tAccess\tValue".
QList<DumpLine> featureLineList(const QString& dump)
{
    QList<DumpLine> lines;
    for (const QString& line : dump.split(QLatin1Char('\n'))) {
        const QStringList columns = line.split(QLatin1Char('\t'));
        if (columns.size() != 4) {
            continue;
        }
        const int open = columns[0].lastIndexOf(QLatin1Char('('));
        const QString feature = columns[0].mid(open + 1).chopped(1);
        lines.append({feature, columns[1], columns[2], columns[3]});
    }
    return lines;
}

// The same by feature name, the first node map's line where several have the feature.
QHash<QString, DumpLine> featureLines(const QString& dump)
{
    QHash<QString, DumpLine> lines;
    for (const DumpLine& line : featureLineList(dump)) {
        if (!lines.contains(line.feature)) {
            lines.insert(line.feature, line);
        }
    }
    return lines;
}

QString dumpOf(const ParameterCollection::IParameterCollection& collection, int* features)
{
    QString text;
    QTextStream out(&text);
    FeatureDump dump(out);
    *features = dump.write(collection);
    return text;
}

} // namespace

class TestFeatureDump : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldPrintAnErrorWithItsReason()
    {
        ParameterData data;
        data.type = ParameterCollection::IntegerType;
        data.implemented = true;
        data.accessMode = GenApi::RO;
        data.errorText = QStringLiteral("Timeout reading 0x100");
        data.errorKind = Exception::Timeout;

        QCOMPARE(FeatureDump::valueText(data), QStringLiteral("<error: Timeout reading 0x100>"));

        // Even when the node could not say whether it is implemented
        data.implemented = false;
        QCOMPARE(FeatureDump::valueText(data), QStringLiteral("<error: Timeout reading 0x100>"));
    }

    void shouldMarkTheValuesOfALostDevice()
    {
        ParameterData data;
        data.type = ParameterCollection::IntegerType;
        data.implemented = data.available = data.readable = true;
        data.displayText = QStringLiteral("640");
        data.unit = QStringLiteral("px");
        data.deviceLost = true;

        QCOMPARE(FeatureDump::valueText(data), QStringLiteral("640 px <device lost>"));
    }

    void shouldShowACommandRunningOnlyWhenItsStateWasRead()
    {
        CommandParameterData command;
        command.type = ParameterCollection::CommandType;
        command.implemented = command.available = true;
        command.done = false;

        command.readable = false;
        QVERIFY(!FeatureDump::valueText(command).contains(QStringLiteral("(running)")));
        command.readable = true;
        QCOMPARE(FeatureDump::valueText(command), QStringLiteral("(running)"));
        command.done = true;
        QCOMPARE(FeatureDump::valueText(command), QStringLiteral("(done)"));
    }

    void shouldPrintARegisterAsItsHexText()
    {
        RegisterParameterData reg;
        reg.type = ParameterCollection::RegisterType;
        reg.implemented = reg.available = reg.readable = true;
        reg.length = 4;
        reg.value = QByteArray::fromHex("0a0b0c0d");
        reg.displayText = QStringLiteral("0x0a0b0c0d");

        QCOMPARE(FeatureDump::valueText(reg), QStringLiteral("0x0a0b0c0d"));
    }

    void shouldCutHugeTextsAndKeepOneLinePerFeature()
    {
        ParameterData data;
        data.type = ParameterCollection::StringType;
        data.implemented = data.available = data.readable = true;
        data.displayText = QStringLiteral("a\tb\nc") + QString(1000, QLatin1Char('x'));

        const QString text = FeatureDump::valueText(data);

        QVERIFY2(text.startsWith(QStringLiteral("a\\tb\\nc")), qPrintable(text));
        QVERIFY(!text.contains(QLatin1Char('\n')));
        QVERIFY(!text.contains(QLatin1Char('\t')));
        QVERIFY2(text.endsWith(QStringLiteral("... <%1 more characters>")
                                   .arg(data.displayText.size() - FeatureDump::MAX_VALUE_CHARS)),
                 qPrintable(text));
        QVERIFY(text.size() < FeatureDump::MAX_VALUE_CHARS + 60);
    }

    void shouldNameTheGenICamTypeOfEveryFeatureOfTheBuiltInCamera()
    {
        Backend::CameraPool pool;
        const auto collection = pool.getParameterCollection(pool.openSimulated());
        int features = 0;
        const QString dump = dumpOf(*collection, &features);

        const QList<DumpLine> lines = featureLineList(dump);
        QVERIFY(features > 300);
        QCOMPARE(lines.size(), features);
        for (const DumpLine& line : lines) {
            QVERIFY2(line.type != QLatin1String("Node"), qPrintable(line.feature));
            QVERIFY2(!line.type.isEmpty(), qPrintable(line.feature));
        }
        QCOMPARE(featureLines(dump).value(QStringLiteral("Width")).type,
                 collection->getParameter(QStringLiteral("@CameraDevice/Width"))
                     ->getProperty(QStringLiteral("Type")));
        pool.closeAll();
    }

    void shouldShowRegistersErrorsAndLongTextsOfADescription()
    {
        Backend::DeviceParameterCollection collection(QStringLiteral("dump check"));
        collection.attachSimulated(QStringLiteral("CameraDevice"), QByteArray(kDescription),
                                   QStringLiteral("LongText=") + QString(700, QLatin1Char('y')));
        int features = 0;
        const QHash<QString, DumpLine> lines = featureLines(dumpOf(collection, &features));

        QCOMPARE(lines.value(QStringLiteral("OffsetReg")).type, QStringLiteral("IntReg"));
        QCOMPARE(lines.value(QStringLiteral("Width")).type, QStringLiteral("Integer"));
        QCOMPARE(lines.value(QStringLiteral("LongText")).type, QStringLiteral("StringReg"));
        QCOMPARE(lines.value(QStringLiteral("Start")).type, QStringLiteral("Command"));
        const QString cycle = lines.value(QStringLiteral("CycleA")).value;
        QVERIFY2(cycle.startsWith(QStringLiteral("<error: ")) &&
                     cycle.contains(QStringLiteral("cycle")),
                 qPrintable(cycle));
        const QString text = lines.value(QStringLiteral("LongText")).value;
        QVERIFY2(text.startsWith(QString(FeatureDump::MAX_VALUE_CHARS, QLatin1Char('y')) +
                                 QStringLiteral("... <")),
                 qPrintable(text));
    }

    void shouldWriteASharedCategoryInFullOnlyUpToALimitAndSaySo()
    {
        // Given 40 levels of categories shared by two parents each: 2^40 paths from the root
        Backend::DeviceParameterCollection collection(QStringLiteral("shared"));
        collection.attachSimulated(QStringLiteral("CameraDevice"), sharedCategories(40));

        int features = 0;
        const QString dump = dumpOf(collection, &features);

        // Then the dump ends; every level is written, the deep ones up to the limit, and the
        // categories left out say why
        const QList<DumpLine> lines = featureLineList(dump);
        QSet<QString> seen;
        for (const DumpLine& line : lines) {
            seen.insert(line.feature);
        }
        for (int level = 0; level < 40; ++level) {
            QVERIFY2(seen.contains(QStringLiteral("Value%1").arg(level)),
                     qPrintable(dump.left(2000)));
        }
        QCOMPARE(dump.count(QStringLiteral("(Value39)")), FeatureDump::MAX_EXPANSIONS);
        QVERIFY(dump.contains(QStringLiteral("<shared: written in full %1 times above, not again>")
                                  .arg(FeatureDump::MAX_EXPANSIONS)));
        qInfo("%d lines, %d features written", int(dump.count(QLatin1Char('\n'))), features);
    }

    void shouldStopAtTheLineLimitWithANote()
    {
        // Given a camera whose dump is longer than the limit
        Backend::DeviceParameterCollection collection(QStringLiteral("shared"));
        collection.attachSimulated(QStringLiteral("CameraDevice"), sharedCategories(4));
        int features = 0;
        const QStringList whole = dumpOf(collection, &features).split(QLatin1Char('\n'));
        QVERIFY(whole.size() > 20);

        // When it is written with a limit of 10 lines
        QString text;
        QTextStream out(&text);
        FeatureDump(out, 10).write(collection);

        // Then the first 10 lines are written, followed by the note and nothing else
        const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 11);
        QCOMPARE(lines.mid(0, 10), whole.mid(0, 10));
        QCOMPARE(lines.last(), QStringLiteral("... the dump stops here: it reached 10 lines"));
    }
};

QTEST_GUILESS_MAIN(TestFeatureDump)
#include "tst_featuredump.moc"
