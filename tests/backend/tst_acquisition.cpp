#include "../fakegigecamera.h"
#include "testsupport.h"

#include <acquisition.h>
#include <acquisitionservice.h>
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>
#include <simulatedimage.h>

#include <acquisition/pixelformat.h>
#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>

#include <QElapsedTimer>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

using namespace ParameterCollection;
using Plugin::Acquisition::FramePtr;
using Plugin::Acquisition::IAcquisition;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

class tst_Acquisition : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void shouldStreamFramesThatFollowTheFormulas();
    void shouldStreamTheNewShapeAfterWidthOrPixelFormatChanged();
    void shouldGiveOneFrameInSingleFrameMode();
    void shouldGiveOneFramePerSoftwareTrigger();
    void shouldAnnounceMaxNumBufferBuffers();
    void shouldCountEveryFrameForASlowConsumerWithoutGrowing();
    void shouldLoseNoFrameToAConsumerThatKeepsThem();
    void shouldResetStatisticsAndHidePacketCountersOfASimulatedStream();
    void shouldBrightenTheNextFramesWhenGainChangesWhileAcquiring();
    void shouldStartTheDeviceFromTheTreeWhileTheStreamIsOpen();
    void shouldLockThePayloadFeaturesWhileStreaming();
    void shouldFailWithTheReasonWhenTheCameraIsLost();
    void shouldCloseWhileAcquiringWithoutCrash();
    void shouldStreamFromTheFakeGigECameraAndSurviveItsDeath();

private:
    Backend::DeviceParameterCollection& collection();
    void set(const QString& feature, const QVariant& value);
    void execute(const QString& command);
    QVariant value(const QString& feature);
    Backend::SimulatedImageSettings deviceSettings();

    std::unique_ptr<Backend::CameraPool> m_pool;
    std::unique_ptr<Backend::AcquisitionService> m_service;
    QSharedPointer<Backend::CameraInfo> m_info;
    Backend::Acquisition* m_acquisition = nullptr;
};

void tst_Acquisition::init()
{
    m_pool = std::make_unique<Backend::CameraPool>();
    m_service = std::make_unique<Backend::AcquisitionService>(m_pool.get());
    if (QString::fromLatin1(QTest::currentTestFunction()).contains(QLatin1String("FakeGigE"))) {
        return;
    }
    m_info = m_pool->openSimulated();
    m_acquisition = m_service->acquisitionOf(m_info);
    QVERIFY(m_acquisition);
    // Small frames at a high rate keep the tests short.
    set(QStringLiteral("@CameraDevice/Width"), 320);
    set(QStringLiteral("@CameraDevice/Height"), 240);
    set(QStringLiteral("@CameraDevice/AcquisitionFrameRateEnable"), true);
    set(QStringLiteral("@CameraDevice/AcquisitionFrameRate"), 200.0);
}

void tst_Acquisition::cleanup()
{
    m_acquisition = nullptr;
    m_info.reset();
    m_service.reset();
    m_pool.reset();
}

Backend::DeviceParameterCollection& tst_Acquisition::collection()
{
    return *qSharedPointerObjectCast<Backend::DeviceParameterCollection>(
        m_pool->getParameterCollection(m_info));
}

void tst_Acquisition::set(const QString& feature, const QVariant& v)
{
    const auto parameter = collection().getParameter(feature);
    QVERIFY2(parameter, qPrintable(feature));
    parameter->setValue(v);
    collection().waitForDevice();
}

void tst_Acquisition::execute(const QString& command)
{
    const auto parameter = collection().getParameter(command);
    auto* typed = qobject_cast<ICommandParameter*>(parameter.data());
    QVERIFY2(typed, qPrintable(command));
    typed->execute();
    collection().waitForDevice();
}

QVariant tst_Acquisition::value(const QString& feature)
{
    const auto parameter = collection().getParameter(feature);
    if (!parameter) {
        return QVariant();
    }
    parameter->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    collection().waitForDevice();
    return parameter->getParameterData()->value;
}

Backend::SimulatedImageSettings tst_Acquisition::deviceSettings()
{
    Backend::SimulatedImageSettings settings;
    collection().runOnDeviceThread([&settings](Backend::DeviceWorker& worker) {
        QString error;
        Backend::SimulatedImage::settingsOf(worker.genicam(0), &settings, &error);
    });
    return settings;
}

