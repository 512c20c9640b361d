#pragma once

#include <appcore/imenuservice.h>

#include <QHash>
#include <QList>
#include <QPointer>
#include <QString>

class QMenuBar;

namespace VantoViewer {

// The menus of the main window's menu bar: "Camera", "Edit" and "Window", each with its groups kept
// apart by separators, so that a plug-in's entries stay together whatever loads later.
class MenuService : public Plugin::AppCore::IMenuService {
    Q_OBJECT
public:
    // The host's own Edit menu and its undo group; not offered to the plug-ins yet.
    static constexpr char EDIT_MENU[] = "VantoViewer.Menu.Edit";
    static constexpr char EDIT_UNDO_GROUP[] = "VantoViewer.Group.Edit.Undo";

    explicit MenuService(QMenuBar* menuBar, QObject* parent = nullptr);
    ~MenuService() override;

    bool addAction(const Core::CId& actionId, QAction* action, const Core::CId& menuId,
                   const Core::CId& groupId, const Plugin::AppCore::CContext& context) override;
    void removeAction(const Core::CId& actionId) override;
    QMenu* menu(const Core::CId& menuId) const override;
    void registerContextMenu(const Core::CId& menuId, QMenu* menu) override;
    void unregisterContextMenu(const Core::CId& menuId) override;
    QMenu* contextMenu(const Core::CId& menuId) const override;

    // The host has one context for now, the global one; entries of other contexts stay
    // disabled until the host activates them.
    void setActiveContext(const Plugin::AppCore::CContext& context);
    QAction* action(const Core::CId& actionId) const;

private:
    struct Group {
        QString id;
        QAction* end = nullptr; // separator after the group's last entry
    };
    struct MenuEntry {
        QPointer<QMenu> menu;
        QList<Group> groups;
    };
    struct ActionEntry {
        QPointer<QAction> action;
        QPointer<QMenu> menu;
        Plugin::AppCore::CContext context;
    };

    QMenu* addMenu(const Core::CId& menuId, const QString& title, const QStringList& groupIds);
    static void updateSeparators(const MenuEntry& entry);
    void updateEnabled(ActionEntry& entry) const;

    QPointer<QMenuBar> m_menuBar;
    bool m_ownsMenus; // without a menu bar nobody else parents the menus
    QHash<QString, MenuEntry> m_menus;
    QHash<QString, ActionEntry> m_actions;
    QHash<QString, QPointer<QMenu>> m_contextMenus;
    Plugin::AppCore::CContext m_activeContext;
};

} // namespace VantoViewer
