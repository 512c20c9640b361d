#include "featuretreewidget.h"

#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/featuretreewidget.h"
#include "internal/view/featureoptionsmenu.h"
#include "nodescopeconstants.h"

#include <appcore/appcoreconstants.h>
#include <appcore/ccontext.h>
#include <camerapool/icamerainfo.h>

#include <QAction>
#include <QComboBox>
#include <QDebug>
#include <QEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QQuickItem>
#include <QQuickView>
#include <QSettings>
#include <QStringList>
#include <QVBoxLayout>

namespace Plugin {
namespace Nodescope {

using ParameterCollection::IParameterCollection;
using ParameterCollection::ParameterName;

namespace {

// Every live panel, so that a stored user tab reaches the panels of that tab at once.
QList<CFeatureTreeWidget*>& livePanels()
{
    static QList<CFeatureTreeWidget*> panels;
    return panels;
}

// The panel that opened the shared feature tab editor; only it answers the editor's buttons.
QPointer<CFeatureTreeWidget>& optionsMenuOwner()
{
    static QPointer<CFeatureTreeWidget> owner;
    return owner;
}

QString settingsKey(const char* key, int tab)
{
    return QLatin1String(key) + QString::number(tab);
}

bool isValidTab(int tab)
{
    return tab >= 0 && tab < Constants::USER_TAB_COUNT;
}

} // namespace

CFeatureTreeWidget::CFeatureTreeWidget(
    QSharedPointer<Plugin::AppCore::IMenuService> menuService,
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> controlService,
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> parameterService,
    QSharedPointer<IFeatureTreeUseCaseService> useCaseService,
    QSharedPointer<Plugin::AppCore::IWindowService> windowService, const Core::CId& widgetId,
    QQuickView* optionsMenuView, QWidget* parent)
    : QWidget(parent), m_menuService(std::move(menuService)),
      m_controlService(std::move(controlService)), m_parameterService(std::move(parameterService)),
      m_useCaseService(std::move(useCaseService)), m_windowService(std::move(windowService)),
      m_widgetId(widgetId), m_optionsMenuView(optionsMenuView)
{
    for (int tab = 0; tab < Constants::USER_TAB_COUNT; ++tab) {
        if (m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_USER_IDS[tab])) {
            m_userTabIndex = tab;
        }
    }
    if (m_windowService) {
        const QVariant visibility = m_windowService->restoreState(
            m_widgetId, QLatin1String(Constants::STATE_VISIBILITY), int(GenApi::Beginner));
        const int level = visibility.toInt();
        if (level >= GenApi::Beginner && level <= GenApi::Guru) {
            m_visibility = static_cast<GenApi::EVisibility>(level);
        }
    }

    m_polling = storedPanelSetting(Constants::SETTINGS_POLLING, false).toBool();

    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_placeholder = new QLabel(
        tr("<i>Select any open camera in the Devices pane to display its features.</i>"), this);
    m_placeholder->setObjectName(QStringLiteral("placeholderLabel"));
    m_placeholder->setAlignment(Qt::AlignCenter);
    m_placeholder->setWordWrap(true);
    m_placeholder->setMargin(12);
    m_layout->addWidget(m_placeholder);

    m_copyAction = new QAction(tr("Copy Camera Features"), this);
    m_copyAction->setObjectName(QLatin1String(Constants::A_COPY_CAMERA_FEATURES));
    m_copyAction->setShortcut(
        QKeySequence(QLatin1String(Constants::COPY_CAMERA_FEATURES_SHORTCUT)));
    m_copyAction->setStatusTip(tr("Copies the features of the camera and their values as text"));
    m_copyAction->setEnabled(false);
    connect(m_copyAction, &QAction::triggered, this, &CFeatureTreeWidget::copyCameraFeatures);
    if (m_menuService) {
        // Every panel offers the command, the host takes the first: one camera menu entry.
        m_copyActionRegistered = m_menuService->addAction(
            Core::CId(Constants::A_COPY_CAMERA_FEATURES), m_copyAction,
            Core::CId(Plugin::AppCore::Constants::M_CAMERA),
            Core::CId(Plugin::AppCore::Constants::G_CAMERA_FEATURES),
            Plugin::AppCore::CContext(Core::CId(Plugin::AppCore::Constants::C_GLOBAL_CONTEXT)));
    }

