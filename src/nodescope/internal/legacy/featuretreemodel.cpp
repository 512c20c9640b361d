#include "featuretreemodel.h"

#include "featuretreehighlighter.h"
#include "featuretreeinodeitem.h"
#include "featuretreeitem.h"
#include "searchmatcher.h"
#include "editnotice.h"

#include <QDebug>
#include <QMimeData>
#include <QSet>

#include <exception>

using namespace ParameterCollection;

namespace {
// Log lines name where they come from, so reports from users can be traced.
const char* const kSourcePath = "src/nodescope/internal/legacy/featuretreemodel";
const char* const kTextPlain = "text/plain";

} // namespace

FeatureTreeModel::FeatureTreeModel(QObject* parent)
    : QAbstractItemModel(parent),
      m_rootItem(std::make_unique<FeatureTreeItem>(QString(), this, QString(), nullptr, 0))
{
    m_pollTimer.setSingleShot(true);
    connect(&m_pollTimer, &QTimer::timeout, this, &FeatureTreeModel::onTimerPoll);
}

FeatureTreeModel::~FeatureTreeModel() = default;

FeatureTreeItem* FeatureTreeModel::itemOrRoot(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return m_rootItem.get();
    }
    return static_cast<FeatureTreeItem*>(index.internalPointer());
}

QModelIndex FeatureTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || column >= FeatureTreeItem::DEFAULT_COLUMN_COUNT ||
        parent.column() > 0) {
        return QModelIndex();
    }
    FeatureTreeItem* parentItem = itemOrRoot(parent);
    FeatureTreeItem* child = parentItem ? parentItem->child(row) : nullptr;
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex FeatureTreeModel::parent(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return QModelIndex();
    }
    auto* item = static_cast<FeatureTreeItem*>(index.internalPointer());
    FeatureTreeItem* parentItem = item ? item->parent() : nullptr;
    if (!parentItem || parentItem == m_rootItem.get()) {
        return QModelIndex();
    }
    return createIndex(parentItem->row(), 0, parentItem);
}

int FeatureTreeModel::rowCount(const QModelIndex& parent) const
{
    // Only the name column has children, as in every Qt tree.
    if (parent.column() > 0) {
        return 0;
    }
    FeatureTreeItem* item = itemOrRoot(parent);
    return item ? item->childCount() : 0;
}

int FeatureTreeModel::columnCount(const QModelIndex&) const
{
    return FeatureTreeItem::DEFAULT_COLUMN_COUNT;
}

bool FeatureTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (parent.column() > 0) {
        return false;
    }
    FeatureTreeItem* item = itemOrRoot(parent);
    return item && item->hasChildren();
}

QVariant FeatureTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !index.internalPointer()) {
        return QVariant();
    }
    auto* item = static_cast<FeatureTreeItem*>(index.internalPointer());
    try {
        QVariant value = item->data(index.column(), role);
        m_getErrorReported = false;
        return value;
    } catch (...) {
        // A failing feature is asked again on every repaint: say it once per run of failures.
        if (!m_getErrorReported) {
            qDebug() << kSourcePath << " " << 307 << " "
                     << "Failed to get a feature value";
            m_getErrorReported = true;
        }
    }
    return QVariant();
}

bool FeatureTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || !index.internalPointer() || role != Qt::EditRole ||
        index.column() != 1 || !value.isValid()) {
        return false;
    }
    auto* item = static_cast<FeatureTreeItem*>(index.internalPointer());
    if (!m_deviceAlive) {
        refuseWrite(index, EditNotice::cameraLost(item->getDisplayedName()));
        return false;
    }
    try {
        if (item->data(1, Qt::EditRole) == value) {
            return true;
        }
        item->setData(1, value, Qt::EditRole);
        return true;
    } catch (const std::exception& e) {
        if (m_deviceAlive) {
            qDebug() << kSourcePath << " " << 269 << " "
                     << "Failed to set a feature value.";
            refuseWrite(index, EditNotice::writeRefused(item->getDisplayedName(), e));
        }
    } catch (...) {
        if (m_deviceAlive) {
            qDebug() << kSourcePath << " " << 269 << " "
                     << "Failed to set a feature value.";
            refuseWrite(index, EditNotice::notWritten(item->getDisplayedName()));
        }
    }
    return false;
}

