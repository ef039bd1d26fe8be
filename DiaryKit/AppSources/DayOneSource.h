// Reads a Day One export: a JSON file for each journal, in a folder or a zip, with media beside
// them. Entries' texts are Markdown that the export has escaped more than needed and filled with
// links of its own; media are counted, never copied.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"

namespace diary::DayOneSource {

// The package's JSON files that begin like a journal, in its order.
[[nodiscard]] QStringList journalFiles(const ImportPackage& package);

// All entries of all journals. JSON of another shape is passed over, and entries without a usable
// date are counted. Throws ImportError (unrecognized) if no journal is left, FileError (Read, or
// Decode for a file that isn't JSON) and what the package throws. Blocks.
[[nodiscard]] ImportBatch read(const ImportPackage& package, const QString& name);

// The text of an entry without links to the export's own entries and media, and without escapes
// that Markdown doesn't need. What would turn into a list or a heading stays escaped.
//   "Version 1\.2, [see](dayone://x)" -> "Version 1.2, see";  "1\. Apples" stays
[[nodiscard]] QString cleanText(QStringView text);

}  // namespace diary::DayOneSource
