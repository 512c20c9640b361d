// A settings file of any content, read by the host window and the feature plug-in as they start:
// whatever is stored, nothing crashes and the window comes up.
#include "mainwindow.h"
#include "pluginmanager.h"

#include <camerapool.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

struct Host {
    std::unique_ptr<QApplication> app;
    std::unique_ptr<QTemporaryDir> folder;
    QString settingsFile;
    QSharedPointer<Backend::CameraPool> pool;
};

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

// Never destroyed: the plug-in's Qt Quick parts have been unloaded by the time static objects
// would go, and the application object must not outlive them into exit.
Host& host()
{
    static Host* instance = [] {
        static int argc = 1;
        static char name[] = "fuzz_settings";
        static char* argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        Host h;
        h.app = std::make_unique<QApplication>(argc, argv);
        h.folder = std::make_unique<QTemporaryDir>();
        QStandardPaths::setTestModeEnabled(true);
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, h.folder->path());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, h.folder->path());
        h.settingsFile =
            QSettings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer")).fileName();
        QDir().mkpath(QFileInfo(h.settingsFile).path());
        h.pool = QSharedPointer<Backend::CameraPool>::create();
        return new Host(std::move(h));
    }();
    return *instance;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Host& h = host();
    qInstallMessageHandler(quiet);
    {
        QFile file(h.settingsFile);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            return 0;
        }
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    // As main() starts the host: the window, then the plug-in's panels, then the layout.
    VantoViewer::PluginManager plugins;
    auto window = std::make_unique<VantoViewer::MainWindow>(h.pool);
    for (const auto& service : window->hostServices()) {
        plugins.registerService(service);
    }
    if (plugins.load(VantoViewer::PluginManager::findPlugin(QStringLiteral("Nodescope"),
                                                            {QStringLiteral(FUZZ_PLUGIN_DIR)}))) {
        window->attachPluginServices(plugins.initializer());
        plugins.postInitializeAll();
    }
    window->restoreLayout();
    window->show();
    QCoreApplication::processEvents();
    window.reset();
    plugins.unloadAll();
    return 0;
}
