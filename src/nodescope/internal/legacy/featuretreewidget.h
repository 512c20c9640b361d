#pragma once

#include <camerapool/ibaseinfo.h>
#include <camerapool/ideviceparameterservice.h>
#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parametername.h>

#include <QList>
#include <QMap>
#include <QPersistentModelIndex>
#include <QSharedPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

class FeatureTreeINodeItem;
class FeatureTreeItem;
class FeatureTreeProxyModel;
class FeatureTreeView;
class QAbstractItemView;
class QAction;
class QHeaderView;
class QMenu;
class QModelIndex;
class Ui_FeatureTreeWidgetClass;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {
class CFeatureTableView;
} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin

// The features of one camera: use case selector and search field on top, the feature tree with
// the feature table beside it, polling and refresh below. In filtered mode only the table
// remains, as the list of one feature tab. Camera binding and settings belong to the owner,
// which hears of everything through the signals.
class FeatureTreeWidget : public QWidget {
    Q_OBJECT
public:
    struct SParameterCollectionItem {
        QSharedPointer<ParameterCollection::IParameterCollection> collection;
        QString displayName;
        QString nodemapName;
        bool show = true;
    };

    // isGigE tells whether the camera sits on the GigE Vision transport layer.
    FeatureTreeWidget(const QString& cameraType, QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                      QWidget* parent = nullptr, GenApi::EVisibility visibility = GenApi::Beginner,
                      bool isGigE = false);
    ~FeatureTreeWidget() override;

    FeatureTreeView* treeView() const;
    // The tree's proxy; it passes every model operation on to the tree model.
    FeatureTreeProxyModel* proxyModel() const;
    Plugin::Nodescope::Internal::View::CFeatureTableView* tableView() const;
    GenApi::EVisibility visibility() const;

    void setVisibility(GenApi::EVisibility visibility);
    void setCameraType(const QString& cameraType);
    QString cameraType() const { return m_cameraType; }
    QSharedPointer<Plugin::CameraPool::IBaseInfo> baseInfo() const { return m_info; }
    bool isGigE() const { return m_isGigE; }
    void injectDeviceParameterService(
        QSharedPointer<Plugin::CameraPool::IDeviceParameterService> service);
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> deviceParameterService() const
    {
        return m_deviceParameterService;
    }
    void deviceIsClosed();
    void clear();
    void invalidateModel();

    // nodemapName is the node map's prefix, "@CameraDevice". A collection added with show false
    // is remembered but neither shown nor copied.
    void
    addParameterCollection(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                           const QString& displayName, const QString& nodemapName,
                           bool show = true);
    QList<SParameterCollectionItem> parameterCollections() const { return m_collections; }
    // Restricts tree and table to the named features; in filtered mode the table lists them
    // in the order given.
    void setParameterFilterList(const QList<ParameterCollection::ParameterName>& names);
    // Use case name (English, translated here) to the full names of its features.
    void setUseCaseMap(const QMap<QString, QVariant>& map);

    void setPolling(bool on);
    bool getPolling() const;
    void setMonitorMode(bool on);
    void enableGenICamCallbacks(bool on);

    void setFeatureColumnSize(int width);
    void setCategoryColumnSize(int width);

    void setIsFilteredTreeWidget(const bool& filtered);
    bool isFilteredTreeWidget() const { return m_isFilteredTreeWidget; }
    void setAddNewFavoriteButtonVisible(bool visible);
    void setPollingVisible(bool visible);
    // The next filter pass shows the wait cursor.
    void setBusyCursorOnNextFilter() { m_busyCursorOnNextFilter = true; }

    QAction* togglePollingAction() const { return m_actionTogglePolling; }
    QAction* moveFavouriteUpAction() const { return m_actionMoveFavouriteUp; }
    QAction* moveFavouriteDownAction() const { return m_actionMoveFavouriteDown; }

