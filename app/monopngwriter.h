#pragma once

#include <acquisition/frame.h>

#include <QImage>
#include <QString>

namespace VantoViewer {

// Saves a monochrome frame as PNG, the way `--grab --save-image` does: 8-bit grey for Mono8,
// 16-bit grey for the deeper Mono formats (in 16-bit containers or packed, unpacked as
// PixelLayout reads them), their values scaled to the full 16 bits. Other formats are refused
// with a reason.
class MonoPngWriter {
public:
    // Null with `error` set when the frame can't be shown as a grey image.
    static QImage toImage(const Plugin::Acquisition::Frame& frame, QString* error);
    static bool save(const Plugin::Acquisition::Frame& frame, const QString& file, QString* error);

private:
    static quint16 widened(quint32 value, int bits);
};

} // namespace VantoViewer
