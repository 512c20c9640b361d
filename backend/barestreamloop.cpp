#include <arv.h>

#include "barestreamloop.h"

#include <QElapsedTimer>

namespace Backend {

BareStreamLoop::BareStreamLoop(const QString& interfaceAddress, const QString& deviceAddress)
{
    GInetAddress* interface = g_inet_address_new_from_string(interfaceAddress.toLatin1());
    GInetAddress* device = g_inet_address_new_from_string(deviceAddress.toLatin1());
    if (interface != nullptr && device != nullptr) {
        GError* error = nullptr;
        m_device = arv_gv_device_new(interface, device, &error);
        g_clear_error(&error);
    }
    if (interface != nullptr) {
        g_object_unref(interface);
    }
    if (device != nullptr) {
        g_object_unref(device);
    }
}

BareStreamLoop::~BareStreamLoop()
{
    stop();
    if (m_device != nullptr) {
        g_object_unref(m_device);
    }
}

void BareStreamLoop::configureMono8(ArvGc* genicam, int size)
{
    GError* error = nullptr;
    const auto setInt = [&](const char* name, gint64 value) {
        ArvGcNode* node = arv_gc_get_node(genicam, name);
        if (node != nullptr && ARV_IS_GC_INTEGER(node)) {
            arv_gc_integer_set_value(ARV_GC_INTEGER(node), value, &error);
            g_clear_error(&error);
        }
    };
    setInt("OffsetX", 0);
    setInt("OffsetY", 0);
    setInt("Width", size);
    setInt("Height", size);
    ArvGcNode* format = arv_gc_get_node(genicam, "PixelFormat");
    if (format != nullptr && ARV_IS_GC_ENUMERATION(format)) {
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(format), "Mono8", &error);
        g_clear_error(&error);
    }
    ArvGcNode* rate = arv_gc_get_node(genicam, "AcquisitionFrameRate");
    if (rate != nullptr && ARV_IS_GC_FLOAT(rate)) {
        const double max = arv_gc_float_get_max(ARV_GC_FLOAT(rate), &error);
        g_clear_error(&error);
        arv_gc_float_set_value(ARV_GC_FLOAT(rate), max, &error);
        g_clear_error(&error);
    }
}

void BareStreamLoop::configureMono8(int size)
{
    if (m_device != nullptr) {
        configureMono8(arv_device_get_genicam(m_device), size);
    }
}

bool BareStreamLoop::start(int buffers)
{
    if (m_device == nullptr || m_stream != nullptr) {
        return m_stream != nullptr;
    }
    GError* error = nullptr;
    const gint64 payload = arv_device_get_integer_feature_value(m_device, "PayloadSize", &error);
    g_clear_error(&error);
    m_stream = arv_device_create_stream(m_device, nullptr, nullptr, &error);
    g_clear_error(&error);
    if (m_stream == nullptr || payload <= 0) {
        stop();
        return false;
    }
    for (int i = 0; i < buffers; ++i) {
        arv_stream_push_buffer(m_stream, arv_buffer_new(size_t(payload), nullptr));
    }
    arv_device_execute_command(m_device, "AcquisitionStart", &error);
    g_clear_error(&error);
    return true;
}

BareStreamLoop::Result BareStreamLoop::run(double seconds)
{
    Result result;
    if (m_stream == nullptr) {
        return result;
    }
    guint64 underruns0 = 0;
    arv_stream_get_statistics(m_stream, nullptr, nullptr, &underruns0);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < seconds * 1000) {
        ArvBuffer* buffer = arv_stream_timeout_pop_buffer(m_stream, 100000);
        if (buffer == nullptr) {
            continue;
        }
        if (arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS) {
            ++result.completed;
        } else {
            ++result.failed;
        }
        arv_stream_push_buffer(m_stream, buffer);
    }
    result.seconds = clock.elapsed() / 1000.0;
    guint64 underruns = 0;
    arv_stream_get_statistics(m_stream, nullptr, nullptr, &underruns);
    result.failed += underruns - underruns0;
    return result;
}

void BareStreamLoop::stop()
{
    if (m_stream == nullptr) {
        return;
    }
    GError* error = nullptr;
    arv_device_execute_command(m_device, "AcquisitionStop", &error);
    g_clear_error(&error);
    g_object_unref(m_stream);
    m_stream = nullptr;
}

} // namespace Backend
