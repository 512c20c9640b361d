#include "histogram.h"

#include "conversionengine.h"
#include "pixellayout.h"

#include <acquisition/frame.h>

#include <QStringList>

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

// Everything but the values past the top bin follows from the bins, so the loops over the
// pixels only count.
void Histogram::finish()
{
    for (Channel& channel : m_channels) {
        const QVector<quint32>& bins = channel.bins;
        const int top = bins.size() - 1;
        channel.count = 0;
        channel.sum = channel.excess;
        int low = -1;
        int high = -1;
        for (int v = 0; v <= top; ++v) {
            const quint32 n = bins.at(v);
            if (n) {
                low = low < 0 ? v : low;
                high = v;
                channel.count += n;
                channel.sum += quint64(n) * quint64(v);
            }
        }
        channel.minimum = low < 0 ? 0 : quint32(low);
        channel.maximum = high < 0 ? 0 : quint32(high);
        if (channel.excess) {
            channel.maximum = channel.seenMaximum;
        }
    }
}

namespace {

// The channel count is known at compile time, so the loop over a pixel unrolls.
template <int Channels> void countGroups(const uchar* data, quint64 groups, quint32* const bins[4])
{
    for (quint64 g = 0; g < groups; ++g) {
        const uchar* p = data + g * Channels;
        for (int c = 0; c < Channels; ++c) {
            ++bins[c][p[c]];
        }
    }
}

} // namespace

void Histogram::countInterleaved(const uchar* data, quint64 samples, int channels,
                                 const int order[4])
{
    quint32* bins[4] = {};
    for (int i = 0; i < 4; ++i) {
        bins[i] = m_channels[order[i]].bins.data();
    }
    if (channels == 3) {
        countGroups<3>(data, samples / 3, bins);
    } else {
        countGroups<4>(data, samples / 4, bins);
    }
}

// One value per pixel; a Bayer line alternates between two filters, a mono line has one.
void Histogram::countSingleSample(const Frame& frame, const PixelLayout& layout)
{
    const quint32 width = frame.width();
    const quint32 top = layout.maxValue();
    // Only a 16-bit container can carry a value past the format's depth.
    const bool canExceed = layout.packing() == PixelLayout::Words && layout.bitDepth() < 16;
    const bool bayer = layout.kind() == PixelLayout::Bayer;
    std::vector<quint16> row(layout.packing() == PixelLayout::Bytes ? 0 : width);
    for (quint32 y = 0; y < frame.height(); ++y) {
        Channel* phases[2] = {&m_channels[bayer ? layout.cfaChannel(0, y) : 0],
                              &m_channels[bayer ? layout.cfaChannel(1, y) : 0]};
        quint32* bins[2] = {phases[0]->bins.data(), phases[1]->bins.data()};
        if (layout.packing() == PixelLayout::Bytes) {
            const uchar* line = frame.data() + quint64(y) * width;
            for (quint32 x = 0; x < width; ++x) {
                ++bins[x & 1][line[x]];
            }
            continue;
        }
        layout.unpack(frame.data(), quint64(y) * width, width, row.data());
        for (quint32 x = 0; x < width; ++x) {
            quint32 value = row[x];
            if (canExceed && value > top) {
                Channel* channel = phases[x & 1];
                channel->excess += value - top;
                channel->seenMaximum = qMax(channel->seenMaximum, value);
                value = top;
            }
            ++bins[x & 1][value];
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
    const quint64 pixels = quint64(frame.width()) * frame.height();
    switch (layout.kind()) {
    case PixelLayout::Rgb:
    case PixelLayout::Bgr: {
        histogram.addChannels({QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")}, 8);
        const int rgb[4] = {0, 1, 2, 0};
        const int bgr[4] = {2, 1, 0, 0};
        histogram.countInterleaved(frame.data(), pixels * 3, 3,
                                   layout.kind() == PixelLayout::Rgb ? rgb : bgr);
        break;
    }
    case PixelLayout::YCbCr422: {
        // Y0 Cb Y1 Cr: Cb and Cr once per pair.
        histogram.addChannels({QStringLiteral("Y"), QStringLiteral("Cb"), QStringLiteral("Cr")}, 8);
        const int order[4] = {0, 1, 0, 2};
        histogram.countInterleaved(frame.data(), pixels * 2, 4, order);
        break;
    }
    case PixelLayout::Mono:
        histogram.addChannels({QStringLiteral("Mono")}, layout.bitDepth());
        histogram.countSingleSample(frame, layout);
        break;
    case PixelLayout::Bayer:
        histogram.addChannels({QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")},
                              layout.bitDepth());
        histogram.countSingleSample(frame, layout);
        break;
    case PixelLayout::Unsupported:
        break;
    }
    histogram.finish();
    return histogram;
}

} // namespace VantoViewer
