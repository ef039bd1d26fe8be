#include "DiaryApp/Entry/EntryModel.h"

#include <algorithm>

#include "DiaryApp/Entry/AllYearsModel.h"
#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

namespace {

int nextLeapYear(int year) {
    do {
        ++year;
    } while (!diary::MonthDay::isLeapYear(year));
    return year;
}

EntryModel::Editor editor(const EntryState& state) {
    const bool isCurrent = state.viewedYear == state.currentYear;
    return {state.draft, qtTrId("Write about this day in %d…").arg(state.viewedYear),
            isCurrent ? Token::Ink : Token::InkMed};
}

EntryModel::Block pastBlock(const EntryState& state) {
    const int distance = state.currentYear - state.viewedYear;
    return {QString::number(state.viewedYear), Token::RailYear,
            distance < 1 ? QString() : qtTrId("%d years ago", distance), editor(state)};
}

EntryModel::Block block(const EntryState& state) {
    if (state.viewedYear != state.currentYear) return pastBlock(state);
    const QString mark = QString::number(state.viewedYear);
    if (state.day == diary::MonthDay{2, 29} && !diary::MonthDay::isLeapYear(state.currentYear)) {
        const QString hint = qtTrId("NoLeapDayThisYear").arg(nextLeapYear(state.currentYear));
        return {mark, Token::Accent, QString(), EntryModel::Empty{hint}};
    }
    return {mark, Token::Accent, qtTrId("This year"), editor(state)};
}

QString weekdayName(const EntryState& state) {
    const Formatters& formatters = Formatters::of(state.language);
    QString written = formatters.written(state.day, state.viewedYear, QStringLiteral("EEEEMMMMd"),
                                         QStringLiteral("MMMMd"));
    if (!written.isEmpty()) return written;
    const auto weekday = state.day.weekday(state.viewedYear);
    return weekday ? formatters.weekdayName(*weekday) : QString();
}

std::optional<QString> gapLine(const EntryState& state) {
    if (!state.showGapYears || state.pastEntries.empty()) return std::nullopt;
    QStringList missing;
    for (int year = state.currentYear - 1; year >= state.pastEntries.back().year; --year) {
        const bool isWritten = std::ranges::any_of(
            state.pastEntries, [year](const PastEntry& each) { return each.year == year; });
        if (!isWritten) missing.append(QString::number(year));
    }
    if (missing.isEmpty()) return std::nullopt;
    return qtTrId("GapLine").arg(missing.join(QStringLiteral(" · ")));
}

std::optional<QString> sourceText(const EntryState& state) {
    if (!state.showSource) return std::nullopt;
    return state.rawText.isEmpty() ? qtTrId("(empty file)") : state.rawText;
}

std::optional<EntryModel::Matches> matches(const EntryState& state) {
    const bool hasMatches = state.matches && state.matches->count > 0;
    if (!hasMatches || state.showSource || state.showAllYears) return std::nullopt;
    const auto [count, current] = *state.matches;
    return EntryModel::Matches{count, std::clamp(current, 0, count - 1)};
}

}  // namespace

EntryModel entryModel(const EntryState& state) {
    const int days = diary::MonthDay::isLeapYear(state.viewedYear) ? 366 : 365;
    return {
        .fileName = state.day.fileName(),
        .ordinal = qtTrId("Day %d / %d").arg(state.day.ordinal(state.viewedYear)).arg(days),
        .dayKey = state.day.headerTitle(),
        .weekdayName = weekdayName(state),
        .subtitle = qtTrId("This file has %d past-year sections",
                           static_cast<int>(state.pastEntries.size())),
        .sourceText = sourceText(state),
        .block = block(state),
        .gapLine = gapLine(state),
        .allYears = state.showAllYears ? std::optional(allYearsModel(state)) : std::nullopt,
        .matches = matches(state),
    };
}

}  // namespace velmar
