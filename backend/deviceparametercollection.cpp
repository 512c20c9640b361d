#include "deviceparametercollection.h"

#include "deviceparameter.h"
#include "streamchannel.h"
#include "errormapping.h"
#include "threadretirement.h"
#include "valuetext.h"
#include "writecheck.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QMutex>
#include <QTimer>

#include <cmath>

using namespace ParameterCollection;

namespace Backend {

DeviceParameterCollection::DeviceParameterCollection(const QString& name, QObject* parent)
    : IParameterCollection(parent), m_name(name), m_thread(new QThread)
{
    qRegisterMetaType<QVector<Backend::PublishedData>>();
    qRegisterMetaType<ParameterDataPtr>();
    qRegisterMetaType<ParameterCollection::Exception::Kind>();
    qRegisterMetaType<Backend::DeviceParameterCollection::WriteRecord>();
    m_thread->setObjectName(QStringLiteral("device:") + name);
    // Aravis evaluates a chain of links by recursion, a few hundred bytes a link, and a
    // description may chain as many nodes as it likes. The stack is only address space until
    // it is used.
    m_thread->setStackSize(kDeviceThreadStackBytes);
    m_worker = new DeviceWorker;
    m_worker->moveToThread(m_thread);
    connect(m_worker, &DeviceWorker::published, this, &DeviceParameterCollection::onPublished);
    connect(m_worker, &DeviceWorker::lost, this, &DeviceParameterCollection::onLost);
    connect(m_worker, &DeviceWorker::writeFailed, this, &IParameterCollection::writeFailed);
    connect(m_worker, &DeviceWorker::writeAnswered, this,
            &DeviceParameterCollection::onWriteAnswered);
    m_thread->start();
}

DeviceParameterCollection::~DeviceParameterCollection()
{
    // Parameters unregister their observation from us while they go.
    for (MapState& m : m_maps) {
        const auto parameters = std::move(m.parameters);
    }
    // A device that hangs holds its thread in an Aravis call for seconds; whoever closes the
    // collection (the window, often) must not wait for that. The worker goes once the thread
    // is done with what it was doing, and the thread ends after it.
    DeviceWorker* worker = m_worker;
    QThread* thread = m_thread;
    std::shared_ptr<StreamChannel> channel = std::move(m_streamChannel);
    QMetaObject::invokeMethod(
        worker,
        [worker, thread, channel]() mutable {
            delete worker;
            channel.reset();
            thread->quit();
        },
        Qt::QueuedConnection);
    ThreadRetirement::retire(thread);
}

void DeviceParameterCollection::setLogicFactory(
    std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> factory)
{
    runOnDeviceThread([&factory](DeviceWorker& worker) { worker.setLogicFactory(factory); });
}

void DeviceParameterCollection::runOnDeviceThread(const std::function<void(DeviceWorker&)>& job)
{
    DeviceWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker, [worker, &job] { job(*worker); }, Qt::BlockingQueuedConnection);
}

void DeviceParameterCollection::postToDeviceThread(std::function<void(DeviceWorker&)> job)
{
    DeviceWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker, [worker, job = std::move(job)] { job(*worker); }, Qt::QueuedConnection);
}

void DeviceParameterCollection::waitForDevice()
{
    // Queued signals from the worker that were sent before the no-op ran are delivered by the
    // event loop pass below.
    runOnDeviceThread([](DeviceWorker&) {});
    QCoreApplication::sendPostedEvents(this);
}

// What the device thread hands back from an attach. `receiver` is the collection while it still
// waits; it is cleared under the lock when the wait ends, so that an abandoned attach never
// calls into a collection that has gone.
struct DeviceParameterCollection::AttachResult {
    QMutex mutex;
    QObject* receiver = nullptr;
    QPointer<QEventLoop> loop; // GUI thread only
    bool done = false;
    int map = -1;
    QString error;
    NodeMapStructurePtr structure;
    QVector<ParameterDataPtr> snapshot;
};

