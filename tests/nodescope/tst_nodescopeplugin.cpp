#include "testhostservices.h"
#include "testsupport.h"

#include "displaynamecache.h"
#include "featuretreecontrolservice.h"
#include "featuretreestatusservice.h"
#include "featuretreeusecaseservice.h"
#include "featuretreewidget.h"
#include "featuretreewidgetfactory.h"
#include "nodescopeconstants.h"
#include "plugin/nodescopeplugin.h"

#include <core/cplugininitializer.h>
#include <core/iplugin.h>

#include <QApplication>
#include <QDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

#include <memory>

using Core::Plugin::CPluginInitializer;
using Plugin::CameraPool::BaseInfoPtr;
using Plugin::CameraPool::CameraInfoPtr;
using Plugin::Nodescope::CFeatureTreeWidget;
using Plugin::Nodescope::CFeatureTreeWidgetFactory;
using Plugin::Nodescope::CNodescopePlugin;
using Plugin::Nodescope::Internal::CDisplayNameCache;
using Plugin::Nodescope::Internal::CFeatureTreeControlService;

namespace {

const QString kGroup = QStringLiteral("Nodescope");
const QString kCacheKey = QStringLiteral("DisplayNameCache");

const Qt::WindowFlags kOnTopFlags = Qt::Tool | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint |
                                    Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint;

const QStringList kFactoryIds = {QStringLiteral("Plugin.Nodescope.Factory All Settings"),
                                 QStringLiteral("Plugin.Nodescope.Factory Basic Settings"),
                                 QStringLiteral("Plugin.Nodescope.Factory User Features 0"),
                                 QStringLiteral("Plugin.Nodescope.Factory User Features 1"),
                                 QStringLiteral("Plugin.Nodescope.Factory User Features 2"),
                                 QStringLiteral("Plugin.Nodescope.Factory User Features 3")};

const QStringList kWidgetIds = {
    QStringLiteral("Nodescope.Widget.All"),   QStringLiteral("Nodescope.Widget.Basic"),
    QStringLiteral("Nodescope.Widget.User0"), QStringLiteral("Nodescope.Widget.User1"),
    QStringLiteral("Nodescope.Widget.User2"), QStringLiteral("Nodescope.Widget.User3")};

QVariant storedCache()
{
    QSettings settings;
    settings.beginGroup(kGroup);
    return settings.value(kCacheKey);
}

void storeCache(const QString& text)
{
    QSettings settings;
    settings.beginGroup(kGroup);
    settings.setValue(kCacheKey, text);
}

QList<CFeatureTreeWidgetFactory*> factoriesOf(const CNodescopePlugin& plugin)
{
    QList<CFeatureTreeWidgetFactory*> factories{plugin.allFeaturesFactory(),
                                                plugin.basicFeaturesFactory()};
    for (int i = 0; i < CNodescopePlugin::USER_FACTORY_COUNT; ++i) {
        factories.append(plugin.userFeaturesFactory(i));
    }
    return factories;
}

// The host as the plug-in meets it: a registry with the services that the panels use.
struct TestHost {
    explicit TestHost(bool withCameraPool = true)
    {
        initializer.registerService(menuService);
        initializer.registerService(windowService);
        initializer.registerService(instantiationService);
        if (withCameraPool) {
            initializer.registerService(cameraPool);
        }
    }

    CPluginInitializer initializer;
    QSharedPointer<TestMenuService> menuService = QSharedPointer<TestMenuService>::create();
    QSharedPointer<TestWindowService> windowService = QSharedPointer<TestWindowService>::create();
    QSharedPointer<TestFeatureInstantiationService> instantiationService =
        QSharedPointer<TestFeatureInstantiationService>::create();
    QSharedPointer<Backend::CameraPool> cameraPool = QSharedPointer<Backend::CameraPool>::create();
};

} // namespace

