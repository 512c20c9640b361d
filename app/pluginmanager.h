#pragma once

#include <core/cplugininitializer.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariantMap>

class QPluginLoader;

namespace Core {
namespace Plugin {
class IPlugin;
} // namespace Plugin
namespace Service {
class IService;
} // namespace Service
} // namespace Core

namespace VantoViewer {

// Finds, loads and drives the plug-ins: initialize() on all of them, then postInitialize() on
// all, and unInitialize() in reverse order before they are unloaded.
class PluginManager : public QObject {
    Q_OBJECT
public:
    explicit PluginManager(QObject* parent = nullptr);
    ~PluginManager() override;

    // Folders searched in order: the --plugin-dir folder first when given, then ../plugins next
    // to the executable (the build tree), then the installed plug-in folder, found relative to
    // the executable (<bindir>/../lib/vantoviewer/plugins for the default layout).
    static QStringList pluginFolders(const QString& extraFolder = QString());
    // The first file of that base name ("Nodescope") in the folders; empty when none has it.
    static QString findPlugin(const QString& baseName, const QStringList& folders);
    // Every library in the folders, once per file name: a file in an earlier folder hides one
    // of the same name in a later folder, the way a plug-in folder given on the command line
    // overrides the installed one.
    static QStringList findPlugins(const QStringList& folders);

    Core::Plugin::CPluginInitializer* initializer() const;
    void registerService(const QSharedPointer<Core::Service::IService>& service);

    // Loads and initializes one plug-in; postInitialize() follows in postInitializeAll().
    // False, with the reason in errorString(), when it cannot be loaded or refuses to start.
    // The loaded file is logged in the category "vanto.viewer.plugins" at info level, which is
    // off unless enabled through QT_LOGGING_RULES.
    bool load(const QString& fileName);
    void postInitializeAll();
    // Widgets that the plug-ins made must be gone before this: their code leaves with them.
    void unloadAll();

    // The metadata object of the last loaded plug-in ("MetaData" of its json).
    QVariantMap metaData(int index) const;
    QList<Core::Plugin::IPlugin*> plugins() const;
    // Language for every plug-in that ships translations.
    void setLanguage(const QString& languageCode);
    QString errorString() const;

private:
    struct Loaded {
        QPluginLoader* loader = nullptr; // child
        QPointer<Core::Plugin::IPlugin> plugin;
        bool postInitialized = false;
    };

    Core::Plugin::CPluginInitializer* m_initializer; // child
    QList<Loaded> m_loaded;
    QList<QSharedPointer<Core::Service::IService>> m_hostServices;
    QString m_errorString;
};

} // namespace VantoViewer
