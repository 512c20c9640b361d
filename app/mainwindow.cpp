#include "mainwindow.h"

#include "acquisitionactions.h"
#include "cameraname.h"
#include "changejournal.h"
#include "changespanel.h"
#include "devicespane.h"
#include "featureinstantiationservice.h"
#include "featuresetactions.h"
#include "featurestatusbar.h"
#include "histogrampanel.h"
#include "imagepanel.h"
#include "menuservice.h"
#include "openingprogress.h"
#include "visibilitytoolbar.h"
#include "windowservice.h"

#include <acquisitionservice.h>
#include <appcore/appcoreconstants.h>
#include <acquisitionservice.h>
#include <appcore/idockpanelfactory.h>
#include <camerapool.h>
#include <core/iplugininitializer.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <featuretree/ifeaturetreestatusservice.h>
#include <parametercollection/exception.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QShowEvent>
#include <QToolBar>

#include <algorithm>

namespace VantoViewer {

namespace {
constexpr int DEFAULT_WIDTH = 1280;
constexpr int DEFAULT_HEIGHT = 800;
// The Devices pane shows names only; the feature panels need room for names and values.
constexpr int DEVICES_MIN_WIDTH = 220;
constexpr int DEVICES_MAX_WIDTH = 300;
constexpr int FEATURES_MIN_WIDTH = 380;
constexpr int FEATURES_MAX_WIDTH = 560;
constexpr int HISTOGRAM_HEIGHT = 220;
constexpr char LAYOUT_ID[] = "VantoViewer.MainWindow";
constexpr char VISIBILITY_KEY[] = "Visibility";
// Bumped when the docks change so that an old layout is not forced onto new docks.
constexpr int LAYOUT_VERSION = 3;

Plugin::AppCore::CContext globalContext()
{
    return Plugin::AppCore::CContext(Core::CId(Plugin::AppCore::Constants::C_GLOBAL_CONTEXT));
}
} // namespace

MainWindow::MainWindow(QSharedPointer<Backend::CameraPool> pool, QWidget* parent)
    : QMainWindow(parent), m_pool(std::move(pool)),
      m_windowService(QSharedPointer<WindowService>::create(this)),
      m_menuService(QSharedPointer<MenuService>::create(menuBar())),
      m_instantiationService(QSharedPointer<FeatureInstantiationService>::create()),
      m_devicesDock(new QDockWidget(tr("Devices"), this)),
      m_devicesPane(new DevicesPane(m_devicesDock)),
      m_visibilityToolBar(new VisibilityToolBar(this)), m_statusBar(new FeatureStatusBar(this))
{
    if (m_pool) {
        m_acquisitionService = QSharedPointer<Backend::AcquisitionService>::create(m_pool.data());
    }
    setObjectName(QStringLiteral("VantoViewerMainWindow"));
    setWindowTitle(tr("Vanto Viewer"));
    resize(DEFAULT_WIDTH, DEFAULT_HEIGHT);
    setDockNestingEnabled(true);
    setStatusBar(m_statusBar);

    m_devicesDock->setObjectName(QStringLiteral("VantoViewer.Devices"));
    m_devicesDock->setWidget(m_devicesPane);
    m_devicesDock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetClosable);
    addDockWidget(Qt::LeftDockWidgetArea, m_devicesDock);
    connect(m_devicesPane, &DevicesPane::activeDeviceChanged, this,
            &MainWindow::onActiveDeviceChanged);
    connect(m_devicesPane, &DevicesPane::openRequested, this, &MainWindow::openCamera);
    connect(m_devicesPane, &DevicesPane::openSimulatedRequested, this,
            &MainWindow::openSimulatedCamera);
    connect(m_devicesPane, &DevicesPane::closeRequested, this, &MainWindow::closeCamera);
    connect(m_devicesPane, &DevicesPane::reconnectRequested, this, &MainWindow::reconnectCamera);
    connect(m_devicesPane, &DevicesPane::scanFinished, this, [this](int found) {
        m_statusBar->showMessage(tr("%n camera(s) found", nullptr, found));
    });
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.Devices")), m_devicesDock->toggleViewAction(),
        Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS), globalContext());

    addToolBar(Qt::TopToolBarArea, m_visibilityToolBar);
    const int level = storedLevel(Core::CId(LAYOUT_ID));
    if (level >= 0) {
        m_visibilityToolBar->setLevel(static_cast<GenApi::EVisibility>(level));
        m_visibilityStored = true;
    }
    connect(m_windowService.data(), &WindowService::settingsNotSaved, m_statusBar,
            [this](const QString& file, const QString& reason) {
                m_statusBar->showError(
                    tr("Settings cannot be saved to %1: %2. Changes to the layout and the "
                       "visibility level are lost when the viewer closes.")
                        .arg(file, reason));
            });
    connect(m_visibilityToolBar, &VisibilityToolBar::levelChosen, this, &MainWindow::setVisibility);
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.VisibilityToolBar")),
        m_visibilityToolBar->toggleViewAction(), Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS), globalContext());
    createCameraActions();
    createChangesPanel();
    createImagePanels();

    m_statusBar->showMessage(tr("Ready"));

    connect(m_instantiationService.data(), &FeatureInstantiationService::factoryRegistered, this,
            &MainWindow::addPanel);
    connect(m_instantiationService.data(), &FeatureInstantiationService::factoryUnregistered, this,
            &MainWindow::removePanel);
}

