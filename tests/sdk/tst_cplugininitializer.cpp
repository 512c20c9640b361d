#include <core/cplugininitializer.h>

#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <QWriteLocker>
#include <QtTest>

#include <functional>
#include <memory>

using Core::Plugin::CPluginInitializer;
using Core::Plugin::IPluginInitializer;
using Core::Service::IService;

namespace {

class AlphaService : public IService {
    Q_OBJECT
public:
    using IService::IService;
};

class SpecialAlphaService : public AlphaService {
    Q_OBJECT
public:
    using AlphaService::AlphaService;
};

class BetaService : public IService {
    Q_OBJECT
public:
    using IService::IService;
};

// A registry that leaves all locking to its users, as a host may write one. It shows what
// getService() itself guarantees.
class BareInitializer : public IPluginInitializer {
    Q_OBJECT
public:
    using IPluginInitializer::IPluginInitializer;

    QList<QSharedPointer<IService>> services() const override
    {
        // A walk under the read lock cannot take the lock for writing.
        walkedUnderReadLock = !serviceLock()->tryLockForWrite();
        if (!walkedUnderReadLock) {
            serviceLock()->unlock();
        }
        return m_services;
    }
    void registerService(QSharedPointer<IService> service) override { m_services.append(service); }
    void unregisterService(QSharedPointer<IService> service) override
    {
        m_services.removeAll(service);
    }

    mutable bool walkedUnderReadLock = false;

private:
    QList<QSharedPointer<IService>> m_services;
};

std::unique_ptr<QThread> startThread(std::function<void()> body)
{
    std::unique_ptr<QThread> thread(QThread::create(std::move(body)));
    thread->start();
    return thread;
}

} // namespace

