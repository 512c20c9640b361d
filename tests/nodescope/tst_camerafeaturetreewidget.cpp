#include "testhostservices.h"
#include "testsupport.h"

#include "featuretreeusecaseservice.h"
#include "featuretreewidget.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/featuretreeview.h"
#include "internal/legacy/featuretreewidget.h"
#include "internal/view/featureoptionsmenu.h"
#include "internal/view/featuretableview.h"
#include "internal/view/standardiconprovider.h"
#include "nodescopeconstants.h"
#include "nodescopeqmltypes.h"
#include "nodescoperesources.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QQmlEngine>
#include <QQuickView>
#include <QSettings>
#include <QSplitter>
#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace ParameterCollection;
using Plugin::Nodescope::CFeatureTreeWidget;
using Plugin::Nodescope::Internal::CFeatureTreeUseCaseService;
using Plugin::Nodescope::Internal::View::CFeatureOptionsMenu;
using Plugin::Nodescope::Internal::View::CStandardIconProvider;
namespace Constants = Plugin::Nodescope::Constants;

namespace {

const QString kPlaceholder =
    QStringLiteral("<i>Select any open camera in the Devices pane to display its features.</i>");
const QString kWidth = QStringLiteral("@CameraDevice/Width");
const QString kGain = QStringLiteral("@CameraDevice/Gain");
const QString kExposureTime = QStringLiteral("@CameraDevice/ExposureTime");

QStringList toStrings(const QList<ParameterName>& names)
{
    QStringList result;
    for (const ParameterName& name : names) {
        result.append(name.toString());
    }
    return result;
}

QList<ParameterName> toNames(const QStringList& fullNames)
{
    QList<ParameterName> result;
    for (const QString& fullName : fullNames) {
        result.append(ParameterName(fullName));
    }
    return result;
}

// "prefix=display name" per node map the tree was given, in the order it got them.
QStringList nodeMapsOf(const FeatureTreeWidget* tree)
{
    QStringList result;
    const auto items = tree->parameterCollections();
    for (const FeatureTreeWidget::SParameterCollectionItem& item : items) {
        result.append(item.nodemapName + QLatin1Char('=') + item.displayName);
    }
    return result;
}

QStringList stringList(const QVariant& value)
{
    return value.toStringList();
}

// A camera the host knows of but the pool never opened: it has no parameters.
class UnknownCamera : public Plugin::CameraPool::IBaseInfo {
public:
    QString getId() const override { return QStringLiteral("Unknown:1"); }
    QString getVendorName() const override { return QStringLiteral("Nobody"); }
    QString getModelName() const override { return QStringLiteral("Ghost"); }
    QString getSerialNumber() const override { return QStringLiteral("0"); }
    QString getTransportLayer() const override { return QStringLiteral("Simulated"); }
    QString getDeviceText() const override { return QStringLiteral("Nobody_Ghost"); }
    QString getFriendlyName() const override { return QStringLiteral("Nobody Ghost (0)"); }
};

} // namespace

class tst_CameraFeatureTreeWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void shouldShowThePlaceholderBeforeAnyCameraIsActive();
    void shouldShowTheTreeOfTheRegisteredActiveCamera();
    void shouldNameTheNodeMapsReadably();
    void shouldAddANodeMapThatArrivesLate();
    void shouldNotAddNodeMapsTwiceWhenRegisteredAgain();
    void shouldLogAndCreateNoTreeForACameraWithoutCollection();
    void shouldLogInfoIsNullForNullCameras();
    void shouldShowThePlaceholderAndDisableCopyWhenTheActiveCameraGoes();
    void shouldShowThePlaceholderWhenAnUnregisteredCameraIsActivated();
    void shouldShowThePlaceholderWhenAnInactiveCameraGoes();
    void shouldKeepTheTreeWhenTheActiveCameraIsNull();
    void shouldSwitchBetweenTheTreesOfTwoCameras();
    void shouldForwardTheSignalsOfTheShownTreeOnly();
    void shouldSayAFilterFileProblemOfAnyTree();
    void shouldGiveTheAllPanelTheOrdinaryUseCases();
    void shouldRestrictTheBasicPanelToTheBasicUseCase();
    void shouldLogWhenTheUseCaseServiceIsMissing();
    void shouldCopyTheCameraFeaturesToTheClipboard();
    void shouldOfferTheCopyCommandInTheCameraMenuOnce();
    void shouldOfferTheFeatureTabEditorInTheWindowMenu();
    void shouldListCopyAndOtherPluginsEntriesInTheContextMenu();
    void shouldOpenNewTreesAtTheLastChosenLevel();
    void shouldApplyTheHostsVisibilityToEveryTree();
    void shouldIgnoreAVisibilityOutOfRange();
    void shouldSelectTheFeatureTheHostAsksFor();
    void shouldApplyThePollingStateToEveryTree();
    void shouldFollowPollingSwitchedInOneTree();
    void shouldKeepColumnWidthsAndPollingForTheNextStart();
    void shouldListTheStoredFeaturesOfItsUserTab();
    void shouldFollowItsUserTabAtOnceWhenStored();
    void shouldIgnoreEmptyAndDoubledStoredFeatures();
    void shouldStoreTheTabsOnOkOfTheEditor();
    void shouldOfferMyTabWhenNoTabExists();
    void shouldRevertTheEditorOnCancel();
    void shouldStoreTheNewOrderOfAUserTab();
    void shouldRenderThePanel();

