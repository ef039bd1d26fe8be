#include "DiaryKit/Import/ImportApply.h"

#include <QtCore/QUuid>
#include <algorithm>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/Sha256.h"
#include "DiaryKit/Import/EntryRenderer.h"
#include "DiaryKit/Import/HistoryCache.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportJournal.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportLogFiles.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportRecordFileJson.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "DiaryKit/Vault/DayFile.h"

namespace diary::ImportLog {

namespace {

using Durability = atomicfile::Durability;

// To the second, as records hold it.
QDateTime recordMoment(const QDateTime& now) {
    return QDateTime::fromSecsSinceEpoch(now.toUTC().toSecsSinceEpoch(), Qt::UTC);
}

ImportRecord newRecord(const ImportBatch& batch, const ApplyContext& context) {
    const QString uuid = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return {.id = idStem(context.now, context.zone, batch.source) + uuid,
            .source = batch.source,
            .name = batch.name,
            .label = context.label,
            .at = recordMoment(context.now),
            .by = context.device,
            .deviceID = context.deviceID,
            .skipped = batch.skipped};
}

// The entries of one day, as a batch to be planned again.
ImportBatch batchOf(const ImportPlan::FileChange& change, const ImportBatch& batch) {
    ImportBatch day{.source = batch.source, .name = batch.name};
    for (const ImportPlan::Addition& addition : change.additions) {
        day.entries.insert(day.entries.end(), addition.entries.begin(), addition.entries.end());
    }
    return day;
}

ImportRecord::Added addedOf(const ImportPlan::Addition& addition, ImportSource source,
                            const ImportOptions& options) {
    QStringList keys;
    for (const ImportedEntry& entry : addition.entries) {
        keys.append(EntryRenderer::identity(entry, source));
    }
    QStringList texts;
    const auto placement =
        addition.appended ? EntryRenderer::Placement::Appended : EntryRenderer::Placement::Alone;
    for (const auto& block : EntryRenderer::blocks(addition.entries, options, placement)) {
        texts.append(block.value_or(QString()));
    }
    return {.year = addition.year,
            .text = addition.text,
            .appended = addition.appended,
            .entryKeys = std::move(keys),
            .entryTexts = std::move(texts)};
}

// What is to be written to a day, and what is to be told of it.
struct DayWrite {
    QByteArray before = {};
    QByteArray after = {};
    int entryCount = 0;
    ImportRecord::File file = {};
};

class Import {
public:
    Import(const ImportPlan& plan, const ImportBatch& batch, const ImportOptions& options,
           const ApplyContext& context)
        : m_plan(plan),
          m_batch(batch),
          m_options(options),
          m_context(context),
          m_folder(directory(context.vault)),
          m_record(newRecord(batch, context)),
          m_history(m_folder, m_record.id + QLatin1String(".json")) {}

    ImportRecord finished() {
        atomicfile::makeFolder(beforeFolder(m_folder, m_record.id));
        // Nobody may keep or undo it before it is whole: what is written behind such a moment would
        // be told by no record if this process died.
        withImport(m_folder, m_record.id, [this] { write(); });
        return std::move(m_record);
    }

private:
    void write() {
        // From here on a crash leaves a trace that can be seen.
        saveRecord(m_record, m_folder);
        ImportJournal journal(journalPath(m_folder, m_record.id));
        int done = 0;
        for (const ImportPlan::FileChange& change : m_plan.changes) {
            tell({.done = done++, .total = total(), .current = change.monthDay});
            importDay(change, journal);
        }
        tell({.done = total(), .total = total()});
        m_record.state = ImportRecord::State::done;
        saveRecord(m_record, m_folder);
        journal.close();
        removeJournal(m_folder, m_record.id);
    }

    [[nodiscard]] int total() const { return static_cast<int>(m_plan.changes.size()); }

    void tell(const Progress& progress) const {
        if (m_context.progress) m_context.progress(progress);
    }

