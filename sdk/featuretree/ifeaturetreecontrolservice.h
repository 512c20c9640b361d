#pragma once

#include <camerapool/ibaseinfo.h>
#include <core/iservice.h>

#include <QSharedPointer>

namespace Plugin {
namespace FeatureTree {

// The channel through which the host tells the feature tree panels about its cameras. The
// host calls the slots; the panels listen to the signals. Signatures spell out the full types
// because the two sides connect by signature string.
class IFeatureTreeControlService : public Core::Service::IService {
    Q_OBJECT
public:
    // Registers the metatypes of the arguments (registerFeatureTreeMetaTypes()), so that
    // queued connections to the signals work without further set-up.
    explicit IFeatureTreeControlService(QObject* parent = nullptr);
    ~IFeatureTreeControlService() override;

public Q_SLOTS:
    virtual void registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) = 0;
    virtual void unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) = 0;
    virtual void setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) = 0;
    virtual void refreshFeatureTree() = 0;

Q_SIGNALS:
    void deviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void deviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void activeDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void featureTreeRefreshRequested();
    void pollingStateChanged(bool on);
};

} // namespace FeatureTree
} // namespace Plugin
