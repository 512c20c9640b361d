#include <threadretirement.h>

#include <QSemaphore>
#include <QThread>
#include <QtTest>

using Backend::ThreadRetirement;

class tst_ThreadRetirement : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldTakeABusyThreadWithoutWaitingAndDeleteItOnceItEnds();
    void shouldDeleteAThreadThatAlreadyEnded();
};

void tst_ThreadRetirement::shouldTakeABusyThreadWithoutWaitingAndDeleteItOnceItEnds()
{
    // Given a thread held inside a call, as a device thread in a call to a silent camera
    QSemaphore entered;
    QSemaphore release;
    QThread* thread = QThread::create([&entered, &release] {
        entered.release();
        release.acquire();
    });
    thread->start();
    entered.acquire();
    QPointer<QThread> watched = thread;

    // When it is retired, the caller goes on at once
    ThreadRetirement::retire(thread);
    QCOMPARE(ThreadRetirement::runningCount(), 1);
    QVERIFY(watched);

    // Then, once it ends, it is deleted
    release.release();
    QTRY_VERIFY(watched.isNull());
    QCOMPARE(ThreadRetirement::runningCount(), 0);
}

void tst_ThreadRetirement::shouldDeleteAThreadThatAlreadyEnded()
{
    QThread* thread = QThread::create([] {});
    thread->start();
    QVERIFY(thread->wait(10000));
    QPointer<QThread> watched = thread;

    ThreadRetirement::retire(thread);

    QTRY_VERIFY(watched.isNull());
    QCOMPARE(ThreadRetirement::waitForAll(1000), 0);
}

QTEST_GUILESS_MAIN(tst_ThreadRetirement)
#include "tst_threadretirement.moc"
