#include "featureinstantiationservice.h"

namespace VantoViewer {

FeatureInstantiationService::~FeatureInstantiationService() = default;

void FeatureInstantiationService::registerFactory(
    QPointer<Plugin::AppCore::IDockPanelFactory> factory)
{
    if (!factory || m_factories.contains(factory)) {
        return;
    }
    m_factories.append(factory);
    Q_EMIT factoryRegistered(factory);
}

void FeatureInstantiationService::unregisterFactory(
    QPointer<Plugin::AppCore::IDockPanelFactory> factory)
{
    if (factory && m_factories.removeAll(factory) > 0) {
        Q_EMIT factoryUnregistered(factory);
    }
}

QList<QPointer<Plugin::AppCore::IDockPanelFactory>> FeatureInstantiationService::factories() const
{
    QList<QPointer<Plugin::AppCore::IDockPanelFactory>> alive;
    for (const QPointer<Plugin::AppCore::IDockPanelFactory>& factory : m_factories) {
        if (factory) {
            alive.append(factory);
        }
    }
    return alive;
}

} // namespace VantoViewer
