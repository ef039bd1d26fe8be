#include "DiaryKit/Search/SearchMatch.h"

#include <unicode/brkiter.h>

#include <algorithm>
#include <memory>

#include "DiaryKit/Search/CaseFolding.h"

namespace diary {

namespace {

// Enough of the line to tell where in the section the match stands, in UTF-16 units.
constexpr qsizetype kUnitsAhead = 14;
constexpr qsizetype kUnitsBehind = 30;
constexpr qsizetype kUnitsWithoutMatch = 50;

constexpr QChar kEllipsis = u'…';

using casefolding::isInsidePair;

// The bounds of characters (grapheme clusters) in one text, which must outlive it.
class Characters {
public:
    explicit Characters(QStringView text) : m_text(text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUChars(&m_units, text.utf16(), text.size(), &status);
        iterator().setText(&m_units, status);
    }
    Characters(const Characters&) = delete;
    Characters& operator=(const Characters&) = delete;
    ~Characters() { utext_close(&m_units); }

    // Where the character begins that holds the unit at `at`.
    [[nodiscard]] qsizetype startOf(qsizetype at) {
        if (at <= 0) return 0;
        // From within a surrogate pair the iterator would go back one character too far.
        const auto position = static_cast<int32_t>(isInsidePair(m_text, at) ? at - 1 : at);
        return iterator().isBoundary(position) ? position : iterator().preceding(position);
    }

    // Where the character ends that holds the unit at `at`.
    [[nodiscard]] qsizetype endOf(qsizetype at) {
        if (at + 1 >= m_text.size()) return m_text.size();
        return iterator().following(static_cast<int32_t>(at));
    }

private:
    static icu::BreakIterator& iterator() {
        // A search makes hundreds of snippets, so the iterator is made once for each thread.
        thread_local const std::unique_ptr<icu::BreakIterator> characters = [] {
            UErrorCode status = U_ZERO_ERROR;
            return std::unique_ptr<icu::BreakIterator>(
                icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        }();
        return *characters;
    }

    UText m_units = UTEXT_INITIALIZER;
    QStringView m_text;
};

QString beginning(const QString& line) {
    if (line.size() <= kUnitsWithoutMatch) return line;
    const bool cutsPair =
        line[kUnitsWithoutMatch - 1].isHighSurrogate() && line[kUnitsWithoutMatch].isLowSurrogate();
    return line.first(kUnitsWithoutMatch - (cutsPair ? 1 : 0)) + kEllipsis;
}

QString surroundings(const QString& line, const TextRange& range) {
    if (line.isEmpty()) return line;
    Characters characters(line);
    const qsizetype last = line.size() - 1;
    const qsizetype start =
        characters.startOf(std::clamp<qsizetype>(range.location - kUnitsAhead, 0, last));
    const qsizetype end =
        characters.endOf(std::clamp<qsizetype>(range.end() + kUnitsBehind - 1, start, last));
    QString text;
    if (start > 0) text += kEllipsis;
    text += QStringView(line).sliced(start, end - start);
    if (end < line.size()) text += kEllipsis;
    return text;
}

}  // namespace

std::optional<std::vector<TextRange>> matchRanges(const QStringList& terms, QStringView text) {
    return casefolding::FoldedTerms(terms).rangesIn(text);
}

SearchSnippet snippet(QStringView text, const QStringList& terms, std::optional<TextRange> around) {
    QString line = text.toString();
    line.replace(u'\n', u' ');
    if (!around) return {beginning(line), {}};
    SearchSnippet result;
    result.text = surroundings(line, *around);
    result.ranges = matchRanges(terms, result.text).value_or(std::vector<TextRange>());
    return result;
}

}  // namespace diary
