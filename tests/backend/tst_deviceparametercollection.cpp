#include "testsupport.h"

#include <devicelogic.h>
#include <deviceparametercollection.h>
#include <simulateddevice.h>

#include <parametercollection/exception.h>

#include <QSemaphore>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>
#include <QtTest>

using namespace ParameterCollection;
using Backend::DeviceParameterCollection;
using Backend::DeviceWorker;
using Backend::SimulatedDevice;

namespace {

const QString kDefaults = QStringLiteral("Width=1024\nHeight=768\nMode=Off\nTemperatureReg=40.0\n");

// Opens minimal.xml and computes PayloadSize on the device, the way a camera does.
std::unique_ptr<DeviceParameterCollection>
openMinimal(const QString& xml = QStringLiteral("minimal.xml"))
{
    struct PayloadLogic : Backend::DeviceLogic {
        explicit PayloadLogic(SimulatedDevice& device)
        {
            device.addReadHook([](SimulatedDevice& d, quint64 address, quint32) {
                if (address == 0x118) {
                    d.pokeInt(0x118, d.peekInt(0x100, 4) * d.peekInt(0x104, 4), 4);
                }
            });
        }
    };
    auto collection = std::make_unique<DeviceParameterCollection>(QStringLiteral("test"));
    collection->setLogicFactory([](SimulatedDevice& device) {
        return std::unique_ptr<Backend::DeviceLogic>(new PayloadLogic(device));
    });
    collection->attachSimulated(QStringLiteral("CameraDevice"), testData(xml), kDefaults);
    return collection;
}

SimulatedDevice* deviceOf(DeviceParameterCollection& collection)
{
    SimulatedDevice* device = nullptr;
    collection.runOnDeviceThread([&device](DeviceWorker& w) { device = w.simulatedDevice(0); });
    return device;
}

QVariant valueOf(const DeviceParameterCollection& c, const QString& name)
{
    return c.getParameter(name)->getParameterData()->value;
}

} // namespace

class tst_DeviceParameterCollection : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldAnswerStructureAndFirstValuesFromMemory();
    void shouldGiveOneParameterObjectPerName();
    void shouldListEnumerationEntriesInDocumentOrder();
    void shouldKnowTheLimitsOfWriteOnlyNumbers();
    void shouldNotCallAMissingIncrementAnError();
    void shouldThrowTypedErrorsNamingTheFeature();
    void shouldShowWrittenValueAtOnceAndDeliverConsequences();
    void shouldReadOnlyTheDependencyClosureAfterWrite();
    void shouldCoalesceConsecutiveWritesToOneFeature();
    void shouldPollOnlyObservedFeaturesWhoseTimeElapsed();
    void shouldMakeNoDeviceReadWhenNothingIsDue();
    void shouldRefreshObservedFeaturesPastTheCache();
    void shouldDeliverForcedCheckEvenWithoutChange();
    void shouldOverrideVisibilityAndAccessMode();
    void shouldRejectOverrideTextItDoesNotUnderstand();
    void shouldReportRefusedWriteAndRevert();
    void shouldRecordEveryWritesOutcomeWithOldAndNewValue();
    void shouldBecomeLostWhenDeviceStopsAnswering();
    void shouldBreakCategoryCycles();
    void shouldNotEvaluateReferenceCycles();
    void shouldAnnounceEachAttachedNodeMap();
    void shouldWriteRegisterBytesAndRefuseAnyOtherLength();
    void shouldTurnEachAbsurdDefinitionIntoAnErrorOfItsOwn();
    void shouldFinishAnOverflowingDivisionAsAnError();
    void shouldWalkCategoriesNestedAHundredThousandDeep();
    void shouldEvaluateLongChainsOnTheDeviceThread();
    void shouldMarkEveryValueLostAndTellEveryViewWhenTheDeviceGoes();
    void shouldWaitForAStuckDeviceThreadOnlyAsLongAsAsked();
    void shouldThrowAtOnceWhenAnAttachIsCancelledAndRefuseTheNext();
};

