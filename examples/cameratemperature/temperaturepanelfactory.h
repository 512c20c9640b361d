#pragma once

#include <appcore/idockpanelfactory.h>

#include <QPointer>
#include <QSharedPointer>

namespace Plugin {
namespace CameraPool {
class IDeviceParameterService;
}
namespace FeatureTree {
class IFeatureTreeControlService;
}
} // namespace Plugin

class TemperaturePanel;

// Makes the panel the first time the host shows it, and hands out the same one afterwards.
class TemperaturePanelFactory : public Plugin::AppCore::IDockPanelFactory {
    Q_OBJECT
public:
    TemperaturePanelFactory(QSharedPointer<Plugin::CameraPool::IDeviceParameterService> cameras,
                            QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> control,
                            QObject* parent = nullptr);
    ~TemperaturePanelFactory() override;

    Core::CId getId() const override;
    Plugin::AppCore::SDockPanelFactoryProduct createDockPanel() override;

private:
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_cameras;
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_control;
    QPointer<TemperaturePanel> m_panel; // owned by the host's dock once handed out
};