void DeviceParameterCollection::attach(const std::function<int(DeviceWorker&, QString*)>& job)
{
    if (m_attaching || m_attachAbandoned) {
        throw AccessException(m_name, m_attachAbandoned
                                          ? QStringLiteral("an earlier open was abandoned")
                                          : QStringLiteral("the camera is still opening"));
    }
    auto result = std::make_shared<AttachResult>();
    result->receiver = this;
    DeviceWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker,
        [worker, job, result] {
            QString error;
            int map = -1;
            {
                // Aravis keeps shared state while it builds a node map: an abandoned open that
                // still runs on its own thread spoils one begun meanwhile on another. Opens take
                // turns here, off the GUI thread, and stay cancellable while they wait.
                static QMutex oneAtATime;
                const QMutexLocker turn(&oneAtATime);
                map = job(*worker, &error);
            }
            NodeMapStructurePtr structure;
            QVector<ParameterDataPtr> snapshot;
            if (map >= 0) {
                structure = worker->structure(map);
                snapshot = worker->snapshot(map);
            }
            const QMutexLocker lock(&result->mutex);
            result->map = map;
            result->error = error;
            result->structure = structure;
            result->snapshot = snapshot;
            result->done = true;
            wake(result);
        },
        Qt::QueuedConnection);
    waitForAttach(result);

    Q_ASSERT(result->map == m_maps.size());
    MapState state;
    state.structure = result->structure;
    state.data = result->snapshot;
    state.parameters.resize(state.data.size());
    state.observers.fill(0, state.data.size());
    m_mapByPrefix.insert(state.structure->prefix, m_maps.size());
    m_maps.append(state);
    // The news of a loss while the node map was read may still be on its way.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    if (!m_lost && m_worker->isLost()) {
        onLost(QStringLiteral("the camera stopped answering while it opened"));
    }
    if (m_lost) {
        // The device went while this node map was being read.
        markMapLost(m_maps.size() - 1);
    }
    Q_EMIT nodeMapAttached(state.structure->name);
}

void DeviceParameterCollection::wake(const std::shared_ptr<AttachResult>& result)
{
    // Device thread, with the lock held.
    if (QObject* receiver = result->receiver) {
        QMetaObject::invokeMethod(
            receiver,
            [result] {
                if (result->loop) {
                    result->loop->quit();
                }
            },
            Qt::QueuedConnection);
    }
}

bool DeviceParameterCollection::waitForDevice(int timeoutMs)
{
    auto answer = std::make_shared<AttachResult>();
    answer->receiver = this;
    QEventLoop loop;
    answer->loop = &loop;
    DeviceWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker,
        [answer] {
            const QMutexLocker lock(&answer->mutex);
            answer->done = true;
            wake(answer);
        },
        Qt::QueuedConnection);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    const QMutexLocker lock(&answer->mutex);
    answer->receiver = nullptr;
    return answer->done;
}

void DeviceParameterCollection::waitForAttach(const std::shared_ptr<AttachResult>& result)
{
    // The window keeps answering while the device opens, which can take seconds on a network;
    // whoever shows the wait offers a Cancel that ends it through cancelAttach().
    QEventLoop loop;
    m_attachLoop = &loop;
    result->loop = &loop;
    m_attaching = true;
    m_attachCancelled = false;
    QTimer timeout;
    timeout.setSingleShot(true);
    connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
    if (m_attachTimeoutMs > 0) {
        timeout.start(m_attachTimeoutMs);
    }
    bool done = false;
    {
        const QMutexLocker lock(&result->mutex);
        done = result->done;
    }
    if (!done) {
        loop.exec();
    }
    m_attaching = false;
    m_attachLoop = nullptr;
    {
        const QMutexLocker lock(&result->mutex);
        result->receiver = nullptr;
        done = result->done;
    }
    if (!done) {
        // The device thread finishes its part on its own; its result goes nowhere.
        m_attachAbandoned = true;
        QString reason = QStringLiteral("the open was interrupted: the application is ending");
        if (m_attachCancelled) {
            reason = QStringLiteral("the open was cancelled");
        } else if (m_attachTimeoutMs > 0 && !timeout.isActive()) {
            reason = QStringLiteral("the camera did not finish opening within %1 s")
                         .arg(m_attachTimeoutMs / 1000.0);
        }
        throw TimeoutException(m_name, reason);
    }
    if (result->map < 0) {
        throw InvalidArgumentException(m_name, result->error);
    }
}

void DeviceParameterCollection::cancelAttach()
{
    if (m_attachLoop) {
        m_attachCancelled = true;
        m_attachLoop->quit();
    }
}

