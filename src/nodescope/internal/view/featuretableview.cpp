#include "featuretableview.h"

#include "internal/legacy/featureviewlook.h"

#include "internal/legacy/featuretreedelegate.h"
#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/model/featuretablemodel.h"

#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPalette>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

using Model::CFeatureTableModel;

CFeatureTableView::CFeatureTableView(QWidget* parent)
    : QTableView(parent), m_highlighter(std::make_unique<FeatureTreeHighlighter>())
{
    applyFeatureViewLook(this);

    // The feature tab look; the feature tree widget sets the same again.
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    setShowGrid(false);
    verticalHeader()->hide();
    // Rows as high as the tree's, one line each: long names elide as they do in the tree.
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(font()).height() + 8);
    horizontalHeader()->setStretchLastSection(true);
    setContextMenuPolicy(Qt::CustomContextMenu);

    createModel();
    // The form names the view after construction; its drags carry the name.
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        if (auto* model = getFeatureTableModel()) {
            model->setDragSourceName(name);
        }
    });
    setIsConnectedToTreeView(m_isConnectedToTreeView);
    connect(this, &QWidget::customContextMenuRequested, this,
            &CFeatureTableView::onCustomContextMenuRequested);
}

CFeatureTableView::~CFeatureTableView()
{
    // The models go while the view is still whole: among the children they would go after
    // the view's own parts, and tell a half-destroyed view about it.
    delete m_proxyModel;
    delete m_tableModel;
}

void CFeatureTableView::createModel()
{
    m_tableModel = new CFeatureTableModel(this);
    m_proxyModel = new FeatureTreeProxyModel(this);
    m_proxyModel->setDynamicSortFilter(false);
    m_proxyModel->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_proxyModel->setFilterKeyColumn(1);
    m_proxyModel->setSourceModel(m_tableModel);
    m_proxyModel->setHighlighter(m_highlighter.get());
    setModel(m_proxyModel);
    setItemDelegate(new FeatureTreeDelegate(this, m_proxyModel, m_highlighter.get()));
    connect(m_tableModel, &CFeatureTableModel::orderOfItemsChanged, this,
            &CFeatureTableView::orderOfTableItemsChanged);
    // Re-filtering and moves arrive as layout changes, which bring rows back without an
    // insertion: they get their editors here.
    connect(m_proxyModel, &QAbstractItemModel::layoutChanged, this,
            [this] { openPersistentEditorsForChildren(); });
    connect(m_proxyModel, &QAbstractItemModel::modelReset, this,
            [this] { openPersistentEditorsForChildren(); });
}

IFeatureTreeModelExtension* CFeatureTableView::getFeatureExtension() const
{
    return m_tableModel;
}

void CFeatureTableView::setIsConnectedToTreeView(bool connected)
{
    m_isConnectedToTreeView = connected;
    auto* proxy = qobject_cast<FeatureTreeProxyModel*>(model());
    if (!proxy || !proxy->getFeatureTableModel()) {
        return;
    }
    // Beside the tree, features are only dragged out, to the feature tab editor; as a feature
    // tab of its own the list is reordered by dragging rows onto each other.
    setDragEnabled(true);
    if (connected) {
        setDragDropMode(QAbstractItemView::DragOnly);
    } else {
        setDragDropMode(QAbstractItemView::InternalMove);
        setDefaultDropAction(Qt::MoveAction);
        setDropIndicatorShown(true);
    }
}

void CFeatureTableView::setVisibility(GenApi::EVisibility visibility)
{
    m_visibility = visibility;
    if (m_proxyModel) {
        m_proxyModel->setVisibility(visibility);
    }
}

bool CFeatureTableView::wantsPersistentEditor(const QModelIndex& index) const
{
    if (!index.isValid() || !m_proxyModel || index.model() != m_proxyModel) {
        return false;
    }
    const FeatureTreeItem* item = m_proxyModel->getFeatureTreeItem(index);
    return item && !item->isCategory() && item->usePersistentEditor();
}

