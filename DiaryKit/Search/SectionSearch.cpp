#include "DiaryKit/Search/SectionSearch.h"

#include <algorithm>
#include <bitset>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Search/SearchMatch.h"
#include "DiaryKit/Vault/YearScan.h"

namespace diary {

SectionSearch::SectionSearch(const SearchQuery& query) : m_query(query), m_terms(query.terms) {
    for (const QString& term : m_terms.terms()) m_needles.emplace_back(term);
    std::ranges::stable_sort(m_needles, {}, &ByteNeedle::commonness);
}

bool SectionSearch::mayMatch(QByteArrayView bytes) const {
    return std::ranges::all_of(m_needles,
                               [&](const ByteNeedle& needle) { return needle.mayOccurIn(bytes); });
}

std::optional<SearchHit> SectionSearch::hit(const MonthDay& day, int year,
                                            QByteArrayView body) const {
    const QString decoded = utf8::decodedWithRepair(body);
    const QStringView text = text::trimmed(decoded);
    if (m_query.terms.isEmpty() && text.isEmpty()) return std::nullopt;
    auto ranges = m_terms.rangesIn(text);
    if (!ranges) return std::nullopt;
    SearchSnippet shown = snippet(text, m_query.terms,
                                  ranges->empty() ? std::nullopt : std::optional(ranges->front()));
    return SearchHit{day, year, std::move(shown.text), std::move(shown.ranges), std::move(*ranges)};
}

std::vector<SearchHit> SectionSearch::hits(const MonthDay& day, QByteArrayView bytes,
                                           int limit) const {
    std::vector<SearchHit> found;
    if (!mayMatch(bytes)) return found;
    std::bitset<10000> seen;
    for (const ByteSection& section : byteSections(bytes)) {
        const auto year = static_cast<std::size_t>(section.year);
        if (seen.test(year)) continue;
        seen.set(year);
        if (m_query.year && section.year != *m_query.year) continue;
        if (!mayMatch(section.body)) continue;
        std::optional<SearchHit> one = hit(day, section.year, section.body);
        if (!one) continue;
        found.push_back(std::move(*one));
        if (std::ssize(found) >= limit) break;
    }
    return found;
}

}  // namespace diary
