#include <arv.h>

#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <simulateddevice.h>
#include <transportlayermodule.h>

#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>

#include <QtTest>

using namespace ParameterCollection;
using Backend::CameraPool;
using Backend::DeviceParameterCollection;

namespace {

const char* const kGigEOnly[] = {
    "GevDeviceIPAddress",  "GevDeviceSubnetMask",       "GevDeviceGateway",
    "GevDeviceMACAddress", "VntHostInterfaceIPAddress", "VntHeartbeatTimeout",
    "VntPacketSize",       "VntPacketSizeNegotiate",    "DeviceTLVersionMajor",
    "DeviceTLVersionMinor"};
// What Aravis can't do for any camera.
const char* const kNeverBacked[] = {"VntCommandTimeout", "VntCommandRetryCount",
                                    "VntDeviceReconnect", "DeviceEndianessMechanism"};

DeviceParameterCollection& collectionOf(CameraPool& pool,
                                        const QSharedPointer<Backend::CameraInfo>& info)
{
    return *static_cast<DeviceParameterCollection*>(pool.getParameterCollection(info).data());
}

ParameterDataPtr dataOf(DeviceParameterCollection& collection, const QString& fullName)
{
    const auto parameter = collection.getParameter(fullName);
    return parameter ? parameter->getParameterData() : ParameterDataPtr();
}

// What the transport layer shows for `feature`: its text, or why there is none.
QString shown(DeviceParameterCollection& collection, const char* feature)
{
    const auto data =
        dataOf(collection, QStringLiteral("@DeviceTransportLayer/") + QLatin1String(feature));
    if (!data) {
        return QStringLiteral("<no such feature>");
    }
    if (!data->implemented) {
        return QStringLiteral("<not implemented>");
    }
    if (data->hasError()) {
        return QStringLiteral("<error: %1>").arg(data->errorText);
    }
    return data->displayText;
}

QString cameraText(DeviceParameterCollection& collection, const char* feature)
{
    const auto data = dataOf(collection, QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    return data && data->readable ? data->displayText : QStringLiteral("<unreadable>");
}

// Reads `fullName` again from the device, past every cache.
void reread(DeviceParameterCollection& collection, const QString& fullName)
{
    const auto parameter = collection.getParameter(fullName);
    QVERIFY2(parameter, qPrintable(fullName));
    parameter->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    collection.waitForDevice();
}

// The features a user can reach below `category`.
QStringList featuresBelow(DeviceParameterCollection& collection, const QString& category)
{
    QStringList names;
    for (const QString& child : collection.getChildren(category)) {
        const auto data = dataOf(collection, child);
        if (data && data->type == CategoryType) {
            names += featuresBelow(collection, child);
        } else if (data) {
            names << child;
        }
    }
    return names;
}

} // namespace

class tst_TransportLayerModule : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldShowTheBuiltinCameraAsSimulated();
    void shouldNameADescriptionFileAsTheModel();
    void shouldFollowTheCamerasUserId();
    void shouldSetTheRegisterCacheModeOfTheCamera();
    void shouldImplementNothingOfTheEventGrabber();
    void shouldShowTheFakeGigECameraAndNothingSimulated();
};

void tst_TransportLayerModule::shouldShowTheBuiltinCameraAsSimulated()
{
    CameraPool pool;
    const auto info = pool.openSimulated();
    auto& collection = collectionOf(pool, info);
    QCOMPARE(shown(collection, "DeviceType"), QStringLiteral("Simulated"));
    QCOMPARE(shown(collection, "DeviceID"), info->getId());
    QCOMPARE(shown(collection, "DeviceModelName"), cameraText(collection, "DeviceModelName"));
    QCOMPARE(shown(collection, "DeviceModelName"), QStringLiteral("VNT-SIM-2000"));
    QCOMPARE(shown(collection, "DeviceVendorName"), cameraText(collection, "DeviceVendorName"));
    QCOMPARE(shown(collection, "DeviceSerialNumber"), cameraText(collection, "DeviceSerialNumber"));
    QCOMPARE(shown(collection, "DeviceDisplayName"),
             QStringLiteral("%1 %2 (%3)")
                 .arg(cameraText(collection, "DeviceVendorName"),
                      cameraText(collection, "DeviceModelName"),
                      cameraText(collection, "DeviceSerialNumber")));
    QCOMPARE(shown(collection, "DeviceAccessStatus"), QStringLiteral("Open Read Write"));
    QCOMPARE(shown(collection, "VntRegisterCacheMode"), QStringLiteral("On"));
    // A simulated camera has no network, and nothing is made up for it
    for (const char* feature : kGigEOnly) {
        QCOMPARE(shown(collection, feature), QStringLiteral("<not implemented>"));
    }
    for (const char* feature : kNeverBacked) {
        QCOMPARE(shown(collection, feature), QStringLiteral("<not implemented>"));
    }
}

