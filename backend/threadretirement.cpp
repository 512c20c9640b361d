#include "threadretirement.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QList>
#include <QMutex>
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
    // Queued to the thread object's own thread, the one that retired it.
    QObject::connect(thread, &QThread::finished, thread, [thread] {
        QMutexLocker lock(&retiredMutex());
        if (retiredThreads().removeOne(thread)) {
            thread->deleteLater();
        }
    });
    if (thread->isFinished()) {
        // It ended before the connection existed; nothing else will collect it.
        QMutexLocker lock(&retiredMutex());
        if (retiredThreads().removeOne(thread)) {
            thread->deleteLater();
        }
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
