#include "testsupport.h"

#include "internal/legacy/checkboxeditor.h"
#include "internal/legacy/enumeditor.h"
#include "internal/legacy/featuretreedelegate.h"
#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/inteditor.h"
#include "internal/model/featuretablemodel.h"
#include "internal/view/featureoptionsmenu.h"
#include "internal/view/featuretableview.h"
#include "nodescoperesources.h"

#include <deviceparametercollection.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyleOptionButton>
#include <QtTest>

#include <memory>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::Model::CFeatureTableModel;
using Plugin::Nodescope::Internal::View::CFeatureTableView;

namespace {

QString fullName(const QString& feature)
{
    return QStringLiteral("@CameraDevice/") + feature;
}

QStringList fullNames(const QStringList& features)
{
    QStringList names;
    for (const QString& feature : features) {
        names << fullName(feature);
    }
    return names;
}

QStringList rowNames(const QAbstractItemModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names << model.index(row, 0).data(FeatureTreeItem::FullNameRole).toString();
    }
    return names;
}

// The view with what it keeps to itself opened up, and a record of the drags it starts.
class TableView : public CFeatureTableView {
public:
    using CFeatureTableView::viewOptions;

    QStringList dragTexts;
    QList<Qt::DropActions> dragActions;

protected:
    void startDrag(Qt::DropActions supportedActions) override
    {
        std::unique_ptr<QMimeData> mime(model()->mimeData(selectionModel()->selectedIndexes()));
        dragTexts << (mime ? mime->text() : QString());
        dragActions << supportedActions;
        // Offscreen, the drag itself ends at once without a drop.
        CFeatureTableView::startDrag(supportedActions);
    }
};

QPoint indicatorOf(QCheckBox* box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
}

} // namespace

class tst_FeatureTableView : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    std::unique_ptr<FeatureTreeModel> m_tree;
    std::unique_ptr<TableView> m_view;

    CFeatureTableModel* model() const { return m_view->getFeatureTableModel(); }
    FeatureTreeProxyModel* proxy() const { return m_view->getProxyModel(); }

    QList<QObject*> items(const QStringList& features) const
    {
        QList<QObject*> list;
        for (const QString& feature : features) {
            list << m_tree->getFeatureTreeItem(
                m_tree->findItemByFullName(fullName(feature), nullptr, 0));
        }
        return list;
    }
    void show(const QStringList& features)
    {
        proxy()->addParameterCollection(items(features), false);
    }
    // The view's own index of a feature's cell.
    QModelIndex cell(const QString& feature, int column) const
    {
        return proxy()->findItemByFullName(fullName(feature), nullptr, column);
    }
    QWidget* editorOf(const QString& feature) const
    {
        return m_view->indexWidget(cell(feature, 1));
    }
    QStringList featuresWithEditors() const
    {
        QStringList names;
        for (int row = 0; row < proxy()->rowCount(); ++row) {
            if (m_view->indexWidget(proxy()->index(row, 1))) {
                names << proxy()->index(row, 0).data(FeatureTreeItem::TechnicalNameRole).toString();
            }
            if (m_view->indexWidget(proxy()->index(row, 0))) {
                names << QStringLiteral("name column!");
            }
        }
        return names;
    }
    // A drag of `text` over the viewport to `position`, let go there. A drag from outside the
    // view: offscreen there is no platform drag to carry one started by the view.
    bool dropAt(const QString& text, const QPoint& position)
    {
        QMimeData mime;
        mime.setText(text);
        QWidget* viewport = m_view->viewport();
        QDragEnterEvent enter(position, Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(position, Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        if (!move.isAccepted()) {
            QDragLeaveEvent leave;
            QApplication::sendEvent(viewport, &leave);
            return false;
        }
        QDropEvent drop(position, Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &drop);
        return drop.isAccepted();
    }
    void mouseDragRow(int row)
    {
        QWidget* viewport = m_view->viewport();
        const QPoint start = m_view->visualRect(proxy()->index(row, 0)).center();
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, start);
        const int distance = QApplication::startDragDistance() + 4;
        for (const QPoint& position :
             {start + QPoint(distance, 0), start + QPoint(2 * distance, 0)}) {
            QMouseEvent move(QEvent::MouseMove, position, viewport->mapToGlobal(position),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &move);
        }
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier,
                            start + QPoint(2 * distance, 0));
    }

