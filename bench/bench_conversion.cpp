// Display conversion of one 2048 × 2048 frame (or the size given as WIDTHxHEIGHT), on one core,
// for Mono8, Mono12p, BayerRG8, RGB8 and YCbCr422_8:
// - FrameConverter::convert, the synchronous call (a fresh engine: contexts and image made anew);
// - the converter's worker path (ConversionEngine kept from frame to frame), and the histogram
//   it computes next to each image;
// - a plain swscale call on the same bytes where swscale reads the format (Mono12p: on the
//   values already unpacked into 16 bits, which swscale can read), and the ratio to it.
// Median of the runs, in ms; printed, never asserted.

#include "conversionengine.h"
#include "frameconverter.h"
#include "histogram.h"
#include "pixellayout.h"

#include <acquisition/frame.h>
#include <acquisition/pixelformat.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

extern "C" {
#include <libswscale/swscale.h>
}

namespace {

using Plugin::Acquisition::Frame;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

const int kRuns = 15;

double medianMs(const std::function<void()>& run)
{
    run(); // warm caches and contexts
    std::vector<double> times;
    for (int i = 0; i < kRuns; ++i) {
        QElapsedTimer timer;
        timer.start();
        run();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

struct Case {
    quint32 format;
    AVPixelFormat swsSource; // AV_PIX_FMT_NONE: swscale does not read the bytes as they are
    AVPixelFormat swsTarget;
};

// A plain swscale conversion of `data`, context made once, as a caller would write it.
std::function<void()> plainSwscale(AVPixelFormat source, AVPixelFormat target, int width,
                                   int height, const uchar* data, int stride,
                                   std::vector<uchar>& out)
{
    const int outStride = width * (target == AV_PIX_FMT_GRAY8 ? 1 : 3);
    out.resize(size_t(outStride) * height + 64);
    std::shared_ptr<SwsContext> context(sws_getContext(width, height, source, width, height, target,
                                                       SWS_POINT, nullptr, nullptr, nullptr),
                                        sws_freeContext);
    return [context, data, stride, &out, outStride, height] {
        const uint8_t* const sources[4] = {data, nullptr, nullptr, nullptr};
        const int strides[4] = {stride, 0, 0, 0};
        uint8_t* const targets[4] = {out.data(), nullptr, nullptr, nullptr};
        const int outStrides[4] = {outStride, 0, 0, 0};
        sws_scale(context.get(), sources, strides, 0, height, targets, outStrides);
    };
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    int width = 2048;
    int height = 2048;
    if (argc > 1) {
        const QStringList size = QString::fromLatin1(argv[1]).split(QLatin1Char('x'));
        width = size.value(0).toInt();
        height = size.value(1).toInt();
    }
    const Case cases[] = {
        {PixelFormat::Mono8, AV_PIX_FMT_GRAY8, AV_PIX_FMT_GRAY8},
        {PixelFormat::Mono12p, AV_PIX_FMT_GRAY12LE, AV_PIX_FMT_GRAY8},
        {PixelFormat::BayerRG8, AV_PIX_FMT_BAYER_RGGB8, AV_PIX_FMT_RGB24},
        {PixelFormat::RGB8, AV_PIX_FMT_RGB24, AV_PIX_FMT_RGB24},
        {PixelFormat::YCbCr422_8, AV_PIX_FMT_YUYV422, AV_PIX_FMT_RGB24},
    };
    std::printf("bench_conversion: %d x %d, median of %d runs, ms per frame\n", width, height,
                kRuns);
    std::printf("%-12s %10s %10s %10s %10s %8s\n", "format", "convert()", "worker", "histogram",
                "swscale", "ratio");
    for (const Case& c : cases) {
        const quint64 bytes = PixelFormat::imageBytes(c.format, width, height);
        // Room after the image for swscale's block reads in the plain call, which reads the
        // bytes as they are; the converter keeps inside the frame by itself.
        QByteArray data(int(bytes) + 64, '\0');
        for (int i = 0; i < data.size(); ++i) {
            data[i] = char((i * 2654435761u) >> 24);
        }
        const Frame frame(width, height, c.format, reinterpret_cast<const uchar*>(data.constData()),
                          std::size_t(bytes), 1, 0, Frame::Complete);
        const VantoViewer::ConversionSettings settings;

        const double once = medianMs([&] {
            QString error;
            VantoViewer::FrameConverter::convert(frame, settings, &error);
        });
        VantoViewer::ConversionEngine engine;
        const double kept = medianMs([&] {
            QString error;
            engine.convert(frame, settings, &error);
        });
        const double histogram = medianMs([&] { VantoViewer::Histogram::compute(frame); });

        // swscale reads packed values only once they are unpacked.
        std::vector<quint16> words;
        const uchar* swsData = frame.data();
        int stride = int(bytes / quint64(height));
        if (c.format == PixelFormat::Mono12p) {
            words.resize(size_t(width) * height);
            VantoViewer::PixelLayout::of(c.format).unpack(frame.data(), 0, words.size(),
                                                          words.data());
            swsData = reinterpret_cast<const uchar*>(words.data());
            stride = width * 2;
        }
        std::vector<uchar> out;
        const double plain =
            medianMs(plainSwscale(c.swsSource, c.swsTarget, width, height, swsData, stride, out));
        std::printf("%-12s %10.2f %10.2f %10.2f %10.2f %8.2f\n",
                    qPrintable(PixelFormat::name(c.format)), once, kept, histogram, plain,
                    kept / plain);
    }
    std::printf("ratio = worker / swscale; the Mono12p swscale figure leaves out the unpacking.\n");
    return 0;
}