class TestCPluginInitializer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldReturnNullWhenNoServiceIsOfTheAskedType()
    {
        // Given a registry with only an alpha service
        CPluginInitializer initializer;
        QVERIFY(initializer.getService<AlphaService>().isNull());
        initializer.registerService(QSharedPointer<AlphaService>::create());

        // Then asking for a beta service gives null
        QVERIFY(initializer.getService<BetaService>().isNull());
        QVERIFY(!initializer.getService<AlphaService>().isNull());
    }

    void shouldReturnTheFirstServiceOfTheAskedType()
    {
        // Given services registered in the order beta, alpha, second alpha
        CPluginInitializer initializer;
        const auto beta = QSharedPointer<BetaService>::create();
        const auto alpha = QSharedPointer<AlphaService>::create();
        const auto secondAlpha = QSharedPointer<SpecialAlphaService>::create();
        initializer.registerService(beta);
        initializer.registerService(alpha);
        initializer.registerService(secondAlpha);

        // Then each lookup gives the earliest service that is of the type
        QCOMPARE(initializer.getService<AlphaService>(), alpha);
        QCOMPARE(initializer.getService<SpecialAlphaService>(), secondAlpha);
        QCOMPARE(initializer.getService<BetaService>(), beta);
        QCOMPARE(initializer.getService<IService>(), qSharedPointerCast<IService>(beta));
    }

    void shouldFindServicesThroughTheInterface()
    {
        CPluginInitializer initializer;
        const QSharedPointer<AlphaService> alpha = QSharedPointer<SpecialAlphaService>::create();
        initializer.registerService(alpha);

        // Plug-ins only ever see a guarded pointer to the interface.
        const QPointer<IPluginInitializer> pointer(&initializer);
        QCOMPARE(pointer->getService<AlphaService>(), alpha);
    }

    void shouldKeepRegistrationOrderAndIgnoreNullAndDuplicates()
    {
        CPluginInitializer initializer;
        const auto alpha = QSharedPointer<AlphaService>::create();
        const auto beta = QSharedPointer<BetaService>::create();

        initializer.registerService(alpha);
        initializer.registerService(beta);
        QTest::ignoreMessage(QtDebugMsg, "CPluginInitializer: ignoring a null service.");
        initializer.registerService(QSharedPointer<IService>());
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("is registered already"));
        initializer.registerService(alpha);

        const QList<QSharedPointer<IService>> expected{alpha, beta};
        QCOMPARE(initializer.services(), expected);
    }

    void shouldForgetUnregisteredServices()
    {
        CPluginInitializer initializer;
        const auto alpha = QSharedPointer<AlphaService>::create();
        const auto secondAlpha = QSharedPointer<AlphaService>::create();
        initializer.registerService(alpha);
        initializer.registerService(secondAlpha);

        initializer.unregisterService(alpha);

        QCOMPARE(initializer.getService<AlphaService>(), secondAlpha);
        QCOMPARE(initializer.services().size(), 1);
        initializer.unregisterService(secondAlpha);
        QVERIFY(initializer.getService<AlphaService>().isNull());
    }

    void shouldReleaseServicesWhenDestroyed()
    {
        QWeakPointer<AlphaService> weak;
        {
            CPluginInitializer initializer;
            auto alpha = QSharedPointer<AlphaService>::create();
            weak = alpha;
            initializer.registerService(alpha);
        }
        QVERIFY(weak.isNull());
    }

    void shouldHoldTheReadLockWhileWalkingServices()
    {
        BareInitializer initializer;
        initializer.registerService(QSharedPointer<AlphaService>::create());

        QVERIFY(!initializer.getService<AlphaService>().isNull());

        QVERIFY(initializer.walkedUnderReadLock);
        // And the lock is free again afterwards.
        QVERIFY(initializer.serviceLock()->tryLockForWrite());
        initializer.serviceLock()->unlock();
    }

    void shouldFindServicesWhileAnotherThreadHoldsTheReadLock()
    {
        // Given a thread that holds the read lock until told to let go
        CPluginInitializer initializer;
        const auto alpha = QSharedPointer<AlphaService>::create();
        initializer.registerService(alpha);
        QSemaphore held;
        QSemaphore letGo;
        auto reader = startThread([&] {
            QReadLocker locker(initializer.serviceLock());
            held.release();
            letGo.acquire();
        });
        held.acquire();

        // When another thread looks a service up
        QSharedPointer<AlphaService> found;
        QSemaphore done;
        auto lookup = startThread([&] {
            found = initializer.getService<AlphaService>();
            done.release();
        });
        const bool finished = done.tryAcquire(1, 10000);
        letGo.release();
        QVERIFY(reader->wait(10000));
        QVERIFY(lookup->wait(10000));

        // Then it is not held up by the reader
        QVERIFY2(finished, "getService() waited for a reader");
        QCOMPARE(found, alpha);
    }

    void shouldWaitWhileTheWriteLockIsHeld_data()
    {
        QTest::addColumn<bool>("bare");
        QTest::newRow("default registry") << false;
        QTest::newRow("registry without locking of its own") << true;
    }

    void shouldWaitWhileTheWriteLockIsHeld()
    {
        QFETCH(bool, bare);
        std::unique_ptr<IPluginInitializer> initializer;
        if (bare) {
            initializer = std::make_unique<BareInitializer>();
        } else {
            initializer = std::make_unique<CPluginInitializer>();
        }

        // Given that this thread holds the write lock
        initializer->serviceLock()->lockForWrite();

        // When another thread looks a service up
        QSharedPointer<AlphaService> found;
        QSemaphore started;
        QSemaphore done;
        auto lookup = startThread([&] {
            started.release();
            found = initializer->getService<AlphaService>();
            done.release();
        });
        started.acquire();
        // A lookup that ignored the lock would finish now and find nothing; a correct one
        // cannot finish before the lock is released, so this wait always runs out.
        const bool finishedWhileLocked = done.tryAcquire(1, 200);
        const auto alpha = QSharedPointer<AlphaService>::create();
        initializer->registerService(alpha);
        initializer->serviceLock()->unlock();
        const bool finished = done.tryAcquire(1, 10000);
        QVERIFY(lookup->wait(10000));

        // Then it waited for the writer and sees what the writer registered
        QVERIFY2(!finishedWhileLocked, "getService() did not wait for the writer");
        QVERIFY(finished);
        QCOMPARE(found, alpha);
    }
};

QTEST_GUILESS_MAIN(TestCPluginInitializer)
#include "tst_cplugininitializer.moc"
