#pragma once

#include <QString>
#include <QStringList>

// The language of the user interface, as a two-letter code ("en", "ja").
namespace LanguageHelper {

// The override set by setLanguageId(), else the system locale's language, else "en". The
// code need not be one of supportedLanguages(): users of it fall back to English themselves.
QString loadLanguageId();

// Overrides the system locale, as the host's "--lang xx" does. Accepts "ja", "JA", "ja_JP" or
// "ja-JP"; an empty text removes the override, and anything else is ignored with a message.
// Safe from any thread.
void setLanguageId(const QString& languageId);

// The languages that the host and its plug-ins ship translations for: en, ja, ko, zh.
QStringList supportedLanguages();

} // namespace LanguageHelper
