#include "internal/legacy/nodemapfilterfile.h"

#include <QBuffer>
#include <QDomDocument>
#include <QDomElement>
#include <QDomNodeList>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray nested(int depth)
{
    QByteArray text = "<?xml version=\"1.0\"?>\n<NodeMapFilter>\n<Node><Name>Width</Name>";
    for (int i = 0; i < depth; ++i) {
        text += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text + "</Node>\n</NodeMapFilter>\n";
}

QSharedPointer<NodeMapFilterFile> readText(const QByteArray& text)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return NodeMapFilterFile::read(buffer, QStringLiteral("memory.xml"));
}

// XML reads every line end as a line feed; the document tree leaves carriage returns in. XML
// has no NUL character; the document tree keeps it, the streaming reader drops it.
QString normalizedLineEnds(QString text)
{
    text.remove(QChar(0));
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

// What a document tree makes of the same text: the first element of each kind among the
// descendants of each child of the document element, and its text.
QVector<NodeMapFilterFile::Item> readAsTree(const QByteArray& text)
{
    QDomDocument doc;
    if (!doc.setContent(text)) {
        return {};
    }
    QVector<NodeMapFilterFile::Item> items;
    for (QDomElement element = doc.documentElement().firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        NodeMapFilterFile::Item item;
        const auto first = [&](const char* tag, bool* has) {
            const QDomNodeList found = element.elementsByTagName(QLatin1String(tag));
            *has = !found.isEmpty();
            return *has ? normalizedLineEnds(found.at(0).toElement().text()) : QString();
        };
        item.name = first("Name", &item.hasName);
        item.visibility = first("Visibility", &item.hasVisibility);
        item.accessMode = first("AccessMode", &item.hasAccessMode);
        items.append(item);
    }
    return items;
}

bool writeFile(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

} // namespace

class tst_NodeMapFilterFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { NodeMapFilterFile::clearCache(); }

    void shouldReadItemsAsTheDocumentTreeReadsThem_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("plain") << QByteArray(
            "<F><Node><Name>Width</Name><Visibility>Guru</Visibility>"
            "<AccessMode>RO</AccessMode></Node><Node><Name>Gain</Name></Node></F>");
        QTest::newRow("any tags, any order") << QByteArray(
            "<F><X><AccessMode>RO</AccessMode><Name>Width</Name></X><Y/><Z>text</Z></F>");
        QTest::newRow("nested and repeated") << QByteArray(
            "<F><Node><Deep><Name>Wi<b>dth</b></Name></Deep><Name>Second</Name>"
            "<Visibility><Visibility>Inner</Visibility>Outer</Visibility></Node></F>");
        QTest::newRow("cdata, comments, entities, blanks")
            << QByteArray("<F>\n  <Node>\n    <Name> <![CDATA[A&B]]><!-- no -->&amp;C </Name>\n"
                          "    <Visibility>\n    </Visibility>\n  </Node>\n</F>");
        QTest::newRow("prefixed tags") << QByteArray(
            "<F xmlns:p=\"urn:x\"><Node><p:Name>Prefixed</p:Name><Name>Plain</Name></Node></F>");
        QTest::newRow("elements inside one another")
            << QByteArray("<F><Node><Name>W</Name><Visibility>G<AccessMode>RO</AccessMode>u"
                          "<Name>inner</Name></Visibility></Node></F>");
        QTest::newRow("carriage returns")
            << QByteArray("<F><Node><Name>N\r\r\rope\r\n</Name></Node></F>");
        QTest::newRow("nul") << QByteArray(
            "<F><Node><Name>N]\0o</Name></Node><Node><Name>x</Name></Node></F>", 64);
        QTest::newRow("empty name") << QByteArray("<F><Node><Name/></Node></F>");
        QTest::newRow("empty document element") << QByteArray("<F/>");
    }
    void shouldReadItemsAsTheDocumentTreeReadsThem()
    {
        QFETCH(QByteArray, text);
        const auto file = readText(text);
        QVERIFY2(file->isValid(), qPrintable(file->errorString()));
        const QVector<NodeMapFilterFile::Item> expected = readAsTree(text);
        QCOMPARE(file->items().size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            const NodeMapFilterFile::Item& item = file->items().at(i);
            QCOMPARE(item.hasName, expected[i].hasName);
            QCOMPARE(item.name, expected[i].name);
            QCOMPARE(item.hasVisibility, expected[i].hasVisibility);
            QCOMPARE(item.visibility, expected[i].visibility);
            QCOMPARE(item.hasAccessMode, expected[i].hasAccessMode);
            QCOMPARE(item.accessMode, expected[i].accessMode);
        }
    }

    void shouldRefuseNestingDeeperThanTheLimitWithoutRecursion()
    {
        // 30 000 levels overflow a recursive reader's stack; this one says where it stopped.
        const auto deep = readText(nested(30000));
        QVERIFY(!deep->isValid());
        QVERIFY(deep->items().isEmpty());
        QVERIFY2(deep->errorString().contains(QString::number(NodeMapFilterFile::kMaxDepth)),
                 qPrintable(deep->errorString()));
        QCOMPARE(deep->errorLine(), 3);
        QVERIFY(deep->errorColumn() > 0);

        // At the limit the file is read.
        const auto atLimit = readText(nested(NodeMapFilterFile::kMaxDepth - 3));
        QVERIFY2(atLimit->isValid(), qPrintable(atLimit->errorString()));
        QCOMPARE(atLimit->items().size(), 1);
        QCOMPARE(atLimit->items().first().name, QStringLiteral("Width"));
    }

    void shouldTellWhereAMalformedFileBreaks()
    {
        const auto file = readText("<F>\n<Node>\n</F>\n");
        QVERIFY(!file->isValid());
        QCOMPARE(file->errorLine(), 3);
        QVERIFY(!file->errorString().isEmpty());
        QVERIFY(file->items().isEmpty());
        QVERIFY(!readText("")->isValid());
        QVERIFY(!readText("<F><Node>&undeclared;</Node></F>")->isValid());
    }

    void shouldReadAFileOncePerVersion()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Default_Filter.xml"));
        QVERIFY(writeFile(path, "<F><Node><Name>Width</Name></Node></F>"));
        const auto first = NodeMapFilterFile::load(path);
        QVERIFY(first && first->isValid());
        QCOMPARE(NodeMapFilterFile::load(path), first);

        // A new version of the file is read again.
        QVERIFY(
            writeFile(path, "<F><Node><Name>Gain</Name></Node><Node><Name>X</Name></Node></F>"));
        const auto second = NodeMapFilterFile::load(path);
        QVERIFY(second != first);
        QCOMPARE(second->items().size(), 2);
        QCOMPARE(second->items().first().name, QStringLiteral("Gain"));

        // A file that does not open is no file.
        QVERIFY(!NodeMapFilterFile::load(dir.filePath(QStringLiteral("missing.xml"))));
    }

    void shouldReportAProblemOncePerVersionWithFileLineAndReason()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Default_Filter.xml"));
        QVERIFY(writeFile(path, nested(1000)));
        const auto file = NodeMapFilterFile::load(path);
        QVERIFY(file && !file->isValid());
        const QString report = file->takeProblemReport();
        QVERIFY2(report.contains(path), qPrintable(report));
        QVERIFY2(report.contains(QStringLiteral("line 3")), qPrintable(report));
        QVERIFY2(report.contains(file->errorString()), qPrintable(report));
        QVERIFY(NodeMapFilterFile::load(path)->takeProblemReport().isEmpty());

        // A good file has nothing to report.
        QVERIFY(readText("<F/>")->takeProblemReport().isEmpty());
    }

    void shouldReadAHundredThousandItemsInOnePass()
    {
        QByteArray text = "<F>\n";
        for (int i = 0; i < 100000; ++i) {
            text += "<Node><Name>F" + QByteArray::number(i) +
                    "</Name><Visibility>Guru</Visibility></Node>\n";
        }
        text += "</F>\n";
        const auto file = readText(text);
        QVERIFY(file->isValid());
        QCOMPARE(file->items().size(), 100000);
        QCOMPARE(file->items().last().name, QStringLiteral("F99999"));
        QCOMPARE(file->items().last().line, 100001);
    }
};

QTEST_GUILESS_MAIN(tst_NodeMapFilterFile)

#include "tst_nodemapfilterfile.moc"
