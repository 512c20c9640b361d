// Prints figures for the parameter layer; never fails on a number.
#include "benchsupport.h"

#include <arv.h>

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <simulateddevice.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace ParameterCollection;

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double median(QVector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.isEmpty() ? 0.0 : v[v.size() / 2];
}

double percentile(QVector<double> v, double p)
{
    std::sort(v.begin(), v.end());
    return v.isEmpty() ? 0.0 : v[qMin(v.size() - 1, int(v.size() * p))];
}

// Aravis alone: parse, then read every feature's value once.
double bareAravisOpenMs(const QByteArray& xml)
{
    QElapsedTimer timer;
    timer.start();
    Backend::SimulatedDevice device(xml, QStringLiteral("bare"));
    int read = 0;
    std::function<void(ArvDomNode*)> walk = [&](ArvDomNode* parent) {
        for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
             child = arv_dom_node_get_next_sibling(child)) {
            if (ARV_IS_GC_FEATURE_NODE(child) && !ARV_IS_GC_ENUM_ENTRY(child) &&
                !ARV_IS_GC_CATEGORY(child) && !ARV_IS_GC_COMMAND(child) && !ARV_IS_GC_PORT(child)) {
                GError* error = nullptr;
                arv_gc_feature_node_get_value_as_string(ARV_GC_FEATURE_NODE(child), &error);
                g_clear_error(&error);
                ++read;
            } else if (ARV_IS_GC_GROUP_NODE(child)) {
                walk(child);
            }
        }
    };
    walk(ARV_DOM_NODE(arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(device.genicam()))));
    return timer.nsecsElapsed() / 1e6;
}

double ourOpenMs(const QByteArray& xml, Backend::NodeMapStructurePtr* structure)
{
    QElapsedTimer timer;
    timer.start();
    Backend::DeviceParameterCollection collection(QStringLiteral("bench"));
    collection.attachSimulated(QStringLiteral("CameraDevice"), xml);
    const double ms = timer.nsecsElapsed() / 1e6;
    *structure = collection.structure(QStringLiteral("CameraDevice"));
    return ms;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qSetMessagePattern(QStringLiteral("%{message}"));
    const QString flir = sharedGenICamFile(QStringLiteral("FLIR_ORX_10G_310S9M.xml"));
    const QByteArray xml = readFile(flir);
    if (xml.isEmpty()) {
        std::printf("open: skipped, %s is absent\n", qPrintable(flir));
    } else {
        QVector<double> bare;
        QVector<double> ours;
        Backend::NodeMapStructurePtr structure;
        for (int i = 0; i < 5; ++i) {
            bare.append(bareAravisOpenMs(xml));
            ours.append(ourOpenMs(xml, &structure));
        }
        std::printf("open FLIR_ORX_10G_310S9M.xml: ours %.1f ms, bare Aravis %.1f ms, ratio %.2f "
                    "(target <= 1.5)\n",
                    median(ours), median(bare), median(ours) / median(bare));
        std::printf("structure snapshot memory: %.2f MB for %d nodes (target <= 4 MB)\n",
                    structure->approximateBytes() / 1048576.0, int(structure->nodes.size()));
    }

    Backend::CameraPool pool;
    const auto info = pool.openSimulated();
    const auto collection = pool.getParameterCollection(info);
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));

    {
        const int calls = 1000000;
        QVector<double> perCall;
        qint64 sink = 0;
        for (int round = 0; round < 9; ++round) {
            QElapsedTimer timer;
            timer.start();
            for (int i = 0; i < calls; ++i) {
                sink += width->getParameterData()->value.type();
            }
            perCall.append(double(timer.nsecsElapsed()) / calls);
        }
        std::printf("getParameterData(): median %.1f ns per call (target <= 200 ns) [%lld]\n",
                    median(perCall), sink % 2);
    }

    {
        QVector<double> latencies;
        QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
        const auto data = width->getParameterData().staticCast<const IntegerParameterData>();
        for (int i = 0; i < 200; ++i) {
            const qint64 value = data->min + data->increment * (1 + i % 20);
            spy.clear();
            QElapsedTimer timer;
            timer.start();
            width->setValue(QVariant(value));
            // The first signal is the optimistic one; the second is the device's answer.
            while (spy.count() < 2) {
                if (!spy.wait(2000)) {
                    break;
                }
            }
            latencies.append(timer.nsecsElapsed() / 1e3);
        }
        std::printf(
            "write latency to the device's data-changed signal: median %.0f us, p99 %.0f us\n",
            median(latencies), percentile(latencies, 0.99));
    }
    return 0;
}
