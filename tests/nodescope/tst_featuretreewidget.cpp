#include "faultycollection.h"
#include "testsupport.h"

#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/featuretreeview.h"
#include "internal/legacy/featuretreewidget.h"
#include "internal/legacy/searchedit.h"
#include "internal/model/featuretablemodel.h"
#include "internal/view/featuretableview.h"
#include "internal/view/treeviewheaderview.h"
#include "internal/view/usecaseedit.h"
#include "nodescoperesources.h"

#include <camerainfo.h>
#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolButton>
#include <QHBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::Model::CFeatureTableModel;
using Plugin::Nodescope::Internal::View::CFeatureTableView;
using Plugin::Nodescope::Internal::View::CTreeViewHeaderView;
using Plugin::Nodescope::Internal::View::CUseCaseEdit;

namespace {

const QString kPrefix = QStringLiteral("@CameraDevice");

QString fullName(const QString& feature)
{
    return kPrefix + QLatin1Char('/') + feature;
}

QStringList fullNames(const QStringList& features)
{
    QStringList names;
    for (const QString& feature : features) {
        names << fullName(feature);
    }
    return names;
}

QList<ParameterName> parameterNames(const QStringList& features)
{
    QList<ParameterName> names;
    for (const QString& name : fullNames(features)) {
        names << ParameterName(name);
    }
    return names;
}

QStringList sorted(QStringList list)
{
    list.removeDuplicates();
    list.sort();
    return list;
}

// The full names of the feature rows a user sees: not hidden, under expanded parents.
QStringList shownFeatures(const FeatureTreeWidget& widget)
{
    const FeatureTreeView* view = widget.treeView();
    const QAbstractItemModel* model = view->model();
    QStringList names;
    std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            if (view->isRowHidden(row, parent)) {
                continue;
            }
            if (!index.data(FeatureTreeItem::IsCategoryRole).toBool()) {
                names << index.data(FeatureTreeItem::FullNameRole).toString();
            } else if (view->isExpanded(index)) {
                walk(index);
            }
        }
    };
    walk(QModelIndex());
    return sorted(names);
}

// Every row that has children, and how many of them are expanded.
QPair<int, int> expansion(const FeatureTreeView& view)
{
    const QAbstractItemModel* model = view.model();
    int parents = 0;
    int expanded = 0;
    std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            if (model->rowCount(index) > 0) {
                ++parents;
                expanded += view.isExpanded(index) ? 1 : 0;
                walk(index);
            }
        }
    };
    walk(QModelIndex());
    return {parents, expanded};
}

QStringList tableRows(const FeatureTreeWidget& widget)
{
    const QAbstractItemModel* model = widget.tableView()->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row) {
        names << model->index(row, 0).data(FeatureTreeItem::TechnicalNameRole).toString();
    }
    return names;
}

QModelIndex treeRow(const FeatureTreeWidget& widget, const QString& feature, int column = 0)
{
    return widget.proxyModel()->findItemByFullName(fullName(feature), nullptr, column);
}

// A use case map as the plug-in builds it: English name to the full names of its features.
QVariantMap useCaseMapFromSources()
{
    const QString path = QDir(QString::fromUtf8(qgetenv("NODESCOPE_SOURCE_DIR")))
                             .filePath(QStringLiteral("resources/usecases/usecases.json"));
    const QJsonDocument document = QJsonDocument::fromJson(readTextFile(path).toUtf8());
    QVariantMap map;
    const QJsonArray useCases = document.object().value(QStringLiteral("UseCases")).toArray();
    for (const QJsonValue& useCase : useCases) {
        QString english;
        for (const QJsonValue& name : useCase.toObject().value(QStringLiteral("Name")).toArray()) {
            if (name.toObject().value(QStringLiteral("LanguageCode")).toString() ==
                QLatin1String("en")) {
                english = name.toObject().value(QStringLiteral("Text")).toString();
            }
        }
        QStringList parameters;
        for (const QJsonValue& parameter :
             useCase.toObject().value(QStringLiteral("Parameters")).toArray()) {
            parameters << parameter.toString();
        }
        map.insert(english, QVariant(parameters));
    }
    return map;
}

// Node maps by the names users read, as the panel that owns the widgets names them.
QString nodeMapDisplayName(const QString& nodeMap)
{
    static const QMap<QString, QString> names{
        {QStringLiteral("CameraDevice"), QStringLiteral("Vanto VNT-SIM-2000")},
        {QStringLiteral("DeviceTransportLayer"), QStringLiteral("Host Transport Layer")},
        {QStringLiteral("StreamGrabber0"), QStringLiteral("Stream Parameters")},
        {QStringLiteral("EventGrabber"), QStringLiteral("Event Grabber Parameters")},
        {QStringLiteral("ImageFormatConverter"), QStringLiteral("Image Format Conversion")}};
    return names.value(nodeMap, nodeMap);
}

// Counts the categories and features below a category, as often as the description lists them.
int countNodes(const IParameterCollection& collection, const QString& category)
{
    int count = 0;
    for (const QString& child : collection.getChildren(category)) {
        const QSharedPointer<IParameter> parameter = collection.getParameter(child);
        if (!parameter || parameter->isNull()) {
            continue;
        }
        ++count;
        if (parameter->getType() == CategoryType) {
            count += countNodes(collection, child);
        }
    }
    return count;
}

class FontChangeCounter : public QObject {
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange) {
            ++count;
        }
        return false;
    }
};

void activate(QWidget* widget)
{
    widget->show();
    QApplication::setActiveWindow(widget);
    QVERIFY(QTest::qWaitForWindowActive(widget));
}

} // namespace

class tst_FeatureTreeWidget : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_service;
    std::unique_ptr<FeatureTreeWidget> m_widget;

    QCheckBox* box(const char* name) const
    {
        return m_widget->findChild<QCheckBox*>(QLatin1String(name));
    }
    SearchEdit* filterEdit() const
    {
        return m_widget->findChild<SearchEdit*>(QStringLiteral("filterEdit"));
    }
    QComboBox* useCaseBox() const
    {
        return m_widget->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));
    }
    CUseCaseEdit* useCaseEdit() const
    {
        return m_widget->findChild<CUseCaseEdit*>(QStringLiteral("useCaseEdit"));
    }
    QSplitter* splitter() const
    {
        return m_widget->findChild<QSplitter*>(QStringLiteral("splitter"));
    }
    bool shown(const char* name) const
    {
        auto* child = m_widget->findChild<QWidget*>(QLatin1String(name));
        return child && child->isVisibleTo(m_widget.get());
    }
    Backend::SimulatedDevice* device()
    {
        Backend::SimulatedDevice* result = nullptr;
        m_collection->runOnDeviceThread(
            [&result](Backend::DeviceWorker& worker) { result = worker.simulatedDevice(0); });
        return result;
    }
    // Two use cases over tree.xml.
    static QVariantMap treeUseCases()
    {
        return {{QStringLiteral("Integers"),
                 QVariant(fullNames({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}))},
                {QStringLiteral("Kinds of values"),
                 QVariant(fullNames({QStringLiteral("EnumFeat"), QStringLiteral("BoolFeat")}))}};
    }
    // A feature tab of the given features, as the owner sets one up.
    void makeFeatureTab(const QStringList& features)
    {
        m_widget->setIsFilteredTreeWidget(true);
        m_widget->setParameterFilterList(parameterNames(features));
    }
    void selectTableRow(int row)
    {
        CFeatureTableView* table = m_widget->tableView();
        table->selectionModel()->setCurrentIndex(table->model()->index(row, 0),
                                                 QItemSelectionModel::ClearAndSelect |
                                                     QItemSelectionModel::Rows);
    }
    void selectTreeRow(const QString& feature)
    {
        FeatureTreeView* tree = m_widget->treeView();
        const QModelIndex index = feature == QLatin1String("*Root") ? tree->model()->index(0, 0)
                                                                    : treeRow(*m_widget, feature);
        QVERIFY(index.isValid());
        tree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                           QItemSelectionModel::Rows);
    }

