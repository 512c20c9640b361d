// Prints figures for the feature tree model layer; never fails on a number.
#include "benchsupport.h"

#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"

#include <camerapool.h>
#include <deviceparametercollection.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTextStream>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace ParameterCollection;

namespace {

const QString kPrefix = QStringLiteral("@CameraDevice");
const int kGeneratedFeatures = 5000;
// Polled registers poll once an hour, so that no poll cycle in the run has anything due.
const int kPollingTimeMs = 3600000;

double median(QVector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.isEmpty() ? 0.0 : v[v.size() / 2];
}

const char* verdict(bool met)
{
    return met ? "target met" : "target missed";
}

// A GenICam description the simulated device serves: categories three deep under Root, every
// feature backed by its own register.
class DescriptionWriter {
public:
    explicit DescriptionWriter(QTextStream& out) : m_out(out) {}

    // Returns how many features are polled.
    int write(int featureCount)
    {
        m_out
            << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
               "<RegisterDescription ModelName=\"BenchTree\" VendorName=\"Vanto\"\n"
               "    ToolTip=\"Generated feature tree for benchmarks\" StandardNameSpace=\"None\"\n"
               "    SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\"\n"
               "    MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\"\n"
               "    ProductGuid=\"3d7c1e52-8a4b-4f0e-9c61-5b2e8f1a7d03\"\n"
               "    VersionGuid=\"9a4e2c71-6b3d-4e8f-a152-7c0d9e3b6f18\"\n"
               "    xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n";
        // 4 + 12 + 36 = 52 categories; features are dealt out over all of them.
        QStringList names;
        QVector<QStringList> children;
        const auto add = [&](const QString& name) {
            names << name;
            children.append(QStringList());
            return names.size() - 1;
        };
        QStringList top;
        for (const char* first : kTopCategories) {
            const int a = add(QLatin1String(first));
            top << names[a];
            for (int b = 0; b < 3; ++b) {
                const int second = add(QStringLiteral("%1Group%2").arg(names[a]).arg(b));
                children[a] << names[second];
                for (int c = 0; c < 3; ++c) {
                    const int third = add(QStringLiteral("%1Part%2").arg(names[second]).arg(c));
                    children[second] << names[third];
                }
            }
        }
        for (int i = 0; i < featureCount; ++i) {
            children[i % names.size()] << featureName(i);
        }
        category(QStringLiteral("Root"), top, QStringLiteral("Beginner"));
        for (int k = 0; k < names.size(); ++k) {
            category(names[k], children[k],
                     k % 5 == 4 ? QStringLiteral("Expert") : QStringLiteral("Beginner"));
        }
        for (int i = 0; i < featureCount; ++i) {
            feature(i);
        }
        m_out << "  <Port Name=\"Device\"/>\n</RegisterDescription>\n";
        return m_polled;
    }

private:
    static constexpr const char* kTopCategories[4] = {"ImageFormatControl", "AcquisitionControl",
                                                      "AnalogControl", "DigitalIOControl"};

    static constexpr const char* kWords[] = {
        "Gain",    "Exposure", "Black",   "Trigger", "Line",    "Counter", "Timer",
        "Sensor",  "Pixel",    "White",   "Gamma",   "Chunk",   "Event",   "Sequencer",
        "Lut",     "Color",    "Balance", "Device",  "Stream",  "Packet",  "Binning",
        "Decimat", "Region",   "Test",    "User",    "Action",  "File",    "Hue",
        "Shading", "Link",     "Noise",   "Defect",  "Sharpen", "Offset",  "Strobe"};
    static constexpr const char* kEnds[] = {"Mode",   "Value",  "Time",   "Selector", "Auto",
                                            "Raw",    "Abs",    "Enable", "Min",      "Max",
                                            "Status", "Source", "Delay",  "Count",    "Level"};
    static constexpr int kWordCount = int(sizeof(kWords) / sizeof(kWords[0]));
    static constexpr int kEndCount = int(sizeof(kEnds) / sizeof(kEnds[0]));

