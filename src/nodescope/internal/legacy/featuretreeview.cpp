#include "featuretreeview.h"

#include "featureviewlook.h"

#include "featuretreedelegate.h"
#include "featuretreehighlighter.h"
#include "featuretreeitem.h"
#include "featuretreemodel.h"
#include "featuretreeproxymodel.h"
#include "ifeaturetreemodelextension.h"

#include <QItemSelectionModel>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>

namespace {

const int kValueColumn = 1;

} // namespace

FeatureTreeView::FeatureTreeView(QWidget* parent) : QTreeView(parent)
{
    createModel();

    applyFeatureViewLook(this);

    // Without it Qt never asks for the menu the widget builds.
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTreeView::expanded, this, &FeatureTreeView::onSelfExpanded);
    connect(this, &QWidget::customContextMenuRequested, this,
            &FeatureTreeView::onCustomContextMenuRequested);
}

FeatureTreeView::~FeatureTreeView() = default;

void FeatureTreeView::createModel()
{
    m_model = new FeatureTreeModel(this);
    m_proxy = new FeatureTreeProxyModel(this);
    m_proxy->setSourceModel(m_model);
    setModel(m_proxy);

    m_highlighter = std::make_unique<FeatureTreeHighlighter>();
    m_model->setHighlighter(m_highlighter.get());
    setItemDelegate(new FeatureTreeDelegate(this, m_proxy, m_highlighter.get()));

    // A re-filtering proxy hands out rows this view has never judged, and drops the editors of
    // rows it took away for a moment.
    connect(m_proxy, &QAbstractItemModel::layoutChanged, this,
            [this] { updateRows(QModelIndex()); });
    connect(m_proxy, &QAbstractItemModel::modelReset, this, [this] { updateRows(QModelIndex()); });
}

IFeatureTreeModelExtension* FeatureTreeView::getFeatureExtension() const
{
    return m_model;
}

void FeatureTreeView::setVisibility(GenApi::EVisibility visibility)
{
    m_visibility = visibility;
    updateRows(QModelIndex());
}

bool FeatureTreeView::isShownParent(const QModelIndex& parent) const
{
    return !parent.isValid() || isExpanded(parent);
}

bool FeatureTreeView::holdsCurrentIndex(const QModelIndex& rowIndex) const
{
    for (QModelIndex index = currentIndex(); index.isValid(); index = index.parent()) {
        if (index.row() == rowIndex.row() && index.parent() == rowIndex.parent()) {
            return true;
        }
    }
    return false;
}

bool FeatureTreeView::wantsPersistentEditor(const QModelIndex& index) const
{
    auto* extension = dynamic_cast<IFeatureTreeModelExtension*>(model());
    const FeatureTreeItem* item = extension ? extension->getFeatureTreeItem(index) : nullptr;
    if (!item || !item->usePersistentEditor()) {
        return false;
    }
    const QModelIndex value = index.sibling(index.row(), kValueColumn);
    return value.isValid() && !indexWidget(value);
}

void FeatureTreeView::evaluateRow(int row, const QModelIndex& parent)
{
    const QModelIndex index = model()->index(row, 0, parent);
    auto* extension = dynamic_cast<IFeatureTreeModelExtension*>(model());
    const FeatureTreeItem* item = extension ? extension->getFeatureTreeItem(index) : nullptr;
    if (!item) {
        return;
    }
    const bool spanned = index.data(FeatureTreeItem::FullRowItemRole).toBool();
    if (spanned != isFirstColumnSpanned(row, parent)) {
        setFirstColumnSpanned(row, parent, spanned);
    }
    if (item->showMe(m_visibility)) {
        if (isRowHidden(row, parent)) {
            setRowHidden(row, parent, false);
        }
        if (wantsPersistentEditor(index)) {
            openPersistentEditor(index);
        }
    } else if (!isRowHidden(row, parent)) {
        const bool current = holdsCurrentIndex(index);
        setRowHidden(row, parent, true);
        if (current && selectionModel()) {
            // A hidden current row would still take the keyboard; currentChanged tells the
            // listeners that nothing is current any more.
            selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
        }
    }
}

void FeatureTreeView::updateRows(const QModelIndex& parent)
{
    QAbstractItemModel* viewModel = model();
    if (!viewModel || !isShownParent(parent)) {
        return;
    }
    const int rows = viewModel->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        evaluateRow(row, parent);
        updateRows(viewModel->index(row, 0, parent));
    }
}

void FeatureTreeView::openPersistentEditor(const QModelIndex& index)
{
    const QModelIndex value = index.sibling(index.row(), kValueColumn);
    if (!value.isValid() || indexWidget(value)) {
        return;
    }
    QAbstractItemView::openPersistentEditor(value);
}

void FeatureTreeView::openPersistentEditorsForChildren(const QModelIndex& parent)
{
    QAbstractItemModel* viewModel = model();
    auto* extension = dynamic_cast<IFeatureTreeModelExtension*>(viewModel);
    if (!viewModel || !extension) {
        return;
    }
    const int rows = viewModel->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = viewModel->index(row, 0, parent);
        const FeatureTreeItem* item = extension->getFeatureTreeItem(index);
        if (item && item->showMe(m_visibility) && wantsPersistentEditor(index)) {
            openPersistentEditor(index);
        }
    }
}

void FeatureTreeView::expandAll()
{
    m_expandingAll = true;
    QTreeView::expandAll();
    m_expandingAll = false;
    updateRows(QModelIndex());
}

void FeatureTreeView::onSelfExpanded(const QModelIndex& index)
{
    // QTreeView::expandAll() announces each expansion from inside its layout pass, where
    // anything that lays the rows out again pulls them from under it; the whole tree is
    // judged once that pass is over.
    if (m_expandingAll) {
        return;
    }
    updateRows(index);
    openPersistentEditorsForChildren(index);
}

void FeatureTreeView::onCustomContextMenuRequested(const QPoint& position)
{
    Q_EMIT contextualMenuRequested(position);
}

void FeatureTreeView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    QTreeView::rowsInserted(parent, start, end);
    // Rows under a collapsed parent wait for its expansion, like all others.
    if (!model() || !isShownParent(parent)) {
        return;
    }
    for (int row = start; row <= end; ++row) {
        evaluateRow(row, parent);
    }
}

void FeatureTreeView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                  const QVector<int>& roles)
{
    QTreeView::dataChanged(topLeft, bottomRight, roles);
    if (!model() || !topLeft.isValid() || !bottomRight.isValid()) {
        return;
    }
    const QModelIndex parent = topLeft.parent();
    if (!isShownParent(parent)) {
        return;
    }
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        evaluateRow(row, parent);
    }
}

void FeatureTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    Q_EMIT onCurrentChanged(current);
}

void FeatureTreeView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    // The empty-view message is centred: all of it moves with the width.
    viewport()->update();
}

void FeatureTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!model() || model()->rowCount(QModelIndex()) > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(font());
    const int margin = fontMetrics().height() / 2;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, 0),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     tr("No parameters match favorite selection."));
}
