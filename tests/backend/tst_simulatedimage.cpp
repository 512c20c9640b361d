#include <arv.h>

#include "testsupport.h"

#include <camerapool.h>
#include <simulateddevice.h>
#include <simulatedimage.h>

#include <QtTest>

#include <cmath>
#include <vector>

using Backend::SimulatedDevice;
using Backend::SimulatedImage;
using Backend::SimulatedImageSettings;

namespace {

// The formulas again, written out pixel by pixel the plain way, so that the renderer is
// checked against an independent reading of its documentation.
struct Colour {
    quint32 r, g, b;
};

quint32 clamp16(quint64 v)
{
    return v > 65535 ? 65535 : quint32(v);
}

Colour sensorColour(const SimulatedImageSettings& s, quint64 sx, quint64 sy, quint64 frame)
{
    const QString& p = s.testPattern;
    if (p == QLatin1String("Black")) {
        return {0, 0, 0};
    }
    if (p == QLatin1String("White")) {
        return {65535, 65535, 65535};
    }
    if (p == QLatin1String("GreyHorizontalRamp")) {
        const quint32 g = quint32(sx * 64 % 65536);
        return {g, g, g};
    }
    if (p == QLatin1String("GreyVerticalRamp")) {
        const quint32 g = quint32(sy * 64 % 65536);
        return {g, g, g};
    }
    if (p == QLatin1String("GreyDiagonalRampMoving")) {
        const quint32 g = quint32((sx + sy + 4 * frame) * 64 % 65536);
        return {g, g, g};
    }
    if (p == QLatin1String("ColorBar")) {
        const Colour bars[8] = {{1, 1, 1}, {1, 1, 0}, {0, 1, 1}, {0, 1, 0},
                                {1, 0, 1}, {1, 0, 0}, {0, 0, 1}, {0, 0, 0}};
        const Colour c = bars[(sx / 128) % 8];
        return {c.r * 65535, c.g * 65535, c.b * 65535};
    }
    const quint64 u = sx % 1024;
    const quint64 v = sy % 1024;
    const qint64 barPosition = (qint64(sx) - 8 * qint64(frame)) % 1024;
    const quint64 bar = (barPosition + 1024) % 1024 < 32 ? 16384 : 0;
    const double exposure = s.exposureUs > 0 ? s.exposureUs : 10000.0;
    const double k = qBound(0.0, exposure / 10000.0 * std::pow(10.0, s.gainDb / 20.0), 256.0);
    const quint64 gain = quint64(std::llround(k * 65536.0));
    auto bright = [gain](quint64 c) { return clamp16((c * gain + 32768) / 65536); };
    return {bright(32 * u + bar), bright(32 * v + bar), bright(16 * (2046 - u - v) + bar)};
}

quint32 binned(const SimulatedImageSettings& s, quint32 x, quint32 y, quint64 frame, int channel)
{
    const quint32 bh = s.binningHorizontal, bv = s.binningVertical;
    quint64 column = 0;
    for (quint32 j = 0; j < bv; ++j) {
        quint64 row = 0;
        for (quint32 i = 0; i < bh; ++i) {
            const Colour c =
                sensorColour(s, (s.offsetX + x) * bh + i, (s.offsetY + y) * bv + j, frame);
            row += channel == 0 ? c.r : channel == 1 ? c.g : c.b;
        }
        column += s.binningHorizontalMode == SimulatedImageSettings::Binning::Average
                      ? row / bh
                      : clamp16(row);
    }
    return s.binningVerticalMode == SimulatedImageSettings::Binning::Average ? quint32(column / bv)
                                                                             : clamp16(column);
}

struct FormatInfo {
    QString name;
    int depth;
    enum Kind { Mono, Bayer, Rgb, Bgr, Yuv } kind;
    enum Store { Byte, Word, Packed, PairsIn3Bytes } store;
};

FormatInfo infoOf(const QString& name)
{
    const int depth = name.contains(QLatin1String("16"))   ? 16
                      : name.contains(QLatin1String("12")) ? 12
                      : name.contains(QLatin1String("10")) ? 10
                                                           : 8;
    const FormatInfo::Kind kind = name.startsWith(QLatin1String("Mono"))    ? FormatInfo::Mono
                                  : name.startsWith(QLatin1String("Bayer")) ? FormatInfo::Bayer
                                  : name == QLatin1String("RGB8")           ? FormatInfo::Rgb
                                  : name == QLatin1String("BGR8")           ? FormatInfo::Bgr
                                                                            : FormatInfo::Yuv;
    const FormatInfo::Store store = name.endsWith(QLatin1String("Packed"))
                                        ? FormatInfo::PairsIn3Bytes
                                    : name.endsWith(QLatin1Char('p')) ? FormatInfo::Packed
                                    : depth > 8                       ? FormatInfo::Word
                                                                      : FormatInfo::Byte;
    return {name, depth, kind, store};
}

// Appends `depth`-bit values as PFNC lays them out, one bit at a time.
class Bits {
public:
    explicit Bits(const FormatInfo& f) : m_format(f) {}
    void add(quint32 value)
    {
        if (m_format.store == FormatInfo::Byte) {
            m_bytes.append(char(value));
        } else if (m_format.store == FormatInfo::Word) {
            m_bytes.append(char(value % 256));
            m_bytes.append(char(value / 256));
        } else if (m_format.store == FormatInfo::PairsIn3Bytes) {
            // GigE Vision's pairs: high bits of each pixel whole, the low nibbles shared.
            if (!m_pending) {
                m_first = value;
                m_pending = true;
            } else {
                m_bytes.append(char(m_first / 16));
                m_bytes.append(char(m_first % 16 + (value % 16) * 16));
                m_bytes.append(char(value / 16));
                m_pending = false;
            }
        } else {
            for (int b = 0; b < m_format.depth; ++b) {
                if (m_bit % 8 == 0) {
                    m_bytes.append(char(0));
                }
                if ((value >> b) & 1) {
                    m_bytes[int(m_bit / 8)] = char(m_bytes[int(m_bit / 8)] | (1 << (m_bit % 8)));
                }
                ++m_bit;
            }
        }
    }
    QByteArray bytes() const
    {
        QByteArray all = m_bytes;
        if (m_pending) {
            all.append(char(m_first / 16));
            all.append(char(m_first % 16));
        }
        return all;
    }

private:
    FormatInfo m_format;
    QByteArray m_bytes;
    quint64 m_bit = 0;
    quint32 m_first = 0;
    bool m_pending = false;
};

int bayerChannel(const QString& name, quint32 x, quint32 y)
{
    // The two letters after "Bayer" are row 0's first two pixels; row 1 holds the others.
    const QString pair = name.mid(5, 2);
    const QString row0 = pair;
    const QString row1 = pair == QLatin1String("RG")   ? QStringLiteral("GB")
                         : pair == QLatin1String("GR") ? QStringLiteral("BG")
                         : pair == QLatin1String("GB") ? QStringLiteral("RG")
                                                       : QStringLiteral("GR");
    const QChar c = (y % 2 == 0 ? row0 : row1).at(int(x % 2));
    return c == QLatin1Char('R') ? 0 : c == QLatin1Char('G') ? 1 : 2;
}

QByteArray expectedImage(const SimulatedImageSettings& s, quint64 frame)
{
    const FormatInfo f = infoOf(SimulatedImage::formatName(s.pixelFormat));
    Bits out(f);
    const int drop = 16 - f.depth;
    for (quint32 y = 0; y < s.height; ++y) {
        for (quint32 x = 0; x < s.width; ++x) {
            const quint32 r = binned(s, x, y, frame, 0), g = binned(s, x, y, frame, 1),
                          b = binned(s, x, y, frame, 2);
            switch (f.kind) {
            case FormatInfo::Mono:
                out.add(((77 * r + 150 * g + 29 * b + 128) / 256) >> drop);
                break;
            case FormatInfo::Bayer:
                out.add(binned(s, x, y, frame, bayerChannel(f.name, x, y)) >> drop);
                break;
            case FormatInfo::Rgb:
                out.add(r >> 8), out.add(g >> 8), out.add(b >> 8);
                break;
            case FormatInfo::Bgr:
                out.add(b >> 8), out.add(g >> 8), out.add(r >> 8);
                break;
            case FormatInfo::Yuv: {
                // Y0 Cb0 Y1 Cr0: chroma from the mean of the pair, written at the pair's start.
                const int r8 = int(r >> 8), g8 = int(g >> 8), b8 = int(b >> 8);
                out.add(quint32((77 * r8 + 150 * g8 + 29 * b8 + 128) / 256));
                const quint32 x0 = x - x % 2;
                const quint32 x1 = x0 + 1 < s.width ? x0 + 1 : x0;
                auto mean = [&](int ch) {
                    return int((binned(s, x0, y, frame, ch) / 256 +
                                binned(s, x1, y, frame, ch) / 256 + 1) /
                               2);
                };
                const int mr = mean(0), mg = mean(1), mb = mean(2);
                const int cb = qBound(0, (-43 * mr - 85 * mg + 128 * mb + 32896) / 256, 255);
                const int cr = qBound(0, (128 * mr - 107 * mg - 21 * mb + 32896) / 256, 255);
                out.add(quint32(x % 2 == 0 ? cb : cr));
                break;
            }
            }
        }
    }
    return out.bytes();
}

QByteArray rendered(const SimulatedImageSettings& s, quint64 frame)
{
    QByteArray bytes(int(SimulatedImage::payloadSize(s)), '\xAA');
    SimulatedImage::render(s, frame, reinterpret_cast<uchar*>(bytes.data()));
    return bytes;
}

SimulatedImageSettings settings(const char* format, const char* pattern, quint32 width,
                                quint32 height)
{
    SimulatedImageSettings s;
    s.width = width;
    s.height = height;
    s.pixelFormat = 0;
    for (quint32 code :
         {0x01080001u, 0x01100003u, 0x01100005u, 0x01100007u, 0x010A0046u, 0x010C0047u,
          0x01080008u, 0x01080009u, 0x0108000Au, 0x0108000Bu, 0x0110000Du, 0x010A0058u,
          0x01100010u, 0x01100011u, 0x01100012u, 0x01100013u, 0x010C0057u, 0x010C0059u,
          0x010C0055u, 0x010C0053u, 0x02180014u, 0x02180015u, 0x0210003Bu, 0x010C0006u}) {
        if (SimulatedImage::formatName(code) == QLatin1String(format)) {
            s.pixelFormat = code;
        }
    }
    s.testPattern = QLatin1String(pattern);
    s.exposureUs = 10000.0;
    return s;
}

quint64 sum16(const QByteArray& mono16)
{
    quint64 total = 0;
    for (int i = 0; i + 1 < mono16.size(); i += 2) {
        total += quint8(mono16[i]) | (quint8(mono16[i + 1]) << 8);
    }
    return total;
}

QString describe(const SimulatedImageSettings& s)
{
    return QStringLiteral("%1 x %2 %3, test pattern \"%4\"")
        .arg(s.width)
        .arg(s.height)
        .arg(SimulatedImage::formatName(s.pixelFormat), s.testPattern);
}

std::unique_ptr<SimulatedDevice> builtinCamera()
{
    auto device = std::make_unique<SimulatedDevice>(Backend::CameraPool::builtinCameraXml(),
                                                    QStringLiteral("builtin"));
    const QStringList problems =
        device->applyDefaults(Backend::CameraPool::builtinCameraDefaults());
    Q_ASSERT(problems.isEmpty());
    return device;
}

void setFeature(ArvGc* genicam, const char* feature, const char* value)
{
    GError* error = nullptr;
    ArvGcNode* node = arv_gc_get_node(genicam, feature);
    QVERIFY2(node != nullptr, feature);
    arv_gc_feature_node_set_value_from_string(ARV_GC_FEATURE_NODE(node), value, &error);
    QVERIFY2(error == nullptr, error != nullptr ? error->message : "");
}

} // namespace

