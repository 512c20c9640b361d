#include "framesupport.h"

#include "frameconverter.h"
#include "imagewriter.h"

#include <QFile>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <tiffio.h>

#include <vector>

using namespace FrameSupport;
using VantoViewer::ConversionSettings;
using VantoViewer::FrameConverter;
using VantoViewer::ImageWriter;

namespace {

struct TiffContent {
    quint32 width = 0;
    quint32 height = 0;
    quint16 bits = 0;
    quint16 samples = 0;
    QByteArray pixels; // rows one after the other
};

TiffContent readTiff(const QString& path)
{
    TiffContent content;
    TIFF* tiff = TIFFOpen(QFile::encodeName(path).constData(), "r");
    if (!tiff) {
        return content;
    }
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &content.width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &content.height);
    TIFFGetField(tiff, TIFFTAG_BITSPERSAMPLE, &content.bits);
    TIFFGetField(tiff, TIFFTAG_SAMPLESPERPIXEL, &content.samples);
    const tmsize_t line = TIFFScanlineSize(tiff);
    std::vector<char> buffer(static_cast<size_t>(line));
    for (quint32 y = 0; y < content.height; ++y) {
        TIFFReadScanline(tiff, buffer.data(), y, 0);
        content.pixels.append(buffer.data(), int(line));
    }
    TIFFClose(tiff);
    return content;
}

QVector<quint32> ramp(int count, int bits)
{
    QVector<quint32> values;
    for (int i = 0; i < count; ++i) {
        values.append(quint32((i * 331 + 7) % (1 << bits)));
    }
    values[1] = (1u << bits) - 1u;
    return values;
}

QByteArray rgbOf(const QImage& image)
{
    QByteArray bytes;
    for (int y = 0; y < image.height(); ++y) {
        bytes.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.width() * 3);
    }
    return bytes;
}

} // namespace