void FeatureTreeModel::refuseWrite(const QModelIndex& index, const QString& message)
{
    auto* item = static_cast<FeatureTreeItem*>(index.internalPointer());
    Q_EMIT writeRefused(item->getFullName(), message);
    // The editor shows what it was told to write; the cell's data puts it back.
    Q_EMIT dataChanged(index, index);
}

Qt::ItemFlags FeatureTreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || !index.internalPointer()) {
        return Qt::ItemIsEnabled;
    }
    try {
        return static_cast<FeatureTreeItem*>(index.internalPointer())->flags(index.column());
    } catch (...) {
        return Qt::ItemIsEnabled;
    }
}

QVariant FeatureTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QVariant();
    }
    switch (section) {
    case 0:
        return tr("Category");
    case 1:
        return tr("Value");
    default:
        return QVariant();
    }
}

Qt::DropActions FeatureTreeModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

QStringList FeatureTreeModel::mimeTypes() const
{
    return {QLatin1String(kTextPlain)};
}

QMimeData* FeatureTreeModel::mimeData(const QModelIndexList& indexes) const
{
    auto* mime = new QMimeData;
    if (indexes.isEmpty() || !indexes.first().isValid()) {
        return mime;
    }
    auto* item = dynamic_cast<FeatureTreeINodeItem*>(
        static_cast<FeatureTreeItem*>(indexes.first().internalPointer()));
    if (item && item->node()) {
        try {
            mime->setData(QLatin1String(kTextPlain), item->node()->getName().toUtf8());
        } catch (...) {
            // Nothing to drag.
        }
    }
    return mime;
}

FeatureTreeINodeItem*
FeatureTreeModel::createItem(const QSharedPointer<IParameterCollection>& collection,
                             const QSharedPointer<IParameter>& parameter, FeatureTreeItem* parent,
                             int level)
{
    auto* item = new FeatureTreeINodeItem(collection, parameter, this, parameter->getName(), parent,
                                          m_utf8Encoded, level);
    item->setHighlighter(m_highlighter);
    item->setIsFullRowItem(false);
    item->setIsSpecialNode(false);
    return item;
}

void FeatureTreeModel::addParameterCollection(QSharedPointer<IParameterCollection> collection,
                                              const QString& name, const QString& prefix,
                                              bool utf8Encoded)
{
    m_utf8Encoded = utf8Encoded;
    FeatureTreeINodeItem* item = nullptr;
    try {
        if (!collection) {
            throw std::runtime_error("no collection");
        }
        const QSharedPointer<IParameter> root = collection->getParameter(prefix + "/Root");
        if (!root) {
            throw std::runtime_error("no root");
        }
        item = new FeatureTreeINodeItem(collection, root, name, this,
                                        prefix + QLatin1Char('*') + QLatin1String("Root"),
                                        m_rootItem.get(), utf8Encoded, 1);
        item->setHighlighter(m_highlighter);
        item->setIsFullRowItem(true);
        item->setIsSpecialNode(false);

        // The whole node map is built before anyone can see it: rows that appeared later, from
        // inside a view's or a proxy's rowCount(), would reach them while they build their own
        // mappings of that very parent (Qt's proxy then loses one of them).
        m_buildingDetached = true;
        loadSubtree(item);
        m_buildingDetached = false;
        Q_EMIT layoutAboutToBeChanged();
        m_rootItem->appendChild(item);
        Q_EMIT layoutChanged();
        item->childCount();

        m_nodemapList.append({collection, prefix});
        refreshSpecialItems();
    } catch (...) {
        qDebug() << kSourcePath << " " << 100 << " "
                 << " could not retrieve " << qUtf8Printable(prefix)
                 << "/Root from camera node map";
    }
}

void FeatureTreeModel::loadSubtree(FeatureTreeItem* item)
{
    const int count = item->childCount();
    for (int i = 0; i < count; ++i) {
        loadSubtree(item->child(i));
    }
}

