#include <nodemapgraph.h>

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>

using Backend::NodeMapGraph;
using Condition = NodeMapGraph::Condition;

namespace {

QVector<int> sorted(QVector<int> v)
{
    std::sort(v.begin(), v.end());
    return v;
}

} // namespace

class tst_NodeMapGraph : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldBreakCategoryCyclesWhereTheyClose();
    void shouldNotLetACategoryContainItself();
    void shouldTaintReferenceCyclesAndWhoeverEvaluatesThem();
    void shouldTraceEveryEvaluatorOfADefectToIt();
    void shouldCarryTheShortestPollingTimeUpThePValueChain();
    void shouldCloseAWriteOverValueTargetsAndDependents();
    void shouldMakeSelectedFeaturesDependOnTheirSelector();
    void shouldNameTheVisibleFeaturesThatDecideACondition();
    void shouldFindTheDeciderBehindHiddenConverters();
    void shouldNeverNameTheFeatureItself();
    void shouldStayLinearOnLongChains();
};

void tst_NodeMapGraph::shouldBreakCategoryCyclesWhereTheyClose()
{
    // Given Root[A[B[A Leaf]]]
    enum { Root, A, B, Leaf, Count };
    NodeMapGraph graph(Count);
    graph.addCategoryChild(Root, A);
    graph.addCategoryChild(A, B);
    graph.addCategoryChild(B, A);
    graph.addCategoryChild(B, Leaf);
    // When
    graph.finish();
    // Then B no longer leads back to A, and the defect is reported
    QCOMPARE(graph.children(Root), QVector<int>{A});
    QCOMPARE(graph.children(A), QVector<int>{B});
    QCOMPARE(graph.children(B), QVector<int>{Leaf});
    QCOMPARE(graph.problems().size(), 1);
    QCOMPARE(graph.problems().at(0).kind, NodeMapGraph::ProblemKind::CategoryCycle);
    QCOMPARE(graph.problems().at(0).node, int(B));
    QCOMPARE(graph.problems().at(0).other, int(A));
    QVERIFY(graph.isListed(Leaf));
    QVERIFY(!graph.isListed(Root));
}

void tst_NodeMapGraph::shouldTraceEveryEvaluatorOfADefectToIt()
{
    // Given Feature -> Converter -> Register (defective), Other -> Sound, and Limit read as
    // the availability of Feature
    enum { Feature, Converter, Register, Other, Sound, Limit, Count };
    NodeMapGraph graph(Count);
    graph.addValueTarget(Feature, Converter);
    graph.addEvaluation(Converter, Register);
    graph.addValueTarget(Other, Sound);
    graph.addCondition(Limit, Condition::Available, Feature);
    graph.addDefect(Register);
    // When
    graph.finish();
    // Then whoever evaluates the register, however far up, names it; nothing else does
    QCOMPARE(graph.defectSource(Register), int(Register));
    QCOMPARE(graph.defectSource(Converter), int(Register));
    QCOMPARE(graph.defectSource(Feature), int(Register));
    QCOMPARE(graph.defectSource(Limit), int(Register));
    QCOMPARE(graph.defectSource(Other), -1);
    QCOMPARE(graph.defectSource(Sound), -1);
}

void tst_NodeMapGraph::shouldNotLetACategoryContainItself()
{
    NodeMapGraph graph(2);
    graph.addCategoryChild(0, 0);
    graph.addCategoryChild(0, 1);
    graph.finish();
    QCOMPARE(graph.children(0), QVector<int>{1});
    QCOMPARE(graph.problems().size(), 1);
    QCOMPARE(graph.problems().at(0).kind, NodeMapGraph::ProblemKind::CategoryContainsItself);
}

