#pragma once

#include <QMetaType>
#include <QtGlobal>

#include <cstddef>
#include <memory>

namespace Plugin {
namespace Acquisition {

// One image as the stream delivered it. Immutable: every consumer (display, histogram,
// snapshot, a plug-in) may hold it on any thread for as long as it likes.
//
// The bytes are not copied out of the stream: a frame keeps the buffer it was received in
// alive through `storage`, and the buffer goes back to the stream's pool once the last frame
// that refers to it is released. Frames are handed out as std::shared_ptr so that a pool can
// give out its slots with the aliasing constructor, without an allocation per frame.
class Frame {
public:
    enum Status {
        Complete,
        // Some of the payload is missing (lost packets, a short transfer); the bytes that did
        // arrive are there, the rest of the buffer is stale.
        Incomplete,
    };

    Frame() = default;
    Frame(quint32 width, quint32 height, quint32 pixelFormat, const uchar* data, std::size_t size,
          quint64 frameId, quint64 timestampNs, Status status,
          std::shared_ptr<const void> storage = nullptr);

    quint32 width() const { return m_width; }
    quint32 height() const { return m_height; }
    // PFNC code, e.g. 0x01080001 for Mono8 (see pixelformat.h).
    quint32 pixelFormat() const { return m_pixelFormat; }
    const uchar* data() const { return m_data; }
    std::size_t size() const { return m_size; }
    // The device's block id; it counts up by one per frame the device sent.
    quint64 frameId() const { return m_frameId; }
    // The device's timestamp in nanoseconds, or the host's receive time where the device
    // gives none.
    quint64 timestampNs() const { return m_timestampNs; }
    Status status() const { return m_status; }
    bool isComplete() const { return m_status == Complete; }
    // When the host had the whole frame: std::chrono::steady_clock, in nanoseconds, taken as
    // the stream made this frame out of its finished buffer. Unlike the device's timestamp it
    // is on the host's clock, so the time a frame took to reach the screen or a file can be
    // measured against it.
    qint64 receivedNs() const { return m_receivedNs; }

private:
    quint32 m_width = 0;
    quint32 m_height = 0;
    quint32 m_pixelFormat = 0;
    const uchar* m_data = nullptr;
    std::size_t m_size = 0;
    quint64 m_frameId = 0;
    quint64 m_timestampNs = 0;
    Status m_status = Complete;
    qint64 m_receivedNs = 0;
    std::shared_ptr<const void> m_storage;
};

using FramePtr = std::shared_ptr<const Frame>;

} // namespace Acquisition
} // namespace Plugin

Q_DECLARE_METATYPE(Plugin::Acquisition::FramePtr)