void tst_DeviceParameterCollection::shouldAnswerStructureAndFirstValuesFromMemory()
{
    auto c = openMinimal();
    QCOMPARE(c->getNodeMapNames(), QStringList{QStringLiteral("CameraDevice")});
    QCOMPARE(c->getChildren(QStringLiteral("@CameraDevice/Root")),
             QStringList{QStringLiteral("@CameraDevice/ImageFormatControl")});
    QCOMPARE(c->getChildren(QStringLiteral("@CameraDevice/ImageFormatControl")).size(), 6);

    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    QVERIFY(width);
    QCOMPARE(width->getType(), int(IntegerType));
    QCOMPARE(width->getFeatureName(), QStringLiteral("Width"));
    QCOMPARE(width->getProperty(QStringLiteral("Representation")), QStringLiteral("Linear"));
    const auto data = width->getParameterData().staticCast<const IntegerParameterData>();
    QCOMPARE(data->value.toLongLong(), 1024);
    QCOMPARE(data->min, 16);
    QCOMPARE(data->max, 4096);
    QCOMPARE(data->increment, 16);
    QCOMPARE(data->accessMode, GenApi::RW);
    QCOMPARE(valueOf(*c, QStringLiteral("@CameraDevice/PayloadSize")).toLongLong(), 1024 * 768);
    QCOMPARE(valueOf(*c, QStringLiteral("@CameraDevice/Mode")).toString(), QStringLiteral("Off"));
    QCOMPARE(c->getParameter(QStringLiteral("@CameraDevice/Temperature"))
                 ->getProperty(QStringLiteral("PollingTime")),
             QStringLiteral("1000"));
    QVERIFY(!c->getParameter(QStringLiteral("@CameraDevice/NoSuchFeature")));
    QVERIFY(!c->getParameter(QStringLiteral("@NoSuchMap/Width")));
}

void tst_DeviceParameterCollection::shouldGiveOneParameterObjectPerName()
{
    auto c = openMinimal();
    QCOMPARE(c->getParameter(QStringLiteral("@CameraDevice/Width")).data(),
             c->getParameter(QStringLiteral("@CameraDevice/Width")).data());
    QVERIFY(qobject_cast<IIntegerParameter*>(
        c->getParameter(QStringLiteral("@CameraDevice/Width")).data()));
    QVERIFY(qobject_cast<IEnumParameter*>(
        c->getParameter(QStringLiteral("@CameraDevice/Mode")).data()));
    QVERIFY(!qobject_cast<ICommandParameter*>(
        c->getParameter(QStringLiteral("@CameraDevice/Mode")).data()));
}

void tst_DeviceParameterCollection::shouldListEnumerationEntriesInDocumentOrder()
{
    auto c = openMinimal();
    const auto mode = c->getParameter(QStringLiteral("@CameraDevice/Mode"));
    const auto data = mode->getParameterData().dynamicCast<const EnumParameterData>();
    QVERIFY(data);
    QCOMPARE(data->entries.size(), 2);
    QCOMPARE(data->entries.at(0).name, QStringLiteral("Off"));
    QCOMPARE(data->entries.at(1).name, QStringLiteral("On"));
    QCOMPARE(data->entries.at(1).intValue, 1);
}

void tst_DeviceParameterCollection::shouldKnowTheLimitsOfWriteOnlyNumbers()
{
    // Given numbers that can be written but not read
    auto c = std::make_unique<DeviceParameterCollection>(QStringLiteral("test"));
    c->attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("writeonly.xml")));
    const auto trigger = c->getParameter(QStringLiteral("@CameraDevice/Trigger"));
    const auto data = trigger->getParameterData().dynamicCast<const IntegerParameterData>();
    QVERIFY(!data->readable);
    QCOMPARE(data->accessMode, GenApi::WO);
    // Then their limits are known, so writes inside them pass and others are refused
    QCOMPARE(data->min, 0);
    QCOMPARE(data->max, 100);
    QCOMPARE(data->increment, 5);
    trigger->setValue(QVariant(35));
    QCOMPARE(thrownText<RangeException>([&] { trigger->setValue(QVariant(105)); }),
             QStringLiteral("[Trigger] 105 is above the maximum 100"));
    const auto level = c->getParameter(QStringLiteral("@CameraDevice/Level"));
    level->setValue(QVariant(0.5));
    const auto levelData = level->getParameterData().dynamicCast<const FloatParameterData>();
    QCOMPARE(levelData->min, -1.0);
    QCOMPARE(levelData->max, 1.0);
    c->waitForDevice();
}

void tst_DeviceParameterCollection::shouldNotCallAMissingIncrementAnError()
{
    // Temperature declares no <Inc>: Aravis fails to read one, which is no error of the value.
    auto c = openMinimal();
    const auto data = c->getParameter(QStringLiteral("@CameraDevice/Temperature"))
                          ->getParameterData()
                          .dynamicCast<const FloatParameterData>();
    QVERIFY(data->readable);
    QVERIFY(!data->hasIncrement);
    QCOMPARE(data->errorText, QString());
}

