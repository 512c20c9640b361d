#include "featuretreeview.h"

#include "featureviewlook.h"

#include "featuretreedelegate.h"
#include "featuretreehighlighter.h"
#include "featuretreeitem.h"
#include "featuretreemodel.h"
#include "featuretreeproxymodel.h"
#include "ifeaturetreemodelextension.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTimer>

namespace {

const int kValueColumn = 1;
// Up to this many rows keep their editor open wherever they are. Beyond it only rows in and
// near the visible rows have one: every open editor is a widget the viewport lays out and
// paints around, and tens of thousands of them make each one cost more than the last.
const int kEagerEditorLimit = 400;
// Rows above and below the visible ones whose editors are ready before they scroll in.
const int kEditorMarginRows = 24;

} // namespace

FeatureTreeView::FeatureTreeView(QWidget* parent) : QTreeView(parent)
{
    createModel();

    applyFeatureViewLook(this);

    // Without it Qt never asks for the menu the widget builds.
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTreeView::expanded, this, &FeatureTreeView::onSelfExpanded);
    connect(this, &QTreeView::collapsed, this, &FeatureTreeView::scheduleEditorsInView);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            &FeatureTreeView::scheduleEditorsInView);
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
    connect(m_proxy, &QAbstractItemModel::layoutChanged, this, [this] {
        forgetClosedEditors();
        updateRows(QModelIndex());
    });
    connect(m_proxy, &QAbstractItemModel::modelReset, this, [this] {
        forgetClosedEditors();
        updateRows(QModelIndex());
    });
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
    if (!m_fillingView && m_editorRows.size() >= kEagerEditorLimit) {
        // The row gets its editor when it comes into view.
        m_editorsDeferred = true;
        scheduleEditorsInView();
        return;
    }
    QAbstractItemView::openPersistentEditor(value);
    m_editorRows.insert(QPersistentModelIndex(value));
}

void FeatureTreeView::forgetClosedEditors()
{
    for (auto it = m_editorRows.begin(); it != m_editorRows.end();) {
        if (!it->isValid() || !indexWidget(*it)) {
            it = m_editorRows.erase(it);
        } else {
            ++it;
        }
    }
}

void FeatureTreeView::scheduleEditorsInView()
{
    if (!m_editorsDeferred || m_editorsInViewScheduled) {
        return;
    }
    m_editorsInViewScheduled = true;
    QTimer::singleShot(0, this, &FeatureTreeView::openEditorsInView);
}

void FeatureTreeView::openEditorsInView()
{
    m_editorsInViewScheduled = false;
    QAbstractItemModel* viewModel = model();
    auto* extension = dynamic_cast<IFeatureTreeModelExtension*>(viewModel);
    if (!viewModel || !extension) {
        return;
    }
    forgetClosedEditors();
    QModelIndex index = indexAt(QPoint(0, 0));
    if (!index.isValid()) {
        index = viewModel->index(0, 0);
    }
    for (int above = 0; above < kEditorMarginRows && indexAbove(index).isValid(); ++above) {
        index = indexAbove(index);
    }
    // The tree may end inside the view; no row is lower than 8 pixels.
    const QModelIndex lastShown = indexAt(QPoint(0, viewport()->height() - 1));
    const QModelIndex lastShownRow =
        lastShown.isValid() ? lastShown.sibling(lastShown.row(), 0) : QModelIndex();
    const int maxRows = 2 * kEditorMarginRows + viewport()->height() / 8 + 1;
    QSet<QPersistentModelIndex> window;
    bool pastLastShown = false;
    int below = 0;
    m_fillingView = true;
    for (int rows = 0; index.isValid() && below <= kEditorMarginRows && rows < maxRows;
         index = indexBelow(index), ++rows) {
        const QModelIndex value = index.sibling(index.row(), kValueColumn);
        window.insert(QPersistentModelIndex(value));
        const FeatureTreeItem* item = extension->getFeatureTreeItem(index);
        if (item && item->showMe(m_visibility) && wantsPersistentEditor(index)) {
            openPersistentEditor(index);
        }
        if (pastLastShown) {
            ++below;
        }
        pastLastShown = pastLastShown || (lastShownRow.isValid() && index == lastShownRow);
    }
    m_fillingView = false;
    if (m_editorRows.size() <= kEagerEditorLimit) {
        return;
    }
    // Editors far out of view go; the one being typed into stays with what it holds.
    const QWidget* focus = QApplication::focusWidget();
    for (auto it = m_editorRows.begin(); it != m_editorRows.end();) {
        QWidget* editor = indexWidget(*it);
        const bool typing = editor && focus && (editor == focus || editor->isAncestorOf(focus));
        if (!window.contains(*it) && !typing) {
            const QPersistentModelIndex value = *it;
            it = m_editorRows.erase(it);
            QAbstractItemView::closePersistentEditor(value);
        } else {
            ++it;
        }
    }
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
    scheduleEditorsInView();
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
    scheduleEditorsInView();
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