private:
    std::unique_ptr<CFeatureTreeWidget> makePanel(const char* widgetId, QQuickView* view = nullptr);
    std::unique_ptr<QQuickView> makeEditor();
    // The all-features panel on screen, the first camera registered and active.
    std::unique_ptr<CFeatureTreeWidget> showFirstCamera();

    QTemporaryDir m_settingsDir;
    Backend::CameraPool m_pool;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_camera;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_secondCamera;
    QSharedPointer<TestControlService> m_control;
    QSharedPointer<TestMenuService> m_menus;
    QSharedPointer<TestWindowService> m_windows;
    QSharedPointer<CFeatureTreeUseCaseService> m_useCases;
    QSharedPointer<Backend::CameraPool> m_poolRef;
};

void tst_CameraFeatureTreeWidget::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY(isolateSettings(m_settingsDir, QStringLiteral("tst_camerafeaturetreewidget")));
    Plugin::Nodescope::initNodescopeResources();
    Plugin::Nodescope::registerNodescopeQmlTypes();
    m_camera = m_pool.openSimulated();
    m_secondCamera = m_pool.openSimulated();
    QVERIFY(m_pool.getParameterCollection(m_camera));
    QVERIFY(m_pool.getParameterCollection(m_secondCamera));
    // The panels hold the host's services by shared pointer; the pool lives in the test.
    m_poolRef = QSharedPointer<Backend::CameraPool>(&m_pool, [](Backend::CameraPool*) {});
    m_useCases = QSharedPointer<CFeatureTreeUseCaseService>::create();
    m_useCases->initialize();
    QVERIFY(!m_useCases->getBasicUseCaseMap().isEmpty());
    QVERIFY(!m_useCases->getUseCaseMap().isEmpty());
}

void tst_CameraFeatureTreeWidget::init()
{
    {
        QSettings settings;
        settings.remove(QStringLiteral("Nodescope"));
    }
    m_control = QSharedPointer<TestControlService>::create();
    m_menus = QSharedPointer<TestMenuService>::create();
    m_windows = QSharedPointer<TestWindowService>::create();
}

void tst_CameraFeatureTreeWidget::cleanup()
{
    // Trees of unregistered cameras go with deleteLater.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::unique_ptr<CFeatureTreeWidget> tst_CameraFeatureTreeWidget::makePanel(const char* widgetId,
                                                                           QQuickView* view)
{
    auto panel = std::make_unique<CFeatureTreeWidget>(m_menus, m_control, m_poolRef, m_useCases,
                                                      m_windows, Core::CId(widgetId), view);
    panel->resize(700, 500);
    return panel;
}

std::unique_ptr<CFeatureTreeWidget> tst_CameraFeatureTreeWidget::showFirstCamera()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    if (QTest::qWaitForWindowExposed(panel.get())) {
        m_control->registerDevice(m_camera);
        m_control->setActiveDevice(m_camera);
    }
    return panel;
}

std::unique_ptr<QQuickView> tst_CameraFeatureTreeWidget::makeEditor()
{
    auto view = std::make_unique<QQuickView>();
    view->engine()->addImageProvider(QLatin1String(CStandardIconProvider::PROVIDER_ID),
                                     new CStandardIconProvider);
    view->setSource(QUrl(QStringLiteral("qrc:/nodescope/featuretreeoptionmenu.qml")));
    return view;
}

void tst_CameraFeatureTreeWidget::shouldShowThePlaceholderBeforeAnyCameraIsActive()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();

    QCOMPARE(panel->placeholder()->text(), kPlaceholder);
    QVERIFY(panel->placeholder()->isVisible());
    QVERIFY(!panel->activeTree());
    QVERIFY(!panel->copyCameraFeaturesAction()->isEnabled());
}

void tst_CameraFeatureTreeWidget::shouldShowTheTreeOfTheRegisteredActiveCamera()
{
    // Given the all-features panel
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();

    // When the host registers the simulated camera and makes it active
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    // Then the panel shows that camera's tree with its node maps, in place of the hint
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree);
    QCOMPARE(tree, panel->treeOf(m_camera));
    QCOMPARE(tree->baseInfo(), m_camera);
    QVERIFY(tree->isVisible());
    QVERIFY(!panel->placeholder()->isVisible());
    QVERIFY(!tree->isFilteredTreeWidget());
    QCOMPARE(tree->parameterCollections().size(), 5);
    // (the event grabber implements nothing, so it has no row to show)
    QCOMPARE(tree->proxyModel()->rowCount(), 4);
    QVERIFY(tree->proxyModel()->findItemByFullName(kWidth, nullptr, 0).isValid());
    QVERIFY(panel->copyCameraFeaturesAction()->isEnabled());
}

void tst_CameraFeatureTreeWidget::shouldNameTheNodeMapsReadably()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);

    QCOMPARE(nodeMapsOf(panel->treeOf(m_camera)),
             QStringList({QStringLiteral("@CameraDevice=") + m_camera->getFriendlyName(),
                          QStringLiteral("@DeviceTransportLayer=Host Transport Layer"),
                          QStringLiteral("@StreamGrabber0=Stream Parameters"),
                          QStringLiteral("@EventGrabber=Event Grabber Parameters"),
                          QStringLiteral("@ImageFormatConverter=Image Format Conversion")}));
}

