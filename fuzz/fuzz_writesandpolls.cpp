// What a user and the poll timer do after the open, in any order: writes of any value to any
// feature, reads past the cache, polls, a device that stops answering. Nothing crashes.
#include "fuzzsupport.h"

#include <deviceworker.h>
#include <simulateddevice.h>

#include <parametercollection/parameterdata.h>

#include <cstring>

using namespace ParameterCollection;

namespace {

QVariant valueFor(const ParameterData& data, quint64 raw)
{
    switch (data.type) {
    case IntegerType:
        return qint64(raw);
    case FloatType: {
        double d;
        std::memcpy(&d, &raw, sizeof d);
        return d;
    }
    case BooleanType:
        return (raw & 1) != 0;
    case EnumerationType: {
        const auto& entries = static_cast<const EnumParameterData&>(data).entries;
        if (!entries.isEmpty() && (raw & 0x100) == 0) {
            return entries[int(raw % quint64(entries.size()))].name;
        }
        return QString::number(raw, 36);
    }
    case RegisterType:
        return QByteArray(int(raw % 64), char(raw >> 56));
    default:
        return QString::number(raw, 36);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QVector<FuzzDescription>& descriptions = fuzzDescriptions("fuzz_writesandpolls");
    FuzzInput input(data, size);
    const FuzzDescription& description = descriptions[input.byte() % descriptions.size()];
    Backend::DeviceWorker worker;
    QString error;
    const int map = worker.attachSimulated(description.name, description.xml, QString(), &error);
    if (map < 0) {
        return 0;
    }
    const int count = worker.structure(map)->nodes.size();
    for (int step = 0; step < 64 && !input.atEnd(); ++step) {
        const uint8_t op = input.byte();
        const int node = int((quint32(input.byte()) << 8 | input.byte()) % quint32(count));
        const quint64 raw = input.word();
        switch (op % 5) {
        case 0:
        case 1: {
            const ParameterDataPtr current = worker.snapshot(map).value(node);
            if (current) {
                worker.enqueueWrite({map, node, valueFor(*current, raw)});
                worker.processWrites();
            }
            break;
        }
        case 2:
            worker.readNodes(map, {node}, (raw & 1) != 0, (raw & 2) != 0);
            break;
        case 3:
            worker.readObserved(map, {node, int(raw % quint64(count))});
            break;
        case 4:
            // The device stops answering, or answers again.
            if (Backend::SimulatedDevice* device = worker.simulatedDevice(map)) {
                device->setFault((raw & 3) == 0 ? Backend::SimulatedDevice::Fault::Timeout
                                                : Backend::SimulatedDevice::Fault::None);
            }
            break;
        }
    }
    return 0;
}