private Q_SLOTS:
    void initTestCase() { Plugin::Nodescope::initNodescopeResources(); }

    void init()
    {
        m_collection = openTestDescription(QStringLiteral("tree"));
        m_tree = std::make_unique<FeatureTreeModel>();
        m_tree->addParameterCollection(m_collection, QStringLiteral("Camera"),
                                       QStringLiteral("@CameraDevice"), false);
        m_view = std::make_unique<TableView>();
        testModelStrictly(model());
        testModelStrictly(proxy());
        m_view->resize(460, 320);
        m_view->horizontalHeader()->resizeSection(0, 170);
    }

    void cleanup()
    {
        m_view.reset();
        m_tree.reset();
        m_collection.reset();
    }

    void shouldStartConnectedAtGuruLevelOverItsOwnTableModel()
    {
        QVERIFY(m_view->isConnectedToTreeView());
        QCOMPARE(m_view->getVisibility(), GenApi::Guru);
        QCOMPARE(m_view->font().pointSize(), 8);
        QCOMPARE(m_view->palette().brush(QPalette::Disabled, QPalette::Base),
                 m_view->palette().brush(QPalette::Active, QPalette::Base));
        // The view shows a filtering proxy over a table model, both its own
        QCOMPARE(m_view->model(), static_cast<QAbstractItemModel*>(proxy()));
        QCOMPARE(proxy()->sourceModel(), static_cast<QAbstractItemModel*>(model()));
        QCOMPARE(proxy()->getFeatureTableModel(), model());
        QCOMPARE(m_view->getFeatureExtension(), static_cast<IFeatureTreeModelExtension*>(model()));
        QCOMPARE(model()->QObject::parent(), m_view.get());
        QCOMPARE(proxy()->QObject::parent(), m_view.get());
        QVERIFY(!proxy()->dynamicSortFilter());
        QCOMPARE(proxy()->filterCaseSensitivity(), Qt::CaseInsensitive);
        QCOMPARE(proxy()->filterKeyColumn(), 1);
        QVERIFY(qobject_cast<FeatureTreeDelegate*>(m_view->itemDelegate()));
        QCOMPARE(model()->highlighter(), m_view->getHighlighter());
        QCOMPARE(m_view->model()->headerData(0, Qt::Horizontal).toString(),
                 QStringLiteral("Feature"));
        QCOMPARE(m_view->contextMenuPolicy(), Qt::CustomContextMenu);
    }

    void shouldOnlyDragOutWhileConnectedAndReorderWhenFreeStanding()
    {
        // Beside the tree, features are dragged out into the feature tab editor, nothing more
        QCOMPARE(m_view->dragDropMode(), QAbstractItemView::DragOnly);
        QVERIFY(m_view->dragEnabled());
        QVERIFY(!m_view->acceptDrops());
        // As a feature tab of its own the rows are reordered by dragging them onto each other
        m_view->setIsConnectedToTreeView(false);
        QVERIFY(!m_view->isConnectedToTreeView());
        QCOMPARE(m_view->dragDropMode(), QAbstractItemView::InternalMove);
        QVERIFY(m_view->dragEnabled());
        QVERIFY(m_view->acceptDrops());
        QVERIFY(m_view->showDropIndicator());
        QCOMPARE(m_view->defaultDropAction(), Qt::MoveAction);
        // and back
        m_view->setIsConnectedToTreeView(true);
        QCOMPARE(m_view->dragDropMode(), QAbstractItemView::DragOnly);
        QVERIFY(!m_view->acceptDrops());
    }

    void shouldOnlyStoreTheFlagOverAnotherModel()
    {
        QStandardItemModel other(2, 2);
        m_view->setModel(&other);
        m_view->setIsConnectedToTreeView(false);
        QVERIFY(!m_view->isConnectedToTreeView());
        QCOMPARE(m_view->dragDropMode(), QAbstractItemView::DragOnly);
        QVERIFY(!m_view->acceptDrops());
        m_view->setModel(proxy());
    }

    void shouldOpenPersistentEditorsForNewRows()
    {
        // Given features of every kind
        show({"IntPlain", "IntLinear", "FloatPlain", "EnumFeat", "BoolFeat", "StrFeat", "CmdFeat"});
        // Then sliders, floats, enumerations, booleans and commands have their editors open;
        // plain integers and strings open theirs when edited; names never get one
        QCOMPARE(featuresWithEditors(),
                 (QStringList{"IntLinear", "FloatPlain", "EnumFeat", "BoolFeat", "CmdFeat"}));
        QVERIFY(qobject_cast<EnumEditor*>(editorOf("EnumFeat")));
        QVERIFY(qobject_cast<CheckBoxEditor*>(editorOf("BoolFeat")));
        // A second list gets its own editors
        show({"EnumFeat", "IntPlain", "BoolFeat"});
        QCOMPARE(featuresWithEditors(), (QStringList{"EnumFeat", "BoolFeat"}));
    }

    void shouldCloseEditorsBeforeTheirRowsAreRemoved()
    {
        show({"IntLinear", "EnumFeat", "BoolFeat"});
        QList<QPointer<QWidget>> editors;
        for (const QString& feature : QStringList{"IntLinear", "EnumFeat", "BoolFeat"}) {
            editors << editorOf(feature);
            QVERIFY(editors.last());
        }
        // Record what is still open when the view hears that rows are about to go
        QStringList openWhenRemoved;
        connect(proxy(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
                [&](const QModelIndex& parent, int first, int last) {
                    for (int row = first; row <= last; ++row) {
                        if (m_view->indexWidget(proxy()->index(row, 1, parent))) {
                            openWhenRemoved << proxy()->index(row, 0, parent).data().toString();
                        }
                    }
                });
        // When the list is replaced by an empty one
        show({});
        // Then every editor was closed before its row went, and is deleted
        QVERIFY(openWhenRemoved.isEmpty());
        QCOMPARE(proxy()->rowCount(), 0);
        for (const QPointer<QWidget>& editor : qAsConst(editors)) {
            QTRY_VERIFY(!editor);
        }
    }

    void shouldCloseTheEditorOfARowWhoseItemTheTreeDeletes()
    {
        show({"IntLinear", "EnumFeat", "BoolFeat"});
        QPointer<QWidget> enumEditor = editorOf("EnumFeat");
        QVERIFY(enumEditor);
        // When the tree deletes EnumFeat's item
        FeatureTreeItem* kinds =
            m_tree->getFeatureTreeItem(m_tree->findItemByFullName(fullName("Kinds"), nullptr, 0));
        kinds->removeChild(m_tree->findItemByFullName(fullName("EnumFeat"), nullptr, 0).row());
        // Then its row and editor go, the others stay in place
        QCOMPARE(rowNames(*proxy()), fullNames({"IntLinear", "BoolFeat"}));
        QTRY_VERIFY(!enumEditor);
        QCOMPARE(featuresWithEditors(), (QStringList{"IntLinear", "BoolFeat"}));
        QVERIFY(qobject_cast<CheckBoxEditor*>(editorOf("BoolFeat")));
    }

    void shouldGiveRowsBackTheirEditorsAfterALevelChange()
    {
        // FloatPlain is an Expert feature, the others Beginner ones
        show({"IntLinear", "FloatPlain", "EnumFeat"});
        m_view->setVisibility(GenApi::Beginner);
        QCOMPARE(m_view->getVisibility(), GenApi::Beginner);
        QCOMPARE(proxy()->getVisibility(), GenApi::Beginner);
        QCOMPARE(rowNames(*proxy()), fullNames({"IntLinear", "EnumFeat"}));
        QCOMPARE(featuresWithEditors(), (QStringList{"IntLinear", "EnumFeat"}));
        m_view->setVisibility(GenApi::Guru);
        QCOMPARE(rowNames(*proxy()), fullNames({"IntLinear", "FloatPlain", "EnumFeat"}));
        QCOMPARE(featuresWithEditors(), (QStringList{"IntLinear", "FloatPlain", "EnumFeat"}));
    }

    void shouldKeepEditorsWithTheirRowsWhenRowsMove()
    {
        show({"IntPlain", "EnumFeat", "BoolFeat"});
        QSignalSpy order(m_view.get(), &CFeatureTableView::orderOfTableItemsChanged);
        QWidget* enumEditor = editorOf("EnumFeat");
        // When EnumFeat moves down, as the widget's Move Down action does
        QVERIFY(model()->moveFavorite(model()->index(1, 0), model()->index(2, 0), false));
        // Then the view tells, and the editor moved with its row
        QCOMPARE(order.count(), 1);
        QCOMPARE(order.at(0).at(0).toInt(), 1);
        QCOMPARE(order.at(0).at(1).toInt(), 2);
        QCOMPARE(rowNames(*proxy()), fullNames({"IntPlain", "BoolFeat", "EnumFeat"}));
        QCOMPARE(m_view->indexWidget(proxy()->index(2, 1)), enumEditor);
        QVERIFY(qobject_cast<CheckBoxEditor*>(m_view->indexWidget(proxy()->index(1, 1))));
        QCOMPARE(featuresWithEditors(), (QStringList{"BoolFeat", "EnumFeat"}));
    }

    void shouldReportTheCurrentRow()
    {
        show({"IntPlain", "EnumFeat"});
        QSignalSpy current(m_view.get(), &CFeatureTableView::onCurrentChanged);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          m_view->visualRect(proxy()->index(1, 0)).center());
        QCOMPARE(current.count(), 1);
        QCOMPARE(current.at(0).at(0).value<QModelIndex>(), proxy()->index(1, 0));
        QCOMPARE(m_view->selectionModel()->selectedRows(), QModelIndexList{proxy()->index(1, 0)});
    }

    void shouldAskForAContextMenuWhereTheUserClicked()
    {
        show({"IntPlain"});
        QSignalSpy requested(m_view.get(), &CFeatureTableView::contextualMenuRequested);
        const QPoint position(30, 8);
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                m_view->viewport()->mapToGlobal(position));
        QApplication::sendEvent(m_view->viewport(), &event);
        QCOMPARE(requested.count(), 1);
        QCOMPARE(requested.at(0).at(0).toPoint(), position);
    }

    void shouldMakeTheSelectionInvisibleAsAFill()
    {
        const QStyleOptionViewItem option = m_view->viewOptions();
        const QPalette& palette = option.palette;
        for (const QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(palette.color(group, QPalette::Highlight), QColor(0, 0, 0, 0));
            QCOMPARE(palette.color(group, QPalette::Highlight).alpha(), 0);
        }
        // Selected text is half transparent while the view is active, plain text otherwise
        QColor activeText = palette.color(QPalette::Active, QPalette::Text);
        activeText.setAlpha(128);
        QCOMPARE(palette.color(QPalette::Active, QPalette::HighlightedText), activeText);
        QCOMPARE(palette.color(QPalette::Inactive, QPalette::HighlightedText),
                 palette.color(QPalette::Inactive, QPalette::Text));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::HighlightedText),
                 palette.color(QPalette::Disabled, QPalette::Text));
    }

    void shouldDrawASelectedRowWithoutAFill()
    {
        show({"IntPlain", "StrFeat"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        // A point of the name cell right of its text
        const QRect name = m_view->visualRect(proxy()->index(0, 0));
        const QPoint blank(name.right() - 4, name.center().y());
        const QColor before = m_view->viewport()->grab().toImage().pixelColor(blank);
        m_view->selectRow(0);
        QVERIFY(m_view->selectionModel()->isRowSelected(0, QModelIndex()));
        const QColor after = m_view->viewport()->grab().toImage().pixelColor(blank);
        QCOMPARE(after, before);
        QVERIFY(after != m_view->palette().color(QPalette::Active, QPalette::Highlight));
    }

    void shouldStartADragOfTheRowsFullNameWhenTheMouseDragsARow()
    {
        show({"IntPlain", "StrFeat", "ReadOnlyInt"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        // Beside the tree, towards the feature tab editor
        mouseDragRow(1);
        QCOMPARE(m_view->dragTexts, QStringList{fullName("StrFeat")});
        QCOMPARE(m_view->dragActions.last(), Qt::DropActions(Qt::MoveAction));
        // and as a free-standing feature tab
        m_view->setIsConnectedToTreeView(false);
        mouseDragRow(2);
        QCOMPARE(m_view->dragTexts, fullNames({"StrFeat", "ReadOnlyInt"}));
        // An offscreen drag ends without a drop: the order and the rows' values stay
        QCOMPARE(rowNames(*proxy()), fullNames({"IntPlain", "StrFeat", "ReadOnlyInt"}));
        QCOMPARE(cell("StrFeat", 1).data().toString(), QStringLiteral("hello"));
    }

    void shouldMoveARowDroppedOntoAnotherRowsName()
    {
        show({"IntPlain", "StrFeat", "ReadOnlyInt", "EnumFeat"});
        m_view->setIsConnectedToTreeView(false);
        // Drops from outside stand in for the view's own drag, which offscreen cannot carry;
        // a free-standing feature tab takes only its own drags, so let others in for the test
        m_view->setDragDropMode(QAbstractItemView::DragDrop);
        QSignalSpy order(m_view.get(), &CFeatureTableView::orderOfTableItemsChanged);
        QSignalSpy moved(model(), &QAbstractItemModel::rowsMoved);
        // When IntPlain is dropped onto ReadOnlyInt's name
        QVERIFY(dropAt(fullName("IntPlain"), m_view->visualRect(cell("ReadOnlyInt", 0)).center()));
        // Then it takes that place
        QCOMPARE(rowNames(*proxy()), fullNames({"StrFeat", "ReadOnlyInt", "IntPlain", "EnumFeat"}));
        QCOMPARE(order.count(), 1);
        QCOMPARE(order.at(0).at(0).toInt(), 0);
        QCOMPARE(order.at(0).at(1).toInt(), 2);
        QCOMPARE(moved.count(), 1);
    }

    void shouldTakeADropOnAValueCellAsOnTheRowsName()
    {
        show({"IntPlain", "StrFeat", "ReadOnlyInt"});
        m_view->setIsConnectedToTreeView(false);
        m_view->setDragDropMode(QAbstractItemView::DragDrop);
        QSignalSpy order(m_view.get(), &CFeatureTableView::orderOfTableItemsChanged);
        QVERIFY(dropAt(fullName("ReadOnlyInt"), m_view->visualRect(cell("IntPlain", 1)).center()));
        QCOMPARE(rowNames(*proxy()), fullNames({"ReadOnlyInt", "IntPlain", "StrFeat"}));
        QCOMPARE(order.count(), 1);
        QCOMPARE(order.at(0).at(0).toInt(), 2);
        QCOMPARE(order.at(0).at(1).toInt(), 0);
    }

    void shouldRefuseDropsItCannotPlace()
    {
        show({"IntPlain", "StrFeat", "ReadOnlyInt"});
        m_view->setIsConnectedToTreeView(false);
        m_view->setDragDropMode(QAbstractItemView::DragDrop);
        QSignalSpy order(m_view.get(), &CFeatureTableView::orderOfTableItemsChanged);
        MessageCapture log;
        const QPoint strName = m_view->visualRect(cell("StrFeat", 0)).center();
        // An unknown feature, the row onto itself, and empty space below the rows
        QVERIFY(!dropAt(fullName("EnumFeat"), strName));
        QVERIFY(!dropAt(fullName("StrFeat"), strName));
        QVERIFY(!dropAt(fullName("IntPlain"), QPoint(20, m_view->viewport()->height() - 4)));
        QCOMPARE(order.count(), 0);
        QVERIFY(log.lines().isEmpty());
        QCOMPARE(rowNames(*proxy()), fullNames({"IntPlain", "StrFeat", "ReadOnlyInt"}));
    }

    void shouldRefuseDropsFromOutsideAFreeStandingFeatureTab()
    {
        show({"IntPlain", "StrFeat", "ReadOnlyInt"});
        m_view->setIsConnectedToTreeView(false);
        QSignalSpy order(m_view.get(), &CFeatureTableView::orderOfTableItemsChanged);
        // A drag that did not start in this view is no reordering
        QVERIFY(!dropAt(fullName("IntPlain"), m_view->visualRect(cell("ReadOnlyInt", 0)).center()));
        QCOMPARE(order.count(), 0);
        QCOMPARE(rowNames(*proxy()), fullNames({"IntPlain", "StrFeat", "ReadOnlyInt"}));
    }

    void shouldWriteABooleanClickedInItsEditor()
    {
        show({"IntPlain", "BoolFeat"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        auto* box = qobject_cast<CheckBoxEditor*>(editorOf("BoolFeat"));
        QVERIFY(box);
        QVERIFY(box->isChecked());
        // When the user clicks the box
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, indicatorOf(box));
        m_collection->waitForDevice();
        // Then the camera's feature is off and the row follows
        QVERIFY(
            !m_collection->getParameter(fullName("BoolFeat"))->getParameterData()->value.toBool());
        QTRY_VERIFY(!box->isChecked());
    }

    void shouldWriteAPlainIntegerTypedIntoItsCell()
    {
        show({"IntPlain", "BoolFeat"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        // When the user clicks the value (every trigger edits), types a number and presses Enter
        const QRect value = m_view->visualRect(cell("IntPlain", 1));
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, value.center());
        auto* editor = qobject_cast<IntEditor*>(m_view->indexWidget(cell("IntPlain", 1)));
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("77"));
        QCOMPARE(
            m_collection->getParameter(fullName("IntPlain"))->getParameterData()->value.toInt(),
            42);
        QTest::keyClick(editor, Qt::Key_Return);
        // Then the editor closes, the camera has the number and the cell shows it
        QTRY_VERIFY(!m_view->indexWidget(cell("IntPlain", 1)));
        m_collection->waitForDevice();
        QCOMPARE(
            m_collection->getParameter(fullName("IntPlain"))->getParameterData()->value.toInt(),
            77);
        QTRY_COMPARE(cell("IntPlain", 1).data().toString(), QStringLiteral("77"));
    }

    void shouldMarkSearchMatchesInNamesWithTheViewsHighlighter()
    {
        show({"IntPlain", "StrFeat"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        const QRect name = m_view->visualRect(cell("IntPlain", 0));
        const auto marked = [&] {
            const QImage image = m_view->viewport()->grab().toImage();
            for (int x = name.left(); x <= name.right(); ++x) {
                if (image.pixelColor(x, name.center().y()) == SEARCH_HIGHLIGHT_COLOR) {
                    return true;
                }
            }
            return false;
        };
        QVERIFY(!marked());
        // "Plain Integer" is the row's displayed name
        m_view->getHighlighter()->setTextToHighlight(QStringLiteral("plain"));
        QVERIFY(marked());
    }

    void shouldRenderFeaturesWithTheirEditors()
    {
        show({"IntPlain", "IntLinear", "FloatPlain", "FloatLog", "EnumFeat", "BoolFeat", "StrFeat",
              "CmdFeat", "ReadOnlyInt"});
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        m_view->selectRow(4);
        QCoreApplication::processEvents();
        const QPixmap shot = m_view->grab();
        QVERIFY(!shot.isNull());
        QVERIFY(shot.save(QStringLiteral("/tmp/featuretableview.png")));
        QCOMPARE(featuresWithEditors(), (QStringList{"IntLinear", "FloatPlain", "FloatLog",
                                                     "EnumFeat", "BoolFeat", "CmdFeat"}));
        for (const QString& feature : QStringList{"IntLinear", "EnumFeat", "CmdFeat"}) {
            QWidget* editor = editorOf(feature);
            QVERIFY(editor->isVisible());
            QVERIFY(m_view->visualRect(cell(feature, 1)).contains(editor->geometry().center()));
        }
    }

    void shouldNameItselfInItsDragsAsTheOptionsMenuRequires()
    {
        // Given the table as the feature tree widget's form names it
        show({QStringLiteral("IntPlain"), QStringLiteral("FloatPlain")});
        m_view->setObjectName(QString::fromLatin1(
            Plugin::Nodescope::Internal::View::CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME));
        // When a row is dragged
        std::unique_ptr<QMimeData> data(model()->mimeData({model()->index(1, 0)}));
        // Then the drag carries the feature's full name and names the table as its source,
        // which is what the options menu's drop area accepts
        QCOMPARE(data->text(), fullName(QStringLiteral("FloatPlain")));
        QCOMPARE(
            data->data(QString::fromLatin1(
                Plugin::Nodescope::Internal::View::CFeatureOptionsMenu::DRAG_SOURCE_MIME_TYPE)),
            QByteArray(
                Plugin::Nodescope::Internal::View::CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME));
        // while an unnamed table's drags name no source
        m_view->setObjectName(QString());
        std::unique_ptr<QMimeData> anonymous(model()->mimeData({model()->index(0, 0)}));
        QVERIFY(!anonymous->hasFormat(QString::fromLatin1(
            Plugin::Nodescope::Internal::View::CFeatureOptionsMenu::DRAG_SOURCE_MIME_TYPE)));
    }
};

QTEST_MAIN(tst_FeatureTableView)
#include "tst_featuretableview.moc"