    static QString featureName(int i)
    {
        return QStringLiteral("%1%2%3")
            .arg(QLatin1String(kWords[i % kWordCount]),
                 QLatin1String(kEnds[(i / kWordCount) % kEndCount]))
            .arg(i);
    }

    static QString displayName(const QString& name)
    {
        QString text;
        for (const QChar c : name) {
            if (!text.isEmpty() && (c.isUpper() || (c.isDigit() && !text.back().isDigit()))) {
                text += QLatin1Char(' ');
            }
            text += c;
        }
        return text;
    }

    static QString visibility(int i)
    {
        // In runs of ten, so that every level holds every type.
        switch ((i / 10) % 20) {
        case 0:
            return QStringLiteral("Invisible");
        case 1:
        case 2:
        case 3:
        case 4:
            return QStringLiteral("Guru");
        case 5:
        case 6:
        case 7:
        case 8:
        case 9:
        case 10:
        case 11:
            return QStringLiteral("Expert");
        default:
            return QStringLiteral("Beginner");
        }
    }

    void category(const QString& name, const QStringList& features, const QString& visibility)
    {
        m_out << "  <Category Name=\"" << name << "\">\n"
              << "    <DisplayName>" << displayName(name) << "</DisplayName>\n"
              << "    <Visibility>" << visibility << "</Visibility>\n";
        for (const QString& f : features) {
            m_out << "    <pFeature>" << f << "</pFeature>\n";
        }
        m_out << "  </Category>\n";
    }

    void head(const char* element, const QString& name, int i)
    {
        m_out << "  <" << element << " Name=\"" << name << "\">\n"
              << "    <ToolTip>Generated feature " << i << ".</ToolTip>\n"
              << "    <DisplayName>" << displayName(name) << "</DisplayName>\n"
              << "    <Visibility>" << visibility(i) << "</Visibility>\n";
    }

    void intReg(const QString& name, quint64 address, int length, const char* access, bool polled)
    {
        m_out << "  <IntReg Name=\"" << name << "\">\n"
              << "    <Address>0x" << QString::number(address, 16) << "</Address>\n"
              << "    <Length>" << length << "</Length>\n"
              << "    <AccessMode>" << access << "</AccessMode>\n"
              << "    <pPort>Device</pPort>\n"
              << "    <Cachable>" << (polled ? "NoCache" : "WriteThrough") << "</Cachable>\n";
        if (polled) {
            m_out << "    <PollingTime>" << kPollingTimeMs << "</PollingTime>\n";
        }
        m_out << "    <Sign>Unsigned</Sign>\n"
              << "    <Endianess>LittleEndian</Endianess>\n"
              << "  </IntReg>\n";
    }

