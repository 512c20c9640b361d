#include "displaynamecache.h"

#include <QMutexLocker>
#include <QSettings>
#include <QStringList>

namespace Plugin {
namespace Nodescope {
namespace Internal {

namespace {
const char* const kGroup = "Nodescope";
const char* const kKey = "DisplayNameCache";
} // namespace

QMap<QString, QString> CDisplayNameCache::m_map;
QMutex CDisplayNameCache::m_mutex;

void CDisplayNameCache::init()
{
    QMutexLocker lock(&m_mutex);
    QSettings settings;
    settings.beginGroup(QLatin1String(kGroup));
    const QString stored = settings.value(QLatin1String(kKey)).toString();
    settings.endGroup();

    m_map = parse(stored);
}

QMap<QString, QString> CDisplayNameCache::parse(const QString& stored)
{
    QMap<QString, QString> map;
    const QStringList records = stored.split(QLatin1Char(';'), Qt::KeepEmptyParts);
    for (const QString& record : records) {
        const QStringList pieces = record.split(QLatin1Char(':'), Qt::KeepEmptyParts);
        // The store has no escaping, so anything but exactly name:displayName is damage.
        if (pieces.size() == 2) {
            map.insert(pieces.at(0), pieces.at(1));
        }
    }
    return map;
}

void CDisplayNameCache::persist()
{
    QMutexLocker lock(&m_mutex);
    const QString value = serialize(m_map);
    QSettings settings;
    settings.beginGroup(QLatin1String(kGroup));
    settings.setValue(QLatin1String(kKey), value);
    settings.endGroup();
}

QString CDisplayNameCache::serialize(const QMap<QString, QString>& map)
{
    QString value;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        const auto separatorIn = [](const QString& text) {
            return text.contains(QLatin1Char(':')) || text.contains(QLatin1Char(';'));
        };
        if (separatorIn(it.key()) || separatorIn(it.value())) {
            continue;
        }
        value += QStringLiteral("%1:%2;").arg(it.key(), it.value());
    }
    return value;
}

QString CDisplayNameCache::getDisplayName(const QString& name)
{
    QMutexLocker lock(&m_mutex);
    return m_map.value(name);
}

void CDisplayNameCache::cacheDisplayName(const QString& name, const QString& displayName)
{
    QMutexLocker lock(&m_mutex);
    m_map.insert(name, displayName);
}

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
