#include <arv.h>

#include <builtincameralogic.h>
#include <camerapool.h>
#include <simulateddevice.h>
#include <simulatedimage.h>

#include <QtTest>

#include <memory>

using Backend::BuiltinCameraLogic;
using Backend::SimulatedDevice;
using Backend::SimulatedImage;
using Backend::SimulatedImageSettings;

namespace {

// The built-in camera at its start values, with its logic installed.
struct Camera {
    Camera()
        : device(Backend::CameraPool::builtinCameraXml(), QStringLiteral("builtin")),
          problems(device.applyDefaults(Backend::CameraPool::builtinCameraDefaults())),
          logic(device)
    {}
    qint64 integer(const char* feature)
    {
        GError* error = nullptr;
        const qint64 value = arv_device_get_integer_feature_value(device.device(), feature, &error);
        if (error != nullptr) {
            qWarning("%s: %s", feature, error->message);
            g_clear_error(&error);
        }
        return value;
    }
    bool set(const char* feature, const char* value)
    {
        GError* error = nullptr;
        ArvGcNode* node = arv_device_get_feature(device.device(), feature);
        if (node == nullptr || !ARV_IS_GC_FEATURE_NODE(node)) {
            return false;
        }
        arv_gc_feature_node_set_value_from_string(ARV_GC_FEATURE_NODE(node), value, &error);
        const bool ok = error == nullptr;
        if (!ok) {
            qWarning("%s = %s: %s", feature, value, error->message);
            g_clear_error(&error);
        }
        return ok;
    }
    void execute(const char* command)
    {
        GError* error = nullptr;
        arv_device_execute_command(device.device(), command, &error);
        QVERIFY2(error == nullptr, error != nullptr ? error->message : "");
    }

    SimulatedDevice device;
    QStringList problems;
    BuiltinCameraLogic logic;
};

QStringList pixelFormatEntries(ArvGc* genicam)
{
    QStringList names;
    ArvGcNode* node = arv_gc_get_node(genicam, "PixelFormat");
    for (const GSList* it = arv_gc_enumeration_get_entries(ARV_GC_ENUMERATION(node)); it != nullptr;
         it = it->next) {
        names << QString::fromUtf8(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(it->data)));
    }
    return names;
}

} // namespace

class tst_BuiltinCameraLogic : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldOfferEveryFormatTheViewHandles();
    void shouldSizeThePayloadAsTheImageIsLaidOut();
    void shouldCountTheTimestampFromItsReset();
};

void tst_BuiltinCameraLogic::shouldOfferEveryFormatTheViewHandles()
{
    Camera camera;
    QVERIFY2(camera.problems.isEmpty(), qPrintable(camera.problems.join(QLatin1Char('\n'))));
    const QStringList offered = pixelFormatEntries(camera.device.genicam());
    for (const char* name :
         {"Mono8",     "Mono10",    "Mono12",     "Mono16",     "Mono10p",    "Mono12p",
          "BayerRG8",  "BayerGB8",  "BayerGR8",   "BayerBG8",   "BayerRG12",  "BayerGB12",
          "BayerGR12", "BayerBG12", "BayerRG12p", "BayerGB12p", "BayerGR12p", "BayerBG12p",
          "RGB8",      "BGR8",      "YCbCr422_8"}) {
        QVERIFY2(offered.contains(QLatin1String(name)), name);
    }
    // and the simulated image makes every one it offers, each with its PixelColorFilter
    for (const QString& name : offered) {
        QVERIFY2(camera.set("PixelFormat", name.toLatin1().constData()), qPrintable(name));
        const quint32 code = quint32(camera.integer("PixelFormat"));
        QVERIFY2(SimulatedImage::supports(code), qPrintable(name));
        QCOMPARE(SimulatedImage::formatName(code), name);
        GError* error = nullptr;
        const QString filter = QString::fromUtf8(arv_device_get_string_feature_value(
            camera.device.device(), "PixelColorFilter", &error));
        QVERIFY(error == nullptr);
        QCOMPARE(filter,
                 name.startsWith(QLatin1String("Bayer")) ? name.mid(0, 7) : QStringLiteral("None"));
    }
}

void tst_BuiltinCameraLogic::shouldSizeThePayloadAsTheImageIsLaidOut()
{
    Camera camera;
    QVERIFY(camera.set("Width", "640"));
    QVERIFY(camera.set("Height", "6"));
    const struct {
        const char* format;
        qint64 bytes;
    } expected[] = {{"Mono8", 3840},      {"Mono10", 7680}, {"Mono10p", 4800},    {"Mono12p", 5760},
                    {"BayerGR12p", 5760}, {"RGB8", 11520},  {"YCbCr422_8", 7680}, {"Mono16", 7680}};
    for (const auto& e : expected) {
        QVERIFY(camera.set("PixelFormat", e.format));
        QCOMPARE(camera.integer("PayloadSize"), e.bytes);
        SimulatedImageSettings settings;
        QString error;
        QVERIFY2(SimulatedImage::settingsOf(camera.device.genicam(), &settings, &error),
                 qPrintable(error));
        QCOMPARE(qint64(SimulatedImage::payloadSize(settings)), e.bytes);
    }
}

void tst_BuiltinCameraLogic::shouldCountTheTimestampFromItsReset()
{
    Camera camera;
    const qint64 first = camera.integer("Timestamp");
    QTRY_VERIFY(camera.integer("Timestamp") > first);
    camera.execute("TimestampLatch");
    const qint64 latched = camera.integer("TimestampLatchValue");
    QVERIFY(latched > first);
    QVERIFY(latched <= camera.integer("Timestamp"));
    camera.execute("TimestampReset");
    QVERIFY(camera.integer("Timestamp") < latched);
    qInfo("latched %lld ns after the first read", latched - first);
}

QTEST_GUILESS_MAIN(tst_BuiltinCameraLogic)
#include "tst_builtincameralogic.moc"
