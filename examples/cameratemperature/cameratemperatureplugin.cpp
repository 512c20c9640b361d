#include "cameratemperatureplugin.h"

#include "temperaturepanelfactory.h"

#include <appcore/ifeatureinstantiationservice.h>
#include <camerapool/ideviceparameterservice.h>
#include <core/iplugininitializer.h>
#include <featuretree/ifeaturetreecontrolservice.h>

bool CameraTemperaturePlugin::initialize(QPointer<Core::Plugin::IPluginInitializer> initializer)
{
    // Only remember the registry here: other plug-ins offer their services in their own
    // initialize(), which may run after this one.
    m_initializer = initializer;
    return !m_initializer.isNull();
}

void CameraTemperaturePlugin::postInitialize()
{
    if (!m_initializer) {
        return;
    }
    const auto instantiation =
        m_initializer->getService<Plugin::AppCore::IFeatureInstantiationService>();
    const auto cameras = m_initializer->getService<Plugin::CameraPool::IDeviceParameterService>();
    // The feature browser's control service says which camera is active.
    const auto control =
        m_initializer->getService<Plugin::FeatureTree::IFeatureTreeControlService>();
    if (!instantiation || !cameras || !control) {
        qWarning("CameraTemperature: the host offers no camera services; no panel");
        return;
    }
    m_factory = new TemperaturePanelFactory(cameras, control, this);
    instantiation->registerFactory(m_factory.data());
}

bool CameraTemperaturePlugin::unInitialize(QPointer<Core::Plugin::IPluginInitializer> initializer)
{
    if (m_factory && initializer) {
        if (const auto instantiation =
                initializer->getService<Plugin::AppCore::IFeatureInstantiationService>()) {
            instantiation->unregisterFactory(m_factory.data());
        }
    }
    delete m_factory.data();
    return true;
}