void tst_DeviceParameterCollection::shouldThrowTypedErrorsNamingTheFeature()
{
    auto c = openMinimal();
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    QCOMPARE(thrownText<RangeException>([&] { width->setValue(QVariant(5000)); }),
             QStringLiteral("[Width] 5000 is above the maximum 4096"));
    QCOMPARE(thrownText<RangeException>([&] { width->setValue(QVariant(8)); }),
             QStringLiteral("[Width] 8 is below the minimum 16"));
    QCOMPARE(thrownText<RangeException>([&] { width->setValue(QVariant(100)); }),
             QStringLiteral("[Width] 100 is not on the grid of increment 16 from 16"));
    QCOMPARE(thrownText<InvalidArgumentException>([&] { width->setValue(QStringLiteral("wide")); }),
             QStringLiteral("[Width] 'wide' is not an integer"));
    const auto temperature = c->getParameter(QStringLiteral("@CameraDevice/Temperature"));
    QCOMPARE(thrownText<AccessException>([&] { temperature->setValue(QVariant(3.0)); }),
             QStringLiteral("[Temperature] the feature is not writable (RO)"));
    const auto mode = c->getParameter(QStringLiteral("@CameraDevice/Mode"));
    QCOMPARE(
        thrownText<InvalidArgumentException>([&] { mode->setValue(QStringLiteral("Sideways")); }),
        QStringLiteral("[Mode] 'Sideways' is not an available entry"));
    // Hexadecimal text is an integer too.
    width->setValue(QStringLiteral("0x100"));
    QCOMPARE(width->getParameterData()->value.toLongLong(), 256);
}

void tst_DeviceParameterCollection::shouldShowWrittenValueAtOnceAndDeliverConsequences()
{
    auto c = openMinimal();
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    const auto payload = c->getParameter(QStringLiteral("@CameraDevice/PayloadSize"));
    QSignalSpy payloadSpy(payload.data(), &IParameter::parameterDataChanged);

    width->setValue(QVariant(640));
    QCOMPARE(width->getParameterData()->value.toLongLong(), 640); // before the device answered
    QVERIFY(payloadSpy.wait());
    QCOMPARE(payload->getParameterData()->value.toLongLong(), 640 * 768);
    QCOMPARE(valueOf(*c, QStringLiteral("@CameraDevice/ImageArea")).toLongLong(), 640 * 768);
}

void tst_DeviceParameterCollection::shouldReadOnlyTheDependencyClosureAfterWrite()
{
    auto c = openMinimal();
    SimulatedDevice* device = deviceOf(*c);
    QVector<int> closure;
    c->runOnDeviceThread([&closure](DeviceWorker& w) {
        closure = w.dependencyClosure(0, w.structure(0)->indexOf(QStringLiteral("Width")));
    });
    const auto structure = c->structure(QStringLiteral("CameraDevice"));
    QStringList closureNames;
    for (int node : closure) {
        closureNames << structure->nodes[node].featureName;
    }
    closureNames.sort();
    QCOMPARE(closureNames, (QStringList{QStringLiteral("ImageArea"), QStringLiteral("PayloadSize"),
                                        QStringLiteral("PayloadSizeReg"), QStringLiteral("Width"),
                                        QStringLiteral("WidthReg")}));

    device->resetCounters();
    c->getParameter(QStringLiteral("@CameraDevice/Width"))->setValue(QVariant(512));
    c->waitForDevice();
    // Of the closure only PayloadSizeReg is uncached, read once for PayloadSize and once for
    // the register node itself; nothing outside the closure (such as the uncached
    // TemperatureReg) is touched.
    QCOMPARE(device->readLog(), (QVector<quint64>{0x118, 0x118}));
    QCOMPARE(device->writeCount(), 1);
    QCOMPARE(valueOf(*c, QStringLiteral("@CameraDevice/PayloadSize")).toLongLong(), 512 * 768);
}

void tst_DeviceParameterCollection::shouldCoalesceConsecutiveWritesToOneFeature()
{
    auto c = openMinimal();
    SimulatedDevice* device = deviceOf(*c);
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    // Hold the device thread so that the writes queue up, as over a slow link.
    QSemaphore started;
    QSemaphore release;
    auto* worker = static_cast<QObject*>(nullptr);
    c->runOnDeviceThread([&worker](DeviceWorker& w) { worker = &w; });
    QMetaObject::invokeMethod(
        worker,
        [&] {
            started.release();
            release.acquire();
        },
        Qt::QueuedConnection);
    started.acquire();
    device->resetCounters();
    for (int w = 32; w <= 320; w += 32) {
        width->setValue(QVariant(w));
    }
    release.release();
    c->waitForDevice();
    QCOMPARE(device->writeCount(), 1);
    QCOMPARE(device->peekInt(0x100, 4), 320);
    QCOMPARE(width->getParameterData()->value.toLongLong(), 320);
}

void tst_DeviceParameterCollection::shouldPollOnlyObservedFeaturesWhoseTimeElapsed()
{
    auto c = openMinimal();
    SimulatedDevice* device = deviceOf(*c);
    const auto temperature = c->getParameter(QStringLiteral("@CameraDevice/Temperature"));
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    temperature->addObserver();
    width->addObserver(); // observed, but has no polling time
    device->resetCounters();
    for (int i = 0; i < 3; ++i) {
        c->poll(300);
        c->waitForDevice();
    }
    QCOMPARE(device->readCount(), 0);
    c->poll(300); // 1200 ms since the start: due
    c->waitForDevice();
    QCOMPARE(device->readLog(), QVector<quint64>{0x108});
    temperature->removeObserver();
    device->resetCounters();
    c->poll(5000);
    c->waitForDevice();
    QCOMPARE(device->readCount(), 0);
}