void tst_CameraFeatureTreeWidget::shouldAddANodeMapThatArrivesLate()
{
    // Given a camera with its tree in a panel
    Backend::CameraPool pool;
    const auto info = pool.openSimulated();
    auto poolRef = QSharedPointer<Backend::CameraPool>(&pool, [](Backend::CameraPool*) {});
    CFeatureTreeWidget panel(m_menus, m_control, poolRef, m_useCases, m_windows,
                             Core::CId(Constants::W_FEATURETREE_WIDGET_ALL), nullptr);
    m_control->registerDevice(info);
    m_control->setActiveDevice(info);

    // When the camera's collection gains a node map the table does not name
    auto* collection =
        qobject_cast<Backend::DeviceParameterCollection*>(pool.getParameterCollection(info).data());
    QVERIFY(collection);
    collection->attachSimulated(
        QStringLiteral("TestModule"),
        readTextFile(nodescopeTestDataPath(QStringLiteral("tree.xml"))).toUtf8(), QString());

    // Then the tree shows it under its own name
    const QStringList nodeMaps = nodeMapsOf(panel.treeOf(info));
    QCOMPARE(nodeMaps.size(), 6);
    QCOMPARE(nodeMaps.last(), QStringLiteral("@TestModule=TestModule"));
    QTRY_VERIFY(panel.activeTree()
                    ->proxyModel()
                    ->findItemByFullName(QStringLiteral("@TestModule/IntPlain"), nullptr, 0)
                    .isValid());
    m_control->unregisterDevice(info);
}

void tst_CameraFeatureTreeWidget::shouldNotAddNodeMapsTwiceWhenRegisteredAgain()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    FeatureTreeWidget* tree = panel->treeOf(m_camera);

    m_control->registerDevice(m_camera);

    QCOMPARE(panel->treeOf(m_camera), tree);
    QCOMPARE(tree->parameterCollections().size(), 5);
}

void tst_CameraFeatureTreeWidget::shouldLogAndCreateNoTreeForACameraWithoutCollection()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    const QSharedPointer<Plugin::CameraPool::IBaseInfo> ghost(new UnknownCamera);

    MessageCapture capture;
    m_control->registerDevice(ghost);

    QCOMPARE(capture.lines(), QStringList({QStringLiteral("ParameterCollection is null.")}));
    QVERIFY(!panel->treeOf(ghost));
    m_control->setActiveDevice(ghost);
    QVERIFY(!panel->activeTree());
}

void tst_CameraFeatureTreeWidget::shouldLogInfoIsNullForNullCameras()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    MessageCapture capture;
    m_control->registerDevice({});
    m_control->unregisterDevice({});

    QCOMPARE(capture.lines(),
             QStringList({QStringLiteral("Info is null."), QStringLiteral("Info is null.")}));
    QVERIFY(panel->activeTree());
}

void tst_CameraFeatureTreeWidget::shouldShowThePlaceholderAndDisableCopyWhenTheActiveCameraGoes()
{
    // Given the active camera's tree on show
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    QPointer<FeatureTreeWidget> tree = panel->activeTree();
    QVERIFY(tree);

    // When the camera is unregistered
    m_control->unregisterDevice(m_camera);

    // Then the hint is back, copying is off and the tree is gone
    QVERIFY(!panel->activeTree());
    QVERIFY(!panel->treeOf(m_camera));
    QVERIFY(panel->placeholder()->isVisible());
    QCOMPARE(panel->placeholder()->text(), kPlaceholder);
    QVERIFY(!panel->copyCameraFeaturesAction()->isEnabled());
    QTRY_VERIFY(!tree);
}

void tst_CameraFeatureTreeWidget::shouldShowThePlaceholderWhenAnUnregisteredCameraIsActivated()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    m_control->setActiveDevice(m_secondCamera);

    QVERIFY(!panel->activeTree());
    QVERIFY(panel->placeholder()->isVisible());
    QVERIFY(!panel->treeOf(m_camera)->isVisible());
    QVERIFY(!panel->copyCameraFeaturesAction()->isEnabled());
}

void tst_CameraFeatureTreeWidget::shouldShowThePlaceholderWhenAnInactiveCameraGoes()
{
    // Given two registered cameras, the first one shown
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_camera);
    QPointer<FeatureTreeWidget> shown = panel->treeOf(m_camera);

    // When the other one is unregistered
    m_control->unregisterDevice(m_secondCamera);

    // Then the panel lets go of the shown tree too, until the host names the active camera
    QVERIFY(!panel->treeOf(m_secondCamera));
    QVERIFY(!panel->activeTree());
    QVERIFY(panel->placeholder()->isVisible());
    QVERIFY(!panel->copyCameraFeaturesAction()->isEnabled());
    QVERIFY(shown && !shown->isVisible());
    QCOMPARE(panel->treeOf(m_camera), shown.data());

    // And naming it again shows its tree as it was
    m_control->setActiveDevice(m_camera);
    QCOMPARE(panel->activeTree(), shown.data());
    QVERIFY(shown->isVisible());
    QVERIFY(!panel->placeholder()->isVisible());
    QVERIFY(panel->copyCameraFeaturesAction()->isEnabled());
}

