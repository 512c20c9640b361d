#include "acquisitionservice.h"

#include "acquisition.h"
#include "camerapool.h"
#include "deviceparametercollection.h"

namespace Backend {

AcquisitionService::AcquisitionService(CameraPool* pool, QObject* parent)
    : IAcquisitionService(parent), m_pool(pool)
{
    connect(pool, &CameraPool::deviceOpened, this, &AcquisitionService::add);
    connect(pool, &CameraPool::deviceClosed, this, &AcquisitionService::remove);
    for (const auto& info : pool->getOpenDevices()) {
        add(info);
    }
}

AcquisitionService::~AcquisitionService()
{
    qDeleteAll(m_acquisitions);
}

void AcquisitionService::add(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    if (!m_pool || m_acquisitions.contains(info.data())) {
        return;
    }
    auto collection =
        qSharedPointerObjectCast<DeviceParameterCollection>(m_pool->getParameterCollection(info));
    if (collection && collection->streamChannel()) {
        m_acquisitions.insert(info.data(), new Acquisition(collection, this));
    }
}

void AcquisitionService::remove(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
{
    // At once: the camera's collection goes with the acquisition's hold on it.
    delete m_acquisitions.take(info.data());
}

Plugin::Acquisition::IAcquisition*
AcquisitionService::getAcquisition(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const
{
    return acquisitionOf(info);
}

Acquisition*
AcquisitionService::acquisitionOf(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info) const
{
    return info ? m_acquisitions.value(info.data()) : nullptr;
}

} // namespace Backend
