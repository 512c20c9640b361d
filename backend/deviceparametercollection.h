#pragma once

#include "deviceworker.h"
#include "nodemapstructure.h"

#include <parametercollection/iparametercollection.h>

#include <QDateTime>
#include <QEventLoop>
#include <QHash>
#include <QPointer>
#include <QThread>
#include <QVector>

#include <functional>
#include <memory>

namespace Backend {

class SimulatedDevice;
class StreamChannel;

// The parameter collection of one device. Lives on the GUI thread and answers everything from
// the structure and the latest value snapshots; device I/O runs on the device thread owned
// here, one per device.
class DeviceParameterCollection : public ParameterCollection::IParameterCollection {
    Q_OBJECT
public:
    // The device thread's stack: deep enough for a chain of a million links.
    static constexpr uint kDeviceThreadStackBytes = 1024u * 1024u * 1024u;

    // Who asked for a write: the change journal keeps the user's own writes apart from those
    // of its undo and redo and of a feature set applied as one batch.
    enum class WriteOrigin { User, Undo, Redo, Batch };

    // One call of write() once its outcome is known: taken by the device, or refused by it or
    // by the checks here before anything was queued. Writes to one feature that the device
    // queue coalesced (a slider being dragged) share the outcome of the last of them.
    struct WriteRecord {
        QString fullName;
        WriteOrigin origin = WriteOrigin::User;
        QDateTime issued;
        bool command = false;
        QVariant oldValue; // as write() takes it; invalid when the old value had not been read
        QString oldText;
        QVariant newValue;
        QString newText;
        bool done = false;
        ParameterCollection::Exception::Kind kind = ParameterCollection::Exception::Generic;
        QString reason; // why not done; does not name the feature
    };

    explicit DeviceParameterCollection(const QString& name, QObject* parent = nullptr);
    ~DeviceParameterCollection() override;

    // Installs device behaviour on every simulated node map attached afterwards.
    void setLogicFactory(std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> factory);

    // Attach a node map and wait for it while the event loop runs, user input included. Throw
    // ParameterCollection::InvalidArgumentException with the reason on failure, TimeoutException
    // when cancelled or past the open timeout, DeviceLostException when the device went while
    // it opened.
    void attachSimulated(const QString& nodeMapName, const QByteArray& xml,
                         const QString& defaults = QString());
    // The same with the description read from `xmlFile` on the device thread, so that a slow
    // file system never holds the window. The caller has checked that it is a regular file.
    void attachSimulatedFile(const QString& nodeMapName, const QString& xmlFile, qint64 maxBytes);
    // `open` runs on the device thread and returns a new ArvDevice reference or null with
    // the error text set.
    void attachDevice(const QString& nodeMapName, std::function<ArvDevice*(QString*)> open);
    // Abandons the attach in progress: it throws at once, and the device thread finishes its
    // part on its own. Safe to call when nothing attaches.
    void cancelAttach();
    // An attach that takes longer than this throws; 0 waits as long as it takes (or until
    // cancelled).
    void setAttachTimeout(int ms) { m_attachTimeoutMs = ms; }
    bool isAttaching() const { return m_attaching; }

    // IParameterCollection
    QString getName() const override { return m_name; }
    QStringList getNodeMapNames() const override;
    QSharedPointer<ParameterCollection::IParameter>
    getParameter(const QString& fullName) const override;
    using ParameterCollection::IParameterCollection::getParameter;
    QStringList getChildren(const QString& fullName) const override;
    void poll(int elapsedMs) override;
    void refresh() override;
    void refresh(const QList<ParameterCollection::ParameterName>& names) override;
    bool isLost() const override { return m_lost; }
    // What the device said when it went; empty while it is there.
    QString lostReason() const { return m_lostReason; }

