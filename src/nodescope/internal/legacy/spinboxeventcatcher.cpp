#include "internal/legacy/spinboxeventcatcher.h"

#include <QEvent>

SpinBoxEventCatcher::SpinBoxEventCatcher(QObject* parent) : QObject(parent) {}

bool SpinBoxEventCatcher::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        Q_EMIT focusEvent(true);
        return false; // the spin box still needs it to show its cursor
    case QEvent::FocusOut:
        Q_EMIT focusEvent(false);
        return false; // and this one to finish its editing
    default:
        return QObject::eventFilter(watched, event);
    }
}
