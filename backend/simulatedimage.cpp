#include <arv.h>

#include "simulatedimage.h"

#include "errormapping.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <vector>

// The image of a simulated camera, defined so that a test can recompute every byte.
//
// 1. Sensor coordinates. Image pixel (x, y) covers the sensor pixels
//      sx = (OffsetX + x) * BinningHorizontal + i,   i = 0 .. BinningHorizontal - 1
//      sy = (OffsetY + y) * BinningVertical + j,     j = 0 .. BinningVertical - 1
//    (offsets count binned pixels, as the built-in camera's features say).
//
// 2. Each sensor pixel has a colour (R, G, B), each a 16-bit linear value 0 .. 65535, given
//    by TestPattern (all integer arithmetic, frameId is the frame's number):
//      Off                     the scene: u = sx & 1023, v = sy & 1023,
//                              R = 32u, G = 32v, B = 16 (2046 - u - v); a bright bar 32 sensor
//                              columns wide adds 16384 to each channel where
//                              (sx - 8 frameId) mod 1024 < 32, so it moves 8 columns a frame
//      Black                   0
//      White                   65535
//      GreyHorizontalRamp      grey ((sx << 6) & 0xFFFF): one full ramp per 1024 columns
//      GreyVerticalRamp        grey ((sy << 6) & 0xFFFF)
//      GreyDiagonalRampMoving  grey (((sx + sy + 4 frameId) << 6) & 0xFFFF)
//      ColorBar                bar (sx >> 7) & 7 of white, yellow, cyan, green, magenta, red,
//                              blue, black; a channel is 65535 where the bar has it, else 0
//
// 3. Exposure and gain brighten the scene only: the test patterns are inserted after the
//    analogue chain, as on real sensors. The factor k = (ExposureTime / 10000 µs) ·
//    10^(Gain / 20), clamped to [0, 256], becomes K = round(k · 65536) and each scene channel
//    becomes min(65535, (c · K + 32768) >> 16). A description without ExposureTime renders at
//    the reference exposure. Monotonic in both, saturating at 65535.
//
// 4. Binning, per channel: the BinningHorizontal pixels of each sensor row combine first, then
//    the BinningVertical row results. Sum: min(65535, sum). Average: sum / n, rounded down.
//
// 5. Pixel formats, from the binned (R, G, B); a component of depth d bits is c >> (16 - d):
//      Mono*      luma Y = (77 R + 150 G + 29 B + 128) >> 8, so grey stays exact
//      Bayer*     the channel the colour filter puts at image pixel (x, y): the name gives the
//                 first two pixels of row 0 (RG: R G / G B; GR: G R / B G; GB: G B / R G;
//                 BG: B G / G R)
//      RGB8/BGR8  three bytes in the name's order
//      YCbCr422_8 PFNC order Y0 Cb0 Y1 Cr0 per pixel pair of a line, BT.601 full range from
//                 the 8-bit components: Y = (77 R + 150 G + 29 B + 128) >> 8,
//                 Cb = (-43 R - 85 G + 128 B + 32896) >> 8, Cr = (128 R - 107 G - 21 B +
//                 32896) >> 8, both clamped to 0 .. 255, computed from the pair's mean colour
//                 ((a + b + 1) >> 1 per component). An odd last pixel of a line gives Y Cb.
//    Storage: 8-bit formats one byte a component; Mono10/12/16 and Bayer*10/12 a 16-bit
//    little-endian word a pixel; the "p" formats (Mono10p, Mono12p, Bayer*10p/12p) PFNC's
//    LSB-first packing: pixel n takes bits n·d .. n·d + d - 1 of the image's bit stream, bit b
//    of the stream being bit b % 8 of byte b / 8, with no padding at line ends; Mono12Packed
//    GigE Vision's older packing of pixel pairs in 3 bytes, across the whole image: byte 0 the
//    first pixel's bits 11..4, byte 1 its bits 3..0 in bits 0..3 and the second pixel's bits
//    3..0 in bits 4..7, byte 2 the second pixel's bits 11..4; a last odd pixel takes 2 bytes.