    if (m_menuService && isAllPanel()) {
        m_editTabsAction = new QAction(tr("Edit Feature Tabs..."), this);
        m_editTabsAction->setObjectName(QLatin1String(Constants::A_EDIT_FEATURE_TABS));
        connect(m_editTabsAction, &QAction::triggered, this, &CFeatureTreeWidget::showOptionsMenu);
        m_editTabsActionRegistered = m_menuService->addAction(
            Core::CId(Constants::A_EDIT_FEATURE_TABS), m_editTabsAction,
            Core::CId(Plugin::AppCore::Constants::M_WINDOW),
            Core::CId(Plugin::AppCore::Constants::G_WINDOW_WINDOWS),
            Plugin::AppCore::CContext(Core::CId(Plugin::AppCore::Constants::C_GLOBAL_CONTEXT)));
    }
    if (m_menuService &&
        !m_menuService->contextMenu(Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE))) {
        // Other plug-ins add their feature tree entries here; the first panel provides it.
        m_sharedContextMenu = new QMenu(this);
        m_menuService->registerContextMenu(Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE),
                                           m_sharedContextMenu);
    }

    if (m_controlService) {
        using Plugin::FeatureTree::IFeatureTreeControlService;
        auto* service = m_controlService.data();
        connect(service, &IFeatureTreeControlService::deviceRegistered, this,
                &CFeatureTreeWidget::onDeviceRegistered);
        connect(service, &IFeatureTreeControlService::deviceUnregistered, this,
                &CFeatureTreeWidget::onDeviceUnregistered);
        connect(service, &IFeatureTreeControlService::activeDeviceChanged, this,
                &CFeatureTreeWidget::onActiveDeviceChanged);
        connect(service, &IFeatureTreeControlService::featureTreeRefreshRequested, this,
                &CFeatureTreeWidget::onRefreshRequested);
        connect(service, &IFeatureTreeControlService::pollingStateChanged, this,
                &CFeatureTreeWidget::onPollingStateChanged);
        connect(service, &IFeatureTreeControlService::visibilityChangeRequested, this,
                &CFeatureTreeWidget::onVisibilityRequested);
        connect(service, &IFeatureTreeControlService::featureSelectionRequested, this,
                &CFeatureTreeWidget::onFeatureSelectionRequested);
    }
    connectOptionsMenu();
    livePanels().append(this);
}

CFeatureTreeWidget::~CFeatureTreeWidget()
{
    livePanels().removeAll(this);
    if (m_menuService && m_copyActionRegistered) {
        m_menuService->removeAction(Core::CId(Constants::A_COPY_CAMERA_FEATURES));
    }
    if (m_menuService && m_editTabsActionRegistered) {
        m_menuService->removeAction(Core::CId(Constants::A_EDIT_FEATURE_TABS));
    }
    if (m_menuService && m_sharedContextMenu &&
        m_menuService->contextMenu(Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE)) ==
            m_sharedContextMenu) {
        m_menuService->unregisterContextMenu(
            Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE));
    }
    for (auto it = m_collectionOwners.constBegin(); it != m_collectionOwners.constEnd(); ++it) {
        disconnect(it.key(), nullptr, this, nullptr);
    }
}

bool CFeatureTreeWidget::isAllPanel() const
{
    return m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_ALL);
}

bool CFeatureTreeWidget::isBasicPanel() const
{
    return m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_BASIC);
}

FeatureTreeWidget* CFeatureTreeWidget::treeOf(const BaseInfoPtr& info) const
{
    return m_trees.value(info, nullptr);
}

void CFeatureTreeWidget::onDeviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    if (!info) {
        qDebug() << "Info is null.";
        return;
    }
    CollectionPtr collection;
    if (m_parameterService) {
        try {
            collection = m_parameterService->getParameterCollection(info);
        } catch (...) {
            collection.reset();
        }
    }
    if (!collection) {
        qDebug() << "ParameterCollection is null.";
        return;
    }
    addCollection(info, collection);
}

