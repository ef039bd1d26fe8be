// What is computed where all years of a day show at once, from the session's state alone.
#pragma once

#include "DiaryApp/Entry/EntryModel.h"

namespace velmar {

// This year first, then every year down to the oldest entry, those without text in runs. On
// 29 February only years that have that day count, and this year.
[[nodiscard]] EntryModel::AllYears allYearsModel(const EntryState& state);

// How many years of the day have text. `currentYearsText` is this year's: the draft where this
// year is in view, else its body in the file.
[[nodiscard]] int writtenYearCount(const std::vector<PastEntry>& pastEntries,
                                   QStringView currentYearsText);

// The three parts of a summary, which stand in different places of the page's head:
// "2020 – 2026　3 years written · 4 not written · Click a year to write in it" ->
// "2020 – 2026", "3 years written · 4 not written", "Click a year to write in it"
struct SummaryParts {
    QString span;
    QString counts;
    QString hint;

    bool operator==(const SummaryParts&) const = default;
};

// A summary without the separators is all span.
[[nodiscard]] SummaryParts summaryParts(const QString& summary);

}  // namespace velmar
