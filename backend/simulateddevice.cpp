#include <arv.h>

#include "simulateddevice.h"

#include <parametercollection/exception.h>

#include <QThread>
#include <QXmlStreamReader>

#include <cstring>

using ParameterCollection::InvalidArgumentException;

extern "C" {

typedef struct {
    ArvDevice parent_instance;
    Backend::SimulatedDevice* owner; // not owned
} VntSimDevice;

typedef struct {
    ArvDeviceClass parent_class;
} VntSimDeviceClass;

static GType vnt_sim_device_get_type(void);

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wcast-function-type"
G_DEFINE_TYPE(VntSimDevice, vnt_sim_device, ARV_TYPE_DEVICE)
#pragma GCC diagnostic pop

static VntSimDevice* vntSim(ArvDevice* device)
{
    return reinterpret_cast<VntSimDevice*>(device);
}

static const char* vnt_sim_device_get_genicam_xml(ArvDevice* device, size_t* size)
{
    Backend::SimulatedDevice* owner = vntSim(device)->owner;
    if (owner == nullptr) {
        *size = 0;
        return nullptr;
    }
    *size = size_t(owner->xml().size());
    return owner->xml().constData();
}

static ArvGc* vnt_sim_device_get_genicam(ArvDevice* device)
{
    Backend::SimulatedDevice* owner = vntSim(device)->owner;
    return owner != nullptr ? owner->genicam() : nullptr;
}

static gboolean failWith(GError** error, int code, const QString& message)
{
    g_set_error_literal(error, ARV_DEVICE_ERROR, code, message.toUtf8().constData());
    return FALSE;
}

static gboolean vnt_sim_device_read_memory(ArvDevice* device, guint64 address, guint32 size,
                                           void* buffer, GError** error)
{
    Backend::SimulatedDevice* owner = vntSim(device)->owner;
    QString message;
    int code = ARV_DEVICE_ERROR_TIMEOUT;
    if (owner == nullptr || !owner->serveRead(address, size, buffer, &message, &code)) {
        return failWith(error, code, message);
    }
    return TRUE;
}

static gboolean vnt_sim_device_write_memory(ArvDevice* device, guint64 address, guint32 size,
                                            void* buffer, GError** error)
{
    Backend::SimulatedDevice* owner = vntSim(device)->owner;
    QString message;
    int code = ARV_DEVICE_ERROR_TIMEOUT;
    if (owner == nullptr || !owner->serveWrite(address, size, buffer, &message, &code)) {
        return failWith(error, code, message);
    }
    return TRUE;
}

// Registers are 32 bits, big endian in memory, as on GigE Vision devices.
static gboolean vnt_sim_device_read_register(ArvDevice* device, guint64 address, guint32* value,
                                             GError** error)
{
    guint32 raw = 0;
    if (!vnt_sim_device_read_memory(device, address, 4, &raw, error)) {
        return FALSE;
    }
    *value = GUINT32_FROM_BE(raw);
    return TRUE;
}

static gboolean vnt_sim_device_write_register(ArvDevice* device, guint64 address, guint32 value,
                                              GError** error)
{
    guint32 raw = GUINT32_TO_BE(value);
    return vnt_sim_device_write_memory(device, address, 4, &raw, error);
}

static ArvStream* vnt_sim_device_create_stream(ArvDevice*, ArvStreamCallback, void*, GDestroyNotify,
                                               GError** error)
{
    g_set_error_literal(error, ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_NO_STREAM_CHANNEL,
                        "The simulated device has no stream channel");
    return nullptr;
}

static void vnt_sim_device_init(VntSimDevice* self)
{
    self->owner = nullptr;
}

static void vnt_sim_device_class_init(VntSimDeviceClass* klass)
{
    ArvDeviceClass* device_class = ARV_DEVICE_CLASS(klass);
    device_class->get_genicam_xml = vnt_sim_device_get_genicam_xml;
    device_class->get_genicam = vnt_sim_device_get_genicam;
    device_class->read_memory = vnt_sim_device_read_memory;
    device_class->write_memory = vnt_sim_device_write_memory;
    device_class->read_register = vnt_sim_device_read_register;
    device_class->write_register = vnt_sim_device_write_register;
    device_class->create_stream = vnt_sim_device_create_stream;
}

} // extern "C"