void tst_CameraFeatureTreeWidget::shouldKeepTheTreeWhenTheActiveCameraIsNull()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    m_control->setActiveDevice({});

    QCOMPARE(panel->activeTree(), panel->treeOf(m_camera));
    QVERIFY(panel->activeTree()->isVisible());
    QVERIFY(panel->copyCameraFeaturesAction()->isEnabled());
}

void tst_CameraFeatureTreeWidget::shouldSwitchBetweenTheTreesOfTwoCameras()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    QVERIFY(panel->treeOf(m_camera) != panel->treeOf(m_secondCamera));

    m_control->setActiveDevice(m_secondCamera);
    QCOMPARE(panel->activeTree(), panel->treeOf(m_secondCamera));
    QVERIFY(!panel->treeOf(m_camera)->isVisible());

    m_control->setActiveDevice(m_camera);
    QCOMPARE(panel->activeTree(), panel->treeOf(m_camera));
    QVERIFY(panel->treeOf(m_camera)->isVisible());
    QVERIFY(!panel->treeOf(m_secondCamera)->isVisible());
}

void tst_CameraFeatureTreeWidget::shouldForwardTheSignalsOfTheShownTreeOnly()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_camera);
    m_control->setActiveDevice(m_secondCamera);
    QSignalSpy texts(panel.get(), &CFeatureTreeWidget::newText);
    QSignalSpy visibilities(panel.get(), &CFeatureTreeWidget::visibilityChanged);
    QSignalSpy currents(panel.get(), &CFeatureTreeWidget::currentChanged);

    Q_EMIT panel->treeOf(m_camera)->onNewText(QStringLiteral("hidden"));
    Q_EMIT panel->treeOf(m_secondCamera)->onNewText(QStringLiteral("shown"));
    Q_EMIT panel->treeOf(m_secondCamera)->visibilityChanged(GenApi::Guru);
    const auto gain = m_pool.getParameterCollection(m_secondCamera)->getParameter(kGain);
    Q_EMIT panel->treeOf(m_secondCamera)->onCurrentChanged(gain);

    QCOMPARE(texts.count(), 1);
    QCOMPARE(texts.at(0).at(0).toString(), QStringLiteral("shown"));
    QCOMPARE(visibilities.count(), 1);
    QCOMPARE(visibilities.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Guru);
    QCOMPARE(currents.count(), 1);
    QCOMPARE(currents.at(0).at(0).value<QSharedPointer<IParameter>>(), gain);
}

void tst_CameraFeatureTreeWidget::shouldSayAFilterFileProblemOfAnyTree()
{
    // A filter file is read when a camera is registered, shown or not; its problem is said once.
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_secondCamera);
    QSignalSpy texts(panel.get(), &CFeatureTreeWidget::newText);

    Q_EMIT panel->treeOf(m_camera)->filterFileProblem(QStringLiteral("hidden tree's filter"));

    QCOMPARE(texts.count(), 1);
    QCOMPARE(texts.at(0).at(0).toString(), QStringLiteral("hidden tree's filter"));
}

void tst_CameraFeatureTreeWidget::shouldGiveTheAllPanelTheOrdinaryUseCases()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    auto* box = panel->activeTree()->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));
    QVERIFY(box);
    const QVariantMap map = m_useCases->getUseCaseMap();
    QCOMPARE(box->count(), map.size() + 1);
    QCOMPARE(box->currentIndex(), 0);
    QVERIFY(panel->activeTree()->proxyModel()->getParameterFilterList().isEmpty());
    for (int index = 1; index < box->count(); ++index) {
        QVERIFY(!box->itemText(index).startsWith(QLatin1String("Nodescope - Basic")));
    }
}

void tst_CameraFeatureTreeWidget::shouldRestrictTheBasicPanelToTheBasicUseCase()
{
    // Given the basic panel
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_BASIC);

    // When the camera becomes active
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    // Then its tree is narrowed to the basic use case's features
    const QVariantMap basic = m_useCases->getBasicUseCaseMap();
    QCOMPARE(basic.size(), 1);
    const QStringList expected = stringList(basic.first());
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree);
    QCOMPARE(toStrings(tree->proxyModel()->getParameterFilterList()), expected);
    QVERIFY(tree->proxyModel()->findItemByFullName(kWidth, nullptr, 0).isValid());
    QVERIFY(!tree->proxyModel()
                 ->findItemByFullName(QStringLiteral("@CameraDevice/DeviceUserID"), nullptr, 0)
                 .isValid());
    auto* favourites = tree->findChild<QWidget*>(QStringLiteral("addNewFavoriteButton"));
    QVERIFY(favourites);
    QVERIFY(favourites->isHidden());
}

