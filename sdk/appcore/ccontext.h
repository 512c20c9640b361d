#pragma once

#include <core/cid.h>

#include <QList>
#include <QMetaType>

#include <initializer_list>

namespace Plugin {
namespace AppCore {

// The ids of the contexts in which a menu entry applies, such as "AppCore.Global.Context",
// most specific first. Each id appears once.
class CContext {
public:
    CContext() = default;
    CContext(const Core::CId& id);
    CContext(std::initializer_list<Core::CId> ids);

    bool contains(const Core::CId& id) const;
    // Does nothing for an invalid id or one that is present already.
    void add(const Core::CId& id);
    void add(const CContext& other);

    bool isEmpty() const;
    int size() const;
    const QList<Core::CId>& ids() const;

    // Equal when both hold the same ids in the same order.
    bool operator==(const CContext& other) const;
    bool operator!=(const CContext& other) const;

private:
    QList<Core::CId> m_ids;
};

} // namespace AppCore
} // namespace Plugin

Q_DECLARE_METATYPE(Plugin::AppCore::CContext)
