#pragma once

#include <QHash>
#include <QMetaType>
#include <QString>

namespace ParameterCollection {

// A parameter's full name: "@" + node map + "/" + feature, as in "@CameraDevice/Width".
class ParameterName {
public:
    ParameterName() = default;
    explicit ParameterName(const QString& fullName) : m_fullName(fullName) {}
    ParameterName(const QString& nodeMap, const QString& feature)
        : m_fullName(QLatin1Char('@') + nodeMap + QLatin1Char('/') + feature)
    {}

    const QString& toString() const { return m_fullName; }
    bool isEmpty() const { return m_fullName.isEmpty(); }

    // The node map without the leading "@": "CameraDevice".
    QString nodeMap() const;
    // The prefix the collection uses for the node map: "@CameraDevice".
    QString prefix() const;
    // The feature name inside its node map: "Width".
    QString feature() const;

    bool operator==(const ParameterName& other) const { return m_fullName == other.m_fullName; }
    bool operator!=(const ParameterName& other) const { return m_fullName != other.m_fullName; }
    bool operator<(const ParameterName& other) const { return m_fullName < other.m_fullName; }

private:
    QString m_fullName;
};

inline uint qHash(const ParameterName& name, uint seed = 0)
{
    return ::qHash(name.toString(), seed);
}

} // namespace ParameterCollection

Q_DECLARE_METATYPE(ParameterCollection::ParameterName)