void tst_CameraFeatureTreeWidget::shouldLogWhenTheUseCaseServiceIsMissing()
{
    CFeatureTreeWidget panel(m_menus, m_control, m_poolRef, {}, m_windows,
                             Core::CId(Constants::W_FEATURETREE_WIDGET_ALL), nullptr);
    m_control->registerDevice(m_camera);

    MessageCapture capture;
    m_control->setActiveDevice(m_camera);

    QVERIFY2(capture.lines().contains(QStringLiteral("IFeatureTreeUseCaseService not set!")),
             qPrintable(capture.lines().join(QLatin1Char('|'))));
    auto* box = panel.activeTree()->findChild<QComboBox*>(QStringLiteral("useCaseComboBox"));
    QCOMPARE(box->count(), 1);
}

void tst_CameraFeatureTreeWidget::shouldCopyTheCameraFeaturesToTheClipboard()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    QApplication::clipboard()->setText(QStringLiteral("before"));

    panel->copyCameraFeaturesAction()->trigger();

    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text, panel->activeTree()->featuresAsText());
    QVERIFY(text.contains(QLatin1String("Width")));
    QVERIFY(text.contains(QLatin1String("Gain")));
}

void tst_CameraFeatureTreeWidget::shouldOfferTheCopyCommandInTheCameraMenuOnce()
{
    auto all = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    auto basic = makePanel(Constants::W_FEATURETREE_WIDGET_BASIC);

    const QString id = QString::fromLatin1(Constants::A_COPY_CAMERA_FEATURES);
    QCOMPARE(m_menus->action(id), all->copyCameraFeaturesAction());
    QCOMPARE(m_menus->menuOf(id), QStringLiteral("VantoViewer.Menu.Camera"));
    QCOMPARE(m_menus->groupOf(id), QStringLiteral("VantoViewer.Group.Camera.Features"));
    QVERIFY(m_menus->lastContext.contains(Core::CId("AppCore.Global.Context")));
    QCOMPARE(all->copyCameraFeaturesAction()->shortcut(),
             QKeySequence(QStringLiteral("Ctrl+Shift+C")));
    QCOMPARE(all->copyCameraFeaturesAction()->text(), QStringLiteral("Copy Camera Features"));

    // The panel that goes takes its entry along.
    all.reset();
    QVERIFY(!m_menus->action(id));
}

void tst_CameraFeatureTreeWidget::shouldOfferTheFeatureTabEditorInTheWindowMenu()
{
    auto editor = makeEditor();
    auto basic = makePanel(Constants::W_FEATURETREE_WIDGET_BASIC, editor.get());
    QVERIFY(!basic->editFeatureTabsAction());
    auto all = makePanel(Constants::W_FEATURETREE_WIDGET_ALL, editor.get());

    const QString id = QStringLiteral("Nodescope.EditFeatureTabs");
    QVERIFY(all->editFeatureTabsAction());
    QCOMPARE(m_menus->action(id), all->editFeatureTabsAction());
    QCOMPARE(m_menus->menuOf(id), QStringLiteral("VantoViewer.Menu.Window"));
    QCOMPARE(m_menus->groupOf(id), QStringLiteral("VantoViewer.Group.Window.Windows"));

    all->editFeatureTabsAction()->trigger();
    QVERIFY(editor->isVisible());
}

void tst_CameraFeatureTreeWidget::shouldListCopyAndOtherPluginsEntriesInTheContextMenu()
{
    // Given a panel and another plug-in's entry in the shared feature tree context menu
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    QMenu* shared = m_menus->contextMenu(Core::CId("VantoViewer.FeatureTreeContextMenu"));
    QVERIFY(shared);
    QAction* foreign = shared->addAction(QStringLiteral("Show in Histogram"));

    // When a tree asks for its context menu
    QMenu menu;
    panel->fillContextMenu(&menu);

    // Then it offers the copy command, a separator and the other plug-in's entry
    const QList<QAction*> actions = menu.actions();
    QCOMPARE(actions.size(), 3);
    QCOMPARE(actions.at(0), panel->copyCameraFeaturesAction());
    QVERIFY(actions.at(1)->isSeparator());
    QCOMPARE(actions.at(2), foreign);

    // And the menu leaves with the panel that provided it
    panel.reset();
    QVERIFY(!m_menus->contextMenu(Core::CId("VantoViewer.FeatureTreeContextMenu")));
}

void tst_CameraFeatureTreeWidget::shouldOpenNewTreesAtTheLastChosenLevel()
{
    // Given a panel whose user chose Expert in an earlier run
    m_windows->saveState(Core::CId(Constants::W_FEATURETREE_WIDGET_ALL),
                         QStringLiteral("Visibility"), int(GenApi::Expert));
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    QCOMPARE(panel->treeOf(m_camera)->visibility(), GenApi::Expert);

    // When the user picks Guru in that tree
    panel->treeOf(m_camera)->onVisibilityChanged(GenApi::Guru);

    // Then the level is kept for the panel, and the next camera opens at it
    QCOMPARE(m_windows
                 ->restoreState(Core::CId(Constants::W_FEATURETREE_WIDGET_ALL),
                                QStringLiteral("Visibility"), QVariant())
                 .toInt(),
             int(GenApi::Guru));
    m_control->registerDevice(m_secondCamera);
    QCOMPARE(panel->treeOf(m_secondCamera)->visibility(), GenApi::Guru);
}

