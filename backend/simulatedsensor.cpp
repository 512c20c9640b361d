#include <arv.h>

#include "simulatedsensor.h"

#include "simulateddevice.h"
#include "simulatedimage.h"

#include <vector>

namespace Backend {

namespace {

// The checks are off while the power-on state is written, as a device's firmware writes its
// read-only registers; the caller's policies come back afterwards.
class UncheckedWrites {
public:
    explicit UncheckedWrites(ArvGc* genicam)
        : m_genicam(genicam), m_access(arv_gc_get_access_check_policy(genicam)),
          m_range(arv_gc_get_range_check_policy(genicam))
    {
        arv_gc_set_access_check_policy(genicam, ARV_ACCESS_CHECK_POLICY_DISABLE);
        arv_gc_set_range_check_policy(genicam, ARV_RANGE_CHECK_POLICY_DISABLE);
    }
    ~UncheckedWrites()
    {
        arv_gc_set_access_check_policy(m_genicam, m_access);
        arv_gc_set_range_check_policy(m_genicam, m_range);
    }
    UncheckedWrites(const UncheckedWrites&) = delete;
    UncheckedWrites& operator=(const UncheckedWrites&) = delete;

private:
    ArvGc* m_genicam;
    ArvAccessCheckPolicy m_access;
    ArvRangeCheckPolicy m_range;
};

bool readInteger(ArvGcNode* node, qint64* value)
{
    GError* error = nullptr;
    if (ARV_IS_GC_INTEGER(node)) {
        *value = arv_gc_integer_get_value(ARV_GC_INTEGER(node), &error);
    } else if (ARV_IS_GC_BOOLEAN(node)) {
        *value = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(node), &error) ? 1 : 0;
    } else {
        return false;
    }
    if (error != nullptr) {
        g_clear_error(&error);
        return false;
    }
    return true;
}

bool writeInteger(ArvGcNode* node, qint64 value)
{
    GError* error = nullptr;
    if (ARV_IS_GC_INTEGER(node)) {
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), value, &error);
    } else if (ARV_IS_GC_BOOLEAN(node)) {
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(node), value != 0, &error);
    } else {
        return false;
    }
    if (error != nullptr) {
        g_clear_error(&error);
        return false;
    }
    // A formula or a constant takes no value: what counts is what reads back.
    qint64 back = 0;
    return readInteger(node, &back) && back == value;
}

ArvGcNode* linkedNode(ArvGcNode* node, ArvGcPropertyNodeType type)
{
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(node)); child != nullptr;
         child = arv_dom_node_get_next_sibling(child)) {
        if (ARV_IS_GC_PROPERTY_NODE(child) &&
            arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(child)) == type) {
            return arv_gc_property_node_get_linked_node(ARV_GC_PROPERTY_NODE(child));
        }
    }
    return nullptr;
}

// In the description's order, which Aravis's own list of entries does not keep.
std::vector<ArvGcNode*> entriesOf(ArvGcNode* enumeration)
{
    std::vector<ArvGcNode*> entries;
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(enumeration));
         child != nullptr; child = arv_dom_node_get_next_sibling(child)) {
        if (ARV_IS_GC_ENUM_ENTRY(child)) {
            entries.push_back(ARV_GC_NODE(child));
        }
    }
    return entries;
}

QString nameOf(ArvGcNode* node)
{
    return QString::fromUtf8(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node)));
}

// Sets the flags behind the node's pIsImplemented and pIsAvailable that read 0.
void makeUsable(ArvGcNode* node, QStringList* notes)
{
    for (const ArvGcPropertyNodeType type :
         {ARV_GC_PROPERTY_NODE_TYPE_P_IS_IMPLEMENTED, ARV_GC_PROPERTY_NODE_TYPE_P_IS_AVAILABLE}) {
        ArvGcNode* flag = linkedNode(node, type);
        qint64 value = 0;
        if (flag != nullptr && ARV_IS_GC_FEATURE_NODE(flag) && readInteger(flag, &value) &&
            value == 0 && writeInteger(flag, 1)) {
            *notes << QStringLiteral("%1 = 1").arg(nameOf(flag));
        }
    }
}

bool isUsable(ArvGcNode* node)
{
    GError* error = nullptr;
    bool usable = arv_gc_feature_node_is_implemented(ARV_GC_FEATURE_NODE(node), &error);
    if (error == nullptr && usable) {
        usable = arv_gc_feature_node_is_available(ARV_GC_FEATURE_NODE(node), &error);
    }
    if (error != nullptr) {
        g_clear_error(&error);
        return false;
    }
    return usable;
}

ArvGcNode* featureNamed(ArvGc* genicam, const char* name)
{
    ArvGcNode* node = arv_gc_get_node(genicam, name);
    return node != nullptr && ARV_IS_GC_FEATURE_NODE(node) ? node : nullptr;
}