class tst_SimulatedImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldRenderEveryFormatAndPatternBitExact_data();
    void shouldRenderEveryFormatAndPatternBitExact();
    void shouldPackTenAndTwelveBitsLeastSignificantFirst();
    void shouldLayOutColourFormatsInTheirComponentOrder();
    void shouldSizePayloadsFromFormatAndShape_data();
    void shouldSizePayloadsFromFormatAndShape();
    void shouldShiftTheWindowByItsOffsets();
    void shouldSumOrAverageBinnedSensorPixels();
    void shouldBrightenTheSceneWithGainAndExposureOnly();
    void shouldMoveTheDiagonalRampWithTheFrame();
    void shouldReadTheBuiltinCamerasFeatures();
    void shouldNameAPixelFormatItCannotMake();
    void shouldNameTheMissingSizeFeature();
    void shouldNameTheFeatureOnceWhenAravisFails();
    void shouldReadVendorDescriptions_data();
    void shouldReadVendorDescriptions();
};

void tst_SimulatedImage::shouldRenderEveryFormatAndPatternBitExact_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("pattern");
    const char* formats[] = {"Mono8",      "Mono10",       "Mono12",     "Mono16",     "Mono10p",
                             "Mono12p",    "Mono12Packed", "BayerRG8",   "BayerGB8",   "BayerGR8",
                             "BayerBG8",   "BayerRG10",    "BayerRG10p", "BayerRG12",  "BayerGB12",
                             "BayerGR12",  "BayerBG12",    "BayerRG12p", "BayerGB12p", "BayerGR12p",
                             "BayerBG12p", "RGB8",         "BGR8",       "YCbCr422_8"};
    const char* patterns[] = {"Off",
                              "Black",
                              "White",
                              "GreyHorizontalRamp",
                              "GreyVerticalRamp",
                              "GreyDiagonalRampMoving",
                              "ColorBar"};
    for (const char* format : formats) {
        for (const char* pattern : patterns) {
            QTest::addRow("%s %s", format, pattern)
                << QString::fromLatin1(format) << QString::fromLatin1(pattern);
        }
    }
}