namespace Backend {

namespace {

enum class Layout { Mono, Bayer, Rgb, Bgr, YCbCr422 };
enum class Storage { Bytes, Words, Packed, PairsIn3Bytes };
enum Channel { R = 0, G = 1, B = 2 };

struct Format {
    quint32 code;
    const char* name;
    Layout layout;
    int depth; // bits a component
    Storage storage;
    const Channel (*cfa)[2]; // Bayer: the channel at [y & 1][x & 1]
};

constexpr Channel RG[2][2] = {{R, G}, {G, B}};
constexpr Channel GR[2][2] = {{G, R}, {B, G}};
constexpr Channel GB[2][2] = {{G, B}, {R, G}};
constexpr Channel BG[2][2] = {{B, G}, {G, R}};

constexpr Format kFormats[] = {
    {0x01080001, "Mono8", Layout::Mono, 8, Storage::Bytes, nullptr},
    {0x01100003, "Mono10", Layout::Mono, 10, Storage::Words, nullptr},
    {0x01100005, "Mono12", Layout::Mono, 12, Storage::Words, nullptr},
    {0x01100007, "Mono16", Layout::Mono, 16, Storage::Words, nullptr},
    {0x010A0046, "Mono10p", Layout::Mono, 10, Storage::Packed, nullptr},
    {0x010C0047, "Mono12p", Layout::Mono, 12, Storage::Packed, nullptr},
    {0x010C0006, "Mono12Packed", Layout::Mono, 12, Storage::PairsIn3Bytes, nullptr},
    {0x01080008, "BayerGR8", Layout::Bayer, 8, Storage::Bytes, GR},
    {0x01080009, "BayerRG8", Layout::Bayer, 8, Storage::Bytes, RG},
    {0x0108000A, "BayerGB8", Layout::Bayer, 8, Storage::Bytes, GB},
    {0x0108000B, "BayerBG8", Layout::Bayer, 8, Storage::Bytes, BG},
    {0x0110000D, "BayerRG10", Layout::Bayer, 10, Storage::Words, RG},
    {0x010A0058, "BayerRG10p", Layout::Bayer, 10, Storage::Packed, RG},
    {0x01100010, "BayerGR12", Layout::Bayer, 12, Storage::Words, GR},
    {0x01100011, "BayerRG12", Layout::Bayer, 12, Storage::Words, RG},
    {0x01100012, "BayerGB12", Layout::Bayer, 12, Storage::Words, GB},
    {0x01100013, "BayerBG12", Layout::Bayer, 12, Storage::Words, BG},
    {0x010C0057, "BayerGR12p", Layout::Bayer, 12, Storage::Packed, GR},
    {0x010C0059, "BayerRG12p", Layout::Bayer, 12, Storage::Packed, RG},
    {0x010C0055, "BayerGB12p", Layout::Bayer, 12, Storage::Packed, GB},
    {0x010C0053, "BayerBG12p", Layout::Bayer, 12, Storage::Packed, BG},
    {0x02180014, "RGB8", Layout::Rgb, 8, Storage::Bytes, nullptr},
    {0x02180015, "BGR8", Layout::Bgr, 8, Storage::Bytes, nullptr},
    {0x0210003B, "YCbCr422_8", Layout::YCbCr422, 8, Storage::Bytes, nullptr},
};

const Format* formatOf(quint32 code)
{
    for (const Format& f : kFormats) {
        if (f.code == code) {
            return &f;
        }
    }
    return nullptr;
}

const Format* formatNamed(const char* name)
{
    for (const Format& f : kFormats) {
        if (qstrcmp(f.name, name) == 0) {
            return &f;
        }
    }
    return nullptr;
}

enum class Pattern { Scene, Black, White, HorizontalRamp, VerticalRamp, DiagonalRamp, ColorBar };

struct PatternName {
    const char* name;
    Pattern pattern;
};

const PatternName kPatterns[] = {
    {"Off", Pattern::Scene},
    {"Black", Pattern::Black},
    {"White", Pattern::White},
    {"GreyHorizontalRamp", Pattern::HorizontalRamp},
    {"GreyVerticalRamp", Pattern::VerticalRamp},
    {"GreyDiagonalRampMoving", Pattern::DiagonalRamp},
    {"ColorBar", Pattern::ColorBar},
};

bool patternOf(const QString& name, Pattern* pattern)
{
    if (name.isEmpty()) {
        *pattern = Pattern::Scene;
        return true;
    }
    for (const PatternName& p : kPatterns) {
        if (name == QLatin1String(p.name)) {
            *pattern = p.pattern;
            return true;
        }
    }
    return false;
}

struct Rgb {
    quint32 c[3];
};

// Everything about one frame that does not change from pixel to pixel.
struct Frame {
    Pattern pattern = Pattern::Scene;
    quint64 frameId = 0;
    quint64 barStart = 0; // the scene's bar: (8 frameId) mod 1024
    quint64 gainQ16 = 65536;
    quint32 binH = 1;
    quint32 binV = 1;
    bool averageH = false;
    bool averageV = false;
};

quint64 brightnessQ16(const SimulatedImageSettings& s)
{
    const double exposure =
        s.exposureUs > 0.0 ? s.exposureUs : SimulatedImage::REFERENCE_EXPOSURE_US;
    double k = exposure / SimulatedImage::REFERENCE_EXPOSURE_US * std::pow(10.0, s.gainDb / 20.0);
    if (!std::isfinite(k)) {
        k = k > 0.0 ? 256.0 : 0.0;
    }
    k = qBound(0.0, k, 256.0);
    return quint64(std::llround(k * 65536.0));
}

inline quint32 brightened(quint32 c, quint64 gainQ16)
{
    return quint32(std::min<quint64>(65535, (quint64(c) * gainQ16 + 32768) >> 16));
}

// The pattern is a template argument so that the inner loops carry no switch.
template <Pattern P> inline Rgb sensorPixel(const Frame& f, quint64 sx, quint64 sy)
{
    if constexpr (P == Pattern::Black) {
        return {{0, 0, 0}};
    } else if constexpr (P == Pattern::White) {
        return {{65535, 65535, 65535}};
    } else if constexpr (P == Pattern::HorizontalRamp) {
        const quint32 g = quint32((sx << 6) & 0xFFFF);
        return {{g, g, g}};
    } else if constexpr (P == Pattern::VerticalRamp) {
        const quint32 g = quint32((sy << 6) & 0xFFFF);
        return {{g, g, g}};
    } else if constexpr (P == Pattern::DiagonalRamp) {
        const quint32 g = quint32(((sx + sy + 4 * f.frameId) << 6) & 0xFFFF);
        return {{g, g, g}};
    } else if constexpr (P == Pattern::ColorBar) {
        // white, yellow, cyan, green, magenta, red, blue, black as R G B bits
        static constexpr quint8 kBars[8] = {7, 6, 3, 2, 5, 4, 1, 0};
        const quint8 bar = kBars[(sx >> 7) & 7];
        return {{bar & 4 ? 65535u : 0u, bar & 2 ? 65535u : 0u, bar & 1 ? 65535u : 0u}};
    } else {
        const quint32 u = quint32(sx & 1023);
        const quint32 v = quint32(sy & 1023);
        const quint32 bar = ((sx + 1024 - f.barStart) & 1023) < 32 ? 16384 : 0;
        return {{brightened(32 * u + bar, f.gainQ16), brightened(32 * v + bar, f.gainQ16),
                 brightened(16 * (2046 - u - v) + bar, f.gainQ16)}};
    }
}

quint32 combine(quint64 sum, quint32 n, bool average)
{
    return average ? quint32(sum / n) : quint32(std::min<quint64>(65535, sum));
}

template <Pattern P> Rgb binnedPixel(const Frame& f, quint64 sx0, quint64 sy0)
{
    quint64 vertical[3] = {0, 0, 0};
    for (quint32 j = 0; j < f.binV; ++j) {
        quint64 horizontal[3] = {0, 0, 0};
        for (quint32 i = 0; i < f.binH; ++i) {
            const Rgb p = sensorPixel<P>(f, sx0 + i, sy0 + j);
            for (int c = 0; c < 3; ++c) {
                horizontal[c] += p.c[c];
            }
        }
        for (int c = 0; c < 3; ++c) {
            vertical[c] += combine(horizontal[c], f.binH, f.averageH);
        }
    }
    Rgb out;
    for (int c = 0; c < 3; ++c) {
        out.c[c] = combine(vertical[c], f.binV, f.averageV);
    }
    return out;
}

// Image row y's binned colours; the window starts at binned column `offsetX`.
template <Pattern P>
void fillRow(const Frame& f, quint64 offsetX, quint64 sy, std::vector<Rgb>& row)
{
    const quint32 width = quint32(row.size());
    if (f.binH == 1 && f.binV == 1) {
        for (quint32 x = 0; x < width; ++x) {
            row[x] = sensorPixel<P>(f, offsetX + x, sy);
        }
        return;
    }
    for (quint32 x = 0; x < width; ++x) {
        row[x] = binnedPixel<P>(f, (offsetX + x) * f.binH, sy);
    }
}

void fillRow(const Frame& f, quint64 offsetX, quint64 sy, std::vector<Rgb>& row)
{
    switch (f.pattern) {
    case Pattern::Scene:
        return fillRow<Pattern::Scene>(f, offsetX, sy, row);
    case Pattern::Black:
        return fillRow<Pattern::Black>(f, offsetX, sy, row);
    case Pattern::White:
        return fillRow<Pattern::White>(f, offsetX, sy, row);
    case Pattern::HorizontalRamp:
        return fillRow<Pattern::HorizontalRamp>(f, offsetX, sy, row);
    case Pattern::VerticalRamp:
        return fillRow<Pattern::VerticalRamp>(f, offsetX, sy, row);
    case Pattern::DiagonalRamp:
        return fillRow<Pattern::DiagonalRamp>(f, offsetX, sy, row);
    case Pattern::ColorBar:
        return fillRow<Pattern::ColorBar>(f, offsetX, sy, row);
    }
}

inline quint32 luma16(const Rgb& p)
{
    return (77 * p.c[R] + 150 * p.c[G] + 29 * p.c[B] + 128) >> 8;
}

// Writes components of `depth` bits in storage S, in order.
template <Storage S> class Writer {
public:
    Writer(uchar* out, int depth) : m_out(out), m_depth(depth) {}
    void put(quint32 value)
    {
        if constexpr (S == Storage::Bytes) {
            *m_out++ = uchar(value);
        } else if constexpr (S == Storage::Words) {
            *m_out++ = uchar(value & 0xFF);
            *m_out++ = uchar(value >> 8);
        } else if constexpr (S == Storage::PairsIn3Bytes) {
            if (m_count == 0) {
                m_bits = value;
                m_count = 1;
            } else {
                *m_out++ = uchar(m_bits >> 4);
                *m_out++ = uchar((m_bits & 0xF) | ((value & 0xF) << 4));
                *m_out++ = uchar(value >> 4);
                m_count = 0;
            }
        } else {
            m_bits |= quint64(value) << m_count;
            m_count += m_depth;
            while (m_count >= 8) {
                *m_out++ = uchar(m_bits & 0xFF);
                m_bits >>= 8;
                m_count -= 8;
            }
        }
    }
    void finish()
    {
        if constexpr (S == Storage::PairsIn3Bytes) {
            if (m_count > 0) {
                *m_out++ = uchar(m_bits >> 4);
                *m_out++ = uchar(m_bits & 0xF);
                m_count = 0;
            }
        } else if (m_count > 0) {
            *m_out++ = uchar(m_bits & 0xFF);
            m_bits = 0;
            m_count = 0;
        }
    }

private:
    uchar* m_out;
    int m_depth;
    quint64 m_bits = 0;
    int m_count = 0;
};

template <Storage S> void putYCbCrPair(Writer<S>& w, const Rgb& a, const Rgb& b, bool second)
{
    const int r0 = int(a.c[R] >> 8), g0 = int(a.c[G] >> 8), b0 = int(a.c[B] >> 8);
    const int r1 = int(b.c[R] >> 8), g1 = int(b.c[G] >> 8), b1 = int(b.c[B] >> 8);
    const int r = (r0 + r1 + 1) >> 1, g = (g0 + g1 + 1) >> 1, bl = (b0 + b1 + 1) >> 1;
    const int cb = std::clamp((-43 * r - 85 * g + 128 * bl + 32896) >> 8, 0, 255);
    const int cr = std::clamp((128 * r - 107 * g - 21 * bl + 32896) >> 8, 0, 255);
    w.put((77 * r0 + 150 * g0 + 29 * b0 + 128) >> 8);
    w.put(quint32(cb));
    if (second) {
        w.put((77 * r1 + 150 * g1 + 29 * b1 + 128) >> 8);
        w.put(quint32(cr));
    }
}

template <Storage S>
void renderRow(const Format& format, const std::vector<Rgb>& row, quint32 y, Writer<S>& w)
{
    const int shift = 16 - format.depth;
    const quint32 width = quint32(row.size());
    switch (format.layout) {
    case Layout::Mono:
        for (const Rgb& p : row) {
            w.put(luma16(p) >> shift);
        }
        return;
    case Layout::Bayer: {
        const Channel* cfa = format.cfa[y & 1];
        for (quint32 x = 0; x < width; ++x) {
            w.put(row[x].c[cfa[x & 1]] >> shift);
        }
        return;
    }
    case Layout::Rgb:
    case Layout::Bgr: {
        const Channel first = format.layout == Layout::Rgb ? R : B;
        const Channel last = format.layout == Layout::Rgb ? B : R;
        for (const Rgb& p : row) {
            w.put(p.c[first] >> 8);
            w.put(p.c[G] >> 8);
            w.put(p.c[last] >> 8);
        }
        return;
    }
    case Layout::YCbCr422:
        for (quint32 x = 0; x < width; x += 2) {
            const bool pair = x + 1 < width;
            putYCbCrPair(w, row[x], row[pair ? x + 1 : x], pair);
        }
        return;
    }
}

template <Storage S>
void renderImage(const Format& format, const Frame& f, const SimulatedImageSettings& settings,
                 uchar* out)
{
    // One line of binned colour at a time; kept per thread so that a stream's steady state
    // allocates nothing.
    thread_local std::vector<Rgb> row;
    row.resize(settings.width);
    Writer<S> writer(out, format.depth);
    for (quint32 y = 0; y < settings.height; ++y) {
        fillRow(f, settings.offsetX, (quint64(settings.offsetY) + y) * f.binV, row);
        renderRow(format, row, y, writer);
    }
    writer.finish();
}

// Reading a feature of the description: Absent when it does not exist, is no number or
// enumeration, or is not implemented or available now.
enum class Read { Absent, Ok, Failed };

QString failure(const char* feature, GError* error)
{
    // Most of Aravis's messages name the node already, as "[Name] ..."; once is enough.
    const QString tag = QStringLiteral("[%1]").arg(QLatin1String(feature));
    QString text = messageOf(error);
    if (!text.startsWith(tag)) {
        text = tag + QLatin1Char(' ') + text;
    }
    g_clear_error(&error);
    return text;
}

ArvGcFeatureNode* usableNode(ArvGc* genicam, const char* feature, Read* read, QString* error)
{
    ArvGcNode* node = arv_gc_get_node(genicam, feature);
    *read = Read::Absent;
    if (node == nullptr || !ARV_IS_GC_FEATURE_NODE(node)) {
        return nullptr;
    }
    ArvGcFeatureNode* featureNode = ARV_GC_FEATURE_NODE(node);
    GError* gerror = nullptr;
    bool usable = arv_gc_feature_node_is_implemented(featureNode, &gerror);
    if (gerror == nullptr && usable) {
        usable = arv_gc_feature_node_is_available(featureNode, &gerror);
    }
    if (gerror != nullptr) {
        *read = Read::Failed;
        *error = failure(feature, gerror);
        return nullptr;
    }
    return usable ? featureNode : nullptr;
}

Read readNumber(ArvGc* genicam, const char* feature, double* value, QString* error)
{
    Read read = Read::Absent;
    ArvGcFeatureNode* node = usableNode(genicam, feature, &read, error);
    if (node == nullptr || ARV_IS_GC_ENUMERATION(node)) {
        return read;
    }
    GError* gerror = nullptr;
    if (ARV_IS_GC_FLOAT(node)) {
        *value = arv_gc_float_get_value(ARV_GC_FLOAT(node), &gerror);
    } else if (ARV_IS_GC_INTEGER(node)) {
        *value = double(arv_gc_integer_get_value(ARV_GC_INTEGER(node), &gerror));
    } else {
        return Read::Absent;
    }
    if (gerror != nullptr) {
        *error = failure(feature, gerror);
        return Read::Failed;
    }
    return Read::Ok;
}

Read readEntry(ArvGc* genicam, const char* feature, QString* entry, qint64* value, QString* error)
{
    Read read = Read::Absent;
    ArvGcFeatureNode* node = usableNode(genicam, feature, &read, error);
    if (node == nullptr || !ARV_IS_GC_ENUMERATION(node)) {
        return read;
    }
    GError* gerror = nullptr;
    *value = arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(node), &gerror);
    const char* name = gerror == nullptr
                           ? arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), &gerror)
                           : nullptr;
    if (gerror != nullptr) {
        *error = failure(feature, gerror);
        return Read::Failed;
    }
    *entry = QString::fromUtf8(name);
    return Read::Ok;
}

