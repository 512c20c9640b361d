#include "featuresetloadcommand.h"

#include <QtTest>

using Backend::FeatureSet;
using Backend::FeatureSetTransfer;
using VantoViewer::FeatureSetLoadCommand;

class tst_FeatureSetLoadCommand : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldKeepSelectedFeaturesUnderTheirSelectorValues();
    void shouldTakeTheFirstValueBeforeAndTheLastWrittenOfAFeatureWrittenTwice();
    void shouldHoldNothingForALoadThatChangedNothing();
};

namespace {
const FeatureSet::Selectors kAnalog{{QStringLiteral("GainSelector"), QStringLiteral("AnalogAll")}};
const FeatureSet::Selectors kDigital{
    {QStringLiteral("GainSelector"), QStringLiteral("DigitalAll")}};
} // namespace

void tst_FeatureSetLoadCommand::shouldKeepSelectedFeaturesUnderTheirSelectorValues()
{
    FeatureSetTransfer::LoadReport report;
    report.applied = {
        {QStringLiteral("@CameraDevice/Width"), {}, QStringLiteral("1920"), QStringLiteral("800")},
        {QStringLiteral("@CameraDevice/Gain"), kAnalog, QStringLiteral("0"), QStringLiteral("5")},
        {QStringLiteral("@CameraDevice/Gain"), kDigital, QStringLiteral("1"), QStringLiteral("2")},
        // a selector the load moved: a line of its own
        {QStringLiteral("@CameraDevice/GainSelector"),
         {},
         QStringLiteral("DigitalAll"),
         QStringLiteral("AnalogAll")}};

    const FeatureSetLoadCommand step(QStringLiteral("Load lab.txt"), report);

    QCOMPARE(step.text(), QStringLiteral("Load lab.txt"));
    QCOMPARE(step.featureCount(), 4);
    const FeatureSet& before = step.before();
    const FeatureSet& after = step.after();
    QCOMPARE(before.lines.size(), 4);
    QCOMPARE(before.lines[0].feature, QStringLiteral("Width"));
    QVERIFY(before.lines[0].selectors.isEmpty());
    QCOMPARE(before.lines[0].value, QStringLiteral("1920"));
    QCOMPARE(after.lines[0].value, QStringLiteral("800"));
    QCOMPARE(before.lines[1].feature, QStringLiteral("Gain"));
    QCOMPARE(before.lines[1].selectors, kAnalog);
    QCOMPARE(before.lines[1].value, QStringLiteral("0"));
    QCOMPARE(after.lines[1].value, QStringLiteral("5"));
    QCOMPARE(before.lines[2].selectors, kDigital);
    QCOMPARE(before.lines[2].value, QStringLiteral("1"));
    QCOMPARE(after.lines[2].value, QStringLiteral("2"));
    QCOMPARE(before.lines[3].feature, QStringLiteral("GainSelector"));
    QCOMPARE(before.lines[3].value, QStringLiteral("DigitalAll"));
    QCOMPARE(after.lines[3].value, QStringLiteral("AnalogAll"));
    // Both are sets the transfer can write
    QCOMPARE(FeatureSet::parse(before.toText(), QStringLiteral("before")).lines.size(), 4);
}

void tst_FeatureSetLoadCommand::
    shouldTakeTheFirstValueBeforeAndTheLastWrittenOfAFeatureWrittenTwice()
{
    FeatureSetTransfer::LoadReport report;
    report.applied = {
        {QStringLiteral("@CameraDevice/Gain"), kAnalog, QStringLiteral("0"), QStringLiteral("5")},
        {QStringLiteral("@CameraDevice/Gain"), kAnalog, QStringLiteral("5"), QStringLiteral("7")}};

    const FeatureSetLoadCommand step(QStringLiteral("Load twice.txt"), report);

    QCOMPARE(step.featureCount(), 1);
    QCOMPARE(step.before().lines.first().value, QStringLiteral("0"));
    QCOMPARE(step.after().lines.first().value, QStringLiteral("7"));
}

void tst_FeatureSetLoadCommand::shouldHoldNothingForALoadThatChangedNothing()
{
    const FeatureSetLoadCommand step(QStringLiteral("Load same.txt"),
                                     FeatureSetTransfer::LoadReport());
    QCOMPARE(step.featureCount(), 0);
    QVERIFY(step.after().lines.isEmpty());
}

QTEST_MAIN(tst_FeatureSetLoadCommand)
#include "tst_featuresetloadcommand.moc"
