// Whatever a device answers: every register of a built-in or vendor description holds bytes
// from the input, and every feature is read from them. Nothing crashes, nothing hangs.
#include "fuzzsupport.h"

#include <devicelogic.h>
#include <deviceworker.h>
#include <simulateddevice.h>

namespace {

// The register contents of the input being run; every read is served from it.
QByteArray t_memory;

class InputMemory : public Backend::DeviceLogic {
public:
    explicit InputMemory(Backend::SimulatedDevice& device)
    {
        device.addReadHook([](Backend::SimulatedDevice& d, quint64 address, quint32 size) {
            if (t_memory.isEmpty()) {
                return;
            }
            QByteArray bytes(int(qMin<quint32>(size, 1u << 20)), '\0');
            for (int i = 0; i < bytes.size(); ++i) {
                const quint64 at = (address * 2654435761u + quint64(i)) % quint64(t_memory.size());
                bytes[i] = t_memory[int(at)];
            }
            d.poke(address, bytes.constData(), quint32(bytes.size()));
        });
    }
};

// One open device per description, kept across inputs: an open costs a vendor description a
// tenth of a second, a read of every feature much less.
struct OpenDevice {
    std::unique_ptr<Backend::DeviceWorker> worker;
    int map = -1;
    QVector<int> all;
};

OpenDevice& openDevice(int index)
{
    static QVector<std::shared_ptr<OpenDevice>> devices;
    const QVector<FuzzDescription>& descriptions = fuzzDescriptions("fuzz_registercontents");
    devices.resize(descriptions.size());
    if (!devices[index]) {
        auto device = std::make_shared<OpenDevice>();
        device->worker = std::make_unique<Backend::DeviceWorker>();
        device->worker->setLogicFactory([](Backend::SimulatedDevice& simulated) {
            return std::unique_ptr<Backend::DeviceLogic>(new InputMemory(simulated));
        });
        QString error;
        device->map = device->worker->attachSimulated(descriptions[index].name,
                                                      descriptions[index].xml, QString(), &error);
        if (device->map >= 0) {
            for (int i = 0; i < device->worker->structure(device->map)->nodes.size(); ++i) {
                device->all.append(i);
            }
        }
        devices[index] = device;
    }
    return *devices[index];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QVector<FuzzDescription>& descriptions = fuzzDescriptions("fuzz_registercontents");
    FuzzInput input(data, size);
    const int index = input.byte() % descriptions.size();
    t_memory = QByteArray(reinterpret_cast<const char*>(input.rest()), int(input.restSize()));
    OpenDevice& device = openDevice(index);
    if (device.map >= 0) {
        // Every feature, past the register cache, from this input's contents.
        device.worker->readNodes(device.map, device.all, true, true);
    }
    return 0;
}
