#include "DiaryKit/Search/CaseFolding.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace diary::casefolding {

namespace {

// ASCII, kana and the common ideographs: nearly all of most diaries, and quick to fold.
bool isEasy(char32_t codePoint) {
    return codePoint < 0x80 || (codePoint >= 0x3000 && codePoint <= 0x9FFF);
}

char32_t foldedEasily(char32_t codePoint) {
    return codePoint >= U'A' && codePoint <= U'Z' ? codePoint + 0x20 : codePoint;
}

// Whether a match takes whole code points. Only that of a term which begins or ends with half a
// surrogate pair can fail to.
bool isWhole(QStringView text, qsizetype start, qsizetype end) {
    return !isInsidePair(text, start) && !isInsidePair(text, end);
}

// Adds the term's occurrences. Whether there are any.
bool addRanges(QStringView text, QStringView term, std::vector<TextRange>& ranges) {
    if (term.isEmpty()) return false;
    const std::size_t before = ranges.size();
    for (qsizetype at = text.indexOf(term); at >= 0;) {
        const bool matches = isWhole(text, at, at + term.size());
        if (matches) ranges.push_back({at, term.size()});
        at = text.indexOf(term, at + (matches ? term.size() : 1));
    }
    return ranges.size() > before;
}

}  // namespace

char32_t folded(char32_t codePoint) {
    if (isEasy(codePoint)) return foldedEasily(codePoint);
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(codePoint), U_FOLD_CASE_DEFAULT));
}

QString folded(QStringView text) {
    QString result = text.toString();
    QChar* units = result.data();
    for (qsizetype at = 0; at < result.size(); ++at) {
        const char16_t unit = units[at].unicode();
        if (isEasy(unit)) {
            units[at] = QChar(static_cast<char16_t>(foldedEasily(unit)));
        } else if (at + 1 < result.size() && isInsidePair(result, at + 1)) {
            const char32_t codePoint =
                folded(QChar::surrogateToUcs4(unit, units[at + 1].unicode()));
            units[at] = QChar(QChar::highSurrogate(codePoint));
            units[++at] = QChar(QChar::lowSurrogate(codePoint));
        } else {
            units[at] = QChar(static_cast<char16_t>(folded(char32_t{unit})));
        }
    }
    return result;
}

FoldedTerms::FoldedTerms(const QStringList& terms) {
    for (const QString& term : terms) m_terms.push_back(folded(term));
}

std::optional<std::vector<TextRange>> FoldedTerms::rangesIn(QStringView text) const {
    std::vector<TextRange> ranges;
    if (m_terms.empty()) return ranges;
    const QString foldedText = folded(text);
    for (const QString& term : m_terms) {
        if (!addRanges(foldedText, term, ranges)) return std::nullopt;
    }
    std::ranges::stable_sort(ranges, {}, &TextRange::location);
    return ranges;
}

}  // namespace diary::casefolding