void MainWindow::createCameraActions()
{
    auto* openAddress = new QAction(tr("Open Camera by IP Address or ID..."), this);
    connect(openAddress, &QAction::triggered, m_devicesPane, [this]() {
        if (QAction* action =
                m_devicesPane->findChild<QAction*>(QStringLiteral("openByAddressAction"))) {
            action->trigger();
        }
    });
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Camera.OpenByAddress")),
                             openAddress, Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                             Core::CId(Plugin::AppCore::Constants::G_CAMERA_DEVICES),
                             globalContext());
    auto* openSimulated = new QAction(tr("Open Built-in Simulated Camera"), this);
    connect(openSimulated, &QAction::triggered, this, [this]() { openSimulatedCamera(QString()); });
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Camera.OpenSimulated")),
                             openSimulated, Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                             Core::CId(Plugin::AppCore::Constants::G_CAMERA_DEVICES),
                             globalContext());
    auto* openFile = new QAction(tr("Open Simulated Camera from GenICam File..."), this);
    connect(openFile, &QAction::triggered, m_devicesPane, [this]() {
        if (QAction* action =
                m_devicesPane->findChild<QAction*>(QStringLiteral("openFromFileAction"))) {
            action->trigger();
        }
    });
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Camera.OpenFromFile")), openFile,
                             Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                             Core::CId(Plugin::AppCore::Constants::G_CAMERA_DEVICES),
                             globalContext());
    m_closeAction = new QAction(tr("Close Camera"), this);
    m_closeAction->setEnabled(false);
    connect(m_closeAction, &QAction::triggered, this,
            [this]() { closeCamera(m_devicesPane->activeDevice()); });
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Camera.Close")), m_closeAction,
                             Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                             Core::CId(Plugin::AppCore::Constants::G_CAMERA_DEVICES),
                             globalContext());
    m_refreshAction = new QAction(tr("Refresh Features"), this);
    m_refreshAction->setObjectName(QStringLiteral("VantoViewer.Camera.Refresh"));
    m_refreshAction->setStatusTip(tr("Reads every shown feature from the camera again"));
    m_refreshAction->setEnabled(false);
    connect(m_refreshAction, &QAction::triggered, this, [this]() {
        if (m_controlService) {
            m_controlService->refreshFeatureTree();
        }
    });
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Camera.Refresh")),
                             m_refreshAction, Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                             Core::CId(Plugin::AppCore::Constants::G_CAMERA_FEATURES),
                             globalContext());
    createFeatureSetActions();
}

void MainWindow::createFeatureSetActions()
{
    m_featureSets = new FeatureSetActions(
        m_pool, [this]() { return m_devicesPane->devices(); }, this);
    connect(m_featureSets, &FeatureSetActions::message, m_statusBar,
            [this](const QString& text) { m_statusBar->showMessage(text); });
    connect(m_featureSets, &FeatureSetActions::failed, m_statusBar, &FeatureStatusBar::showError);
    const QList<QPair<const char*, QAction*>> actions = {
        {"VantoViewer.Camera.SaveFeatures", m_featureSets->saveAction()},
        {"VantoViewer.Camera.LoadFeatures", m_featureSets->loadAction()},
        {"VantoViewer.Camera.CompareFeatures", m_featureSets->compareAction()}};
    for (const auto& action : actions) {
        action.second->setObjectName(QLatin1String(action.first));
        m_menuService->addAction(Core::CId(QLatin1String(action.first)), action.second,
                                 Core::CId(Plugin::AppCore::Constants::M_CAMERA),
                                 Core::CId(Plugin::AppCore::Constants::G_CAMERA_FEATURES),
                                 globalContext());
    }
}

