#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <simulateddevice.h>
#include <simulatedimage.h>
#include <simulatedsensor.h>

#include <parametercollection/iparameter.h>

#include <QTemporaryDir>
#include <QtTest>

using Backend::SimulatedDevice;
using Backend::SimulatedImage;
using Backend::SimulatedImageSettings;
using Backend::SimulatedSensor;

namespace {

QByteArray reg(const char* name, const char* address, const char* access = "RO")
{
    return QByteArray("<IntReg Name=\"") + name + "\"><Address>" + address +
           "</Address><Length>4</Length><AccessMode>" + access +
           "</AccessMode><pPort>Device</pPort><Sign>Unsigned</Sign>"
           "<Endianess>LittleEndian</Endianess></IntReg>\n";
}

QByteArray bit(const char* name, const char* address, int bit)
{
    return QByteArray("<MaskedIntReg Name=\"") + name + "\"><Address>" + address +
           "</Address><Length>4</Length><AccessMode>RO</AccessMode><pPort>Device</pPort><Bit>" +
           QByteArray::number(bit) + "</Bit><Endianess>LittleEndian</Endianess></MaskedIntReg>\n";
}

// A camera in the way vendors describe them: sizes in registers, a maximum computed from the
// sensor, and implemented/available flags in registers of their own.
const QByteArray kCamera = describedAs(
    "<Category Name=\"Root\"><pFeature>SensorWidth</pFeature><pFeature>WidthMax</pFeature>"
    "<pFeature>Width</pFeature><pFeature>Height</pFeature><pFeature>PixelFormat</pFeature>"
    "<pFeature>AcquisitionMode</pFeature><pFeature>TestPattern</pFeature></Category>\n"
    "<Integer Name=\"SensorWidth\"><pValue>SensorWidthReg</pValue></Integer>\n" +
    reg("SensorWidthReg", "0x100") + reg("OffsetXReg", "0x104", "RW") +
    "<IntSwissKnife Name=\"WidthMax\"><pVariable Name=\"SW\">SensorWidthReg</pVariable>"
    "<pVariable Name=\"OX\">OffsetXReg</pVariable><Formula>SW-OX</Formula></IntSwissKnife>\n"
    "<Integer Name=\"Width\"><pIsImplemented>WidthImp</pIsImplemented>"
    "<pIsAvailable>WidthAvl</pIsAvailable><pValue>WidthReg</pValue><Min>1</Min>"
    "<pMax>WidthMax</pMax></Integer>\n" +
    bit("WidthImp", "0x200", 0) + bit("WidthAvl", "0x200", 1) + reg("WidthReg", "0x110", "RW") +
    "<Integer Name=\"Height\"><pValue>HeightReg</pValue><pMax>HeightMaxReg</pMax></Integer>\n" +
    reg("HeightReg", "0x114", "RW") + reg("HeightMaxReg", "0x10C") +
    "<Enumeration Name=\"PixelFormat\">"
    "<EnumEntry Name=\"Mono14\"><Value>0x01100025</Value></EnumEntry>"
    "<EnumEntry Name=\"Mono8\"><pIsAvailable>Mono8Avl</pIsAvailable>"
    "<Value>0x01080001</Value></EnumEntry>"
    "<EnumEntry Name=\"Mono12\"><Value>0x01100005</Value></EnumEntry>"
    "<pValue>PixelFormatReg</pValue></Enumeration>\n" +
    reg("PixelFormatReg", "0x118", "RW") + reg("Mono8Avl", "0x204") +
    "<Enumeration Name=\"AcquisitionMode\">"
    "<EnumEntry Name=\"SingleFrame\"><Value>1</Value></EnumEntry>"
    "<EnumEntry Name=\"Continuous\"><pIsAvailable>ContinuousAvl</pIsAvailable>"
    "<Value>2</Value></EnumEntry>"
    "<pValue>AcquisitionModeReg</pValue></Enumeration>\n" +
    reg("AcquisitionModeReg", "0x11C", "RW") + bit("ContinuousAvl", "0x208", 1) +
    "<Enumeration Name=\"TestPattern\">"
    "<EnumEntry Name=\"SensorNoise\"><Value>0</Value></EnumEntry>"
    "<EnumEntry Name=\"Off\"><Value>1</Value></EnumEntry>"
    "<pValue>TestPatternReg</pValue></Enumeration>\n" +
    reg("TestPatternReg", "0x120", "RW"));

} // namespace

class tst_SimulatedSensor : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldPowerABlankDescriptionOnAsTheSimulatedSensor();
    void shouldKeepValuesThatAreAlreadyValid();
    void shouldOpenADescriptionFileReadyToStream();
    void shouldMakeEveryVendorDescriptionStream_data();
    void shouldMakeEveryVendorDescriptionStream();
};

