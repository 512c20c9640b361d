#include "fakebaseinfo.h"

#include <featuretree/ifeaturetreecontrolservice.h>

#include <QMetaType>
#include <QSignalSpy>
#include <QtTest>

using Plugin::CameraPool::BaseInfoPtr;
using Plugin::CameraPool::IBaseInfo;
using Plugin::FeatureTree::IFeatureTreeControlService;

namespace {

// The smallest service a plug-in would write: every slot emits its signal.
class ControlService : public IFeatureTreeControlService {
    Q_OBJECT
public:
    using IFeatureTreeControlService::IFeatureTreeControlService;

public Q_SLOTS:
    void registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT deviceRegistered(info);
    }
    void unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT deviceUnregistered(info);
    }
    void setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT activeDeviceChanged(info);
    }
    void refreshFeatureTree() override { Q_EMIT featureTreeRefreshRequested(); }
    void setVisibility(GenApi::EVisibility visibility) override
    {
        Q_EMIT visibilityChangeRequested(visibility);
    }
};

// A panel that spells the camera type by its typedef name, as older panels do.
class Panel : public QObject {
    Q_OBJECT
public:
    QList<BaseInfoPtr> devices;
    QList<bool> pollingStates;

public Q_SLOTS:
    void onDeviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo> info)
    {
        devices.append(info);
    }
    void onActiveDeviceChanged(Plugin::CameraPool::BaseInfoPtr info) { devices.append(info); }
    void onPollingStateChanged(bool on) { pollingStates.append(on); }
};

const char BASE_INFO_NAME[] = "QSharedPointer<Plugin::CameraPool::IBaseInfo>";
const char BASE_INFO_TYPEDEF_NAME[] = "Plugin::CameraPool::BaseInfoPtr";

} // namespace