void DeviceParameterCollection::attachSimulated(const QString& nodeMapName, const QByteArray& xml,
                                                const QString& defaults)
{
    attach([nodeMapName, xml, defaults](DeviceWorker& worker, QString* error) {
        return worker.attachSimulated(nodeMapName, xml, defaults, error);
    });
}

void DeviceParameterCollection::attachSimulatedFile(const QString& nodeMapName,
                                                    const QString& xmlFile, qint64 maxBytes)
{
    attach([nodeMapName, xmlFile, maxBytes](DeviceWorker& worker, QString* error) {
        QFile file(xmlFile);
        if (!file.open(QIODevice::ReadOnly)) {
            *error = QStringLiteral("cannot open %1: %2").arg(xmlFile, file.errorString());
            return -1;
        }
        // The file may have grown since it was checked.
        const QByteArray xml = file.read(maxBytes + 1);
        if (xml.size() > maxBytes) {
            *error = QStringLiteral("%1 is larger than %2 MiB").arg(xmlFile).arg(maxBytes >> 20);
            return -1;
        }
        // A file describes a camera that is not here: it powers on as the simulated sensor.
        return worker.attachSimulated(nodeMapName, xml, QString(), error,
                                      DeviceWorker::PowerOn::SimulatedSensor);
    });
}

void DeviceParameterCollection::attachDevice(const QString& nodeMapName,
                                             std::function<ArvDevice*(QString*)> open)
{
    attach([nodeMapName, open](DeviceWorker& worker, QString* error) {
        ArvDevice* device = open(error);
        if (device == nullptr) {
            return -1;
        }
        return worker.attachDevice(nodeMapName, device, error);
    });
}

QStringList DeviceParameterCollection::getNodeMapNames() const
{
    QStringList names;
    for (const MapState& m : m_maps) {
        names << m.structure->name;
    }
    return names;
}

NodeMapStructurePtr DeviceParameterCollection::structure(const QString& nodeMapName) const
{
    const int map = m_mapByPrefix.value(QLatin1Char('@') + nodeMapName, -1);
    return map < 0 ? nullptr : m_maps[map].structure;
}

bool DeviceParameterCollection::locate(const QString& fullName, int* map, int* node) const
{
    const int slash = fullName.indexOf(QLatin1Char('/'));
    if (slash < 0) {
        return false;
    }
    *map = m_mapByPrefix.value(fullName.left(slash), -1);
    if (*map < 0) {
        return false;
    }
    *node = m_maps[*map].structure->indexOf(fullName.mid(slash + 1));
    return *node >= 0;
}

QSharedPointer<IParameter> DeviceParameterCollection::makeParameter(int map, int node) const
{
    auto* self = const_cast<DeviceParameterCollection*>(this);
    const NodeInfo& info = infoOf(map, node);
    switch (info.type) {
    case IntegerType:
        return QSharedPointer<IntegerParameter>::create(self, map, node, info.fullName,
                                                        info.featureName);
    case FloatType:
        return QSharedPointer<FloatParameter>::create(self, map, node, info.fullName,
                                                      info.featureName);
    case EnumerationType:
        return QSharedPointer<EnumParameter>::create(self, map, node, info.fullName,
                                                     info.featureName);
    case BooleanType:
        return QSharedPointer<BooleanParameter>::create(self, map, node, info.fullName,
                                                        info.featureName);
    case CommandType:
        return QSharedPointer<CommandParameter>::create(self, map, node, info.fullName,
                                                        info.featureName);
    case StringType:
        return QSharedPointer<StringParameter>::create(self, map, node, info.fullName,
                                                       info.featureName);
    case RegisterType:
        return QSharedPointer<RegisterParameter>::create(self, map, node, info.fullName,
                                                         info.featureName);
    default:
        return QSharedPointer<PlainParameter>::create(self, map, node, info.fullName,
                                                      info.featureName);
    }
}

QSharedPointer<IParameter> DeviceParameterCollection::getParameter(const QString& fullName) const
{
    int map = -1;
    int node = -1;
    if (!locate(fullName, &map, &node)) {
        return {};
    }
    auto& slot = m_maps[map].parameters[node];
    if (!slot) {
        slot = makeParameter(map, node);
    }
    return slot;
}

