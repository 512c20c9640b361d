#include "testsupport.h"

#include "internal/legacy/featuretreedelegate.h"
#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/featuretreeview.h"
#include "internal/view/treeviewheaderview.h"

#include "nodescoperesources.h"

#include <deviceparametercollection.h>

#include <QContextMenuEvent>
#include <QImage>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using namespace ParameterCollection;

namespace {

const QString kPrefix = QStringLiteral("@CameraDevice");

QString fullName(const QString& feature)
{
    return kPrefix + QLatin1Char('/') + feature;
}

// A view over a collection, loaded the way the feature tree widget loads it: the node map
// through the proxy, then one filter pass at the guru level.
std::unique_ptr<FeatureTreeView> viewOf(const QSharedPointer<IParameterCollection>& collection,
                                        QHeaderView* header = nullptr)
{
    auto view = std::make_unique<FeatureTreeView>();
    if (header) {
        // Before the view shows: a header set later stays hidden.
        view->setHeader(header);
    }
    view->proxyModel()->addParameterCollection(collection, QStringLiteral("Camera"), kPrefix,
                                               false);
    view->proxyModel()->setVisibility(GenApi::Guru);
    testModel(view->proxyModel());
    view->resize(600, 800);
    view->show();
    return view;
}

QModelIndex rowOf(const FeatureTreeView& view, const QString& feature, int column = 0)
{
    const QString name = feature == QLatin1String("*Root") ? kPrefix + feature : fullName(feature);
    return view.proxyModel()->findItemByFullName(name, nullptr, column);
}

// Shown to the user: neither the row nor any row above it hidden.
bool isShown(const FeatureTreeView& view, QModelIndex index)
{
    for (; index.isValid(); index = index.parent()) {
        if (view.isRowHidden(index.row(), index.parent())) {
            return false;
        }
    }
    return true;
}

bool hasEditor(const FeatureTreeView& view, const QString& feature)
{
    return view.indexWidget(rowOf(view, feature, 1)) != nullptr;
}

// Every row of the model, in tree order, column 0.
QModelIndexList allRows(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex())
{
    QModelIndexList rows;
    const int count = model.rowCount(parent);
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        rows << index << allRows(model, index);
    }
    return rows;
}

// Root → Flat → `count` booleans, each of which keeps an editor open in its row.
QSharedPointer<IParameterCollection> manyBooleans(int count)
{
    QByteArray xml =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<RegisterDescription ModelName=\"ManyBooleans\" VendorName=\"Nodescope\" ToolTip=\"t\"\n"
        "    StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\"\n"
        "    SchemaSubMinorVersion=\"0\" MajorVersion=\"1\" MinorVersion=\"0\"\n"
        "    SubMinorVersion=\"0\" ProductGuid=\"2e9c4a71-5d08-4b3f-9a26-8c1e7f0d3b54\"\n"
        "    VersionGuid=\"7f3a0c58-1e64-4d92-b7a3-5c2d8e9f1a06\"\n"
        "    xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
        "  <Category Name=\"Root\"><pFeature>Flat</pFeature></Category>\n"
        "  <Category Name=\"Flat\">\n";
    for (int i = 0; i < count; ++i) {
        xml += "    <pFeature>B" + QByteArray::number(i) + "</pFeature>\n";
    }
    xml += "  </Category>\n";
    for (int i = 0; i < count; ++i) {
        xml += "  <Boolean Name=\"B" + QByteArray::number(i) +
               "\"><Value>0</Value><OnValue>1</OnValue><OffValue>0</OffValue></Boolean>\n";
    }
    xml += "  <Port Name=\"Device\"/>\n</RegisterDescription>\n";
    auto collection =
        QSharedPointer<Backend::DeviceParameterCollection>::create(QStringLiteral("manybooleans"));
    collection->attachSimulated(QStringLiteral("CameraDevice"), xml, QString());
    return collection;
}

// The rows from the top of the viewport to its bottom.
QModelIndexList rowsInView(const FeatureTreeView& view)
{
    QModelIndexList rows;
    const QModelIndex last = view.indexAt(QPoint(0, view.viewport()->height() - 1));
    for (QModelIndex index = view.indexAt(QPoint(0, 0)); index.isValid();
         index = view.indexBelow(index)) {
        rows << index;
        if (index == last.sibling(last.row(), 0)) {
            break;
        }
    }
    return rows;
}