class TestIFeatureTreeControlService : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Nothing in this process has made a service yet.
        QCOMPARE(QMetaType::type(BASE_INFO_NAME), int(QMetaType::UnknownType));
    }

    void shouldRegisterTheCameraInfoTypeWhenMade()
    {
        const ControlService service;

        QCOMPARE(QMetaType::type(BASE_INFO_NAME), qMetaTypeId<BaseInfoPtr>());
        QCOMPARE(QMetaType::type(BASE_INFO_TYPEDEF_NAME), qMetaTypeId<BaseInfoPtr>());
    }

    void shouldOfferSignaturesForStringConnections_data()
    {
        QTest::addColumn<QByteArray>("signature");
        QTest::addColumn<int>("methodType");
        const int slot = QMetaMethod::Slot;
        const int signal = QMetaMethod::Signal;
        QTest::newRow("registerDevice")
            << QByteArray("registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>)") << slot;
        QTest::newRow("unregisterDevice")
            << QByteArray("unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>)")
            << slot;
        QTest::newRow("setActiveDevice")
            << QByteArray("setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo>)") << slot;
        QTest::newRow("refreshFeatureTree") << QByteArray("refreshFeatureTree()") << slot;
        QTest::newRow("setVisibility") << QByteArray("setVisibility(GenApi::EVisibility)") << slot;
        QTest::newRow("visibilityChangeRequested")
            << QByteArray("visibilityChangeRequested(GenApi::EVisibility)") << signal;
        QTest::newRow("deviceRegistered")
            << QByteArray("deviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)")
            << signal;
        QTest::newRow("deviceUnregistered")
            << QByteArray("deviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)")
            << signal;
        QTest::newRow("activeDeviceChanged")
            << QByteArray("activeDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo>)")
            << signal;
        QTest::newRow("featureTreeRefreshRequested")
            << QByteArray("featureTreeRefreshRequested()") << signal;
        QTest::newRow("pollingStateChanged") << QByteArray("pollingStateChanged(bool)") << signal;
    }

    void shouldOfferSignaturesForStringConnections()
    {
        QFETCH(QByteArray, signature);
        QFETCH(int, methodType);
        const QMetaObject& meta = IFeatureTreeControlService::staticMetaObject;

        const int index = meta.indexOfMethod(signature.constData());

        QVERIFY2(index >= 0, signature.constData());
        QCOMPARE(int(meta.method(index).methodType()), methodType);
        QCOMPARE(meta.method(index).access(), QMetaMethod::Public);
    }

    void shouldEmitTheMatchingSignalFromEachSlot_data()
    {
        QTest::addColumn<QByteArray>("slot");
        QTest::addColumn<QByteArray>("signal");
        QTest::newRow("register") << QByteArray("registerDevice")
                                  << QByteArray(SIGNAL(deviceRegistered(
                                         QSharedPointer<Plugin::CameraPool::IBaseInfo>)));
        QTest::newRow("unregister")
            << QByteArray("unregisterDevice")
            << QByteArray(
                   SIGNAL(deviceUnregistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)));
        QTest::newRow("activate") << QByteArray("setActiveDevice")
                                  << QByteArray(SIGNAL(activeDeviceChanged(
                                         QSharedPointer<Plugin::CameraPool::IBaseInfo>)));
    }

    void shouldEmitTheMatchingSignalFromEachSlot()
    {
        // Given a service, and a camera that the host holds
        QFETCH(QByteArray, slot);
        QFETCH(QByteArray, signal);
        ControlService service;
        const BaseInfoPtr camera(new FakeBaseInfo(QStringLiteral("SIM0001")));
        QSignalSpy spy(&service, signal.constData());
        QVERIFY(spy.isValid());

        // When the host calls the slot through the meta-object, as it does
        QVERIFY(QMetaObject::invokeMethod(
            &service, slot.constData(),
            Q_ARG(QSharedPointer<Plugin::CameraPool::IBaseInfo>, camera)));

        // Then the signal carries that very camera
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>(), camera);
    }

    void shouldRequestARefresh()
    {
        ControlService service;
        QSignalSpy spy(&service, &IFeatureTreeControlService::featureTreeRefreshRequested);

        QVERIFY(QMetaObject::invokeMethod(&service, "refreshFeatureTree"));

        QCOMPARE(spy.count(), 1);
    }

    void shouldCarryTheCameraThroughQueuedStringConnections()
    {
        // Given a panel connected by signature strings and queued, as panels on other threads
        ControlService service;
        Panel panel;
        QVERIFY(QObject::connect(
            &service, SIGNAL(deviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)),
            &panel, SLOT(onDeviceRegistered(QSharedPointer<Plugin::CameraPool::IBaseInfo>)),
            Qt::QueuedConnection));
        QVERIFY(QObject::connect(
            &service, SIGNAL(activeDeviceChanged(QSharedPointer<Plugin::CameraPool::IBaseInfo>)),
            &panel, SLOT(onActiveDeviceChanged(Plugin::CameraPool::BaseInfoPtr)),
            Qt::QueuedConnection));
        const BaseInfoPtr first(new FakeBaseInfo(QStringLiteral("SIM0001")));
        const BaseInfoPtr second(new FakeBaseInfo(QStringLiteral("SIM0002")));

        // When cameras are registered and activated
        service.registerDevice(first);
        service.setActiveDevice(second);
        QVERIFY(panel.devices.isEmpty());

        // Then the panel receives the same cameras once the events are delivered
        QTRY_COMPARE(panel.devices.size(), 2);
        QCOMPARE(panel.devices.at(0), first);
        QCOMPARE(panel.devices.at(1), second);
        QCOMPARE(panel.devices.at(1)->getSerialNumber(), QStringLiteral("SIM0002"));
    }

    void shouldCarryTheVisibilityThroughQueuedStringConnections()
    {
        ControlService service;
        QList<GenApi::EVisibility> levels;
        QVERIFY(QObject::connect(
            &service, &IFeatureTreeControlService::visibilityChangeRequested, &service,
            [&levels](GenApi::EVisibility level) { levels.append(level); }, Qt::QueuedConnection));

        QVERIFY(QMetaObject::invokeMethod(&service, "setVisibility", Qt::QueuedConnection,
                                          Q_ARG(GenApi::EVisibility, GenApi::Expert)));

        QVERIFY(levels.isEmpty());
        QTRY_COMPARE(levels, QList<GenApi::EVisibility>({GenApi::Expert}));
    }

    void shouldCarryThePollingState()
    {
        ControlService service;
        Panel panel;
        QVERIFY(QObject::connect(&service, SIGNAL(pollingStateChanged(bool)), &panel,
                                 SLOT(onPollingStateChanged(bool)), Qt::QueuedConnection));

        Q_EMIT service.pollingStateChanged(true);
        Q_EMIT service.pollingStateChanged(false);

        QTRY_COMPARE(panel.pollingStates.size(), 2);
        QCOMPARE(panel.pollingStates, QList<bool>({true, false}));
    }
};

QTEST_GUILESS_MAIN(TestIFeatureTreeControlService)
#include "tst_ifeaturetreecontrolservice.moc"
