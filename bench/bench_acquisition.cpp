// Frames per second and CPU time per frame through our stream (Acquisition over AravisStream,
// frames handed out zero-copy from a pool) next to a bare Aravis loop (stream, pop, push back,
// nothing else) on the same fake GigE camera in the same run, at its highest frame rate, for
// 512 × 512 and 2048 × 2048 Mono8; then the resident memory's drift over a longer stream.
//
//   bench_acquisition [--phase-seconds N] [--rss-seconds N]   (defaults 5 and 60)
//
// The fake camera runs on 127.0.0.1 only, inside a private network namespace: the benchmark
// starts itself again through run-in-netns.sh when it is not in one. Prints; never fails.
#include "fakecamerasupport.h"

#include <acquisition.h>
#include <acquisitionservice.h>
#include <barestreamloop.h>
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>

#include <parametercollection/exception.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include <csignal>
#include <memory>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

struct Figures {
    double fps = 0;
    double cpuUsPerFrame = 0;
    quint64 frames = 0;
    quint64 failed = 0;
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double rssMiB()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toDouble() * double(sysconf(_SC_PAGESIZE)) / 1048576.0
                             : -1;
}

Figures throughOurStream(int size, int seconds)
{
    Figures f;
    Backend::CameraPool pool;
    Backend::AcquisitionService service(&pool);
    const QSharedPointer<Backend::CameraInfo> info = openFakeCamera(pool);
    if (!info) {
        std::printf("  the fake camera does not answer\n");
        return f;
    }
    auto collection = qSharedPointerObjectCast<Backend::DeviceParameterCollection>(
        pool.getParameterCollection(info));
    collection->runOnDeviceThread([size](Backend::DeviceWorker& worker) {
        Backend::BareStreamLoop::configureMono8(worker.genicam(0), size);
    });
    Backend::Acquisition* acquisition = service.acquisitionOf(info);
    // A display's share: take the newest frame whenever one is announced.
    QObject consumer;
    quint64 taken = 0;
    QObject::connect(acquisition, &Plugin::Acquisition::IAcquisition::frameReady, &consumer,
                     [&] { taken += acquisition->latestFrame() ? 1 : 0; });
    acquisition->start(Plugin::Acquisition::IAcquisition::Continuous);
    turnEventLoop(1000); // warm up
    const auto before = acquisition->statistics();
    const double cpu0 = cpuSeconds();
    QElapsedTimer clock;
    clock.start();
    turnEventLoop(seconds * 1000);
    const double elapsed = clock.elapsed() / 1000.0;
    const auto after = acquisition->statistics();
    const double cpu = cpuSeconds() - cpu0;
    acquisition->stop();
    turnEventLoop(300);
    f.frames = after.completed - before.completed;
    f.failed = (after.incomplete - before.incomplete) + (after.underruns - before.underruns);
    f.fps = double(f.frames) / elapsed;
    f.cpuUsPerFrame = f.frames > 0 ? cpu * 1e6 / double(f.frames) : 0;
    pool.closeAll();
    return f;
}

Figures bareAravisLoop(int size, int seconds)
{
    Figures f;
    std::unique_ptr<Backend::BareStreamLoop> loop;
    for (int attempt = 0; attempt < 50; ++attempt) {
        loop = std::make_unique<Backend::BareStreamLoop>(QStringLiteral("127.0.0.1"),
                                                         QStringLiteral("127.0.0.1"));
        if (loop->isOpen()) {
            break;
        }
        QThread::msleep(100);
    }
    if (!loop->isOpen()) {
        std::printf("  the fake camera does not answer\n");
        return f;
    }
    loop->configureMono8(size);
    if (!loop->start()) {
        std::printf("  the fake camera gives no stream\n");
        return f;
    }
    loop->run(1.0); // warm up
    const double cpu0 = cpuSeconds();
    const Backend::BareStreamLoop::Result result = loop->run(seconds);
    const double cpu = cpuSeconds() - cpu0;
    loop->stop();
    f.frames = result.completed;
    f.failed = result.failed;
    f.fps = result.seconds > 0 ? double(result.completed) / result.seconds : 0;
    f.cpuUsPerFrame = result.completed > 0 ? cpu * 1e6 / double(result.completed) : 0;
    return f;
}

