#include "featuretreecontrolservice.h"

namespace Plugin {
namespace Nodescope {
namespace Internal {

CFeatureTreeControlService::CFeatureTreeControlService(QObject* parent)
    : Plugin::FeatureTree::IFeatureTreeControlService(parent)
{}

CFeatureTreeControlService::~CFeatureTreeControlService() = default;

void CFeatureTreeControlService::registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    Q_EMIT deviceRegistered(info);
}

void CFeatureTreeControlService::unregisterDevice(
    QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    Q_EMIT deviceUnregistered(info);
}

void CFeatureTreeControlService::setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    Q_EMIT activeDeviceChanged(info);
}

void CFeatureTreeControlService::refreshFeatureTree()
{
    Q_EMIT featureTreeRefreshRequested();
}

void CFeatureTreeControlService::setVisibility(GenApi::EVisibility visibility)
{
    Q_EMIT visibilityChangeRequested(visibility);
}

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
