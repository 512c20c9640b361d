#include "cplugininitializer.h"

#include <QDebug>
#include <QWriteLocker>

namespace Core {
namespace Plugin {

CPluginInitializer::CPluginInitializer(QObject* parent) : IPluginInitializer(parent) {}

CPluginInitializer::~CPluginInitializer() = default;

QList<QSharedPointer<Core::Service::IService>> CPluginInitializer::services() const
{
    QReadLocker locker(serviceLock());
    return m_services;
}

void CPluginInitializer::registerService(QSharedPointer<Core::Service::IService> service)
{
    if (!service) {
        qDebug() << "CPluginInitializer: ignoring a null service.";
        return;
    }
    QWriteLocker locker(serviceLock());
    if (m_services.contains(service)) {
        qDebug() << "CPluginInitializer: service" << service->metaObject()->className()
                 << "is registered already.";
        return;
    }
    m_services.append(service);
}

void CPluginInitializer::unregisterService(QSharedPointer<Core::Service::IService> service)
{
    QWriteLocker locker(serviceLock());
    m_services.removeAll(service);
}

} // namespace Plugin
} // namespace Core
