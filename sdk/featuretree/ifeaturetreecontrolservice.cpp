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

} // namespace FeatureTree
} // namespace Plugin
