#include "screenscale.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

qreal screenScale(const QWidget* widget)
{
    const QScreen* screen = widget ? widget->screen() : QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInch() : 96.0;
    return dpi > 0.0 ? dpi / 96.0 : 1.0;
}
