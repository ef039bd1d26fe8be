#include <gmock/gmock.h>

#include "NavigationFixture.h"

namespace velmar {
namespace {

using diary::MonthDay;

class YearOverviewModelTest : public NavigationTest {
protected:
    [[nodiscard]] YearOverviewModel model() const {
        return yearOverviewModel(counts, {214, 2014, 231}, sidebar.language);
    }

    QHash<MonthDay, int> counts = {{{3, 7}, 3}, {{3, 8}, 1}, {{2, 29}, 2}, {{12, 31}, 9}};
};

TEST_F(YearOverviewModelTest, HasTwelveMonthsOfAllTheirDays) {
    for (int month = 1; month <= 12; ++month) {
        const YearOverviewModel::Month each = model().months[month - 1];
        EXPECT_EQ(each.month, month);
        EXPECT_EQ(static_cast<int>(each.counts.size()), MonthDay::daysInCycleMonth[month - 1]);
    }
    EXPECT_EQ(model().months[1].counts.size(), 29U);
}

TEST_F(YearOverviewModelTest, CountsYearsByDateAndDaysByMonth) {
    const YearOverviewModel::Month march = model().months[2];
    EXPECT_EQ(march.name, QStringLiteral("March"));
    EXPECT_EQ(march.dayCount, QStringLiteral("2 d"));
    EXPECT_EQ(march.counts[6], 3);
    EXPECT_EQ(march.counts[7], 1);
    EXPECT_EQ(march.counts[8], 0);
    EXPECT_EQ(model().months[1].counts[28], 2);
    EXPECT_EQ(model().months[1].dayCount, QStringLiteral("1 d"));
    EXPECT_EQ(model().months[11].counts[30], 9);
    EXPECT_EQ(model().months[0].dayCount, QStringLiteral("0 d"));
}

TEST_F(YearOverviewModelTest, LeavesOutWhatIsNoDate) {
    counts.insert({4, 31}, 2);
    EXPECT_EQ(model().months[3].dayCount, QStringLiteral("0 d"));
    EXPECT_EQ(model().months[3].counts.size(), 30U);
}

TEST_F(YearOverviewModelTest, TellsTheSumAndTheLegend) {
    EXPECT_EQ(model().title, QStringLiteral("Year Calendar"));
    EXPECT_EQ(model().legend, QStringLiteral("Years written"));
    EXPECT_EQ(model().total, QStringLiteral("214"));
    EXPECT_EQ(model().totalSuffix, QStringLiteral(" / 365"));
    EXPECT_TRUE(model().footnote.contains(QStringLiteral("02-29")));
}

TEST_F(YearOverviewModelTest, SpeaksChineseAndJapanese) {
    setLanguage(Language::zhHans);
    EXPECT_EQ(model().title, QStringLiteral("年历"));
    EXPECT_EQ(model().months[2].name, QStringLiteral("三月"));
    EXPECT_EQ(model().months[2].dayCount, QStringLiteral("2 天"));
    setLanguage(Language::ja);
    EXPECT_EQ(model().title, QStringLiteral("年間カレンダー"));
    EXPECT_EQ(model().months[2].name, QStringLiteral("3月"));
    EXPECT_EQ(model().months[2].dayCount, QStringLiteral("2 日分"));
}

}  // namespace
}  // namespace velmar
