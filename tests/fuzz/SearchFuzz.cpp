// A line, a NUL and any bytes: what is found lies in the text and is what was sought, snippets stay
// whole, and the search through bytes finds what a plain one finds.
#include <climits>

#include "DiaryKit/Search/CaseFolding.h"
#include "DiaryKit/Search/SectionSearch.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/kit/search/PlainSearch.h"

namespace diary::fuzz {
namespace {

void checkParsing(const SearchQuery& query, QStringView line) {
    const SearchQuery again = SearchQuery::parsing(query.terms.join(u' '));
    require(again.terms == query.terms, "a term stays a term", {line});
    require(!again.year && !again.month && !again.monthDay, "a term is no date", {line});
    require(!query.month || query.year, "a month has its year", {line});
    require(query.isEmpty() + query.isDateOnly() + !query.terms.isEmpty() == 1,
            "a line is empty, a date or has words", {line});
}

void checkRanges(const std::vector<TextRange>& ranges, const QStringList& terms,
                 const QString& text) {
    const QString folded = casefolding::folded(text);
    QStringList wanted;
    for (const QString& term : terms) wanted << casefolding::folded(term);
    for (size_t i = 0; i < ranges.size(); ++i) {
        const TextRange& range = ranges[i];
        require(range.location >= 0 && range.length > 0 && range.end() <= text.size(),
                "a match lies in the text", {text});
        require(wanted.contains(folded.mid(range.location, range.length)),
                "a match is one of the terms", {text});
        require(i == 0 || ranges[i - 1].location <= range.location, "matches are sorted", {text});
    }
}

void checkSnippet(const QString& text, const QStringList& terms, std::optional<TextRange> around) {
    const SearchSnippet made = snippet(text, terms, around);
    require(!made.text.contains(u'\n'), "a snippet is one line", {text, made.text});
    require(made.text.isValidUtf16() || !text.isValidUtf16(), "a snippet splits no pair",
            {text, made.text});
    checkRanges(made.ranges, terms, made.text);
    if (!around) return;
    QString line = text;
    line.replace(u'\n', u' ');
    require(made.text.contains(QStringView(line).sliced(around->location, around->length)),
            "a snippet shows its match", {text, made.text});
}

void check(const QByteArray& input) {
    const qsizetype cut = std::max<qsizetype>(input.indexOf('\0'), 0);
    const QString line = utf8::decodedWithRepair(QByteArrayView(input).first(cut));
    const QByteArray bytes = input.sliced(cut);
    const QString text = utf8::decodedWithRepair(bytes);
    const SearchQuery query = SearchQuery::parsing(line);
    checkParsing(query, line);
    checkSnippet(text, query.terms, {});
    if (const auto ranges = matchRanges(query.terms, text)) {
        checkRanges(*ranges, query.terms, text);
        for (size_t i = 0; i < std::min<size_t>(ranges->size(), 20); ++i) {
            checkSnippet(text, query.terms, (*ranges)[i]);
        }
    }
    require(SectionSearch(query).hits(kDay, bytes, INT_MAX) == test::plainHits(query, kDay, bytes),
            "the search through bytes finds what a plain one finds", {line, text});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    diary::fuzz::check({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
    return 0;
}
