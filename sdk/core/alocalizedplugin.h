#pragma once

#include <core/iplugin.h>

#include <QString>

class QTranslator;

namespace Core {
namespace Plugin {

// A plug-in with its own translations, compiled in as "<baseName>_<code>.qm" files under one
// resource folder. The host calls setLanguage() with the user's language after loading it.
class ALocalizedPlugin : public IPlugin {
    Q_OBJECT
public:
    // For example ("Nodescope", ":/translation").
    ALocalizedPlugin(const QString& translationBaseName, const QString& translationFolder,
                     QObject* parent = nullptr);
    ~ALocalizedPlugin() override;

    // Replaces the plug-in's installed translation by the one for languageCode ("ja"). Without
    // a file for that code, English is installed instead, and without an English file nothing
    // is: the source texts are English. True when a translation file was found and loaded.
    bool setLanguage(const QString& languageCode);

    // The code whose file is installed ("ja", or "en" after a fallback); empty when none is.
    QString language() const;

    QString translationBaseName() const;
    QString translationFolder() const;

private:
    bool install(const QString& languageCode);

    QString m_baseName;
    QString m_folder;
    QString m_language;
    QTranslator* m_translator; // child
};

} // namespace Plugin
} // namespace Core
