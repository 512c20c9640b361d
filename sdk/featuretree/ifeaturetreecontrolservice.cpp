#include "ifeaturetreecontrolservice.h"

#include <featuretree/featuretreemetatypes.h>

namespace Plugin {
namespace FeatureTree {

IFeatureTreeControlService::IFeatureTreeControlService(QObject* parent)
    : Core::Service::IService(parent)
{
    registerFeatureTreeMetaTypes();
}

IFeatureTreeControlService::~IFeatureTreeControlService() = default;

void IFeatureTreeControlService::selectFeature(QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                               QString fullName)
{
    Q_EMIT featureSelectionRequested(info, fullName);
}

} // namespace FeatureTree
} // namespace Plugin
