#include "DiaryKit/Files/ConflictVersions.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <tuple>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/FileStamp.h"
#include "DiaryKit/Foundation/FileError.h"

namespace diary {

namespace {

// What a service puts between a file's stem and its extension.
struct TagForm {
    QRegularExpression form;
    ConflictName sureness;
};

TagForm tagForm(ConflictName sureness, const char* form) {
    return {QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf8(form))),
            sureness};
}

// The forms in the order in which they are tried; the broadest comes last. The groups "date" and
// "time" tell the moment of the copy.
const std::vector<TagForm>& tagForms() {
    using enum ConflictName;
    static const std::vector<TagForm> forms = {
        // Syncthing; older versions name no device.
        tagForm(Certain, R"(\.sync-conflict-(?<date>\d{8})-(?<time>\d{6})(?:-[A-Z0-9]{7})?)"),
        // Nextcloud, its clash of names that differ in case only, and ownCloud before it.
        tagForm(Certain, R"( \(conflicted copy (?:[^()]* )?(?<date>\d{4}-\d\d-\d\d) )"
                         R"((?<time>\d{6})\))"),
        tagForm(Certain, R"( \(case clash from [^()]*\))"),
        tagForm(Certain, R"(_conflict-(?:[^/]*-)?(?<date>\d{8})-(?<time>\d{6}))"),
        // Dropbox, and an open client for it.
        tagForm(Certain, R"( \(.+['’]s conflicted copy (?<date>\d{4}-\d\d-\d\d)(?: \(\d+\))?\))"),
        tagForm(Certain, R"( \(conflicting copy(?: \d+)?\))"),
        // Obsidian Sync.
        tagForm(Certain, R"( \(Conflicted copy .+ (?<date>\d{8})(?<time>\d{4})\))"),
        // The open client for OneDrive.
        tagForm(Certain, R"(-.+-safeBackup-\d+)"),
        // rclone, where it keeps the extension.
        tagForm(Certain, R"(\.conflict\d+)"),
        // FSNotes, Cryptomator, pCloud.
        tagForm(Certain, R"( \(CONFLICT (?<date>\d{8})T(?<time>\d{6})\))"),
        tagForm(Certain, R"( \(Conflict [0-9a-f]{8}\))"),
        tagForm(Certain, R"( ?[\[(]conflicted[\])])"),
        // Dropbox in other languages, Seafile: any words around a date.
        tagForm(Possible, R"( \((?:.*\D)?(?<date>\d{4}-\d\d-\d\d)(?:\D.*)?\)(?: \(\d+\))?)"),
        // Google Drive, OneDrive, iCloud on another system; then iCloud.
        tagForm(Possible, R"((?: ?\(\d+\))+)"),
        tagForm(Possible, R"([ _]\d{1,2})"),
        // OneDrive's names of computers. Four digits are a year that the user wrote.
        tagForm(Possible, R"(-(?!\d{4}(?:\D|$))[^/]+)"),
    };
    return forms;
}

// The moment that a matched tag tells.
std::optional<QDateTime> momentOf(const QRegularExpressionMatch& tag) {
    QString digits = tag.captured(QStringLiteral("date"));
    digits.remove(QLatin1Char('-'));
    const QDate date = QDate::fromString(digits, QStringLiteral("yyyyMMdd"));
    if (!date.isValid()) return std::nullopt;
    QString time = tag.captured(QStringLiteral("time"));
    if (time.isEmpty()) return date.startOfDay();
    if (time.size() == 4) time += QStringLiteral("00");
    const QTime clock = QTime::fromString(time, QStringLiteral("HHmmss"));
    if (!clock.isValid()) return std::nullopt;
    return QDateTime(date, clock);
}

// A reading of a name as a copy.
struct Reading {
    ConflictName sureness = ConflictName::Certain;
    // Both of the outermost tag: the place of its form in the order, and what it tells.
    std::size_t form = 0;
    std::optional<QDateTime> moment;

    [[nodiscard]] bool isBetterThan(const Reading& other) const {
        return std::tie(sureness, form) < std::tie(other.sureness, other.form);
    }
};

bool mayBegin(QChar character) {
    return QStringView(u" ._-([").contains(character);
}

// The reading of a text as one tag. The first form that fits is the surest.
std::optional<Reading> readingOfOne(QStringView tag) {
    const std::vector<TagForm>& forms = tagForms();
    for (std::size_t form = 0; form < forms.size(); ++form) {
        const QRegularExpressionMatch match = forms[form].form.match(tag);
        if (match.hasMatch()) return Reading{forms[form].sureness, form, momentOf(match)};
    }
    return std::nullopt;
}

// The reading of `tags` as a row of tags, since copies get copied in their turn. Of several the
// sure one counts, then the one whose last tag has the surest form, then the shortest.
std::optional<Reading> readingOfRow(QStringView tags) {
    // What stands ahead of each place where a tag may end.
    std::vector<std::optional<Reading>> upTo(static_cast<std::size_t>(tags.size()) + 1);
    const auto at = [&](qsizetype place) -> auto& { return upTo[static_cast<std::size_t>(place)]; };
    at(0) = Reading{};
    for (qsizetype end = 1; end <= tags.size(); ++end) {
        if (end < tags.size() && !mayBegin(tags[end])) continue;
        for (qsizetype start = end - 1; start >= 0; --start) {
            const std::optional<Reading>& inner = at(start);
            if (!mayBegin(tags[start]) || !inner) continue;
            std::optional<Reading> last = readingOfOne(tags.sliced(start, end - start));
            if (!last) continue;
            last->sureness = std::max(last->sureness, inner->sureness);
            std::optional<Reading>& best = at(end);
            if (!best || last->isBetterThan(*best)) best = last;
        }
    }
    return at(tags.size());
}

