#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGc ArvGc;

namespace Backend {

// An in-process GenICam device: sparse 64-bit byte-addressable memory behind any GenICam XML,
// served to Aravis as an ArvDevice. Device behaviour (computed registers, drifting values,
// commands that complete) is added through hooks; tests add latency and faults.
//
// Everything but the counters and the fault settings belongs to the thread that uses the
// device, which is the collection's device thread.
class SimulatedDevice {
public:
    enum class Fault {
        None,
        RefuseWrites, // writes fail as the device's access-denied answer
        Timeout,      // every access fails as a timeout, as if the device vanished
    };

    // Called before a read is served (to compute the register) or after a write landed.
    using Hook = std::function<void(SimulatedDevice& device, quint64 address, quint32 size)>;
    // A hook that may refuse the access: false fails it with `error` and `errorCode` (an
    // ArvDeviceError) as the device's answer. Read checks run before the memory is served,
    // write checks once the bytes landed; a refused write leaves the memory as it was.
    using Check = std::function<bool(SimulatedDevice& device, quint64 address, quint32 size,
                                     QString* error, int* errorCode)>;

    // Parses the description; throws ParameterCollection::InvalidArgumentException naming
    // `name` when the text is not a GenICam description Aravis can use.
    SimulatedDevice(const QByteArray& xml, const QString& name);
    ~SimulatedDevice();
    SimulatedDevice(const SimulatedDevice&) = delete;
    SimulatedDevice& operator=(const SimulatedDevice&) = delete;

    const QString& name() const { return m_name; }
    ArvDevice* device() const { return m_device; }
    ArvGc* genicam() const { return m_genicam; }
    const QByteArray& xml() const { return m_xml; }

    // Applies "Feature=Value" lines through the feature interfaces, with the access checks
    // off, so that read-only features get their start values too. Returns the problems.
    QStringList applyDefaults(const QString& text);

    // The memory as the device sees it, without hooks, counters or faults.
    void poke(quint64 address, const void* data, quint32 size);
    void peek(quint64 address, void* data, quint32 size) const;
    qint64 peekInt(quint64 address, quint32 size) const;
    void pokeInt(quint64 address, qint64 value, quint32 size);
    double peekDouble(quint64 address, quint32 size) const;
    void pokeDouble(quint64 address, double value, quint32 size);

    // Address and length of a register node; false when the node is not a register.
    bool registerOf(const char* nodeName, quint64* address, quint32* length) const;

    void addReadHook(Hook hook) { m_readHooks.push_back(std::move(hook)); }
    void addWriteHook(Hook hook) { m_writeHooks.push_back(std::move(hook)); }
    void addReadCheck(Check check) { m_readChecks.push_back(std::move(check)); }
    void addWriteCheck(Check check) { m_writeChecks.push_back(std::move(check)); }

    void setFault(Fault fault) { m_fault.store(fault); }
    void setLatencyMicroseconds(int us) { m_latencyUs.store(us); }

    int readCount() const { return m_reads.load(); }
    int writeCount() const { return m_writes.load(); }
    // Addresses read since the last reset, in order.
    QVector<quint64> readLog() const;
    void resetCounters();

    // The ArvDevice entry points.
    bool serveRead(quint64 address, quint32 size, void* buffer, QString* error,
                   int* errorCode = nullptr);
    bool serveWrite(quint64 address, quint32 size, const void* buffer, QString* error,
                    int* errorCode);

private:
    using Page = std::array<std::uint8_t, 4096>;

    QString m_name;
    QByteArray m_xml;
    ArvDevice* m_device = nullptr; // owned reference
    ArvGc* m_genicam = nullptr;    // owned reference
    std::unordered_map<quint64, std::unique_ptr<Page>> m_pages;
    std::vector<Hook> m_readHooks;
    std::vector<Hook> m_writeHooks;
    std::vector<Check> m_readChecks;
    std::vector<Check> m_writeChecks;
    std::atomic<Fault> m_fault{Fault::None};
    std::atomic<int> m_latencyUs{0};
    std::atomic<int> m_reads{0};
    std::atomic<int> m_writes{0};
    mutable QMutex m_logMutex;
    QVector<quint64> m_readLog;
};

// Strips what comes before the XML declaration (some vendor files carry a binary or text
// header there) and checks that the text is a GenICam register description. Returns the
// usable bytes, or throws InvalidArgumentException naming `name`.
QByteArray cleanGenICamXml(const QByteArray& xml, const QString& name);

} // namespace Backend
