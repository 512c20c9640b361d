#include "testhostservices.h"
#include "testsupport.h"

#include "featuretreeusecaseservice.h"
#include "featuretreewidget.h"
#include "featuretreewidgetfactory.h"
#include "internal/legacy/featuretreewidget.h"
#include "nodescopeconstants.h"
#include "nodescoperesources.h"

#include <featuretree/ifeaturetreestatusservice.h>

#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using Plugin::AppCore::SDockPanelFactoryProduct;
using Plugin::FeatureTree::IFeatureTreeStatusService;
using Plugin::Nodescope::CFeatureTreeWidget;
using Plugin::Nodescope::CFeatureTreeWidgetFactory;
using Plugin::Nodescope::Internal::CFeatureTreeUseCaseService;
namespace Constants = Plugin::Nodescope::Constants;

namespace {

const QString kDash = QStringLiteral(" \u2013 ");

void storeTabName(int tab, const QString& name)
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("Nodescope"));
    settings.setValue(QStringLiteral("UserTabName") + QString::number(tab), name);
}

} // namespace

class tst_FeatureTreeWidgetFactory : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void shouldLogAndHandOutAnEmptyProductWithoutNeededServices_data();
    void shouldLogAndHandOutAnEmptyProductWithoutNeededServices();
    void shouldMakeThePanelWithoutMenuStatusAndWindowServices();
    void shouldHandOutTheWidgetWithItsIdAndNoIcon();
    void shouldHandOutTheSameWidgetWhileItLives();
    void shouldMakeANewWidgetOnceTheFirstIsGone();
    void shouldTitleEachPanelByItsKind_data();
    void shouldTitleEachPanelByItsKind();
    void shouldDoubleTheAmpersandOfAUserTabName();
    void shouldGiveNoTitleToAnUnnamedTab();
    void shouldRetitleTheWidgetWhenItsTabIsRenamed();
    void shouldTakeTheLatestTabNameForEachCall();
    void shouldTellTheStatusServiceWhatThePanelShows();
    void shouldUseTheLatestInjectedService();
    void shouldMakeAPanelThatFollowsTheControlService();

private:
    std::unique_ptr<CFeatureTreeWidgetFactory> makeFactory(const char* widgetId);

    QTemporaryDir m_settingsDir;
    Backend::CameraPool m_pool;
    QSharedPointer<Backend::CameraPool> m_poolRef;
    QSharedPointer<Plugin::CameraPool::IBaseInfo> m_camera;
    QSharedPointer<TestControlService> m_control;
    QSharedPointer<IFeatureTreeStatusService> m_status;
    QSharedPointer<CFeatureTreeUseCaseService> m_useCases;
    QSharedPointer<TestMenuService> m_menus;
    QSharedPointer<TestWindowService> m_windows;
    QList<QPointer<QWidget>> m_widgets;
};

void tst_FeatureTreeWidgetFactory::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY(isolateSettings(m_settingsDir, QStringLiteral("tst_featuretreewidgetfactory")));
    Plugin::Nodescope::initNodescopeResources();
    m_camera = m_pool.openSimulated();
    m_poolRef = QSharedPointer<Backend::CameraPool>(&m_pool, [](Backend::CameraPool*) {});
    m_useCases = QSharedPointer<CFeatureTreeUseCaseService>::create();
    m_useCases->initialize();
}

void tst_FeatureTreeWidgetFactory::init()
{
    {
        QSettings settings;
        settings.remove(QStringLiteral("Nodescope"));
    }
    m_control = QSharedPointer<TestControlService>::create();
    m_status = QSharedPointer<IFeatureTreeStatusService>::create();
    m_menus = QSharedPointer<TestMenuService>::create();
    m_windows = QSharedPointer<TestWindowService>::create();
}

void tst_FeatureTreeWidgetFactory::cleanup()
{
    // The host owns the panels it was given; here the test does.
    for (const QPointer<QWidget>& widget : qAsConst(m_widgets)) {
        delete widget.data();
    }
    m_widgets.clear();
}

std::unique_ptr<CFeatureTreeWidgetFactory>
tst_FeatureTreeWidgetFactory::makeFactory(const char* widgetId)
{
    auto factory = std::make_unique<CFeatureTreeWidgetFactory>(
        Core::CId(QStringLiteral("Plugin"), QStringLiteral("Nodescope"),
                  QStringLiteral("Factory Test")),
        Core::CId(widgetId), nullptr);
    factory->injectMenuService(m_menus);
    factory->injectParameterService(m_poolRef);
    factory->injectFeatureTreeControlService(m_control);
    factory->injectFeatureTreeStatusService(m_status);
    factory->injectFeatureTreeUseCaseService(m_useCases);
    factory->injectWindowService(m_windows);
    return factory;
}

void tst_FeatureTreeWidgetFactory::shouldLogAndHandOutAnEmptyProductWithoutNeededServices_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("device parameter service") << QStringLiteral("parameters");
    QTest::newRow("control service") << QStringLiteral("control");
    QTest::newRow("use case service") << QStringLiteral("usecases");
}

