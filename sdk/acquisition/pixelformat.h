#pragma once

#include <QString>
#include <QtGlobal>

namespace Plugin {
namespace Acquisition {

// PFNC pixel format codes of the formats the host streams, converts and saves. The codes are
// the GenICam Pixel Format Naming Convention's; bits 16 to 23 give the bits per pixel.
namespace PixelFormat {
constexpr quint32 Mono8 = 0x01080001;
constexpr quint32 Mono10 = 0x01100003;
constexpr quint32 Mono12 = 0x01100005;
constexpr quint32 Mono16 = 0x01100007;
constexpr quint32 Mono10p = 0x010A0046;
constexpr quint32 Mono12p = 0x010C0047;
constexpr quint32 Mono10Packed = 0x010C0004;
constexpr quint32 Mono12Packed = 0x010C0006;
constexpr quint32 BayerGR8 = 0x01080008;
constexpr quint32 BayerRG8 = 0x01080009;
constexpr quint32 BayerGB8 = 0x0108000A;
constexpr quint32 BayerBG8 = 0x0108000B;
constexpr quint32 BayerGR12 = 0x01100010;
constexpr quint32 BayerRG12 = 0x01100011;
constexpr quint32 BayerGB12 = 0x01100012;
constexpr quint32 BayerBG12 = 0x01100013;
constexpr quint32 BayerGR12p = 0x010C0057;
constexpr quint32 BayerRG12p = 0x010C0059;
constexpr quint32 BayerGB12p = 0x010C0055;
constexpr quint32 BayerBG12p = 0x010C0053;
constexpr quint32 RGB8 = 0x02180014;
constexpr quint32 BGR8 = 0x02180015;
constexpr quint32 YCbCr422_8 = 0x0210003B;

// Bits per pixel, from the code itself.
inline int bitsPerPixel(quint32 pfnc)
{
    return int((pfnc >> 16) & 0xFF);
}

// The PFNC name ("Mono12p"), or the code in hex for a format this table does not know.
QString name(quint32 pfnc);
// The code of a PFNC name; 0 when unknown.
quint32 fromName(const QString& name);
// The payload of a width × height image in this format, in bytes; 0 for an unknown format.
quint64 imageBytes(quint32 pfnc, quint32 width, quint32 height);
} // namespace PixelFormat

} // namespace Acquisition
} // namespace Plugin
