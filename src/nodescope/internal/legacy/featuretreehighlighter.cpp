#include "featuretreehighlighter.h"

const QColor SEARCH_HIGHLIGHT_COLOR(255, 255, 167);

QVector<QPair<int, int>> FeatureTreeHighlighter::getIndicesToHighlight(const QString& text) const
{
    QVector<QPair<int, int>> indices;
    const int length = m_text.length();
    if (length == 0 || text.isEmpty()) {
        return indices;
    }
    int from = 0;
    while (from <= text.length()) {
        const int start = text.indexOf(m_text, from, Qt::CaseInsensitive);
        if (start < 0) {
            break;
        }
        indices.append(qMakePair(start, start + length));
        from = start + length;
    }
    return indices;
}

QString FeatureTreeHighlighter::highlightText(const QString& text) const
{
    const QVector<QPair<int, int>> indices = getIndicesToHighlight(text);
    if (indices.isEmpty()) {
        return text;
    }
    const QString open = QStringLiteral("<span style='background-color:") +
                         getHighlightColor().name() + QStringLiteral("; font-weight:bold'>");
    const QString close = QStringLiteral("</span>");
    QString result;
    int done = 0;
    for (const auto& range : indices) {
        result += text.mid(done, range.first - done);
        result += open + text.mid(range.first, range.second - range.first) + close;
        done = range.second;
    }
    result += text.mid(done);
    return result;
}
