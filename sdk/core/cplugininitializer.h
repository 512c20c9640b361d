#pragma once

#include <core/iplugininitializer.h>

namespace Core {
namespace Plugin {

// The registry that the host hands to its plug-ins. Safe to use from any thread.
class CPluginInitializer : public IPluginInitializer {
    Q_OBJECT
public:
    explicit CPluginInitializer(QObject* parent = nullptr);
    ~CPluginInitializer() override;

    QList<QSharedPointer<Core::Service::IService>> services() const override;
    // A null service, or one that is registered already, is ignored.
    void registerService(QSharedPointer<Core::Service::IService> service) override;
    void unregisterService(QSharedPointer<Core::Service::IService> service) override;

private:
    QList<QSharedPointer<Core::Service::IService>> m_services;
};

} // namespace Plugin
} // namespace Core
