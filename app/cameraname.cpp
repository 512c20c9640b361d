#include "cameraname.h"

#include <camerapool/ibaseinfo.h>

namespace VantoViewer {

QString CameraName::of(const Plugin::CameraPool::IBaseInfo& info)
{
    const QString name = info.getFriendlyName().trimmed();
    return name.isEmpty() ? info.getId() : name;
}

} // namespace VantoViewer
