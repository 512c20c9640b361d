#pragma once

#include <camerapool/ibaseinfo.h>
#include <core/iservice.h>
#include <parametercollection/iparametercollection.h>

#include <QList>
#include <QSharedPointer>

namespace Plugin {
namespace CameraPool {

// The host's open cameras and their parameters.
class IDeviceParameterService : public Core::Service::IService {
    Q_OBJECT
public:
    using Core::Service::IService::IService;

    // Null when the camera is not open or has no parameters.
    virtual QSharedPointer<ParameterCollection::IParameterCollection>
    getParameterCollection(const QSharedPointer<IBaseInfo>& info) const = 0;
    virtual QList<QSharedPointer<IBaseInfo>> getOpenDevices() const = 0;

Q_SIGNALS:
    void deviceOpened(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void deviceClosed(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
};

} // namespace CameraPool
} // namespace Plugin
