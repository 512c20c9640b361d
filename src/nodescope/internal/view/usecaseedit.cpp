#include "usecaseedit.h"

#include "internal/legacy/screenscale.h"

#include <QAction>
#include <QColor>
#include <QEvent>
#include <QFontMetrics>
#include <QScreen>
#include <QStyle>

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

namespace {
const int kFontPointSize = 8;
// Room kept free for the cross action at the right end, in pixels at 96 dpi.
const int kCrossActionReserve = 40;
const QColor kUseCaseBackground(255, 216, 147);
} // namespace

CUseCaseEdit::CUseCaseEdit(QWidget* parent) : QLineEdit(parent)
{
    setReadOnly(true);
    applyFontSize();
    m_crossAction = addAction(style()->standardIcon(QStyle::SP_TitleBarCloseButton),
                              QLineEdit::TrailingPosition);
    m_crossAction->setToolTip(tr("End the use case"));
    connect(m_crossAction, &QAction::triggered, this, &CUseCaseEdit::onCrossActionTriggered);
    updateColors();
}

void CUseCaseEdit::setText(const QString& text)
{
    m_fullText = text;
    updateElidedText();
}

void CUseCaseEdit::updateColors()
{
    setStyleSheet(QStringLiteral("QLineEdit { border: 1px solid palette(mid); border-radius: 0px; "
                                 "background-color: %1;}")
                      .arg(kUseCaseBackground.name()));
}

void CUseCaseEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyFontSize();
        updateElidedText();
    }
}

void CUseCaseEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    updateElidedText();
}

void CUseCaseEdit::applyFontSize()
{
    // Guarded: setting the font raises the very FontChange that brought us here.
    if (font().pointSize() != kFontPointSize) {
        QFont smaller = font();
        smaller.setPointSize(kFontPointSize);
        setFont(smaller);
    }
}

void CUseCaseEdit::updateElidedText()
{
    const qreal scale = screenScale(this);
    const int available = width() - static_cast<int>(kCrossActionReserve * scale);
    const QString elided = fontMetrics().elidedText(m_fullText, Qt::ElideRight, available);
    // The whole name stays reachable when the field is too narrow for it.
    setToolTip(elided == m_fullText ? QString() : m_fullText);
    QLineEdit::setText(elided);
}

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
