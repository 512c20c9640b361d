#include "framesupport.h"

#include "frameconverter.h"

#include <QSignalSpy>
#include <QtMath>
#include <QtTest>

#include <cmath>

using namespace FrameSupport;
using VantoViewer::ConversionSettings;
using VantoViewer::FrameConverter;

namespace {

ConversionSettings settingsOf(ConversionSettings::OutputFormat format, double gamma = 1.0)
{
    ConversionSettings settings;
    settings.outputFormat = format;
    settings.gamma = gamma;
    return settings;
}

QImage convert(const FramePtr& frame, const ConversionSettings& settings = ConversionSettings())
{
    QString error;
    const QImage image = FrameConverter::convert(*frame, settings, &error);
    if (image.isNull()) {
        qWarning() << "conversion failed:" << error;
    }
    return image;
}

int grey(quint32 value, int bits, double gamma = 1.0)
{
    const double top = double((1u << bits) - 1u);
    return int(std::round(255.0 * std::pow(value / top, gamma)));
}

// JPEG's full-range BT.601, which PFNC's YCbCr formats use.
Rgb fromYCbCr(int y, int cb, int cr)
{
    const auto clamp = [](double v) { return quint32(qBound(0.0, std::round(v), 255.0)); };
    return {clamp(y + 1.402 * (cr - 128)), clamp(y - 0.344136 * (cb - 128) - 0.714136 * (cr - 128)),
            clamp(y + 1.772 * (cb - 128))};
}

int luminance(const Rgb& c)
{
    return int(std::round(0.299 * c.r + 0.587 * c.g + 0.114 * c.b));
}

QByteArray yuyv(int width, int height, const std::function<Rgb(int)>& ycbcrOfPair)
{
    QByteArray bytes;
    for (int y = 0; y < height; ++y) {
        for (int pair = 0; pair < width / 2; ++pair) {
            const Rgb c = ycbcrOfPair(pair); // r = Y, g = Cb, b = Cr
            bytes.append(char(c.r)).append(char(c.g)).append(char(c.r)).append(char(c.b));
        }
    }
    return bytes;
}

// Bilinear demosaicing written out: each missing component is the mean of the neighbours of
// the 3 × 3 window that carry it.
Rgb bilinear(const QVector<quint32>& raw, const char* cfa, int width, int x, int y)
{
    quint32 sums[3] = {0, 0, 0};
    int counts[3] = {0, 0, 0};
    const char own = cfa[(y % 2) * 2 + x % 2];
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int cx = x + dx;
            const int cy = y + dy;
            const char f = cfa[(cy % 2) * 2 + cx % 2];
            const int c = f == 'R' ? 0 : f == 'G' ? 1 : 2;
            if (f == own && (dx || dy)) {
                continue;
            }
            sums[c] += raw.at(cy * width + cx);
            ++counts[c];
        }
    }
    return {sums[0] / quint32(counts[0]), sums[1] / quint32(counts[1]),
            sums[2] / quint32(counts[2])};
}

bool near(const QColor& actual, const Rgb& expected, int tolerance)
{
    return qAbs(actual.red() - int(expected.r)) <= tolerance &&
           qAbs(actual.green() - int(expected.g)) <= tolerance &&
           qAbs(actual.blue() - int(expected.b)) <= tolerance;
}

QString describe(int x, int y, const QColor& actual, const Rgb& expected)
{
    return QStringLiteral("(%1, %2): got %3 %4 %5, expected %6 %7 %8")
        .arg(x)
        .arg(y)
        .arg(actual.red())
        .arg(actual.green())
        .arg(actual.blue())
        .arg(expected.r)
        .arg(expected.g)
        .arg(expected.b);
}

const std::initializer_list<quint32> kBayerFormats = {
    PixelFormat::BayerGR8,   PixelFormat::BayerRG8,   PixelFormat::BayerGB8,
    PixelFormat::BayerBG8,   PixelFormat::BayerGR12,  PixelFormat::BayerRG12,
    PixelFormat::BayerGB12,  PixelFormat::BayerBG12,  PixelFormat::BayerGR12p,
    PixelFormat::BayerRG12p, PixelFormat::BayerGB12p, PixelFormat::BayerBG12p,
};

} // namespace

