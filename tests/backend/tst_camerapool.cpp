#include "fakegigecamera.h"
#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>
#include <threadretirement.h>

#include <parametercollection/exception.h>
#include <parametercollection/iadvancedparameteraccess.h>

#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUdpSocket>
#include <QtTest>

#include <csignal>

#include <sys/stat.h>

using namespace ParameterCollection;

namespace {

int countVisibleFeatures(const IParameterCollection& collection, const QString& fullName,
                         int depth = 0)
{
    if (depth > 64) {
        return 0;
    }
    const auto parameter = collection.getParameter(fullName);
    if (!parameter) {
        return 0;
    }
    const auto data = parameter->getParameterData();
    if (data->type == CategoryType) {
        int count = 0;
        for (const QString& child : collection.getChildren(fullName)) {
            count += countVisibleFeatures(collection, child, depth + 1);
        }
        return count;
    }
    return data->visibility < GenApi::Invisible ? 1 : 0;
}

} // namespace

class tst_CameraPool : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldOpenEveryVendorDescriptionOnSimulatedDevice_data();
    void shouldOpenEveryVendorDescriptionOnSimulatedDevice();
    void shouldReportMissingFileClearly();
    void shouldRefuseWhatIsNotARegularFileWithoutReadingIt();
    void shouldSayThatADescriptionIsTooLargeBeforeReadingIt();
    void shouldAbandonACancelledOpenAtOnceAndListNothing();
    void shouldGiveUpAnOpenPastItsTimeout();
    void shouldReopenALostSimulatedCameraOnlyOnceItAnswers();
    void shouldKeepTheEventLoopTurningWhileAStuckDeviceIsAsked();
    void shouldOpenBuiltinCameraWithFourModules();
    void shouldReadAndWriteEveryTypeOnBuiltinCamera();
    void shouldRefuseWhatTheBuiltinCameraForbids();
    void shouldKeepOlderFeatureNamesInStepWithTheStandardOnes();
    void shouldCompleteCommandsAndReportIsDone();
    void shouldExplainALockByTheFeatureThatDecidesIt();
    void shouldOpenFakeGigECameraByAddressAndNoticeItsDeath();
};

namespace {

// What an untouched simulated camera shows: an error is never an access mode, a write-only
// command never runs, a float is in exponent form only where its description asks for it.
void checkNothingIsInvented(const Backend::DeviceParameterCollection& collection)
{
    const auto structure = collection.structure(QStringLiteral("CameraDevice"));
    int errors = 0;
    int registers = 0;
    for (const auto& info : structure->nodes) {
        const auto data = collection.getParameter(info.fullName)->getParameterData();
        const QString where = info.featureName + QLatin1String(": ") + data->errorText;
        if (data->hasError() && !info.cyclic) {
            ++errors;
            QVERIFY2(data->implemented, qPrintable(where));
            QVERIFY2(data->accessMode == GenApi::RO || data->accessMode == GenApi::RW ||
                         data->accessMode == GenApi::WO,
                     qPrintable(where));
        }
        if (data->type == CommandType && data->accessMode == GenApi::WO) {
            QVERIFY2(static_cast<const CommandParameterData&>(*data).done,
                     qPrintable(info.featureName));
        }
        if (data->type == FloatType && info.displayNotation != FloatParameterData::Scientific) {
            QVERIFY2(!data->displayText.contains(QLatin1Char('e')),
                     qPrintable(info.featureName + QLatin1String(" ") + data->displayText));
        }
        registers += data->type == RegisterType ? 1 : 0;
    }
    qInfo("%d values that can't be read, each with its reason; %d registers", errors, registers);
}

} // namespace

void tst_CameraPool::shouldOpenEveryVendorDescriptionOnSimulatedDevice_data()
{
    QTest::addColumn<QString>("file");
    QDirIterator it(sharedGenICamDir(), {QStringLiteral("*.xml")}, QDir::Files);
    bool any = false;
    while (it.hasNext()) {
        const QString file = it.next();
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
        any = true;
    }
    if (!any) {
        QTest::newRow("absent") << QString();
    }
}