void MainWindow::createChangesPanel()
{
    m_journal = new ChangeJournal(this);
    m_changesDock = new QDockWidget(tr("Changes"), this);
    m_changesDock->setObjectName(QStringLiteral("VantoViewer.Changes"));
    m_changesDock->setWidget(new ChangesPanel(m_journal, m_changesDock));
    m_changesDock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetClosable);
    addDockWidget(Qt::BottomDockWidgetArea, m_changesDock);
    m_changesDock->hide();
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.Changes")), m_changesDock->toggleViewAction(),
        Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS), globalContext());
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Edit.Undo")),
                             m_journal->undoAction(), Core::CId(MenuService::EDIT_MENU),
                             Core::CId(MenuService::EDIT_UNDO_GROUP), globalContext());
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Edit.Redo")),
                             m_journal->redoAction(), Core::CId(MenuService::EDIT_MENU),
                             Core::CId(MenuService::EDIT_UNDO_GROUP), globalContext());
    // The shortcuts work while the menu bar is hidden or the window has no menu bar.
    addAction(m_journal->undoAction());
    addAction(m_journal->redoAction());
    connect(m_journal, &ChangeJournal::applied, m_statusBar,
            [this](const QString& text) { m_statusBar->showMessage(text); });
    connect(m_journal, &ChangeJournal::refused, m_statusBar, &FeatureStatusBar::showError);
    // A loaded feature set is one step, taken back as a whole.
    connect(m_featureSets, &FeatureSetActions::featureSetLoaded, m_journal,
            [this](const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info,
                   const Backend::FeatureSetTransfer::LoadReport& report,
                   const QString& source) { m_journal->recordLoad(info, source, report); });
}

void MainWindow::createImagePanels()
{
    m_imagePanel = new ImagePanel(this);
    m_imagePanel->setServices(m_acquisitionService.data(), m_pool.data());
    setCentralWidget(m_imagePanel);
    // The acquisition's tool bar sits in the window's tool bar row, where it has the room.
    addToolBar(Qt::TopToolBarArea, m_imagePanel->toolBar());
    m_menuService->addAction(Core::CId(QStringLiteral("VantoViewer.Window.ImageToolBar")),
                             m_imagePanel->toolBar()->toggleViewAction(),
                             Core::CId(Plugin::AppCore::Constants::M_WINDOW),
                             Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS),
                             globalContext());

    m_histogramDock = new QDockWidget(tr("Histogram"), this);
    m_histogramDock->setObjectName(QStringLiteral("VantoViewer.Histogram"));
    m_histogramDock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetClosable);
    m_histogramPanel = new HistogramPanel(m_histogramDock);
    m_histogramDock->setWidget(m_histogramPanel);
    addDockWidget(Qt::RightDockWidgetArea, m_histogramDock);
    connect(m_imagePanel, &ImagePanel::histogramChanged, m_histogramPanel,
            &HistogramPanel::setHistogram);
    connect(m_imagePanel, &ImagePanel::histogramCleared, m_histogramPanel, &HistogramPanel::clear);
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.Histogram")),
        m_histogramDock->toggleViewAction(), Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS), globalContext());

    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Camera.SaveImage")), m_imagePanel->saveImageAction(),
        Core::CId(Plugin::AppCore::Constants::M_CAMERA),
        Core::CId(Plugin::AppCore::Constants::G_CAMERA_FEATURES), globalContext());
    auto* acquisitionMenu = new QMenu(tr("&Acquisition"), menuBar());
    acquisitionMenu->setObjectName(QStringLiteral("VantoViewer.Menu.Acquisition"));
    acquisitionMenu->addActions(m_imagePanel->acquisitionActions()->actions());
    acquisitionMenu->addSeparator();
    acquisitionMenu->addAction(m_imagePanel->fitAction());
    acquisitionMenu->addAction(m_imagePanel->actualSizeAction());
    QMenu* windowMenu = m_menuService->menu(Core::CId(Plugin::AppCore::Constants::M_WINDOW));
    menuBar()->insertMenu(windowMenu ? windowMenu->menuAction() : nullptr, acquisitionMenu);
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
    // A panel whose tab lost its name since has nothing to show.
    for (QDockWidget* dock : qAsConst(m_panelDocks)) {
        if (dock->windowTitle().isEmpty()) {
            dock->hide();
        }
    }
    return m_layoutRestored;
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_layoutRestored || m_panelDocks.isEmpty()) {
        return;
    }
    m_layoutRestored = true;
    // The image takes the centre; the feature tree needs the room at the right, the histogram
    // below it, and the camera list only shows names. Sizes apply only once the docks are laid
    // out, hence after showing.
    QDockWidget* panel = panelDock(Core::CId(DEFAULT_PANEL_ID));
    if (panel) {
        // Below the panels' tabs as a whole: a split beside one tab would only add a tab.
        removeDockWidget(m_histogramDock);
        addDockWidget(Qt::RightDockWidgetArea, m_histogramDock, Qt::Vertical);
        m_histogramDock->show();
        const int devicesWidth = std::clamp(width() * 4 / 25, DEVICES_MIN_WIDTH, DEVICES_MAX_WIDTH);
        const int featuresWidth =
            std::clamp(width() * 3 / 10, FEATURES_MIN_WIDTH, FEATURES_MAX_WIDTH);
        resizeDocks({m_devicesDock, panel}, {devicesWidth, featuresWidth}, Qt::Horizontal);
        resizeDocks({panel, m_histogramDock}, {height() - HISTOGRAM_HEIGHT, HISTOGRAM_HEIGHT},
                    Qt::Vertical);
    }
}

