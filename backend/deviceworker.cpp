#include <arv.h>

#include "deviceworker.h"

#include "arithmeticguard.h"
#include "devicelogic.h"
#include "errormapping.h"
#include "evaluationmemo.h"
#include "nodemapgraph.h"
#include "nodereader.h"
#include "nodewriter.h"
#include "simulateddevice.h"
#include "simulatedsensor.h"
#include "structurebuilder.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <climits>
#include <numeric>

using namespace ParameterCollection;

namespace Backend {

struct DeviceWorker::NodeMap {
    QString name;
    QString prefix;
    ArvDevice* device = nullptr; // owned reference
    ArvGc* genicam = nullptr;    // the device's
    std::unique_ptr<SimulatedDevice> simulated;
    std::unique_ptr<DeviceLogic> logic;
    gulong controlLostHandler = 0;

    std::shared_ptr<const NodeMapStructure> structure;
    NodeMapGraph graph;
    QVector<ArvGcFeatureNode*> nodes;
    QVector<ArvGcNode*> commandTargets;
    QVector<qint64> commandValues;
    QVector<ParameterDataPtr> last;
    QVector<ParameterDataPtr> previous; // while a batch is read: what it replaced
};

static void onControlLost(ArvDevice*, gpointer userData)
{
    static_cast<DeviceWorker*>(userData)->markLost(
        QStringLiteral("The connection to the device was lost"));
}

DeviceWorker::DeviceWorker(QObject* parent) : QObject(parent)
{
    ArithmeticGuard::install();
    EvaluationMemo::install();
    m_commandTimer = new QTimer(this);
    m_commandTimer->setInterval(20);
    connect(m_commandTimer, &QTimer::timeout, this, [this] {
        const auto running = m_runningCommands;
        for (const auto& command : running) {
            readNodes(command.first, {command.second}, true, false);
        }
    });
}

DeviceWorker::~DeviceWorker()
{
    for (const auto& fn : m_teardown) {
        fn();
    }
    for (auto& map : m_maps) {
        if (map->controlLostHandler != 0) {
            g_signal_handler_disconnect(map->device, map->controlLostHandler);
        }
        map->logic.reset();
        if (map->simulated) {
            map->simulated.reset(); // owns device and genicam
        } else if (map->device != nullptr) {
            g_object_unref(map->device);
        }
    }
}

void DeviceWorker::setLogicFactory(
    std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> factory)
{
    m_logicFactory = std::move(factory);
}

int DeviceWorker::attachSimulated(const QString& nodeMapName, const QByteArray& xml,
                                  const QString& defaults, QString* error, PowerOn powerOn)
{
    auto map = std::make_unique<NodeMap>();
    map->name = nodeMapName;
    try {
        map->simulated = std::make_unique<SimulatedDevice>(xml, nodeMapName);
    } catch (const Exception& e) {
        *error = e.text();
        return -1;
    }
    map->device = map->simulated->device();
    map->genicam = map->simulated->genicam();
    if (!defaults.isEmpty()) {
        const QStringList problems = map->simulated->applyDefaults(defaults);
        for (const QString& p : problems) {
            qWarning("%s defaults: %s", qPrintable(nodeMapName), qPrintable(p));
        }
    }
    if (powerOn == PowerOn::SimulatedSensor) {
        SimulatedSensor::powerOn(*map->simulated);
    }
    if (m_logicFactory) {
        map->logic = m_logicFactory(*map->simulated);
    }
    map->simulated->resetCounters();
    return finishAttach(std::move(map), error);
}

int DeviceWorker::attachDevice(const QString& nodeMapName, ArvDevice* device, QString* error)
{
    auto map = std::make_unique<NodeMap>();
    map->name = nodeMapName;
    map->device = device;
    map->genicam = arv_device_get_genicam(device);
    if (map->genicam == nullptr) {
        g_object_unref(device);
        *error = QStringLiteral("[%1] the device has no GenICam description").arg(nodeMapName);
        return -1;
    }
    // A camera's own description gets the checks a file gets: Aravis has already parsed it,
    // but drops what lies deeper than its parser reads without a word.
    size_t size = 0;
    const char* xml = arv_device_get_genicam_xml(device, &size);
    if (xml != nullptr) {
        try {
            cleanGenICamXml(QByteArray::fromRawData(xml, int(qMin<size_t>(size, INT_MAX))),
                            nodeMapName);
        } catch (const Exception& e) {
            g_object_unref(device);
            *error = e.text();
            return -1;
        }
    }
    arv_device_set_register_cache_policy(device, ARV_REGISTER_CACHE_POLICY_ENABLE);
    map->controlLostHandler =
        g_signal_connect(device, "control-lost", G_CALLBACK(onControlLost), this);
    return finishAttach(std::move(map), error);
}

int DeviceWorker::finishAttach(std::unique_ptr<NodeMap> map, QString* error)
{
    Q_UNUSED(error);
    map->prefix = QLatin1Char('@') + map->name;
    StructureBuilder::Result built = StructureBuilder(map->genicam, map->name).build();
    map->structure = std::move(built.structure);
    map->graph = std::move(built.graph);
    map->nodes = std::move(built.nodes);
    map->commandTargets = std::move(built.commandTargets);
    map->commandValues = std::move(built.commandValues);
    map->last.resize(map->nodes.size());
    map->previous.resize(map->nodes.size());
    QVector<int> all(map->nodes.size());
    std::iota(all.begin(), all.end(), 0);
    readFresh(*map, all);
    m_maps.push_back(std::move(map));
    return int(m_maps.size()) - 1;
}

NodeMapStructurePtr DeviceWorker::structure(int map) const
{
    return m_maps.at(size_t(map))->structure;
}

QVector<ParameterDataPtr> DeviceWorker::snapshot(int map) const
{
    return m_maps.at(size_t(map))->last;
}

SimulatedDevice* DeviceWorker::simulatedDevice(int map) const
{
    if (map < 0 || size_t(map) >= m_maps.size()) {
        return nullptr;
    }
    return m_maps[size_t(map)]->simulated.get();
}

int DeviceWorker::mapIndex(const QString& nodeMapName) const
{
    for (std::size_t i = 0; i < m_maps.size(); ++i) {
        if (m_maps[i]->name == nodeMapName) {
            return int(i);
        }
    }
    return -1;
}

ArvDevice* DeviceWorker::arvDevice(int map) const
{
    return map >= 0 && std::size_t(map) < m_maps.size() ? m_maps[std::size_t(map)]->device
                                                        : nullptr;
}

ArvGc* DeviceWorker::genicam(int map) const
{
    return map >= 0 && std::size_t(map) < m_maps.size() ? m_maps[std::size_t(map)]->genicam
                                                        : nullptr;
}

QVector<int> DeviceWorker::dependencyClosure(int mapIndex, int node) const
{
    return m_maps.at(size_t(mapIndex))->graph.dependencyClosure(node);
}

QSharedPointer<ParameterData> DeviceWorker::readNode(NodeMap& map, int i, bool* deviceFailed)
{
    const NodeInfo& info = map.structure->nodes[i];
    if (info.cyclic) {
        auto data = NodeReader::newData(info);
        data->accessMode = GenApi::NA;
        data->implemented = true;
        data->errorText = QStringLiteral("The node takes part in a reference cycle");
        return data;
    }
    if (!info.defect.isEmpty()) {
        auto data = NodeReader::newData(info);
        data->accessMode = GenApi::NA;
        data->implemented = data->available = true;
        data->errorText = info.defect;
        data->errorKind = Exception::Range;
        return data;
    }
    if (m_lost.load() || *deviceFailed) {
        return lostData(map, i);
    }
    NodeReader reader(map.nodes[i], info, {map.commandTargets[i], map.commandValues[i]});
    QSharedPointer<ParameterData> data = reader.read();
    if (reader.deviceFailed()) {
        *deviceFailed = true;
        markLost(reader.deviceFailure());
        return lostData(map, i);
    }
    return data;
}

QSharedPointer<ParameterData> DeviceWorker::lostData(const NodeMap& map, int i) const
{
    if (const ParameterDataPtr& previous = map.last.value(i)) {
        QSharedPointer<ParameterData> data = previous->clone();
        data->deviceLost = true;
        return data;
    }
    return NodeReader::neverRead(map.nodes[i], map.structure->nodes[i], lostMessage());
}

QVector<int> DeviceWorker::readFresh(NodeMap& map, const QVector<int>& nodes)
{
    // Within one batch nothing is written: each computed node is evaluated once.
    EvaluationMemo memo;
    QVector<int> read;
    QVector<QSharedPointer<ParameterData>> fresh;
    bool deviceFailed = false;
    for (int node : nodes) {
        if (node < 0 || node >= map.nodes.size()) {
            continue;
        }
        QSharedPointer<ParameterData> data = readNode(map, node, &deviceFailed);
        if (deviceFailed && map.last[node]) {
            // Reads keep the last data once the device is gone.
            break;
        }
        read.append(node);
        fresh.append(data);
        map.previous[node] = map.last[node];
        map.last[node] = data;
    }
    // Only now are the deciders of every restriction current, wherever they sit in the batch.
    for (int k = 0; k < read.size(); ++k) {
        explain(map, read[k], *fresh[k]);
    }
    return read;
}

void DeviceWorker::explain(const NodeMap& map, int node, ParameterData& data) const
{
    NodeMapGraph::Condition condition = NodeMapGraph::Condition::Locked;
    QString lead;
    if (data.hasError() && !data.deviceLost) {
        return;
    }
    if (!data.implemented) {
        condition = NodeMapGraph::Condition::Implemented;
        lead = QStringLiteral("Not implemented while ");
    } else if (!data.available) {
        condition = NodeMapGraph::Condition::Available;
        lead = QStringLiteral("Not available while ");
    } else if (data.locked) {
        lead = QStringLiteral("Locked while ");
    } else {
        data.restriction.clear();
        return;
    }
    QStringList parts;
    for (int decider : map.graph.deciders(node, condition)) {
        const QString& name = map.structure->nodes[decider].displayName;
        const ParameterDataPtr& value = map.last[decider];
        parts << (value && value->readable
                      ? QStringLiteral("%1 is %2").arg(name, value->displayText)
                      : QStringLiteral("%1 cannot be read").arg(name));
    }
    data.restriction = parts.isEmpty() ? QString() : lead + parts.join(QStringLiteral(" and "));
}

QString DeviceWorker::lostMessage() const
{
    QMutexLocker lock(&m_lostMutex);
    return m_lostMessage;
}

bool DeviceWorker::enqueueWrite(const PendingWrite& write)
{
    QMutexLocker lock(&m_writeMutex);
    const bool wasEmpty = m_pendingWrites.isEmpty();
    // Consecutive writes to one feature (a slider being dragged) collapse into the latest;
    // writes to different features keep their order, because ranges depend on each other.
    if (!wasEmpty && m_pendingWrites.last().map == write.map &&
        m_pendingWrites.last().node == write.node) {
        m_pendingWrites.last().value = write.value;
        m_pendingWrites.last().id = write.id;
    } else {
        m_pendingWrites.append(write);
    }
    return wasEmpty;
}

bool DeviceWorker::writeNode(NodeMap& map, int i, const QVariant& value, QString* message,
                             Exception::Kind* kind, bool* deviceFailed)
{
    ArvGcFeatureNode* feature = map.nodes[i];
    if (!map.structure->nodes[i].defect.isEmpty()) {
        *message = map.structure->nodes[i].defect;
        *kind = Exception::Range;
        return false;
    }
    GError* error = nullptr;
    if (!NodeWriter::write(feature, map.structure->nodes[i].type, value, &error)) {
        *message = QStringLiteral("the node cannot be written");
        *kind = Exception::Access;
        return false;
    }
    if (error != nullptr) {
        *message = messageOf(error);
        *kind = exceptionKindOf(error->domain, error->code);
        if (isDeviceLossError(error->domain, error->code)) {
            *deviceFailed = true;
            markLost(*message);
        }
        g_clear_error(&error);
        return false;
    }
    return true;
}

void DeviceWorker::processWrites()
{
    QVector<PendingWrite> writes;
    {
        QMutexLocker lock(&m_writeMutex);
        writes.swap(m_pendingWrites);
    }
    if (writes.isEmpty()) {
        return;
    }
    QHash<int, QSet<int>> toRead;
    QHash<int, QSet<int>> forced;
    bool deviceFailed = false;
    for (const PendingWrite& w : writes) {
        if (m_lost.load()) {
            Q_EMIT writeFailed(m_maps[size_t(w.map)]->structure->nodes[w.node].fullName,
                               Exception::DeviceLost, QStringLiteral("the device is lost"));
            Q_EMIT writeAnswered(w.id, false, Exception::DeviceLost,
                                 QStringLiteral("the device is lost"));
            forced[w.map].insert(w.node);
            continue;
        }
        NodeMap& map = *m_maps[size_t(w.map)];
        QString message;
        Exception::Kind kind = Exception::Generic;
        const bool ok = writeNode(map, w.node, w.value, &message, &kind, &deviceFailed);
        // The written feature is always re-published, so that an optimistic value the device
        // did not take is replaced by what the device holds.
        forced[w.map].insert(w.node);
        if (!ok) {
            Q_EMIT writeFailed(map.structure->nodes[w.node].fullName, kind, message);
        }
        Q_EMIT writeAnswered(w.id, ok, kind, message);
        for (int d : dependencyClosure(w.map, w.node)) {
            toRead[w.map].insert(d);
        }
        if (ok && map.structure->nodes[w.node].type == CommandType) {
            scheduleCommandCheck(w.map, w.node);
        }
        if (ok && map.logic && map.logic->takeBulkChange()) {
            republish(w.map);
        }
    }
    for (auto it = forced.begin(); it != forced.end(); ++it) {
        QVector<int> nodes(it.value().begin(), it.value().end());
        std::sort(nodes.begin(), nodes.end());
        readNodes(it.key(), nodes, false, true);
        for (int n : nodes) {
            toRead[it.key()].remove(n);
        }
    }
    for (auto it = toRead.begin(); it != toRead.end(); ++it) {
        QVector<int> nodes(it.value().begin(), it.value().end());
        std::sort(nodes.begin(), nodes.end());
        readNodes(it.key(), nodes, false, false);
    }
}

void DeviceWorker::scheduleCommandCheck(int map, int node)
{
    m_runningCommands.insert({map, node});
    if (!m_commandTimer->isActive()) {
        m_commandTimer->start();
    }
}

void DeviceWorker::readNodes(int mapIndex, const QVector<int>& nodes, bool bypassCache, bool forced)
{
    if (mapIndex < 0 || size_t(mapIndex) >= m_maps.size()) {
        return;
    }
    NodeMap& map = *m_maps[size_t(mapIndex)];
    const ArvRegisterCachePolicy policy = arv_gc_get_register_cache_policy(map.genicam);
    if (bypassCache) {
        arv_gc_set_register_cache_policy(map.genicam, ARV_REGISTER_CACHE_POLICY_DISABLE);
    }
    QVector<PublishedData> batch;
    for (int node : readFresh(map, nodes)) {
        const ParameterDataPtr& data = map.last[node];
        if (data->type == CommandType && static_cast<const CommandParameterData&>(*data).done) {
            m_runningCommands.remove({mapIndex, node});
        }
        const ParameterDataPtr& previous = map.previous[node];
        if (forced || !previous || !sameData(*previous, *data)) {
            batch.append({node, data});
        }
        map.previous[node].reset();
    }
    if (bypassCache) {
        arv_gc_set_register_cache_policy(map.genicam, policy);
    }
    if (m_runningCommands.isEmpty() || m_lost.load()) {
        m_commandTimer->stop();
        m_runningCommands.clear();
    }
    if (!batch.isEmpty()) {
        Q_EMIT published(mapIndex, batch);
    }
}

void DeviceWorker::readObserved(int map, const QVector<int>& nodes)
{
    readNodes(map, nodes, true, false);
}

class DeviceWorker::MapAccess : public FeatureSetTransfer::Access {
public:
    MapAccess(DeviceWorker& worker, NodeMap& map) : m_worker(worker), m_map(map) {}
    const NodeMapStructure& structure() const override { return *m_map.structure; }
    const NodeMapGraph& graph() const override { return m_map.graph; }
    ParameterDataPtr read(int node) override
    {
        bool deviceFailed = false;
        QSharedPointer<ParameterData> data = m_worker.readNode(m_map, node, &deviceFailed);
        // Only the deciders' last values are at hand to explain a restriction.
        m_worker.explain(m_map, node, *data);
        return data;
    }
    bool write(int node, const QVariant& value, Exception::Kind* kind, QString* message) override
    {
        if (m_worker.isLost()) {
            *kind = Exception::DeviceLost;
            *message = QStringLiteral("the device is lost");
            return false;
        }
        bool deviceFailed = false;
        return m_worker.writeNode(m_map, node, value, message, kind, &deviceFailed);
    }

private:
    DeviceWorker& m_worker;
    NodeMap& m_map;
};

std::unique_ptr<FeatureSetTransfer::Access> DeviceWorker::transferAccess(int map)
{
    return std::make_unique<MapAccess>(*this, *m_maps.at(size_t(map)));
}

void DeviceWorker::republish(int map)
{
    QVector<int> all(m_maps.at(size_t(map))->nodes.size());
    std::iota(all.begin(), all.end(), 0);
    readNodes(map, all, true, false);
}

void DeviceWorker::markLost(const QString& message)
{
    QMutexLocker lock(&m_lostMutex);
    if (m_lost.load()) {
        return;
    }
    m_lostMessage = message;
    m_lost.store(true);
    // May run on Aravis's heartbeat thread: hand the news to our own thread.
    QMetaObject::invokeMethod(
        this, [this, message] { Q_EMIT lost(message); }, Qt::QueuedConnection);
}

} // namespace Backend
