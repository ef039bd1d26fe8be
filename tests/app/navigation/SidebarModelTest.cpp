#include <gmock/gmock.h>

#include "NavigationFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class SidebarModelTest : public NavigationTest {
protected:
    [[nodiscard]] SidebarModel model() const { return sidebarModel(sidebar); }

    [[nodiscard]] QStringList statTexts() const {
        QStringList texts;
        const SidebarModel shown = model();
        for (const SidebarModel::Stat& stat : shown.stats) {
            texts.append(stat.label + u'|' + stat.value + u'|' + stat.suffix);
        }
        return texts;
    }
};

TEST_F(SidebarModelTest, ShowsTheMonthInView) {
    EXPECT_EQ(model().monthTitle, QStringLiteral("November"));
    const DayGridModel grid = model().grid;
    EXPECT_EQ(grid.month, 11);
    EXPECT_EQ(grid.year, 2026);
    EXPECT_EQ(grid.selectedDay, 21);
    EXPECT_EQ(grid.today, 21);
    EXPECT_EQ(grid.daysWithContent, sidebar.daysWithContent);
    EXPECT_THAT(grid.weekdaySymbols,
                ElementsAre(QStringLiteral("Su"), QStringLiteral("Mo"), QStringLiteral("Tu"),
                            QStringLiteral("We"), QStringLiteral("Th"), QStringLiteral("Fr"),
                            QStringLiteral("Sa")));
    // 1 November 2026 is a Sunday.
    EXPECT_EQ(grid.leadingBlanks, 0);
}

TEST_F(SidebarModelTest, WeekdaysAreThoseOfTheYearInView) {
    struct Row {
        int month;
        int year;
        int blanks;
    };
    // Weeks begin on Sunday in English.
    const std::vector<Row> rows = {{11, 2026, 0}, {11, 2021, 1}, {2, 2023, 3}, {2, 2024, 4},
                                   {8, 2026, 6},  {3, 2026, 0},  {1, 1999, 5}};
    for (const Row& row : rows) {
        sidebar.day = {row.month, 1};
        sidebar.viewedYear = row.year;
        EXPECT_EQ(model().grid.leadingBlanks, row.blanks) << row.month << ' ' << row.year;
        EXPECT_EQ(model().grid.year, row.year);
    }
}

TEST_F(SidebarModelTest, BlanksAndColumnsAgreeInEveryLanguage) {
    for (const Language language : {Language::en, Language::zhHans, Language::ja}) {
        setLanguage(language);
        const Formatters& formatters = Formatters::of(language);
        for (int month = 1; month <= 12; ++month) {
            sidebar.day = {month, 1};
            const int weekday = *sidebar.day.weekday(sidebar.viewedYear);
            const int firstWeekday = formatters.firstWeekday();
            EXPECT_EQ((model().grid.leadingBlanks + firstWeekday - 1) % 7 + 1, weekday);
            EXPECT_EQ(model().grid.weekdaySymbols, formatters.weekdayColumns());
        }
    }
}

TEST_F(SidebarModelTest, TodayIsAPlaceInEveryYear) {
    sidebar.viewedYear = 2021;
    EXPECT_EQ(model().grid.today, 21);
    sidebar.day = {10, 21};
    EXPECT_EQ(model().grid.today, std::nullopt);
}

TEST_F(SidebarModelTest, LeadsBackToToday) {
    EXPECT_EQ(model().todayTitle, QStringLiteral("Back to Today"));
    EXPECT_EQ(model().todayDate, QStringLiteral("Nov 21"));
    sidebar.today = {2024, 2, 29};
    EXPECT_EQ(model().todayDate, QStringLiteral("Feb 29"));
    setLanguage(Language::zhHans);
    EXPECT_EQ(model().todayTitle, QStringLiteral("回到今天"));
    EXPECT_EQ(model().todayDate, QStringLiteral("02-29"));
    setLanguage(Language::ja);
    EXPECT_EQ(model().todayTitle, QStringLiteral("今日に戻る"));
    EXPECT_EQ(model().todayDate, QStringLiteral("02-29"));
}

TEST_F(SidebarModelTest, MonthsHaveTheirOwnNames) {
    setLanguage(Language::zhHans);
    EXPECT_EQ(model().monthTitle, QStringLiteral("十一月"));
    setLanguage(Language::ja);
    EXPECT_EQ(model().monthTitle, QStringLiteral("11月"));
}

TEST_F(SidebarModelTest, TellsThreeFacts) {
    EXPECT_THAT(statTexts(),
                ElementsAre(QStringLiteral("Days written|214| / 365"),
                            QStringLiteral("Earliest year|2014|"), QStringLiteral("Files|231|")));
    setLanguage(Language::zhHans);
    EXPECT_THAT(statTexts(),
                ElementsAre(QStringLiteral("写过的天数|214| / 365"),
                            QStringLiteral("最早的年份|2014|"), QStringLiteral("文件|231|")));
    setLanguage(Language::ja);
    EXPECT_THAT(statTexts(),
                ElementsAre(QStringLiteral("書いた日数|214| / 365"),
                            QStringLiteral("最初の年|2014|"), QStringLiteral("ファイル|231|")));
}

TEST_F(SidebarModelTest, AnEmptyVaultHasNoEarliestYear) {
    sidebar.overview = diary::Overview();
    EXPECT_THAT(statTexts(),
                ElementsAre(QStringLiteral("Days written|0| / 365"),
                            QStringLiteral("Earliest year|—|"), QStringLiteral("Files|0|")));
}

TEST_F(SidebarModelTest, TellsNoNumberBeforeTheVaultIsKnown) {
    sidebar.overview.reset();
    EXPECT_THAT(statTexts(),
                ElementsAre(QStringLiteral("Days written||"), QStringLiteral("Earliest year||"),
                            QStringLiteral("Files||")));
}

TEST_F(SidebarModelTest, TheDenominatorIsAFixedLabel) {
    sidebar.overview->daysWithContent = 366;
    sidebar.viewedYear = 2024;
    EXPECT_EQ(statTexts().first(), QStringLiteral("Days written|366| / 365"));
}

}  // namespace
}  // namespace velmar
