#include "commandline.h"
#include "dumpcommand.h"
#include "featuresetcommand.h"
#include "filledviewwatcher.h"
#include "hosttranslator.h"
#include "mainwindow.h"
#include "pluginmanager.h"

#include <camerapool.h>
#include <languagehelper/languagehelper.h>
#include <parametercollection/exception.h>

#include <QAbstractItemView>
#include <QApplication>
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
// A camera named on the command line opens before there is a window to cancel from.
constexpr int COMMAND_LINE_OPEN_TIMEOUT_MS = 30000;
constexpr int EXIT_USAGE = 2;

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

    QTimer giveUp;
    giveUp.setSingleShot(true);
    bool saved = false;
    int result = 0;
    if (!commandLine.screenshot().isEmpty()) {
        const QString file = commandLine.screenshot();
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
