#pragma once

#include "featuresettransfer.h"
#include "nodemapstructure.h"

#include <QMutex>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>
#include <QVariant>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGc ArvGc;

namespace Backend {

class SimulatedDevice;
class DeviceLogic;

// A write accepted on the GUI thread, waiting for the device thread.
struct PendingWrite {
    int map = -1;
    int node = -1;
    QVariant value;
    quint64 id = 0; // the collection's number for it; a coalesced write keeps the latest
};

// Owns every Aravis object of one device and is the only code that touches them. Lives on the
// device's own thread; the collection talks to it with queued calls and hears back through
// queued signals, so a device that hangs for seconds never stalls the GUI.
class DeviceWorker : public QObject {
    Q_OBJECT
public:
    explicit DeviceWorker(QObject* parent = nullptr);
    ~DeviceWorker() override;

    // Device thread. Each attaches one node map and returns its index, or -1 with `error` set.
    // A description without defaults of its own may power on as a simulated sensor
    // (SimulatedSensor), so that it streams.
    enum class PowerOn { AsMemory, SimulatedSensor };
    int attachSimulated(const QString& nodeMapName, const QByteArray& xml, const QString& defaults,
                        QString* error, PowerOn powerOn = PowerOn::AsMemory);
    // Takes over a reference to `device`, which must have been opened on this thread.
    int attachDevice(const QString& nodeMapName, ArvDevice* device, QString* error);

    // Device thread. The structure and first values of an attached node map.
    NodeMapStructurePtr structure(int map) const;
    QVector<ParameterCollection::ParameterDataPtr> snapshot(int map) const;

    // Any thread: writes are queued here and coalesced; returns true when the caller must
    // schedule processWrites().
    bool enqueueWrite(const PendingWrite& write);

    // Device thread.
    void processWrites();
    void readNodes(int map, const QVector<int>& nodes, bool bypassCache, bool forced);
    void readObserved(int map, const QVector<int>& nodes); // refresh past the cache

    // The simulated device behind a node map, or null. Device thread only, except for the
    // thread-safe counters and fault settings of SimulatedDevice.
    SimulatedDevice* simulatedDevice(int map) const;
    // Runs `fn` on every node map's device logic hook point after attach; used to install the
    // built-in camera's behaviour.
    void setLogicFactory(std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> factory);

    // Device thread: the index of the node map attached under `nodeMapName`, or -1; its device
    // and its GenICam document.
    int mapIndex(const QString& nodeMapName) const;
    ArvDevice* arvDevice(int map) const;
    ArvGc* genicam(int map) const;
    // Device thread: `fn` runs when the worker goes, before any device is released (a stream
    // must end before its device).
    void addTeardown(std::function<void()> fn) { m_teardown.push_back(std::move(fn)); }

    bool isLost() const { return m_lost.load(); }
    // Any thread: the device told us it is gone (Aravis's control-lost comes from its own
    // heartbeat thread).
    void markLost(const QString& message);

    // Nodes that a write to `node` can change, including itself. Device thread.
    QVector<int> dependencyClosure(int map, int node) const;

    // Device thread. The node map as a feature set transfer sees it; lives no longer than
    // the map.
    std::unique_ptr<FeatureSetTransfer::Access> transferAccess(int map);
    // Device thread. Re-reads every node of the map past the register cache and publishes
    // what changed: after a transfer, or after the device changed many values at once.
    void republish(int map);

Q_SIGNALS:
    void published(int map, QVector<Backend::PublishedData> batch);
    void writeFailed(const QString& fullName, ParameterCollection::Exception::Kind kind,
                     const QString& message);
    void lost(const QString& message);
    // Every write taken from the queue, once the device answered it; `message` says why not.
    void writeAnswered(quint64 id, bool ok, ParameterCollection::Exception::Kind kind,
                       const QString& message);

private:
    struct NodeMap;
    class MapAccess;

    QSharedPointer<ParameterCollection::ParameterData> readNode(NodeMap& map, int node,
                                                                bool* deviceFailed);
    QSharedPointer<ParameterCollection::ParameterData> lostData(const NodeMap& map, int node) const;
    // Reads `nodes` into the map's last data and explains their restrictions; returns the
    // nodes read, which stop short where the device went away.
    QVector<int> readFresh(NodeMap& map, const QVector<int>& nodes);
    // Names the features that keep `data` locked, unavailable or not implemented.
    void explain(const NodeMap& map, int node, ParameterCollection::ParameterData& data) const;
    QString lostMessage() const;
    bool writeNode(NodeMap& map, int node, const QVariant& value, QString* error,
                   ParameterCollection::Exception::Kind* kind, bool* deviceFailed);
    void scheduleCommandCheck(int map, int node);
    int finishAttach(std::unique_ptr<NodeMap> map, QString* error);

    std::vector<std::unique_ptr<NodeMap>> m_maps;
    QMutex m_writeMutex;
    QVector<PendingWrite> m_pendingWrites;
    std::atomic<bool> m_lost{false};
    mutable QMutex m_lostMutex;
    QString m_lostMessage; // guarded by m_lostMutex
    std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> m_logicFactory;
    QSet<QPair<int, int>> m_runningCommands;
    QTimer* m_commandTimer = nullptr;
    std::vector<std::function<void()>> m_teardown;
};

} // namespace Backend
