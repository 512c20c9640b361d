#pragma once

#include "devicelogic.h"

#include <QElapsedTimer>
#include <QHash>
#include <QtGlobal>

namespace Backend {

class SimulatedDevice;

// What the built-in simulated camera does besides storing values: PayloadSize follows the
// image format as the simulated image lays it out, the timestamp counts nanoseconds since the
// device was opened (TimestampReset, TimestampLatch), the temperature drifts, commands complete
// after a short while, and the exposure time wanders while ExposureAuto is Continuous. Every
// hook looks its registers up by node name and stays idle when the description lacks them.
class BuiltinCameraLogic : public DeviceLogic {
public:
    explicit BuiltinCameraLogic(SimulatedDevice& device);

    // The device's timestamp counter, in nanoseconds.
    qint64 timestampNs() const;

private:
    struct Register {
        quint64 address = 0;
        quint32 length = 0;
        bool valid = false;
    };
    Register lookup(const char* nodeName) const;
    void onRead(SimulatedDevice& device, quint64 address);
    void onWrite(SimulatedDevice& device, quint64 address);

    SimulatedDevice& m_device;
    Register m_payload;
    Register m_width;
    Register m_height;
    Register m_pixelFormat;
    Register m_temperature;
    Register m_exposure;
    Register m_exposureAuto;
    Register m_timestamp;
    Register m_timestampLatchValue;
    Register m_timestampLatch;
    Register m_timestampReset;
    QElapsedTimer m_clock;
    qint64 m_timestampOriginNs = 0;
    qint64 m_exposureAutoContinuous = -1;
    quint64 m_drift = 0;
    // Command registers: reads left until the command reports done.
    QHash<quint64, int> m_commandReadsLeft;
    QHash<quint64, quint32> m_commandRegisters;
};

} // namespace Backend
