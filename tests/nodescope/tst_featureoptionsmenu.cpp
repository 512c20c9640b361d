#include "testsupport.h"
#include "faultycollection.h"

#include "displaynamecache.h"
#include "internal/view/featureoptionsmenu.h"
#include "internal/view/standardiconprovider.h"
#include "nodescopeqmltypes.h"
#include "nodescoperesources.h"

#include <QApplication>
#include <QMimeData>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::CDisplayNameCache;
using Plugin::Nodescope::Internal::View::CFeatureOptionsMenu;
using Plugin::Nodescope::Internal::View::CStandardIconProvider;

namespace {

const QUrl kSceneUrl(QStringLiteral("qrc:/nodescope/featuretreeoptionmenu.qml"));
const QString kExposureTime = QStringLiteral("@CameraDevice/ExposureTime");
const QString kGain = QStringLiteral("@CameraDevice/Gain");
const QString kWidth = QStringLiteral("@CameraDevice/Width");

QList<ParameterName> names(const QStringList& fullNames)
{
    QList<ParameterName> result;
    for (const QString& fullName : fullNames) {
        result.append(ParameterName(fullName));
    }
    return result;
}

QStringList fullNamesOf(const CFeatureOptionsMenu& menu, int tab)
{
    QList<ParameterName> list;
    menu.getParameterNameList(tab, list);
    QStringList result;
    for (const ParameterName& name : list) {
        result.append(name.toString());
    }
    return result;
}

// "display name=full name" per entry of one tab, as the scene reads them.
QStringList entriesOf(const CFeatureOptionsMenu& menu, int tab)
{
    QStringList result;
    const QVariantList tabEntries = menu.getFeatureLists().at(tab).toList();
    for (const QVariant& entry : tabEntries) {
        const QVariantMap map = entry.toMap();
        result.append(map.value(QStringLiteral("name")).toString() + QLatin1Char('=') +
                      map.value(QStringLiteral("fullName")).toString());
    }
    return result;
}

// The feature table's drag: the full name as text, and the table named as the source.
std::unique_ptr<QMimeData> tableDrag(const QString& fullName)
{
    auto data = std::make_unique<QMimeData>();
    data->setText(fullName);
    data->setData(QString::fromLatin1(CFeatureOptionsMenu::DRAG_SOURCE_MIME_TYPE),
                  QByteArray(CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME));
    return data;
}

QPoint centerOf(const QQuickItem* item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

// A drag that enters the window at `target` and is dropped there, as the platform delivers
// an external drag: QML sees the mime data, but no source object.
// The feature table's drags offer moves only. Returns the action taken, Qt::IgnoreAction when
// the drop was refused.
Qt::DropAction dragAndDrop(QQuickWindow* window, const QQuickItem* target, const QMimeData* data,
                           Qt::DropActions actions = Qt::MoveAction)
{
    const QPoint pos = centerOf(target);
    QDragEnterEvent enter(pos, actions, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop(pos, actions, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

void collect(QQuickItem* item, QList<QQuickItem*>& items)
{
    if (!item) {
        return;
    }
    items.append(item);
    const auto children = item->childItems();
    for (QQuickItem* child : children) {
        collect(child, items);
    }
}

QQuickItem* findIn(QQuickItem* root, const QString& objectName)
{
    QList<QQuickItem*> items;
    collect(root, items);
    for (QQuickItem* item : qAsConst(items)) {
        if (item->objectName() == objectName) {
            return item;
        }
    }
    return nullptr;
}

// Stands for the widget that owns the editor: it reads the menu when the scene reports.
class Owner : public QObject {
    Q_OBJECT
public:
    explicit Owner(CFeatureOptionsMenu* menu) : m_menu(menu) {}
    QStringList seen;

public Q_SLOTS:
    void onAddFeature(int tab, const QString&)
    {
        seen << QString::number(tab) + QStringLiteral(": ") +
                    fullNamesOf(*m_menu, tab).join(QLatin1Char(','));
    }
    void onRemove(int tab)
    {
        seen << QStringLiteral("%1 named \"%2\"").arg(tab).arg(m_menu->getUserTabNames().at(tab));
    }

private:
    CFeatureOptionsMenu* m_menu; // not owned
};

// The editor scene in its own window, the way the plug-in shows it.
class Scene {
public:
    Scene()
    {
        view.engine()->addImageProvider(QLatin1String(CStandardIconProvider::PROVIDER_ID),
                                        new CStandardIconProvider);
        view.setSource(kSceneUrl);
        view.resize(350, 440);
        menu = qobject_cast<CFeatureOptionsMenu*>(view.rootObject());
    }

    bool show()
    {
        view.show();
        view.requestActivate();
        return QTest::qWaitForWindowActive(&view);
    }

    // Repeated items are not QObject children of the scene, so walk the visual tree.
    QQuickItem* find(const QString& objectName) const
    {
        return findIn(view.rootObject(), objectName);
    }

    void click(const QQuickItem* item)
    {
        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, centerOf(item));
    }

    void typeText(const QString& text)
    {
        for (const QChar c : text) {
            QTest::keyClick(&view, c.toLatin1());
        }
    }

    int chipCount() const
    {
        QList<QQuickItem*> items;
        collect(view.rootObject(), items);
        int count = 0;
        for (const QQuickItem* item : qAsConst(items)) {
            if (item->objectName().startsWith(QLatin1String("feature:")) && item->isVisible()) {
                ++count;
            }
        }
        return count;
    }

    QQuickView view;
    CFeatureOptionsMenu* menu = nullptr;
};

} // namespace

class tst_FeatureOptionsMenu : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    // The menu item's data.
    void shouldStartWithFourUnnamedTabsAndNoSelection();
    void shouldOfferTheBundledIcons();
    void shouldAppendAddedFeatureAndNotifyItsTab();
    void shouldKeepOneEntryWhenTheSameFeatureIsAddedTwice();
    void shouldTellFullNamesApartByCase();
    void shouldIgnoreAddingAndRemovingWithoutCollection();
    void shouldRemoveFeatureAndNotifyItsTab();
    void shouldIgnoreRemovingAFeatureTheTabLacks();
    void shouldKeepTheFirstNameAsSavedCopy();
    void shouldSaveThePreviousNameOnLaterRenaming();
    void shouldRenameThroughOnNameChanged();
    void shouldRemoveTabByEmptyingItsName();
    void shouldLeaveRemovedTabUnnamedAndSkipItOnSelectionReset();
    void shouldSelectTab0FromTab2ThenTheFirstNamedTab();
    void shouldKeepTab0WhenNoTabIsNamed();
    void shouldSelectTab0WhenNothingIsSelected();
    void shouldRestoreSavedNamesAndListsOnReset();
    void shouldLoadAndReadATabsFeatures();
    void shouldChangeSelectionOnlyToValidTabs();
    void shouldIgnoreTabsOutOfRange();
    void shouldResolveDisplayNamesThroughTheCollection();
    void shouldFallBackToCachedDisplayNameAndFeatureName();
    void shouldSkipFeaturesWhoseDisplayNameCannotBeRead();
    void shouldRefreshEveryTabWhenTheCollectionChanges();

    // The scene.
    void shouldLoadSceneWithTheMenuAsRoot();
    void shouldShowTitleAndDropHint();
    void shouldFillTheViewWhateverItsSize();
    void shouldEmitHideFromTheCloseButton();
    void shouldSelectATabWhenItsRowIsClicked();
    void shouldEmitNameChangedWhenATabNameIsEdited();
    void shouldRestoreEditedNameShownOnReset();
    void shouldEmitRemoveFromATabsRemoveButton();
    void shouldAddFeatureDroppedFromTheFeatureTable();
    void shouldTakeACopyWhereTheDragAllowsIt();
    void shouldApplyEditsBeforeTheOwnerHearsOfThem();
    void shouldAddNothingFromOtherSourcesOrWithoutSelectedTab_data();
    void shouldAddNothingFromOtherSourcesOrWithoutSelectedTab();
    void shouldShowChipsOfTheSelectedTab();
    void shouldEmitRemoveFeatureFromAChipsRemoveButton();
    void shouldTakeTheChipsRemoveIconFromTheStandardIcons();
    void shouldGreyOutTheDropAreaUntilANamedTabIsSelected();
    void shouldLimitTheFeatureAreaTo55Of440OfTheHeight();
    void shouldEmitAddFromOkWhenATabIsSelected();
    void shouldEmitCancelFromOkWithoutSelectedTab();
    void shouldEmitCancelFromCancel();
    void shouldRenderACleanDialog();

private:
    std::unique_ptr<SimulatedCamera> m_camera;
};

void tst_FeatureOptionsMenu::initTestCase()
{
    Plugin::Nodescope::initNodescopeResources();
    Plugin::Nodescope::registerNodescopeQmlTypes();
    m_camera = openSimulatedCamera();
    QVERIFY(m_camera->collection);
    QVERIFY(m_camera->collection->getParameter(kExposureTime));
}

void tst_FeatureOptionsMenu::shouldStartWithFourUnnamedTabsAndNoSelection()
{
    CFeatureOptionsMenu menu;
    QCOMPARE(menu.getUserTabNames(), QStringList({QString(), QString(), QString(), QString()}));
    QCOMPARE(menu.getUserTabIndex(), -1);
    QCOMPARE(menu.property("supportedUserTabCount").toInt(), 4);
    QCOMPARE(menu.property("defaultWindowHeight").toInt(), 440);
    QCOMPARE(menu.getFeatureLists().size(), 4);
    for (int tab = 0; tab < 4; ++tab) {
        QVERIFY(fullNamesOf(menu, tab).isEmpty());
    }
}

void tst_FeatureOptionsMenu::shouldOfferTheBundledIcons()
{
    CFeatureOptionsMenu menu;
    const QStringList urls = {menu.property("deleteIconUrl").toString(),
                              menu.property("deleteIconDisabledUrl").toString(),
                              menu.property("dragHandIconUrl").toString(),
                              menu.property("dragHandIconDisabledUrl").toString()};
    QCOMPARE(urls, QStringList({QStringLiteral("qrc:/nodescope/icons/trashcan.svg"),
                                QStringLiteral("qrc:/nodescope/icons/trashcan_dis.svg"),
                                QStringLiteral("qrc:/nodescope/icons/dragndrop.svg"),
                                QStringLiteral("qrc:/nodescope/icons/dragndrop_dis.svg")}));
    for (const QString& url : urls) {
        QVERIFY2(QFile::exists(url.mid(3)), qPrintable(url));
    }

    QSignalSpy changed(&menu, &CFeatureOptionsMenu::dragHandIconUrlChanged);
    menu.setDragHandIconUrl(QStringLiteral("qrc:/other.svg"));
    menu.setDragHandIconUrl(QStringLiteral("qrc:/other.svg"));
    QCOMPARE(changed.count(), 1);
}

void tst_FeatureOptionsMenu::shouldAppendAddedFeatureAndNotifyItsTab()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    QSignalSpy changed(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onAddFeature(1, kExposureTime);
    menu.onAddFeature(1, kGain);

    QCOMPARE(fullNamesOf(menu, 1), QStringList({kExposureTime, kGain}));
    QVERIFY(fullNamesOf(menu, 0).isEmpty());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).at(0).toInt(), 1);
    QCOMPARE(changed.at(1).at(0).toInt(), 1);
}