    void feature(int i)
    {
        const QString name = featureName(i);
        const QString reg = name + QStringLiteral("Reg");
        const quint64 address = 0x10000 + quint64(i) * 0x10;
        // The type turns over along each name word too, so that searches hit every type.
        const int kind = (i + i / kWordCount) % 10;
        const bool polled = kind < 2 && i % 100 < 10;
        m_polled += polled ? 1 : 0;
        switch (kind) {
        case 0:
        case 1:
            head("Integer", name, i);
            m_out << "    <pValue>" << reg << "</pValue>\n"
                  << "    <Min>0</Min>\n    <Max>65535</Max>\n    <Inc>1</Inc>\n";
            if (i % 4 == 1) {
                m_out << "    <Representation>Linear</Representation>\n";
            }
            m_out << "  </Integer>\n";
            intReg(reg, address, 4, polled ? "RO" : "RW", polled);
            break;
        case 2: {
            const QString conv = name + QStringLiteral("Conv");
            head("Integer", name, i);
            m_out << "    <pValue>" << conv << "</pValue>\n"
                  << "    <Min>1</Min>\n    <Max>256</Max>\n  </Integer>\n"
                  << "  <IntConverter Name=\"" << conv << "\">\n"
                  << "    <Visibility>Invisible</Visibility>\n"
                  << "    <FormulaTo>FROM - 1</FormulaTo>\n"
                  << "    <FormulaFrom>TO + 1</FormulaFrom>\n"
                  << "    <pValue>" << reg << "</pValue>\n  </IntConverter>\n";
            intReg(reg, address, 4, "RW", false);
            break;
        }
        case 3: {
            const QString conv = name + QStringLiteral("Conv");
            head("Float", name, i);
            m_out << "    <pValue>" << conv << "</pValue>\n"
                  << "    <Min>0</Min>\n    <Max>1000</Max>\n    <Unit>us</Unit>\n"
                  << "    <Representation>Logarithmic</Representation>\n  </Float>\n"
                  << "  <Converter Name=\"" << conv << "\">\n"
                  << "    <Visibility>Invisible</Visibility>\n"
                  << "    <FormulaTo>FROM * 10</FormulaTo>\n"
                  << "    <FormulaFrom>TO / 10</FormulaFrom>\n"
                  << "    <pValue>" << reg << "</pValue>\n  </Converter>\n";
            intReg(reg, address, 4, "RW", false);
            break;
        }
        case 4:
            head("Float", name, i);
            m_out << "    <pValue>" << reg << "</pValue>\n"
                  << "    <Min>-100</Min>\n    <Max>100</Max>\n    <Unit>dB</Unit>\n  </Float>\n"
                  << "  <FloatReg Name=\"" << reg << "\">\n"
                  << "    <Address>0x" << QString::number(address, 16) << "</Address>\n"
                  << "    <Length>8</Length>\n    <AccessMode>RW</AccessMode>\n"
                  << "    <pPort>Device</pPort>\n    <Cachable>WriteThrough</Cachable>\n"
                  << "    <Endianess>LittleEndian</Endianess>\n  </FloatReg>\n";
            break;
        case 5:
        case 6:
            head("Enumeration", name, i);
            for (int e = 0; e < 4; ++e) {
                m_out << "    <EnumEntry Name=\"" << name << "Entry" << e << "\">\n"
                      << "      <DisplayName>Entry " << e << "</DisplayName>\n"
                      << "      <Value>" << e << "</Value>\n    </EnumEntry>\n";
            }
            m_out << "    <pValue>" << reg << "</pValue>\n  </Enumeration>\n";
            intReg(reg, address, 4, "RW", false);
            break;
        case 7:
            head("Boolean", name, i);
            m_out << "    <pValue>" << reg << "</pValue>\n"
                  << "    <OnValue>1</OnValue>\n    <OffValue>0</OffValue>\n  </Boolean>\n";
            intReg(reg, address, 4, "RW", false);
            break;
        case 8:
            head("Command", name, i);
            m_out << "    <pValue>" << reg << "</pValue>\n"
                  << "    <CommandValue>1</CommandValue>\n  </Command>\n";
            intReg(reg, address, 4, "RW", false);
            break;
        default:
            head("String", name, i);
            m_out << "    <pValue>" << reg << "</pValue>\n  </String>\n"
                  << "  <StringReg Name=\"" << reg << "\">\n"
                  << "    <Address>0x" << QString::number(0x100000 + quint64(i) * 0x40, 16)
                  << "</Address>\n"
                  << "    <Length>32</Length>\n    <AccessMode>RW</AccessMode>\n"
                  << "    <pPort>Device</pPort>\n    <Cachable>WriteThrough</Cachable>\n"
                  << "  </StringReg>\n";
            break;
        }
    }

    QTextStream& m_out;
    int m_polled = 0;
};

// Returns the number of polled features, or -1 when the file could not be written.
int writeDescription(const QString& path, int featureCount)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return -1;
    }
    QTextStream out(&file);
    out.setCodec("UTF-8");
    const int polled = DescriptionWriter(out).write(featureCount);
    out.flush();
    return file.error() == QFile::NoError ? polled : -1;
}

