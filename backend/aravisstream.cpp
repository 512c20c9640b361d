#include <arv.h>

#include "aravisstream.h"

#include "errormapping.h"
#include "framesink.h"
#include "streamcounters.h"

using Plugin::Acquisition::Frame;

namespace Backend {

AravisStream::AravisStream(ArvDevice* device, std::shared_ptr<FrameSink> sink,
                           std::shared_ptr<StreamCounters> counters)
    : m_device(device), m_sink(std::move(sink)), m_counters(std::move(counters))
{}

AravisStream::~AravisStream()
{
    close();
}

bool AravisStream::countsPackets() const
{
    return ARV_IS_GV_DEVICE(m_device);
}

bool AravisStream::open(const Options& options, QString* error)
{
    close();
    if (options.payloadSize == 0) {
        *error = QStringLiteral("the device reports a payload size of 0");
        return false;
    }
    GError* gerror = nullptr;
    m_stream = arv_device_create_stream(m_device, nullptr, nullptr, &gerror);
    if (m_stream == nullptr) {
        *error = gerror != nullptr ? messageOf(gerror)
                                   : QStringLiteral("the device has no stream channel");
        g_clear_error(&gerror);
        return false;
    }
    applyTransport(options);
    // The GigE Vision packet counts, looked up once: the names are compared only here.
    static const char* const kInfoNames[] = {"n_received_packets", "n_missing_packets",
                                             "n_resend_requests", "n_resent_packets",
                                             "n_missing_frames"};
    for (int k = 0; k < 5; ++k) {
        m_infoIds[k] = -1;
        for (guint id = 0; ARV_IS_GV_STREAM(m_stream) && id < arv_stream_get_n_infos(m_stream);
             ++id) {
            if (qstrcmp(arv_stream_get_info_name(m_stream, id), kInfoNames[k]) == 0 &&
                arv_stream_get_info_type(m_stream, id) == G_TYPE_UINT64) {
                m_infoIds[k] = int(id);
            }
        }
    }
    const int count = qMax(options.bufferCount, 1);
    m_pool = std::make_unique<FramePool>(count, 0);
    m_payloadSize = size_t(options.payloadSize);
    for (int i = 0; i < count; ++i) {
        ArvBuffer* buffer =
            arv_buffer_new_full(size_t(options.payloadSize), nullptr, GINT_TO_POINTER(i), nullptr);
        // The slot keeps its own reference; the stream gets another with each push.
        m_pool->slot(i).buffer = std::shared_ptr<void>(buffer, g_object_unref);
        arv_stream_push_buffer(m_stream, ARV_BUFFER(g_object_ref(buffer)));
    }
    m_baseline = readStatistics();
    m_bytes = 0;
    m_counters->reset();
    m_counters->announcedBuffers.store(count);
    m_running.store(true);
    m_thread = std::thread([this] { run(); });
    return true;
}

void AravisStream::close()
{
    if (m_stream == nullptr) {
        return;
    }
    m_running.store(false);
    m_thread.join();
    updateCounters();
    // Aravis drops the buffers it still queues; those handed out live on in their slots, and
    // the frames that consumers hold stay valid until released.
    g_object_unref(m_stream);
    m_stream = nullptr;
    m_pool.reset();
    m_counters->announcedBuffers.store(0);
}

void AravisStream::applyTransport(const Options& options)
{
    if (m_stream == nullptr || !ARV_IS_GV_STREAM(m_stream)) {
        return;
    }
    g_object_set(m_stream, "packet-resend",
                 options.packetResend ? ARV_GV_STREAM_PACKET_RESEND_ALWAYS
                                      : ARV_GV_STREAM_PACKET_RESEND_NEVER,
                 "packet-timeout", guint(qMax(options.packetTimeoutMs, 1)) * 1000u,
                 "frame-retention", guint(qMax(options.frameRetentionMs, 1)) * 1000u, nullptr);
    if (options.socketBufferKiB > 0) {
        g_object_set(m_stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED,
                     "socket-buffer-size", gint(options.socketBufferKiB) * 1024, nullptr);
    } else {
        g_object_set(m_stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_AUTO, nullptr);
    }
}

void AravisStream::resetStatistics()
{
    if (m_stream == nullptr) {
        m_counters->reset();
        return;
    }
    // The stream thread owns the baseline while it runs.
    m_resetPending.store(true);
}

AravisStream::Counts AravisStream::readStatistics() const
{
    Counts counts{};
    guint64 completed = 0;
    guint64 failures = 0;
    guint64 underruns = 0;
    arv_stream_get_statistics(m_stream, &completed, &failures, &underruns);
    counts[Completed] = completed;
    counts[Failures] = failures;
    counts[Underruns] = underruns;
    for (int k = 0; k < 5; ++k) {
        counts[std::size_t(Packets + k)] =
            m_infoIds[k] >= 0 ? arv_stream_get_info_uint64(m_stream, guint(m_infoIds[k])) : 0;
    }
    return counts;
}

void AravisStream::updateCounters()
{
    const Counts now = readStatistics();
    if (m_resetPending.exchange(false)) {
        m_baseline = now;
        m_bytes = 0;
    }
    const auto since = [&](Count k) { return now[k] - m_baseline[k]; };
    StreamCounters& c = *m_counters;
    c.completed.store(since(Completed));
    c.incomplete.store(since(Failures));
    c.underruns.store(since(Underruns));
    c.bytes.store(m_bytes);
    c.packets.store(since(Packets));
    c.failedPackets.store(since(MissingPackets));
    c.resendRequests.store(since(ResendRequests));
    c.resentPackets.store(since(ResentPackets));
    c.missedFrames.store(since(MissedFrames));
}

void AravisStream::run()
{
    ArvStream* stream = m_stream;
    const auto giveBack = [this, stream](int index) {
        ArvBuffer* buffer = static_cast<ArvBuffer*>(m_pool->slot(index).buffer.get());
        arv_stream_push_buffer(stream, ARV_BUFFER(g_object_ref(buffer)));
    };
    while (m_running.load()) {
        if (ArvBuffer* buffer = arv_stream_timeout_pop_buffer(stream, POP_TIMEOUT_US)) {
            handle(buffer);
        } else {
            updateCounters(); // failures and underruns come without a buffer
        }
        m_pool->reclaim(giveBack);
        // Consumers that keep frames must not leave the stream without buffers: the frames
        // they keep leave the pool, and new buffers take their place.
        while (m_pool->size() - m_pool->lentCount() < MIN_QUEUED_BUFFERS &&
               m_pool->lentCount() > 1) {
            const int index = m_pool->replaceOldestLent(0);
            ArvBuffer* fresh =
                arv_buffer_new_full(m_payloadSize, nullptr, GINT_TO_POINTER(index), nullptr);
            m_pool->slot(index).buffer = std::shared_ptr<void>(fresh, g_object_unref);
            arv_stream_push_buffer(stream, ARV_BUFFER(g_object_ref(fresh)));
        }
    }
}

void AravisStream::handle(ArvBuffer* buffer)
{
    const int index = GPOINTER_TO_INT(arv_buffer_get_user_data(buffer));
    // The slot holds a reference of its own: the pop's is not needed.
    g_object_unref(buffer);
    if (index < 0 || index >= m_pool->size() || m_pool->slot(index).buffer.get() != buffer) {
        return;
    }
    const ArvBufferStatus status = arv_buffer_get_status(buffer);
    const bool image = arv_buffer_get_payload_type(buffer) == ARV_BUFFER_PAYLOAD_TYPE_IMAGE;
    const bool partial =
        status == ARV_BUFFER_STATUS_MISSING_PACKETS || status == ARV_BUFFER_STATUS_TIMEOUT;
    if (!image || (status != ARV_BUFFER_STATUS_SUCCESS && !partial)) {
        arv_stream_push_buffer(m_stream, ARV_BUFFER(g_object_ref(buffer)));
        updateCounters();
        return;
    }
    size_t size = 0;
    const auto* data = static_cast<const uchar*>(arv_buffer_get_data(buffer, &size));
    gint x = 0;
    gint y = 0;
    gint width = 0;
    gint height = 0;
    arv_buffer_get_image_region(buffer, &x, &y, &width, &height);
    guint64 timestamp = arv_buffer_get_timestamp(buffer);
    if (timestamp == 0) {
        timestamp = arv_buffer_get_system_timestamp(buffer);
    }
    m_bytes += size;
    // Counted before the consumer hears of the frame, so that statistics() never lags behind
    // the frames it has seen.
    updateCounters();
    m_sink->deliver(
        m_pool->lend(index, Frame(quint32(width), quint32(height),
                                  quint32(arv_buffer_get_image_pixel_format(buffer)), data, size,
                                  arv_buffer_get_frame_id(buffer), timestamp,
                                  partial ? Frame::Incomplete : Frame::Complete)));
}

} // namespace Backend
