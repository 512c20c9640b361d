#include "testsupport.h"

#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"

#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>

#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

using namespace ParameterCollection;

namespace {

const QString kPrefix = QStringLiteral("@CameraDevice");
const quint64 kCounterAddress = 0x124;

QString fullName(const QString& feature)
{
    return kPrefix + QLatin1Char('/') + feature;
}

QStringList fullNames(const QStringList& features)
{
    QStringList names;
    for (const QString& feature : features) {
        names.append(fullName(feature));
    }
    return names;
}

QList<ParameterName> parameterNames(const QStringList& names)
{
    QList<ParameterName> list;
    for (const QString& name : names) {
        list.append(ParameterName(name));
    }
    return list;
}

// Records what the filter decided, so tests can tell whether a pass ran and what it judged.
class CountingProxy : public FeatureTreeProxyModel {
public:
    mutable int calls = 0;
    mutable int rejected = 0;

    void resetCounters()
    {
        calls = 0;
        rejected = 0;
    }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override
    {
        ++calls;
        const bool accepted = FeatureTreeProxyModel::filterAcceptsRow(sourceRow, sourceParent);
        if (!accepted) {
            ++rejected;
        }
        return accepted;
    }
};

struct Tree {
    std::unique_ptr<SimulatedCamera> camera;
    FeatureTreeModel model;
    CountingProxy proxy; // after the model: goes first

    QSharedPointer<IParameter> parameter(const QString& feature) const
    {
        return camera->collection->getParameter(fullName(feature));
    }
};

// Maps every row, as a fully expanded view would.
void expandAll(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex())
{
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        expandAll(model, model.index(row, 0, parent));
    }
}

void collectRows(const QAbstractItemModel& model, const QModelIndex& parent, bool categories,
                 QStringList& names)
{
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        // Level 1 holds the node map rows, which are neither features nor categories.
        if (index.data(FeatureTreeItem::LevelRole).toInt() > 1 &&
            index.data(FeatureTreeItem::IsCategoryRole).toBool() == categories) {
            names.append(index.data(FeatureTreeItem::FullNameRole).toString());
        }
        collectRows(model, index, categories, names);
    }
}

QStringList shownFeatures(const QAbstractItemModel& model)
{
    QStringList names;
    collectRows(model, QModelIndex(), false, names);
    names.sort();
    return names;
}

QStringList shownCategories(const QAbstractItemModel& model)
{
    QStringList names;
    collectRows(model, QModelIndex(), true, names);
    names.sort();
    return names;
}

QStringList topLevelRows(const QAbstractItemModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(model.index(row, 0).data(FeatureTreeItem::FullNameRole).toString());
    }
    return names;
}

QModelIndex findRow(const QAbstractItemModel& model, const QString& name,
                    const QModelIndex& parent = QModelIndex())
{
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data(FeatureTreeItem::FullNameRole).toString() == name) {
            return index;
        }
        const QModelIndex found = findRow(model, name, index);
        if (found.isValid()) {
            return found;
        }
    }
    return QModelIndex();
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

// The features of visibilitylevels.xml by level.
const QStringList kBeginner =
    fullNames({QStringLiteral("Gain"), QStringLiteral("Offset"), QStringLiteral("Lock"),
               QStringLiteral("Switched"), QStringLiteral("Counter")});
const QStringList kExpert = fullNames({QStringLiteral("Exposure"), QStringLiteral("Threshold")});
const QStringList kGuru = fullNames({QStringLiteral("Boost"), QStringLiteral("Secret")});
const QStringList kInvisible = fullNames({QStringLiteral("Debug")});

} // namespace

class tst_FeatureTreeProxyModel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void shouldStartAtGuruWithoutFilterOrCounts();
    void shouldNotRefilterWhenFilterListEqualsStoredOne();
    void shouldCountBeginnerFeaturesAsVisibleAndExpertAndGuruAsInvisible();
    void shouldCountAndShowFeaturesOfEachLevel_data();
    void shouldCountAndShowFeaturesOfEachLevel();
    void shouldShowUnavailableAndAboveLevelFeaturesWhenShowUnavailableIsSet();
    void shouldNeverCountInvisibleFeatureAsInvisibleMatch_data();
    void shouldNeverCountInvisibleFeatureAsInvisibleMatch();
    void shouldHideFeatureThatBecameUnavailableAtNextFiltering();
    void shouldCountFeatureOfTwoCategoriesOnce_data();
    void shouldCountFeatureOfTwoCategoriesOnce();
    void shouldCountEveryShownFeatureOnceInEveryPass();
    void shouldShowCategoryExactlyWhenFeatureBelowIsShown_data();
    void shouldShowCategoryExactlyWhenFeatureBelowIsShown();
    void shouldShowNodemapRowOnlyWithShownDescendant();
    void shouldShowOnlyFeaturesWhoseFullNameIsInFilterList_data();
    void shouldShowOnlyFeaturesWhoseFullNameIsInFilterList();
    void shouldCountOnlyListedFeaturesWhenFilterListIsSet();
    void shouldShowEverythingAgainWhenFilterListIsCleared();
    void shouldAcceptEveryRowUntestedWhileCollectionIsAdded();
    void shouldJudgePassedThroughRowsAtNextFiltering();
    void shouldMarkSearchMatchesInSource_data();
    void shouldMarkSearchMatchesInSource();
    void shouldNotHideRowsWhileSearching_data();
    void shouldNotHideRowsWhileSearching();
    void shouldMarkMatchesOfNodemapAddedWhileSearching();
    void shouldForwardVisibilityToSourceModel();
    void shouldMapFoundItemsToProxyIndexes();
    void shouldNotFindHiddenItemsInProxy();
    void shouldMapIndexForItemToProxyIndex();
    void shouldReturnItemForProxyAndSourceIndexes();
    void shouldReturnSourceAsFeatureTreeModel();
    void shouldReturnNoFeatureTreeModelForOtherSource();
    void shouldForwardOtherOperationsToSource();
    void shouldForwardNothingOnceSourceIsDestroyed();
    void shouldForwardHighlightListToSourceItems();
    void shouldForwardRefreshToSource();
    void shouldSignalValueChangeOnProxyRow();
    void shouldSignalPolledValueOnProxyRow();
    void shouldFilterEveryBuiltInNodemapAtBeginner();
    void shouldRefilterFeaturesOfCategoriesReadWhileTheyLoaded_data();
    void shouldRefilterFeaturesOfCategoriesReadWhileTheyLoaded();

