// Takes an import out of the vault again. A day that is as the import left it gets its old text
// back, byte for byte; from a day that was written in since, only the import's own text is cut out.
// What can't be found with certainty stays, and is counted.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <optional>

#include "DiaryKit/Import/ImportRecord.h"
#include "DiaryKit/Vault/SectionedText.h"

namespace diary::ImportLog {

struct UndoResult {
    // Day files put back as they were.
    int restored = 0;
    // Day files that had changed, and that the imported text was cut out of.
    int edited = 0;
    // Additions, a year's worth of imported text each, that stayed for want of certainty, and those
    // beyond a hundred to one year of an edited day, which no import makes.
    int notFound = 0;

    bool operator==(const UndoResult&) const = default;
};

// Undoes the import of `record`, as `records` gives it, and marks it "undone" at `now`. A day file
// that was deleted stays so. What the disk tells of the import by now counts: all of it, if it has
// come further; nothing happens if it has been undone since `record` was listed. A record that was
// listed as undone is taken through it once more, so it isn't to be offered.
//
// Throws FileError (Coordinate, EBUSY) and does nothing while another thread or process of this
// user writes, keeps or undoes the same import. Otherwise throws FileError and stops there, with
// the record as it was, so that it can be tried again. What one try has cut out of an edited day
// the next doesn't look for; if the day was edited once more in between, nobody knows whether it
// was cut, and its additions count as not found. It throws: as
// dayfile::modifyingFile does, for what can't be written, and with the operation Read for the copy
// of a day's old text: the system's code if it can't be read, EILSEQ if it isn't UTF-8, EBADMSG if
// its digest isn't the recorded one. Blocks; any thread.
UndoResult undo(const ImportRecord& record, const QString& vault, const QDateTime& now);

// What became of an addition that was to be cut out.
enum class Cut {
    Made,
    // It may still be there, and can't be told from the user's own words.
    NotFound,
    // The import never added it.
    NotNeeded
};

// Cuts the addition out of the day's text as it is now. `backup` is its text before the import;
// `isOfOldVersion` tells of a record that lacks the digest of what was written, and may list what
// the day held before. Never cuts into a line. Touches no file. Costs what the year's sections
// cost.
//   {2024, "tea"}, "# 01-02\n\n## 2024\n\ntea\n\nmine\n" -> "# 01-02\n\n## 2024\n\nmine\n"
[[nodiscard]] Cut cutOut(const ImportRecord::Added& added,
                         const std::optional<SectionedText>& backup, bool isOfOldVersion,
                         SectionedText& day);

}  // namespace diary::ImportLog
