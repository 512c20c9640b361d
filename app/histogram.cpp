#include "histogram.h"

#include "conversionengine.h"
#include "pixellayout.h"

#include <acquisition/frame.h>

#include <QStringList>

#include <utility>
#include <vector>

namespace VantoViewer {

using Plugin::Acquisition::Frame;

namespace {

const QVector<quint32> kNoBins;

} // namespace

QString Histogram::channelName(int channel) const
{
    return m_channels.value(channel).name;
}

const QVector<quint32>& Histogram::bins(int channel) const
{
    return channel >= 0 && channel < m_channels.size() ? m_channels.at(channel).bins : kNoBins;
}

quint64 Histogram::sampleCount(int channel) const
{
    return m_channels.value(channel).count;
}

quint32 Histogram::minimum(int channel) const
{
    return m_channels.value(channel).minimum;
}

quint32 Histogram::maximum(int channel) const
{
    return m_channels.value(channel).maximum;
}

double Histogram::mean(int channel) const
{
    const Channel c = m_channels.value(channel);
    return c.count ? double(c.sum) / double(c.count) : 0.0;
}

void Histogram::addChannels(const QStringList& names, int bitDepth)
{
    m_bitDepth = bitDepth;
    for (const QString& name : names) {
        Channel channel;
        channel.name = name;
        channel.bins = QVector<quint32>(1 << bitDepth, 0);
        m_channels.append(channel);
    }
}

// Minimum and maximum come from the bins; only a value past the top bin, which a 16-bit
// container can carry, needs the maximum seen.
void Histogram::finish()
{
    for (Channel& channel : m_channels) {
        const QVector<quint32>& bins = channel.bins;
        const int top = bins.size() - 1;
        int low = 0;
        while (low <= top && bins.at(low) == 0) {
            ++low;
        }
        int high = top;
        while (high >= 0 && bins.at(high) == 0) {
            --high;
        }
        channel.count = 0;
        for (quint32 n : bins) {
            channel.count += n;
        }
        channel.minimum = low <= top ? quint32(low) : 0;
        channel.maximum = high >= 0 ? quint32(high) : 0;
        if (high == top && channel.seenMaximum > quint32(top)) {
            channel.maximum = channel.seenMaximum;
            if (low == top) {
                channel.minimum = quint32(top);
            }
        }
    }
}

Histogram Histogram::compute(const Frame& frame)
{
    Histogram histogram;
    if (!ConversionEngine::checkFrame(frame).isEmpty()) {
        return histogram;
    }
    const PixelLayout layout = PixelLayout::of(frame.pixelFormat());
    const quint32 width = frame.width();
    const quint32 height = frame.height();
    const uchar* data = frame.data();
    const auto kind = layout.kind();

    if (kind == PixelLayout::Rgb || kind == PixelLayout::Bgr) {
        histogram.addChannels({QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")}, 8);
        quint32* r = histogram.m_channels[0].bins.data();
        quint32* g = histogram.m_channels[1].bins.data();
        quint32* b = histogram.m_channels[2].bins.data();
        if (kind == PixelLayout::Bgr) {
            std::swap(r, b);
        }
        quint64 sums[3] = {0, 0, 0};
        const quint64 pixels = quint64(width) * height;
        for (quint64 i = 0; i < pixels; ++i) {
            const uchar* p = data + 3 * i;
            ++r[p[0]];
            ++g[p[1]];
            ++b[p[2]];
            sums[0] += p[0];
            sums[1] += p[1];
            sums[2] += p[2];
        }
        const int order[3] = {kind == PixelLayout::Bgr ? 2 : 0, 1,
                              kind == PixelLayout::Bgr ? 0 : 2};
        for (int c = 0; c < 3; ++c) {
            histogram.m_channels[order[c]].sum = sums[c];
        }
        histogram.finish();
        return histogram;
    }
    if (kind == PixelLayout::YCbCr422) {
        histogram.addChannels({QStringLiteral("Y"), QStringLiteral("Cb"), QStringLiteral("Cr")}, 8);
        quint32* bins[3] = {histogram.m_channels[0].bins.data(),
                            histogram.m_channels[1].bins.data(),
                            histogram.m_channels[2].bins.data()};
        quint64 sums[3] = {0, 0, 0};
        const quint64 pairs = quint64(width) * height / 2;
        for (quint64 i = 0; i < pairs; ++i) {
            const uchar* p = data + 4 * i;
            ++bins[0][p[0]];
            ++bins[1][p[1]];
            ++bins[0][p[2]];
            ++bins[2][p[3]];
            sums[0] += p[0] + p[2];
            sums[1] += p[1];
            sums[2] += p[3];
        }
        for (int c = 0; c < 3; ++c) {
            histogram.m_channels[c].sum = sums[c];
        }
        histogram.finish();
        return histogram;
    }

    // Mono and Bayer: one value per pixel.
    const bool bayer = kind == PixelLayout::Bayer;
    histogram.addChannels(
        bayer ? QStringList{QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")}
              : QStringList{QStringLiteral("Mono")},
        layout.bitDepth());
    const quint32 top = layout.maxValue();
    std::vector<quint16> row(width);
    for (quint32 y = 0; y < height; ++y) {
        layout.unpack(data, quint64(y) * width, width, row.data());
        // A Bayer line alternates between two filters.
        Channel* even = &histogram.m_channels[bayer ? layout.cfaChannel(0, y) : 0];
        Channel* odd = &histogram.m_channels[bayer ? layout.cfaChannel(1, y) : 0];
        quint32* evenBins = even->bins.data();
        quint32* oddBins = odd->bins.data();
        quint64 sums[2] = {0, 0};
        quint32 maxima[2] = {0, 0};
        for (quint32 x = 0; x < width; ++x) {
            const quint32 value = row[x];
            const quint32 bin = qMin(value, top);
            const quint32 phase = x & 1;
            ++(phase ? oddBins : evenBins)[bin];
            sums[phase] += value;
            maxima[phase] = qMax(maxima[phase], value);
        }
        even->sum += sums[0];
        odd->sum += sums[1];
        even->seenMaximum = qMax(even->seenMaximum, maxima[0]);
        odd->seenMaximum = qMax(odd->seenMaximum, maxima[1]);
    }
    histogram.finish();
    return histogram;
}

} // namespace VantoViewer