private:
    std::unique_ptr<Tree> openTree(const QString& xml = QStringLiteral("visibilitylevels.xml"));
    void addCameraDevice(Tree& tree);
};

void tst_FeatureTreeProxyModel::initTestCase()
{
    // For spies on layoutChanged.
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
}

std::unique_ptr<Tree> tst_FeatureTreeProxyModel::openTree(const QString& xml)
{
    auto tree = std::make_unique<Tree>();
    tree->camera = openSimulatedCamera(xml.isEmpty() ? QString() : nodescopeTestDataPath(xml));
    tree->proxy.setSourceModel(&tree->model);
    testModel(&tree->model);
    return tree;
}

void tst_FeatureTreeProxyModel::addCameraDevice(Tree& tree)
{
    tree.proxy.addParameterCollection(tree.camera->collection, QStringLiteral("Camera"), kPrefix,
                                      false);
    // The proxy's tester joins once the tree is loaded: a reader of the proxy during the first
    // load confuses its re-filtering (shouldRefilterFeaturesOfCategoriesReadWhileTheyLoaded).
    expandAll(tree.model);
    testModel(&tree.proxy);
    expandAll(tree.proxy);
}

void tst_FeatureTreeProxyModel::shouldStartAtGuruWithoutFilterOrCounts()
{
    FeatureTreeProxyModel proxy;
    testModel(&proxy);
    QCOMPARE(proxy.getVisibility(), GenApi::Guru);
    QVERIFY(proxy.getParameterFilterList().isEmpty());
    QCOMPARE(proxy.getShowUnavailableParameters(), false);
    QCOMPARE(proxy.getVisibleMatchCount(), 0);
    QCOMPARE(proxy.getInvisibleMatchCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldNotRefilterWhenFilterListEqualsStoredOne()
{
    // Given a tree filtered by a list
    auto tree = openTree();
    addCameraDevice(*tree);
    const QStringList names = fullNames({QStringLiteral("Gain"), QStringLiteral("Boost")});
    tree->proxy.setParameterFilterList(parameterNames(names));
    expandAll(tree->proxy);
    QCOMPARE(shownFeatures(tree->proxy), sorted(names));
    tree->proxy.resetCounters();
    QSignalSpy layoutSpy(&tree->proxy, &QAbstractItemModel::layoutChanged);
    QSignalSpy removedSpy(&tree->proxy, &QAbstractItemModel::rowsRemoved);
    QSignalSpy insertedSpy(&tree->proxy, &QAbstractItemModel::rowsInserted);

    // When an equal list, built anew, is set again
    tree->proxy.setParameterFilterList(parameterNames(names));

    // Then no row is judged again and the view is told nothing
    QCOMPARE(tree->proxy.calls, 0);
    QCOMPARE(layoutSpy.count(), 0);
    QCOMPARE(removedSpy.count(), 0);
    QCOMPARE(insertedSpy.count(), 0);

    // while a different list does re-filter
    tree->proxy.setParameterFilterList(parameterNames(fullNames({QStringLiteral("Gain")})));
    QVERIFY(tree->proxy.calls > 0);
    QVERIFY(!layoutSpy.isEmpty());
    QCOMPARE(shownFeatures(tree->proxy), fullNames({QStringLiteral("Gain")}));
}

void tst_FeatureTreeProxyModel::shouldCountBeginnerFeaturesAsVisibleAndExpertAndGuruAsInvisible()
{
    // Given features at Beginner, Expert, Guru and Invisible
    auto tree = openTree();
    addCameraDevice(*tree);

    // When a pass runs at Beginner
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);

    // Then the Beginner features are visible and the Expert and Guru ones invisible matches
    QCOMPARE(tree->proxy.getVisibleMatchCount(), kBeginner.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), kExpert.size() + kGuru.size());
    QCOMPARE(shownFeatures(tree->proxy), sorted(kBeginner));
}

void tst_FeatureTreeProxyModel::shouldCountAndShowFeaturesOfEachLevel_data()
{
    QTest::addColumn<GenApi::EVisibility>("level");
    QTest::addColumn<bool>("showUnavailable");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<int>("invisibleMatches");

    const QStringList all = kBeginner + kExpert + kGuru + kInvisible;
    QTest::newRow("Beginner") << GenApi::Beginner << false << kBeginner
                              << kExpert.size() + kGuru.size();
    QTest::newRow("Expert") << GenApi::Expert << false << kBeginner + kExpert << kGuru.size();
    QTest::newRow("Guru") << GenApi::Guru << false << kBeginner + kExpert + kGuru << 0;
    QTest::newRow("Invisible") << GenApi::Invisible << false << all << 0;
    QTest::newRow("Beginner, show unavailable") << GenApi::Beginner << true << all << 0;
    QTest::newRow("Expert, show unavailable") << GenApi::Expert << true << all << 0;
    QTest::newRow("Guru, show unavailable") << GenApi::Guru << true << all << 0;
    QTest::newRow("Invisible, show unavailable") << GenApi::Invisible << true << all << 0;
}

void tst_FeatureTreeProxyModel::shouldCountAndShowFeaturesOfEachLevel()
{
    QFETCH(GenApi::EVisibility, level);
    QFETCH(bool, showUnavailable);
    QFETCH(QStringList, shown);
    QFETCH(int, invisibleMatches);

    auto tree = openTree();
    addCameraDevice(*tree);

    tree->proxy.setShowUnavailableParameters(showUnavailable);
    tree->proxy.setVisibility(level);
    expandAll(tree->proxy);

    QCOMPARE(shownFeatures(tree->proxy), sorted(shown));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), shown.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), invisibleMatches);
}

