#pragma once

#include <camerapool/ibaseinfo.h>

namespace Plugin {
namespace CameraPool {

class ICameraInfo : public IBaseInfo {
public:
    // True for a device of the GigE Vision transport layer.
    virtual bool isGigE() const = 0;
    // The name the user reads for a node map that belongs to the device itself
    // ("CameraDevice", "Interface"); the node map name for any other.
    virtual QString getNodeMapDisplayName(const QString& nodeMapName) const = 0;
};

using CameraInfoPtr = QSharedPointer<ICameraInfo>;

} // namespace CameraPool
} // namespace Plugin

Q_DECLARE_METATYPE(Plugin::CameraPool::CameraInfoPtr)