void tst_SimulatedImage::shouldRenderEveryFormatAndPatternBitExact()
{
    QFETCH(QString, format);
    QFETCH(QString, pattern);
    // Given an odd-sized window away from the origin, binned unevenly, on frame 37
    SimulatedImageSettings s =
        settings(format.toLatin1().constData(), pattern.toLatin1().constData(), 45, 7);
    QVERIFY2(SimulatedImage::supports(s.pixelFormat), qPrintable(format));
    s.offsetX = 240;
    s.offsetY = 3;
    s.binningHorizontal = 3;
    s.binningVertical = 2;
    s.binningVerticalMode = SimulatedImageSettings::Binning::Average;
    s.gainDb = 3.5;
    // When it is rendered, Then every byte is the formula's
    const QByteArray expected = expectedImage(s, 37);
    QCOMPARE(rendered(s, 37).toHex(), expected.toHex());
    // and an unbinned window at the origin too
    s.offsetX = s.offsetY = 0;
    s.binningHorizontal = s.binningVertical = 1;
    s.width = 130;
    QCOMPARE(rendered(s, 2).toHex(), expectedImage(s, 2).toHex());
}

void tst_SimulatedImage::shouldPackTenAndTwelveBitsLeastSignificantFirst()
{
    // The horizontal ramp gives pixel x the 10-bit value x and the 12-bit value 4x.
    const QByteArray ten = rendered(settings("Mono10p", "GreyHorizontalRamp", 4, 1), 0);
    QCOMPARE(ten.toHex(), QByteArray("000420c000"));
    const QByteArray twelve = rendered(settings("Mono12p", "GreyHorizontalRamp", 3, 1), 0);
    QCOMPARE(twelve.toHex(), QByteArray("0040000800"));
    // 16-bit containers are little-endian: pixel 1 of Mono12 is 4, of Mono16 64
    QCOMPARE(rendered(settings("Mono12", "GreyHorizontalRamp", 2, 1), 0).toHex(),
             QByteArray("00000400"));
    QCOMPARE(rendered(settings("Mono16", "GreyHorizontalRamp", 5, 1), 0).toHex(),
             QByteArray("000040008000c0000001"));
}