// Width and Height: the image has no shape without them.
bool readSize(ArvGc* genicam, const char* feature, quint32* value, QString* error)
{
    double number = 0.0;
    switch (readNumber(genicam, feature, &number, error)) {
    case Read::Failed:
        return false;
    case Read::Absent:
        *error = QStringLiteral("[%1] the description has no usable %1, so the image has no size")
                     .arg(QLatin1String(feature));
        return false;
    case Read::Ok:
        break;
    }
    if (number < 1.0 || number > 65535.0) {
        *error = QStringLiteral("[%1] %2 pixels is no image size the simulated camera makes")
                     .arg(QLatin1String(feature))
                     .arg(number);
        return false;
    }
    *value = quint32(number);
    return true;
}

bool readPixelFormat(ArvGc* genicam, quint32* pixelFormat, QString* error)
{
    QString entry;
    qint64 value = 0;
    switch (readEntry(genicam, "PixelFormat", &entry, &value, error)) {
    case Read::Failed:
        return false;
    case Read::Absent:
        *error = QStringLiteral("[PixelFormat] the description has no usable PixelFormat, so the "
                                "image has no format");
        return false;
    case Read::Ok:
        break;
    }
    // Descriptions give the PFNC code as the entry's value; older ones only its name.
    if (const Format* f = formatOf(quint32(value)); f != nullptr && value >= 0) {
        *pixelFormat = f->code;
        return true;
    }
    if (const Format* f = formatNamed(entry.toLatin1().constData()); f != nullptr) {
        *pixelFormat = f->code;
        return true;
    }
    *error = entry.isEmpty()
                 ? QStringLiteral("[PixelFormat] the value 0x%1 is no entry of PixelFormat")
                       .arg(quint64(value), 8, 16, QLatin1Char('0'))
                 : QStringLiteral("[PixelFormat] %1 is not a pixel format that simulated cameras "
                                  "make")
                       .arg(entry);
    return false;
}

