// The files of the records' folder, shared by what lists, writes and undoes imports. Not for use
// outside DiaryKit/Import.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <optional>

#include "DiaryKit/Import/ImportRecord.h"

namespace diary::ImportLog {

// "<folder>/<id>.json", "<folder>/<id>/journal.jsonl", "<folder>/<id>/undo.jsonl" and
// "<folder>/<id>/before".
[[nodiscard]] QString recordPath(const QString& folder, const QString& id);
[[nodiscard]] QString journalPath(const QString& folder, const QString& id);
[[nodiscard]] QString undoJournalPath(const QString& folder, const QString& id);
[[nodiscard]] QString beforeFolder(const QString& folder, const QString& id);

// The names in the folder that end in ".json", sorted; none if it can't be listed.
[[nodiscard]] QStringList recordNames(const QString& folder);

// Reads the record of this file name, with its journal merged if it is being written. Nothing if it
// can't be read, names its files by an identifier that leads out of the folder, or is a copy of a
// record that lies beside it.
[[nodiscard]] std::optional<ImportRecord> readRecord(const QString& folder, const QString& name);

// The record as it stands on the disk; the given one if that can't be read, tells less of the
// import, or is finished on the disk too, since nothing more is written to one that is.
[[nodiscard]] ImportRecord currentRecord(const ImportRecord& record, const QString& folder);

// Runs `accessor` while no other thread or process of this user writes, keeps or undoes the import,
// and at no other time. Throws FileError (Coordinate) without running it: with EBUSY if one does,
// and if no lock can be had; and passes on what it throws. Never waits.
void withImport(const QString& folder, const QString& id, const std::function<void()>& accessor);

// Writes the record, synced. Throws FileError (Write).
void saveRecord(const ImportRecord& record, const QString& folder);

// What a journal tells of each day: of several lines the last, at the place of the first. Lines
// that don't read are passed over; nothing without a file.
[[nodiscard]] std::vector<ImportRecord::File> journaledFiles(const QString& path);

// Removes the journal if it can be removed. It has no meaning beside a finished record.
void removeJournal(const QString& folder, const QString& id);
// The same for the undo's, beside an undone record.
void removeUndoJournal(const QString& folder, const QString& id);

}  // namespace diary::ImportLog
