#include "featuredump.h"
#include "mainwindow.h"
#include "pluginmanager.h"

#include <camerapool.h>
#include <languagehelper/languagehelper.h>
#include <parametercollection/exception.h>

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QCommandLineParser>
#include <QDockWidget>
#include <QPixmap>
#include <QPointer>
#include <QTextStream>
#include <QTimer>

#include <memory>

namespace {

constexpr int SCREENSHOT_POLL_MS = 100;
constexpr int SCREENSHOT_GIVE_UP_MS = 20000;

// Batch modes never need a display, so they run without one.
bool wantsConsole(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("--dump") || arg == QLatin1String("--discover") ||
            arg == QLatin1String("--help") || arg == QLatin1String("-h") ||
            arg == QLatin1String("-?") || arg == QLatin1String("--help-all") ||
            arg == QLatin1String("--version") || arg == QLatin1String("-v")) {
            return true;
        }
    }
    return false;
}

// Rows in the default panel's feature tree: the panel is filled once it has any.
int defaultPanelRows(const VantoViewer::MainWindow& window)
{
    QDockWidget* dock = window.panelDock(Core::CId(VantoViewer::MainWindow::DEFAULT_PANEL_ID));
    if (!dock) {
        return 0;
    }
    const QList<QAbstractItemView*> views = dock->findChildren<QAbstractItemView*>();
    for (QAbstractItemView* view : views) {
        if (view->inherits("FeatureTreeView") && view->isVisible() && view->model()) {
            return view->model()->rowCount();
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::unique_ptr<QCoreApplication> application;
    if (wantsConsole(argc, argv)) {
        application = std::make_unique<QCoreApplication>(argc, argv);
    } else {
        application = std::make_unique<QApplication>(argc, argv);
    }
    QCoreApplication& app = *application;
    QCoreApplication::setOrganizationName(QStringLiteral("Vanto"));
    QCoreApplication::setApplicationName(QStringLiteral("Vanto Viewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NODESCOPE_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Vanto Viewer: browse and edit the GenICam features of cameras."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption simulate(
        QStringLiteral("simulate"),
        QStringLiteral("Open a simulated camera: the built-in one, or the GenICam description "
                       "FILE.xml given as argument."));
    const QCommandLineOption camera(QStringLiteral("camera"),
                                    QStringLiteral("Open the camera with this id or IP address."),
                                    QStringLiteral("ID|ADDRESS"));
    const QCommandLineOption dump(QStringLiteral("dump"),
                                  QStringLiteral("Print the feature tree with values, then exit."));
    const QCommandLineOption discover(
        QStringLiteral("discover"),
        QStringLiteral("Search every network interface and USB for cameras and list them."));
    const QCommandLineOption pluginDir(QStringLiteral("plugin-dir"),
                                       QStringLiteral("Look for plug-ins in DIR first."),
                                       QStringLiteral("DIR"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Save the window as FILE.png once the features are shown, then exit."),
        QStringLiteral("FILE.png"));
    const QCommandLineOption lang(QStringLiteral("lang"),
                                  QStringLiteral("Language of the user interface (en, ja, ko, "
                                                 "zh)."),
                                  QStringLiteral("xx"));
    parser.addOptions({simulate, camera, dump, discover, pluginDir, screenshot, lang});
    parser.addPositionalArgument(QStringLiteral("FILE.xml"),
                                 QStringLiteral("GenICam description for --simulate."),
                                 QStringLiteral("[FILE.xml]"));
    parser.process(app);

    QTextStream out(stdout);
    QTextStream err(stderr);
    auto pool = QSharedPointer<Backend::CameraPool>::create();

    if (parser.isSet(discover)) {
        for (const auto& d : Backend::CameraPool::discover()) {
            out << d.id << "\t" << d.address << "\t" << d.vendor << "\t" << d.model << "\t"
                << d.protocol << "\n";
        }
        return 0;
    }

    const bool window = !parser.isSet(dump);
    QSharedPointer<Backend::CameraInfo> info;
    try {
        if (parser.isSet(camera)) {
            info = pool->openDevice(parser.value(camera));
        } else if (parser.isSet(simulate)) {
            const QStringList files = parser.positionalArguments();
            info = pool->openSimulated(files.isEmpty() ? QString() : files.first());
        } else if (!window) {
            info = pool->openSimulated();
        }
    } catch (const ParameterCollection::Exception& e) {
        err << "vantoviewer: " << e.text() << "\n";
        return 1;
    }

    if (!window) {
        const auto collection = pool->getParameterCollection(info);
        VantoViewer::FeatureDump dumper(out);
        out << info->getFriendlyName() << "\n";
        const int features = dumper.write(*collection);
        out << features << " features in " << dumper.categoryCount() << " categories\n";
        return 0;
    }

    if (parser.isSet(lang)) {
        LanguageHelper::setLanguageId(parser.value(lang));
    }

    VantoViewer::PluginManager plugins;
    auto mainWindow = std::make_unique<VantoViewer::MainWindow>(pool);
    for (const auto& service : mainWindow->hostServices()) {
        plugins.registerService(service);
    }
    const QString pluginFile = VantoViewer::PluginManager::findPlugin(
        QStringLiteral("Nodescope"),
        VantoViewer::PluginManager::pluginFolders(parser.value(pluginDir)));
    if (pluginFile.isEmpty()) {
        err << "vantoviewer: the Nodescope plug-in was not found in: "
            << VantoViewer::PluginManager::pluginFolders(parser.value(pluginDir))
                   .join(QStringLiteral(", "))
            << "\n";
        return 1;
    }
    if (!plugins.load(pluginFile)) {
        err << "vantoviewer: " << plugins.errorString() << "\n";
        return 1;
    }
    plugins.setLanguage(LanguageHelper::loadLanguageId());
    mainWindow->attachPluginServices(plugins.initializer());
    plugins.postInitializeAll();
    mainWindow->restoreLayout();
    if (info) {
        mainWindow->addDevice(info);
    }
    mainWindow->show();

    QTimer screenshotTimer;
    int waitedMs = 0;
    int result = 0;
    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        VantoViewer::MainWindow* shown = mainWindow.get();
        QObject::connect(&screenshotTimer, &QTimer::timeout, shown, [&, shown, file]() {
            waitedMs += SCREENSHOT_POLL_MS;
            const bool filled = defaultPanelRows(*shown) > 0;
            if (!filled && waitedMs < SCREENSHOT_GIVE_UP_MS) {
                return;
            }
            screenshotTimer.stop();
            if (!filled) {
                err << "vantoviewer: the features did not show up; saving the window anyway\n";
            }
            if (!shown->grab().save(file)) {
                err << "vantoviewer: cannot write " << file << "\n";
                result = 1;
            }
            QCoreApplication::quit();
        });
        screenshotTimer.start(SCREENSHOT_POLL_MS);
    }

    const int code = app.exec();
    // The panels run the plug-in's code: they go first, then the plug-ins, then the cameras.
    mainWindow.reset();
    plugins.unloadAll();
    pool->closeAll();
    return result != 0 ? result : code;
}
