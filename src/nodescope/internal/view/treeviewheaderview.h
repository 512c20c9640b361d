#pragma once

#include <QHeaderView>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Style {
class CTreeViewHeaderStyle;
} // namespace Style

namespace View {

// The horizontal header of the feature tree and the feature tables: bold, flat, left-aligned.
class CTreeViewHeaderView : public QHeaderView {
    Q_OBJECT
public:
    explicit CTreeViewHeaderView(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    Style::CTreeViewHeaderStyle* headerStyle() const { return m_style; }

private:
    Style::CTreeViewHeaderStyle* m_style; // owned as QObject child
};

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