void CFeatureTreeWidget::addCollection(const BaseInfoPtr& info, const CollectionPtr& collection)
{
    FeatureTreeWidget* tree = m_trees.value(info, nullptr);
    if (!tree) {
        tree = createTree(info);
        m_trees.insert(info, tree);
    }
    if (!m_collectionOwners.contains(collection.data())) {
        m_collectionOwners.insert(collection.data(), {info, collection});
        connect(collection.data(), &IParameterCollection::nodeMapAttached, this,
                &CFeatureTreeWidget::onParameterCollectionAttached);
    }
    QStringList nodeMaps;
    try {
        nodeMaps = collection->getNodeMapNames();
    } catch (...) {
        nodeMaps.clear();
    }
    for (const QString& nodeMap : qAsConst(nodeMaps)) {
        addNodeMap(info, tree, collection, nodeMap);
    }
    if (m_userTabIndex >= 0) {
        // The tab's list names features of node maps that may only just have arrived.
        applyUserTab(tree);
    }
}

FeatureTreeWidget* CFeatureTreeWidget::createTree(const BaseInfoPtr& info)
{
    const auto* cameraInfo = dynamic_cast<const Plugin::CameraPool::ICameraInfo*>(info.data());
    const bool isGigE = cameraInfo && cameraInfo->isGigE();
    auto* tree = new FeatureTreeWidget(info->getTransportLayer(), info, this, m_visibility, isGigE);
    tree->hide();
    tree->injectDeviceParameterService(m_parameterService);
    if (m_userTabIndex >= 0) {
        // A user tab is a plain list of its features.
        tree->setIsFilteredTreeWidget(true);
    } else {
        // Feature tabs are edited from the panel that shows every feature.
        tree->setAddNewFavoriteButtonVisible(isAllPanel());
    }
    tree->setPolling(m_polling);
    tree->setFeatureColumnSize(
        storedPanelSetting(Constants::SETTINGS_FEATURE_COLUMN_WIDTH, -1).toInt());
    if (storedPanelSetting(Constants::SETTINGS_CATEGORY_COLUMN_WIDTH, -1).toInt() >= 0) {
        // The split needs the tree's real width: it is applied once the tree is laid out.
        tree->installEventFilter(this);
    }

    // What every tree of the panel shares, whether it is shown or not.
    connect(tree, &FeatureTreeWidget::pollingStateChanged, this,
            &CFeatureTreeWidget::onPollingStateChanged);
    connect(tree, &FeatureTreeWidget::addFavoriteButtonClicked, this,
            &CFeatureTreeWidget::showOptionsMenu);
    connect(tree, &FeatureTreeWidget::contextMenuRequested, this,
            &CFeatureTreeWidget::onContextMenuRequested);
    connect(tree, &FeatureTreeWidget::orderOfTableItemsChanged, this,
            &CFeatureTreeWidget::onTableOrderChanged);
    connect(tree, &FeatureTreeWidget::filterFileProblem, this, &CFeatureTreeWidget::newText);
    connect(tree, &FeatureTreeWidget::categoryColumnWidthChanged, this, [this](int width) {
        storePanelSetting(Constants::SETTINGS_CATEGORY_COLUMN_WIDTH, width);
    });
    connect(tree, &FeatureTreeWidget::firstSectionSizeChanged, this,
            [this](int width, bool byUser) {
                // Widths fitted to the view follow the view; only the user's choice is kept.
                if (byUser) {
                    storePanelSetting(Constants::SETTINGS_FEATURE_COLUMN_WIDTH, width);
                }
            });
    connect(tree, &FeatureTreeWidget::visibilityChanged, this,
            [this](GenApi::EVisibility visibility) {
                // Cameras registered later open at the level the user chose last.
                m_visibility = visibility;
                if (m_windowService) {
                    m_windowService->saveState(
                        m_widgetId, QLatin1String(Constants::STATE_VISIBILITY), int(visibility));
                }
            });
    return tree;
}

