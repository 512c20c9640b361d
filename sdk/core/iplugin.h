#pragma once

#include <QObject>
#include <QPointer>

// The interface id that the host expects in a plug-in's metadata; bump the version when the
// plug-in contract changes incompatibly.
#define VANTO_VIEWER_PLUGIN_IID "com.vanto.viewer.IPlugin/1.0"

namespace Core {
namespace Plugin {
class IPlugin;
class IPluginInitializer;
} // namespace Plugin
} // namespace Core

// Ahead of the class, so that moc knows the id when it reads Q_INTERFACES below.
Q_DECLARE_INTERFACE(Core::Plugin::IPlugin, VANTO_VIEWER_PLUGIN_IID)

namespace Core {
namespace Plugin {

// The entry object of a plug-in. The host calls initialize() on every plug-in, then
// postInitialize() on every plug-in, so that a plug-in can look up in postInitialize() the
// services that others offered in initialize(); unInitialize() runs before unloading.
class IPlugin : public QObject {
    Q_OBJECT
    // Declared here rather than in every plug-in, so that qobject_cast<IPlugin*> by interface
    // id also finds plug-ins that forget Q_INTERFACES.
    Q_INTERFACES(Core::Plugin::IPlugin)
public:
    using QObject::QObject;
    ~IPlugin() override = default;

    // Returns false when the plug-in cannot work; the host then unloads it.
    virtual bool initialize(QPointer<Core::Plugin::IPluginInitializer> initializer) = 0;
    virtual void postInitialize() = 0;
    virtual bool unInitialize(QPointer<Core::Plugin::IPluginInitializer> initializer) = 0;
};

} // namespace Plugin
} // namespace Core
