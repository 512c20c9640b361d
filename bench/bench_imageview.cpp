// The fake GigE Vision camera at its highest frame rate, streamed into the window with the
// image shown: frames per second received next to Aravis's own bare loop (arv-camera-test,
// which pops and pushes back buffers and does nothing else) in the same run, as a ratio, and
// the GUI thread's longest pause meanwhile. Then the latency from buffer to screen: for every
// image painted, the time from when the host had its frame whole (Frame::receivedNs) to the end
// of the paint, median and 99th percentile, at the highest rate and at a camera's usual 30 fps.
// Prints figures; never fails.
//
// The camera is reachable on 127.0.0.1 only: run it inside a network namespace of its own,
//   tests/backend/run-in-netns.sh build/bench/bench_imageview [seconds]
#include "acquisitionactions.h"
#include "imagepanel.h"
#include "imageview.h"
#include "mainwindow.h"

#include "fakecamerasupport.h"

#include "../tests/fakegigecamera.h"

#include <acquisition/iacquisition.h>
#include <acquisition/iacquisitionservice.h>
#include <camerapool.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QSize>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <memory>

namespace {

constexpr int DEFAULT_SECONDS = 5;
constexpr int ROUNDS = 3;
constexpr int WARM_UP_MS = 1500;
constexpr int BEAT_MS = 2;
constexpr double HIGHEST_RATE_HZ = 1000.0; // the fake camera's AcquisitionFrameRate maximum
constexpr double USUAL_RATE_HZ = 30.0;
constexpr int LARGE_SIDE = 2048; // the fake camera's whole sensor, 4 MP
const QString ADDRESS = QStringLiteral("127.0.0.1");

// Aravis's own loop: the frames per second it prints once a second, the first one left out.
double bareLoopFps(int seconds)
{
    QProcess test;
    test.setProcessChannelMode(QProcess::MergedChannels);
    test.start(
        QStringLiteral("arv-camera-test-0.8"),
        {QStringLiteral("-n"), ADDRESS, QStringLiteral("-f"), QString::number(HIGHEST_RATE_HZ)});
    if (!test.waitForStarted()) {
        return -1;
    }
    turnEventLoop((seconds + 1) * 1000);
    ::kill(pid_t(test.processId()), SIGINT);
    if (!test.waitForFinished(10000)) {
        ::kill(pid_t(test.processId()), SIGKILL);
        test.waitForFinished(5000);
    }
    const QRegularExpression line(QStringLiteral("^\\s*(\\d+) frames/s"),
                                  QRegularExpression::MultilineOption);
    QList<double> rates;
    auto match = line.globalMatch(QString::fromUtf8(test.readAll()));
    while (match.hasNext()) {
        rates.append(match.next().captured(1).toDouble());
    }
    if (rates.size() < 2) {
        return -1;
    }
    rates.removeFirst();
    double sum = 0;
    for (double rate : rates) {
        sum += rate;
    }
    return sum / rates.size();
}

// The value below which `share` of the values lie (nearest rank), or -1 without values.
double percentile(QList<double> values, double share)
{
    if (values.isEmpty()) {
        return -1;
    }
    std::sort(values.begin(), values.end());
    const int rank = int(std::ceil(share * values.size()));
    return values.at(qBound(0, rank - 1, values.size() - 1));
}

double median(const QList<double>& values)
{
    return percentile(values, 0.5);
}

qint64 steadyNowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

struct WindowRun {
    double receivedFps = 0;
    double displayedFps = 0;
    quint64 incomplete = 0;
    qint64 longestPauseMs = 0;
    // Milliseconds from a frame's arrival on the host to the paint that showed it.
    QList<double> latenciesMs;
    QSize size; // of the images streamed
    bool ok = false;
};

// The same camera through our stream, with the window showing every frame it can.
// `side`, where not 0, makes the image that many pixels wide and high.
WindowRun windowRun(int seconds, double rateHz, int side = 0)
{
    WindowRun run;
    auto pool = QSharedPointer<Backend::CameraPool>::create();
    const auto info = openFakeCamera(*pool);
    if (!info) {
        return run;
    }
    {
        VantoViewer::MainWindow window(pool);
        window.resize(1280, 800);
        window.addDevice(info);
        window.show();
        const auto collection = pool->getParameterCollection(info);
        try {
            collection->getParameter(QStringLiteral("@CameraDevice/AcquisitionFrameRate"))
                ->setValue(rateHz);
            if (side > 0) {
                for (const char* feature : {"Width", "Height"}) {
                    collection
                        ->getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(feature))
                        ->setValue(side);
                }
            }
        } catch (const std::exception& error) {
            std::printf("bench_imageview: the camera refused its settings: %s\n", error.what());
            return run;
        }
        Plugin::Acquisition::IAcquisition* acquisition =
            window.imagePanel()->acquisitionActions()->acquisition();
        window.imagePanel()->acquisitionActions()->continuousShot()->trigger();
        turnEventLoop(WARM_UP_MS);
        if (!acquisition || acquisition->state() != Plugin::Acquisition::IAcquisition::Acquiring) {
            return run;
        }
        if (const auto frame = acquisition->latestFrame()) {
            run.size = QSize(int(frame->width()), int(frame->height()));
        }

        QTimer beat;
        beat.setTimerType(Qt::PreciseTimer);
        QElapsedTimer sinceBeat;
        QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
            run.longestPauseMs = qMax(run.longestPauseMs, sinceBeat.restart());
        });
        // imagePainted comes as the paint ends, and the panel's shown frame is the one whose
        // image was painted.
        QObject::connect(
            window.imagePanel()->view(), &VantoViewer::ImageView::imagePainted, &beat, [&] {
                if (const auto frame = window.imagePanel()->shownFrame()) {
                    run.latenciesMs.append((steadyNowNs() - frame->receivedNs()) / 1e6);
                }
            });
        const auto before = acquisition->statistics();
        const quint64 paintedBefore = window.imagePanel()->view()->paintedCount();
        QElapsedTimer measured;
        measured.start();
        sinceBeat.start();
        beat.start(BEAT_MS);
        turnEventLoop(seconds * 1000);
        beat.stop();
        const double elapsedS = measured.elapsed() / 1000.0;
        const auto after = acquisition->statistics();
        run.receivedFps =
            (after.completed + after.incomplete - before.completed - before.incomplete) / elapsedS;
        run.displayedFps = (window.imagePanel()->view()->paintedCount() - paintedBefore) / elapsedS;
        run.incomplete = after.incomplete - before.incomplete;
        run.ok = true;
        window.imagePanel()->acquisitionActions()->stop()->trigger();
        turnEventLoop(500);
    }
    pool->closeAll();
    return run;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int seconds =
        argc > 1 ? qMax(2, QString::fromLocal8Bit(argv[1]).toInt()) : DEFAULT_SECONDS;
    // The window keeps no layout of its own here and touches no user settings.
    QTemporaryDir settings;
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());

    FakeGigECamera camera;
    const QString why = camera.start();
    if (!why.isEmpty()) {
        std::printf("bench_imageview: the fake camera does not run: %s\n", qPrintable(why));
        return 0;
    }
    turnEventLoop(1000);
    // Other work on the machine moves both figures: the two ways take turns, and the medians
    // are compared.
    QList<double> bare;
    QList<WindowRun> ours;
    for (int round = 0; round < ROUNDS; ++round) {
        bare.append(bareLoopFps(seconds));
        // The bare loop let go of the camera; it takes a new controller at once.
        ours.append(windowRun(seconds, HIGHEST_RATE_HZ));
    }
    std::printf("bench_imageview: fake GigE camera, 512 x 512 Mono8 at its highest rate, %d rounds "
                "of %d s each way\n",
                ROUNDS, seconds);
    QList<double> received;
    QList<double> displayed;
    QList<double> latencies;
    qint64 longestPause = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const WindowRun& run = ours.at(round);
        std::printf("  round %d: bare Aravis loop %7.1f frames/s; window %7.1f received, %5.1f "
                    "displayed, %llu incomplete, longest GUI pause %lld ms%s\n",
                    round + 1, bare.at(round), run.receivedFps, run.displayedFps,
                    static_cast<unsigned long long>(run.incomplete),
                    static_cast<long long>(run.longestPauseMs), run.ok ? "" : " (did not run)");
        if (run.ok) {
            received.append(run.receivedFps);
            displayed.append(run.displayedFps);
            latencies.append(run.latenciesMs);
            longestPause = qMax(longestPause, run.longestPauseMs);
        }
    }
    const double bareMedian = median(bare);
    const double receivedMedian = median(received);
    std::printf("  median: bare Aravis loop %.1f frames/s, window %.1f received, %.1f displayed\n",
                bareMedian, receivedMedian, median(displayed));
    if (bareMedian > 0 && receivedMedian > 0) {
        std::printf("  received ratio window / bare loop: %.3f  (target >= 0.98)\n",
                    receivedMedian / bareMedian);
    }
    std::printf("  GUI thread's longest pause over all rounds: %lld ms  (target < 50 ms, %d ms "
                "beat)\n",
                static_cast<long long>(longestPause), BEAT_MS);

    std::printf("  buffer to screen at the highest rate: median %.2f ms, p99 %.2f ms over %d "
                "paints  (target: median < 16 ms)\n",
                median(latencies), percentile(latencies, 0.99), int(latencies.size()));
    // At a camera's usual rate the view is idle between frames; the large image costs most
    // in the conversion and the scaled paint.
    for (const int side : {0, LARGE_SIDE}) {
        const WindowRun run = windowRun(seconds, USUAL_RATE_HZ, side);
        std::printf("  buffer to screen at %.0f fps, %d x %d: median %.2f ms, p99 %.2f ms over %d "
                    "paints, %.1f displayed%s\n",
                    USUAL_RATE_HZ, run.size.width(), run.size.height(), median(run.latenciesMs),
                    percentile(run.latenciesMs, 0.99), int(run.latenciesMs.size()),
                    run.displayedFps, run.ok ? "" : " (did not run)");
    }
    return 0;
}
