#pragma once

#include <QString>
#include <QTranslator>

namespace VantoViewer {

// The window's own texts in the user's language. Plug-ins bring their own translations.
class HostTranslator : public QTranslator {
    Q_OBJECT
public:
    explicit HostTranslator(QObject* parent = nullptr);
    ~HostTranslator() override;

    // Loads ":/translation/VantoViewer_<code>.qm" and installs it in the application. False for
    // a language without a file; the window then speaks English.
    bool install(const QString& languageCode);
    QString language() const;

private:
    QString m_language;
};

} // namespace VantoViewer
