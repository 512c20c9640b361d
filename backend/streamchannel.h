#pragma once

#include "simulatedstream.h"
#include "stream.h"

#include <acquisition/iacquisition.h>

#include <QHash>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>

typedef struct _ArvGc ArvGc;

namespace Backend {

class DeviceLogic;
class DeviceWorker;
class FrameSink;
class SimulatedDevice;
struct StreamCounters;

// One camera's stream as its device thread sees it: chooses the stream (Aravis's for real
// devices, SimulatedStream for simulated ones), runs the start and stop sequences on the
// device, and binds @StreamGrabber0's registers to the stream: MaxNumBuffer and the transport
// options are read when the stream opens, the announced buffers and the statistics are read
// from the stream's counters, and a counter the stream can't back is not implemented.
//
// On a simulated camera it also is the device's acquisition logic: writes to
// AcquisitionStart, AcquisitionStop and TriggerSoftware drive the SimulatedStream, and every
// write makes it read the image settings again.
//
// Device thread only, from install() on, but for sink() and counters().
class StreamChannel : public std::enable_shared_from_this<StreamChannel> {
public:
    StreamChannel(std::shared_ptr<FrameSink> sink, std::shared_ptr<StreamCounters> counters);
    ~StreamChannel();

    // Binds the channel to the worker's camera (node map "CameraDevice"), once it is attached.
    void install(DeviceWorker& worker);
    // Binds the "StreamGrabber0" node map's registers to the stream, as its device logic:
    // called as the node map attaches, after install(), so that its first values are the
    // stream's.
    std::unique_ptr<DeviceLogic> bindGrabber(SimulatedDevice& grabber);
    // Any thread.
    const std::shared_ptr<FrameSink>& sink() const { return m_sink; }
    const std::shared_ptr<StreamCounters>& counters() const { return m_counters; }
    // Writes AcquisitionMode where the camera has it, opens the stream with MaxNumBuffer
    // buffers of PayloadSize bytes, and executes AcquisitionStart.
    bool start(DeviceWorker& worker, Plugin::Acquisition::IAcquisition::Mode mode, QString* error);
    // Executes AcquisitionStop (unless `stopDevice` is false: the device is gone) and closes
    // the stream.
    void stop(DeviceWorker& worker, bool stopDevice);
    // Closes the stream without a word to the device.
    void shutdown();

private:
    enum class DeviceEvent { Start, Stop, Trigger };
    struct Register {
        quint64 address = 0;
        quint32 length = 0;
        bool valid = false;
    };

    void bindSimulatedCamera(SimulatedDevice& camera);
    void onGrabberRead(SimulatedDevice& grabber, quint64 address);
    void onGrabberWrite(SimulatedDevice& grabber, quint64 address);
    void onCameraWrite(SimulatedDevice& camera, quint64 address);
    void refreshSimulated();
    Stream::Options grabberOptions() const;
    bool execute(DeviceWorker& worker, const char* command, QString* error);
    void republish(DeviceWorker& worker, int map, const QString& feature);
    void lockParams(DeviceWorker& worker, bool lock);
    static Register registerOf(ArvGc* genicam, const SimulatedDevice& device, const char* name);

    std::shared_ptr<FrameSink> m_sink;
    std::shared_ptr<StreamCounters> m_counters;
    std::unique_ptr<Stream> m_stream;
    SimulatedStream* m_simulated = nullptr; // m_stream, when the camera is simulated
    DeviceWorker* m_worker = nullptr;
    ArvGc* m_cameraGc = nullptr;
    SimulatedDevice* m_grabber = nullptr;

    // @StreamGrabber0's registers, by address: the stream value each one reads.
    QHash<quint64, std::function<quint64()>> m_grabberReads;
    QHash<quint64, quint32> m_grabberLengths;
    Register m_statisticReset;

    // The simulated camera's registers.
    Register m_acquisitionStart;
    Register m_acquisitionStop;
    Register m_triggerSoftware;
    Register m_triggerSelector;
    qint64 m_frameStartSelector = -1; // TriggerSelector's FrameStart value
    Register m_frameCounter;
    QVector<DeviceEvent> m_events;
    bool m_refreshQueued = false;
    // The mode start() asked for, for a description whose AcquisitionMode can't be read.
    SimulatedStream::AcquisitionMode m_requestedMode = SimulatedStream::AcquisitionMode::Continuous;
    bool m_frameTrigger = false;
    bool m_softwareSource = true;
    // This channel set TLParamsLocked and owes the camera its release.
    bool m_paramsLocked = false;
};

} // namespace Backend