void tst_FeatureOptionsMenu::shouldKeepOneEntryWhenTheSameFeatureIsAddedTwice()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    QSignalSpy changed(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onAddFeature(0, kExposureTime);
    menu.onAddFeature(0, kExposureTime);

    QCOMPARE(fullNamesOf(menu, 0), QStringList({kExposureTime}));
    QCOMPARE(entriesOf(menu, 0), QStringList({QStringLiteral("Exposure Time=") + kExposureTime}));
    QCOMPARE(changed.count(), 1);
}

void tst_FeatureOptionsMenu::shouldTellFullNamesApartByCase()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    const QString lowerCase = QStringLiteral("@CameraDevice/exposuretime");

    menu.onAddFeature(0, kExposureTime);
    menu.onAddFeature(0, lowerCase);
    QCOMPARE(fullNamesOf(menu, 0), QStringList({kExposureTime, lowerCase}));

    menu.onRemoveFeature(0, lowerCase);
    QCOMPARE(fullNamesOf(menu, 0), QStringList({kExposureTime}));
}

void tst_FeatureOptionsMenu::shouldIgnoreAddingAndRemovingWithoutCollection()
{
    CFeatureOptionsMenu menu;
    menu.setParameterNameList(0, names({kGain}));
    QSignalSpy changed(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onAddFeature(0, kExposureTime);
    menu.onRemoveFeature(0, kGain);

    QCOMPARE(fullNamesOf(menu, 0), QStringList({kGain}));
    QCOMPARE(changed.count(), 0);
}

void tst_FeatureOptionsMenu::shouldRemoveFeatureAndNotifyItsTab()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    menu.setParameterNameList(2, names({kExposureTime, kGain, kWidth}));
    QSignalSpy changed(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onRemoveFeature(2, kGain);

    QCOMPARE(fullNamesOf(menu, 2), QStringList({kExposureTime, kWidth}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 2);
}

void tst_FeatureOptionsMenu::shouldIgnoreRemovingAFeatureTheTabLacks()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    menu.setParameterNameList(0, names({kExposureTime}));
    QSignalSpy changed(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onRemoveFeature(0, kGain);
    menu.onRemoveFeature(1, kExposureTime);

    QCOMPARE(fullNamesOf(menu, 0), QStringList({kExposureTime}));
    QCOMPARE(changed.count(), 0);
}

void tst_FeatureOptionsMenu::shouldKeepTheFirstNameAsSavedCopy()
{
    // Given a tab named once
    CFeatureOptionsMenu menu;
    QSignalSpy namesChanged(&menu, &CFeatureOptionsMenu::userTabNamesChanged);
    menu.setUserTabName(1, QStringLiteral("Exposure"));
    QCOMPARE(namesChanged.count(), 1);

    // When the menu is reset
    menu.reset();

    // Then the name stays: the first naming is saved as well
    QCOMPARE(menu.getUserTabNames().at(1), QStringLiteral("Exposure"));
}

void tst_FeatureOptionsMenu::shouldSaveThePreviousNameOnLaterRenaming()
{
    CFeatureOptionsMenu menu;
    menu.setUserTabName(0, QStringLiteral("First"));
    menu.setUserTabName(0, QStringLiteral("Second"));
    menu.setUserTabName(0, QStringLiteral("Third"));
    QCOMPARE(menu.getUserTabNames().at(0), QStringLiteral("Third"));

    menu.reset();

    QCOMPARE(menu.getUserTabNames().at(0), QStringLiteral("Second"));
}

void tst_FeatureOptionsMenu::shouldRenameThroughOnNameChanged()
{
    CFeatureOptionsMenu menu;
    QSignalSpy namesChanged(&menu, &CFeatureOptionsMenu::userTabNamesChanged);

    menu.onNameChanged(3, QStringLiteral("Trigger"));
    menu.onNameChanged(3, QStringLiteral("Triggers"));
    QCOMPARE(menu.getUserTabNames().at(3), QStringLiteral("Triggers"));
    QCOMPARE(namesChanged.count(), 2);

    menu.reset();
    QCOMPARE(menu.getUserTabNames().at(3), QStringLiteral("Trigger"));
}

void tst_FeatureOptionsMenu::shouldRemoveTabByEmptyingItsName()
{
    CFeatureOptionsMenu menu;
    menu.setUserTabName(1, QStringLiteral("Image"));
    menu.setParameterNameList(1, names({kWidth}));
    QSignalSpy namesChanged(&menu, &CFeatureOptionsMenu::userTabNamesChanged);
    QSignalSpy listsChanged(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.onRemove(1);

    QCOMPARE(menu.getUserTabNames().at(1), QString());
    QCOMPARE(namesChanged.count(), 1);
    QCOMPARE(listsChanged.count(), 1);
    QCOMPARE(listsChanged.at(0).at(0).toInt(), 1);

    // Cancelling brings the tab back.
    menu.reset();
    QCOMPARE(menu.getUserTabNames().at(1), QStringLiteral("Image"));
}

void tst_FeatureOptionsMenu::shouldLeaveRemovedTabUnnamedAndSkipItOnSelectionReset()
{
    // Given tabs 1 and 2 named, with tab 0 selected
    CFeatureOptionsMenu menu;
    menu.setUserTabName(1, QStringLiteral("Image"));
    menu.setUserTabName(2, QStringLiteral("Trigger"));
    menu.setUserTabIndex(0);

    // When tab 1 is removed
    menu.onRemove(1);
    QCOMPARE(menu.getUserTabNames().at(1), QString());

    // Then resetting the selection passes over it to the next named tab
    QSignalSpy indexChanged(&menu, &CFeatureOptionsMenu::userTabIndexChanged);
    menu.resetUserSelection();
    QCOMPARE(menu.getUserTabIndex(), 2);
    QCOMPARE(indexChanged.count(), 1);
}

void tst_FeatureOptionsMenu::shouldSelectTab0FromTab2ThenTheFirstNamedTab()
{
    // Given tab 0 unnamed, tabs 1 and 2 named, tab 2 selected
    CFeatureOptionsMenu menu;
    menu.setUserTabName(1, QStringLiteral("Image"));
    menu.setUserTabName(2, QStringLiteral("Trigger"));
    menu.setUserTabIndex(2);
    QSignalSpy indexChanged(&menu, &CFeatureOptionsMenu::userTabIndexChanged);

    // When the selection is reset, tab 0 is selected although it has no name
    menu.resetUserSelection();
    QCOMPARE(menu.getUserTabIndex(), 0);
    QCOMPARE(indexChanged.count(), 1);

    // And when reset again, the first named tab is
    menu.resetUserSelection();
    QCOMPARE(menu.getUserTabIndex(), 1);
    QCOMPARE(indexChanged.count(), 2);
}

void tst_FeatureOptionsMenu::shouldKeepTab0WhenNoTabIsNamed()
{
    CFeatureOptionsMenu menu;
    menu.setUserTabIndex(0);
    QSignalSpy indexChanged(&menu, &CFeatureOptionsMenu::userTabIndexChanged);

    menu.resetUserSelection();
    QCOMPARE(menu.getUserTabIndex(), 0);

    menu.setUserTabName(0, QStringLiteral("Mine"));
    menu.setUserTabName(3, QStringLiteral("Other"));
    menu.resetUserSelection();
    QCOMPARE(menu.getUserTabIndex(), 0);
    QCOMPARE(indexChanged.count(), 0);
}

void tst_FeatureOptionsMenu::shouldSelectTab0WhenNothingIsSelected()
{
    CFeatureOptionsMenu menu;
    menu.setUserTabName(3, QStringLiteral("Other"));
    QSignalSpy indexChanged(&menu, &CFeatureOptionsMenu::userTabIndexChanged);

    menu.resetUserSelection();

    QCOMPARE(menu.getUserTabIndex(), 0);
    QCOMPARE(indexChanged.count(), 1);
}

void tst_FeatureOptionsMenu::shouldRestoreSavedNamesAndListsOnReset()
{
    // Given two loaded tabs, edited afterwards
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    menu.setUserTabName(0, QStringLiteral("Image"));
    menu.setParameterNameList(0, names({kWidth}));
    menu.setParameterNameList(3, names({kGain}));
    menu.onAddFeature(0, kExposureTime);
    menu.onRemoveFeature(3, kGain);
    menu.onRemove(0);
    QSignalSpy namesChanged(&menu, &CFeatureOptionsMenu::userTabNamesChanged);
    QSignalSpy listsChanged(&menu, &CFeatureOptionsMenu::featureListsChanged);

    // When reset
    menu.reset();

    // Then the loaded state is back and every tab is announced
    QCOMPARE(menu.getUserTabNames(),
             QStringList({QStringLiteral("Image"), QString(), QString(), QString()}));
    QCOMPARE(fullNamesOf(menu, 0), QStringList({kWidth}));
    QCOMPARE(fullNamesOf(menu, 3), QStringList({kGain}));
    QCOMPARE(namesChanged.count(), 1);
    QCOMPARE(listsChanged.count(), 4);
    for (int tab = 0; tab < 4; ++tab) {
        QCOMPARE(listsChanged.at(tab).at(0).toInt(), tab);
    }

    // Reset with nothing changed still tells the scene about the names.
    menu.reset();
    QCOMPARE(namesChanged.count(), 2);
}

void tst_FeatureOptionsMenu::shouldLoadAndReadATabsFeatures()
{
    CFeatureOptionsMenu menu;
    QSignalSpy listsChanged(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.setParameterNameList(2, names({kGain, kExposureTime}));

    QList<ParameterName> read = names({kWidth});
    menu.getParameterNameList(2, read);
    QCOMPARE(read, names({kGain, kExposureTime}));
    QCOMPARE(listsChanged.count(), 1);
    QCOMPARE(listsChanged.at(0).at(0).toInt(), 2);
}

void tst_FeatureOptionsMenu::shouldChangeSelectionOnlyToValidTabs()
{
    CFeatureOptionsMenu menu;
    QSignalSpy indexChanged(&menu, &CFeatureOptionsMenu::userTabIndexChanged);

    menu.setUserTabIndex(3);
    menu.setUserTabIndex(3);
    QCOMPARE(menu.getUserTabIndex(), 3);
    QCOMPARE(indexChanged.count(), 1);

    menu.setUserTabIndex(4);
    menu.setUserTabIndex(-2);
    QCOMPARE(menu.getUserTabIndex(), 3);
    QCOMPARE(indexChanged.count(), 1);

    QVERIFY(menu.setProperty("userTabIndex", -1));
    QCOMPARE(menu.getUserTabIndex(), -1);
    QCOMPARE(indexChanged.count(), 2);
}

void tst_FeatureOptionsMenu::shouldIgnoreTabsOutOfRange()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    QSignalSpy namesChanged(&menu, &CFeatureOptionsMenu::userTabNamesChanged);
    QSignalSpy listsChanged(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.setUserTabName(4, QStringLiteral("Fifth"));
    menu.onNameChanged(-1, QStringLiteral("None"));
    menu.onAddFeature(4, kGain);
    menu.onRemoveFeature(-1, kGain);
    menu.onRemove(7);
    menu.setParameterNameList(4, names({kGain}));
    QList<ParameterName> read = names({kWidth});
    menu.getParameterNameList(-1, read);

    QCOMPARE(read, names({kWidth}));
    QCOMPARE(menu.getUserTabNames().size(), 4);
    QCOMPARE(namesChanged.count(), 0);
    QCOMPARE(listsChanged.count(), 0);
}

void tst_FeatureOptionsMenu::shouldResolveDisplayNamesThroughTheCollection()
{
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    menu.setParameterNameList(0,
                              names({kExposureTime, QStringLiteral("@CameraDevice/PixelFormat")}));
    menu.setParameterNameList(3, names({kGain}));

    QCOMPARE(entriesOf(menu, 0),
             QStringList({QStringLiteral("Exposure Time=") + kExposureTime,
                          QStringLiteral("Pixel Format=@CameraDevice/PixelFormat")}));
    QCOMPARE(entriesOf(menu, 3), QStringList({QStringLiteral("Gain=") + kGain}));
    QVERIFY(entriesOf(menu, 1).isEmpty());
}

void tst_FeatureOptionsMenu::shouldFallBackToCachedDisplayNameAndFeatureName()
{
    // Given features this camera lacks, one of them seen with another camera before
    CDisplayNameCache::cacheDisplayName(QStringLiteral("SequencerSetNext"),
                                        QStringLiteral("Sequencer Set Next"));
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(m_camera->collection);
    menu.setParameterNameList(0, names({QStringLiteral("@CameraDevice/SequencerSetNext"),
                                        QStringLiteral("@CameraDevice/NeverSeenFeature")}));

    // Then the first shows the remembered name and the second its feature name
    QCOMPARE(entriesOf(menu, 0),
             QStringList({QStringLiteral("Sequencer Set Next=@CameraDevice/SequencerSetNext"),
                          QStringLiteral("NeverSeenFeature=@CameraDevice/NeverSeenFeature")}));

    // And without any camera the same names are shown
    menu.setParameterCollection({});
    QCOMPARE(entriesOf(menu, 0).size(), 2);
}

void tst_FeatureOptionsMenu::shouldSkipFeaturesWhoseDisplayNameCannotBeRead()
{
    auto faulty = QSharedPointer<FaultyCollection>::create(m_camera->collection);
    faulty->parameter(kGain)->throwOnProperty = true;
    CFeatureOptionsMenu menu;
    menu.setParameterCollection(faulty);
    menu.setParameterNameList(1, names({kExposureTime, kGain, kWidth}));

    QCOMPARE(entriesOf(menu, 1), QStringList({QStringLiteral("Exposure Time=") + kExposureTime,
                                              QStringLiteral("Width=") + kWidth}));
    // The stored list keeps the feature: only its display failed.
    QCOMPARE(fullNamesOf(menu, 1).size(), 3);
}

void tst_FeatureOptionsMenu::shouldRefreshEveryTabWhenTheCollectionChanges()
{
    CFeatureOptionsMenu menu;
    QSignalSpy listsChanged(&menu, &CFeatureOptionsMenu::featureListsChanged);

    menu.setParameterCollection(m_camera->collection);

    QCOMPARE(listsChanged.count(), 4);
    QCOMPARE(menu.getParameterCollection(), m_camera->collection);
}

void tst_FeatureOptionsMenu::shouldLoadSceneWithTheMenuAsRoot()
{
    Scene scene;
    QVERIFY2(scene.view.errors().isEmpty(),
             qPrintable(scene.view.errors().isEmpty() ? QString()
                                                      : scene.view.errors().first().toString()));
    QCOMPARE(scene.view.status(), QQuickView::Ready);
    QVERIFY(scene.menu);
    QCOMPARE(scene.menu->objectName(), QStringLiteral("featureOptionsMenu"));

    // The owner connects to the scene's signals by their signatures.
    const QMetaObject* meta = scene.menu->metaObject();
    const QStringList signatures = {QStringLiteral("nameChanged(int,QString)"),
                                    QStringLiteral("cancel()"),
                                    QStringLiteral("add()"),
                                    QStringLiteral("remove(int)"),
                                    QStringLiteral("addFeature(int,QString)"),
                                    QStringLiteral("removeFeature(int,QString)"),
                                    QStringLiteral("newFeatureNameList(int)"),
                                    QStringLiteral("hide()")};
    for (const QString& signature : signatures) {
        const int index = meta->indexOfSignal(signature.toLatin1().constData());
        QVERIFY2(index >= 0, qPrintable(signature));
    }
}

void tst_FeatureOptionsMenu::shouldShowTitleAndDropHint()
{
    Scene scene;
    QVERIFY(scene.menu);
    auto* title = scene.find(QStringLiteral("titleLabel"));
    auto* hint = scene.find(QStringLiteral("dropHint"));
    QVERIFY(title && hint);
    QCOMPARE(title->property("text").toString(), QStringLiteral("Edit Feature Tabs"));
    QCOMPARE(hint->property("text").toString(), QStringLiteral("Add features by drag and drop"));
    QCOMPARE(scene.find(QStringLiteral("okButton"))->property("text").toString(),
             QStringLiteral("OK"));
    QCOMPARE(scene.find(QStringLiteral("cancelButton"))->property("text").toString(),
             QStringLiteral("Cancel"));
}

void tst_FeatureOptionsMenu::shouldFillTheViewWhateverItsSize()
{
    Scene scene;
    QVERIFY(scene.menu);
    QVERIFY(scene.show());
    QTRY_COMPARE(scene.menu->size(), QSizeF(350, 440));

    // As on a screen of 144 dpi, with the view's default resize mode.
    scene.view.resize(525, 660);
    QTRY_COMPARE(scene.menu->size(), QSizeF(525, 660));
    QCOMPARE(scene.view.size(), QSize(525, 660));
}

void tst_FeatureOptionsMenu::shouldEmitHideFromTheCloseButton()
{
    Scene scene;
    QVERIFY(scene.show());
    QSignalSpy hide(scene.menu, SIGNAL(hide()));

    scene.click(scene.find(QStringLiteral("closeButton")));

    QCOMPARE(hide.count(), 1);
}

void tst_FeatureOptionsMenu::shouldSelectATabWhenItsRowIsClicked()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setUserTabName(2, QStringLiteral("Trigger"));
    auto* row = scene.find(QStringLiteral("editTabName2"));
    QVERIFY(row);

    // The row's number, left of the name field.
    QTest::mouseClick(&scene.view, Qt::LeftButton, Qt::NoModifier,
                      row->mapToScene(QPointF(8, row->height() / 2)).toPoint());
    QCOMPARE(scene.menu->getUserTabIndex(), 2);

    // Or the name field itself.
    scene.click(scene.find(QStringLiteral("tabNameField1")));
    QCOMPARE(scene.menu->getUserTabIndex(), 1);
    QVERIFY(scene.find(QStringLiteral("tabNameField1"))->hasActiveFocus());
}

void tst_FeatureOptionsMenu::shouldEmitNameChangedWhenATabNameIsEdited()
{
    // Given a named tab 1
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setUserTabName(1, QStringLiteral("Image"));
    QSignalSpy nameChanged(scene.menu, SIGNAL(nameChanged(int, QString)));
    auto* field = scene.find(QStringLiteral("tabNameField1"));
    QCOMPARE(field->property("text").toString(), QStringLiteral("Image"));

    // When the user types a new name and presses Enter
    scene.click(field);
    QTest::keyClick(&scene.view, Qt::Key_A, Qt::ControlModifier);
    scene.typeText(QStringLiteral("Sensor "));
    QTest::keyClick(&scene.view, Qt::Key_Return);

    // Then the scene reports it and the menu holds it, without the trailing blank
    QCOMPARE(nameChanged.count(), 1);
    QCOMPARE(nameChanged.at(0).at(0).toInt(), 1);
    QCOMPARE(nameChanged.at(0).at(1).toString(), QStringLiteral("Sensor"));
    QCOMPARE(scene.menu->getUserTabNames().at(1), QStringLiteral("Sensor"));
    QCOMPARE(field->property("text").toString(), QStringLiteral("Sensor"));

    // And leaving the field unchanged reports nothing
    scene.click(scene.find(QStringLiteral("tabNameField2")));
    QCOMPARE(nameChanged.count(), 1);
}

void tst_FeatureOptionsMenu::shouldRestoreEditedNameShownOnReset()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    auto* field = scene.find(QStringLiteral("tabNameField0"));

    scene.click(field);
    QTest::keyClick(&scene.view, Qt::Key_End);
    scene.typeText(QStringLiteral("X"));
    QTest::keyClick(&scene.view, Qt::Key_Return);
    QCOMPARE(field->property("text").toString(), QStringLiteral("ImageX"));

    scene.menu->reset();
    QCOMPARE(field->property("text").toString(), QStringLiteral("Image"));
}

void tst_FeatureOptionsMenu::shouldEmitRemoveFromATabsRemoveButton()
{
    Scene scene;
    QVERIFY(scene.show());
    auto* button = scene.find(QStringLiteral("removeTabButton3"));
    QVERIFY(button);
    QVERIFY(!button->isEnabled());
    scene.menu->setUserTabName(3, QStringLiteral("Other"));
    QVERIFY(button->isEnabled());
    QSignalSpy remove(scene.menu, SIGNAL(remove(int)));

    scene.click(button);

    QCOMPARE(remove.count(), 1);
    QCOMPARE(remove.at(0).at(0).toInt(), 3);
    QCOMPARE(scene.menu->getUserTabNames().at(3), QString());
    QCOMPARE(scene.find(QStringLiteral("tabNameField3"))->property("text").toString(), QString());
    QVERIFY(!button->isEnabled());
}

void tst_FeatureOptionsMenu::shouldAddFeatureDroppedFromTheFeatureTable()
{
    // Given a named, selected tab
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(1, QStringLiteral("Image"));
    scene.menu->setUserTabIndex(1);
    QSignalSpy addFeature(scene.menu, SIGNAL(addFeature(int, QString)));
    QSignalSpy newList(scene.menu, SIGNAL(newFeatureNameList(int)));

    // When a feature is dragged from the feature table onto the drop area
    const auto data = tableDrag(kExposureTime);
    QCOMPARE(dragAndDrop(&scene.view, scene.find(QStringLiteral("featureDropArea")), data.get()),
             Qt::MoveAction);

    // Then the tab holds it, the scene reports it and a chip shows its display name
    QCOMPARE(addFeature.count(), 1);
    QCOMPARE(addFeature.at(0).at(0).toInt(), 1);
    QCOMPARE(addFeature.at(0).at(1).toString(), kExposureTime);
    QCOMPARE(newList.count(), 1);
    QCOMPARE(newList.at(0).at(0).toInt(), 1);
    QCOMPARE(fullNamesOf(*scene.menu, 1), QStringList({kExposureTime}));
    auto* chip = scene.find(QStringLiteral("feature:") + kExposureTime);
    QVERIFY(chip);
    auto* label = findIn(chip, QStringLiteral("featureName"));
    QCOMPARE(label->property("text").toString(), QStringLiteral("Exposure Time"));
}

void tst_FeatureOptionsMenu::shouldTakeACopyWhereTheDragAllowsIt()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setUserTabIndex(0);

    // A move would tell a table view to take the row out of its own list.
    const auto data = tableDrag(kGain);
    QCOMPARE(dragAndDrop(&scene.view, scene.find(QStringLiteral("featureDropArea")), data.get(),
                         Qt::CopyAction | Qt::MoveAction),
             Qt::CopyAction);
    QCOMPARE(fullNamesOf(*scene.menu, 0), QStringList({kGain}));
}

void tst_FeatureOptionsMenu::shouldApplyEditsBeforeTheOwnerHearsOfThem()
{
    // Given an owner that reads the menu whenever the scene reports an edit
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(2, QStringLiteral("Trigger"));
    scene.menu->setUserTabIndex(2);
    Owner owner(scene.menu);
    QVERIFY(connect(scene.menu, SIGNAL(addFeature(int, QString)), &owner,
                    SLOT(onAddFeature(int, QString))));
    QVERIFY(connect(scene.menu, SIGNAL(remove(int)), &owner, SLOT(onRemove(int))));

    // When a feature is dropped and then the tab removed
    const auto data = tableDrag(kWidth);
    QCOMPARE(dragAndDrop(&scene.view, scene.find(QStringLiteral("featureDropArea")), data.get()),
             Qt::MoveAction);
    scene.click(scene.find(QStringLiteral("removeTabButton2")));

    // Then each report found the menu already changed
    QCOMPARE(owner.seen, QStringList({QStringLiteral("2: @CameraDevice/Width"),
                                      QStringLiteral("2 named \"\"")}));
}

void tst_FeatureOptionsMenu::shouldAddNothingFromOtherSourcesOrWithoutSelectedTab_data()
{
    QTest::addColumn<QString>("sourceMarker");
    QTest::addColumn<int>("selectedTab");

    QTest::newRow("plain text from elsewhere") << QString() << 1;
    QTest::newRow("another source") << QStringLiteral("treeView") << 1;
    QTest::newRow("no tab selected")
        << QString::fromLatin1(CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME) << -1;
    QTest::newRow("unnamed tab selected")
        << QString::fromLatin1(CFeatureOptionsMenu::TABLE_VIEW_OBJECT_NAME) << 2;
}

void tst_FeatureOptionsMenu::shouldAddNothingFromOtherSourcesOrWithoutSelectedTab()
{
    QFETCH(QString, sourceMarker);
    QFETCH(int, selectedTab);
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(1, QStringLiteral("Image"));
    scene.menu->setUserTabIndex(selectedTab);
    QSignalSpy addFeature(scene.menu, SIGNAL(addFeature(int, QString)));

    QMimeData data;
    data.setText(kExposureTime);
    if (!sourceMarker.isEmpty()) {
        data.setData(QString::fromLatin1(CFeatureOptionsMenu::DRAG_SOURCE_MIME_TYPE),
                     sourceMarker.toLatin1());
    }
    const Qt::DropAction action =
        dragAndDrop(&scene.view, scene.find(QStringLiteral("featureDropArea")), &data);

    QCOMPARE(action, Qt::IgnoreAction);
    QCOMPARE(addFeature.count(), 0);
    for (int tab = 0; tab < 4; ++tab) {
        QVERIFY(fullNamesOf(*scene.menu, tab).isEmpty());
    }
}

void tst_FeatureOptionsMenu::shouldShowChipsOfTheSelectedTab()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setUserTabName(2, QStringLiteral("Trigger"));
    scene.menu->setParameterNameList(0, names({kWidth, kGain}));
    scene.menu->setParameterNameList(2, names({kExposureTime}));
    QCOMPARE(scene.chipCount(), 0);

    scene.menu->setUserTabIndex(0);
    QTRY_COMPARE(scene.chipCount(), 2);
    QVERIFY(scene.find(QStringLiteral("feature:") + kGain));

    scene.menu->setUserTabIndex(2);
    QTRY_COMPARE(scene.chipCount(), 1);
    QVERIFY(scene.find(QStringLiteral("feature:") + kExposureTime));
}