void CFeatureTreeWidget::addNodeMap(const BaseInfoPtr& info, FeatureTreeWidget* tree,
                                    const CollectionPtr& collection, const QString& nodeMapName)
{
    const QString prefix = QLatin1Char('@') + nodeMapName;
    const QList<FeatureTreeWidget::SParameterCollectionItem> present = tree->parameterCollections();
    for (const FeatureTreeWidget::SParameterCollectionItem& item : present) {
        if (item.collection == collection && item.nodemapName == prefix) {
            return;
        }
    }
    try {
        tree->addParameterCollection(collection, nodeMapDisplayName(info, nodeMapName), prefix);
    } catch (...) {
        qDebug() << "ParameterCollection is null.";
    }
}

QString CFeatureTreeWidget::nodeMapDisplayName(const BaseInfoPtr& info,
                                               const QString& nodeMapName) const
{
    if (nodeMapName == QLatin1String("CameraDevice") || nodeMapName == QLatin1String("Interface")) {
        // The host knows what to call the device and its interface.
        if (const auto* cameraInfo =
                dynamic_cast<const Plugin::CameraPool::ICameraInfo*>(info.data())) {
            return cameraInfo->getNodeMapDisplayName(nodeMapName);
        }
        return nodeMapName == QLatin1String("CameraDevice") ? info->getFriendlyName() : nodeMapName;
    }
    if (nodeMapName == QLatin1String("DeviceTransportLayer")) {
        return tr("Host Transport Layer");
    }
    if (nodeMapName == QLatin1String("StreamGrabber0")) {
        return tr("Stream Parameters");
    }
    if (nodeMapName == QLatin1String("EventGrabber")) {
        return tr("Event Grabber Parameters");
    }
    if (nodeMapName == QLatin1String("ImageFormatConverter")) {
        return tr("Image Format Conversion");
    }
    return nodeMapName;
}

void CFeatureTreeWidget::onParameterCollectionAttached(const QString& nodeMapName)
{
    auto* collection = qobject_cast<IParameterCollection*>(sender());
    if (!collection) {
        qDebug() << "ParameterCollection is null.";
        return;
    }
    const SCollectionOwner owner = m_collectionOwners.value(collection);
    const BaseInfoPtr info = owner.info;
    FeatureTreeWidget* tree = info ? m_trees.value(info, nullptr) : nullptr;
    if (!info || !tree) {
        qDebug() << "Info is null.";
        return;
    }
    const CollectionPtr shared = owner.collection;
    addNodeMap(info, tree, shared, nodeMapName);
    if (m_userTabIndex >= 0) {
        applyUserTab(tree);
    }
}

void CFeatureTreeWidget::onDeviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    if (!info) {
        qDebug() << "Info is null.";
        return;
    }
    removeDevice(info);
}

void CFeatureTreeWidget::removeDevice(const BaseInfoPtr& info)
{
    for (auto it = m_collectionOwners.begin(); it != m_collectionOwners.end();) {
        if (it.value().info == info) {
            disconnect(it.key(), &IParameterCollection::nodeMapAttached, this,
                       &CFeatureTreeWidget::onParameterCollectionAttached);
            it = m_collectionOwners.erase(it);
        } else {
            ++it;
        }
    }
    FeatureTreeWidget* tree = m_trees.take(info);
    // Whichever camera went, the panel waits for the host to name the active one again.
    setActiveTree(nullptr);
    if (tree) {
        tree->deviceIsClosed();
        tree->hide();
        tree->deleteLater();
    }
}

void CFeatureTreeWidget::onActiveDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
{
    if (!info) {
        return;
    }
    FeatureTreeWidget* tree = m_trees.value(info, nullptr);
    if (tree && tree == m_activeTree) {
        return;
    }
    setActiveTree(tree);
}

