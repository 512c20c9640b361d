#include "conversionengine.h"

#include "pixellayout.h"

#include <acquisition/frame.h>
#include <acquisition/pixelformat.h>

#include <QtMath>

#include <cstdlib>
#include <cstring>

extern "C" {
#include <libavutil/pixfmt.h>
#include <libswscale/swscale.h>
}

namespace VantoViewer {

using Plugin::Acquisition::Frame;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

namespace {

AVPixelFormat bayerFormat(const PixelLayout& layout, bool deep)
{
    // The filter over the top-left pixel and its right neighbour name the pattern.
    const auto first = layout.cfaChannel(0, 0);
    const auto second = layout.cfaChannel(1, 0);
    if (first == PixelLayout::Red) {
        return deep ? AV_PIX_FMT_BAYER_RGGB16LE : AV_PIX_FMT_BAYER_RGGB8;
    }
    if (first == PixelLayout::Blue) {
        return deep ? AV_PIX_FMT_BAYER_BGGR16LE : AV_PIX_FMT_BAYER_BGGR8;
    }
    if (second == PixelLayout::Red) {
        return deep ? AV_PIX_FMT_BAYER_GRBG16LE : AV_PIX_FMT_BAYER_GRBG8;
    }
    return deep ? AV_PIX_FMT_BAYER_GBRG16LE : AV_PIX_FMT_BAYER_GBRG8;
}

// swscale's vector code reads and writes whole blocks, up to a block past the end of a line.
// The buffers made here leave that room after every line and after the last one.
constexpr int kPadding = 64;

int paddedStride(int bytes)
{
    return (bytes + kPadding - 1) / kPadding * kPadding + kPadding;
}

uchar gammaValue(double normalised, double gamma)
{
    return uchar(qBound(0.0, std::round(255.0 * std::pow(normalised, gamma)), 255.0));
}

} // namespace

ConversionEngine::ConversionEngine() = default;

ConversionEngine::~ConversionEngine()
{
    sws_freeContext(m_first.context);
    sws_freeContext(m_second.context);
}

QString ConversionEngine::checkFrame(const Frame& frame)
{
    const quint32 format = frame.pixelFormat();
    const PixelLayout layout = PixelLayout::of(format);
    const QString name = PixelFormat::name(format);
    if (!layout.isSupported()) {
        return tr("Pixel format %1 can't be shown.").arg(name);
    }
    if (frame.width() == 0 || frame.height() == 0 || !frame.data()) {
        return tr("The %1 frame holds no image (%2 × %3).")
            .arg(name)
            .arg(frame.width())
            .arg(frame.height());
    }
    if (frame.width() > 32767 || frame.height() > 32767) {
        return tr("A frame of %1 × %2 is too large to be shown.")
            .arg(frame.width())
            .arg(frame.height());
    }
    const quint64 needed = PixelFormat::imageBytes(format, frame.width(), frame.height());
    if (frame.size() < needed) {
        return tr("The frame holds %1 bytes; a %2 × %3 %4 image needs %5.")
            .arg(frame.size())
            .arg(frame.width())
            .arg(frame.height())
            .arg(name)
            .arg(needed);
    }
    // swscale demosaics two lines at a time and YCbCr 4:2:2 shares its colour by pairs.
    if (layout.kind() == PixelLayout::Bayer && (frame.width() % 2 || frame.height() % 2)) {
        return tr("%1 needs an even width and height; the frame is %2 × %3.")
            .arg(name)
            .arg(frame.width())
            .arg(frame.height());
    }
    if (layout.kind() == PixelLayout::YCbCr422 && frame.width() % 2) {
        return tr("%1 needs an even width; the frame is %2 × %3.")
            .arg(name)
            .arg(frame.width())
            .arg(frame.height());
    }
    return QString();
}

QString ConversionEngine::noMemoryText(int width, int height)
{
    return tr("There is no memory for an image of %1 × %2.").arg(width).arg(height);
}

QImage ConversionEngine::convert(const Frame& frame, const ConversionSettings& settings,
                                 QString* error)
{
    const QString problem = checkFrame(frame);
    if (!problem.isEmpty()) {
        if (error) {
            *error = problem;
        }
        return QImage();
    }
    const PixelLayout layout = PixelLayout::of(frame.pixelFormat());
    const bool grey =
        layout.kind() == PixelLayout::Mono || settings.outputFormat == ConversionSettings::Mono8;
    // Written through the slot itself: a copy would share it and detach on the first write.
    QImage& image = outputImage(int(frame.width()), int(frame.height()),
                                grey ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    if (image.isNull()) {
        if (error) {
            *error = noMemoryText(int(frame.width()), int(frame.height()));
        }
        return QImage();
    }
    if (layout.kind() == PixelLayout::Mono) {
        convertMono(frame, layout, settings.gamma, image);
        return image;
    }
    if (!convertColour(frame, layout, image)) {
        if (error) {
            *error = tr("The conversion of %1 failed.").arg(PixelFormat::name(frame.pixelFormat()));
        }
        return QImage();
    }
    applyGamma(image, settings.gamma);
    return image;
}

QImage& ConversionEngine::outputImage(int width, int height, QImage::Format format)
{
    for (QImage& image : m_images) {
        if (image.width() == width && image.height() == height && image.format() == format &&
            image.isDetached()) {
            return image;
        }
    }
    QImage& slot = m_images[m_nextImage];
    m_nextImage = (m_nextImage + 1) % 2;
    slot = QImage();
    const int stride = paddedStride(width * (format == QImage::Format_RGB888 ? 3 : 1));
    auto* buffer = static_cast<uchar*>(std::malloc(size_t(stride) * size_t(height) + kPadding));
    if (buffer) {
        slot = QImage(
            buffer, width, height, stride, format, [](void* data) { std::free(data); }, buffer);
    }
    return slot;
}

// The mono path is a lookup from the raw value to the grey level, scaled by the format's own
// depth: exact, and the gamma curve works on all the bits the camera sent. (swscale dithers
// when it drops bits, so the grey level would not follow from the value alone.)
void ConversionEngine::convertMono(const Frame& frame, const PixelLayout& layout, double gamma,
                                   QImage& image)
{
    const int width = int(frame.width());
    const int height = int(frame.height());
    if (layout.packing() == PixelLayout::Bytes && gamma == 1.0) {
        for (int y = 0; y < height; ++y) {
            std::memcpy(image.scanLine(y), frame.data() + quint64(y) * width, size_t(width));
        }
        return;
    }
    const uchar* table = monoTable(layout.bitDepth(), gamma);
    if (layout.packing() == PixelLayout::Bytes) {
        for (int y = 0; y < height; ++y) {
            const uchar* in = frame.data() + quint64(y) * width;
            uchar* out = image.scanLine(y);
            for (int x = 0; x < width; ++x) {
                out[x] = table[in[x]];
            }
        }
        return;
    }
    m_row.resize(size_t(width));
    for (int y = 0; y < height; ++y) {
        layout.unpack(frame.data(), quint64(y) * width, quint64(width), m_row.data());
        uchar* out = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            out[x] = table[m_row[size_t(x)]];
        }
    }
}

// Values beyond the format's depth (a 16-bit container holds them, a camera should not send
// them) show as white.
const uchar* ConversionEngine::monoTable(int bitDepth, double gamma)
{
    if (m_monoTableDepth == bitDepth && m_monoTableGamma == gamma) {
        return m_monoTable.data();
    }
    const int size = bitDepth > 8 ? 65536 : 256;
    const double top = double((1u << bitDepth) - 1u);
    m_monoTable.resize(size_t(size));
    for (int v = 0; v < size; ++v) {
        m_monoTable[size_t(v)] = v >= top ? 255 : gammaValue(v / top, gamma);
    }
    m_monoTableDepth = bitDepth;
    m_monoTableGamma = gamma;
    return m_monoTable.data();
}

bool ConversionEngine::convertColour(const Frame& frame, const PixelLayout& layout, QImage& image)
{
    const int width = int(frame.width());
    const int height = int(frame.height());
    const bool grey = image.format() == QImage::Format_Grayscale8;
    const int target = grey ? AV_PIX_FMT_GRAY8 : AV_PIX_FMT_RGB24;
    const uchar* data = frame.data();

    if (layout.kind() == PixelLayout::Rgb && !grey) {
        for (int y = 0; y < height; ++y) {
            std::memcpy(image.scanLine(y), data + quint64(y) * width * 3, size_t(width) * 3);
        }
        return true;
    }
    const Targets out = {{image.bits(), nullptr, nullptr, nullptr},
                         {int(image.bytesPerLine()), 0, 0, 0}};
    if (layout.kind() == PixelLayout::Rgb || layout.kind() == PixelLayout::Bgr) {
        const int source = layout.kind() == PixelLayout::Rgb ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_BGR24;
        return scaleFrame(m_first, source, data, width * 3, target, out, width, height);
    }
    if (layout.kind() == PixelLayout::YCbCr422) {
        return convertYCbCr(data, width, height, image);
    }

    // Bayer. Deeper values are widened to the full 16 bits that swscale's 16-bit patterns
    // expect, by the format's own depth: 4095 in a 12-bit format becomes 65535.
    Planes in = {{data, nullptr, nullptr, nullptr}, {width, 0, 0, 0}};
    const bool deep = layout.bitDepth() > 8;
    if (deep) {
        const quint64 count = quint64(width) * height;
        m_words.resize(count + kPadding);
        layout.unpack(data, 0, count, m_words.data());
        const quint32 top = layout.maxValue();
        const int up = 16 - layout.bitDepth();
        const int down = layout.bitDepth() - up;
        for (quint64 i = 0; i < count; ++i) {
            const quint32 value = qMin<quint32>(m_words[i], top);
            m_words[i] = quint16((value << up) | (value >> down));
        }
        in = {{reinterpret_cast<const uint8_t*>(m_words.data()), nullptr, nullptr, nullptr},
              {width * 2, 0, 0, 0}};
    }
    // The demosaicing reads the lines it converts and their neighbours only, in plain code.
    const int source = bayerFormat(layout, deep);
    if (!grey) {
        return scale(m_first, source, in, AV_PIX_FMT_RGB24, out, width, height);
    }
    // swscale demosaics into RGB only; the grey image is that RGB image's luminance.
    const int rgbStride = paddedStride(width * 3);
    m_rgb.resize(size_t(rgbStride) * height + kPadding);
    const Targets rgb = {{m_rgb.data(), nullptr, nullptr, nullptr}, {rgbStride, 0, 0, 0}};
    const Planes rgbIn = {{m_rgb.data(), nullptr, nullptr, nullptr}, {rgbStride, 0, 0, 0}};
    return scale(m_first, source, in, AV_PIX_FMT_RGB24, rgb, width, height) &&
           scale(m_second, AV_PIX_FMT_RGB24, rgbIn, AV_PIX_FMT_GRAY8, out, width, height);
}

// swscale reads interleaved YCbCr 4:2:2 in its slow general path (about 30 ms for 4 MP
// here); split into planes first, it takes its fast table path (about 4 ms), the split itself
// costing as much again. Each pixel pair keeps its own Cb and Cr, as the camera sent them.
bool ConversionEngine::convertYCbCr(const uchar* data, int width, int height, QImage& image)
{
    const int lumaStride = paddedStride(width);
    const int chromaStride = paddedStride(width / 2);
    const size_t luma = size_t(lumaStride) * height;
    const size_t chroma = size_t(chromaStride) * height;
    m_planes.resize(luma + 2 * chroma + kPadding);
    uint8_t* planes = m_planes.data();
    const Targets split = {{planes, planes + luma, planes + luma + chroma, nullptr},
                           {lumaStride, chromaStride, chromaStride, 0}};
    if (!scaleFrame(m_first, AV_PIX_FMT_YUYV422, data, width * 2, AV_PIX_FMT_YUV422P, split, width,
                    height)) {
        return false;
    }
    if (image.format() == QImage::Format_Grayscale8) {
        // Full-range Y is the grey level itself.
        for (int y = 0; y < height; ++y) {
            std::memcpy(image.scanLine(y), planes + size_t(y) * lumaStride, size_t(width));
        }
        return true;
    }
    const Planes in = {{planes, planes + luma, planes + luma + chroma, nullptr},
                       {lumaStride, chromaStride, chromaStride, 0}};
    const Targets out = {{image.bits(), nullptr, nullptr, nullptr},
                         {int(image.bytesPerLine()), 0, 0, 0}};
    return scale(m_second, AV_PIX_FMT_YUV422P, in, AV_PIX_FMT_RGB24, out, width, height);
}

SwsContext* ConversionEngine::context(Step& step, int source, int target, int width, int height)
{
    if (step.context && step.width == width && step.height == height && step.source == source &&
        step.target == target) {
        return step.context;
    }
    sws_freeContext(step.context);
    step = Step();
    step.context = sws_getContext(width, height, AVPixelFormat(source), width, height,
                                  AVPixelFormat(target), SWS_POINT, nullptr, nullptr, nullptr);
    if (step.context) {
        // PFNC's YCbCr is JPEG's full range; grey output keeps the full range too.
        const int* coefficients = sws_getCoefficients(SWS_CS_ITU601);
        sws_setColorspaceDetails(step.context, coefficients, 1, coefficients, 1, 0, 1 << 16,
                                 1 << 16);
        step.width = width;
        step.height = height;
        step.source = source;
        step.target = target;
    }
    return step.context;
}

bool ConversionEngine::scale(Step& step, int source, const Planes& in, int target,
                             const Targets& out, int width, int height)
{
    SwsContext* sws = context(step, source, target, width, height);
    return sws && sws_scale(sws, in.data, in.strides, 0, height, out.data, out.strides) == height;
}

// The frame's buffer may end with its last line: the last lines go through a padded copy so
// that swscale's block reads stay inside memory that is ours.
bool ConversionEngine::scaleFrame(Step& step, int source, const uchar* data, int stride, int target,
                                  const Targets& out, int width, int height)
{
    SwsContext* sws = context(step, source, target, width, height);
    if (!sws) {
        return false;
    }
    const int tail = qMin(height, 2);
    const int head = height - tail;
    int done = 0;
    if (head > 0) {
        const Planes in = {{data, nullptr, nullptr, nullptr}, {stride, 0, 0, 0}};
        done += sws_scale(sws, in.data, in.strides, 0, head, out.data, out.strides);
    }
    const int tailStride = paddedStride(stride);
    m_tail.resize(size_t(tailStride) * tail + kPadding);
    for (int y = 0; y < tail; ++y) {
        std::memcpy(m_tail.data() + size_t(y) * tailStride, data + size_t(head + y) * stride,
                    size_t(stride));
    }
    const Planes last = {{m_tail.data(), nullptr, nullptr, nullptr}, {tailStride, 0, 0, 0}};
    done += sws_scale(sws, last.data, last.strides, head, tail, out.data, out.strides);
    return done == height;
}

void ConversionEngine::applyGamma(QImage& image, double gamma)
{
    if (gamma == 1.0) {
        return;
    }
    if (m_gammaTableGamma != gamma) {
        for (int v = 0; v < 256; ++v) {
            m_gammaTable[size_t(v)] = gammaValue(v / 255.0, gamma);
        }
        m_gammaTableGamma = gamma;
    }
    const int bytes = image.width() * (image.format() == QImage::Format_RGB888 ? 3 : 1);
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < bytes; ++x) {
            line[x] = m_gammaTable[line[x]];
        }
    }
}

} // namespace VantoViewer