// What a description lacks, or can't tell now, keeps its default: these only shade the image.
void readOptional(ArvGc* genicam, const char* feature, double* value)
{
    QString ignored;
    double number = 0.0;
    if (readNumber(genicam, feature, &number, &ignored) == Read::Ok) {
        *value = number;
    }
}

void readBinning(ArvGc* genicam, const char* factor, const char* mode, quint32* binning,
                 SimulatedImageSettings::Binning* binningMode)
{
    double number = 1.0;
    readOptional(genicam, factor, &number);
    *binning = number >= 1.0 && number <= 64.0 ? quint32(number) : 1;
    QString entry;
    qint64 value = 0;
    QString ignored;
    if (readEntry(genicam, mode, &entry, &value, &ignored) == Read::Ok) {
        *binningMode = entry == QLatin1String("Average") ? SimulatedImageSettings::Binning::Average
                                                         : SimulatedImageSettings::Binning::Sum;
    }
}

} // namespace

bool SimulatedImage::supports(quint32 pixelFormat)
{
    return formatOf(pixelFormat) != nullptr;
}

QString SimulatedImage::formatName(quint32 pixelFormat)
{
    const Format* f = formatOf(pixelFormat);
    return f != nullptr ? QString::fromLatin1(f->name)
                        : QStringLiteral("0x%1").arg(pixelFormat, 8, 16, QLatin1Char('0'));
}

