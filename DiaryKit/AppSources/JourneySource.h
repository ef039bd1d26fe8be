// Reads a Journey export: a JSON file for each entry, in a folder or a zip, with media beside them.
// Media are counted, never copied.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"

namespace diary::JourneySource {

// The package's JSON files that begin like an entry, in its order.
[[nodiscard]] QStringList entryFiles(const ImportPackage& package);

// All entries. Those without a usable date are counted as undated, and files named like entries
// that couldn't be read as one as other notes. Throws ImportError (unrecognized) if no file begins
// like an entry, and what the package throws. Blocks; holds one file at a time.
[[nodiscard]] ImportBatch read(const ImportPackage& package, const QString& name);

}  // namespace diary::JourneySource