private Q_SLOTS:
    void initTestCase()
    {
        Plugin::Nodescope::initNodescopeResources();
        qRegisterMetaType<GenApi::EVisibility>();
        qRegisterMetaType<QSharedPointer<QMenu>>();
        qRegisterMetaType<QSharedPointer<IParameter>>();
        qRegisterMetaType<QList<QPersistentModelIndex>>();
        qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    }

    void init()
    {
        m_collection = openTestDescription(QStringLiteral("tree"));
        m_service = QSharedPointer<Backend::CameraPool>::create();
        m_widget = std::make_unique<FeatureTreeWidget>(QStringLiteral("TreeTest"), nullptr, nullptr,
                                                       GenApi::Guru, false);
        m_widget->injectDeviceParameterService(m_service);
        m_widget->addParameterCollection(m_collection, QStringLiteral("Camera"), kPrefix);
        // Watched once the node map is in, as the tree view's tests do: the model loads rows
        // the first time they are asked for, and the tester asks while the proxy is busy.
        testModel(m_widget->proxyModel());
        testModelStrictly(m_widget->tableView()->model());
        m_widget->resize(900, 700);
    }

    void cleanup()
    {
        m_widget.reset();
        m_service.reset();
        m_collection.reset();
    }

    // A filter file that cannot be used

    void shouldTellOnceThatTheFilterFileCannotBeUsed()
    {
        // Given a broken filter file for one camera next to the application
        QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/..");
        QStringList made;
        for (const char* part : {"share", "vanto", "viewer"}) {
            folder += QLatin1Char('/') + QLatin1String(part);
            if (!QFileInfo::exists(folder)) {
                QVERIFY(QDir().mkdir(folder));
                made.prepend(folder);
            }
        }
        const QString path = folder + QStringLiteral("/Filtertest_Broken_CameraDeviceFilter.xml");
        QVERIFY(!QFileInfo::exists(path));
        const auto removeAll = qScopeGuard([&] {
            QFile::remove(path);
            for (const QString& dir : qAsConst(made)) {
                QDir().rmdir(dir);
            }
        });
        {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("<NodeMapFilter>\n<Node><Name>Width</Name>\n</NodeMapFilter>\n");
        }
        const auto info = QSharedPointer<Backend::CameraInfo>::create(
            QStringLiteral("filtertest"), QStringLiteral("Filtertest"), QStringLiteral("Broken"),
            QStringLiteral("1"), QStringLiteral("GigEVision"));

        // When two panels show the camera
        FeatureTreeWidget first(QStringLiteral("TreeTest"), info, nullptr, GenApi::Guru, false);
        FeatureTreeWidget second(QStringLiteral("TreeTest"), info, nullptr, GenApi::Guru, false);
        QSignalSpy firstProblems(&first, &FeatureTreeWidget::filterFileProblem);
        QSignalSpy secondProblems(&second, &FeatureTreeWidget::filterFileProblem);
        first.addParameterCollection(m_collection, QStringLiteral("Camera"), kPrefix);
        second.addParameterCollection(m_collection, QStringLiteral("Camera"), kPrefix);

        // Then the first says it, with file, line and reason, and the second stays quiet
        QCOMPARE(firstProblems.count(), 1);
        const QString text = firstProblems.first().first().toString();
        QVERIFY2(text.contains(path) && text.contains(QStringLiteral("line 3")), qPrintable(text));
        QCOMPARE(secondProblems.count(), 0);
        // And the tree is shown all the same
        QVERIFY(first.proxyModel()->rowCount() > 0);
    }

    // The form

    void shouldBuildTheFormWithItsNamesTextsAndSizes()
    {
        QCOMPARE(m_widget->objectName(), QStringLiteral("FeatureTreeWidgetClass"));
        QCOMPARE(m_widget->windowTitle(), QStringLiteral("FeatureTreeWidget"));
        QCOMPARE(m_widget->minimumSize(), QSize(200, 300));
        QCOMPARE(m_widget->findChild<QLayout*>(QStringLiteral("mainLayout"))->spacing(), 6);
        QCOMPARE(m_widget->findChild<QLayout*>(QStringLiteral("verticalLayout"))->spacing(), 40);
        QCOMPARE(m_widget->findChild<QLayout*>(QStringLiteral("horizontalLayout_2"))->spacing(),
                 10);
        QCOMPARE(m_widget->findChild<QLayout*>(QStringLiteral("bottomLayout"))->spacing(), 6);
        auto* frame = m_widget->findChild<QFrame*>(QStringLiteral("frame"));
        QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
        QCOMPARE(frame->frameShadow(), QFrame::Plain);
        QCOMPARE(useCaseEdit()->minimumSize(), QSize(250, 20));
        QCOMPARE(useCaseBox()->minimumSize(), QSize(250, 20));
        QCOMPARE(filterEdit()->minimumSize(), QSize(50, 20));
        QCOMPARE(filterEdit()->shadowDisplayString(), QStringLiteral("Search for parameters"));

        QCOMPARE(splitter()->handleWidth(), 0);
        QCOMPARE(splitter()->count(), 3);
        QCOMPARE(splitter()->widget(0), m_widget->treeView());
        QCOMPARE(splitter()->widget(1)->objectName(), QStringLiteral("line"));
        QCOMPARE(splitter()->widget(2), m_widget->tableView());
        auto* line = qobject_cast<QFrame*>(splitter()->widget(1));
        QCOMPARE(line->frameShape(), QFrame::VLine);
        QCOMPARE(line->frameShadow(), QFrame::Sunken);
        QCOMPARE(line->minimumSize(), QSize(1, 0));
        QCOMPARE(line->maximumSize(), QSize(1, 16777215));
        QCOMPARE(line->styleSheet(), QStringLiteral("background-color: palette(midlight);"));

        FeatureTreeView* tree = m_widget->treeView();
        QCOMPARE(tree->objectName(), QStringLiteral("treeView"));
        QCOMPARE(tree->frameShape(), QFrame::NoFrame);
        QCOMPARE(tree->editTriggers(), QAbstractItemView::NoEditTriggers);
        QVERIFY(!tree->showDropIndicator());

        CFeatureTableView* table = m_widget->tableView();
        QCOMPARE(table->objectName(), QStringLiteral("nodescopeTableView"));
        QCOMPARE(table->frameShape(), QFrame::NoFrame);
        QCOMPARE(int(table->editTriggers()), 31);
        QVERIFY(table->dragEnabled());
        QCOMPARE(table->dragDropMode(), QAbstractItemView::DragOnly);
        QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
        QVERIFY(!table->showGrid());
        QVERIFY(table->horizontalHeader()->stretchLastSection());
        QVERIFY(table->verticalHeader()->isHidden());

        auto* favourites =
            m_widget->findChild<QPushButton*>(QStringLiteral("addNewFavoriteButton"));
        QCOMPARE(favourites->text(), QStringLiteral("Edit Feature Tabs"));
        QCOMPARE(favourites->minimumHeight(), 32);
        QCOMPARE(favourites->maximumHeight(), 32);
        QCOMPARE(box("checkBoxPolling")->text(), QStringLiteral("P&olling"));
        QVERIFY(!box("checkBoxPolling")->isChecked());
        QCOMPARE(box("checkBoxPolling")->maximumHeight(), 32);
        QCOMPARE(box("checkBoxUnavailableFavs")->text(),
                 QStringLiteral("Show Unavailable Features"));
        QCOMPARE(box("checkBoxUnavailableFavs")->maximumHeight(), 32);
        auto* reset = m_widget->findChild<QToolButton*>(QStringLiteral("resetButton"));
        QCOMPARE(reset->minimumSize(), QSize(32, 32));
        QCOMPARE(reset->maximumSize(), QSize(32, 32));
        QVERIFY(reset->text().isEmpty());
        QCOMPARE(reset->toolTip(), QStringLiteral("Refresh"));
        QCOMPARE(reset->statusTip(), QStringLiteral("Refreshes the  feature tree"));
        QCOMPARE(reset->shortcut(), QKeySequence(Qt::Key_F5));
        QVERIFY(!reset->icon().isNull());

        // In the bottom bar: button, two spacers, the two boxes and the refresh button.
        auto* bottom = m_widget->findChild<QHBoxLayout*>(QStringLiteral("bottomLayout"));
        QCOMPARE(bottom->count(), 6);
        QCOMPARE(bottom->itemAt(0)->widget(), favourites);
        QCOMPARE(bottom->itemAt(1)->spacerItem()->sizeHint(), QSize(20, 32));
        QCOMPARE(bottom->itemAt(2)->spacerItem()->sizeHint(), QSize(91, 22));
        QCOMPARE(bottom->itemAt(3)->widget(), box("checkBoxPolling"));
        QCOMPARE(bottom->itemAt(4)->widget(), box("checkBoxUnavailableFavs"));
        QCOMPARE(bottom->itemAt(5)->widget(), reset);
    }

    void shouldOfferThePollingAndMoveActions()
    {
        QAction* polling = m_widget->togglePollingAction();
        QCOMPARE(polling->text(), QStringLiteral("Polling"));
        QVERIFY(polling->isCheckable());
        QAction* up = m_widget->moveFavouriteUpAction();
        QAction* down = m_widget->moveFavouriteDownAction();
        QCOMPARE(up->text(), QStringLiteral("Move Up"));
        QCOMPARE(down->text(), QStringLiteral("Move Down"));
        QCOMPARE(up->shortcut(), QKeySequence(QStringLiteral("Ctrl+Up")));
        QCOMPARE(down->shortcut(), QKeySequence(QStringLiteral("Ctrl+Down")));
        QCOMPARE(up->shortcutContext(), Qt::WidgetWithChildrenShortcut);
        QCOMPARE(down->shortcutContext(), Qt::WidgetWithChildrenShortcut);
        QVERIFY(!up->icon().isNull());
        QVERIFY(!down->icon().isNull());
        QVERIFY(!up->isEnabled());
        QVERIFY(!down->isEnabled());
    }

    void shouldInstallTheSearchAndTreeShortcuts()
    {
        QStringList keys;
        for (const QShortcut* shortcut : m_widget->findChildren<QShortcut*>()) {
            QCOMPARE(shortcut->context(), Qt::WidgetWithChildrenShortcut);
            keys << shortcut->key().toString(QKeySequence::PortableText);
        }
        QCOMPARE(sorted(keys),
                 sorted({QStringLiteral("F3"), QStringLiteral("Ctrl+F"),
                         QStringLiteral("Ctrl+Alt+Shift+-"), QStringLiteral("Ctrl+Alt+Shift++")}));
    }

    void shouldShowBothHeadersAsTreeViewHeaderViews()
    {
        // When the widget shows
        activate(m_widget.get());
        // Then tree and table carry the project's header, and it is visible
        auto* treeHeader = qobject_cast<CTreeViewHeaderView*>(m_widget->treeView()->header());
        auto* tableHeader =
            qobject_cast<CTreeViewHeaderView*>(m_widget->tableView()->horizontalHeader());
        QVERIFY(treeHeader);
        QVERIFY(tableHeader);
        QVERIFY(treeHeader->isVisible());
        QVERIFY(tableHeader->isVisible());
        QCOMPARE(treeHeader->model()->headerData(0, Qt::Horizontal).toString(),
                 QStringLiteral("Category"));
        QVERIFY(treeHeader->height() > 0);
    }

    void shouldFillTheUseCaseBoxWithCommonTasksFirst()
    {
        // Given no use cases, the box still offers the plain tree
        QCOMPARE(useCaseBox()->count(), 1);
        QCOMPARE(useCaseBox()->itemText(0), QStringLiteral("Common Tasks"));
        // When a map arrives
        m_widget->setUseCaseMap(treeUseCases());
        // Then "Common Tasks" leads, the use cases follow in map order with their lists
        QCOMPARE(useCaseBox()->count(), 3);
        QCOMPARE(useCaseBox()->itemText(0), QStringLiteral("Common Tasks"));
        QCOMPARE(useCaseBox()->itemText(1), QStringLiteral("Integers"));
        QCOMPARE(useCaseBox()->itemText(2), QStringLiteral("Kinds of values"));
        QCOMPARE(useCaseBox()->itemData(1, Qt::UserRole).toStringList(),
                 fullNames({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}));
        QVERIFY(useCaseBox()->itemData(0, Qt::UserRole).toStringList().isEmpty());
        QCOMPARE(useCaseBox()->currentIndex(), 0);
        // The popup is wide enough for the longest name
        const int longest =
            useCaseBox()->fontMetrics().horizontalAdvance(QStringLiteral("Kinds of values"));
        QVERIFY(useCaseBox()->view()->minimumWidth() >= longest + 20);
    }

    // Edge cases

    void shouldChangeNothingWhenTheSameUseCaseIsSelectedAgain()
    {
        // Given the use case "Integers" chosen, and the tree collapsed since
        m_widget->setUseCaseMap(treeUseCases());
        useCaseBox()->setCurrentIndex(1);
        QCOMPARE(m_widget->proxyModel()->getParameterFilterList(),
                 parameterNames({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}));
        m_widget->treeView()->collapseAll();
        QSignalSpy layouts(m_widget->proxyModel(), &QAbstractItemModel::layoutChanged);
        QSignalSpy resets(m_widget->proxyModel(), &QAbstractItemModel::modelReset);
        // When the same index is selected again
        m_widget->onUseCaseComboBoxCurrentIndexChanged(1);
        // Then the tree is neither filtered again nor expanded
        QCOMPARE(layouts.count(), 0);
        QCOMPARE(resets.count(), 0);
        QCOMPARE(expansion(*m_widget->treeView()).second, 0);
        QCOMPARE(m_widget->proxyModel()->getParameterFilterList(),
                 parameterNames({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}));
    }

    void shouldClearEveryFilterListWhenCommonTasksIsSelected()
    {
        // Given a use case active in tree and table
        m_widget->setUseCaseMap(treeUseCases());
        useCaseBox()->setCurrentIndex(2);
        QVERIFY(!m_widget->proxyModel()->getParameterFilterList().isEmpty());
        QVERIFY(!m_widget->tableView()->getProxyModel()->getParameterFilterList().isEmpty());
        QVERIFY(!shown("useCaseComboBox"));
        QVERIFY(shown("useCaseEdit"));
        QCOMPARE(useCaseEdit()->fullText(), QStringLiteral("Kinds of values"));
        // When "Common Tasks" is chosen
        useCaseBox()->setCurrentIndex(0);
        // Then no list is left anywhere, and the box is back in place of the edit
        QVERIFY(m_widget->proxyModel()->getParameterFilterList().isEmpty());
        QVERIFY(m_widget->tableView()->getProxyModel()->getParameterFilterList().isEmpty());
        QList<ParameterName> tableModelList;
        m_widget->tableView()->getFeatureExtension()->getParameterFilterList(tableModelList);
        QVERIFY(tableModelList.isEmpty());
        QVERIFY(shown("useCaseComboBox"));
        QVERIFY(!shown("useCaseEdit"));
        QVERIFY(useCaseEdit()->fullText().isEmpty());
        QCOMPARE(shownFeatures(*m_widget).isEmpty(), false);
    }

    void shouldEndTheUseCaseWithTheCrossOfItsEdit()
    {
        m_widget->setUseCaseMap(treeUseCases());
        useCaseBox()->setCurrentIndex(1);
        useCaseEdit()->crossAction()->trigger();
        QCOMPARE(useCaseBox()->currentIndex(), 0);
        QVERIFY(m_widget->proxyModel()->getParameterFilterList().isEmpty());
        QVERIFY(shown("useCaseComboBox"));
        QVERIFY(!shown("useCaseEdit"));
    }

    void shouldKeepTheUseCaseWhenTheMapIsSetAgain()
    {
        m_widget->setUseCaseMap(treeUseCases());
        useCaseBox()->setCurrentIndex(1);
        m_widget->setUseCaseMap(treeUseCases());
        QCOMPARE(useCaseBox()->currentIndex(), 1);
        QCOMPARE(m_widget->proxyModel()->getParameterFilterList(),
                 parameterNames({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}));
        QCOMPARE(shownFeatures(*m_widget),
                 fullNames({QStringLiteral("IntLinear"), QStringLiteral("IntPlain")}));
    }

    void shouldNotExpandTheTreeForAnEmptySearchText()
    {
        // Given a search that was cleared, with the tree collapsed in between
        filterEdit()->setText(QStringLiteral("Int"));
        m_widget->treeView()->collapseAll();
        // When the search text becomes empty
        filterEdit()->clear();
        // Then nothing is expanded
        QCOMPARE(expansion(*m_widget->treeView()).second, 0);
        QVERIFY(!m_widget->treeView()->isExpanded(m_widget->proxyModel()->index(0, 0)));
    }

    void shouldExpandTheWholeTreeForAnySearchText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("matching") << QStringLiteral("int");
        QTest::newRow("matching nothing") << QStringLiteral("zzz");
        QTest::newRow("one blank") << QStringLiteral(" ");
    }

    void shouldExpandTheWholeTreeForAnySearchText()
    {
        QFETCH(QString, text);
        m_widget->treeView()->collapseAll();
        filterEdit()->setText(text);
        const QPair<int, int> state = expansion(*m_widget->treeView());
        QVERIFY(state.first > 3);
        QCOMPARE(state.second, state.first);
    }

    void shouldHidePollingAndIgnoreSetPollingInFilteredMode()
    {
        // Given the widget as a feature tab
        m_widget->setIsFilteredTreeWidget(true);
        QVERIFY(!shown("checkBoxPolling"));
        // When polling is switched on
        m_widget->setPolling(true);
        // Then nothing polls and nothing shows it
        QVERIFY(!m_widget->getPolling());
        QVERIFY(!box("checkBoxPolling")->isChecked());
        QVERIFY(!m_widget->togglePollingAction()->isChecked());
    }

    void shouldShowTheUnavailableFeaturesBoxOnlyInFilteredMode()
    {
        QVERIFY(!shown("checkBoxUnavailableFavs"));
        m_widget->setIsFilteredTreeWidget(true);
        QVERIFY(shown("checkBoxUnavailableFavs"));
        m_widget->setIsFilteredTreeWidget(false);
        QVERIFY(!shown("checkBoxUnavailableFavs"));
    }

    void shouldKeepBothMoveActionsDisabledForASingleRow()
    {
        makeFeatureTab({QStringLiteral("IntPlain")});
        QCOMPARE(tableRows(*m_widget), QStringList{QStringLiteral("IntPlain")});
        selectTableRow(0);
        QVERIFY(!m_widget->moveFavouriteUpAction()->isEnabled());
        QVERIFY(!m_widget->moveFavouriteDownAction()->isEnabled());
    }

    void shouldEnableOnlyTheMovesTheRowAllows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("down");
        QTest::newRow("first row") << 0 << false << true;
        QTest::newRow("middle row") << 1 << true << true;
        QTest::newRow("last row") << 2 << true << false;
    }

    void shouldEnableOnlyTheMovesTheRowAllows()
    {
        QFETCH(int, row);
        QFETCH(bool, up);
        QFETCH(bool, down);
        makeFeatureTab(
            {QStringLiteral("IntPlain"), QStringLiteral("IntLinear"), QStringLiteral("IntLog")});
        selectTableRow(row);
        QCOMPARE(m_widget->moveFavouriteUpAction()->isEnabled(), up);
        QCOMPARE(m_widget->moveFavouriteDownAction()->isEnabled(), down);
        // A lost selection disables both again
        m_widget->tableView()->selectionModel()->clearSelection();
        QVERIFY(!m_widget->moveFavouriteUpAction()->isEnabled());
        QVERIFY(!m_widget->moveFavouriteDownAction()->isEnabled());
    }

    void shouldKeepMoveActionsDisabledBesideTheTree()
    {
        // Given the table beside the tree, showing a category
        selectTreeRow(QStringLiteral("IntPlain"));
        QVERIFY(tableRows(*m_widget).size() > 2);
        // When its middle row is selected, the order stays the tab's business
        selectTableRow(1);
        QVERIFY(!m_widget->moveFavouriteUpAction()->isEnabled());
        QVERIFY(!m_widget->moveFavouriteDownAction()->isEnabled());
    }

    void shouldLeaveTheSplitterUnchangedForWidthsItCannotTake_data()
    {
        QTest::addColumn<int>("extra");
        QTest::addColumn<bool>("negative");
        QTest::newRow("the sum of the outer panes") << 0 << false;
        QTest::newRow("above the sum") << 25 << false;
        QTest::newRow("negative") << 0 << true;
    }

    void shouldLeaveTheSplitterUnchangedForWidthsItCannotTake()
    {
        QFETCH(int, extra);
        QFETCH(bool, negative);
        activate(m_widget.get());
        const QList<int> before = splitter()->sizes();
        QCOMPARE(before.size(), 3);
        QVERIFY(before.at(0) > 0 && before.at(2) > 0);
        const int width = negative ? -1 : before.at(0) + before.at(2) + extra;
        m_widget->setCategoryColumnSize(width);
        QCOMPARE(splitter()->sizes(), before);
    }

    // Pane sizes

    void shouldGiveTheTreePaneTheWidthAndTheTableTheRest()
    {
        activate(m_widget.get());
        const QList<int> before = splitter()->sizes();
        const int outer = before.at(0) + before.at(2);
        m_widget->setCategoryColumnSize(300);
        QCOMPARE(splitter()->sizes(), (QList<int>{300, before.at(1), outer - 300}));
        QCOMPARE(before.at(1), 1);
    }

    void shouldReportTheTreePaneWidthWhenTheUserMovesTheSplitter()
    {
        // Given a shown widget
        activate(m_widget.get());
        QSignalSpy widths(m_widget.get(), &FeatureTreeWidget::categoryColumnWidthChanged);
        // When the user drags the handle between tree and separator to the left
        QSplitterHandle* handle = splitter()->handle(1);
        const QPoint start = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, start);
        QMouseEvent move(QEvent::MouseMove, start - QPoint(120, 0),
                         handle->mapToGlobal(start - QPoint(120, 0)), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(handle, &move);
        QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, start - QPoint(120, 0));
        // Then the tree pane's new width is announced
        QVERIFY(widths.count() > 0);
        QCOMPARE(widths.last().at(0).toInt(), splitter()->sizes().at(0));
    }

    void shouldGiveTheNameColumnsTheirShareUntilSomeoneChooses()
    {
        // When the widget shows without a width restored
        activate(m_widget.get());
        // Then names take 45 % of each view
        FeatureTreeView* tree = m_widget->treeView();
        CFeatureTableView* table = m_widget->tableView();
        QCOMPARE(tree->header()->sectionSize(0), int(tree->viewport()->width() * 0.45));
        QCOMPARE(table->horizontalHeader()->sectionSize(0), int(table->viewport()->width() * 0.45));
        // And follow the width while nobody chose one
        m_widget->resize(1100, 700);
        QTRY_COMPARE(tree->header()->sectionSize(0), int(tree->viewport()->width() * 0.45));
    }

    void shouldSizeTheFeatureColumnAndTellWhoResized()
    {
        activate(m_widget.get());
        QSignalSpy sections(m_widget.get(), &FeatureTreeWidget::firstSectionSizeChanged);
        // When the owner restores the column width
        m_widget->setFeatureColumnSize(210);
        QCOMPARE(m_widget->treeView()->header()->sectionSize(0), 210);
        QCOMPARE(sections.count(), 1);
        QCOMPARE(sections.last(), (QVariantList{210, false}));
        // When the user drags the section edge instead
        m_widget->treeView()->header()->resizeSection(0, 180);
        QCOMPARE(sections.last(), (QVariantList{180, true}));
        // Then the chosen width stays when the widget grows
        m_widget->resize(1100, 700);
        QCoreApplication::processEvents();
        QCOMPARE(m_widget->treeView()->header()->sectionSize(0), 180);
        // A negative width is no width
        m_widget->setFeatureColumnSize(-5);
        QCOMPARE(m_widget->treeView()->header()->sectionSize(0), 180);
    }

    // Keyboard

    void shouldRefreshValuesChangedBehindTheCacheOnF5()
    {
        // Given a register changed inside the camera without the host knowing
        activate(m_widget.get());
        const QPersistentModelIndex value = treeRow(*m_widget, QStringLiteral("IntPlain"), 1);
        QCOMPARE(value.data().toString(), QStringLiteral("42"));
        quint64 address = 0;
        quint32 length = 0;
        QVERIFY(device()->registerOf("IntPlainReg", &address, &length));
        m_collection->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            worker.simulatedDevice(0)->pokeInt(address, 99, length);
        });
        m_collection->waitForDevice();
        QCOMPARE(value.data().toString(), QStringLiteral("42"));
        // When the user presses F5
        m_widget->treeView()->setFocus();
        QTest::keyClick(m_widget->treeView(), Qt::Key_F5);
        // Then the tree shows the camera's value, and the wait cursor is gone again
        QTRY_COMPARE(value.data().toString(), QStringLiteral("99"));
        QVERIFY(!QApplication::overrideCursor());
    }

    void shouldRefreshOnlyThePanelInUseWhenTwoShareTheWindow()
    {
        // Given two panels side by side in one window, each counting its refreshes
        QWidget window;
        auto* layout = new QHBoxLayout(&window);
        auto first = QSharedPointer<FaultyCollection>::create(m_collection);
        auto second =
            QSharedPointer<FaultyCollection>::create(openTestDescription(QStringLiteral("tree")));
        auto* left = new FeatureTreeWidget(QStringLiteral("TreeTest"), nullptr, &window,
                                           GenApi::Guru, false);
        auto* right = new FeatureTreeWidget(QStringLiteral("TreeTest"), nullptr, &window,
                                            GenApi::Guru, false);
        left->addParameterCollection(first, QStringLiteral("Camera"), kPrefix);
        right->addParameterCollection(second, QStringLiteral("Camera"), kPrefix);
        layout->addWidget(left);
        layout->addWidget(right);
        window.resize(1400, 600);
        activate(&window);

        // When the user presses F5 in the right one, twice
        right->treeView()->setFocus();
        QTest::keyClick(right->treeView(), Qt::Key_F5);
        QTest::keyClick(right->treeView(), Qt::Key_F5);

        // Then the right one refreshes each time, the left one never
        QTRY_COMPARE(second->refreshCount, 2);
        QCOMPARE(first->refreshCount, 0);
        left->treeView()->setFocus();
        QTest::keyClick(left->treeView(), Qt::Key_F5);
        QTRY_COMPARE(first->refreshCount, 1);
        QCOMPARE(second->refreshCount, 2);
    }

    void shouldAskTheCollectionForFreshValuesOnRefresh()
    {
        // Given a collection that counts its refreshes
        auto counting = QSharedPointer<FaultyCollection>::create(m_collection);
        auto widget = std::make_unique<FeatureTreeWidget>(QStringLiteral("TreeTest"), nullptr,
                                                          nullptr, GenApi::Guru, false);
        widget->addParameterCollection(counting, QStringLiteral("Camera"), kPrefix);
        // When the refresh button is clicked
        QTest::mouseClick(widget->findChild<QToolButton*>(QStringLiteral("resetButton")),
                          Qt::LeftButton);
        // Then every feature is refreshed at once
        QCOMPARE(counting->refreshCount, 1);
    }

    void shouldFocusTheSearchField_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("F3") << int(Qt::Key_F3) << int(Qt::NoModifier);
        QTest::newRow("Ctrl+F") << int(Qt::Key_F) << int(Qt::ControlModifier);
    }

    void shouldFocusTheSearchField()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        // Given the keyboard in the tree
        activate(m_widget.get());
        m_widget->treeView()->setFocus();
        QTRY_VERIFY(m_widget->treeView()->hasFocus());
        // When the shortcut is pressed
        QTest::keyClick(m_widget->treeView(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        // Then typing goes to the search field
        QTRY_VERIFY(filterEdit()->hasFocus());
        QTest::keyClicks(filterEdit(), QStringLiteral("gain"));
        QCOMPARE(filterEdit()->text(), QStringLiteral("gain"));
    }

    void shouldClearTheSearchOnlyOnASecondEscapeInARow()
    {
        // Given a search typed into the field
        activate(m_widget.get());
        filterEdit()->setFocus();
        QTRY_VERIFY(filterEdit()->hasFocus());
        QTest::keyClicks(filterEdit(), QStringLiteral("Int"));
        // When Escape is pressed once, the search stays
        QTest::keyClick(filterEdit(), Qt::Key_Escape);
        QCOMPARE(filterEdit()->text(), QStringLiteral("Int"));
        // A key in between breaks the row
        QTest::keyClick(filterEdit(), Qt::Key_L);
        QTest::keyClick(filterEdit(), Qt::Key_Escape);
        QCOMPARE(filterEdit()->text(), QStringLiteral("Intl"));
        // When Escape follows Escape, the search is cleared
        QTest::keyClick(filterEdit(), Qt::Key_Escape);
        QCOMPARE(filterEdit()->text(), QString());
        QCOMPARE(m_widget->treeView()->getHighlighter()->getTextToHighlight(), QString());
    }

    void shouldBreakTheEscapeRowWithKeysTheViewsTake_data()
    {
        QTest::addColumn<QString>("view");
        QTest::newRow("tree") << QStringLiteral("treeView");
        QTest::newRow("table") << QStringLiteral("nodescopeTableView");
    }

    void shouldBreakTheEscapeRowWithKeysTheViewsTake()
    {
        // Given a search, and a view with the focus on a row that has one below it
        QFETCH(QString, view);
        if (view == QLatin1String("nodescopeTableView")) {
            makeFeatureTab({QStringLiteral("IntPlain"), QStringLiteral("IntLinear")});
        }
        filterEdit()->setText(QStringLiteral("Int"));
        activate(m_widget.get());
        auto* target = m_widget->findChild<QAbstractItemView*>(view);
        QVERIFY(target);
        const QModelIndex first = target->model()->index(0, 0);
        target->setCurrentIndex(first);
        target->setFocus();
        QTRY_VERIFY(target->hasFocus());

        // When Escape, then Down, which the view takes to move its row, then Escape are pressed
        QTest::keyClick(target, Qt::Key_Escape);
        QTest::keyClick(target, Qt::Key_Down);
        QVERIFY(target->currentIndex().isValid());
        QVERIFY(target->currentIndex() != first);
        QTest::keyClick(target, Qt::Key_Escape);

        // Then the search stays: Down broke the row
        QCOMPARE(filterEdit()->text(), QStringLiteral("Int"));
        // And a second Escape in a row from the view still clears it
        QTest::keyClick(target, Qt::Key_Escape);
        QCOMPARE(filterEdit()->text(), QString());
    }

    void shouldShareTheEscapeRowBetweenWidgets()
    {
        // Given a second camera's widget with a search of its own
        auto other = openTestDescription(QStringLiteral("tree"));
        auto second = std::make_unique<FeatureTreeWidget>(QStringLiteral("TreeTest"), nullptr,
                                                          nullptr, GenApi::Guru, false);
        second->addParameterCollection(other, QStringLiteral("Camera"), kPrefix);
        auto* secondEdit = second->findChild<SearchEdit*>(QStringLiteral("filterEdit"));
        secondEdit->setText(QStringLiteral("Float"));
        activate(m_widget.get());
        filterEdit()->setFocus();
        QTRY_VERIFY(filterEdit()->hasFocus());
        QTest::keyClicks(filterEdit(), QStringLiteral("Int"));
        // When Escape is pressed in the first widget, then in the second
        QTest::keyClick(filterEdit(), Qt::Key_Escape);
        activate(second.get());
        secondEdit->setFocus();
        QTRY_VERIFY(secondEdit->hasFocus());
        QTest::keyClick(secondEdit, Qt::Key_Escape);
        // Then the second one's search is cleared: the flag is one for the whole process
        QCOMPARE(secondEdit->text(), QString());
        QCOMPARE(filterEdit()->text(), QStringLiteral("Int"));
        second.reset();
    }

    void shouldMoveTableRowsWithCtrlUpAndCtrlDownInFilteredMode()
    {
        // Given a feature tab of three features, its first row current
        makeFeatureTab(
            {QStringLiteral("IntPlain"), QStringLiteral("IntLinear"), QStringLiteral("IntLog")});
        activate(m_widget.get());
        CFeatureTableView* table = m_widget->tableView();
        selectTableRow(0);
        table->setFocus();
        QTRY_VERIFY(table->hasFocus());
        QSignalSpy moves(m_widget.get(), &FeatureTreeWidget::orderOfTableItemsChanged);
        // When Ctrl+Down is pressed twice
        QTest::keyClick(table, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntLinear"), QStringLiteral("IntPlain"),
                              QStringLiteral("IntLog")}));
        QTest::keyClick(table, Qt::Key_Down, Qt::ControlModifier);
        // Then the row went to the bottom, each step reported, and it can only go up now
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntLinear"), QStringLiteral("IntLog"),
                              QStringLiteral("IntPlain")}));
        QCOMPARE(moves.count(), 2);
        QCOMPARE(moves.at(0), (QVariantList{0, 1}));
        QCOMPARE(moves.at(1), (QVariantList{1, 2}));
        QCOMPARE(table->currentIndex().row(), 2);
        QVERIFY(m_widget->moveFavouriteUpAction()->isEnabled());
        QVERIFY(!m_widget->moveFavouriteDownAction()->isEnabled());
        // When Ctrl+Up is pressed
        QTest::keyClick(table, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(moves.count(), 3);
        QCOMPARE(moves.at(2), (QVariantList{2, 1}));
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntLinear"), QStringLiteral("IntPlain"),
                              QStringLiteral("IntLog")}));
    }

    void shouldCollapseAndExpandTheTreeFromTheKeyboard()
    {
        activate(m_widget.get());
        FeatureTreeView* tree = m_widget->treeView();
        tree->setFocus();
        QTRY_VERIFY(tree->hasFocus());
        QTest::keyClick(tree, Qt::Key_Plus,
                        Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
        QPair<int, int> state = expansion(*tree);
        QCOMPARE(state.second, state.first);
        QTest::keyClick(tree, Qt::Key_Minus,
                        Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
        QCOMPARE(expansion(*tree).second, 0);
    }

    // Use cases on the built-in camera

    void shouldShowExactlyTheUseCaseFeaturesTheCameraHasAtTheLevel_data()
    {
        QTest::addColumn<int>("level");
        QTest::newRow("Beginner") << int(GenApi::Beginner);
        QTest::newRow("Expert") << int(GenApi::Expert);
        QTest::newRow("Guru") << int(GenApi::Guru);
    }

    void shouldShowExactlyTheUseCaseFeaturesTheCameraHasAtTheLevel()
    {
        QFETCH(int, level);
        // Given the built-in camera at a level, with the shipped use cases
        const auto camera = openSimulatedCamera();
        auto widget = std::make_unique<FeatureTreeWidget>(
            QStringLiteral("Simulated"), camera->info, nullptr,
            static_cast<GenApi::EVisibility>(level), camera->info->isGigE());
        widget->injectDeviceParameterService(m_service);
        widget->addParameterCollection(camera->collection, QStringLiteral("Vanto VNT-SIM-2000"),
                                       kPrefix);
        const QVariantMap useCases = useCaseMapFromSources();
        QVERIFY(useCases.contains(QStringLiteral("Changing the resolution")));
        widget->setUseCaseMap(useCases);
        auto* box = widget->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));

        // When "Changing the resolution" is selected
        const int index = box->findText(QStringLiteral("Changing the resolution"));
        QVERIFY(index > 0);
        box->setCurrentIndex(index);

        // Then the tree shows those of its features the camera has and the level shows
        QStringList expected;
        for (const QString& name :
             useCases.value(QStringLiteral("Changing the resolution")).toStringList()) {
            const QSharedPointer<IParameter> parameter = camera->collection->getParameter(name);
            if (!parameter || parameter->isNull()) {
                continue;
            }
            const auto data = parameter->getParameterData();
            if (data->implemented && data->available &&
                data->visibility <= widget->proxyModel()->getVisibility()) {
                expected << name;
            }
        }
        QVERIFY(expected.contains(fullName(QStringLiteral("Width"))));
        QCOMPARE(shownFeatures(*widget), sorted(expected));
        QVERIFY(!widget->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"))
                     ->isVisibleTo(widget.get()));
        QCOMPARE(widget->findChild<CUseCaseEdit*>(QStringLiteral("useCaseEdit"))->fullText(),
                 QStringLiteral("Changing the resolution"));
    }

    // Tree to table

    void shouldListTheSelectedCategoryInTheTable()
    {
        // When a category row is selected
        const QModelIndex kinds = m_widget->proxyModel()->findItemByFullName(
            fullName(QStringLiteral("Kinds")), nullptr, 0);
        QVERIFY(kinds.isValid());
        m_widget->treeView()->selectionModel()->setCurrentIndex(
            kinds, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        // Then the table lists its features
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("EnumFeat"), QStringLiteral("BoolFeat"),
                              QStringLiteral("StrFeat"), QStringLiteral("CmdFeat"),
                              QStringLiteral("ReadOnlyInt")}));
    }

    void shouldListASelectedFeatureWithItsNeighbours()
    {
        selectTreeRow(QStringLiteral("IntHex"));
        // The tree lists the features of nested categories under their top category
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntPlain"), QStringLiteral("IntLinear"),
                              QStringLiteral("IntLog"), QStringLiteral("IntHex"),
                              QStringLiteral("FloatPlain"), QStringLiteral("FloatLinear"),
                              QStringLiteral("FloatLog")}));
        // A feature right under the node map goes with the node map's own features
        selectTreeRow(QStringLiteral("TopFeature"));
        QCOMPARE(tableRows(*m_widget), QStringList{QStringLiteral("TopFeature")});
    }

    void shouldKeepTheTableToTheActiveUseCase()
    {
        m_widget->setUseCaseMap(treeUseCases());
        useCaseBox()->setCurrentIndex(1);
        selectTreeRow(QStringLiteral("IntPlain"));
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntPlain"), QStringLiteral("IntLinear")}));
    }

    void shouldLeaveTheTableAloneInFilteredMode()
    {
        // Given a feature tab, whose hidden tree holds the same feature
        makeFeatureTab({QStringLiteral("EnumFeat")});
        // When that tree row gets selected, the tab keeps its own list
        selectTreeRow(QStringLiteral("EnumFeat"));
        QCOMPARE(tableRows(*m_widget), QStringList{QStringLiteral("EnumFeat")});
    }

    // Filtered mode

    void shouldShowOnlyTheTableInFilteredMode()
    {
        m_widget->setUseCaseMap(treeUseCases());
        m_widget->setIsFilteredTreeWidget(true);
        for (const char* name : {"useCaseEdit", "useCaseComboBox", "filterEdit", "treeView", "line",
                                 "addNewFavoriteButton", "checkBoxPolling"}) {
            QVERIFY2(!shown(name), name);
        }
        QVERIFY(shown("nodescopeTableView"));
        QVERIFY(shown("checkBoxUnavailableFavs"));
        QVERIFY(shown("resetButton"));
        QVERIFY(!m_widget->tableView()->isConnectedToTreeView());
        QCOMPARE(m_widget->tableView()->dragDropMode(), QAbstractItemView::InternalMove);
        QVERIFY(m_widget->tableView()->horizontalHeader()->stretchLastSection());
        // And back beside the tree
        m_widget->setIsFilteredTreeWidget(false);
        for (const char* name : {"useCaseComboBox", "filterEdit", "treeView", "line",
                                 "addNewFavoriteButton", "checkBoxPolling"}) {
            QVERIFY2(shown(name), name);
        }
        QVERIFY(!shown("useCaseEdit"));
        QVERIFY(m_widget->tableView()->isConnectedToTreeView());
    }

    void shouldListAFeatureTabInItsOwnOrder()
    {
        makeFeatureTab({QStringLiteral("StrFeat"), QStringLiteral("IntPlain"),
                        QStringLiteral("NoSuchFeature"), QStringLiteral("Kinds"),
                        QStringLiteral("EnumFeat")});
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("StrFeat"), QStringLiteral("IntPlain"),
                              QStringLiteral("EnumFeat")}));
    }

    void shouldListUnavailableFeaturesOfATabWhenTheBoxIsChecked()
    {
        // Given a feature tab with a feature that is not available now
        makeFeatureTab({QStringLiteral("IntPlain"), QStringLiteral("NotAvail")});
        QCOMPARE(tableRows(*m_widget), QStringList{QStringLiteral("IntPlain")});
        // When the user checks the box
        activate(m_widget.get());
        QTest::mouseClick(box("checkBoxUnavailableFavs"), Qt::LeftButton, Qt::NoModifier,
                          QPoint(8, box("checkBoxUnavailableFavs")->height() / 2));
        // Then tree and table show unavailable features too
        QVERIFY(box("checkBoxUnavailableFavs")->isChecked());
        QVERIFY(m_widget->proxyModel()->getShowUnavailableParameters());
        QVERIFY(m_widget->tableView()->getProxyModel()->getShowUnavailableParameters());
        QCOMPARE(tableRows(*m_widget),
                 (QStringList{QStringLiteral("IntPlain"), QStringLiteral("NotAvail")}));
    }

    void shouldLogAndIgnoreAFilterListWithoutDeviceParameterService()
    {
        auto widget = std::make_unique<FeatureTreeWidget>(QStringLiteral("TreeTest"), nullptr,
                                                          nullptr, GenApi::Guru, false);
        widget->addParameterCollection(m_collection, QStringLiteral("Camera"), kPrefix);
        MessageCapture log;
        widget->setParameterFilterList(parameterNames({QStringLiteral("IntPlain")}));
        QCOMPARE(log.lines(), QStringList{QStringLiteral(
                                  "Plugin::CameraPool::IDeviceParameterService not set!")});
        QVERIFY(widget->proxyModel()->getParameterFilterList().isEmpty());
        widget->expandTree();
        QVERIFY(shownFeatures(*widget).size() > 1);
    }

    void shouldRestrictTheTreeToAFilterList()
    {
        m_widget->treeView()->collapseAll();
        m_widget->setParameterFilterList(
            parameterNames({QStringLiteral("IntHex"), QStringLiteral("StrFeat")}));
        QCOMPARE(shownFeatures(*m_widget),
                 fullNames({QStringLiteral("IntHex"), QStringLiteral("StrFeat")}));
    }

    // Polling, visibility, refresh

    void shouldSwitchPollingBoxAndActionTogether()
    {
        // Given a collection that counts its polls
        auto counting = QSharedPointer<FaultyCollection>::create(m_collection);
        auto widget = std::make_unique<FeatureTreeWidget>(QStringLiteral("TreeTest"), nullptr,
                                                          nullptr, GenApi::Guru, false);
        widget->addParameterCollection(counting, QStringLiteral("Camera"), kPrefix);
        auto* polling = widget->findChild<QCheckBox*>(QStringLiteral("checkBoxPolling"));
        // When polling is switched on
        widget->setPolling(true);
        // Then model, box and action agree, and the camera is polled
        QVERIFY(widget->getPolling());
        QVERIFY(polling->isChecked());
        QVERIFY(widget->togglePollingAction()->isChecked());
        QTRY_VERIFY(counting->pollCount > 0);
        // When it is switched off through the owner's feedback
        widget->onPollingStateChanged(false);
        QVERIFY(!widget->getPolling());
        QVERIFY(!polling->isChecked());
        QVERIFY(!widget->togglePollingAction()->isChecked());
    }

    void shouldAskTheOwnerWhenThePollingBoxIsClicked()
    {
        activate(m_widget.get());
        QSignalSpy requests(m_widget.get(), &FeatureTreeWidget::pollingStateChanged);
        QCheckBox* polling = box("checkBoxPolling");
        QTest::mouseClick(polling, Qt::LeftButton, Qt::NoModifier,
                          QPoint(8, polling->height() / 2));
        QCOMPARE(requests.count(), 1);
        QCOMPARE(requests.last(), QVariantList{true});
        // The model waits for the owner's answer
        QVERIFY(!m_widget->getPolling());
        m_widget->onPollingStateChanged(true);
        QVERIFY(m_widget->getPolling());
        // The action asks the same way
        m_widget->togglePollingAction()->trigger();
        QCOMPARE(requests.last(), QVariantList{false});
    }

    void shouldApplyTheLevelToModelTreeAndTable()
    {
        m_widget->setVisibility(GenApi::Beginner);
        QCOMPARE(m_widget->visibility(), GenApi::Beginner);
        QCOMPARE(m_widget->treeView()->getVisibility(), GenApi::Beginner);
        QCOMPARE(m_widget->tableView()->getVisibility(), GenApi::Beginner);
        QCOMPARE(m_widget->proxyModel()->getFeatureTreeModel()->getVisibility(), GenApi::Beginner);
        m_widget->expandTree();
        QVERIFY(!shownFeatures(*m_widget).contains(fullName(QStringLiteral("IntHex"))));
        QVERIFY(shownFeatures(*m_widget).contains(fullName(QStringLiteral("IntPlain"))));
    }

    void shouldAnnounceALevelChosenByTheUserAndSearchAgain()
    {
        // Given a search for "int" at the guru level
        filterEdit()->setText(QStringLiteral("int"));
        QSignalSpy levels(m_widget.get(), &FeatureTreeWidget::visibilityChanged);
        QSignalSpy matches(m_widget.get(), &FeatureTreeWidget::filterMatchesChanged);
        // When the user chooses the beginner level
        m_widget->onVisibilityChanged(GenApi::Beginner);
        // Then the level is announced, and the matches are counted for it
        QCOMPARE(levels.count(), 1);
        QCOMPARE(levels.last().at(0).value<GenApi::EVisibility>(), GenApi::Beginner);
        QVERIFY(matches.count() > 0);
        // IntPlain, IntLinear, IntLog and ReadOnlyInt show; IntHex waits for the expert level
        QCOMPARE(matches.last(), (QVariantList{4, 1}));
        QVERIFY(!QApplication::overrideCursor());
        // A level that does not exist changes nothing
        m_widget->onVisibilityChanged(42);
        QCOMPARE(levels.count(), 1);
        QCOMPARE(m_widget->visibility(), GenApi::Beginner);
    }

    void shouldMarkSearchMatchesAndHighlightThemInBothViews()
    {
        filterEdit()->setText(QStringLiteral("float"));
        QCOMPARE(m_widget->treeView()->getHighlighter()->getTextToHighlight(),
                 QStringLiteral("float"));
        QCOMPARE(m_widget->tableView()->getHighlighter()->getTextToHighlight(),
                 QStringLiteral("float"));
        QVERIFY(treeRow(*m_widget, QStringLiteral("FloatLog"))
                    .data(FeatureTreeItem::SearchedRole)
                    .toBool());
        QVERIFY(!treeRow(*m_widget, QStringLiteral("IntLog"))
                     .data(FeatureTreeItem::SearchedRole)
                     .toBool());
        // Searching hides nothing
        QVERIFY(shownFeatures(*m_widget).contains(fullName(QStringLiteral("IntLog"))));
    }

    void shouldTellTheCurrentParameterUnlessTheSearchFieldHasTheKeyboard()
    {
        activate(m_widget.get());
        QSignalSpy currents(m_widget.get(), qOverload<QSharedPointer<IParameter>>(
                                                &FeatureTreeWidget::onCurrentChanged));
        m_widget->treeView()->setCurrentIndex(treeRow(*m_widget, QStringLiteral("IntPlain")));
        QCOMPARE(currents.count(), 1);
        QCOMPARE(currents.last().at(0).value<QSharedPointer<IParameter>>()->getName(),
                 fullName(QStringLiteral("IntPlain")));
        // While the user types a search, the status line keeps to it
        filterEdit()->setFocus();
        QTRY_VERIFY(filterEdit()->hasFocus());
        m_widget->treeView()->setCurrentIndex(treeRow(*m_widget, QStringLiteral("IntLog")));
        QCOMPARE(currents.count(), 1);
    }

    void shouldEmitANullParameterForAnIndexWithoutItem()
    {
        QStandardItemModel foreign(1, 1);
        QSignalSpy currents(m_widget.get(), qOverload<QSharedPointer<IParameter>>(
                                                &FeatureTreeWidget::onCurrentChanged));
        MessageCapture log;
        m_widget->onCurrentChanged(foreign.index(0, 0));
        QCOMPARE(log.lines(), QStringList{QStringLiteral(
                                  "Only the invalid/empty model index is allowed to have an "
                                  "internal pointer of nullptr")});
        QCOMPARE(currents.count(), 1);
        QVERIFY(currents.last().at(0).value<QSharedPointer<IParameter>>().isNull());
    }

    void shouldPassTheFavouriteButtonOn()
    {
        QSignalSpy clicks(m_widget.get(), &FeatureTreeWidget::addFavoriteButtonClicked);
        QTest::mouseClick(m_widget->findChild<QPushButton*>(QStringLiteral("addNewFavoriteButton")),
                          Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }

    void shouldStopWritingOnceTheDeviceIsClosed()
    {
        m_widget->deviceIsClosed();
        QVERIFY(!m_widget->proxyModel()->getFeatureTreeModel()->getDeviceAlive());
        QVERIFY(!m_widget->tableView()->getFeatureTableModel()->getDeviceAlive());
        QVERIFY(!m_widget->proxyModel()->setData(treeRow(*m_widget, QStringLiteral("IntPlain"), 1),
                                                 7, Qt::EditRole));
    }

    void shouldTurnEveryViewOfALostCameraReadOnly()
    {
        // Given two panels showing the camera, tree and table, with their editors open
        FeatureTreeWidget other(QStringLiteral("TreeTest"), nullptr, nullptr, GenApi::Guru, false);
        other.injectDeviceParameterService(m_service);
        other.addParameterCollection(m_collection, QStringLiteral("Camera"), kPrefix);
        for (FeatureTreeWidget* panel : {m_widget.get(), &other}) {
            panel->resize(900, 700);
            panel->show();
            panel->expandTree();
        }
        selectTreeRow(QStringLiteral("IntLinear"));
        QVERIFY(!tableRows(*m_widget).isEmpty());
        const QVariant before = m_collection->getParameter(fullName(QStringLiteral("IntPlain")))
                                    ->getParameterData()
                                    ->value;
        QSignalSpy texts(m_widget.get(), &FeatureTreeWidget::onNewText);
        QSignalSpy lost(m_collection.data(), &IParameterCollection::deviceLost);

        // When the camera goes away
        m_collection->runOnDeviceThread([](Backend::DeviceWorker& worker) {
            worker.markLost(QStringLiteral("The connection to the device was lost"));
        });
        QTRY_COMPARE(lost.count(), 1);

        // Then every editor of both panels takes no input
        for (FeatureTreeWidget* panel : {m_widget.get(), &other}) {
            for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(panel->treeView()),
                                            static_cast<QAbstractItemView*>(panel->tableView())}) {
                const QList<QWidget*> editors =
                    view->viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
                for (QWidget* editor : editors) {
                    QVERIFY2(!editor->isEnabled(), editor->metaObject()->className());
                }
            }
            QVERIFY(!panel->treeView()->viewport()->findChildren<QWidget*>().isEmpty());
        }
        // And no value cell can be edited any more
        const QModelIndex plain = treeRow(*m_widget, QStringLiteral("IntPlain"), 1);
        QVERIFY(!(plain.flags() & Qt::ItemIsEditable));
        // And a write that still comes is refused with the reason, and its editor is reset
        QSignalSpy resets(m_widget->proxyModel(), &QAbstractItemModel::dataChanged);
        QVERIFY(!m_widget->proxyModel()->setData(plain, 7, Qt::EditRole));
        QCOMPARE(texts.last().at(0).toString(),
                 QStringLiteral("Plain Integer: the camera is lost, nothing was written"));
        QCOMPARE(resets.count(), 1);
        QVERIFY(!other.tableView()->model()->setData(other.tableView()->model()->index(0, 1), 7,
                                                     Qt::EditRole));
        m_collection->waitForDevice();
        QCOMPARE(m_collection->getParameter(fullName(QStringLiteral("IntPlain")))
                     ->getParameterData()
                     ->value,
                 before);
        // And editors opened afterwards are read-only from the start
        selectTreeRow(QStringLiteral("FloatPlain"));
        const QList<QWidget*> tableEditors =
            m_widget->tableView()->viewport()->findChildren<QWidget*>(QString(),
                                                                      Qt::FindDirectChildrenOnly);
        QVERIFY(!tableEditors.isEmpty());
        for (QWidget* editor : tableEditors) {
            QVERIFY(!editor->isEnabled());
        }
    }

    void shouldTellWhyTheCurrentFeatureCannotBeChangedOrRead()
    {
        // Given a camera whose features carry a restriction and an error
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeWidget panel(QStringLiteral("TreeTest"), nullptr, nullptr, GenApi::Guru, false);
        panel.injectDeviceParameterService(m_service);
        panel.addParameterCollection(faulty, QStringLiteral("Camera"), kPrefix);
        auto locked = faulty->parameter(fullName(QStringLiteral("IntPlain")))->realDataCopy();
        locked->locked = true;
        locked->restriction = QStringLiteral("Locked while Exposure Auto is Continuous");
        faulty->parameter(fullName(QStringLiteral("IntPlain")))->publish(locked);
        auto failed = faulty->parameter(fullName(QStringLiteral("IntLog")))->realDataCopy();
        failed->readable = false;
        failed->value = QVariant();
        failed->errorText = QStringLiteral("timeout reading register 0x108");
        faulty->parameter(fullName(QStringLiteral("IntLog")))->publish(failed);
        QSignalSpy texts(&panel, &FeatureTreeWidget::onNewText);

        // When the user makes each the current feature, the status line says why
        panel.treeView()->setCurrentIndex(treeRow(panel, QStringLiteral("IntPlain")));
        QCOMPARE(texts.count(), 1);
        QCOMPARE(texts.last().at(0).toString(),
                 QStringLiteral("Plain Integer: Locked while Exposure Auto is Continuous"));
        panel.treeView()->setCurrentIndex(treeRow(panel, QStringLiteral("IntLog")));
        QCOMPARE(texts.count(), 2);
        QCOMPARE(texts.last().at(0).toString(),
                 QStringLiteral("IntLog: timeout reading register 0x108"));
        // And a feature with nothing to explain adds nothing
        panel.treeView()->setCurrentIndex(treeRow(panel, QStringLiteral("IntHex")));
        QCOMPARE(texts.count(), 2);
        // And a reason that comes while the feature is current is told once
        auto hexLocked = faulty->parameter(fullName(QStringLiteral("IntHex")))->realDataCopy();
        hexLocked->locked = true;
        hexLocked->restriction = QStringLiteral("Locked while Acquisition Mode is Continuous");
        faulty->parameter(fullName(QStringLiteral("IntHex")))->publish(hexLocked);
        QCOMPARE(texts.count(), 3);
        QVERIFY2(texts.last().at(0).toString().endsWith(
                     QStringLiteral(": Locked while Acquisition Mode is Continuous")),
                 qPrintable(texts.last().at(0).toString()));
        faulty->parameter(fullName(QStringLiteral("IntHex")))->publish(hexLocked);
        QCOMPARE(texts.count(), 3);
    }

    void shouldCopyAValueThatCouldNotBeReadAsItsReason()
    {
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeWidget panel(QStringLiteral("TreeTest"), nullptr, nullptr, GenApi::Guru, false);
        panel.addParameterCollection(faulty, QStringLiteral("Camera"), kPrefix);
        auto failed = faulty->parameter(fullName(QStringLiteral("IntLog")))->realDataCopy();
        failed->readable = false;
        failed->value = QVariant();
        failed->errorText = QStringLiteral("timeout reading register 0x108");
        faulty->parameter(fullName(QStringLiteral("IntLog")))->publish(failed);
        const QString text = panel.featuresAsText();
        QVERIFY2(text.contains(QStringLiteral("IntLog\ttimeout reading register 0x108\n")),
                 qPrintable(text));
    }

    void shouldLeaveAWriteTheDeviceRefusedLaterToTheHost()
    {
        // The host reports it once, with its kind; a panel repeating it would name it twice
        QSignalSpy texts(m_widget.get(), &FeatureTreeWidget::onNewText);
        Q_EMIT m_collection->writeFailed(fullName(QStringLiteral("IntPlain")), Exception::Access,
                                         QStringLiteral("access denied"));
        QCOMPARE(texts.count(), 0);
    }

    void shouldForgetEverythingOnClear()
    {
        selectTreeRow(QStringLiteral("IntPlain"));
        QVERIFY(!tableRows(*m_widget).isEmpty());
        m_widget->clear();
        QCOMPARE(m_widget->proxyModel()->rowCount(), 0);
        QVERIFY(tableRows(*m_widget).isEmpty());
        QVERIFY(m_widget->parameterCollections().isEmpty());
        QVERIFY(m_widget->featuresAsText().isEmpty());
    }

    // Copy

    void shouldCopyEveryFeatureInDocumentOrder()
    {
        // When the features are copied
        m_widget->copyToClipboard();
        // Then the clipboard holds a heading, then one line per category and feature,
        // indented by depth, with unit and value
        const QStringList expected{
            QStringLiteral("Camera from parameter collection tree"),
            QStringLiteral("  Controls"),
            QStringLiteral("    Plain Integer\t42"),
            QStringLiteral("    Linear Integer\t500"),
            QStringLiteral("    IntLog\t100"),
            QStringLiteral("    IntHex\t0xBEEF"),
            QStringLiteral("    Details"),
            QStringLiteral("      Plain Float [dB]\t12.5"),
            QStringLiteral("      Deeper"),
            QStringLiteral("        FloatLinear [dB]\t2"),
            QStringLiteral("        FloatLog [us]\t100"),
            QStringLiteral("    HiddenSub"),
            QStringLiteral("      SecretInt\t0"),
            QStringLiteral("  Kinds"),
            QStringLiteral("    Mode\tSwitched On"),
            QStringLiteral("    BoolFeat\tTrue"),
            QStringLiteral("    StrFeat\thello"),
            QStringLiteral("    CmdFeat\t"),
            QStringLiteral("    ReadOnlyInt\t7"),
            QStringLiteral("  States"),
            QStringLiteral("    NotImpl\t<not implemented>"),
            QStringLiteral("    NotAvail\t<not available>"),
            QStringLiteral("    WriteOnly\t<not readable>"),
            QStringLiteral("    AvailSwitch\t0"),
            QStringLiteral("  InvisibleCat"),
            QStringLiteral("    HiddenFeature\t0"),
            QStringLiteral("  Top Feature\t0"),
        };
        QCOMPARE(QApplication::clipboard()->text().split(QLatin1Char('\n')),
                 expected + QStringList{QString()});
    }

    void shouldCopyOneLinePerNodeOfEveryShownNodeMap()
    {
        // Given the built-in camera with two node maps shown and one kept back
        const auto camera = openSimulatedCamera();
        auto widget = std::make_unique<FeatureTreeWidget>(QStringLiteral("Simulated"), camera->info,
                                                          nullptr, GenApi::Guru, false);
        widget->addParameterCollection(camera->collection, QStringLiteral("Vanto VNT-SIM-2000"),
                                       kPrefix);
        widget->addParameterCollection(camera->collection, QStringLiteral("Stream Parameters"),
                                       QStringLiteral("@StreamGrabber0"));
        widget->addParameterCollection(camera->collection, QStringLiteral("Event Grabber"),
                                       QStringLiteral("@EventGrabber"), false);
        // When copied
        widget->copyToClipboard();
        // Then each shown node map has its heading and a line per node, with a blank line
        // between the node maps
        const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
        const int cameraNodes = countNodes(*camera->collection, kPrefix + QStringLiteral("/Root"));
        const int streamNodes =
            countNodes(*camera->collection, QStringLiteral("@StreamGrabber0/Root"));
        QVERIFY(cameraNodes > 300);
        QCOMPARE(lines.size(), 1 + cameraNodes + 1 + 1 + streamNodes + 1);
        const QString collectionName = camera->collection->getName();
        QCOMPARE(lines.first(),
                 QStringLiteral("Vanto VNT-SIM-2000 from parameter collection ") + collectionName);
        QCOMPARE(lines.at(cameraNodes + 1), QString());
        QCOMPARE(lines.at(cameraNodes + 2),
                 QStringLiteral("Stream Parameters from parameter collection ") + collectionName);
        QVERIFY(!lines.join(QLatin1Char('\n')).contains(QStringLiteral("Event Grabber")));
        const auto width = camera->collection->getParameter(fullName(QStringLiteral("Width")));
        QString widthLabel = width->getProperty(QStringLiteral("DisplayName"));
        if (!width->getProperty(QStringLiteral("Unit")).isEmpty()) {
            widthLabel += QStringLiteral(" [%1]").arg(width->getProperty(QStringLiteral("Unit")));
        }
        QVERIFY(lines
                    .filter(QRegularExpression(QStringLiteral("^ +%1\t%2$")
                                                   .arg(QRegularExpression::escape(widthLabel),
                                                        width->getParameterData()->displayText)))
                    .size() >= 1);
    }

    // Context menu

    void shouldOfferTheMovesInTheContextMenuOfAFeatureTab()
    {
        // Given a feature tab with a current row
        makeFeatureTab(
            {QStringLiteral("IntPlain"), QStringLiteral("IntLinear"), QStringLiteral("IntLog")});
        activate(m_widget.get());
        selectTableRow(1);
        QSignalSpy menus(m_widget.get(), &FeatureTreeWidget::contextMenuRequested);
        // When the user asks for the context menu on the table
        QWidget* viewport = m_widget->tableView()->viewport();
        const QPoint position(20, 10);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                viewport->mapToGlobal(position));
        QApplication::sendEvent(viewport, &event);
        // Then the owner gets a menu with the moves and a separator, and where to show it
        QCOMPARE(menus.count(), 1);
        QCOMPARE(menus.last().at(0).toPoint(), viewport->mapToGlobal(position));
        const auto menu = menus.last().at(1).value<QSharedPointer<QMenu>>();
        QVERIFY(menu);
        const QList<QAction*> actions = menu->actions();
        QCOMPARE(actions.size(), 3);
        QCOMPARE(actions.at(0), m_widget->moveFavouriteUpAction());
        QCOMPARE(actions.at(1), m_widget->moveFavouriteDownAction());
        QVERIFY(actions.at(2)->isSeparator());
    }

    void shouldLeaveTheTreeContextMenuToTheOwner()
    {
        activate(m_widget.get());
        QSignalSpy menus(m_widget.get(), &FeatureTreeWidget::contextMenuRequested);
        QWidget* viewport = m_widget->treeView()->viewport();
        const QPoint position(30, 12);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                viewport->mapToGlobal(position));
        QApplication::sendEvent(viewport, &event);
        QCOMPARE(menus.count(), 1);
        QCOMPARE(menus.last().at(0).toPoint(), viewport->mapToGlobal(position));
        QVERIFY(menus.last().at(1).value<QSharedPointer<QMenu>>()->actions().isEmpty());
    }

    // Fonts

    void shouldPassAFontChangeOnToEveryChildWidget()
    {
        // Given an editor open inside the tree, and other children
        activate(m_widget.get());
        m_widget->expandTree();
        QWidget* editor =
            m_widget->treeView()->indexWidget(treeRow(*m_widget, QStringLiteral("IntLinear"), 1));
        QVERIFY(editor);
        FontChangeCounter editorCounter;
        FontChangeCounter searchCounter;
        editor->installEventFilter(&editorCounter);
        filterEdit()->installEventFilter(&searchCounter);
        // When the widget alone is told of a font change
        QEvent change(QEvent::FontChange);
        QApplication::sendEvent(m_widget.get(), &change);
        // Then they hear of it too, and the views keep their own sizes
        QVERIFY(editorCounter.count >= 1);
        QVERIFY(searchCounter.count >= 1);
        QCOMPARE(filterEdit()->font().pointSize(), 8);
        QCOMPARE(m_widget->treeView()->font().pointSize(), 8);
    }

    // Pictures for the documentation, when asked for

    void screenshots()
    {
        const QString directory = QString::fromUtf8(qgetenv("NODESCOPE_SCREENSHOT_DIR"));
        if (directory.isEmpty()) {
            QSKIP("Set NODESCOPE_SCREENSHOT_DIR to write the widget's pictures.");
        }
        QVERIFY(QDir().mkpath(directory));
        const auto camera = openSimulatedCamera();
        const auto open = [&] {
            auto widget = std::make_unique<FeatureTreeWidget>(
                QStringLiteral("Simulated"), camera->info, nullptr, GenApi::Guru, false);
            widget->injectDeviceParameterService(m_service);
            for (const QString& nodeMap : camera->collection->getNodeMapNames()) {
                widget->addParameterCollection(camera->collection, nodeMapDisplayName(nodeMap),
                                               QLatin1Char('@') + nodeMap);
            }
            widget->resize(900, 700);
            widget->show();
            QCoreApplication::processEvents();
            return widget;
        };
        const auto save = [&](QWidget* widget, const QString& name) {
            QCoreApplication::processEvents();
            QVERIFY(widget->grab().save(QDir(directory).filePath(name)));
        };

        auto widget = open();
        widget->setUseCaseMap(useCaseMapFromSources());
        widget->expandTree();
        const QModelIndex acquisition = widget->proxyModel()->findItemByFullName(
            fullName(QStringLiteral("AcquisitionControl")), nullptr, 0);
        QVERIFY(acquisition.isValid());
        widget->treeView()->setCurrentIndex(acquisition);
        widget->treeView()->scrollTo(acquisition, QAbstractItemView::PositionAtTop);
        save(widget.get(), QStringLiteral("widget-guru.png"));

        auto* search = widget->findChild<SearchEdit*>(QStringLiteral("filterEdit"));
        search->setText(QStringLiteral("gain"));
        widget->treeView()->scrollTo(
            widget->proxyModel()->findItemByFullName(fullName(QStringLiteral("Gain")), nullptr, 0),
            QAbstractItemView::PositionAtCenter);
        save(widget.get(), QStringLiteral("widget-search-gain.png"));
        search->clear();

        auto* box = widget->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));
        box->setCurrentIndex(box->findText(QStringLiteral("Changing the resolution")));
        widget->treeView()->setCurrentIndex(widget->proxyModel()->findItemByFullName(
            fullName(QStringLiteral("Width")), nullptr, 0));
        save(widget.get(), QStringLiteral("widget-use-case.png"));
        widget.reset();

        auto tab = open();
        tab->setIsFilteredTreeWidget(true);
        tab->setParameterFilterList(parameterNames(
            {QStringLiteral("ExposureTime"), QStringLiteral("Gain"), QStringLiteral("Width"),
             QStringLiteral("Height"), QStringLiteral("PixelFormat"), QStringLiteral("BlackLevel"),
             QStringLiteral("DeviceUserID"), QStringLiteral("AcquisitionStart")}));
        QCOMPARE(tab->tableView()->model()->rowCount(), 8);
        tab->resize(900, 700);
        save(tab.get(), QStringLiteral("widget-filtered.png"));
    }
};

QTEST_MAIN(tst_FeatureTreeWidget)
#include "tst_featuretreewidget.moc"
