#pragma once

#include <QSettings>
#include <QStandardPaths>
#include <QString>

// Keeps the user's real settings out of reach: every QSettings of the test lands in `folder`.
inline void isolateSettings(const QString& folder)
{
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
}

#include "mainwindow.h"
#include "pluginmanager.h"

#include <camerapool.h>

#include <memory>

// The host as main() builds it, with the plug-in from the build tree, shown. Empty on success,
// else why the plug-in did not load.
inline QString startTestHost(const QSharedPointer<Backend::CameraPool>& pool,
                             std::unique_ptr<VantoViewer::PluginManager>& plugins,
                             std::unique_ptr<VantoViewer::MainWindow>& window)
{
    plugins = std::make_unique<VantoViewer::PluginManager>();
    window = std::make_unique<VantoViewer::MainWindow>(pool);
    for (const auto& service : window->hostServices()) {
        plugins->registerService(service);
    }
    const QString file = VantoViewer::PluginManager::findPlugin(
        QStringLiteral("Nodescope"), {QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)});
    if (!plugins->load(file)) {
        return plugins->errorString();
    }
    window->attachPluginServices(plugins->initializer());
    plugins->postInitializeAll();
    window->restoreLayout();
    window->show();
    return QString();
}
