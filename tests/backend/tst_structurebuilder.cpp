#include "testsupport.h"

#include <simulateddevice.h>
#include <structurebuilder.h>

#include <QtTest>

using namespace ParameterCollection;
using Backend::SimulatedDevice;
using Backend::StructureBuilder;

namespace {

StructureBuilder::Result build(const char* file)
{
    SimulatedDevice device(testData(QLatin1String(file)), QStringLiteral("CameraDevice"));
    StructureBuilder::Result result =
        StructureBuilder(device.genicam(), QStringLiteral("CameraDevice")).build();
    // The Aravis nodes go with the device; what is checked here is ours alone.
    result.nodes.clear();
    result.commandTargets.fill(nullptr);
    return result;
}

} // namespace

class tst_StructureBuilder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldTypeRegistersAsBytesAndStructEntriesAsIntegers();
    void shouldTakeEveryNamedFeatureInDocumentOrder();
    void shouldLinkCommandsStructEntriesAndConditions();
    void shouldCarryPollingTimeToTheVisibleFeature();
    void shouldReportCyclesByName();
};

void tst_StructureBuilder::shouldTypeRegistersAsBytesAndStructEntriesAsIntegers()
{
    QCOMPARE(StructureBuilder::typeOfElement("Register"), int(RegisterType));
    QCOMPARE(StructureBuilder::typeOfElement("StructReg"), int(RegisterType));
    QCOMPARE(StructureBuilder::typeOfElement("StructEntry"), int(IntegerType));
    QCOMPARE(StructureBuilder::typeOfElement("Converter"), int(FloatType));
    QCOMPARE(StructureBuilder::typeOfElement("Port"), int(UnknownType));
}

void tst_StructureBuilder::shouldTakeEveryNamedFeatureInDocumentOrder()
{
    const auto result = build("honest.xml");
    const auto& s = *result.structure;
    QCOMPARE(s.nodes.first().fullName, QStringLiteral("@CameraDevice/Root"));
    QCOMPARE(s.rootIndex, 0);
    QVERIFY(s.indexOf(QStringLiteral("StatusBlock")) < s.indexOf(QStringLiteral("StatusReady")));
    const Backend::NodeInfo& buffer = s.nodes[s.indexOf(QStringLiteral("UserBuffer"))];
    QCOMPARE(buffer.type, int(RegisterType));
    QCOMPARE(buffer.nodeType, QStringLiteral("Register"));
    QCOMPARE(buffer.displayName, QStringLiteral("User Buffer"));
    QCOMPARE(s.nodes[s.indexOf(QStringLiteral("StatusBlock"))].type, int(RegisterType));
    QCOMPARE(s.nodes[s.indexOf(QStringLiteral("ExposureTime"))].displayNotation,
             int(FloatParameterData::Automatic));
    QCOMPARE(s.indexOf(QStringLiteral("Device")), -1); // a port is no feature
}

void tst_StructureBuilder::shouldLinkCommandsStructEntriesAndConditions()
{
    const auto result = build("honest.xml");
    const auto& s = *result.structure;
    const auto& graph = result.graph;
    const int ready = s.indexOf(QStringLiteral("StatusReady"));
    QCOMPARE(graph.valueTargets(ready), QVector<int>{s.indexOf(QStringLiteral("StatusBlock"))});
    const int stop = s.indexOf(QStringLiteral("StopNow"));
    QCOMPARE(graph.valueTargets(stop), QVector<int>{s.indexOf(QStringLiteral("StopReg"))});
    QCOMPARE(result.commandValues[stop], 1);
    const int guarded = s.indexOf(QStringLiteral("Guarded"));
    QVERIFY(graph.dependencyClosure(s.indexOf(QStringLiteral("PeriodReg"))).contains(guarded));
    // The formula behind its availability reads the frame rate, which a user can see.
    QCOMPARE(graph.deciders(guarded, Backend::NodeMapGraph::Condition::Available),
             QVector<int>{s.indexOf(QStringLiteral("FrameRate"))});
    QCOMPARE(s.nodes[s.indexOf(QStringLiteral("Factory"))].children,
             QVector<int>{s.indexOf(QStringLiteral("FactoryKey"))});
}

void tst_StructureBuilder::shouldCarryPollingTimeToTheVisibleFeature()
{
    const auto result = build("minimal.xml");
    const auto& s = *result.structure;
    QCOMPARE(s.nodes[s.indexOf(QStringLiteral("Temperature"))].pollingTime, 1000);
    QCOMPARE(s.nodes[s.indexOf(QStringLiteral("Width"))].pollingTime, 0);
}

void tst_StructureBuilder::shouldReportCyclesByName()
{
    const auto cycles = build("pvaluecycle.xml");
    QVERIFY2(cycles.structure->problems.contains(
                 QStringLiteral("CycleA takes part in a reference cycle")),
             qPrintable(cycles.structure->problems.join(QLatin1Char('\n'))));
    QVERIFY(cycles.structure->nodes[cycles.structure->indexOf(QStringLiteral("CycleC"))].cyclic);
    const auto categories = build("selfcategory.xml");
    QVERIFY2(categories.structure->problems.contains(
                 QStringLiteral("Category ImageFormatControl contains itself")),
             qPrintable(categories.structure->problems.join(QLatin1Char('\n'))));
    QVERIFY(categories.structure->problems.contains(
        QStringLiteral("Category cycle through Loop and ImageFormatControl")));
}

QTEST_GUILESS_MAIN(tst_StructureBuilder)
#include "tst_structurebuilder.moc"
