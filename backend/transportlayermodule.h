#pragma once

#include "devicelogic.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QtGlobal>

#include <functional>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGvDevice ArvGvDevice;
typedef struct _GError GError;

namespace Backend {

class SimulatedDevice;

// The camera that @DeviceTransportLayer describes.
struct TransportLayerSource {
    enum class Kind { GigEVision, USB3Vision, Simulated, Other };
    Kind kind = Kind::Simulated;
    QString id;    // what the camera was opened as
    QString model; // a simulated description's file name; empty: the camera's DeviceModelName
    ArvDevice* camera = nullptr; // not owned: the module takes a reference of its own
};

// Binds @DeviceTransportLayer's registers to the opened camera, the way a GenTL producer's
// port is bound to its device: a read asks Aravis or the camera, a write goes to Aravis, and
// what Aravis refuses is refused with its reason. A feature that the backend can't back for
// this camera is not implemented for it. Installed as the logic of the module's simulated
// device, so it runs on the device thread like every other Aravis call of the camera.
class TransportLayerModule : public DeviceLogic {
public:
    TransportLayerModule(SimulatedDevice& module, const TransportLayerSource& source);
    ~TransportLayerModule() override;
    TransportLayerModule(const TransportLayerModule&) = delete;
    TransportLayerModule& operator=(const TransportLayerModule&) = delete;

private:
    // What a register holds now, or why it can't be read or written.
    struct Answer {
        bool ok = true;
        qint64 number = 0;
        QByteArray text;
        bool isText = false;
        QString error;
        int code = 0;
    };
    struct Binding {
        quint64 address = 0;
        quint32 length = 0;
        bool command = false;
        std::function<Answer()> read;
        std::function<Answer(qint64 written)> write; // empty for read-only registers
    };

    static Answer number(qint64 value);
    static Answer text(const QString& value);
    static Answer failure(const QString& error, int code);
    // Takes `error` over; `otherwise` is the reason when Aravis gave none.
    static Answer failure(GError** error, const char* otherwise);

    void bind(const char* feature, bool implemented, std::function<Answer()> read,
              std::function<Answer(qint64)> write = nullptr);
    void bindIdentity();
    void bindGigEVision();
    void bindConnection();

    bool cameraHas(const char* feature) const;
    Answer cameraString(const char* feature) const;
    Answer displayName() const;
    Answer bootstrapRegister(quint64 address) const;
    Answer writeBootstrapRegister(quint64 address, qint64 value) const;
    Answer currentIp(int part) const;
    Answer macAddress() const;
    // What `ask` (Aravis's packet size reading or negotiation) answers.
    Answer packetSize(unsigned int (*ask)(ArvGvDevice*, GError**)) const;
    Answer setPacketSize(qint64 value) const;
    Answer setCacheMode(qint64 value);

    bool onRead(quint64 address, QString* error, int* code);
    bool onWrite(quint64 address, QString* error, int* code);

    SimulatedDevice& m_module;
    TransportLayerSource m_source;
    QHash<quint64, Binding> m_bindings;
    qint64 m_cacheMode = 1; // On: what the backend sets at open
};

} // namespace Backend
