#include "nodescopeplugin.h"

#include "displaynamecache.h"
#include "featuretreecontrolservice.h"
#include "featuretreestatusservice.h"
#include "featuretreeusecaseservice.h"
#include "featuretreewidgetfactory.h"
#include "internal/view/standardiconprovider.h"
#include "nodescopeconstants.h"
#include "nodescopeqmltypes.h"
#include "nodescoperesources.h"

#include <appcore/ifeatureinstantiationservice.h>
#include <appcore/imenuservice.h>
#include <appcore/iwindowservice.h>
#include <camerapool/ibaseinfo.h>
#include <camerapool/icamerainfo.h>
#include <camerapool/ideviceparameterservice.h>
#include <utils/platforminfo.h>

#include <QApplication>
#include <QDebug>
#include <QDesktopWidget>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>
#include <QUrl>
#include <QtQml>

namespace Plugin {
namespace Nodescope {

namespace {

const char* const OPTIONS_MENU_SOURCE = "qrc:/nodescope/featuretreeoptionmenu.qml";
const int OPTIONS_MENU_WIDTH = 350;
const int OPTIONS_MENU_HEIGHT = 440;
const double DEFAULT_DPI = 96.0;

// The options menu stays on top only while the application has the focus; these are its flags
// then, and without Qt::WindowStaysOnTopHint otherwise.
const Qt::WindowFlags OPTIONS_MENU_FLAGS = Qt::Tool | Qt::WindowTitleHint |
                                           Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint |
                                           Qt::WindowCloseButtonHint;

Core::CId factoryId(const QString& name)
{
    return Core::CId(QStringLiteral("Plugin"), QStringLiteral("Nodescope"), name);
}

double primaryScreenDpi()
{
    // The desktop's screen asked for no widget is the primary one.
    QScreen* screen = nullptr;
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        const int number = QApplication::desktop()->screenNumber();
        const QList<QScreen*> screens = QGuiApplication::screens();
        if (number >= 0 && number < screens.size()) {
            screen = screens.at(number);
        }
    }
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen ? screen->logicalDotsPerInch() : DEFAULT_DPI;
}

} // namespace

CNodescopePlugin::CNodescopePlugin()
    : Core::Plugin::ALocalizedPlugin(QStringLiteral("Nodescope"), QStringLiteral(":/translation"))
{
    initNodescopeResources();
    // Camera infos travel through queued connections between the host and the panels.
    qRegisterMetaType<Plugin::CameraPool::BaseInfoPtr>("Plugin::CameraPool::BaseInfoPtr");

    m_statusService = QSharedPointer<Internal::CFeatureTreeStatusService>::create(nullptr);
    m_controlService = QSharedPointer<Internal::CFeatureTreeControlService>::create(nullptr);
    m_useCaseService = QSharedPointer<Internal::CFeatureTreeUseCaseService>::create(nullptr);

    registerNodescopeQmlTypes();
    static const bool platformInfoRegistered = [] {
        qmlRegisterType<Utils::PlatformInfo>("Utils", 1, 0, "PlatformInfo");
        return true;
    }();
    Q_UNUSED(platformInfoRegistered)

    Internal::CDisplayNameCache::init();
}

CNodescopePlugin::~CNodescopePlugin()
{
    // Saved here and nowhere else, so once per run, with everything the panels learnt.
    Internal::CDisplayNameCache::persist();

    QObject::disconnect(m_focusConnection);
    m_deviceParameterService.reset();
    m_useCaseService.reset();
    m_controlService.reset();
    m_statusService.reset();
    delete m_view;
    m_view = nullptr;
}

bool CNodescopePlugin::initialize(QPointer<Core::Plugin::IPluginInitializer> initializer)
{
    m_initializer = initializer;

    // The use case maps must be filled before the first panel asks for them.
    m_useCaseService->initialize();

    if (m_initializer) {
        m_initializer->registerService(m_statusService);
        m_initializer->registerService(m_controlService);
        m_initializer->registerService(m_useCaseService);
    } else {
        qDebug() << "CNodescopePlugin: no plug-in initializer, services not offered.";
    }

    createOptionsMenuView();
    createFactories();
    injectServices();
    return true;
}

void CNodescopePlugin::postInitialize()
{
    QSharedPointer<Plugin::AppCore::IFeatureInstantiationService> instantiationService;
    if (m_initializer) {
        instantiationService =
            m_initializer->getService<Plugin::AppCore::IFeatureInstantiationService>();
        m_deviceParameterService =
            m_initializer->getService<Plugin::CameraPool::IDeviceParameterService>();
    }

    if (instantiationService) {
        QList<CFeatureTreeWidgetFactory*> factories{m_allFactory, m_basicFactory};
        for (CFeatureTreeWidgetFactory* factory : m_userFactories) {
            factories.append(factory);
        }
        for (CFeatureTreeWidgetFactory* factory : qAsConst(factories)) {
            if (factory) {
                instantiationService->registerFactory(factory);
            }
        }
    } else {
        qDebug() << "CNodescopePlugin: no feature instantiation service, panels not registered.";
    }

    if (auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QObject::disconnect(m_focusConnection);
        m_focusConnection = connect(application, &QGuiApplication::focusWindowChanged, this,
                                    &CNodescopePlugin::onFocusWindowChanged);
    }
}

bool CNodescopePlugin::unInitialize(QPointer<Core::Plugin::IPluginInitializer> initializer)
{
    Q_UNUSED(initializer)
    QObject::disconnect(m_focusConnection);

    for (CFeatureTreeWidgetFactory*& factory : m_userFactories) {
        delete factory;
        factory = nullptr;
    }
    delete m_basicFactory;
    m_basicFactory = nullptr;
    delete m_allFactory;
    m_allFactory = nullptr;
    return true;
}

QSize CNodescopePlugin::optionsMenuSize(double logicalDpi)
{
    const double scale = logicalDpi / DEFAULT_DPI;
    return QSize(static_cast<int>(OPTIONS_MENU_WIDTH * scale),
                 static_cast<int>(OPTIONS_MENU_HEIGHT * scale));
}

CFeatureTreeWidgetFactory* CNodescopePlugin::userFeaturesFactory(int index) const
{
    if (index < 0 || index >= USER_FACTORY_COUNT) {
        return nullptr;
    }
    return m_userFactories[index];
}

void CNodescopePlugin::onActiveWindowChanged(
    QSharedPointer<Plugin::CameraPool::ICameraInfo> ptrCameraInfo)
{
    if (!ptrCameraInfo) {
        qDebug() << "onActiveWindowChanged: ptrCameraInfo IS nullptr. Not propagating signal...";
    }
    const QSharedPointer<Plugin::CameraPool::IBaseInfo> ptrCastedCameraPointer = ptrCameraInfo;
    if (!ptrCastedCameraPointer) {
        qDebug() << "onActiveWindowChanged: ptrCastedCameraPointer IS nullptr. Not propagating "
                    "signal...";
        return;
    }
    if (m_controlService) {
        m_controlService->setActiveDevice(ptrCastedCameraPointer);
    }
}

void CNodescopePlugin::onFocusWindowChanged(QWindow* window)
{
    if (!m_view) {
        return;
    }
    // Above the application while it has the focus, but never above another application's
    // windows nor above a modal dialog of our own.
    if (window && !QApplication::activeModalWidget()) {
        m_view->setFlags(OPTIONS_MENU_FLAGS);
        m_view->raise();
    } else {
        m_view->setFlags(OPTIONS_MENU_FLAGS & ~Qt::WindowStaysOnTopHint);
        m_view->lower();
    }
}

void CNodescopePlugin::createOptionsMenuView()
{
    if (m_view) {
        return;
    }
    m_view = new QQuickView();
    // The provider goes in before the scene loads, so that icons asked for while loading find it.
    m_view->engine()->addImageProvider(
        QString::fromLatin1(Internal::View::CStandardIconProvider::PROVIDER_ID),
        new Internal::View::CStandardIconProvider(QQuickImageProvider::Pixmap));
    m_view->setSource(QUrl(QString::fromLatin1(OPTIONS_MENU_SOURCE)));

    const QSize size = optionsMenuSize(primaryScreenDpi());
    m_view->resize(size);
    m_view->setMinimumSize(size);
    m_view->setFlags(OPTIONS_MENU_FLAGS);
    // A blank rather than an empty title, so that the title bar shows no application name.
    m_view->setTitle(QStringLiteral(" "));
    m_view->hide();
}

void CNodescopePlugin::createFactories()
{
    if (m_allFactory) {
        return;
    }
    m_allFactory =
        new CFeatureTreeWidgetFactory(factoryId(QStringLiteral("Factory All Settings")),
                                      Core::CId(Constants::W_FEATURETREE_WIDGET_ALL), m_view, this);
    m_basicFactory = new CFeatureTreeWidgetFactory(
        factoryId(QStringLiteral("Factory Basic Settings")),
        Core::CId(Constants::W_FEATURETREE_WIDGET_BASIC), m_view, this);
    for (int i = 0; i < USER_FACTORY_COUNT; ++i) {
        m_userFactories[i] = new CFeatureTreeWidgetFactory(
            factoryId(QStringLiteral("Factory User Features ") + QString::number(i)),
            Core::CId(Constants::W_FEATURETREE_WIDGET_USER_IDS[i]), m_view, this);
    }
}

void CNodescopePlugin::injectServices()
{
    // Services the host lacks go in as null; the factories refuse to build panels then.
    QSharedPointer<Plugin::AppCore::IMenuService> menuService;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> parameterService;
    QSharedPointer<Plugin::AppCore::IWindowService> windowService;
    if (m_initializer) {
        menuService = m_initializer->getService<Plugin::AppCore::IMenuService>();
        parameterService = m_initializer->getService<Plugin::CameraPool::IDeviceParameterService>();
        windowService = m_initializer->getService<Plugin::AppCore::IWindowService>();
    }

    QList<CFeatureTreeWidgetFactory*> factories{m_allFactory, m_basicFactory};
    for (CFeatureTreeWidgetFactory* factory : m_userFactories) {
        factories.append(factory);
    }
    for (CFeatureTreeWidgetFactory* factory : qAsConst(factories)) {
        factory->injectMenuService(menuService);
        factory->injectParameterService(parameterService);
        factory->injectFeatureTreeControlService(m_controlService);
        factory->injectFeatureTreeStatusService(
            m_statusService.staticCast<Plugin::FeatureTree::IFeatureTreeStatusService>());
        factory->injectFeatureTreeUseCaseService(
            m_useCaseService.staticCast<IFeatureTreeUseCaseService>());
        factory->injectWindowService(windowService);
    }
}

} // namespace Nodescope
} // namespace Plugin
