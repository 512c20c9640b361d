#pragma once

#include <appcore/ccontext.h>
#include <core/cid.h>
#include <core/iservice.h>

class QAction;
class QMenu;

namespace Plugin {
namespace AppCore {

// The host's menus. Menus, groups and contexts are known by id (appcoreconstants.h); actions
// and context menus stay owned by whoever adds them, and the host forgets them when they are
// destroyed.
class IMenuService : public Core::Service::IService {
    Q_OBJECT
public:
    using Core::Service::IService::IService;
    ~IMenuService() override = default;

    // Puts the action at the end of the group of the menu; it is enabled only while the
    // context is active. False when the menu or group is unknown or the action id is taken.
    virtual bool addAction(const Core::CId& actionId, QAction* action, const Core::CId& menuId,
                           const Core::CId& groupId, const CContext& context) = 0;
    virtual void removeAction(const Core::CId& actionId) = 0;
    // Null for an unknown id.
    virtual QMenu* menu(const Core::CId& menuId) const = 0;

    // Context menus that plug-ins share, such as the feature tree's, so that other plug-ins
    // can add their entries to them.
    virtual void registerContextMenu(const Core::CId& menuId, QMenu* menu) = 0;
    virtual void unregisterContextMenu(const Core::CId& menuId) = 0;
    // Null for an unknown id.
    virtual QMenu* contextMenu(const Core::CId& menuId) const = 0;
};

} // namespace AppCore
} // namespace Plugin