namespace {

qint64 steadyNowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Takes the newest frame on every notification, as a display would, and keeps the last few.
struct Collector {
    static constexpr std::size_t KEPT = 5;
    explicit Collector(IAcquisition* acquisition) : acquisition(acquisition)
    {
        QObject::connect(acquisition, &IAcquisition::frameReady, &context, [this] {
            if (FramePtr frame = this->acquisition->latestFrame()) {
                if (frames.size() == KEPT) {
                    frames.erase(frames.begin());
                }
                frames.push_back(frame);
                ++taken;
            }
        });
    }
    IAcquisition* acquisition;
    QObject context;
    std::vector<FramePtr> frames;
    std::size_t taken = 0;
};

void checkPixels(const FramePtr& frame, const Backend::SimulatedImageSettings& settings)
{
    QByteArray expected(int(Backend::SimulatedImage::payloadSize(settings)), '\0');
    Backend::SimulatedImage::render(settings, frame->frameId(),
                                    reinterpret_cast<uchar*>(expected.data()));
    QCOMPARE(int(frame->size()), expected.size());
    QVERIFY2(std::memcmp(frame->data(), expected.constData(), frame->size()) == 0,
             qPrintable(QStringLiteral("frame %1 differs from the formula").arg(frame->frameId())));
}

} // namespace

void tst_Acquisition::shouldStreamFramesThatFollowTheFormulas()
{
    set(QStringLiteral("@CameraDevice/TestPattern"), QStringLiteral("GreyDiagonalRampMoving"));
    const auto settings = deviceSettings();
    Collector collector(m_acquisition);
    QSignalSpy states(m_acquisition, &IAcquisition::stateChanged);
    const qint64 started = steadyNowNs();
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(collector.frames.size() >= Collector::KEPT);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    const qint64 stopped = steadyNowNs();
    QVERIFY(states.count() >= 3); // Starting, Acquiring, Stopping, Idle
    quint64 previousId = 0;
    qint64 previousReceived = started;
    for (const FramePtr& frame : collector.frames) {
        QCOMPARE(frame->width(), 320u);
        QCOMPARE(frame->height(), 240u);
        QCOMPARE(frame->pixelFormat(), PixelFormat::Mono8);
        QVERIFY(frame->isComplete());
        QVERIFY(frame->frameId() > previousId);
        previousId = frame->frameId();
        // Received on the host's clock, in the order sent, while the acquisition ran.
        QVERIFY(frame->receivedNs() > previousReceived);
        QVERIFY(frame->receivedNs() < stopped);
        previousReceived = frame->receivedNs();
        checkPixels(frame, settings);
    }
    QVERIFY(m_acquisition->statistics().completed >= collector.frames.size());
    QCOMPARE(m_acquisition->statistics().bytes,
             m_acquisition->statistics().completed * 320u * 240u);
}

void tst_Acquisition::shouldStreamTheNewShapeAfterWidthOrPixelFormatChanged()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);

    set(QStringLiteral("@CameraDevice/Width"), 160);
    set(QStringLiteral("@CameraDevice/PixelFormat"), QStringLiteral("Mono16"));
    const auto settings = deviceSettings();
    ready.clear();
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    const FramePtr frame = m_acquisition->latestFrame();
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    QCOMPARE(frame->width(), 160u);
    QCOMPARE(frame->pixelFormat(), PixelFormat::Mono16);
    QCOMPARE(quint64(frame->size()), PixelFormat::imageBytes(PixelFormat::Mono16, 160, 240));
    checkPixels(frame, settings);
}

void tst_Acquisition::shouldGiveOneFrameInSingleFrameMode()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    QSignalSpy states(m_acquisition, &IAcquisition::stateChanged);
    m_acquisition->start(IAcquisition::SingleFrame);
    QTRY_VERIFY(!states.isEmpty() &&
                states.last().at(0).value<IAcquisition::State>() == IAcquisition::Idle);
    QVERIFY(std::any_of(states.begin(), states.end(), [](const QList<QVariant>& args) {
        return args.at(0).value<IAcquisition::State>() == IAcquisition::Acquiring;
    }));
    QCOMPARE(m_acquisition->statistics().completed, quint64(1));
    QCOMPARE(ready.count(), 1);
    QCOMPARE(value(QStringLiteral("@CameraDevice/AcquisitionMode")).toString(),
             QStringLiteral("SingleFrame"));
}