QList<QSharedPointer<Core::Service::IService>> MainWindow::hostServices() const
{
    QList<QSharedPointer<Core::Service::IService>> services{m_windowService, m_menuService,
                                                            m_instantiationService};
    if (m_pool) {
        services.append(m_pool);
        services.append(m_acquisitionService);
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
    m_featureSets->setControlService(m_controlService);
    using Plugin::FeatureTree::IFeatureTreeStatusService;
    const auto status = initializer->getService<IFeatureTreeStatusService>();
    if (status) {
        connect(status.data(), &IFeatureTreeStatusService::newText, m_statusBar,
                [this](const QString& text) {
                    m_statusBar->showMessage(FeatureStatusBar::withoutRepeatedName(text));
                });
        connect(status.data(), &IFeatureTreeStatusService::currentChanged, m_statusBar,
                &FeatureStatusBar::showFeature);
        // A level the panels chose themselves shows on the tool bar and is the one kept.
        connect(status.data(), &IFeatureTreeStatusService::visibilityChanged, this,
                &MainWindow::showVisibility);
    }
    for (const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info : m_devicesPane->devices()) {
        if (m_controlService) {
            m_controlService->registerDevice(info);
        }
    }
    onActiveDeviceChanged(m_devicesPane->activeDevice());
}

void MainWindow::addDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || m_devicesPane->devices().contains(info)) {
        return;
    }
    watchCollection(info);
    if (m_controlService) {
        m_controlService->registerDevice(info);
    }
    // Listing makes it the active camera.
    m_devicesPane->addDevice(info);
}

void MainWindow::removeDevice(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || !m_devicesPane->devices().contains(info)) {
        return;
    }
    unregisterFromPanels(info);
    m_journal->removeCamera(info);
    if (m_pool) {
        if (const auto collection = m_pool->getParameterCollection(info)) {
            disconnect(collection.data(), nullptr, this, nullptr);
            disconnect(collection.data(), nullptr, m_statusBar, nullptr);
        }
    }
    // Tells the panels when the camera was the active one.
    m_devicesPane->removeDevice(info);
}

QSharedPointer<Plugin::CameraPool::IBaseInfo> MainWindow::openCamera(const QString& idOrAddress)
{
    if (!m_pool || idOrAddress.trimmed().isEmpty()) {
        return {};
    }
    return openAndList([&]() { return m_pool->openDevice(idOrAddress); }, tr("Cannot open %1: %2"),
                       idOrAddress);
}

QSharedPointer<Plugin::CameraPool::IBaseInfo>
MainWindow::openSimulatedCamera(const QString& xmlFile)
{
    if (!m_pool) {
        return {};
    }
    return openAndList([&]() { return m_pool->openSimulated(xmlFile); },
                       tr("Cannot simulate %1: %2"),
                       xmlFile.isEmpty() ? tr("the built-in camera") : xmlFile);
}

