#include "monopngwriter.h"

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
    int bits = 0;
    bool packed = false;
    switch (format) {
    case PixelFormat::Mono8:
        bits = 8;
        break;
    case PixelFormat::Mono10:
        bits = 10;
        break;
    case PixelFormat::Mono12:
        bits = 12;
        break;
    case PixelFormat::Mono16:
        bits = 16;
        break;
    case PixelFormat::Mono10p:
        bits = 10;
        packed = true;
        break;
    case PixelFormat::Mono12p:
        bits = 12;
        packed = true;
        break;
    default:
        *error = QStringLiteral("frames of pixel format %1 can't be saved as PNG yet")
                     .arg(PixelFormat::name(format));
        return QImage();
    }
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
    const quint32 mask = (1u << bits) - 1u;
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<quint16*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const quint64 index = quint64(y) * quint64(width) + quint64(x);
            quint32 value = 0;
            if (packed) {
                // GenICam's "p" formats: the pixels follow each other in a little-endian bit
                // stream, without padding.
                const quint64 bit = index * quint64(bits);
                const quint64 byte = bit / 8;
                quint32 window = 0;
                for (int k = 0; k < 3 && byte + quint64(k) < frame.size(); ++k) {
                    window |= quint32(data[byte + quint64(k)]) << (8 * k);
                }
                value = (window >> (bit % 8)) & mask;
            } else {
                value = (quint32(data[2 * index]) | (quint32(data[2 * index + 1]) << 8)) & mask;
            }
            line[x] = widened(value, bits);
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
