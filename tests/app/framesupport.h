#pragma once

// Synthetic frames for the conversion tests, packed here bit by bit, independently of the
// unpacking code under test.

#include <acquisition/frame.h>
#include <acquisition/pixelformat.h>

#include <QByteArray>
#include <QTest>
#include <QVector>

#include <functional>
#include <memory>

namespace FrameSupport {

using Plugin::Acquisition::Frame;
using Plugin::Acquisition::FramePtr;
namespace PixelFormat = Plugin::Acquisition::PixelFormat;

inline FramePtr makeFrame(quint32 format, quint32 width, quint32 height, const QByteArray& bytes,
                          quint64 frameId = 1, quint64 timestampNs = 0)
{
    auto storage = std::make_shared<QByteArray>(bytes);
    return std::make_shared<Frame>(
        width, height, format, reinterpret_cast<const uchar*>(storage->constData()),
        std::size_t(storage->size()), frameId, timestampNs, Frame::Complete, storage);
}

// LSB-first bit stream, as PFNC's "p" formats lay values out.
inline QByteArray packLsbFirst(const QVector<quint32>& values, int bits)
{
    QByteArray out(int((qint64(values.size()) * bits + 7) / 8), '\0');
    qint64 bit = 0;
    for (quint32 value : values) {
        for (int b = 0; b < bits; ++b, ++bit) {
            if (value & (1u << b)) {
                out[int(bit / 8)] = char(uchar(out[int(bit / 8)]) | (1u << (bit % 8)));
            }
        }
    }
    return out;
}

// GigE Vision Mono10Packed / Mono12Packed: the high bits of each pair in bytes 0 and 2, the
// low bits of both in byte 1 (first value in the low nibble).
inline QByteArray packGige(const QVector<quint32>& values, int bits)
{
    QByteArray out;
    const int low = bits - 8;
    for (int i = 0; i < values.size(); i += 2) {
        const quint32 a = values.at(i);
        const quint32 b = i + 1 < values.size() ? values.at(i + 1) : 0;
        const quint32 mask = (1u << low) - 1u;
        out.append(char(a >> low));
        out.append(char((a & mask) | ((b & mask) << 4)));
        out.append(char(b >> low));
    }
    return out;
}

inline QByteArray packWords(const QVector<quint32>& values)
{
    QByteArray out;
    for (quint32 value : values) {
        out.append(char(value & 0xFF));
        out.append(char(value >> 8));
    }
    return out;
}

inline QByteArray packBytes(const QVector<quint32>& values)
{
    QByteArray out;
    for (quint32 value : values) {
        out.append(char(value));
    }
    return out;
}

// The bytes of `values` in any single-value-per-pixel format of the table.
inline QByteArray pack(quint32 format, const QVector<quint32>& values)
{
    switch (format) {
    case PixelFormat::Mono10p:
        return packLsbFirst(values, 10);
    case PixelFormat::Mono12p:
    case PixelFormat::BayerGR12p:
    case PixelFormat::BayerRG12p:
    case PixelFormat::BayerGB12p:
    case PixelFormat::BayerBG12p:
        return packLsbFirst(values, 12);
    case PixelFormat::Mono10Packed:
        return packGige(values, 10);
    case PixelFormat::Mono12Packed:
        return packGige(values, 12);
    case PixelFormat::Mono10:
    case PixelFormat::Mono12:
    case PixelFormat::Mono16:
    case PixelFormat::BayerGR12:
    case PixelFormat::BayerRG12:
    case PixelFormat::BayerGB12:
    case PixelFormat::BayerBG12:
        return packWords(values);
    default:
        return packBytes(values);
    }
}

// Significant bits of each value, as PFNC defines the format.
inline int depthOf(quint32 format)
{
    switch (format) {
    case PixelFormat::Mono10:
    case PixelFormat::Mono10p:
    case PixelFormat::Mono10Packed:
        return 10;
    case PixelFormat::Mono16:
        return 16;
    default:
        return PixelFormat::bitsPerPixel(format) == 8 ? 8 : 12;
    }
}

// A data table of formats: columns "format" and "bits", one row per format, named after it.
inline void addFormatRows(std::initializer_list<quint32> formats)
{
    QTest::addColumn<quint32>("format");
    QTest::addColumn<int>("bits");
    for (quint32 format : formats) {
        QTest::newRow(qPrintable(PixelFormat::name(format))) << format << depthOf(format);
    }
}

// Pattern letters of the top-left 2 × 2 cell, row by row.
inline const char* cfaOf(quint32 format)
{
    switch (format) {
    case PixelFormat::BayerGR8:
    case PixelFormat::BayerGR12:
    case PixelFormat::BayerGR12p:
        return "GRBG";
    case PixelFormat::BayerRG8:
    case PixelFormat::BayerRG12:
    case PixelFormat::BayerRG12p:
        return "RGGB";
    case PixelFormat::BayerGB8:
    case PixelFormat::BayerGB12:
    case PixelFormat::BayerGB12p:
        return "GBRG";
    default:
        return "BGGR";
    }
}

struct Rgb {
    quint32 r, g, b;
};

// A Bayer mosaic of the colour field `colour(x, y)`: each pixel keeps its filter's component.
inline QVector<quint32> mosaic(quint32 format, int width, int height,
                               const std::function<Rgb(int, int)>& colour)
{
    const char* cfa = cfaOf(format);
    QVector<quint32> values;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Rgb c = colour(x, y);
            const char f = cfa[(y % 2) * 2 + x % 2];
            values.append(f == 'R' ? c.r : f == 'G' ? c.g : c.b);
        }
    }
    return values;
}

} // namespace FrameSupport
