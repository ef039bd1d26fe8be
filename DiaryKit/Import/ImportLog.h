// The imports of a vault, each with its record in `.velmar/imports/`: listing them, and what
// becomes of one that was cut off. Every machine that has the vault sees all of them; the one that
// ran an import is told by its device identifier. ImportApply.h writes an import, ImportUndo.h
// takes one out, docs/formats/import-record.md tells the files byte by byte.
//
// Nothing here runs on a thread of its own; everything may block on files. Any thread. Writing,
// keeping and undoing one import exclude each other, between threads and between processes.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QTimeZone>
#include <functional>
#include <optional>
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
// what its journal tells. What can't be read or isn't a record is left out, and so are the copies
// of records that sync services make, and imports that were undone more than 30 days before `now`.
// Never throws, never removes anything.
[[nodiscard]] std::vector<ImportRecord> records(const QString& vault, const QDateTime& now);

// The record with the files, days and entries that its journal in `folder` tells, of several lines
// on a day the last. Lines that don't read are passed over; without a good one the record stays.
[[nodiscard]] ImportRecord mergingJournal(ImportRecord record, const QString& folder);

// Those of the records that this machine began and never finished, in their order. A machine that
// isn't told counts as this one; another machine's import may be under way there.
[[nodiscard]] std::vector<ImportRecord> interrupted(std::span<const ImportRecord> records,
                                                    const QString& deviceID);

// The newest import that this machine began and that nobody will finish: what a start asks about.
// One that another process of this user is writing right now isn't cut off. Never throws; reads
// all records, so not for a thread that a user waits for.
[[nodiscard]] std::optional<ImportRecord> interruptedImport(const QString& vault,
                                                            const QString& deviceID,
                                                            const QDateTime& now);

// Whether a thread or a process of this user is writing, keeping or undoing the import right now.
// Such an import is neither to be kept nor to be undone, whatever its record says.
[[nodiscard]] bool isBeingWritten(const ImportRecord& record, const QString& vault);

// Accepts a cut-off import as far as it came by now: the one of `record`, as `records` gives it,
// becomes "done". One that has been finished or undone since it was listed stays so; one that was
// listed as undone isn't to be given. Throws FileError if that can't be saved, or (Coordinate,
// EBUSY) while the import is being written. That its journal can't be removed is passed over.
void markDone(const ImportRecord& record, const QString& vault);

// Removes the temporaries that dead processes of this machine left in the folders of the records,
// and gives their number. The vault's own folder isn't looked at.
int removeAbandonedTemporaries(const QString& vault);

}  // namespace diary::ImportLog