class tst_NodescopePlugin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();

    void shouldScaleTheOptionsMenuSizeByLogicalDpi_data();
    void shouldScaleTheOptionsMenuSizeByLogicalDpi();
    void shouldMakeTheOptionsMenuView525x660OnA144DpiScreen();
    void shouldBuildAHiddenOnTopOptionsMenuViewWithABlankTitle();
    void shouldLendStandardIconsToTheOptionsMenu();
    void shouldDropStaysOnTopWhenAnotherApplicationTakesTheFocusAndRestoreItOnReturn();
    void shouldKeepTheOptionsMenuBelowAModalDialog();
    void shouldStopFollowingTheFocusAfterUnInitialize();
    void shouldLogBothMessagesAndEmitNothingForANullCameraInfo();
    void shouldMakeTheGivenCameraTheActiveDevice();
    void shouldOfferStatusControlAndUseCaseServicesInThisOrder();
    void shouldFillTheUseCaseMapsInInitialize();
    void shouldCreateTheSixFactoriesWithTheirIds();
    void shouldInjectTheHostServicesIntoEveryFactory();
    void shouldInjectNullForAMissingHostServiceAndStillStart();
    void shouldRegisterTheSixFactoriesInOrderOnlyInPostInitialize();
    void shouldKeepTheDeviceParameterServiceFromPostInitialize();
    void shouldDeleteUserThenBasicThenAllFactoriesInUnInitialize();
    void shouldLoadTheDisplayNameCacheOnConstruction();
    void shouldSaveTheDisplayNameCacheExactlyOnceAfterUnInitializeAndDestruction();
    void shouldRegisterTheQmlTypesOnConstruction();
    void shouldRegisterTheCameraInfoPointerMetaType();
    void shouldBeAnIPluginWithItsMetadata();
    void shouldLoadTheBuiltModuleAndRegisterItsSixFactories();

private:
    QTemporaryDir m_settingsDir;
};

void tst_NodescopePlugin::initTestCase()
{
    QVERIFY(m_settingsDir.isValid());
    QVERIFY2(isolateSettings(m_settingsDir, QStringLiteral("tst_nodescopeplugin")),
             qPrintable(QSettings().fileName()));
}

void tst_NodescopePlugin::init()
{
    QSettings settings;
    settings.remove(kGroup);
    settings.sync();
}

void tst_NodescopePlugin::shouldScaleTheOptionsMenuSizeByLogicalDpi_data()
{
    QTest::addColumn<double>("dpi");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("96 dpi") << 96.0 << QSize(350, 440);
    QTest::newRow("120 dpi truncates") << 120.0 << QSize(437, 550);
    QTest::newRow("192 dpi") << 192.0 << QSize(700, 880);
    QTest::newRow("72 dpi") << 72.0 << QSize(262, 330);
}

void tst_NodescopePlugin::shouldScaleTheOptionsMenuSizeByLogicalDpi()
{
    QFETCH(double, dpi);
    QFETCH(QSize, expected);

    QCOMPARE(CNodescopePlugin::optionsMenuSize(dpi), expected);
}

void tst_NodescopePlugin::shouldMakeTheOptionsMenuView525x660OnA144DpiScreen()
{
    QCOMPARE(CNodescopePlugin::optionsMenuSize(144.0), QSize(525, 660));
}

