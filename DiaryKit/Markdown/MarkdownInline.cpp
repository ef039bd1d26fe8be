#include "DiaryKit/Markdown/MarkdownInline.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary::markdowninline {

namespace {

constexpr qsizetype kNoMatch = -1;

bool holds(QStringView text, qsizetype at, char16_t unit) {
    return at >= 0 && at < text.size() && text[at] == unit;
}

bool holdsTwo(QStringView text, qsizetype at, char16_t unit) {
    return holds(text, at, unit) && holds(text, at + 1, unit);
}

// All white space is in the basic plane, so a unit tells as much as its code point.
bool isWhiteAt(QStringView text, qsizetype at) {
    return at < text.size() && text::isWhiteSpace(text[at].unicode());
}

// What \w means in ICU, and in UTS #18.
bool isWord(char32_t codePoint) {
    if (codePoint < 0x80) {
        return (codePoint >= '0' && codePoint <= '9') || (codePoint >= 'A' && codePoint <= 'Z') ||
               (codePoint >= 'a' && codePoint <= 'z') || codePoint == '_';
    }
    constexpr uint32_t kinds = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    const auto character = static_cast<UChar32>(codePoint);
    return u_hasBinaryProperty(character, UCHAR_ALPHABETIC) ||
           (U_GET_GC_MASK(character) & kinds) != 0 || codePoint == 0x200C || codePoint == 0x200D;
}

bool isWordBefore(QStringView text, qsizetype at) {
    if (at <= 0) return false;
    UChar32 codePoint = 0;
    U16_PREV(text.utf16(), 0, at, codePoint);
    return isWord(static_cast<char32_t>(codePoint));
}

bool isWordAt(QStringView text, qsizetype at) {
    if (at >= text.size()) return false;
    UChar32 codePoint = 0;
    U16_NEXT(text.utf16(), at, text.size(), codePoint);
    return isWord(static_cast<char32_t>(codePoint));
}

// The first `marker` or LF at or behind `from`, or the text's end.
qsizetype stopAt(QStringView text, qsizetype from, char16_t marker) {
    qsizetype at = from;
    while (at < text.size() && text[at] != marker && text[at] != u'\n') ++at;
    return at;
}

// The end of a match that begins here and is enclosed in two `marker`s at each end. What it
// encloses holds no marker, so the next one decides.
qsizetype doubledEnd(QStringView text, qsizetype at, char16_t marker) {
    if (!holdsTwo(text, at, marker)) return kNoMatch;
    const qsizetype stop = stopAt(text, at + 2, marker);
    return stop > at + 2 && holdsTwo(text, stop, marker) ? stop + 2 : kNoMatch;
}

qsizetype codeEnd(QStringView text, qsizetype at) {
    if (!holds(text, at, u'`')) return kNoMatch;
    const qsizetype stop = stopAt(text, at + 1, u'`');
    return stop > at + 1 && holds(text, stop, u'`') ? stop + 1 : kNoMatch;
}

qsizetype starItalicEnd(QStringView text, qsizetype at) {
    if (!holds(text, at, u'*') || holds(text, at - 1, u'*') || holds(text, at - 1, u'\\') ||
        isWhiteAt(text, at + 1)) {
        return kNoMatch;
    }
    const qsizetype stop = stopAt(text, at + 1, u'*');
    const bool closes = stop > at + 1 && holds(text, stop, u'*') && !isWhiteAt(text, stop - 1) &&
                        !holds(text, stop + 1, u'*');
    return closes ? stop + 1 : kNoMatch;
}

qsizetype underscoreItalicEnd(QStringView text, qsizetype at) {
    if (!holds(text, at, u'_') || isWordBefore(text, at)) return kNoMatch;
    const qsizetype stop = stopAt(text, at + 1, u'_');
    const bool closes = stop > at + 1 && holds(text, stop, u'_') && !isWordAt(text, stop + 1);
    return closes ? stop + 1 : kNoMatch;
}

// `endAt(at)` is the end of the match that begins there, or kNoMatch.
template <typename EndAt>
std::vector<TextRange> matches(QStringView text, EndAt endAt) {
    std::vector<TextRange> found;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = endAt(at);
        if (end == kNoMatch) {
            ++at;
        } else {
            found.push_back({at, end - at});
            at = end;
        }
    }
    return found;
}

}  // namespace

std::vector<TextRange> starBold(QStringView text) {
    return matches(text, [text](qsizetype at) { return doubledEnd(text, at, u'*'); });
}

std::vector<TextRange> bold(QStringView text) {
    return matches(text, [text](qsizetype at) {
        return text[at] == u'_' ? doubledEnd(text, at, u'_') : doubledEnd(text, at, u'*');
    });
}

std::vector<TextRange> starItalic(QStringView text) {
    return matches(text, [text](qsizetype at) { return starItalicEnd(text, at); });
}

std::vector<TextRange> italic(QStringView text) {
    return matches(text, [text](qsizetype at) {
        return text[at] == u'_' ? underscoreItalicEnd(text, at) : starItalicEnd(text, at);
    });
}

std::vector<TextRange> strike(QStringView text) {
    return matches(text, [text](qsizetype at) { return doubledEnd(text, at, u'~'); });
}

std::vector<TextRange> code(QStringView text) {
    return matches(text, [text](qsizetype at) { return codeEnd(text, at); });
}

std::vector<Link> links(QStringView text, EmptyAddress emptyAddress) {
    const qsizetype leastAddress = emptyAddress == EmptyAddress::Allowed ? 0 : 1;
    std::vector<Link> found;
    // Kept from one bracket to the next: where many of them lack a parenthesis that closes, looking
    // for it each time would take quadratic time.
    qsizetype end = 0;
    for (qsizetype open = text.indexOf(u'['); open >= 0;) {
        const qsizetype close = stopAt(text, open + 1, u']');
        const qsizetype address = close + 2;
        qsizetype next = close + 1;
        if (holds(text, close, u']') && holds(text, close + 1, u'(')) {
            if (end < address) end = stopAt(text, address, u')');
            if (holds(text, end, u')') && end - address >= leastAddress) {
                found.push_back({{open, end + 1 - open},
                                 {open + 1, close - open - 1},
                                 {address, end - address}});
                next = end + 1;
            }
        }
        // Brackets in between have the same end, so they are no links either.
        open = text.indexOf(u'[', next);
    }
    return found;
}

}  // namespace diary::markdowninline
