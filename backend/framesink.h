#pragma once

#include <acquisition/frame.h>

#include <QMutex>
#include <QPointer>
#include <QString>

#include <atomic>
#include <functional>

namespace Backend {

// Where a stream hands its frames and its news, on whatever thread it runs. The newest frame
// waits here under a lock held only for a pointer swap; the receiver (the acquisition, on the
// GUI thread) hears of new frames through one queued call at most, however many frames
// arrive before it takes one. Once detached, the receiver hears nothing more, so a stream may
// outlive it.
class FrameSink {
public:
    struct Handlers {
        std::function<void()> frameReady;
        std::function<void()> ended;                       // the device stopped on its own
        std::function<void(const QString& reason)> failed; // the stream can't go on
    };

    FrameSink() = default;
    FrameSink(const FrameSink&) = delete;
    FrameSink& operator=(const FrameSink&) = delete;

    // Receiver's thread. The handlers run there, queued.
    void attach(QObject* receiver, Handlers handlers);
    void detach();

    // Any thread.
    void deliver(Plugin::Acquisition::FramePtr frame);
    void end();
    void fail(const QString& reason);
    // Runs `job` on the receiver's thread, unless it has gone by then.
    void post(std::function<void()> job);

    // Any thread: whether the receiver has yet to take the last notification.
    bool isNotifying() const { return m_notifying.load(); }

    // Any thread; never waits for more than a pointer swap.
    Plugin::Acquisition::FramePtr latest() const;
    void clear();

private:
    mutable QMutex m_frameMutex;
    Plugin::Acquisition::FramePtr m_latest;
    std::atomic<bool> m_notifying{false};

    mutable QMutex m_receiverMutex;
    QObject* m_receiver = nullptr; // guarded by m_receiverMutex
    Handlers m_handlers;
};

} // namespace Backend
