// Entries, batches and records for the tests of planning, and a writer as small as can be.
#pragma once

#include <map>

#include "DiaryKit/Import/EntryRenderer.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "DiaryKit/Vault/DayFile.h"

namespace diary::test {

using Files = std::map<MonthDay, QString>;

inline ImportedEntry entry(DiaryDay day, const QString& body) {
    return {.day = day, .body = body};
}

inline ImportedEntry entryAt(DiaryDay day, ImportedEntry::Time time, const QString& body) {
    return {.day = day, .time = time, .body = body};
}

inline ImportBatch batchOf(std::vector<ImportedEntry> entries,
                           ImportSource source = ImportSource::dayOne) {
    return {.source = source, .name = QStringLiteral("Export"), .entries = std::move(entries)};
}

inline ImportPlanner::ExistingText textsOf(const Files& files) {
    return [&files](const MonthDay& day) -> std::optional<QString> {
        const auto found = files.find(day);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    };
}

inline ImportPlan planOn(const Files& files, const ImportBatch& batch,
                         const std::vector<ImportRecord>& history = {},
                         const ImportOptions& options = {}) {
    return ImportPlanner::plan(batch, options, history, textsOf(files));
}

// Writes a plan's additions into the files and tells what was written, as an import does.
inline ImportRecord written(const ImportPlan& plan, ImportSource source, Files& files) {
    ImportRecord record{.state = ImportRecord::State::done, .source = source};
    for (const ImportPlan::FileChange& change : plan.changes) {
        QString& text = files.try_emplace(change.monthDay, dayfile::blankTemplate(change.monthDay))
                            .first->second;
        SectionedText day(change.monthDay, text);
        ImportRecord::File file{.day = change.monthDay.headerTitle(), .existed = change.existed};
        for (const ImportPlan::Addition& addition : change.additions) {
            ImportPlanner::append(addition.text, addition.year, day);
            ImportRecord::Added added{.year = addition.year,
                                      .text = addition.text,
                                      .appended = addition.appended,
                                      .entryKeys = QStringList(),
                                      .entryTexts = QStringList()};
            const auto placement = addition.appended ? EntryRenderer::Placement::Appended
                                                     : EntryRenderer::Placement::Alone;
            for (const auto& block :
                 EntryRenderer::blocks(addition.entries, plan.options, placement)) {
                *added.entryTexts << block.value_or(QString());
            }
            for (const ImportedEntry& one : addition.entries) {
                *added.entryKeys << EntryRenderer::identity(one, source);
            }
            file.added.push_back(std::move(added));
        }
        text = day.text();
        file.after = ImportLog::hash(text);
        file.committed = true;
        record.files.push_back(std::move(file));
    }
    return record;
}

}  // namespace diary::test
