#pragma once

namespace Backend {

// Behaviour of a simulated device beyond plain memory. A logic object installs its hooks on
// the device when it is made and lives exactly as long as the device.
class DeviceLogic {
public:
    virtual ~DeviceLogic() = default;
    // True once after the device changed many values behind the feature a write addressed
    // (a user set loaded): everything must be read again.
    virtual bool takeBulkChange() { return false; }
};

} // namespace Backend