int openEditors(const FeatureTreeView& view)
{
    int count = 0;
    for (const QModelIndex& index : allRows(*view.model())) {
        count += view.indexWidget(index.sibling(index.row(), 1)) ? 1 : 0;
    }
    return count;
}

bool editorsInView(const FeatureTreeView& view)
{
    int features = 0;
    for (const QModelIndex& index : rowsInView(view)) {
        if (index.data(FeatureTreeItem::IsCategoryRole).toBool() ||
            index.data(FeatureTreeItem::LevelRole).toInt() < 2) {
            continue;
        }
        ++features;
        if (!view.indexWidget(index.sibling(index.row(), 1))) {
            return false;
        }
    }
    return features > 0;
}

// Expands row by row, as a user would, so the view hears of every expansion.
void expandEveryRow(FeatureTreeView& view, const QModelIndex& parent = QModelIndex())
{
    const QAbstractItemModel& model = *view.model();
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (model.hasChildren(index)) {
            view.expand(index);
            expandEveryRow(view, index);
        }
    }
}

// The feature rows the user can see, by feature name, sorted.
QStringList shownFeatures(const FeatureTreeView& view)
{
    QStringList names;
    for (const QModelIndex& index : allRows(*view.model())) {
        if (index.data(FeatureTreeItem::LevelRole).toInt() > 1 &&
            !index.data(FeatureTreeItem::IsCategoryRole).toBool() && isShown(view, index)) {
            names << index.data(FeatureTreeItem::FullNameRole).toString().mid(kPrefix.size() + 1);
        }
    }
    names.sort();
    return names;
}

bool isInk(QRgb pixel)
{
    // The tests paint text in pure red on white: ink is anything clearly redder than grey.
    return qRed(pixel) - qGreen(pixel) > 60 && qRed(pixel) - qBlue(pixel) > 60;
}

// The box around the red pixels within `area` of the image; null when there are none.
QRect inkBox(const QImage& image, const QRect& area)
{
    QRect box;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (isInk(image.pixel(x, y))) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

void useRedText(QWidget& widget)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Text, Qt::red);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, Qt::white);
    widget.setPalette(palette);
}

} // namespace