void tst_TransportLayerModule::shouldNameADescriptionFileAsTheModel()
{
    CameraPool pool;
    const auto info = pool.openSimulated(testDataPath(QStringLiteral("minimal.xml")));
    auto& collection = collectionOf(pool, info);
    QCOMPARE(shown(collection, "DeviceModelName"), QStringLiteral("minimal.xml"));
    QCOMPARE(shown(collection, "DeviceType"), QStringLiteral("Simulated"));
    // What the description lacks is not there
    QVERIFY(!dataOf(collection, QStringLiteral("@CameraDevice/DeviceUserID")));
    QCOMPARE(shown(collection, "DeviceUserID"), QStringLiteral("<not implemented>"));
    QVERIFY(!shown(collection, "DeviceDisplayName").contains(QLatin1String("VNT-SIM")));
}

void tst_TransportLayerModule::shouldFollowTheCamerasUserId()
{
    CameraPool pool;
    const auto info = pool.openSimulated();
    auto& collection = collectionOf(pool, info);
    const auto userId = collection.getParameter(QStringLiteral("@CameraDevice/DeviceUserID"));
    userId->setValue(QStringLiteral("left-hand camera"));
    collection.waitForDevice();
    reread(collection, QStringLiteral("@DeviceTransportLayer/DeviceUserID"));
    QCOMPARE(shown(collection, "DeviceUserID"), QStringLiteral("left-hand camera"));
}

void tst_TransportLayerModule::shouldSetTheRegisterCacheModeOfTheCamera()
{
    CameraPool pool;
    const auto info = pool.openSimulated();
    auto& collection = collectionOf(pool, info);
    auto readsOfWidth = [&collection] {
        int reads = 0;
        collection.runOnDeviceThread([&reads](Backend::DeviceWorker& worker) {
            Backend::SimulatedDevice* camera = worker.simulatedDevice(0);
            camera->resetCounters();
            GError* error = nullptr;
            arv_device_get_integer_feature_value(camera->device(), "Width", &error);
            arv_device_get_integer_feature_value(camera->device(), "Width", &error);
            g_clear_error(&error);
            reads = camera->readCount();
        });
        return reads;
    };
    // Given the cache on, Width read at open is served from it
    QVERIFY(readsOfWidth() < 2);
    // When the cache mode is set to Off, Then every read reaches the camera
    collection.getParameter(QStringLiteral("@DeviceTransportLayer/VntRegisterCacheMode"))
        ->setValue(QStringLiteral("Off"));
    collection.waitForDevice();
    QCOMPARE(shown(collection, "VntRegisterCacheMode"), QStringLiteral("Off"));
    QCOMPARE(readsOfWidth(), 2);
}

void tst_TransportLayerModule::shouldImplementNothingOfTheEventGrabber()
{
    CameraPool pool;
    const auto info = pool.openSimulated();
    auto& collection = collectionOf(pool, info);
    QVERIFY(collection.getNodeMapNames().contains(QStringLiteral("EventGrabber")));
    const QStringList features = featuresBelow(collection, QStringLiteral("@EventGrabber/Root"));
    QVERIFY(features.size() >= 5);
    for (const QString& feature : features) {
        QVERIFY2(!dataOf(collection, feature)->implemented, qPrintable(feature));
    }
}

