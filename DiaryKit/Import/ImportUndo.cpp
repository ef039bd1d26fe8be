#include "DiaryKit/Import/ImportUndo.h"

#include <unistd.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <algorithm>
#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportJournal.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportLogFiles.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "DiaryKit/Vault/DayFile.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::ImportLog {

namespace {

using State = ImportRecord::State;

// An import adds once to a year of a day. Each addition is sought in the whole section, so a record
// that tells of thousands would keep us for hours; those beyond this many count as not found.
constexpr int kMostOfOneYear = 100;

[[noreturn]] void throwCorrupt(const QString& path) {
    throw FileError(FileOperation::Read, path, EBADMSG);
}

// Removes the day's file, unless it holds something else than `text` by now (ESTALE).
void removeDay(const QString& path, const QString& text) {
    const std::optional<QByteArray> bytes = atomicfile::tryRead(path);
    if (bytes && *bytes != text.toUtf8()) throw FileError(FileOperation::Write, path, ESTALE);
    if (::unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT) {
        throw FileError(FileOperation::Write, path, errno);
    }
    atomicfile::syncFolder(path.section(u'/', 0, -2));
}

// The cuts that this undo makes, told ahead, and those that earlier tries have told. What a try has
// cut, the next must not look for again: the user may have written the same.
class CutJournal {
public:
    CutJournal(const QString& folder, const QString& id)
        : m_path(undoJournalPath(folder, id)), m_earlier(journaledFiles(m_path)) {}

    enum class Earlier { None, Made, Unknown };

    // What an earlier try did to a day that holds `text` now.
    [[nodiscard]] Earlier earlier(const QString& day, const QString& text) const {
        const auto told = std::find_if(m_earlier.begin(), m_earlier.end(),
                                       [&](const auto& file) { return file.day == day; });
        if (told == m_earlier.end()) return Earlier::None;
        const QString digest = hash(text);
        if (told->after == digest) return Earlier::Made;
        return told->before == digest ? Earlier::None : Earlier::Unknown;
    }

    // On the disk when this returns. Throws FileError.
    void tell(const QString& day, const QString& before, const QString& after) {
        if (!m_journal) {
            atomicfile::makeFolder(m_path.section(u'/', 0, -2));
            m_journal.emplace(m_path, ImportJournal::Opening::Continued);
        }
        m_journal->append(
            {.day = day, .existed = true, .after = hash(after), .before = hash(before)},
            atomicfile::Durability::Synced);
    }

private:
    QString m_path;
    std::vector<ImportRecord::File> m_earlier;
    std::optional<ImportJournal> m_journal;
};

// Undoes one day, whose text it has from within the coordination of its write.
class DayUndo {
public:
    DayUndo(const ImportRecord::File& file, const MonthDay& monthDay, QString backupPath,
            CutJournal& journal, UndoResult& result)
        : m_file(file),
          m_monthDay(monthDay),
          m_backupPath(std::move(backupPath)),
          m_journal(journal),
          m_result(result) {}

    void perform(const QString& path, const QString& text) {
        const std::optional<QString> backup = checkedBackup();
        const auto earlier = m_journal.earlier(m_file.day, text);
        if (backup == text || earlier == CutJournal::Earlier::Made) return;
        if (m_file.after == hash(text)) {
            restore(path, text, backup);
        } else if (m_file.committed == false || earlier == CutJournal::Earlier::Unknown) {
            // The write was announced and can't be seen, or so was a cut.
            m_result.notFound += static_cast<int>(m_file.added.size());
        } else {
            cut(path, text, backup);
        }
    }

private:
    // The day's text before the import; nothing if it had none. A damaged copy must never be
    // written over a diary.
    [[nodiscard]] std::optional<QString> checkedBackup() const {
        if (!m_file.existed) {
            if (m_file.before) throwCorrupt(m_backupPath);
            return std::nullopt;
        }
        std::optional<QString> backup = utf8::decodedStrictly(atomicfile::read(m_backupPath));
        if (!backup) throw FileError(FileOperation::Read, m_backupPath, EILSEQ);
        if (m_file.before && m_file.before != hash(*backup)) throwCorrupt(m_backupPath);
        return backup;
    }

    void restore(const QString& path, const QString& text, const std::optional<QString>& backup) {
        if (backup) {
            atomicfile::writeOver(path, text.toUtf8(), backup->toUtf8());
        } else {
            removeDay(path, text);
        }
        ++m_result.restored;
    }

    void cut(const QString& path, const QString& text, const std::optional<QString>& backup) {
        SectionedText day(m_monthDay, text);
        int notFound = 0;
        const bool isCutOut = isCut(day, backup, notFound);
        if (isCutOut) replace(path, text, day.text());
        // Behind the write, which may be tried again.
        m_result.notFound += notFound;
        if (isCutOut) ++m_result.edited;
    }

    void replace(const QString& path, const QString& text, const QString& working) {
        m_journal.tell(m_file.day, text, working);
        const bool isEmpty =
            YearSectionParser::isEffectivelyEmpty(working, m_monthDay.headerTitle());
        if (!m_file.existed && isEmpty) {
            removeDay(path, text);
        } else {
            atomicfile::writeOver(path, text.toUtf8(), working.toUtf8());
        }
    }

    // Cuts all additions out and tells whether there was any to be cut, and how many aren't there.
    bool isCut(SectionedText& day, const std::optional<QString>& backup, int& notFound) const {
        std::optional<SectionedText> before;
        if (backup) before.emplace(m_monthDay, *backup);
        QHash<int, int> ofYear;
        bool isCut = false;
        for (const ImportRecord::Added& added : m_file.added) {
            const bool isTried = ++ofYear[added.year] <= kMostOfOneYear;
            const Cut cut = isTried ? cutOut(added, before, !m_file.after, day) : Cut::NotFound;
            if (cut == Cut::NotFound) ++notFound;
            isCut = isCut || cut == Cut::Made;
        }
        return isCut;
    }

    const ImportRecord::File& m_file;
    MonthDay m_monthDay;
    QString m_backupPath;
    CutJournal& m_journal;
    UndoResult& m_result;
};

UndoResult undoDays(const ImportRecord& record, const QString& vault, const QString& folder) {
    CutJournal journal(folder, record.id);
    UndoResult result;
    for (const ImportRecord::File& file : record.files) {
        const auto monthDay = MonthDay::parse(file.day + QLatin1String(".md"));
        if (!monthDay) continue;
        DayUndo day(file, *monthDay, beforeFolder(folder, record.id) + u'/' + monthDay->fileName(),
                    journal, result);
        dayfile::modifyingFile(vault, *monthDay,
                               [&](const QString& path, const std::optional<QString>& text) {
                                   if (text) day.perform(path, *text);
                               });
    }
    return result;
}

}  // namespace

UndoResult undo(const ImportRecord& record, const QString& vault, const QDateTime& now) {
    const QString folder = directory(vault);
    UndoResult result;
    withImport(folder, record.id, [&] {
        // The import may have come further, or been undone, since the caller listed it.
        ImportRecord undone = currentRecord(record, folder);
        if (undone.state != State::undone || record.state == State::undone) {
            result = undoDays(undone, vault, folder);
            undone.state = State::undone;
            undone.undoneAt = now;
            saveRecord(undone, folder);
        }
        removeJournal(folder, undone.id);
        removeUndoJournal(folder, undone.id);
    });
    return result;
}

}  // namespace diary::ImportLog