void tst_CameraPool::shouldOpenEveryVendorDescriptionOnSimulatedDevice()
{
    QFETCH(QString, file);
    if (file.isEmpty() || !QFileInfo::exists(file)) {
        QSKIP("no vendor descriptions: ../shared/genicam is absent");
    }
    Backend::DeviceParameterCollection collection(QFileInfo(file).fileName());
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    collection.attachSimulated(QStringLiteral("CameraDevice"), f.readAll());
    const int visible = countVisibleFeatures(collection, QStringLiteral("@CameraDevice/Root"));
    const auto structure = collection.structure(QStringLiteral("CameraDevice"));
    qInfo("%s: %d visible features, %d nodes, %d structural problems",
          qPrintable(QFileInfo(file).fileName()), visible, int(structure->nodes.size()),
          int(structure->problems.size()));
    QVERIFY(visible > 0);
    checkNothingIsInvented(collection);
}

void tst_CameraPool::shouldReportMissingFileClearly()
{
    Backend::CameraPool pool;
    try {
        pool.openSimulated(QStringLiteral("/nonexistent/camera.xml"));
        QFAIL("a missing file must not open");
    } catch (const NotFoundException& e) {
        QVERIFY2(QString::fromUtf8(e.what()).startsWith(
                     QStringLiteral("[/nonexistent/camera.xml] cannot open")),
                 e.what());
    }
    QVERIFY(pool.getOpenDevices().isEmpty());
}

void tst_CameraPool::shouldRefuseWhatIsNotARegularFileWithoutReadingIt()
{
    // Given a FIFO nobody writes to, and a folder
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("camera.xml"));
    QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
    Backend::CameraPool pool;

    // Then neither opens, each with its reason, and the open does not block
    QVERIFY(thrownText<InvalidArgumentException>([&] {
                pool.openSimulated(fifo);
            }).contains(QStringLiteral("not a regular file")));
    QVERIFY(thrownText<InvalidArgumentException>([&] {
                pool.openSimulated(dir.path());
            }).contains(QStringLiteral("a folder")));
    QVERIFY(pool.getOpenDevices().isEmpty());
}

void tst_CameraPool::shouldSayThatADescriptionIsTooLargeBeforeReadingIt()
{
    // Given a sparse file just above the bound
    QTemporaryDir dir;
    QFile big(dir.filePath(QStringLiteral("big.xml")));
    QVERIFY(big.open(QIODevice::WriteOnly));
    QVERIFY(big.resize(Backend::CameraPool::MAX_DESCRIPTION_BYTES + 1));
    big.close();
    Backend::CameraPool pool;

    const QString thrown =
        thrownText<InvalidArgumentException>([&] { pool.openSimulated(big.fileName()); });

    // Then it is refused as too large, naming the bound, not as "not XML"
    QVERIFY2(thrown.contains(QStringLiteral("too large")) &&
                 thrown.contains(QStringLiteral("64 MiB")),
             qPrintable(thrown));
    QVERIFY(pool.getOpenDevices().isEmpty());
}

void tst_CameraPool::shouldAbandonACancelledOpenAtOnceAndListNothing()
{
    // Given an open of the built-in camera, cancelled as soon as the event loop turns in it
    Backend::CameraPool pool;
    QSignalSpy opened(&pool, &Backend::CameraPool::deviceOpened);
    bool wasOpening = false;
    QTimer::singleShot(0, &pool, [&pool, &wasOpening] {
        wasOpening = pool.isOpening();
        pool.cancelOpening();
    });

    const QString thrown = thrownText<TimeoutException>([&] { pool.openSimulated(); });

    // Then it ends with the reason and lists nothing; the device thread ends on its own
    QVERIFY(wasOpening);
    QVERIFY2(thrown.contains(QStringLiteral("cancelled")), qPrintable(thrown));
    QVERIFY(!pool.isOpening());
    QVERIFY(pool.getOpenDevices().isEmpty());
    QCOMPARE(opened.count(), 0);
    QTRY_COMPARE(Backend::ThreadRetirement::runningCount(), 0);

    // And the next open works
    QVERIFY(pool.openSimulated());
    QCOMPARE(pool.getOpenDevices().size(), 1);
}

