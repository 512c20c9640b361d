#include "featuretreeproxymodel.h"

#include "featuretreeitem.h"
#include "featuretreemodel.h"

#include "internal/model/featuretablemodel.h"

using namespace ParameterCollection;

namespace {

int slotOf(const void* feature, int slotCount)
{
    // Fibonacci hashing of the address; heap objects lie at least 16 bytes apart.
    const quint64 hash = (quint64(quintptr(feature)) >> 4) * Q_UINT64_C(0x9E3779B97F4A7C15);
    return int(hash >> 32) & (slotCount - 1);
}

} // namespace

void FeatureTreeProxyModel::MatchSet::insert(const void* feature, const QString& fullName)
{
    if (!feature) {
        m_names.insert(fullName);
        return;
    }
    // At most half full, so that a probe ends soon.
    if (2 * (m_featureCount + 1) > m_slots.size()) {
        grow();
    }
    const int mask = m_slots.size() - 1;
    for (int slot = slotOf(feature, m_slots.size());; slot = (slot + 1) & mask) {
        const void* held = m_slots.at(slot);
        if (held == feature) {
            return;
        }
        if (!held) {
            m_slots[slot] = feature;
            ++m_featureCount;
            return;
        }
    }
}

void FeatureTreeProxyModel::MatchSet::grow()
{
    const QVector<const void*> old = m_slots;
    m_slots = QVector<const void*>(qMax(64, 2 * old.size()), nullptr);
    m_featureCount = 0;
    for (const void* feature : old) {
        if (feature) {
            insert(feature, QString());
        }
    }
}

void FeatureTreeProxyModel::MatchSet::clear()
{
    if (m_featureCount > 0) {
        m_slots.fill(nullptr);
        m_featureCount = 0;
    }
    if (!m_names.isEmpty()) {
        m_names.clear();
    }
}

FeatureTreeProxyModel::FeatureTreeProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {}

void FeatureTreeProxyModel::setSourceModel(QAbstractItemModel* model)
{
    m_sourceModel = model;
    m_source = dynamic_cast<IFeatureTreeModelExtension*>(model);
    m_treeSource = qobject_cast<FeatureTreeModel*>(model) != nullptr;
    QSortFilterProxyModel::setSourceModel(model);
}

IFeatureTreeModelExtension* FeatureTreeProxyModel::source() const
{
    // A destroyed source is replaced behind our back by Qt's empty model.
    return sourceModel() == m_sourceModel ? m_source : nullptr;
}

FeatureTreeModel* FeatureTreeProxyModel::getFeatureTreeModel() const
{
    return qobject_cast<FeatureTreeModel*>(sourceModel());
}

Plugin::Nodescope::Internal::Model::CFeatureTableModel*
FeatureTreeProxyModel::getFeatureTableModel() const
{
    return qobject_cast<Plugin::Nodescope::Internal::Model::CFeatureTableModel*>(sourceModel());
}

void FeatureTreeProxyModel::addParameterCollection(QList<QObject*> items, bool utf8Encoded)
{
    // No pass-through here: a handful of rows is judged as it arrives, so a category handed
    // over with the features never shows, not even until the next re-filtering.
    if (auto* table = getFeatureTableModel()) {
        table->addParameterCollection(items, utf8Encoded);
    }
}

void FeatureTreeProxyModel::addParameterCollection(QSharedPointer<IParameterCollection> collection,
                                                   const QString& name, const QString& prefix,
                                                   bool utf8Encoded)
{
    // Rows that arrive while a node map is added are let through untested; the re-filtering
    // that follows judges them all at once.
    m_passThrough = true;
    if (FeatureTreeModel* model = getFeatureTreeModel()) {
        model->addParameterCollection(collection, name, prefix, utf8Encoded);
    }
    m_passThrough = false;
}

bool FeatureTreeProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (sourceRow == 0 && !sourceParent.isValid()) {
        m_visibleMatches.clear();
        m_invisibleMatches.clear();
    }
    if (m_passThrough) {
        return true;
    }
    if (filterAcceptsRowItself(sourceRow, sourceParent, false)) {
        return true;
    }
    return m_treeSource && source() && hasAcceptedChildren(sourceRow, sourceParent, 0);
}

