#include "framesink.h"

#include <utility>

using Plugin::Acquisition::FramePtr;

namespace Backend {

void FrameSink::attach(QObject* receiver, Handlers handlers)
{
    QMutexLocker lock(&m_receiverMutex);
    m_receiver = receiver;
    m_handlers = std::move(handlers);
}

void FrameSink::detach()
{
    QMutexLocker lock(&m_receiverMutex);
    m_receiver = nullptr;
}

void FrameSink::post(std::function<void()> job)
{
    QMutexLocker lock(&m_receiverMutex);
    if (m_receiver != nullptr) {
        // Posting to a receiver that goes before the event is delivered drops the event: Qt
        // removes the posted events of a deleted object.
        QMetaObject::invokeMethod(m_receiver, std::move(job), Qt::QueuedConnection);
    }
}

void FrameSink::deliver(FramePtr frame)
{
    FramePtr replaced;
    {
        QMutexLocker lock(&m_frameMutex);
        replaced.swap(m_latest);
        m_latest = std::move(frame);
    }
    // The replaced frame is released here, outside the lock; its slot goes back to the pool.
    replaced.reset();
    if (m_notifying.exchange(true)) {
        return;
    }
    post([this] {
        m_notifying.store(false);
        if (m_handlers.frameReady) {
            m_handlers.frameReady();
        }
    });
}

void FrameSink::end()
{
    post([this] {
        if (m_handlers.ended) {
            m_handlers.ended();
        }
    });
}

void FrameSink::fail(const QString& reason)
{
    post([this, reason] {
        if (m_handlers.failed) {
            m_handlers.failed(reason);
        }
    });
}

FramePtr FrameSink::latest() const
{
    QMutexLocker lock(&m_frameMutex);
    return m_latest;
}

void FrameSink::clear()
{
    FramePtr released;
    QMutexLocker lock(&m_frameMutex);
    released.swap(m_latest);
}

} // namespace Backend
