// One category holding many features: the time from handing the panel the node map to the first
// paint of the opened category, and the time of one edit from the model's write to the repainted
// row. Printed for 1k, 10k and 50k features with the growth factor per tenfold (about 10 is linear;
// 12 is the ceiling aimed at). Never fails on a number.

#include "panelsupport.h"

#include <camerapool.h>

#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/featuretreeview.h"
#include "internal/legacy/featuretreewidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

const int kEdits = 20;

// Root holds one category. Integers take a line edit when edited; floats and booleans keep an
// editor open in their row, so half the rows carry a widget.
bool writeDescription(const QString& path, int features)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QTextStream out(&file);
    out << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<RegisterDescription ModelName=\"FlatCategory\" VendorName=\"Nodescope\"\n"
           "    ToolTip=\"One category with many features\" StandardNameSpace=\"None\"\n"
           "    SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\"\n"
           "    MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\"\n"
           "    ProductGuid=\"5b0e6f3a-2c4d-4a19-8e7b-1d9c3f6a2e50\"\n"
           "    VersionGuid=\"c27d9e14-7a3b-4f60-b8d5-4e1a0c9f7b23\"\n"
           "    xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
           "  <Category Name=\"Root\"><pFeature>Flat</pFeature></Category>\n"
           "  <Category Name=\"Flat\">\n";
    for (int i = 0; i < features; ++i) {
        out << "    <pFeature>Feature" << i << "</pFeature>\n";
    }
    out << "  </Category>\n";
    for (int i = 0; i < features; ++i) {
        switch (i % 4) {
        case 1:
            out << "  <Float Name=\"Feature" << i << "\"><Value>" << i
                << ".5</Value><Min>0</Min><Max>1000000</Max></Float>\n";
            break;
        case 3:
            out << "  <Boolean Name=\"Feature" << i << "\"><Value>0</Value><OnValue>1</OnValue>"
                << "<OffValue>0</OffValue></Boolean>\n";
            break;
        default:
            out << "  <Integer Name=\"Feature" << i << "\"><Value>" << i
                << "</Value><Min>0</Min><Max>1000000</Max></Integer>\n";
        }
    }
    out << "  <Port Name=\"Device\"/>\n</RegisterDescription>\n";
    return true;
}

struct Figures {
    double shownMs = 0.0;
    double editMs = 0.0;
};

bool measure(int features, Figures* figures)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("flat.xml"));
    if (!dir.isValid() || !writeDescription(path, features)) {
        return false;
    }
    Backend::CameraPool pool;
    QSharedPointer<Backend::CameraInfo> info;
    try {
        info = pool.openSimulated(path);
    } catch (const std::exception& e) {
        std::printf("%d features: cannot open (%s)\n", features, e.what());
        return false;
    }
    const auto collection = pool.getParameterCollection(info);

    ShownPanel panel(info);
    FeatureTreeWidget& widget = panel.widget;
    PaintWatcher& watcher = panel.watcher;
    QElapsedTimer timer;
    timer.start();
    panel.addCamera(collection);
    // The category open, as a user reading it or a search shows it.
    widget.expandTree();
    waitForPaint(*widget.treeView()->viewport(), watcher);
    figures->shownMs = timer.nsecsElapsed() / 1e6;

    auto* proxy = qobject_cast<FeatureTreeProxyModel*>(widget.treeView()->model());
    if (!proxy) {
        return false;
    }
    double total = 0.0;
    for (int edit = 0; edit < kEdits; ++edit) {
        // Integers only (every fourth feature), from the whole range, so that no edit is cheap
        // for being near the top.
        const int feature =
            static_cast<int>(static_cast<qint64>(edit) * (features - 4) / (kEdits - 1)) / 4 * 4;
        const QModelIndex index = proxy->findItemByFullName(
            QStringLiteral("@CameraDevice/Feature%1").arg(feature), nullptr, 1);
        if (!index.isValid()) {
            std::printf("%d features: Feature%d is not in the tree\n", features, feature);
            return false;
        }
        const int newValue = feature + 1000 + edit;
        widget.treeView()->scrollTo(index);
        waitForPaint(*widget.treeView()->viewport(), watcher);
        timer.restart();
        proxy->setData(index, newValue, Qt::EditRole);
        while (proxy->data(index, Qt::EditRole).toInt() != newValue) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        waitForPaint(*widget.treeView()->viewport(), watcher);
        total += timer.nsecsElapsed() / 1e6;
    }
    figures->editMs = total / kEdits;
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int sizes[] = {1000, 10000, 50000};
    Figures figures[3];
    for (int i = 0; i < 3; ++i) {
        if (!measure(sizes[i], &figures[i])) {
            return 1;
        }
        std::printf("%6d features in one category: shown %9.1f ms, one edit %8.2f ms "
                    "(mean of %d)\n",
                    sizes[i], figures[i].shownMs, figures[i].editMs, kEdits);
        std::fflush(stdout);
    }
    // Growth per tenfold between two sizes: (t_large / t_small)^(1 / log10(size ratio)).
    const auto perTenfold = [](double small, double large, double ratio) {
        return small > 0.0 ? std::pow(large / small, 1.0 / std::log10(ratio)) : 0.0;
    };
    const double shownGrowth = perTenfold(figures[0].shownMs, figures[1].shownMs, 10.0);
    const double editGrowth = perTenfold(figures[0].editMs, figures[1].editMs, 10.0);
    const double shownGrowth50 = perTenfold(figures[0].shownMs, figures[2].shownMs, 50.0);
    const double editGrowth50 = perTenfold(figures[0].editMs, figures[2].editMs, 50.0);
    std::printf("growth per x10, 1k to 10k: shown %.1f, edit %.1f; 1k to 50k: shown %.1f, "
                "edit %.1f (target <= 12: %s)\n",
                shownGrowth, editGrowth, shownGrowth50, editGrowth50,
                std::max({shownGrowth, shownGrowth50}) <= 12.0 &&
                        std::max({editGrowth, editGrowth50}) <= 12.0
                    ? "met"
                    : "missed");
    return 0;
}
