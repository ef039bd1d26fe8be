// Facts about the whole vault: which days have writing, of how many years, since when. A scan reads
// each file's years at most once, as long as the file's stamp stays the same.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <optional>
#include <set>

#include "DiaryKit/Files/DownloadService.h"
#include "DiaryKit/Files/FileStamp.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

// The years of a file that have content, as of one state of the file.
struct YearCacheEntry {
    FileStamp mtime;
    std::set<int> years;

    bool operator==(const YearCacheEntry&) const = default;
};

using YearCache = QHash<MonthDay, YearCacheEntry>;

struct Overview {
    // The number of files with at least one year that has content.
    int daysWithContent = 0;
    // The smallest such year.
    std::optional<int> earliestYear;
    // The number of day files, placeholders included.
    int fileCount = 0;

    bool operator==(const Overview&) const = default;
};

struct ArchiveSnapshot {
    // The number of years with content; days with none aren't keys.
    QHash<MonthDay, int> heatCounts;
    std::set<int> contentYears;
    Overview overview;
    std::set<MonthDay> awaitingDownload;

    bool operator==(const ArchiveSnapshot&) const = default;
};

struct ArchiveScan {
    ArchiveSnapshot snapshot;
    // The entries that the scan had to read.
    YearCache fresh;
    std::set<MonthDay> files;

    bool operator==(const ArchiveScan&) const = default;
};

// What is known of one day's file. Both absent: it is awaiting its download or couldn't be read.
struct ScannedDay {
    // The entry that was handed in, if it still holds.
    const YearCacheEntry* cached = nullptr;
    // What had to be read.
    std::optional<YearCacheEntry> fresh;
    bool isAwaitingDownload = false;

    [[nodiscard]] const YearCacheEntry* entry() const {
        return cached || !fresh ? cached : &*fresh;
    }
};

// The years of one day's file, from `cached` where its stamp is still the file's, else read under
// coordination. Asks for the download of a file that isn't here. Any thread; blocks.
[[nodiscard]] ScannedDay scanDay(const QString& root, const MonthDay& day,
                                 const YearCacheEntry* cached, const DownloadService& downloads);

// Scans the vault, on all cores. Unreadable files count as files without content. Any thread but
// the main one; blocks.
[[nodiscard]] ArchiveScan scanArchive(const QString& root, const YearCache& cache,
                                      const DownloadService& downloads);

}  // namespace diary