namespace Backend {

namespace {

// The deepest nesting the XML parser under Aravis reads; deeper elements it drops in silence.
constexpr int kMaxXmlDepth = 256;

// The offset of the first byte outside any valid UTF-8 sequence, or -1.
int firstInvalidUtf8(const QByteArray& text)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.constData());
    const int n = text.size();
    for (int i = 0; i < n;) {
        const unsigned char c = bytes[i];
        int extra = 0;
        unsigned minimum = 0;
        unsigned code = 0;
        if (c < 0x80) {
            ++i;
            continue;
        } else if (c >= 0xC2 && c <= 0xDF) {
            extra = 1, minimum = 0x80, code = c & 0x1F;
        } else if (c >= 0xE0 && c <= 0xEF) {
            extra = 2, minimum = 0x800, code = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            extra = 3, minimum = 0x10000, code = c & 0x07;
        } else {
            return i;
        }
        for (int k = 1; k <= extra; ++k) {
            if (i + k >= n || (bytes[i + k] & 0xC0) != 0x80) {
                return i;
            }
            code = (code << 6) | (bytes[i + k] & 0x3F);
        }
        if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            return i;
        }
        i += extra + 1;
    }
    return -1;
}

// Whether the declaration leaves the encoding to UTF-8, XML's default.
bool declaresUtf8(const QByteArray& xml)
{
    if (!xml.startsWith("<?xml")) {
        return true;
    }
    const QByteArray declaration = xml.left(xml.indexOf("?>")).toLower();
    const int at = declaration.indexOf("encoding");
    if (at < 0) {
        return true;
    }
    const QByteArray rest = declaration.mid(at);
    return rest.contains("utf-8") || rest.contains("utf8");
}

// Line and column (in characters, from 1) of a byte offset in UTF-8 text.
QString positionOf(const QByteArray& text, int offset)
{
    int line = 1;
    int column = 1;
    for (int i = 0; i < offset; ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == '\n') {
            ++line;
            column = 1;
        } else if ((c & 0xC0) != 0x80) {
            ++column;
        }
    }
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

} // namespace

QByteArray cleanGenICamXml(const QByteArray& raw, const QString& name)
{
    QByteArray xml = raw;
    // Some vendor files carry a header before the declaration; what Aravis needs starts there.
    const int declaration = xml.indexOf("<?xml");
    if (declaration > 0) {
        xml = xml.mid(declaration);
    } else if (declaration < 0) {
        const int firstTag = xml.indexOf('<');
        if (firstTag < 0) {
            throw InvalidArgumentException(name, QStringLiteral("the file is not XML"));
        }
        xml = xml.mid(firstTag);
    }

    // The stream reader below finds a bad byte only a buffer later, and names a wrong place.
    if (declaresUtf8(xml)) {
        const int bad = firstInvalidUtf8(xml);
        if (bad >= 0) {
            throw InvalidArgumentException(
                name, QStringLiteral("the file is not valid UTF-8: byte 0x%1 at %2")
                          .arg(uint(static_cast<unsigned char>(xml[bad])), 2, 16, QLatin1Char('0'))
                          .arg(positionOf(xml, bad)));
        }
    }

    QXmlStreamReader reader(xml);
    QString rootName;
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            if (rootName.isEmpty()) {
                rootName = reader.name().toString();
            }
            if (++depth > kMaxXmlDepth) {
                // Aravis would read the file without the deeper features, and say nothing.
                throw InvalidArgumentException(
                    name, QStringLiteral("elements are nested more than %1 deep (line %2), "
                                         "deeper than the XML parser reads")
                              .arg(kMaxXmlDepth)
                              .arg(reader.lineNumber()));
            }
        } else if (reader.isEndElement()) {
            --depth;
        }
    }
    if (reader.hasError()) {
        throw InvalidArgumentException(
            name, QStringLiteral("the file is not well-formed XML: %1 (line %2, column %3)")
                      .arg(reader.errorString())
                      .arg(reader.lineNumber())
                      .arg(reader.columnNumber()));
    }
    if (rootName != QLatin1String("RegisterDescription")) {
        throw InvalidArgumentException(
            name, QStringLiteral("the file is not a GenICam description: its document element "
                                 "is <%1>, not <RegisterDescription>")
                      .arg(rootName));
    }
    return xml;
}