class tst_FeatureTreeView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Plugin::Nodescope::initNodescopeResources(); }

    void shouldKeepEditorsOfALongListWhereTheUserLooks()
    {
        // Given a category of thousands of features that each keep an editor open
        const int features = 3000;
        const auto view = viewOf(manyBooleans(features));
        const QModelIndex category = view->model()->index(0, 0, view->model()->index(0, 0));
        QCOMPARE(view->model()->rowCount(category), features);

        // When the category is opened
        view->expand(category.parent());
        view->expand(category);

        // Then the rows in view have their editors, and far fewer than all rows have one
        QTRY_VERIFY(editorsInView(*view));
        const int opened = openEditors(*view);
        QVERIFY2(opened < features / 3, qPrintable(QString::number(opened)));

        // And rows scrolled into view get theirs, while the count stays bounded
        view->scrollToBottom();
        QTRY_VERIFY(editorsInView(*view));
        QVERIFY(view->indexWidget(view->model()->index(features - 1, 1, category)));
        QVERIFY2(openEditors(*view) < features / 3,
                 qPrintable(QString::number(openEditors(*view))));
        view->scrollTo(view->model()->index(features / 2, 0, category));
        QTRY_VERIFY(editorsInView(*view));
    }

    void shouldOwnItsModelPairHighlighterAndDelegate()
    {
        // Given a new view
        QPointer<QAbstractItemModel> source;
        QPointer<QAbstractItemModel> proxy;
        {
            FeatureTreeView view;
            // Then it shows a feature tree proxy over a feature tree model, both its children
            QCOMPARE(view.model(), static_cast<QAbstractItemModel*>(view.proxyModel()));
            auto* model = qobject_cast<FeatureTreeModel*>(view.proxyModel()->sourceModel());
            QVERIFY(model);
            QCOMPARE(static_cast<QObject*>(model)->parent(), static_cast<QObject*>(&view));
            QCOMPARE(view.proxyModel()->parent(), static_cast<QObject*>(&view));
            QCOMPARE(view.getFeatureExtension(), static_cast<IFeatureTreeModelExtension*>(model));
            // And the model marks names with the view's highlighter
            QVERIFY(view.getHighlighter());
            QCOMPARE(model->highlighter(), view.getHighlighter());
            // And a feature tree delegate edits the values
            QVERIFY(qobject_cast<FeatureTreeDelegate*>(view.itemDelegate()));
            QCOMPARE(view.getVisibility(), GenApi::Guru);
            source = model;
            proxy = view.proxyModel();
        }
        // And both models go with the view
        QVERIFY(source.isNull());
        QVERIFY(proxy.isNull());
    }

    void shouldUseSmallFontAndKeepBackgroundOfDisabledRows()
    {
        FeatureTreeView view;
        QCOMPARE(view.font().pointSize(), 8);
        QCOMPARE(view.palette().brush(QPalette::Disabled, QPalette::Base),
                 view.palette().brush(QPalette::Active, QPalette::Base));
    }

    void shouldLeaveNoCurrentIndexAndEmitOnceWhenCurrentRowBecomesHidden()
    {
        // Given the expert integer as the current row of a guru view
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->expand(rowOf(*view, QStringLiteral("*Root")));
        view->expand(rowOf(*view, QStringLiteral("Controls")));
        view->setCurrentIndex(rowOf(*view, QStringLiteral("IntHex")));
        QCOMPARE(view->currentIndex(), rowOf(*view, QStringLiteral("IntHex")));
        QSignalSpy changed(view.get(), &FeatureTreeView::onCurrentChanged);

        // When the level drops to beginner
        view->setVisibility(GenApi::Beginner);

        // Then the row is hidden, nothing is current, and that was announced once
        QVERIFY(!isShown(*view, rowOf(*view, QStringLiteral("IntHex"))));
        QVERIFY(!view->currentIndex().isValid());
        QCOMPARE(changed.count(), 1);
        QVERIFY(!changed.at(0).at(0).toModelIndex().isValid());
    }

    void shouldLeaveNoCurrentIndexWhenRowAboveCurrentRowBecomesHidden()
    {
        // Given a current feature inside the guru category
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->expand(rowOf(*view, QStringLiteral("*Root")));
        view->expand(rowOf(*view, QStringLiteral("States")));
        view->setCurrentIndex(rowOf(*view, QStringLiteral("WriteOnly"), 1));
        QSignalSpy changed(view.get(), &FeatureTreeView::onCurrentChanged);

        // When the level drops to expert, which hides the category
        view->setVisibility(GenApi::Expert);

        // Then the current index is dropped once
        QVERIFY(!view->currentIndex().isValid());
        QCOMPARE(changed.count(), 1);
    }

    void shouldKeepCurrentIndexSilentlyWhenItsRowStaysShown()
    {
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->expand(rowOf(*view, QStringLiteral("*Root")));
        view->expand(rowOf(*view, QStringLiteral("Controls")));
        const QModelIndex plain = rowOf(*view, QStringLiteral("IntPlain"));
        view->setCurrentIndex(plain);
        QSignalSpy changed(view.get(), &FeatureTreeView::onCurrentChanged);

        view->setVisibility(GenApi::Beginner);

        QCOMPARE(view->currentIndex(), plain);
        QCOMPARE(changed.count(), 0);
    }

    void shouldEmitNewCurrentIndex()
    {
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->expand(rowOf(*view, QStringLiteral("*Root")));
        QSignalSpy changed(view.get(), &FeatureTreeView::onCurrentChanged);

        view->setCurrentIndex(rowOf(*view, QStringLiteral("Kinds")));

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), rowOf(*view, QStringLiteral("Kinds")));
    }

    void shouldJudgeRowsOfCollapsedParentOnlyWhenExpanded()
    {
        // Given a view whose node map row is open but whose categories are closed
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->expand(rowOf(*view, QStringLiteral("*Root")));

        // When the level drops to beginner
        view->setVisibility(GenApi::Beginner);

        // Then the categories are judged: the guru one is hidden
        QVERIFY(!isShown(*view, rowOf(*view, QStringLiteral("States"))));
        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("Controls"))));
        // But the rows inside the closed category are left as they were
        const QModelIndex controls = rowOf(*view, QStringLiteral("Controls"));
        const QModelIndex hex = rowOf(*view, QStringLiteral("IntHex"));
        QVERIFY(!view->isRowHidden(hex.row(), controls));
        QVERIFY(!hasEditor(*view, QStringLiteral("IntLinear")));

        // When the category is expanded
        view->expand(controls);

        // Then its rows are judged and the editors of the shown ones open
        QVERIFY(view->isRowHidden(hex.row(), controls));
        for (const QString& feature : {QStringLiteral("FloatPlain"), QStringLiteral("FloatLinear"),
                                       QStringLiteral("FloatLog")}) {
            QVERIFY2(!isShown(*view, rowOf(*view, feature)), qPrintable(feature));
        }
        QVERIFY(hasEditor(*view, QStringLiteral("IntLinear")));
        QVERIFY(hasEditor(*view, QStringLiteral("IntLog")));
        // A plain integer is edited on demand only
        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("IntPlain"))));
        QVERIFY(!hasEditor(*view, QStringLiteral("IntPlain")));
        // And hidden sliders get no editor
        QVERIFY(!hasEditor(*view, QStringLiteral("FloatLinear")));
    }

    void shouldShowRowsOfTheTestCameraPerLevel_data()
    {
        QTest::addColumn<GenApi::EVisibility>("level");
        QTest::addColumn<QStringList>("features");
        QTest::addColumn<QStringList>("hiddenCategories");

        const QStringList beginner{"BoolFeat", "CmdFeat",     "EnumFeat", "IntLinear", "IntLog",
                                   "IntPlain", "ReadOnlyInt", "StrFeat",  "TopFeature"};
        QStringList expert = beginner + QStringList{"FloatPlain", "IntHex"};
        expert.sort();
        QStringList guru =
            expert + QStringList{"AvailSwitch", "FloatLinear", "FloatLog", "WriteOnly"};
        guru.sort();
        QTest::newRow("Beginner") << GenApi::Beginner << beginner << QStringList{"States"};
        QTest::newRow("Expert") << GenApi::Expert << expert << QStringList{"States"};
        QTest::newRow("Guru") << GenApi::Guru << guru << QStringList();
    }

    void shouldShowRowsOfTheTestCameraPerLevel()
    {
        QFETCH(GenApi::EVisibility, level);
        QFETCH(QStringList, features);
        QFETCH(QStringList, hiddenCategories);

        // Given the test camera, every row expanded
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        expandEveryRow(*view);

        // When the level is chosen
        view->setVisibility(level);

        // Then exactly the features of that level and below are shown
        QCOMPARE(shownFeatures(*view), features);
        for (const QString& category :
             {QStringLiteral("Controls"), QStringLiteral("Kinds"), QStringLiteral("States")}) {
            QCOMPARE(isShown(*view, rowOf(*view, category)), !hiddenCategories.contains(category));
        }
        // And every shown slider, enumeration, boolean and command has its editor open
        for (const QString& feature : features) {
            const FeatureTreeItem* item =
                view->proxyModel()->getFeatureTreeItem(rowOf(*view, feature));
            QVERIFY(item);
            QCOMPARE(hasEditor(*view, feature), item->usePersistentEditor());
        }
    }

    void shouldShowRowsAgainWhenLevelRises()
    {
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        expandEveryRow(*view);
        view->setVisibility(GenApi::Beginner);
        QVERIFY(!isShown(*view, rowOf(*view, QStringLiteral("FloatLog"))));

        view->setVisibility(GenApi::Guru);

        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("FloatLog"))));
        QVERIFY(hasEditor(*view, QStringLiteral("FloatLog")));
        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("States"))));
    }

    void shouldSpanNodeMapAndCategoryRowsOverBothColumns()
    {
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        expandEveryRow(*view);

        for (const QModelIndex& index : allRows(*view->model())) {
            const bool fullRow = index.data(FeatureTreeItem::FullRowItemRole).toBool();
            QVERIFY2(view->isFirstColumnSpanned(index.row(), index.parent()) == fullRow,
                     qPrintable(index.data(FeatureTreeItem::FullNameRole).toString()));
        }
        QVERIFY(
            view->isFirstColumnSpanned(rowOf(*view, QStringLiteral("*Root")).row(), QModelIndex()));
        const QModelIndex kinds = rowOf(*view, QStringLiteral("Kinds"));
        QVERIFY(view->isFirstColumnSpanned(kinds.row(), kinds.parent()));
    }

    void shouldJudgeRowsAgainWhenTheirDataChanges()
    {
        // Given a slider that is not available, listed by a proxy that keeps unavailable rows
        const auto collection = openTestDescription(QStringLiteral("viewrows"));
        const auto view = viewOf(collection);
        view->proxyModel()->setShowUnavailableParameters(true);
        expandEveryRow(*view);
        view->setVisibility(GenApi::Guru);
        QVERIFY(rowOf(*view, QStringLiteral("Focus")).isValid());
        QVERIFY(!isShown(*view, rowOf(*view, QStringLiteral("Focus"))));
        QVERIFY(!hasEditor(*view, QStringLiteral("Focus")));

        // When the switch makes it available
        collection->getParameter(fullName(QStringLiteral("Switch")))->setValue(1);
        collection->waitForDevice();

        // Then the row shows, with its editor
        QTRY_VERIFY(isShown(*view, rowOf(*view, QStringLiteral("Focus"))));
        QVERIFY(hasEditor(*view, QStringLiteral("Focus")));

        // And goes again when the switch is turned off
        collection->getParameter(fullName(QStringLiteral("Switch")))->setValue(0);
        collection->waitForDevice();
        QTRY_VERIFY(!isShown(*view, rowOf(*view, QStringLiteral("Focus"))));
    }

    void shouldOpenEditorOfRowInsertedUnderExpandedParent()
    {
        // Given a slider that is not available, left out by the proxy
        const auto collection = openTestDescription(QStringLiteral("viewrows"));
        const auto view = viewOf(collection);
        expandEveryRow(*view);
        QVERIFY(!rowOf(*view, QStringLiteral("Focus")).isValid());
        QSignalSpy inserted(view->model(), &QAbstractItemModel::rowsInserted);

        // When the switch makes it available
        collection->getParameter(fullName(QStringLiteral("Switch")))->setValue(1);
        collection->waitForDevice();

        // Then the proxy brings the row in and the view opens its editor
        QTRY_VERIFY(rowOf(*view, QStringLiteral("Focus")).isValid());
        QVERIFY(inserted.count() > 0);
        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("Focus"))));
        QVERIFY(hasEditor(*view, QStringLiteral("Focus")));
    }

    void shouldJudgeEveryRowAfterExpandAll()
    {
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        view->setVisibility(GenApi::Expert);

        view->expandAll();

        QVERIFY(!isShown(*view, rowOf(*view, QStringLiteral("FloatLinear"))));
        QVERIFY(isShown(*view, rowOf(*view, QStringLiteral("FloatPlain"))));
        QVERIFY(hasEditor(*view, QStringLiteral("EnumFeat")));
        QVERIFY(hasEditor(*view, QStringLiteral("BoolFeat")));
        QVERIFY(hasEditor(*view, QStringLiteral("CmdFeat")));
    }

    void shouldFollowLevelsOnTheBuiltInCamera_data()
    {
        QTest::addColumn<GenApi::EVisibility>("level");
        QTest::newRow("Beginner") << GenApi::Beginner;
        QTest::newRow("Expert") << GenApi::Expert;
        QTest::newRow("Guru") << GenApi::Guru;
    }

    void shouldFollowLevelsOnTheBuiltInCamera()
    {
        QFETCH(GenApi::EVisibility, level);
        // Given the built-in camera, all rows open
        const auto camera = openSimulatedCamera();
        const auto view = viewOf(camera->collection);
        view->expandAll();

        // When the level is chosen
        view->setVisibility(level);

        // Then a row is hidden exactly when its feature is above the level, and every shown
        // feature that keeps an editor has it open
        int shown = 0;
        int editors = 0;
        for (const QModelIndex& index : allRows(*view->model())) {
            const FeatureTreeItem* item = view->proxyModel()->getFeatureTreeItem(index);
            QVERIFY(item);
            const QString name = item->getFullName();
            QVERIFY2(view->isRowHidden(index.row(), index.parent()) != item->showMe(level),
                     qPrintable(name));
            if (!isShown(*view, index)) {
                continue;
            }
            ++shown;
            if (item->usePersistentEditor()) {
                QVERIFY2(view->indexWidget(index.sibling(index.row(), 1)), qPrintable(name));
                ++editors;
            }
        }
        QVERIFY(shown > 20);
        QVERIFY(editors > 5);
        // And a beginner feature is there with its editor at every level
        const QString beginner = QStringLiteral("ExposureTime");
        QVERIFY(isShown(*view, rowOf(*view, beginner)));
        QVERIFY(hasEditor(*view, beginner));
    }

    void shouldShowMoreFeaturesOfTheBuiltInCameraAtHigherLevels()
    {
        const auto camera = openSimulatedCamera();
        const auto view = viewOf(camera->collection);
        view->expandAll();

        view->setVisibility(GenApi::Beginner);
        const int beginner = shownFeatures(*view).size();
        view->setVisibility(GenApi::Expert);
        const int expert = shownFeatures(*view).size();
        view->setVisibility(GenApi::Guru);
        const int guru = shownFeatures(*view).size();

        QVERIFY2(beginner > 0 && beginner < expert && expert < guru,
                 qPrintable(QStringLiteral("%1 %2 %3").arg(beginner).arg(expert).arg(guru)));
        QVERIFY(shownFeatures(*view).contains(QStringLiteral("Width")));
    }

    void shouldShowMessageWhenModelIsEmpty()
    {
        // Given a view without node maps, text in red
        FeatureTreeView view;
        useRedText(view);
        view.resize(500, 300);
        view.show();

        // When it is drawn
        const QImage image = view.viewport()->grab().toImage();

        // Then a message of the expected length sits centred at the top, in the text colour
        const QRect box = inkBox(image, image.rect());
        QVERIFY(!box.isNull());
        const QString message = QStringLiteral("No parameters match favorite selection.");
        const int advance = view.fontMetrics().horizontalAdvance(message);
        QVERIFY2(qAbs(box.width() - advance) <= 4,
                 qPrintable(QStringLiteral("%1 vs %2").arg(box.width()).arg(advance)));
        QVERIFY(qAbs(box.center().x() - image.width() / 2) <= 3);
        QVERIFY(box.top() < 2 * view.fontMetrics().height());
        QVERIFY(box.bottom() < 3 * view.fontMetrics().height());
    }

    void shouldKeepMessageCentredWhenResized()
    {
        FeatureTreeView view;
        useRedText(view);
        view.resize(500, 300);
        view.show();
        view.viewport()->grab();

        view.resize(700, 300);
        const QImage image = view.viewport()->grab().toImage();

        const QRect box = inkBox(image, image.rect());
        QVERIFY(!box.isNull());
        QVERIFY(qAbs(box.center().x() - image.width() / 2) <= 3);
    }

    void shouldShowNoMessageWhenModelHasRows()
    {
        // Given a view with the test camera's node map, text in red
        const auto collection = openTestDescription(QStringLiteral("tree"));
        const auto view = viewOf(collection);
        useRedText(*view);
        view->resize(500, 300);

        // When it is drawn
        const QImage image = view->viewport()->grab().toImage();

        // Then the only text is the node map row's name at the left; the middle stays empty
        const QRect rowText = inkBox(image, image.rect());
        QVERIFY(!rowText.isNull());
        QVERIFY(rowText.right() < image.width() / 3);
        const int rowHeight = view->visualRect(rowOf(*view, QStringLiteral("*Root"))).height();
        QVERIFY(
            inkBox(image, QRect(image.width() / 3, 0, image.width() / 3, 3 * rowHeight)).isNull());
    }

    void shouldForwardContextMenuRequests()
    {
        FeatureTreeView view;
        view.resize(300, 200);
        view.show();
        QCOMPARE(view.contextMenuPolicy(), Qt::CustomContextMenu);
        QSignalSpy requested(&view, &FeatureTreeView::contextualMenuRequested);

        const QPoint position(40, 25);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                view.viewport()->mapToGlobal(position));
        QApplication::sendEvent(view.viewport(), &event);

        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).toPoint(), position);
    }

    void shouldRenderTheBuiltInCameraUnderTheHeader()
    {
        // Given the built-in camera under the feature tree's header
        const auto camera = openSimulatedCamera();
        auto* header = new Plugin::Nodescope::Internal::View::CTreeViewHeaderView;
        const auto view = viewOf(camera->collection, header);
        view->setAlternatingRowColors(true);
        view->resize(560, 760);
        view->header()->resizeSection(0, 260);
        view->setVisibility(GenApi::Expert);
        view->expandAll();
        QCoreApplication::processEvents();

        // When it is drawn
        const QImage image = view->grab().toImage();

        // Then the header is flat, on the base colour, labelled "Category" and "Value"
        QCOMPARE(header->model()->headerData(0, Qt::Horizontal).toString(),
                 QStringLiteral("Category"));
        QCOMPARE(header->model()->headerData(1, Qt::Horizontal).toString(),
                 QStringLiteral("Value"));
        const QPoint corner = header->mapTo(view.get(), QPoint(header->width() - 3, 2));
        QCOMPARE(QColor(image.pixel(corner)), header->palette().color(QPalette::Base));
        QCOMPARE(header->height(), header->sizeHint().height());

        const QByteArray path = qgetenv("NODESCOPE_TREEVIEW_SCREENSHOT");
        if (!path.isEmpty()) {
            QVERIFY(image.save(QString::fromLocal8Bit(path)));
        }
    }
};

QTEST_MAIN(tst_FeatureTreeView)
#include "tst_featuretreeview.moc"
