#include "featuretreewidgetfactory.h"

#include "featuretreewidget.h"
#include "nodescopeconstants.h"

#include <QDebug>

namespace Plugin {
namespace Nodescope {

CFeatureTreeWidgetFactory::CFeatureTreeWidgetFactory(const Core::CId& factoryId,
                                                     const Core::CId& widgetId, QQuickView* view,
                                                     QObject* parent)
    : Plugin::AppCore::IDockPanelFactory(parent), m_factoryId(factoryId), m_widgetId(widgetId),
      m_view(view)
{}

CFeatureTreeWidgetFactory::~CFeatureTreeWidgetFactory() = default;

void CFeatureTreeWidgetFactory::injectMenuService(
    QSharedPointer<Plugin::AppCore::IMenuService> service)
{
    m_menuService = std::move(service);
}

void CFeatureTreeWidgetFactory::injectParameterService(
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> service)
{
    m_parameterService = std::move(service);
}

void CFeatureTreeWidgetFactory::injectFeatureTreeControlService(
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> service)
{
    m_controlService = std::move(service);
}

void CFeatureTreeWidgetFactory::injectFeatureTreeStatusService(
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeStatusService> service)
{
    m_statusService = std::move(service);
}

void CFeatureTreeWidgetFactory::injectFeatureTreeUseCaseService(
    QSharedPointer<IFeatureTreeUseCaseService> service)
{
    m_useCaseService = std::move(service);
}

void CFeatureTreeWidgetFactory::injectWindowService(
    QSharedPointer<Plugin::AppCore::IWindowService> service)
{
    m_windowService = std::move(service);
}

Plugin::AppCore::SDockPanelFactoryProduct CFeatureTreeWidgetFactory::createDockPanel()
{
    if (!m_parameterService || !m_controlService || !m_useCaseService) {
        qDebug() << "Needed services not available, skipping...";
        return Plugin::AppCore::SDockPanelFactoryProduct();
    }
    if (!m_widget) {
        m_widget = new CFeatureTreeWidget(m_menuService, m_controlService, m_parameterService,
                                          m_useCaseService, m_windowService, m_widgetId, m_view);
        if (m_statusService) {
            using Plugin::FeatureTree::IFeatureTreeStatusService;
            auto* status = m_statusService.data();
            connect(m_widget.data(), &CFeatureTreeWidget::visibilityChanged, status,
                    &IFeatureTreeStatusService::visibilityChanged);
            connect(m_widget.data(), &CFeatureTreeWidget::currentChanged, status,
                    &IFeatureTreeStatusService::currentChanged);
            connect(m_widget.data(), &CFeatureTreeWidget::newText, status,
                    &IFeatureTreeStatusService::newText);
        }
        // The host titles the panel's dock after the widget, so that a renamed tab shows its
        // new name at once.
        connect(m_widget.data(), &CFeatureTreeWidget::userTabStored, this, [this]() {
            if (m_widget) {
                m_widget->setWindowTitle(title());
            }
        });
    }
    m_widget->setWindowTitle(title());

    Plugin::AppCore::SDockPanelFactoryProduct product;
    product.widget = m_widget.data();
    product.title = title();
    product.icon = QIcon();
    product.id = m_widgetId;
    return product;
}

QString CFeatureTreeWidgetFactory::title() const
{
    QString suffix;
    if (m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_ALL)) {
        suffix = tr("All");
    } else if (m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_BASIC)) {
        suffix = tr("Basic");
    } else {
        for (int tab = 0; tab < Constants::USER_TAB_COUNT; ++tab) {
            if (m_widgetId == Core::CId(Constants::W_FEATURETREE_WIDGET_USER_IDS[tab])) {
                suffix = CFeatureTreeWidget::storedUserTabName(tab);
                if (suffix.isEmpty()) {
                    // A tab without a name does not exist: nothing for the host to list.
                    return QString();
                }
                // The host's menus would take a lone "&" for a shortcut mark.
                suffix.replace(QLatin1Char('&'), QStringLiteral("&&"));
            }
        }
    }
    return tr("Features") + QStringLiteral(" \u2013 ") + suffix;
}

} // namespace Nodescope
} // namespace Plugin
