#include "framesupport.h"

#include "pixelreader.h"

#include <QtTest>

using namespace FrameSupport;
using VantoViewer::PixelReader;
using VantoViewer::PixelValue;

class TestPixelReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldReadMonoValuesInTheCamerasUnits_data()
    {
        addFormatRows({PixelFormat::Mono8, PixelFormat::Mono12, PixelFormat::Mono16,
                       PixelFormat::Mono10p, PixelFormat::Mono12p, PixelFormat::Mono10Packed,
                       PixelFormat::Mono12Packed});
    }
    void shouldReadMonoValuesInTheCamerasUnits()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given: a 5 × 3 frame of distinct values
        QVector<quint32> values;
        for (int i = 0; i < 15; ++i) {
            values.append(quint32((i * 37 + 5) % (1 << bits)));
        }
        values[7] = (1u << bits) - 1u;
        const FramePtr frame = makeFrame(format, 5, 3, pack(format, values));

        // Then
        for (int i = 0; i < values.size(); ++i) {
            const PixelValue pixel = PixelReader::read(*frame, i % 5, i / 5);
            QVERIFY(pixel.valid);
            QCOMPARE(pixel.channelCount, 1);
            QCOMPARE(pixel.values[0], values.at(i));
            QCOMPARE(pixel.bits, bits);
            QCOMPARE(pixel.text(), QStringLiteral("%1 (%2-bit)").arg(values.at(i)).arg(bits));
        }
    }

    void shouldNameTheBayerFilterOfThePixel()
    {
        // Given: a BayerGR12p frame, values 100 + index
        QVector<quint32> values;
        for (int i = 0; i < 16; ++i) {
            values.append(quint32(100 + i * 250));
        }
        const FramePtr frame =
            makeFrame(PixelFormat::BayerGR12p, 4, 4, pack(PixelFormat::BayerGR12p, values));

        // Then: G R / B G
        QCOMPARE(PixelReader::read(*frame, 0, 0).text(), QStringLiteral("G 100"));
        QCOMPARE(PixelReader::read(*frame, 1, 0).text(), QStringLiteral("R 350"));
        QCOMPARE(PixelReader::read(*frame, 0, 1).text(), QStringLiteral("B 1100"));
        QCOMPARE(PixelReader::read(*frame, 3, 3).text(), QStringLiteral("G 3850"));
        QCOMPARE(PixelReader::read(*frame, 3, 3).bits, 12);
        QCOMPARE(PixelReader::read(*frame, 1, 0).channelName(0), QStringLiteral("R"));
    }

    void shouldReadColourComponents()
    {
        const FramePtr rgb =
            makeFrame(PixelFormat::RGB8, 2, 1, QByteArray("\x01\x02\x03\x0C\xC8\x03", 6));
        const FramePtr bgr =
            makeFrame(PixelFormat::BGR8, 2, 1, QByteArray("\x03\x02\x01\x03\xC8\x0C", 6));
        QCOMPARE(PixelReader::read(*rgb, 1, 0).text(), QStringLiteral("R 12 G 200 B 3"));
        QCOMPARE(PixelReader::read(*bgr, 1, 0).text(), QStringLiteral("R 12 G 200 B 3"));
        QCOMPARE(PixelReader::read(*bgr, 0, 0).values[0], 1u);
        QCOMPARE(PixelReader::read(*rgb, 0, 0).channelName(2), QStringLiteral("B"));
    }

    void shouldReadYCbCrWithThePairsColour()
    {
        // Y0 Cb Y1 Cr for pixels 0 and 1, then 2 and 3
        const FramePtr frame = makeFrame(PixelFormat::YCbCr422_8, 4, 1,
                                         QByteArray("\x10\x20\x30\x40\x50\x60\x70\x80", 8));
        QCOMPARE(PixelReader::read(*frame, 0, 0).text(), QStringLiteral("Y 16 Cb 32 Cr 64"));
        QCOMPARE(PixelReader::read(*frame, 1, 0).text(), QStringLiteral("Y 48 Cb 32 Cr 64"));
        QCOMPARE(PixelReader::read(*frame, 3, 0).text(), QStringLiteral("Y 112 Cb 96 Cr 128"));
    }

    void shouldReadNothingOutsideTheFrameOrOfAnUnknownFormat()
    {
        const FramePtr frame = makeFrame(PixelFormat::Mono8, 2, 2, QByteArray(4, '\x01'));
        QVERIFY(!PixelReader::read(*frame, 2, 0).valid);
        QVERIFY(!PixelReader::read(*frame, 0, -1).valid);
        QCOMPARE(PixelReader::read(*frame, 5, 5).text(), QString());
        const FramePtr unknown = makeFrame(0x0220001D, 2, 2, QByteArray(16, '\x01'));
        QVERIFY(!PixelReader::read(*unknown, 0, 0).valid);
        const FramePtr shortFrame = makeFrame(PixelFormat::Mono16, 2, 2, QByteArray(7, '\x01'));
        QVERIFY(!PixelReader::read(*shortFrame, 1, 1).valid);
    }
};

QTEST_APPLESS_MAIN(TestPixelReader)
#include "tst_pixelreader.moc"
