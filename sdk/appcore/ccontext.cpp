#include "ccontext.h"

namespace Plugin {
namespace AppCore {

CContext::CContext(const Core::CId& id)
{
    add(id);
}

CContext::CContext(std::initializer_list<Core::CId> ids)
{
    for (const Core::CId& id : ids) {
        add(id);
    }
}

bool CContext::contains(const Core::CId& id) const
{
    return m_ids.contains(id);
}

void CContext::add(const Core::CId& id)
{
    if (id.isValid() && !m_ids.contains(id)) {
        m_ids.append(id);
    }
}

void CContext::add(const CContext& other)
{
    for (const Core::CId& id : other.m_ids) {
        add(id);
    }
}

bool CContext::isEmpty() const
{
    return m_ids.isEmpty();
}

int CContext::size() const
{
    return m_ids.size();
}

const QList<Core::CId>& CContext::ids() const
{
    return m_ids;
}

bool CContext::operator==(const CContext& other) const
{
    return m_ids == other.m_ids;
}

bool CContext::operator!=(const CContext& other) const
{
    return m_ids != other.m_ids;
}

} // namespace AppCore
} // namespace Plugin
