#include "featuretablemodel.h"

#include "nodescopeconstants.h"

#include "internal/legacy/editnotice.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/searchmatcher.h"

#include <QDebug>
#include <QHash>
#include <QMimeData>
#include <QSet>

#include <exception>

using namespace ParameterCollection;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Model {

namespace {
// Log lines name where they come from, so reports from users can be traced.
const char* const kSourcePath = "src/nodescope/internal/model/featuretablemodel";
const int kGetFailureLine = 266;
const int kSetFailureLine = 291;
const char* const kTextPlain = "text/plain";

QSet<QString> nameSet(const QList<ParameterName>& names)
{
    QSet<QString> set;
    for (const ParameterName& name : names) {
        set.insert(name.toString());
    }
    return set;
}

} // namespace

CFeatureTableModel::CFeatureTableModel(QObject* parent) : QAbstractItemModel(parent) {}

CFeatureTableModel::~CFeatureTableModel() = default;

FeatureTreeINodeItem* CFeatureTableModel::itemAt(int row) const
{
    // Only node items get in. One that is being destroyed no longer casts: the row of a dying
    // feature, or of a category whose destructor is deleting features that are rows too, is
    // asked about while it goes, and must answer nothing.
    return qobject_cast<FeatureTreeINodeItem*>(m_items.value(row, nullptr));
}

FeatureTreeINodeItem* CFeatureTableModel::itemAt(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != this) {
        return nullptr;
    }
    // An index kept across a change may name a row that now holds another item, or none:
    // trust the row only while it still holds the item the index was made for.
    if (m_items.value(index.row(), nullptr) != index.internalPointer()) {
        return nullptr;
    }
    return itemAt(index.row());
}

int CFeatureTableModel::rowOf(const QObject* item) const
{
    return item ? m_items.indexOf(const_cast<QObject*>(item)) : -1;
}

QModelIndex CFeatureTableModel::index(int row, int column, const QModelIndex& parent) const
{
    if (parent.isValid() || row < 0 || row >= m_items.size() || column < 0 ||
        column >= FeatureTreeItem::DEFAULT_COLUMN_COUNT) {
        return QModelIndex();
    }
    return createIndex(row, column, m_items.at(row));
}

QModelIndex CFeatureTableModel::parent(const QModelIndex&) const
{
    return QModelIndex();
}

int CFeatureTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

int CFeatureTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : FeatureTreeItem::DEFAULT_COLUMN_COUNT;
}

QVariant CFeatureTableModel::data(const QModelIndex& index, int role) const
{
    FeatureTreeINodeItem* item = itemAt(index);
    if (!item) {
        return QVariant();
    }
    try {
        return item->data(index.column(), role);
    } catch (...) {
        // Views ask again on every repaint: one line per table is enough.
        if (!m_getErrorReported) {
            m_getErrorReported = true;
            qDebug() << kSourcePath << " " << kGetFailureLine << " "
                     << "Failed to get a feature value";
        }
    }
    return QVariant();
}

bool CFeatureTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    // Views clear a moved row by writing invalid values: never a write to the camera.
    if (role != Qt::EditRole || index.column() != 1 || !value.isValid()) {
        return false;
    }
    FeatureTreeINodeItem* item = itemAt(index);
    if (!item) {
        return false;
    }
    if (!m_deviceAlive) {
        refuseWrite(index, item, EditNotice::cameraLost(item->getDisplayedName()));
        return false;
    }
    try {
        // Editors commit on every step; an unchanged value is not worth a trip to the device.
        if (item->data(1, Qt::EditRole) == value) {
            return true;
        }
        return item->setData(1, value, Qt::EditRole);
    } catch (const std::exception& e) {
        qDebug() << kSourcePath << " " << kSetFailureLine << " "
                 << "Failed to set a feature value.";
        refuseWrite(index, item, EditNotice::writeRefused(item->getDisplayedName(), e));
    } catch (...) {
        qDebug() << kSourcePath << " " << kSetFailureLine << " "
                 << "Failed to set a feature value.";
        refuseWrite(index, item, EditNotice::notWritten(item->getDisplayedName()));
    }
    return false;
}

