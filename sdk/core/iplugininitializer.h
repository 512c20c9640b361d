#pragma once

#include <core/iservice.h>

#include <QList>
#include <QObject>
#include <QReadLocker>
#include <QReadWriteLock>
#include <QSharedPointer>

namespace Core {
namespace Plugin {

// The host's service registry as the plug-ins see it: plug-ins offer their services here in
// IPlugin::initialize() and look up those of the host and of other plug-ins.
class IPluginInitializer : public QObject {
    Q_OBJECT
public:
    explicit IPluginInitializer(QObject* parent = nullptr);
    ~IPluginInitializer() override;

    // Held for reading while the service list is walked and for writing while it changes.
    // Recursive, so that a thread that holds it may call services() or, for writing,
    // registerService(); a thread that holds it for reading must not register.
    QReadWriteLock* serviceLock() const;

    // In registration order.
    virtual QList<QSharedPointer<Core::Service::IService>> services() const = 0;
    virtual void registerService(QSharedPointer<Core::Service::IService> service) = 0;
    virtual void unregisterService(QSharedPointer<Core::Service::IService> service) = 0;

    // The first registered service that is a T; null when there is none.
    template <class T> QSharedPointer<T> getService() const;

private:
    mutable QReadWriteLock m_serviceLock;
};

template <class T> QSharedPointer<T> IPluginInitializer::getService() const
{
    QList<QSharedPointer<T>> matches;
    {
        QReadLocker locker(serviceLock());
        const QList<QSharedPointer<Core::Service::IService>> all = services();
        for (const QSharedPointer<Core::Service::IService>& service : all) {
            QSharedPointer<T> match = qSharedPointerObjectCast<T>(service);
            if (match) {
                matches.append(match);
            }
        }
    }
    return matches.isEmpty() ? QSharedPointer<T>() : matches.first();
}

} // namespace Plugin
} // namespace Core