void FeatureTreeModel::addChildren(FeatureTreeINodeItem* parentItem,
                                   QSharedPointer<IParameter> parameter)
{
    if (!parentItem || !parameter) {
        return;
    }
    QList<FeatureTreeItem*> created;
    QSet<QString> expanding;
    try {
        expanding.insert(parameter->getName());
        collectChildren(parentItem, parameter, created, expanding);
    } catch (...) {
        // Keep what was built before the failure; the rest of the tree stays usable.
    }
    if (created.isEmpty()) {
        return;
    }
    m_treeChangedSinceSearch = true;
    if (m_buildingDetached) {
        for (FeatureTreeItem* item : qAsConst(created)) {
            parentItem->FeatureTreeItem::appendChild(item);
        }
        return;
    }
    const int first = parentItem->FeatureTreeItem::childCount();
    beginInsertRows(indexForItem(parentItem, 0), first, first + created.size() - 1);
    for (FeatureTreeItem* item : qAsConst(created)) {
        parentItem->FeatureTreeItem::appendChild(item);
    }
    endInsertRows();
}

void FeatureTreeModel::collectChildren(FeatureTreeINodeItem* parentItem,
                                       const QSharedPointer<IParameter>& parameter,
                                       QList<FeatureTreeItem*>& created, QSet<QString>& expanding)
{
    const int level = parentItem->level();
    const QSharedPointer<IParameterCollection> collection = parentItem->collection();
    if (!collection) {
        return;
    }
    const QStringList names = collection->getChildren(parameter->getName());
    for (const QString& name : names) {
        const QSharedPointer<IParameter> child = collection->getParameter(name);
        if (!child || child->isNull()) {
            continue;
        }
        const bool category = child->getType() == CategoryType;
        const auto data = child->getParameterData();
        const bool visibleCategory = category && data && data->visibility < GenApi::Invisible;
        if (level < 2) {
            if (!category || visibleCategory) {
                created.append(createItem(collection, child, parentItem, level + 1));
            }
        } else if (!category) {
            created.append(createItem(collection, child, parentItem, level + 1));
        } else if (visibleCategory && !expanding.contains(name)) {
            // Below the first category level the tree stays flat: node map, category,
            // features. A camera description whose categories loop is cut at the repeat.
            expanding.insert(name);
            collectChildren(parentItem, child, created, expanding);
        }
    }
}

QModelIndex FeatureTreeModel::indexForItem(FeatureTreeItem* item, int column) const
{
    if (!item || item == m_rootItem.get()) {
        return QModelIndex();
    }
    return createIndex(item->row(), column, item);
}

void FeatureTreeModel::enablePolling(bool on)
{
    if (on == m_pollingEnabled) {
        return;
    }
    m_pollingEnabled = on;
    if (on) {
        m_pollTimer.start(m_pollInterval);
    }
}

QModelIndex FeatureTreeModel::findItem(const FeatureTreeItem* item, const FeatureTreeItem* start,
                                       int column) const
{
    auto* from = const_cast<FeatureTreeItem*>(start ? start : m_rootItem.get());
    if (!item || !from->findShallow(item)) {
        return QModelIndex();
    }
    return indexForItem(const_cast<FeatureTreeItem*>(item), column);
}

QModelIndex FeatureTreeModel::findItemByFullName(const QString& fullName, FeatureTreeItem* start,
                                                 int column) const
{
    FeatureTreeItem* from = start ? start : m_rootItem.get();
    return indexForItem(from->findByFullNameShallow(fullName), column);
}

QModelIndex FeatureTreeModel::findItemByRole(int role, const QVariant& value,
                                             FeatureTreeItem* start, int column) const
{
    FeatureTreeItem* from = start ? start : m_rootItem.get();
    try {
        return indexForItem(from->findByRoleShallow(role, value), column);
    } catch (...) {
        return QModelIndex();
    }
}

void FeatureTreeModel::setParameterFilterList(const QList<ParameterName>&)
{
    // The proxy filters; the model shows everything.
}

void FeatureTreeModel::getParameterFilterList(QList<ParameterName>&) const {}

void FeatureTreeModel::setParameterHighlightList(const QList<ParameterName>& names)
{
    const int count = m_rootItem->childCount();
    for (int i = 0; i < count; ++i) {
        if (auto* item = dynamic_cast<FeatureTreeINodeItem*>(m_rootItem->child(i))) {
            setParameterHighlightListRecursive(item, names);
        }
    }
}

void FeatureTreeModel::setParameterHighlightListRecursive(FeatureTreeINodeItem* item,
                                                          const QList<ParameterName>& names)
{
    QSet<QString> set;
    for (const ParameterName& name : names) {
        set.insert(name.toString());
    }
    markHighlighted(item, set);
}

