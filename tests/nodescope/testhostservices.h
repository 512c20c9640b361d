#pragma once

#include <appcore/ifeatureinstantiationservice.h>
#include <appcore/imenuservice.h>
#include <appcore/iwindowservice.h>
#include <featuretree/ifeaturetreecontrolservice.h>

#include <QAction>
#include <QList>
#include <QCoreApplication>
#include <QMap>
#include <QMenu>
#include <QPair>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

// The host's side of the feature panels, as small as the panels need it: the control channel
// only passes the host's calls on as signals, menus and window state are kept in maps.
class TestControlService : public Plugin::FeatureTree::IFeatureTreeControlService {
    Q_OBJECT
public:
    using Plugin::FeatureTree::IFeatureTreeControlService::IFeatureTreeControlService;

public Q_SLOTS:
    void registerDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT deviceRegistered(info);
    }
    void unregisterDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT deviceUnregistered(info);
    }
    void setActiveDevice(QSharedPointer<Plugin::CameraPool::IBaseInfo> info) override
    {
        Q_EMIT activeDeviceChanged(info);
    }
    void refreshFeatureTree() override { Q_EMIT featureTreeRefreshRequested(); }
    void setVisibility(GenApi::EVisibility visibility) override
    {
        Q_EMIT visibilityChangeRequested(visibility);
    }
};

class TestMenuService : public Plugin::AppCore::IMenuService {
    Q_OBJECT
public:
    using Plugin::AppCore::IMenuService::IMenuService;

    bool addAction(const Core::CId& actionId, QAction* action, const Core::CId& menuId,
                   const Core::CId& groupId, const Plugin::AppCore::CContext& context) override
    {
        if (!action || (m_actions.contains(actionId.toString()) &&
                        m_actions.value(actionId.toString()).action)) {
            return false;
        }
        m_actions.insert(actionId.toString(), {action, menuId.toString(), groupId.toString()});
        lastContext = context;
        return true;
    }
    void removeAction(const Core::CId& actionId) override { m_actions.remove(actionId.toString()); }
    QMenu* menu(const Core::CId&) const override { return nullptr; }
    void registerContextMenu(const Core::CId& menuId, QMenu* menu) override
    {
        m_contextMenus.insert(menuId.toString(), menu);
    }
    void unregisterContextMenu(const Core::CId& menuId) override
    {
        m_contextMenus.remove(menuId.toString());
    }
    QMenu* contextMenu(const Core::CId& menuId) const override
    {
        return m_contextMenus.value(menuId.toString());
    }

    QAction* action(const QString& id) const { return m_actions.value(id).action; }
    QString menuOf(const QString& id) const { return m_actions.value(id).menu; }
    QString groupOf(const QString& id) const { return m_actions.value(id).group; }
    int actionCount() const { return m_actions.size(); }

    Plugin::AppCore::CContext lastContext;

private:
    struct Entry {
        QPointer<QAction> action;
        QString menu;
        QString group;
    };
    QMap<QString, Entry> m_actions;
    QMap<QString, QPointer<QMenu>> m_contextMenus;
};

class TestWindowService : public Plugin::AppCore::IWindowService {
    Q_OBJECT
public:
    using Plugin::AppCore::IWindowService::IWindowService;

    void saveState(const Core::CId& widgetId, const QString& key, const QVariant& value) override
    {
        m_state.insert(qMakePair(widgetId.toString(), key), value);
    }
    QVariant restoreState(const Core::CId& widgetId, const QString& key,
                          const QVariant& defaultValue) const override
    {
        return m_state.value(qMakePair(widgetId.toString(), key), defaultValue);
    }
    QMainWindow* mainWindow() const override { return nullptr; }

private:
    QMap<QPair<QString, QString>, QVariant> m_state;
};

// Keeps the registered panel factories in order; like the host, it forgets a factory once it
// is destroyed.
class TestFeatureInstantiationService : public Plugin::AppCore::IFeatureInstantiationService {
    Q_OBJECT
public:
    using Plugin::AppCore::IFeatureInstantiationService::IFeatureInstantiationService;

    void registerFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) override
    {
        if (!factory || m_factories.contains(factory)) {
            return;
        }
        m_factories.append(factory);
        Q_EMIT factoryRegistered(factory);
    }
    void unregisterFactory(QPointer<Plugin::AppCore::IDockPanelFactory> factory) override
    {
        if (m_factories.removeAll(factory) > 0) {
            Q_EMIT factoryUnregistered(factory);
        }
    }
    QList<QPointer<Plugin::AppCore::IDockPanelFactory>> factories() const override
    {
        QList<QPointer<Plugin::AppCore::IDockPanelFactory>> alive;
        for (const QPointer<Plugin::AppCore::IDockPanelFactory>& factory : m_factories) {
            if (factory) {
                alive.append(factory);
            }
        }
        return alive;
    }

    QStringList factoryIds() const
    {
        QStringList ids;
        for (const QPointer<Plugin::AppCore::IDockPanelFactory>& factory : factories()) {
            ids.append(factory->getId().toString());
        }
        return ids;
    }

private:
    QList<QPointer<Plugin::AppCore::IDockPanelFactory>> m_factories;
};

// Keeps the user's real settings out of reach: own names, own folder.
inline bool isolateSettings(const QTemporaryDir& dir, const QString& applicationName)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("NodescopeTests"));
    QCoreApplication::setApplicationName(applicationName);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, dir.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, dir.path());
    return QSettings().fileName().startsWith(dir.path());
}