void CFeatureTreeWidget::setActiveTree(FeatureTreeWidget* tree)
{
    if (m_activeTree) {
        disconnect(m_activeTree, &FeatureTreeWidget::visibilityChanged, this,
                   &CFeatureTreeWidget::visibilityChanged);
        disconnect(m_activeTree,
                   qOverload<QSharedPointer<ParameterCollection::IParameter>>(
                       &FeatureTreeWidget::onCurrentChanged),
                   this, &CFeatureTreeWidget::currentChanged);
        disconnect(m_activeTree, &FeatureTreeWidget::onNewText, this, &CFeatureTreeWidget::newText);
        m_layout->removeWidget(m_activeTree);
        m_activeTree->hide();
    } else {
        m_layout->removeWidget(m_placeholder);
        m_placeholder->hide();
    }

    m_activeTree = tree;
    if (!tree) {
        m_layout->addWidget(m_placeholder);
        m_placeholder->show();
        m_copyAction->setEnabled(false);
        return;
    }
    connect(tree, &FeatureTreeWidget::visibilityChanged, this,
            &CFeatureTreeWidget::visibilityChanged);
    connect(tree,
            qOverload<QSharedPointer<ParameterCollection::IParameter>>(
                &FeatureTreeWidget::onCurrentChanged),
            this, &CFeatureTreeWidget::currentChanged);
    connect(tree, &FeatureTreeWidget::onNewText, this, &CFeatureTreeWidget::newText);
    m_layout->addWidget(tree);
    tree->show();
    tree->setPolling(m_polling);
    applyUseCases(tree);
    m_copyAction->setEnabled(true);
}

void CFeatureTreeWidget::applyUseCases(FeatureTreeWidget* tree)
{
    if (m_userTabIndex >= 0) {
        return;
    }
    QVariantMap map;
    if (!m_useCaseService) {
        qDebug() << "IFeatureTreeUseCaseService not set!";
    } else if (isBasicPanel()) {
        map = m_useCaseService->getBasicUseCaseMap();
    } else if (isAllPanel()) {
        map = m_useCaseService->getUseCaseMap();
    }
    tree->setUseCaseMap(map);
    if (isBasicPanel() && !map.isEmpty()) {
        // The basic panel starts on its one use case; entry 0 is "Common Tasks".
        auto* box = tree->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));
        if (box && box->currentIndex() < 1 && box->count() > 1) {
            box->setCurrentIndex(1);
        }
    }
}

void CFeatureTreeWidget::onPollingStateChanged(bool on)
{
    m_polling = on;
    storePanelSetting(Constants::SETTINGS_POLLING, on);
    for (FeatureTreeWidget* tree : qAsConst(m_trees)) {
        tree->setPolling(on);
    }
}

bool CFeatureTreeWidget::eventFilter(QObject* watched, QEvent* event)
{
    auto* tree = qobject_cast<FeatureTreeWidget*>(watched);
    // A tree's panes have their widths once it is shown in a visible panel.
    if (tree && (event->type() == QEvent::Show || event->type() == QEvent::Resize) &&
        tree->isVisible()) {
        tree->removeEventFilter(this);
        tree->setCategoryColumnSize(
            storedPanelSetting(Constants::SETTINGS_CATEGORY_COLUMN_WIDTH, -1).toInt());
    }
    return QWidget::eventFilter(watched, event);
}

QString CFeatureTreeWidget::panelSettingsKey(const char* key) const
{
    return QLatin1String(key) + QLatin1Char('/') + m_widgetId.toString();
}

QVariant CFeatureTreeWidget::storedPanelSetting(const char* key, const QVariant& defaultValue) const
{
    QSettings settings;
    settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
    return settings.value(panelSettingsKey(key), defaultValue);
}

void CFeatureTreeWidget::storePanelSetting(const char* key, const QVariant& value) const
{
    QSettings settings;
    settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
    settings.setValue(panelSettingsKey(key), value);
}

void CFeatureTreeWidget::onRefreshRequested()
{
    if (m_activeTree) {
        m_activeTree->on_resetButton_clicked();
    }
}

void CFeatureTreeWidget::onFeatureSelectionRequested(
    QSharedPointer<Plugin::CameraPool::IBaseInfo> info, QString fullName)
{
    if (FeatureTreeWidget* tree = treeOf(info)) {
        tree->selectFeature(fullName);
    }
}

