#include "DiaryApp/Navigation/SidebarModel.h"

#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

namespace {

int leadingBlanks(int month, int year, const Formatters& formatters) {
    const int weekday = diary::MonthDay{month, 1}.weekday(year).value_or(1);
    return (weekday - formatters.firstWeekday() + 7) % 7;
}

DayGridModel grid(const SidebarState& state, const Formatters& formatters) {
    DayGridModel model{
        .month = state.day.month,
        .year = state.viewedYear,
        .selectedDay = state.day.day,
        .today = std::nullopt,
        .daysWithContent = state.daysWithContent,
        .weekdaySymbols = formatters.weekdayColumns(),
        .leadingBlanks = leadingBlanks(state.day.month, state.viewedYear, formatters),
        .language = state.language,
    };
    if (state.today.month == state.day.month) model.today = state.today.day;
    return model;
}

QString todayDate(const SidebarState& state, const Formatters& formatters) {
    const diary::MonthDay today = state.today.monthDay();
    const QString skeleton = QStringLiteral("MMMd");
    const QString written = formatters.written(today, state.today.year, skeleton, skeleton);
    return written.isEmpty() ? today.headerTitle() : written;
}

std::array<SidebarModel::Stat, 3> factsOf(const diary::Overview& overview) {
    const QString earliest =
        overview.earliestYear ? QString::number(*overview.earliestYear) : QStringLiteral("—");
    return {{
        // A fixed label, in leap years too.
        {qtTrId("Days written"), QString::number(overview.daysWithContent),
         QStringLiteral(" / 365")},
        {qtTrId("Earliest year"), earliest, QString()},
        {qtTrId("Files"), QString::number(overview.fileCount), QString()},
    }};
}

std::array<SidebarModel::Stat, 3> stats(const std::optional<diary::Overview>& overview) {
    std::array<SidebarModel::Stat, 3> stats = factsOf(overview.value_or(diary::Overview()));
    if (overview) return stats;
    for (SidebarModel::Stat& each : stats) each = {each.label, QString(), QString()};
    return stats;
}

}  // namespace

SidebarModel sidebarModel(const SidebarState& state) {
    const Formatters& formatters = Formatters::of(state.language);
    return {
        .monthTitle = formatters.monthName(state.day.month),
        .grid = grid(state, formatters),
        .todayTitle = qtTrId("Back to Today"),
        .todayDate = todayDate(state, formatters),
        .stats = stats(state.overview),
    };
}

}  // namespace velmar
