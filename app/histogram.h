#pragma once

#include <acquisition/frame.h>

#include <QMetaType>
#include <QStringList>
#include <QVector>

namespace VantoViewer {

class PixelLayout;

// The distribution of a frame's raw values, per channel, in the camera's own units: a 12-bit
// format counts 0..4095, whatever container or packing carried it. Bayer frames count each
// colour of the filter apart (the two greens together); YCbCr 4:2:2 counts Cb and Cr once
// per pair of pixels.
//
// One bin per raw value: 2^bitDepth() bins per channel (256 for 8 bits, 65536 for 16).
class Histogram {
public:
    // Empty (no channels) for a frame whose format or size can't be read.
    static Histogram compute(const Plugin::Acquisition::Frame& frame);

    bool isEmpty() const { return m_channels.isEmpty(); }
    int channelCount() const { return m_channels.size(); }
    // "Mono"; "R", "G", "B" (colour and Bayer); "Y", "Cb", "Cr".
    QString channelName(int channel) const;
    int bitDepth() const { return m_bitDepth; }
    // Values beyond the depth (a 16-bit container can hold them) count in the top bin;
    // minimum, maximum and mean use the values as they are.
    const QVector<quint32>& bins(int channel) const;
    quint64 sampleCount(int channel) const;
    quint32 minimum(int channel) const;
    quint32 maximum(int channel) const;
    double mean(int channel) const;

private:
    struct Channel {
        QString name;
        QVector<quint32> bins;
        quint64 count = 0;
        quint64 sum = 0;
        quint32 minimum = 0;
        quint32 maximum = 0;
        // Values past the top bin: how far past in all, and the largest.
        quint64 excess = 0;
        quint32 seenMaximum = 0;
    };

    void addChannels(const QStringList& names, int bitDepth);
    void countInterleaved(const uchar* data, quint64 samples, int channels, const int order[4]);
    void countSingleSample(const Plugin::Acquisition::Frame& frame, const PixelLayout& layout);
    void finish();

    QVector<Channel> m_channels;
    int m_bitDepth = 0;
};

} // namespace VantoViewer

Q_DECLARE_METATYPE(VantoViewer::Histogram)
