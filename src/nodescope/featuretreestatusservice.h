#pragma once

#include <featuretree/ifeaturetreestatusservice.h>

namespace Plugin {
namespace Nodescope {
namespace Internal {

// The panels' status channel to the host. The interface's signals are all it needs.
class CFeatureTreeStatusService : public Plugin::FeatureTree::IFeatureTreeStatusService {
    Q_OBJECT
public:
    explicit CFeatureTreeStatusService(QObject* parent = nullptr);
    ~CFeatureTreeStatusService() override;
};

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