// A size below 1, and a maximum below the sensor, become the simulated sensor's.
void powerOnSize(ArvGc* genicam, const char* name, qint64 size, QStringList* notes)
{
    ArvGcNode* node = featureNamed(genicam, name);
    if (node == nullptr || !ARV_IS_GC_INTEGER(node)) {
        return;
    }
    makeUsable(node, notes);
    qint64 value = 0;
    if (readInteger(node, &value) && value >= 1) {
        return;
    }
    if (ArvGcNode* maximum = linkedNode(node, ARV_GC_PROPERTY_NODE_TYPE_P_MAXIMUM)) {
        qint64 max = 0;
        if (readInteger(maximum, &max) && max < size && writeInteger(maximum, size)) {
            *notes << QStringLiteral("%1 = %2").arg(nameOf(maximum)).arg(size);
        }
    }
    if (writeInteger(node, size)) {
        *notes << QStringLiteral("%1 = %2").arg(QLatin1String(name)).arg(size);
    }
}

// The current entry of an enumeration, when it names one that is usable.
ArvGcNode* currentEntry(ArvGcNode* enumeration)
{
    GError* error = nullptr;
    const qint64 value = arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(enumeration), &error);
    if (error != nullptr) {
        g_clear_error(&error);
        return nullptr;
    }
    for (ArvGcNode* entry : entriesOf(enumeration)) {
        const qint64 entryValue = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(entry), &error);
        if (error != nullptr) {
            g_clear_error(&error);
            continue;
        }
        if (entryValue == value) {
            return isUsable(entry) ? entry : nullptr;
        }
    }
    return nullptr;
}

// Makes the first entry that `wanted` accepts usable and current.
template <typename Wanted>
void powerOnEntry(ArvGcNode* enumeration, const char* name, Wanted wanted, QStringList* notes)
{
    for (ArvGcNode* entry : entriesOf(enumeration)) {
        GError* error = nullptr;
        const qint64 value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(entry), &error);
        if (error != nullptr) {
            g_clear_error(&error);
            continue;
        }
        if (!wanted(nameOf(entry), value)) {
            continue;
        }
        makeUsable(entry, notes);
        arv_gc_enumeration_set_int_value(ARV_GC_ENUMERATION(enumeration), value, &error);
        if (error != nullptr) {
            g_clear_error(&error);
            continue;
        }
        if (currentEntry(enumeration) == entry) {
            *notes << QStringLiteral("%1 = %2").arg(QLatin1String(name), nameOf(entry));
            return;
        }
    }
}

template <typename Valid>
void powerOnEnumeration(ArvGc* genicam, const char* name, Valid valid, QStringList* notes)
{
    ArvGcNode* node = featureNamed(genicam, name);
    if (node == nullptr || !ARV_IS_GC_ENUMERATION(node)) {
        return;
    }
    makeUsable(node, notes);
    ArvGcNode* entry = currentEntry(node);
    if (entry == nullptr) {
        powerOnEntry(node, name, valid, notes);
        return;
    }
    GError* error = nullptr;
    const qint64 value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(entry), &error);
    g_clear_error(&error);
    if (!valid(nameOf(entry), value)) {
        powerOnEntry(node, name, valid, notes);
    }
}

} // namespace

QStringList SimulatedSensor::powerOn(SimulatedDevice& device)
{
    ArvGc* genicam = device.genicam();
    UncheckedWrites unchecked(genicam);
    QStringList notes;
    powerOnSize(genicam, "SensorWidth", WIDTH, &notes);
    powerOnSize(genicam, "SensorHeight", HEIGHT, &notes);
    powerOnSize(genicam, "WidthMax", WIDTH, &notes);
    powerOnSize(genicam, "HeightMax", HEIGHT, &notes);
    powerOnSize(genicam, "Width", WIDTH, &notes);
    powerOnSize(genicam, "Height", HEIGHT, &notes);
    powerOnEnumeration(
        genicam, "PixelFormat",
        [](const QString& entry, qint64 value) {
            return (value > 0 && value <= 0xFFFFFFFF && SimulatedImage::supports(quint32(value))) ||
                   SimulatedImage::formatCode(entry) != 0;
        },
        &notes);
    // Any usable entry is a valid mode; none becomes Continuous.
    if (ArvGcNode* mode = featureNamed(genicam, "AcquisitionMode");
        mode != nullptr && ARV_IS_GC_ENUMERATION(mode)) {
        makeUsable(mode, &notes);
        if (currentEntry(mode) == nullptr) {
            powerOnEntry(
                mode, "AcquisitionMode",
                [](const QString& entry, qint64) { return entry == QLatin1String("Continuous"); },
                &notes);
        }
    }
    SimulatedImageSettings settings;
    QString error;
    if (!SimulatedImage::settingsOf(genicam, &settings, &error) &&
        error.startsWith(QLatin1String("[TestPattern]"))) {
        powerOnEnumeration(
            genicam, "TestPattern",
            [](const QString& entry, qint64) { return entry == QLatin1String("Off"); }, &notes);
    }
    return notes;
}

} // namespace Backend
