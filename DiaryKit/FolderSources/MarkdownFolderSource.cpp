#include "DiaryKit/FolderSources/MarkdownFolderSource.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>
#include <cstdlib>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::MarkdownFolderSource {

using namespace Qt::StringLiterals;

namespace {

QStringList notePaths(const ImportPackage& package) {
    return package.pathsWithExtensions({u"md"_s, u"markdown"_s, u"txt"_s, u"org"_s});
}

// The folder on the disk that the paths are relative to; nothing for a zip.
std::optional<QString> rootFolder(const ImportPackage& package) {
    if (package.isZip()) return std::nullopt;
    return package.isFolder() ? package.url() : QFileInfo(package.url()).path();
}

// A pattern of our own. One that isn't valid is a fault of the program.
NotePathPattern fixedPattern(const QString& expression) {
    std::optional<NotePathPattern> pattern = NotePathPattern::compiled(expression);
    if (!pattern) std::abort();
    return *std::move(pattern);
}

const std::vector<NotePathPattern>& commonPatterns() {
    static const std::vector<NotePathPattern> patterns = {
        // A date anywhere in the name, the year as a folder, and eight digits as the name.
        fixedPattern(u"(?<y>\\d{4})[-_.](?<m>\\d{2})[-_.](?<d>\\d{2})(?!\\d)[^/]*$"_s),
        fixedPattern(u"(?:^|/)(?<y>\\d{4})/(?<m>\\d{2})[-/](?<d>\\d{2})\\.\\w+$"_s),
        fixedPattern(u"(?:^|/)(?<y>\\d{4})(?<m>\\d{2})(?<d>\\d{2})(?:\\.\\w+)?$"_s),
    };
    return patterns;
}

bool isDiarlyNote(const QString& path) {
    static const NotePathPattern pattern = fixedPattern(u"/\\d{4}/\\d{2}-\\d{2}\\.md$"_s);
    return pattern.matches(path);
}

// How Obsidian names its daily notes, from its settings; nothing where there are none.
std::optional<NotePathPattern> obsidianFormat(const ImportPackage& package) {
    // Settings are some lines; a file that is much larger is something else.
    constexpr qint64 kLargest = 1 << 20;
    const std::optional<QString> root = rootFolder(package);
    if (!root) return std::nullopt;
    QFile file(*root + u"/.obsidian/daily-notes.json"_s);
    // Opening a pipe would wait for somebody to write into it.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(file.read(kLargest));
    if (!document.isObject()) return std::nullopt;
    const QString format = document["format"_L1].toString();
    const QString folder = document["folder"_L1].toString();
    return momentRegex(format.isEmpty() ? u"YYYY-MM-DD"_s : format,
                       text::trimmedOf(folder, u"/").toString());
}

// One note as an entry; nothing if it has no date. `removed` grows by the media that were cut out.
std::optional<ImportedEntry> entryOf(const QString& text, std::optional<DiaryDay> day,
                                     Flavor flavor, int& removed) {
    const Frontmatter note = splitFrontmatter(text);
    if (!day) day = note.date;
    if (!day) return std::nullopt;
    const Cleaned cleaned = clean(note.body, flavor);
    removed += cleaned.removed;
    ImportedEntry entry;
    entry.day = *day;
    entry.body = dropDateTitle(cleaned.text);
    entry.tags = note.tags;
    return entry;
}

}  // namespace

ImportBatch read(const ImportPackage& package, const QString& name) {
    const std::optional<NotePathPattern> format = obsidianFormat(package);
    const Flavor notesFlavor = flavor(package);
    ImportBatch batch;
    batch.source = ImportSource::markdownFolder;
    batch.name = name;
    for (const QString& path : notePaths(package)) {
        if (auto entry = entryOf(package.text(path), date(path, format), notesFlavor,
                                 batch.skipped.photos)) {
            batch.entries.push_back(std::move(*entry));
        } else {
            ++batch.skipped.undated;
        }
    }
    if (batch.entries.empty()) throw ImportError(ImportError::Kind::empty);
    return batch;
}

std::vector<DatedNote> datedNotes(const ImportPackage& package) {
    const std::optional<NotePathPattern> format = obsidianFormat(package);
    std::vector<DatedNote> notes;
    for (const QString& path : notePaths(package)) {
        if (const auto day = date(path, format)) notes.push_back({path, *day});
    }
    return notes;
}

std::optional<DiaryDay> date(const QString& path,
                             const std::optional<NotePathPattern>& obsidianFormat) {
    if (obsidianFormat) {
        if (const auto day = obsidianFormat->date(path)) return day;
    }
    for (const NotePathPattern& pattern : commonPatterns()) {
        if (const auto day = pattern.date(path)) return day;
    }
    return std::nullopt;
}

Flavor flavor(const ImportPackage& package) {
    const std::optional<QString> root = rootFolder(package);
    if (root && QFileInfo::exists(*root + u"/.obsidian"_s)) return Flavor::obsidian;
    const QStringList notes = notePaths(package);
    const auto isJournal = [](const QString& path) {
        return path.startsWith("journals/"_L1) || path.contains("/journals/"_L1);
    };
    if (std::any_of(notes.begin(), notes.end(), isJournal)) return Flavor::logseq;
    const auto isInData = [](const QString& path) { return path.contains("/Data/"_L1); };
    const QStringList& paths = package.paths();
    if (std::any_of(paths.begin(), paths.end(), isInData) &&
        std::any_of(notes.begin(), notes.end(), isDiarlyNote)) {
        return Flavor::diarly;
    }
    return Flavor::generic;
}

}  // namespace diary::MarkdownFolderSource
