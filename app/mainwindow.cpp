#include "mainwindow.h"

#include "featureinstantiationservice.h"
#include "menuservice.h"
#include "windowservice.h"

#include <appcore/appcoreconstants.h>
#include <appcore/idockpanelfactory.h>
#include <camerapool.h>
#include <core/iplugininitializer.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <featuretree/ifeaturetreestatusservice.h>

#include <QAction>
#include <QDockWidget>
#include <QListWidget>
#include <QMenuBar>
#include <QShowEvent>
#include <QStatusBar>

namespace VantoViewer {

namespace {
constexpr int DEFAULT_WIDTH = 1000;
constexpr int DEFAULT_HEIGHT = 700;
constexpr int DEVICES_WIDTH = 300;
constexpr char LAYOUT_ID[] = "VantoViewer.MainWindow";
// Bumped when the docks change so that an old layout is not forced onto new docks.
constexpr int LAYOUT_VERSION = 1;
} // namespace

MainWindow::MainWindow(QSharedPointer<Backend::CameraPool> pool, QWidget* parent)
    : QMainWindow(parent), m_pool(std::move(pool)),
      m_windowService(QSharedPointer<WindowService>::create(this)),
      m_menuService(QSharedPointer<MenuService>::create(menuBar())),
      m_instantiationService(QSharedPointer<FeatureInstantiationService>::create()),
      m_devicesDock(new QDockWidget(tr("Devices"), this)), m_devices(new QListWidget(m_devicesDock))
{
    setObjectName(QStringLiteral("VantoViewerMainWindow"));
    setWindowTitle(tr("Vanto Viewer"));
    resize(DEFAULT_WIDTH, DEFAULT_HEIGHT);
    setDockNestingEnabled(true);

    m_devices->setObjectName(QStringLiteral("deviceList"));
    m_devicesDock->setObjectName(QStringLiteral("VantoViewer.Devices"));
    m_devicesDock->setWidget(m_devices);
    m_devicesDock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetClosable);
    addDockWidget(Qt::LeftDockWidgetArea, m_devicesDock);
    connect(m_devices, &QListWidget::currentRowChanged, this, &MainWindow::onDeviceSelected);
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.Devices")), m_devicesDock->toggleViewAction(),
        Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS),
        Plugin::AppCore::CContext(Core::CId(Plugin::AppCore::Constants::C_GLOBAL_CONTEXT)));

    statusBar()->showMessage(tr("Ready"));

    connect(m_instantiationService.data(), &FeatureInstantiationService::factoryRegistered, this,
            &MainWindow::addPanel);
    connect(m_instantiationService.data(), &FeatureInstantiationService::factoryUnregistered, this,
            &MainWindow::removePanel);
}

MainWindow::~MainWindow()
{
    saveLayout();
    removeAllPanels();
}

void MainWindow::saveLayout()
{
    // Only a window with its panels has a layout worth keeping.
    if (m_panelDocks.isEmpty()) {
        return;
    }
    m_windowService->saveState(Core::CId(LAYOUT_ID), QStringLiteral("Geometry"), saveGeometry());
    m_windowService->saveState(Core::CId(LAYOUT_ID), QStringLiteral("State"),
                               saveState(LAYOUT_VERSION));
}

bool MainWindow::restoreLayout()
{
    const QByteArray geometry =
        m_windowService->restoreState(Core::CId(LAYOUT_ID), QStringLiteral("Geometry"), QVariant())
            .toByteArray();
    const QByteArray state =
        m_windowService->restoreState(Core::CId(LAYOUT_ID), QStringLiteral("State"), QVariant())
            .toByteArray();
    if (!geometry.isEmpty()) {
        restoreGeometry(geometry);
    }
    m_layoutRestored = !state.isEmpty() && restoreState(state, LAYOUT_VERSION);
    return m_layoutRestored;
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_layoutRestored || m_panelDocks.isEmpty()) {
        return;
    }
    m_layoutRestored = true;
    // The feature tree needs the room; the camera list only shows names. Sizes apply only
    // once the docks are laid out, hence after showing.
    QDockWidget* panel = panelDock(Core::CId(DEFAULT_PANEL_ID));
    if (panel) {
        resizeDocks({m_devicesDock, panel}, {DEVICES_WIDTH, width() - DEVICES_WIDTH},
                    Qt::Horizontal);
    }
}

QList<QSharedPointer<Core::Service::IService>> MainWindow::hostServices() const
{
    QList<QSharedPointer<Core::Service::IService>> services{m_windowService, m_menuService,
                                                            m_instantiationService};
    if (m_pool) {
        services.append(m_pool);
    }
    return services;
}

