#include "hosttranslator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

// Q_INIT_RESOURCE must run outside any namespace; the host is a static library.
static void registerHostTranslations()
{
    Q_INIT_RESOURCE(VantoViewer_translations);
}

namespace VantoViewer {

HostTranslator::HostTranslator(QObject* parent) : QTranslator(parent)
{
    static const bool registered = [] {
        registerHostTranslations();
        return true;
    }();
    Q_UNUSED(registered)
}

HostTranslator::~HostTranslator() = default;

bool HostTranslator::install(const QString& languageCode)
{
    if (languageCode.isEmpty()) {
        return false;
    }
    // By exact path: load() would fall back to files of other languages.
    const QString path =
        QStringLiteral(":/translation/VantoViewer_%1.qm").arg(languageCode.toLower());
    if (!QFileInfo::exists(path) || !load(path)) {
        return false;
    }
    QCoreApplication::removeTranslator(this);
    if (!isEmpty() && !QCoreApplication::installTranslator(this)) {
        return false;
    }
    m_language = languageCode.toLower();
    return true;
}

QString HostTranslator::language() const
{
    return m_language;
}

} // namespace VantoViewer
