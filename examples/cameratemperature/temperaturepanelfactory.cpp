#include "temperaturepanelfactory.h"

#include "temperaturepanel.h"

#include <camerapool/ideviceparameterservice.h>
#include <featuretree/ifeaturetreecontrolservice.h>

TemperaturePanelFactory::TemperaturePanelFactory(
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> cameras,
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> control, QObject* parent)
    : Plugin::AppCore::IDockPanelFactory(parent), m_cameras(std::move(cameras)),
      m_control(std::move(control))
{}

TemperaturePanelFactory::~TemperaturePanelFactory()
{
    // A panel the host never took is still ours.
    if (m_panel && !m_panel->parent()) {
        delete m_panel.data();
    }
}

Core::CId TemperaturePanelFactory::getId() const
{
    return Core::CId("Example.Widget.CameraTemperature");
}

Plugin::AppCore::SDockPanelFactoryProduct TemperaturePanelFactory::createDockPanel()
{
    if (!m_panel) {
        m_panel = new TemperaturePanel(m_cameras);
        connect(m_control.data(),
                &Plugin::FeatureTree::IFeatureTreeControlService::activeDeviceChanged,
                m_panel.data(), &TemperaturePanel::setCamera);
    }
    Plugin::AppCore::SDockPanelFactoryProduct product;
    product.widget = m_panel.data();
    product.title = tr("Camera Temperature");
    product.id = getId();
    return product;
}
