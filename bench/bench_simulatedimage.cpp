// What a simulated camera's frame costs to make: each pixel format of the built-in camera at
// its full 1920 x 1200, the simulated scene, plain and binned 2 x 2. Printed as milliseconds a
// frame, the frame rate that leaves, and the ratio to filling the same bytes with memset in the
// same run; never fails on a number.

#include <simulatedimage.h>

#include <acquisition/pixelformat.h>

#include <QElapsedTimer>

#include <cstdio>
#include <cstring>
#include <vector>

using Backend::SimulatedImage;
using Backend::SimulatedImageSettings;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

namespace {

const int kFrames = 10;

double millisecondsPerFrame(const SimulatedImageSettings& settings, std::vector<uchar>& out)
{
    QElapsedTimer timer;
    timer.start();
    for (int frame = 0; frame < kFrames; ++frame) {
        SimulatedImage::render(settings, quint64(frame), out.data());
    }
    return double(timer.nsecsElapsed()) / 1e6 / kFrames;
}

double memsetMillisecondsPerFrame(std::vector<uchar>& out)
{
    QElapsedTimer timer;
    timer.start();
    for (int frame = 0; frame < kFrames; ++frame) {
        std::memset(out.data(), frame, out.size());
    }
    return double(timer.nsecsElapsed()) / 1e6 / kFrames;
}

} // namespace

int main()
{
    const quint32 formats[] = {
        PixelFormat::Mono8,      PixelFormat::Mono12, PixelFormat::Mono12p,   PixelFormat::BayerRG8,
        PixelFormat::BayerRG12p, PixelFormat::RGB8,   PixelFormat::YCbCr422_8};
    std::printf("%-12s %8s %10s %8s %10s %10s\n", "format", "binning", "MB/frame", "ms", "fps",
                "x memset");
    for (quint32 binning : {1u, 2u}) {
        for (quint32 format : formats) {
            SimulatedImageSettings s;
            s.width = 1920 / binning;
            s.height = 1200 / binning;
            s.binningHorizontal = s.binningVertical = binning;
            s.pixelFormat = format;
            s.testPattern = QStringLiteral("Off");
            s.exposureUs = SimulatedImage::REFERENCE_EXPOSURE_US;
            std::vector<uchar> out(SimulatedImage::payloadSize(s));
            const double ms = millisecondsPerFrame(s, out);
            const double baseline = memsetMillisecondsPerFrame(out);
            std::printf("%-12s %6ux%u %10.2f %8.2f %10.1f %10.1f\n",
                        qPrintable(SimulatedImage::formatName(format)), binning, binning,
                        double(out.size()) / 1e6, ms, 1000.0 / ms, ms / qMax(baseline, 1e-6));
        }
    }
    return 0;
}