void tst_Acquisition::shouldGiveOneFramePerSoftwareTrigger()
{
    set(QStringLiteral("@CameraDevice/TriggerSelector"), QStringLiteral("FrameStart"));
    set(QStringLiteral("@CameraDevice/TriggerMode"), QStringLiteral("On"));
    set(QStringLiteral("@CameraDevice/TriggerSource"), QStringLiteral("Software"));
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Acquiring);
    for (quint64 n = 1; n <= 3; ++n) {
        execute(QStringLiteral("@CameraDevice/TriggerSoftware"));
        QTRY_COMPARE(m_acquisition->statistics().completed, n);
    }
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    // Without a trigger the camera sends nothing: a free-running stream at 200 Hz would have
    // sent many more by now.
    QCOMPARE(m_acquisition->statistics().completed, quint64(3));
    QCOMPARE(m_acquisition->statistics().underruns, quint64(0));
}

void tst_Acquisition::shouldAnnounceMaxNumBufferBuffers()
{
    set(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 3);
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/StreamAnnouncedBufferCount")).toInt(), 0);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Acquiring);
    QCOMPARE(m_acquisition->announcedBuffers(), 3);
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/StreamAnnouncedBufferCount")).toInt(), 3);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/StreamAnnouncedBufferCount")).toInt(), 0);
}

void tst_Acquisition::shouldCountEveryFrameForASlowConsumerWithoutGrowing()
{
    set(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 4);
    int taken = 0;
    FramePtr held[2];
    quint64 lastId = 0;
    bool ordered = true;
    QObject context;
    connect(m_acquisition, &IAcquisition::frameReady, &context, [&] {
        FramePtr frame = m_acquisition->latestFrame();
        ordered = ordered && frame->frameId() > lastId;
        lastId = frame->frameId();
        // A consumer that keeps two frames and takes far longer per frame than the camera.
        held[taken % 2] = frame;
        ++taken;
        QThread::msleep(25);
    });
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY_WITH_TIMEOUT(taken >= 20, 20000);
    QCOMPARE(m_acquisition->announcedBuffers(), 4);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    const auto stats = m_acquisition->statistics();
    qInfo("consumer took %d frames; the stream counted %llu complete, %llu underruns", taken,
          stats.completed, stats.underruns);
    QVERIFY(ordered);
    // Frame ids count every frame the device sent: each one is counted, taken or not.
    QVERIFY(stats.completed + stats.incomplete + stats.underruns >= lastId);
    QVERIFY(stats.completed > quint64(taken)); // the display skipped, the count did not
    QCOMPARE(stats.underruns, quint64(0));     // two held frames leave buffers to the stream
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/Statistic_Total_Buffer_Count")).toULongLong(),
             stats.completed + stats.incomplete);
}

void tst_Acquisition::shouldLoseNoFrameToAConsumerThatKeepsThem()
{
    set(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 3);
    set(QStringLiteral("@CameraDevice/TestPattern"), QStringLiteral("GreyDiagonalRampMoving"));
    const auto settings = deviceSettings();
    std::vector<FramePtr> kept;
    QObject context;
    connect(m_acquisition, &IAcquisition::frameReady, &context,
            [&] { kept.push_back(m_acquisition->latestFrame()); });
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY_WITH_TIMEOUT(kept.size() >= 30, 20000);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    QCOMPARE(m_acquisition->statistics().underruns, quint64(0));
    QCOMPARE(m_acquisition->statistics().incomplete, quint64(0));
    // Every kept frame still shows its own image.
    for (const FramePtr& frame : kept) {
        checkPixels(frame, settings);
    }
}

void tst_Acquisition::shouldResetStatisticsAndHidePacketCountersOfASimulatedStream()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 2);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    QVERIFY(value(QStringLiteral("@StreamGrabber0/Statistic_Total_Buffer_Count")).toULongLong() >=
            2);
    execute(QStringLiteral("@StreamGrabber0/Statistic_Reset"));
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/Statistic_Total_Buffer_Count")).toULongLong(),
             0ull);
    QCOMPARE(m_acquisition->statistics().completed, quint64(0));
    for (const char* feature : {"Statistic_Total_Packet_Count", "Statistic_Failed_Packet_Count",
                                "Statistic_Resend_Request_Count", "Statistic_Resend_Packet_Count",
                                "Statistic_Missed_Frame_Count", "VntPacketTimeout", "MaxBufferSize",
                                "StreamBufferHandlingMode"}) {
        const auto data =
            collection()
                .getParameter(QStringLiteral("@StreamGrabber0/") + QLatin1String(feature))
                ->getParameterData();
        QVERIFY2(!data->implemented, feature);
    }
    QVERIFY(collection()
                .getParameter(QStringLiteral("@StreamGrabber0/Statistic_Total_Buffer_Count"))
                ->getParameterData()
                ->implemented);
}

