#pragma once

#include "ifeaturetreeusecaseservice.h"

#include <appcore/idockpanelfactory.h>
#include <appcore/imenuservice.h>
#include <appcore/iwindowservice.h>
#include <camerapool/ideviceparameterservice.h>
#include <core/cid.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <featuretree/ifeaturetreestatusservice.h>

#include <QPointer>
#include <QSharedPointer>

class QQuickView;

namespace Plugin {
namespace Nodescope {

class CFeatureTreeWidget;

// Makes the widget of one feature panel (all features, basic, or one user tab) when the host
// first shows it, and hands out the same widget as long as it lives.
class CFeatureTreeWidgetFactory : public Plugin::AppCore::IDockPanelFactory {
    Q_OBJECT
public:
    CFeatureTreeWidgetFactory(const Core::CId& factoryId, const Core::CId& widgetId,
                              QQuickView* view, QObject* parent = nullptr);
    ~CFeatureTreeWidgetFactory() override;

    Core::CId getId() const override { return m_factoryId; }
    Core::CId widgetId() const { return m_widgetId; }

    void injectMenuService(QSharedPointer<Plugin::AppCore::IMenuService> service);
    void
    injectParameterService(QSharedPointer<Plugin::CameraPool::IDeviceParameterService> service);
    void injectFeatureTreeControlService(
        QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> service);
    void injectFeatureTreeStatusService(
        QSharedPointer<Plugin::FeatureTree::IFeatureTreeStatusService> service);
    void injectFeatureTreeUseCaseService(QSharedPointer<IFeatureTreeUseCaseService> service);
    void injectWindowService(QSharedPointer<Plugin::AppCore::IWindowService> service);

    Plugin::AppCore::SDockPanelFactoryProduct createDockPanel() override;

    // The panel's title as the host shows it in its tabs and menus ("&" doubled); empty for a
    // user tab without a name. The widget carries it as its window title, kept up to date.
    QString title() const;

private:
    Core::CId m_factoryId;
    Core::CId m_widgetId;
    QQuickView* m_view = nullptr; // not owned: shared by all panels
    QPointer<CFeatureTreeWidget> m_widget;

    QSharedPointer<Plugin::AppCore::IMenuService> m_menuService;
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> m_parameterService;
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeControlService> m_controlService;
    QSharedPointer<Plugin::FeatureTree::IFeatureTreeStatusService> m_statusService;
    QSharedPointer<IFeatureTreeUseCaseService> m_useCaseService;
    QSharedPointer<Plugin::AppCore::IWindowService> m_windowService;
};

} // namespace Nodescope
} // namespace Plugin
