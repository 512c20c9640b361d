#include <arv.h>

#include "testsupport.h"

#include <parametercollection/exception.h>
#include <simulateddevice.h>

#include <QtTest>

using Backend::SimulatedDevice;
using ParameterCollection::Exception;
using ParameterCollection::InvalidArgumentException;

class tst_SimulatedDevice : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldRejectTextThatIsNotXml();
    void shouldRejectXmlThatIsNotGenICam();
    void shouldLoadDescriptionWithJunkBeforeDeclaration();
    void shouldReportAnInvalidByteAtItsLineAndColumn();
    void shouldRefuseNestingDeeperThanTheParserReads();
    void shouldApplyDefaultsThroughFeatures();
    void shouldReportDefaultsItCannotApply();
    void shouldServeMemoryAndCountReads();
    void shouldRunHooksBeforeReads();
    void shouldFailEveryAccessWhenTimingOut();
    void shouldRefuseWritesWhenAskedTo();
};

void tst_SimulatedDevice::shouldRejectTextThatIsNotXml()
{
    try {
        SimulatedDevice device(testData("notxml.xml"), QStringLiteral("notxml"));
        QFAIL("a text without markup must not load");
    } catch (const Exception& e) {
        QCOMPARE(e.kind(), Exception::InvalidArgument);
        QCOMPARE(e.featureName(), QStringLiteral("notxml"));
        QVERIFY2(e.message().contains(QStringLiteral("not XML")), e.what());
    }
}

void tst_SimulatedDevice::shouldRejectXmlThatIsNotGenICam()
{
    try {
        SimulatedDevice device(testData("notgenicam.xml"), QStringLiteral("page"));
        QFAIL("an HTML page must not load");
    } catch (const Exception& e) {
        QVERIFY2(e.message().contains(QStringLiteral("not a GenICam description")), e.what());
        QVERIFY2(e.message().contains(QStringLiteral("<html>")), e.what());
        QVERIFY(QString::fromUtf8(e.what()).startsWith(QStringLiteral("[page] ")));
    }
}

void tst_SimulatedDevice::shouldLoadDescriptionWithJunkBeforeDeclaration()
{
    SimulatedDevice device(testData("junkprefix.xml"), QStringLiteral("junk"));
    QVERIFY(arv_gc_get_node(device.genicam(), "Width") != nullptr);
    QVERIFY(device.xml().startsWith("<?xml"));
}

void tst_SimulatedDevice::shouldReportAnInvalidByteAtItsLineAndColumn()
{
    // Line 20 of the file: a byte 0xFF after ten characters.
    QCOMPARE(thrownText<InvalidArgumentException>(
                 [] { SimulatedDevice(testData("invalidutf8.xml"), QStringLiteral("bad")); }),
             QStringLiteral("[bad] the file is not valid UTF-8: byte 0xff at line 20, column 11"));
    // A character of several bytes before it counts once.
    QByteArray text = testData("minimal.xml");
    text.replace("Smallest useful camera", "Smallest \xC3\xA9 \xE2\x82\xAC\xFE");
    QVERIFY(thrownText<InvalidArgumentException>([&] {
                SimulatedDevice(text, QStringLiteral("b"));
            }).endsWith(QStringLiteral("byte 0xfe at line 2, column 82")));
}

void tst_SimulatedDevice::shouldRefuseNestingDeeperThanTheParserReads()
{
    auto nested = [](int groups) {
        return describedAs("<Category Name=\"Root\"><pFeature>Deep</pFeature></Category>\n" +
                           QByteArray("<Group Comment=\"g\">").repeated(groups) +
                           "<Integer Name=\"Deep\"><Value>2</Value></Integer>" +
                           QByteArray("</Group>").repeated(groups) + "\n");
    };
    // Deep, but within reach: every feature is there.
    SimulatedDevice deep(nested(250), QStringLiteral("deep"));
    QVERIFY(arv_gc_get_node(deep.genicam(), "Deep") != nullptr);
    // Deeper than the parser reads: the file is refused with the reason, never half read.
    const QString refused = thrownText<InvalidArgumentException>(
        [&] { SimulatedDevice(nested(300), QStringLiteral("deeper")); });
    QVERIFY2(refused.startsWith(QStringLiteral("[deeper] elements are nested more than 256 deep")),
             qPrintable(refused));
}

