#pragma once

#include <acquisition/iacquisition.h>
#include <camerapool/ibaseinfo.h>
#include <core/iservice.h>

#include <QSharedPointer>

namespace Plugin {
namespace Acquisition {

// Each open camera's acquisition.
class IAcquisitionService : public Core::Service::IService {
    Q_OBJECT
public:
    using Core::Service::IService::IService;

    // Null when the camera is not open, or it has no stream (a device without a stream
    // channel). The acquisition lives as long as the camera stays open.
    virtual IAcquisition*
    getAcquisition(const QSharedPointer<CameraPool::IBaseInfo>& info) const = 0;
};

} // namespace Acquisition
} // namespace Plugin