void CFeatureTableView::openPersistentEditor(const QModelIndex& index)
{
    if (!index.isValid()) {
        return;
    }
    const QModelIndex value = index.sibling(index.row(), 1);
    if (!indexWidget(value) && wantsPersistentEditor(value)) {
        QTableView::openPersistentEditor(value);
    }
}

void CFeatureTableView::openPersistentEditorsForChildren(const QModelIndex& parent)
{
    QAbstractItemModel* current = model();
    if (!current) {
        return;
    }
    const int rows = current->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        openPersistentEditor(current->index(row, 1, parent));
    }
}

void CFeatureTableView::closePersistentEditor(const QModelIndex& index)
{
    if (!index.isValid()) {
        return;
    }
    for (int column = 0; column < FeatureTreeItem::DEFAULT_COLUMN_COUNT; ++column) {
        const QModelIndex cell = index.sibling(index.row(), column);
        if (cell.isValid() && indexWidget(cell)) {
            QTableView::closePersistentEditor(cell);
        }
    }
}

void CFeatureTableView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    QTableView::rowsInserted(parent, start, end);
    for (int row = start; row <= end; ++row) {
        openPersistentEditor(model()->index(row, 1, parent));
    }
}

void CFeatureTableView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    // Editors hold on to their feature; they go before the row does.
    for (int row = start; row <= end; ++row) {
        closePersistentEditor(model()->index(row, 0, parent));
    }
    QTableView::rowsAboutToBeRemoved(parent, start, end);
}

void CFeatureTableView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                    const QVector<int>& roles)
{
    QTableView::dataChanged(topLeft, bottomRight, roles);
    if (!topLeft.isValid() || !bottomRight.isValid()) {
        return;
    }
    // A feature that becomes available wants its editor now.
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        openPersistentEditor(model()->index(row, 1, topLeft.parent()));
    }
}

void CFeatureTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    Q_EMIT onCurrentChanged(current);
}

QStyleOptionViewItem CFeatureTableView::viewOptions() const
{
    QStyleOptionViewItem option = QTableView::viewOptions();
    // No selection fill: the value editors sit in the rows and would stand on a coloured
    // band. A selected row shows its text half transparent while the view is active.
    const QColor transparent(0, 0, 0, 0);
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        option.palette.setBrush(group, QPalette::Highlight, transparent);
        QColor text = option.palette.color(group, QPalette::Text);
        if (group == QPalette::Active) {
            text.setAlpha(128);
        }
        option.palette.setColor(group, QPalette::HighlightedText, text);
    }
    return option;
}

QPoint CFeatureTableView::onNameCell(const QPoint& position) const
{
    // A row takes drops through its name; the value cell beside it is the same row to the user.
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || index.column() == 0) {
        return position;
    }
    const QRect name = visualRect(index.sibling(index.row(), 0));
    return name.isValid() ? QPoint(name.center().x(), position.y()) : position;
}

void CFeatureTableView::dragMoveEvent(QDragMoveEvent* event)
{
    const QPoint position = onNameCell(event->pos());
    if (position == event->pos()) {
        QTableView::dragMoveEvent(event);
        return;
    }
    QDragMoveEvent moved(position, event->possibleActions(), event->mimeData(),
                         event->mouseButtons(), event->keyboardModifiers());
    moved.setDropAction(event->dropAction());
    moved.setAccepted(false);
    QTableView::dragMoveEvent(&moved);
    event->setDropAction(moved.dropAction());
    event->setAccepted(moved.isAccepted());
}

void CFeatureTableView::dropEvent(QDropEvent* event)
{
    const QPoint position = onNameCell(event->pos());
    if (position == event->pos()) {
        QTableView::dropEvent(event);
        return;
    }
    QDropEvent moved(position, event->possibleActions(), event->mimeData(), event->mouseButtons(),
                     event->keyboardModifiers());
    moved.setDropAction(event->dropAction());
    moved.setAccepted(false);
    QTableView::dropEvent(&moved);
    event->setDropAction(moved.dropAction());
    event->setAccepted(moved.isAccepted());
}

void CFeatureTableView::onCustomContextMenuRequested(const QPoint& position)
{
    Q_EMIT contextualMenuRequested(position);
}

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
