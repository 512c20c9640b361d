#include <arv.h>

#include "camerapool.h"

#include "builtincameralogic.h"
#include "usersetlogic.h"
#include "deviceparametercollection.h"
#include "deviceworker.h"
#include "errormapping.h"
#include "framesink.h"
#include "simulateddevice.h"
#include "streamchannel.h"
#include "streamcounters.h"
#include "threadretirement.h"
#include "transportlayermodule.h"

#include <parametercollection/exception.h>

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QTimer>

#include <memory>

using namespace ParameterCollection;

// Q_INIT_RESOURCE must be used outside any namespace.
static void initBackendResources()
{
    Q_INIT_RESOURCE(backend);
}

namespace Backend {

namespace {

struct Module {
    const char* nodeMap;
    const char* file;
};

// Host-side modules every camera has, in the order users expect them below the device.
const Module kModules[] = {
    {"DeviceTransportLayer", "VantoDeviceTransportLayer"},
    {"StreamGrabber0", "VantoStreamGrabber"},
    {"EventGrabber", "VantoEventGrabber"},
    {"ImageFormatConverter", "VantoImageFormatConverter"},
};

QByteArray readResource(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return QByteArray();
    }
    return file.readAll();
}

QString textValue(const DeviceParameterCollection& collection, const char* feature)
{
    const auto parameter =
        collection.getParameter(QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    if (!parameter) {
        return QString();
    }
    const auto data = parameter->getParameterData();
    return data && data->readable ? data->displayText.trimmed() : QString();
}

} // namespace

CameraPool::CameraPool(QObject* parent) : IDeviceParameterService(parent)
{
    initBackendResources();
}

CameraPool::~CameraPool()
{
    closeAll();
}

QByteArray CameraPool::builtinCameraXml()
{
    initBackendResources();
    return readResource(QStringLiteral(":/vantoviewer/genicam/VantoSimCamera.xml"));
}

QString CameraPool::builtinCameraDefaults()
{
    initBackendResources();
    return QString::fromUtf8(
        readResource(QStringLiteral(":/vantoviewer/genicam/VantoSimCamera.defaults")));
}

void CameraPool::attachModules(DeviceParameterCollection& collection,
                               const TransportLayerSource& source)
{
    // The camera's stream is chosen now, so that StreamGrabber0's registers are bound to it
    // from their first read on.
    auto channel = std::make_shared<StreamChannel>(std::make_shared<FrameSink>(),
                                                   std::make_shared<StreamCounters>());
    collection.runOnDeviceThread([channel](DeviceWorker& worker) { channel->install(worker); });
    collection.setStreamChannel(channel);
    for (const Module& module : kModules) {
        const QString base = QStringLiteral(":/vantoviewer/genicam/") + QLatin1String(module.file);
        const bool transportLayer = &module == &kModules[0];
        const bool grabber = qstrcmp(module.nodeMap, "StreamGrabber0") == 0;
        if (transportLayer) {
            collection.setLogicFactory([source](SimulatedDevice& device) {
                return std::unique_ptr<DeviceLogic>(new TransportLayerModule(device, source));
            });
        } else if (grabber) {
            collection.setLogicFactory(
                [channel](SimulatedDevice& device) { return channel->bindGrabber(device); });
        }
        collection.attachSimulated(
            QLatin1String(module.nodeMap), readResource(base + QStringLiteral(".xml")),
            QString::fromUtf8(readResource(base + QStringLiteral(".defaults"))));
        if (transportLayer || grabber) {
            collection.setLogicFactory(nullptr);
        }
    }
}

QSharedPointer<CameraInfo>
CameraPool::add(const QSharedPointer<CameraInfo>& info,
                const QSharedPointer<DeviceParameterCollection>& collection, const Origin& origin)
{
    m_devices.append(info);
    m_collections.insert(info.data(), collection);
    m_origins.insert(info.data(), origin);
    Q_EMIT deviceOpened(info);
    return info;
}

QSharedPointer<CameraInfo> CameraPool::openSimulated(const QString& xmlFile)
{
    return openSimulatedAs(xmlFile, QStringLiteral("Simulated:%1").arg(++m_simulatedCount));
}

QSharedPointer<DeviceParameterCollection> CameraPool::newCollection(const QString& id)
{
    auto collection = QSharedPointer<DeviceParameterCollection>::create(id);
    collection->setAttachTimeout(m_openTimeoutMs);
    m_opening = collection.data();
    return collection;
}

void CameraPool::cancelOpening()
{
    if (m_opening) {
        m_opening->cancelAttach();
    }
}

bool CameraPool::isOpening() const
{
    return m_opening && m_opening->isAttaching();
}

void CameraPool::checkDescriptionFile(const QString& xmlFile)
{
    // A FIFO or a device would block the read, and a huge file would be read whole: neither is
    // a description.
    const QFileInfo file(xmlFile);
    if (!file.exists()) {
        throw NotFoundException(xmlFile, QStringLiteral("cannot open the file: no such file"));
    }
    if (!file.isFile()) {
        throw InvalidArgumentException(
            xmlFile, file.isDir() ? QStringLiteral("a folder, not a description file")
                                  : QStringLiteral("not a regular file"));
    }
    if (file.size() > MAX_DESCRIPTION_BYTES) {
        throw InvalidArgumentException(xmlFile,
                                       QStringLiteral("the file is too large: %1 MiB, at most %2 "
                                                      "MiB are read")
                                           .arg(file.size() >> 20)
                                           .arg(MAX_DESCRIPTION_BYTES >> 20));
    }
}

void CameraPool::checkNotLost(const DeviceParameterCollection& collection, const QString& id)
{
    if (collection.isLost()) {
        throw DeviceLostException(
            id,
            QStringLiteral("the camera was lost while it opened: %1").arg(collection.lostReason()));
    }
}

QSharedPointer<CameraInfo> CameraPool::openSimulatedAs(const QString& xmlFile, const QString& id)
{
    if (!xmlFile.isEmpty()) {
        checkDescriptionFile(xmlFile);
    }
    auto collection = newCollection(id);
    if (xmlFile.isEmpty()) {
        collection->setLogicFactory([](SimulatedDevice& device) {
            return std::unique_ptr<DeviceLogic>(
                new UserSetLogic(device, std::make_unique<BuiltinCameraLogic>(device)));
        });
        collection->attachSimulated(QStringLiteral("CameraDevice"), builtinCameraXml(),
                                    builtinCameraDefaults());
        collection->setLogicFactory(nullptr);
    } else {
        collection->attachSimulatedFile(QStringLiteral("CameraDevice"), xmlFile,
                                        MAX_DESCRIPTION_BYTES);
    }
    TransportLayerSource source;
    source.kind = TransportLayerSource::Kind::Simulated;
    source.id = id;
    source.model = xmlFile.isEmpty() ? QString() : QFileInfo(xmlFile).fileName();
    // Handed back to the device thread only, where the module takes its reference.
    collection->runOnDeviceThread([&source](DeviceWorker& worker) {
        if (SimulatedDevice* camera = worker.simulatedDevice(0)) {
            source.camera = camera->device();
        }
    });
    attachModules(*collection, source);
    checkNotLost(*collection, id);
    const QString name =
        xmlFile.isEmpty() ? QStringLiteral("VNT-SIM-2000") : QFileInfo(xmlFile).completeBaseName();

    QString vendor = textValue(*collection, "DeviceVendorName");
    QString model = textValue(*collection, "DeviceModelName");
    if (model.isEmpty()) {
        model = name;
    }
    if (vendor.isEmpty()) {
        vendor = QStringLiteral("Simulated");
    }
    auto info = QSharedPointer<CameraInfo>::create(id, vendor, model,
                                                   textValue(*collection, "DeviceSerialNumber"),
                                                   QStringLiteral("Simulated"));
    return add(info, collection, {true, xmlFile});
}

QSharedPointer<CameraInfo> CameraPool::openDevice(const QString& idOrAddress)
{
    auto collection = newCollection(idOrAddress);
    // What the transport layer module needs, found on the device thread. Shared: an abandoned
    // open still runs the job after this function is gone.
    auto source = std::make_shared<TransportLayerSource>();
    const QByteArray key = idOrAddress.toUtf8();
    collection->attachDevice(QStringLiteral("CameraDevice"), [key, source](QString* error) {
        GError* gerror = nullptr;
        ArvDevice* device = nullptr;
        GInetAddress* address = g_inet_address_new_from_string(key.constData());
        if (address != nullptr) {
            // An address is opened directly, without discovery.
            GInetAddress* interfaceAddress = g_inet_address_get_is_loopback(address)
                                                 ? g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4)
                                                 : g_inet_address_new_any(G_SOCKET_FAMILY_IPV4);
            device = arv_gv_device_new(interfaceAddress, address, &gerror);
            g_object_unref(interfaceAddress);
            g_object_unref(address);
        } else {
            device = arv_open_device(key.constData(), &gerror);
        }
        if (device == nullptr) {
            *error = gerror != nullptr ? messageOf(gerror)
                                       : QStringLiteral("no device %1").arg(QString(key));
            g_clear_error(&gerror);
        }
        source->camera = device;
        source->kind = ARV_IS_GV_DEVICE(device)   ? TransportLayerSource::Kind::GigEVision
                       : ARV_IS_UV_DEVICE(device) ? TransportLayerSource::Kind::USB3Vision
                                                  : TransportLayerSource::Kind::Other;
        return device;
    });
    source->id = idOrAddress;
    attachModules(*collection, *source);
    checkNotLost(*collection, idOrAddress);
    // Read only once the open has finished: the job wrote it on the device thread.
    const QString protocol = source->kind == TransportLayerSource::Kind::USB3Vision
                                 ? QStringLiteral("USB3Vision")
                                 : QStringLiteral("GigEVision");
    auto info =
        QSharedPointer<CameraInfo>::create(idOrAddress, textValue(*collection, "DeviceVendorName"),
                                           textValue(*collection, "DeviceModelName"),
                                           textValue(*collection, "DeviceSerialNumber"), protocol);
    return add(info, collection, {false, idOrAddress});
}