SimulatedDevice::SimulatedDevice(const QByteArray& xml, const QString& name)
    : m_name(name), m_xml(cleanGenICamXml(xml, name))
{
    m_device = ARV_DEVICE(g_object_new(vnt_sim_device_get_type(), nullptr));
    vntSim(m_device)->owner = this;
    m_genicam = arv_gc_new(m_device, m_xml.constData(), size_t(m_xml.size()));
    if (m_genicam == nullptr || arv_gc_get_node(m_genicam, "Root") == nullptr) {
        if (m_genicam != nullptr) {
            g_object_unref(m_genicam);
        }
        vntSim(m_device)->owner = nullptr;
        g_object_unref(m_device);
        throw InvalidArgumentException(
            name, QStringLiteral("the GenICam description has no Root category"));
    }
    arv_gc_set_register_cache_policy(m_genicam, ARV_REGISTER_CACHE_POLICY_ENABLE);
}

SimulatedDevice::~SimulatedDevice()
{
    vntSim(m_device)->owner = nullptr;
    g_object_unref(m_genicam);
    g_object_unref(m_device);
}

QStringList SimulatedDevice::applyDefaults(const QString& text)
{
    QStringList problems;
    const ArvAccessCheckPolicy accessPolicy = arv_gc_get_access_check_policy(m_genicam);
    const ArvRangeCheckPolicy rangePolicy = arv_gc_get_range_check_policy(m_genicam);
    arv_gc_set_access_check_policy(m_genicam, ARV_ACCESS_CHECK_POLICY_DISABLE);
    arv_gc_set_range_check_policy(m_genicam, ARV_RANGE_CHECK_POLICY_DISABLE);

    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) {
            continue;
        }
        const int eq = line.indexOf(QLatin1Char('='));
        if (eq <= 0) {
            problems << QStringLiteral("line %1: expected Feature=Value").arg(i + 1);
            continue;
        }
        const QByteArray feature = line.left(eq).trimmed().toUtf8();
        const QByteArray value = line.mid(eq + 1).trimmed().toUtf8();
        ArvGcNode* node = arv_gc_get_node(m_genicam, feature.constData());
        if (node == nullptr) {
            problems << QStringLiteral("line %1: no feature %2").arg(i + 1).arg(QString(feature));
            continue;
        }
        GError* error = nullptr;
        if (ARV_IS_GC_ENUMERATION(node)) {
            arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(node), value.constData(),
                                                &error);
        } else if (ARV_IS_GC_BOOLEAN(node)) {
            const bool on = value == "true" || value == "1" || value == "True";
            arv_gc_boolean_set_value(ARV_GC_BOOLEAN(node), on, &error);
        } else if (ARV_IS_GC_INTEGER(node)) {
            arv_gc_integer_set_value(ARV_GC_INTEGER(node),
                                     g_ascii_strtoll(value.constData(), nullptr, 0), &error);
        } else if (ARV_IS_GC_FLOAT(node)) {
            arv_gc_float_set_value(ARV_GC_FLOAT(node), g_ascii_strtod(value.constData(), nullptr),
                                   &error);
        } else if (ARV_IS_GC_STRING(node)) {
            arv_gc_string_set_value(ARV_GC_STRING(node), value.constData(), &error);
        } else {
            problems
                << QStringLiteral("line %1: %2 takes no value").arg(i + 1).arg(QString(feature));
            continue;
        }
        if (error != nullptr) {
            problems
                << QStringLiteral("line %1: %2").arg(i + 1).arg(QString::fromUtf8(error->message));
            g_clear_error(&error);
        }
    }
    arv_gc_set_access_check_policy(m_genicam, accessPolicy);
    arv_gc_set_range_check_policy(m_genicam, rangePolicy);
    return problems;
}

void SimulatedDevice::poke(quint64 address, const void* data, quint32 size)
{
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    for (quint32 i = 0; i < size; ++i) {
        const quint64 a = address + i;
        auto& page = m_pages[a / 4096];
        if (!page) {
            page = std::make_unique<Page>();
            page->fill(0);
        }
        (*page)[a % 4096] = bytes[i];
    }
}

void SimulatedDevice::peek(quint64 address, void* data, quint32 size) const
{
    auto* bytes = static_cast<std::uint8_t*>(data);
    for (quint32 i = 0; i < size; ++i) {
        const quint64 a = address + i;
        const auto it = m_pages.find(a / 4096);
        bytes[i] = it == m_pages.end() ? 0 : (*it->second)[a % 4096];
    }
}