void tst_FeatureOptionsMenu::shouldEmitRemoveFeatureFromAChipsRemoveButton()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(3, QStringLiteral("Other"));
    scene.menu->setParameterNameList(3, names({kWidth, kGain}));
    scene.menu->setUserTabIndex(3);
    QSignalSpy removeFeature(scene.menu, SIGNAL(removeFeature(int, QString)));
    QSignalSpy newList(scene.menu, SIGNAL(newFeatureNameList(int)));
    QTRY_COMPARE(scene.chipCount(), 2);

    auto* button = scene.find(QStringLiteral("removeFeatureButton:") + kWidth);
    QVERIFY(button);
    // The chips' area grows with the next layout pass; clicks outside it are clipped away.
    auto* area = scene.find(QStringLiteral("featureArea"));
    QTRY_VERIFY(area->height() >= button->height());
    scene.click(button);

    QCOMPARE(removeFeature.count(), 1);
    QCOMPARE(removeFeature.at(0).at(0).toInt(), 3);
    QCOMPARE(removeFeature.at(0).at(1).toString(), kWidth);
    QCOMPARE(newList.count(), 1);
    QCOMPARE(fullNamesOf(*scene.menu, 3), QStringList({kGain}));
    QTRY_COMPARE(scene.chipCount(), 1);
}

