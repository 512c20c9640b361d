#include "featuretreestatusservice.h"

#include <featuretree/ifeaturetreestatusservice.h>

#include <QSignalSpy>
#include <QtTest>

using Plugin::FeatureTree::IFeatureTreeStatusService;
using Plugin::Nodescope::Internal::CFeatureTreeStatusService;

class tst_FeatureTreeStatusService : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldBeDestroyedWithItsParent();
    void shouldBeFoundAsTheHostInterface();
    void shouldCarryTextToListenersOfTheInterface();
    void shouldCarryVisibilityThroughAQueuedConnection();
    void shouldCarryTheCurrentParameterBySignatureString();
};

void tst_FeatureTreeStatusService::shouldBeDestroyedWithItsParent()
{
    auto* parent = new QObject;
    QPointer<CFeatureTreeStatusService> service = new CFeatureTreeStatusService(parent);
    QCOMPARE(service->parent(), parent);

    delete parent;

    QVERIFY(service.isNull());
}

void tst_FeatureTreeStatusService::shouldBeFoundAsTheHostInterface()
{
    // The host looks services up by interface, through qobject_cast.
    QSharedPointer<Core::Service::IService> service(new CFeatureTreeStatusService(nullptr));

    QVERIFY(!qSharedPointerObjectCast<IFeatureTreeStatusService>(service).isNull());
    QVERIFY(!qSharedPointerObjectCast<CFeatureTreeStatusService>(service).isNull());
}

void tst_FeatureTreeStatusService::shouldCarryTextToListenersOfTheInterface()
{
    CFeatureTreeStatusService service;
    IFeatureTreeStatusService* channel = &service;
    QSignalSpy spy(channel, &IFeatureTreeStatusService::newText);

    Q_EMIT channel->newText(QStringLiteral("Width: 1920"));

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("Width: 1920"));
}

void tst_FeatureTreeStatusService::shouldCarryVisibilityThroughAQueuedConnection()
{
    CFeatureTreeStatusService service;
    QObject receiver;
    GenApi::EVisibility received = GenApi::Beginner;
    connect(
        &service, &IFeatureTreeStatusService::visibilityChanged, &receiver,
        [&received](GenApi::EVisibility visibility) { received = visibility; },
        Qt::QueuedConnection);

    Q_EMIT service.visibilityChanged(GenApi::Guru);

    QCOMPARE(received, GenApi::Beginner);
    QTRY_COMPARE(received, GenApi::Guru);
}

void tst_FeatureTreeStatusService::shouldCarryTheCurrentParameterBySignatureString()
{
    CFeatureTreeStatusService service;
    CFeatureTreeStatusService listener;
    // Relayed as the host does, by signature string.
    QVERIFY(connect(
        &service, SIGNAL(currentChanged(QSharedPointer<ParameterCollection::IParameter>)),
        &listener, SIGNAL(currentChanged(QSharedPointer<ParameterCollection::IParameter>))));
    QSignalSpy spy(&listener, &IFeatureTreeStatusService::currentChanged);

    Q_EMIT service.currentChanged(QSharedPointer<ParameterCollection::IParameter>());

    QCOMPARE(spy.count(), 1);
}

QTEST_GUILESS_MAIN(tst_FeatureTreeStatusService)
#include "tst_featuretreestatusservice.moc"