QStringList DeviceParameterCollection::getChildren(const QString& fullName) const
{
    int map = -1;
    int node = -1;
    QStringList names;
    if (!locate(fullName, &map, &node)) {
        return names;
    }
    const NodeMapStructure& s = *m_maps[map].structure;
    for (int child : s.nodes[node].children) {
        names << s.nodes[child].fullName;
    }
    return names;
}

void DeviceParameterCollection::addObserver(int map, int node)
{
    MapState& m = m_maps[map];
    if (m.observers[node]++ == 0 && m.structure->nodes[node].pollingTime > 0) {
        m.pollElapsed.insert(node, 0);
    }
}

void DeviceParameterCollection::removeObserver(int map, int node)
{
    MapState& m = m_maps[map];
    if (m.observers[node] > 0 && --m.observers[node] == 0) {
        m.pollElapsed.remove(node);
    }
}

void DeviceParameterCollection::poll(int elapsedMs)
{
    if (m_lost || m_pollInFlight) {
        return;
    }
    DeviceWorker* worker = m_worker;
    for (int map = 0; map < m_maps.size(); ++map) {
        MapState& m = m_maps[map];
        QVector<int> due;
        for (auto it = m.pollElapsed.begin(); it != m.pollElapsed.end(); ++it) {
            it.value() += elapsedMs;
            if (it.value() >= m.structure->nodes[it.key()].pollingTime) {
                it.value() = 0;
                due.append(it.key());
            }
        }
        if (due.isEmpty()) {
            continue;
        }
        std::sort(due.begin(), due.end());
        // One poll at a time: a slow device skips beats instead of piling up reads.
        m_pollInFlight = true;
        QPointer<DeviceParameterCollection> self(this);
        QMetaObject::invokeMethod(
            worker,
            [worker, map, due, self] {
                worker->readObserved(map, due);
                QMetaObject::invokeMethod(
                    self.data(),
                    [self] {
                        if (self) {
                            self->m_pollInFlight = false;
                        }
                    },
                    Qt::QueuedConnection);
            },
            Qt::QueuedConnection);
    }
}

void DeviceParameterCollection::refresh()
{
    if (m_lost) {
        return;
    }
    DeviceWorker* worker = m_worker;
    for (int map = 0; map < m_maps.size(); ++map) {
        QVector<int> observed;
        for (int node = 0; node < m_maps[map].observers.size(); ++node) {
            if (m_maps[map].observers[node] > 0) {
                observed.append(node);
            }
        }
        if (!observed.isEmpty()) {
            QMetaObject::invokeMethod(
                worker, [worker, map, observed] { worker->readObserved(map, observed); },
                Qt::QueuedConnection);
        }
    }
}

void DeviceParameterCollection::refresh(const QList<ParameterName>& names)
{
    for (const ParameterName& name : names) {
        int map = -1;
        int node = -1;
        if (locate(name.toString(), &map, &node)) {
            readNode(map, node, false);
        }
    }
}

void DeviceParameterCollection::readNode(int map, int node, bool forced)
{
    if (m_lost) {
        return;
    }
    DeviceWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker, [worker, map, node, forced] { worker->readNodes(map, {node}, true, forced); },
        Qt::QueuedConnection);
}

ParameterDataPtr DeviceParameterCollection::withOverride(int map, int node,
                                                         ParameterDataPtr d) const
{
    const auto it = m_maps[map].overrides.constFind(node);
    if (it == m_maps[map].overrides.constEnd() || !d) {
        return d;
    }
    QSharedPointer<ParameterData> copy = d->clone();
    if (it->hasVisibility) {
        copy->visibility = it->visibility;
    }
    if (it->hasAccessMode) {
        // An imposed access mode can take rights away, never grant them.
        switch (it->accessMode) {
        case GenApi::NI:
            copy->implemented = copy->available = copy->readable = copy->writable = false;
            copy->accessMode = GenApi::NI;
            break;
        case GenApi::NA:
            copy->available = copy->readable = copy->writable = false;
            copy->accessMode = qMin(copy->accessMode, GenApi::NA);
            break;
        case GenApi::RO:
            copy->writable = false;
            if (copy->accessMode == GenApi::RW) {
                copy->accessMode = GenApi::RO;
            } else if (copy->accessMode == GenApi::WO) {
                copy->accessMode = GenApi::NA;
            }
            break;
        case GenApi::WO:
            copy->readable = false;
            if (copy->accessMode == GenApi::RW) {
                copy->accessMode = GenApi::WO;
            } else if (copy->accessMode == GenApi::RO) {
                copy->accessMode = GenApi::NA;
            }
            break;
        default:
            break;
        }
    }
    return copy;
}

