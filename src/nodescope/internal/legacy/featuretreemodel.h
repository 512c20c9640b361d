#pragma once

#include "ifeaturetreemodelextension.h"

#include <QAbstractItemModel>
#include <QList>
#include <QSharedPointer>
#include <QSet>
#include <QTimer>

#include <memory>

class SearchMatcher;

// The feature tree: one subtree per node map, node map -> category -> feature. Values are
// read from the items' snapshots and written through them; the first node map is polled.
class FeatureTreeModel : public QAbstractItemModel, public IFeatureTreeModelExtension {
    Q_OBJECT
public:
    struct NodemapListEntry {
        QSharedPointer<ParameterCollection::IParameterCollection> collection;
        QString prefix;
    };

    static const int POLL_INTERVAL_MS = 300;

    explicit FeatureTreeModel(QObject* parent = nullptr);
    ~FeatureTreeModel() override;

    // QAbstractItemModel
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    void
    addParameterCollection(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                           const QString& name, const QString& prefix, bool utf8Encoded);
    QList<NodemapListEntry> nodemapList() const { return m_nodemapList; }
    FeatureTreeItem* rootItem() const { return m_rootItem.get(); }
    FeatureTreeHighlighter* highlighter() const { return m_highlighter; }
    QString searchText() const { return m_searchText; }
    bool getDeviceAlive() const { return m_deviceAlive; }
    bool getMonitorMode() const { return m_monitorMode; }

    // IFeatureTreeModelExtension
    QModelIndex indexForItem(FeatureTreeItem* item, int column) const override;
    void enablePolling(bool on) override;
    bool getPolling() const override { return m_pollingEnabled; }
    void setDeviceAlive(bool alive) override { m_deviceAlive = alive; }
    QModelIndex findItem(const FeatureTreeItem* item, const FeatureTreeItem* start,
                         int column) const override;
    QModelIndex findItemByFullName(const QString& fullName, FeatureTreeItem* start,
                                   int column) const override;
    QModelIndex findItemByRole(int role, const QVariant& value, FeatureTreeItem* start,
                               int column) const override;
    void setParameterFilterList(const QList<ParameterCollection::ParameterName>& names) override;
    void getParameterFilterList(QList<ParameterCollection::ParameterName>& names) const override;
    void setParameterHighlightList(const QList<ParameterCollection::ParameterName>& names) override;
    void setSearchRegExp(QString text) override;
    void setShowUnavailableParameters(const bool& show) override;
    void refresh(QList<ParameterCollection::ParameterName> names) override;
    void addChildren(FeatureTreeINodeItem* parentItem,
                     QSharedPointer<ParameterCollection::IParameter> parameter) override;
    void setVisibility(GenApi::EVisibility visibility) override { m_visibility = visibility; }
    GenApi::EVisibility getVisibility() const override { return m_visibility; }
    void setMonitorMode(bool on) override { m_monitorMode = on; }
    void setGenICamCallbacksEnable(bool on) override { m_genICamCallbacksEnabled = on; }
    bool getGenICamCallbackEnable() const override { return m_genICamCallbacksEnabled; }
    FeatureTreeItem* getFeatureTreeItem(const QModelIndex& index) const override;
    void setHighlighter(FeatureTreeHighlighter* highlighter) override;
    void refreshSpecialItems() override;
    bool isUtf8Encoded() const override { return m_utf8Encoded; }
    void clear() override;
    void onNodeUpdated(int column, FeatureTreeINodeItem* item) override;
    void onTimerPoll() override;
    QString getParameterCollectionName(
        QSharedPointer<ParameterCollection::IParameterCollection> collection) const override;
    void setParameterHighlightListRecursive(
        FeatureTreeINodeItem* item,
        const QList<ParameterCollection::ParameterName>& names) override;
    void setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text) override;

Q_SIGNALS:
    // A write the parameter layer refused at once, with its reason, for the status line.
    void writeRefused(const QString& fullName, const QString& message);

private:
    FeatureTreeINodeItem*
    createItem(const QSharedPointer<ParameterCollection::IParameterCollection>& collection,
               const QSharedPointer<ParameterCollection::IParameter>& parameter,
               FeatureTreeItem* parent, int level);
    void collectChildren(FeatureTreeINodeItem* parentItem,
                         const QSharedPointer<ParameterCollection::IParameter>& parameter,
                         QList<FeatureTreeItem*>& created, QSet<QString>& expanding);
    FeatureTreeItem* itemOrRoot(const QModelIndex& index) const;
    void refuseWrite(const QModelIndex& index, const QString& message);
    void loadSubtree(FeatureTreeItem* item);
    void markSearched(FeatureTreeItem* item, const SearchMatcher& matcher);
    void markHighlighted(FeatureTreeItem* item, const QSet<QString>& names);

    std::unique_ptr<FeatureTreeItem> m_rootItem;
    QList<NodemapListEntry> m_nodemapList;
    mutable bool m_getErrorReported = false;
    GenApi::EVisibility m_visibility = GenApi::Guru;
    int m_pollInterval = POLL_INTERVAL_MS;
    QTimer m_pollTimer;
    bool m_pollingEnabled = false;
    bool m_deviceAlive = true;
    bool m_monitorMode = false;
    bool m_genICamCallbacksEnabled = true;
    bool m_utf8Encoded = false;
    QString m_searchText;
    bool m_searchNarrowing = false;
    bool m_treeChangedSinceSearch = true;
    bool m_buildingDetached = false; // a node map not yet in the tree: no row signals
    FeatureTreeHighlighter* m_highlighter = nullptr; // not owned
};