void tst_CameraFeatureTreeWidget::shouldApplyTheHostsVisibilityToEveryTree()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_camera);
    QCOMPARE(panel->treeOf(m_camera)->visibility(), GenApi::Beginner);
    QSignalSpy forwarded(panel.get(), &CFeatureTreeWidget::visibilityChanged);

    // When the host's selector asks for Guru
    m_control->setVisibility(GenApi::Guru);

    // Then the shown tree and the hidden one show Guru features, the status display hears of
    // it once, from the shown tree, and the level is kept for the next run
    QCOMPARE(panel->treeOf(m_camera)->visibility(), GenApi::Guru);
    QCOMPARE(panel->treeOf(m_secondCamera)->visibility(), GenApi::Guru);
    QCOMPARE(forwarded.count(), 1);
    QCOMPARE(forwarded.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Guru);
    QCOMPARE(m_windows
                 ->restoreState(Core::CId(Constants::W_FEATURETREE_WIDGET_ALL),
                                QStringLiteral("Visibility"), QVariant())
                 .toInt(),
             int(GenApi::Guru));

    // And asking again for the same level changes nothing
    m_control->setVisibility(GenApi::Guru);
    QCOMPARE(forwarded.count(), 1);
}

void tst_CameraFeatureTreeWidget::shouldSelectTheFeatureTheHostAsksFor()
{
    // Given the first camera's tree on screen
    auto panel = showFirstCamera();
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree);
    // When the host asks for its Width
    m_control->selectFeature(m_camera, kWidth);
    // Then Width is the tree's current row, its category open
    const QModelIndex current = tree->treeView()->currentIndex();
    QCOMPARE(current, tree->proxyModel()->findItemByFullName(kWidth, nullptr, 0));
    QVERIFY(current.isValid());
    QVERIFY(tree->treeView()->isExpanded(current.parent()));
    // And a feature the tree does not show, or another camera's, leaves the selection alone
    m_control->selectFeature(m_camera, QStringLiteral("@CameraDevice/NoSuchFeature"));
    m_control->selectFeature(m_secondCamera, kWidth);
    QCOMPARE(tree->treeView()->currentIndex(), current);
}

void tst_CameraFeatureTreeWidget::shouldIgnoreAVisibilityOutOfRange()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    m_control->setVisibility(GenApi::Expert);
    MessageCapture messages;

    m_control->setVisibility(GenApi::Invisible);

    QCOMPARE(messages.lines(), QStringList({QStringLiteral("Visibility level out of range: 3")}));
    QCOMPARE(panel->treeOf(m_camera)->visibility(), GenApi::Expert);
}

void tst_CameraFeatureTreeWidget::shouldApplyThePollingStateToEveryTree()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_camera);

    Q_EMIT m_control->pollingStateChanged(true);

    QVERIFY(panel->pollingState());
    QVERIFY(panel->treeOf(m_camera)->getPolling());
    QVERIFY(panel->treeOf(m_secondCamera)->getPolling());

    panel->onPollingStateChanged(false);
    QVERIFY(!panel->treeOf(m_camera)->getPolling());
    QVERIFY(!panel->treeOf(m_secondCamera)->getPolling());
}

void tst_CameraFeatureTreeWidget::shouldFollowPollingSwitchedInOneTree()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->show();
    m_control->registerDevice(m_camera);
    m_control->registerDevice(m_secondCamera);
    m_control->setActiveDevice(m_camera);

    // When the user ticks "Polling" in the shown tree
    auto* box = panel->activeTree()->findChild<QCheckBox*>(QStringLiteral("checkBoxPolling"));
    QVERIFY(box);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));

    // Then the camera shown next polls too
    QVERIFY(panel->pollingState());
    m_control->setActiveDevice(m_secondCamera);
    QVERIFY(panel->activeTree()->getPolling());
    auto* secondBox = panel->activeTree()->findChild<QCheckBox*>(QStringLiteral("checkBoxPolling"));
    QVERIFY(secondBox->isChecked());
    panel->onPollingStateChanged(false);
}

void tst_CameraFeatureTreeWidget::shouldKeepColumnWidthsAndPollingForTheNextStart()
{
    const Core::CId panelId(Constants::W_FEATURETREE_WIDGET_ALL);
    int treeWidth = 0;
    const int nameWidth = 170;
    {
        // Given a run in which the user moved the tree's splitter, widened the name column and
        // ticked "Polling"
        auto panel = showFirstCamera();
        FeatureTreeWidget* tree = panel->activeTree();
        QVERIFY(tree);
        auto* splitter = tree->findChild<QSplitter*>(QStringLiteral("splitter"));
        QTRY_VERIFY(splitter->sizes().at(0) > 0);
        QList<int> sizes = splitter->sizes();
        treeWidth = sizes.at(0) - 60;
        sizes[2] += 60;
        sizes[0] = treeWidth;
        splitter->setSizes(sizes);
        Q_EMIT splitter->splitterMoved(treeWidth, 1);
        tree->treeView()->header()->resizeSection(0, nameWidth);
        auto* box = tree->findChild<QCheckBox*>(QStringLiteral("checkBoxPolling"));
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
        QVERIFY(panel->pollingState());
    }

    // Then they are kept in the plug-in's settings group, not in the host's panel state
    {
        QSettings settings;
        settings.beginGroup(QLatin1String(Constants::SETTINGS_GROUP));
        const QString suffix = QLatin1Char('/') + panelId.toString();
        QCOMPARE(settings.value(QLatin1String(Constants::SETTINGS_CATEGORY_COLUMN_WIDTH) + suffix)
                     .toInt(),
                 treeWidth);
        QCOMPARE(settings.value(QLatin1String(Constants::SETTINGS_FEATURE_COLUMN_WIDTH) + suffix)
                     .toInt(),
                 nameWidth);
        QCOMPARE(settings.value(QLatin1String(Constants::SETTINGS_POLLING) + suffix).toBool(),
                 true);
    }
    QVERIFY(!m_windows->restoreState(panelId, QStringLiteral("CategoryColumnWidth"), QVariant())
                 .isValid());

    // When the panel is made again at the next start
    auto panel = showFirstCamera();

    // Then the camera's tree comes back as the user left it
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree);
    auto* splitter = tree->findChild<QSplitter*>(QStringLiteral("splitter"));
    QTRY_COMPARE(splitter->sizes().at(0), treeWidth);
    QCOMPARE(tree->treeView()->header()->sectionSize(0), nameWidth);
    QVERIFY(panel->pollingState());
    QVERIFY(tree->getPolling());
    QVERIFY(tree->findChild<QCheckBox*>(QStringLiteral("checkBoxPolling"))->isChecked());
    panel->onPollingStateChanged(false);
}

