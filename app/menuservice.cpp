#include "menuservice.h"

#include <appcore/appcoreconstants.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace VantoViewer {

namespace Constants = Plugin::AppCore::Constants;

MenuService::MenuService(QMenuBar* menuBar, QObject* parent)
    : Plugin::AppCore::IMenuService(parent), m_menuBar(menuBar), m_ownsMenus(!menuBar),
      m_activeContext(Core::CId(Constants::C_GLOBAL_CONTEXT))
{
    addMenu(Core::CId(Constants::M_CAMERA), tr("&Camera"),
            {QString::fromLatin1(Constants::G_CAMERA_DEVICES),
             QString::fromLatin1(Constants::G_CAMERA_FEATURES)});
    addMenu(Core::CId(EDIT_MENU), tr("&Edit"), {QString::fromLatin1(EDIT_UNDO_GROUP)});
    addMenu(Core::CId(Constants::M_WINDOW), tr("&Window"),
            {QString::fromLatin1(Constants::G_WINDOW_WINDOWS)});
}

MenuService::~MenuService()
{
    if (m_ownsMenus) {
        for (const MenuEntry& entry : qAsConst(m_menus)) {
            delete entry.menu.data();
        }
    }
}

QMenu* MenuService::addMenu(const Core::CId& menuId, const QString& title,
                            const QStringList& groupIds)
{
    // Without a menu bar (tests, batch runs) the menus still exist, only unseen.
    QMenu* menu = m_menuBar ? m_menuBar->addMenu(title) : new QMenu(title);
    menu->setObjectName(menuId.toString());
    MenuEntry entry;
    entry.menu = menu;
    for (const QString& groupId : groupIds) {
        QAction* end = menu->addSeparator();
        end->setObjectName(groupId);
        // Empty groups show no line; the separators only mark where each group ends.
        end->setVisible(false);
        entry.groups.append({groupId, end});
    }
    m_menus.insert(menuId.toString(), entry);
    return menu;
}

bool MenuService::addAction(const Core::CId& actionId, QAction* action, const Core::CId& menuId,
                            const Core::CId& groupId, const Plugin::AppCore::CContext& context)
{
    if (!action || !actionId.isValid()) {
        return false;
    }
    const auto taken = m_actions.constFind(actionId.toString());
    if (taken != m_actions.constEnd() && taken->action) {
        return false;
    }
    const auto menuEntry = m_menus.constFind(menuId.toString());
    if (menuEntry == m_menus.constEnd() || !menuEntry->menu) {
        return false;
    }
    const QList<Group>& groups = menuEntry->groups;
    int groupIndex = -1;
    for (int i = 0; i < groups.size(); ++i) {
        if (groups.at(i).id == groupId.toString()) {
            groupIndex = i;
        }
    }
    if (groupIndex < 0) {
        return false;
    }
    QMenu* menu = menuEntry->menu;
    menu->insertAction(groups.at(groupIndex).end, action);
    updateSeparators(*menuEntry);

    ActionEntry entry{action, menu, context};
    updateEnabled(entry);
    m_actions.insert(actionId.toString(), entry);
    const QString id = actionId.toString();
    connect(action, &QObject::destroyed, this, [this, id]() {
        const auto it = m_actions.find(id);
        if (it != m_actions.end() && !it->action) {
            const QPointer<QMenu> menu = it->menu;
            m_actions.erase(it);
            for (const MenuEntry& menuEntry : qAsConst(m_menus)) {
                if (menu && menuEntry.menu == menu) {
                    updateSeparators(menuEntry);
                }
            }
        }
    });
    return true;
}

void MenuService::removeAction(const Core::CId& actionId)
{
    const ActionEntry entry = m_actions.take(actionId.toString());
    if (entry.action && entry.menu) {
        entry.menu->removeAction(entry.action);
        for (const MenuEntry& menuEntry : qAsConst(m_menus)) {
            if (menuEntry.menu == entry.menu) {
                updateSeparators(menuEntry);
            }
        }
    }
}

QMenu* MenuService::menu(const Core::CId& menuId) const
{
    return m_menus.value(menuId.toString()).menu;
}

void MenuService::registerContextMenu(const Core::CId& menuId, QMenu* menu)
{
    if (!menuId.isValid() || !menu) {
        return;
    }
    m_contextMenus.insert(menuId.toString(), menu);
}

void MenuService::unregisterContextMenu(const Core::CId& menuId)
{
    m_contextMenus.remove(menuId.toString());
}

QMenu* MenuService::contextMenu(const Core::CId& menuId) const
{
    return m_contextMenus.value(menuId.toString());
}

void MenuService::setActiveContext(const Plugin::AppCore::CContext& context)
{
    m_activeContext = context;
    for (ActionEntry& entry : m_actions) {
        updateEnabled(entry);
    }
}

QAction* MenuService::action(const Core::CId& actionId) const
{
    return m_actions.value(actionId.toString()).action;
}

void MenuService::updateSeparators(const MenuEntry& entry)
{
    if (!entry.menu) {
        return;
    }
    // A line between two groups only when both have entries; empty groups show nothing.
    const QList<QAction*> actions = entry.menu->actions();
    QList<bool> filled;
    int start = 0;
    for (const Group& group : entry.groups) {
        const int end = actions.indexOf(group.end);
        filled.append(end > start);
        start = end + 1;
    }
    for (int i = 0; i < entry.groups.size(); ++i) {
        bool laterFilled = false;
        for (int j = i + 1; j < filled.size(); ++j) {
            laterFilled = laterFilled || filled.at(j);
        }
        entry.groups.at(i).end->setVisible(filled.at(i) && laterFilled);
    }
}

void MenuService::updateEnabled(ActionEntry& entry) const
{
    if (!entry.action) {
        return;
    }
    bool active = entry.context.isEmpty();
    for (const Core::CId& id : entry.context.ids()) {
        active = active || m_activeContext.contains(id);
    }
    // The owner decides when an active entry is enabled (Copy waits for a camera); the host
    // only holds entries of inactive contexts off.
    if (!active) {
        entry.action->setEnabled(false);
    }
}

} // namespace VantoViewer