void CFeatureTableModel::refuseWrite(const QModelIndex& index, FeatureTreeINodeItem* item,
                                     const QString& message)
{
    Q_EMIT writeRefused(item->getFullName(), message);
    // The editor shows what it was told to write; the cell's data puts it back.
    Q_EMIT dataChanged(index, index);
}

Qt::ItemFlags CFeatureTableModel::flags(const QModelIndex& index) const
{
    // Qt's convention for a model that takes drops: the space below the rows is a drop target
    // and nothing else.
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    FeatureTreeINodeItem* item = itemAt(index);
    if (!item) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags result = Qt::ItemNeverHasChildren;
    try {
        result |= item->flags(index.column());
    } catch (...) {
        result |= Qt::ItemIsEnabled;
    }
    // A row is a drop target through its name: that is where a dragged feature lands.
    if (index.column() == 0) {
        result |= Qt::ItemIsDropEnabled;
    }
    return result;
}

QVariant CFeatureTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QVariant();
    }
    switch (section) {
    case 0:
        return tr("Feature");
    case 1:
        return tr("Value");
    default:
        return QVariant();
    }
}

Qt::DropActions CFeatureTableModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

QStringList CFeatureTableModel::mimeTypes() const
{
    return {QLatin1String(kTextPlain)};
}

QMimeData* CFeatureTableModel::mimeData(const QModelIndexList& indexes) const
{
    // Only the name travels: feature tabs know their features by full name.
    auto* mime = new QMimeData;
    if (indexes.isEmpty()) {
        return mime;
    }
    if (FeatureTreeINodeItem* item = itemAt(indexes.first())) {
        mime->setData(QLatin1String(kTextPlain), item->getFullName().toUtf8());
        if (!m_dragSourceName.isEmpty()) {
            mime->setData(QLatin1String(Plugin::Nodescope::Constants::DRAG_SOURCE_MIME_TYPE),
                          m_dragSourceName.toUtf8());
        }
    }
    return mime;
}

bool CFeatureTableModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                                         const QModelIndex& parent) const
{
    return action == Qt::MoveAction && parent.isValid() && parent.column() == 0 &&
           parent.model() == this && data && data->hasText();
}

bool CFeatureTableModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                      int column, const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    const QString name = data->text();
    int source = -1;
    for (int i = 0; i < m_items.size(); ++i) {
        const FeatureTreeINodeItem* item = itemAt(i);
        if (item && item->getFullName() == name) {
            source = i;
            break;
        }
    }
    const int target = parent.row();
    if (source < 0 || target < 0 || target >= m_items.size() || source == target) {
        return false;
    }
    moveRow(source, target);
    Q_EMIT orderOfItemsChanged(source, target);
    return true;
}

void CFeatureTableModel::moveRow(int from, int to)
{
    // Qt counts the destination of a downward move in rows before the move.
    const int destination = to > from ? to + 1 : to;
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), destination);
    m_items.move(from, to);
    endMoveRows();
}

bool CFeatureTableModel::moveFavorite(const QModelIndex& index, const QModelIndex& neighbour,
                                      bool up)
{
    if (!index.isValid() || !neighbour.isValid() || index.model() != this ||
        neighbour.model() != this) {
        return false;
    }
    const int from = index.row();
    const int to = neighbour.row();
    if (from >= m_items.size() || to >= m_items.size() || (up ? to >= from : to <= from)) {
        return false;
    }
    // For the neighbour next to the row, as the widget's actions pass it, this exchanges the
    // two rows; a move keeps the notification true for any neighbour.
    moveRow(from, to);
    Q_EMIT orderOfItemsChanged(from, to);
    return true;
}

void CFeatureTableModel::removeAllRows()
{
    if (m_items.isEmpty()) {
        return;
    }
    beginRemoveRows(QModelIndex(), 0, m_items.size() - 1);
    const QList<QObject*> old = m_items;
    m_items.clear();
    for (QObject* item : old) {
        disconnect(item, nullptr, this, nullptr);
    }
    endRemoveRows();
}

