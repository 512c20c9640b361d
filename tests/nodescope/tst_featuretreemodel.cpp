#include "faultycollection.h"
#include "testsupport.h"

#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreemodel.h"

#include <simulateddevice.h>

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

using namespace ParameterCollection;

namespace {

const char* const kPath = "src/nodescope/internal/legacy/featuretreemodel";

// What the default message pattern prints for a "path line message" log line.
QString logLine(int line, const QString& message)
{
    return QStringLiteral("%1   %2   %3").arg(QLatin1String(kPath)).arg(line).arg(message);
}

// Names of an index's children, column 0, in order.
QStringList childNames(const QAbstractItemModel& model, const QModelIndex& parent)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        names << model.index(row, 0, parent).data(FeatureTreeItem::TechnicalNameRole).toString();
    }
    return names;
}

int loadEverything(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex())
{
    int count = 0;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        count += 1 + loadEverything(model, model.index(row, 0, parent));
    }
    return count;
}

} // namespace

class tst_FeatureTreeModel : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    std::unique_ptr<FeatureTreeModel> m_model;

    QModelIndex find(const QString& feature, int column = 0) const
    {
        return m_model->findItemByFullName(QStringLiteral("@CameraDevice/") + feature, nullptr,
                                           column);
    }
    Backend::SimulatedDevice* device()
    {
        Backend::SimulatedDevice* result = nullptr;
        m_collection->runOnDeviceThread(
            [&result](Backend::DeviceWorker& worker) { result = worker.simulatedDevice(0); });
        return result;
    }