void DeviceParameterCollection::store(int map, int node, const ParameterDataPtr& data)
{
    MapState& m = m_maps[map];
    m.data[node] = data;
    if (const auto& parameter = m.parameters[node]) {
        Q_EMIT parameter->parameterDataChanged(data);
    }
}

void DeviceParameterCollection::onPublished(int map, const QVector<PublishedData>& batch)
{
    if (map < 0 || map >= m_maps.size()) {
        return;
    }
    for (const PublishedData& p : batch) {
        store(map, p.node, withOverride(map, p.node, m_lost ? markedLost(p.data) : p.data));
    }
}

ParameterDataPtr DeviceParameterCollection::markedLost(const ParameterDataPtr& data)
{
    if (!data || data->deviceLost) {
        return data;
    }
    QSharedPointer<ParameterData> copy = data->clone();
    copy->deviceLost = true;
    return copy;
}

void DeviceParameterCollection::onLost(const QString& message)
{
    if (m_lost) {
        return;
    }
    m_lost = true;
    m_lostReason = message;
    for (int map = 0; map < m_maps.size(); ++map) {
        markMapLost(map);
    }
    Q_EMIT deviceLost(message);
}

void DeviceParameterCollection::markMapLost(int map)
{
    // Every view learns it from the data it already watches; the values stay the last ones.
    for (int node = 0; node < m_maps[map].data.size(); ++node) {
        const ParameterDataPtr& data = m_maps[map].data[node];
        if (data && !data->deviceLost) {
            store(map, node, markedLost(data));
        }
    }
}

void DeviceParameterCollection::setPropertyOverride(int map, int node, const QString& name,
                                                    const QString& value)
{
    const NodeInfo& info = infoOf(map, node);
    Override o = m_maps[map].overrides.value(node);
    if (name == QLatin1String("Visibility")) {
        if (!GenApi::visibilityFromString(value, &o.visibility)) {
            throw InvalidArgumentException(info.featureName,
                                           QStringLiteral("'%1' is not a visibility").arg(value));
        }
        o.hasVisibility = true;
    } else if (name == QLatin1String("AccessMode")) {
        if (!GenApi::accessModeFromString(value, &o.accessMode)) {
            throw InvalidArgumentException(info.featureName,
                                           QStringLiteral("'%1' is not an access mode").arg(value));
        }
        o.hasAccessMode = true;
    } else {
        throw InvalidArgumentException(info.featureName,
                                       QStringLiteral("the property '%1' cannot be set").arg(name));
    }
    m_maps[map].overrides.insert(node, o);
    // Re-derive from what the device last said, so that overrides do not pile up.
    ParameterDataPtr base = m_maps[map].data[node];
    QSharedPointer<ParameterData> plain = base->clone();
    plain->visibility = info.visibility;
    store(map, node, withOverride(map, node, plain));
    readNode(map, node, true);
}

QString DeviceParameterCollection::propertyOf(int map, int node, const QString& name) const
{
    const NodeInfo& info = infoOf(map, node);
    const ParameterDataPtr& data = m_maps[map].data[node];
    if (name == QLatin1String("Name")) {
        return info.featureName;
    }
    if (name == QLatin1String("DisplayName")) {
        return info.displayName;
    }
    if (name == QLatin1String("ToolTip")) {
        return info.toolTip;
    }
    if (name == QLatin1String("Description")) {
        return info.description;
    }
    if (name == QLatin1String("Visibility")) {
        return GenApi::visibilityToString(data ? data->visibility : info.visibility);
    }
    if (name == QLatin1String("AccessMode")) {
        return data ? GenApi::accessModeToString(data->accessMode) : QString();
    }
    if (name == QLatin1String("Representation")) {
        return info.representation;
    }
    if (name == QLatin1String("Unit")) {
        return info.unit;
    }
    if (name == QLatin1String("DisplayNotation")) {
        static const char* const notations[] = {"Automatic", "Fixed", "Scientific"};
        return info.type == FloatType ? QLatin1String(notations[qBound(0, info.displayNotation, 2)])
                                      : QString();
    }
    if (name == QLatin1String("DisplayPrecision")) {
        return info.type == FloatType ? QString::number(info.displayPrecision) : QString();
    }
    if (name == QLatin1String("PollingTime")) {
        return info.pollingTime > 0 ? QString::number(info.pollingTime) : QString();
    }
    if (name == QLatin1String("Type")) {
        return info.nodeType;
    }
    return QString();
}

