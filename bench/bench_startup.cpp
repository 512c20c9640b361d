// The viewer's start as a user meets it: `vantoviewer --simulate --screenshot FILE.png` as a
// whole process, from QProcess::start to the first paint of the filled default panel (the line
// the viewer prints then), the resident memory at that moment, and the time to exit. For the
// built-in camera and for a vendor description.
//
// Every run gets fresh settings (HOME and XDG_CONFIG_HOME in a temporary folder), so no saved
// layout carries over. The caches (XDG_CACHE_HOME: the QML disk cache among others) are shared
// by the runs of one bench, and one unmeasured run per case comes first, so the measured runs
// start warm, as a second start of the day would.

#include "benchsupport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QVector>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int RUNS = 5;
constexpr int RUN_TIMEOUT_MS = 60000;
const QByteArray SHOWN_LINE = QByteArrayLiteral("vantoviewer: features shown after");

struct Run {
    bool ok = false;
    QString error;
    double shownMs = 0;
    double exitMs = 0;
    // The viewer's own figures: since its process started (in clock ticks) and since main().
    double reportedMs = -1;
    double sinceMainMs = -1;
    double rssMb = 0;
    double hwmMb = 0;
};

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values.at(values.size() / 2);
}

// VmRSS and VmHWM of a running process, in MB; zero when /proc does not tell.
void readMemory(qint64 pid, double* rssMb, double* hwmMb)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly)) {
        return;
    }
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        double* target = line.startsWith("VmRSS:")   ? rssMb
                         : line.startsWith("VmHWM:") ? hwmMb
                                                     : nullptr;
        if (target) {
            // "VmRSS:\t  123456 kB"
            *target = line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
        }
    }
}

Run runOnce(const QStringList& arguments, const QString& cacheDir)
{
    Run run;
    QTemporaryDir settings;
    if (!settings.isValid()) {
        run.error = QStringLiteral("no temporary folder");
        return run;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("HOME"), settings.filePath(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       settings.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), cacheDir);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setReadChannel(QProcess::StandardError);
    const QString shot = settings.filePath(QStringLiteral("shot.png"));

    QElapsedTimer timer;
    timer.start();
    process.start(QStringLiteral(VANTOVIEWER_EXECUTABLE),
                  arguments + QStringList{QStringLiteral("--screenshot"), shot});
    if (!process.waitForStarted(RUN_TIMEOUT_MS)) {
        run.error = process.errorString();
        return run;
    }
    QByteArray log;
    bool shown = false;
    while (!shown && timer.elapsed() < RUN_TIMEOUT_MS) {
        if (!process.waitForReadyRead(int(RUN_TIMEOUT_MS - timer.elapsed()))) {
            break;
        }
        log += process.readAllStandardError();
        if (log.contains(SHOWN_LINE)) {
            // Measured first, before anything else can let the viewer move on.
            run.shownMs = timer.nsecsElapsed() / 1e6;
            readMemory(process.processId(), &run.rssMb, &run.hwmMb);
            shown = true;
        }
    }
    if (!shown) {
        process.kill();
        process.waitForFinished();
        run.error = QStringLiteral("no \"features shown\" line; the viewer said:\n") +
                    QString::fromLocal8Bit(log);
        return run;
    }
    if (!process.waitForFinished(int(RUN_TIMEOUT_MS - timer.elapsed()))) {
        process.kill();
        process.waitForFinished();
        run.error = QStringLiteral("the viewer did not exit");
        return run;
    }
    run.exitMs = timer.nsecsElapsed() / 1e6;
    log += process.readAllStandardError();

    const QString text = QString::fromLocal8Bit(log);
    const QRegularExpressionMatch sinceStart =
        QRegularExpression(QStringLiteral("features shown after (\\d+) ms since the process"))
            .match(text);
    if (sinceStart.hasMatch()) {
        run.reportedMs = sinceStart.captured(1).toDouble();
    }
    const QRegularExpressionMatch sinceMain =
        QRegularExpression(QStringLiteral("(\\d+) ms since main\\(\\) began")).match(text);
    if (sinceMain.hasMatch()) {
        run.sinceMainMs = sinceMain.captured(1).toDouble();
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        run.error = QStringLiteral("the viewer ended with %1:\n%2")
                        .arg(process.exitCode())
                        .arg(QString::fromLocal8Bit(log));
        return run;
    }
    if (QFileInfo(shot).size() <= 0) {
        run.error = QStringLiteral("no screenshot written");
        return run;
    }
    run.ok = true;
    return run;
}

void printFigure(const char* what, const char* unit, const QVector<double>& values)
{
    std::printf("  %-44s median %7.1f %s (min %.1f, max %.1f)\n", what, median(values), unit,
                *std::min_element(values.begin(), values.end()),
                *std::max_element(values.begin(), values.end()));
}

void measure(const QString& label, const QStringList& arguments, const QString& cacheDir)
{
    // Fills the page cache and the QML disk cache; not counted.
    const Run warmUp = runOnce(arguments, cacheDir);
    if (!warmUp.ok) {
        std::printf("%s: the viewer failed: %s\n", qPrintable(label), qPrintable(warmUp.error));
        return;
    }
    QVector<double> shown;
    QVector<double> reported;
    QVector<double> sinceMain;
    QVector<double> exited;
    QVector<double> rss;
    QVector<double> hwm;
    for (int i = 0; i < RUNS; ++i) {
        const Run run = runOnce(arguments, cacheDir);
        if (!run.ok) {
            std::printf("%s: run %d failed: %s\n", qPrintable(label), i + 1, qPrintable(run.error));
            continue;
        }
        shown << run.shownMs;
        exited << run.exitMs;
        rss << run.rssMb;
        hwm << run.hwmMb;
        if (run.reportedMs >= 0) {
            reported << run.reportedMs;
        }
        if (run.sinceMainMs >= 0) {
            sinceMain << run.sinceMainMs;
        }
    }
    if (shown.isEmpty()) {
        return;
    }
    std::printf("%s (%d runs):\n", qPrintable(label), int(shown.size()));
    printFigure("start to features shown (bench clock)", "ms", shown);
    if (!reported.isEmpty()) {
        printFigure("  the viewer's count from its process start", "ms", reported);
    }
    if (!sinceMain.isEmpty()) {
        printFigure("  the viewer's count from main()", "ms", sinceMain);
    }
    printFigure("start to exit, screenshot saved", "ms", exited);
    printFigure("VmRSS when shown", "MB", rss);
    printFigure("VmHWM (peak) when shown", "MB", hwm);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (!QFileInfo::exists(QStringLiteral(VANTOVIEWER_EXECUTABLE))) {
        std::printf("startup: skipped, %s is not built\n", VANTOVIEWER_EXECUTABLE);
        return 0;
    }
    QTemporaryDir cache;
    if (!cache.isValid()) {
        std::printf("startup: skipped, no temporary folder\n");
        return 0;
    }
    std::printf("vantoviewer --simulate [FILE.xml] --screenshot FILE.png, offscreen, fresh "
                "settings per run, warm caches\n");
    measure(QStringLiteral("built-in camera"), {QStringLiteral("--simulate")}, cache.path());

    const QString vendorFile = sharedGenICamFile(QStringLiteral("FLIR_ORX_10G_310S9M.xml"));
    if (!QFileInfo::exists(vendorFile)) {
        std::printf("FLIR_ORX_10G_310S9M.xml: skipped, %s is absent\n", qPrintable(vendorFile));
    } else {
        measure(QStringLiteral("FLIR_ORX_10G_310S9M.xml"),
                {QStringLiteral("--simulate"), vendorFile}, cache.path());
    }
    return 0;
}
