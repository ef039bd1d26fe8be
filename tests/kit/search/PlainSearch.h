// A search as plain as can be, which the fast one must equal: every file is decoded whole, one
// after the other.
#pragma once

#include <algorithm>
#include <set>
#include <vector>

#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Search/SearchMatch.h"
#include "DiaryKit/Search/SearchQuery.h"
#include "DiaryKit/Search/SearchResult.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::test {

inline std::vector<SearchHit> plainHits(const SearchQuery& query, const MonthDay& day,
                                        const QByteArray& bytes) {
    std::vector<SearchHit> hits;
    std::set<int> seen;
    for (const auto& one : YearSectionParser::sectionBodies(utf8::decodedWithRepair(bytes))) {
        if (!seen.insert(one.year).second || (query.year && one.year != *query.year)) continue;
        auto ranges = matchRanges(query.terms, one.body);
        if (!ranges || (query.terms.isEmpty() && one.body.isEmpty())) continue;
        SearchSnippet shown = snippet(one.body, query.terms,
                                      ranges->empty() ? std::nullopt : std::optional((*ranges)[0]));
        hits.push_back({day, one.year, shown.text, shown.ranges, *ranges});
    }
    return hits;
}

}  // namespace diary::test
