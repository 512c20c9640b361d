#pragma once

#include "nodemapstructure.h"

#include <parametercollection/parameterdata.h>

#include <QVariant>

namespace Backend {

// Whether a value can be written to a feature as its latest snapshot describes it: access,
// availability, lock, type, range and increment. Refusals are the parameter layer's typed
// exceptions, naming the feature. Needs no device, so any thread may ask.
class WriteCheck {
public:
    // The value as the device takes it; throws when it can't be written.
    static QVariant validated(const NodeInfo& info, const ParameterCollection::ParameterData& data,
                              const QVariant& value);
    // Throws AccessException when the feature can't be written now, saying why.
    static void checkWritable(const ParameterCollection::ParameterData& data,
                              const QString& feature);
};

} // namespace Backend