void tst_FeatureOptionsMenu::shouldTakeTheChipsRemoveIconFromTheStandardIcons()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setParameterNameList(0, names({kGain}));
    scene.menu->setUserTabIndex(0);
    QTRY_COMPARE(scene.chipCount(), 1);

    auto* button = scene.find(QStringLiteral("removeFeatureButton:") + kGain);
    QVERIFY(button);
    auto* icon = button->property("contentItem").value<QQuickItem*>();
    QVERIFY(icon);
    QCOMPARE(icon->property("source").toUrl(),
             QUrl(QStringLiteral("image://standardIcons/SP_TitleBarCloseButton")));
    // Image.Ready: the provider answered with a pixmap.
    QTRY_COMPARE(icon->property("status").toInt(), 1);
}

void tst_FeatureOptionsMenu::shouldGreyOutTheDropAreaUntilANamedTabIsSelected()
{
    Scene scene;
    QVERIFY(scene.show());
    auto* dropArea = scene.find(QStringLiteral("featureDropArea"));
    QVERIFY(dropArea);
    QVERIFY(!dropArea->isEnabled());

    scene.menu->setUserTabIndex(1);
    QVERIFY(!dropArea->isEnabled());

    scene.menu->setUserTabName(1, QStringLiteral("Image"));
    QVERIFY(dropArea->isEnabled());
    QCOMPARE(scene.find(QStringLiteral("featuresCaption"))->property("text").toString(),
             QStringLiteral("Features of \"Image\""));
}

