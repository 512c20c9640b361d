#include "languagehelper.h"

#include <QDebug>
#include <QLocale>
#include <QMutex>
#include <QMutexLocker>

namespace LanguageHelper {

namespace {

QMutex& overrideMutex()
{
    static QMutex mutex;
    return mutex;
}

QString& overrideId()
{
    static QString id;
    return id;
}

// "ja", "JA", "ja_JP", "ja-JP.UTF-8" give "ja"; anything without a two-letter language part,
// such as the POSIX locale "C", gives an empty text.
QString normalized(const QString& code)
{
    const QString language = code.section(QLatin1Char('_'), 0, 0)
                                 .section(QLatin1Char('-'), 0, 0)
                                 .section(QLatin1Char('.'), 0, 0)
                                 .toLower();
    if (language.size() != 2) {
        return QString();
    }
    for (const QChar c : language) {
        if (c < QLatin1Char('a') || c > QLatin1Char('z')) {
            return QString();
        }
    }
    return language;
}

} // namespace

QString loadLanguageId()
{
    {
        QMutexLocker locker(&overrideMutex());
        if (!overrideId().isEmpty()) {
            return overrideId();
        }
    }
    const QString system = normalized(QLocale::system().name());
    return system.isEmpty() ? QStringLiteral("en") : system;
}

void setLanguageId(const QString& languageId)
{
    const QString language = normalized(languageId);
    if (language.isEmpty() && !languageId.isEmpty()) {
        qDebug() << "LanguageHelper: ignoring the language" << languageId
                 << "; expected a two-letter code such as \"ja\".";
        return;
    }
    QMutexLocker locker(&overrideMutex());
    overrideId() = language;
}

QStringList supportedLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("ko"), QStringLiteral("zh")};
}

} // namespace LanguageHelper