void MainWindow::attachPluginServices(Core::Plugin::IPluginInitializer* initializer)
{
    if (!initializer) {
        return;
    }
    m_controlService =
        initializer->getService<Plugin::FeatureTree::IFeatureTreeControlService>().data();
    const auto status = initializer->getService<Plugin::FeatureTree::IFeatureTreeStatusService>();
    if (status) {
        QStatusBar* bar = statusBar();
        connect(status.data(), &Plugin::FeatureTree::IFeatureTreeStatusService::newText, bar,
                [bar](const QString& text) { bar->showMessage(text); });
    }
    for (const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info : qAsConst(m_deviceInfos)) {
        if (m_controlService) {
            m_controlService->registerDevice(info);
        }
    }
    onDeviceSelected();
}

void MainWindow::addDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || m_deviceInfos.contains(info)) {
        return;
    }
    m_deviceInfos.append(info);
    auto* item = new QListWidgetItem(info->getFriendlyName(), m_devices);
    item->setToolTip(info->getDeviceText());
    if (m_controlService) {
        m_controlService->registerDevice(info);
    }
    // A newly opened camera is the one the user wants to see.
    m_devices->setCurrentItem(item);
    onDeviceSelected();
}

void MainWindow::removeDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    const int row = m_deviceInfos.indexOf(info);
    if (row < 0) {
        return;
    }
    if (m_controlService) {
        m_controlService->unregisterDevice(info);
    }
    m_deviceInfos.removeAt(row);
    const QSignalBlocker blocker(m_devices);
    delete m_devices->takeItem(row);
    m_devices->setCurrentRow(-1);
    if (m_controlService) {
        m_controlService->setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>());
    }
}

void MainWindow::onDeviceSelected()
{
    if (!m_controlService) {
        return;
    }
    const int row = m_devices->currentRow();
    m_controlService->setActiveDevice(row >= 0 && row < m_deviceInfos.size()
                                          ? m_deviceInfos.at(row)
                                          : QSharedPointer<Plugin::CameraPool::IBaseInfo>());
}

QDockWidget* MainWindow::panelDock(const Core::CId& panelId) const
{
    for (QDockWidget* dock : m_panelDocks) {
        if (dock->objectName() == panelId.toString()) {
            return dock;
        }
    }
    return nullptr;
}

QDockWidget* MainWindow::devicesDock() const
{
    return m_devicesDock;
}

QSharedPointer<MenuService> MainWindow::menuService() const
{
    return m_menuService;
}

QSharedPointer<WindowService> MainWindow::windowService() const
{
    return m_windowService;
}

QSharedPointer<FeatureInstantiationService> MainWindow::instantiationService() const
{
    return m_instantiationService;
}

void MainWindow::addPanel(const QPointer<Plugin::AppCore::IDockPanelFactory>& factory)
{
    if (!factory || m_panelDocks.contains(factory.data())) {
        return;
    }
    const Plugin::AppCore::SDockPanelFactoryProduct product = factory->createDockPanel();
    if (!product.widget) {
        return;
    }
    auto* dock = new QDockWidget(product.title, this);
    dock->setObjectName(product.id.toString());
    dock->setWindowIcon(product.icon);
    QDockWidget::DockWidgetFeatures features = QDockWidget::DockWidgetMovable;
    if (product.dockFeatures & Plugin::AppCore::SDockPanelFactoryProduct::ClosableDockFeature) {
        features |= QDockWidget::DockWidgetClosable;
    }
    dock->setFeatures(features);
    dock->setWidget(product.widget);
    // The panels share the right side as tabs; the camera list keeps the left.
    const QList<QDockWidget*> existing = m_panelDocks.values();
    addDockWidget(Qt::RightDockWidgetArea, dock);
    for (QDockWidget* other : existing) {
        if (dockWidgetArea(other) == Qt::RightDockWidgetArea) {
            tabifyDockWidget(other, dock);
            break;
        }
    }
    m_panelDocks.insert(factory.data(), dock);
    const bool isDefault = product.id == Core::CId(DEFAULT_PANEL_ID);
    dock->setVisible(isDefault);
    if (isDefault) {
        dock->raise();
    }
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.") + product.id.toString()),
        dock->toggleViewAction(), Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS),
        Plugin::AppCore::CContext(Core::CId(Plugin::AppCore::Constants::C_GLOBAL_CONTEXT)));
    connect(factory.data(), &QObject::destroyed, dock,
            [this, dock]() { m_panelDocks.remove(m_panelDocks.key(dock)); });
}

void MainWindow::removePanel(const QPointer<Plugin::AppCore::IDockPanelFactory>& factory)
{
    QDockWidget* dock = m_panelDocks.take(factory.data());
    if (dock) {
        m_menuService->removeAction(
            Core::CId(QStringLiteral("VantoViewer.Window.") + dock->objectName()));
        removeDockWidget(dock);
        delete dock;
    }
}

void MainWindow::removeAllPanels()
{
    const QList<QDockWidget*> docks = m_panelDocks.values();
    m_panelDocks.clear();
    for (QDockWidget* dock : docks) {
        m_menuService->removeAction(
            Core::CId(QStringLiteral("VantoViewer.Window.") + dock->objectName()));
        delete dock;
    }
}

} // namespace VantoViewer
