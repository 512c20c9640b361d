#pragma once

#include <appcore/ifeatureinstantiationservice.h>

namespace VantoViewer {

// The panel factories of all plug-ins in registration order; a destroyed factory drops out.
class FeatureInstantiationService : public Plugin::AppCore::IFeatureInstantiationService {
    Q_OBJECT
public:
    using Plugin::AppCore::IFeatureInstantiationService::IFeatureInstantiationService;
    ~FeatureInstantiationService() override;

    void registerFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) override;
    void unregisterFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) override;
    QList<QPointer<Plugin::AppCore::IDockPanelFactory>> factories() const override;

private:
    QList<QPointer<Plugin::AppCore::IDockPanelFactory>> m_factories;
};

} // namespace VantoViewer
