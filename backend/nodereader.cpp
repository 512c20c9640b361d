#include <arv.h>

#include "nodereader.h"

#include "arithmeticguard.h"
#include "errormapping.h"
#include "valuetext.h"

#include <cmath>
#include <limits>

using namespace ParameterCollection;

namespace Backend {

NodeReader::NodeReader(ArvGcFeatureNode* feature, const NodeInfo& info, Command command)
    : m_feature(feature), m_info(info), m_command(command)
{}

NodeReader::~NodeReader()
{
    g_clear_error(&m_error);
}

QSharedPointer<ParameterData> NodeReader::newData(const NodeInfo& info)
{
    QSharedPointer<ParameterData> data;
    switch (info.type) {
    case IntegerType:
        data = QSharedPointer<IntegerParameterData>::create();
        break;
    case FloatType: {
        auto f = QSharedPointer<FloatParameterData>::create();
        f->displayNotation = info.displayNotation;
        f->displayPrecision = info.displayPrecision;
        data = f;
        break;
    }
    case BooleanType:
        data = QSharedPointer<BooleanParameterData>::create();
        break;
    case StringType:
        data = QSharedPointer<StringParameterData>::create();
        break;
    case EnumerationType:
        data = QSharedPointer<EnumParameterData>::create();
        break;
    case CommandType:
        data = QSharedPointer<CommandParameterData>::create();
        break;
    case RegisterType:
        data = QSharedPointer<RegisterParameterData>::create();
        break;
    default:
        data = QSharedPointer<ParameterData>::create();
    }
    data->type = info.type;
    data->name = info.fullName;
    data->featureName = info.featureName;
    data->visibility = info.visibility;
    data->representation = info.representation;
    data->unit = info.unit;
    return data;
}

static GenApi::EAccessMode declaredMode(ArvGcAccessMode mode)
{
    switch (mode) {
    case ARV_GC_ACCESS_MODE_WO:
        return GenApi::WO;
    case ARV_GC_ACCESS_MODE_RW:
        return GenApi::RW;
    default:
        return GenApi::RO;
    }
}

QSharedPointer<ParameterData> NodeReader::neverRead(ArvGcFeatureNode* feature, const NodeInfo& info,
                                                    const QString& reason)
{
    auto data = newData(info);
    // Whether it is implemented or available was never learnt either: it stays listed, so
    // that the user sees what is missing and why.
    data->implemented = data->available = true;
    data->deviceLost = true;
    data->accessMode = declaredMode(arv_gc_feature_node_get_actual_access_mode(feature));
    data->errorText =
        QStringLiteral("The value was never read: the device was lost (%1)").arg(reason);
    data->errorKind = Exception::DeviceLost;
    return data;
}

QSharedPointer<ParameterData> NodeReader::read()
{
    const unsigned overflows = ArithmeticGuard::overflowCount();
    auto data = newData(m_info);
    readChecked(*data);
    if (ArithmeticGuard::overflowCount() != overflows && !m_deviceFailed) {
        // The value came out of a division that wrapped: no number the device holds.
        data->readable = false;
        data->value = QVariant();
        data->displayText.clear();
        data->errorText = QStringLiteral("A formula divides the lowest 64-bit integer by -1, "
                                         "whose result does not fit in 64 bits");
        data->errorKind = Exception::Range;
    }
    return data;
}

void NodeReader::readChecked(ParameterData& data)
{
    if (!readConditions(data)) {
        if (data.hasError()) {
            readAccess(data);
            data.readable = data.writable = false;
        }
        return;
    }
    if (m_info.type == CategoryType) {
        data.readable = true;
        data.accessMode = GenApi::RO;
        return;
    }
    readAccess(data);
    readValue(data);
}

bool NodeReader::readConditions(ParameterData& data)
{
    data.implemented = arv_gc_feature_node_is_implemented(m_feature, &m_error);
    if (failed(data, QStringLiteral("Cannot tell whether it is implemented: "))) {
        data.implemented = data.available = true;
        return false;
    }
    if (!data.implemented) {
        data.accessMode = GenApi::NI;
        return false;
    }
    data.available = arv_gc_feature_node_is_available(m_feature, &m_error);
    if (failed(data, QStringLiteral("Cannot tell whether it is available: "))) {
        data.available = true;
        return false;
    }
    if (!data.available) {
        data.accessMode = GenApi::NA;
        return false;
    }
    if (m_info.type == CategoryType) {
        return true;
    }
    data.locked = arv_gc_feature_node_is_locked(m_feature, &m_error);
    return !failed(data, QStringLiteral("Cannot tell whether it is locked: "));
}

void NodeReader::readAccess(ParameterData& data)
{
    const ArvGcAccessMode mode = arv_gc_feature_node_get_actual_access_mode(m_feature);
    data.readable = mode == ARV_GC_ACCESS_MODE_RO || mode == ARV_GC_ACCESS_MODE_RW ||
                    mode == ARV_GC_ACCESS_MODE_UNDEFINED;
    data.writable = (mode == ARV_GC_ACCESS_MODE_WO || mode == ARV_GC_ACCESS_MODE_RW) &&
                    !data.locked && m_info.type != UnknownType;
    if (m_info.type == CommandType) {
        // Whether a command is done can only be known where its register can be read.
        data.readable = data.readable && commandTargetReadable();
    }
    data.accessMode = declaredMode(mode);
    if (data.locked) {
        // GenICam's reading of a lock: what could be written can't be now.
        data.accessMode = data.accessMode == GenApi::WO ? GenApi::NA : GenApi::RO;
    }
}

bool NodeReader::commandTargetReadable() const
{
    if (m_command.target == nullptr || !ARV_IS_GC_FEATURE_NODE(m_command.target) ||
        !ARV_IS_GC_INTEGER(m_command.target)) {
        return false;
    }
    const ArvGcAccessMode mode =
        arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(m_command.target));
    return mode == ARV_GC_ACCESS_MODE_RO || mode == ARV_GC_ACCESS_MODE_RW;
}