void tst_CameraPool::shouldGiveUpAnOpenPastItsTimeout()
{
    Backend::CameraPool pool;
    pool.setOpenTimeout(1);

    const QString thrown = thrownText<TimeoutException>([&] { pool.openSimulated(); });

    QVERIFY2(thrown.contains(QStringLiteral("did not finish opening")), qPrintable(thrown));
    QVERIFY(pool.getOpenDevices().isEmpty());
}

namespace {

struct Builtin {
    Backend::CameraPool pool;
    QSharedPointer<Backend::CameraInfo> info = pool.openSimulated();
    QSharedPointer<IParameterCollection> collection = pool.getParameterCollection(info);
    QSharedPointer<IParameter> get(const char* feature) const
    {
        return collection->getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    }
    void sync() const
    {
        static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
    }
};

} // namespace

void tst_CameraPool::shouldOpenBuiltinCameraWithFourModules()
{
    Builtin camera;
    checkNothingIsInvented(
        *static_cast<Backend::DeviceParameterCollection*>(camera.collection.data()));
    QCOMPARE(camera.collection->getNodeMapNames(),
             (QStringList{QStringLiteral("CameraDevice"), QStringLiteral("DeviceTransportLayer"),
                          QStringLiteral("StreamGrabber0"), QStringLiteral("EventGrabber"),
                          QStringLiteral("ImageFormatConverter")}));
    QCOMPARE(camera.info->getVendorName(), QStringLiteral("Vanto"));
    QCOMPARE(camera.info->getModelName(), QStringLiteral("VNT-SIM-2000"));
    QCOMPARE(camera.info->getDeviceText(), QStringLiteral("Vanto_VNT-SIM-2000"));
    QVERIFY(!camera.info->isGigE());
    const int visible =
        countVisibleFeatures(*camera.collection, QStringLiteral("@CameraDevice/Root"));
    QVERIFY2(visible >= 300, qPrintable(QString::number(visible)));
    QVERIFY(camera.collection->getParameter(QStringLiteral("@StreamGrabber0/MaxNumBuffer")));
    QVERIFY(camera.collection->getParameter(
        QStringLiteral("@StreamGrabber0/Statistic_Failed_Buffer_Count")));
}

void tst_CameraPool::shouldReadAndWriteEveryTypeOnBuiltinCamera()
{
    Builtin camera;
    const auto width = camera.get("Width");
    const auto payload = camera.get("PayloadSize");
    QCOMPARE(width->getType(), int(IntegerType));
    const qint64 oldPayload = payload->getParameterData()->value.toLongLong();
    width->setValue(QVariant(640));
    camera.sync();
    QCOMPARE(width->getParameterData()->value.toLongLong(), 640);
    const qint64 height = camera.get("Height")->getParameterData()->value.toLongLong();
    QCOMPARE(payload->getParameterData()->value.toLongLong(), 640 * height);
    QVERIFY(payload->getParameterData()->value.toLongLong() != oldPayload);

    const auto exposure = camera.get("ExposureTime");
    QCOMPARE(exposure->getType(), int(FloatType));
    QCOMPARE(exposure->getProperty(QStringLiteral("Representation")),
             QStringLiteral("Logarithmic"));
    exposure->setValue(QVariant(2500.0));
    camera.sync();
    QCOMPARE(exposure->getParameterData()->value.toDouble(), 2500.0);

    // Addresses are written as people write them.
    const auto address = camera.get("GevPersistentIPAddress");
    address->setValue(QStringLiteral("192.168.10.20"));
    camera.sync();
    QCOMPARE(address->getParameterData()->value.toLongLong(), 0xC0A80A14);
    QCOMPARE(address->getParameterData()->displayText, QStringLiteral("192.168.10.20"));
    QCOMPARE(thrownText<InvalidArgumentException>(
                 [&] { address->setValue(QStringLiteral("192.168.10.300")); }),
             QStringLiteral("[GevPersistentIPAddress] '192.168.10.300' is not an integer"));

    const auto pixelFormat = camera.get("PixelFormat");
    QCOMPARE(pixelFormat->getType(), int(EnumerationType));
    pixelFormat->setValue(QStringLiteral("Mono16"));
    camera.sync();
    QCOMPARE(pixelFormat->getParameterData()->value.toString(), QStringLiteral("Mono16"));
    QCOMPARE(payload->getParameterData()->value.toLongLong(), 640 * height * 2);

    const auto userId = camera.get("DeviceUserID");
    QCOMPARE(userId->getType(), int(StringType));
    userId->setValue(QStringLiteral("line 3 left"));
    camera.sync();
    QCOMPARE(userId->getParameterData()->value.toString(), QStringLiteral("line 3 left"));

    const auto enable = camera.get("AcquisitionFrameRateEnable");
    QCOMPARE(enable->getType(), int(BooleanType));
    const auto rate = camera.get("AcquisitionFrameRate");
    QVERIFY(!rate->getParameterData()->available);
    enable->setValue(QVariant(true));
    camera.sync();
    QCOMPARE(enable->getParameterData()->value.toBool(), true);
    QVERIFY(rate->getParameterData()->available); // the dependency graph re-read it
}

