#pragma once

#include <core/cid.h>

#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QSharedPointer>

class QDockWidget;
class QListWidget;

namespace Backend {
class CameraPool;
} // namespace Backend
namespace Core {
namespace Plugin {
class IPluginInitializer;
} // namespace Plugin
namespace Service {
class IService;
} // namespace Service
} // namespace Core
namespace Plugin {
namespace AppCore {
class IDockPanelFactory;
} // namespace AppCore
namespace CameraPool {
class IBaseInfo;
} // namespace CameraPool
namespace FeatureTree {
class IFeatureTreeControlService;
} // namespace FeatureTree
} // namespace Plugin

namespace VantoViewer {

class FeatureInstantiationService;
class MenuService;
class WindowService;

// The host window: a dock per plug-in panel, the Devices dock with the open cameras, the
// Camera and Window menus and a status bar for the panels' messages.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // The id of the panel that opens by default; the plug-in's other panels start hidden.
    static constexpr char DEFAULT_PANEL_ID[] = "Nodescope.Widget.All";

    explicit MainWindow(QSharedPointer<Backend::CameraPool> pool, QWidget* parent = nullptr);
    ~MainWindow() override;

    // What the host offers the plug-ins: window, menus, panel factories, cameras.
    QList<QSharedPointer<Core::Service::IService>> hostServices() const;
    // After the plug-ins' initialize(): picks up their control and status services.
    void attachPluginServices(Core::Plugin::IPluginInitializer* initializer);

    // Lists the camera in the Devices dock and shows it in the panels.
    void addDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void removeDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);

    QDockWidget* panelDock(const Core::CId& panelId) const;
    QDockWidget* devicesDock() const;
    QSharedPointer<MenuService> menuService() const;
    QSharedPointer<WindowService> windowService() const;
    QSharedPointer<FeatureInstantiationService> instantiationService() const;

    // Panel widgets belong to the plug-ins' code; the host drops them before unloading.
    void removeAllPanels();

    // The window's size and dock layout, kept through the window service between runs.
    // Restore once the plug-ins' panels exist; saving happens when the window goes.
    void saveLayout();
    bool restoreLayout();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addPanel(const QPointer<Plugin::AppCore::IDockPanelFactory>& factory);
    void removePanel(const QPointer<Plugin::AppCore::IDockPanelFactory>& factory);
    void onDeviceSelected();

    QSharedPointer<Backend::CameraPool> m_pool;
    QSharedPointer<WindowService> m_windowService;
    QSharedPointer<MenuService> m_menuService;
    QSharedPointer<FeatureInstantiationService> m_instantiationService;
    QPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_controlService;
    QHash<Plugin::AppCore::IDockPanelFactory*, QDockWidget*> m_panelDocks; // children
    QDockWidget* m_devicesDock;                                            // child
    QListWidget* m_devices;                                                // child
    QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>> m_deviceInfos;
    bool m_layoutRestored = false; // the saved or first-shown layout is in place
};

} // namespace VantoViewer