void tst_Acquisition::shouldBrightenTheNextFramesWhenGainChangesWhileAcquiring()
{
    set(QStringLiteral("@CameraDevice/TestPattern"), QStringLiteral("Off"));
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    const quint64 before = m_acquisition->latestFrame()->frameId();
    set(QStringLiteral("@CameraDevice/Gain"), 12.0);
    const auto settings = deviceSettings();
    QCOMPARE(settings.gainDb, 12.0);
    // A frame sent after the write has the new gain.
    QTRY_VERIFY(m_acquisition->latestFrame()->frameId() > before + 2);
    const FramePtr frame = m_acquisition->latestFrame();
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    checkPixels(frame, settings);
}

void tst_Acquisition::shouldStartTheDeviceFromTheTreeWhileTheStreamIsOpen()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    execute(QStringLiteral("@CameraDevice/AcquisitionStop"));
    const quint64 stopped = m_acquisition->statistics().completed;
    // The device sends nothing while stopped: the count stays until it starts again.
    execute(QStringLiteral("@CameraDevice/AcquisitionStart"));
    QTRY_VERIFY(m_acquisition->statistics().completed > stopped + 2);
    QCOMPARE(m_acquisition->state(), IAcquisition::Acquiring);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
}

void tst_Acquisition::shouldLockThePayloadFeaturesWhileStreaming()
{
    const auto width = collection().getParameter(QStringLiteral("@CameraDevice/Width"));
    const auto gain = collection().getParameter(QStringLiteral("@CameraDevice/Gain"));
    QVERIFY(width && gain);
    QCOMPARE(value(QStringLiteral("@CameraDevice/TLParamsLocked")).toLongLong(), 0);
    QVERIFY(!width->getParameterData()->locked);

    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    QCOMPARE(value(QStringLiteral("@CameraDevice/TLParamsLocked")).toLongLong(), 1);
    // The tree learns of the lock without a poll, and a write is refused with a reason.
    QVERIFY(width->getParameterData()->locked);
    QVERIFY(!width->getParameterData()->writable);
    QString refusal;
    try {
        width->setValue(160);
        collection().waitForDevice();
    } catch (const Exception& error) {
        refusal = QString::fromUtf8(error.what());
    }
    QVERIFY2(!refusal.isEmpty(), "a locked Width took a write");
    QCOMPARE(value(QStringLiteral("@CameraDevice/Width")).toLongLong(), 320);
    // What does not change the payload stays free.
    QVERIFY(!gain->getParameterData()->locked);

    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    QCOMPARE(value(QStringLiteral("@CameraDevice/TLParamsLocked")).toLongLong(), 0);
    QVERIFY(!width->getParameterData()->locked);
    set(QStringLiteral("@CameraDevice/Width"), 160);
    QCOMPARE(value(QStringLiteral("@CameraDevice/Width")).toLongLong(), 160);
}

void tst_Acquisition::shouldFailWithTheReasonWhenTheCameraIsLost()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    QSignalSpy failed(m_acquisition, &IAcquisition::failed);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    collection().runOnDeviceThread([](Backend::DeviceWorker& worker) {
        worker.simulatedDevice(0)->setFault(Backend::SimulatedDevice::Fault::Timeout);
    });
    collection().refresh({ParameterName(QStringLiteral("@CameraDevice/Width"))});
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY2(failed.at(0).at(0).toString().contains(QLatin1String("Timeout")),
             qPrintable(failed.at(0).at(0).toString()));
    QCOMPARE(m_acquisition->state(), IAcquisition::Idle);
    m_acquisition->start(IAcquisition::Continuous);
    QCOMPARE(failed.count(), 2);
    QCOMPARE(m_acquisition->state(), IAcquisition::Idle);
}

