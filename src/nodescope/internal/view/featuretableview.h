#pragma once

#include <genapi/genapitypes.h>

#include <QTableView>

#include <memory>

class FeatureTreeHighlighter;
class FeatureTreeProxyModel;
class IFeatureTreeModelExtension;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Model {
class CFeatureTableModel;
} // namespace Model

namespace View {

// The features of one feature tab, name and value editor per row. Beside the feature tree it
// only lets features be dragged out (into the feature tab editor); as a free-standing feature
// tab it also lets the user reorder the rows by dragging one onto another.
class CFeatureTableView : public QTableView {
    Q_OBJECT
public:
    explicit CFeatureTableView(QWidget* parent = nullptr);
    ~CFeatureTableView() override;

    FeatureTreeHighlighter* getHighlighter() const { return m_highlighter.get(); }
    // The table model behind the proxy, as model and as extension; both owned by the view.
    Model::CFeatureTableModel* getFeatureTableModel() const { return m_tableModel; }
    IFeatureTreeModelExtension* getFeatureExtension() const;
    FeatureTreeProxyModel* getProxyModel() const { return m_proxyModel; }

    bool isConnectedToTreeView() const { return m_isConnectedToTreeView; }
    void setIsConnectedToTreeView(bool connected);

    void setVisibility(GenApi::EVisibility visibility);
    GenApi::EVisibility getVisibility() const { return m_visibility; }

    // These act on the value cell of the index's row, and only for rows whose feature wants
    // an editor that stays open.
    void openPersistentEditor(const QModelIndex& index);
    void openPersistentEditorsForChildren(const QModelIndex& parent = QModelIndex());
    void closePersistentEditor(const QModelIndex& index);

Q_SIGNALS:
    void onCurrentChanged(const QModelIndex& current);
    void contextualMenuRequested(const QPoint& position);
    void orderOfTableItemsChanged(int from, int to);

protected Q_SLOTS:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = QVector<int>()) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

protected:
    QStyleOptionViewItem viewOptions() const override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void onCustomContextMenuRequested(const QPoint& position);

private:
    void createModel();
    bool wantsPersistentEditor(const QModelIndex& index) const;
    QPoint onNameCell(const QPoint& position) const;

    GenApi::EVisibility m_visibility = GenApi::Guru;
    std::unique_ptr<FeatureTreeHighlighter> m_highlighter;
    bool m_isConnectedToTreeView = true;
    Model::CFeatureTableModel* m_tableModel = nullptr; // owned by the view as its child
    FeatureTreeProxyModel* m_proxyModel = nullptr;     // owned by the view as its child
};

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