void tst_FeatureTreeWidgetFactory::shouldLogAndHandOutAnEmptyProductWithoutNeededServices()
{
    QFETCH(QString, missing);
    // Given a factory that lacks one of the services a panel cannot do without
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);
    if (missing == QLatin1String("parameters")) {
        factory->injectParameterService({});
    } else if (missing == QLatin1String("control")) {
        factory->injectFeatureTreeControlService({});
    } else {
        factory->injectFeatureTreeUseCaseService({});
    }

    // When the host asks for the panel
    MessageCapture capture;
    const SDockPanelFactoryProduct product = factory->createDockPanel();

    // Then it hears why and gets nothing to show
    QCOMPARE(capture.lines(),
             QStringList({QStringLiteral("Needed services not available, skipping...")}));
    QVERIFY(!product.widget);
    QVERIFY(product.title.isEmpty());
    QVERIFY(product.icon.isNull());
    QVERIFY(!product.id.isValid());
    QCOMPARE(product.dockArea, 5);
    QCOMPARE(product.dockFeatures, 1);
}

void tst_FeatureTreeWidgetFactory::shouldMakeThePanelWithoutMenuStatusAndWindowServices()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);
    factory->injectMenuService({});
    factory->injectFeatureTreeStatusService({});
    factory->injectWindowService({});

    MessageCapture capture;
    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);

    QVERIFY(product.widget);
    QVERIFY(capture.lines().isEmpty());
    QCOMPARE(product.title, QStringLiteral("Features") + kDash + QStringLiteral("All"));
}

void tst_FeatureTreeWidgetFactory::shouldHandOutTheWidgetWithItsIdAndNoIcon()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_BASIC);

    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);

    auto* panel = qobject_cast<CFeatureTreeWidget*>(product.widget);
    QVERIFY(panel);
    QCOMPARE(panel->widgetId(), Core::CId("Nodescope.Widget.Basic"));
    QCOMPARE(product.id, Core::CId("Nodescope.Widget.Basic"));
    QVERIFY(product.icon.isNull());
    QCOMPARE(product.dockArea, 5);
    QCOMPARE(product.dockFeatures, 1);
    QCOMPARE(factory->getId().toString(), QStringLiteral("Plugin.Nodescope.Factory Test"));
}

void tst_FeatureTreeWidgetFactory::shouldHandOutTheSameWidgetWhileItLives()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);

    const SDockPanelFactoryProduct first = factory->createDockPanel();
    m_widgets.append(first.widget);
    const SDockPanelFactoryProduct second = factory->createDockPanel();

    QVERIFY(first.widget);
    QCOMPARE(second.widget, first.widget);
    QCOMPARE(second.title, first.title);
}

void tst_FeatureTreeWidgetFactory::shouldMakeANewWidgetOnceTheFirstIsGone()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);
    QPointer<QWidget> first = factory->createDockPanel().widget;
    QVERIFY(first);

    delete first.data();
    const SDockPanelFactoryProduct second = factory->createDockPanel();
    m_widgets.append(second.widget);

    QVERIFY(second.widget);
    QVERIFY(qobject_cast<CFeatureTreeWidget*>(second.widget));
}

void tst_FeatureTreeWidgetFactory::shouldTitleEachPanelByItsKind_data()
{
    QTest::addColumn<QString>("widgetId");
    QTest::addColumn<QString>("storedName");
    QTest::addColumn<QString>("title");
    QTest::newRow("all") << QStringLiteral("Nodescope.Widget.All") << QString()
                         << QStringLiteral("Features – All");
    QTest::newRow("basic") << QStringLiteral("Nodescope.Widget.Basic") << QString()
                           << QStringLiteral("Features – Basic");
    QTest::newRow("user 0") << QStringLiteral("Nodescope.Widget.User0") << QStringLiteral("Optics")
                            << QStringLiteral("Features – Optics");
    QTest::newRow("user 3") << QStringLiteral("Nodescope.Widget.User3") << QStringLiteral("Timing")
                            << QStringLiteral("Features – Timing");
}

void tst_FeatureTreeWidgetFactory::shouldTitleEachPanelByItsKind()
{
    QFETCH(QString, widgetId);
    QFETCH(QString, storedName);
    QFETCH(QString, title);
    // Each user tab has its own name; the others must not leak into the title.
    for (int tab = 0; tab < 4; ++tab) {
        storeTabName(tab, QStringLiteral("Tab %1").arg(tab));
    }
    if (widgetId.startsWith(QLatin1String("Nodescope.Widget.User"))) {
        storeTabName(widgetId.right(1).toInt(), storedName);
    }
    const QByteArray id = widgetId.toLatin1();
    auto factory = makeFactory(id.constData());

    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);

    QCOMPARE(product.title, title);
}

void tst_FeatureTreeWidgetFactory::shouldDoubleTheAmpersandOfAUserTabName()
{
    // Given user tab 2 named R&D
    storeTabName(2, QStringLiteral("R&D"));
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_USER_IDS[2]);

    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);

    // Then the host gets R&&D, which its menus show as R&D
    QCOMPARE(product.title, QStringLiteral("Features – R&&D"));
}

