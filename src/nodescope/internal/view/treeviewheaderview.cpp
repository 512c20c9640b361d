#include "treeviewheaderview.h"

#include "internal/legacy/screenscale.h"

#include "internal/style/treeviewheaderstyle.h"

#include <QScreen>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

namespace {

// Room around the label at 96 dpi, taken up by the separator line below it.
const qreal kVerticalPadding = 13.0;

} // namespace

CTreeViewHeaderView::CTreeViewHeaderView(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_style(new Style::CTreeViewHeaderStyle)
{
    // QWidget::setStyle() leaves the style to its creator: ours goes with the header.
    m_style->setParent(this);
    QFont headerFont = font();
    headerFont.setPointSize(9);
    headerFont.setWeight(QFont::Bold);
    setFont(headerFont);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setTextElideMode(Qt::ElideRight);
    // As QTreeView's own header does: the value column takes what the name column leaves.
    setStretchLastSection(true);
    setStyle(m_style);
}

QSize CTreeViewHeaderView::sizeHint() const
{
    QSize hint = QHeaderView::sizeHint();
    hint.setHeight(fontMetrics().height() + static_cast<int>(kVerticalPadding * screenScale(this)));
    return hint;
}

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
