#include "searchedit.h"

#include "screenscale.h"

#include "featuretreehighlighter.h"

#include "nodescoperesources.h"

#include <QAction>
#include <QEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QSvgRenderer>

namespace {

const int kPointSize = 8;
// The shadow string stops this far short of the right side, clear of the clearing button.
const int kShadowRightGap = 30;
// QLineEdit indents its text this much inside the contents, past the text margins.
const int kLineEditTextIndent = 2;

const char* const kFilledStyleSheet =
    "QLineEdit { border: 1px solid palette(mid); border-radius: 0px; background-color: %1; }";
const char* const kEmptyStyleSheet = "QLineEdit { border: 1px solid palette(mid); "
                                     "border-radius: 0px; background-color: palette(button);}";

} // namespace

SearchEdit::SearchEdit(QWidget* parent) : QLineEdit(parent)
{
    Plugin::Nodescope::initNodescopeResources();
    applyFont();

    m_lensAction = addAction(QIcon(), QLineEdit::LeadingPosition);
    m_lensAction->setObjectName(QStringLiteral("searchLensAction"));
    updateLensIcon();

    m_clearAction = addAction(style()->standardIcon(QStyle::SP_LineEditClearButton, nullptr, this),
                              QLineEdit::TrailingPosition);
    m_clearAction->setObjectName(QStringLiteral("searchClearAction"));
    m_clearAction->setToolTip(tr("Clear"));
    connect(m_clearAction, &QAction::triggered, this, &QLineEdit::clear);

    connect(this, &QLineEdit::textChanged, this, &SearchEdit::onTextChanged);
    onTextChanged(text());
}

QColor SearchEdit::highlightColor()
{
    return SEARCH_HIGHLIGHT_COLOR;
}

void SearchEdit::setShadowDisplayString(const QString& text)
{
    m_shadowDisplayString = text;
    update();
}

void SearchEdit::onTextChanged(const QString& text)
{
    m_lensAction->setVisible(text.isEmpty());
    m_clearAction->setVisible(!text.isEmpty());
    updateColors();
    update();
}

void SearchEdit::updateColors()
{
    if (text().isEmpty()) {
        setStyleSheet(QLatin1String(kEmptyStyleSheet));
    } else {
        setStyleSheet(QString::fromLatin1(kFilledStyleSheet).arg(highlightColor().name()));
    }
}

void SearchEdit::applyFont()
{
    // Set only when it differs: setting it raises the FontChange that brought us here.
    if (font().pointSize() != kPointSize) {
        QFont smallFont = font();
        smallFont.setPointSize(kPointSize);
        setFont(smallFont);
    }
}

void SearchEdit::updateLensIcon()
{
    if (!m_lensAction) {
        return;
    }
    const int side = qRound(fontMetrics().height() * 10.0 / 7.0);
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.fill(Qt::transparent);
    // Drawn here rather than through an image plug-in, which a host may not ship.
    QSvgRenderer renderer(QStringLiteral(":/nodescope/icons/lens.svg"));
    if (renderer.isValid()) {
        QPainter painter(&pixmap);
        renderer.render(&painter);
    }
    pixmap.setDevicePixelRatio(ratio);
    m_lensAction->setIcon(QIcon(pixmap));
}

void SearchEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyFont();
        updateLensIcon();
    }
}

int SearchEdit::shadowLeft() const
{
    int left =
        textMargins().left() + style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    // QLineEdit keeps the slot of the shown lens free of text on top of the margins; start where
    // typed text would.
    if (m_lensAction->isVisible()) {
        const QList<QWidget*> widgets = m_lensAction->associatedWidgets();
        for (const QWidget* widget : widgets) {
            if (widget != this && widget->isVisibleTo(this)) {
                left = qMax(left, widget->geometry().right() + 1 + textMargins().left());
            }
        }
    }
    return left + kLineEditTextIndent;
}

void SearchEdit::paintEvent(QPaintEvent* event)
{
    applyFont();
    QLineEdit::paintEvent(event);
    if (m_shadowDisplayString.isEmpty() || m_clearAction->isVisible()) {
        return;
    }
    const int left = shadowLeft();
    const QRect area(left, 0, qMax(0, width() - kShadowRightGap - left), height());
    const int elideWidth = qRound(area.width() / screenScale(this));
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(m_shadowDisplayString, Qt::ElideRight, elideWidth));
}