void tst_FeatureTreeProxyModel::shouldShowUnavailableAndAboveLevelFeaturesWhenShowUnavailableIsSet()
{
    // Given a Beginner view in which Switched has become unavailable
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const auto switched = tree->parameter(QStringLiteral("Switched"));
    QSignalSpy switchedSpy(switched.data(), &IParameter::parameterDataChanged);
    tree->parameter(QStringLiteral("Lock"))->setValue(1);
    QTRY_VERIFY(!switched->getParameterData()->available);
    QVERIFY(switchedSpy.count() > 0);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    QVERIFY(!shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Switched"))));
    QVERIFY(!shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Boost"))));

    // When unavailable features are to be shown
    tree->proxy.setShowUnavailableParameters(true);
    expandAll(tree->proxy);

    // Then the unavailable one and those above the level are shown and counted visible
    const QStringList all = kBeginner + kExpert + kGuru + kInvisible;
    QCOMPARE(shownFeatures(tree->proxy), sorted(all));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), all.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), 0);
    QCOMPARE(tree->proxy.getShowUnavailableParameters(), true);

    // and switching it off again hides them
    tree->proxy.setShowUnavailableParameters(false);
    expandAll(tree->proxy);
    QStringList available = kBeginner;
    available.removeOne(fullName(QStringLiteral("Switched")));
    QCOMPARE(shownFeatures(tree->proxy), sorted(available));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), available.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), kExpert.size() + kGuru.size());
}

void tst_FeatureTreeProxyModel::shouldNeverCountInvisibleFeatureAsInvisibleMatch_data()
{
    QTest::addColumn<GenApi::EVisibility>("level");
    QTest::newRow("Beginner") << GenApi::Beginner;
    QTest::newRow("Expert") << GenApi::Expert;
    QTest::newRow("Guru") << GenApi::Guru;
}

void tst_FeatureTreeProxyModel::shouldNeverCountInvisibleFeatureAsInvisibleMatch()
{
    QFETCH(GenApi::EVisibility, level);

    // Given a filter list that holds only the Invisible feature
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setParameterFilterList(parameterNames(kInvisible));

    // When a pass runs at a level below Invisible
    tree->proxy.setVisibility(level);
    expandAll(tree->proxy);

    // Then it is hidden but counted nowhere
    QCOMPARE(shownFeatures(tree->proxy), QStringList());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), 0);
    QCOMPARE(tree->proxy.getVisibleMatchCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldHideFeatureThatBecameUnavailableAtNextFiltering()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Guru);
    expandAll(tree->proxy);
    QVERIFY(shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Switched"))));

    const auto switched = tree->parameter(QStringLiteral("Switched"));
    tree->parameter(QStringLiteral("Lock"))->setValue(1);
    QTRY_VERIFY(!switched->getParameterData()->available);
    tree->proxy.setVisibility(GenApi::Guru);
    expandAll(tree->proxy);

    QVERIFY(!shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Switched"))));
    // An unavailable feature is neither a match nor a miss of the level.
    QCOMPARE(tree->proxy.getVisibleMatchCount(),
             kBeginner.size() + kExpert.size() + kGuru.size() - 1);
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), 0);

    // The Invisible level shows what is not visible, the unavailable one included.
    tree->proxy.setVisibility(GenApi::Invisible);
    expandAll(tree->proxy);
    QVERIFY(shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Switched"))));

    // Unlocking brings it back.
    tree->parameter(QStringLiteral("Lock"))->setValue(0);
    QTRY_VERIFY(switched->getParameterData()->available);
    tree->proxy.setVisibility(GenApi::Guru);
    expandAll(tree->proxy);
    QVERIFY(shownFeatures(tree->proxy).contains(fullName(QStringLiteral("Switched"))));
}

void tst_FeatureTreeProxyModel::shouldCountFeatureOfTwoCategoriesOnce_data()
{
    QTest::addColumn<GenApi::EVisibility>("level");
    QTest::addColumn<int>("visibleMatches");
    QTest::addColumn<int>("invisibleMatches");
    QTest::addColumn<int>("rows");

    // Shared (Beginner) is listed by First and by Second; OnlyA is Expert, OnlyB Guru.
    QTest::newRow("Beginner") << GenApi::Beginner << 1 << 2 << 2;
    QTest::newRow("Expert") << GenApi::Expert << 2 << 1 << 3;
    QTest::newRow("Guru") << GenApi::Guru << 3 << 0 << 4;
}

void tst_FeatureTreeProxyModel::shouldCountFeatureOfTwoCategoriesOnce()
{
    QFETCH(GenApi::EVisibility, level);
    QFETCH(int, visibleMatches);
    QFETCH(int, invisibleMatches);
    QFETCH(int, rows);

    // Given a feature that two categories list
    auto tree = openTree(QStringLiteral("twocategories.xml"));
    addCameraDevice(*tree);

    // When a pass runs
    tree->proxy.setVisibility(level);
    expandAll(tree->proxy);

    // Then it is shown under both but counted as one feature
    QStringList shownRows;
    collectRows(tree->proxy, QModelIndex(), false, shownRows);
    QCOMPARE(shownRows.size(), rows);
    QCOMPARE(shownRows.count(fullName(QStringLiteral("Shared"))), 2);
    QCOMPARE(tree->proxy.getVisibleMatchCount(), visibleMatches);
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), invisibleMatches);
}

