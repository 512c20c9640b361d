#include "devicespane.h"

#include <QAction>
#include <QListWidget>
#include <QSemaphore>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

#include <atomic>

using VantoViewer::DevicesPane;
using BaseInfoPtr = QSharedPointer<Plugin::CameraPool::IBaseInfo>;

namespace {

BaseInfoPtr makeCamera(const QString& serial)
{
    return BaseInfoPtr(new Backend::CameraInfo(
        QStringLiteral("Simulated:") + serial, QStringLiteral("Vanto"),
        QStringLiteral("VNT-SIM-2000"), serial, QStringLiteral("Simulated")));
}

Backend::CameraPool::DiscoveredDevice found(const QString& id, const QString& address)
{
    Backend::CameraPool::DiscoveredDevice device;
    device.id = id;
    device.address = address;
    device.vendor = QStringLiteral("Vanto");
    device.model = QStringLiteral("VNT-GV-100");
    device.serial = QStringLiteral("GV0001");
    device.protocol = QStringLiteral("GigEVision");
    return device;
}

// Two cameras listed, the second one active.
struct TwoCameras {
    DevicesPane pane;
    const BaseInfoPtr first = makeCamera(QStringLiteral("SIM0001"));
    const BaseInfoPtr second = makeCamera(QStringLiteral("SIM0002"));
    TwoCameras()
    {
        pane.addDevice(first);
        pane.addDevice(second);
    }
};

} // namespace

