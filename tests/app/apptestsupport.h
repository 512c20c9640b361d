#pragma once

#include <QAbstractItemModel>
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

// The role of the plug-in's feature tree that holds a row's full feature name, part of its
// contract with views.
constexpr int TREE_FULL_NAME_ROLE = Qt::UserRole + 1;

// The row of the feature `fullName` below `parent` in a feature tree model, fetching rows that
// are built on demand; invalid when there is none.
inline QModelIndex findFeature(QAbstractItemModel* model, const QModelIndex& parent,
                               const QString& fullName)
{
    while (model->canFetchMore(parent)) {
        model->fetchMore(parent);
    }
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data(TREE_FULL_NAME_ROLE).toString() == fullName) {
            return index;
        }
        const QModelIndex below = findFeature(model, index, fullName);
        if (below.isValid()) {
            return below;
        }
    }
    return {};
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
