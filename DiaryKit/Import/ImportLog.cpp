#include "DiaryKit/Import/ImportLog.h"

#include <QtCore/QDir>
#include <QtCore/QUuid>
#include <algorithm>
#include <cerrno>
#include <iterator>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportLogFiles.h"

namespace diary::ImportLog {

namespace {

using File = ImportRecord::File;
using State = ImportRecord::State;

// For so long an undone import is still listed.
constexpr qint64 kListedAfterUndo = qint64{30} * 24 * 60 * 60;

bool isListed(const ImportRecord& record, const QDateTime& now) {
    if (record.state != State::undone || !record.undoneAt) return true;
    return record.undoneAt->secsTo(now) <= kListedAfterUndo;
}

int entryCount(const std::vector<File>& files) {
    qsizetype count = 0;
    for (const File& file : files) {
        for (const ImportRecord::Added& added : file.added) {
            if (added.entryKeys) count += added.entryKeys->size();
        }
    }
    return static_cast<int>(count);
}

}  // namespace

QString deviceID(const DeviceIDStore& store) {
    QString stored = store.read();
    if (!stored.isEmpty()) return stored;
    QString made = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    store.write(made);
    return made;
}

QString directory(const QString& vault) {
    return vault + QLatin1String("/.velmar/imports");
}

QString idStem(const QDateTime& moment, const QTimeZone& zone, ImportSource source) {
    const QString time = moment.toTimeZone(zone).toString(QStringLiteral("yyyyMMdd-HHmmss"));
    return time + u'-' + import_source::spelling(source) + u'-';
}

std::vector<ImportRecord> records(const QString& vault, const QDateTime& now) {
    const QString folder = directory(vault);
    std::vector<ImportRecord> found;
    for (const QString& name : recordNames(folder)) {
        std::optional<ImportRecord> record = readRecord(folder, name);
        if (record && isListed(*record, now)) found.push_back(std::move(*record));
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const ImportRecord& a, const ImportRecord& b) { return a.at > b.at; });
    return found;
}

ImportRecord mergingJournal(ImportRecord record, const QString& folder) {
    std::vector<File> files = journaledFiles(journalPath(folder, record.id));
    if (files.empty()) return record;
    record.days = static_cast<int>(files.size());
    record.entries = entryCount(files);
    record.files = std::move(files);
    return record;
}

std::vector<ImportRecord> interrupted(std::span<const ImportRecord> records,
                                      const QString& deviceID) {
    std::vector<ImportRecord> found;
    std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                 [&](const ImportRecord& record) {
                     const bool isOurs = record.deviceID.value_or(deviceID) == deviceID;
                     return record.state == State::writing && isOurs;
                 });
    return found;
}

std::optional<ImportRecord> interruptedImport(const QString& vault, const QString& deviceID,
                                              const QDateTime& now) {
    for (const ImportRecord& listed : interrupted(records(vault, now), deviceID)) {
        if (isBeingWritten(listed, vault)) continue;
        // Whoever wrote it has ended by now, but may have finished it since it was listed.
        ImportRecord record = currentRecord(listed, directory(vault));
        if (record.state == State::writing) return record;
    }
    return std::nullopt;
}

bool isBeingWritten(const ImportRecord& record, const QString& vault) {
    try {
        withImport(directory(vault), record.id, [] {});
        return false;
    } catch (const FileError& error) {
        return error.code() == EBUSY;
    }
}

void markDone(const ImportRecord& record, const QString& vault) {
    const QString folder = directory(vault);
    withImport(folder, record.id, [&] {
        ImportRecord done = currentRecord(record, folder);
        if (done.state == State::writing || done.state == record.state) {
            done.state = State::done;
            saveRecord(done, folder);
        }
        removeJournal(folder, done.id);
    });
}

int removeAbandonedTemporaries(const QString& vault) {
    const QString folder = directory(vault);
    int count = atomicfile::removeAbandonedTemporaries(folder);
    const QStringList ids = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& id : ids) {
        count += atomicfile::removeAbandonedTemporaries(beforeFolder(folder, id));
    }
    return count;
}

}  // namespace diary::ImportLog
