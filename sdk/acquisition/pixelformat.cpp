#include "pixelformat.h"

#include <iterator>

namespace Plugin {
namespace Acquisition {
namespace PixelFormat {

namespace {

struct Entry {
    quint32 code;
    const char* name;
};

constexpr Entry kFormats[] = {
    {Mono8, "Mono8"},
    {Mono10, "Mono10"},
    {Mono12, "Mono12"},
    {Mono16, "Mono16"},
    {Mono10p, "Mono10p"},
    {Mono12p, "Mono12p"},
    {Mono10Packed, "Mono10Packed"},
    {Mono12Packed, "Mono12Packed"},
    {BayerGR8, "BayerGR8"},
    {BayerRG8, "BayerRG8"},
    {BayerGB8, "BayerGB8"},
    {BayerBG8, "BayerBG8"},
    {BayerGR12, "BayerGR12"},
    {BayerRG12, "BayerRG12"},
    {BayerGB12, "BayerGB12"},
    {BayerBG12, "BayerBG12"},
    {BayerGR12p, "BayerGR12p"},
    {BayerRG12p, "BayerRG12p"},
    {BayerGB12p, "BayerGB12p"},
    {BayerBG12p, "BayerBG12p"},
    {RGB8, "RGB8"},
    {BGR8, "BGR8"},
    {YCbCr422_8, "YCbCr422_8"},
};

} // namespace

QString name(quint32 pfnc)
{
    for (const Entry& e : kFormats) {
        if (e.code == pfnc)
            return QString::fromLatin1(e.name);
    }
    return QStringLiteral("0x%1").arg(pfnc, 8, 16, QLatin1Char('0'));
}

quint32 fromName(const QString& name)
{
    for (const Entry& e : kFormats) {
        if (name == QLatin1String(e.name))
            return e.code;
    }
    return 0;
}

quint64 imageBytes(quint32 pfnc, quint32 width, quint32 height)
{
    bool known = false;
    for (const Entry& e : kFormats)
        known = known || e.code == pfnc;
    if (!known)
        return 0;
    // Packed formats fill whole bytes per line pair at most; PFNC rounds the total up.
    const quint64 bits = quint64(width) * height * quint64(bitsPerPixel(pfnc));
    return (bits + 7) / 8;
}

} // namespace PixelFormat
} // namespace Acquisition
} // namespace Plugin
