#pragma once

#include <acquisition/frame.h>

#include <QCoreApplication>
#include <QString>

namespace VantoViewer {

// One pixel's raw values in the camera's units, unpacked from whatever carried them.
struct PixelValue {
    int channelCount = 0;
    // Space separated, one per value: "Mono"; "R G B"; "Y Cb Cr"; a Bayer pixel's own filter
    // colour ("G").
    QString channelNames;
    quint32 values[3] = {0, 0, 0};
    int bits = 0;
    bool valid = false;

    QString channelName(int channel) const;
    // "1234 (12-bit)", "R 12 G 200 B 3", "G 1234", "Y 80 Cb 128 Cr 128"; empty when not valid.
    QString text() const;
};

class PixelReader {
    Q_DECLARE_TR_FUNCTIONS(VantoViewer::PixelReader)

public:
    // Not valid outside the frame or for a frame whose format or size can't be read.
    static PixelValue read(const Plugin::Acquisition::Frame& frame, int x, int y);

private:
    friend struct PixelValue;
    static QString monoText(quint32 value, int bits);
};

} // namespace VantoViewer