void tst_DeviceParameterCollection::shouldMakeNoDeviceReadWhenNothingIsDue()
{
    auto c = openMinimal();
    SimulatedDevice* device = deviceOf(*c);
    c->getParameter(QStringLiteral("@CameraDevice/Temperature"))->addObserver();
    device->resetCounters();
    c->poll(10);
    c->waitForDevice();
    QCOMPARE(device->readCount(), 0);
}

void tst_DeviceParameterCollection::shouldRefreshObservedFeaturesPastTheCache()
{
    auto c = openMinimal();
    SimulatedDevice* device = deviceOf(*c);
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    width->addObserver();
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    // The device changes the register behind the cache's back.
    c->runOnDeviceThread([device](DeviceWorker&) { device->pokeInt(0x100, 2048, 4); });
    c->refresh(QList<ParameterName>{});
    c->refresh();
    c->waitForDevice();
    QCOMPARE(width->getParameterData()->value.toLongLong(), 2048);
    QCOMPARE(spy.count(), 1);
}

void tst_DeviceParameterCollection::shouldDeliverForcedCheckEvenWithoutChange()
{
    auto c = openMinimal();
    const auto height = c->getParameter(QStringLiteral("@CameraDevice/Height"));
    QSignalSpy spy(height.data(), &IParameter::parameterDataChanged);
    height->getAdvancedParameterAccess()->refreshParameterData();
    c->waitForDevice();
    QCOMPARE(spy.count(), 0);
    height->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    c->waitForDevice();
    QCOMPARE(spy.count(), 1);
}

void tst_DeviceParameterCollection::shouldOverrideVisibilityAndAccessMode()
{
    auto c = openMinimal();
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    width->getAdvancedParameterAccess()->setProperty(QStringLiteral("Visibility"),
                                                     QStringLiteral("Guru"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Guru);
    QCOMPARE(width->getProperty(QStringLiteral("Visibility")), QStringLiteral("Guru"));
    width->getAdvancedParameterAccess()->setProperty(QStringLiteral("AccessMode"),
                                                     QStringLiteral("RO"));
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RO);
    QVERIFY(!width->getParameterData()->writable);
    QCOMPARE(thrownText<AccessException>([&] { width->setValue(QVariant(32)); }),
             QStringLiteral("[Width] the feature is not writable (RO)"));
    // Later values from the device keep the override.
    c->waitForDevice();
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    c->waitForDevice();
    QCOMPARE(width->getParameterData()->visibility, GenApi::Guru);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RO);
}

void tst_DeviceParameterCollection::shouldRejectOverrideTextItDoesNotUnderstand()
{
    auto c = openMinimal();
    auto* access =
        c->getParameter(QStringLiteral("@CameraDevice/Width"))->getAdvancedParameterAccess();
    QCOMPARE(thrownText<InvalidArgumentException>([&] {
                 access->setProperty(QStringLiteral("Visibility"), QStringLiteral("Wizard"));
             }),
             QStringLiteral("[Width] 'Wizard' is not a visibility"));
    QCOMPARE(thrownText<InvalidArgumentException>(
                 [&] { access->setProperty(QStringLiteral("AccessMode"), QStringLiteral("rw")); }),
             QStringLiteral("[Width] 'rw' is not an access mode"));
    QCOMPARE(thrownText<InvalidArgumentException>(
                 [&] { access->setProperty(QStringLiteral("Unit"), QStringLiteral("mm")); }),
             QStringLiteral("[Width] the property 'Unit' cannot be set"));
}

void tst_DeviceParameterCollection::shouldReportRefusedWriteAndRevert()
{
    auto c = openMinimal();
    deviceOf(*c)->setFault(SimulatedDevice::Fault::RefuseWrites);
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy failed(c.get(), &IParameterCollection::writeFailed);
    width->setValue(QVariant(320));
    QCOMPARE(width->getParameterData()->value.toLongLong(), 320);
    QVERIFY(failed.wait());
    QCOMPARE(failed.at(0).at(0).toString(), QStringLiteral("@CameraDevice/Width"));
    QCOMPARE(failed.at(0).at(1).value<Exception::Kind>(), Exception::Access);
    QVERIFY2(failed.at(0).at(2).toString().contains(QStringLiteral("Access denied")),
             qPrintable(failed.at(0).at(2).toString()));
    QTRY_COMPARE(width->getParameterData()->value.toLongLong(), 1024);
    QVERIFY(!c->isLost());
}

