#include "featuretreeitem.h"

#include "ifeaturetreemodelextension.h"
#include "searchmatcher.h"

#include <QAbstractProxyModel>
#include <QApplication>
#include <QBrush>
#include <QFontMetrics>
#include <QPalette>
#include <QSize>

QString getNodemapName(const QString& fullName)
{
    const QString first = fullName.mid(1).split(QLatin1Char('/')).first();
    static const struct {
        const char* nodeMap;
        const char* name;
    } table[] = {
        {"CameraInstance", "CameraInstance"},
        {"DeviceTransportLayer", "TransportLayer"},
        {"StreamGrabber0", "StreamGrabber"},
        {"ExcelRunner", "ExcelRunner"},
        {"ImageFormatConverter", "ImageFormatConverter"},
        {"DeepViewer", "DeepViewer"},
        {"ChunkData", "ChunkData"},
        {"CameraDevice", "CameraDevice"},
        {"EventGrabber", "EventGrabber"},
        {"GenTl", "Interface"},
    };
    for (const auto& entry : table) {
        if (first == QLatin1String(entry.nodeMap)) {
            return QLatin1String(entry.name);
        }
    }
    return QStringLiteral("Invalid");
}

FeatureTreeItem::FeatureTreeItem(const QString& name, IFeatureTreeModelExtension* extension,
                                 const QString& fullName, FeatureTreeItem* parent, int level)
    : QObject(parent), m_displayedName(name), m_fullName(fullName), m_parentItem(parent),
      m_extension(extension), m_level(level)
{}

FeatureTreeItem::~FeatureTreeItem()
{
    // Children go first, while they can still reach their parent.
    qDeleteAll(m_children);
    m_children.clear();
}

FeatureTreeItem* FeatureTreeItem::child(int row)
{
    return m_children.value(row, nullptr);
}

int FeatureTreeItem::childCount()
{
    return m_children.size();
}

int FeatureTreeItem::row() const
{
    if (!m_parentItem) {
        return 0;
    }
    // Categories hold thousands of features: remember the position and check it is still true.
    const auto& siblings = m_parentItem->m_children;
    if (m_rowHint < 0 || m_rowHint >= siblings.size() || siblings.at(m_rowHint) != this) {
        m_rowHint = siblings.indexOf(const_cast<FeatureTreeItem*>(this));
    }
    return m_rowHint;
}

int FeatureTreeItem::columnCount() const
{
    return DEFAULT_COLUMN_COUNT;
}

FeatureTreeItem* FeatureTreeItem::parent() const
{
    return m_parentItem;
}

void FeatureTreeItem::appendChild(FeatureTreeItem* item)
{
    m_children.append(item);
}

void FeatureTreeItem::insertChild(FeatureTreeItem* item, int row)
{
    m_children.insert(qBound(0, row, m_children.size()), item);
}

void FeatureTreeItem::removeChild(int row)
{
    if (row >= 0 && row < m_children.size()) {
        delete m_children.takeAt(row);
    }
}

void FeatureTreeItem::clearChildren()
{
    qDeleteAll(m_children);
    m_children.clear();
}

bool FeatureTreeItem::hasChildren()
{
    return !m_children.isEmpty();
}

bool FeatureTreeItem::hasParameterChildren()
{
    const int count = childCount();
    for (int i = 0; i < count; ++i) {
        const FeatureTreeItem* item = child(i);
        if (!item->isCategory() && item->showMe(GenApi::Guru)) {
            return true;
        }
    }
    return false;
}

QVariant FeatureTreeItem::data(int column, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return column == 0 ? QVariant(m_displayedName) : QVariant();
    case Qt::ToolTipRole:
        return getToolTip();
    case Qt::ForegroundRole:
        return column <= 1 ? getForegroundRole() : QVariant();
    case Qt::SizeHintRole:
        if (column == 0) {
            const QFontMetrics metrics(QApplication::font());
            return QSize(metrics.horizontalAdvance(m_displayedName) + metrics.height(),
                         metrics.height() + 10);
        }
        return QVariant();
    case FullNameRole:
    case FullNamePathRole:
        return m_fullName;
    case IsCategoryRole:
        return isCategory();
    case VisibilityRole:
        return m_visibility;
    case UniqueIdRole:
        return static_cast<unsigned int>(qHash(m_fullName, 0));
    case FullRowItemRole:
        return m_fullRowItem;
    case SpecialNodeRole:
        return m_specialNode;
    case VisibleRole:
        return showMe(GenApi::Guru);
    case HighlightedRole:
        return m_highlighted;
    case SearchedRole:
        return m_searched;
    case HasParameterChildrenRole:
        return const_cast<FeatureTreeItem*>(this)->hasParameterChildren();
    case LevelRole:
        return m_level;
    case TechnicalNameRole:
        return getTechnicalName();
    default:
        return QVariant();
    }
}