struct Camera {
    Backend::CameraPool pool;
    QSharedPointer<IParameterCollection> collection;
};

std::unique_ptr<Camera> openCamera(const QString& xmlFile)
{
    auto camera = std::make_unique<Camera>();
    camera->collection = camera->pool.getParameterCollection(camera->pool.openSimulated(xmlFile));
    // Let start-up reads land before anything is measured.
    if (auto* device =
            qobject_cast<Backend::DeviceParameterCollection*>(camera->collection.data())) {
        device->waitForDevice();
    }
    QCoreApplication::processEvents();
    return camera;
}

// Asks every index for its children, which loads every lazily loaded item.
int loadAll(const QAbstractItemModel& model, const QModelIndex& parent)
{
    const int rows = model.rowCount(parent);
    int count = rows;
    for (int row = 0; row < rows; ++row) {
        count += loadAll(model, model.index(row, 0, parent));
    }
    return count;
}

// What a fully expanded tree view asks: rowCount only where hasChildren says so.
int walkExpanded(const QAbstractItemModel& model, const QModelIndex& parent)
{
    const int rows = model.rowCount(parent);
    int count = rows;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex child = model.index(row, 0, parent);
        if (model.hasChildren(child)) {
            count += walkExpanded(model, child);
        }
    }
    return count;
}

struct ItemCounts {
    int features = 0;
    int categories = 0;
    int all = 0;
};

void countItems(FeatureTreeItem* item, ItemCounts& counts)
{
    for (int row = 0; row < item->childCount(); ++row) {
        FeatureTreeItem* child = item->child(row);
        ++counts.all;
        const auto* node = dynamic_cast<FeatureTreeINodeItem*>(child);
        if (node && node->isCategory()) {
            ++counts.categories;
        } else {
            ++counts.features;
        }
        countItems(child, counts);
    }
}

struct BuildFigures {
    double coldMs = 0;
    double warmMs = 0;
    ItemCounts counts;
};

double timedBuild(const QSharedPointer<IParameterCollection>& collection, ItemCounts* counts)
{
    FeatureTreeModel model;
    QElapsedTimer timer;
    timer.start();
    model.addParameterCollection(collection, QStringLiteral("Camera"), kPrefix, true);
    loadAll(model, QModelIndex());
    const double ms = timer.nsecsElapsed() / 1e6;
    if (counts) {
        *counts = ItemCounts();
        countItems(model.rootItem(), *counts);
    }
    return ms;
}

// Cold: the collection has not made its parameter objects yet. Warm: a second tree over the
// same collection, whose parameter objects are cached.
BuildFigures measureBuild(const QString& xmlFile, int rounds)
{
    BuildFigures figures;
    QVector<double> cold;
    QVector<double> warm;
    for (int round = 0; round < rounds; ++round) {
        const auto camera = openCamera(xmlFile);
        cold.append(timedBuild(camera->collection, &figures.counts));
        warm.append(timedBuild(camera->collection, nullptr));
    }
    figures.coldMs = median(cold);
    figures.warmMs = median(warm);
    return figures;
}

void printBuild(const char* label, const BuildFigures& f)
{
    std::printf(
        "tree build %s: %d feature items, %d category items (node map row included); "
        "fully expanded in %.1f ms cold (parameter objects made on the way), %.1f ms warm\n",
        label, f.counts.features, f.counts.categories, f.coldMs, f.warmMs);
}

void makeParameters(const QSharedPointer<IParameterCollection>& collection, const QString& name)
{
    for (const QString& child : collection->getChildren(name)) {
        if (collection->getParameter(child)) {
            makeParameters(collection, child);
        }
    }
}

qint64 rssBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QList<QByteArray> fields = file.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

qint64 heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}

