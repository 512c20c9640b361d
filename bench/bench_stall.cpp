// How long the GUI thread pauses while a camera's device thread is stuck, as it is inside an
// Aravis call to a camera that stopped answering: the largest gap between beats of a 5 ms
// timer while the GUI side polls, writes, refreshes and closes. Prints figures; never fails.
#include <camerapool.h>
#include <deviceparametercollection.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>

using ParameterCollection::IParameterCollection;

namespace {

constexpr int BEAT_MS = 5;
constexpr int STALL_MS = 3000;

// The largest pause of the event loop while `work` runs and the loop then turns for `spanMs`.
qint64 longestPauseMs(const std::function<void()>& work, int spanMs)
{
    QTimer beat;
    beat.setTimerType(Qt::PreciseTimer);
    beat.setInterval(BEAT_MS);
    QElapsedTimer sinceBeat;
    qint64 longest = 0;
    QObject::connect(&beat, &QTimer::timeout, &beat,
                     [&] { longest = qMax(longest, sinceBeat.restart()); });
    sinceBeat.start();
    beat.start();
    work();
    longest = qMax(longest, sinceBeat.elapsed());
    QEventLoop loop;
    QTimer::singleShot(spanMs, &loop, &QEventLoop::quit);
    loop.exec();
    return longest;
}

// Holds the collection's device thread for `ms`, from a thread of its own.
QThread* stall(Backend::DeviceParameterCollection* collection, int ms)
{
    auto entered = std::make_shared<QSemaphore>();
    QThread* holder = QThread::create([collection, ms, entered] {
        collection->runOnDeviceThread([ms, entered](Backend::DeviceWorker&) {
            entered->release();
            QThread::msleep(unsigned(ms));
        });
    });
    holder->start();
    entered->acquire();
    return holder;
}

// Every feature of the camera's own node map is shown somewhere: observed and polled.
void observeAll(IParameterCollection& collection, const QString& fullName)
{
    const auto parameter = collection.getParameter(fullName);
    if (!parameter) {
        return;
    }
    parameter->addObserver();
    for (const QString& child : collection.getChildren(fullName)) {
        observeAll(collection, child);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    Backend::CameraPool pool;
    const auto info = pool.openSimulated();
    auto collection = pool.getParameterCollection(info);
    auto* device = static_cast<Backend::DeviceParameterCollection*>(collection.data());
    observeAll(*collection, QStringLiteral("@CameraDevice/Root"));
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));

    const auto guiWork = [&](qint64 value) {
        return [&, value] {
            collection->poll(1000000);
            width->setValue(QVariant(value));
            collection->refresh();
        };
    };
    const qint64 healthy = longestPauseMs(guiWork(640), 500);
    device->waitForDevice();

    QThread* holder = stall(device, STALL_MS);
    const qint64 stalled = longestPauseMs(guiWork(800), STALL_MS + 200);
    holder->wait();
    delete holder;
    device->waitForDevice();

    holder = stall(device, STALL_MS);
    QPointer<QObject> closing = collection.data();
    const qint64 closed = longestPauseMs(
        [&] {
            collection.reset();
            pool.close(info);
        },
        200);
    const bool gone = closing.isNull();
    holder->wait();
    delete holder;

    std::printf("bench_stall: longest pause of the GUI event loop (beat %d ms)\n", BEAT_MS);
    std::printf("  healthy camera, poll + write + refresh:             %4lld ms\n", healthy);
    std::printf("  device thread stuck %d ms, poll + write + refresh: %4lld ms (%.1fx healthy)\n",
                STALL_MS, stalled, healthy > 0 ? double(stalled) / double(healthy) : 0.0);
    std::printf("  device thread stuck, closing the camera:            %4lld ms (collection %s)\n",
                closed, gone ? "gone at once" : "still there");
    std::printf("  target: under 50 ms\n");
    return 0;
}