void tst_CameraFeatureTreeWidget::shouldListTheStoredFeaturesOfItsUserTab()
{
    // Given a stored second user tab
    CFeatureTreeWidget::storeUserTab(1, QStringLiteral("R&D"), toNames({kGain, kWidth}));
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_USER_IDS[1]);
    QCOMPARE(panel->userTabIndex(), 1);

    // When the camera is shown
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    // Then the panel is a plain list of the tab's features, in the stored order
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree->isFilteredTreeWidget());
    QCOMPARE(toStrings(tree->proxyModel()->getParameterFilterList()), QStringList({kGain, kWidth}));
    QAbstractItemModel* table = tree->tableView()->model();
    QTRY_COMPARE(table->rowCount(), 2);
}

void tst_CameraFeatureTreeWidget::shouldFollowItsUserTabAtOnceWhenStored()
{
    CFeatureTreeWidget::storeUserTab(2, QStringLiteral("Timing"), toNames({kGain}));
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_USER_IDS[2]);
    auto other = makePanel(Constants::W_FEATURETREE_WIDGET_USER_IDS[3]);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    // When the tab's list is stored anew
    CFeatureTreeWidget::storeUserTab(2, QStringLiteral("Timing"), toNames({kExposureTime, kWidth}));

    // Then its panel follows without a restart, and the other tab's panel stays as it was
    QCOMPARE(toStrings(panel->activeTree()->proxyModel()->getParameterFilterList()),
             QStringList({kExposureTime, kWidth}));
    QVERIFY(other->activeTree()->proxyModel()->getParameterFilterList().isEmpty());
    QSettings settings;
    settings.beginGroup(QStringLiteral("Nodescope"));
    QCOMPARE(settings.value(QStringLiteral("UserTabName2")).toString(), QStringLiteral("Timing"));
    QCOMPARE(settings.value(QStringLiteral("UserTabFeatures2")).toStringList(),
             QStringList({kExposureTime, kWidth}));
}

void tst_CameraFeatureTreeWidget::shouldIgnoreEmptyAndDoubledStoredFeatures()
{
    {
        QSettings settings;
        settings.beginGroup(QStringLiteral("Nodescope"));
        settings.setValue(QStringLiteral("UserTabFeatures0"),
                          QStringList({kGain, QString(), kGain, kWidth}));
    }

    QCOMPARE(toStrings(CFeatureTreeWidget::storedUserTabFeatures(0)), QStringList({kGain, kWidth}));
    QVERIFY(CFeatureTreeWidget::storedUserTabFeatures(4).isEmpty());
    QVERIFY(CFeatureTreeWidget::storedUserTabName(0).isEmpty());
}

void tst_CameraFeatureTreeWidget::shouldStoreTheTabsOnOkOfTheEditor()
{
    // Given a named tab, the editor opened from the all-features panel, and the tab's panel
    CFeatureTreeWidget::storeUserTab(0, QStringLiteral("Optics"), toNames({kGain}));
    auto editor = makeEditor();
    auto* menu = qobject_cast<CFeatureOptionsMenu*>(editor->rootObject());
    QVERIFY(menu);
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL, editor.get());
    auto tabPanel = makePanel(Constants::W_FEATURETREE_WIDGET_USER_IDS[0], editor.get());
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    QSignalSpy userTabs(panel.get(), &CFeatureTreeWidget::addUserTab);
    panel->showOptionsMenu();
    QCOMPARE(menu->getUserTabNames().at(0), QStringLiteral("Optics"));

    // When the user renames the tab, adds a feature, names a second tab and presses OK
    QMetaObject::invokeMethod(menu, "nameChanged", Q_ARG(int, 0),
                              Q_ARG(QString, QStringLiteral("R&D")));
    QMetaObject::invokeMethod(menu, "addFeature", Q_ARG(int, 0), Q_ARG(QString, kWidth));
    QMetaObject::invokeMethod(menu, "nameChanged", Q_ARG(int, 3),
                              Q_ARG(QString, QStringLiteral("Spare")));
    QMetaObject::invokeMethod(menu, "add");

    // Then both tabs are stored, the tab's panel follows, and the host hears of the tabs
    QCOMPARE(CFeatureTreeWidget::storedUserTabName(0), QStringLiteral("R&D"));
    QCOMPARE(toStrings(CFeatureTreeWidget::storedUserTabFeatures(0)), QStringList({kGain, kWidth}));
    QCOMPARE(CFeatureTreeWidget::storedUserTabName(3), QStringLiteral("Spare"));
    QVERIFY(CFeatureTreeWidget::storedUserTabFeatures(3).isEmpty());
    QCOMPARE(toStrings(tabPanel->activeTree()->proxyModel()->getParameterFilterList()),
             QStringList({kGain, kWidth}));
    QCOMPARE(userTabs.count(), 2);
    QCOMPARE(userTabs.at(0).at(0).toUInt(), 0u);
    QCOMPARE(userTabs.at(0).at(1).toString(), QStringLiteral("R&D"));
    QCOMPARE(userTabs.at(1).at(0).toUInt(), 3u);
    QVERIFY(!editor->isVisible());
}