struct FileName {
    QStringView stem;
    // With its dot.
    QStringView extension;
};

FileName parts(QStringView fileName) {
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot <= 0) return {fileName, {}};
    return {fileName.first(dot), fileName.sliced(dot)};
}

// rclone puts its tags behind the extension.
bool dropTagBehindExtension(QStringView& name) {
    static const QRegularExpression form(QStringLiteral(R"((?:\.conflict\d+|\.\.path[12])$)"));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch()) return false;
    name.chop(match.capturedLength());
    return true;
}

std::optional<Reading> reading(QStringView name, QStringView fileName) {
    const auto [stem, extension] = parts(fileName);
    if (name.size() <= fileName.size() || !name.startsWith(stem)) return std::nullopt;
    bool hasTagBehind = false;
    while (name.size() > fileName.size() && !name.endsWith(extension) &&
           dropTagBehindExtension(name)) {
        hasTagBehind = true;
    }
    if (name.size() < fileName.size() || !name.endsWith(extension)) return std::nullopt;
    const QStringView tags = name.sliced(stem.size(), name.size() - stem.size() - extension.size());
    std::optional<Reading> result = readingOfRow(tags);
    if (result && hasTagBehind) result->moment.reset();
    return result;
}

// Sorted by nothing: the names in the folder that begin with the stem.
std::vector<QByteArray> namesWithPrefix(const QString& folder, const QByteArray& stem) {
    std::vector<QByteArray> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(
        ::opendir(QFile::encodeName(folder).constData()), ::closedir);
    if (!listing) return names;
    while (const dirent* entry = ::readdir(listing.get())) {
        if (qstrncmp(entry->d_name, stem.constData(), static_cast<std::size_t>(stem.size())) == 0) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

bool isRegularFile(const QString& path) {
    struct stat status {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

QDateTime modificationMoment(const QString& path) {
    constexpr std::int64_t kNanosecondsPerMillisecond = 1'000'000;
    const std::int64_t modified = fileStamp(path).value_or(FileStamp{}).modified;
    return QDateTime::fromMSecsSinceEpoch(modified / kNanosecondsPerMillisecond);
}

bool passes(const QString& path, const ConflictVersions::ContentGate& gate) {
    const std::optional<QByteArray> bytes = atomicfile::tryRead(path);
    return bytes && gate(*bytes);
}

// "a.md", 2 -> "a 2.md"
QString numbered(const QString& name, int number) {
    if (number == 1) return name;
    const auto [stem, extension] = parts(name);
    return stem.toString() + QLatin1Char(' ') + QString::number(number) + extension.toString();
}

}  // namespace

std::optional<ConflictName> conflictName(QStringView name, QStringView fileName) {
    const std::optional<Reading> result = reading(name, fileName);
    if (!result) return std::nullopt;
    return result->sureness;
}

std::optional<QDateTime> conflictMoment(QStringView name, QStringView fileName) {
    const std::optional<Reading> result = reading(name, fileName);
    if (!result) return std::nullopt;
    return result->moment;
}

std::vector<ConflictVersion> ConflictVersions::unresolved(const QString& path,
                                                          const ContentGate& gate) const {
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    const QString folder = path.first(qMax<qsizetype>(slash, 0));
    const QString fileName = path.sliced(slash + 1);
    std::vector<ConflictVersion> versions;
    for (const QByteArray& bytes :
         namesWithPrefix(folder, QFile::encodeName(parts(fileName).stem.toString()))) {
        const QString name = QFile::decodeName(bytes);
        const std::optional<Reading> copy = reading(name, fileName);
        const QString place = folder + QLatin1Char('/') + name;
        if (!copy || !isRegularFile(place)) continue;
        if (copy->sureness == ConflictName::Possible && !passes(place, gate)) continue;
        versions.push_back({place, copy->moment ? *copy->moment : modificationMoment(place)});
    }
    std::ranges::sort(versions, [](const ConflictVersion& a, const ConflictVersion& b) {
        return std::tie(a.moment, a.path) < std::tie(b.moment, b.path);
    });
    return versions;
}

void ConflictVersions::markResolved(const ConflictVersion& version) const {
    const QString folder = m_vault + QStringLiteral("/.velmar/conflicts");
    atomicfile::makeFolder(folder);
    const QString name = version.path.section(QLatin1Char('/'), -1);
    for (int number = 1;; ++number) {
        const QString target = folder + QLatin1Char('/') + numbered(name, number);
        try {
            atomicfile::move(version.path, target, atomicfile::Replacing::No);
            return;
        } catch (const FileError& error) {
            if (error.code() != EEXIST) throw;
        }
        const std::optional<QByteArray> bytes = atomicfile::tryRead(version.path);
        if (bytes && bytes == atomicfile::tryRead(target)) {
            atomicfile::move(version.path, target);
            return;
        }
    }
}

}  // namespace diary
