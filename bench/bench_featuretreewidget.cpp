// The feature tree widget as a user meets it: the time from handing it a camera's node map to
// the first paint of the laid-out panel, and one search keystroke from the search field's
// handler to the repaint. For the built-in camera and for a vendor description.

#include "panelsupport.h"

#include <camerapool.h>

#include "internal/legacy/featuretreeview.h"
#include "internal/legacy/featuretreewidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values.at(values.size() / 2);
}

void measure(const QString& label, const QString& xmlFile)
{
    Backend::CameraPool pool;
    QSharedPointer<Backend::CameraInfo> info;
    try {
        info = pool.openSimulated(xmlFile);
    } catch (const std::exception& e) {
        std::printf("%s: cannot open (%s)\n", qPrintable(label), e.what());
        return;
    }
    const auto collection = pool.getParameterCollection(info);

    QVector<double> shownMs;
    for (int run = 0; run < 7; ++run) {
        ShownPanel panel(info);
        QElapsedTimer timer;
        timer.start();
        panel.addCamera(collection);
        waitForPaint(panel.widget, panel.watcher);
        shownMs << timer.nsecsElapsed() / 1e6;
    }

    ShownPanel panel(info);
    FeatureTreeWidget& widget = panel.widget;
    PaintWatcher& watcher = panel.watcher;
    panel.addCamera(collection);
    waitForPaint(widget, watcher);
    const QStringList keystrokes = {QStringLiteral("g"),   QStringLiteral("ga"),
                                    QStringLiteral("gai"), QStringLiteral("gain"),
                                    QStringLiteral("gai"), QString()};
    QVector<double> keyMs;
    for (int round = 0; round < 5; ++round) {
        for (const QString& text : keystrokes) {
            QElapsedTimer timer;
            timer.start();
            widget.onFilterTextChanged(text);
            waitForPaint(widget, watcher);
            keyMs << timer.nsecsElapsed() / 1e6;
        }
    }
    const double shown = median(shownMs);
    const double key = median(keyMs);
    const bool vendor = !xmlFile.isEmpty();
    std::printf("%s: panel shown %.1f ms (median of %d)%s; search keystroke to repaint %.1f ms "
                "(median of %d, max %.1f)%s\n",
                qPrintable(label), shown, shownMs.size(),
                vendor ? (shown < 150.0 ? " target met" : " target missed") : "", key, keyMs.size(),
                *std::max_element(keyMs.cbegin(), keyMs.cend()),
                vendor ? (key < 16.0 ? " target met" : " target missed") : "");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    measure(QStringLiteral("built-in camera"), QString());
    const QString flir = sharedGenICamFile(QStringLiteral("FLIR_ORX_10G_310S9M.xml"));
    if (QFileInfo::exists(flir)) {
        measure(QStringLiteral("FLIR_ORX_10G_310S9M.xml"), flir);
    } else {
        std::printf("FLIR_ORX_10G_310S9M.xml: skipped, %s is not there\n", qPrintable(flir));
    }
    return 0;
}
