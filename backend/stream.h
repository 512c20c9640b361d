#pragma once

#include <QString>
#include <QtGlobal>

namespace Backend {

// One camera's image stream, as the device thread drives it: opened before the device starts
// sending, closed after it stopped. Frames arrive on the stream's own thread and go to the
// FrameSink the stream was made with; counts go to its StreamCounters.
class Stream {
public:
    struct Options {
        quint64 payloadSize = 0; // bytes of one buffer
        int bufferCount = 0;
        // GigE Vision transport, from @StreamGrabber0's Vnt* features.
        bool packetResend = true;
        int packetTimeoutMs = 40;
        int frameRetentionMs = 200;
        int socketBufferKiB = 0; // 0: Aravis sizes it from the payload
    };

    virtual ~Stream() = default;

    // Device thread. False with `error` set when the stream can't be opened.
    virtual bool open(const Options& options, QString* error) = 0;
    // Device thread. Stops the stream's thread; frames that consumers still hold stay valid.
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    // Whether the packet counters (and resends, missed frames) mean something for this stream.
    virtual bool countsPackets() const { return false; }
    // Device thread: the transport options of an open stream changed.
    virtual void applyTransport(const Options& options) { Q_UNUSED(options); }
    // Device thread: the statistics start again from 0.
    virtual void resetStatistics() = 0;
};

} // namespace Backend
