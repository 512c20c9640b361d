#include "screenshotrun.h"

#include "filledviewwatcher.h"
#include "imagepanel.h"
#include "imageview.h"
#include "mainwindow.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDockWidget>
#include <QFile>
#include <QPixmap>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace VantoViewer {

namespace {

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
QAbstractItemView* shownFeatureView(const MainWindow& window, QDockWidget* front)
{
    for (QDockWidget* dock : {front, window.panelDock(Core::CId(MainWindow::DEFAULT_PANEL_ID))}) {
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

ScreenshotRun::ScreenshotRun(MainWindow& window, QDockWidget* front, const QString& file,
                             QTextStream& err, const QElapsedTimer& sinceMain)
    : QObject(&window), m_window(window), m_front(front), m_file(file), m_err(err),
      m_sinceMain(sinceMain)
{
    m_giveUp.setSingleShot(true);
    connect(&m_giveUp, &QTimer::timeout, this, &ScreenshotRun::saveAndQuit);
}

void ScreenshotRun::start()
{
    QAbstractItemView* tree = shownFeatureView(m_window, m_front);
    m_awaited = (tree ? 1 : 0) + (m_awaitImage ? 1 : 0);
    if (m_awaited == 0) {
        // Without a tree there is nothing to wait for.
        QTimer::singleShot(0, this, &ScreenshotRun::saveAndQuit);
        return;
    }
    if (m_awaitImage) {
        m_firstImage =
            connect(m_window.imagePanel()->view(), &ImageView::imagePainted, this, [this] {
                disconnect(m_firstImage);
                ready();
            });
    }
    if (tree) {
        m_watcher = new FilledViewWatcher(tree, &m_window);
        connect(m_watcher, &FilledViewWatcher::filledPaint, this, [this] {
            reportFeaturesShown(m_err, m_sinceMain);
            ready();
        });
    }
    m_giveUp.start(GIVE_UP_MS);
}

void ScreenshotRun::ready()
{
    if (--m_awaited == 0) {
        m_giveUp.stop();
        // The paint is still on its way to the screen; grab after it.
        QTimer::singleShot(0, this, &ScreenshotRun::saveAndQuit);
    }
}

void ScreenshotRun::saveAndQuit()
{
    if (m_saved) {
        return;
    }
    m_saved = true;
    m_giveUp.stop();
    if (!m_watcher || !m_watcher->hasSeenFilledPaint()) {
        m_err << "vantoviewer: the features did not show up; saving the window anyway\n";
    }
    if (m_awaitImage && m_window.imagePanel()->view()->paintedCount() == 0) {
        m_err << "vantoviewer: no image was shown; saving the window anyway\n";
    }
    if (!m_window.grab().save(m_file)) {
        m_err << "vantoviewer: cannot write " << m_file << "\n";
        m_result = 1;
    }
    m_err.flush();
    QCoreApplication::quit();
}

} // namespace VantoViewer
