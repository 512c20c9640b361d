#include "searchmatcher.h"

namespace {

bool isAscii(const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0x7f) {
            return false;
        }
    }
    return true;
}

inline ushort foldAscii(ushort c)
{
    return c >= 'A' && c <= 'Z' ? ushort(c + ('a' - 'A')) : c;
}

// Bits 0 to 25 stand for the letters, 26 to 29 share the digits, 30 every other ASCII
// character; bit 31 only makes the set of a name never 0.
const quint32 kKnownBit = 1u << 31;

inline quint32 characterBit(ushort c)
{
    c = foldAscii(c);
    if (c >= 'a' && c <= 'z') {
        return 1u << (c - 'a');
    }
    if (c >= '0' && c <= '9') {
        return 1u << (26 + (c - '0') % 4);
    }
    return 1u << 30;
}

} // namespace

SearchMatcher::SearchMatcher(const QString& text)
    : m_text(text), m_matcher(text, Qt::CaseInsensitive)
{
    if (isAscii(text)) {
        m_lowerAscii = text.toLower();
        m_characters = charactersOf(m_lowerAscii) & ~kKnownBit;
    }
}

quint32 SearchMatcher::charactersOf(const QString& name)
{
    quint32 bits = kKnownBit;
    const ushort* chars = name.utf16();
    const int length = name.size();
    for (int i = 0; i < length; ++i) {
        // Other characters never equal an ASCII text's, the only kind the bits rule out.
        if (chars[i] <= 0x7f) {
            bits |= characterBit(chars[i]);
        }
    }
    return bits;
}

bool SearchMatcher::matches(const QString& name) const
{
    if (m_text.isEmpty()) {
        return false;
    }
    if (m_lowerAscii.isEmpty()) {
        return m_matcher.indexIn(name) >= 0;
    }
    // Names are short: a direct scan beats building skip tables. Non-ASCII characters of the
    // name never equal an ASCII pattern character, so folding ASCII alone is exact.
    const ushort* pattern = m_lowerAscii.utf16();
    const int patternLength = m_lowerAscii.size();
    const ushort* chars = name.utf16();
    const int last = name.size() - patternLength;
    for (int start = 0; start <= last; ++start) {
        int i = 0;
        while (i < patternLength && foldAscii(chars[start + i]) == pattern[i]) {
            ++i;
        }
        if (i == patternLength) {
            return true;
        }
    }
    return false;
}

bool SearchMatcher::matchesNames(const QString& technical, const QString& displayed) const
{
    return matches(technical) || (displayed != technical && matches(displayed));
}
