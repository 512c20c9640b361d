#include <arv.h>

#include "usersetlogic.h"

#include "errormapping.h"
#include "featuresettransfer.h"
#include "nodereader.h"
#include "nodewriter.h"
#include "simulateddevice.h"

using namespace ParameterCollection;

namespace Backend {

namespace {
const QString kDefaultSet = QStringLiteral("Default");
}

class UserSetLogic::Access : public FeatureSetTransfer::Access {
public:
    explicit Access(const StructureBuilder::Result& built) : m_built(built) {}
    const NodeMapStructure& structure() const override { return *m_built.structure; }
    const NodeMapGraph& graph() const override { return m_built.graph; }
    ParameterDataPtr read(int node) override
    {
        NodeReader reader(m_built.nodes[node], m_built.structure->nodes[node],
                          {m_built.commandTargets[node], m_built.commandValues[node]});
        return reader.read();
    }
    bool write(int node, const QVariant& value, Exception::Kind* kind, QString* message) override
    {
        GError* error = nullptr;
        if (!NodeWriter::write(m_built.nodes[node], m_built.structure->nodes[node].type, value,
                               &error)) {
            *kind = Exception::Access;
            *message = QStringLiteral("the node cannot be written");
            return false;
        }
        if (error != nullptr) {
            *kind = exceptionKindOf(error->domain, error->code);
            *message = messageOf(error);
            g_clear_error(&error);
            return false;
        }
        return true;
    }

private:
    const StructureBuilder::Result& m_built;
};

UserSetLogic::UserSetLogic(SimulatedDevice& device, std::unique_ptr<DeviceLogic> inner)
    : m_device(device), m_inner(std::move(inner))
{
    m_built = StructureBuilder(device.genicam(), device.name()).build();
    m_access = std::make_unique<Access>(m_built);
    m_selector = m_built.structure->indexOf(QStringLiteral("UserSetSelector"));
    m_loadRegister = commandRegister("UserSetLoad");
    m_saveRegister = commandRegister("UserSetSave");
    if (m_selector < 0 || m_loadRegister == 0) {
        return;
    }
    // The camera starts with its factory values: they are the Default set.
    m_sets.insert(kDefaultSet, saveActive());
    device.addWriteHook([this](SimulatedDevice&, quint64 address, quint32) { onWrite(address); });
}

UserSetLogic::~UserSetLogic() = default;

quint64 UserSetLogic::commandRegister(const char* command) const
{
    const int node = m_built.structure->indexOf(QLatin1String(command));
    if (node < 0 || m_built.commandTargets[node] == nullptr ||
        !ARV_IS_GC_FEATURE_NODE(m_built.commandTargets[node])) {
        return 0;
    }
    quint64 address = 0;
    quint32 length = 0;
    const char* target =
        arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(m_built.commandTargets[node]));
    return m_device.registerOf(target, &address, &length) ? address : 0;
}

bool UserSetLogic::takeBulkChange()
{
    return std::exchange(m_bulkChange, false);
}

QString UserSetLogic::selectedSet()
{
    const ParameterDataPtr data = m_access->read(m_selector);
    return data->readable ? data->value.toString() : QString();
}

FeatureSet UserSetLogic::saveActive()
{
    FeatureSet set = FeatureSetTransfer(*m_access).save();
    // The user set controls are not part of any set.
    const NodeMapStructure& structure = *m_built.structure;
    const QVector<int>& ownFeatures = structure.nodes[m_selector].selectedFeatures;
    set.lines.erase(std::remove_if(set.lines.begin(), set.lines.end(),
                                   [&](const FeatureSet::Line& line) {
                                       const int node = structure.indexOf(line.feature);
                                       return node == m_selector ||
                                              line.feature == QLatin1String("UserSetDefault") ||
                                              ownFeatures.contains(node);
                                   }),
                    set.lines.end());
    return set;
}

void UserSetLogic::onWrite(quint64 address)
{
    if (address != m_loadRegister && address != m_saveRegister) {
        return;
    }
    if (m_device.peekInt(address, 4) == 0) {
        return;
    }
    const QString name = selectedSet();
    if (address == m_saveRegister) {
        if (!name.isEmpty() && name != kDefaultSet) {
            m_sets.insert(name, saveActive());
        }
        return;
    }
    // A set never saved holds what the camera started with.
    FeatureSetTransfer(*m_access).load(m_sets.value(name, m_sets.value(kDefaultSet)));
    m_bulkChange = true;
}

} // namespace Backend
