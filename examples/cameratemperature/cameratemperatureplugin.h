#pragma once

#include <core/iplugin.h>

#include <QPointer>

class TemperaturePanelFactory;

// The plug-in's entry object: the host creates it, then calls initialize(), postInitialize()
// and, before unloading, unInitialize().
class CameraTemperaturePlugin : public Core::Plugin::IPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID VANTO_VIEWER_PLUGIN_IID FILE "cameratemperature.json")
public:
    using Core::Plugin::IPlugin::IPlugin;

    bool initialize(QPointer<Core::Plugin::IPluginInitializer> initializer) override;
    void postInitialize() override;
    bool unInitialize(QPointer<Core::Plugin::IPluginInitializer> initializer) override;

private:
    QPointer<Core::Plugin::IPluginInitializer> m_initializer;
    QPointer<TemperaturePanelFactory> m_factory; // child of this plug-in
};
