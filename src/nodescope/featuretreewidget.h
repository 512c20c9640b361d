#pragma once

#include "ifeaturetreeusecaseservice.h"

#include <appcore/imenuservice.h>
#include <appcore/iwindowservice.h>
#include <camerapool/ibaseinfo.h>
#include <camerapool/ideviceparameterservice.h>
#include <core/cid.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parametername.h>

#include <QList>
#include <QMap>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

class FeatureTreeWidget;
class QAction;
class QLabel;
class QMenu;
class QQuickView;
class QVBoxLayout;

namespace Plugin {
namespace Nodescope {

// The widget of one feature panel. It keeps a feature tree per registered camera, shows the
// tree of the camera the host calls active, and a hint while there is none. The kind of panel
// (all features, the basic use case, one of the user tabs) follows from its widget id.
class CFeatureTreeWidget : public QWidget {
    Q_OBJECT
public:
    CFeatureTreeWidget(
        QSharedPointer<Plugin::AppCore::IMenuService> menuService,
        QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> controlService,
        QSharedPointer<Plugin::CameraPool::IDeviceParameterService> parameterService,
        QSharedPointer<IFeatureTreeUseCaseService> useCaseService,
        QSharedPointer<Plugin::AppCore::IWindowService> windowService, const Core::CId& widgetId,
        QQuickView* optionsMenuView, QWidget* parent = nullptr);
    ~CFeatureTreeWidget() override;

    Core::CId widgetId() const { return m_widgetId; }
    // -1 for the all-features and the basic panel.
    int userTabIndex() const { return m_userTabIndex; }

    // The tree shown now; null while the hint is shown.
    FeatureTreeWidget* activeTree() const { return m_activeTree; }
    FeatureTreeWidget* treeOf(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const;
    QLabel* placeholder() const { return m_placeholder; }
    QAction* copyCameraFeaturesAction() const { return m_copyAction; }
    QAction* editFeatureTabsAction() const { return m_editTabsAction; }
    bool pollingState() const { return m_polling; }

    // The panel's entries of a tree's context menu, followed by those other plug-ins put into
    // the shared feature tree context menu.
    void fillContextMenu(QMenu* menu) const;

    // The stored user tabs, in the settings group "Nodescope" of the default QSettings.
    static QString storedUserTabName(int tab);
    static QList<ParameterCollection::ParameterName> storedUserTabFeatures(int tab);
    // Stores one tab; every panel of that tab follows at once.
    static void storeUserTab(int tab, const QString& name,
                             const QList<ParameterCollection::ParameterName>& features);

public Q_SLOTS:
    void onDeviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void onDeviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void onActiveDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo> info);
    void onPollingStateChanged(bool on);
    void onParameterCollectionAttached(const QString& nodeMapName);

    void onRefreshRequested();
    // The host's visibility selector: every tree of the panel follows.
    void onVisibilityRequested(GenApi::EVisibility visibility);
    void onFeatureSelectionRequested(QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                     QString fullName);
    void copyCameraFeatures();
    // The feature tab editor, filled from the stored tabs and the active camera.
    void showOptionsMenu();

Q_SIGNALS:
    void visibilityChanged(GenApi::EVisibility visibility);
    void currentChanged(QSharedPointer<ParameterCollection::IParameter> parameter);
    void newText(QString text);
    void addUserTab(unsigned int index, QString const& name);
    // The user tab that this panel shows was stored again: its name may have changed.
    void userTabStored();

private Q_SLOTS:
    // The editor's "OK", "Cancel" and close button; connected by signature because the
    // signals are declared in QML.
    void onOptionsMenuAccepted();
    void onOptionsMenuCancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using BaseInfoPtr = QSharedPointer<Plugin::CameraPool::IBaseInfo>;
    using CollectionPtr = QSharedPointer<ParameterCollection::IParameterCollection>;

    // This panel's own settings, in the settings group "Nodescope".
    QString panelSettingsKey(const char* key) const;
    QVariant storedPanelSetting(const char* key, const QVariant& defaultValue) const;
    void storePanelSetting(const char* key, const QVariant& value) const;
    bool isAllPanel() const;
    bool isBasicPanel() const;
    FeatureTreeWidget* createTree(const BaseInfoPtr& info);
    void addCollection(const BaseInfoPtr& info, const CollectionPtr& collection);
    void addNodeMap(const BaseInfoPtr& info, FeatureTreeWidget* tree,
                    const CollectionPtr& collection, const QString& nodeMapName);
    QString nodeMapDisplayName(const BaseInfoPtr& info, const QString& nodeMapName) const;
    void removeDevice(const BaseInfoPtr& info);
    void setActiveTree(FeatureTreeWidget* tree);
    void applyUseCases(FeatureTreeWidget* tree);
    void applyUserTab(FeatureTreeWidget* tree);
    void followUserTab();
    void onContextMenuRequested(const QPoint& position, const QSharedPointer<QMenu>& menu);
    void onTableOrderChanged(int from, int to);
    void connectOptionsMenu();
    QObject* optionsMenu() const;

    QSharedPointer<Plugin::AppCore::IMenuService> m_menuService;
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_controlService;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_parameterService;
    QSharedPointer<IFeatureTreeUseCaseService> m_useCaseService;
    QSharedPointer<Plugin::AppCore::IWindowService> m_windowService;
    Core::CId m_widgetId;
    int m_userTabIndex = -1;
    QPointer<QQuickView> m_optionsMenuView; // not owned: shared by all panels

    QMap<BaseInfoPtr, FeatureTreeWidget*> m_trees; // owned as children
    struct SCollectionOwner {
        BaseInfoPtr info;
        CollectionPtr collection;
    };
    // Keyed by the object, as sender() names it when a node map arrives late.
    QMap<ParameterCollection::IParameterCollection*, SCollectionOwner> m_collectionOwners;
    FeatureTreeWidget* m_activeTree = nullptr; // owned as child
    QLabel* m_placeholder = nullptr;           // owned as child
    QVBoxLayout* m_layout = nullptr;           // owned by this widget
    QAction* m_copyAction = nullptr;           // owned as child
    bool m_copyActionRegistered = false;
    QAction* m_editTabsAction = nullptr; // owned as child; only in the all-features panel
    bool m_editTabsActionRegistered = false;
    QMenu* m_sharedContextMenu = nullptr; // owned as child; set when this panel registered it
    bool m_polling = false;
    GenApi::EVisibility m_visibility = GenApi::Beginner;
};

} // namespace Nodescope
} // namespace Plugin