    NodeMapStructurePtr structure(const QString& nodeMapName) const;
    // Runs `job` on the device thread and waits for it; for tests, tools and benchmarks.
    void runOnDeviceThread(const std::function<void(DeviceWorker&)>& job);
    // The camera's stream, bound as it opened; null for a collection without one. It goes on
    // the device thread, after the worker.
    void setStreamChannel(std::shared_ptr<StreamChannel> channel) { m_streamChannel = channel; }
    const std::shared_ptr<StreamChannel>& streamChannel() const { return m_streamChannel; }
    // Queues `job` for the device thread and returns at once.
    void postToDeviceThread(std::function<void(DeviceWorker&)> job);
    // The worker's index of a node map, -1 when none of that name is attached.
    int mapIndex(const QString& nodeMapName) const
    {
        return m_mapByPrefix.value(QLatin1Char('@') + nodeMapName, -1);
    }
    // Waits until every job queued so far has run and its results have arrived.
    void waitForDevice();
    // The same for at most `timeoutMs`, with the event loop running; false when the device
    // thread did not get there in time (it hangs in a call to the device).
    bool waitForDevice(int timeoutMs);

    // For the parameters.
    ParameterCollection::ParameterDataPtr dataOf(int map, int node) const
    {
        return m_maps[map].data[node];
    }
    const NodeInfo& infoOf(int map, int node) const { return m_maps[map].structure->nodes[node]; }
    void write(int map, int node, const QVariant& value);
    void readNode(int map, int node, bool forced);
    void setPropertyOverride(int map, int node, const QString& name, const QString& value);
    QString propertyOf(int map, int node, const QString& name) const;
    void addObserver(int map, int node);
    void removeObserver(int map, int node);

    // The origin that the writes from now on carry in their records; User unless set.
    void setWriteOrigin(WriteOrigin origin) { m_writeOrigin = origin; }
    WriteOrigin writeOrigin() const { return m_writeOrigin; }

Q_SIGNALS:
    void writeFinished(const Backend::DeviceParameterCollection::WriteRecord& record);

private:
    struct Override {
        bool hasVisibility = false;
        GenApi::EVisibility visibility = GenApi::Beginner;
        bool hasAccessMode = false;
        GenApi::EAccessMode accessMode = GenApi::RW;
    };
    struct MapState {
        NodeMapStructurePtr structure;
        QVector<ParameterCollection::ParameterDataPtr> data;
        mutable QVector<QSharedPointer<ParameterCollection::IParameter>> parameters;
        QVector<int> observers;
        QHash<int, int> pollElapsed; // observed, polled nodes: time since their last read
        QHash<int, Override> overrides;
    };

    void onPublished(int map, const QVector<Backend::PublishedData>& batch);
    void onLost(const QString& message);
    void onWriteAnswered(quint64 id, bool ok, ParameterCollection::Exception::Kind kind,
                         const QString& message);
    void markMapLost(int map);
    static ParameterCollection::ParameterDataPtr
    markedLost(const ParameterCollection::ParameterDataPtr& data);
    ParameterCollection::ParameterDataPtr
    withOverride(int map, int node, ParameterCollection::ParameterDataPtr d) const;
    void store(int map, int node, const ParameterCollection::ParameterDataPtr& data);
    QVariant validated(int map, int node, const QVariant& value) const;
    void checkWritable(const ParameterCollection::ParameterData& data,
                       const QString& feature) const;
    QSharedPointer<ParameterCollection::IParameter> makeParameter(int map, int node) const;
    bool locate(const QString& fullName, int* map, int* node) const;
    struct AttachResult;
    void attach(const std::function<int(DeviceWorker&, QString*)>& job);
    void waitForAttach(const std::shared_ptr<AttachResult>& result);
    static void wake(const std::shared_ptr<AttachResult>& result);

    QString m_name;
    QThread* m_thread;                // owned until the collection goes, then retired
    DeviceWorker* m_worker = nullptr; // lives on m_thread, deleted there
    QVector<MapState> m_maps;
    QHash<QString, int> m_mapByPrefix;
    bool m_lost = false;
    bool m_pollInFlight = false;
    bool m_attaching = false;
    bool m_attachCancelled = false;
    bool m_attachAbandoned = false; // its node map indices no longer match the device thread's
    QString m_lostReason;
    int m_attachTimeoutMs = 0;
    QPointer<QEventLoop> m_attachLoop; // the wait of the attach in progress
    WriteOrigin m_writeOrigin = WriteOrigin::User;
    quint64 m_lastWriteId = 0;
    QVector<QPair<quint64, WriteRecord>> m_unanswered; // queued writes, oldest first
    std::shared_ptr<StreamChannel> m_streamChannel;
};

} // namespace Backend

Q_DECLARE_METATYPE(Backend::DeviceParameterCollection::WriteRecord)