void tst_FeatureOptionsMenu::shouldLimitTheFeatureAreaTo55Of440OfTheHeight()
{
    // Given a tab with more features than the area can show
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(0, QStringLiteral("Many"));
    QStringList many;
    for (const char* feature :
         {"Width", "Height", "OffsetX", "OffsetY", "SensorWidth", "SensorHeight", "Gain",
          "ExposureTime", "PixelFormat", "AcquisitionFrameRate", "BlackLevel", "Gamma",
          "DeviceUserID", "BinningHorizontal", "BinningVertical", "DecimationHorizontal",
          "DecimationVertical", "DeviceTemperature", "AcquisitionFrameCount"}) {
        many.append(QStringLiteral("@CameraDevice/") + QLatin1String(feature));
    }
    scene.menu->setParameterNameList(0, names(many));
    scene.menu->setUserTabIndex(0);
    auto* area = scene.find(QStringLiteral("featureArea"));
    QVERIFY(area);

    // Then it takes 55 of the 440 pixels and scrolls the rest
    QTRY_COMPARE(area->height(), 55.0);
    QVERIFY(area->property("contentHeight").toReal() > area->height());

    // And keeps that share in a larger window
    scene.view.resize(525, 660);
    QTRY_COMPARE(area->height(), 660.0 * 55 / 440);
    QVERIFY(area->property("contentHeight").toReal() > area->height());
}

