#pragma once

#include <QColor>
#include <QPair>
#include <QString>
#include <QVector>

// The search highlight, shared with the search field so both show the same yellow.
extern const QColor SEARCH_HIGHLIGHT_COLOR;

// The current search text and where it occurs in a name. Shared by the items, the delegate
// that paints the marks and the widget that sets the text; none of them owns it.
class FeatureTreeHighlighter {
public:
    void setTextToHighlight(const QString& text) { m_text = text; }
    QString getTextToHighlight() const { return m_text; }
    int getTextToHighlightLength() const { return m_text.length(); }
    QColor getHighlightColor() const { return SEARCH_HIGHLIGHT_COLOR; }

    // (start, end) of each occurrence, case-insensitive, not overlapping.
    QVector<QPair<int, int>> getIndicesToHighlight(const QString& text) const;
    // The text as rich text with every occurrence marked.
    QString highlightText(const QString& text) const;

private:
    QString m_text;
};
