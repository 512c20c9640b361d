#pragma once

#include <appcore/idockpanelfactory.h>
#include <core/iservice.h>

#include <QList>
#include <QPointer>

namespace Plugin {
namespace AppCore {

// Where plug-ins register the factories of their dock panels. The factories stay owned by
// the plug-ins; the host forgets a factory that is destroyed.
class IFeatureInstantiationService : public Core::Service::IService {
    Q_OBJECT
public:
    using Core::Service::IService::IService;
    ~IFeatureInstantiationService() override = default;

    virtual void registerFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) = 0;
    virtual void unregisterFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) = 0;
    // In registration order.
    virtual QList<QPointer<Plugin::AppCore::IDockPanelFactory>> factories() const = 0;

Q_SIGNALS:
    void factoryRegistered(QPointer<Plugin::AppCore::IDockPanelFactory> factory);
    void factoryUnregistered(QPointer<Plugin::AppCore::IDockPanelFactory> factory);
};

} // namespace AppCore
} // namespace Plugin