void tst_FeatureTreeProxyModel::shouldCountEveryShownFeatureOnceInEveryPass()
{
    // Given the built-in camera's hundreds of features under a Guru proxy
    auto tree = openTree(QString());
    addCameraDevice(*tree);
    QStringList guru = shownFeatures(tree->proxy);
    guru.removeDuplicates();
    QVERIFY(guru.size() > 200);
    QCOMPARE(tree->proxy.getVisibleMatchCount(), guru.size());

    // When the level goes down, then up again, each time in a whole new pass
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    QStringList beginner = shownFeatures(tree->proxy);
    beginner.removeDuplicates();
    QVERIFY(!beginner.isEmpty());
    QVERIFY(beginner.size() < guru.size());
    QCOMPARE(tree->proxy.getVisibleMatchCount(), beginner.size());
    tree->proxy.setVisibility(GenApi::Guru);
    expandAll(tree->proxy);

    // Then each pass counts its own shown features, each once, and nothing of the last one
    QCOMPARE(tree->proxy.getVisibleMatchCount(), guru.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldShowCategoryExactlyWhenFeatureBelowIsShown_data()
{
    QTest::addColumn<GenApi::EVisibility>("level");
    QTest::addColumn<QStringList>("filter");
    QTest::addColumn<QStringList>("categories");

    const QStringList none;
    QTest::newRow("Beginner") << GenApi::Beginner << none << fullNames({QStringLiteral("Basics")});
    QTest::newRow("Expert") << GenApi::Expert << none
                            << fullNames({QStringLiteral("Basics"), QStringLiteral("Advanced")});
    QTest::newRow("Guru") << GenApi::Guru << none
                          << fullNames({QStringLiteral("Basics"), QStringLiteral("Advanced"),
                                        QStringLiteral("Hidden")});
    QTest::newRow("Invisible") << GenApi::Invisible << none
                               << fullNames({QStringLiteral("Basics"), QStringLiteral("Advanced"),
                                             QStringLiteral("Hidden")});
    QTest::newRow("Guru, list of an Advanced feature")
        << GenApi::Guru << fullNames({QStringLiteral("Boost")})
        << fullNames({QStringLiteral("Advanced")});
    QTest::newRow("Beginner, list of Guru features only")
        << GenApi::Beginner << fullNames({QStringLiteral("Boost"), QStringLiteral("Secret")})
        << none;
    QTest::newRow("Invisible, list of the Invisible feature")
        << GenApi::Invisible << kInvisible << fullNames({QStringLiteral("Hidden")});
}

void tst_FeatureTreeProxyModel::shouldShowCategoryExactlyWhenFeatureBelowIsShown()
{
    QFETCH(GenApi::EVisibility, level);
    QFETCH(QStringList, filter);
    QFETCH(QStringList, categories);

    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setParameterFilterList(parameterNames(filter));
    tree->proxy.setVisibility(level);
    expandAll(tree->proxy);

    QCOMPARE(shownCategories(tree->proxy), sorted(categories));
    // Every shown category holds a shown feature.
    for (const QString& category : categories) {
        const QModelIndex index = findRow(tree->proxy, category);
        QVERIFY2(tree->proxy.rowCount(index) > 0, qPrintable(category));
    }
}

void tst_FeatureTreeProxyModel::shouldShowNodemapRowOnlyWithShownDescendant()
{
    // Given three node maps of the built-in camera
    auto tree = openTree(QString());
    const QStringList prefixes = {QStringLiteral("@CameraDevice"),
                                  QStringLiteral("@DeviceTransportLayer"),
                                  QStringLiteral("@StreamGrabber0")};
    for (const QString& prefix : prefixes) {
        tree->proxy.addParameterCollection(tree->camera->collection, prefix.mid(1), prefix, false);
    }
    expandAll(tree->model);
    testModel(&tree->proxy);
    tree->proxy.setVisibility(GenApi::Guru);
    expandAll(tree->proxy);
    QCOMPARE(tree->proxy.rowCount(), prefixes.size());
    // A shown feature of the stream grabber, whichever comes first.
    QStringList grabberFeatures;
    collectRows(tree->proxy, tree->proxy.index(2, 0), false, grabberFeatures);
    QVERIFY(!grabberFeatures.isEmpty());
    const QString grabberFeature = grabberFeatures.first();

    // When only that feature is listed
    tree->proxy.setParameterFilterList(parameterNames({grabberFeature}));
    expandAll(tree->proxy);

    // Then only its node map row remains
    QCOMPARE(topLevelRows(tree->proxy), QStringList{QStringLiteral("@StreamGrabber0*Root")});
    QCOMPARE(shownFeatures(tree->proxy), QStringList{grabberFeature});
    QCOMPARE(tree->proxy.getVisibleMatchCount(), 1);

    // and a list naming no feature at all leaves no node map row
    tree->proxy.setParameterFilterList(
        parameterNames({QStringLiteral("@CameraDevice/NoSuchThing")}));
    expandAll(tree->proxy);
    QCOMPARE(tree->proxy.rowCount(), 0);
    QCOMPARE(tree->proxy.getVisibleMatchCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldShowOnlyFeaturesWhoseFullNameIsInFilterList_data()
{
    QTest::addColumn<QStringList>("filter");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("exact names") << fullNames({QStringLiteral("Gain"), QStringLiteral("Threshold")})
                                 << fullNames(
                                        {QStringLiteral("Gain"), QStringLiteral("Threshold")});
    QTest::newRow("other case") << QStringList{QStringLiteral("@CameraDevice/gain"),
                                               QStringLiteral("@cameradevice/Threshold")}
                                << QStringList();
    QTest::newRow("feature name alone") << QStringList{QStringLiteral("Gain")} << QStringList();
    QTest::newRow("without @") << QStringList{QStringLiteral("CameraDevice/Gain")} << QStringList();
    QTest::newRow("trailing blank")
        << QStringList{QStringLiteral("@CameraDevice/Gain ")} << QStringList();
    QTest::newRow("prefix of a name")
        << QStringList{QStringLiteral("@CameraDevice/Gai")} << QStringList();
    QTest::newRow("display name") << QStringList{QStringLiteral("@CameraDevice/Black Level")}
                                  << QStringList();
    QTest::newRow("category name") << fullNames({QStringLiteral("Advanced")}) << QStringList();
    QTest::newRow("mixed") << QStringList{fullName(QStringLiteral("Offset")),
                                          QStringLiteral("@CameraDevice/LOCK"),
                                          fullName(QStringLiteral("Secret"))}
                           << fullNames({QStringLiteral("Offset"), QStringLiteral("Secret")});
}

void tst_FeatureTreeProxyModel::shouldShowOnlyFeaturesWhoseFullNameIsInFilterList()
{
    QFETCH(QStringList, filter);
    QFETCH(QStringList, shown);

    auto tree = openTree();
    addCameraDevice(*tree);

    tree->proxy.setParameterFilterList(parameterNames(filter));
    expandAll(tree->proxy);

    QCOMPARE(tree->proxy.getParameterFilterList(), parameterNames(filter));
    QList<ParameterName> stored;
    tree->proxy.getParameterFilterList(stored);
    QCOMPARE(stored, parameterNames(filter));
    QCOMPARE(shownFeatures(tree->proxy), sorted(shown));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), shown.size());
}

void tst_FeatureTreeProxyModel::shouldCountOnlyListedFeaturesWhenFilterListIsSet()
{
    // Given a Beginner view listing one feature of each level
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    tree->proxy.setParameterFilterList(
        parameterNames(fullNames({QStringLiteral("Gain"), QStringLiteral("Exposure"),
                                  QStringLiteral("Boost"), QStringLiteral("Debug")})));
    expandAll(tree->proxy);

    // Then the counts cover the listed features only
    QCOMPARE(shownFeatures(tree->proxy), fullNames({QStringLiteral("Gain")}));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), 1);
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), 2);
}