QSharedPointer<Plugin::CameraPool::IBaseInfo>
MainWindow::openAndList(const std::function<QSharedPointer<Backend::CameraInfo>()>& open,
                        const QString& failure, const QString& subject)
{
    if (m_pool->isOpening()) {
        return {};
    }
    try {
        QSharedPointer<Plugin::CameraPool::IBaseInfo> info;
        {
            const OpeningProgress progress(this, tr("Opening %1...").arg(subject),
                                           [pool = m_pool]() { pool->cancelOpening(); });
            info = open();
        }
        addDevice(info);
        m_statusBar->clearError();
        return info;
    } catch (const ParameterCollection::Exception& e) {
        m_statusBar->showError(failure.arg(subject, e.text()));
    }
    return {};
}

void MainWindow::closeCamera(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info) {
        return;
    }
    removeDevice(info);
    if (m_pool) {
        m_pool->close(info);
    }
}

QSharedPointer<Plugin::CameraPool::IBaseInfo>
MainWindow::reconnectCamera(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || !m_pool || m_reconnecting || m_pool->isOpening() ||
        !m_devicesPane->isMarkedLost(info)) {
        return {};
    }
    const QString name = CameraName::of(*info);
    QSharedPointer<Plugin::CameraPool::IBaseInfo> fresh;
    m_reconnecting = true;
    try {
        const OpeningProgress progress(this, tr("Opening %1...").arg(name),
                                       [pool = m_pool]() { pool->cancelOpening(); });
        fresh = m_pool->reopen(info);
    } catch (const ParameterCollection::Exception& e) {
        m_statusBar->showError(tr("Cannot reconnect %1: %2").arg(name, e.message()));
    }
    m_reconnecting = false;
    if (!fresh) {
        return {};
    }
    // The panels let go of the lost camera before they get the new one, so that they never
    // show both; the row keeps its place.
    unregisterFromPanels(info);
    if (const auto old = m_pool->getParameterCollection(info)) {
        disconnect(old.data(), nullptr, this, nullptr);
        disconnect(old.data(), nullptr, m_statusBar, nullptr);
    }
    m_journal->replaceCamera(info, fresh, m_pool->getParameterCollection(fresh));
    watchCollection(fresh);
    if (m_controlService) {
        m_controlService->registerDevice(fresh);
    }
    // Tells the panels when the camera was the active one.
    m_devicesPane->replaceDevice(info, fresh);
    // Its device thread may still hang in the old connection; the pool does not wait for it.
    m_pool->close(info);
    m_statusBar->clearError();
    m_statusBar->showMessage(tr("%1 is connected again").arg(CameraName::of(*fresh)));
    return fresh;
}

int MainWindow::storedLevel(const Core::CId& widgetId) const
{
    bool ok = false;
    const int level =
        m_windowService->restoreState(widgetId, QLatin1String(VISIBILITY_KEY), QVariant())
            .toInt(&ok);
    return ok && level >= GenApi::Beginner && level <= GenApi::Guru ? level : -1;
}

GenApi::EVisibility MainWindow::visibility() const
{
    return m_visibilityToolBar->level();
}

void MainWindow::setVisibility(GenApi::EVisibility visibility)
{
    if (showVisibility(visibility) && m_controlService) {
        m_controlService->setVisibility(visibility);
    }
}

bool MainWindow::showVisibility(GenApi::EVisibility visibility)
{
    if (visibility < GenApi::Beginner || visibility > GenApi::Guru) {
        return false;
    }
    m_visibilityToolBar->setLevel(visibility);
    m_windowService->saveState(Core::CId(LAYOUT_ID), QLatin1String(VISIBILITY_KEY),
                               int(visibility));
    return true;
}

void MainWindow::onActiveDeviceChanged(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    m_closeAction->setEnabled(!info.isNull());
    m_refreshAction->setEnabled(!info.isNull());
    m_imagePanel->setActiveDevice(info);
    m_featureSets->setCamera(info);
    if (!info) {
        m_statusBar->showFeature({});
    }
    if (m_controlService) {
        m_controlService->setActiveDevice(info);
    }
    m_journal->setActiveCamera(info);
}