void tst_SimulatedImage::shouldLayOutColourFormatsInTheirComponentOrder()
{
    // Bar 5 of the colour bars is red (sensor columns 640 .. 767)
    SimulatedImageSettings s = settings("RGB8", "ColorBar", 2, 1);
    s.offsetX = 640;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("ff0000ff0000"));
    s.pixelFormat = 0x02180015; // BGR8
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("0000ff0000ff"));
    // Y0 Cb0 Y1 Cr0, BT.601 full range: red is Y 77, Cb 85, Cr 255; white is 255, 128, 128
    s.pixelFormat = 0x0210003B;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("4d554dff"));
    s.offsetX = 0;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("ff80ff80"));
    // BayerRG puts red at the origin, blue diagonally from it
    s = settings("BayerRG8", "ColorBar", 2, 2);
    s.offsetX = 640;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("ff000000"));
    s.pixelFormat = 0x0108000B; // BayerBG8: red last
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("000000ff"));
}

void tst_SimulatedImage::shouldSizePayloadsFromFormatAndShape_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<quint32>("width");
    QTest::addColumn<quint32>("height");
    QTest::addColumn<qulonglong>("bytes");
    QTest::newRow("Mono8") << "Mono8" << 1920u << 1200u << 2304000ull;
    QTest::newRow("Mono10") << "Mono10" << 1920u << 1200u << 4608000ull;
    QTest::newRow("Mono16") << "Mono16" << 1920u << 1200u << 4608000ull;
    QTest::newRow("Mono10p") << "Mono10p" << 1920u << 1200u << 2880000ull;
    QTest::newRow("Mono12p") << "Mono12p" << 1920u << 1200u << 3456000ull;
    QTest::newRow("Mono10p rounds up") << "Mono10p" << 3u << 3u << 12ull;
    QTest::newRow("Mono12p odd") << "Mono12p" << 3u << 1u << 5ull;
    QTest::newRow("Mono12Packed") << "Mono12Packed" << 4u << 1u << 6ull;
    QTest::newRow("Mono12Packed odd") << "Mono12Packed" << 3u << 1u << 5ull;
    QTest::newRow("BayerGR12p") << "BayerGR12p" << 16u << 2u << 48ull;
    QTest::newRow("BayerBG8") << "BayerBG8" << 16u << 2u << 32ull;
    QTest::newRow("RGB8") << "RGB8" << 640u << 480u << 921600ull;
    QTest::newRow("BGR8") << "BGR8" << 640u << 480u << 921600ull;
    QTest::newRow("YCbCr422_8") << "YCbCr422_8" << 640u << 480u << 614400ull;
    QTest::newRow("unknown") << "Mono14" << 640u << 480u << 0ull;
}

