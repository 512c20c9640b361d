#include "alocalizedplugin.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QTranslator>

namespace Core {
namespace Plugin {

namespace {
// The source texts are English, so this is the language that every plug-in has.
const QLatin1String FALLBACK_LANGUAGE("en");
} // namespace

ALocalizedPlugin::ALocalizedPlugin(const QString& translationBaseName,
                                   const QString& translationFolder, QObject* parent)
    : IPlugin(parent), m_baseName(translationBaseName), m_folder(translationFolder),
      m_translator(new QTranslator(this))
{}

ALocalizedPlugin::~ALocalizedPlugin() = default;

bool ALocalizedPlugin::setLanguage(const QString& languageCode)
{
    m_language.clear();
    if (!QCoreApplication::instance()) {
        qDebug() << "ALocalizedPlugin: no application to install a translator on.";
        return false;
    }
    // Does nothing when the translator is not installed.
    QCoreApplication::removeTranslator(m_translator);
    if (install(languageCode)) {
        return true;
    }
    return languageCode != FALLBACK_LANGUAGE && install(FALLBACK_LANGUAGE);
}

QString ALocalizedPlugin::language() const
{
    return m_language;
}

QString ALocalizedPlugin::translationBaseName() const
{
    return m_baseName;
}

QString ALocalizedPlugin::translationFolder() const
{
    return m_folder;
}

bool ALocalizedPlugin::install(const QString& languageCode)
{
    if (languageCode.isEmpty()) {
        return false;
    }
    // Checked by exact path: QTranslator::load() would otherwise strip "_<code>" and
    // silently take "<baseName>.qm" or a file of another language.
    const QString fileName = m_baseName + QLatin1Char('_') + languageCode + QStringLiteral(".qm");
    const QString path = QDir(m_folder).filePath(fileName);
    if (!QFileInfo::exists(path) || !m_translator->load(path)) {
        return false;
    }
    // A file without translations, as the English one is, loads but cannot be installed;
    // the source texts are then what the user reads, which is what was asked for.
    if (!m_translator->isEmpty() && !QCoreApplication::installTranslator(m_translator)) {
        return false;
    }
    m_language = languageCode;
    return true;
}

} // namespace Plugin
} // namespace Core