    // What copyToClipboard puts on the clipboard: every feature of the shown collections with
    // its value, one per line, in the camera's document order.
    QString featuresAsText() const;

public Q_SLOTS:
    // Selects and shows the feature; false when the tree does not show it.
    bool selectFeature(const QString& fullName);
    void expandTree();
    void expandRootNodes();
    void expandFirstRootNode();
    void refreshTree();
    void copyToClipboard();

    void on_addNewFavoriteButton_clicked();
    void on_checkBoxPolling_clicked();
    void onPollingStateChanged(bool on);
    void on_resetButton_clicked();
    void onCheckBoxUnavailableFavsTriggered(bool checked);
    void onFilterTextChanged(const QString& text);
    void onVisibilityChanged(int level);
    void onUseCaseComboBoxCurrentIndexChanged(int index);
    void onSelectedChanged();
    void onCurrentChanged(const QModelIndex& index);
    void onTableSelectionChanged();
    void onFavoriteMoveUp_triggered();
    void onFavoriteMoveDown_triggered();
    void splitterMoved(int pos, int index);
    // position is global: the views' requests arrive here mapped to the screen.
    void contextualMenu(const QPoint& position);

Q_SIGNALS:
    void contextMenuRequested(QPoint position, QSharedPointer<QMenu> menu);
    void visibilityChanged(GenApi::EVisibility visibility);
    void onCurrentChanged(QSharedPointer<ParameterCollection::IParameter> parameter);
    void onNewText(QString text);
    void pollingStateChanged(bool on);
    // Search matches among the features the use case allows: shown at the level, and hidden
    // only by the level.
    void filterMatchesChanged(int visibleMatches, int invisibleMatches);
    void firstSectionSizeChanged(int size, bool fromUser);
    void categoryColumnWidthChanged(int width);
    void orderOfTableItemsChanged(int from, int to);
    void addFavoriteButtonClicked();
    // A node map filter file that could not be used, with file, line and reason: said once
    // per version of the file, whichever panel meets it first, and whether or not it is shown.
    void filterFileProblem(QString text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createActions();
    void createShortcuts();
    void connectSignals();
    FeatureTreeProxyModel* tableProxy() const;
    void applyFilterList(const QList<ParameterCollection::ParameterName>& names);
    QList<ParameterCollection::ParameterName> currentUseCaseNames() const;
    QList<QObject*> tableItemsFor(FeatureTreeItem* item) const;
    void fillTableInListOrder(const QList<ParameterCollection::ParameterName>& names);
    bool hasActiveFilter() const;
    void moveCurrentFavorite(bool up);
    void reportFilterMatches();
    void fitNameColumn(QAbstractItemView* view, QHeaderView* header);
    void onDeviceLost();
    // Why the current feature shows no value or can't be changed, for the status line.
    QString stateText(const FeatureTreeINodeItem& node) const;
    // Tells the status line when the current feature's reason changes while it is current.
    void onRowsChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight);

    std::unique_ptr<Ui_FeatureTreeWidgetClass> ui;
    QString m_cameraType;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_deviceParameterService;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_info;
    bool m_isGigE = false;
    bool m_isFilteredTreeWidget = false;
    int m_useCaseIndex = 0;
    QString m_filterText;
    bool m_busyCursorOnNextFilter = false;
    bool m_resizingColumnsInCode = false;
    // Set once the owner or the user gave the tree's name column a width.
    bool m_treeColumnChosen = false;
    QList<SParameterCollectionItem> m_collections;
    QPersistentModelIndex m_current;              // of the view that made it current
    QString m_currentState;                       // what the status line last heard about it
    QAction* m_actionTogglePolling = nullptr;     // owned as QObject child
    QAction* m_actionMoveFavouriteUp = nullptr;   // owned as QObject child
    QAction* m_actionMoveFavouriteDown = nullptr; // owned as QObject child

    // One for the whole process, on purpose: an Escape in one panel arms the next panel's
    // clearing too.
    static bool s_escapePressed;
};
