#include "frame.h"

#include <chrono>
#include <utility>

namespace Plugin {
namespace Acquisition {

Frame::Frame(quint32 width, quint32 height, quint32 pixelFormat, const uchar* data,
             std::size_t size, quint64 frameId, quint64 timestampNs, Status status,
             std::shared_ptr<const void> storage)
    : m_width(width), m_height(height), m_pixelFormat(pixelFormat), m_data(data), m_size(size),
      m_frameId(frameId), m_timestampNs(timestampNs), m_status(status),
      m_receivedNs(std::chrono::duration_cast<std::chrono::nanoseconds>(
                       std::chrono::steady_clock::now().time_since_epoch())
                       .count()),
      m_storage(std::move(storage))
{}

} // namespace Acquisition
} // namespace Plugin
