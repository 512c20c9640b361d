#pragma once

#include <featuretree/ifeaturetreecontrolservice.h>

namespace Plugin {
namespace Nodescope {
namespace Internal {

// Passes the host's camera events on to every feature panel, unchanged.
class CFeatureTreeControlService : public Plugin::FeatureTree::IFeatureTreeControlService {
    Q_OBJECT
public:
    explicit CFeatureTreeControlService(QObject* parent = nullptr);
    ~CFeatureTreeControlService() override;

public Q_SLOTS:
    void registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override;
    void unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override;
    void setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override;
    void refreshFeatureTree() override;
    void setVisibility(GenApi::EVisibility visibility) override;
};

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
