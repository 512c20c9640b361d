#pragma once

#include <camerapool/ibaseinfo.h>
#include <core/iservice.h>
#include <genapi/genapitypes.h>

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
    // The host's visibility selector: every panel shows features up to this level from now on,
    // and cameras registered later open at it.
    virtual void setVisibility(GenApi::EVisibility visibility) = 0;
    // Selects the feature (full name, "@CameraDevice/Gain") in the camera's trees. A panel
    // whose level or filter hides it keeps its selection.
    virtual void selectFeature(QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                               QString fullName);

Q_SIGNALS:
    void deviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void deviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void activeDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void featureTreeRefreshRequested();
    void pollingStateChanged(bool on);
    void visibilityChangeRequested(GenApi::EVisibility visibility);
    void featureSelectionRequested(QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                   QString fullName);
};

} // namespace FeatureTree
} // namespace Plugin