    void importDay(const ImportPlan::FileChange& planned, ImportJournal& journal) {
        dayfile::modifyingFile(m_context.vault, planned.monthDay,
                               [&](const QString& path, const std::optional<QString>& text) {
                                   if (isAsPlanned(planned, text))
                                       return write(planned, path, text, journal);
                                   const ImportPlan now = ImportPlanner::plan(
                                       batchOf(planned, m_batch), m_options, m_history.records(),
                                       [&](const MonthDay&) { return text; });
                                   if (!now.changes.empty())
                                       write(now.changes.front(), path, text, journal);
                               });
    }

    // Whether planning the day's entries once more would give the same, which is so if the day has
    // the text that it was planned on and none of the entries is known from another import by now.
    [[nodiscard]] bool isAsPlanned(const ImportPlan::FileChange& planned,
                                   const std::optional<QString>& text) {
        if (planned.existed != text.has_value()) return false;
        if (text && planned.digest != hash(*text)) return false;
        const QSet<QString> seen =
            entryKeys(m_history.records(), m_batch.source, planned.monthDay, text);
        if (seen.isEmpty()) return true;
        const auto isSeen = [&](const ImportedEntry& entry) {
            return seen.contains(EntryRenderer::identity(entry, m_batch.source));
        };
        return std::ranges::none_of(planned.additions, [&](const ImportPlan::Addition& addition) {
            return std::ranges::any_of(addition.entries, isSeen);
        });
    }

    void write(const ImportPlan::FileChange& change, const QString& path,
               const std::optional<QString>& text, ImportJournal& journal) {
        DayWrite write = dayWrite(change, text);
        if (!write.file.added.empty()) perform(std::move(write), path, journal);
    }

    [[nodiscard]] DayWrite dayWrite(const ImportPlan::FileChange& change,
                                    const std::optional<QString>& text) const {
        DayWrite write{.file = {.day = change.monthDay.headerTitle(), .existed = text.has_value()}};
        SectionedText day(change.monthDay, text.value_or(dayfile::blankTemplate(change.monthDay)));
        for (const ImportPlan::Addition& addition : change.additions) {
            if (!ImportPlanner::append(addition.text, addition.year, day)) continue;
            write.entryCount += static_cast<int>(addition.entries.size());
            write.file.added.push_back(addedOf(addition, m_batch.source, m_options));
        }
        write.after = day.text().toUtf8();
        write.file.after = sha256(write.after);
        if (text) {
            write.before = text->toUtf8();
            write.file.before = sha256(write.before);
        }
        write.file.committed = false;
        return write;
    }

    void perform(DayWrite write, const QString& path, ImportJournal& journal) {
        if (write.file.existed) {
            const QString copy =
                beforeFolder(m_folder, m_record.id) + u'/' + write.file.day + QLatin1String(".md");
            atomicfile::write(copy, write.before);
        }
        const QByteArray announced = write.file.encoded();
        journal.append(announced, Durability::Synced);
        atomicfile::writeOver(path, write.file.existed ? std::optional(write.before) : std::nullopt,
                              write.after);
        write.file.committed = true;
        m_record.entries += write.entryCount;
        ++m_record.days;
        // If this line is lost, the digest in the first one still tells that the day was written.
        journal.append(committed(announced), Durability::Unsynced);
        m_record.files.push_back(std::move(write.file));
    }

    const ImportPlan& m_plan;
    const ImportBatch& m_batch;
    const ImportOptions& m_options;
    const ApplyContext& m_context;
    QString m_folder;
    ImportRecord m_record;
    HistoryCache m_history;
};

}  // namespace

ImportRecord apply(const ImportPlan& plan, const ImportBatch& batch, const ImportOptions& options,
                   const ApplyContext& context) {
    if (plan.options != options) throw ImportError(ImportError::Kind::stalePlan);
    return Import(plan, batch, options, context).finished();
}

}  // namespace diary::ImportLog