void NodeReader::readValue(ParameterData& data)
{
    if (!data.readable) {
        // The limits of a number, which writes are checked against, are known even when its
        // value can't be read (a write-only feature).
        readLimits(data);
        return;
    }
    if (m_info.type != RegisterType && ARV_IS_GC_REGISTER_NODE(m_feature)) {
        // A Length taken from another node is only known now; Aravis would allocate it whole.
        const gint64 length = arv_gc_register_get_length(ARV_GC_REGISTER(m_feature), &m_error);
        if (failed(data)) {
            return;
        }
        if (length < 0 || length > kMaxRegisterRead) {
            data.readable = false;
            data.errorText =
                QStringLiteral("The register is too long to read (%1 bytes)").arg(length);
            data.errorKind = Exception::Range;
            return;
        }
    }
    switch (m_info.type) {
    case IntegerType:
        readInteger(data);
        break;
    case FloatType:
        readFloat(data);
        break;
    case BooleanType:
        readBoolean(data);
        break;
    case StringType:
        readString(data);
        break;
    case EnumerationType:
        readEnumeration(data);
        break;
    case CommandType:
        readCommand(data);
        break;
    case RegisterType:
        readRegister(data);
        break;
    default:
        // A node of no value type (a Port, a ConfRom): there is nothing to read.
        data.readable = false;
    }
}

void NodeReader::readInteger(ParameterData& data)
{
    const qint64 v = arv_gc_integer_get_value(ARV_GC_INTEGER(m_feature), &m_error);
    if (failed(data)) {
        return;
    }
    data.value = v;
    data.displayText = integerText(v, m_info.representation);
    readLimits(data);
}

void NodeReader::readFloat(ParameterData& data)
{
    const double v = arv_gc_float_get_value(ARV_GC_FLOAT(m_feature), &m_error);
    if (failed(data)) {
        return;
    }
    data.value = v;
    data.displayText = floatText(v, m_info.displayNotation, m_info.displayPrecision);
    readLimits(data);
}

void NodeReader::readBoolean(ParameterData& data)
{
    const bool v = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(m_feature), &m_error);
    if (failed(data)) {
        return;
    }
    data.value = v;
    data.displayText = v ? QStringLiteral("True") : QStringLiteral("False");
}

void NodeReader::readString(ParameterData& data)
{
    auto& d = static_cast<StringParameterData&>(data);
    const char* v = arv_gc_string_get_value(ARV_GC_STRING(m_feature), &m_error);
    if (failed(data)) {
        return;
    }
    d.value = QString::fromUtf8(v);
    d.displayText = d.value.toString();
    d.maxLength = arv_gc_string_get_max_length(ARV_GC_STRING(m_feature), &m_error);
    if (limitFailed(data)) {
        d.maxLength = 0;
    }
}

void NodeReader::readEnumeration(ParameterData& data)
{
    auto& d = static_cast<EnumParameterData&>(data);
    const qint64 v = arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(m_feature), &m_error);
    if (failed(data)) {
        return;
    }
    d.intValue = v;
    readEntries(d);
    if (m_deviceFailed) {
        return;
    }
    QString current;
    QString currentDisplay;
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(m_feature));
         child != nullptr && current.isEmpty(); child = arv_dom_node_get_next_sibling(child)) {
        if (ARV_IS_GC_ENUM_ENTRY(child) &&
            arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(child), nullptr) == v) {
            current = QString::fromUtf8(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(child)));
            const char* display = arv_gc_feature_node_get_display_name(ARV_GC_FEATURE_NODE(child));
            currentDisplay = display != nullptr ? QString::fromUtf8(display) : current;
        }
    }
    // A value no entry names is shown as the number the device holds.
    d.value = current.isEmpty() ? QVariant(QString::number(v)) : QVariant(current);
    d.displayText = current.isEmpty() ? QString::number(v) : currentDisplay;
}

