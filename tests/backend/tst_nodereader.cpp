#include "testsupport.h"

#include <devicelogic.h>
#include <deviceparametercollection.h>
#include <simulateddevice.h>

#include <parametercollection/exception.h>

#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace ParameterCollection;
using Backend::DeviceParameterCollection;
using Backend::DeviceWorker;
using Backend::SimulatedDevice;

namespace {

// Opens honest.xml on a simulated device that `prepare` sets up before the first read.
std::unique_ptr<DeviceParameterCollection>
openHonest(std::function<void(SimulatedDevice&)> prepare = {})
{
    struct Preparation : Backend::DeviceLogic {};
    auto collection = std::make_unique<DeviceParameterCollection>(QStringLiteral("honest"));
    collection->setLogicFactory([prepare](SimulatedDevice& device) {
        if (prepare) {
            prepare(device);
        }
        return std::unique_ptr<Backend::DeviceLogic>(new Preparation);
    });
    collection->attachSimulated(QStringLiteral("CameraDevice"),
                                testData(QStringLiteral("honest.xml")));
    return collection;
}

ParameterDataPtr dataOf(const DeviceParameterCollection& c, const char* feature)
{
    return c.getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(feature))
        ->getParameterData();
}

SimulatedDevice* deviceOf(DeviceParameterCollection& collection)
{
    SimulatedDevice* device = nullptr;
    collection.runOnDeviceThread([&device](DeviceWorker& w) { device = w.simulatedDevice(0); });
    return device;
}

} // namespace

class tst_NodeReader : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldKeepTheAccessModeAndGiveTheReasonWhenAValueCannotBeEvaluated();
    void shouldReportAConditionThatCannotBeEvaluatedAsAnError();
    void shouldReadARegisterAsBytesShownInHex();
    void shouldBoundTheTextOfALongRegister();
    void shouldReadAStructRegAsARegisterAndItsEntriesAsIntegers();
    void shouldNeverShowAWriteOnlyCommandRunning();
    void shouldShowAReadableCommandRunningUntilTheDeviceIsDone();
    void shouldNotImplementACategoryWhosePIsImplementedIsFalse();
    void shouldShowAFloatWithoutNotationAsAPlainDecimal();
    void shouldSayAValueWasNeverReadWhenTheDeviceWentFirst();
};

void tst_NodeReader::shouldKeepTheAccessModeAndGiveTheReasonWhenAValueCannotBeEvaluated()
{
    // Given a rate converted from a period register holding zero
    auto c = openHonest();
    const auto rate = dataOf(*c, "FrameRate");
    // Then the rate is an error with Aravis's reason, not an access mode
    QCOMPARE(rate->accessMode, GenApi::RW);
    QVERIFY(rate->implemented);
    QVERIFY(rate->available);
    QVERIFY(!rate->readable);
    QVERIFY(!rate->value.isValid());
    QVERIFY2(rate->errorText.contains(QStringLiteral("division by zero")),
             qPrintable(rate->errorText));
    QVERIFY(rate->errorText.contains(QStringLiteral("[FrameRate]")));
    // Aravis's evaluator has no kind of its own for this.
    QCOMPARE(rate->errorKind, Exception::Generic);
    QVERIFY(rate->hasError());
    // And the period it comes from reads fine
    QCOMPARE(dataOf(*c, "Period")->value.toLongLong(), 0);
    QVERIFY(!dataOf(*c, "Period")->hasError());
}

void tst_NodeReader::shouldReportAConditionThatCannotBeEvaluatedAsAnError()
{
    auto c = openHonest();
    const auto guarded = dataOf(*c, "Guarded");
    QVERIFY(!guarded->readable);
    QVERIFY(!guarded->writable);
    QCOMPARE(guarded->accessMode, GenApi::RW);
    QVERIFY2(guarded->errorText.startsWith(QStringLiteral("Cannot tell whether it is available: ")),
             qPrintable(guarded->errorText));
    QVERIFY(guarded->errorText.contains(QStringLiteral("division by zero")));
    // A write is refused with that reason, not with an access mode it does not have
    const QString refusal = thrownText<AccessException>(
        [&] { c->getParameter(QStringLiteral("@CameraDevice/Guarded"))->setValue(QVariant(1)); });
    QVERIFY2(refusal.startsWith(QStringLiteral(
                 "[Guarded] the feature is not writable: Cannot tell whether it is available")),
             qPrintable(refusal));
}

