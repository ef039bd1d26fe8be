#include "DiaryKit/Import/ImportLogFiles.h"

#include <dirent.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <cerrno>
#include <memory>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportLog.h"

namespace diary::ImportLog {

namespace {

const QLatin1String kEnding(".json");

// Records come from other machines too. One must not reach for files elsewhere.
bool staysInFolder(const QString& id) {
    const bool isStep = id == QLatin1String(".") || id == QLatin1String("..");
    return !id.isEmpty() && !isStep && !id.contains(u'/') && !id.contains(QChar(0));
}

// Whether `record` tells more of an import than what the disk has by now. An import only ever goes
// forward, but a sync service may bring back an older record, or take a journal away.
bool tellsMore(const ImportRecord& record, const ImportRecord& onDisk) {
    if (record.state != onDisk.state) return record.state > onDisk.state;
    return record.state == ImportRecord::State::writing &&
           record.files.size() > onDisk.files.size();
}

// Whether the file is surely a record in the state "done", without the memory for all its texts. A
// line end stands in no text as it is, so the line can only be the record's own.
bool isWrittenAsDone(const QString& path) {
    const std::optional<QByteArray> bytes = atomicfile::tryRead(path);
    return bytes && bytes->contains("\n    \"state\": \"done\",\n");
}

}  // namespace

QString recordPath(const QString& folder, const QString& id) {
    return folder + u'/' + id + kEnding;
}

QString journalPath(const QString& folder, const QString& id) {
    return folder + u'/' + id + QLatin1String("/journal.jsonl");
}

QString undoJournalPath(const QString& folder, const QString& id) {
    return folder + u'/' + id + QLatin1String("/undo.jsonl");
}

QString beforeFolder(const QString& folder, const QString& id) {
    return folder + u'/' + id + QLatin1String("/before");
}

QStringList recordNames(const QString& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(
        ::opendir(QFile::encodeName(folder).constData()), ::closedir);
    QStringList names;
    if (!listing) return names;
    while (const dirent* entry = ::readdir(listing.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (name.endsWith(kEnding)) names.append(name);
    }
    names.sort();
    return names;
}

std::optional<ImportRecord> readRecord(const QString& folder, const QString& name) {
    std::optional<QByteArray> bytes = atomicfile::tryRead(folder + u'/' + name);
    if (!bytes) return std::nullopt;
    std::optional<ImportRecord> record = ImportRecord::decode(std::move(*bytes));
    if (!record || !staysInFolder(record->id)) return std::nullopt;
    // Sync services keep both of two versions, one under a name of their own.
    const QString own = record->id + kEnding;
    if (name != own && QFile::exists(folder + u'/' + own)) return std::nullopt;
    if (record->state != ImportRecord::State::writing) return record;
    return mergingJournal(std::move(*record), folder);
}

ImportRecord currentRecord(const ImportRecord& record, const QString& folder) {
    const QString name = record.id + kEnding;
    if (record.state == ImportRecord::State::done && isWrittenAsDone(folder + u'/' + name)) {
        return record;
    }
    std::optional<ImportRecord> current = readRecord(folder, name);
    if (!current || current->id != record.id || tellsMore(record, *current)) return record;
    return std::move(*current);
}

void withImport(const QString& folder, const QString& id, const std::function<void()>& accessor) {
    const QString path = folder + u'/' + id;
    if (!FileCoordinator(path).tryCoordinateWriting(accessor)) {
        throw FileError(FileOperation::Coordinate, path, EBUSY);
    }
}

void saveRecord(const ImportRecord& record, const QString& folder) {
    atomicfile::write(recordPath(folder, record.id), record.encoded());
}

std::vector<ImportRecord::File> journaledFiles(const QString& path) {
    std::vector<ImportRecord::File> files;
    QHash<QString, size_t> places;
    for (const QByteArray& line : atomicfile::tryRead(path).value_or(QByteArray()).split('\n')) {
        std::optional<ImportRecord::File> file = ImportRecord::File::decode(line);
        if (!file) continue;
        const auto place = places.constFind(file->day);
        if (place != places.constEnd()) {
            files[*place] = std::move(*file);
            continue;
        }
        places.insert(file->day, files.size());
        files.push_back(std::move(*file));
    }
    return files;
}

void removeJournal(const QString& folder, const QString& id) {
    (void)::unlink(QFile::encodeName(journalPath(folder, id)).constData());
}

void removeUndoJournal(const QString& folder, const QString& id) {
    (void)::unlink(QFile::encodeName(undoJournalPath(folder, id)).constData());
}

}  // namespace diary::ImportLog
