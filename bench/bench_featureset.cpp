// Saving and loading every streamable feature, each next to the time of reading every value
// once, on the built-in simulated camera, or on the description given as argument, served on
// a simulated device. Without and with a per-access latency like a network link's. Prints
// figures; never fails.
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <featureset.h>
#include <featuresettransfer.h>
#include <simulateddevice.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using Backend::DeviceWorker;
using Backend::FeatureSet;
using Backend::FeatureSetTransfer;

namespace {

struct Figures {
    double readMs = 0;
    double saveMs = 0;
    double loadUnchangedMs = 0;
    double loadMs = 0;
    int lines = 0;
    int applied = 0;
    int reads = 0;
    int readAccesses = 0; // device accesses while reading every value once
    int saveReads = 0;    // and while saving
    int saveWrites = 0;
};

Figures measure(Backend::DeviceParameterCollection& collection, int latencyUs)
{
    Figures f;
    const int map = collection.mapIndex(QStringLiteral("CameraDevice"));
    collection.runOnDeviceThread([&](DeviceWorker& worker) {
        worker.simulatedDevice(map)->setLatencyMicroseconds(latencyUs);
        const auto access = worker.transferAccess(map);
        Backend::SimulatedDevice* device = worker.simulatedDevice(map);
        device->resetCounters();
        QElapsedTimer timer;
        timer.start();
        for (int node = 0; node < access->structure().nodes.size(); ++node) {
            const int type = access->structure().nodes[node].type;
            if (type != ParameterCollection::CategoryType &&
                type != ParameterCollection::CommandType) {
                access->read(node);
                ++f.reads;
            }
        }
        f.readMs = timer.nsecsElapsed() / 1e6;
        f.readAccesses = device->readCount() + device->writeCount();
        device->resetCounters();

        timer.restart();
        FeatureSet saved = FeatureSetTransfer(*access).save();
        f.saveMs = timer.nsecsElapsed() / 1e6;
        f.lines = saved.lines.size();
        f.saveReads = device->readCount();
        f.saveWrites = device->writeCount();

        timer.restart();
        FeatureSetTransfer(*access).load(saved);
        f.loadUnchangedMs = timer.nsecsElapsed() / 1e6;

        // The same set once every value has moved: the lines are written.
        FeatureSet moved = saved;
        for (FeatureSet::Line& line : moved.lines) {
            bool isNumber = false;
            const qint64 v = line.value.toLongLong(&isNumber);
            if (isNumber) {
                line.value = QString::number(v + 1);
            }
        }
        FeatureSetTransfer(*access).load(moved);
        timer.restart();
        const auto report = FeatureSetTransfer(*access).load(saved);
        f.loadMs = timer.nsecsElapsed() / 1e6;
        f.applied = report.applied.size();
        worker.simulatedDevice(map)->setLatencyMicroseconds(0);
    });
    return f;
}

void run(const QString& file, const QString& title)
{
    Backend::CameraPool pool;
    const auto info = pool.openSimulated(file);
    auto* collection =
        static_cast<Backend::DeviceParameterCollection*>(pool.getParameterCollection(info).data());
    std::printf("bench_featureset: %s\n", qPrintable(title));
    for (int latency : {0, 100}) {
        const Figures f = measure(*collection, latency);
        std::printf("latency %3d us: read every value once (%d nodes) %.1f ms; save %d lines "
                    "%.1f ms (%.2fx); load, nothing to change, %.1f ms (%.2fx); load, %d changes, "
                    "%.1f ms (%.2fx)\n",
                    latency, f.reads, f.readMs, f.lines, f.saveMs, f.saveMs / f.readMs,
                    f.loadUnchangedMs, f.loadUnchangedMs / f.readMs, f.applied, f.loadMs,
                    f.loadMs / f.readMs);
        std::printf("                device accesses: %d to read every value once; to save, %d "
                    "reads and %d writes\n",
                    f.readAccesses, f.saveReads, f.saveWrites);
    }
    pool.closeAll();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QString file = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    run(file, file.isEmpty() ? QStringLiteral("built-in camera") : file);
    if (file.isEmpty()) {
        return 0;
    }
    // A description that marks few nodes streamable saves little. The same description with
    // no mark saves every listed feature that can be read and written, selector walks and all:
    // what a description marking its whole configuration costs.
    QFile in(file);
    QTemporaryDir dir;
    if (!in.open(QIODevice::ReadOnly) || !dir.isValid()) {
        return 0;
    }
    QByteArray xml = in.readAll();
    xml.replace("<Streamable>Yes</Streamable>", "");
    const QString unmarked = dir.filePath(QStringLiteral("unmarked.xml"));
    QFile out(unmarked);
    if (out.open(QIODevice::WriteOnly) && out.write(xml) == xml.size()) {
        out.close();
        run(unmarked, file + QStringLiteral(", without its Streamable marks"));
    }
    return 0;
}