void tst_FeatureTreeProxyModel::shouldShowEverythingAgainWhenFilterListIsCleared()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setParameterFilterList(parameterNames(fullNames({QStringLiteral("Gain")})));
    expandAll(tree->proxy);
    QCOMPARE(shownFeatures(tree->proxy), fullNames({QStringLiteral("Gain")}));

    tree->proxy.setParameterFilterList({});
    expandAll(tree->proxy);

    QCOMPARE(shownFeatures(tree->proxy), sorted(kBeginner + kExpert + kGuru));
    QCOMPARE(tree->proxy.getVisibleMatchCount(), kBeginner.size() + kExpert.size() + kGuru.size());
}

void tst_FeatureTreeProxyModel::shouldAcceptEveryRowUntestedWhileCollectionIsAdded()
{
    // Given a Beginner proxy whose tester reads every row it is told about, as a view would
    auto tree = openTree();
    testModel(&tree->proxy);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    tree->proxy.resetCounters();
    QStringList insertedWhileAdding;
    connect(&tree->proxy, &QAbstractItemModel::rowsInserted, this,
            [&](const QModelIndex& parent, int first, int last) {
                for (int row = first; row <= last; ++row) {
                    insertedWhileAdding.append(tree->proxy.index(row, 0, parent)
                                                   .data(FeatureTreeItem::FullNameRole)
                                                   .toString());
                }
            });

    // When a node map is added
    tree->proxy.addParameterCollection(tree->camera->collection, QStringLiteral("Camera"), kPrefix,
                                       false);

    // Then the rows were asked about and none was refused; the node map arrived whole, by a
    // layout change, not row by row
    QVERIFY(tree->proxy.calls > 0);
    QCOMPARE(tree->proxy.rejected, 0);
    QVERIFY2(insertedWhileAdding.isEmpty(), qPrintable(insertedWhileAdding.join(QLatin1Char(','))));
    QCOMPARE(tree->proxy.rowCount(), 1);
}

void tst_FeatureTreeProxyModel::shouldJudgePassedThroughRowsAtNextFiltering()
{
    // Given a node map added under a Beginner proxy that was read while rows arrived
    auto tree = openTree();
    testModel(&tree->proxy);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    tree->proxy.addParameterCollection(tree->camera->collection, QStringLiteral("Camera"), kPrefix,
                                       false);
    expandAll(tree->model);
    // Categories holding nothing at Beginner came in untested.
    QCOMPARE(shownCategories(tree->proxy),
             fullNames(
                 {QStringLiteral("Advanced"), QStringLiteral("Basics"), QStringLiteral("Hidden")}));
    tree->proxy.resetCounters();

    // When the filter runs again
    tree->proxy.setShowUnavailableParameters(false);
    expandAll(tree->proxy);

    // Then they are judged and go
    QVERIFY(tree->proxy.rejected > 0);
    QCOMPARE(shownCategories(tree->proxy), fullNames({QStringLiteral("Basics")}));
    QCOMPARE(topLevelRows(tree->proxy), QStringList{QStringLiteral("@CameraDevice*Root")});
}

void tst_FeatureTreeProxyModel::shouldMarkSearchMatchesInSource_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("searched");

    QTest::newRow("technical name")
        << QStringLiteral("Gain") << fullNames({QStringLiteral("Gain")});
    QTest::newRow("other case") << QStringLiteral("gAIN") << fullNames({QStringLiteral("Gain")});
    QTest::newRow("substring") << QStringLiteral("oc") << fullNames({QStringLiteral("Lock")});
    QTest::newRow("display name") << QStringLiteral("black lev")
                                  << fullNames({QStringLiteral("Offset")});
    QTest::newRow("features and categories")
        << QStringLiteral("S")
        << fullNames({QStringLiteral("Basics"), QStringLiteral("Offset"),
                      QStringLiteral("Switched"), QStringLiteral("Exposure"),
                      QStringLiteral("Threshold"), QStringLiteral("Boost"),
                      QStringLiteral("Secret")});
    QTest::newRow("hidden rows too")
        << QStringLiteral("debug") << fullNames({QStringLiteral("Debug")});
    QTest::newRow("parenthesis is no pattern") << QStringLiteral("Gain(") << QStringList();
    QTest::newRow("dot is no pattern") << QStringLiteral("G..n") << QStringList();
    QTest::newRow("empty") << QString() << QStringList();
}

void tst_FeatureTreeProxyModel::shouldMarkSearchMatchesInSource()
{
    QFETCH(QString, text);
    QFETCH(QStringList, searched);

    // Given a Beginner view
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);

    // When a search text is set on the proxy
    tree->proxy.setSearchRegExp(text);

    // Then the source holds the text and exactly the matching items carry the mark
    QCOMPARE(tree->model.searchText(), text);
    QStringList names;
    collectRows(tree->model, QModelIndex(), false, names);
    collectRows(tree->model, QModelIndex(), true, names);
    QStringList marked;
    for (const QString& name : qAsConst(names)) {
        if (findRow(tree->model, name).data(FeatureTreeItem::SearchedRole).toBool()) {
            marked.append(name);
        }
    }
    QCOMPARE(sorted(marked), sorted(searched));
    // The proxy shows the marks of the rows it shows.
    const QModelIndex gain = findRow(tree->proxy, fullName(QStringLiteral("Gain")));
    if (gain.isValid()) {
        QCOMPARE(gain.data(FeatureTreeItem::SearchedRole).toBool(),
                 searched.contains(fullName(QStringLiteral("Gain"))));
    }
}

void tst_FeatureTreeProxyModel::shouldNotHideRowsWhileSearching_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one match") << QStringLiteral("Gain");
    QTest::newRow("several matches") << QStringLiteral("s");
    QTest::newRow("no match") << QStringLiteral("Gain(");
}