void tst_CameraPool::shouldKeepOlderFeatureNamesInStepWithTheStandardOnes()
{
    Builtin camera;
    const auto integer = [&](const char* name) {
        return qobject_cast<ParameterCollection::IIntegerParameter*>(camera.get(name).data());
    };
    const auto floating = [&](const char* name) {
        return qobject_cast<ParameterCollection::IFloatParameter*>(camera.get(name).data());
    };

    // Raw gain counts tenths of a decibel
    integer("GainRaw")->setValue(125);
    camera.sync();
    QCOMPARE(floating("Gain")->getValue(), 12.5);
    floating("Gain")->setValue(3.04);
    camera.sync();
    QCOMPARE(integer("GainRaw")->getValue(), qint64(30));
    QCOMPARE(integer("GainRaw")->getMax(), qint64(240));

    // The older exposure and frame rate names are the same settings
    floating("ExposureTimeAbs")->setValue(2500.0);
    camera.sync();
    QCOMPARE(floating("ExposureTime")->getValue(), 2500.0);
    QVERIFY(!camera.get("AcquisitionFrameRateAbs")->getParameterData()->available);
    camera.get("AcquisitionFrameRateEnable")->setValue(true);
    camera.sync();
    QVERIFY(camera.get("AcquisitionFrameRateAbs")->getParameterData()->available);
    floating("AcquisitionFrameRate")->setValue(20.0);
    camera.sync();
    QCOMPARE(floating("AcquisitionFrameRateAbs")->getValue(), 20.0);

    // And locked together while the camera controls the exposure
    camera.get("ExposureAuto")->setValue(QStringLiteral("Continuous"));
    camera.sync();
    QVERIFY(camera.get("ExposureTimeAbs")->getParameterData()->locked);
}

void tst_CameraPool::shouldRefuseWhatTheBuiltinCameraForbids()
{
    Builtin camera;
    QCOMPARE(thrownText<AccessException>(
                 [&] { camera.get("DeviceVendorName")->setValue(QStringLiteral("x")); }),
             QStringLiteral("[DeviceVendorName] the feature is not writable (RO)"));
    QCOMPARE(thrownText<AccessException>(
                 [&] { camera.get("AcquisitionFrameRate")->setValue(QVariant(10.0)); }),
             QStringLiteral("[AcquisitionFrameRate] the feature is not available"));
    const auto absent = camera.get("ExposureTimeMode");
    QCOMPARE(absent->getParameterData()->accessMode, GenApi::NI);
    QCOMPARE(thrownText<AccessException>([&] { absent->setValue(QStringLiteral("UltraShort")); }),
             QStringLiteral("[ExposureTimeMode] the feature is not implemented"));
    camera.get("ExposureAuto")->setValue(QStringLiteral("Continuous"));
    camera.sync();
    QVERIFY(camera.get("ExposureTime")->getParameterData()->locked);
    QCOMPARE(
        thrownText<AccessException>([&] { camera.get("ExposureTime")->setValue(QVariant(100.0)); }),
        QStringLiteral("[ExposureTime] the feature is locked"));
    const auto width = camera.get("Width");
    const auto w = width->getParameterData().staticCast<const IntegerParameterData>();
    QVERIFY(thrownText<RangeException>([&] {
                width->setValue(QVariant(w->max + w->increment));
            }).startsWith(QStringLiteral("[Width] ")));
    if (w->increment > 1) {
        QVERIFY(thrownText<RangeException>([&] {
                    width->setValue(QVariant(w->min + 1));
                }).contains(QStringLiteral("increment")));
    }
}