class TestFrameConverter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldShowMonoFormatsBitExactByTheirOwnDepth_data()
    {
        addFormatRows({PixelFormat::Mono8, PixelFormat::Mono10, PixelFormat::Mono12,
                       PixelFormat::Mono16, PixelFormat::Mono10p, PixelFormat::Mono12p,
                       PixelFormat::Mono10Packed, PixelFormat::Mono12Packed});
    }
    void shouldShowMonoFormatsBitExactByTheirOwnDepth()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given: a 13 × 5 ramp over the whole range (odd width: packed pairs cross lines)
        const int width = 13;
        const int height = 5;
        const quint32 top = (1u << bits) - 1u;
        QVector<quint32> values;
        for (int i = 0; i < width * height; ++i) {
            values.append(i == 0 ? 0 : i == 1 ? top : quint32((i * 7919u) % (top + 1u)));
        }
        const FramePtr frame = makeFrame(format, width, height, pack(format, values));

        for (double gamma : {1.0, 0.5}) {
            // When
            const QImage image = convert(frame, settingsOf(ConversionSettings::RGB8, gamma));

            // Then: grey, each level round(255 · (v / top) ^ gamma) of the format's own top
            QCOMPARE(image.format(), QImage::Format_Grayscale8);
            QCOMPARE(image.size(), QSize(width, height));
            for (int i = 0; i < values.size(); ++i) {
                const int x = i % width;
                const int y = i / width;
                QVERIFY2(image.constScanLine(y)[x] == grey(values.at(i), bits, gamma),
                         qPrintable(QStringLiteral("value %1 at (%2, %3) gave %4, gamma %5")
                                        .arg(values.at(i))
                                        .arg(x)
                                        .arg(y)
                                        .arg(image.constScanLine(y)[x])
                                        .arg(gamma)));
            }
        }
    }

    void shouldDemosaicAFlatFieldToItsColour_data() { addFormatRows(kBayerFormats); }
    void shouldDemosaicAFlatFieldToItsColour()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        const int width = 8;
        const int height = 6;
        for (const Rgb colour : {Rgb{200, 100, 30}, Rgb{0, 255, 17}, Rgb{255, 255, 255}}) {
            // Given: a flat field in the format's depth
            const Rgb raw = {colour.r << (bits - 8), colour.g << (bits - 8),
                             colour.b << (bits - 8)};
            const auto values = mosaic(format, width, height, [&](int, int) { return raw; });
            const FramePtr frame = makeFrame(format, width, height, pack(format, values));

            // When
            const QImage image = convert(frame);
            const QImage mono = convert(frame, settingsOf(ConversionSettings::Mono8));

            // Then: every pixel, borders included, has the field's colour (±1 for the deep
            // formats, whose low bits swscale drops by truncation), and its luminance in grey
            const Rgb expected = {quint32(grey(raw.r, bits)), quint32(grey(raw.g, bits)),
                                  quint32(grey(raw.b, bits))};
            const int tolerance = bits > 8 ? 1 : 0;
            QCOMPARE(image.format(), QImage::Format_RGB888);
            QCOMPARE(mono.format(), QImage::Format_Grayscale8);
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    const QColor actual = image.pixelColor(x, y);
                    QVERIFY2(near(actual, expected, tolerance),
                             qPrintable(describe(x, y, actual, expected)));
                    QVERIFY2(qAbs(mono.constScanLine(y)[x] - luminance(expected)) <= 1 + tolerance,
                             qPrintable(QString::number(mono.constScanLine(y)[x])));
                }
            }
        }
    }

    void shouldDemosaicAnEdgeBilinearly_data() { shouldDemosaicAFlatFieldToItsColour_data(); }
    void shouldDemosaicAnEdgeBilinearly()
    {
        QFETCH(quint32, format);
        QFETCH(int, bits);
        // Given: a vertical edge between two colours at x = 6, and a horizontal one at y = 5
        const int width = 12;
        const int height = 10;
        const auto field = [&](int x, int y) {
            const Rgb c = x < 6 ? (y < 5 ? Rgb{200, 100, 30} : Rgb{90, 90, 90})
                                : (y < 5 ? Rgb{20, 60, 220} : Rgb{250, 10, 128});
            return Rgb{c.r << (bits - 8), c.g << (bits - 8), c.b << (bits - 8)};
        };
        const auto values = mosaic(format, width, height, field);
        const FramePtr frame = makeFrame(format, width, height, pack(format, values));

        // When
        const QImage image = convert(frame);

        // Then: off the outer 2 × 2 cells (which swscale fills from their own cell), each pixel
        // is the bilinear interpolation of the mosaic,
        // computed here on the raw values and scaled by the format's depth. swscale truncates
        // where the reference rounds down too, so 8-bit results match within 1; deep formats
        // lose their low bits before the mean, within 2.
        const int tolerance = bits > 8 ? 2 : 1;
        for (int y = 2; y < height - 2; ++y) {
            for (int x = 2; x < width - 2; ++x) {
                const Rgb reference = bilinear(values, cfaOf(format), width, x, y);
                const Rgb expected = {quint32(grey(reference.r, bits)),
                                      quint32(grey(reference.g, bits)),
                                      quint32(grey(reference.b, bits))};
                const QColor actual = image.pixelColor(x, y);
                QVERIFY2(near(actual, expected, tolerance),
                         qPrintable(describe(x, y, actual, expected)));
            }
        }
    }

    void shouldShowRgbAndBgrExactly()
    {
        // Given: the same pixels as RGB8 and as BGR8
        const int width = 5;
        const int height = 3;
        QByteArray rgb;
        QByteArray bgr;
        for (int i = 0; i < width * height; ++i) {
            const char r = char(i * 17);
            const char g = char(255 - i * 5);
            const char b = char(i * 3 + 1);
            rgb.append(r).append(g).append(b);
            bgr.append(b).append(g).append(r);
        }
        const FramePtr rgbFrame = makeFrame(PixelFormat::RGB8, width, height, rgb);
        const FramePtr bgrFrame = makeFrame(PixelFormat::BGR8, width, height, bgr);

        // When
        const QImage fromRgb = convert(rgbFrame);
        const QImage fromBgr = convert(bgrFrame);
        const QImage grey = convert(bgrFrame, settingsOf(ConversionSettings::Mono8));

        // Then
        QCOMPARE(fromRgb.format(), QImage::Format_RGB888);
        for (int i = 0; i < width * height; ++i) {
            const int x = i % width;
            const int y = i / width;
            const QColor expected(uchar(rgb[3 * i]), uchar(rgb[3 * i + 1]), uchar(rgb[3 * i + 2]));
            QCOMPARE(fromRgb.pixelColor(x, y), expected);
            QCOMPARE(fromBgr.pixelColor(x, y), expected);
            const Rgb c = {quint32(expected.red()), quint32(expected.green()),
                           quint32(expected.blue())};
            QVERIFY2(qAbs(grey.constScanLine(y)[x] - luminance(c)) <= 1,
                     qPrintable(QString::number(grey.constScanLine(y)[x])));
        }
    }

    void shouldApplyGammaToColour()
    {
        // Given
        const FramePtr frame =
            makeFrame(PixelFormat::RGB8, 2, 1, QByteArray("\x40\x80\xFF\x00\x10\x01", 6));

        // When
        const QImage image = convert(frame, settingsOf(ConversionSettings::RGB8, 0.5));

        // Then
        QCOMPARE(image.pixelColor(0, 0), QColor(grey(0x40, 8, 0.5), grey(0x80, 8, 0.5), 255));
        QCOMPARE(image.pixelColor(1, 0), QColor(0, grey(0x10, 8, 0.5), grey(0x01, 8, 0.5)));
    }

    void shouldShowYCbCrFlatFieldsByJpegCoefficients()
    {
        const int width = 8;
        const int height = 2;
        const QVector<Rgb> colours = {{128, 128, 128}, {81, 90, 240},   {145, 54, 34},
                                      {41, 240, 110},  {235, 128, 128}, {16, 128, 128},
                                      {0, 128, 128},   {255, 0, 255}};
        for (const Rgb& ycbcr : colours) {
            // Given
            const FramePtr frame = makeFrame(PixelFormat::YCbCr422_8, width, height,
                                             yuyv(width, height, [&](int) { return ycbcr; }));

            // When
            const QImage image = convert(frame);
            const QImage mono = convert(frame, settingsOf(ConversionSettings::Mono8));

            // Then: within 2 of the full-range formula; grey is Y itself
            const Rgb expected = fromYCbCr(int(ycbcr.r), int(ycbcr.g), int(ycbcr.b));
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    const QColor actual = image.pixelColor(x, y);
                    QVERIFY2(near(actual, expected, 2),
                             qPrintable(describe(x, y, actual, expected)));
                    QVERIFY2(qAbs(mono.constScanLine(y)[x] - int(ycbcr.r)) <= 1,
                             qPrintable(QString::number(mono.constScanLine(y)[x])));
                }
            }
        }
    }

    void shouldShowAYCbCrEdgeBetweenItsSides()
    {
        // Given: two colours meeting between pixel pairs 3 and 4 (x = 8)
        const int width = 16;
        const int height = 2;
        const Rgb left = {81, 90, 240};
        const Rgb right = {145, 54, 34};
        const FramePtr frame =
            makeFrame(PixelFormat::YCbCr422_8, width, height,
                      yuyv(width, height, [&](int pair) { return pair < 4 ? left : right; }));

        // When
        const QImage image = convert(frame);

        // Then: away from the edge each side has its colour; at the edge every component
        // stays between the two sides' values
        const Rgb a = fromYCbCr(int(left.r), int(left.g), int(left.b));
        const Rgb b = fromYCbCr(int(right.r), int(right.g), int(right.b));
        for (int x = 0; x < width; ++x) {
            const QColor actual = image.pixelColor(x, 0);
            if (x <= 5) {
                QVERIFY2(near(actual, a, 2), qPrintable(describe(x, 0, actual, a)));
            } else if (x >= 10) {
                QVERIFY2(near(actual, b, 2), qPrintable(describe(x, 0, actual, b)));
            } else {
                const auto between = [](int v, quint32 p, quint32 q) {
                    return v >= int(qMin(p, q)) - 2 && v <= int(qMax(p, q)) + 2;
                };
                QVERIFY2(between(actual.red(), a.r, b.r) && between(actual.green(), a.g, b.g) &&
                             between(actual.blue(), a.b, b.b),
                         qPrintable(describe(x, 0, actual, a)));
            }
        }
    }

    void shouldExplainAFormatItCannotShow()
    {
        // Given: a PFNC code the converter does not know (RGB10p32)
        const FramePtr frame = makeFrame(0x0220001D, 4, 4, QByteArray(64, '\x7F'));

        // When
        QString error;
        const QImage image = FrameConverter::convert(*frame, ConversionSettings(), &error);

        // Then
        QVERIFY(image.isNull());
        QCOMPARE(error, QStringLiteral("Pixel format 0x0220001d can't be shown."));
    }

    void shouldExplainAFrameTooShortForItsFormat()
    {
        const FramePtr frame = makeFrame(PixelFormat::Mono12p, 4, 4, QByteArray(23, '\0'));

        QString error;
        const QImage image = FrameConverter::convert(*frame, ConversionSettings(), &error);

        QVERIFY(image.isNull());
        QCOMPARE(error,
                 QStringLiteral("The frame holds 23 bytes; a 4 × 4 Mono12p image needs 24."));
    }

    void shouldExplainABayerFrameOfOddSize()
    {
        const FramePtr frame = makeFrame(PixelFormat::BayerRG8, 5, 4, QByteArray(20, '\0'));

        QString error;
        QVERIFY(FrameConverter::convert(*frame, ConversionSettings(), &error).isNull());
        QCOMPARE(error,
                 QStringLiteral("BayerRG8 needs an even width and height; the frame is 5 × 4."));
    }

    void shouldConvertASubmittedFrameOffTheCallersThread()
    {
        // Given
        FrameConverter converter;
        QSignalSpy converted(&converter, &FrameConverter::converted);
        const FramePtr frame = makeFrame(
            PixelFormat::Mono12p, 4, 2, pack(PixelFormat::Mono12p, {0, 4095, 1, 2, 3, 4, 5, 4095}));

        // When
        converter.submit(frame);

        // Then: the image and the histogram of that frame arrive on this thread
        QVERIFY(converted.wait(5000));
        QCOMPARE(converted.count(), 1);
        const auto arguments = converted.takeFirst();
        QCOMPARE(arguments.at(0).value<FramePtr>(), frame);
        const QImage image = arguments.at(1).value<QImage>();
        QCOMPARE(image.size(), QSize(4, 2));
        QCOMPARE(int(image.constScanLine(0)[1]), 255);
        const auto histogram = arguments.at(2).value<VantoViewer::Histogram>();
        QCOMPARE(histogram.bitDepth(), 12);
        QCOMPARE(histogram.maximum(0), 4095u);
        QCOMPARE(histogram.bins(0).at(4095), 2u);
    }

    void shouldConvertTheLatestOfABurstAndDropTheMiddle()
    {
        // Given: frames large enough that the burst outruns the conversion
        FrameConverter converter;
        QSignalSpy converted(&converter, &FrameConverter::converted);
        QVector<FramePtr> frames;
        for (int i = 1; i <= 10; ++i) {
            frames.append(makeFrame(PixelFormat::BayerRG12p, 1024, 1024,
                                    QByteArray(1024 * 1024 * 3 / 2, char(i)), quint64(i)));
        }

        // When: all are submitted while this thread does not return to its event loop, so
        // no result can be delivered in between
        for (const FramePtr& frame : frames) {
            converter.submit(frame);
        }

        // Then: the last frame is converted; of the others at most the one the worker had
        // already taken
        QTRY_VERIFY_WITH_TIMEOUT(!converted.isEmpty() &&
                                     converted.last().at(0).value<FramePtr>()->frameId() == 10,
                                 10000);
        QVERIFY2(converted.count() <= 2, qPrintable(QString::number(converted.count())));
        if (converted.count() == 2) {
            QVERIFY(converted.first().at(0).value<FramePtr>()->frameId() < 10);
        }
    }

    void shouldReportAFrameItCannotShow()
    {
        FrameConverter converter;
        QSignalSpy failed(&converter, &FrameConverter::failed);
        QSignalSpy converted(&converter, &FrameConverter::converted);

        converter.submit(makeFrame(0x0220001D, 4, 4, QByteArray(64, '\0')));

        QVERIFY(failed.wait(5000));
        QCOMPARE(failed.first().at(1).toString(),
                 QStringLiteral("Pixel format 0x0220001d can't be shown."));
        QCOMPARE(converted.count(), 0);
    }

    void shouldUseNewSettingsFromTheNextFrame()
    {
        // Given
        FrameConverter converter;
        QSignalSpy converted(&converter, &FrameConverter::converted);
        const FramePtr frame = makeFrame(PixelFormat::RGB8, 1, 1, QByteArray("\xC8\x64\x1E", 3));
        converter.submit(frame);
        QVERIFY(converted.wait(5000));
        QCOMPARE(converted.last().at(1).value<QImage>().format(), QImage::Format_RGB888);

        // When
        converter.setSettings(settingsOf(ConversionSettings::Mono8));
        converter.submit(frame);

        // Then
        QVERIFY(converted.wait(5000));
        const QImage image = converted.last().at(1).value<QImage>();
        QCOMPARE(image.format(), QImage::Format_Grayscale8);
        QVERIFY(qAbs(int(image.constScanLine(0)[0]) - luminance({200, 100, 30})) <= 1);
    }
};

QTEST_MAIN(TestFrameConverter)
#include "tst_frameconverter.moc"
