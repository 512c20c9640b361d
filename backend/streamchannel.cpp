#include <arv.h>

#include "streamchannel.h"

#include "aravisstream.h"
#include "devicelogic.h"
#include "deviceworker.h"
#include "errormapping.h"
#include "framesink.h"
#include "simulateddevice.h"
#include "simulatedimage.h"
#include "streamcounters.h"

#include <numeric>

using Plugin::Acquisition::IAcquisition;

namespace Backend {

namespace {

const QString kCamera = QStringLiteral("CameraDevice");
const QString kGrabber = QStringLiteral("StreamGrabber0");

QString stringOf(ArvGc* genicam, const char* feature, bool* found = nullptr)
{
    ArvGcNode* node = arv_gc_get_node(genicam, feature);
    if (found != nullptr) {
        *found = node != nullptr && ARV_IS_GC_ENUMERATION(node);
    }
    if (node == nullptr || !ARV_IS_GC_ENUMERATION(node)) {
        return QString();
    }
    GError* error = nullptr;
    const char* value = arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), &error);
    g_clear_error(&error);
    return value != nullptr ? QString::fromUtf8(value) : QString();
}

qint64 integerOf(ArvGc* genicam, const char* feature, qint64 fallback)
{
    ArvGcNode* node = arv_gc_get_node(genicam, feature);
    if (node == nullptr || !ARV_IS_GC_INTEGER(node)) {
        return fallback;
    }
    GError* error = nullptr;
    const qint64 value = arv_gc_integer_get_value(ARV_GC_INTEGER(node), &error);
    if (error != nullptr) {
        g_clear_error(&error);
        return fallback;
    }
    return value;
}

} // namespace

StreamChannel::StreamChannel(std::shared_ptr<FrameSink> sink,
                             std::shared_ptr<StreamCounters> counters)
    : m_sink(std::move(sink)), m_counters(std::move(counters))
{}

StreamChannel::~StreamChannel()
{
    shutdown();
}

StreamChannel::Register StreamChannel::registerOf(ArvGc* genicam, const SimulatedDevice& device,
                                                  const char* name)
{
    Register r;
    ArvGcNode* node = arv_gc_get_node(genicam, name);
    if (node == nullptr) {
        return r;
    }
    if (!ARV_IS_GC_REGISTER(node)) {
        // A feature: its register is the one its pValue names.
        node = nullptr;
        ArvGcNode* feature = arv_gc_get_node(genicam, name);
        for (ArvDomNode* p = arv_dom_node_get_first_child(ARV_DOM_NODE(feature)); p != nullptr;
             p = arv_dom_node_get_next_sibling(p)) {
            if (ARV_IS_GC_PROPERTY_NODE(p) &&
                arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(p)) ==
                    ARV_GC_PROPERTY_NODE_TYPE_P_VALUE) {
                node = arv_gc_property_node_get_linked_node(ARV_GC_PROPERTY_NODE(p));
                break;
            }
        }
        if (node == nullptr || !ARV_IS_GC_REGISTER(node)) {
            return r;
        }
        name = arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node));
    }
    r.valid = device.registerOf(name, &r.address, &r.length);
    return r;
}

void StreamChannel::install(DeviceWorker& worker)
{
    m_worker = &worker;
    const int camera = worker.mapIndex(kCamera);
    m_cameraGc = worker.genicam(camera);
    if (SimulatedDevice* simulated = worker.simulatedDevice(camera)) {
        auto stream = std::make_unique<SimulatedStream>(m_sink, m_counters);
        m_simulated = stream.get();
        m_stream = std::move(stream);
        bindSimulatedCamera(*simulated);
        refreshSimulated();
    } else if (ArvDevice* device = worker.arvDevice(camera)) {
        m_stream = std::make_unique<AravisStream>(device, m_sink, m_counters);
    }
    std::weak_ptr<StreamChannel> weak = shared_from_this();
    worker.addTeardown([weak] {
        if (auto self = weak.lock()) {
            self->shutdown();
        }
    });
}

