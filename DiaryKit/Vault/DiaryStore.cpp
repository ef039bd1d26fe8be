#include "DiaryKit/Vault/DiaryStore.h"

#include <sys/stat.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
#include <QtCore/QStringList>
#include <algorithm>
#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/Background.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/DocumentMerge.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary {

namespace {

QString defaultRoot() {
    return QDir::homePath() + QLatin1String("/Documents/Diary");
}

// The device that the path lies on, or would lie on if it were made.
std::optional<std::uint64_t> deviceOf(QString path) {
    struct stat status {};
    while (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        const QString parent = QFileInfo(path).path();
        if (errno != ENOENT || parent == path) return std::nullopt;
        path = parent;
    }
    return status.st_dev;
}

// A name that only might be a copy is one if it holds at least one year.
bool holdsYearSection(const QByteArray& bytes) {
    const QString text = text::withoutCarriageReturnPairs(utf8::decodedWithRepair(bytes));
    return !YearSectionParser::sections(text).empty();
}

// The text with our marker on every line that is one of the others.
QString withMarker(const QString& text, const QString& marker, const QStringList& others) {
    if (std::none_of(others.begin(), others.end(), [&](const QString& other) {
            return other != marker && YearSectionParser::holdsOnOwnLines(text, other);
        })) {
        return text;
    }
    QStringList lines = text.split(u'\n');
    for (QString& line : lines) {
        if (others.contains(line)) line = marker;
    }
    return lines.join(u'\n');
}

// Whether the version was put away. One that can't be moved is met again, which does no harm: its
// text is in the file by then and is left out of the next merge.
bool markResolved(const ConflictVersions& versions, const ConflictVersion& version) {
    try {
        versions.markResolved(version);
        return true;
    } catch (const FileError&) {
        return false;
    }
}

}  // namespace

DiaryStore::DiaryStore(const QString& rootURL, DownloadService downloads, const Clock& clock,
                       std::optional<KeptTexts> keptTexts)
    : m_root(rootURL.isEmpty() ? defaultRoot() : rootURL),
      m_device(deviceOf(m_root)),
      m_downloads(std::move(downloads)),
      m_clock(clock),
      m_kept(keptTexts ? std::move(*keptTexts) : KeptTexts(m_root)) {}

QString DiaryStore::fileURL(const MonthDay& day) const {
    return dayfile::path(m_root, day);
}

QString DiaryStore::loadText(const MonthDay& day) const {
    return load(day).text;
}

dayfile::Loaded DiaryStore::load(const MonthDay& day) const {
    if (isDiskGone()) return {dayfile::blankTemplate(day), true};
    const std::optional<DownloadState> state = m_downloads.state(fileURL(day));
    if (state && *state != DownloadState::Current) m_downloads.startDownloading(fileURL(day));
    return dayfile::load(m_root, day);
}

// An empty mount point lies on another device. A disk that came back may do so too, but it holds
// day files, and then it is the vault.
bool DiaryStore::isDiskGone() const {
    if (!m_device) return false;
    const std::optional<std::uint64_t> device = deviceOf(m_root);
    if (device == m_device) return false;
    if (!device || dayfile::dayFiles(m_root).empty()) return true;
    m_device = device;
    return false;
}

void DiaryStore::save(const QString& text, const MonthDay& day) {
    rewrite(day, [&](const std::optional<dayfile::Content>&) { return text; });
}

dayfile::Rewritten DiaryStore::rewrite(
    const MonthDay& day,
    const std::function<QString(const std::optional<dayfile::Content>&)>& change) {
    if (isDiskGone()) throw FileError(FileOperation::Write, fileURL(day), ENODEV);
    dayfile::Rewritten written = dayfile::rewrite(m_root, day, change);
    if (written.stamp) noteWritten(day, *written.stamp, written.text);
    return written;
}