void rssDrift(int seconds)
{
    Backend::CameraPool pool;
    Backend::AcquisitionService service(&pool);
    const QSharedPointer<Backend::CameraInfo> info = openFakeCamera(pool);
    if (!info) {
        return;
    }
    auto collection = qSharedPointerObjectCast<Backend::DeviceParameterCollection>(
        pool.getParameterCollection(info));
    collection->runOnDeviceThread([](Backend::DeviceWorker& worker) {
        Backend::BareStreamLoop::configureMono8(worker.genicam(0), 512);
    });
    Backend::Acquisition* acquisition = service.acquisitionOf(info);
    QObject consumer;
    QObject::connect(acquisition, &Plugin::Acquisition::IAcquisition::frameReady, &consumer,
                     [&] { acquisition->latestFrame(); });
    acquisition->start(Plugin::Acquisition::IAcquisition::Continuous);
    turnEventLoop(2000); // buffers, pools and Aravis's own tables settle first
    const double start = rssMiB();
    const auto before = acquisition->statistics();
    turnEventLoop(seconds * 1000);
    const double end = rssMiB();
    const auto after = acquisition->statistics();
    acquisition->stop();
    turnEventLoop(300);
    std::printf("RSS over %d s of 512 x 512 Mono8 streaming (%llu frames): %.2f MiB -> %.2f MiB, "
                "drift %+.3f MiB (target < 1 MiB)\n",
                seconds, after.completed - before.completed, start, end, end - start);
    pool.closeAll();
}

} // namespace

int main(int argc, char** argv)
{
    if (qgetenv("NODESCOPE_IN_NETNS") != "1") {
        const QByteArray script = NODESCOPE_SOURCE_DIR "/tests/backend/run-in-netns.sh";
        std::vector<char*> args{const_cast<char*>(script.constData())};
        for (int i = 0; i < argc; ++i) {
            args.push_back(argv[i]);
        }
        args.push_back(nullptr);
        std::fflush(stdout);
        execv(script.constData(), args.data());
        std::printf("cannot start %s; run the benchmark inside a private network namespace\n",
                    script.constData());
        return 0;
    }
    QCoreApplication app(argc, argv);
    int phaseSeconds = 5;
    int rssSeconds = 60;
    const QStringList arguments = app.arguments();
    for (int i = 1; i + 1 < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--phase-seconds")) {
            phaseSeconds = qMax(1, arguments[i + 1].toInt());
        } else if (arguments[i] == QLatin1String("--rss-seconds")) {
            rssSeconds = qMax(1, arguments[i + 1].toInt());
        }
    }
    const QString fake = QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8"));
    if (fake.isEmpty()) {
        std::printf("arv-fake-gv-camera-0.8 is not installed\n");
        return 0;
    }
    QProcess camera;
    camera.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    camera.start(fake, {QStringLiteral("-i"), QStringLiteral("127.0.0.1")});
    if (!camera.waitForStarted()) {
        std::printf("the fake camera did not start\n");
        return 0;
    }
    const qint64 pid = camera.processId();

    std::printf("fake GigE camera at its highest frame rate, %d s per phase\n", phaseSeconds);
    for (int size : {512, 2048}) {
        const Figures ours = throughOurStream(size, phaseSeconds);
        const Figures bare = bareAravisLoop(size, phaseSeconds);
        std::printf("%d x %d Mono8: ours %.1f fps, %.1f us CPU/frame (%llu frames, %llu lost); "
                    "bare Aravis %.1f fps, %.1f us CPU/frame (%llu frames, %llu lost); "
                    "received ratio %.3f (target >= 0.98), CPU ratio %.2f (target <= 1.5)\n",
                    size, size, ours.fps, ours.cpuUsPerFrame, ours.frames, ours.failed, bare.fps,
                    bare.cpuUsPerFrame, bare.frames, bare.failed,
                    bare.fps > 0 ? ours.fps / bare.fps : 0.0,
                    bare.cpuUsPerFrame > 0 ? ours.cpuUsPerFrame / bare.cpuUsPerFrame : 0.0);
        std::fflush(stdout);
    }
    rssDrift(rssSeconds);

    ::kill(pid_t(pid), SIGKILL);
    camera.waitForFinished(5000);
    return 0;
}