std::unique_ptr<DeviceLogic> StreamChannel::bindGrabber(SimulatedDevice& grabber)
{
    m_grabber = &grabber;
    ArvGc* gc = grabber.genicam();
    const std::shared_ptr<StreamCounters> c = m_counters;
    const bool packets = m_stream && m_stream->countsPackets();
    const auto bind = [&](const char* name, std::function<quint64()> read) {
        const Register r = registerOf(gc, grabber, name);
        if (r.valid) {
            m_grabberReads.insert(r.address, std::move(read));
            m_grabberLengths.insert(r.address, r.length);
        }
    };
    bind("StreamAnnouncedBufferCount", [c] { return quint64(c->announcedBuffers.load()); });
    bind("Statistic_Total_Buffer_Count",
         [c] { return c->completed.load() + c->incomplete.load(); });
    bind("Statistic_Failed_Buffer_Count", [c] { return c->incomplete.load(); });
    bind("Statistic_Buffer_Underrun_Count", [c] { return c->underruns.load(); });
    bind("Statistic_Total_Packet_Count", [c] { return c->packets.load(); });
    bind("Statistic_Failed_Packet_Count", [c] { return c->failedPackets.load(); });
    bind("Statistic_Resend_Request_Count", [c] { return c->resendRequests.load(); });
    bind("Statistic_Resend_Packet_Count", [c] { return c->resentPackets.load(); });
    bind("Statistic_Missed_Frame_Count", [c] { return c->missedFrames.load(); });
    // What this camera's stream can back at all.
    bind("VntStreamCountsPacketsReg", [packets] { return packets ? 1u : 0u; });
    bind("VntStreamHasBuffersReg", [this] { return m_stream ? 1u : 0u; });
    bind("VntNotHonouredReg", [] { return 0u; });
    m_statisticReset = registerOf(gc, grabber, "Statistic_Reset");

    std::weak_ptr<StreamChannel> weak = shared_from_this();
    grabber.addReadHook([weak](SimulatedDevice& device, quint64 address, quint32) {
        if (auto self = weak.lock()) {
            self->onGrabberRead(device, address);
        }
    });
    grabber.addWriteHook([weak](SimulatedDevice& device, quint64 address, quint32) {
        if (auto self = weak.lock()) {
            self->onGrabberWrite(device, address);
        }
    });
    return nullptr; // the hooks are the whole of its logic
}

void StreamChannel::onGrabberRead(SimulatedDevice& grabber, quint64 address)
{
    const auto it = m_grabberReads.constFind(address);
    if (it != m_grabberReads.constEnd()) {
        grabber.pokeInt(address, qint64(it.value()()), m_grabberLengths.value(address));
    }
}

void StreamChannel::onGrabberWrite(SimulatedDevice& grabber, quint64 address)
{
    if (m_statisticReset.valid && address == m_statisticReset.address) {
        if (m_stream) {
            m_stream->resetStatistics();
        } else {
            m_counters->reset();
        }
        // The command is done at once.
        grabber.pokeInt(address, 0, m_statisticReset.length);
        return;
    }
    if (m_stream && m_stream->isOpen()) {
        m_stream->applyTransport(grabberOptions());
    }
}

Stream::Options StreamChannel::grabberOptions() const
{
    Stream::Options options;
    if (m_grabber == nullptr) {
        options.bufferCount = 10;
        return options;
    }
    ArvGc* gc = m_grabber->genicam();
    const auto value = [&](const char* name, qint64 fallback) {
        const Register r = registerOf(gc, *m_grabber, name);
        return r.valid ? m_grabber->peekInt(r.address, r.length) : fallback;
    };
    options.bufferCount = int(qBound<qint64>(1, value("MaxNumBuffer", 10), 1024));
    options.packetResend = value("VntResendRequestEnable", 1) != 0;
    options.packetTimeoutMs = int(value("VntPacketTimeout", 40));
    options.frameRetentionMs = int(value("VntFrameRetention", 200));
    options.socketBufferKiB = int(value("VntSocketBufferSize", 0));
    return options;
}

void StreamChannel::bindSimulatedCamera(SimulatedDevice& camera)
{
    ArvGc* gc = camera.genicam();
    m_acquisitionStart = registerOf(gc, camera, "AcquisitionStart");
    m_acquisitionStop = registerOf(gc, camera, "AcquisitionStop");
    m_triggerSoftware = registerOf(gc, camera, "TriggerSoftware");
    m_triggerSelector = registerOf(gc, camera, "TriggerSelector");
    m_frameCounter = registerOf(gc, camera, "FrameCounter");
    if (ArvGcNode* selector = arv_gc_get_node(gc, "TriggerSelector")) {
        if (ARV_IS_GC_ENUMERATION(selector)) {
            for (const GSList* it = arv_gc_enumeration_get_entries(ARV_GC_ENUMERATION(selector));
                 it != nullptr; it = it->next) {
                if (qstrcmp(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(it->data)),
                            "FrameStart") == 0) {
                    m_frameStartSelector =
                        arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(it->data), nullptr);
                }
            }
        }
    }
    std::weak_ptr<StreamChannel> weak = shared_from_this();
    camera.addWriteHook([weak](SimulatedDevice& device, quint64 address, quint32) {
        if (auto self = weak.lock()) {
            self->onCameraWrite(device, address);
        }
    });
    if (m_frameCounter.valid) {
        const Register counter = m_frameCounter;
        camera.addReadHook([weak, counter](SimulatedDevice& device, quint64 address, quint32) {
            auto self = weak.lock();
            if (self && self->m_simulated && address == counter.address) {
                device.pokeInt(address, qint64(self->m_simulated->framesSent()), counter.length);
            }
        });
    }
}