void tst_TransportLayerModule::shouldShowTheFakeGigECameraAndNothingSimulated()
{
    FakeGigECamera camera;
    const QString unavailable = camera.start();
    if (!unavailable.isEmpty()) {
        QSKIP(qPrintable(unavailable));
    }
    CameraPool pool;
    const auto info = openFakeGigECamera(pool);
    QVERIFY2(info, "the fake camera did not answer on 127.0.0.1");
    auto& collection = collectionOf(pool, info);

    // Its addresses and identity, as Aravis and the camera tell them
    QCOMPARE(shown(collection, "DeviceType"), QStringLiteral("GigE Vision"));
    QCOMPARE(shown(collection, "DeviceID"), QStringLiteral("127.0.0.1"));
    QCOMPARE(shown(collection, "GevDeviceIPAddress"), QStringLiteral("127.0.0.1"));
    QCOMPARE(shown(collection, "VntHostInterfaceIPAddress"), QStringLiteral("127.0.0.1"));
    QCOMPARE(shown(collection, "DeviceModelName"), cameraText(collection, "DeviceModelName"));
    QCOMPARE(shown(collection, "DeviceVendorName"), cameraText(collection, "DeviceVendorName"));
    QCOMPARE(shown(collection, "DeviceAccessStatus"), QStringLiteral("Open Read Write"));
    for (const char* feature :
         {"GevDeviceSubnetMask", "GevDeviceGateway", "GevDeviceMACAddress", "DeviceTLVersionMajor",
          "DeviceTLVersionMinor", "VntHeartbeatTimeout", "VntPacketSize"}) {
        const QString text = shown(collection, feature);
        qInfo("%s: %s", feature, qPrintable(text));
        QVERIFY2(!text.startsWith(QLatin1Char('<')), qPrintable(text));
    }
    // and nothing of the simulated camera's
    for (const auto& node : collection.structure(QStringLiteral("DeviceTransportLayer"))->nodes) {
        const QString text = shown(collection, node.featureName.toLatin1().constData());
        for (const char* invented :
             {"Simulated", "VNT-SIM", "SIM0001", "192.168.10.100", "02:56:4E:54:00:01", "Vanto"}) {
            QVERIFY2(!text.contains(QLatin1String(invented), Qt::CaseInsensitive),
                     qPrintable(node.featureName + QLatin1String(": ") + text));
        }
    }
    for (const char* feature : kNeverBacked) {
        QCOMPARE(shown(collection, feature), QStringLiteral("<not implemented>"));
    }

    // A packet size written here reaches Aravis, and a read asks the camera through Aravis
    const auto packetSize =
        collection.getParameter(QStringLiteral("@DeviceTransportLayer/VntPacketSize"));
    const qint64 wanted = packetSize->getParameterData()->value.toLongLong() == 1000 ? 1200 : 1000;
    packetSize->setValue(QVariant(wanted));
    collection.waitForDevice();
    reread(collection, QStringLiteral("@DeviceTransportLayer/VntPacketSize"));
    QCOMPARE(packetSize->getParameterData()->value.toLongLong(), wanted);
    // and so does the heartbeat timeout
    const auto heartbeat =
        collection.getParameter(QStringLiteral("@DeviceTransportLayer/VntHeartbeatTimeout"));
    heartbeat->setValue(QVariant(7000));
    collection.waitForDevice();
    reread(collection, QStringLiteral("@DeviceTransportLayer/VntHeartbeatTimeout"));
    QCOMPARE(heartbeat->getParameterData()->value.toLongLong(), 7000);
    // Negotiation asks the camera; whatever it settles on is what is shown
    const auto negotiate =
        collection.getParameter(QStringLiteral("@DeviceTransportLayer/VntPacketSizeNegotiate"));
    auto* command = qobject_cast<ICommandParameter*>(negotiate.data());
    QVERIFY(command);
    command->execute();
    QTRY_VERIFY(command->isDone());
    collection.waitForDevice();
    reread(collection, QStringLiteral("@DeviceTransportLayer/VntPacketSize"));
    const QString negotiated = shown(collection, "VntPacketSize");
    qInfo("negotiated packet size %s", qPrintable(negotiated));
    QVERIFY2(!negotiated.startsWith(QLatin1Char('<')), qPrintable(negotiated));
}

QTEST_GUILESS_MAIN(tst_TransportLayerModule)
#include "tst_transportlayermodule.moc"