void tst_NodescopePlugin::shouldBuildAHiddenOnTopOptionsMenuViewWithABlankTitle()
{
    TestHost host;
    CNodescopePlugin plugin;
    QVERIFY(!plugin.optionsMenuView());

    QVERIFY(plugin.initialize(&host.initializer));

    QQuickView* view = plugin.optionsMenuView();
    QVERIFY(view);
    QVERIFY(!view->isVisible());
    QCOMPARE(view->source(), QUrl(QStringLiteral("qrc:/nodescope/featuretreeoptionmenu.qml")));
    QCOMPARE(view->status(), QQuickView::Ready);
    QCOMPARE(view->flags(), kOnTopFlags);
    QCOMPARE(view->title(), QStringLiteral(" "));
    QVERIFY(!view->transientParent());
    const QSize expected =
        CNodescopePlugin::optionsMenuSize(QGuiApplication::primaryScreen()->logicalDotsPerInch());
    QCOMPARE(view->size(), expected);
    QCOMPARE(view->minimumSize(), expected);
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldLendStandardIconsToTheOptionsMenu()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);

    QQmlImageProviderBase* provider =
        plugin.optionsMenuView()->engine()->imageProvider(QStringLiteral("standardIcons"));

    QVERIFY(provider);
    QCOMPARE(provider->imageType(), QQmlImageProviderBase::Pixmap);
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::
    shouldDropStaysOnTopWhenAnotherApplicationTakesTheFocusAndRestoreItOnReturn()
{
    // Given a started plug-in, which follows the application's focus window
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    plugin.postInitialize();
    QQuickView* view = plugin.optionsMenuView();
    QWindow ownWindow;

    // When another application takes the focus
    Q_EMIT qApp->focusWindowChanged(nullptr);

    // Then the menu no longer stays on top
    QCOMPARE(view->flags(), kOnTopFlags & ~Qt::WindowStaysOnTopHint);

    // When one of our windows is focused again, it does
    Q_EMIT qApp->focusWindowChanged(&ownWindow);
    QCOMPARE(view->flags(), kOnTopFlags);
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldKeepTheOptionsMenuBelowAModalDialog()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    QWindow ownWindow;
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QTRY_VERIFY(QApplication::activeModalWidget());

    plugin.onFocusWindowChanged(&ownWindow);

    QCOMPARE(plugin.optionsMenuView()->flags(), kOnTopFlags & ~Qt::WindowStaysOnTopHint);

    dialog.hide();
    QTRY_VERIFY(!QApplication::activeModalWidget());
    plugin.onFocusWindowChanged(&ownWindow);
    QCOMPARE(plugin.optionsMenuView()->flags(), kOnTopFlags);
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldStopFollowingTheFocusAfterUnInitialize()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    plugin.postInitialize();

    QVERIFY(plugin.unInitialize(&host.initializer));
    Q_EMIT qApp->focusWindowChanged(nullptr);

    QCOMPARE(plugin.optionsMenuView()->flags(), kOnTopFlags);
}

void tst_NodescopePlugin::shouldLogBothMessagesAndEmitNothingForANullCameraInfo()
{
    CNodescopePlugin plugin;
    QSignalSpy spy(plugin.controlService().data(),
                   &CFeatureTreeControlService::activeDeviceChanged);
    MessageCapture capture;

    plugin.onActiveWindowChanged(CameraInfoPtr());

    QCOMPARE(capture.lines(),
             QStringList({QStringLiteral("onActiveWindowChanged: ptrCameraInfo IS nullptr. Not "
                                         "propagating signal..."),
                          QStringLiteral("onActiveWindowChanged: ptrCastedCameraPointer IS "
                                         "nullptr. Not propagating signal...")}));
    QCOMPARE(spy.count(), 0);
}

void tst_NodescopePlugin::shouldMakeTheGivenCameraTheActiveDevice()
{
    // Given an open camera and a listener on the control service
    auto camera = openSimulatedCamera();
    CNodescopePlugin plugin;
    QSignalSpy spy(plugin.controlService().data(),
                   &CFeatureTreeControlService::activeDeviceChanged);
    MessageCapture capture;

    // When the host activates the camera's window, calling by name as hosts do
    const CameraInfoPtr info = camera->info;
    QVERIFY(QMetaObject::invokeMethod(&plugin, "onActiveWindowChanged",
                                      Q_ARG(Plugin::CameraPool::CameraInfoPtr, info)));

    // Then the panels hear of that very camera, and nothing is logged
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<BaseInfoPtr>().data(),
             static_cast<Plugin::CameraPool::IBaseInfo*>(camera->info.data()));
    QVERIFY(capture.lines().isEmpty());
}

