#include "DiaryKit/Vault/ArchiveSnapshot.h"

#include <algorithm>
#include <bitset>
#include <thread>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Foundation/Background.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Vault/DayFile.h"
#include "DiaryKit/Vault/YearScan.h"

namespace diary {

namespace {

// Below this many files a second thread costs more than it saves.
constexpr int kFilesPerThread = 64;

// `coordinator()` is asked for only where the file has to be read: finding the place of its lock
// takes longer than looking at a stamp.
template <typename Coordinator>
ScannedDay scanDay(const Coordinator& coordinator, const QString& path,
                   const YearCacheEntry* cached, const DownloadService& downloads) {
    ScannedDay result;
    const std::optional<FileStamp> found = fileStamp(path);
    const FileStamp stamp = found.value_or(FileStamp());
    if (cached && cached->mtime == stamp) {
        result.cached = cached;
        return result;
    }
    if (!found && downloads.state(path) == DownloadState::NotDownloaded) {
        downloads.startDownloading(path);
        result.isAwaitingDownload = true;
        return result;
    }
    try {
        coordinator().coordinateReading([&] {
            const auto bytes = atomicfile::tryRead(path);
            if (bytes) result.fresh = YearCacheEntry{stamp, yearsWithContent(*bytes)};
        });
    } catch (const FileError&) {
        result.fresh.reset();
    }
    return result;
}

// The years seen so far, as flags: a set would be searched fifty times for each file.
using YearFlags = std::bitset<10000>;

void add(ArchiveScan& scan, YearFlags& seen, const MonthDay& day, ScannedDay scanned) {
    if (scanned.isAwaitingDownload) scan.snapshot.awaitingDownload.insert(day);
    const YearCacheEntry* entry = scanned.entry();
    if (!entry) return;
    const std::set<int>& years = entry->years;
    if (!years.empty()) {
        Overview& overview = scan.snapshot.overview;
        scan.snapshot.heatCounts.insert(day, static_cast<int>(years.size()));
        for (const int year : years) seen.set(static_cast<std::size_t>(year));
        ++overview.daysWithContent;
        overview.earliestYear =
            std::min(overview.earliestYear.value_or(*years.begin()), *years.begin());
    }
    if (scanned.fresh) scan.fresh.emplace(day, std::move(*scanned.fresh));
}

}  // namespace

ScannedDay scanDay(const QString& root, const MonthDay& day, const YearCacheEntry* cached,
                   const DownloadService& downloads) {
    return scanDay([&root] { return FileCoordinator(root); }, dayfile::path(root, day), cached,
                   downloads);
}

ArchiveScan scanArchive(const QString& root, const YearCache& cache,
                        const DownloadService& downloads) {
    ArchiveScan scan;
    scan.files = dayfile::dayFiles(root);
    const std::vector<MonthDay> days(scan.files.begin(), scan.files.end());
    std::vector<ScannedDay> scanned(days.size());
    const FileCoordinator shared(root);
    const auto coordinator = [&shared]() -> const FileCoordinator& { return shared; };
    const int count = static_cast<int>(days.size());
    const int threads =
        std::clamp(count / kFilesPerThread, 1,
                   static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
    background::inParallel(threads, [&](int piece) {
        for (int i = piece; i < count; i += threads) {
            const auto cached = cache.constFind(days[i]);
            scanned[i] = scanDay(coordinator, dayfile::path(root, days[i]),
                                 cached == cache.constEnd() ? nullptr : &*cached, downloads);
        }
    });
    YearFlags seen;
    for (int i = 0; i < count; ++i) add(scan, seen, days[i], std::move(scanned[i]));
    for (int year = 0; year < static_cast<int>(seen.size()); ++year) {
        if (seen.test(static_cast<std::size_t>(year))) scan.snapshot.contentYears.insert(year);
    }
    scan.snapshot.overview.fileCount = count;
    return scan;
}

}  // namespace diary
