// Turns a batch and the user's options into a plan. Planning never fails and touches nothing: what
// can't be read counts as absent. Importing the same export twice plans nothing the second time,
// and what the user deleted since is planned again (ImportRecordKeys.h).
#pragma once

#include <QtCore/QString>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "DiaryKit/Import/ImportPlan.h"
#include "DiaryKit/Import/ImportRecord.h"
#include "DiaryKit/Vault/SectionedText.h"

namespace diary::ImportPlanner {

// A day's current text, or nothing if it has no file.
using ExistingText = std::function<std::optional<QString>(const MonthDay&)>;

// The plan for a batch, given the records of earlier imports. Asks for each day of the batch once,
// in ascending order. Runs on the calling thread; `existingText` may block.
[[nodiscard]] ImportPlan plan(const ImportBatch& batch, const ImportOptions& options,
                              std::span<const ImportRecord> history,
                              const ExistingText& existingText);

// The same on the day files of a vault folder, each in a coordinated read. Blocks; any thread.
[[nodiscard]] ImportPlan plan(const ImportBatch& batch, const ImportOptions& options,
                              std::span<const ImportRecord> history, const QString& vault);

// Puts the addition at the end of the year's section, or tells that the section can't hold it whole
// and changes nothing: a year that the format has no header for, or a text that would end the
// section. Nothing is reported as written that isn't found in the result. A fence that the text
// leaves open is closed first where the addition wouldn't stay whole otherwise. `day` has the day's
// current text, or the blank template.
bool append(QStringView addition, int year, SectionedText& day);

// At most 12 samples that show the most of an import: each trait, the earliest and the longest
// section, and the rest evenly over the calendar. 12 or fewer are given back as they are.
[[nodiscard]] std::vector<ImportPlan::Sample> pickSamples(
    const std::vector<ImportPlan::Sample>& samples);

}  // namespace diary::ImportPlanner
