#include "parametername.h"

namespace ParameterCollection {

QString ParameterName::nodeMap() const
{
    const QString p = prefix();
    return p.startsWith(QLatin1Char('@')) ? p.mid(1) : p;
}

QString ParameterName::prefix() const
{
    const int slash = m_fullName.indexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : m_fullName.left(slash);
}

QString ParameterName::feature() const
{
    const int slash = m_fullName.indexOf(QLatin1Char('/'));
    return slash < 0 ? m_fullName : m_fullName.mid(slash + 1);
}

} // namespace ParameterCollection