class TestDevicesPane : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listsAndActivatesANewCamera()
    {
        DevicesPane pane;
        QSignalSpy active(&pane, &DevicesPane::activeDeviceChanged);
        const BaseInfoPtr first = makeCamera(QStringLiteral("SIM0001"));
        const BaseInfoPtr second = makeCamera(QStringLiteral("SIM0002"));

        pane.addDevice(first);
        pane.addDevice(second);
        pane.addDevice(second);

        QCOMPARE(pane.devices(), QList<BaseInfoPtr>({first, second}));
        QCOMPARE(pane.deviceList()->item(0)->text(), first->getFriendlyName());
        QCOMPARE(pane.activeDevice(), second);
        QCOMPARE(active.count(), 2);
        QCOMPARE(active.last().at(0).value<BaseInfoPtr>(), second);
    }

    void removingTheActiveCameraLeavesNoneActive()
    {
        TwoCameras cameras;
        DevicesPane& pane = cameras.pane;
        QSignalSpy active(&pane, &DevicesPane::activeDeviceChanged);

        pane.removeDevice(cameras.second);

        // Not the neighbour: the user did not choose it.
        QCOMPARE(active.count(), 1);
        QVERIFY(active.at(0).at(0).value<BaseInfoPtr>().isNull());
        QVERIFY(pane.activeDevice().isNull());
        QCOMPARE(pane.devices(), QList<BaseInfoPtr>({cameras.first}));
    }

    void removingAnotherCameraKeepsTheActiveOne()
    {
        TwoCameras cameras;
        DevicesPane& pane = cameras.pane;
        QSignalSpy active(&pane, &DevicesPane::activeDeviceChanged);

        pane.removeDevice(cameras.first);
        pane.removeDevice(makeCamera(QStringLiteral("SIM0009")));

        QCOMPARE(active.count(), 0);
        QCOMPARE(pane.activeDevice(), cameras.second);
    }

    void closeAsksForTheActiveCamera()
    {
        DevicesPane pane;
        auto* close = pane.findChild<QToolButton*>(QStringLiteral("closeButton"));
        QVERIFY(close);
        QVERIFY(!close->isEnabled());
        const BaseInfoPtr camera = makeCamera(QStringLiteral("SIM0001"));
        pane.addDevice(camera);
        QVERIFY(close->isEnabled());
        QSignalSpy requested(&pane, &DevicesPane::closeRequested);

        close->click();

        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).value<BaseInfoPtr>(), camera);
        // The pane only asks; the window decides.
        QCOMPARE(pane.devices().size(), 1);
    }

    void builtInCameraIsOfferedInTheOpenMenu()
    {
        DevicesPane pane;
        QSignalSpy requested(&pane, &DevicesPane::openSimulatedRequested);
        auto* action = pane.findChild<QAction*>(QStringLiteral("openBuiltInAction"));
        QVERIFY(action);

        action->trigger();

        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).toString(), QString());
    }

    void marksALostCamera()
    {
        DevicesPane pane;
        const BaseInfoPtr camera = makeCamera(QStringLiteral("SIM0001"));
        pane.addDevice(camera);
        QVERIFY(!pane.isMarkedLost(camera));

        pane.markLost(camera, QStringLiteral("heartbeat timed out"));

        QVERIFY(pane.isMarkedLost(camera));
        QCOMPARE(pane.deviceList()->item(0)->text(), camera->getFriendlyName() + " (lost)");
        QVERIFY(pane.deviceList()->item(0)->toolTip().contains("heartbeat timed out"));
        QCOMPARE(pane.activeDevice(), camera);
    }

    void reconnectIsOfferedOnlyForALostCamera()
    {
        TwoCameras cameras;
        DevicesPane& pane = cameras.pane;
        auto* button = pane.findChild<QToolButton*>(QStringLiteral("reconnectButton"));
        QVERIFY(button);
        QAction* reconnect = pane.reconnectAction();
        QCOMPARE(button->defaultAction(), reconnect);
        QSignalSpy requested(&pane, &DevicesPane::reconnectRequested);

        // Given the first camera lost and the second, healthy one active
        pane.markLost(cameras.first, QStringLiteral("heartbeat timed out"));
        QVERIFY(!reconnect->isEnabled());
        reconnect->trigger();
        QCOMPARE(requested.count(), 0);

        // When the user selects the lost row
        pane.setActiveDevice(cameras.first);

        // Then Reconnect asks for that camera
        QVERIFY(reconnect->isEnabled());
        QVERIFY(button->isEnabled());
        button->click();
        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).value<BaseInfoPtr>(), cameras.first);
        // The pane only asks; the camera stays lost until the window says otherwise.
        QVERIFY(pane.isMarkedLost(cameras.first));
    }

    void reconnectedCameraTakesTheLostOnesRow()
    {
        TwoCameras cameras;
        DevicesPane& pane = cameras.pane;
        pane.setActiveDevice(cameras.first);
        pane.markLost(cameras.first, QStringLiteral("heartbeat timed out"));
        QSignalSpy active(&pane, &DevicesPane::activeDeviceChanged);
        const BaseInfoPtr again = makeCamera(QStringLiteral("SIM0001"));

        pane.replaceDevice(cameras.first, again);

        QCOMPARE(pane.devices(), QList<BaseInfoPtr>({again, cameras.second}));
        QCOMPARE(pane.deviceList()->item(0)->text(), again->getFriendlyName());
        QVERIFY(!pane.isMarkedLost(again));
        QCOMPARE(pane.activeDevice(), again);
        QCOMPARE(active.count(), 1);
        QCOMPARE(active.at(0).at(0).value<BaseInfoPtr>(), again);
        QVERIFY(!pane.reconnectAction()->isEnabled());
    }

    void scanRunsAwayFromTheWindowAndListsWhatItFound()
    {
        DevicesPane pane;
        pane.show();
        // The scan waits until the test lets it go: the window must go on meanwhile.
        auto release = QSharedPointer<QSemaphore>::create();
        auto scannedOnGuiThread = QSharedPointer<std::atomic_bool>::create(true);
        QThread* gui = QThread::currentThread();
        pane.setScanner([release, scannedOnGuiThread, gui]() {
            *scannedOnGuiThread = QThread::currentThread() == gui;
            release->acquire();
            return QList<Backend::CameraPool::DiscoveredDevice>{
                found(QStringLiteral("Vanto-GV0001"), QStringLiteral("192.168.7.20"))};
        });
        QSignalSpy finished(&pane, &DevicesPane::scanFinished);
        auto* scanButton = pane.findChild<QToolButton*>(QStringLiteral("scanButton"));

        scanButton->click();

        QVERIFY(pane.isScanning());
        QVERIFY(!scanButton->isEnabled());
        pane.scan(); // a second request while one runs is ignored
        QCoreApplication::processEvents();
        QCOMPARE(finished.count(), 0);
        release->release();
        QTRY_COMPARE(finished.count(), 1);
        QVERIFY(!*scannedOnGuiThread);
        QCOMPARE(finished.at(0).at(0).toInt(), 1);
        QVERIFY(!pane.isScanning());
        QVERIFY(scanButton->isEnabled());
        QVERIFY(pane.discoveredList()->isVisible());
        QCOMPARE(pane.discoveredList()->count(), 1);
        QVERIFY(pane.discoveredList()->item(0)->text().contains("192.168.7.20"));

        // Activating a found camera asks to open it by its id.
        QSignalSpy open(&pane, &DevicesPane::openRequested);
        Q_EMIT pane.discoveredList()->itemActivated(pane.discoveredList()->item(0));
        QCOMPARE(open.count(), 1);
        QCOMPARE(open.at(0).at(0).toString(), QStringLiteral("Vanto-GV0001"));
    }

    void emptyScanSaysSo()
    {
        DevicesPane pane;
        pane.setScanner([]() { return QList<Backend::CameraPool::DiscoveredDevice>(); });
        QSignalSpy finished(&pane, &DevicesPane::scanFinished);

        pane.scan();

        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(pane.discoveredList()->count(), 1);
        QCOMPARE(pane.discoveredList()->item(0)->text(), QStringLiteral("No cameras found"));
        QCOMPARE(pane.discoveredList()->item(0)->flags(), Qt::NoItemFlags);
    }

    void goingAwayDuringAScanWaitsForIt()
    {
        auto release = QSharedPointer<QSemaphore>::create();
        auto done = QSharedPointer<std::atomic_bool>::create(false);
        {
            DevicesPane pane;
            pane.setScanner([release, done]() {
                release->acquire();
                *done = true;
                return QList<Backend::CameraPool::DiscoveredDevice>();
            });
            pane.scan();
            release->release();
        }
        QVERIFY(*done);
    }
};

QTEST_MAIN(TestDevicesPane)
#include "tst_devicespane.moc"
