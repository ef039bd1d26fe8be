// The imports of a vault, each with its record in `.velmar/imports/`: listing them, and what
// becomes of one that was cut off. Every machine that has the vault sees all of them; the one that
// ran an import is told by its device identifier. ImportApply.h writes an import, ImportUndo.h
// takes one out, docs/formats/import-record.md tells the files byte by byte.
//
// Nothing here runs on a thread of its own; everything may block on files. Any thread, but never
// two at once on one record.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QTimeZone>
#include <functional>
#include <span>
#include <vector>

#include "DiaryKit/Import/ImportRecord.h"

namespace diary::ImportLog {

// Where this installation's identifier is kept, such as its settings; never in the vault.
struct DeviceIDStore {
    // Empty if none was stored yet.
    std::function<QString()> read;
    std::function<void(const QString& deviceID)> write;
};

// The identifier of this installation on this machine. Made and stored when there is none.
[[nodiscard]] QString deviceID(const DeviceIDStore& store);

// The folder of all records.
[[nodiscard]] QString directory(const QString& vault);

// A record's identifier up to its UUID; identifiers sort by the moment.
//   "20150718-075014-journey-"
[[nodiscard]] QString idStem(const QDateTime& moment, const QTimeZone& zone, ImportSource source);

// All records, newest first, those of one moment by file name; one that is still being written has
// what its journal tells. What can't be read or isn't a record is left out, and so is an import
// that was undone more than 30 days before `now`. Never throws, never removes anything.
[[nodiscard]] std::vector<ImportRecord> records(const QString& vault, const QDateTime& now);

// The record with the files, days and entries that its journal in `folder` tells, of several lines
// on a day the last. Lines that don't read are passed over; without a good one the record stays.
[[nodiscard]] ImportRecord mergingJournal(ImportRecord record, const QString& folder);

// Those of the records that this machine began and never finished, in their order. A machine that
// isn't told counts as this one; another machine's import may be under way there.
[[nodiscard]] std::vector<ImportRecord> interrupted(std::span<const ImportRecord> records,
                                                    const QString& deviceID);

// Accepts a cut-off import as far as it came: `record`, as `records` gives it, becomes "done".
// Throws FileError if that can't be saved. That its journal can't be removed is passed over.
void markDone(const ImportRecord& record, const QString& vault);

// Removes the temporaries that dead processes of this machine left in the folders of the records,
// and gives their number. The vault's own folder isn't looked at.
int removeAbandonedTemporaries(const QString& vault);

}  // namespace diary::ImportLog