void MainWindow::unregisterFromPanels(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!m_controlService) {
        return;
    }
    m_controlService->unregisterDevice(info);
    // A panel drops the camera it shows whichever camera goes; the user's choice stays in view.
    const QSharedPointer<Plugin::CameraPool::IBaseInfo> active = m_devicesPane->activeDevice();
    if (active && active != info) {
        m_controlService->setActiveDevice(active);
    }
}

void MainWindow::watchCollection(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    const auto collection = m_pool ? m_pool->getParameterCollection(info) : nullptr;
    if (!collection) {
        return;
    }
    m_journal->addCamera(info, collection);
    using ParameterCollection::IParameterCollection;
    const QString name = CameraName::of(*info);
    const QWeakPointer<Plugin::CameraPool::IBaseInfo> weakInfo = info;
    connect(collection.data(), &IParameterCollection::deviceLost, this,
            [this, weakInfo, name](const QString& message) {
                m_statusBar->showError(tr("%1 is lost: %2").arg(name, message));
                if (const auto lost = weakInfo.toStrongRef()) {
                    m_devicesPane->markLost(lost, message);
                }
            });
    connect(collection.data(), &IParameterCollection::writeFailed, m_statusBar,
            &FeatureStatusBar::showWriteFailure);
}

void MainWindow::addContextMenuEntries()
{
    QMenu* shared =
        m_menuService->contextMenu(Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE));
    if (!shared || shared == m_contextMenuWithEntries) {
        return;
    }
    m_contextMenuWithEntries = shared;
    shared->addAction(m_refreshAction);
    QMenu* levels = shared->addMenu(tr("Visibility"));
    levels->setObjectName(QStringLiteral("VantoViewer.ContextMenu.Visibility"));
    for (GenApi::EVisibility level : {GenApi::Beginner, GenApi::Expert, GenApi::Guru}) {
        levels->addAction(m_visibilityToolBar->actionFor(level));
    }
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

QDockWidget* MainWindow::showPanel(const QString& idOrTitle)
{
    for (QDockWidget* dock : qAsConst(m_panelDocks)) {
        if (dock->objectName() == idOrTitle ||
            dock->windowTitle().compare(idOrTitle, Qt::CaseInsensitive) == 0) {
            dock->show();
            dock->raise();
            return dock;
        }
    }
    return nullptr;
}

Plugin::FeatureTree::IFeatureTreeControlService* MainWindow::featureTreeControl() const
{
    return m_controlService.data();
}

QDockWidget* MainWindow::devicesDock() const
{
    return m_devicesDock;
}

DevicesPane* MainWindow::devicesPane() const
{
    return m_devicesPane;
}

VisibilityToolBar* MainWindow::visibilityToolBar() const
{
    return m_visibilityToolBar;
}

FeatureStatusBar* MainWindow::featureStatusBar() const
{
    return m_statusBar;
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
    dock->toggleViewAction()->setVisible(!product.title.isEmpty());
    connect(product.widget, &QWidget::windowTitleChanged, dock,
            [this, dock](const QString& title) { retitlePanel(dock, title); });
    if (isDefault) {
        dock->raise();
    }
    m_menuService->addAction(
        Core::CId(QStringLiteral("VantoViewer.Window.") + product.id.toString()),
        dock->toggleViewAction(), Core::CId(Plugin::AppCore::Constants::M_WINDOW),
        Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS), globalContext());
    connect(factory.data(), &QObject::destroyed, dock,
            [this, dock]() { m_panelDocks.remove(m_panelDocks.key(dock)); });
    // The first panel brings the tree's shared context menu along.
    addContextMenuEntries();
    // Panels remember their own last level; the tool bar's is the one the user sees. Without a
    // stored level of its own the window takes the first one a panel kept.
    if (!m_visibilityStored) {
        const int level = storedLevel(product.id);
        if (level >= 0) {
            m_visibilityStored = showVisibility(static_cast<GenApi::EVisibility>(level));
        }
    }
    if (m_controlService) {
        m_controlService->setVisibility(m_visibilityToolBar->level());
    }
}

void MainWindow::retitlePanel(QDockWidget* dock, const QString& title)
{
    const bool isNew = dock->windowTitle().isEmpty() && !title.isEmpty();
    dock->setWindowTitle(title);
    dock->toggleViewAction()->setVisible(!title.isEmpty());
    if (title.isEmpty()) {
        dock->hide();
    } else if (isNew) {
        // The user has just made the tab: show what it holds.
        dock->show();
        dock->raise();
    }
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