void tst_SimulatedImage::shouldSizePayloadsFromFormatAndShape()
{
    QFETCH(QString, format);
    QFETCH(quint32, width);
    QFETCH(quint32, height);
    QFETCH(qulonglong, bytes);
    const SimulatedImageSettings s = settings(format.toLatin1().constData(), "Off", width, height);
    QCOMPARE(qulonglong(SimulatedImage::payloadSize(s)), bytes);
}

void tst_SimulatedImage::shouldShiftTheWindowByItsOffsets()
{
    // Given the whole scene and a window into it
    SimulatedImageSettings whole = settings("Mono16", "Off", 64, 10);
    SimulatedImageSettings window = settings("Mono16", "Off", 16, 4);
    window.offsetX = 32;
    window.offsetY = 6;
    const QByteArray all = rendered(whole, 5);
    const QByteArray part = rendered(window, 5);
    // Then each line of the window is the part of the scene's line it covers
    for (int y = 0; y < 4; ++y) {
        QCOMPARE(part.mid(y * 32, 32).toHex(), all.mid((y + 6) * 128 + 64, 32).toHex());
    }
}

void tst_SimulatedImage::shouldSumOrAverageBinnedSensorPixels()
{
    // The horizontal ramp is 64 · sx: two sensor columns 2x and 2x + 1 give 256x + 64 summed
    SimulatedImageSettings s = settings("Mono16", "GreyHorizontalRamp", 3, 1);
    s.binningHorizontal = 2;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("400040014002"));
    // and 128x + 32 averaged
    s.binningHorizontalMode = SimulatedImageSettings::Binning::Average;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("2000a0002001"));
    // Vertical binning of a horizontal ramp sums equal rows; white saturates
    s.binningHorizontal = 1;
    s.binningVertical = 3;
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("0000c0008001"));
    s.testPattern = QStringLiteral("White");
    QCOMPARE(rendered(s, 0).toHex(), QByteArray("ffffffffffff"));
}

