#pragma once

#include <genapi/genapitypes.h>

#include <QPersistentModelIndex>
#include <QSet>
#include <QTreeView>

#include <memory>

class FeatureTreeHighlighter;
class FeatureTreeModel;
class FeatureTreeProxyModel;
class IFeatureTreeModelExtension;

// The feature tree as the user sees it: the view makes its own model pair and delegate, hides
// rows above the chosen visibility level and keeps the value editors of shown rows open.
class FeatureTreeView : public QTreeView {
    Q_OBJECT
public:
    explicit FeatureTreeView(QWidget* parent = nullptr);
    ~FeatureTreeView() override;

    void setVisibility(GenApi::EVisibility visibility);
    GenApi::EVisibility getVisibility() const { return m_visibility; }

    FeatureTreeHighlighter* getHighlighter() const { return m_highlighter.get(); }
    // The tree model behind the proxy.
    IFeatureTreeModelExtension* getFeatureExtension() const;
    FeatureTreeProxyModel* proxyModel() const { return m_proxy; }

    // Shows or hides the rows below `parent` by level, down the expanded part of the tree.
    void updateRows(const QModelIndex& parent);
    // Opens the value editor of the row of `index`; hides QAbstractItemView's version, which
    // would open one in whatever column it is given.
    void openPersistentEditor(const QModelIndex& index);
    void openPersistentEditorsForChildren(const QModelIndex& parent);

public Q_SLOTS:
    // Use this one rather than QTreeView's: that one announces its expansions at a moment the
    // view cannot act on them.
    void expandAll();

Q_SIGNALS:
    void onCurrentChanged(const QModelIndex& current);
    void contextualMenuRequested(const QPoint& position);

protected Q_SLOTS:
    void onSelfExpanded(const QModelIndex& index);
    void onCustomContextMenuRequested(const QPoint& position);

public:
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = QVector<int>()) override;

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void createModel();
    bool isShownParent(const QModelIndex& parent) const;
    // Step for one row: span, show or hide by level, and open the editor of a shown row.
    void evaluateRow(int row, const QModelIndex& parent);
    bool wantsPersistentEditor(const QModelIndex& index) const;
    bool holdsCurrentIndex(const QModelIndex& rowIndex) const;
    // Editors of long lists follow the visible rows (see openPersistentEditor).
    void scheduleEditorsInView();
    void openEditorsInView();
    void forgetClosedEditors();

    GenApi::EVisibility m_visibility = GenApi::Guru;
    bool m_expandingAll = false;
    // Value cells this view opened an editor in; some may have lost it since.
    QSet<QPersistentModelIndex> m_editorRows;
    bool m_editorsDeferred = false;
    bool m_editorsInViewScheduled = false;
    bool m_fillingView = false;
    FeatureTreeModel* m_model = nullptr;      // owned as QObject child
    FeatureTreeProxyModel* m_proxy = nullptr; // owned as QObject child
    // Not a QObject; the items, the model and the delegate point at it.
    std::unique_ptr<FeatureTreeHighlighter> m_highlighter;
};