void tst_FeatureOptionsMenu::shouldEmitAddFromOkWhenATabIsSelected()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setUserTabIndex(0);
    QSignalSpy add(scene.menu, SIGNAL(add()));
    QSignalSpy cancel(scene.menu, SIGNAL(cancel()));

    scene.click(scene.find(QStringLiteral("okButton")));

    QCOMPARE(add.count(), 1);
    QCOMPARE(cancel.count(), 0);
}

void tst_FeatureOptionsMenu::shouldEmitCancelFromOkWithoutSelectedTab()
{
    Scene scene;
    QVERIFY(scene.show());
    QSignalSpy add(scene.menu, SIGNAL(add()));
    QSignalSpy cancel(scene.menu, SIGNAL(cancel()));

    scene.click(scene.find(QStringLiteral("okButton")));

    QCOMPARE(add.count(), 0);
    QCOMPARE(cancel.count(), 1);
}

void tst_FeatureOptionsMenu::shouldEmitCancelFromCancel()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setUserTabIndex(0);
    QSignalSpy add(scene.menu, SIGNAL(add()));
    QSignalSpy cancel(scene.menu, SIGNAL(cancel()));

    scene.click(scene.find(QStringLiteral("cancelButton")));

    QCOMPARE(add.count(), 0);
    QCOMPARE(cancel.count(), 1);
}

void tst_FeatureOptionsMenu::shouldRenderACleanDialog()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.menu->setParameterCollection(m_camera->collection);
    scene.menu->setUserTabName(0, QStringLiteral("Image"));
    scene.menu->setUserTabName(1, QStringLiteral("Exposure control"));
    scene.menu->setParameterNameList(
        1, names({kExposureTime, kGain, QStringLiteral("@CameraDevice/BlackLevel"),
                  QStringLiteral("@CameraDevice/Gamma")}));
    scene.menu->setUserTabIndex(1);
    QTRY_COMPARE(scene.chipCount(), 4);

    QImage image = scene.view.grabWindow();
    if (image.isNull()) {
        // The offscreen platform keeps the software renderer's pixels in its screen only.
        image = scene.view.screen()->grabWindow(scene.view.winId()).toImage();
    }
    QCOMPARE(image.size(), QSize(350, 440));
    QVERIFY(image.save(QStringLiteral("/tmp/optionsmenu.png")));
}

QTEST_MAIN(tst_FeatureOptionsMenu)
#include "tst_featureoptionsmenu.moc"
