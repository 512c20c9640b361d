#include "parameterdata.h"

namespace ParameterCollection {

QSharedPointer<ParameterData> ParameterData::clone() const
{
    return QSharedPointer<ParameterData>::create(*this);
}

QSharedPointer<ParameterData> IntegerParameterData::clone() const
{
    return QSharedPointer<IntegerParameterData>::create(*this);
}

QSharedPointer<ParameterData> FloatParameterData::clone() const
{
    return QSharedPointer<FloatParameterData>::create(*this);
}

QSharedPointer<ParameterData> BooleanParameterData::clone() const
{
    return QSharedPointer<BooleanParameterData>::create(*this);
}

QSharedPointer<ParameterData> StringParameterData::clone() const
{
    return QSharedPointer<StringParameterData>::create(*this);
}

QSharedPointer<ParameterData> EnumParameterData::clone() const
{
    return QSharedPointer<EnumParameterData>::create(*this);
}

QSharedPointer<ParameterData> CommandParameterData::clone() const
{
    return QSharedPointer<CommandParameterData>::create(*this);
}

QSharedPointer<ParameterData> RegisterParameterData::clone() const
{
    return QSharedPointer<RegisterParameterData>::create(*this);
}

bool sameData(const ParameterData& a, const ParameterData& b)
{
    if (a.type != b.type || a.visibility != b.visibility || a.accessMode != b.accessMode ||
        a.readable != b.readable || a.writable != b.writable || a.available != b.available ||
        a.implemented != b.implemented || a.locked != b.locked || a.value != b.value ||
        a.displayText != b.displayText || a.representation != b.representation ||
        a.unit != b.unit || a.errorText != b.errorText || a.errorKind != b.errorKind ||
        a.deviceLost != b.deviceLost || a.restriction != b.restriction) {
        return false;
    }
    switch (a.type) {
    case IntegerType: {
        const auto& x = static_cast<const IntegerParameterData&>(a);
        const auto& y = static_cast<const IntegerParameterData&>(b);
        return x.min == y.min && x.max == y.max && x.increment == y.increment;
    }
    case FloatType: {
        const auto& x = static_cast<const FloatParameterData&>(a);
        const auto& y = static_cast<const FloatParameterData&>(b);
        return x.min == y.min && x.max == y.max && x.increment == y.increment &&
               x.hasIncrement == y.hasIncrement && x.displayNotation == y.displayNotation &&
               x.displayPrecision == y.displayPrecision;
    }
    case EnumerationType: {
        const auto& x = static_cast<const EnumParameterData&>(a);
        const auto& y = static_cast<const EnumParameterData&>(b);
        return x.entries == y.entries && x.intValue == y.intValue;
    }
    case CommandType:
        return static_cast<const CommandParameterData&>(a).done ==
               static_cast<const CommandParameterData&>(b).done;
    case StringType:
        return static_cast<const StringParameterData&>(a).maxLength ==
               static_cast<const StringParameterData&>(b).maxLength;
    case RegisterType:
        return static_cast<const RegisterParameterData&>(a).length ==
               static_cast<const RegisterParameterData&>(b).length;
    default:
        return true;
    }
}

} // namespace ParameterCollection