void tst_SimulatedImage::shouldBrightenTheSceneWithGainAndExposureOnly()
{
    SimulatedImageSettings s = settings("Mono16", "Off", 256, 16);
    quint64 previous = 0;
    QByteArray previousImage;
    for (double gain : {0.0, 1.0, 3.0, 6.0, 12.0}) {
        s.gainDb = gain;
        const QByteArray image = rendered(s, 0);
        const quint64 total = sum16(image);
        qInfo("gain %.1f dB: mean %.1f", gain, double(total) / (256 * 16));
        QVERIFY2(total > previous, qPrintable(QString::number(gain)));
        // No pixel gets darker.
        for (int i = 0; !previousImage.isEmpty() && i < image.size(); i += 2) {
            QVERIFY(quint16(quint8(image[i]) | quint8(image[i + 1]) << 8) >=
                    quint16(quint8(previousImage[i]) | quint8(previousImage[i + 1]) << 8));
        }
        previous = total;
        previousImage = image;
    }
    s.gainDb = 0.0;
    previous = 0;
    for (double exposure : {1000.0, 5000.0, 10000.0, 20000.0}) {
        s.exposureUs = exposure;
        const quint64 total = sum16(rendered(s, 0));
        QVERIFY2(total > previous, qPrintable(QString::number(exposure)));
        previous = total;
    }
    // Saturation clamps instead of wrapping: nothing gets darker, much turns white
    s.gainDb = 12.0;
    const QByteArray bright = rendered(s, 0);
    s.gainDb = 24.0;
    s.exposureUs = 1e7;
    const QByteArray brightest = rendered(s, 0);
    int saturated = 0;
    for (int i = 0; i < brightest.size(); i += 2) {
        const quint16 v = quint16(quint8(brightest[i]) | quint8(brightest[i + 1]) << 8);
        QVERIFY(v >= quint16(quint8(bright[i]) | quint8(bright[i + 1]) << 8));
        saturated += v == 65535 ? 1 : 0;
    }
    QVERIFY2(saturated > 256 * 16 / 4, qPrintable(QString::number(saturated)));
    // A test pattern is not changed by either
    SimulatedImageSettings ramp = settings("Mono12", "GreyDiagonalRampMoving", 32, 4);
    const QByteArray nominal = rendered(ramp, 1);
    ramp.gainDb = 12.0;
    ramp.exposureUs = 100.0;
    QCOMPARE(rendered(ramp, 1), nominal);
}

void tst_SimulatedImage::shouldMoveTheDiagonalRampWithTheFrame()
{
    const SimulatedImageSettings s = settings("Mono16", "GreyDiagonalRampMoving", 32, 1);
    const QByteArray first = rendered(s, 0);
    const QByteArray later = rendered(s, 3);
    QVERIFY(first != later);
    // Frame 3 shows what frame 0 shows 12 columns further right.
    QCOMPARE(later.left(20 * 2), first.mid(12 * 2, 20 * 2));
    // And the scene's bar moves 8 columns a frame.
    const SimulatedImageSettings scene = settings("Mono8", "Off", 64, 1);
    const QByteArray at0 = rendered(scene, 0);
    const QByteArray at2 = rendered(scene, 2);
    QVERIFY(quint8(at0[0]) > quint8(at2[0]));
    QVERIFY(quint8(at0[40]) < quint8(at2[40]));
}

