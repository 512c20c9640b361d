#include "framesupport.h"

#include "pixellayout.h"

#include <QtTest>

using namespace FrameSupport;
using VantoViewer::PixelLayout;

class TestPixelLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldUnpackEveryValueFromAnyStart_data()
    {
        addFormatRows({PixelFormat::Mono8, PixelFormat::Mono12, PixelFormat::Mono16,
                       PixelFormat::Mono10p, PixelFormat::Mono12p, PixelFormat::Mono10Packed,
                       PixelFormat::Mono12Packed, PixelFormat::BayerBG12p});
    }
    void shouldUnpackEveryValueFromAnyStart()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given: 23 values, every bit pattern of the low and high bits represented
        QVector<quint32> values;
        const quint32 top = (1u << bits) - 1u;
        for (int i = 0; i < 23; ++i) {
            values.append(i % 3 == 0 ? top : quint32((i * 0x9E37u) & top));
        }
        const QByteArray bytes = pack(format, values);
        const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
        const PixelLayout layout = PixelLayout::of(format);
        QCOMPARE(layout.bitDepth(), bits);
        QVERIFY(layout.isSingleSample());

        // Then: one by one and in runs from every start, the values come back
        for (int i = 0; i < values.size(); ++i) {
            QCOMPARE(layout.valueAt(data, quint64(i)), values.at(i));
        }
        for (int first = 0; first < values.size(); ++first) {
            const int count = values.size() - first;
            QVector<quint16> out(count + 1, 0xBEEF);
            layout.unpack(data, quint64(first), quint64(count), out.data());
            for (int i = 0; i < count; ++i) {
                QCOMPARE(quint32(out.at(i)), values.at(first + i));
            }
            QCOMPARE(out.at(count), quint16(0xBEEF));
        }
    }

    void shouldKnowTheFilterOfEveryBayerPixel_data()
    {
        QTest::addColumn<quint32>("format");
        QTest::addColumn<QString>("cell");
        QTest::newRow("GR8") << PixelFormat::BayerGR8 << "GRBG";
        QTest::newRow("RG12") << PixelFormat::BayerRG12 << "RGGB";
        QTest::newRow("GB12p") << PixelFormat::BayerGB12p << "GBRG";
        QTest::newRow("BG8") << PixelFormat::BayerBG8 << "BGGR";
    }
    void shouldKnowTheFilterOfEveryBayerPixel()
    {
        QFETCH(quint32, format);
        QFETCH(QString, cell);
        const PixelLayout layout = PixelLayout::of(format);
        QCOMPARE(layout.kind(), PixelLayout::Bayer);
        for (quint32 y = 0; y < 4; ++y) {
            for (quint32 x = 0; x < 4; ++x) {
                const QChar letter = cell.at(int((y % 2) * 2 + x % 2));
                const auto expected = letter == QLatin1Char('R')   ? PixelLayout::Red
                                      : letter == QLatin1Char('G') ? PixelLayout::Green
                                                                   : PixelLayout::Blue;
                QCOMPARE(layout.cfaChannel(x, y), expected);
            }
        }
    }

    void shouldNotClaimAnUnknownFormat()
    {
        QVERIFY(!PixelLayout::of(0x0220001D).isSupported());
        QVERIFY(!PixelLayout::of(0).isSupported());
        QCOMPARE(PixelLayout::of(PixelFormat::YCbCr422_8).kind(), PixelLayout::YCbCr422);
        QCOMPARE(PixelLayout::of(PixelFormat::BGR8).kind(), PixelLayout::Bgr);
    }
};

QTEST_APPLESS_MAIN(TestPixelLayout)
#include "tst_pixellayout.moc"
