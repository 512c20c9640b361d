#include <arv.h>

#include "transportlayermodule.h"

#include "errormapping.h"

#include "simulateddevice.h"

namespace Backend {

namespace {

// GigE Vision bootstrap registers that Aravis itself reads.
constexpr quint64 kVersionRegister = 0x0000;
constexpr quint64 kMacHighRegister = 0x0008;
constexpr quint64 kMacLowRegister = 0x000C;
constexpr quint64 kHeartbeatTimeoutRegister = 0x0938;

// DeviceType and DeviceAccessStatus entries of the node map.
constexpr qint64 kTypeGigEVision = 0;
constexpr qint64 kTypeUSB3Vision = 1;
constexpr qint64 kTypeSimulated = 2;
constexpr qint64 kTypeCustom = 3;
constexpr qint64 kOpenReadWrite = 5;
constexpr qint64 kOpenReadOnly = 6;

int deviceCodeOf(const GError* error)
{
    return error->domain == ARV_DEVICE_ERROR ? error->code : int(ARV_DEVICE_ERROR_PROTOCOL_ERROR);
}

qint64 ipv4Of(GInetAddress* address)
{
    if (address == nullptr || g_inet_address_get_family(address) != G_SOCKET_FAMILY_IPV4) {
        return -1;
    }
    const guint8* bytes = g_inet_address_to_bytes(address);
    return (qint64(bytes[0]) << 24) | (qint64(bytes[1]) << 16) | (qint64(bytes[2]) << 8) |
           qint64(bytes[3]);
}

qint64 ipv4Of(GSocketAddress* address)
{
    if (address == nullptr || !G_IS_INET_SOCKET_ADDRESS(address)) {
        return -1;
    }
    return ipv4Of(g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(address)));
}

ArvRegisterCachePolicy cachePolicyOf(qint64 mode)
{
    switch (mode) {
    case 0:
        return ARV_REGISTER_CACHE_POLICY_DISABLE;
    case 2:
        return ARV_REGISTER_CACHE_POLICY_DEBUG;
    default:
        return ARV_REGISTER_CACHE_POLICY_ENABLE;
    }
}

} // namespace

TransportLayerModule::TransportLayerModule(SimulatedDevice& module,
                                           const TransportLayerSource& source)
    : m_module(module), m_source(source)
{
    if (m_source.camera != nullptr) {
        g_object_ref(m_source.camera);
    }
    bindIdentity();
    bindGigEVision();
    bindConnection();
    module.addReadCheck([this](SimulatedDevice&, quint64 address, quint32, QString* error,
                               int* code) { return onRead(address, error, code); });
    module.addWriteCheck([this](SimulatedDevice&, quint64 address, quint32, QString* error,
                                int* code) { return onWrite(address, error, code); });
}

TransportLayerModule::~TransportLayerModule()
{
    if (m_source.camera != nullptr) {
        g_object_unref(m_source.camera);
    }
}

TransportLayerModule::Answer TransportLayerModule::number(qint64 value)
{
    Answer a;
    a.number = value;
    return a;
}

TransportLayerModule::Answer TransportLayerModule::text(const QString& value)
{
    Answer a;
    a.isText = true;
    a.text = value.toUtf8();
    return a;
}

TransportLayerModule::Answer TransportLayerModule::failure(const QString& error, int code)
{
    Answer a;
    a.ok = false;
    a.error = error;
    a.code = code;
    return a;
}

TransportLayerModule::Answer TransportLayerModule::failure(GError** error, const char* otherwise)
{
    const Answer a = *error != nullptr
                         ? failure(messageOf(*error), deviceCodeOf(*error))
                         : failure(QLatin1String(otherwise), ARV_DEVICE_ERROR_PROTOCOL_ERROR);
    g_clear_error(error);
    return a;
}