void tst_SimulatedImage::shouldReadTheBuiltinCamerasFeatures()
{
    // Given the built-in camera at its defaults
    auto camera = builtinCamera();
    SimulatedImageSettings s;
    QString error;
    QVERIFY2(SimulatedImage::settingsOf(camera->genicam(), &s, &error), qPrintable(error));
    QCOMPARE(s.width, 1920u);
    QCOMPARE(s.height, 1200u);
    QCOMPARE(SimulatedImage::formatName(s.pixelFormat), QStringLiteral("Mono8"));
    QCOMPARE(s.testPattern, QStringLiteral("Off"));
    QCOMPARE(s.exposureUs, 10000.0);
    QCOMPARE(s.gainDb, 0.0);
    QCOMPARE(s.binningHorizontal, 1u);

    // When its features change, Then the settings follow them
    setFeature(camera->genicam(), "BinningHorizontal", "2");
    setFeature(camera->genicam(), "BinningHorizontalMode", "Average");
    setFeature(camera->genicam(), "Width", "640");
    setFeature(camera->genicam(), "Height", "480");
    setFeature(camera->genicam(), "OffsetX", "32");
    setFeature(camera->genicam(), "OffsetY", "4");
    setFeature(camera->genicam(), "PixelFormat", "Mono12p");
    setFeature(camera->genicam(), "TestPattern", "GreyVerticalRamp");
    setFeature(camera->genicam(), "Gain", "6");
    setFeature(camera->genicam(), "ExposureTime", "2500");
    QVERIFY2(SimulatedImage::settingsOf(camera->genicam(), &s, &error), qPrintable(error));
    QCOMPARE(s.width, 640u);
    QCOMPARE(s.height, 480u);
    QCOMPARE(s.offsetX, 32u);
    QCOMPARE(s.offsetY, 4u);
    QCOMPARE(s.binningHorizontal, 2u);
    QCOMPARE(s.binningHorizontalMode, SimulatedImageSettings::Binning::Average);
    QCOMPARE(s.binningVertical, 1u);
    QCOMPARE(SimulatedImage::formatName(s.pixelFormat), QStringLiteral("Mono12p"));
    QCOMPARE(s.testPattern, QStringLiteral("GreyVerticalRamp"));
    QCOMPARE(s.gainDb, 6.0);
    QCOMPARE(s.exposureUs, 2500.0);
}

void tst_SimulatedImage::shouldNameAPixelFormatItCannotMake()
{
    SimulatedDevice device(
        describedAs("<Category Name=\"Root\"><pFeature>Width</pFeature></Category>\n"
                    "<Integer Name=\"Width\"><Value>64</Value></Integer>\n"
                    "<Integer Name=\"Height\"><Value>8</Value></Integer>\n"
                    "<Enumeration Name=\"PixelFormat\">"
                    "<EnumEntry Name=\"Mono14\"><Value>17825829</Value>"
                    "</EnumEntry><Value>17825829</Value></Enumeration>\n"),
        QStringLiteral("mono14"));
    SimulatedImageSettings s;
    QString error;
    QVERIFY(!SimulatedImage::settingsOf(device.genicam(), &s, &error));
    QCOMPARE(error, QStringLiteral(
                        "[PixelFormat] Mono14 is not a pixel format that simulated cameras make"));
}

void tst_SimulatedImage::shouldNameTheFeatureOnceWhenAravisFails()
{
    // The enumeration's value matches none of its entries: Aravis refuses to name it.
    SimulatedDevice device(
        describedAs("<Category Name=\"Root\"><pFeature>Width</pFeature></Category>\n"
                    "<Integer Name=\"Width\"><Value>64</Value></Integer>\n"
                    "<Integer Name=\"Height\"><Value>8</Value></Integer>\n"
                    "<Enumeration Name=\"PixelFormat\">"
                    "<EnumEntry Name=\"Mono8\"><Value>17301505</Value></EnumEntry>"
                    "<Value>5</Value></Enumeration>\n"),
        QStringLiteral("strayentry"));
    SimulatedImageSettings s;
    QString error;
    QVERIFY(!SimulatedImage::settingsOf(device.genicam(), &s, &error));
    QVERIFY2(error.startsWith(QStringLiteral("[PixelFormat] ")), qPrintable(error));
    QVERIFY2(error.count(QStringLiteral("[PixelFormat]")) == 1, qPrintable(error));
    QVERIFY2(error.size() > QStringLiteral("[PixelFormat] ").size(), qPrintable(error));
}

