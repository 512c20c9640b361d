#include "ifeaturetreestatusservice.h"

#include <featuretree/featuretreemetatypes.h>

namespace Plugin {
namespace FeatureTree {

IFeatureTreeStatusService::IFeatureTreeStatusService(QObject* parent)
    : Core::Service::IService(parent)
{
    registerFeatureTreeMetaTypes();
}

IFeatureTreeStatusService::~IFeatureTreeStatusService() = default;

} // namespace FeatureTree
} // namespace Plugin
