#pragma once

#include <QProxyStyle>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Style {

// The flat look of the tree and table headers: sections on the base colour with a thin line
// near their bottom instead of bevels, and left-aligned, elided labels.
class CTreeViewHeaderStyle : public QProxyStyle {
    Q_OBJECT
public:
    explicit CTreeViewHeaderStyle(QStyle* style = nullptr);

    void drawControl(QStyle::ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;

    // Where the separator line of a section of `rect` runs, for the widget's screen.
    static int separatorLineY(const QRect& rect, const QWidget* widget);

private:
    void drawHeaderSection(const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const;
    void drawHeaderLabel(const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const;
};

} // namespace Style
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