void tst_SimulatedImage::shouldNameTheMissingSizeFeature()
{
    // A format known by name alone is found by its name.
    SimulatedDevice device(
        describedAs("<Category Name=\"Root\"><pFeature>Width</pFeature></Category>\n"
                    "<Integer Name=\"Width\"><Value>64</Value></Integer>\n"
                    "<Enumeration Name=\"PixelFormat\">"
                    "<EnumEntry Name=\"Mono8\"><Value>0</Value></EnumEntry>"
                    "<Value>0</Value></Enumeration>\n"),
        QStringLiteral("noheight"));
    SimulatedImageSettings s;
    QString error;
    QVERIFY(!SimulatedImage::settingsOf(device.genicam(), &s, &error));
    QVERIFY2(error.startsWith(QStringLiteral("[Height] the description has no usable Height")),
             qPrintable(error));
    SimulatedDevice complete(
        describedAs("<Category Name=\"Root\"><pFeature>Width</pFeature></Category>\n"
                    "<Integer Name=\"Width\"><Value>64</Value></Integer>\n"
                    "<Integer Name=\"Height\"><Value>6</Value></Integer>\n"
                    "<Enumeration Name=\"PixelFormat\">"
                    "<EnumEntry Name=\"Mono8\"><Value>0</Value></EnumEntry>"
                    "<Value>0</Value></Enumeration>\n"),
        QStringLiteral("complete"));
    QVERIFY2(SimulatedImage::settingsOf(complete.genicam(), &s, &error), qPrintable(error));
    QCOMPARE(s.width, 64u);
    QCOMPARE(s.height, 6u);
    QCOMPARE(SimulatedImage::formatName(s.pixelFormat), QStringLiteral("Mono8"));
    QCOMPARE(s.testPattern, QString());
    QCOMPARE(s.exposureUs, 0.0);
    QCOMPARE(qulonglong(SimulatedImage::payloadSize(s)), 384ull);
}

void tst_SimulatedImage::shouldReadVendorDescriptions_data()
{
    addVendorDescriptionRows();
}

void tst_SimulatedImage::shouldReadVendorDescriptions()
{
    QFETCH(QString, file);
    if (file.isEmpty() || !QFileInfo::exists(file)) {
        QSKIP("no vendor descriptions: ../shared/genicam is absent");
    }
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    SimulatedDevice device(Backend::cleanGenICamXml(f.readAll(), file), file);
    SimulatedImageSettings s;
    QString error;
    bool ok = SimulatedImage::settingsOf(device.genicam(), &s, &error);
    qInfo("%s as found: %s", qPrintable(QFileInfo(file).fileName()),
          qPrintable(ok ? describe(s) : error));
    // A blank simulated memory holds no image size: the reason names the feature.
    QVERIFY2(ok || QRegularExpression(QStringLiteral("^\\[\\w+\\] .+")).match(error).hasMatch(),
             qPrintable(error));
    // Once the size is set the way a user would, the settings follow it.
    if (!ok && error.startsWith(QStringLiteral("[Width] 0 pixels"))) {
        GError* gerror = nullptr;
        arv_device_set_integer_feature_value(device.device(), "Width", 64, &gerror);
        g_clear_error(&gerror);
        arv_device_set_integer_feature_value(device.device(), "Height", 8, &gerror);
        g_clear_error(&gerror);
        ok = SimulatedImage::settingsOf(device.genicam(), &s, &error);
        qInfo("%s at 64 x 8: %s", qPrintable(QFileInfo(file).fileName()),
              qPrintable(ok ? describe(s) : error));
        // Blank memory implements no PixelFormat entry either; that is named, not guessed.
        QVERIFY2(ok || error.startsWith(QStringLiteral("[PixelFormat] ")), qPrintable(error));
        QVERIFY(!ok || (s.width == 64 && s.height == 8));
    }
    if (ok) {
        QByteArray image(int(SimulatedImage::payloadSize(s)), '\0');
        QVERIFY(!image.isEmpty());
        SimulatedImage::render(s, 0, reinterpret_cast<uchar*>(image.data()));
    }
}

QTEST_GUILESS_MAIN(tst_SimulatedImage)
#include "tst_simulatedimage.moc"
