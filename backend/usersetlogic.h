#pragma once

#include "devicelogic.h"
#include "featureset.h"
#include "structurebuilder.h"

#include <QHash>
#include <QString>

#include <memory>

namespace Backend {

class SimulatedDevice;

// The user sets of a simulated camera: UserSetSave keeps the streamable features of the
// active configuration in the camera's own memory under the selected set, UserSetLoad puts
// them back, and the Default set holds the values the camera started with. Lies over the
// camera's other behaviour, which it keeps alive. Idle for a description without user sets.
class UserSetLogic : public DeviceLogic {
public:
    UserSetLogic(SimulatedDevice& device, std::unique_ptr<DeviceLogic> inner);
    ~UserSetLogic() override;

    bool takeBulkChange() override;

private:
    class Access;
    quint64 commandRegister(const char* command) const;
    void onWrite(quint64 address);
    QString selectedSet();
    FeatureSet saveActive();

    SimulatedDevice& m_device;
    std::unique_ptr<DeviceLogic> m_inner;
    StructureBuilder::Result m_built;
    std::unique_ptr<Access> m_access;
    int m_selector = -1;
    quint64 m_loadRegister = 0;
    quint64 m_saveRegister = 0;
    QHash<QString, FeatureSet> m_sets; // by entry name of UserSetSelector
    bool m_bulkChange = false;
};

} // namespace Backend