void CFeatureTableModel::addParameterCollection(QList<QObject*> items, bool)
{
    removeAllRows();
    QList<QObject*> rows;
    for (QObject* object : qAsConst(items)) {
        if (qobject_cast<FeatureTreeINodeItem*>(object) && !rows.contains(object)) {
            rows.append(object);
        }
    }
    if (rows.isEmpty()) {
        return;
    }
    beginInsertRows(QModelIndex(), 0, rows.size() - 1);
    m_items = rows;
    for (QObject* object : qAsConst(rows)) {
        auto* item = static_cast<FeatureTreeINodeItem*>(object);
        connect(item, &FeatureTreeINodeItem::nodeUpdated, this, &CFeatureTableModel::onNodeUpdated);
        connect(item, &QObject::destroyed, this, &CFeatureTableModel::onItemDestroyed);
    }
    endInsertRows();
}

void CFeatureTableModel::onItemDestroyed(QObject* item)
{
    const int row = rowOf(item);
    if (row < 0) {
        return;
    }
    // Views may look at the row while it goes; by now the item is only a QObject.
    beginRemoveRows(QModelIndex(), row, row);
    m_items.removeAt(row);
    endRemoveRows();
}

void CFeatureTableModel::onNodeUpdated(int, FeatureTreeINodeItem* item)
{
    if (!m_deviceAlive) {
        return;
    }
    const int row = rowOf(item);
    if (row < 0) {
        return;
    }
    Q_EMIT dataChanged(index(row, 0), index(row, FeatureTreeItem::DEFAULT_COLUMN_COUNT - 1));
}

void CFeatureTableModel::announceRows(const QList<int>& rows)
{
    for (int row : rows) {
        Q_EMIT dataChanged(index(row, 0), index(row, FeatureTreeItem::DEFAULT_COLUMN_COUNT - 1));
    }
}

QModelIndex CFeatureTableModel::indexForItem(FeatureTreeItem* item, int column) const
{
    return index(rowOf(item), column);
}

void CFeatureTableModel::enablePolling(bool)
{
    // The tree model polls the camera; the rows share its items and follow along.
}

QModelIndex CFeatureTableModel::findItem(const FeatureTreeItem* item, const FeatureTreeItem*,
                                         int column) const
{
    return index(rowOf(item), column);
}

QModelIndex CFeatureTableModel::findItemByFullName(const QString& fullName, FeatureTreeItem*,
                                                   int column) const
{
    for (int row = 0; row < m_items.size(); ++row) {
        const FeatureTreeINodeItem* item = itemAt(row);
        if (item && item->getFullName() == fullName) {
            return index(row, column);
        }
    }
    return QModelIndex();
}

QModelIndex CFeatureTableModel::findItemByRole(int role, const QVariant& value, FeatureTreeItem*,
                                               int column) const
{
    for (int row = 0; row < m_items.size(); ++row) {
        const FeatureTreeINodeItem* item = itemAt(row);
        try {
            if (item && item->data(0, role) == value) {
                return index(row, column);
            }
        } catch (...) {
            // A row that cannot answer is not the one searched for.
        }
    }
    return QModelIndex();
}

void CFeatureTableModel::setParameterFilterList(const QList<ParameterName>& names)
{
    // Kept for whoever asks; the proxy does the filtering.
    m_parameterFilterList = names;
}

void CFeatureTableModel::getParameterFilterList(QList<ParameterName>& names) const
{
    names = m_parameterFilterList;
}

void CFeatureTableModel::setParameterHighlightList(const QList<ParameterName>& names)
{
    const QSet<QString> set = nameSet(names);
    QList<int> changed;
    for (int row = 0; row < m_items.size(); ++row) {
        FeatureTreeINodeItem* item = itemAt(row);
        const bool highlighted = item && set.contains(item->getFullName());
        if (item && item->isHighlighted() != highlighted) {
            item->setHighlighted(highlighted);
            changed.append(row);
        }
    }
    announceRows(changed);
}

