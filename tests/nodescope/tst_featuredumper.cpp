#include "testsupport.h"

#include "internal/legacy/featuredumper.h"

#include <deviceparametercollection.h>

#include <QtTest>

namespace {

const QString kRoot = QStringLiteral("@CameraDevice/Root");

QByteArray header()
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<RegisterDescription ModelName=\"Dumper\" VendorName=\"Nodescope\" ToolTip=\"t\"\n"
           "    StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\"\n"
           "    SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\"\n"
           "    SubMinorVersion=\"0\" ProductGuid=\"6a1f3c2e-9b47-4d05-8e3a-2c7d1b5f9e60\"\n"
           "    VersionGuid=\"0d8e4b7a-3f21-4c96-a5e8-7b3c9d1f2a45\"\n"
           "    xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n";
}

QByteArray footer()
{
    return "  <Integer Name=\"Leaf\"><Value>7</Value></Integer>\n"
           "  <Port Name=\"Device\"/>\n</RegisterDescription>\n";
}

// Root → C0 → C1 → … → C(levels-1) → Leaf, each category listing the next `copies` times: with
// two copies there are 2^levels paths to Leaf.
QByteArray categories(int levels, int copies)
{
    QByteArray xml = header() + "  <Category Name=\"Root\"><pFeature>C0</pFeature></Category>\n";
    for (int i = 0; i < levels; ++i) {
        const QByteArray next = i + 1 < levels ? "C" + QByteArray::number(i + 1) : "Leaf";
        xml += "  <Category Name=\"C" + QByteArray::number(i) + "\">";
        for (int copy = 0; copy < copies; ++copy) {
            xml += "<pFeature>" + next + "</pFeature>";
        }
        xml += "</Category>\n";
    }
    return xml + footer();
}

QSharedPointer<Backend::DeviceParameterCollection> open(const QByteArray& xml)
{
    auto collection =
        QSharedPointer<Backend::DeviceParameterCollection>::create(QStringLiteral("dumper"));
    collection->attachSimulated(QStringLiteral("CameraDevice"), xml, QString());
    return collection;
}

// The lines of Root's features, after `lines`.
QStringList dump(const QByteArray& xml, bool* truncated = nullptr, QStringList lines = {})
{
    FeatureDumper dumper(open(xml));
    dumper.dumpCategory(kRoot, 1, lines);
    if (truncated) {
        *truncated = dumper.truncated();
    }
    return lines;
}

} // namespace

class tst_FeatureDumper : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldWriteCategoriesAndFeaturesIndentedByDepth()
    {
        bool truncated = true;
        const QStringList lines = dump(categories(2, 1), &truncated);
        QCOMPARE(lines, (QStringList{QStringLiteral("  C0"), QStringLiteral("    C1"),
                                     QStringLiteral("      Leaf\t7")}));
        QVERIFY(!truncated);
    }

    void shouldWalkDeeplyNestedCategoriesWithinBoundedText()
    {
        // Thousands of nested categories: every one is listed, none deeper than the indent
        // bound, and the walk does not recurse.
        const int depth = 5000;
        bool truncated = true;
        const QStringList lines = dump(categories(depth, 1), &truncated);
        QCOMPARE(lines.size(), depth + 1);
        QCOMPARE(lines.last().trimmed(), QStringLiteral("Leaf\t7"));
        QCOMPARE(lines.last().indexOf(QLatin1Char('L')), FeatureDumper::kMaxIndentDepth * 2);
        QVERIFY(!truncated);
    }

    void shouldListASharedSubCategoryInFullOnlyUpToTheLimit()
    {
        // 40 levels of shared sub-categories make 2^40 paths; the text stays small, and says
        // where contents were left out.
        const int levels = 40;
        bool truncated = true;
        const QStringList lines = dump(categories(levels, 2), &truncated);
        QVERIFY2(lines.size() < levels * 4 * FeatureDumper::kMaxExpansions,
                 qPrintable(QString::number(lines.size())));
        const QString note = FeatureDumper::tr("[contents left out: listed in full %1 times above]")
                                 .arg(FeatureDumper::kMaxExpansions);
        QVERIFY(lines.filter(note).size() > 0);
        // The first expansions are complete: the first path reaches the leaf.
        QCOMPARE(lines.at(levels).trimmed(), QStringLiteral("Leaf\t7"));
        QVERIFY(!truncated);
    }

    void shouldStopWithANoteBeforeTheTextOutgrowsTheBound()
    {
        // Lines already there count against the bound.
        bool truncated = false;
        const QStringList lines =
            dump(categories(3, 1), &truncated,
                 {QString(FeatureDumper::kMaxCharacters - 8, QLatin1Char('x'))});
        QVERIFY(truncated);
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.at(1), QStringLiteral("  C0"));
        QVERIFY2(lines.last().contains(QString::number(FeatureDumper::kMaxCharacters)),
                 qPrintable(lines.last()));
    }

    void shouldCutACategoryLoopAtTheRepeat()
    {
        QByteArray xml = header() +
                         "  <Category Name=\"Root\"><pFeature>A</pFeature></Category>\n"
                         "  <Category Name=\"A\"><pFeature>B</pFeature></Category>\n"
                         "  <Category Name=\"B\"><pFeature>A</pFeature>"
                         "<pFeature>Leaf</pFeature></Category>\n" +
                         footer();
        const QStringList lines = dump(xml);
        // The loop ends at the first repeat at the latest (the backend may already cut it).
        QVERIFY2(lines.size() <= 4, qPrintable(lines.join(QLatin1Char('|'))));
        QCOMPARE(lines.mid(0, 2), (QStringList{QStringLiteral("  A"), QStringLiteral("    B")}));
        QCOMPARE(lines.last(), QStringLiteral("      Leaf\t7"));
    }
};

QTEST_GUILESS_MAIN(tst_FeatureDumper)

#include "tst_featuredumper.moc"