void TransportLayerModule::bind(const char* feature, bool implemented, std::function<Answer()> read,
                                std::function<Answer(qint64)> write)
{
    const QByteArray name(feature);
    const QByteArray bare = name.startsWith("Vnt") ? name.mid(3) : name;
    quint64 address = 0;
    quint32 length = 0;
    if (m_module.registerOf(("Vnt" + bare + "Implemented").constData(), &address, &length)) {
        m_module.pokeInt(address, implemented ? 1 : 0, length);
    }
    Binding binding;
    binding.read = std::move(read);
    binding.write = std::move(write);
    if (!implemented) {
        return;
    }
    if (m_module.registerOf((name + "Reg").constData(), &binding.address, &binding.length)) {
        m_bindings.insert(binding.address, binding);
    } else if (m_module.registerOf((name + "CmdReg").constData(), &binding.address,
                                   &binding.length)) {
        binding.command = true;
        m_bindings.insert(binding.address, binding);
    }
}

void TransportLayerModule::bindIdentity()
{
    const bool camera = m_source.camera != nullptr;
    const bool gige = camera && m_source.kind == TransportLayerSource::Kind::GigEVision &&
                      ARV_IS_GV_DEVICE(m_source.camera);
    bind("DeviceID", !m_source.id.isEmpty(), [this] { return text(m_source.id); });
    bind("DeviceVendorName", cameraHas("DeviceVendorName"),
         [this] { return cameraString("DeviceVendorName"); });
    bind("DeviceModelName", !m_source.model.isEmpty() || cameraHas("DeviceModelName"), [this] {
        return m_source.model.isEmpty() ? cameraString("DeviceModelName") : text(m_source.model);
    });
    bind("DeviceSerialNumber", cameraHas("DeviceSerialNumber"),
         [this] { return cameraString("DeviceSerialNumber"); });
    bind("DeviceUserID", cameraHas("DeviceUserID"),
         [this] { return cameraString("DeviceUserID"); });
    bind("DeviceDisplayName", camera, [this] { return displayName(); });
    bind("DeviceType", true, [this] {
        switch (m_source.kind) {
        case TransportLayerSource::Kind::GigEVision:
            return number(kTypeGigEVision);
        case TransportLayerSource::Kind::USB3Vision:
            return number(kTypeUSB3Vision);
        case TransportLayerSource::Kind::Simulated:
            return number(kTypeSimulated);
        case TransportLayerSource::Kind::Other:
            break;
        }
        return number(kTypeCustom);
    });
    bind("DeviceAccessStatus", camera, [this, gige] {
        return number(!gige || arv_gv_device_is_controller(ARV_GV_DEVICE(m_source.camera))
                          ? kOpenReadWrite
                          : kOpenReadOnly);
    });
    // The bootstrap's version register is GigE Vision's; others don't tell theirs.
    bind("DeviceTLVersionMajor", gige, [this] {
        Answer a = bootstrapRegister(kVersionRegister);
        a.number >>= 16;
        return a;
    });
    bind("DeviceTLVersionMinor", gige, [this] {
        Answer a = bootstrapRegister(kVersionRegister);
        a.number &= 0xFFFF;
        return a;
    });
    bind("DeviceEndianessMechanism", false, nullptr);
}

void TransportLayerModule::bindGigEVision()
{
    const bool gige = m_source.camera != nullptr &&
                      m_source.kind == TransportLayerSource::Kind::GigEVision &&
                      ARV_IS_GV_DEVICE(m_source.camera);
    bind("GevDeviceIPAddress", gige, [this] {
        const qint64 ip = ipv4Of(arv_gv_device_get_device_address(ARV_GV_DEVICE(m_source.camera)));
        return ip < 0 ? failure(QStringLiteral("the device has no IPv4 address"),
                                ARV_DEVICE_ERROR_NOT_FOUND)
                      : number(ip);
    });
    bind("GevDeviceSubnetMask", gige, [this] { return currentIp(1); });
    bind("GevDeviceGateway", gige, [this] { return currentIp(2); });
    bind("GevDeviceMACAddress", gige, [this] { return macAddress(); });
    bind("VntHostInterfaceIPAddress", gige, [this] {
        const qint64 ip =
            ipv4Of(arv_gv_device_get_interface_address(ARV_GV_DEVICE(m_source.camera)));
        return ip < 0 ? failure(QStringLiteral("the host interface has no IPv4 address"),
                                ARV_DEVICE_ERROR_NOT_FOUND)
                      : number(ip);
    });
}

