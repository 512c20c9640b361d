#include "pluginmanager.h"

#include <core/alocalizedplugin.h>
#include <core/cplugininitializer.h>
#include <core/iplugin.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QSet>
#include <QVariantMap>

namespace {
// Quiet unless asked for: QT_LOGGING_RULES="vanto.viewer.plugins.info=true" tells which file an
// installed viewer really loaded.
Q_LOGGING_CATEGORY(lcPlugins, "vanto.viewer.plugins", QtWarningMsg)
} // namespace

namespace VantoViewer {

PluginManager::PluginManager(QObject* parent)
    : QObject(parent), m_initializer(new Core::Plugin::CPluginInitializer(this))
{}

PluginManager::~PluginManager()
{
    unloadAll();
}

QStringList PluginManager::pluginFolders(const QString& extraFolder)
{
    QStringList folders;
    if (!extraFolder.isEmpty()) {
        folders.append(QDir(extraFolder).absolutePath());
    }
    const QString appDir = QCoreApplication::applicationDirPath();
    folders.append(QDir::cleanPath(appDir + QStringLiteral("/../plugins")));
    // Relative to the executable, so an installed tree works wherever it was installed to.
    folders.append(QDir::cleanPath(appDir + QLatin1Char('/') +
                                   QStringLiteral(VANTOVIEWER_RELATIVE_PLUGIN_DIR)));
    return folders;
}

QString PluginManager::findPlugin(const QString& baseName, const QStringList& folders)
{
    for (const QString& folder : folders) {
        const QDir dir(folder);
        for (const QString& candidate : {QStringLiteral("lib") + baseName, baseName}) {
            const QString path = dir.filePath(candidate);
            // QLibrary knows the platform's suffix; a plain name is checked first for ".so".
            for (const QString& suffix :
                 {QStringLiteral(".so"), QStringLiteral(".dylib"), QStringLiteral(".dll")}) {
                if (QFileInfo::exists(path + suffix) && QLibrary::isLibrary(path + suffix)) {
                    return path + suffix;
                }
            }
        }
    }
    return QString();
}

QStringList PluginManager::findPlugins(const QStringList& folders)
{
    QStringList result;
    QSet<QString> seen;
    for (const QString& folder : folders) {
        const QFileInfoList files =
            QDir(folder).entryInfoList(QDir::Files | QDir::Readable, QDir::Name);
        for (const QFileInfo& file : files) {
            if (!QLibrary::isLibrary(file.fileName()) || seen.contains(file.fileName())) {
                continue;
            }
            seen.insert(file.fileName());
            result.append(file.absoluteFilePath());
        }
    }
    return result;
}

Core::Plugin::CPluginInitializer* PluginManager::initializer() const
{
    return m_initializer;
}

void PluginManager::registerService(const QSharedPointer<Core::Service::IService>& service)
{
    m_hostServices.append(service);
    m_initializer->registerService(service);
}

bool PluginManager::load(const QString& fileName)
{
    auto* loader = new QPluginLoader(fileName, this);
    const QJsonObject meta = loader->metaData();
    if (meta.value(QStringLiteral("IID")).toString() != QLatin1String(VANTO_VIEWER_PLUGIN_IID)) {
        m_errorString = tr("%1 is no Vanto Viewer plug-in: %2")
                            .arg(fileName, loader->errorString().isEmpty()
                                               ? meta.value(QStringLiteral("IID")).toString()
                                               : loader->errorString());
        delete loader;
        return false;
    }
    auto* plugin = qobject_cast<Core::Plugin::IPlugin*>(loader->instance());
    if (!plugin) {
        m_errorString = tr("Cannot load %1: %2").arg(fileName, loader->errorString());
        loader->unload();
        delete loader;
        return false;
    }
    if (!plugin->initialize(m_initializer)) {
        m_errorString = tr("The plug-in %1 did not start.").arg(fileName);
        plugin->unInitialize(m_initializer);
        loader->unload();
        delete loader;
        return false;
    }
    m_loaded.append({loader, plugin, false});
    qCInfo(lcPlugins).noquote() << "loaded" << QFileInfo(fileName).absoluteFilePath();
    return true;
}

void PluginManager::postInitializeAll()
{
    for (Loaded& loaded : m_loaded) {
        if (loaded.plugin && !loaded.postInitialized) {
            loaded.postInitialized = true;
            loaded.plugin->postInitialize();
        }
    }
}

void PluginManager::unloadAll()
{
    for (int i = m_loaded.size() - 1; i >= 0; --i) {
        if (m_loaded.at(i).plugin) {
            m_loaded.at(i).plugin->unInitialize(m_initializer);
        }
    }
    // The plug-ins' services run code of their libraries: they must go before the libraries.
    const QList<QSharedPointer<Core::Service::IService>> services = m_initializer->services();
    for (const QSharedPointer<Core::Service::IService>& service : services) {
        if (!m_hostServices.contains(service)) {
            m_initializer->unregisterService(service);
        }
    }
    while (!m_loaded.isEmpty()) {
        Loaded loaded = m_loaded.takeLast();
        // The library itself stays mapped until exit: Qt's metatypes and resources that it
        // registered must not point into unmapped memory.
        delete loaded.plugin.data();
        delete loaded.loader;
    }
}

QVariantMap PluginManager::metaData(int index) const
{
    if (index < 0 || index >= m_loaded.size()) {
        return QVariantMap();
    }
    return m_loaded.at(index)
        .loader->metaData()
        .value(QStringLiteral("MetaData"))
        .toObject()
        .toVariantMap();
}

QList<Core::Plugin::IPlugin*> PluginManager::plugins() const
{
    QList<Core::Plugin::IPlugin*> result;
    for (const Loaded& loaded : m_loaded) {
        if (loaded.plugin) {
            result.append(loaded.plugin);
        }
    }
    return result;
}

void PluginManager::setLanguage(const QString& languageCode)
{
    for (Core::Plugin::IPlugin* plugin : plugins()) {
        if (auto* localized = qobject_cast<Core::Plugin::ALocalizedPlugin*>(plugin)) {
            localized->setLanguage(languageCode);
        }
    }
}

QString PluginManager::errorString() const
{
    return m_errorString;
}

} // namespace VantoViewer
