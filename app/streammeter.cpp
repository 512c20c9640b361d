#include "streammeter.h"

namespace VantoViewer {

namespace {
constexpr double BYTES_PER_MEGABYTE = 1e6;

// Counters that went down were reset by someone else: nothing is counted twice or negative.
quint64 since(quint64 now, quint64 before)
{
    return now >= before ? now - before : now;
}
} // namespace

quint64 StreamMeter::received(const Plugin::Acquisition::Statistics& statistics)
{
    return statistics.completed + statistics.incomplete;
}

void StreamMeter::reset(const Plugin::Acquisition::Statistics& statistics, quint64 painted,
                        qint64 nowMs)
{
    m_first = statistics;
    m_last = statistics;
    m_firstPainted = painted;
    m_lastPainted = painted;
    m_lastMs = nowMs;
    m_hasRates = false;
    m_receivedFps = 0.0;
    m_displayedFps = 0.0;
    m_megabytesPerSecond = 0.0;
}

void StreamMeter::sample(const Plugin::Acquisition::Statistics& statistics, quint64 painted,
                         qint64 nowMs)
{
    const qint64 elapsedMs = nowMs - m_lastMs;
    if (elapsedMs <= 0) {
        return;
    }
    if (received(statistics) < received(m_first)) {
        // The stream's counters were reset: the dropped frames count from here.
        m_first = Plugin::Acquisition::Statistics();
        m_firstPainted = m_lastPainted;
    }
    const double seconds = elapsedMs / 1000.0;
    m_receivedFps = since(received(statistics), received(m_last)) / seconds;
    m_megabytesPerSecond = since(statistics.bytes, m_last.bytes) / BYTES_PER_MEGABYTE / seconds;
    m_displayedFps = since(painted, m_lastPainted) / seconds;
    m_hasRates = true;
    m_last = statistics;
    m_lastPainted = painted;
    m_lastMs = nowMs;
}

quint64 StreamMeter::droppedForDisplay() const
{
    const quint64 receivedSince = since(received(m_last), received(m_first));
    const quint64 paintedSince = since(m_lastPainted, m_firstPainted);
    return receivedSince > paintedSince ? receivedSince - paintedSince : 0;
}

} // namespace VantoViewer