void tst_FeatureTreeWidgetFactory::shouldGiveNoTitleToAnUnnamedTab()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_USER_IDS[1]);

    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);

    QVERIFY(product.widget);
    QCOMPARE(product.title, QString());
    QCOMPARE(product.widget->windowTitle(), QString());
}

void tst_FeatureTreeWidgetFactory::shouldRetitleTheWidgetWhenItsTabIsRenamed()
{
    storeTabName(0, QStringLiteral("Optics"));
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_USER_IDS[0]);
    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);
    QCOMPARE(product.widget->windowTitle(), QStringLiteral("Features – Optics"));
    QSignalSpy retitled(product.widget, &QWidget::windowTitleChanged);

    CFeatureTreeWidget::storeUserTab(0, QStringLiteral("Timing"), {});

    QCOMPARE(retitled.count(), 1);
    QCOMPARE(product.widget->windowTitle(), QStringLiteral("Features – Timing"));
    CFeatureTreeWidget::storeUserTab(0, QString(), {});
    QCOMPARE(product.widget->windowTitle(), QString());
}

void tst_FeatureTreeWidgetFactory::shouldTakeTheLatestTabNameForEachCall()
{
    storeTabName(0, QStringLiteral("Optics"));
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_USER_IDS[0]);
    const SDockPanelFactoryProduct first = factory->createDockPanel();
    m_widgets.append(first.widget);

    CFeatureTreeWidget::storeUserTab(0, QStringLiteral("A&B&C"), {});
    const SDockPanelFactoryProduct second = factory->createDockPanel();

    QCOMPARE(first.title, QStringLiteral("Features – Optics"));
    QCOMPARE(second.title, QStringLiteral("Features – A&&B&&C"));
    QCOMPARE(second.widget, first.widget);
}

void tst_FeatureTreeWidgetFactory::shouldTellTheStatusServiceWhatThePanelShows()
{
    // Given the panel showing the camera
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);
    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);
    auto* panel = qobject_cast<CFeatureTreeWidget*>(product.widget);
    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);
    QSignalSpy texts(m_status.data(), &IFeatureTreeStatusService::newText);
    QSignalSpy visibilities(m_status.data(), &IFeatureTreeStatusService::visibilityChanged);
    QSignalSpy currents(m_status.data(), &IFeatureTreeStatusService::currentChanged);

    // When its tree reports a text, a level and a current feature
    FeatureTreeWidget* tree = panel->activeTree();
    QVERIFY(tree);
    const auto gain =
        m_pool.getParameterCollection(m_camera)->getParameter(QStringLiteral("@CameraDevice/Gain"));
    Q_EMIT tree->onNewText(QStringLiteral("Gain of the sensor"));
    tree->onVisibilityChanged(GenApi::Expert);
    Q_EMIT tree->onCurrentChanged(gain);

    // Then the host's status display hears each once, unchanged
    QCOMPARE(texts.count(), 1);
    QCOMPARE(texts.at(0).at(0).toString(), QStringLiteral("Gain of the sensor"));
    QCOMPARE(visibilities.count(), 1);
    QCOMPARE(visibilities.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Expert);
    QCOMPARE(currents.count(), 1);
    QCOMPARE(currents.at(0).at(0).value<QSharedPointer<ParameterCollection::IParameter>>(), gain);

    // And asking for the panel again does not connect it twice
    factory->createDockPanel();
    Q_EMIT tree->onNewText(QStringLiteral("again"));
    QCOMPARE(texts.count(), 2);
}

void tst_FeatureTreeWidgetFactory::shouldUseTheLatestInjectedService()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_ALL);
    auto laterControl = QSharedPointer<TestControlService>::create();
    factory->injectFeatureTreeControlService(laterControl);

    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);
    auto* panel = qobject_cast<CFeatureTreeWidget*>(product.widget);

    m_control->registerDevice(m_camera);
    QVERIFY(!panel->treeOf(m_camera));
    laterControl->registerDevice(m_camera);
    QVERIFY(panel->treeOf(m_camera));
}

void tst_FeatureTreeWidgetFactory::shouldMakeAPanelThatFollowsTheControlService()
{
    auto factory = makeFactory(Constants::W_FEATURETREE_WIDGET_USER_IDS[0]);
    const SDockPanelFactoryProduct product = factory->createDockPanel();
    m_widgets.append(product.widget);
    auto* panel = qobject_cast<CFeatureTreeWidget*>(product.widget);

    m_control->registerDevice(m_camera);
    m_control->setActiveDevice(m_camera);

    QVERIFY(panel->activeTree());
    QVERIFY(panel->activeTree()->isFilteredTreeWidget());
    QCOMPARE(panel->userTabIndex(), 0);
}

QTEST_MAIN(tst_FeatureTreeWidgetFactory)
#include "tst_featuretreewidgetfactory.moc"
