#include "DiaryKit/Search/VaultSearch.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Foundation/Background.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Search/SectionSearch.h"
#include "DiaryKit/Vault/DayFile.h"

namespace diary {

namespace {

// Below this many files a second thread costs more than it saves.
constexpr int kFilesPerThread = 32;

// 31 December first; 02-31 ahead of 03-02, with which it shares its place.
bool isAheadInCycle(const MonthDay& a, const MonthDay& b) {
    const int first = a.ordinalInCycle();
    const int second = b.ordinalInCycle();
    return first != second ? first > second : a < b;
}

// The days that the query's dates allow, in the order in which they are searched.
std::vector<MonthDay> daysToSearch(const std::set<MonthDay>& days, const SearchQuery& query) {
    std::vector<MonthDay> order;
    std::ranges::copy_if(days, std::back_inserter(order), [&](const MonthDay& day) {
        return (!query.monthDay || day == *query.monthDay) &&
               (!query.month || day.month == *query.month);
    });
    std::ranges::sort(order, isAheadInCycle);
    return order;
}

struct SearchedDay {
    std::vector<SearchHit> hits;
    bool isAwaitingDownload = false;
};

class FolderSearch {
public:
    FolderSearch(const QString& root, const SearchQuery& query, int limit,
                 const DownloadService& downloads)
        : m_root(root),
          m_coordinator(root),
          m_search(query),
          m_limit(std::max(limit, 1)),
          m_downloads(downloads) {}

    // Searches the days on all cores, in this order and as far as the limit can need: the days
    // behind that are given as if they had no file.
    [[nodiscard]] std::vector<SearchedDay> searched(const std::vector<MonthDay>& days) const {
        const int count = static_cast<int>(days.size());
        const int threads =
            std::clamp(count / kFilesPerThread, 1,
                       static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
        std::vector<SearchedDay> result(days.size());
        std::atomic<int> next = 0;
        std::atomic<int> hits = 0;
        background::inParallel(threads, [&](int) {
            // Days are taken in their order. So once those taken have enough hits among them, the
            // limit cuts within them, and no other is needed.
            while (hits < m_limit) {
                const int i = next++;
                if (i >= count) return;
                result[static_cast<std::size_t>(i)] = searched(days[static_cast<std::size_t>(i)]);
                hits += static_cast<int>(result[static_cast<std::size_t>(i)].hits.size());
            }
        });
        return result;
    }

    // Puts together what the days gave, up to the limit.
    [[nodiscard]] DaySearch gathered(const std::vector<MonthDay>& days,
                                     std::vector<SearchedDay> searched) const {
        DaySearch all;
        std::vector<SearchHit>& hits = all.result.hits;
        for (std::size_t i = 0; i < days.size() && !all.result.truncated; ++i) {
            if (searched[i].isAwaitingDownload) {
                m_downloads.startDownloading(dayfile::path(m_root, days[i]));
                all.pending.insert(days[i]);
            }
            std::ranges::move(searched[i].hits, std::back_inserter(hits));
            all.result.truncated = std::ssize(hits) >= m_limit;
        }
        if (all.result.truncated) hits.resize(static_cast<std::size_t>(m_limit));
        std::ranges::stable_sort(hits, [](const SearchHit& a, const SearchHit& b) {
            return a.year != b.year ? a.year > b.year : isAheadInCycle(a.monthDay, b.monthDay);
        });
        all.result.pendingDownloads = static_cast<int>(all.pending.size());
        return all;
    }

private:
    [[nodiscard]] SearchedDay searched(const MonthDay& day) const {
        const QString path = dayfile::path(m_root, day);
        std::optional<QByteArray> bytes;
        try {
            m_coordinator.coordinateReading([&] { bytes = atomicfile::tryRead(path); });
        } catch (const FileError&) {
            bytes.reset();  // A lock that can't be had is a file that can't be read.
        }
        if (bytes) return {m_search.hits(day, *bytes, m_limit), false};
        // Looked at only now: a file that could be read is no placeholder.
        return {{}, m_downloads.state(path) == DownloadState::NotDownloaded};
    }

    QString m_root;
    FileCoordinator m_coordinator;
    SectionSearch m_search;
    int m_limit;
    const DownloadService& m_downloads;
};

}  // namespace

DaySearch searchDays(const QString& root, const std::set<MonthDay>& days, const SearchQuery& query,
                     int limit, const DownloadService& downloads) {
    if (query.isEmpty()) return {};
    const std::vector<MonthDay> order = daysToSearch(days, query);
    const FolderSearch search(root, query, limit, downloads);
    return search.gathered(order, search.searched(order));
}

SearchResult searchVault(const QString& root, const SearchQuery& query, int limit,
                         const DownloadService& downloads) {
    if (query.isEmpty()) return SearchResult::empty;
    return searchDays(root, dayfile::dayFiles(root), query, limit, downloads).result;
}

}  // namespace diary