void tst_Acquisition::shouldCloseWhileAcquiringWithoutCrash()
{
    QSignalSpy ready(m_acquisition, &IAcquisition::frameReady);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY(ready.count() >= 1);
    const FramePtr kept = m_acquisition->latestFrame();
    m_pool->close(m_info);
    QVERIFY(!m_service->getAcquisition(m_info));
    m_acquisition = nullptr;
    // A frame a consumer kept stays valid after its camera went.
    QCOMPARE(kept->width(), 320u);
    volatile uchar sum = 0;
    for (std::size_t i = 0; i < kept->size(); ++i) {
        sum = sum + kept->data()[i];
    }
    Q_UNUSED(sum);
}

void tst_Acquisition::shouldStreamFromTheFakeGigECameraAndSurviveItsDeath()
{
    FakeGigECamera camera;
    const QString unavailable = camera.start();
    if (!unavailable.isEmpty()) {
        QSKIP(qPrintable(unavailable));
    }
    m_info = openFakeGigECamera(*m_pool);
    QVERIFY2(m_info, "the fake camera did not answer on 127.0.0.1");
    m_acquisition = m_service->acquisitionOf(m_info);
    QVERIFY(m_acquisition);
    set(QStringLiteral("@CameraDevice/AcquisitionFrameRate"), 100.0);

    Collector collector(m_acquisition);
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY_WITH_TIMEOUT(m_acquisition->statistics().completed >= 100, 30000);
    m_acquisition->stop();
    QTRY_COMPARE(m_acquisition->state(), IAcquisition::Idle);
    const auto stats = m_acquisition->statistics();
    QCOMPARE(value(QStringLiteral("@StreamGrabber0/Statistic_Total_Buffer_Count")).toULongLong(),
             stats.completed + stats.incomplete);
    QVERIFY(value(QStringLiteral("@StreamGrabber0/Statistic_Total_Packet_Count")).toULongLong() >
            0);
    // A GigE Vision stream backs the packet counters and takes the transport options.
    for (const char* feature : {"Statistic_Failed_Packet_Count", "Statistic_Resend_Request_Count",
                                "Statistic_Missed_Frame_Count", "VntPacketTimeout",
                                "VntFrameRetention", "VntSocketBufferSize"}) {
        QVERIFY2(collection()
                     .getParameter(QStringLiteral("@StreamGrabber0/") + QLatin1String(feature))
                     ->getParameterData()
                     ->implemented,
                 feature);
    }
    const FramePtr frame = collector.frames.back();
    QVERIFY(frame->receivedNs() > collector.frames.front()->receivedNs());
    QVERIFY(frame->receivedNs() < steadyNowNs());
    QCOMPARE(qint64(frame->width()), value(QStringLiteral("@CameraDevice/Width")).toLongLong());
    QCOMPARE(qint64(frame->height()), value(QStringLiteral("@CameraDevice/Height")).toLongLong());
    QCOMPARE(frame->pixelFormat(), PixelFormat::Mono8);

    // Streaming again, the camera dies; the GUI thread keeps ticking while Aravis notices.
    QSignalSpy failed(m_acquisition, &IAcquisition::failed);
    const quint64 before = m_acquisition->statistics().completed;
    m_acquisition->start(IAcquisition::Continuous);
    QTRY_VERIFY_WITH_TIMEOUT(m_acquisition->statistics().completed > before + 5, 10000);
    QVERIFY(camera.kill());
    QTimer ticker;
    ticker.setInterval(10);
    QElapsedTimer sinceTick;
    qint64 longestGap = 0;
    connect(&ticker, &QTimer::timeout, this,
            [&] { longestGap = qMax(longestGap, sinceTick.restart()); });
    sinceTick.start();
    ticker.start();
    // Aravis notices through its heartbeat; a poll of an observed feature asks the device too.
    const auto width = collection().getParameter(QStringLiteral("@CameraDevice/Width"));
    width->addObserver();
    QElapsedTimer polling;
    polling.start();
    while (failed.isEmpty() && polling.elapsed() < 30000) {
        collection().poll(1000);
        failed.wait(200);
    }
    width->removeObserver();
    ticker.stop();
    QCOMPARE(failed.count(), 1);
    QCOMPARE(m_acquisition->state(), IAcquisition::Idle);
    qInfo("camera loss reported as \"%s\"; longest GUI-thread stall %lld ms",
          qPrintable(failed.at(0).at(0).toString()), longestGap);
    QVERIFY2(longestGap < 50, qPrintable(QStringLiteral("GUI stalled %1 ms").arg(longestGap)));
}

QTEST_MAIN(tst_Acquisition)
#include "tst_acquisition.moc"
