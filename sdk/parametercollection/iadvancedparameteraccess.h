#pragma once

#include <QString>

namespace ParameterCollection {

// Operations that go beyond reading and writing a value. Every parameter offers them.
class IAdvancedParameterAccess {
public:
    virtual ~IAdvancedParameterAccess() = default;

    // Re-reads the parameter from the device, past the register cache; a change arrives as
    // parameterDataChanged.
    virtual void refreshParameterData() = 0;
    // Like refreshParameterData, but the data is delivered even when nothing changed.
    virtual void scheduleForcedParameterDataChangedCheck() = 0;
    // Overrides a node property. Understood: "Visibility" (Beginner, Expert, Guru, Invisible)
    // and "AccessMode" (NI, NA, WO, RO, RW; an override can only restrict). Throws
    // InvalidArgumentException for a property or value text it does not understand.
    virtual void setProperty(const QString& name, const QString& value) = 0;
};

} // namespace ParameterCollection
