#pragma once

#include "framepool.h"
#include "stream.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <thread>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvStream ArvStream;
typedef struct _ArvBuffer ArvBuffer;

namespace Backend {

class FrameSink;
struct StreamCounters;

// The stream of a GigE Vision or USB3 Vision device: Aravis's ArvStream, with buffers that
// this class allocates once per open. Frames refer to the ArvBuffer's bytes (no copy); a
// buffer goes back to the stream once no consumer holds its frame. A thread of our own pops
// the buffers, hands them out and takes the released ones back.
class AravisStream : public Stream {
public:
    // How long a pop waits before the thread looks for released buffers anyway.
    static constexpr quint64 POP_TIMEOUT_US = 20000;
    // Fewer buffers than this waiting in the stream, and those that consumers keep are
    // replaced.
    static constexpr int MIN_QUEUED_BUFFERS = 2;

    AravisStream(ArvDevice* device, std::shared_ptr<FrameSink> sink,
                 std::shared_ptr<StreamCounters> counters);
    ~AravisStream() override;

    bool open(const Options& options, QString* error) override;
    void close() override;
    bool isOpen() const override { return m_stream != nullptr; }
    bool countsPackets() const override;
    void applyTransport(const Options& options) override;
    void resetStatistics() override;

private:
    // Aravis's counts, in the order of StreamCounters' fields they feed.
    enum Count {
        Completed,
        Failures,
        Underruns,
        Packets,
        MissingPackets,
        ResendRequests,
        ResentPackets,
        MissedFrames,
        COUNTS
    };
    using Counts = std::array<quint64, COUNTS>;

    void run();
    void handle(ArvBuffer* buffer);
    void updateCounters();
    Counts readStatistics() const;

    ArvDevice* m_device; // the device worker's; outlives the stream
    std::shared_ptr<FrameSink> m_sink;
    std::shared_ptr<StreamCounters> m_counters;
    ArvStream* m_stream = nullptr;
    std::unique_ptr<FramePool> m_pool;
    std::thread m_thread;
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_resetPending{false};
    Counts m_baseline{}; // the stream thread's, or the device thread's while it is stopped
    quint64 m_bytes = 0;
    std::size_t m_payloadSize = 0;
    int m_infoIds[5] = {-1, -1, -1, -1, -1}; // packets, missing, resend requests, resent, missed
};

} // namespace Backend