void tst_NodeReader::shouldReadARegisterAsBytesShownInHex()
{
    auto c = openHonest([](SimulatedDevice& device) {
        const QByteArray bytes = QByteArray::fromHex("0011aabb");
        device.poke(0x200, bytes.constData(), 4);
    });
    const auto buffer = c->getParameter(QStringLiteral("@CameraDevice/UserBuffer"));
    QCOMPARE(buffer->getType(), int(RegisterType));
    auto* reg = qobject_cast<IRegisterParameter*>(buffer.data());
    QVERIFY(reg);
    QCOMPARE(reg->getLength(), 4);
    QCOMPARE(reg->getValue(), QByteArray::fromHex("0011aabb"));
    const auto data = buffer->getParameterData();
    QVERIFY(data->readable);
    QCOMPARE(data->accessMode, GenApi::RW);
    QCOMPARE(data->displayText, QStringLiteral("0x0011AABB"));
    QCOMPARE(buffer->getProperty(QStringLiteral("Type")), QStringLiteral("Register"));
}

void tst_NodeReader::shouldBoundTheTextOfALongRegister()
{
    auto c = openHonest([](SimulatedDevice& device) {
        const QByteArray bytes(100, '\x7f');
        device.poke(0x1000, bytes.constData(), 100);
    });
    const auto data = dataOf(*c, "LargeBuffer");
    QCOMPARE(data->accessMode, GenApi::RO);
    QCOMPARE(data->value.toByteArray(), QByteArray(100, '\x7f'));
    QVERIFY2(data->displayText.endsWith(QStringLiteral("\u2026 (100 bytes)")),
             qPrintable(data->displayText));
    QVERIFY(data->displayText.startsWith(QStringLiteral("0x7F7F")));
}

void tst_NodeReader::shouldReadAStructRegAsARegisterAndItsEntriesAsIntegers()
{
    auto c = openHonest([](SimulatedDevice& device) { device.pokeInt(0x300, 0x1, 4); });
    const auto block = dataOf(*c, "StatusBlock");
    QCOMPARE(block->type, int(RegisterType));
    QCOMPARE(static_cast<const RegisterParameterData&>(*block).length, 4);
    QCOMPARE(block->value.toByteArray(), QByteArray::fromHex("01000000"));
    QCOMPARE(block->accessMode, GenApi::RO);
    const auto ready = dataOf(*c, "StatusReady");
    QCOMPARE(ready->type, int(IntegerType));
    QCOMPARE(ready->value.toLongLong(), 1);
    QCOMPARE(dataOf(*c, "StatusError")->value.toLongLong(), 0);
}

void tst_NodeReader::shouldNeverShowAWriteOnlyCommandRunning()
{
    auto c = openHonest();
    const auto stop = c->getParameter(QStringLiteral("@CameraDevice/StopNow"));
    auto* command = qobject_cast<ICommandParameter*>(stop.data());
    QVERIFY(command);
    auto data = stop->getParameterData();
    QCOMPARE(data->accessMode, GenApi::WO);
    QVERIFY(!data->readable);
    QVERIFY(data->writable);
    QVERIFY(command->isDone());
    QVERIFY(!data->value.toBool());
    QSignalSpy changed(stop.data(), &IParameter::parameterDataChanged);
    // When it is executed, it reaches the device and is never seen running
    command->execute();
    QVERIFY(command->isDone());
    c->waitForDevice();
    QCOMPARE(deviceOf(*c)->peekInt(0x400, 4), 1);
    for (const QList<QVariant>& args : changed) {
        const auto seen = args.at(0).value<ParameterDataPtr>();
        QVERIFY(static_cast<const CommandParameterData&>(*seen).done);
    }
    QVERIFY(command->isDone());
}