void DiaryStore::noteWritten(const MonthDay& day, const FileStamp& stamp, QStringView text) {
    ++m_revision;
    if (m_knownFiles) m_knownFiles->insert(day);
    m_awaitingDownload.erase(day);
    m_yearCache[day] = {stamp, YearSectionParser::yearsWithContent(text)};
}

std::optional<FileStamp> DiaryStore::modificationDate(const MonthDay& day) const {
    return fileStamp(fileURL(day));
}

bool DiaryStore::isAwaitingDownload(const MonthDay& day) const {
    if (m_downloads.state(fileURL(day)) != DownloadState::NotDownloaded) return false;
    m_downloads.startDownloading(fileURL(day));
    return true;
}

DiaryStore::Conflicts DiaryStore::resolveConflicts(
    const MonthDay& day, const QString& conflictMarker,
    const std::function<QStringList()>& otherMarkers) {
    const ConflictVersions versions(m_root);
    const std::vector<ConflictVersion> unresolved =
        versions.unresolved(fileURL(day), holdsYearSection);
    if (unresolved.empty()) return Conflicts::None;
    const QStringList others = otherMarkers ? otherMarkers() : QStringList();
    QString merged;
    bool isChanged = false;
    bool isSaved = true;
    const auto merge = [&](const std::optional<dayfile::Content>& existing) {
        const QString before = existing ? existing->text : dayfile::blankTemplate(day);
        if (existing && !existing->isValidUtf8) {
            m_kept.keep(day.headerTitle(), std::nullopt, KeptReason::Undecodable, existing->bytes,
                        m_clock.now());
        }
        merged = withMarker(before, conflictMarker, others);
        for (const ConflictVersion& version : unresolved) {
            const auto bytes = atomicfile::tryRead(version.path);
            if (!bytes) continue;
            const QString text =
                withMarker(utf8::decodedWithRepair(*bytes), conflictMarker, others);
            merged = YearSectionParser::mergingVersion(merged, text, day, conflictMarker);
        }
        isChanged = merged != before;
        return merged;
    };
    try {
        rewrite(day, merge);
    } catch (const FileError&) {
        isSaved = false;
    }
    if (!isSaved) {
        if (merged.isEmpty()) return Conflicts::None;  // The day file can't even be read.
        try {
            m_kept.keep(day.headerTitle(), std::nullopt, KeptReason::UnsavedMerge, merged.toUtf8(),
                        m_clock.now());
        } catch (const FileError&) {
            return Conflicts::None;  // Nowhere to keep it: the versions stay as they are.
        }
    }
    // Only now, when their text is in the file or kept, may the versions leave their place.
    bool isAnyResolved = false;
    for (const ConflictVersion& version : unresolved) {
        isAnyResolved = markResolved(versions, version) || isAnyResolved;
    }
    if (!isSaved) return Conflicts::MergedAndKept;
    return isAnyResolved || isChanged ? Conflicts::Merged : Conflicts::None;
}

void DiaryStore::invalidateCaches() {
    ++m_revision;
    m_knownFiles.reset();
}

const std::set<MonthDay>& DiaryStore::knownFiles() {
    if (!m_knownFiles) m_knownFiles = dayfile::dayFiles(m_root);
    return *m_knownFiles;
}

std::set<int> DiaryStore::yearsWithContent(const MonthDay& day) {
    const auto cached = m_yearCache.constFind(day);
    ScannedDay scanned =
        scanDay(m_root, day, cached == m_yearCache.constEnd() ? nullptr : &*cached, m_downloads);
    if (scanned.cached) return scanned.cached->years;
    if (scanned.isAwaitingDownload) {
        m_awaitingDownload.insert(day);
        return {};
    }
    m_awaitingDownload.erase(day);
    if (!scanned.fresh) return {};
    return m_yearCache.emplace(day, std::move(*scanned.fresh))->years;
}

