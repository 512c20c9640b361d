#pragma once

#include <QMap>
#include <QMutex>
#include <QString>

namespace Plugin {
namespace Nodescope {
namespace Internal {

// Feature name to display name, for every feature the plug-in has seen in any camera. Feature
// tabs list features by name even when no camera is open, and still want to show the names a
// user knows.
class CDisplayNameCache {
public:
    CDisplayNameCache() = delete;

    static void init();
    static void persist();
    static QString getDisplayName(const QString& name);
    static void cacheDisplayName(const QString& name, const QString& displayName);

private:
    static QMap<QString, QString> m_map;
    static QMutex m_mutex;
};

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
