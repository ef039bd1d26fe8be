// Reads Daylio's two exports: the CSV file, and the backup, a JSON text in base64, in a zip or
// not. An entry there is a mood with activities above all, so the first line of its text tells
// these, and the note follows.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringView>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"

namespace diary::DaylioSource {

// The user's names for moods, by the names that the export has, in lower case.
using Moods = QHash<QString, QString>;

// Whether the first line that isn't empty names the columns of a Daylio export, in any case.
[[nodiscard]] bool isCSV(QStringView text);

// One entry for each row with a date; the others are counted. The first row names the columns, in
// any order; of two with one name the first counts. Throws ImportError (unrecognized) if there is
// no column "mood". Any thread.
//   "full_date,mood,activities,note\n2021-03-04,Rad,tea | walk,Hi", {"rad": "Great"}
//   -> 4 March 2021, "**Great** · tea · walk\n\nHi"
[[nodiscard]] ImportBatch readCSV(QStringView text, const QString& name, const Moods& moods);

// The entries of a backup: the file "backup.daylio" at the top of the package, or else the picked
// file if its extension is "daylio". It is base64 text, or a zip with that as its first entry;
// values of a wrong type count as absent, and assets as photos. Throws ImportError (unrecognized)
// if there is no such file, or it can't be read. Blocks.
[[nodiscard]] ImportBatch readBackup(const ImportPackage& package, const QString& name,
                                     const Moods& moods);

}  // namespace diary::DaylioSource
