#include "filledviewwatcher.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QEvent>

namespace VantoViewer {

FilledViewWatcher::FilledViewWatcher(QAbstractItemView* view, QObject* parent)
    : QObject(parent), m_view(view), m_viewport(view ? view->viewport() : nullptr)
{
    if (m_viewport) {
        m_viewport->installEventFilter(this);
    }
}

FilledViewWatcher::~FilledViewWatcher()
{
    if (m_viewport) {
        m_viewport->removeEventFilter(this);
    }
}

bool FilledViewWatcher::hasSeenFilledPaint() const
{
    return m_seen;
}

bool FilledViewWatcher::eventFilter(QObject* watched, QEvent* event)
{
    // The model is asked at paint time: the view may get its model, or a new one, at any moment.
    if (!m_seen && watched == m_viewport && event->type() == QEvent::Paint && m_view &&
        m_view->model() && m_view->model()->rowCount(m_view->rootIndex()) > 0) {
        m_seen = true;
        m_viewport->removeEventFilter(this);
        Q_EMIT filledPaint();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace VantoViewer
