#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>

typedef struct _ArvGc ArvGc;

namespace Backend {

// What a simulated camera's next image looks like, taken from its features. Everything a
// pixel depends on is here, so that rendering needs no device access and can run on the
// stream's own thread, and so that a test can compute any pixel from the same values.
struct SimulatedImageSettings {
    // How binned sensor pixels combine (BinningHorizontalMode, BinningVerticalMode).
    enum class Binning { Sum, Average };

    quint32 width = 0;
    quint32 height = 0;
    quint32 offsetX = 0;
    quint32 offsetY = 0;
    quint32 binningHorizontal = 1;
    quint32 binningVertical = 1;
    quint32 pixelFormat = 0; // PFNC
    QString testPattern;     // the TestPattern entry's name; "Off" shows the simulated scene
    double exposureUs = 0.0;
    double gainDb = 0.0;
    double frameRateHz = 0.0; // 0: as fast as the consumer takes them
    Binning binningHorizontalMode = Binning::Sum;
    Binning binningVerticalMode = Binning::Sum;
};

// Renders the images of simulated cameras from formulas (documented in the .cpp), bit-exact
// for every supported pixel format.
class SimulatedImage {
public:
    // Device thread: reads the features that exist in `genicam` (Width, Height, OffsetX,
    // OffsetY, BinningHorizontal, BinningVertical and their modes, PixelFormat, TestPattern,
    // ExposureTime, Gain, AcquisitionFrameRate); what a description lacks keeps its default.
    // False with `error` set when the image can't be made: no usable Width, Height or
    // PixelFormat, a pixel format or test pattern that render() does not make.
    static bool settingsOf(ArvGc* genicam, SimulatedImageSettings* settings, QString* error);

    // Whether render() knows the PFNC format, and the format's name in PixelFormat.
    static bool supports(quint32 pixelFormat);
    static QString formatName(quint32 pixelFormat);
    // The PFNC code of the format render() makes under PixelFormat entry `name`; 0 for none.
    static quint32 formatCode(const QString& name);

    // The exposure at which the simulated scene shows its nominal brightness.
    static constexpr double REFERENCE_EXPOSURE_US = 10000.0;

    // Bytes of one image; 0 for an unsupported format.
    static std::size_t payloadSize(const SimulatedImageSettings& settings);

    // Any thread. Fills `out`, which holds payloadSize(settings) bytes, with frame
    // `frameId`'s image. Moving patterns move with frameId.
    static void render(const SimulatedImageSettings& settings, quint64 frameId, uchar* out);
};

} // namespace Backend