void tst_NodeReader::shouldShowAReadableCommandRunningUntilTheDeviceIsDone()
{
    auto c = openHonest();
    const auto calibrate = c->getParameter(QStringLiteral("@CameraDevice/Calibrate"));
    auto* command = qobject_cast<ICommandParameter*>(calibrate.data());
    QCOMPARE(calibrate->getParameterData()->accessMode, GenApi::RW);
    QVERIFY(calibrate->getParameterData()->readable);
    QVERIFY(command->isDone());
    command->execute();
    QVERIFY(!command->isDone());
    c->waitForDevice();
    // The register still holds the command value: the device is busy
    QVERIFY(!command->isDone());
    QCOMPARE(calibrate->getParameterData()->value.toBool(), true);
    SimulatedDevice* device = deviceOf(*c);
    c->runOnDeviceThread([device](DeviceWorker&) { device->pokeInt(0x404, 0, 4); });
    QTRY_VERIFY(command->isDone());
    QCOMPARE(calibrate->getParameterData()->value.toBool(), false);
}

void tst_NodeReader::shouldNotImplementACategoryWhosePIsImplementedIsFalse()
{
    auto c = openHonest();
    const auto factory = dataOf(*c, "Factory");
    QVERIFY(!factory->implemented);
    QCOMPARE(factory->accessMode, GenApi::NI);
    QVERIFY(!dataOf(*c, "FactoryKey")->implemented);
    const auto timing = dataOf(*c, "Timing");
    QVERIFY(timing->implemented);
    QVERIFY(timing->available);
}

void tst_NodeReader::shouldShowAFloatWithoutNotationAsAPlainDecimal()
{
    auto c = openHonest([](SimulatedDevice& device) { device.pokeDouble(0x108, 1e7, 8); });
    const auto exposure = c->getParameter(QStringLiteral("@CameraDevice/ExposureTime"));
    QCOMPARE(exposure->getProperty(QStringLiteral("DisplayNotation")), QStringLiteral("Automatic"));
    QCOMPARE(exposure->getParameterData()->displayText, QStringLiteral("10000000"));
    exposure->setValue(QVariant(0.1));
    QCOMPARE(exposure->getParameterData()->displayText, QStringLiteral("0.1"));
    c->waitForDevice();
    QCOMPARE(exposure->getParameterData()->displayText, QStringLiteral("0.1"));
}

void tst_NodeReader::shouldSayAValueWasNeverReadWhenTheDeviceWentFirst()
{
    // Given a device that stops answering before anything was read
    auto c = openHonest(
        [](SimulatedDevice& device) { device.setFault(SimulatedDevice::Fault::Timeout); });
    QTRY_VERIFY(c->isLost());
    // Then a feature whose value was never read says so, and keeps what it declares
    const auto period = dataOf(*c, "Period");
    QVERIFY(period->deviceLost);
    QVERIFY(!period->readable);
    QVERIFY(!period->value.isValid());
    QVERIFY(period->implemented);
    QCOMPARE(period->accessMode, GenApi::RW);
    QCOMPARE(period->errorKind, Exception::DeviceLost);
    QVERIFY2(period->errorText.startsWith(
                 QStringLiteral("The value was never read: the device was lost")),
             qPrintable(period->errorText));
    QVERIFY2(period->errorText.contains(QStringLiteral("Timeout reading")),
             qPrintable(period->errorText));
    // And nothing is reported as not implemented because of it
    const auto structure = c->structure(QStringLiteral("CameraDevice"));
    int notImplemented = 0;
    for (const auto& info : structure->nodes) {
        const auto data = c->getParameter(info.fullName)->getParameterData();
        QVERIFY2(data->deviceLost, qPrintable(info.featureName));
        notImplemented += data->accessMode == GenApi::NI ? 1 : 0;
    }
    // Only the category that the description itself leaves out, learnt before the device went.
    QCOMPARE(notImplemented, 1);
    QVERIFY(!dataOf(*c, "Factory")->implemented);
}

QTEST_GUILESS_MAIN(tst_NodeReader)
#include "tst_nodereader.moc"