quint32 SimulatedImage::formatCode(const QString& name)
{
    const Format* f = formatNamed(name.toLatin1().constData());
    return f != nullptr ? f->code : 0;
}

bool SimulatedImage::settingsOf(ArvGc* genicam, SimulatedImageSettings* settings, QString* error)
{
    Q_ASSERT(genicam != nullptr && settings != nullptr && error != nullptr);
    SimulatedImageSettings s;
    if (!readSize(genicam, "Width", &s.width, error) ||
        !readSize(genicam, "Height", &s.height, error) ||
        !readPixelFormat(genicam, &s.pixelFormat, error)) {
        return false;
    }
    double offsetX = 0.0;
    double offsetY = 0.0;
    readOptional(genicam, "OffsetX", &offsetX);
    readOptional(genicam, "OffsetY", &offsetY);
    s.offsetX = offsetX > 0.0 && offsetX < 1e9 ? quint32(offsetX) : 0;
    s.offsetY = offsetY > 0.0 && offsetY < 1e9 ? quint32(offsetY) : 0;
    readBinning(genicam, "BinningHorizontal", "BinningHorizontalMode", &s.binningHorizontal,
                &s.binningHorizontalMode);
    readBinning(genicam, "BinningVertical", "BinningVerticalMode", &s.binningVertical,
                &s.binningVerticalMode);

    QString entry;
    qint64 value = 0;
    QString ignored;
    if (readEntry(genicam, "TestPattern", &entry, &value, &ignored) == Read::Ok) {
        Pattern pattern;
        if (!patternOf(entry, &pattern)) {
            *error = QStringLiteral("[TestPattern] %1 is not a test pattern that simulated "
                                    "cameras make")
                         .arg(entry);
            return false;
        }
        s.testPattern = entry;
    }

    // Older descriptions name the features *Abs; a Gain that is no Float is in raw units,
    // which say nothing about brightness.
    readOptional(genicam, "ExposureTimeAbs", &s.exposureUs);
    readOptional(genicam, "ExposureTime", &s.exposureUs);
    if (ArvGcNode* gain = arv_gc_get_node(genicam, "Gain");
        gain != nullptr && ARV_IS_GC_FLOAT(gain)) {
        readOptional(genicam, "Gain", &s.gainDb);
    }
    readOptional(genicam, "AcquisitionFrameRateAbs", &s.frameRateHz);
    readOptional(genicam, "AcquisitionFrameRate", &s.frameRateHz);
    *settings = s;
    return true;
}

