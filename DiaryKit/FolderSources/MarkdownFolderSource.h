// Folders and zips of notes of which each dated one is a file: Obsidian's daily notes, the journals
// of Logseq, an export of Diarly, or any files with a date in their paths. One entry a file.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <vector>

#include "DiaryKit/FolderSources/MarkdownNote.h"
#include "DiaryKit/FolderSources/NotePathPattern.h"
#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"

namespace diary::MarkdownFolderSource {

struct DatedNote {
    QString path;
    DiaryDay day;

    bool operator==(const DatedNote&) const = default;
};

// The entries of all notes, dated by their paths or else by their front matter, in the order of
// the paths; the others count as undated. Holds one note at a time beside the entries. Throws
// ImportError (empty) if no note has a date, FileError (Read) and ImportError (badArchive) for a
// note that can't be read. Blocks; for a background thread.
[[nodiscard]] ImportBatch read(const ImportPackage& package, const QString& name);

// The notes with a date in their paths, in order. Reads nothing but Obsidian's settings.
[[nodiscard]] std::vector<DatedNote> datedNotes(const ImportPackage& package);

// The date of the first pattern that finds one: Obsidian's, if there is one, then the common ones.
//   "2021-03-04 Trip.md", "2021/03-04.md", "notes/20210304"
[[nodiscard]] std::optional<DiaryDay> date(const QString& path,
                                           const std::optional<NotePathPattern>& obsidianFormat);

// Which application wrote the package's notes.
[[nodiscard]] Flavor flavor(const ImportPackage& package);

}  // namespace diary::MarkdownFolderSource
