// Full-text search over a vault's folder, without an index: each search reads the day files that
// its dates allow, on all cores, and takes text from those bytes only that can hold its words.
// DiaryStore::search is the same for the main thread, with the store's caches.
#pragma once

#include <QtCore/QString>
#include <set>
#include <vector>

#include "DiaryKit/Files/DownloadService.h"
#include "DiaryKit/Foundation/TextRange.h"
#include "DiaryKit/Search/SearchQuery.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

// One year's section of one day.
struct SearchHit {
    MonthDay monthDay;
    int year = 0;
    // A line of the section around its first match, and the terms' ranges in it.
    QString snippet;
    std::vector<TextRange> snippetRanges;
    // The terms' ranges in the section's trimmed body; empty if the query has dates only.
    std::vector<TextRange> ranges;

    // A hit of a query with dates only counts as one match.
    [[nodiscard]] qsizetype matchCount() const { return ranges.empty() ? 1 : std::ssize(ranges); }

    bool operator==(const SearchHit&) const = default;
};

struct SearchResult {
    // The newest writing first: by year, then by day. 02-31 and 03-02 share a place in the cycle;
    // the smaller month goes first.
    std::vector<SearchHit> hits;
    // The number of days that weren't read since their file isn't downloaded.
    int pendingDownloads = 0;
    // The limit was reached. It cuts by day, 31 December first, and not by year.
    bool truncated = false;

    static const SearchResult empty;

    bool operator==(const SearchResult&) const = default;
};

inline const SearchResult SearchResult::empty;

// Searches the folder's day files. Asks for the download of files that aren't here; those that
// can't be read are passed over. At least one hit is given, if there is one, whatever the limit.
// Never throws. Any thread; blocks.
[[nodiscard]] SearchResult searchVault(const QString& root, const SearchQuery& query, int limit,
                                       const DownloadService& downloads);

struct DaySearch {
    SearchResult result;
    // The days that `result.pendingDownloads` counts.
    std::set<MonthDay> pending;

    bool operator==(const DaySearch&) const = default;
};

// The same over days that are known to have a file or a placeholder.
[[nodiscard]] DaySearch searchDays(const QString& root, const std::set<MonthDay>& days,
                                   const SearchQuery& query, int limit,
                                   const DownloadService& downloads);

}  // namespace diary
