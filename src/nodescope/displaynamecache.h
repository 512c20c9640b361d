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

    // The stored form, "name:display name;" per entry, both ways. Entries that the form cannot
    // hold (a ":" or ";" in either text) are left out.
    static QMap<QString, QString> parse(const QString& stored);
    static QString serialize(const QMap<QString, QString>& map);

private:
    static QMap<QString, QString> m_map;
    static QMutex m_mutex;
};

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
