#pragma once

#include <QString>
#include <QStringMatcher>

// Finds a search text in feature names, ignoring case, as plain text. Runs over every feature
// on each keystroke, so the common case, an ASCII text, skips Unicode case folding.
class SearchMatcher {
public:
    explicit SearchMatcher(const QString& text);

    bool isEmpty() const { return m_text.isEmpty(); }
    bool matches(const QString& name) const;
    // The rule of the feature tree and table: the technical or the displayed name matches.
    bool matchesNames(const QString& technical, const QString& displayed) const;

    // The ASCII characters of a name, folded to lower case, as a set of bits; never 0, so a
    // caller may keep 0 for "not known yet". Names that share no bit with a text's missing
    // ones are ruled out without a scan.
    static quint32 charactersOf(const QString& name);
    // False only when a name with these characters cannot hold the text.
    bool mayMatch(quint32 nameCharacters) const
    {
        return (nameCharacters & m_characters) == m_characters;
    }

private:
    QString m_text;
    QString m_lowerAscii; // the text in lower case when it is all ASCII, else empty
    QStringMatcher m_matcher;
    quint32 m_characters = 0; // of an ASCII text; 0 rules nothing out
};