bool FeatureTreeProxyModel::hasAcceptedChildren(int sourceRow, const QModelIndex& sourceParent,
                                                int depth) const
{
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    if (!index.isValid()) {
        return false;
    }
    const int count = sourceModel()->rowCount(index);
    for (int row = 0; row < count; ++row) {
        if (filterAcceptsRowItself(row, index, true) ||
            hasAcceptedChildren(row, index, depth + 1)) {
            return true;
        }
    }
    return false;
}

FeatureTreeProxyModel::RowFacts FeatureTreeProxyModel::rowFacts(const QModelIndex& index) const
{
    RowFacts facts;
    facts.index = index;
    // Every keystroke re-filters every row: ask the item itself rather than through variants.
    IFeatureTreeModelExtension* extension = source();
    facts.item = extension ? extension->getFeatureTreeItem(index) : nullptr;
    if (facts.item) {
        facts.visible = facts.item->showMe(GenApi::Guru);
        facts.category = facts.item->isCategory();
        facts.searched = facts.item->isSearched();
        facts.visibility = facts.item->getVisibility();
        return facts;
    }
    facts.visible = index.data(FeatureTreeItem::VisibleRole).toBool();
    facts.category = index.data(FeatureTreeItem::IsCategoryRole).toBool();
    facts.searched = index.data(FeatureTreeItem::SearchedRole).toBool();
    facts.visibility = index.data(FeatureTreeItem::VisibilityRole).toInt();
    return facts;
}

QString FeatureTreeProxyModel::RowFacts::fullName() const
{
    return item ? item->getFullName() : index.data(FeatureTreeItem::FullNameRole).toString();
}

bool FeatureTreeProxyModel::filterAcceptsRowItself(int sourceRow, const QModelIndex& sourceParent,
                                                   bool) const
{
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    if (!index.isValid()) {
        return false;
    }
    const RowFacts row = rowFacts(index);
    if (!row.visible && m_visibility != GenApi::Invisible && !m_showUnavailable) {
        return false;
    }
    // Categories of the tree are shown through their features; the table lists features only.
    if (row.category) {
        return false;
    }
    const bool withinLevel = row.visibility <= m_visibility || m_showUnavailable;
    const void* feature = row.item ? row.item->featureKey() : nullptr;
    const QString fullName = m_parameterFilterSet.isEmpty() && feature ? QString() : row.fullName();
    if (!m_parameterFilterSet.isEmpty() && !m_parameterFilterSet.contains(fullName)) {
        return false;
    }
    if (row.visibility < GenApi::Invisible && !withinLevel) {
        m_invisibleMatches.insert(feature, fullName);
        return false;
    }
    if (!withinLevel) {
        return false;
    }
    m_visibleMatches.insert(feature, fullName);
    return true;
}

QModelIndex FeatureTreeProxyModel::indexForItem(FeatureTreeItem* item, int column) const
{
    IFeatureTreeModelExtension* s = source();
    return s ? mapFromSource(s->indexForItem(item, column)) : QModelIndex();
}

void FeatureTreeProxyModel::enablePolling(bool on)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->enablePolling(on);
    }
}

bool FeatureTreeProxyModel::getPolling() const
{
    IFeatureTreeModelExtension* s = source();
    return s && s->getPolling();
}

void FeatureTreeProxyModel::setDeviceAlive(bool alive)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setDeviceAlive(alive);
    }
}

QModelIndex FeatureTreeProxyModel::findItem(const FeatureTreeItem* item,
                                            const FeatureTreeItem* start, int column) const
{
    IFeatureTreeModelExtension* s = source();
    return s ? mapFromSource(s->findItem(item, start, column)) : QModelIndex();
}

QModelIndex FeatureTreeProxyModel::findItemByFullName(const QString& fullName,
                                                      FeatureTreeItem* start, int column) const
{
    IFeatureTreeModelExtension* s = source();
    return s ? mapFromSource(s->findItemByFullName(fullName, start, column)) : QModelIndex();
}

QModelIndex FeatureTreeProxyModel::findItemByRole(int role, const QVariant& value,
                                                  FeatureTreeItem* start, int column) const
{
    IFeatureTreeModelExtension* s = source();
    return s ? mapFromSource(s->findItemByRole(role, value, start, column)) : QModelIndex();
}