void measureMemory(const QString& xmlFile)
{
    const auto camera = openCamera(xmlFile);
    malloc_trim(0);
    const qint64 rssBefore = rssBytes();
    const qint64 heapBefore = heapBytes();
    auto model = std::make_unique<FeatureTreeModel>();
    model->addParameterCollection(camera->collection, QStringLiteral("Camera"), kPrefix, true);
    loadAll(*model, QModelIndex());
    const qint64 heapDelta = heapBytes() - heapBefore;
    const qint64 rssDelta = rssBytes() - rssBefore;
    ItemCounts counts;
    countItems(model->rootItem(), counts);
    const double heapPerItem = double(heapDelta) / counts.all;
    const double rssPerItem = double(rssDelta) / counts.all;
    std::printf("memory per item over %d items (%d features), including the parameter objects "
                "the collection makes on first getParameter: heap %.0f B, RSS %.0f B "
                "(target <= 1024 B) %s\n",
                counts.all, counts.features, heapPerItem, rssPerItem,
                verdict(qMax(heapPerItem, rssPerItem) <= 1024.0));
    std::printf("  sizeof FeatureTreeINodeItem %d B; totals: heap %.2f MB, RSS %.2f MB\n",
                int(sizeof(FeatureTreeINodeItem)), heapDelta / 1048576.0, rssDelta / 1048576.0);

    // The same again on a fresh camera, parameter objects made first, to split the figure.
    const auto fresh = openCamera(xmlFile);
    const qint64 start = heapBytes();
    makeParameters(fresh->collection, kPrefix + QStringLiteral("/Root"));
    const qint64 parameters = heapBytes() - start;
    {
        FeatureTreeModel other;
        other.addParameterCollection(fresh->collection, QStringLiteral("Camera"), kPrefix, true);
        loadAll(other, QModelIndex());
        const qint64 items = heapBytes() - start - parameters;
        std::printf("  split: parameter objects %.0f B, model items %.0f B per item (display "
                    "names already cached)\n",
                    double(parameters) / counts.all, double(items) / counts.all);
    }
}

// The same shape as the feature tree (node map row, categories, features; name and value),
// in plain Qt items.
void copyRows(const QAbstractItemModel& from, const QModelIndex& fromParent,
              QStandardItem* toParent)
{
    const int rows = from.rowCount(fromParent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex name = from.index(row, 0, fromParent);
        auto* nameItem = new QStandardItem(name.data().toString());
        auto* valueItem = new QStandardItem(from.index(row, 1, fromParent).data().toString());
        toParent->appendRow({nameItem, valueItem});
        copyRows(from, name, nameItem);
    }
}