bool FeatureTreeItem::setData(int, const QVariant&, int)
{
    return false;
}

Qt::ItemFlags FeatureTreeItem::flags(int) const
{
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

int FeatureTreeItem::editorType() const
{
    return m_editorType;
}

int FeatureTreeItem::editorType(const QModelIndex& index)
{
    QModelIndex source = index;
    while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(source.model())) {
        source = proxy->mapToSource(source);
    }
    const auto* extension = dynamic_cast<const IFeatureTreeModelExtension*>(source.model());
    return editorType(extension ? extension->getFeatureTreeItem(source) : nullptr);
}

int FeatureTreeItem::editorType(const FeatureTreeItem* item)
{
    return item ? item->editorType() : NoEditorType;
}

bool FeatureTreeItem::isEditable() const
{
    return false;
}

bool FeatureTreeItem::usePersistentEditor() const
{
    switch (editorType()) {
    case IntEditorType:
    case StringEditorType:
    case ReservedEditorType8:
    case NoEditorType:
        return false;
    default:
        return true;
    }
}

bool FeatureTreeItem::showMe(GenApi::EVisibility level) const
{
    return m_visibility <= static_cast<int>(level);
}

GenApi::EAccessMode FeatureTreeItem::getAccessMode() const
{
    return GenApi::RO;
}

int FeatureTreeItem::getVisibility() const
{
    return m_visibility;
}

void FeatureTreeItem::setVisibility(int visibility)
{
    m_visibility = visibility;
}

QVariant FeatureTreeItem::getForegroundRole() const
{
    // One brush for every structural row: the text colour of disabled widgets.
    static const QBrush brush = QPalette().brush(QPalette::Disabled, QPalette::Text);
    return brush;
}

IFeatureTreeModelExtension* FeatureTreeItem::getExtension() const
{
    return m_extension;
}

QString FeatureTreeItem::getTechnicalName() const
{
    if (m_fullName.contains(QLatin1String("*Root"))) {
        return m_fullName.mid(m_fullName.lastIndexOf(QLatin1Char('*')) + 1);
    }
    return m_fullName.mid(m_fullName.lastIndexOf(QLatin1Char('/')) + 1);
}

bool FeatureTreeItem::applySearch(const SearchMatcher& matcher)
{
    const bool searched =
        !matcher.isEmpty() && matcher.matchesNames(getTechnicalName(), getDisplayedName());
    const bool changed = searched != m_searched;
    m_searched = searched;
    return changed;
}

void FeatureTreeItem::setDescription(const QString& description)
{
    if (!m_description) {
        m_description = std::make_unique<QString>();
    }
    *m_description = description;
}

void FeatureTreeItem::setToolTip(const QString& toolTip)
{
    if (!m_toolTip) {
        m_toolTip = std::make_unique<QString>();
    }
    *m_toolTip = toolTip;
}

bool FeatureTreeItem::findShallow(const FeatureTreeItem* item)
{
    if (item == this) {
        return true;
    }
    const int count = childCount();
    for (int i = 0; i < count; ++i) {
        if (child(i)->findShallow(item)) {
            return true;
        }
    }
    return false;
}

FeatureTreeItem* FeatureTreeItem::findByFullNameShallow(const QString& fullName)
{
    if (getFullName() == fullName) {
        return this;
    }
    const int count = childCount();
    for (int i = 0; i < count; ++i) {
        if (FeatureTreeItem* found = child(i)->findByFullNameShallow(fullName)) {
            return found;
        }
    }
    return nullptr;
}

FeatureTreeItem* FeatureTreeItem::findByRoleShallow(int role, const QVariant& value)
{
    if (data(0, role) == value) {
        return this;
    }
    const int count = childCount();
    for (int i = 0; i < count; ++i) {
        if (FeatureTreeItem* found = child(i)->findByRoleShallow(role, value)) {
            return found;
        }
    }
    return nullptr;
}
