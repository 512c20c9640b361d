#include "featuretreestatusservice.h"

namespace Plugin {
namespace Nodescope {
namespace Internal {

CFeatureTreeStatusService::CFeatureTreeStatusService(QObject* parent)
    : Plugin::FeatureTree::IFeatureTreeStatusService(parent)
{}

CFeatureTreeStatusService::~CFeatureTreeStatusService() = default;

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