void NodeReader::readEntries(EnumParameterData& data)
{
    // The entries in document order, as the camera's description lists them: Aravis keeps
    // its own entry list back to front. Only entries that can be chosen now are offered.
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(m_feature));
         child != nullptr && !m_deviceFailed; child = arv_dom_node_get_next_sibling(child)) {
        if (!ARV_IS_GC_ENUM_ENTRY(child)) {
            continue;
        }
        auto* entryNode = ARV_GC_FEATURE_NODE(child);
        EnumParameterData::Entry entry;
        entry.name = QString::fromUtf8(arv_gc_feature_node_get_name(entryNode));
        const char* display = arv_gc_feature_node_get_display_name(entryNode);
        entry.displayName = display != nullptr ? QString::fromUtf8(display) : entry.name;
        entry.intValue = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(entryNode), &m_error);
        if (limitFailed(data) || !arv_gc_feature_node_is_implemented(entryNode, &m_error) ||
            limitFailed(data) || !arv_gc_feature_node_is_available(entryNode, &m_error) ||
            limitFailed(data)) {
            continue;
        }
        data.entries.append(entry);
    }
}

void NodeReader::readCommand(ParameterData& data)
{
    auto& d = static_cast<CommandParameterData&>(data);
    const qint64 v = arv_gc_integer_get_value(ARV_GC_INTEGER(m_command.target), &m_error);
    if (failed(data)) {
        return;
    }
    d.done = v != m_command.value;
    d.value = !d.done;
}

void NodeReader::readRegister(ParameterData& data)
{
    auto& d = static_cast<RegisterParameterData&>(data);
    auto* reg = ARV_GC_REGISTER(m_feature);
    d.length = qint64(arv_gc_register_get_length(reg, &m_error));
    if (failed(data)) {
        return;
    }
    if (d.length < 0 || d.length > kMaxRegisterRead) {
        d.readable = false;
        d.errorText = QStringLiteral("The register is too long to read (%1 bytes)").arg(d.length);
        d.errorKind = Exception::Range;
        return;
    }
    QByteArray bytes(int(d.length), '\0');
    if (bytes.isEmpty()) {
        d.value = bytes;
        d.displayText = registerText(bytes);
        return;
    }
    arv_gc_register_get(reg, bytes.data(), guint64(bytes.size()), &m_error);
    if (failed(data)) {
        return;
    }
    d.value = bytes;
    d.displayText = registerText(bytes);
}

void NodeReader::readLimits(ParameterData& data)
{
    if (m_info.type == IntegerType && ARV_IS_GC_INTEGER(m_feature)) {
        readIntegerLimits(static_cast<IntegerParameterData&>(data));
    } else if (m_info.type == FloatType && ARV_IS_GC_FLOAT(m_feature)) {
        readFloatLimits(static_cast<FloatParameterData&>(data));
    } else if (m_info.type == RegisterType && ARV_IS_GC_REGISTER(m_feature)) {
        auto& d = static_cast<RegisterParameterData&>(data);
        d.length = qint64(arv_gc_register_get_length(ARV_GC_REGISTER(m_feature), &m_error));
        if (limitFailed(data)) {
            d.length = 0;
        }
    }
}

void NodeReader::readIntegerLimits(IntegerParameterData& d)
{
    auto* integer = ARV_GC_INTEGER(m_feature);
    d.min = arv_gc_integer_get_min(integer, &m_error);
    if (limitFailed(d)) {
        d.min = std::numeric_limits<qint64>::min();
    }
    d.max = arv_gc_integer_get_max(integer, &m_error);
    if (limitFailed(d)) {
        d.max = std::numeric_limits<qint64>::max();
    }
    d.increment = arv_gc_integer_get_inc(integer, &m_error);
    if (limitFailed(d) || d.increment <= 0) {
        d.increment = 1;
    }
}

void NodeReader::readFloatLimits(FloatParameterData& d)
{
    auto* number = ARV_GC_FLOAT(m_feature);
    d.min = arv_gc_float_get_min(number, &m_error);
    if (limitFailed(d)) {
        d.min = -std::numeric_limits<double>::max();
    }
    d.max = arv_gc_float_get_max(number, &m_error);
    if (limitFailed(d)) {
        d.max = std::numeric_limits<double>::max();
    }
    // Aravis answers an increment of 1 or DBL_MIN-like defaults when none is declared.
    d.increment = arv_gc_float_get_inc(number, &m_error);
    if (limitFailed(d) || !(d.increment > 0.0) || !std::isfinite(d.increment) ||
        d.increment == std::numeric_limits<double>::min()) {
        d.increment = 0.0;
    }
    d.hasIncrement = d.increment > 0.0;
}

bool NodeReader::failed(ParameterData& data, const QString& context)
{
    if (m_error == nullptr) {
        return false;
    }
    const QString message = messageOf(m_error);
    if (isDeviceLossError(m_error->domain, m_error->code)) {
        m_deviceFailed = true;
        m_deviceFailure = message;
    }
    data.readable = false;
    data.value = QVariant();
    data.displayText.clear();
    data.errorText = context + message;
    data.errorKind = exceptionKindOf(m_error->domain, m_error->code);
    g_clear_error(&m_error);
    return true;
}

bool NodeReader::limitFailed(ParameterData& data)
{
    if (m_error == nullptr) {
        return false;
    }
    if (isDeviceLossError(m_error->domain, m_error->code)) {
        return failed(data);
    }
    g_clear_error(&m_error);
    return true;
}

} // namespace Backend
