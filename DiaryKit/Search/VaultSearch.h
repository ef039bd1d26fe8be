// Full-text search over a vault's folder, without an index: each search reads the day files that
// its dates allow, on all cores, and takes text from those bytes only that can hold its words.
// DiaryStore::search is the same for the main thread, with the store's caches.
#pragma once

#include <QtCore/QString>
#include <set>

#include "DiaryKit/Files/DownloadService.h"
#include "DiaryKit/Search/SearchQuery.h"
#include "DiaryKit/Search/SearchResult.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

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
