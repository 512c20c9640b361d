#pragma once

#include <QString>
#include <QtGlobal>

namespace VantoViewer {

// How the bytes of a PFNC pixel format hold their values: what the converter, the histogram,
// the pixel reader and the snapshot writer agree on. Packed formats are a continuous stream of
// pixels, lines included, as PFNC and GigE Vision lay them out.
class PixelLayout {
public:
    enum Kind {
        Unsupported,
        Mono,
        Bayer,
        Rgb,
        Bgr,
        // Y0 Cb0 Y1 Cr0 per pair of pixels, full-range BT.601 (JPEG) coefficients.
        YCbCr422,
    };
    enum Packing {
        None,
        Bytes,        // one 8-bit value per sample
        Words,        // one little-endian 16-bit container per value, LSB aligned
        Packed10p,    // PFNC: 4 values in 5 bytes, LSB first
        Packed12p,    // PFNC: 2 values in 3 bytes, LSB first
        Packed10Gige, // GigE Vision Mono10Packed: 2 values in 3 bytes, high bits in bytes 0, 2
        Packed12Gige, // GigE Vision Mono12Packed: 2 values in 3 bytes, high bits in bytes 0, 2
    };
    enum Channel { Red = 0, Green = 1, Blue = 2 };

    static PixelLayout of(quint32 pfnc);

    Kind kind() const { return m_kind; }
    Packing packing() const { return m_packing; }
    bool isSupported() const { return m_kind != Unsupported; }
    // One value per pixel (Mono, Bayer): the values can be unpacked into 16-bit words.
    bool isSingleSample() const { return m_kind == Mono || m_kind == Bayer; }
    bool isPacked() const { return m_packing >= Packed10p; }
    // Significant bits of one value: 12 for Mono12 in its 16-bit container and for Mono12p.
    int bitDepth() const { return m_bitDepth; }
    quint32 maxValue() const { return (1u << m_bitDepth) - 1u; }
    // Bayer: the colour filter over pixel (x, y).
    Channel cfaChannel(quint32 x, quint32 y) const { return m_cfa[((y & 1u) << 1) | (x & 1u)]; }

    // Value number `index` (y * width + x) of a single-sample format, as the camera sent it.
    quint32 valueAt(const uchar* data, quint64 index) const;
    // Values first .. first + count - 1 of a single-sample format, into `out`.
    void unpack(const uchar* data, quint64 first, quint64 count, quint16* out) const;

private:
    Kind m_kind = Unsupported;
    Packing m_packing = None;
    int m_bitDepth = 0;
    Channel m_cfa[4] = {Red, Green, Green, Blue};
};

} // namespace VantoViewer
