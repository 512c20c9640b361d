#include "framesupport.h"

#include "histogram.h"

#include <QtTest>

using namespace FrameSupport;
using VantoViewer::Histogram;

class TestHistogram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldCountMonoValuesOnePerBin_data()
    {
        addFormatRows({PixelFormat::Mono8, PixelFormat::Mono10, PixelFormat::Mono16,
                       PixelFormat::Mono12p, PixelFormat::Mono10p, PixelFormat::Mono12Packed});
    }
    void shouldCountMonoValuesOnePerBin()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given: 7 × 3 values: three of the top value, the rest a known set
        const quint32 top = (1u << bits) - 1u;
        QVector<quint32> values;
        for (int i = 0; i < 21; ++i) {
            values.append(i < 3 ? top : quint32(i * 5 + 2));
        }
        const FramePtr frame = makeFrame(format, 7, 3, pack(format, values));

        // When
        const Histogram histogram = Histogram::compute(*frame);

        // Then
        QCOMPARE(histogram.channelCount(), 1);
        QCOMPARE(histogram.channelName(0), QStringLiteral("Mono"));
        QCOMPARE(histogram.bitDepth(), bits);
        QCOMPARE(histogram.bins(0).size(), 1 << bits);
        QCOMPARE(histogram.bins(0).at(int(top)), 3u);
        QCOMPARE(histogram.bins(0).at(17), 1u);
        QCOMPARE(histogram.bins(0).at(18), 0u);
        QCOMPARE(histogram.sampleCount(0), quint64(21));
        QCOMPARE(histogram.minimum(0), 17u);
        QCOMPARE(histogram.maximum(0), top);
        double sum = 0;
        for (quint32 v : values) {
            sum += v;
        }
        QCOMPARE(histogram.mean(0), sum / 21);
    }

    void shouldCountEachBayerFilterApart()
    {
        // Given: a BayerRG12 field with R 1000, G 2000 and 2002, B 3000
        const auto values = mosaic(PixelFormat::BayerRG12, 4, 4, [](int x, int y) {
            return Rgb{1000, quint32(y % 2 ? 2002 : 2000), 3000 + quint32(x == 3 && y == 3)};
        });
        const FramePtr frame = makeFrame(PixelFormat::BayerRG12, 4, 4, packWords(values));

        // When
        const Histogram histogram = Histogram::compute(*frame);

        // Then
        QCOMPARE(histogram.channelCount(), 3);
        QCOMPARE(histogram.channelName(0), QStringLiteral("R"));
        QCOMPARE(histogram.channelName(1), QStringLiteral("G"));
        QCOMPARE(histogram.channelName(2), QStringLiteral("B"));
        QCOMPARE(histogram.bitDepth(), 12);
        QCOMPARE(histogram.sampleCount(0), quint64(4));
        QCOMPARE(histogram.sampleCount(1), quint64(8));
        QCOMPARE(histogram.sampleCount(2), quint64(4));
        QCOMPARE(histogram.bins(0).at(1000), 4u);
        QCOMPARE(histogram.bins(1).at(2000), 4u);
        QCOMPARE(histogram.bins(1).at(2002), 4u);
        QCOMPARE(histogram.minimum(1), 2000u);
        QCOMPARE(histogram.maximum(1), 2002u);
        QCOMPARE(histogram.mean(1), 2001.0);
        QCOMPARE(histogram.maximum(2), 3001u);
        QCOMPARE(histogram.mean(2), 3000.25);
    }

    void shouldCountColourAndYCbCrComponents()
    {
        const FramePtr bgr =
            makeFrame(PixelFormat::BGR8, 2, 1, QByteArray("\x03\x02\x01\x05\x02\x09", 6));
        const Histogram colour = Histogram::compute(*bgr);
        QCOMPARE(colour.channelCount(), 3);
        QCOMPARE(colour.minimum(0), 1u);
        QCOMPARE(colour.maximum(0), 9u);
        QCOMPARE(colour.mean(0), 5.0);
        QCOMPARE(colour.bins(1).at(2), 2u);
        QCOMPARE(colour.mean(2), 4.0);

        const FramePtr yuv = makeFrame(PixelFormat::YCbCr422_8, 4, 1,
                                       QByteArray("\x10\x20\x30\x40\x50\x60\x70\x80", 8));
        const Histogram ycbcr = Histogram::compute(*yuv);
        QCOMPARE(ycbcr.channelName(1), QStringLiteral("Cb"));
        QCOMPARE(ycbcr.sampleCount(0), quint64(4));
        QCOMPARE(ycbcr.sampleCount(1), quint64(2));
        QCOMPARE(ycbcr.mean(0), double(0x10 + 0x30 + 0x50 + 0x70) / 4);
        QCOMPARE(ycbcr.maximum(2), 0x80u);
    }

    void shouldKeepAValueBeyondTheDepthInTheTopBin()
    {
        // Mono12 in its 16-bit container holding 5000, which a camera should never send
        const FramePtr frame = makeFrame(PixelFormat::Mono12, 2, 1, packWords({5000, 10}));
        const Histogram histogram = Histogram::compute(*frame);
        QCOMPARE(histogram.bins(0).at(4095), 1u);
        QCOMPARE(histogram.maximum(0), 5000u);
        QCOMPARE(histogram.mean(0), 2505.0);
    }

    void shouldBeEmptyForAFrameItCannotRead()
    {
        QVERIFY(Histogram::compute(*makeFrame(0x0220001D, 2, 2, QByteArray(16, '\0'))).isEmpty());
        QVERIFY(Histogram::compute(*makeFrame(PixelFormat::Mono8, 4, 4, QByteArray(3, '\0')))
                    .isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestHistogram)
#include "tst_histogram.moc"
