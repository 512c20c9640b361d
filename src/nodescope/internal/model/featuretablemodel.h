#pragma once

#include "internal/legacy/ifeaturetreemodelextension.h"

#include <QAbstractItemModel>
#include <QList>
#include <QObject>

class FeatureTreeINodeItem;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Model {

// The features of one feature tab as a flat, two-column list. The rows are items of the feature
// tree model, which owns them; a row goes away on its own when the tree deletes its item. The
// user reorders rows by dropping a feature's full name onto another row, or with moveFavorite.
class CFeatureTableModel : public QAbstractItemModel, public IFeatureTreeModelExtension {
    Q_OBJECT
public:
    explicit CFeatureTableModel(QObject* parent = nullptr);
    ~CFeatureTableModel() override;

    // QAbstractItemModel
    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    // Drags name their source, the view's object name, next to the feature's full name.
    void setDragSourceName(const QString& name) { m_dragSourceName = name; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

    // Replaces every row by the given items (FeatureTreeINodeItem objects of the tree model).
    // Anything else, and a second copy of an item, is left out. The flag is not used here.
    void addParameterCollection(QList<QObject*> items, bool utf8Encoded);
    // The rows, in order.
    QList<QObject*> items() const { return m_items; }

    // Moves the row of index to the row of neighbour, which must lie above it when up is true
    // and below it otherwise; both must be valid indexes of this model.
    bool moveFavorite(const QModelIndex& index, const QModelIndex& neighbour, bool up);

    bool getDeviceAlive() const { return m_deviceAlive; }
    bool getShowUnavailableParameters() const { return m_showUnavailable; }
    FeatureTreeHighlighter* highlighter() const { return m_highlighter; }

    // IFeatureTreeModelExtension
    QModelIndex indexForItem(FeatureTreeItem* item, int column) const override;
    void enablePolling(bool on) override;
    bool getPolling() const override { return false; }
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
    void setShowUnavailableParameters(const bool& show) override { m_showUnavailable = show; }
    void refresh(QList<ParameterCollection::ParameterName> names) override;
    void addChildren(FeatureTreeINodeItem* parentItem,
                     QSharedPointer<ParameterCollection::IParameter> parameter) override;
    void setVisibility(GenApi::EVisibility visibility) override { m_visibility = visibility; }
    GenApi::EVisibility getVisibility() const override { return m_visibility; }
    void setMonitorMode(bool on) override;
    void setGenICamCallbacksEnable(bool on) override;
    bool getGenICamCallbackEnable() const override { return true; }
    FeatureTreeItem* getFeatureTreeItem(const QModelIndex& index) const override;
    void setHighlighter(FeatureTreeHighlighter* highlighter) override;
    void refreshSpecialItems() override;
    bool isUtf8Encoded() const override { return false; }
    void clear() override;
    QString getParameterCollectionName(
        QSharedPointer<ParameterCollection::IParameterCollection> collection) const override;
    void setParameterHighlightListRecursive(
        FeatureTreeINodeItem* item,
        const QList<ParameterCollection::ParameterName>& names) override;
    void setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text) override;

public Q_SLOTS:
    void onNodeUpdated(int column, FeatureTreeINodeItem* item) override;
    void onTimerPoll() override;

Q_SIGNALS:
    // A row moved from one position to another, by a drop or by moveFavorite.
    void orderOfItemsChanged(int from, int to);
    // A write the parameter layer refused at once, with its reason, for the status line.
    void writeRefused(const QString& fullName, const QString& message);

private:
    QString m_dragSourceName;
    FeatureTreeINodeItem* itemAt(int row) const;
    FeatureTreeINodeItem* itemAt(const QModelIndex& index) const;
    int rowOf(const QObject* item) const;
    void removeAllRows();
    void moveRow(int from, int to);
    void announceRows(const QList<int>& rows);
    void refuseWrite(const QModelIndex& index, FeatureTreeINodeItem* item, const QString& message);
    void rereadRows(const QList<ParameterCollection::ParameterName>& names);
    void onItemDestroyed(QObject* item);

    QList<QObject*> m_items; // not owned: the tree model's items
    GenApi::EVisibility m_visibility = GenApi::Guru;
    QList<ParameterCollection::ParameterName> m_parameterFilterList;
    FeatureTreeHighlighter* m_highlighter = nullptr; // not owned
    // Set for good by the first failed read, so a feature that keeps failing on every repaint
    // is reported once per table.
    mutable bool m_getErrorReported = false;
    bool m_deviceAlive = true;
    bool m_showUnavailable = false;
};

} // namespace Model
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