void TransportLayerModule::bindConnection()
{
    const bool camera = m_source.camera != nullptr;
    const bool gige = camera && m_source.kind == TransportLayerSource::Kind::GigEVision &&
                      ARV_IS_GV_DEVICE(m_source.camera);
    bind(
        "VntHeartbeatTimeout", gige,
        [this] { return bootstrapRegister(kHeartbeatTimeoutRegister); },
        [this](qint64 ms) { return writeBootstrapRegister(kHeartbeatTimeoutRegister, ms); });
    // Aravis 0.8 offers no control over its command timeout and retries.
    bind("VntCommandTimeout", false, nullptr);
    bind("VntCommandRetryCount", false, nullptr);
    bind(
        "VntPacketSize", gige, [this] { return packetSize(arv_gv_device_get_packet_size); },
        [this](qint64 bytes) { return setPacketSize(bytes); });
    bind(
        "VntPacketSizeNegotiate", gige, [] { return number(0); },
        [this](qint64 value) {
            return value != 0 ? packetSize(arv_gv_device_auto_packet_size) : number(0);
        });
    bind(
        "VntRegisterCacheMode", camera, [this] { return number(m_cacheMode); },
        [this](qint64 mode) { return setCacheMode(mode); });
    // Reconnecting is the devices pane's Reconnect, not something this node map can do.
    bind("VntDeviceReconnect", false, nullptr);
}

bool TransportLayerModule::cameraHas(const char* feature) const
{
    if (m_source.camera == nullptr) {
        return false;
    }
    ArvGcNode* node = arv_device_get_feature(m_source.camera, feature);
    if (node == nullptr || !ARV_IS_GC_FEATURE_NODE(node)) {
        return false;
    }
    GError* error = nullptr;
    const bool implemented = arv_gc_feature_node_is_implemented(ARV_GC_FEATURE_NODE(node), &error);
    g_clear_error(&error);
    return implemented;
}

TransportLayerModule::Answer TransportLayerModule::cameraString(const char* feature) const
{
    GError* error = nullptr;
    const char* value = arv_device_get_string_feature_value(m_source.camera, feature, &error);
    if (error != nullptr) {
        return failure(&error, "");
    }
    return text(QString::fromUtf8(value));
}

TransportLayerModule::Answer TransportLayerModule::displayName() const
{
    QStringList parts;
    for (const char* feature : {"DeviceVendorName", "DeviceModelName"}) {
        if (qstrcmp(feature, "DeviceModelName") == 0 && !m_source.model.isEmpty()) {
            parts << m_source.model;
            continue;
        }
        if (!cameraHas(feature)) {
            continue;
        }
        const Answer a = cameraString(feature);
        if (!a.ok) {
            return a;
        }
        parts << QString::fromUtf8(a.text).trimmed();
    }
    parts.removeAll(QString());
    QString name = parts.join(QLatin1Char(' '));
    if (cameraHas("DeviceSerialNumber")) {
        const Answer serial = cameraString("DeviceSerialNumber");
        if (!serial.ok) {
            return serial;
        }
        if (!serial.text.trimmed().isEmpty()) {
            name += QStringLiteral(" (%1)").arg(QString::fromUtf8(serial.text).trimmed());
        }
    }
    return text(name.trimmed());
}

TransportLayerModule::Answer TransportLayerModule::bootstrapRegister(quint64 address) const
{
    GError* error = nullptr;
    guint32 value = 0;
    if (!arv_device_read_register(m_source.camera, address, &value, &error)) {
        return failure(&error, "the register can't be read");
    }
    return number(qint64(value));
}