void tst_DeviceParameterCollection::shouldRecordEveryWritesOutcomeWithOldAndNewValue()
{
    using Record = DeviceParameterCollection::WriteRecord;
    using Origin = DeviceParameterCollection::WriteOrigin;
    auto c = openMinimal();
    QSignalSpy finished(c.get(), &DeviceParameterCollection::writeFinished);
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));

    // A write the device takes
    width->setValue(QVariant(320));
    QVERIFY(finished.wait());
    Record record = finished.takeFirst().at(0).value<Record>();
    QCOMPARE(record.fullName, QStringLiteral("@CameraDevice/Width"));
    QCOMPARE(record.origin, Origin::User);
    QCOMPARE(record.oldValue.toLongLong(), 1024);
    QCOMPARE(record.oldText, QStringLiteral("1024"));
    QCOMPARE(record.newValue.toLongLong(), 320);
    QCOMPARE(record.newText, QStringLiteral("320"));
    QVERIFY(record.done);
    QVERIFY(record.issued.isValid());

    // Refused before it is queued: at once, with the check's reason
    c->setWriteOrigin(Origin::Undo);
    QVERIFY_EXCEPTION_THROWN(width->setValue(QVariant(5000)), RangeException);
    c->setWriteOrigin(Origin::User);
    QCOMPARE(finished.count(), 1);
    record = finished.takeFirst().at(0).value<Record>();
    QVERIFY(!record.done);
    QCOMPARE(record.origin, Origin::Undo);
    QCOMPARE(record.kind, Exception::Range);
    QCOMPARE(record.reason, QStringLiteral("5000 is above the maximum 4096"));

    // Refused by the device: with its reason
    deviceOf(*c)->setFault(SimulatedDevice::Fault::RefuseWrites);
    width->setValue(QVariant(640));
    QVERIFY(finished.wait());
    record = finished.takeFirst().at(0).value<Record>();
    QVERIFY(!record.done);
    QCOMPARE(record.kind, Exception::Access);
    QVERIFY2(record.reason.contains(QStringLiteral("Access denied")), qPrintable(record.reason));
    deviceOf(*c)->setFault(SimulatedDevice::Fault::None);

    // Writes the queue coalesced each get the outcome of the one that reached the device
    c->waitForDevice();
    finished.clear();
    for (int w : {32, 48, 64}) {
        width->setValue(QVariant(w));
    }
    QTRY_COMPARE(finished.count(), 3);
    for (const QList<QVariant>& args : qAsConst(finished)) {
        QVERIFY(args.at(0).value<Record>().done);
    }
    QCOMPARE(finished.last().at(0).value<Record>().newValue.toLongLong(), 64);
}

void tst_DeviceParameterCollection::shouldBecomeLostWhenDeviceStopsAnswering()
{
    auto c = openMinimal();
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    width->addObserver();
    QSignalSpy lost(c.get(), &IParameterCollection::deviceLost);
    deviceOf(*c)->setFault(SimulatedDevice::Fault::Timeout);
    c->refresh();
    QVERIFY(lost.wait());
    QVERIFY(c->isLost());
    QCOMPARE(width->getParameterData()->value.toLongLong(), 1024); // last data kept
    QVERIFY(width->getParameterData()->deviceLost);
    QCOMPARE(thrownText<DeviceLostException>([&] { width->setValue(QVariant(32)); }),
             QStringLiteral("[Width] the device is lost"));
    c->poll(100000); // polling has stopped: nothing queued, nothing thrown
}

void tst_DeviceParameterCollection::shouldBreakCategoryCycles()
{
    auto c = openMinimal(QStringLiteral("selfcategory.xml"));
    const auto structure = c->structure(QStringLiteral("CameraDevice"));
    QVERIFY(!structure->problems.isEmpty());
    // Walking every path from Root ends.
    int visited = 0;
    std::function<void(const QString&, int)> walk = [&](const QString& name, int depth) {
        QVERIFY2(depth < 10, qPrintable(name));
        ++visited;
        for (const QString& child : c->getChildren(name)) {
            walk(child, depth + 1);
        }
    };
    walk(QStringLiteral("@CameraDevice/Root"), 0);
    QVERIFY(visited > 5);
    QVERIFY(!c->getChildren(QStringLiteral("@CameraDevice/ImageFormatControl"))
                 .contains(QStringLiteral("@CameraDevice/ImageFormatControl")));
}

void tst_DeviceParameterCollection::shouldNotEvaluateReferenceCycles()
{
    auto c = openMinimal(QStringLiteral("pvaluecycle.xml"));
    for (const char* name : {"CycleA", "CycleB", "CycleC"}) {
        const auto data = c->getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(name))
                              ->getParameterData();
        QVERIFY2(!data->readable, name);
        QVERIFY2(data->errorText.contains(QStringLiteral("cycle")), name);
    }
    QCOMPARE(valueOf(*c, QStringLiteral("@CameraDevice/Width")).toLongLong(), 1024);
}