void FeatureTreeProxyModel::setParameterFilterList(const QList<ParameterName>& names)
{
    if (names == m_parameterFilterList) {
        return;
    }
    m_parameterFilterList = names;
    m_parameterFilterSet.clear();
    for (const ParameterName& name : names) {
        m_parameterFilterSet.insert(name.toString());
    }
    refilter();
}

void FeatureTreeProxyModel::getParameterFilterList(QList<ParameterName>& names) const
{
    names = m_parameterFilterList;
}

void FeatureTreeProxyModel::setParameterHighlightList(const QList<ParameterName>& names)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setParameterHighlightList(names);
    }
}

void FeatureTreeProxyModel::refilter()
{
    // A full rebuild rather than invalidateFilter(): a source that grows rows while the proxy
    // maps a parent leaves that mapping stale, and only a rebuild reaches those rows again.
    invalidate();
}

void FeatureTreeProxyModel::setSearchRegExp(QString text)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setSearchRegExp(text);
    }
    // Searching marks rows, it hides none; the views re-read the marks.
    invalidate();
}

void FeatureTreeProxyModel::setShowUnavailableParameters(const bool& show)
{
    m_showUnavailable = show;
    if (IFeatureTreeModelExtension* s = source()) {
        s->setShowUnavailableParameters(show);
    }
    refilter();
}

void FeatureTreeProxyModel::refresh(QList<ParameterName> names)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->refresh(names);
    }
}

void FeatureTreeProxyModel::addChildren(FeatureTreeINodeItem* parentItem,
                                        QSharedPointer<IParameter> parameter)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->addChildren(parentItem, parameter);
    }
}

void FeatureTreeProxyModel::setVisibility(GenApi::EVisibility visibility)
{
    m_visibility = visibility;
    if (IFeatureTreeModelExtension* s = source()) {
        s->setVisibility(visibility);
    }
    refilter();
}

void FeatureTreeProxyModel::setMonitorMode(bool on)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setMonitorMode(on);
    }
}

void FeatureTreeProxyModel::setGenICamCallbacksEnable(bool on)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setGenICamCallbacksEnable(on);
    }
}

bool FeatureTreeProxyModel::getGenICamCallbackEnable() const
{
    IFeatureTreeModelExtension* s = source();
    return s && s->getGenICamCallbackEnable();
}

FeatureTreeItem* FeatureTreeProxyModel::getFeatureTreeItem(const QModelIndex& index) const
{
    IFeatureTreeModelExtension* s = source();
    if (!s) {
        return nullptr;
    }
    // Accept both our own indexes and the source's.
    return s->getFeatureTreeItem(index.model() == this ? mapToSource(index) : index);
}

void FeatureTreeProxyModel::setHighlighter(FeatureTreeHighlighter* highlighter)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setHighlighter(highlighter);
    }
}

void FeatureTreeProxyModel::refreshSpecialItems()
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->refreshSpecialItems();
    }
}

bool FeatureTreeProxyModel::isUtf8Encoded() const
{
    IFeatureTreeModelExtension* s = source();
    return s && s->isUtf8Encoded();
}

void FeatureTreeProxyModel::clear()
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->clear();
    }
}

void FeatureTreeProxyModel::onNodeUpdated(int column, FeatureTreeINodeItem* item)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->onNodeUpdated(column, item);
    }
}

void FeatureTreeProxyModel::onTimerPoll()
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->onTimerPoll();
    }
}

QString FeatureTreeProxyModel::getParameterCollectionName(
    QSharedPointer<IParameterCollection> collection) const
{
    IFeatureTreeModelExtension* s = source();
    if (s && (getFeatureTreeModel() || getFeatureTableModel())) {
        return s->getParameterCollectionName(collection);
    }
    return QString();
}

void FeatureTreeProxyModel::setParameterHighlightListRecursive(FeatureTreeINodeItem* item,
                                                               const QList<ParameterName>& names)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setParameterHighlightListRecursive(item, names);
    }
}

void FeatureTreeProxyModel::setSearchRegExpRecursive(FeatureTreeINodeItem* item,
                                                     const QString& text)
{
    if (IFeatureTreeModelExtension* s = source()) {
        s->setSearchRegExpRecursive(item, text);
    }
}