TransportLayerModule::Answer TransportLayerModule::writeBootstrapRegister(quint64 address,
                                                                          qint64 value) const
{
    GError* error = nullptr;
    if (!arv_device_write_register(m_source.camera, address, guint32(value), &error)) {
        return failure(&error, "the register can't be written");
    }
    return number(value);
}

// part: 0 the address, 1 the subnet mask, 2 the gateway, as the device's bootstrap says.
TransportLayerModule::Answer TransportLayerModule::currentIp(int part) const
{
    GInetAddress* ip = nullptr;
    GInetAddressMask* mask = nullptr;
    GInetAddress* gateway = nullptr;
    GError* error = nullptr;
    Answer a;
    if (!arv_gv_device_get_current_ip(ARV_GV_DEVICE(m_source.camera), &ip, &mask, &gateway,
                                      &error)) {
        a = failure(&error, "the device does not tell its addresses");
    } else {
        GInetAddress* wanted =
            part == 0   ? ip
            : part == 1 ? (mask != nullptr ? g_inet_address_mask_get_address(mask) : nullptr)
                        : gateway;
        const qint64 value = ipv4Of(wanted);
        a = value < 0 ? failure(QStringLiteral("the device reports no IPv4 address"),
                                ARV_DEVICE_ERROR_NOT_FOUND)
                      : number(value);
    }
    g_clear_object(&ip);
    g_clear_object(&mask);
    g_clear_object(&gateway);
    return a;
}

TransportLayerModule::Answer TransportLayerModule::macAddress() const
{
    const Answer high = bootstrapRegister(kMacHighRegister);
    if (!high.ok) {
        return high;
    }
    const Answer low = bootstrapRegister(kMacLowRegister);
    if (!low.ok) {
        return low;
    }
    return number(((high.number & 0xFFFF) << 32) | (low.number & 0xFFFFFFFF));
}

TransportLayerModule::Answer TransportLayerModule::packetSize(guint (*ask)(ArvGvDevice*,
                                                                           GError**)) const
{
    GError* error = nullptr;
    const guint size = ask(ARV_GV_DEVICE(m_source.camera), &error);
    return error != nullptr ? failure(&error, "") : number(qint64(size));
}

TransportLayerModule::Answer TransportLayerModule::setPacketSize(qint64 value) const
{
    GError* error = nullptr;
    arv_gv_device_set_packet_size(ARV_GV_DEVICE(m_source.camera), gint(value), &error);
    return error != nullptr ? failure(&error, "") : number(value);
}

TransportLayerModule::Answer TransportLayerModule::setCacheMode(qint64 mode)
{
    if (mode < 0 || mode > 2) {
        return failure(QStringLiteral("%1 is no register cache mode").arg(mode),
                       ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER);
    }
    arv_device_set_register_cache_policy(m_source.camera, cachePolicyOf(mode));
    m_cacheMode = mode;
    return number(mode);
}

bool TransportLayerModule::onRead(quint64 address, QString* error, int* code)
{
    const auto it = m_bindings.constFind(address);
    if (it == m_bindings.constEnd()) {
        return true;
    }
    const Answer a = it->read();
    if (!a.ok) {
        *error = a.error;
        *code = a.code;
        return false;
    }
    if (a.isText) {
        QByteArray bytes = a.text.left(int(it->length) - 1);
        bytes.append(QByteArray(int(it->length) - bytes.size(), '\0'));
        m_module.poke(address, bytes.constData(), it->length);
    } else {
        m_module.pokeInt(address, a.number, it->length);
    }
    return true;
}

bool TransportLayerModule::onWrite(quint64 address, QString* error, int* code)
{
    const auto it = m_bindings.constFind(address);
    if (it == m_bindings.constEnd() || !it->write) {
        return true;
    }
    const Answer a = it->write(m_module.peekInt(address, it->length));
    if (!a.ok) {
        *error = a.error;
        *code = a.code;
        return false;
    }
    if (it->command) {
        // Done once Aravis returned.
        m_module.pokeInt(address, 0, it->length);
    }
    return true;
}

} // namespace Backend