void tst_CameraPool::shouldReopenALostSimulatedCameraOnlyOnceItAnswers()
{
    Backend::CameraPool pool;
    const auto info = pool.openSimulated(testDataPath(QStringLiteral("minimal.xml")));
    auto* collection =
        static_cast<Backend::DeviceParameterCollection*>(pool.getParameterCollection(info).data());
    Backend::SimulatedDevice* device = nullptr;
    collection->runOnDeviceThread(
        [&device](Backend::DeviceWorker& worker) { device = worker.simulatedDevice(0); });
    QVERIFY(device);
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));
    width->setValue(QVariant(512));
    collection->waitForDevice();
    QSignalSpy lost(collection, &IParameterCollection::deviceLost);
    device->setFault(Backend::SimulatedDevice::Fault::Timeout);
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    QVERIFY(lost.wait());

    // While the device does not answer, reopening fails and changes nothing
    QVERIFY(thrownText<DeviceLostException>([&] {
                pool.reopen(info);
            }).contains(QStringLiteral("does not answer")));
    QCOMPARE(pool.getOpenDevices().size(), 1);

    // Once it answers, the same description opens again under the same id, beside the old one
    device->setFault(Backend::SimulatedDevice::Fault::None);
    const auto again = pool.reopen(info);
    QVERIFY(again);
    QVERIFY(again != info);
    QCOMPARE(again->getId(), info->getId());
    QCOMPARE(again->getFriendlyName(), info->getFriendlyName());
    QCOMPARE(pool.getOpenDevices().size(), 2);
    const auto fresh = pool.getParameterCollection(again);
    QVERIFY(!fresh->isLost());
    QVERIFY(
        fresh->getParameter(QStringLiteral("@CameraDevice/Width"))->getParameterData()->readable);
    pool.close(info);
    QCOMPARE(pool.getOpenDevices().size(), 1);
    QVERIFY_EXCEPTION_THROWN(pool.reopen(info), NotFoundException);
}

void tst_CameraPool::shouldKeepTheEventLoopTurningWhileAStuckDeviceIsAsked()
{
    Backend::CameraPool pool;
    const auto info = pool.openSimulated(testDataPath(QStringLiteral("minimal.xml")));
    auto* collection =
        static_cast<Backend::DeviceParameterCollection*>(pool.getParameterCollection(info).data());
    // Given the device thread stuck in a call, as in one to a camera that went silent
    QSemaphore entered;
    QSemaphore release;
    QThread* holder = QThread::create([collection, &entered, &release] {
        collection->runOnDeviceThread([&entered, &release](Backend::DeviceWorker&) {
            entered.release();
            release.acquire();
        });
    });
    holder->start();
    entered.acquire();
    int beats = 0;
    QTimer beat;
    connect(&beat, &QTimer::timeout, &beat, [&beats] { ++beats; });
    beat.start(10);

    // When the camera is to be reopened, it is asked whether it answers
    const QString thrown = thrownText<TimeoutException>([&] { pool.reopen(info); });

    // Then the question times out with the reason while the event loop went on
    QVERIFY2(thrown.contains(QStringLiteral("does not answer")), qPrintable(thrown));
    QVERIFY(beats > 0);
    QCOMPARE(pool.getOpenDevices().size(), 1);
    release.release();
    holder->wait();
    delete holder;
}