void tst_DeviceParameterCollection::shouldAnnounceEachAttachedNodeMap()
{
    DeviceParameterCollection c(QStringLiteral("two maps"));
    QSignalSpy spy(&c, &IParameterCollection::nodeMapAttached);
    c.attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("minimal.xml")));
    c.attachSimulated(QStringLiteral("StreamGrabber0"), testData(QStringLiteral("minimal.xml")));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toString(), QStringLiteral("StreamGrabber0"));
    QVERIFY(c.getParameter(QStringLiteral("@StreamGrabber0/Width")));
    QVERIFY(c.getParameter(QStringLiteral("@StreamGrabber0/Root")));
    try {
        c.attachSimulated(QStringLiteral("Broken"), testData(QStringLiteral("notxml.xml")));
        QFAIL("a broken description must not attach");
    } catch (const InvalidArgumentException& e) {
        QVERIFY2(QString::fromUtf8(e.what()).contains(QStringLiteral("not XML")), e.what());
    }
    QCOMPARE(c.getNodeMapNames().size(), 2);
}

void tst_DeviceParameterCollection::shouldWriteRegisterBytesAndRefuseAnyOtherLength()
{
    DeviceParameterCollection c(QStringLiteral("registers"));
    c.attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("honest.xml")));
    const auto buffer = c.getParameter(QStringLiteral("@CameraDevice/UserBuffer"));
    auto* reg = qobject_cast<IRegisterParameter*>(buffer.data());
    QVERIFY(reg);
    // Raw bytes go to the device as they are
    reg->setValue(QByteArray::fromHex("0011aabb"));
    QCOMPARE(buffer->getParameterData()->displayText, QStringLiteral("0x0011AABB"));
    c.waitForDevice();
    QByteArray held(4, '\0');
    SimulatedDevice* device = deviceOf(c);
    c.runOnDeviceThread([&](DeviceWorker&) { device->peek(0x200, held.data(), 4); });
    QCOMPARE(held, QByteArray::fromHex("0011aabb"));
    QCOMPARE(reg->getValue(), QByteArray::fromHex("0011aabb"));
    // Hexadecimal text is bytes too
    buffer->setValue(QStringLiteral("0x01020304"));
    c.waitForDevice();
    QCOMPARE(reg->getValue(), QByteArray::fromHex("01020304"));
    QCOMPARE(buffer->getParameterData()->displayText, QStringLiteral("0x01020304"));
    // Anything else is refused before it reaches the device
    QCOMPARE(
        thrownText<InvalidArgumentException>([&] { buffer->setValue(QStringLiteral("0x0102")); }),
        QStringLiteral("[UserBuffer] 2 bytes given where the register holds 4"));
    QCOMPARE(thrownText<InvalidArgumentException>(
                 [&] { reg->setValue(QByteArray::fromHex("0102030405")); }),
             QStringLiteral("[UserBuffer] 5 bytes given where the register holds 4"));
    QCOMPARE(thrownText<InvalidArgumentException>([&] { buffer->setValue(QStringLiteral("zz")); }),
             QStringLiteral("[UserBuffer] 'zz' is not hexadecimal bytes"));
    QCOMPARE(thrownText<AccessException>([&] {
                 c.getParameter(QStringLiteral("@CameraDevice/StatusBlock"))
                     ->setValue(QByteArray(4, '\0'));
             }),
             QStringLiteral("[StatusBlock] the feature is not writable (RO)"));
    c.waitForDevice();
    QCOMPARE(reg->getValue(), QByteArray::fromHex("01020304"));
}

void tst_DeviceParameterCollection::shouldMarkEveryValueLostAndTellEveryViewWhenTheDeviceGoes()
{
    // Given values read and shown, one of them observed
    auto c = openMinimal();
    const auto width = c->getParameter(QStringLiteral("@CameraDevice/Width"));
    const auto mode = c->getParameter(QStringLiteral("@CameraDevice/Mode"));
    width->addObserver();
    QSignalSpy modeSpy(mode.data(), &IParameter::parameterDataChanged);
    QSignalSpy lost(c.get(), &IParameterCollection::deviceLost);
    // When the device stops answering
    deviceOf(*c)->setFault(SimulatedDevice::Fault::Timeout);
    c->refresh();
    QVERIFY(lost.wait());
    // Then even a feature nobody re-read learns it, and keeps its last value
    QCOMPARE(modeSpy.count(), 1);
    const auto modeData = modeSpy.at(0).at(0).value<ParameterDataPtr>();
    QVERIFY(modeData->deviceLost);
    QVERIFY(modeData->readable);
    QCOMPARE(modeData->value.toString(), QStringLiteral("Off"));
    QCOMPARE(modeData->errorText, QString());
    const auto structure = c->structure(QStringLiteral("CameraDevice"));
    for (const auto& info : structure->nodes) {
        QVERIFY2(c->getParameter(info.fullName)->getParameterData()->deviceLost,
                 qPrintable(info.featureName));
    }
    // A write after the loss still throws, and what the device thread re-publishes stays lost
    QCOMPARE(thrownText<DeviceLostException>([&] { mode->setValue(QStringLiteral("On")); }),
             QStringLiteral("[Mode] the device is lost"));
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    c->waitForDevice();
    QVERIFY(width->getParameterData()->deviceLost);
    QCOMPARE(width->getParameterData()->value.toLongLong(), 1024);
}

