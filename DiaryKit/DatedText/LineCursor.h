// A place in a line, and the steps that the forms of dates are made of. A step that fails leaves
// the cursor where it was; an alternative of several steps is tried on a copy.
#pragma once

#include <unicode/uchar.h>

#include <QtCore/QStringView>
#include <algorithm>
#include <optional>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary {

class LineCursor {
public:
    explicit LineCursor(QStringView text) : m_text(text) {}

    [[nodiscard]] QStringView rest() const { return m_text.sliced(m_at); }
    // What lies between a place and the cursor.
    [[nodiscard]] QStringView since(const LineCursor& start) const {
        return m_text.sliced(start.m_at, m_at - start.m_at);
    }
    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }

    [[nodiscard]] bool isAt(QChar unit) const { return !atEnd() && m_text[m_at] == unit; }
    [[nodiscard]] bool isAtOneOf(QStringView units) const {
        return !atEnd() && units.contains(m_text[m_at]);
    }
    [[nodiscard]] bool isAtWhiteSpace() const {
        // All white space is in the basic plane.
        return !atEnd() && text::isWhiteSpace(m_text[m_at].unicode());
    }
    [[nodiscard]] bool isAtDigit() const { return digitLength() > 0; }

    bool take(QChar unit) {
        if (!isAt(unit)) return false;
        ++m_at;
        return true;
    }

    bool takeOneOf(QStringView units) {
        if (!isAtOneOf(units)) return false;
        ++m_at;
        return true;
    }

    bool take(QStringView word) {
        if (!rest().startsWith(word)) return false;
        m_at += word.size();
        return true;
    }

    // A word in lower-case ASCII, found in any case of ASCII.
    bool takeLetters(QStringView word) { return takeWord(word, lowered); }

    // The same by simple case folding, by which the long s is an s.
    bool takeFolded(QStringView word) {
        return takeWord(word,
                        [](QChar c) { return c == QChar(0x017F) ? QChar(u's') : lowered(c); });
    }

    // Any white space, also none.
    void skipWhiteSpace() {
        while (isAtWhiteSpace()) ++m_at;
    }

    // White space, at least one.
    bool takeWhiteSpace() {
        const qsizetype start = m_at;
        skipWhiteSpace();
        return m_at > start;
    }

    // Any white space and separators, also none.
    void skipSeparators(QStringView separators) {
        while (isAtWhiteSpace() || isAtOneOf(separators)) ++m_at;
    }

    // As many digits as are there, of any script, up to `most`; null if there are fewer than
    // `least`.
    QStringView takeDigits(int least, int most) {
        const qsizetype start = m_at;
        int count = 0;
        while (count < most) {
            const qsizetype length = digitLength();
            if (length == 0) break;
            m_at += length;
            ++count;
        }
        if (count >= least) return m_text.sliced(start, m_at - start);
        m_at = start;
        return {};
    }

private:
    static QChar lowered(QChar c) {
        return c >= u'A' && c <= u'Z' ? QChar(static_cast<char16_t>(c.unicode() | 0x20)) : c;
    }

    template <typename Fold>
    bool takeWord(QStringView word, Fold fold) {
        if (m_text.size() - m_at < word.size()) return false;
        if (!std::equal(word.begin(), word.end(), m_text.begin() + m_at,
                        [&](QChar w, QChar c) { return w == fold(c); })) {
            return false;
        }
        m_at += word.size();
        return true;
    }

    // The units of the decimal digit (general category Nd) at the cursor, 0 if there is none.
    [[nodiscard]] qsizetype digitLength() const {
        if (atEnd()) return 0;
        const QChar first = m_text[m_at];
        if (first < QChar(0x80)) return first >= u'0' && first <= u'9' ? 1 : 0;
        if (!first.isHighSurrogate()) {
            return u_isdigit(static_cast<UChar32>(first.unicode())) ? 1 : 0;
        }
        if (m_at + 1 == m_text.size() || !m_text[m_at + 1].isLowSurrogate()) return 0;
        const char32_t codePoint = QChar::surrogateToUcs4(first, m_text[m_at + 1]);
        return u_isdigit(static_cast<UChar32>(codePoint)) ? 2 : 0;
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

// What the digits say; nothing unless there are some and all are ASCII. At most nine of them.
[[nodiscard]] inline std::optional<int> numberOf(QStringView digits) {
    if (digits.isEmpty()) return std::nullopt;
    int value = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        value = value * 10 + (digit.unicode() - u'0');
    }
    return value;
}

}  // namespace diary