void tst_FeatureTreeProxyModel::shouldNotHideRowsWhileSearching()
{
    QFETCH(QString, text);

    // Given an Expert view
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Expert);
    expandAll(tree->proxy);
    const QStringList features = shownFeatures(tree->proxy);
    const QStringList categories = shownCategories(tree->proxy);
    QSignalSpy layoutSpy(&tree->proxy, &QAbstractItemModel::layoutChanged);

    // When a search text is set
    tree->proxy.setSearchRegExp(text);
    expandAll(tree->proxy);

    // Then the view is told to re-read the rows, and every row stays
    QVERIFY(!layoutSpy.isEmpty());
    QCOMPARE(shownFeatures(tree->proxy), features);
    QCOMPARE(shownCategories(tree->proxy), categories);
    QCOMPARE(tree->proxy.getVisibleMatchCount(), kBeginner.size() + kExpert.size());
    QCOMPARE(tree->proxy.getInvisibleMatchCount(), kGuru.size());
}

void tst_FeatureTreeProxyModel::shouldMarkMatchesOfNodemapAddedWhileSearching()
{
    // Given a search for "Ga" that marked Gain, then the node map added again
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setSearchRegExp(QStringLiteral("Ga"));
    QVERIFY(findRow(tree->model, fullName(QStringLiteral("Gain")))
                .data(FeatureTreeItem::SearchedRole)
                .toBool());
    tree->proxy.clear();
    tree->proxy.addParameterCollection(tree->camera->collection, QStringLiteral("Camera"), kPrefix,
                                       false);
    expandAll(tree->model);
    expandAll(tree->proxy);

    // When the search text grows
    tree->proxy.setSearchRegExp(QStringLiteral("Gai"));

    // Then the new Gain item is compared and marked like any other
    QVERIFY(findRow(tree->model, fullName(QStringLiteral("Gain")))
                .data(FeatureTreeItem::SearchedRole)
                .toBool());
    QVERIFY(!findRow(tree->model, fullName(QStringLiteral("Offset")))
                 .data(FeatureTreeItem::SearchedRole)
                 .toBool());
}

void tst_FeatureTreeProxyModel::shouldForwardVisibilityToSourceModel()
{
    auto tree = openTree();
    addCameraDevice(*tree);

    tree->proxy.setVisibility(GenApi::Expert);

    QCOMPARE(tree->proxy.getVisibility(), GenApi::Expert);
    QCOMPARE(tree->model.getVisibility(), GenApi::Expert);
}

void tst_FeatureTreeProxyModel::shouldMapFoundItemsToProxyIndexes()
{
    // Given a Beginner view with a list that moves rows in the proxy
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    tree->proxy.setParameterFilterList(
        parameterNames(fullNames({QStringLiteral("Lock"), QStringLiteral("Counter")})));
    expandAll(tree->proxy);
    const QString counterName = fullName(QStringLiteral("Counter"));
    const QModelIndex expected = findRow(tree->proxy, counterName);
    QVERIFY(expected.isValid());
    QCOMPARE(expected.row(), 1); // sixth in the source

    // When the items are looked up through the proxy
    const QModelIndex byName = tree->proxy.findItemByFullName(counterName, nullptr, 1);
    FeatureTreeItem* item =
        tree->model.getFeatureTreeItem(tree->model.findItemByFullName(counterName, nullptr, 0));
    QVERIFY(item);
    const QModelIndex byItem = tree->proxy.findItem(item, nullptr, 0);
    const QModelIndex byRole =
        tree->proxy.findItemByRole(FeatureTreeItem::FullNameRole, counterName, nullptr, 0);

    // Then they are proxy indexes of the shown rows, in the asked column
    QCOMPARE(byName.model(), &tree->proxy);
    QCOMPARE(byName, expected.sibling(expected.row(), 1));
    QCOMPARE(byItem, expected);
    QCOMPARE(byRole, expected);
}

void tst_FeatureTreeProxyModel::shouldNotFindHiddenItemsInProxy()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const QString boostName = fullName(QStringLiteral("Boost"));
    QVERIFY(tree->model.findItemByFullName(boostName, nullptr, 0).isValid());

    QVERIFY(!tree->proxy.findItemByFullName(boostName, nullptr, 0).isValid());
    QVERIFY(!tree->proxy.findItemByRole(FeatureTreeItem::FullNameRole, boostName, nullptr, 0)
                 .isValid());
    QVERIFY(!tree->proxy.findItemByFullName(QStringLiteral("@CameraDevice/None"), nullptr, 0)
                 .isValid());
}

void tst_FeatureTreeProxyModel::shouldMapIndexForItemToProxyIndex()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setParameterFilterList(parameterNames(fullNames({QStringLiteral("Threshold")})));
    expandAll(tree->proxy);
    const QModelIndex sourceIndex =
        tree->model.findItemByFullName(fullName(QStringLiteral("Threshold")), nullptr, 0);
    FeatureTreeItem* item = tree->model.getFeatureTreeItem(sourceIndex);
    QVERIFY(item);

    const QModelIndex proxyIndex = tree->proxy.indexForItem(item, 1);

    QCOMPARE(proxyIndex.model(), &tree->proxy);
    QCOMPARE(proxyIndex.column(), 1);
    QCOMPARE(tree->proxy.mapToSource(proxyIndex), tree->model.indexForItem(item, 1));
    QCOMPARE(proxyIndex.row(), 0);
    QVERIFY(!tree->proxy.indexForItem(nullptr, 0).isValid());
}

void tst_FeatureTreeProxyModel::shouldReturnItemForProxyAndSourceIndexes()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const QModelIndex proxyIndex = findRow(tree->proxy, fullName(QStringLiteral("Offset")));
    QVERIFY(proxyIndex.isValid());

    FeatureTreeItem* fromProxy = tree->proxy.getFeatureTreeItem(proxyIndex);
    FeatureTreeItem* fromSource =
        tree->proxy.getFeatureTreeItem(tree->proxy.mapToSource(proxyIndex));

    QVERIFY(fromProxy);
    QCOMPARE(fromProxy->getFullName(), fullName(QStringLiteral("Offset")));
    QCOMPARE(fromSource, fromProxy);
    QVERIFY(dynamic_cast<FeatureTreeINodeItem*>(fromProxy));
}