void CFeatureTreeWidget::onVisibilityRequested(GenApi::EVisibility visibility)
{
    if (visibility < GenApi::Beginner || visibility > GenApi::Guru) {
        qDebug() << "Visibility level out of range:" << int(visibility);
        return;
    }
    // The host repeats its level for every panel it adds: the settings are written on a change.
    if (visibility != m_visibility) {
        m_visibility = visibility;
        if (m_windowService) {
            m_windowService->saveState(m_widgetId, QLatin1String(Constants::STATE_VISIBILITY),
                                       int(visibility));
        }
    }
    for (FeatureTreeWidget* tree : qAsConst(m_trees)) {
        // Hidden trees too: switching cameras must not switch levels.
        if (tree->visibility() != visibility) {
            tree->onVisibilityChanged(int(visibility));
        }
    }
}

void CFeatureTreeWidget::copyCameraFeatures()
{
    if (m_activeTree) {
        m_activeTree->copyToClipboard();
    }
}

void CFeatureTreeWidget::onContextMenuRequested(const QPoint& position,
                                                const QSharedPointer<QMenu>& menu)
{
    if (!menu) {
        return;
    }
    fillContextMenu(menu.data());
    menu->exec(position);
}

void CFeatureTreeWidget::fillContextMenu(QMenu* menu) const
{
    if (!menu) {
        return;
    }
    menu->addAction(m_copyAction);
    QMenu* shared =
        m_menuService
            ? m_menuService->contextMenu(Core::CId(Plugin::AppCore::Constants::CM_FEATURE_TREE))
            : nullptr;
    if (shared && !shared->actions().isEmpty()) {
        menu->addSeparator();
        menu->addActions(shared->actions());
    }
}

QString CFeatureTreeWidget::storedUserTabName(int tab)
{
    if (!isValidTab(tab)) {
        return QString();
    }
    QSettings settings;
    settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
    return settings.value(settingsKey(Constants::SETTINGS_USER_TAB_NAME, tab), QString())
        .toString();
}