void tst_DeviceParameterCollection::shouldTurnEachAbsurdDefinitionIntoAnErrorOfItsOwn()
{
    DeviceParameterCollection c(QStringLiteral("hostile"));
    c.attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("hostile.xml")));
    auto dataOf = [&c](const char* name) {
        return c.getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(name))
            ->getParameterData();
    };
    // The rest of the camera is there.
    QCOMPARE(dataOf("Fine")->value.toLongLong(), 42);
    // A Length that is negative, past 64 bits or gigabytes long is the register's own error,
    // and never evaluated; so is whatever reads through it.
    for (const char* name : {"NegativeLength", "HugeLength", "FourGigaLength", "HugeIntReg"}) {
        const auto data = dataOf(name);
        QVERIFY2(!data->readable, name);
        QVERIFY2(data->errorText.contains(QStringLiteral("Length")), name);
        QCOMPARE(data->errorKind, Exception::Range);
    }
    QVERIFY(dataOf("HugeLength")->errorText.contains(QStringLiteral("0xFFFFFFFFFFFFFFFF")));
    const auto through = dataOf("ThroughHugeIntReg");
    QVERIFY(!through->readable);
    QVERIFY2(through->errorText.contains(QStringLiteral("HugeIntReg")),
             qPrintable(through->errorText));
    // A Length that another node gives is checked when it is read.
    QVERIFY(dataOf("PointedLength")->errorText.contains(QStringLiteral("-4096 bytes")));
    // A write never reaches such a node.
    QCOMPARE(thrownText<AccessException>([&] {
                 c.getParameter(QStringLiteral("@CameraDevice/HugeLength"))
                     ->setValue(QByteArray(4, '\0'));
             }).left(13),
             QStringLiteral("[HugeLength] "));
    // A precision past what a double holds shows what a double holds.
    for (const char* name :
         {"WidePrecision", "NaNPrecision", "GigaPrecision", "NegativePrecision"}) {
        const auto data = dataOf(name).staticCast<const FloatParameterData>();
        QVERIFY2(data->readable, name);
        QVERIFY2(data->displayPrecision >= 0 && data->displayPrecision <= 17, name);
        QVERIFY2(data->displayText.size() < 30, qPrintable(data->displayText));
    }
    QCOMPARE(dataOf("WidePrecision")->value.toDouble(), 1.5);
}

void tst_DeviceParameterCollection::shouldFinishAnOverflowingDivisionAsAnError()
{
    DeviceParameterCollection c(QStringLiteral("hostile"));
    c.attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("hostile.xml")));
    for (const char* name : {"MinDivMinusOne", "MinModMinusOne", "MinDivMinusOneFloat"}) {
        const auto data = c.getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(name))
                              ->getParameterData();
        QVERIFY2(!data->readable, name);
        QVERIFY2(!data->value.isValid(), name);
        QVERIFY2(data->errorText.contains(QStringLiteral("does not fit in 64 bits")), name);
    }
    // Reading again does the same, and the collection goes on answering.
    c.refresh();
    c.waitForDevice();
    QVERIFY(c.getParameter(QStringLiteral("@CameraDevice/MinDivMinusOne"))
                ->getParameterData()
                ->hasError());
    QCOMPARE(valueOf(c, QStringLiteral("@CameraDevice/Fine")).toLongLong(), 42);
}

void tst_DeviceParameterCollection::shouldWalkCategoriesNestedAHundredThousandDeep()
{
    const int depth = 100000;
    QByteArray body = "<Category Name=\"Root\"><pFeature>K0</pFeature></Category>\n";
    for (int i = 0; i < depth - 1; ++i) {
        body += "<Category Name=\"K" + QByteArray::number(i) + "\"><pFeature>K" +
                QByteArray::number(i + 1) + "</pFeature></Category>\n";
    }
    body += "<Category Name=\"K" + QByteArray::number(depth - 1) +
            "\"><pFeature>Leaf</pFeature></Category>\n<Integer "
            "Name=\"Leaf\"><Value>5</Value></Integer>\n";
    DeviceParameterCollection c(QStringLiteral("deep"));
    c.attachSimulated(QStringLiteral("CameraDevice"), describedAs(body));
    QString name = QStringLiteral("@CameraDevice/Root");
    int levels = 0;
    for (QStringList children = c.getChildren(name); !children.isEmpty();
         children = c.getChildren(name)) {
        name = children.first();
        ++levels;
    }
    QCOMPARE(levels, depth + 1);
    QCOMPARE(name, QStringLiteral("@CameraDevice/Leaf"));
    QCOMPARE(valueOf(c, name).toLongLong(), 5);
}