void tst_NodeMapGraph::shouldTaintReferenceCyclesAndWhoeverEvaluatesThem()
{
    // Given X -> Y -> Z -> X, Reader -> X, Self -> Self, and an innocent pair
    enum { X, Y, Z, Reader, Self, Innocent, Register, Count };
    NodeMapGraph graph(Count);
    graph.addValueTarget(X, Y);
    graph.addEvaluation(Y, Z);
    graph.addCondition(Z, Condition::Locked, X);
    graph.addEvaluation(Reader, X);
    graph.addEvaluation(Self, Self);
    graph.addValueTarget(Innocent, Register);
    graph.finish();
    for (int node : {X, Y, Z, Reader, Self}) {
        QVERIFY2(graph.isCyclic(node), qPrintable(QString::number(node)));
    }
    QVERIFY(!graph.isCyclic(Innocent));
    QVERIFY(!graph.isCyclic(Register));
    // Only the members of a cycle are reported, not their evaluators.
    QCOMPARE(graph.problems().size(), 4);
    for (const auto& problem : graph.problems()) {
        QCOMPARE(problem.kind, NodeMapGraph::ProblemKind::ReferenceCycle);
        QVERIFY(problem.node != Reader);
    }
}

void tst_NodeMapGraph::shouldCarryTheShortestPollingTimeUpThePValueChain()
{
    // Given Feature -> Converter -> Register(500), Other(200) -> Register, Plain -> PlainReg
    enum { Feature, Converter, Register, Other, Plain, PlainReg, Count };
    NodeMapGraph graph(Count);
    graph.addValueTarget(Feature, Converter);
    graph.addValueTarget(Converter, Register);
    graph.setOwnPollingTime(Register, 500);
    graph.addValueTarget(Other, Register);
    graph.setOwnPollingTime(Other, 200);
    graph.addValueTarget(Plain, PlainReg);
    graph.finish();
    QCOMPARE(graph.pollingTime(Feature), 500);
    QCOMPARE(graph.pollingTime(Converter), 500);
    QCOMPARE(graph.pollingTime(Register), 500);
    QCOMPARE(graph.pollingTime(Other), 200);
    QCOMPARE(graph.pollingTime(Plain), 0);
}

void tst_NodeMapGraph::shouldCloseAWriteOverValueTargetsAndDependents()
{
    // Given the shape of a camera's Width and PayloadSize
    enum { Width, WidthReg, Payload, PayloadReg, Area, Temperature, TemperatureReg, Count };
    NodeMapGraph graph(Count);
    graph.addValueTarget(Width, WidthReg);
    graph.addValueTarget(Payload, PayloadReg);
    graph.addInvalidator(PayloadReg, WidthReg);
    graph.addEvaluation(Area, Width);
    graph.addValueTarget(Temperature, TemperatureReg);
    graph.finish();
    // When Width is written, then exactly what can change is re-read, Width first
    const QVector<int> closure = graph.dependencyClosure(Width);
    QCOMPARE(closure.first(), int(Width));
    QCOMPARE(sorted(closure), (QVector<int>{Width, WidthReg, Payload, PayloadReg, Area}));
    QCOMPARE(graph.dependents(WidthReg), (QVector<int>{Width, PayloadReg}));
}

void tst_NodeMapGraph::shouldMakeSelectedFeaturesDependOnTheirSelector()
{
    enum { Selector, Gain, GainReg, Count };
    NodeMapGraph graph(Count);
    graph.addSelected(Selector, Gain);
    graph.addValueTarget(Gain, GainReg);
    graph.finish();
    QCOMPARE(graph.selected(Selector), QVector<int>{Gain});
    QCOMPARE(graph.selectors(Gain), QVector<int>{Selector});
    QCOMPARE(sorted(graph.dependencyClosure(Selector)), (QVector<int>{Selector, Gain}));
}

