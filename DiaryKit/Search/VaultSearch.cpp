#include "DiaryKit/Search/VaultSearch.h"

#include <algorithm>

#include "DiaryKit/Search/SearchMatch.h"
#include "DiaryKit/Vault/DayFile.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary {

namespace {

// 31 December first; 02-31 ahead of 03-02, with which it shares its place.
bool isAheadInCycle(const MonthDay& a, const MonthDay& b) {
    const int first = a.ordinalInCycle();
    const int second = b.ordinalInCycle();
    return first != second ? first > second : a < b;
}

bool fits(const MonthDay& day, const SearchQuery& query) {
    return (!query.monthDay || day == *query.monthDay) &&
           (!query.month || day.month == *query.month);
}

void addHits(const MonthDay& day, const QString& text, const SearchQuery& query, int limit,
             SearchResult& result) {
    std::set<int> seen;
    for (const YearSectionParser::YearBody& one : YearSectionParser::sectionBodies(text)) {
        if (!seen.insert(one.year).second) continue;
        if (query.year && one.year != *query.year) continue;
        auto ranges = matchRanges(query.terms, one.body);
        if (!ranges || (query.terms.isEmpty() && one.body.isEmpty())) continue;
        SearchSnippet shown = snippet(one.body, query.terms,
                                      ranges->empty() ? std::nullopt : std::optional((*ranges)[0]));
        result.hits.push_back(
            {day, one.year, std::move(shown.text), std::move(shown.ranges), std::move(*ranges)});
        if (std::ssize(result.hits) >= limit) {
            result.truncated = true;
            return;
        }
    }
}

}  // namespace

DaySearch searchDays(const QString& root, const std::set<MonthDay>& days, const SearchQuery& query,
                     int limit, const DownloadService& downloads) {
    DaySearch search;
    if (query.isEmpty()) return search;
    std::vector<MonthDay> order;
    for (const MonthDay& day : days) {
        if (fits(day, query)) order.push_back(day);
    }
    std::ranges::sort(order, isAheadInCycle);
    for (const MonthDay& day : order) {
        const QString path = dayfile::path(root, day);
        if (downloads.state(path) == DownloadState::NotDownloaded) {
            downloads.startDownloading(path);
            search.pending.insert(day);
            continue;
        }
        const auto text = dayfile::existingText(root, day);
        if (text) addHits(day, *text, query, limit, search.result);
        if (search.result.truncated) break;
    }
    std::ranges::stable_sort(search.result.hits, [](const SearchHit& a, const SearchHit& b) {
        return a.year != b.year ? a.year > b.year : isAheadInCycle(a.monthDay, b.monthDay);
    });
    search.result.pendingDownloads = static_cast<int>(search.pending.size());
    return search;
}

SearchResult searchVault(const QString& root, const SearchQuery& query, int limit,
                         const DownloadService& downloads) {
    if (query.isEmpty()) return SearchResult::empty;
    return searchDays(root, dayfile::dayFiles(root), query, limit, downloads).result;
}

}  // namespace diary