private Q_SLOTS:
    void init()
    {
        m_collection = openTestDescription(QStringLiteral("tree"));
        m_model = std::make_unique<FeatureTreeModel>();
        testModel(m_model.get());
        m_model->addParameterCollection(m_collection, QStringLiteral("Camera"),
                                        QStringLiteral("@CameraDevice"), false);
    }

    void cleanup()
    {
        m_model.reset();
        m_collection.reset();
    }

    void shouldStartEmptyWithGuruVisibilityAndPollingOff()
    {
        FeatureTreeModel model;
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(model.getVisibility(), GenApi::Guru);
        QVERIFY(!model.getPolling());
        QVERIFY(model.getDeviceAlive());
        QVERIFY(!model.getMonitorMode());
        QVERIFY(model.getGenICamCallbackEnable());
        QVERIFY(!model.isUtf8Encoded());
    }

    void shouldShowOneRowPerNodeMapNamedAsGiven()
    {
        QCOMPARE(m_model->rowCount(), 1);
        const QModelIndex root = m_model->index(0, 0);
        QCOMPARE(root.data().toString(), QStringLiteral("Camera"));
        QCOMPARE(root.data(FeatureTreeItem::FullNameRole).toString(),
                 QStringLiteral("@CameraDevice*Root"));
        QCOMPARE(root.data(FeatureTreeItem::TechnicalNameRole).toString(), QStringLiteral("Root"));
        QCOMPARE(root.data(FeatureTreeItem::LevelRole).toInt(), 1);
        QVERIFY(root.data(FeatureTreeItem::FullRowItemRole).toBool());
        QVERIFY(!root.data(FeatureTreeItem::SpecialNodeRole).toBool());
    }

    void shouldCreateCategoriesBelowTheNodeMapButNotInvisibleOnes()
    {
        // Given a root with three categories, an invisible category and a feature
        const QStringList names = childNames(*m_model, m_model->index(0, 0));
        // Then the invisible category has no row, the feature has one
        QCOMPARE(names, (QStringList{"Controls", "Kinds", "States", "TopFeature"}));
        QCOMPARE(m_model->index(0, 0, m_model->index(0, 0)).data(FeatureTreeItem::LevelRole), 2);
    }

    void shouldFlattenSubcategoriesIntoTheFirstCategoryLevel()
    {
        // Controls holds Details (Expert), which holds Deeper (Guru), and HiddenSub (Invisible).
        const QModelIndex controls = find(QStringLiteral("Controls"));
        QCOMPARE(childNames(*m_model, controls),
                 (QStringList{"IntPlain", "IntLinear", "IntLog", "IntHex", "FloatPlain",
                              "FloatLinear", "FloatLog"}));
        QCOMPARE(find(QStringLiteral("FloatLog")).data(FeatureTreeItem::LevelRole).toInt(), 3);
        QVERIFY(!find(QStringLiteral("Details")).isValid());
        QVERIFY(!find(QStringLiteral("SecretInt")).isValid());
    }

    void shouldNotRecurseForeverWhenCategoriesLoop()
    {
        // Given a camera whose categories loop: Details lists Controls and itself again
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        faulty->extraChildren.insert(
            QStringLiteral("@CameraDevice/Details"),
            {QStringLiteral("@CameraDevice/Controls"), QStringLiteral("@CameraDevice/Details")});
        faulty->extraChildren.insert(QStringLiteral("@CameraDevice/Controls"),
                                     {QStringLiteral("@CameraDevice/Controls")});
        FeatureTreeModel model;
        testModel(&model);
        // When the tree is built
        model.addParameterCollection(faulty, QStringLiteral("Camera"),
                                     QStringLiteral("@CameraDevice"), false);
        const int rows = loadEverything(model);
        // Then each feature of the loop appears once
        const QModelIndex controls =
            model.findItemByFullName(QStringLiteral("@CameraDevice/Controls"), nullptr, 0);
        QCOMPARE(childNames(model, controls),
                 (QStringList{"IntPlain", "IntLinear", "IntLog", "IntHex", "FloatPlain",
                              "FloatLinear", "FloatLog"}));
        QCOMPARE(rows, loadEverything(*m_model));
    }

    void shouldHaveTwoColumnsWithCategoryAndValueHeaders()
    {
        QCOMPARE(m_model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Category"));
        QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));
        QVERIFY(!m_model->headerData(0, Qt::Vertical).isValid());
        QVERIFY(!m_model->headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
        QVERIFY(!m_model->headerData(2, Qt::Horizontal).isValid());
    }

    void shouldGiveInvalidIndexesOnlyItemIsEnabled()
    {
        QCOMPARE(m_model->flags(QModelIndex()), Qt::ItemIsEnabled);
        QVERIFY(!m_model->data(QModelIndex()).isValid());
    }

    void shouldMarkWritableValuesEditable()
    {
        QVERIFY(find(QStringLiteral("IntPlain"), 1).flags() & Qt::ItemIsEditable);
        QVERIFY(!(find(QStringLiteral("IntPlain"), 0).flags() & Qt::ItemIsEditable));
        QVERIFY(!(find(QStringLiteral("ReadOnlyInt"), 1).flags() & Qt::ItemIsEditable));
    }

    void shouldWriteAChangedValueThroughTheParameter()
    {
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QVERIFY(m_model->setData(value, 64));
        m_collection->waitForDevice();
        QCOMPARE(value.data(Qt::EditRole).toLongLong(), 64);
        QCOMPARE(value.data().toString(), QStringLiteral("64"));
        QVERIFY(!changed.isEmpty());
        quint64 address = 0;
        quint32 length = 0;
        QVERIFY(device()->registerOf("IntPlainReg", &address, &length));
        QCOMPARE(device()->peekInt(address, length), 64);
    }

    void shouldNotWriteAValueEqualToTheCurrentOne()
    {
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        m_collection->waitForDevice();
        const int writesBefore = device()->writeCount();
        QVERIFY(m_model->setData(value, 42));
        m_collection->waitForDevice();
        QCOMPARE(device()->writeCount(), writesBefore);
    }

    void shouldRefuseToWriteWhileTheDeviceIsNotAlive()
    {
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        m_model->setDeviceAlive(false);
        const int writesBefore = device()->writeCount();
        QVERIFY(!m_model->setData(value, 64));
        m_collection->waitForDevice();
        QCOMPARE(device()->writeCount(), writesBefore);
        QCOMPARE(value.data(Qt::EditRole).toLongLong(), 42);
    }

    void shouldRefuseOtherRolesColumnsAndInvalidValues()
    {
        QVERIFY(!m_model->setData(find(QStringLiteral("IntPlain"), 0), 64));
        QVERIFY(!m_model->setData(find(QStringLiteral("IntPlain"), 1), 64, Qt::DisplayRole));
        QVERIFY(!m_model->setData(find(QStringLiteral("IntPlain"), 1), QVariant()));
        QVERIFY(!m_model->setData(QModelIndex(), 64));
    }

    void shouldLogAndFailWhenTheParameterLayerRefusesAWrite()
    {
        // Given a value above the feature's maximum of 1000
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        QSignalSpy refused(m_model.get(), &FeatureTreeModel::writeRefused);
        MessageCapture log;
        // When it is written
        const bool written = m_model->setData(value, 5000);
        // Then the write fails with the fixed log line and the reason goes out for the user
        QVERIFY(!written);
        QCOMPARE(log.lines(), QStringList{logLine(269, "Failed to set a feature value.")});
        QCOMPARE(refused.count(), 1);
        QCOMPARE(refused.at(0).at(0).toString(), QStringLiteral("@CameraDevice/IntPlain"));
        // naming the feature once, as the user knows it
        const QString message = refused.at(0).at(1).toString();
        QVERIFY2(message.startsWith("Plain Integer: "), qPrintable(message));
        QVERIFY2(!message.contains("IntPlain"), qPrintable(message));
        QVERIFY2(message.contains("1000"), qPrintable(message));
        QCOMPARE(value.data(Qt::EditRole).toLongLong(), 42);
    }

    void shouldPutEditorsBackWhenAWriteIsRefused()
    {
        // Given a value the parameter layer refuses
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        // When it is written, the cell announces its unchanged data so that editors show it
        QVERIFY(!m_model->setData(value, 5000));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), value);
    }

    void shouldTellWhyAWriteIsRefusedWhileTheDeviceIsNotAlive()
    {
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        m_model->setDeviceAlive(false);
        QSignalSpy refused(m_model.get(), &FeatureTreeModel::writeRefused);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QVERIFY(!m_model->setData(value, 64));
        QCOMPARE(refused.count(), 1);
        QCOMPARE(refused.at(0).at(1).toString(),
                 QStringLiteral("Plain Integer: the camera is lost, nothing was written"));
        QCOMPARE(changed.count(), 1);
        // Clearing a cell with an invalid value is no write attempt
        QVERIFY(!m_model->setData(value, QVariant()));
        QCOMPARE(refused.count(), 1);
    }

    void shouldNotLogRefusedWritesOnceTheDeviceIsGone()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        faulty->parameter(QStringLiteral("@CameraDevice/IntPlain"))->throwOnSet = true;
        FeatureTreeModel model;
        model.addParameterCollection(faulty, "Camera", "@CameraDevice", false);
        const QModelIndex value =
            model.findItemByFullName(QStringLiteral("@CameraDevice/IntPlain"), nullptr, 1);
        MessageCapture log;
        QVERIFY(!model.setData(value, 64));
        QCOMPARE(log.lines().size(), 1);
        model.setDeviceAlive(false);
        QVERIFY(!model.setData(value, 65));
        QCOMPARE(log.lines().size(), 1);
    }

    void shouldLogAFailedReadOncePerRunOfFailures()
    {
        // Given a feature whose tool tip cannot be read
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeModel model;
        model.addParameterCollection(faulty, "Camera", "@CameraDevice", false);
        const QModelIndex name =
            model.findItemByFullName(QStringLiteral("@CameraDevice/IntPlain"), nullptr, 0);
        faulty->parameter(QStringLiteral("@CameraDevice/IntPlain"))->throwOnProperty = true;
        MessageCapture log;
        // When it is read three times, then something else, then it again
        QVERIFY(!model.data(name, Qt::ToolTipRole).isValid());
        QVERIFY(!model.data(name, Qt::ToolTipRole).isValid());
        QVERIFY(!model.data(name, Qt::ToolTipRole).isValid());
        QCOMPARE(log.lines(), QStringList{logLine(307, "Failed to get a feature value")});
        QVERIFY(model.data(name, Qt::DisplayRole).isValid());
        QVERIFY(!model.data(name, Qt::ToolTipRole).isValid());
        // Then each run of failures is logged once
        QCOMPARE(log.lines().size(), 2);
    }

    void shouldLogANodeMapWithoutRoot()
    {
        MessageCapture log;
        m_model->addParameterCollection(m_collection, "Nothing", "@Nowhere", false);
        QCOMPARE(m_model->rowCount(), 1);
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral("%1   100    could not retrieve  @Nowhere /Root from "
                                            "camera node map")
                                 .arg(QLatin1String(kPath))});
        QCOMPARE(m_model->nodemapList().size(), 1);
    }

    void shouldAddNodeMapsInOrderAndRememberThem()
    {
        auto camera = openSimulatedCamera();
        FeatureTreeModel model;
        testModel(&model);
        for (const QString& map : camera->collection->getNodeMapNames()) {
            model.addParameterCollection(camera->collection, map, QLatin1Char('@') + map, true);
        }
        QCOMPARE(model.rowCount(), 5);
        QCOMPARE(model.index(2, 0).data().toString(), QStringLiteral("StreamGrabber0"));
        QCOMPARE(model.nodemapList().size(), 5);
        QCOMPARE(model.nodemapList().at(1).prefix, QStringLiteral("@DeviceTransportLayer"));
        QVERIFY(model.isUtf8Encoded());
        QVERIFY(loadEverything(model) > 300);
    }

    void shouldTurnParameterChangesIntoDataChanged()
    {
        const QModelIndex value = find(QStringLiteral("IntLinear"), 1);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        // A change made by someone else, such as another panel on the same camera
        m_collection->getParameter(QStringLiteral("@CameraDevice/IntLinear"))->setValue(700);
        QTRY_VERIFY(!changed.isEmpty());
        bool valueCell = false;
        for (const auto& args : changed) {
            valueCell = valueCell || args.at(0).value<QModelIndex>() == value;
        }
        QVERIFY(valueCell);
        QCOMPARE(value.data().toString(), QStringLiteral("700"));
    }

    void shouldStayQuietAboutUpdatesWhileTheDeviceIsNotAlive()
    {
        m_model->setDeviceAlive(false);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        m_collection->getParameter(QStringLiteral("@CameraDevice/IntLinear"))->setValue(700);
        m_collection->waitForDevice();
        QCoreApplication::processEvents();
        QCOMPARE(changed.count(), 0);
    }

    void shouldPollTheFirstNodeMapOnlyWhilePollingIsOnAndTheDeviceAlive()
    {
        // Given a model over a collection that counts polls
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeModel model;
        model.addParameterCollection(faulty, "Camera", "@CameraDevice", false);
        QCOMPARE(faulty->pollCount, 0);
        // When polling is switched on, it polls repeatedly
        model.enablePolling(true);
        QVERIFY(model.getPolling());
        QTRY_VERIFY(faulty->pollCount >= 2);
        // When it is switched off, at most the poll already scheduled still runs
        model.enablePolling(false);
        const int afterOff = faulty->pollCount;
        QTest::qWait(3 * FeatureTreeModel::POLL_INTERVAL_MS);
        QVERIFY(faulty->pollCount <= afterOff + 1);
        const int stopped = faulty->pollCount;
        // When the device dies while polling is on, polling stops
        model.enablePolling(true);
        QTRY_VERIFY(faulty->pollCount > stopped);
        model.setDeviceAlive(false);
        const int dead = faulty->pollCount;
        QTest::qWait(3 * FeatureTreeModel::POLL_INTERVAL_MS);
        QVERIFY(faulty->pollCount <= dead + 1);
        // and switching it "on" again without a change does not restart it
        model.setDeviceAlive(true);
        model.enablePolling(true);
        const int again = faulty->pollCount;
        QTest::qWait(3 * FeatureTreeModel::POLL_INTERVAL_MS);
        QCOMPARE(faulty->pollCount, again);
        // only a change does
        model.enablePolling(false);
        model.enablePolling(true);
        QTRY_VERIFY(faulty->pollCount > again);
    }

    void shouldRefreshInsteadOfPollingInMonitorMode()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeModel model;
        model.addParameterCollection(faulty, "Camera", "@CameraDevice", false);
        model.setMonitorMode(true);
        model.onTimerPoll();
        QCOMPARE(faulty->refreshCount, 1);
        QCOMPARE(faulty->pollCount, 0);
    }

    void shouldUpdateValuesFromPolledFeatures()
    {
        // The built-in camera's temperature drifts and carries a polling time.
        auto camera = openSimulatedCamera();
        FeatureTreeModel model;
        testModel(&model);
        model.addParameterCollection(camera->collection, "Camera", "@CameraDevice", false);
        loadEverything(model);
        const QModelIndex temperature =
            model.findItemByFullName(QStringLiteral("@CameraDevice/DeviceTemperature"), nullptr, 1);
        QVERIFY(temperature.isValid());
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.enablePolling(true);
        QTRY_VERIFY_WITH_TIMEOUT(std::any_of(changed.cbegin(), changed.cend(),
                                             [&](const QList<QVariant>& args) {
                                                 return args.at(0).value<QModelIndex>() ==
                                                        temperature;
                                             }),
                                 10000);
    }

    void shouldRefreshValuesChangedBehindTheCache()
    {
        // Given a register changed inside the camera without the host knowing
        quint64 address = 0;
        quint32 length = 0;
        QVERIFY(device()->registerOf("IntPlainReg", &address, &length));
        m_collection->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            worker.simulatedDevice(0)->pokeInt(address, 99, length);
        });
        const QModelIndex value = find(QStringLiteral("IntPlain"), 1);
        QCOMPARE(value.data().toString(), QStringLiteral("42"));
        // When the named feature is refreshed
        m_model->refresh({ParameterName(QStringLiteral("@CameraDevice/IntPlain"))});
        // Then the tree shows the camera's value
        QTRY_COMPARE(value.data().toString(), QStringLiteral("99"));
    }

    void shouldRefreshEveryFeatureForAnEmptyList()
    {
        quint64 address = 0;
        quint32 length = 0;
        QVERIFY(device()->registerOf("IntLinearReg", &address, &length));
        m_collection->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            worker.simulatedDevice(0)->pokeInt(address, 300, length);
        });
        m_model->refresh({});
        QTRY_COMPARE(find(QStringLiteral("IntLinear"), 1).data().toString(), QStringLiteral("300"));
    }

    void shouldDragAFeatureAsItsFullName()
    {
        std::unique_ptr<QMimeData> mime(m_model->mimeData({find(QStringLiteral("IntPlain"))}));
        QVERIFY(mime->hasText());
        QCOMPARE(mime->text(), QStringLiteral("@CameraDevice/IntPlain"));
        QCOMPARE(m_model->mimeTypes(), QStringList{"text/plain"});
        QCOMPARE(m_model->supportedDropActions(), Qt::MoveAction);
        std::unique_ptr<QMimeData> none(m_model->mimeData({QModelIndex()}));
        QVERIFY(!none->hasText());
        std::unique_ptr<QMimeData> empty(m_model->mimeData({}));
        QVERIFY(!empty->hasText());
    }

    void shouldMarkSearchMatchesByTechnicalOrDisplayNameIgnoringCase()
    {
        m_model->setSearchRegExp(QStringLiteral("plain"));
        QCOMPARE(m_model->searchText(), QStringLiteral("plain"));
        QVERIFY(find(QStringLiteral("IntPlain")).data(FeatureTreeItem::SearchedRole).toBool());
        QVERIFY(find(QStringLiteral("FloatPlain")).data(FeatureTreeItem::SearchedRole).toBool());
        QVERIFY(!find(QStringLiteral("IntLog")).data(FeatureTreeItem::SearchedRole).toBool());
        // "Top Feature" is a display name only
        m_model->setSearchRegExp(QStringLiteral("P FEAT"));
        QVERIFY(find(QStringLiteral("TopFeature")).data(FeatureTreeItem::SearchedRole).toBool());
        QVERIFY(!find(QStringLiteral("IntPlain")).data(FeatureTreeItem::SearchedRole).toBool());
    }

    void shouldShowTheTechnicalNameOfARowFoundOnlyByIt()
    {
        const auto name = [this] {
            return find(QStringLiteral("IntPlain")).data(Qt::DisplayRole).toString();
        };
        // Given a search that matches "Plain Integer" only by its technical name
        m_model->setSearchRegExp(QStringLiteral("intpl"));
        // Then the row says why it matched
        QVERIFY(find(QStringLiteral("IntPlain")).data(FeatureTreeItem::SearchedRole).toBool());
        QCOMPARE(name(), QStringLiteral("Plain Integer [IntPlain]"));
        // A text the displayed name holds needs no explaining
        m_model->setSearchRegExp(QStringLiteral("plain"));
        QCOMPARE(name(), QStringLiteral("Plain Integer"));
        m_model->setSearchRegExp(QStringLiteral("intplain"));
        QCOMPARE(name(), QStringLiteral("Plain Integer [IntPlain]"));
        // A row the search no longer finds, and an ended search, show the name alone
        m_model->setSearchRegExp(QStringLiteral("intplainx"));
        QCOMPARE(name(), QStringLiteral("Plain Integer"));
        m_model->setSearchRegExp(QStringLiteral("intpl"));
        m_model->setSearchRegExp(QString());
        QCOMPARE(name(), QStringLiteral("Plain Integer"));
    }

    void shouldMarkExactlyTheRowsWhoseNamesHoldTheTextAsItChanges()
    {
        // Given the built-in camera's whole tree
        auto camera = openSimulatedCamera();
        FeatureTreeModel model;
        model.addParameterCollection(camera->collection, "Camera", "@CameraDevice", false);
        QVERIFY(loadEverything(model) > 300);
        const QStringList texts = {QStringLiteral("G"),        QStringLiteral("Ga"),
                                   QStringLiteral("Gain"),     QStringLiteral("GainX"),
                                   QStringLiteral("Exposure"), QStringLiteral("x"),
                                   QStringLiteral("ex"),       QString(),
                                   QStringLiteral("e T"),      QStringLiteral("1"),
                                   QStringLiteral("_"),        QStringLiteral("\u00b5s"),
                                   QStringLiteral("TIME"),     QStringLiteral("Vnt"),
                                   QStringLiteral("vntc")};
        QSet<QString> found;
        for (const QString& text : texts) {
            // When the text changes: typed on, cut back, replaced, cleared
            model.setSearchRegExp(text);

            // Then every row is marked exactly when one of its names holds the text
            QList<FeatureTreeItem*> pending{model.rootItem()};
            while (!pending.isEmpty()) {
                FeatureTreeItem* item = pending.takeLast();
                for (int row = 0; row < item->childCount(); ++row) {
                    FeatureTreeItem* child = item->child(row);
                    pending.append(child);
                    const bool holds =
                        !text.isEmpty() &&
                        (child->getDisplayedName().contains(text, Qt::CaseInsensitive) ||
                         child->getTechnicalName().contains(text, Qt::CaseInsensitive));
                    QVERIFY2(child->isSearched() == holds,
                             qPrintable(text + QLatin1String(": ") + child->getFullName()));
                    if (holds) {
                        found.insert(text);
                    }
                }
            }
        }
        // And the texts that name features of the camera found them
        for (const char* text :
             {"G", "Ga", "Gain", "Exposure", "x", "ex", "e T", "1", "TIME", "Vnt", "vntc"}) {
            QVERIFY2(found.contains(QLatin1String(text)), text);
        }
    }

    void shouldTreatTheSearchTextAsPlainText()
    {
        m_model->setSearchRegExp(QStringLiteral("Int("));
        QVERIFY(!find(QStringLiteral("IntPlain")).data(FeatureTreeItem::SearchedRole).toBool());
        m_model->setSearchRegExp(QStringLiteral(".*"));
        QVERIFY(!find(QStringLiteral("IntPlain")).data(FeatureTreeItem::SearchedRole).toBool());
        m_model->setSearchRegExp(QString());
        QVERIFY(
            !m_model->findItemByRole(FeatureTreeItem::SearchedRole, true, nullptr, 0).isValid());
    }

    void shouldHighlightExactlyTheListedFeatures()
    {
        m_model->setParameterHighlightList(
            {ParameterName("@CameraDevice/IntHex"), ParameterName("@CameraDevice/BoolFeat")});
        QVERIFY(find(QStringLiteral("IntHex")).data(FeatureTreeItem::HighlightedRole).toBool());
        QVERIFY(find(QStringLiteral("BoolFeat")).data(FeatureTreeItem::HighlightedRole).toBool());
        QVERIFY(!find(QStringLiteral("IntPlain")).data(FeatureTreeItem::HighlightedRole).toBool());
        m_model->setParameterHighlightList({});
        QVERIFY(!find(QStringLiteral("IntHex")).data(FeatureTreeItem::HighlightedRole).toBool());
    }

    void shouldFindItemsByItemFullNameAndRole()
    {
        const QModelIndex byName = find(QStringLiteral("EnumFeat"), 1);
        QCOMPARE(byName.column(), 1);
        FeatureTreeItem* item = m_model->getFeatureTreeItem(byName);
        QVERIFY(item);
        QCOMPARE(m_model->findItem(item, nullptr, 0), m_model->indexForItem(item, 0));
        QCOMPARE(m_model->findItemByRole(FeatureTreeItem::FullNameRole,
                                         QStringLiteral("@CameraDevice/EnumFeat"), nullptr, 0),
                 m_model->indexForItem(item, 0));
        // A start item limits the search to its subtree
        FeatureTreeItem* states = m_model->getFeatureTreeItem(find(QStringLiteral("States")));
        QVERIFY(!m_model->findItem(item, states, 0).isValid());
        QVERIFY(!m_model->findItemByFullName(QStringLiteral("@CameraDevice/EnumFeat"), states, 0)
                     .isValid());
        QVERIFY(!m_model->indexForItem(nullptr, 0).isValid());
        QVERIFY(!find(QStringLiteral("NoSuchFeature")).isValid());
    }

    void shouldRefreshTheNodeMapRows()
    {
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        m_model->refreshSpecialItems();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).value<QModelIndex>(), m_model->index(0, 0));
        QCOMPARE(changed.at(0).at(1).value<QModelIndex>(), m_model->index(0, 1));
    }

    void shouldIgnoreFilterSettingsItLeavesToTheProxy()
    {
        const int rows = loadEverything(*m_model);
        m_model->setParameterFilterList({ParameterName("@CameraDevice/IntPlain")});
        m_model->setShowUnavailableParameters(true);
        QList<ParameterName> names{ParameterName("x")};
        m_model->getParameterFilterList(names);
        QCOMPARE(names.size(), 1);
        QCOMPARE(loadEverything(*m_model), rows);
        QCOMPARE(m_model->getParameterCollectionName(m_collection), QString());
    }

    void shouldStoreItsFlags()
    {
        m_model->setVisibility(GenApi::Beginner);
        QCOMPARE(m_model->getVisibility(), GenApi::Beginner);
        m_model->setGenICamCallbacksEnable(false);
        QVERIFY(!m_model->getGenICamCallbackEnable());
        FeatureTreeHighlighter highlighter;
        m_model->setHighlighter(&highlighter);
        QCOMPARE(m_model->highlighter(), &highlighter);
    }

    void shouldClearEveryRow()
    {
        m_model->clear();
        QCOMPARE(m_model->rowCount(), 0);
        QVERIFY(m_model->nodemapList().isEmpty());
    }
};

QTEST_MAIN(tst_FeatureTreeModel)
#include "tst_featuretreemodel.moc"