void CFeatureTableModel::setParameterHighlightListRecursive(FeatureTreeINodeItem* item,
                                                            const QList<ParameterName>& names)
{
    if (!item) {
        setParameterHighlightList(names);
        return;
    }
    // A flat list has nothing below a row: only the row itself is marked.
    const int row = rowOf(item);
    if (row < 0) {
        return;
    }
    const bool highlighted = nameSet(names).contains(item->getFullName());
    if (item->isHighlighted() != highlighted) {
        item->setHighlighted(highlighted);
        announceRows({row});
    }
}

void CFeatureTableModel::setSearchRegExp(QString text)
{
    const SearchMatcher matcher(text);
    QList<int> changed;
    for (int row = 0; row < m_items.size(); ++row) {
        FeatureTreeINodeItem* item = itemAt(row);
        if (!item) {
            continue;
        }
        if (item->applySearch(matcher)) {
            changed.append(row);
        }
    }
    announceRows(changed);
}

void CFeatureTableModel::setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text)
{
    if (!item) {
        setSearchRegExp(text);
        return;
    }
    const int row = rowOf(item);
    if (row < 0) {
        return;
    }
    if (item->applySearch(SearchMatcher(text))) {
        announceRows({row});
    }
}

void CFeatureTableModel::rereadRows(const QList<ParameterName>& names)
{
    if (!m_deviceAlive) {
        return;
    }
    const QSet<QString> wanted = nameSet(names);
    // One request per camera, past the register cache; the answers come back as updates of
    // the items, and so as dataChanged of their rows.
    QList<QSharedPointer<IParameterCollection>> collections;
    QHash<IParameterCollection*, QList<ParameterName>> requests;
    for (int row = 0; row < m_items.size(); ++row) {
        const FeatureTreeINodeItem* item = itemAt(row);
        if (!item || !item->collection() || item->isCategory()) {
            continue;
        }
        const QString fullName = item->getFullName();
        if (!wanted.isEmpty() && !wanted.contains(fullName)) {
            continue;
        }
        IParameterCollection* collection = item->collection().data();
        if (!requests.contains(collection)) {
            collections.append(item->collection());
        }
        requests[collection].append(ParameterName(fullName));
    }
    for (const QSharedPointer<IParameterCollection>& collection : qAsConst(collections)) {
        try {
            collection->refresh(requests.value(collection.data()));
        } catch (...) {
            // A camera that cannot answer keeps showing its last values.
        }
    }
}

void CFeatureTableModel::refresh(QList<ParameterName> names)
{
    rereadRows(names);
}

void CFeatureTableModel::refreshSpecialItems()
{
    rereadRows({});
}

void CFeatureTableModel::onTimerPoll()
{
    rereadRows({});
}

void CFeatureTableModel::addChildren(FeatureTreeINodeItem*, QSharedPointer<IParameter>)
{
    // Rows have no children.
}

void CFeatureTableModel::setMonitorMode(bool)
{
    // Monitoring is the tree model's business.
}

void CFeatureTableModel::setGenICamCallbacksEnable(bool)
{
    // The items follow their parameters whatever the table is told.
}

FeatureTreeItem* CFeatureTableModel::getFeatureTreeItem(const QModelIndex& index) const
{
    return itemAt(index);
}

void CFeatureTableModel::setHighlighter(FeatureTreeHighlighter* highlighter)
{
    // Only kept: the items are the tree's, and so is their highlighter.
    m_highlighter = highlighter;
}

void CFeatureTableModel::clear()
{
    removeAllRows();
}

QString CFeatureTableModel::getParameterCollectionName(
    QSharedPointer<IParameterCollection> collection) const
{
    if (!collection) {
        return QString();
    }
    for (int row = 0; row < m_items.size(); ++row) {
        const FeatureTreeINodeItem* item = itemAt(row);
        if (item && item->collection() == collection) {
            try {
                return collection->getName();
            } catch (...) {
                return QString();
            }
        }
    }
    return QString();
}

} // namespace Model
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