void tst_FeatureTreeProxyModel::shouldReturnSourceAsFeatureTreeModel()
{
    auto tree = openTree();
    testModel(&tree->proxy);
    QCOMPARE(tree->proxy.getFeatureTreeModel(), &tree->model);
}

void tst_FeatureTreeProxyModel::shouldReturnNoFeatureTreeModelForOtherSource()
{
    QStandardItemModel other;
    other.appendRow(new QStandardItem(QStringLiteral("row")));
    testModel(&other);
    FeatureTreeProxyModel proxy;
    proxy.setSourceModel(&other);
    testModel(&proxy);

    QCOMPARE(proxy.getFeatureTreeModel(), nullptr);
    // Nothing to forward to: adding a node map changes nothing.
    auto camera =
        openSimulatedCamera(nodescopeTestDataPath(QStringLiteral("visibilitylevels.xml")));
    proxy.addParameterCollection(camera->collection, QStringLiteral("Camera"), kPrefix, false);
    QCOMPARE(other.rowCount(), 1);
    QCOMPARE(proxy.getParameterCollectionName(camera->collection), QString());
}

void tst_FeatureTreeProxyModel::shouldForwardOtherOperationsToSource()
{
    auto tree = openTree();
    testModel(&tree->proxy);
    FeatureTreeHighlighter highlighter;

    tree->proxy.setHighlighter(&highlighter);
    tree->proxy.setMonitorMode(true);
    tree->proxy.setGenICamCallbacksEnable(false);
    tree->proxy.setDeviceAlive(false);
    tree->proxy.addParameterCollection(tree->camera->collection, QStringLiteral("Camera"), kPrefix,
                                       true);

    QCOMPARE(tree->model.highlighter(), &highlighter);
    QCOMPARE(tree->model.getMonitorMode(), true);
    QCOMPARE(tree->model.getGenICamCallbackEnable(), false);
    QCOMPARE(tree->proxy.getGenICamCallbackEnable(), false);
    QCOMPARE(tree->model.getDeviceAlive(), false);
    QCOMPARE(tree->proxy.isUtf8Encoded(), true);
    QCOMPARE(tree->model.nodemapList().size(), 1);
    QCOMPARE(tree->proxy.getParameterCollectionName(tree->camera->collection), QString());

    tree->proxy.enablePolling(true);
    QCOMPARE(tree->model.getPolling(), true);
    QCOMPARE(tree->proxy.getPolling(), true);
    tree->proxy.enablePolling(false);
    QCOMPARE(tree->model.getPolling(), false);

    tree->proxy.clear();
    QCOMPARE(tree->model.rowCount(), 0);
    QCOMPARE(tree->proxy.rowCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldForwardNothingOnceSourceIsDestroyed()
{
    // Given a proxy whose source polls
    auto model = std::make_unique<FeatureTreeModel>();
    testModel(model.get());
    FeatureTreeProxyModel proxy;
    proxy.setSourceModel(model.get());
    testModel(&proxy);
    proxy.enablePolling(true);
    QVERIFY(proxy.getPolling());

    // When the source goes first, as when the view's children are deleted in order
    model.reset();

    // Then the proxy no longer reaches it
    QCOMPARE(proxy.getFeatureTreeModel(), nullptr);
    QCOMPARE(proxy.getPolling(), false);
    QCOMPARE(proxy.getFeatureTreeItem(QModelIndex()), nullptr);
    proxy.setVisibility(GenApi::Expert);
    QCOMPARE(proxy.getVisibility(), GenApi::Expert);
    QCOMPARE(proxy.rowCount(), 0);
}

void tst_FeatureTreeProxyModel::shouldForwardHighlightListToSourceItems()
{
    auto tree = openTree();
    addCameraDevice(*tree);
    const QStringList names = fullNames({QStringLiteral("Offset"), QStringLiteral("Boost")});

    tree->proxy.setParameterHighlightList(parameterNames(names));

    for (const QString& name : shownFeatures(tree->proxy)) {
        QCOMPARE(findRow(tree->proxy, name).data(FeatureTreeItem::HighlightedRole).toBool(),
                 names.contains(name));
    }
    // Highlighting marks; it hides nothing.
    QCOMPARE(shownFeatures(tree->proxy), sorted(kBeginner + kExpert + kGuru));
}

void tst_FeatureTreeProxyModel::shouldForwardRefreshToSource()
{
    // Given a shown feature whose register the device changed behind the cache
    auto tree = openTree();
    addCameraDevice(*tree);
    const QModelIndex counter = findRow(tree->proxy, fullName(QStringLiteral("Counter")));
    QVERIFY(counter.isValid());
    const QPersistentModelIndex counterValue = counter.sibling(counter.row(), 1);
    auto device =
        qSharedPointerDynamicCast<Backend::DeviceParameterCollection>(tree->camera->collection);
    QVERIFY(device);
    device->runOnDeviceThread([](Backend::DeviceWorker& worker) {
        worker.simulatedDevice(0)->pokeInt(kCounterAddress, 7, 4);
    });
    QCOMPARE(counterValue.data().toString(), QStringLiteral("0"));

    // When the proxy is asked to refresh it
    tree->proxy.refresh(parameterNames(fullNames({QStringLiteral("Counter")})));

    // Then the new value arrives without polling
    QVERIFY(!tree->model.getPolling());
    QTRY_COMPARE(counterValue.data().toString(), QStringLiteral("7"));
}

void tst_FeatureTreeProxyModel::shouldSignalValueChangeOnProxyRow()
{
    // Given a shown feature
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const QModelIndex gain = findRow(tree->proxy, fullName(QStringLiteral("Gain")));
    QVERIFY(gain.isValid());
    const QPersistentModelIndex gainValue = gain.sibling(gain.row(), 1);
    QSignalSpy dataSpy(&tree->proxy, &QAbstractItemModel::dataChanged);
    const auto parameter = tree->parameter(QStringLiteral("Gain"));
    QSignalSpy parameterSpy(parameter.data(), &IParameter::parameterDataChanged);

    // When its value is written
    parameter->setValue(7);
    if (parameterSpy.isEmpty()) {
        QVERIFY(parameterSpy.wait());
    }

    // Then the proxy reports the change on that row with the new text
    bool seen = false;
    for (const QList<QVariant>& arguments : qAsConst(dataSpy)) {
        const auto topLeft = arguments.at(0).value<QModelIndex>();
        const auto bottomRight = arguments.at(1).value<QModelIndex>();
        seen =
            seen || (topLeft.parent() == gainValue.parent() && topLeft.row() <= gainValue.row() &&
                     bottomRight.row() >= gainValue.row() && bottomRight.column() >= 1);
    }
    QVERIFY(seen);
    QCOMPARE(gainValue.data().toString(), QStringLiteral("7"));
    QCOMPARE(gainValue.data(Qt::EditRole).toLongLong(), 7);
}

void tst_FeatureTreeProxyModel::shouldSignalPolledValueOnProxyRow()
{
    // Given a shown feature that the device changes by itself
    auto tree = openTree();
    addCameraDevice(*tree);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const QModelIndex counter = findRow(tree->proxy, fullName(QStringLiteral("Counter")));
    QVERIFY(counter.isValid());
    const QPersistentModelIndex counterValue = counter.sibling(counter.row(), 1);
    QCOMPARE(counterValue.data().toString(), QStringLiteral("0"));
    auto device =
        qSharedPointerDynamicCast<Backend::DeviceParameterCollection>(tree->camera->collection);
    QVERIFY(device);
    device->runOnDeviceThread([](Backend::DeviceWorker& worker) {
        worker.simulatedDevice(0)->pokeInt(kCounterAddress, 42, 4);
    });
    QSignalSpy dataSpy(&tree->proxy, &QAbstractItemModel::dataChanged);

    // When polling runs
    tree->model.enablePolling(true);
    QVERIFY(tree->proxy.getPolling());

    // Then the new value arrives on the proxy row
    QTRY_COMPARE(counterValue.data().toString(), QStringLiteral("42"));
    QVERIFY(!dataSpy.isEmpty());

    // and a filter change while polling keeps the row
    tree->proxy.setVisibility(GenApi::Expert);
    expandAll(tree->proxy);
    device->runOnDeviceThread([](Backend::DeviceWorker& worker) {
        worker.simulatedDevice(0)->pokeInt(kCounterAddress, 43, 4);
    });
    const QModelIndex again = findRow(tree->proxy, fullName(QStringLiteral("Counter")));
    QVERIFY(again.isValid());
    const QPersistentModelIndex againValue = again.sibling(again.row(), 1);
    QTRY_COMPARE(againValue.data().toString(), QStringLiteral("43"));
    tree->model.enablePolling(false);
}

void tst_FeatureTreeProxyModel::shouldFilterEveryBuiltInNodemapAtBeginner()
{
    // Given the built-in camera under a Beginner proxy
    auto tree = openTree(QString());
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);
    const QStringList nodeMaps = tree->camera->collection->getNodeMapNames();
    QVERIFY(nodeMaps.size() >= 5);
    QSignalSpy layoutSpy(&tree->model, &QAbstractItemModel::layoutChanged);

    // When each node map is added, under the model's tester, and the proxy filtered
    for (const QString& nodeMap : nodeMaps) {
        tree->proxy.addParameterCollection(tree->camera->collection, nodeMap,
                                           QLatin1Char('@') + nodeMap, false);
        expandAll(tree->model);
    }
    testModel(&tree->proxy);
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);

    // Then every shown feature is a Beginner one and the count matches the rows
    QCOMPARE(layoutSpy.count(), nodeMaps.size());
    QStringList shown = shownFeatures(tree->proxy);
    shown.removeDuplicates();
    QVERIFY(!shown.isEmpty());
    for (const QString& name : shown) {
        const QModelIndex index = findRow(tree->proxy, name);
        QVERIFY2(index.data(FeatureTreeItem::VisibilityRole).toInt() <= GenApi::Beginner,
                 qPrintable(name));
    }
    QCOMPARE(tree->proxy.getVisibleMatchCount(), shown.size());
    QVERIFY(tree->proxy.getInvisibleMatchCount() > 0);
    QVERIFY(tree->proxy.rowCount() > 0);
    for (int row = 0; row < tree->proxy.rowCount(); ++row) {
        QVERIFY(tree->proxy.rowCount(tree->proxy.index(row, 0)) > 0);
    }
}