void tst_CameraFeatureTreeWidget::shouldOfferMyTabWhenNoTabExists()
{
    auto editor = makeEditor();
    auto* menu = qobject_cast<CFeatureOptionsMenu*>(editor->rootObject());
    QVERIFY(menu);
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL, editor.get());
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    // When the user clicks "Edit Feature Tabs" with no tab stored
    auto* button =
        panel->activeTree()->findChild<QAbstractButton*>(QStringLiteral("addNewFavoriteButton"));
    QVERIFY(button);
    button->click();

    // Then the editor offers a first tab "My tab", selected, ready for features
    QVERIFY(editor->isVisible());
    QCOMPARE(menu->getUserTabNames(),
             QStringList({QStringLiteral("My tab"), QString(), QString(), QString()}));
    QCOMPARE(menu->getUserTabIndex(), 0);
    QVERIFY(menu->getParameterCollection());
    QMetaObject::invokeMethod(menu, "addFeature", Q_ARG(int, 0), Q_ARG(QString, kExposureTime));
    QMetaObject::invokeMethod(menu, "add");
    QCOMPARE(CFeatureTreeWidget::storedUserTabName(0), QStringLiteral("My tab"));
    QCOMPARE(toStrings(CFeatureTreeWidget::storedUserTabFeatures(0)), QStringList({kExposureTime}));
}

void tst_CameraFeatureTreeWidget::shouldRevertTheEditorOnCancel()
{
    // Given a stored tab and the editor open
    CFeatureTreeWidget::storeUserTab(1, QStringLiteral("Optics"), toNames({kGain}));
    auto editor = makeEditor();
    auto* menu = qobject_cast<CFeatureOptionsMenu*>(editor->rootObject());
    QVERIFY(menu);
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL, editor.get());
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    panel->showOptionsMenu();

    // When the user edits the tab and then cancels
    QMetaObject::invokeMethod(menu, "nameChanged", Q_ARG(int, 1),
                              Q_ARG(QString, QStringLiteral("Other")));
    QMetaObject::invokeMethod(menu, "addFeature", Q_ARG(int, 1), Q_ARG(QString, kWidth));
    QMetaObject::invokeMethod(menu, "cancel");

    // Then nothing is stored and the editor shows the stored state again
    QCOMPARE(CFeatureTreeWidget::storedUserTabName(1), QStringLiteral("Optics"));
    QCOMPARE(toStrings(CFeatureTreeWidget::storedUserTabFeatures(1)), QStringList({kGain}));
    QCOMPARE(menu->getUserTabNames().at(1), QStringLiteral("Optics"));
    QList<ParameterName> features;
    menu->getParameterNameList(1, features);
    QCOMPARE(toStrings(features), QStringList({kGain}));
    QVERIFY(!editor->isVisible());
}

void tst_CameraFeatureTreeWidget::shouldStoreTheNewOrderOfAUserTab()
{
    CFeatureTreeWidget::storeUserTab(0, QStringLiteral("Optics"), toNames({kGain, kWidth}));
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_USER_IDS[0]);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    Q_EMIT panel->activeTree()->orderOfTableItemsChanged(1, 0);

    QCOMPARE(toStrings(CFeatureTreeWidget::storedUserTabFeatures(0)), QStringList({kWidth, kGain}));
    QCOMPARE(CFeatureTreeWidget::storedUserTabName(0), QStringLiteral("Optics"));
}

void tst_CameraFeatureTreeWidget::shouldRenderThePanel()
{
    auto panel = makePanel(Constants::W_FEATURETREE_WIDGET_ALL);
    panel->resize(520, 360);
    panel->show();
    QVERIFY(panel->grab().save(QStringLiteral("/tmp/camerafeaturetreewidget_placeholder.png")));
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    panel->resize(800, 600);
    QVERIFY(panel->grab().save(QStringLiteral("/tmp/camerafeaturetreewidget_tree.png")));
}

QTEST_MAIN(tst_CameraFeatureTreeWidget)
#include "tst_camerafeaturetreewidget.moc"
