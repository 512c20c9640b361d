#include "dumpcommand.h"
#include "filledviewwatcher.h"
#include "hosttranslator.h"
#include "mainwindow.h"
#include "pluginmanager.h"

#include <camerapool.h>
#include <languagehelper/languagehelper.h>
#include <parametercollection/exception.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCommandLineParser>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QPixmap>
#include <QPointer>
#include <QTextStream>
#include <QTimer>

#include <memory>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace {

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

// The feature view of a panel: its tree, or its feature table when the panel shows a tab.
QAbstractItemView* featureViewIn(QDockWidget* dock)
{
    const QList<QAbstractItemView*> views = dock->findChildren<QAbstractItemView*>();
    for (const char* className :
         {"FeatureTreeView", "Plugin::Nodescope::Internal::View::CFeatureTableView"}) {
        for (QAbstractItemView* view : views) {
            if (view->inherits(className) && view->isVisible()) {
                return view;
            }
        }
    }
    return nullptr;
}

// The feature view the user sees first: that of the panel brought to the front, else that of
// the default panel. The panel is filled once it paints with rows.
QAbstractItemView* shownFeatureView(const VantoViewer::MainWindow& window, QDockWidget* front)
{
    for (QDockWidget* dock :
         {front, window.panelDock(Core::CId(VantoViewer::MainWindow::DEFAULT_PANEL_ID))}) {
        if (QAbstractItemView* view = dock ? featureViewIn(dock) : nullptr) {
            return view;
        }
    }
    return nullptr;
}

// Milliseconds since the kernel created this process, so that loading the libraries and static
// initialisation count too. The kernel keeps the start in clock ticks (usually 10 ms) and
// /proc/uptime counts in hundredths of a second, so the figure is good to about one tick either
// way; `tickMs` gets the tick's length. Negative when it cannot be known.
double msSinceProcessStart(double* tickMs)
{
#ifdef Q_OS_LINUX
    QFile stat(QStringLiteral("/proc/self/stat"));
    QFile uptime(QStringLiteral("/proc/uptime"));
    if (!stat.open(QIODevice::ReadOnly) || !uptime.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QByteArray line = stat.readAll();
    // Both count from boot, suspended time included.
    bool uptimeOk = false;
    const double uptimeSeconds = uptime.readAll().split(' ').first().toDouble(&uptimeOk);
    // The command name in parentheses may hold spaces; the fields after it start at the 3rd.
    const int nameEnd = line.lastIndexOf(')');
    const QList<QByteArray> fields = line.mid(nameEnd + 2).split(' ');
    constexpr int START_TIME_FIELD = 22 - 3;
    if (nameEnd < 0 || fields.size() <= START_TIME_FIELD) {
        return -1;
    }
    bool ok = false;
    const qulonglong startTicks = fields.at(START_TIME_FIELD).toULongLong(&ok);
    const long ticksPerSecond = sysconf(_SC_CLK_TCK);
    if (!ok || !uptimeOk || ticksPerSecond <= 0) {
        return -1;
    }
    *tickMs = 1000.0 / ticksPerSecond;
    return uptimeSeconds * 1000.0 - startTicks * *tickMs;
#else
    Q_UNUSED(tickMs)
    return -1;
#endif
}

// One line for bench_startup and for anyone timing a start by hand.
void reportFeaturesShown(QTextStream& err, const QElapsedTimer& sinceMain)
{
    double tickMs = 0;
    const double sinceStart = msSinceProcessStart(&tickMs);
    err << "vantoviewer: features shown after ";
    if (sinceStart >= 0) {
        err << qRound(sinceStart) << " ms since the process started (counted in " << tickMs
            << " ms ticks), ";
    }
    err << sinceMain.elapsed() << " ms since main() began\n";
    err.flush();
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer sinceMain;
    sinceMain.start();
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
    // Ties the window to the installed menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.vanto.VantoViewer"));
    if (qobject_cast<QApplication*>(&app)) {
        QApplication::setWindowIcon(
            QIcon::fromTheme(QStringLiteral("com.vanto.VantoViewer"),
                             QIcon(QStringLiteral(":/vantoviewer/icon.svg"))));
    }

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
    const QCommandLineOption panel(
        QStringLiteral("panel"),
        QStringLiteral("Show this panel at start, by id (Nodescope.Widget.Basic) or title."),
        QStringLiteral("PANEL"));
    parser.addOptions({simulate, camera, dump, discover, pluginDir, screenshot, lang, panel});
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
        const int status =
            VantoViewer::DumpCommand(out, err).run(*info, pool->getParameterCollection(info));
        pool->closeAll();
        return status;
    }

    if (parser.isSet(lang)) {
        LanguageHelper::setLanguageId(parser.value(lang));
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
    // Third-party plug-ins next to it. One that does not load costs only itself.
    const QFileInfo featurePlugin(pluginFile);
    for (const QString& other : VantoViewer::PluginManager::findPlugins(
             VantoViewer::PluginManager::pluginFolders(parser.value(pluginDir)))) {
        if (QFileInfo(other).fileName() != featurePlugin.fileName() && !plugins.load(other)) {
            err << "vantoviewer: " << plugins.errorString() << "\n";
        }
    }
    plugins.setLanguage(LanguageHelper::loadLanguageId());
    mainWindow->attachPluginServices(plugins.initializer());
    plugins.postInitializeAll();
    mainWindow->restoreLayout();
    if (info) {
        mainWindow->addDevice(info);
    }
    QDockWidget* frontPanel = nullptr;
    if (parser.isSet(panel)) {
        frontPanel = mainWindow->showPanel(parser.value(panel));
        if (!frontPanel) {
            err << "vantoviewer: no panel " << parser.value(panel) << "\n";
        }
    }
    mainWindow->show();

    QTimer giveUp;
    giveUp.setSingleShot(true);
    bool saved = false;
    int result = 0;
    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        VantoViewer::MainWindow* shown = mainWindow.get();
        QAbstractItemView* tree = shownFeatureView(*shown, frontPanel);
        QPointer<VantoViewer::FilledViewWatcher> watcher;
        if (tree) {
            watcher = new VantoViewer::FilledViewWatcher(tree, shown); // child of the window
        }
        const auto saveAndQuit = [&saved, &giveUp, &result, &err, shown, file, watcher]() {
            if (saved) {
                return;
            }
            saved = true;
            giveUp.stop();
            if (!watcher || !watcher->hasSeenFilledPaint()) {
                err << "vantoviewer: the features did not show up; saving the window anyway\n";
            }
            if (!shown->grab().save(file)) {
                err << "vantoviewer: cannot write " << file << "\n";
                result = 1;
            }
            err.flush();
            QCoreApplication::quit();
        };
        QObject::connect(&giveUp, &QTimer::timeout, shown, saveAndQuit);
        if (watcher) {
            QObject::connect(watcher.data(), &VantoViewer::FilledViewWatcher::filledPaint, shown,
                             [&giveUp, &err, &sinceMain, shown, saveAndQuit]() {
                                 giveUp.stop();
                                 reportFeaturesShown(err, sinceMain);
                                 // The paint is still on its way to the screen; grab after it.
                                 QTimer::singleShot(0, shown, saveAndQuit);
                             });
            giveUp.start(SCREENSHOT_GIVE_UP_MS);
        } else {
            // Without a tree there is nothing to wait for.
            QTimer::singleShot(0, shown, saveAndQuit);
        }
    }

    const int code = app.exec();
    // The panels run the plug-in's code: they go first, then the plug-ins, then the cameras.
    mainWindow.reset();
    plugins.unloadAll();
    pool->closeAll();
    return result != 0 ? result : code;
}
