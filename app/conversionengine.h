#pragma once

#include "conversionsettings.h"

#include <acquisition/frame.h>

#include <QCoreApplication>
#include <QImage>
#include <QString>

#include <array>
#include <cstdint>
#include <vector>

struct SwsContext;

namespace VantoViewer {

class PixelLayout;

// Turns frames into images for the screen, keeping what one frame needs for the next: the
// swscale contexts, the unpacking buffers, the lookup tables and the output images nobody
// holds any more. One engine serves one thread.
class ConversionEngine {
    Q_DECLARE_TR_FUNCTIONS(VantoViewer::ConversionEngine)

public:
    ConversionEngine();
    ~ConversionEngine();
    ConversionEngine(const ConversionEngine&) = delete;
    ConversionEngine& operator=(const ConversionEngine&) = delete;

    // QImage::Format_Grayscale8 or Format_RGB888; a null image and `error` set when the frame
    // can't be shown.
    QImage convert(const Plugin::Acquisition::Frame& frame, const ConversionSettings& settings,
                   QString* error);

    // Why the frame can't be converted, or empty when it can.
    static QString checkFrame(const Plugin::Acquisition::Frame& frame);
    static QString noMemoryText(int width, int height);

private:
    struct Step {
        SwsContext* context = nullptr;
        int width = 0;
        int height = 0;
        int source = -1;
        int target = -1;
    };

    QImage& outputImage(int width, int height, QImage::Format format);
    void convertMono(const Plugin::Acquisition::Frame& frame, const PixelLayout& layout,
                     double gamma, QImage& image);
    bool convertColour(const Plugin::Acquisition::Frame& frame, const PixelLayout& layout,
                       QImage& image);
    bool convertYCbCr(const uchar* data, int width, int height, QImage& image);
    struct Planes {
        const uint8_t* data[4];
        int strides[4];
    };
    struct Targets {
        uint8_t* data[4];
        int strides[4];
    };
    SwsContext* context(Step& step, int source, int target, int width, int height);
    bool scale(Step& step, int source, const Planes& in, int target, const Targets& out, int width,
               int height);
    bool scaleFrame(Step& step, int source, const uchar* data, int stride, int target,
                    const Targets& out, int width, int height);
    const uchar* monoTable(int bitDepth, double gamma);
    void applyGamma(QImage& image, double gamma);

    Step m_first;
    Step m_second;
    std::vector<quint16> m_words;
    std::vector<uchar> m_rgb;
    std::vector<uchar> m_planes;
    std::vector<uchar> m_tail;
    std::vector<quint16> m_row;
    std::vector<uchar> m_monoTable;
    int m_monoTableDepth = -1;
    double m_monoTableGamma = 0.0;
    std::array<uchar, 256> m_gammaTable{};
    double m_gammaTableGamma = 0.0;
    // Two, so that the next frame converts while the screen still shows the last one.
    QImage m_images[2];
    int m_nextImage = 0;
};

} // namespace VantoViewer
