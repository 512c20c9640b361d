// Open time against the size of a camera description, for the shapes that used to grow
// quadratically: one flat category, chains of pValue links and of SwissKnifes, categories
// nested in a line. The descriptions are generated here. Prints the growth factor per ×10 of
// size (1 × 10 = 10 for a cost that grows linearly); never fails on a number.
#include <deviceparametercollection.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

QByteArray description(const QByteArray& body)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<RegisterDescription ModelName=\"Growth\" VendorName=\"Vanto\" "
           "StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" "
           "SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\" "
           "SubMinorVersion=\"0\" "
           "ProductGuid=\"3f0b6a2e-7d41-4c9a-b58e-1e2d3c4b5a69\" "
           "VersionGuid=\"a1b2c3d4-e5f6-4a7b-8c9d-0e1f2a3b4c5d\" "
           "xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n" +
           body + "<Port Name=\"Device\"/>\n</RegisterDescription>\n";
}

QByteArray name(const char* prefix, int i)
{
    return QByteArray(prefix) + QByteArray::number(i);
}

QByteArray flatCategory(int n)
{
    QByteArray root = "<Category Name=\"Root\">";
    QByteArray features;
    for (int i = 0; i < n; ++i) {
        root += "<pFeature>" + name("F", i) + "</pFeature>";
        features += "<Integer Name=\"" + name("F", i) + "\"><Value>" + QByteArray::number(i) +
                    "</Value><Min>0</Min><Max>1000000</Max></Integer>\n";
    }
    return description(root + "</Category>\n" + features);
}

// n links from Root's only feature down to an Integer that holds 1: only the head is listed,
// as registers sit under the feature a user sees.
QByteArray chain(int n, const char* prefix,
                 const std::function<QByteArray(const QByteArray&, const QByteArray&)>& link)
{
    QByteArray body =
        "<Category Name=\"Root\"><pFeature>" + name(prefix, 0) + "</pFeature></Category>\n";
    for (int i = 0; i < n; ++i) {
        body += link(name(prefix, i), name(prefix, i + 1));
    }
    return description(body + "<Integer Name=\"" + name(prefix, n) +
                       "\"><Value>1</Value></Integer>\n");
}

QByteArray pValueChain(int n)
{
    return chain(n, "C", [](const QByteArray& node, const QByteArray& next) {
        return "<Integer Name=\"" + node + "\"><pValue>" + next + "</pValue></Integer>\n";
    });
}

QByteArray swissKnifeChain(int n)
{
    return chain(n, "S", [](const QByteArray& node, const QByteArray& next) {
        return "<IntSwissKnife Name=\"" + node + "\"><pVariable Name=\"X\">" + next +
               "</pVariable><Formula>X+1</Formula></IntSwissKnife>\n";
    });
}

QByteArray nestedCategories(int n)
{
    return chain(n, "K", [](const QByteArray& node, const QByteArray& next) {
        return "<Category Name=\"" + node + "\"><pFeature>" + next + "</pFeature></Category>\n";
    });
}

// The best of `runs` opens, in milliseconds, through the collection and its device thread.
double openMs(const QByteArray& xml, int runs)
{
    double best = 1e300;
    for (int r = 0; r < runs; ++r) {
        QElapsedTimer timer;
        timer.start();
        Backend::DeviceParameterCollection collection(QStringLiteral("growth"));
        collection.attachSimulated(QStringLiteral("CameraDevice"), xml);
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

void series(const char* shape, const std::function<QByteArray(int)>& generate,
            const QVector<int>& sizes)
{
    double previous = 0.0;
    int previousSize = 0;
    for (int n : sizes) {
        const double ms = openMs(generate(n), 3);
        std::printf("%-24s %7d nodes  open %9.1f ms", shape, n, ms);
        if (previous > 0.0) {
            // Scaled to a ×10 step: (t2/t1)^(1/log10(n2/n1)).
            const double perTen =
                std::pow(ms / previous, 1.0 / std::log10(double(n) / previousSize));
            std::printf("  growth per x10: %5.1f (linear: 10, target <= 12)", perTen);
        }
        std::printf("\n");
        previous = ms;
        previousSize = n;
    }
}

// The backend's share of one edit in a category of n features: the write, the re-read of
// what it can change, and the answer delivered to the GUI thread. Median of 21, milliseconds.
double editMs(int n)
{
    Backend::DeviceParameterCollection collection(QStringLiteral("edits"));
    collection.attachSimulated(QStringLiteral("CameraDevice"), flatCategory(n));
    const auto parameter =
        collection.getParameter(QStringLiteral("@CameraDevice/F") + QString::number(n / 2));
    QVector<double> times;
    for (int i = 0; i < 21; ++i) {
        QElapsedTimer timer;
        timer.start();
        parameter->setValue(QVariant(qint64(i)));
        collection.waitForDevice();
        QCoreApplication::processEvents();
        times.append(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    series("flat category", flatCategory, {1000, 10000, 50000});
    series("pValue chain", pValueChain, {1000, 10000, 100000});
    series("SwissKnife chain", swissKnifeChain, {1000, 10000, 100000});
    series("nested categories", nestedCategories, {1000, 10000, 100000});
    for (int n : {1000, 10000, 50000}) {
        std::printf("%-24s %7d nodes  edit %9.3f ms\n", "flat category", n, editMs(n));
    }
    // Sizes that are bounded rather than grown: a register of 4 GiB and a precision of 10^9
    // digits open as fast as a small camera, the register as an error of its own.
    const QByteArray bounded = description(
        "<Category Name=\"Root\"><pFeature>Huge</pFeature><pFeature>Precise</pFeature></Category>\n"
        "<Register Name=\"Huge\"><Address>0</Address><Length>4294967295</Length>"
        "<AccessMode>RO</AccessMode><pPort>Device</pPort></Register>\n"
        "<Float Name=\"Precise\"><Value>1.5</Value><DisplayNotation>Fixed</DisplayNotation>"
        "<DisplayPrecision>1000000000</DisplayPrecision></Float>\n");
    std::printf("%-24s %7d nodes  open %9.1f ms\n", "4 GiB register, 10^9 digits", 2,
                openMs(bounded, 3));
    return 0;
}