void tst_CameraPool::shouldCompleteCommandsAndReportIsDone()
{
    Builtin camera;
    const auto command = camera.get("TriggerSoftware");
    auto* typed = qobject_cast<ICommandParameter*>(command.data());
    QVERIFY(typed);
    QVERIFY(typed->isDone());
    typed->execute();
    QVERIFY(!typed->isDone()); // shown running at once
    QTRY_VERIFY(typed->isDone());
}

void tst_CameraPool::shouldExplainALockByTheFeatureThatDecidesIt()
{
    // Given the built-in camera with ExposureAuto Off
    Builtin camera;
    const auto exposure = camera.get("ExposureTime");
    const auto automatic = camera.get("ExposureAuto");
    QVERIFY(!exposure->getParameterData()->locked);
    QCOMPARE(exposure->getParameterData()->restriction, QString());
    // When the device takes exposure over
    automatic->setValue(QStringLiteral("Continuous"));
    camera.sync();
    // Then the lock names the feature that decides it, by its display name and value
    QVERIFY(exposure->getParameterData()->locked);
    QCOMPARE(exposure->getParameterData()->restriction,
             QStringLiteral("Locked while Exposure Auto is Continuous"));
    QCOMPARE(camera.get("ExposureTimeAbs")->getParameterData()->restriction,
             QStringLiteral("Locked while Exposure Auto is Continuous"));
    // And it clears when the user takes exposure back
    automatic->setValue(QStringLiteral("Off"));
    camera.sync();
    QVERIFY(!exposure->getParameterData()->locked);
    QCOMPARE(exposure->getParameterData()->restriction, QString());
}

void tst_CameraPool::shouldOpenFakeGigECameraByAddressAndNoticeItsDeath()
{
    if (const QString why = FakeGigECamera::unavailable(); !why.isEmpty()) {
        QSKIP(qPrintable(why));
    }
    FakeGigECamera camera;
    const QString failure = camera.start();
    QVERIFY2(failure.isEmpty(), qPrintable(failure));

    Backend::CameraPool pool;
    const QSharedPointer<Backend::CameraInfo> info = FakeGigECamera::open(pool);
    QVERIFY2(info, "the fake camera did not answer on 127.0.0.1");
    QVERIFY(info->isGigE());
    const auto collection = pool.getParameterCollection(info);
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));
    QVERIFY(width);
    QVERIFY(width->getParameterData()->readable);
    const qint64 newWidth = width->getParameterData()->value.toLongLong() == 512 ? 256 : 512;
    QSignalSpy changed(width.data(), &IParameter::parameterDataChanged);
    width->setValue(QVariant(newWidth));
    QTRY_VERIFY(changed.count() >= 1);
    static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
    QCOMPARE(width->getParameterData()->value.toLongLong(), newWidth);
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
    QCOMPARE(width->getParameterData()->value.toLongLong(), newWidth); // read back from the camera

    // Kill the camera; the GUI thread must keep ticking while Aravis times out.
    QSignalSpy lost(collection.data(), &IParameterCollection::deviceLost);
    width->addObserver();
    camera.kill();
    QVERIFY(camera.waitForFinished(5000));
    QTimer ticker;
    ticker.setInterval(10);
    QElapsedTimer sinceTick;
    qint64 longestGap = 0;
    sinceTick.start();
    connect(&ticker, &QTimer::timeout, &ticker,
            [&] { longestGap = qMax(longestGap, sinceTick.restart()); });
    ticker.start();
    QElapsedTimer lostAfter;
    lostAfter.start();
    collection->refresh();
    QVERIFY(lost.wait(20000) || lost.count() > 0);
    qInfo("lost after %lld ms; longest GUI gap %lld ms", lostAfter.elapsed(), longestGap);
    QVERIFY(collection->isLost());
    QVERIFY2(longestGap < 50, qPrintable(QStringLiteral("GUI stalled %1 ms").arg(longestGap)));
    try {
        width->setValue(QVariant(newWidth));
        QFAIL("a write to a lost device must throw");
    } catch (const DeviceLostException& e) {
        QCOMPARE(e.featureName(), QStringLiteral("Width"));
    }
}

QTEST_GUILESS_MAIN(tst_CameraPool)
#include "tst_camerapool.moc"
