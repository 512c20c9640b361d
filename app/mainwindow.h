#pragma once

#include <core/cid.h>
#include <genapi/genapitypes.h>

#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QSharedPointer>

#include <functional>

class QAction;
class QDockWidget;
class QMenu;

namespace Backend {
class AcquisitionService;
class CameraInfo;
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

class ChangeJournal;
class ChangesPanel;
class DevicesPane;
class FeatureSetActions;
class FeatureInstantiationService;
class FeatureStatusBar;
class HistogramPanel;
class ImagePanel;
class MenuService;
class VisibilityToolBar;
class WindowService;

// The host window: a dock per plug-in panel, the Devices dock with the open cameras, the
// visibility tool bar, the Camera and Window menus and a status bar for the panels' messages.
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
    // Open through the pool and list; failures go to the status bar. Null on failure.
    QSharedPointer<Plugin::CameraPool::IBaseInfo> openCamera(const QString& idOrAddress);
    QSharedPointer<Plugin::CameraPool::IBaseInfo> openSimulatedCamera(const QString& xmlFile);
    // Unlists the camera, then closes it in the pool.
    void closeCamera(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    // Opens a lost camera again and shows the new one in its place, in the same row and in
    // the panels; while the camera is still gone, says so in the status bar and changes
    // nothing. Null on failure.
    QSharedPointer<Plugin::CameraPool::IBaseInfo>
    reconnectCamera(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);

    // The level the panels show; the tool bar's choice, kept between runs.
    GenApi::EVisibility visibility() const;
    void setVisibility(GenApi::EVisibility visibility);

    QDockWidget* panelDock(const Core::CId& panelId) const;
    // Shows and raises the panel with this id ("Nodescope.Widget.Basic") or title; null when
    // there is none.
    QDockWidget* showPanel(const QString& idOrTitle);
    QDockWidget* devicesDock() const;
    DevicesPane* devicesPane() const;
    ImagePanel* imagePanel() const { return m_imagePanel; }
    QDockWidget* histogramDock() const { return m_histogramDock; }
    // The feature panels' controls, once the plug-in is attached; null before.
    Plugin::FeatureTree::IFeatureTreeControlService* featureTreeControl() const;
    VisibilityToolBar* visibilityToolBar() const;
    FeatureStatusBar* featureStatusBar() const;
    FeatureSetActions* featureSetActions() const { return m_featureSets; }
    QSharedPointer<MenuService> menuService() const;
    QSharedPointer<WindowService> windowService() const;
    QSharedPointer<FeatureInstantiationService> instantiationService() const;
    // What the user wrote to each camera, with its undo stacks; the "Changes" panel shows it.
    ChangeJournal* changeJournal() const { return m_journal; }
    QDockWidget* changesDock() const { return m_changesDock; }

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
    QSharedPointer<Plugin::CameraPool::IBaseInfo>
    // Opens through `open` and lists the camera; a failure shows as `failure` ("... %1: %2")
    // with `subject` and the reason.
    openAndList(const std::function<QSharedPointer<Backend::CameraInfo>()>& open,
                const QString& failure, const QString& subject);
    // Shows and keeps the level without asking the panels: they reported it, or are asked next.
    bool showVisibility(GenApi::EVisibility visibility);
    // The level kept for the window or a panel, or -1 when none is kept.
    int storedLevel(const Core::CId& widgetId) const;
    void onActiveDeviceChanged(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void unregisterFromPanels(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void watchCollection(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info);
    void addContextMenuEntries();
    void createCameraActions();
    void createChangesPanel();
    // The panel's widget renamed it (a user tab); an empty title hides the panel.
    void retitlePanel(QDockWidget* dock, const QString& title);
    void createImagePanels();
    void createFeatureSetActions();

    QSharedPointer<Backend::CameraPool> m_pool;
    // Each open camera's acquisition, offered to the plug-ins next to the pool.
    QSharedPointer<Backend::AcquisitionService> m_acquisitionService;
    QSharedPointer<WindowService> m_windowService;
    QSharedPointer<MenuService> m_menuService;
    QSharedPointer<FeatureInstantiationService> m_instantiationService;
    QPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_controlService;
    QHash<Plugin::AppCore::IDockPanelFactory*, QDockWidget*> m_panelDocks; // children
    QDockWidget* m_devicesDock;                                            // child
    DevicesPane* m_devicesPane;                                            // child
    VisibilityToolBar* m_visibilityToolBar;                                // child
    FeatureStatusBar* m_statusBar;                                         // child
    ImagePanel* m_imagePanel = nullptr;                                    // child
    HistogramPanel* m_histogramPanel = nullptr;                            // child
    QDockWidget* m_histogramDock = nullptr;                                // child
    QAction* m_refreshAction = nullptr;                                    // child
    QAction* m_closeAction = nullptr;                                      // child
    ChangeJournal* m_journal = nullptr;                                    // child
    QDockWidget* m_changesDock = nullptr;                                  // child
    FeatureSetActions* m_featureSets = nullptr;                            // child
    QPointer<QMenu> m_contextMenuWithEntries; // the shared tree menu that has our entries
    bool m_layoutRestored = false;            // the saved or first-shown layout is in place
    bool m_reconnecting = false;     // the event loop runs while a camera opens; one at a time
    bool m_visibilityStored = false; // the level shown is one kept from an earlier run
};

} // namespace VantoViewer
