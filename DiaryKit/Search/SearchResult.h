// What a search gives. How it comes about is VaultSearch.h.
#pragma once

#include <QtCore/QString>
#include <iterator>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"
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

}  // namespace diary
