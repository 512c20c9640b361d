// Whatever a device answers: every register of a built-in or vendor description holds bytes
// from the input, and every feature is read from them. Nothing crashes, nothing hangs.
#include "fuzzsupport.h"

#include <devicelogic.h>
#include <deviceworker.h>
#include <simulateddevice.h>

namespace {

// Serves every read from the input, so that each register holds what the input says.
class InputMemory : public Backend::DeviceLogic {
public:
    InputMemory(Backend::SimulatedDevice& device, const QByteArray& memory)
    {
        device.addReadHook([memory](Backend::SimulatedDevice& d, quint64 address, quint32 size) {
            if (memory.isEmpty()) {
                return;
            }
            QByteArray bytes(int(qMin<quint32>(size, 1u << 20)), '\0');
            for (int i = 0; i < bytes.size(); ++i) {
                bytes[i] =
                    memory[int((address * 2654435761u + quint64(i)) % quint64(memory.size()))];
            }
            d.poke(address, bytes.constData(), quint32(bytes.size()));
        });
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QVector<FuzzDescription>& descriptions = fuzzDescriptions("fuzz_registercontents");
    FuzzInput input(data, size);
    const FuzzDescription& description = descriptions[input.byte() % descriptions.size()];
    const QByteArray memory(reinterpret_cast<const char*>(input.rest()), int(input.restSize()));
    Backend::DeviceWorker worker;
    worker.setLogicFactory([&memory](Backend::SimulatedDevice& device) {
        return std::unique_ptr<Backend::DeviceLogic>(new InputMemory(device, memory));
    });
    QString error;
    // The open reads every feature; a second pass reads them again past the cache.
    const int map = worker.attachSimulated(description.name, description.xml, QString(), &error);
    if (map >= 0) {
        QVector<int> all;
        for (int i = 0; i < worker.structure(map)->nodes.size(); ++i) {
            all.append(i);
        }
        worker.readNodes(map, all, true, true);
    }
    return 0;
}
