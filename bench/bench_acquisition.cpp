// Frames per second and CPU time per frame through our stream (Acquisition over AravisStream,
// frames handed out zero-copy from a pool) next to a bare Aravis loop (stream, pop, push back,
// nothing else) on the same fake GigE camera in the same run, at its highest frame rate, for
// 512 × 512 and 2048 × 2048 Mono8; then the resident memory's drift over a longer stream.
//
//   bench_acquisition [--phase-seconds N] [--rss-seconds N]   (defaults 5 and 60)
//
// The fake camera runs on 127.0.0.1 only, inside a private network namespace: the benchmark
// starts itself again through run-in-netns.sh when it is not in one. Prints; never fails.
#include <arv.h>

#include <acquisition.h>
#include <acquisitionservice.h>
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>

#include <parametercollection/exception.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include <csignal>
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

void spin(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// The fake camera, once it answers; it needs a moment to bind its socket.
QSharedPointer<Backend::CameraInfo> openFakeCamera(Backend::CameraPool& pool)
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        try {
            return pool.openDevice(QStringLiteral("127.0.0.1"));
        } catch (const ParameterCollection::Exception&) {
            spin(100);
        }
    }
    return nullptr;
}

// Image format and the highest frame rate the camera allows, through its own features.
void configure(ArvGc* genicam, int size)
{
    GError* error = nullptr;
    const auto setInt = [&](const char* name, gint64 value) {
        ArvGcNode* node = arv_gc_get_node(genicam, name);
        if (node != nullptr && ARV_IS_GC_INTEGER(node)) {
            arv_gc_integer_set_value(ARV_GC_INTEGER(node), value, &error);
            g_clear_error(&error);
        }
    };
    setInt("OffsetX", 0);
    setInt("OffsetY", 0);
    setInt("Width", size);
    setInt("Height", size);
    ArvGcNode* format = arv_gc_get_node(genicam, "PixelFormat");
    if (format != nullptr && ARV_IS_GC_ENUMERATION(format)) {
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(format), "Mono8", &error);
        g_clear_error(&error);
    }
    ArvGcNode* rate = arv_gc_get_node(genicam, "AcquisitionFrameRate");
    if (rate != nullptr && ARV_IS_GC_FLOAT(rate)) {
        const double max = arv_gc_float_get_max(ARV_GC_FLOAT(rate), &error);
        g_clear_error(&error);
        arv_gc_float_set_value(ARV_GC_FLOAT(rate), max, &error);
        g_clear_error(&error);
    }
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
    collection->runOnDeviceThread(
        [size](Backend::DeviceWorker& worker) { configure(worker.genicam(0), size); });
    Backend::Acquisition* acquisition = service.acquisitionOf(info);
    // A display's share: take the newest frame whenever one is announced.
    QObject consumer;
    quint64 taken = 0;
    QObject::connect(acquisition, &Plugin::Acquisition::IAcquisition::frameReady, &consumer,
                     [&] { taken += acquisition->latestFrame() ? 1 : 0; });
    acquisition->start(Plugin::Acquisition::IAcquisition::Continuous);
    spin(1000); // warm up
    const auto before = acquisition->statistics();
    const double cpu0 = cpuSeconds();
    QElapsedTimer clock;
    clock.start();
    spin(seconds * 1000);
    const double elapsed = clock.elapsed() / 1000.0;
    const auto after = acquisition->statistics();
    const double cpu = cpuSeconds() - cpu0;
    acquisition->stop();
    spin(300);
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
    GInetAddress* interfaceAddress = g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4);
    GInetAddress* address = g_inet_address_new_from_string("127.0.0.1");
    GError* error = nullptr;
    ArvDevice* device = nullptr;
    for (int attempt = 0; attempt < 50 && device == nullptr; ++attempt) {
        device = arv_gv_device_new(interfaceAddress, address, &error);
        g_clear_error(&error);
        if (device == nullptr) {
            QThread::msleep(100);
        }
    }
    g_object_unref(interfaceAddress);
    g_object_unref(address);
    if (device == nullptr) {
        std::printf("  the fake camera does not answer\n");
        return f;
    }
    ArvGc* genicam = arv_device_get_genicam(device);
    configure(genicam, size);
    const gint64 payload = arv_device_get_integer_feature_value(device, "PayloadSize", &error);
    g_clear_error(&error);
    ArvStream* stream = arv_device_create_stream(device, nullptr, nullptr, &error);
    g_clear_error(&error);
    if (stream == nullptr) {
        g_object_unref(device);
        return f;
    }
    for (int i = 0; i < 10; ++i) {
        arv_stream_push_buffer(stream, arv_buffer_new(size_t(payload), nullptr));
    }
    arv_device_execute_command(device, "AcquisitionStart", &error);
    g_clear_error(&error);
    const auto loopFor = [&](double limit, quint64* ok, quint64* bad) {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < limit * 1000) {
            ArvBuffer* buffer = arv_stream_timeout_pop_buffer(stream, 100000);
            if (buffer == nullptr) {
                continue;
            }
            if (arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS) {
                ++*ok;
            } else {
                ++*bad;
            }
            arv_stream_push_buffer(stream, buffer);
        }
        return clock.elapsed() / 1000.0;
    };
    quint64 ok = 0;
    quint64 bad = 0;
    loopFor(1.0, &ok, &bad); // warm up
    ok = bad = 0;
    guint64 underruns0 = 0;
    arv_stream_get_statistics(stream, nullptr, nullptr, &underruns0);
    const double cpu0 = cpuSeconds();
    const double elapsed = loopFor(seconds, &ok, &bad);
    const double cpu = cpuSeconds() - cpu0;
    guint64 underruns = 0;
    arv_stream_get_statistics(stream, nullptr, nullptr, &underruns);
    arv_device_execute_command(device, "AcquisitionStop", &error);
    g_clear_error(&error);
    g_object_unref(stream);
    g_object_unref(device);
    f.frames = ok;
    f.failed = bad + (underruns - underruns0);
    f.fps = double(ok) / elapsed;
    f.cpuUsPerFrame = ok > 0 ? cpu * 1e6 / double(ok) : 0;
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
    collection->runOnDeviceThread(
        [](Backend::DeviceWorker& worker) { configure(worker.genicam(0), 512); });
    Backend::Acquisition* acquisition = service.acquisitionOf(info);
    QObject consumer;
    QObject::connect(acquisition, &Plugin::Acquisition::IAcquisition::frameReady, &consumer,
                     [&] { acquisition->latestFrame(); });
    acquisition->start(Plugin::Acquisition::IAcquisition::Continuous);
    spin(2000); // buffers, pools and Aravis's own tables settle first
    const double start = rssMiB();
    const auto before = acquisition->statistics();
    spin(seconds * 1000);
    const double end = rssMiB();
    const auto after = acquisition->statistics();
    acquisition->stop();
    spin(300);
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