QSharedPointer<CameraInfo>
CameraPool::reopen(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || !m_origins.contains(info.data())) {
        throw NotFoundException(info ? info->getId() : QString(),
                                QStringLiteral("the camera is not open here"));
    }
    const Origin origin = m_origins.value(info.data());
    if (!origin.simulated) {
        return openDevice(origin.source);
    }
    checkSimulatedAnswers(m_collections.value(info.data()), info->getId());
    return openSimulatedAs(origin.source, info->getId());
}

void CameraPool::checkSimulatedAnswers(const QSharedPointer<DeviceParameterCollection>& collection,
                                       const QString& id)
{
    struct Answer {
        QString error;
        bool given = false;
    };
    auto answer = std::make_shared<Answer>();
    // The question waits its turn on the device thread, which may hang in an earlier call. It is
    // asked from a thread of its own while the event loop runs here, so that the window never
    // waits longer than the answer is worth.
    DeviceParameterCollection* device = collection.data(); // kept alive by `collection`
    QThread* asking = QThread::create([device, answer] {
        device->runOnDeviceThread([answer](DeviceWorker& worker) {
            SimulatedDevice* simulated = worker.simulatedDevice(0);
            quint32 word = 0;
            answer->given =
                simulated != nullptr && simulated->serveRead(0, sizeof word, &word, &answer->error);
        });
    });
    QEventLoop loop;
    QObject::connect(asking, &QThread::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(SIMULATED_ANSWER_TIMEOUT_MS, &loop, &QEventLoop::quit);
    asking->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    const bool asked = asking->isFinished();
    ThreadRetirement::retire(asking);
    if (!asked) {
        throw TimeoutException(id, QStringLiteral("the camera does not answer"));
    }
    if (!answer->given) {
        throw DeviceLostException(
            id, answer->error.isEmpty()
                    ? QStringLiteral("the camera does not answer")
                    : QStringLiteral("the camera does not answer: %1").arg(answer->error));
    }
}

void CameraPool::close(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!info || !m_collections.contains(info.data())) {
        return;
    }
    m_devices.removeAll(info);
    m_collections.remove(info.data());
    m_origins.remove(info.data());
    Q_EMIT deviceClosed(info);
}

void CameraPool::closeAll()
{
    const auto devices = m_devices;
    for (const auto& info : devices) {
        close(info);
    }
}

QList<CameraPool::DiscoveredDevice> CameraPool::discover()
{
    QList<DiscoveredDevice> found;
    arv_update_device_list();
    for (unsigned i = 0; i < arv_get_n_devices(); ++i) {
        DiscoveredDevice d;
        d.id = QString::fromUtf8(arv_get_device_id(i));
        d.address = QString::fromUtf8(arv_get_device_address(i));
        d.vendor = QString::fromUtf8(arv_get_device_vendor(i));
        d.model = QString::fromUtf8(arv_get_device_model(i));
        d.serial = QString::fromUtf8(arv_get_device_serial_nbr(i));
        d.protocol = QString::fromUtf8(arv_get_device_protocol(i));
        found.append(d);
    }
    return found;
}

QSharedPointer<IParameterCollection>
CameraPool::getParameterCollection(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const
{
    return info ? m_collections.value(info.data()) : nullptr;
}

QList<QSharedPointer<Plugin::CameraPool::IBaseInfo>> CameraPool::getOpenDevices() const
{
    return m_devices;
}

} // namespace Backend