QVariant DeviceParameterCollection::validated(int map, int node, const QVariant& value) const
{
    const NodeInfo& info = infoOf(map, node);
    checkWritable(*m_maps[map].data[node], info.featureName);
    return WriteCheck::validated(info, *m_maps[map].data[node], value);
}

void DeviceParameterCollection::checkWritable(const ParameterData& data,
                                              const QString& feature) const
{
    if (m_lost) {
        throw DeviceLostException(feature, QStringLiteral("the device is lost"));
    }
    WriteCheck::checkWritable(data, feature);
}

void DeviceParameterCollection::write(int map, int node, const QVariant& value)
{
    const NodeInfo& info = infoOf(map, node);
    const ParameterData& before = *m_maps[map].data[node];
    WriteRecord record;
    record.fullName = info.fullName;
    record.origin = m_writeOrigin;
    record.issued = QDateTime::currentDateTime();
    record.command = info.type == CommandType;
    if (before.readable && !record.command) {
        record.oldValue = before.value;
        record.oldText = before.displayText;
    }
    QVariant v;
    try {
        v = validated(map, node, value);
    } catch (const Exception& e) {
        record.newValue = value;
        record.newText = value.type() == QVariant::ByteArray ? registerText(value.toByteArray())
                                                             : value.toString();
        record.kind = e.kind();
        record.reason = e.message();
        Q_EMIT writeFinished(record);
        throw;
    }
    if (info.type == CommandType && !v.toBool()) {
        return;
    }
    // Show the value at once; the device's answer follows and corrects it.
    QSharedPointer<ParameterData> optimistic = m_maps[map].data[node]->clone();
    optimistic->value = v;
    switch (info.type) {
    case IntegerType:
        optimistic->displayText = integerText(v.toLongLong(), info.representation);
        break;
    case FloatType:
        optimistic->displayText =
            floatText(v.toDouble(), info.displayNotation, info.displayPrecision);
        break;
    case BooleanType:
        optimistic->displayText = v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
        break;
    case EnumerationType: {
        auto* e = static_cast<EnumParameterData*>(optimistic.data());
        for (const auto& entry : e->entries) {
            if (entry.name == v.toString()) {
                e->displayText = entry.displayName;
                e->intValue = entry.intValue;
            }
        }
        break;
    }
    case CommandType:
        // Only a command whose register can be read is ever seen running.
        if (optimistic->readable) {
            static_cast<CommandParameterData*>(optimistic.data())->done = false;
        }
        optimistic->value = optimistic->readable ? QVariant(true) : QVariant();
        break;
    case RegisterType:
        optimistic->displayText = registerText(v.toByteArray());
        break;
    default:
        optimistic->displayText = v.toString();
    }
    store(map, node, optimistic);

    record.newValue = v;
    record.newText = optimistic->displayText;
    const quint64 id = ++m_lastWriteId;
    m_unanswered.append({id, record});
    DeviceWorker* worker = m_worker;
    if (worker->enqueueWrite({map, node, v, id})) {
        QMetaObject::invokeMethod(
            worker, [worker] { worker->processWrites(); }, Qt::QueuedConnection);
    }
}

void DeviceParameterCollection::onWriteAnswered(quint64 id, bool ok, Exception::Kind kind,
                                                const QString& message)
{
    // The device answers in the order of the queue; a coalesced write answers for the earlier
    // ones to its feature that it replaced.
    while (!m_unanswered.isEmpty() && m_unanswered.first().first <= id) {
        WriteRecord record = m_unanswered.takeFirst().second;
        record.done = ok;
        if (!ok) {
            record.kind = kind;
            record.reason = message;
        }
        Q_EMIT writeFinished(record);
    }
}

} // namespace Backend
