#pragma once

#include <QtGlobal>

#include <atomic>

namespace Backend {

// What one camera's stream has counted, shared between the stream's thread (which counts),
// the device thread (which serves @StreamGrabber0's statistics) and the GUI thread (which
// reads IAcquisition::statistics()). Lock-free, so that no reader waits on the stream.
struct StreamCounters {
    std::atomic<quint64> completed{0};
    std::atomic<quint64> incomplete{0};
    std::atomic<quint64> underruns{0};
    std::atomic<quint64> bytes{0};
    // GigE Vision only.
    std::atomic<quint64> packets{0};
    std::atomic<quint64> failedPackets{0};
    std::atomic<quint64> resendRequests{0};
    std::atomic<quint64> resentPackets{0};
    std::atomic<quint64> missedFrames{0};
    // Buffers announced to the open stream; 0 while it is closed.
    std::atomic<int> announcedBuffers{0};

    void reset()
    {
        for (std::atomic<quint64>* c :
             {&completed, &incomplete, &underruns, &bytes, &packets, &failedPackets,
              &resendRequests, &resentPackets, &missedFrames}) {
            c->store(0);
        }
    }
};

} // namespace Backend
