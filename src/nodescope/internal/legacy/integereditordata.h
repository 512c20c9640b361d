#pragma once

#include <QSharedPointer>

namespace ParameterCollection {
class IParameter;
class IntegerParameterData;
} // namespace ParameterCollection

// The data both integer editors load from: null, and logged, where `parameter` is no integer
// feature. Throws what the parameter layer throws.
QSharedPointer<const ParameterCollection::IntegerParameterData>
integerEditorData(ParameterCollection::IParameter* parameter);
