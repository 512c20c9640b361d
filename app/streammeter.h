#pragma once

#include <acquisition/iacquisition.h>

#include <QtGlobal>

namespace VantoViewer {

// The rates of one stream and its display, from two successive samples of the stream's
// counters and the view's count of painted images. Counts only what it is given: frames the
// stream counted and images the view painted.
class StreamMeter {
public:
    // Starts over: later rates and the frames dropped for display count from here.
    void reset(const Plugin::Acquisition::Statistics& statistics, quint64 painted, qint64 nowMs);
    // The rates over the time since the previous sample (or the reset).
    void sample(const Plugin::Acquisition::Statistics& statistics, quint64 painted, qint64 nowMs);

    bool hasRates() const { return m_hasRates; }
    double receivedFps() const { return m_receivedFps; }
    double displayedFps() const { return m_displayedFps; }
    // Payload bytes received per second, in MB (10^6 bytes).
    double megabytesPerSecond() const { return m_megabytesPerSecond; }
    // As the stream counted them.
    quint64 incomplete() const { return m_last.incomplete; }
    // Frames received since the reset that the view never painted: a display slower than the
    // stream skips them, the stream does not.
    quint64 droppedForDisplay() const;

private:
    static quint64 received(const Plugin::Acquisition::Statistics& statistics);

    Plugin::Acquisition::Statistics m_first;
    Plugin::Acquisition::Statistics m_last;
    quint64 m_firstPainted = 0;
    quint64 m_lastPainted = 0;
    qint64 m_lastMs = 0;
    bool m_hasRates = false;
    double m_receivedFps = 0.0;
    double m_displayedFps = 0.0;
    double m_megabytesPerSecond = 0.0;
};

} // namespace VantoViewer
