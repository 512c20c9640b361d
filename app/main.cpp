#include "acquisitionactions.h"
#include "commandline.h"
#include "dumpcommand.h"
#include "grabcommand.h"
#include "featuresetcommand.h"
#include "filledviewwatcher.h"
#include "hosttranslator.h"
#include "imagepanel.h"
#include "mainwindow.h"
#include "pluginmanager.h"
#include "screenshotrun.h"

#include <acquisitionservice.h>
#include <camerapool.h>
#include <languagehelper/languagehelper.h>
#include <parametercollection/exception.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QIcon>
#include <QTextStream>

#include <memory>

namespace {

// A camera named on the command line opens before there is a window to cancel from.
constexpr int COMMAND_LINE_OPEN_TIMEOUT_MS = 30000;
constexpr int EXIT_USAGE = 2;

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer sinceMain;
    sinceMain.start();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    VantoViewer::CommandLine commandLine;
    const bool understood = commandLine.parse(arguments);
    using Mode = VantoViewer::CommandLine::Mode;
    // Batch modes, and a command line not understood, never need a display.
    std::unique_ptr<QCoreApplication> application;
    if (!understood || commandLine.mode() != Mode::Window) {
        application = std::make_unique<QCoreApplication>(argc, argv);
    } else {
        application = std::make_unique<QApplication>(argc, argv);
    }
    QCoreApplication& app = *application;
    QCoreApplication::setOrganizationName(QStringLiteral("Vanto"));
    QCoreApplication::setApplicationName(QStringLiteral("Vanto Viewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NODESCOPE_VERSION));
    // Ties the window to the installed menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.vanto.VantoViewer"));
    if (qobject_cast<QApplication*>(&app)) {
        QApplication::setWindowIcon(
            QIcon::fromTheme(QStringLiteral("com.vanto.VantoViewer"),
                             QIcon(QStringLiteral(":/vantoviewer/icon.svg"))));
    }

    QTextStream out(stdout);
    QTextStream err(stderr);
    if (!understood) {
        err << "vantoviewer: " << commandLine.errorText() << "\n\n" << commandLine.helpText();
        return EXIT_USAGE;
    }
    if (commandLine.mode() == Mode::Help) {
        out << commandLine.helpText();
        return 0;
    }
    if (commandLine.mode() == Mode::Version) {
        out << QCoreApplication::applicationName() << " " << QCoreApplication::applicationVersion()
            << "\n";
        return 0;
    }
    auto pool = QSharedPointer<Backend::CameraPool>::create();
    pool->setOpenTimeout(COMMAND_LINE_OPEN_TIMEOUT_MS);

    if (commandLine.mode() == Mode::Discover) {
        for (const auto& d : Backend::CameraPool::discover()) {
            out << d.id << "\t" << d.address << "\t" << d.vendor << "\t" << d.model << "\t"
                << d.protocol << "\n";
        }
        return 0;
    }

    const bool window = commandLine.mode() == Mode::Window;
    // The window has its own; a grab needs one before the camera opens.
    std::unique_ptr<Backend::AcquisitionService> acquisitions;
    if (commandLine.mode() == Mode::Grab) {
        acquisitions = std::make_unique<Backend::AcquisitionService>(pool.data());
    }
    QSharedPointer<Backend::CameraInfo> info;
    try {
        if (!commandLine.camera().isEmpty()) {
            info = pool->openDevice(commandLine.camera());
        } else if (commandLine.simulate()) {
            info = pool->openSimulated(commandLine.simulatedFile());
        } else if (!window && commandLine.needsCamera()) {
            info = pool->openSimulated();
        }
    } catch (const ParameterCollection::Exception& e) {
        err << "vantoviewer: " << e.text() << "\n";
        return 1;
    }
    // Cameras the user opens in the window can be cancelled there.
    pool->setOpenTimeout(0);

    if (commandLine.mode() == Mode::Grab) {
        int status = 0;
        // A load comes first, so that the frames show its result.
        if (!commandLine.loadFeatures().isEmpty()) {
            status = VantoViewer::FeatureSetCommand(out, err).load(
                pool->getParameterCollection(info).data(), commandLine.loadFeatures());
        }
        if (status == 0) {
            status = VantoViewer::GrabCommand(out, err).run(*acquisitions->getAcquisition(info),
                                                            commandLine.grabCount(),
                                                            commandLine.saveImage());
        }
        if (status == VantoViewer::GrabCommand::EXIT_OK && commandLine.dumpAfterGrab()) {
            status =
                VantoViewer::DumpCommand(out, err).run(*info, pool->getParameterCollection(info));
        }
        pool->closeAll();
        return status;
    }
    if (!window) {
        const auto collection = info ? pool->getParameterCollection(info) : nullptr;
        VantoViewer::FeatureSetCommand features(out, err);
        int status = 0;
        if (commandLine.mode() == Mode::DiffFeatures) {
            status = features.diff(commandLine.diffFeatures().at(0),
                                   commandLine.diffFeatures().at(1), collection.data());
        }
        // A load comes first: whatever is saved, dumped or grabbed afterwards shows its result.
        if (status == 0 && !commandLine.loadFeatures().isEmpty()) {
            status = features.load(collection.data(), commandLine.loadFeatures());
        }
        if (status == 0 && !commandLine.saveFeatures().isEmpty()) {
            status = features.save(collection.data(), commandLine.saveFeatures());
        }
        if (status == 0 && commandLine.mode() == Mode::Dump) {
            status = VantoViewer::DumpCommand(out, err).run(*info, collection);
        }
        pool->closeAll();
        return status;
    }

    if (!commandLine.language().isEmpty()) {
        LanguageHelper::setLanguageId(commandLine.language());
    }
    // Before the window exists: its texts are translated as it builds them.
    VantoViewer::HostTranslator hostTranslator;
    hostTranslator.install(LanguageHelper::loadLanguageId());

    VantoViewer::PluginManager plugins;
    auto mainWindow = std::make_unique<VantoViewer::MainWindow>(pool);
    for (const auto& service : mainWindow->hostServices()) {
        plugins.registerService(service);
    }
    const QString pluginFile = VantoViewer::PluginManager::findPlugin(
        QStringLiteral("Nodescope"),
        VantoViewer::PluginManager::pluginFolders(commandLine.pluginDir()));
    if (pluginFile.isEmpty()) {
        err << "vantoviewer: the Nodescope plug-in was not found in: "
            << VantoViewer::PluginManager::pluginFolders(commandLine.pluginDir())
                   .join(QStringLiteral(", "))
            << "\n";
        return 1;
    }
    if (!plugins.load(pluginFile)) {
        err << "vantoviewer: " << plugins.errorString() << "\n";
        return 1;
    }
    // Third-party plug-ins next to it. One that does not load costs only itself.
    const QFileInfo featurePlugin(pluginFile);
    for (const QString& other : VantoViewer::PluginManager::findPlugins(
             VantoViewer::PluginManager::pluginFolders(commandLine.pluginDir()))) {
        if (QFileInfo(other).fileName() != featurePlugin.fileName() && !plugins.load(other)) {
            err << "vantoviewer: " << plugins.errorString() << "\n";
        }
    }
    plugins.setLanguage(LanguageHelper::loadLanguageId());
    mainWindow->attachPluginServices(plugins.initializer());
    plugins.postInitializeAll();
    mainWindow->restoreLayout();
    if (commandLine.windowSize().isValid()) {
        mainWindow->resize(commandLine.windowSize());
    }
    if (info) {
        mainWindow->addDevice(info);
    }
    QDockWidget* frontPanel = nullptr;
    if (!commandLine.panel().isEmpty()) {
        frontPanel = mainWindow->showPanel(commandLine.panel());
        if (!frontPanel) {
            err << "vantoviewer: no panel " << commandLine.panel() << "\n";
        }
    }
    mainWindow->show();
    if (commandLine.live()) {
        QAction* continuous = mainWindow->imagePanel()->acquisitionActions()->continuousShot();
        if (continuous->isEnabled()) {
            continuous->trigger();
        } else {
            err << "vantoviewer: --live: the camera has no stream to start\n";
        }
    }

    std::unique_ptr<VantoViewer::ScreenshotRun> screenshot;
    if (!commandLine.screenshot().isEmpty()) {
        screenshot = std::make_unique<VantoViewer::ScreenshotRun>(
            *mainWindow, frontPanel, commandLine.screenshot(), err, sinceMain);
        if (commandLine.live()) {
            screenshot->awaitFirstImage();
        }
        screenshot->start();
    }

    const int code = app.exec();
    // The panels run the plug-in's code: they go first, then the plug-ins, then the cameras.
    const int result = screenshot ? screenshot->result() : 0;
    screenshot.reset();
    mainWindow.reset();
    plugins.unloadAll();
    pool->closeAll();
    return result != 0 ? result : code;
}