void FeatureTreeModel::markHighlighted(FeatureTreeItem* item, const QSet<QString>& names)
{
    const int count = item->childCount();
    for (int i = 0; i < count; ++i) {
        FeatureTreeItem* child = item->child(i);
        child->setHighlighted(names.contains(child->getFullName()));
        markHighlighted(child, names);
    }
}

void FeatureTreeModel::setSearchRegExp(QString text)
{
    // Typing extends the text: only rows that matched the shorter text can still match. Rows
    // added since the last search were never compared, so they rule the shortcut out.
    const bool narrowing = !m_treeChangedSinceSearch && !m_searchText.isEmpty() &&
                           text.startsWith(m_searchText, Qt::CaseInsensitive);
    m_searchText = text;
    m_searchNarrowing = narrowing;
    const int count = m_rootItem->childCount();
    for (int i = 0; i < count; ++i) {
        if (auto* item = dynamic_cast<FeatureTreeINodeItem*>(m_rootItem->child(i))) {
            setSearchRegExpRecursive(item, text);
        }
    }
    m_searchNarrowing = false;
    m_treeChangedSinceSearch = false;
}

void FeatureTreeModel::setSearchRegExpRecursive(FeatureTreeINodeItem* item, const QString& text)
{
    // A plain substring, ignoring case: users type names, and "Gain(" must not be a pattern.
    markSearched(item, SearchMatcher(text));
}

void FeatureTreeModel::markSearched(FeatureTreeItem* item, const SearchMatcher& matcher)
{
    const bool empty = matcher.isEmpty();
    const int count = item->childCount();
    for (int i = 0; i < count; ++i) {
        FeatureTreeItem* child = item->child(i);
        if (empty || !m_searchNarrowing || child->isSearched()) {
            child->applySearch(matcher);
        }
        markSearched(child, matcher);
    }
}

void FeatureTreeModel::setShowUnavailableParameters(const bool&)
{
    // The proxy decides what is shown.
}

void FeatureTreeModel::refresh(QList<ParameterName> names)
{
    if (m_nodemapList.isEmpty()) {
        return;
    }
    const QSharedPointer<IParameterCollection> collection = m_nodemapList.first().collection;
    try {
        if (names.isEmpty()) {
            collection->refresh();
            return;
        }
        for (const ParameterName& name : qAsConst(names)) {
            const QSharedPointer<IParameter> parameter = collection->getParameter(name);
            if (parameter && parameter->getAdvancedParameterAccess()) {
                parameter->getAdvancedParameterAccess()->refreshParameterData();
            }
        }
    } catch (...) {
        // A device that cannot answer keeps showing its last values.
    }
}

FeatureTreeItem* FeatureTreeModel::getFeatureTreeItem(const QModelIndex& index) const
{
    return static_cast<FeatureTreeItem*>(index.internalPointer());
}

void FeatureTreeModel::setHighlighter(FeatureTreeHighlighter* highlighter)
{
    m_highlighter = highlighter;
}

void FeatureTreeModel::refreshSpecialItems()
{
    const int count = m_rootItem->childCount();
    if (count > 0) {
        Q_EMIT dataChanged(index(0, 0),
                           index(count - 1, FeatureTreeItem::DEFAULT_COLUMN_COUNT - 1));
    }
}

void FeatureTreeModel::clear()
{
    beginResetModel();
    m_treeChangedSinceSearch = true;
    m_rootItem->clearChildren();
    m_nodemapList.clear();
    endResetModel();
}

void FeatureTreeModel::onNodeUpdated(int column, FeatureTreeINodeItem* item)
{
    if (!m_deviceAlive || !item) {
        return;
    }
    const QModelIndex i = indexForItem(item, column);
    Q_EMIT dataChanged(i, i);
}

void FeatureTreeModel::onTimerPoll()
{
    if (!m_deviceAlive) {
        return;
    }
    if (m_monitorMode) {
        refresh({});
    } else if (!m_nodemapList.isEmpty()) {
        try {
            m_nodemapList.first().collection->poll(m_pollInterval);
        } catch (...) {
            // The next beat tries again.
        }
    }
    if (m_pollingEnabled) {
        m_pollTimer.start(m_pollInterval);
    }
}

QString FeatureTreeModel::getParameterCollectionName(QSharedPointer<IParameterCollection>) const
{
    return QString();
}
