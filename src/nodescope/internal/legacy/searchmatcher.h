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

private:
    QString m_text;
    QString m_lowerAscii; // the text in lower case when it is all ASCII, else empty
    QStringMatcher m_matcher;
};
