#pragma once

#include <QHash>
#include <QMetaType>
#include <QString>

namespace Core {

// Identifier of services, factories, menus, actions and panels: dotted text such as
// "Nodescope.Widget.All". The three-part form joins its parts with dots.
class CId {
public:
    CId() = default;
    CId(const char* id) : m_id(QString::fromUtf8(id)) {}
    CId(const QString& id) : m_id(id) {}
    CId(const QString& a, const QString& b, const QString& c)
        : m_id(a + QLatin1Char('.') + b + QLatin1Char('.') + c)
    {}

    const QString& toString() const { return m_id; }
    bool isValid() const { return !m_id.isEmpty(); }

    bool operator==(const CId& other) const { return m_id == other.m_id; }
    bool operator!=(const CId& other) const { return m_id != other.m_id; }
    bool operator<(const CId& other) const { return m_id < other.m_id; }

private:
    QString m_id;
};

inline uint qHash(const CId& id, uint seed = 0)
{
    return ::qHash(id.toString(), seed);
}

} // namespace Core

Q_DECLARE_METATYPE(Core::CId)
