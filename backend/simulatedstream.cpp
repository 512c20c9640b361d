#include "simulatedstream.h"

#include "framesink.h"
#include "streamcounters.h"

#include <acquisition/pixelformat.h>

using Plugin::Acquisition::Frame;
using Clock = std::chrono::steady_clock;

namespace Backend {

SimulatedStream::SimulatedStream(std::shared_ptr<FrameSink> sink,
                                 std::shared_ptr<StreamCounters> counters)
    : m_sink(std::move(sink)), m_counters(std::move(counters)), m_powerOn(Clock::now())
{}

SimulatedStream::~SimulatedStream()
{
    close();
}

bool SimulatedStream::open(const Options& options, QString* error)
{
    close();
    std::size_t bytes = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        bytes = SimulatedImage::payloadSize(m_state.image);
    }
    if (bytes == 0) {
        *error = QStringLiteral("the simulated camera can't make images of pixel format %1")
                     .arg(Plugin::Acquisition::PixelFormat::name(m_state.image.pixelFormat));
        return false;
    }
    // Buffers hold the larger of the device's PayloadSize and the image, as a driver's would.
    bytes = std::max<std::size_t>(bytes, std::size_t(options.payloadSize));
    auto pool = std::make_unique<FramePool>(qMax(options.bufferCount, 1), bytes);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_pool = std::move(pool);
    m_counters->announcedBuffers.store(m_pool->size());
    m_open = true;
    m_quit = false;
    m_thread = std::thread([this] { run(); });
    return true;
}

void SimulatedStream::close()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_open) {
            return;
        }
        m_quit = true;
    }
    m_wake.notify_all();
    m_thread.join();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_open = false;
    // Slots that consumers still hold live on with their frames.
    m_pool.reset();
    m_counters->announcedBuffers.store(0);
}

bool SimulatedStream::isOpen() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_open;
}

void SimulatedStream::resetStatistics()
{
    m_counters->reset();
}

void SimulatedStream::setDeviceState(const DeviceState& state)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const bool rateChanged = state.image.frameRateHz != m_state.image.frameRateHz;
        m_state = state;
        if (rateChanged) {
            m_nextFrame = Clock::now();
        }
    }
    m_wake.notify_all();
}

void SimulatedStream::acquisitionStart()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_acquiring = true;
        m_sentThisAcquisition = 0;
        m_pendingTriggers = 0;
        m_nextFrame = Clock::now();
    }
    m_wake.notify_all();
}

void SimulatedStream::acquisitionStop()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_acquiring = false;
        m_pendingTriggers = 0;
    }
    m_wake.notify_all();
}

void SimulatedStream::triggerSoftware()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_acquiring || !m_state.triggered || !m_state.softwareSource) {
            return; // a trigger nobody waits for is lost, as on a camera
        }
        ++m_pendingTriggers;
    }
    m_wake.notify_all();
}

quint64 SimulatedStream::framesSent() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_framesSent;
}

quint64 SimulatedStream::deviceTimeNs() const
{
    return quint64(
        std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - m_powerOn).count());
}

bool SimulatedStream::due(Clock::time_point now) const
{
    if (!m_acquiring) {
        return false;
    }
    if (m_state.triggered) {
        return m_pendingTriggers > 0;
    }
    if (m_state.image.frameRateHz <= 0.0 && m_sink->isNotifying()) {
        return false; // without a frame rate, the next frame waits until this one is taken
    }
    return now >= m_nextFrame;
}

void SimulatedStream::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_quit) {
        const Clock::time_point now = Clock::now();
        if (due(now)) {
            sendFrame(lock);
            continue;
        }
        if (m_acquiring && !m_state.triggered) {
            // Without a frame rate, look again shortly whether the frame was taken.
            m_wake.wait_until(lock, m_state.image.frameRateHz > 0.0
                                        ? m_nextFrame
                                        : Clock::now() + std::chrono::milliseconds(1));
        } else {
            m_wake.wait(lock);
        }
    }
}

// Called with the lock held; renders without it.
void SimulatedStream::sendFrame(std::unique_lock<std::mutex>& lock)
{
    const SimulatedImageSettings settings = m_state.image;
    const quint64 frameId = ++m_framesSent;
    ++m_sentThisAcquisition;
    if (m_state.triggered) {
        --m_pendingTriggers;
    } else {
        const double rate = settings.frameRateHz;
        // Without a frame rate the device sends as fast as the stream takes its frames.
        const auto period = rate > 0.0 ? std::chrono::duration_cast<Clock::duration>(
                                             std::chrono::duration<double>(1.0 / rate))
                                       : Clock::duration::zero();
        m_nextFrame = std::max(m_nextFrame + period, Clock::now() - period);
    }
    bool last = false;
    if (m_state.mode == AcquisitionMode::SingleFrame ||
        (m_state.mode == AcquisitionMode::MultiFrame &&
         m_sentThisAcquisition >= qMax<quint64>(m_state.frameCount, 1))) {
        m_acquiring = false;
        last = true;
    }
    const quint64 timestamp = deviceTimeNs();
    lock.unlock();

    m_pool->reclaim();
    int slot = m_pool->findFree();
    if (slot < 0) {
        // Consumers keep every buffer: they keep those frames, the stream gets a new buffer.
        slot = m_pool->replaceOldestLent(m_pool->slot(0).bytes.size());
    }
    const std::size_t bytes = SimulatedImage::payloadSize(settings);
    if (slot < 0) {
        ++m_counters->underruns; // no buffer at all
    } else if (bytes == 0 || bytes > m_pool->slot(slot).bytes.size()) {
        // The image no longer fits the buffers the stream was opened with.
        ++m_counters->incomplete;
    } else {
        uchar* data = m_pool->slot(slot).bytes.data();
        SimulatedImage::render(settings, frameId, data);
        ++m_counters->completed;
        m_counters->bytes += bytes;
        m_sink->deliver(
            m_pool->lend(slot, Frame(settings.width, settings.height, settings.pixelFormat, data,
                                     bytes, frameId, timestamp, Frame::Complete)));
    }
    if (last) {
        m_sink->end();
    }
    lock.lock();
}

} // namespace Backend
