#include "pixelreader.h"

#include "conversionengine.h"
#include "pixellayout.h"

#include <acquisition/frame.h>

#include <QStringList>

namespace VantoViewer {

using Plugin::Acquisition::Frame;

QString PixelValue::channelName(int channel) const
{
    return channelNames.split(QLatin1Char(' ')).value(channel);
}

QString PixelValue::text() const
{
    if (!valid) {
        return QString();
    }
    if (channelNames == QLatin1String("Mono")) {
        return PixelReader::monoText(values[0], bits);
    }
    const QStringList names = channelNames.split(QLatin1Char(' '));
    QStringList parts;
    for (int i = 0; i < channelCount && i < names.size(); ++i) {
        parts << names.at(i) << QString::number(values[i]);
    }
    return parts.join(QLatin1Char(' '));
}

QString PixelReader::monoText(quint32 value, int bits)
{
    return tr("%1 (%2-bit)").arg(value).arg(bits);
}

PixelValue PixelReader::read(const Frame& frame, int x, int y)
{
    PixelValue pixel;
    if (x < 0 || y < 0 || quint32(x) >= frame.width() || quint32(y) >= frame.height() ||
        !ConversionEngine::checkFrame(frame).isEmpty()) {
        return pixel;
    }
    const PixelLayout layout = PixelLayout::of(frame.pixelFormat());
    const quint64 index = quint64(y) * frame.width() + quint64(x);
    const uchar* data = frame.data();
    pixel.bits = layout.bitDepth();
    pixel.valid = true;
    switch (layout.kind()) {
    case PixelLayout::Mono:
        pixel.channelCount = 1;
        pixel.channelNames = QStringLiteral("Mono");
        pixel.values[0] = layout.valueAt(data, index);
        break;
    case PixelLayout::Bayer: {
        static const char* const kNames[] = {"R", "G", "B"};
        pixel.channelCount = 1;
        pixel.channelNames = QLatin1String(kNames[layout.cfaChannel(quint32(x), quint32(y))]);
        pixel.values[0] = layout.valueAt(data, index);
        break;
    }
    case PixelLayout::Rgb:
    case PixelLayout::Bgr: {
        const bool bgr = layout.kind() == PixelLayout::Bgr;
        const uchar* p = data + 3 * index;
        pixel.channelCount = 3;
        pixel.channelNames = QStringLiteral("R G B");
        pixel.values[0] = p[bgr ? 2 : 0];
        pixel.values[1] = p[1];
        pixel.values[2] = p[bgr ? 0 : 2];
        break;
    }
    case PixelLayout::YCbCr422: {
        // Y0 Cb Y1 Cr: both pixels of a pair share Cb and Cr.
        const uchar* p = data + 4 * (index / 2);
        pixel.channelCount = 3;
        pixel.channelNames = QStringLiteral("Y Cb Cr");
        pixel.values[0] = p[index & 1 ? 2 : 0];
        pixel.values[1] = p[1];
        pixel.values[2] = p[3];
        break;
    }
    case PixelLayout::Unsupported:
        pixel.valid = false;
        break;
    }
    return pixel;
}

} // namespace VantoViewer