QHash<MonthDay, int> DiaryStore::contentYearCounts() {
    QHash<MonthDay, int> counts;
    for (const MonthDay& day : knownFiles()) {
        const auto years = static_cast<int>(yearsWithContent(day).size());
        if (years > 0) counts.insert(day, years);
    }
    return counts;
}

std::set<int> DiaryStore::allContentYears() {
    std::set<int> all;
    for (const MonthDay& day : knownFiles()) all.merge(yearsWithContent(day));
    return all;
}

std::set<int> DiaryStore::daysWithContent(int month) {
    std::set<int> days;
    for (const MonthDay& day : knownFiles()) {
        if (day.month == month && !yearsWithContent(day).empty()) days.insert(day.day);
    }
    return days;
}

Overview DiaryStore::overview() {
    Overview overview;
    for (const MonthDay& day : knownFiles()) {
        ++overview.fileCount;
        const std::set<int> years = yearsWithContent(day);
        if (years.empty()) continue;
        ++overview.daysWithContent;
        overview.earliestYear =
            std::min(overview.earliestYear.value_or(*years.begin()), *years.begin());
    }
    return overview;
}

std::optional<MonthDay> DiaryStore::randomDayWithContent(const std::function<int(int)>& pick) {
    std::vector<MonthDay> written;
    for (const MonthDay& day : knownFiles()) {
        if (!yearsWithContent(day).empty()) written.push_back(day);
    }
    if (written.empty()) return std::nullopt;
    const int count = static_cast<int>(written.size());
    return written[pick ? pick(count) : QRandomGenerator::global()->bounded(count)];
}

void DiaryStore::loadArchiveSnapshot(std::function<void(const ArchiveSnapshot&)> finish) {
    background::run(
        background::Urgency::UserWaits, &m_context,
        [root = m_root, cache = m_yearCache, downloads = m_downloads] {
            return scanArchive(root, cache, downloads);
        },
        [this, finish = std::move(finish)](const ArchiveScan& scan) {
            adopt(scan);
            finish(scan.snapshot);
        });
}

void DiaryStore::adopt(const ArchiveScan& scan) {
    ++m_revision;
    m_knownFiles = scan.files;
    for (auto entry = scan.fresh.constBegin(); entry != scan.fresh.constEnd(); ++entry) {
        const auto known = m_yearCache.constFind(entry.key());
        // A save during the scan must not be overwritten by what the scan saw before it.
        if (known != m_yearCache.constEnd() && known->mtime.modified >= entry->mtime.modified) {
            continue;
        }
        m_yearCache.insert(entry.key(), *entry);
    }
    m_awaitingDownload = scan.snapshot.awaitingDownload;
}

void DiaryStore::warmEvictedFiles() const {
    background::start(background::Urgency::Utility, [root = m_root, downloads = m_downloads] {
        const QStringList names =
            QDir(root).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
        for (const QString& name : names) {
            const QString file = placeholderTarget(name).value_or(name);
            if (!file.endsWith(QLatin1String(".md"))) continue;
            const QString path = root + u'/' + file;
            const std::optional<DownloadState> state = downloads.state(path);
            if (state && *state != DownloadState::Current) downloads.startDownloading(path);
        }
    });
}

SearchResult DiaryStore::search(const SearchQuery& query, int limit) {
    if (query.isEmpty()) return SearchResult::empty;
    DaySearch search = searchDays(m_root, knownFiles(), query, limit, m_downloads);
    m_awaitingDownload.merge(search.pending);
    return std::move(search.result);
}

SearchResult DiaryStore::search(const QString& rootURL, const SearchQuery& query, int limit,
                                const DownloadService& downloads) {
    return searchVault(rootURL, query, limit, downloads);
}

std::optional<YearCacheEntry> DiaryStore::cachedYears(const MonthDay& day) const {
    const auto found = m_yearCache.constFind(day);
    return found == m_yearCache.constEnd() ? std::nullopt : std::optional(*found);
}

}  // namespace diary
