#include "writecheck.h"

#include "valuetext.h"

#include <parametercollection/exception.h>

#include <cmath>

using namespace ParameterCollection;

namespace Backend {

// Addresses as people write them: "192.168.0.10", "00:1b:2c:3d:4e:5f" or "00-1B-2C-3D-4E-5F".
static bool parseAddress(const QString& text, qint64* value)
{
    const bool ipv4 = text.count(QLatin1Char('.')) == 3;
    const QChar separator = text.contains(QLatin1Char(':')) ? QLatin1Char(':') : QLatin1Char('-');
    const bool mac = !ipv4 && text.count(separator) == 5;
    if (!ipv4 && !mac) {
        return false;
    }
    const QStringList parts = text.split(ipv4 ? QLatin1Char('.') : separator);
    quint64 result = 0;
    for (const QString& part : parts) {
        bool ok = false;
        const uint byte = part.toUInt(&ok, ipv4 ? 10 : 16);
        if (!ok || byte > 255 || part.isEmpty() || part.size() > (ipv4 ? 3 : 2)) {
            return false;
        }
        result = (result << 8) | byte;
    }
    *value = qint64(result);
    return true;
}

static qint64 parseInteger(const QVariant& value, const QString& feature)
{
    bool ok = false;
    qint64 v = 0;
    if (value.type() == QVariant::String || value.type() == QVariant::ByteArray) {
        const QString text = value.toString().trimmed();
        if (parseAddress(text, &v)) {
            ok = true;
        } else if (text.startsWith(QLatin1String("0x")) || text.startsWith(QLatin1String("0X"))) {
            v = qint64(text.mid(2).toULongLong(&ok, 16));
        } else {
            v = text.toLongLong(&ok);
        }
    } else if (value.type() == QVariant::Double) {
        const double d = value.toDouble();
        ok = std::isfinite(d) && d == std::floor(d);
        v = qint64(d);
    } else {
        v = value.toLongLong(&ok);
    }
    if (!ok) {
        throw InvalidArgumentException(
            feature, QStringLiteral("'%1' is not an integer").arg(value.toString()));
    }
    return v;
}

// Raw bytes, or hexadecimal text, of exactly the register's length.
static QByteArray validatedBytes(const RegisterParameterData& data, const QVariant& value,
                                 const QString& feature)
{
    QByteArray bytes;
    if (value.type() == QVariant::ByteArray) {
        bytes = value.toByteArray();
    } else if (!registerBytes(value.toString(), &bytes)) {
        throw InvalidArgumentException(
            feature, QStringLiteral("'%1' is not hexadecimal bytes").arg(value.toString()));
    }
    if (bytes.size() != data.length) {
        throw InvalidArgumentException(feature,
                                       QStringLiteral("%1 bytes given where the register holds %2")
                                           .arg(bytes.size())
                                           .arg(data.length));
    }
    return bytes;
}

// Integers and floats alike: the limits that the data says, named in the refusal.
template <class Number>
static void checkLimits(Number v, Number minimum, Number maximum, const QString& feature)
{
    if (v < minimum) {
        throw RangeException(feature,
                             QStringLiteral("%1 is below the minimum %2").arg(v).arg(minimum));
    }
    if (v > maximum) {
        throw RangeException(feature,
                             QStringLiteral("%1 is above the maximum %2").arg(v).arg(maximum));
    }
}

static qint64 validatedInteger(const IntegerParameterData& d, const QVariant& value,
                               const QString& feature)
{
    const qint64 v = parseInteger(value, feature);
    checkLimits(v, d.min, d.max, feature);
    if (d.increment > 1 && (quint64(v) - quint64(d.min)) % quint64(d.increment) != 0) {
        throw RangeException(feature,
                             QStringLiteral("%1 is not on the grid of increment %2 from %3")
                                 .arg(v)
                                 .arg(d.increment)
                                 .arg(d.min));
    }
    return v;
}

static double validatedFloat(const FloatParameterData& d, const QVariant& value,
                             const QString& feature)
{
    bool ok = false;
    const double v = value.type() == QVariant::String ? value.toString().trimmed().toDouble(&ok)
                                                      : value.toDouble(&ok);
    if (!ok || !std::isfinite(v)) {
        throw InvalidArgumentException(
            feature, QStringLiteral("'%1' is not a number").arg(value.toString()));
    }
    checkLimits(v, d.min, d.max, feature);
    if (d.hasIncrement) {
        const double steps = (v - d.min) / d.increment;
        if (std::fabs(steps - std::round(steps)) > 1e-6) {
            throw RangeException(feature,
                                 QStringLiteral("%1 is not on the grid of increment %2 from %3")
                                     .arg(v)
                                     .arg(d.increment)
                                     .arg(d.min));
        }
    }
    return v;
}

static bool validatedBoolean(const QVariant& value, const QString& feature)
{
    if (value.type() == QVariant::String) {
        const QString t = value.toString().trimmed().toLower();
        if (t == QLatin1String("1") || t == QLatin1String("true")) {
            return true;
        }
        if (t == QLatin1String("0") || t == QLatin1String("false")) {
            return false;
        }
        throw InvalidArgumentException(
            feature, QStringLiteral("'%1' is not a boolean").arg(value.toString()));
    }
    return value.toBool();
}

static QString validatedEntry(const EnumParameterData& d, const QVariant& value,
                              const QString& feature)
{
    const QString name = value.toString();
    for (const auto& entry : d.entries) {
        if (entry.name == name) {
            return name;
        }
    }
    bool isNumber = false;
    const qint64 number = value.toLongLong(&isNumber);
    if (isNumber && value.type() != QVariant::String) {
        for (const auto& entry : d.entries) {
            if (entry.intValue == number) {
                return entry.name;
            }
        }
    }
    throw InvalidArgumentException(feature,
                                   QStringLiteral("'%1' is not an available entry").arg(name));
}

static QString validatedString(const StringParameterData& d, const QVariant& value,
                               const QString& feature)
{
    const QString s = value.toString();
    if (d.maxLength > 0 && s.toUtf8().size() > d.maxLength) {
        throw RangeException(feature,
                             QStringLiteral("the text is longer than %1 bytes").arg(d.maxLength));
    }
    return s;
}

QVariant WriteCheck::validated(const NodeInfo& info, const ParameterData& data,
                               const QVariant& value)
{
    const QString& feature = info.featureName;
    checkWritable(data, feature);
    if (!value.isValid()) {
        throw InvalidArgumentException(feature, QStringLiteral("no value given"));
    }
    switch (info.type) {
    case IntegerType:
        return validatedInteger(static_cast<const IntegerParameterData&>(data), value, feature);
    case FloatType:
        return validatedFloat(static_cast<const FloatParameterData&>(data), value, feature);
    case BooleanType:
        return validatedBoolean(value, feature);
    case EnumerationType:
        return validatedEntry(static_cast<const EnumParameterData&>(data), value, feature);
    case StringType:
        return validatedString(static_cast<const StringParameterData&>(data), value, feature);
    case CommandType:
        return value.toBool();
    case RegisterType:
        return validatedBytes(static_cast<const RegisterParameterData&>(data), value, feature);
    default:
        throw AccessException(feature, QStringLiteral("the node holds no value"));
    }
}

void WriteCheck::checkWritable(const ParameterData& data, const QString& feature)
{
    if (!data.implemented) {
        throw AccessException(feature, QStringLiteral("the feature is not implemented"));
    }
    if (!data.available) {
        throw AccessException(feature, QStringLiteral("the feature is not available"));
    }
    if (data.locked) {
        throw AccessException(feature, QStringLiteral("the feature is locked"));
    }
    if (!data.writable && data.hasError()) {
        // Whether it may be written could not be learnt: say why.
        throw AccessException(
            feature, QStringLiteral("the feature is not writable: %1").arg(data.errorText));
    }
    if (!data.writable) {
        throw AccessException(feature, QStringLiteral("the feature is not writable (%1)")
                                           .arg(GenApi::accessModeToString(data.accessMode)));
    }
}

} // namespace Backend