void tst_NodeMapGraph::shouldNameTheVisibleFeaturesThatDecideACondition()
{
    // Given Root[ExposureTime ExposureAuto TriggerMode], ExposureTime locked through a hidden
    // SwissKnife over ExposureAuto's register, and available while TriggerMode says so
    enum {
        Root,
        ExposureTime,
        ExposureAuto,
        TriggerMode,
        ExposureTimeReg,
        ExposureAutoReg,
        Locked,
        Count
    };
    NodeMapGraph graph(Count);
    for (int child : {ExposureTime, ExposureAuto, TriggerMode}) {
        graph.addCategoryChild(Root, child);
    }
    graph.addValueTarget(ExposureTime, ExposureTimeReg);
    graph.addValueTarget(ExposureAuto, ExposureAutoReg);
    graph.addCondition(ExposureTime, Condition::Locked, Locked);
    graph.addEvaluation(Locked, ExposureAutoReg);
    graph.addCondition(ExposureTime, Condition::Available, TriggerMode);
    graph.finish();
    QCOMPARE(graph.deciders(ExposureTime, Condition::Locked), QVector<int>{ExposureAuto});
    QCOMPARE(graph.deciders(ExposureTime, Condition::Available), QVector<int>{TriggerMode});
    QCOMPARE(graph.deciders(ExposureTime, Condition::Implemented), QVector<int>{});
    // The deciders are in the dependency graph: a write to them re-reads the feature.
    QVERIFY(graph.dependencyClosure(ExposureAuto).contains(ExposureTime));
    QVERIFY(graph.dependencyClosure(TriggerMode).contains(ExposureTime));
}

void tst_NodeMapGraph::shouldFindTheDeciderBehindHiddenConverters()
{
    // Given Gain -> GainConverter -> GainReg, and Boost locked by a formula over both the
    // register and a hidden constant
    enum { Root, Gain, Boost, GainConverter, GainReg, Formula, Constant, Count };
    NodeMapGraph graph(Count);
    graph.addCategoryChild(Root, Gain);
    graph.addCategoryChild(Root, Boost);
    graph.addValueTarget(Gain, GainConverter);
    graph.addValueTarget(GainConverter, GainReg);
    graph.addCondition(Boost, Condition::Locked, Formula);
    graph.addEvaluation(Formula, GainReg);
    graph.addEvaluation(Formula, Constant);
    graph.finish();
    // Then the user learns of Gain, once, and of nothing hidden
    QCOMPARE(graph.deciders(Boost, Condition::Locked), QVector<int>{Gain});
}

void tst_NodeMapGraph::shouldNeverNameTheFeatureItself()
{
    // Given two features on one register, one locked by a formula over that register
    enum { Root, Time, TimeAbs, TimeReg, Formula, Count };
    NodeMapGraph graph(Count);
    graph.addCategoryChild(Root, Time);
    graph.addCategoryChild(Root, TimeAbs);
    graph.addValueTarget(Time, TimeReg);
    graph.addValueTarget(TimeAbs, TimeReg);
    graph.addCondition(Time, Condition::Locked, Formula);
    graph.addEvaluation(Formula, TimeReg);
    graph.finish();
    QCOMPARE(graph.deciders(Time, Condition::Locked), QVector<int>{TimeAbs});
}

void tst_NodeMapGraph::shouldStayLinearOnLongChains()
{
    // Given a pValue chain of many nodes, each listed, polled at its end, and a wide fan of
    // dependents; a quadratic step would take minutes here
    const int n = 200000;
    NodeMapGraph graph(n + 1);
    for (int i = 1; i < n; ++i) {
        graph.addCategoryChild(0, i);
        graph.addValueTarget(i, i + 1);
    }
    graph.setOwnPollingTime(n, 100);
    for (int i = 1; i < n; i += 2) {
        graph.addEvaluation(i, n);
    }
    graph.addCondition(1, Condition::Locked, n);
    QElapsedTimer timer;
    timer.start();
    graph.finish();
    const QVector<int> closure = graph.dependencyClosure(1);
    const QVector<int> deciders = graph.deciders(1, Condition::Locked);
    qInfo("graph of %d nodes: finished, closed and explained in %lld ms", n, timer.elapsed());
    QCOMPARE(graph.pollingTime(1), 100);
    QCOMPARE(closure.size(), n);
    // The climb stops at the first listed owner of the hidden register.
    QCOMPARE(deciders, QVector<int>{n - 1});
    QVERIFY(!graph.isCyclic(1));
}

QTEST_GUILESS_MAIN(tst_NodeMapGraph)
#include "tst_nodemapgraph.moc"