void tst_SimulatedDevice::shouldApplyDefaultsThroughFeatures()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    const QStringList problems =
        device.applyDefaults(QStringLiteral("# start values\nWidth=640\nHeight = 480\n"
                                            "TemperatureReg=41.5\nMode=On\n"));
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    QCOMPARE(device.peekInt(0x100, 4), 640);
    QCOMPARE(device.peekInt(0x104, 4), 480);
    QCOMPARE(device.peekDouble(0x108, 8), 41.5);
    QCOMPARE(device.peekInt(0x110, 4), 1);
}

void tst_SimulatedDevice::shouldReportDefaultsItCannotApply()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    const QStringList problems =
        device.applyDefaults(QStringLiteral("NoSuchFeature=1\nbroken line\nMode=Sideways\n"));
    QCOMPARE(problems.size(), 3);
    QVERIFY(problems.at(0).contains(QStringLiteral("NoSuchFeature")));
    QVERIFY(problems.at(1).startsWith(QStringLiteral("line 2")));
    QVERIFY(problems.at(2).startsWith(QStringLiteral("line 3")));
}

void tst_SimulatedDevice::shouldServeMemoryAndCountReads()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    device.pokeInt(0x100, 1024, 4);
    GError* error = nullptr;
    quint32 raw = 0;
    QVERIFY(arv_device_read_memory(device.device(), 0x100, 4, &raw, &error));
    QCOMPARE(raw, 1024u);
    QCOMPARE(device.readCount(), 1);
    QCOMPARE(device.readLog(), QVector<quint64>{0x100});
    // Far apart addresses land in separate pages of the sparse memory.
    const quint64 high = 0x7fff00000000ull;
    device.pokeInt(high, 0x1234, 4);
    QCOMPARE(device.peekInt(high, 4), 0x1234);
    QCOMPARE(device.peekInt(0x100, 4), 1024);
    device.resetCounters();
    QCOMPARE(device.readCount(), 0);
}

void tst_SimulatedDevice::shouldRunHooksBeforeReads()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    int calls = 0;
    device.addReadHook([&calls](SimulatedDevice& d, quint64 address, quint32 size) {
        if (address == 0x104) {
            ++calls;
            d.pokeInt(address, 77, size);
        }
    });
    ArvGcNode* height = arv_gc_get_node(device.genicam(), "Height");
    GError* error = nullptr;
    QCOMPARE(arv_gc_integer_get_value(ARV_GC_INTEGER(height), &error), 77);
    QVERIFY(error == nullptr);
    QCOMPARE(calls, 1);
}

void tst_SimulatedDevice::shouldFailEveryAccessWhenTimingOut()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    device.setFault(SimulatedDevice::Fault::Timeout);
    GError* error = nullptr;
    quint32 raw = 0;
    QVERIFY(!arv_device_read_memory(device.device(), 0x100, 4, &raw, &error));
    QVERIFY(error != nullptr);
    QCOMPARE(int(error->code), int(ARV_DEVICE_ERROR_TIMEOUT));
    g_clear_error(&error);
}

void tst_SimulatedDevice::shouldRefuseWritesWhenAskedTo()
{
    SimulatedDevice device(testData("minimal.xml"), QStringLiteral("minimal"));
    device.setFault(SimulatedDevice::Fault::RefuseWrites);
    GError* error = nullptr;
    quint32 raw = 5;
    QVERIFY(!arv_device_write_memory(device.device(), 0x100, 4, &raw, &error));
    QCOMPARE(int(error->code), int(ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED));
    g_clear_error(&error);
    QCOMPARE(device.peekInt(0x100, 4), 0);
}

QTEST_GUILESS_MAIN(tst_SimulatedDevice)
#include "tst_simulateddevice.moc"