std::size_t SimulatedImage::payloadSize(const SimulatedImageSettings& settings)
{
    const Format* f = formatOf(settings.pixelFormat);
    if (f == nullptr) {
        return 0;
    }
    const quint64 pixels = quint64(settings.width) * settings.height;
    switch (f->storage) {
    case Storage::Bytes:
        return std::size_t(pixels * ((f->code >> 16) & 0xFF) / 8);
    case Storage::Words:
        return std::size_t(pixels * 2);
    case Storage::Packed:
        return std::size_t((pixels * quint64(f->depth) + 7) / 8);
    case Storage::PairsIn3Bytes:
        return std::size_t((pixels * 3 + 1) / 2);
    }
    return 0;
}

void SimulatedImage::render(const SimulatedImageSettings& settings, quint64 frameId, uchar* out)
{
    const Format* format = formatOf(settings.pixelFormat);
    if (format == nullptr || out == nullptr) {
        return;
    }
    Frame f;
    if (!patternOf(settings.testPattern, &f.pattern)) {
        f.pattern = Pattern::Scene;
    }
    f.frameId = frameId;
    f.barStart = (8 * frameId) % 1024;
    f.gainQ16 = brightnessQ16(settings);
    f.binH = qMax<quint32>(1, settings.binningHorizontal);
    f.binV = qMax<quint32>(1, settings.binningVertical);
    f.averageH = settings.binningHorizontalMode == SimulatedImageSettings::Binning::Average;
    f.averageV = settings.binningVerticalMode == SimulatedImageSettings::Binning::Average;

    switch (format->storage) {
    case Storage::Bytes:
        return renderImage<Storage::Bytes>(*format, f, settings, out);
    case Storage::Words:
        return renderImage<Storage::Words>(*format, f, settings, out);
    case Storage::Packed:
        return renderImage<Storage::Packed>(*format, f, settings, out);
    case Storage::PairsIn3Bytes:
        return renderImage<Storage::PairsIn3Bytes>(*format, f, settings, out);
    }
}

} // namespace Backend