void tst_FeatureTreeProxyModel::shouldRefilterFeaturesOfCategoriesReadWhileTheyLoaded_data()
{
    QTest::addColumn<bool>("readOnLayoutChange");
    QTest::newRow("read on layout change") << true;
    QTest::newRow("read on insertion") << false;
}

void tst_FeatureTreeProxyModel::shouldRefilterFeaturesOfCategoriesReadWhileTheyLoaded()
{
    QFETCH(bool, readOnLayoutChange);

    // Given a reader that walks the proxy as soon as it announces a change, while the model
    // still loads categories on their first row count
    auto tree = openTree();
    if (readOnLayoutChange) {
        connect(&tree->proxy, &QAbstractItemModel::layoutChanged, this,
                [&] { expandAll(tree->proxy); });
    } else {
        connect(&tree->proxy, &QAbstractItemModel::rowsInserted, this,
                [&](const QModelIndex& parent, int first, int last) {
                    for (int row = first; row <= last; ++row) {
                        expandAll(tree->proxy, tree->proxy.index(row, 0, parent));
                    }
                });
    }
    tree->proxy.addParameterCollection(tree->camera->collection, QStringLiteral("Camera"), kPrefix,
                                       false);
    expandAll(tree->model);
    testModel(&tree->proxy);
    expandAll(tree->proxy);

    // When the level drops to Beginner
    tree->proxy.setVisibility(GenApi::Beginner);
    expandAll(tree->proxy);

    // Then the Expert feature of Basics goes as well
    QCOMPARE(shownFeatures(tree->proxy), sorted(kBeginner));
    QCOMPARE(shownCategories(tree->proxy), fullNames({QStringLiteral("Basics")}));
}

QTEST_MAIN(tst_FeatureTreeProxyModel)
#include "tst_featuretreeproxymodel.moc"