void tst_SimulatedSensor::shouldPowerABlankDescriptionOnAsTheSimulatedSensor()
{
    // Given a description served from blank memory, which makes no image
    SimulatedDevice device(kCamera, QStringLiteral("camera"));
    SimulatedImageSettings s;
    QString error;
    QVERIFY(!SimulatedImage::settingsOf(device.genicam(), &s, &error));

    // When it powers on
    const QStringList notes = SimulatedSensor::powerOn(device);
    qInfo("%s", qPrintable(notes.join(QStringLiteral(", "))));

    // Then the registers behind the features hold the simulated sensor
    QCOMPARE(device.peekInt(0x100, 4), SimulatedSensor::WIDTH); // SensorWidth
    QCOMPARE(device.peekInt(0x104, 4), 0);                      // OffsetX untouched
    QCOMPARE(device.peekInt(0x110, 4), SimulatedSensor::WIDTH); // Width
    QCOMPARE(device.peekInt(0x114, 4), SimulatedSensor::HEIGHT);
    QCOMPARE(device.peekInt(0x10C, 4), SimulatedSensor::HEIGHT); // Height's maximum
    QCOMPARE(device.peekInt(0x200, 4), 3);                       // Width implemented, available
    QCOMPARE(device.peekInt(0x118, 4), 0x01080001);              // the first format made
    QCOMPARE(device.peekInt(0x204, 4), 1);                       // Mono8 available
    QCOMPARE(device.peekInt(0x11C, 4), 2);                       // Continuous
    QCOMPARE(device.peekInt(0x208, 4), 2);                       // Continuous available
    QCOMPARE(device.peekInt(0x120, 4), 1);                       // TestPattern Off
    QVERIFY2(notes.contains(QStringLiteral("PixelFormat = Mono8")), qPrintable(notes.join(',')));
    QVERIFY2(notes.contains(QStringLiteral("AcquisitionMode = Continuous")),
             qPrintable(notes.join(',')));
    // and the computed maximum follows the sensor, as the description computes it
    QVERIFY(!notes.contains(QStringLiteral("WidthMax = 1280")));

    // and the image is the description's own
    QVERIFY2(SimulatedImage::settingsOf(device.genicam(), &s, &error), qPrintable(error));
    QCOMPARE(s.width, quint32(SimulatedSensor::WIDTH));
    QCOMPARE(s.height, quint32(SimulatedSensor::HEIGHT));
    QCOMPARE(SimulatedImage::formatName(s.pixelFormat), QStringLiteral("Mono8"));
    QCOMPARE(s.testPattern, QStringLiteral("Off"));
}

void tst_SimulatedSensor::shouldKeepValuesThatAreAlreadyValid()
{
    // Given a description whose image features already hold valid values
    SimulatedDevice device(kCamera, QStringLiteral("camera"));
    device.pokeInt(0x100, 640, 4);
    device.pokeInt(0x10C, 480, 4);
    device.pokeInt(0x110, 320, 4);
    device.pokeInt(0x114, 240, 4);
    device.pokeInt(0x200, 3, 4);
    device.pokeInt(0x118, 0x01100005, 4); // Mono12
    device.pokeInt(0x11C, 1, 4);          // SingleFrame
    device.pokeInt(0x120, 1, 4);          // Off

    // When it powers on, Then nothing is written
    const QStringList notes = SimulatedSensor::powerOn(device);
    QVERIFY2(notes.isEmpty(), qPrintable(notes.join(',')));
    QCOMPARE(device.peekInt(0x100, 4), 640);
    QCOMPARE(device.peekInt(0x110, 4), 320);
    QCOMPARE(device.peekInt(0x114, 4), 240);
    QCOMPARE(device.peekInt(0x118, 4), 0x01100005);
    QCOMPARE(device.peekInt(0x11C, 4), 1);
    QCOMPARE(device.peekInt(0x204, 4), 0); // Mono8 stays unavailable: it was not chosen
}

void tst_SimulatedSensor::shouldOpenADescriptionFileReadyToStream()
{
    // Given the description as a file
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("camera.xml"));
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(kCamera);
    }
    // When the pool opens it as a simulated camera
    Backend::CameraPool pool;
    const auto info = pool.openSimulated(file);
    const auto collection = pool.getParameterCollection(info);
    // Then its features show the simulated sensor
    const auto width = qSharedPointerObjectCast<ParameterCollection::IIntegerParameter>(
        collection->getParameter(QStringLiteral("@CameraDevice/Width")));
    const auto format = qSharedPointerObjectCast<ParameterCollection::IEnumParameter>(
        collection->getParameter(QStringLiteral("@CameraDevice/PixelFormat")));
    QVERIFY(width && format);
    QCOMPARE(width->getValue(), SimulatedSensor::WIDTH);
    QCOMPARE(format->getValue(), QStringLiteral("Mono8"));
}

void tst_SimulatedSensor::shouldMakeEveryVendorDescriptionStream_data()
{
    addVendorDescriptionRows();
}

void tst_SimulatedSensor::shouldMakeEveryVendorDescriptionStream()
{
    QFETCH(QString, file);
    if (file.isEmpty() || !QFileInfo::exists(file)) {
        QSKIP("no vendor descriptions: the shared genicam directory is absent");
    }
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    SimulatedDevice device(f.readAll(), file);
    const QStringList notes = SimulatedSensor::powerOn(device);
    SimulatedImageSettings s;
    QString error;
    QVERIFY2(SimulatedImage::settingsOf(device.genicam(), &s, &error), qPrintable(error));
    QVERIFY(SimulatedImage::payloadSize(s) > 0);
    qInfo("%s powers on with %s: %ux%u %s", qPrintable(QFileInfo(file).fileName()),
          qPrintable(notes.join(QStringLiteral(", "))), s.width, s.height,
          qPrintable(SimulatedImage::formatName(s.pixelFormat)));
    // A second power-on finds everything valid.
    QVERIFY2(SimulatedSensor::powerOn(device).isEmpty(), qPrintable(file));
}

QTEST_GUILESS_MAIN(tst_SimulatedSensor)
#include "tst_simulatedsensor.moc"
