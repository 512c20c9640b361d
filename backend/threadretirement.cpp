#include "threadretirement.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QList>
#include <QMutex>
#include <QPointer>
#include <QThread>

namespace Backend {

namespace {

QMutex& retiredMutex()
{
    static QMutex mutex;
    return mutex;
}

QList<QThread*>& retiredThreads()
{
    static QList<QThread*> threads;
    return threads;
}

// A thread that has ended, unless the exit routine took it already.
void collect(QThread* thread)
{
    {
        QMutexLocker lock(&retiredMutex());
        if (!retiredThreads().removeOne(thread)) {
            return;
        }
    }
    // Announcing its end is the last thing a thread does: this wait is short.
    thread->wait();
    delete thread;
}

// Aravis's and Qt's global state go when the application does: device threads end first.
void waitAtExit()
{
    ThreadRetirement::waitForAll(10000);
}

} // namespace

void ThreadRetirement::retire(QThread* thread)
{
    {
        QMutexLocker lock(&retiredMutex());
        static bool hooked = false;
        if (!hooked && QCoreApplication::instance()) {
            qAddPostRoutine(waitAtExit);
            hooked = true;
        }
        retiredThreads().append(thread);
    }
    // Queued to the application's thread, the one that retires threads. Deleted there at once
    // rather than later, so that none is left over when the event loop has stopped.
    QObject* context = QCoreApplication::instance();
    const QPointer<QThread> guard(thread);
    QObject::connect(thread, &QThread::finished, context ? context : thread, [guard] {
        if (guard) {
            collect(guard.data());
        }
    });
    if (thread->isFinished()) {
        // It ended before the connection existed; nothing else will collect it.
        collect(thread);
    }
}

int ThreadRetirement::waitForAll(unsigned long timeoutMs)
{
    QList<QThread*> threads;
    {
        QMutexLocker lock(&retiredMutex());
        threads.swap(retiredThreads());
    }
    const QDeadlineTimer deadline{qint64(timeoutMs)};
    QList<QThread*> running;
    for (QThread* thread : threads) {
        if (thread->wait(deadline)) {
            delete thread;
        } else {
            running.append(thread);
        }
    }
    QMutexLocker lock(&retiredMutex());
    retiredThreads().append(running);
    return running.size();
}

int ThreadRetirement::runningCount()
{
    QMutexLocker lock(&retiredMutex());
    int running = 0;
    for (QThread* thread : retiredThreads()) {
        running += thread->isRunning() ? 1 : 0;
    }
    return running;
}

} // namespace Backend