class TestImageWriter : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString path(const char* name) const { return m_dir.filePath(QLatin1String(name)); }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void shouldSaveDeepMonoAsSixteenBitRawValues_data()
    {
        addFormatRows({PixelFormat::Mono12, PixelFormat::Mono10p, PixelFormat::Mono12Packed,
                       PixelFormat::Mono16});
    }
    void shouldSaveDeepMonoAsSixteenBitRawValues()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given
        const QVector<quint32> values = ramp(7 * 3, bits);
        const FramePtr frame = makeFrame(format, 7, 3, pack(format, values));

        // When
        QString error;
        QVERIFY2(ImageWriter::write(*frame, path("deep.png"), ImageWriter::Png, &error),
                 qPrintable(error));
        QVERIFY2(ImageWriter::write(*frame, path("deep.tiff"), ImageWriter::Tiff, &error),
                 qPrintable(error));

        // Then: both files hold the camera's values, unscaled
        const QImage png(path("deep.png"));
        QCOMPARE(png.format(), QImage::Format_Grayscale16);
        const TiffContent tiff = readTiff(path("deep.tiff"));
        QCOMPARE(tiff.bits, quint16(16));
        QCOMPARE(tiff.samples, quint16(1));
        QCOMPARE(tiff.width, 7u);
        QCOMPARE(tiff.height, 3u);
        const auto* tiffValues = reinterpret_cast<const quint16*>(tiff.pixels.constData());
        for (int i = 0; i < values.size(); ++i) {
            const auto* line = reinterpret_cast<const quint16*>(png.constScanLine(i / 7));
            QCOMPARE(quint32(line[i % 7]), values.at(i));
            QCOMPARE(quint32(tiffValues[i]), values.at(i));
        }
    }

    void shouldSaveMono8AsEightBitGrey()
    {
        const QVector<quint32> values = ramp(5 * 2, 8);
        const FramePtr frame = makeFrame(PixelFormat::Mono8, 5, 2, packBytes(values));
        QString error;
        QVERIFY(ImageWriter::write(*frame, path("mono8.png"), ImageWriter::Png, &error));
        QVERIFY(ImageWriter::write(*frame, path("mono8.tif"), ImageWriter::Tiff, &error));

        const QImage png(path("mono8.png"));
        QCOMPARE(png.format(), QImage::Format_Grayscale8);
        const TiffContent tiff = readTiff(path("mono8.tif"));
        QCOMPARE(tiff.bits, quint16(8));
        for (int i = 0; i < values.size(); ++i) {
            QCOMPARE(quint32(png.constScanLine(i / 5)[i % 5]), values.at(i));
            QCOMPARE(quint32(uchar(tiff.pixels.at(i))), values.at(i));
        }
    }

    void shouldSaveColourFramesAsTheirRgbImage_data()
    {
        QTest::addColumn<quint32>("format");
        QTest::newRow("BayerRG12p") << PixelFormat::BayerRG12p;
        QTest::newRow("BGR8") << PixelFormat::BGR8;
        QTest::newRow("YCbCr422_8") << PixelFormat::YCbCr422_8;
    }
    void shouldSaveColourFramesAsTheirRgbImage()
    {
        QFETCH(quint32, format);
        // Given: bytes of any content, the converted RGB image as the reference
        const int width = 6;
        const int height = 4;
        QByteArray bytes(int(PixelFormat::imageBytes(format, width, height)), '\0');
        for (int i = 0; i < bytes.size(); ++i) {
            bytes[i] = char((i * 73) & 0xFF);
        }
        const FramePtr frame = makeFrame(format, width, height, bytes);
        QString error;
        const QImage expected = FrameConverter::convert(*frame, ConversionSettings(), &error);
        QCOMPARE(expected.format(), QImage::Format_RGB888);

        // When
        QVERIFY2(ImageWriter::write(*frame, path("colour.png"), ImageWriter::Png, &error),
                 qPrintable(error));
        QVERIFY2(ImageWriter::write(*frame, path("colour.tiff"), ImageWriter::Tiff, &error),
                 qPrintable(error));

        // Then
        const QImage png = QImage(path("colour.png")).convertToFormat(QImage::Format_RGB888);
        QCOMPARE(rgbOf(png), rgbOf(expected));
        const TiffContent tiff = readTiff(path("colour.tiff"));
        QCOMPARE(tiff.samples, quint16(3));
        QCOMPARE(tiff.bits, quint16(8));
        QCOMPARE(tiff.pixels, rgbOf(expected));
    }

    void shouldSaveRawBytesWithTheirDescription()
    {
        // Given: a packed frame with a timestamp beyond a double's exact integers
        const QByteArray bytes = pack(PixelFormat::Mono12p, ramp(8 * 3, 12));
        const FramePtr frame =
            makeFrame(PixelFormat::Mono12p, 8, 3, bytes, 4711, 9007199254740993ull);

        // When
        QString error;
        QVERIFY2(ImageWriter::write(*frame, path("frame.raw"), ImageWriter::Raw, &error),
                 qPrintable(error));

        // Then
        QFile raw(path("frame.raw"));
        QVERIFY(raw.open(QIODevice::ReadOnly));
        QCOMPARE(raw.readAll(), bytes);
        QFile side(ImageWriter::sideFilePath(path("frame.raw")));
        QVERIFY(side.open(QIODevice::ReadOnly));
        const QByteArray text = side.readAll();
        const QJsonObject json = QJsonDocument::fromJson(text).object();
        QCOMPARE(json.value(QStringLiteral("width")).toInt(), 8);
        QCOMPARE(json.value(QStringLiteral("height")).toInt(), 3);
        QCOMPARE(json.value(QStringLiteral("pixelFormat")).toString(), QStringLiteral("Mono12p"));
        QCOMPARE(json.value(QStringLiteral("pixelFormatCode")).toString(),
                 QStringLiteral("0x010c0047"));
        QCOMPARE(json.value(QStringLiteral("frameId")).toInt(), 4711);
        QCOMPARE(json.value(QStringLiteral("bytes")).toInt(), bytes.size());
        QVERIFY2(text.contains("\"timestampNs\": 9007199254740993,"), text.constData());
    }

    void shouldGiveTheReasonItCannotWrite()
    {
        const FramePtr frame = makeFrame(PixelFormat::Mono8, 2, 2, QByteArray(4, '\0'));
        const QString missing = m_dir.filePath(QStringLiteral("no/such/folder/x.png"));
        for (auto format : {ImageWriter::Png, ImageWriter::Tiff, ImageWriter::Raw}) {
            QString error;
            QVERIFY(!ImageWriter::write(*frame, missing, format, &error));
            QVERIFY2(error.startsWith(QStringLiteral("Cannot write %1: ").arg(missing)),
                     qPrintable(error));
            QVERIFY2(error.size() > QStringLiteral("Cannot write %1: ").arg(missing).size(),
                     qPrintable(error));
        }
    }

    void shouldTellTheFormatByTheSuffix_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("known");
        QTest::addColumn<int>("format");
        QTest::newRow("png") << QStringLiteral("/tmp/a.png") << true << int(ImageWriter::Png);
        QTest::newRow("PNG") << QStringLiteral("a.PNG") << true << int(ImageWriter::Png);
        QTest::newRow("tif") << QStringLiteral("a.tif") << true << int(ImageWriter::Tiff);
        QTest::newRow("tiff") << QStringLiteral("b.c.TIFF") << true << int(ImageWriter::Tiff);
        QTest::newRow("raw") << QStringLiteral("frame-7.raw") << true << int(ImageWriter::Raw);
        QTest::newRow("jpg") << QStringLiteral("a.jpg") << false << -1;
        QTest::newRow("none") << QStringLiteral("snapshot") << false << -1;
        QTest::newRow("folder with a dot") << QStringLiteral("x.png/frame") << false << -1;
    }
    void shouldTellTheFormatByTheSuffix()
    {
        QFETCH(QString, path);
        QFETCH(bool, known);
        QFETCH(int, format);
        auto found = ImageWriter::Format(-1);
        QCOMPARE(ImageWriter::formatOf(path, &found), known);
        QCOMPARE(int(found), format); // left alone when the suffix is unknown
    }

    void shouldRefuseAnImageOfAFormatItCannotRead()
    {
        const FramePtr frame = makeFrame(0x0220001D, 2, 2, QByteArray(16, '\0'));
        QString error;
        QVERIFY(!ImageWriter::write(*frame, path("unknown.png"), ImageWriter::Png, &error));
        QCOMPARE(error, QStringLiteral("Pixel format 0x0220001d can't be shown."));
        QVERIFY(!QFile::exists(path("unknown.png")));
        // The raw bytes need no understanding.
        QVERIFY(ImageWriter::write(*frame, path("unknown.raw"), ImageWriter::Raw, &error));
        QVERIFY(!ImageWriter::write(*frame, path("unknown.x"), ImageWriter::Format(7), &error));
        QCOMPARE(error, QStringLiteral("Unknown image file format 7."));
    }
};

QTEST_GUILESS_MAIN(TestImageWriter)
#include "tst_imagewriter.moc"
