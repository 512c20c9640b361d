#include "monopngwriter.h"

#include "pixellayout.h"

#include <acquisition/pixelformat.h>

#include <cstring>

namespace PixelFormat = Plugin::Acquisition::PixelFormat;

namespace VantoViewer {

quint16 MonoPngWriter::widened(quint32 value, int bits)
{
    // Bit replication: 0 stays 0 and the largest value becomes 0xFFFF.
    if (bits >= 16) {
        return quint16(value);
    }
    return quint16((value << (16 - bits)) | (value >> (2 * bits - 16)));
}

QImage MonoPngWriter::toImage(const Plugin::Acquisition::Frame& frame, QString* error)
{
    const quint32 format = frame.pixelFormat();
    const int width = int(frame.width());
    const int height = int(frame.height());
    const quint64 needed = PixelFormat::imageBytes(format, frame.width(), frame.height());
    const PixelLayout layout = PixelLayout::of(format);
    if (layout.kind() != PixelLayout::Mono) {
        *error = QStringLiteral("frames of pixel format %1 can't be saved as PNG yet")
                     .arg(PixelFormat::name(format));
        return QImage();
    }
    const int bits = layout.bitDepth();
    if (width <= 0 || height <= 0 || needed == 0 || frame.size() < needed) {
        *error = QStringLiteral("the frame holds %1 bytes, a %2 × %3 %4 image needs %5")
                     .arg(frame.size())
                     .arg(width)
                     .arg(height)
                     .arg(PixelFormat::name(format))
                     .arg(needed);
        return QImage();
    }
    const uchar* data = frame.data();
    if (bits == 8) {
        QImage image(width, height, QImage::Format_Grayscale8);
        for (int y = 0; y < height; ++y) {
            std::memcpy(image.scanLine(y), data + std::size_t(y) * std::size_t(width),
                        std::size_t(width));
        }
        return image;
    }
    QImage image(width, height, QImage::Format_Grayscale16);
    // A 16-bit container may carry bits past the format's depth; they are not part of the value.
    const quint16 mask = quint16(layout.maxValue());
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<quint16*>(image.scanLine(y));
        layout.unpack(data, quint64(y) * quint64(width), quint64(width), line);
        for (int x = 0; x < width; ++x) {
            line[x] = widened(line[x] & mask, bits);
        }
    }
    return image;
}

bool MonoPngWriter::save(const Plugin::Acquisition::Frame& frame, const QString& file,
                         QString* error)
{
    const QImage image = toImage(frame, error);
    if (image.isNull()) {
        return false;
    }
    if (!image.save(file, "PNG")) {
        *error = QStringLiteral("the file can't be written");
        return false;
    }
    return true;
}

} // namespace VantoViewer