void tst_NodescopePlugin::shouldOfferStatusControlAndUseCaseServicesInThisOrder()
{
    TestHost host;
    const int hostServices = host.initializer.services().size();
    CNodescopePlugin plugin;

    plugin.initialize(&host.initializer);

    const auto services = host.initializer.services();
    QCOMPARE(services.size(), hostServices + 3);
    QCOMPARE(services.at(hostServices).data(), plugin.statusService().data());
    QCOMPARE(services.at(hostServices + 1).data(), plugin.controlService().data());
    QCOMPARE(services.at(hostServices + 2).data(), plugin.useCaseService().data());
    QCOMPARE(host.initializer.getService<Plugin::FeatureTree::IFeatureTreeControlService>().data(),
             plugin.controlService().data());
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldFillTheUseCaseMapsInInitialize()
{
    TestHost host;
    CNodescopePlugin plugin;
    QVERIFY(plugin.useCaseService()->getUseCaseMap().isEmpty());
    QVERIFY(plugin.useCaseService()->getBasicUseCaseMap().isEmpty());

    plugin.initialize(&host.initializer);

    QVERIFY(!plugin.useCaseService()->getUseCaseMap().isEmpty());
    QVERIFY(!plugin.useCaseService()->getBasicUseCaseMap().isEmpty());
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldCreateTheSixFactoriesWithTheirIds()
{
    TestHost host;
    CNodescopePlugin plugin;
    QVERIFY(!plugin.allFeaturesFactory());

    plugin.initialize(&host.initializer);

    const QList<CFeatureTreeWidgetFactory*> factories = factoriesOf(plugin);
    QCOMPARE(factories.size(), 6);
    for (int i = 0; i < factories.size(); ++i) {
        QVERIFY(factories.at(i));
        QCOMPARE(factories.at(i)->getId().toString(), kFactoryIds.at(i));
        QCOMPARE(factories.at(i)->widgetId().toString(), kWidgetIds.at(i));
        QCOMPARE(factories.at(i)->parent(), &plugin);
    }
    QVERIFY(!plugin.userFeaturesFactory(4));
    QVERIFY(!plugin.userFeaturesFactory(-1));
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldInjectTheHostServicesIntoEveryFactory()
{
    // Given a plug-in started with every host service
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    QSignalSpy statusSpy(plugin.statusService().data(),
                         &Plugin::FeatureTree::IFeatureTreeStatusService::newText);
    MessageCapture capture;

    for (CFeatureTreeWidgetFactory* factory : factoriesOf(plugin)) {
        // When the host asks for the factory's panel
        const Plugin::AppCore::SDockPanelFactoryProduct product = factory->createDockPanel();
        QPointer<QWidget> widget = product.widget;

        // Then it gets one, which reports to the plug-in's status service
        QVERIFY2(widget, qPrintable(factory->getId().toString()));
        auto* panel = qobject_cast<CFeatureTreeWidget*>(widget.data());
        QVERIFY(panel);
        statusSpy.clear();
        Q_EMIT panel->newText(factory->widgetId().toString());
        QCOMPARE(statusSpy.count(), 1);
        QCOMPARE(statusSpy.at(0).at(0).toString(), factory->widgetId().toString());
        delete widget.data();
    }
    QVERIFY(
        !capture.lines().contains(QStringLiteral("Needed services not available, skipping...")));
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldInjectNullForAMissingHostServiceAndStillStart()
{
    // Given a host without a device parameter service
    TestHost host(false);
    CNodescopePlugin plugin;

    // When the plug-in starts
    QVERIFY(plugin.initialize(&host.initializer));
    plugin.postInitialize();

    // Then its factories exist, but refuse to make panels
    QCOMPARE(host.instantiationService->factoryIds(), kFactoryIds);
    QVERIFY(!plugin.deviceParameterService());
    MessageCapture capture;
    for (CFeatureTreeWidgetFactory* factory : factoriesOf(plugin)) {
        QVERIFY(!factory->createDockPanel().widget);
    }
    QCOMPARE(capture.lines().count(QStringLiteral("Needed services not available, skipping...")),
             6);
    QVERIFY(plugin.unInitialize(&host.initializer));
}

void tst_NodescopePlugin::shouldRegisterTheSixFactoriesInOrderOnlyInPostInitialize()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    QVERIFY(host.instantiationService->factories().isEmpty());

    plugin.postInitialize();

    QCOMPARE(host.instantiationService->factoryIds(), kFactoryIds);
    const auto registered = host.instantiationService->factories();
    const QList<CFeatureTreeWidgetFactory*> own = factoriesOf(plugin);
    for (int i = 0; i < own.size(); ++i) {
        QCOMPARE(registered.at(i).data(), own.at(i));
    }
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldKeepTheDeviceParameterServiceFromPostInitialize()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    QVERIFY(!plugin.deviceParameterService());

    plugin.postInitialize();

    QCOMPARE(plugin.deviceParameterService().data(),
             static_cast<Plugin::CameraPool::IDeviceParameterService*>(host.cameraPool.data()));
    plugin.unInitialize(&host.initializer);
}

void tst_NodescopePlugin::shouldDeleteUserThenBasicThenAllFactoriesInUnInitialize()
{
    TestHost host;
    CNodescopePlugin plugin;
    plugin.initialize(&host.initializer);
    plugin.postInitialize();
    QStringList destroyed;
    for (CFeatureTreeWidgetFactory* factory : factoriesOf(plugin)) {
        const QString id = factory->getId().toString();
        connect(factory, &QObject::destroyed, this, [&destroyed, id] { destroyed << id; });
    }

    QVERIFY(plugin.unInitialize(&host.initializer));

    const QStringList expected{kFactoryIds.at(2), kFactoryIds.at(3), kFactoryIds.at(4),
                               kFactoryIds.at(5), kFactoryIds.at(1), kFactoryIds.at(0)};
    QCOMPARE(destroyed, expected);
    QVERIFY(!plugin.allFeaturesFactory());
    QVERIFY(!plugin.basicFeaturesFactory());
    QVERIFY(host.instantiationService->factories().isEmpty());
    QVERIFY(plugin.optionsMenuView());
}

void tst_NodescopePlugin::shouldLoadTheDisplayNameCacheOnConstruction()
{
    storeCache(QStringLiteral("PlugTestWidth:Plug Test Width;"));

    CNodescopePlugin plugin;

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("PlugTestWidth")),
             QStringLiteral("Plug Test Width"));
}

void tst_NodescopePlugin::shouldSaveTheDisplayNameCacheExactlyOnceAfterUnInitializeAndDestruction()
{
    // Given a plug-in that went through its whole life but destruction, learning a name on the way
    storeCache(QStringLiteral("A:Alpha;"));
    TestHost host;
    auto plugin = std::make_unique<CNodescopePlugin>();
    plugin->initialize(&host.initializer);
    plugin->postInitialize();
    CDisplayNameCache::cacheDisplayName(QStringLiteral("B"), QStringLiteral("Beta"));
    QVERIFY(plugin->unInitialize(&host.initializer));

    // Then nothing was saved yet
    QCOMPARE(storedCache().toString(), QStringLiteral("A:Alpha;"));

    // When a name is learnt after unInitialize and the plug-in is destroyed
    CDisplayNameCache::cacheDisplayName(QStringLiteral("C"), QStringLiteral("Gamma"));
    plugin.reset();

    // Then the one save happened at destruction and holds everything
    QCOMPARE(storedCache().toString(), QStringLiteral("A:Alpha;B:Beta;C:Gamma;"));
}

void tst_NodescopePlugin::shouldRegisterTheQmlTypesOnConstruction()
{
    CNodescopePlugin plugin;
    QQmlEngine engine;

    QQmlComponent platformInfo(&engine);
    platformInfo.setData("import Utils 1.0\nPlatformInfo {}\n", QUrl());
    std::unique_ptr<QObject> info(platformInfo.create());
    QVERIFY2(info, qPrintable(platformInfo.errorString()));
    QVERIFY(info->property("os").isValid());

    QQmlComponent menu(&engine);
    menu.setData("import FeatureOptionsMenu 1.0\nFeatureOptionsMenu {}\n", QUrl());
    std::unique_ptr<QObject> menuObject(menu.create());
    QVERIFY2(menuObject, qPrintable(menu.errorString()));
}

void tst_NodescopePlugin::shouldRegisterTheCameraInfoPointerMetaType()
{
    CNodescopePlugin plugin;

    const int type = QMetaType::type("Plugin::CameraPool::BaseInfoPtr");

    QVERIFY(type != QMetaType::UnknownType);
    QCOMPARE(type, qMetaTypeId<BaseInfoPtr>());
}

void tst_NodescopePlugin::shouldBeAnIPluginWithItsMetadata()
{
    CNodescopePlugin plugin;
    QObject* object = &plugin;

    QVERIFY(qobject_cast<Core::Plugin::IPlugin*>(object));
    QVERIFY(qobject_cast<Core::Plugin::ALocalizedPlugin*>(object));
    QCOMPARE(plugin.translationBaseName(), QStringLiteral("Nodescope"));
    QCOMPARE(plugin.translationFolder(), QStringLiteral(":/translation"));
    QVERIFY(plugin.setLanguage(QStringLiteral("ja")));
    QCOMPARE(plugin.language(), QStringLiteral("ja"));
    QVERIFY(plugin.setLanguage(QStringLiteral("xx")));
    QCOMPARE(plugin.language(), QStringLiteral("en"));
}

void tst_NodescopePlugin::shouldLoadTheBuiltModuleAndRegisterItsSixFactories()
{
    // Given the plug-in file as the host finds it
    QPluginLoader loader(QStringLiteral(NODESCOPE_PLUGIN_PATH));
    const QJsonObject metaData = loader.metaData();
    QCOMPARE(metaData.value(QStringLiteral("IID")).toString(),
             QStringLiteral(VANTO_VIEWER_PLUGIN_IID));
    const QJsonObject own = metaData.value(QStringLiteral("MetaData")).toObject();
    QStringList keys = own.keys();
    keys.sort();
    QCOMPARE(keys, QStringList({"CompatVersion", "Dependencies", "Description", "Name", "Required",
                                "Version"}));
    QCOMPARE(own.value(QStringLiteral("Name")).toString(), QStringLiteral("Nodescope"));
    QCOMPARE(own.value(QStringLiteral("Version")).toString(), QStringLiteral("6.2.0"));
    QCOMPARE(own.value(QStringLiteral("CompatVersion")).toString(), QStringLiteral("6.2.0"));
    QCOMPARE(own.value(QStringLiteral("Required")), QJsonValue(false));
    QVERIFY(!own.value(QStringLiteral("Description")).toString().isEmpty());
    QStringList dependencies;
    for (const QJsonValue& dependency : own.value(QStringLiteral("Dependencies")).toArray()) {
        const QJsonObject entry = dependency.toObject();
        dependencies << entry.value(QStringLiteral("Name")).toString() + QLatin1Char(' ') +
                            entry.value(QStringLiteral("Version")).toString();
    }
    QCOMPARE(dependencies, QStringList({"AppCore 1.2.3", "CameraPool 1.2.3", "AppCore 1.2.3",
                                        "CameraPool 1.2.3", "ImageView 6.2.3"}));

    // When the host loads it and runs it through its life
    QObject* instance = loader.instance();
    QVERIFY2(instance, qPrintable(loader.errorString()));
    auto* plugin = qobject_cast<Core::Plugin::IPlugin*>(instance);
    QVERIFY(plugin);
    TestHost host;
    QVERIFY(plugin->initialize(&host.initializer));
    QVERIFY(host.initializer.getService<Plugin::FeatureTree::IFeatureTreeControlService>());
    QVERIFY(host.initializer.getService<Plugin::FeatureTree::IFeatureTreeStatusService>());
    plugin->postInitialize();

    // Then the six panels are known to the host under their ids
    QCOMPARE(host.instantiationService->factoryIds(), kFactoryIds);

    QVERIFY(plugin->unInitialize(&host.initializer));
    QVERIFY(host.instantiationService->factories().isEmpty());
    // Destroyed but left loaded: the QML types it registered stay in the engine's registry.
    delete instance;
}

QTEST_MAIN(tst_NodescopePlugin)
#include "tst_nodescopeplugin.moc"
