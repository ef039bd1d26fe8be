#include "DiaryApp/Entry/AllYearsModel.h"

#include <algorithm>
#include <set>

#include "DiaryKit/Foundation/TextSets.h"

namespace velmar {

namespace {

using AllYears = EntryModel::AllYears;

constexpr QChar kWideBlank(u'\u3000');
const QString kDot = QStringLiteral(" · ");

QString span(int from, int to) {
    if (from == to) return QString::number(to);
    return QStringLiteral("%1 – %2").arg(from).arg(to);
}

QString textOf(const EntryState& state, int year) {
    if (year == state.viewedYear) return state.draft;
    return state.body ? state.body(year) : QString();
}

int oldestYear(const EntryState& state) {
    if (state.pastEntries.empty()) return state.currentYear;
    return std::min(state.currentYear, state.pastEntries.back().year);
}

// Newest first.
std::vector<int> yearsOf(const EntryState& state) {
    const bool isLeapDay = state.day == diary::MonthDay{2, 29};
    std::vector<int> years;
    for (int year = state.currentYear; year >= oldestYear(state); --year) {
        const bool hasDay = !isLeapDay || diary::MonthDay::isLeapYear(year);
        if (hasDay || year == state.currentYear) years.push_back(year);
    }
    return years;
}

AllYears::Year yearRow(const EntryState& state, int year) {
    if (year == state.currentYear) return {year, qtTrId("This year"), textOf(state, year), true};
    // No year ahead of this one is listed.
    return {year, qtTrId("%d years ago", state.currentYear - year), textOf(state, year), false};
}

// Ends the run of missing years, newest first, if one is open.
void closeRun(std::vector<int>& run, std::vector<AllYears::Row>& rows) {
    if (run.empty()) return;
    const QString label = qtTrId("NotWrittenYears").arg(span(run.back(), run.front()));
    rows.emplace_back(AllYears::Gap{label, run.front()});
    run.clear();
}

std::vector<AllYears::Row> rowsOf(const EntryState& state, const std::vector<int>& years) {
    std::set<int> written;
    for (const PastEntry& entry : state.pastEntries) written.insert(entry.year);
    std::vector<AllYears::Row> rows;
    std::vector<int> run;
    for (const int year : years) {
        if (year != state.currentYear && !written.contains(year)) {
            run.push_back(year);
            continue;
        }
        closeRun(run, rows);
        rows.emplace_back(yearRow(state, year));
    }
    closeRun(run, rows);
    return rows;
}

QString counts(const EntryState& state, const std::vector<int>& years) {
    const int written = writtenYearCount(state.pastEntries, textOf(state, state.currentYear));
    const auto missing =
        static_cast<int>(years.size()) - static_cast<int>(state.pastEntries.size()) - 1;
    if (missing < 1) return qtTrId("WrittenYears", written);
    return qtTrId("WrittenMissingYears", written).arg(missing);
}

}  // namespace

EntryModel::AllYears allYearsModel(const EntryState& state) {
    const std::vector<int> years = yearsOf(state);
    const QString summary = span(oldestYear(state), state.currentYear) + kWideBlank +
                            counts(state, years) + kDot + qtTrId("Click a year to write in it");
    return {summary, rowsOf(state, years)};
}

int writtenYearCount(const std::vector<PastEntry>& pastEntries, QStringView currentYearsText) {
    const bool hasCurrent = !diary::text::trimmed(currentYearsText).isEmpty();
    return static_cast<int>(pastEntries.size()) + (hasCurrent ? 1 : 0);
}

SummaryParts summaryParts(const QString& summary) {
    const qsizetype wide = summary.indexOf(kWideBlank);
    if (wide < 0) return {summary, {}, {}};
    const QString rest = summary.sliced(wide + 1);
    const qsizetype dot = rest.lastIndexOf(kDot);
    if (dot < 0) return {summary.first(wide), rest, {}};
    return {summary.first(wide), rest.first(dot), rest.sliced(dot + kDot.size())};
}

}  // namespace velmar
