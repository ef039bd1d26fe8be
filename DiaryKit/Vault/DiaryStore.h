// The only reader and writer of day files. One store for one vault; it belongs to the main thread,
// which is what protects its caches. Background work uses the functions of DayFile.h and
// ArchiveSnapshot.h, which touch no store.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <functional>
#include <optional>
#include <set>

#include "DiaryKit/Files/ConflictVersions.h"
#include "DiaryKit/Files/DownloadService.h"
#include "DiaryKit/Files/FileStamp.h"
#include "DiaryKit/Files/KeptTexts.h"
#include "DiaryKit/Foundation/Clock.h"
#include "DiaryKit/Search/VaultSearch.h"
#include "DiaryKit/Vault/ArchiveSnapshot.h"
#include "DiaryKit/Vault/DayFile.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

class DiaryStore {
public:
    // What taking in the conflict versions of a day came to.
    enum class Conflicts {
        None,
        Merged,
        // Merged, but the save failed; the merge was kept outside the vault.
        MergedAndKept,
    };

    // Reads and changes no file. Without a root the vault is Documents/Diary in the user's home;
    // without a place for kept texts it is the user's state folder.
    explicit DiaryStore(const QString& rootURL = {}, DownloadService downloads = {},
                        const Clock& clock = Clock::system(),
                        std::optional<KeptTexts> keptTexts = {});

    [[nodiscard]] const QString& rootURL() const { return m_root; }
    [[nodiscard]] const KeptTexts& keptTexts() const { return m_kept; }
    [[nodiscard]] QString fileURL(const MonthDay& day) const;

    // The file's text, with U+FFFD for what isn't UTF-8; the blank template where there is no file
    // or it can't be read. Asks for the download of a file that isn't current, and doesn't wait.
    [[nodiscard]] QString loadText(const MonthDay& day) const;

    // The same, telling a file that isn't there from one that can't be read. A vault whose disk is
    // gone can't be read.
    [[nodiscard]] dayfile::Loaded load(const MonthDay& day) const;

    // Replaces the file, atomically and synced. An effectively empty text makes no file where there
    // is none. Throws FileError; the old file stands then.
    void save(const QString& text, const MonthDay& day);

    // Reads, changes and writes the file under one exclusive coordination (dayfile::rewrite), and
    // keeps the caches in step. Throws what that throws, and FileError (Write, ENODEV) while the
    // disk that the vault lies on is not there: what lies in its place, an
    // empty mount point for instance, is not the vault.
    dayfile::Rewritten rewrite(
        const MonthDay& day,
        const std::function<QString(const std::optional<dayfile::Content>&)>& change);

    // Absent if the file can't be examined.
    [[nodiscard]] std::optional<FileStamp> modificationDate(const MonthDay& day) const;

    // Whether only a placeholder of the file is here; if so, its download is asked for.
    [[nodiscard]] bool isAwaitingDownload(const MonthDay& day) const;

    // Takes the unresolved conflict versions of the day into its file and puts them away. A year
    // that both sides wrote differently holds both texts, `conflictMarker` on a line between. A
    // copy that another machine merged in another language has one of `otherMarkers` there; it is
    // read with ours, so that one merge made twice is one text. They are asked for only then.
    Conflicts resolveConflicts(const MonthDay& day, const QString& conflictMarker,
                               const std::function<QStringList()>& otherMarkers = {});

    // Makes the next look at the folder list it anew. What is known of files stays; their stamps
    // tell whether it still holds.
    void invalidateCaches();

    // Another number whenever the answers below may have changed through this store: by a write, a
    // scan, or invalidateCaches(). Between two looks with one number nothing need be asked again.
    [[nodiscard]] int revision() const { return m_revision; }

    // The number of years with content of each day that has any.
    [[nodiscard]] QHash<MonthDay, int> contentYearCounts();
    [[nodiscard]] std::set<int> allContentYears();
    // The days of that month with content, as day numbers.
    [[nodiscard]] std::set<int> daysWithContent(int month);
    [[nodiscard]] Overview overview();
    // One of the days with content, each as likely; nothing if there is none. `pick(n)` gives a
    // number from 0 to n - 1; by default at random.
    [[nodiscard]] std::optional<MonthDay> randomDayWithContent(
        const std::function<int(int)>& pick = {});

    // Scans the vault in the background, takes what it found into the caches on the main thread,
    // and hands on the snapshot, unless the store is gone by then.
    void loadArchiveSnapshot(std::function<void(const ArchiveSnapshot&)> finish);

    // Takes a scan's findings into the caches; an entry that is newer here stays.
    void adopt(const ArchiveScan& scan);

    // Asks in the background for the download of every day file that isn't here.
    void warmEvictedFiles() const;

    // The most hits that a search gives.
    static constexpr int searchLimit = 500;

    // searchDays() over the files that the store knows of; notes which are awaiting their download.
    [[nodiscard]] SearchResult search(const SearchQuery& query, int limit = searchLimit);

    // searchVault(): for background work, on any thread.
    [[nodiscard]] static SearchResult search(const QString& rootURL, const SearchQuery& query,
                                             int limit, const DownloadService& downloads);

    // The days that were found to be awaiting their download when they were last looked at.
    [[nodiscard]] const std::set<MonthDay>& awaitingDownload() const { return m_awaitingDownload; }

    // For tests: what is known of a day's file.
    [[nodiscard]] std::optional<YearCacheEntry> cachedYears(const MonthDay& day) const;

private:
    [[nodiscard]] bool isDiskGone() const;
    const std::set<MonthDay>& knownFiles();
    std::set<int> yearsWithContent(const MonthDay& day);
    void noteWritten(const MonthDay& day, const FileStamp& stamp, QStringView text);

    QString m_root;
    // The device of the vault, or of the folder that it would be made in.
    mutable std::optional<std::uint64_t> m_device;
    DownloadService m_downloads;
    const Clock& m_clock;
    KeptTexts m_kept;
    std::optional<std::set<MonthDay>> m_knownFiles;
    YearCache m_yearCache;
    int m_revision = 0;
    std::set<MonthDay> m_awaitingDownload;
    // Stands for the store where background work comes back.
    QObject m_context;
};

}  // namespace diary
