#include "pixellayout.h"

#include <acquisition/pixelformat.h>

namespace VantoViewer {

using namespace Plugin::Acquisition;

namespace {

struct Entry {
    quint32 code;
    PixelLayout::Kind kind;
    PixelLayout::Packing packing;
    int bitDepth;
    const char* cfa; // Bayer: top-left 2 × 2 cell, row by row
};

constexpr Entry kLayouts[] = {
    {PixelFormat::Mono8, PixelLayout::Mono, PixelLayout::Bytes, 8, nullptr},
    {PixelFormat::Mono10, PixelLayout::Mono, PixelLayout::Words, 10, nullptr},
    {PixelFormat::Mono12, PixelLayout::Mono, PixelLayout::Words, 12, nullptr},
    {PixelFormat::Mono16, PixelLayout::Mono, PixelLayout::Words, 16, nullptr},
    {PixelFormat::Mono10p, PixelLayout::Mono, PixelLayout::Packed10p, 10, nullptr},
    {PixelFormat::Mono12p, PixelLayout::Mono, PixelLayout::Packed12p, 12, nullptr},
    {PixelFormat::Mono10Packed, PixelLayout::Mono, PixelLayout::Packed10Gige, 10, nullptr},
    {PixelFormat::Mono12Packed, PixelLayout::Mono, PixelLayout::Packed12Gige, 12, nullptr},
    {PixelFormat::BayerGR8, PixelLayout::Bayer, PixelLayout::Bytes, 8, "GRBG"},
    {PixelFormat::BayerRG8, PixelLayout::Bayer, PixelLayout::Bytes, 8, "RGGB"},
    {PixelFormat::BayerGB8, PixelLayout::Bayer, PixelLayout::Bytes, 8, "GBRG"},
    {PixelFormat::BayerBG8, PixelLayout::Bayer, PixelLayout::Bytes, 8, "BGGR"},
    {PixelFormat::BayerGR12, PixelLayout::Bayer, PixelLayout::Words, 12, "GRBG"},
    {PixelFormat::BayerRG12, PixelLayout::Bayer, PixelLayout::Words, 12, "RGGB"},
    {PixelFormat::BayerGB12, PixelLayout::Bayer, PixelLayout::Words, 12, "GBRG"},
    {PixelFormat::BayerBG12, PixelLayout::Bayer, PixelLayout::Words, 12, "BGGR"},
    {PixelFormat::BayerGR12p, PixelLayout::Bayer, PixelLayout::Packed12p, 12, "GRBG"},
    {PixelFormat::BayerRG12p, PixelLayout::Bayer, PixelLayout::Packed12p, 12, "RGGB"},
    {PixelFormat::BayerGB12p, PixelLayout::Bayer, PixelLayout::Packed12p, 12, "GBRG"},
    {PixelFormat::BayerBG12p, PixelLayout::Bayer, PixelLayout::Packed12p, 12, "BGGR"},
    {PixelFormat::RGB8, PixelLayout::Rgb, PixelLayout::Bytes, 8, nullptr},
    {PixelFormat::BGR8, PixelLayout::Bgr, PixelLayout::Bytes, 8, nullptr},
    {PixelFormat::YCbCr422_8, PixelLayout::YCbCr422, PixelLayout::Bytes, 8, nullptr},
};

PixelLayout::Channel channelOf(char c)
{
    return c == 'R' ? PixelLayout::Red : c == 'G' ? PixelLayout::Green : PixelLayout::Blue;
}

inline quint32 le16(const uchar* p)
{
    return quint32(p[0]) | (quint32(p[1]) << 8);
}

} // namespace

PixelLayout PixelLayout::of(quint32 pfnc)
{
    PixelLayout layout;
    for (const Entry& e : kLayouts) {
        if (e.code != pfnc) {
            continue;
        }
        layout.m_kind = e.kind;
        layout.m_packing = e.packing;
        layout.m_bitDepth = e.bitDepth;
        if (e.cfa) {
            for (int i = 0; i < 4; ++i) {
                layout.m_cfa[i] = channelOf(e.cfa[i]);
            }
        }
        break;
    }
    return layout;
}

quint32 PixelLayout::valueAt(const uchar* data, quint64 index) const
{
    switch (m_packing) {
    case Bytes:
        return data[index];
    case Words:
        return le16(data + 2 * index);
    case Packed10p: {
        const quint64 bit = 10 * index;
        return (le16(data + (bit >> 3)) >> (bit & 7)) & 0x3FFu;
    }
    case Packed12p: {
        const quint64 bit = 12 * index;
        return (le16(data + (bit >> 3)) >> (bit & 7)) & 0xFFFu;
    }
    case Packed10Gige: {
        const uchar* p = data + 3 * (index >> 1);
        return index & 1 ? (quint32(p[2]) << 2) | ((p[1] >> 4) & 0x3u)
                         : (quint32(p[0]) << 2) | (p[1] & 0x3u);
    }
    case Packed12Gige: {
        const uchar* p = data + 3 * (index >> 1);
        return index & 1 ? (quint32(p[2]) << 4) | (p[1] >> 4)
                         : (quint32(p[0]) << 4) | (p[1] & 0xFu);
    }
    case None:
        break;
    }
    return 0;
}

void PixelLayout::unpack(const uchar* data, quint64 first, quint64 count, quint16* out) const
{
    quint64 i = first;
    const quint64 end = first + count;
    switch (m_packing) {
    case Bytes:
        for (; i < end; ++i) {
            *out++ = data[i];
        }
        return;
    case Words:
        for (; i < end; ++i) {
            *out++ = quint16(le16(data + 2 * i));
        }
        return;
    case Packed10p:
        // Whole groups of four values start on a byte; the ragged ends take the slow path.
        for (; i < end && (i & 3); ++i) {
            *out++ = quint16(valueAt(data, i));
        }
        for (; i + 4 <= end; i += 4) {
            const uchar* p = data + (i / 4) * 5;
            *out++ = quint16(p[0] | ((p[1] & 0x03u) << 8));
            *out++ = quint16((p[1] >> 2) | ((p[2] & 0x0Fu) << 6));
            *out++ = quint16((p[2] >> 4) | ((p[3] & 0x3Fu) << 4));
            *out++ = quint16((p[3] >> 6) | (quint32(p[4]) << 2));
        }
        break;
    case Packed12p:
        for (; i < end && (i & 1); ++i) {
            *out++ = quint16(valueAt(data, i));
        }
        for (; i + 2 <= end; i += 2) {
            const uchar* p = data + (i / 2) * 3;
            *out++ = quint16(p[0] | ((p[1] & 0x0Fu) << 8));
            *out++ = quint16((p[1] >> 4) | (quint32(p[2]) << 4));
        }
        break;
    case Packed10Gige:
    case Packed12Gige:
        for (; i < end && (i & 1); ++i) {
            *out++ = quint16(valueAt(data, i));
        }
        if (m_packing == Packed12Gige) {
            for (; i + 2 <= end; i += 2) {
                const uchar* p = data + (i / 2) * 3;
                *out++ = quint16((quint32(p[0]) << 4) | (p[1] & 0x0Fu));
                *out++ = quint16((quint32(p[2]) << 4) | (p[1] >> 4));
            }
        } else {
            for (; i + 2 <= end; i += 2) {
                const uchar* p = data + (i / 2) * 3;
                *out++ = quint16((quint32(p[0]) << 2) | (p[1] & 0x03u));
                *out++ = quint16((quint32(p[2]) << 2) | ((p[1] >> 4) & 0x03u));
            }
        }
        break;
    case None:
        return;
    }
    for (; i < end; ++i) {
        *out++ = quint16(valueAt(data, i));
    }
}

} // namespace VantoViewer
