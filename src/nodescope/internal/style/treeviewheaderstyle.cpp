#include "treeviewheaderstyle.h"

#include "internal/legacy/screenscale.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QStyleFactory>
#include <QStyleOptionHeader>
#include <QWidget>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace Style {

namespace {

// The distance of the separator line from a section's bottom, at 96 dpi.
const qreal kSeparatorLineOffset = 7.0;

QStyle* sameAsApplication()
{
    // A fresh instance of what the application uses, so the header matches the rest in
    // everything it does not draw itself. Unknown keys leave the choice to QProxyStyle.
    const QStyle* application = QApplication::style();
    return application ? QStyleFactory::create(application->objectName()) : nullptr;
}

} // namespace

CTreeViewHeaderStyle::CTreeViewHeaderStyle(QStyle* style)
    : QProxyStyle(style ? style : sameAsApplication())
{}

int CTreeViewHeaderStyle::separatorLineY(const QRect& rect, const QWidget* widget)
{
    return rect.bottom() - qRound(kSeparatorLineOffset / screenScale(widget));
}

void CTreeViewHeaderStyle::drawControl(QStyle::ControlElement element, const QStyleOption* option,
                                       QPainter* painter, const QWidget* widget) const
{
    if (!option || !painter) {
        return;
    }
    switch (element) {
    case CE_HeaderSection:
        drawHeaderSection(option, painter, widget);
        break;
    case CE_HeaderLabel:
        drawHeaderLabel(option, painter, widget);
        break;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
        break;
    }
}

void CTreeViewHeaderStyle::drawHeaderSection(const QStyleOption* option, QPainter* painter,
                                             const QWidget* widget) const
{
    const QRect rect = option->rect;
    const int lineY = separatorLineY(rect, widget);
    painter->save();
    painter->fillRect(rect, option->palette.brush(QPalette::Base));
    painter->setPen(QPen(option->palette.color(QPalette::Midlight), 0));
    painter->drawLine(rect.left(), lineY, rect.right(), lineY);
    // Only sections between two others mark the edge towards their predecessor: the outer
    // sections stay open, so a two-column tree has no separator at all.
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (header && header->position == QStyleOptionHeader::Middle) {
        const int x = option->direction == Qt::RightToLeft ? rect.right() : rect.left();
        painter->drawLine(x, rect.top(), x, lineY);
    }
    painter->restore();
}

void CTreeViewHeaderStyle::drawHeaderLabel(const QStyleOption* option, QPainter* painter,
                                           const QWidget* widget) const
{
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (!header) {
        QProxyStyle::drawControl(CE_HeaderLabel, option, painter, widget);
        return;
    }
    QFont font = widget ? widget->font() : painter->font();
    const qreal scale = screenScale(widget);
    if (scale != 1.0 && font.pointSizeF() > 0.0) {
        font.setPointSizeF(font.pointSizeF() / scale);
    }
    QRect textRect = header->rect;
    // The label's rectangle is its section's less the header margin; keep the text above the
    // section's separator line, which descenders would otherwise cross.
    const int margin = proxy()->pixelMetric(PM_HeaderMargin, option, widget);
    const QRect section = header->rect.adjusted(-margin, -margin, margin, margin);
    textRect.setBottom(qMin(textRect.bottom(), separatorLineY(section, widget) - 1));
    if (!header->icon.isNull()) {
        const int iconSize = proxy()->pixelMetric(PM_SmallIconSize, option, widget);
        const QRect iconRect(textRect.left(), textRect.center().y() - iconSize / 2, iconSize,
                             iconSize);
        header->icon.paint(painter, iconRect, Qt::AlignCenter,
                           (header->state & State_Enabled) ? QIcon::Normal : QIcon::Disabled);
        textRect.setLeft(iconRect.right() + 1 +
                         proxy()->pixelMetric(PM_HeaderMargin, option, widget));
    }
    painter->save();
    painter->setFont(font);
    // The section is drawn on the base colour, so the text takes the colour meant for it.
    painter->setPen(header->palette.color(QPalette::Text));
    const QFontMetrics metrics(font, painter->device());
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(header->text, Qt::ElideRight, textRect.width()));
    painter->restore();
}

} // namespace Style
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