void StreamChannel::onCameraWrite(SimulatedDevice& camera, quint64 address)
{
    // Runs inside the device's write: the features are read again once it has returned.
    if (m_acquisitionStart.valid && address == m_acquisitionStart.address) {
        m_events.append(DeviceEvent::Start);
    } else if (m_acquisitionStop.valid && address == m_acquisitionStop.address) {
        m_events.append(DeviceEvent::Stop);
    } else if (m_triggerSoftware.valid && address == m_triggerSoftware.address) {
        // The trigger of the selected trigger; frames follow FrameStart's.
        if (!m_triggerSelector.valid ||
            camera.peekInt(m_triggerSelector.address, m_triggerSelector.length) ==
                m_frameStartSelector) {
            m_events.append(DeviceEvent::Trigger);
        }
    }
    if (m_refreshQueued || m_worker == nullptr) {
        return;
    }
    m_refreshQueued = true;
    std::weak_ptr<StreamChannel> weak = shared_from_this();
    QMetaObject::invokeMethod(
        m_worker,
        [weak] {
            if (auto self = weak.lock()) {
                self->refreshSimulated();
            }
        },
        Qt::QueuedConnection);
}

void StreamChannel::refreshSimulated()
{
    m_refreshQueued = false;
    if (m_simulated == nullptr) {
        return;
    }
    SimulatedStream::DeviceState state;
    QString error;
    SimulatedImage::settingsOf(m_cameraGc, &state.image, &error);
    const QString mode = stringOf(m_cameraGc, "AcquisitionMode");
    if (mode == QLatin1String("SingleFrame")) {
        state.mode = SimulatedStream::AcquisitionMode::SingleFrame;
    } else if (mode == QLatin1String("MultiFrame")) {
        state.mode = SimulatedStream::AcquisitionMode::MultiFrame;
    } else if (mode == QLatin1String("Continuous")) {
        state.mode = SimulatedStream::AcquisitionMode::Continuous;
    } else {
        state.mode = m_requestedMode; // the description's mode can't be read
    }
    state.frameCount = quint64(qMax<qint64>(integerOf(m_cameraGc, "AcquisitionFrameCount", 1), 1));
    bool hasSelector = false;
    const QString selector = stringOf(m_cameraGc, "TriggerSelector", &hasSelector);
    // TriggerMode and TriggerSource are those of the selected trigger: the frame trigger's are
    // known when it is selected.
    if (!hasSelector || selector == QLatin1String("FrameStart")) {
        m_frameTrigger = stringOf(m_cameraGc, "TriggerMode") == QLatin1String("On");
        bool hasSource = false;
        const QString source = stringOf(m_cameraGc, "TriggerSource", &hasSource);
        m_softwareSource = !hasSource || source == QLatin1String("Software");
    }
    state.triggered = m_frameTrigger;
    state.softwareSource = m_softwareSource;
    m_simulated->setDeviceState(state);

    const QVector<DeviceEvent> events = std::move(m_events);
    m_events.clear();
    for (DeviceEvent event : events) {
        switch (event) {
        case DeviceEvent::Start:
            m_simulated->acquisitionStart();
            break;
        case DeviceEvent::Stop:
            m_simulated->acquisitionStop();
            break;
        case DeviceEvent::Trigger:
            m_simulated->triggerSoftware();
            break;
        }
    }
}

bool StreamChannel::execute(DeviceWorker& worker, const char* command, QString* error)
{
    ArvGcNode* node = arv_gc_get_node(m_cameraGc, command);
    if (node == nullptr || !ARV_IS_GC_COMMAND(node)) {
        *error = QStringLiteral("the camera has no %1 command").arg(QLatin1String(command));
        return false;
    }
    GError* gerror = nullptr;
    arv_gc_command_execute(ARV_GC_COMMAND(node), &gerror);
    if (gerror != nullptr) {
        *error = QStringLiteral("%1 failed: %2").arg(QLatin1String(command), messageOf(gerror));
        if (isDeviceLossError(gerror->domain, gerror->code)) {
            worker.markLost(messageOf(gerror));
        }
        g_clear_error(&gerror);
        return false;
    }
    republish(worker, worker.mapIndex(kCamera), QLatin1String(command));
    return true;
}

void StreamChannel::republish(DeviceWorker& worker, int map, const QString& feature)
{
    if (map < 0) {
        return;
    }
    const int node = worker.structure(map)->indexOf(feature);
    if (node >= 0) {
        worker.readNodes(map, worker.dependencyClosure(map, node), false, false);
    }
}