void measureSearch(const QString& xmlFile)
{
    const auto camera = openCamera(xmlFile);
    FeatureTreeModel model;
    FeatureTreeProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.addParameterCollection(camera->collection, QStringLiteral("Camera"), kPrefix, true);
    loadAll(model, QModelIndex());
    walkExpanded(proxy, QModelIndex());

    QStandardItemModel plain;
    plain.setColumnCount(2);
    copyRows(model, QModelIndex(), plain.invisibleRootItem());
    QSortFilterProxyModel plainProxy;
    plainProxy.setRecursiveFilteringEnabled(true);
    plainProxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    plainProxy.setSourceModel(&plain);
    walkExpanded(plainProxy, QModelIndex());

    const QStringList keystrokes = {QStringLiteral("G"),
                                    QStringLiteral("Ga"),
                                    QStringLiteral("Gai"),
                                    QStringLiteral("Gain"),
                                    QStringLiteral("Exposure"),
                                    QStringLiteral("x"),
                                    QString()};
    const int rounds = 21;
    QVector<QVector<double>> ours(keystrokes.size());
    QVector<QVector<double>> base(keystrokes.size());
    QVector<int> ourRows(keystrokes.size());
    QVector<int> baseRows(keystrokes.size());
    for (int round = 0; round < rounds; ++round) {
        for (int k = 0; k < keystrokes.size(); ++k) {
            QElapsedTimer timer;
            timer.start();
            proxy.setSearchRegExp(keystrokes[k]);
            ourRows[k] = walkExpanded(proxy, QModelIndex());
            ours[k].append(timer.nsecsElapsed() / 1e6);

            timer.start();
            plainProxy.setFilterFixedString(keystrokes[k]);
            baseRows[k] = walkExpanded(plainProxy, QModelIndex());
            base[k].append(timer.nsecsElapsed() / 1e6);
        }
    }
    // Where one keystroke goes: marking the items, then the proxy's re-filter and walk.
    const QString probe = QStringLiteral("Gain");
    QVector<double> marking;
    QVector<double> refilter;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        model.setSearchRegExp(probe);
        marking.append(timer.nsecsElapsed() / 1e6);
        timer.start();
        proxy.invalidate();
        walkExpanded(proxy, QModelIndex());
        refilter.append(timer.nsecsElapsed() / 1e6);
    }
    ItemCounts counts;
    countItems(model.rootItem(), counts);
    std::printf("search keystroke over %d features, medians of %d (targets: ratio <= 1.0, "
                "< 16 ms):\n",
                counts.features, rounds);
    for (int k = 0; k < keystrokes.size(); ++k) {
        const double o = median(ours[k]);
        const double b = median(base[k]);
        const QString shown = keystrokes[k].isEmpty()
                                  ? QStringLiteral("(cleared)")
                                  : QLatin1Char('"') + keystrokes[k] + QLatin1Char('"');
        std::printf("  %-10s ours %6.2f ms (%4d rows), QSortFilterProxyModel %6.2f ms (%4d rows), "
                    "ratio %.2f %s, absolute %s\n",
                    qPrintable(shown), o, ourRows[k], b, baseRows[k], o / b, verdict(o / b <= 1.0),
                    verdict(o < 16.0));
    }
    std::printf("  split at \"%s\": marking items %.2f ms, proxy re-filter and walk %.2f ms\n",
                qPrintable(probe), median(marking), median(refilter));
}

void measurePoll(const QString& xmlFile, int polled)
{
    const auto camera = openCamera(xmlFile);
    FeatureTreeModel model;
    model.addParameterCollection(camera->collection, QStringLiteral("Camera"), kPrefix, true);
    loadAll(model, QModelIndex());
    // Every item observes from its construction on; polled ones are in the poll set.
    const int calls = 2000; // 2000 x 300 ms stays below the polling time
    QVector<double> perCall;
    perCall.reserve(calls);
    for (int i = 0; i < calls; ++i) {
        QElapsedTimer timer;
        timer.start();
        model.onTimerPoll();
        perCall.append(timer.nsecsElapsed() / 1e6);
    }
    QCoreApplication::processEvents();
    const double m = median(perCall);
    std::printf("poll cycle with nothing due, %d polled features observed: median %.4f ms "
                "(target < 0.2 ms) %s\n",
                polled, m, verdict(m < 0.2));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    qSetMessagePattern(QStringLiteral("%{message}"));
    const QString flir = sharedGenICamFile(QStringLiteral("FLIR_ORX_10G_310S9M.xml"));

    QTemporaryDir dir;
    const QString generated = dir.path() + QStringLiteral("/BenchTree5000.xml");
    const int polled = dir.isValid() ? writeDescription(generated, kGeneratedFeatures) : -1;
    if (polled < 0) {
        std::printf("could not write the generated description to %s\n", qPrintable(generated));
        return 0;
    }

    try {
        // Memory first, while the heap holds nothing freed by earlier measurements.
        measureMemory(generated);
        if (QFileInfo::exists(flir)) {
            printBuild("FLIR_ORX_10G_310S9M.xml", measureBuild(flir, 5));
        } else {
            std::printf("tree build FLIR_ORX_10G_310S9M.xml: skipped, %s is absent\n",
                        qPrintable(flir));
        }
        printBuild("generated 5000 features", measureBuild(generated, 5));
        measureSearch(generated);
        measurePoll(generated, polled);
    } catch (const std::exception& e) {
        std::printf("benchmark stopped: %s\n", e.what());
    }
    return 0;
}
