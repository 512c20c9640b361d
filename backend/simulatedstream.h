#pragma once

#include "framepool.h"
#include "simulatedimage.h"
#include "stream.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace Backend {

class FrameSink;
struct StreamCounters;

// The stream of a simulated camera: a thread of its own that renders SimulatedImage frames
// while the simulated device acquires, at its frame rate, or one per software trigger. The
// device's state (started, stopped, acquisition mode, trigger) is fed in by the device thread
// as the camera's features are written.
class SimulatedStream : public Stream {
public:
    enum class AcquisitionMode { Continuous, SingleFrame, MultiFrame };

    // What the device's features say about sending frames.
    struct DeviceState {
        SimulatedImageSettings image;
        AcquisitionMode mode = AcquisitionMode::Continuous;
        quint64 frameCount = 1; // MultiFrame
        bool triggered = false; // TriggerMode On for frames
        bool softwareSource = true;
    };

    SimulatedStream(std::shared_ptr<FrameSink> sink, std::shared_ptr<StreamCounters> counters);
    ~SimulatedStream() override;

    // Stream. The buffers are sized from the image settings last set.
    bool open(const Options& options, QString* error) override;
    void close() override;
    bool isOpen() const override;
    void resetStatistics() override;

    // Device thread, as the device's features change.
    void setDeviceState(const DeviceState& state);
    void acquisitionStart();
    void acquisitionStop();
    void triggerSoftware();

    // Any thread: frames the device sent since it was made, whether a buffer took them or not.
    quint64 framesSent() const;
    // Nanoseconds since the device was made: its clock.
    quint64 deviceTimeNs() const;

private:
    void run();
    bool due(std::chrono::steady_clock::time_point now) const;
    void sendFrame(std::unique_lock<std::mutex>& lock);

    std::shared_ptr<FrameSink> m_sink;
    std::shared_ptr<StreamCounters> m_counters;
    const std::chrono::steady_clock::time_point m_powerOn;

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    DeviceState m_state;
    bool m_open = false;
    bool m_quit = false;
    bool m_acquiring = false;
    quint64 m_sentThisAcquisition = 0;
    quint64 m_pendingTriggers = 0;
    quint64 m_framesSent = 0;
    std::chrono::steady_clock::time_point m_nextFrame;
    std::unique_ptr<FramePool> m_pool; // the stream thread's while it runs
    std::thread m_thread;
};

} // namespace Backend
