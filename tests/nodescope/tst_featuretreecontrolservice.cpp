#include "featuretreecontrolservice.h"

#include <camerainfo.h>

#include <QSignalSpy>
#include <QtTest>

using Plugin::CameraPool::BaseInfoPtr;
using Plugin::Nodescope::Internal::CFeatureTreeControlService;

namespace {

BaseInfoPtr makeCamera()
{
    return BaseInfoPtr(new Backend::CameraInfo(
        QStringLiteral("Simulated:7"), QStringLiteral("Vanto"), QStringLiteral("VNT-SIM-2000"),
        QStringLiteral("SIM0007"), QStringLiteral("Simulated")));
}

} // namespace

class tst_FeatureTreeControlService : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldEmitDeviceRegisteredWithTheSameCamera();
    void shouldEmitDeviceUnregisteredWithTheSameCamera();
    void shouldEmitActiveDeviceChangedWithTheSameCamera();
    void shouldPassANullCameraOnUnchanged();
    void shouldEmitRefreshRequestedOnRefresh();
    void shouldAskForTheVisibilityTheHostChose();
    void shouldEmitOnlyTheMatchingSignal_data();
    void shouldEmitOnlyTheMatchingSignal();
    void shouldDeliverTheCameraThroughAQueuedConnection();
    void shouldBeReachableBySignatureStringAsTheHostConnects();
};

void tst_FeatureTreeControlService::shouldEmitDeviceRegisteredWithTheSameCamera()
{
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::deviceRegistered);
    const BaseInfoPtr camera = makeCamera();

    service.registerDevice(camera);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>(), camera);
}

void tst_FeatureTreeControlService::shouldEmitDeviceUnregisteredWithTheSameCamera()
{
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::deviceUnregistered);
    const BaseInfoPtr camera = makeCamera();

    service.unregisterDevice(camera);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>(), camera);
}

void tst_FeatureTreeControlService::shouldEmitActiveDeviceChangedWithTheSameCamera()
{
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::activeDeviceChanged);
    const BaseInfoPtr camera = makeCamera();

    service.setActiveDevice(camera);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>(), camera);
}

void tst_FeatureTreeControlService::shouldPassANullCameraOnUnchanged()
{
    // The service judges nothing; the panels decide what a null camera means.
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::activeDeviceChanged);

    service.setActiveDevice(BaseInfoPtr());

    QCOMPARE(spy.count(), 1);
    QVERIFY(spy.at(0).at(0).value<BaseInfoPtr>().isNull());
}

void tst_FeatureTreeControlService::shouldAskForTheVisibilityTheHostChose()
{
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::visibilityChangeRequested);

    service.setVisibility(GenApi::Expert);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Expert);
}

void tst_FeatureTreeControlService::shouldEmitRefreshRequestedOnRefresh()
{
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::featureTreeRefreshRequested);

    service.refreshFeatureTree();
    service.refreshFeatureTree();

    QCOMPARE(spy.count(), 2);
}

void tst_FeatureTreeControlService::shouldEmitOnlyTheMatchingSignal_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("registerDevice") << "registerDevice" << QStringList{"registered"};
    QTest::newRow("unregisterDevice") << "unregisterDevice" << QStringList{"unregistered"};
    QTest::newRow("setActiveDevice") << "setActiveDevice" << QStringList{"active"};
    QTest::newRow("refreshFeatureTree") << "refreshFeatureTree" << QStringList{"refresh"};
    QTest::newRow("setVisibility") << "setVisibility" << QStringList{"visibility"};
}

void tst_FeatureTreeControlService::shouldEmitOnlyTheMatchingSignal()
{
    QFETCH(QString, slot);
    QFETCH(QStringList, expected);

    CFeatureTreeControlService service;
    QStringList emitted;
    connect(&service, &CFeatureTreeControlService::deviceRegistered, this,
            [&emitted] { emitted << QStringLiteral("registered"); });
    connect(&service, &CFeatureTreeControlService::deviceUnregistered, this,
            [&emitted] { emitted << QStringLiteral("unregistered"); });
    connect(&service, &CFeatureTreeControlService::activeDeviceChanged, this,
            [&emitted] { emitted << QStringLiteral("active"); });
    connect(&service, &CFeatureTreeControlService::featureTreeRefreshRequested, this,
            [&emitted] { emitted << QStringLiteral("refresh"); });
    connect(&service, &CFeatureTreeControlService::pollingStateChanged, this,
            [&emitted] { emitted << QStringLiteral("polling"); });
    connect(&service, &CFeatureTreeControlService::visibilityChangeRequested, this,
            [&emitted] { emitted << QStringLiteral("visibility"); });

    const BaseInfoPtr camera = makeCamera();
    if (slot == QLatin1String("refreshFeatureTree")) {
        QVERIFY(QMetaObject::invokeMethod(&service, "refreshFeatureTree"));
    } else if (slot == QLatin1String("setVisibility")) {
        QVERIFY(QMetaObject::invokeMethod(&service, "setVisibility",
                                          Q_ARG(GenApi::EVisibility, GenApi::Guru)));
    } else {
        QVERIFY(QMetaObject::invokeMethod(&service, qPrintable(slot),
                                          Q_ARG(Plugin::CameraPool::BaseInfoPtr, camera)));
    }

    QCOMPARE(emitted, expected);
}

void tst_FeatureTreeControlService::shouldDeliverTheCameraThroughAQueuedConnection()
{
    // Given a listener that takes the camera through the event loop
    CFeatureTreeControlService service;
    QObject receiver;
    BaseInfoPtr received;
    connect(
        &service, &CFeatureTreeControlService::deviceRegistered, &receiver,
        [&received](BaseInfoPtr info) { received = info; }, Qt::QueuedConnection);
    const BaseInfoPtr camera = makeCamera();

    // When the host registers a camera
    service.registerDevice(camera);

    // Then the camera arrives once events are processed
    QVERIFY(received.isNull());
    QTRY_COMPARE(received, camera);
}

void tst_FeatureTreeControlService::shouldBeReachableBySignatureStringAsTheHostConnects()
{
    CFeatureTreeControlService sender;
    CFeatureTreeControlService service;
    QSignalSpy spy(&service, &CFeatureTreeControlService::activeDeviceChanged);
    QVERIFY(connect(&sender,
                    SIGNAL(deviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)),
                    &service, SLOT(setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>)),
                    Qt::QueuedConnection));
    const BaseInfoPtr camera = makeCamera();

    sender.registerDevice(camera);

    QVERIFY(spy.wait());
    QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>(), camera);
}

QTEST_GUILESS_MAIN(tst_FeatureTreeControlService)
#include "tst_featuretreecontrolservice.moc"
