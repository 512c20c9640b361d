#pragma once

#include <core/alocalizedplugin.h>
#include <core/iplugininitializer.h>

#include <QMetaObject>
#include <QPointer>
#include <QSharedPointer>
#include <QSize>

class QQuickView;
class QWindow;

namespace Plugin {
namespace CameraPool {
class ICameraInfo;
class IDeviceParameterService;
} // namespace CameraPool

namespace Nodescope {

class CFeatureTreeWidgetFactory;

namespace Internal {
class CFeatureTreeStatusService;
class CFeatureTreeControlService;
class CFeatureTreeUseCaseService;
} // namespace Internal

// The plug-in's entry: offers the control, status and use case services, builds the feature
// tab editor window that all panels share and hands the host the six panel factories.
class CNodescopePlugin : public Core::Plugin::ALocalizedPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID VANTO_VIEWER_PLUGIN_IID FILE "../nodescope.json")
    Q_INTERFACES(Core::Plugin::IPlugin)
public:
    static const int USER_FACTORY_COUNT = 4;

    CNodescopePlugin();
    ~CNodescopePlugin() override;

    bool initialize(QPointer<Core::Plugin::IPluginInitializer> initializer) override;
    void postInitialize() override;
    bool unInitialize(QPointer<Core::Plugin::IPluginInitializer> initializer) override;

    // The options menu's size for a screen of that many logical dots per inch: 350 x 440 at 96.
    static QSize optionsMenuSize(double logicalDpi);

    // Inspection, for the host's diagnostics and for tests. Null outside initialize/unInitialize.
    QQuickView* optionsMenuView() const { return m_view; }
    CFeatureTreeWidgetFactory* allFeaturesFactory() const { return m_allFactory; }
    CFeatureTreeWidgetFactory* basicFeaturesFactory() const { return m_basicFactory; }
    CFeatureTreeWidgetFactory* userFeaturesFactory(int index) const;
    QSharedPointer<Internal::CFeatureTreeControlService> controlService() const
    {
        return m_controlService;
    }
    QSharedPointer<Internal::CFeatureTreeStatusService> statusService() const
    {
        return m_statusService;
    }
    QSharedPointer<Internal::CFeatureTreeUseCaseService> useCaseService() const
    {
        return m_useCaseService;
    }
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> deviceParameterService() const
    {
        return m_deviceParameterService;
    }

public Q_SLOTS:
    // The host connects its active camera window to this; the panels follow the camera.
    void onActiveWindowChanged(QSharedPointer<Plugin::CameraPool::ICameraInfo> ptrCameraInfo);
    void onFocusWindowChanged(QWindow* window);

private:
    void createOptionsMenuView();
    void createFactories();
    void injectServices();

    QPointer<Core::Plugin::IPluginInitializer> m_initializer;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_deviceParameterService;
    CFeatureTreeWidgetFactory* m_allFactory = nullptr;   // child, deleted in unInitialize()
    CFeatureTreeWidgetFactory* m_basicFactory = nullptr; // child, deleted in unInitialize()
    CFeatureTreeWidgetFactory* m_userFactories[USER_FACTORY_COUNT] = {};
    QSharedPointer<Internal::CFeatureTreeStatusService> m_statusService;
    QSharedPointer<Internal::CFeatureTreeControlService> m_controlService;
    QSharedPointer<Internal::CFeatureTreeUseCaseService> m_useCaseService;
    QQuickView* m_view = nullptr; // owned, lives as long as the plug-in
    QMetaObject::Connection m_focusConnection;
};

} // namespace Nodescope
} // namespace Plugin