// TLParamsLocked is the consumer's to set while it streams: a description makes Width,
// PixelFormat and whatever else changes the payload depend on it (pIsLocked), so that they
// are read-only for exactly as long as buffers of the present size are queued. Aravis leaves
// it to us. A description without it, or one where it can't be written, streams unlocked.
void StreamChannel::lockParams(DeviceWorker& worker, bool lock)
{
    if (lock == m_paramsLocked) {
        return;
    }
    ArvGcNode* node = arv_gc_get_node(m_cameraGc, "TLParamsLocked");
    if (node == nullptr || !ARV_IS_GC_INTEGER(node)) {
        return;
    }
    GError* gerror = nullptr;
    arv_gc_integer_set_value(ARV_GC_INTEGER(node), lock ? 1 : 0, &gerror);
    // Released or not, the next start tries again from a clean slate.
    m_paramsLocked = lock && gerror == nullptr;
    g_clear_error(&gerror);
    republish(worker, worker.mapIndex(kCamera), QStringLiteral("TLParamsLocked"));
}

bool StreamChannel::start(DeviceWorker& worker, IAcquisition::Mode mode, QString* error)
{
    if (!m_stream) {
        *error = QStringLiteral("the camera has no stream");
        return false;
    }
    if (worker.isLost()) {
        *error = QStringLiteral("the camera is lost");
        return false;
    }
    m_sink->clear();
    const int camera = worker.mapIndex(kCamera);
    ArvGcNode* modeNode = arv_gc_get_node(m_cameraGc, "AcquisitionMode");
    const char* modeName = mode == IAcquisition::SingleFrame ? "SingleFrame" : "Continuous";
    m_requestedMode = mode == IAcquisition::SingleFrame
                          ? SimulatedStream::AcquisitionMode::SingleFrame
                          : SimulatedStream::AcquisitionMode::Continuous;
    if (modeNode != nullptr && ARV_IS_GC_ENUMERATION(modeNode) &&
        stringOf(m_cameraGc, "AcquisitionMode") != QLatin1String(modeName)) {
        GError* gerror = nullptr;
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(modeNode), modeName, &gerror);
        if (gerror != nullptr && m_simulated != nullptr) {
            // A description served from memory alone may offer no entry at all; the simulated
            // device then acquires the way it was asked to.
            g_clear_error(&gerror);
        }
        if (gerror != nullptr) {
            *error = QStringLiteral("AcquisitionMode can't be set: %1").arg(messageOf(gerror));
            g_clear_error(&gerror);
            republish(worker, camera, QStringLiteral("AcquisitionMode"));
            return false;
        }
        republish(worker, camera, QStringLiteral("AcquisitionMode"));
    }
    Stream::Options options = grabberOptions();
    options.payloadSize = quint64(qMax<qint64>(integerOf(m_cameraGc, "PayloadSize", 0), 0));
    if (m_simulated != nullptr) {
        SimulatedImageSettings settings;
        if (!SimulatedImage::settingsOf(m_cameraGc, &settings, error)) {
            return false;
        }
        refreshSimulated();
    }
    if (!m_stream->open(options, error)) {
        return false;
    }
    lockParams(worker, true);
    const bool hasStart = arv_gc_get_node(m_cameraGc, "AcquisitionStart") != nullptr;
    if (m_simulated != nullptr && !hasStart) {
        // A description without the command: the simulated device starts with its stream.
        m_simulated->acquisitionStart();
    } else if (!execute(worker, "AcquisitionStart", error)) {
        m_stream->close();
        if (!worker.isLost()) {
            lockParams(worker, false);
        }
        return false;
    }
    if (m_simulated != nullptr) {
        refreshSimulated();
    }
    republish(worker, worker.mapIndex(kGrabber), QStringLiteral("StreamAnnouncedBufferCount"));
    return true;
}

void StreamChannel::stop(DeviceWorker& worker, bool stopDevice)
{
    if (!m_stream || !m_stream->isOpen()) {
        return;
    }
    if (stopDevice && !worker.isLost()) {
        QString error;
        if (m_simulated != nullptr && arv_gc_get_node(m_cameraGc, "AcquisitionStop") == nullptr) {
            m_simulated->acquisitionStop();
        } else {
            execute(worker, "AcquisitionStop", &error);
        }
        if (m_simulated != nullptr) {
            refreshSimulated();
        }
    }
    m_stream->close();
    if (!worker.isLost()) {
        lockParams(worker, false);
    } else {
        m_paramsLocked = false;
    }
    // The stream's final counts, for whoever shows them next (a dump after a grab).
    const int grabberMap = worker.mapIndex(kGrabber);
    if (m_grabber != nullptr && grabberMap >= 0) {
        QVector<int> all(worker.structure(grabberMap)->nodes.size());
        std::iota(all.begin(), all.end(), 0);
        worker.readObserved(grabberMap, all);
    }
}

void StreamChannel::shutdown()
{
    if (m_stream) {
        m_stream->close();
    }
}

} // namespace Backend