void tst_DeviceParameterCollection::shouldEvaluateLongChainsOnTheDeviceThread()
{
    // Aravis recurses once per link: these chains are longer than a default thread stack holds,
    // and each node of them is read, so that a cost per link that grows shows as minutes.
    const int length = 100000;
    QByteArray body = "<Category Name=\"Root\"><pFeature>Head</pFeature><pFeature>Knife0</pFeature>"
                      "</Category>\n<Integer Name=\"Head\"><pValue>C0</pValue></Integer>\n";
    for (int i = 0; i < length; ++i) {
        const QByteArray next = i + 1 < length ? "C" + QByteArray::number(i + 1) : "End";
        body += "<Integer Name=\"C" + QByteArray::number(i) + "\"><pValue>" + next +
                "</pValue></Integer>\n";
        const QByteArray knifeNext = i + 1 < length ? "Knife" + QByteArray::number(i + 1) : "End";
        body += "<IntSwissKnife Name=\"Knife" + QByteArray::number(i) +
                "\"><pVariable Name=\"X\">" + knifeNext +
                "</pVariable><Formula>X+1</Formula>"
                "</IntSwissKnife>\n";
    }
    body += "<Integer Name=\"End\"><Value>7</Value></Integer>\n";
    DeviceParameterCollection c(QStringLiteral("chain"));
    c.attachSimulated(QStringLiteral("CameraDevice"), describedAs(body));
    QCOMPARE(valueOf(c, QStringLiteral("@CameraDevice/Head")).toLongLong(), 7);
    QCOMPARE(valueOf(c, QStringLiteral("@CameraDevice/Knife0")).toLongLong(), 7 + length);
}

void tst_DeviceParameterCollection::shouldWaitForAStuckDeviceThreadOnlyAsLongAsAsked()
{
    auto c = openMinimal();
    QVERIFY(c->waitForDevice(5000));
    // Given the device thread stuck in a call
    QSemaphore entered;
    QSemaphore release;
    QThread* holder = QThread::create([&c, &entered, &release] {
        c->runOnDeviceThread([&entered, &release](Backend::DeviceWorker&) {
            entered.release();
            release.acquire();
        });
    });
    holder->start();
    entered.acquire();

    // Then a bounded wait gives up, and succeeds once the thread is free again
    QVERIFY(!c->waitForDevice(50));
    release.release();
    holder->wait();
    delete holder;
    QVERIFY(c->waitForDevice(5000));
}

void tst_DeviceParameterCollection::shouldThrowAtOnceWhenAnAttachIsCancelledAndRefuseTheNext()
{
    Backend::DeviceParameterCollection c(QStringLiteral("cancelled"));
    QSignalSpy attached(&c, &IParameterCollection::nodeMapAttached);
    // Given the device thread busy while the attach waits its turn
    QSemaphore entered;
    QSemaphore release;
    QThread* holder = QThread::create([&c, &entered, &release] {
        c.runOnDeviceThread([&entered, &release](Backend::DeviceWorker&) {
            entered.release();
            release.acquire();
        });
    });
    holder->start();
    entered.acquire();
    QTimer::singleShot(0, &c, [&c] { c.cancelAttach(); });

    // When the attach is cancelled, it throws with the reason, and nothing is attached
    const QString thrown = thrownText<TimeoutException>([&] {
        c.attachSimulated(QStringLiteral("CameraDevice"), testData(QStringLiteral("minimal.xml")));
    });
    QVERIFY2(thrown.contains(QStringLiteral("cancelled")), qPrintable(thrown));
    QVERIFY(!c.isAttaching());
    QVERIFY(c.getNodeMapNames().isEmpty());
    release.release();
    holder->wait();
    delete holder;
    QVERIFY(c.waitForDevice(5000));
    QCOMPARE(attached.count(), 0);

    // And the collection takes no further node map: its indices no longer match
    QVERIFY(thrownText<AccessException>([&] {
                c.attachSimulated(QStringLiteral("CameraDevice"),
                                  testData(QStringLiteral("minimal.xml")));
            }).contains(QStringLiteral("abandoned")));
}

QTEST_GUILESS_MAIN(tst_DeviceParameterCollection)
#include "tst_deviceparametercollection.moc"