qint64 SimulatedDevice::peekInt(quint64 address, quint32 size) const
{
    std::uint8_t raw[8] = {};
    peek(address, raw, qMin<quint32>(size, 8));
    quint64 value = 0;
    for (int i = int(qMin<quint32>(size, 8)) - 1; i >= 0; --i) {
        value = (value << 8) | raw[i];
    }
    return qint64(value);
}

void SimulatedDevice::pokeInt(quint64 address, qint64 value, quint32 size)
{
    std::uint8_t raw[8];
    for (int i = 0; i < 8; ++i) {
        raw[i] = std::uint8_t(quint64(value) >> (8 * i));
    }
    poke(address, raw, qMin<quint32>(size, 8));
}

double SimulatedDevice::peekDouble(quint64 address, quint32 size) const
{
    if (size == 4) {
        float f;
        peek(address, &f, 4);
        return f;
    }
    double d;
    peek(address, &d, 8);
    return d;
}

void SimulatedDevice::pokeDouble(quint64 address, double value, quint32 size)
{
    if (size == 4) {
        const float f = float(value);
        poke(address, &f, 4);
    } else {
        poke(address, &value, 8);
    }
}

bool SimulatedDevice::registerOf(const char* nodeName, quint64* address, quint32* length) const
{
    ArvGcNode* node = arv_gc_get_node(m_genicam, nodeName);
    if (node == nullptr || !ARV_IS_GC_REGISTER(node)) {
        return false;
    }
    GError* error = nullptr;
    *address = arv_gc_register_get_address(ARV_GC_REGISTER(node), &error);
    if (error == nullptr) {
        *length = quint32(arv_gc_register_get_length(ARV_GC_REGISTER(node), &error));
    }
    if (error != nullptr) {
        g_clear_error(&error);
        return false;
    }
    return true;
}

QVector<quint64> SimulatedDevice::readLog() const
{
    QMutexLocker lock(&m_logMutex);
    return m_readLog;
}

void SimulatedDevice::resetCounters()
{
    QMutexLocker lock(&m_logMutex);
    m_readLog.clear();
    m_reads.store(0);
    m_writes.store(0);
}

bool SimulatedDevice::serveRead(quint64 address, quint32 size, void* buffer, QString* error,
                                int* errorCode)
{
    if (const int latency = m_latencyUs.load()) {
        QThread::usleep(unsigned(latency));
    }
    if (m_fault.load() == Fault::Timeout) {
        *error = QStringLiteral("Timeout reading 0x%1 on %2").arg(address, 0, 16).arg(m_name);
        return false;
    }
    ++m_reads;
    {
        QMutexLocker lock(&m_logMutex);
        m_readLog.append(address);
    }
    for (const Hook& hook : m_readHooks) {
        hook(*this, address, size);
    }
    int code = ARV_DEVICE_ERROR_TIMEOUT;
    for (const Check& check : m_readChecks) {
        if (!check(*this, address, size, error, &code)) {
            if (errorCode != nullptr) {
                *errorCode = code;
            }
            return false;
        }
    }
    peek(address, buffer, size);
    return true;
}

bool SimulatedDevice::serveWrite(quint64 address, quint32 size, const void* buffer, QString* error,
                                 int* errorCode)
{
    if (const int latency = m_latencyUs.load()) {
        QThread::usleep(unsigned(latency));
    }
    switch (m_fault.load()) {
    case Fault::Timeout:
        *error = QStringLiteral("Timeout writing 0x%1 on %2").arg(address, 0, 16).arg(m_name);
        *errorCode = ARV_DEVICE_ERROR_TIMEOUT;
        return false;
    case Fault::RefuseWrites:
        *error = QStringLiteral("Access denied writing 0x%1").arg(address, 0, 16);
        *errorCode = ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED;
        return false;
    case Fault::None:
        break;
    }
    ++m_writes;
    QByteArray before;
    if (!m_writeChecks.empty()) {
        before.resize(int(size));
        peek(address, before.data(), size);
    }
    poke(address, buffer, size);
    for (const Check& check : m_writeChecks) {
        if (!check(*this, address, size, error, errorCode)) {
            poke(address, before.constData(), size);
            return false;
        }
    }
    for (const Hook& hook : m_writeHooks) {
        hook(*this, address, size);
    }
    return true;
}

} // namespace Backend
