#pragma once

#include <QtGlobal>

class QWidget;

// How much larger than at 96 dpi pixel sizes are drawn on the screen showing `widget` (the
// primary screen for none); 1 when no screen tells.
qreal screenScale(const QWidget* widget);