QList<ParameterName> CFeatureTreeWidget::storedUserTabFeatures(int tab)
{
    QList<ParameterName> names;
    if (!isValidTab(tab)) {
        return names;
    }
    QSettings settings;
    settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
    const QStringList stored =
        settings.value(settingsKey(Constants::SETTINGS_USER_TAB_FEATURES, tab)).toStringList();
    for (const QString& fullName : stored) {
        const ParameterName name(fullName.trimmed());
        // Hand-edited settings must not sneak in empty or doubled entries.
        if (!name.isEmpty() && !names.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

void CFeatureTreeWidget::storeUserTab(int tab, const QString& name,
                                      const QList<ParameterName>& features)
{
    if (!isValidTab(tab)) {
        return;
    }
    QStringList fullNames;
    for (const ParameterName& feature : features) {
        fullNames.append(feature.toString());
    }
    {
        QSettings settings;
        settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
        settings.setValue(settingsKey(Constants::SETTINGS_USER_TAB_NAME, tab), name);
        settings.setValue(settingsKey(Constants::SETTINGS_USER_TAB_FEATURES, tab), fullNames);
    }
    const QList<CFeatureTreeWidget*> panels = livePanels();
    for (CFeatureTreeWidget* panel : panels) {
        if (panel->m_userTabIndex == tab) {
            panel->followUserTab();
        }
    }
}

void CFeatureTreeWidget::followUserTab()
{
    for (FeatureTreeWidget* tree : qAsConst(m_trees)) {
        applyUserTab(tree);
    }
    Q_EMIT userTabStored();
}

void CFeatureTreeWidget::applyUserTab(FeatureTreeWidget* tree)
{
    if (!tree || m_userTabIndex < 0) {
        return;
    }
    tree->setParameterFilterList(storedUserTabFeatures(m_userTabIndex));
}

void CFeatureTreeWidget::onTableOrderChanged(int from, int to)
{
    if (m_userTabIndex < 0) {
        return;
    }
    QList<ParameterName> features = storedUserTabFeatures(m_userTabIndex);
    if (from < 0 || to < 0 || from >= features.size() || to >= features.size() || from == to) {
        return;
    }
    features.move(from, to);
    storeUserTab(m_userTabIndex, storedUserTabName(m_userTabIndex), features);
}

QObject* CFeatureTreeWidget::optionsMenu() const
{
    return m_optionsMenuView ? m_optionsMenuView->rootObject() : nullptr;
}

void CFeatureTreeWidget::connectOptionsMenu()
{
    QObject* menu = optionsMenu();
    if (!menu) {
        return;
    }
    // The scene declares these signals; they exist only by name.
    const QMetaObject* meta = menu->metaObject();
    const QMetaObject* own = metaObject();
    const struct {
        const char* signal;
        const char* slot;
    } wiring[] = {{"add()", "onOptionsMenuAccepted()"},
                  {"cancel()", "onOptionsMenuCancelled()"},
                  {"hide()", "onOptionsMenuCancelled()"}};
    for (const auto& wire : wiring) {
        const int signalIndex = meta->indexOfSignal(wire.signal);
        const int slotIndex = own->indexOfSlot(wire.slot);
        if (signalIndex >= 0 && slotIndex >= 0) {
            connect(menu, meta->method(signalIndex), this, own->method(slotIndex));
        }
    }
}

void CFeatureTreeWidget::showOptionsMenu()
{
    auto* menu = qobject_cast<Internal::View::CFeatureOptionsMenu*>(optionsMenu());
    if (!menu) {
        return;
    }
    optionsMenuOwner() = this;
    bool anyNamed = false;
    for (int tab = 0; tab < Constants::USER_TAB_COUNT; ++tab) {
        const QString name = storedUserTabName(tab);
        anyNamed = anyNamed || !name.isEmpty();
        // Twice, so that the editor's saved copy, what "Cancel" returns to, is this name.
        menu->setUserTabName(tab, name);
        menu->setUserTabName(tab, name);
        menu->setParameterNameList(tab, storedUserTabFeatures(tab));
    }
    if (!anyNamed) {
        // A first tab ready to take features, without asking for a name first.
        menu->setUserTabName(0, tr("My tab"));
    }
    CollectionPtr collection;
    if (m_activeTree) {
        const QList<FeatureTreeWidget::SParameterCollectionItem> items =
            m_activeTree->parameterCollections();
        if (!items.isEmpty()) {
            collection = items.first().collection;
        }
    }
    menu->setParameterCollection(collection);
    menu->resetUserSelection();
    if (m_optionsMenuView) {
        m_optionsMenuView->show();
        m_optionsMenuView->raise();
        m_optionsMenuView->requestActivate();
    }
}

void CFeatureTreeWidget::onOptionsMenuAccepted()
{
    if (optionsMenuOwner() != this) {
        return;
    }
    auto* menu = qobject_cast<Internal::View::CFeatureOptionsMenu*>(optionsMenu());
    if (!menu) {
        return;
    }
    const QStringList names = menu->getUserTabNames();
    for (int tab = 0; tab < Constants::USER_TAB_COUNT && tab < names.size(); ++tab) {
        const QString name = names.at(tab);
        QList<ParameterName> features;
        // A tab without a name is gone, and so are its features.
        if (!name.isEmpty()) {
            menu->getParameterNameList(tab, features);
        }
        storeUserTab(tab, name, features);
        // The confirmed state is what a later "Cancel" returns to.
        menu->setUserTabName(tab, name);
        menu->setUserTabName(tab, name);
        menu->setParameterNameList(tab, features);
        if (!name.isEmpty()) {
            Q_EMIT addUserTab(static_cast<unsigned int>(tab), name);
        }
    }
    optionsMenuOwner() = nullptr;
    if (m_optionsMenuView) {
        m_optionsMenuView->hide();
    }
}

void CFeatureTreeWidget::onOptionsMenuCancelled()
{
    if (optionsMenuOwner() != this) {
        return;
    }
    if (auto* menu = qobject_cast<Internal::View::CFeatureOptionsMenu*>(optionsMenu())) {
        menu->reset();
    }
    optionsMenuOwner() = nullptr;
    if (m_optionsMenuView) {
        m_optionsMenuView->hide();
    }
}

} // namespace Nodescope
} // namespace Plugin
