#pragma once

#include "camerainfo.h"

#include <camerapool/ideviceparameterservice.h>

#include <QHash>
#include <QList>
#include <QPointer>
#include <QSharedPointer>

namespace Backend {

struct TransportLayerSource;

class DeviceParameterCollection;

// The host's device parameter service: opens cameras, real or simulated, and gives each its
// parameter collection. Network discovery runs only when discover() is called.
class CameraPool : public Plugin::CameraPool::IDeviceParameterService {
    Q_OBJECT
public:
    struct DiscoveredDevice {
        QString id;
        QString address;
        QString vendor;
        QString model;
        QString serial;
        QString protocol;
    };

    // How long reopening a simulated camera waits for its old device thread to answer.
    static constexpr int SIMULATED_ANSWER_TIMEOUT_MS = 3000;

    // The largest description file a simulated camera is served from. Real descriptions stay
    // below a few MiB; a bigger file is refused before it is read.
    static constexpr qint64 MAX_DESCRIPTION_BYTES = qint64(64) << 20;

    explicit CameraPool(QObject* parent = nullptr);
    ~CameraPool() override;

    // The built-in simulated camera when `xmlFile` is empty, else any GenICam description
    // served on a simulated device. Throws ParameterCollection::Exception on failure.
    QSharedPointer<CameraInfo> openSimulated(const QString& xmlFile = QString());
    // A real device by its Aravis id or by its IP address.
    QSharedPointer<CameraInfo> openDevice(const QString& idOrAddress);
    // Opens the camera behind `info` again the way it was opened (the same id or address, or
    // the same description on a simulated device), as a new camera with the same id. `info`
    // stays open; the caller closes it once the new one has taken its place. Throws while the
    // camera does not answer: a simulated camera answers when its device has no fault.
    QSharedPointer<CameraInfo> reopen(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void close(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void closeAll();

    // The event loop runs, user input included, while a camera opens. Cancelling makes the
    // open in progress throw at once; its device thread is left to end on its own.
    void cancelOpening();
    bool isOpening() const;
    // An open that takes longer throws; 0 (the default) waits until it ends or is cancelled.
    void setOpenTimeout(int ms) { m_openTimeoutMs = ms; }

    // Broadcasts on every interface: only on the user's request.
    static QList<DiscoveredDevice> discover();

    // The built-in camera's description and start values.
    static QByteArray builtinCameraXml();
    static QString builtinCameraDefaults();

    QSharedPointer<ParameterCollection::IParameterCollection> getParameterCollection(
        const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const override;
    QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>> getOpenDevices() const override;

private:
    // How a camera was opened, so that it can be opened again.
    struct Origin {
        bool simulated = false;
        QString source; // the id or address, or the description file (empty: built-in)
    };

    QSharedPointer<CameraInfo> openSimulatedAs(const QString& xmlFile, const QString& id);
    static void checkSimulatedAnswers(const QSharedPointer<DeviceParameterCollection>& collection,
                                      const QString& id);
    void attachModules(DeviceParameterCollection& collection, const TransportLayerSource& source);
    QSharedPointer<DeviceParameterCollection> newCollection(const QString& id);
    static void checkDescriptionFile(const QString& xmlFile);
    static void checkNotLost(const DeviceParameterCollection& collection, const QString& id);
    QSharedPointer<CameraInfo> add(const QSharedPointer<CameraInfo>& info,
                                   const QSharedPointer<DeviceParameterCollection>& collection,
                                   const Origin& origin);

    QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>> m_devices;
    QHash<Plugin::CameraPool::IBaseInfo*, QSharedPointer<DeviceParameterCollection>> m_collections;
    QHash<Plugin::CameraPool::IBaseInfo*, Origin> m_origins;
    int m_simulatedCount = 0;
    int m_openTimeoutMs = 0;
    QPointer<DeviceParameterCollection> m_opening; // the collection that attaches now
};

} // namespace Backend
