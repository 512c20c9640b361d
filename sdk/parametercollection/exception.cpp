#include "exception.h"

namespace ParameterCollection {

Exception::Exception(Kind kind, const QString& featureName, const QString& message)
    : m_kind(kind), m_featureName(featureName), m_message(message), m_what(text().toUtf8())
{}

QString Exception::text() const
{
    return QStringLiteral("[%1] %2").arg(m_featureName, m_message);
}

} // namespace ParameterCollection
