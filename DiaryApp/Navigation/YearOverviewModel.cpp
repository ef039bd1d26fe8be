#include "DiaryApp/Navigation/YearOverviewModel.h"

#include <algorithm>

#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

namespace {

YearOverviewModel::Month monthOf(int month, const QHash<diary::MonthDay, int>& counts,
                                 Language language) {
    YearOverviewModel::Month result;
    result.month = month;
    result.name = Formatters::of(language).monthName(month);
    for (int day = 1; day <= diary::MonthDay::daysInCycleMonth[month - 1]; ++day) {
        result.counts.push_back(counts.value({month, day}));
    }
    const auto written = std::ranges::count_if(result.counts, [](int count) { return count > 0; });
    result.dayCount = qtTrId("%d d", static_cast<int>(written));
    return result;
}

}  // namespace

YearOverviewModel yearOverviewModel(const QHash<diary::MonthDay, int>& counts,
                                    const diary::Overview& overview, Language language) {
    YearOverviewModel model;
    model.title = qtTrId("YearCalendarTitle");
    for (int month = 1; month <= 12; ++month) {
        model.months[month - 1] = monthOf(month, counts, language);
    }
    model.legend = qtTrId("YearsWrittenLegend");
    model.total = QString::number(overview.daysWithContent);
    model.totalSuffix = QStringLiteral(" / 365");
    model.footnote = qtTrId("YearFootnote");
    model.language = language;
    return model;
}

}  // namespace velmar
