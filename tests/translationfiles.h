#pragma once

// Reading Qt Linguist .ts files, for the tests that check a component's translations.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>
#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

namespace TranslationFiles {

const QStringList LANGUAGES = {QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("ko"),
                               QStringLiteral("zh")};

struct TsMessage {
    QString context;
    QString source;
    QString comment;
    QString type;
    bool numerus = false;
    // One entry, or one per plural form.
    QStringList translations;

    QString key() const { return context + QLatin1Char('|') + source + QLatin1Char('|') + comment; }
    QString where() const { return QStringLiteral("%1 \"%2\"").arg(context, source); }
};

struct TsFile {
    QString language;
    QList<TsMessage> messages;
    QString error;
};

inline QString sourceDir()
{
    return QString::fromLocal8Bit(qgetenv("NODESCOPE_SOURCE_DIR"));
}

inline void readTranslation(QXmlStreamReader& xml, TsMessage& message)
{
    message.type = xml.attributes().value(QLatin1String("type")).toString();
    if (!message.numerus) {
        message.translations.append(xml.readElementText());
        return;
    }
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("numerusform")) {
            message.translations.append(xml.readElementText());
        } else {
            xml.skipCurrentElement();
        }
    }
}

inline TsMessage readMessage(QXmlStreamReader& xml, const QString& context)
{
    TsMessage message;
    message.context = context;
    message.numerus = xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            readTranslation(xml, message);
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

inline TsFile readTsFile(const QString& path)
{
    TsFile ts;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ts.error = QStringLiteral("cannot open %1").arg(path);
        return ts;
    }
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("TS")) {
        ts.error = QStringLiteral("%1 is no translation file").arg(path);
        return ts;
    }
    ts.language = xml.attributes().value(QLatin1String("language")).toString();
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("context")) {
            xml.skipCurrentElement();
            continue;
        }
        QString context;
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("name")) {
                context = xml.readElementText();
            } else if (xml.name() == QLatin1String("message")) {
                ts.messages.append(readMessage(xml, context));
            } else {
                xml.skipCurrentElement();
            }
        }
    }
    if (xml.hasError()) {
        ts.error = QStringLiteral("%1, line %2: %3")
                       .arg(path)
                       .arg(xml.lineNumber())
                       .arg(xml.errorString());
    }
    return ts;
}

inline QSet<QString> keys(const TsFile& ts)
{
    QSet<QString> result;
    for (const TsMessage& message : ts.messages) {
        result.insert(message.key());
    }
    return result;
}

inline QString describe(QSet<QString> keys)
{
    QStringList list = keys.values();
    list.sort();
    return list.join(QStringLiteral("; "));
}

inline QSet<QString> placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%L?([1-9][0-9]?|n)"));
    QSet<QString> result;
    auto it = pattern.globalMatch(text);
    while (it.hasNext()) {
        result.insert(it.next().captured(1));
    }
    return result;
}

// The character after a single "&" is the keyboard accelerator; "&&" is a literal ampersand.
inline bool hasAccelerator(const QString& text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&')) {
            if (text.at(i + 1) != QLatin1Char('&')) {
                return true;
            }
            ++i;
        }
    }
    return false;
}

inline QString leadingBlanks(const QString& text)
{
    int n = 0;
    while (n < text.size() && text.at(n).isSpace()) {
        ++n;
    }
    return text.left(n);
}

inline QString trailingBlanks(const QString& text)
{
    int n = 0;
    while (n < text.size() && text.at(text.size() - 1 - n).isSpace()) {
        ++n;
    }
    return text.right(n);
}

inline bool hasNonLatinLetter(const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0x024F && c.isLetter()) {
            return true;
        }
    }
    return false;
}

inline QString lupdatePath()
{
    const QString qtTool = QDir(QLibraryInfo::location(QLibraryInfo::BinariesPath))
                               .filePath(QStringLiteral("lupdate"));
    if (QFileInfo(qtTool).isExecutable()) {
        return qtTool;
    }
    const QString systemTool = QStringLiteral("/usr/bin/lupdate");
    return QFileInfo(systemTool).isExecutable() ? systemTool : QString();
}

// Messages that are unfinished or empty, one line each.
inline QStringList untranslated(const TsFile& ts)
{
    QStringList problems;
    for (const TsMessage& message : ts.messages) {
        if (!message.type.isEmpty()) {
            problems.append(message.where() + QStringLiteral(" is ") + message.type);
        }
        if (message.translations.isEmpty() || message.translations.contains(QString())) {
            problems.append(message.where() + QStringLiteral(" has no translation"));
        }
    }
    return problems;
}

// Translations that lost or gained a %1 or %n of their source text.
inline QStringList placeholderProblems(const TsFile& ts)
{
    QStringList problems;
    for (const TsMessage& message : ts.messages) {
        const QSet<QString> expected = placeholders(message.source);
        for (const QString& translation : message.translations) {
            if (placeholders(translation) != expected) {
                problems.append(message.where() + QStringLiteral(" -> ") + translation);
            }
        }
    }
    return problems;
}

// Translations that lost the keyboard accelerator or the outer blanks of their source text.
inline QStringList acceleratorProblems(const TsFile& ts)
{
    QStringList problems;
    for (const TsMessage& message : ts.messages) {
        for (const QString& translation : message.translations) {
            if (hasAccelerator(translation) != hasAccelerator(message.source) ||
                leadingBlanks(translation) != leadingBlanks(message.source) ||
                trailingBlanks(translation) != trailingBlanks(message.source)) {
                problems.append(message.where() + QStringLiteral(" -> \"") + translation +
                                QLatin1Char('"'));
            }
        }
    }
    return problems;
}

// Runs lupdate over the folders, as the .ts files are made, into `tsFile`. Empty on success,
// else what went wrong.
inline QString collectCodeTexts(const QString& lupdate, const QStringList& folders,
                                const QString& tsFile)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(lupdate, QStringList({QStringLiteral("-locations"), QStringLiteral("none"),
                                        QStringLiteral("-no-obsolete")}) +
                               folders + QStringList({QStringLiteral("-ts"), tsFile}));
    if (!process.waitForFinished(120000)) {
        return process.errorString();
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return QString::fromLocal8Bit(process.readAll());
    }
    return QString();
}

} // namespace TranslationFiles
