#include "DiaryApp/Navigation/CalendarGrid.h"

#include <gtest/gtest.h>

#include "DiaryApp/Navigation/DayGridView.h"
#include "DiaryApp/Navigation/MonthHeatView.h"
#include "DiaryApp/Navigation/SidebarLayout.h"

namespace velmar {
namespace {

using Step = CalendarGrid::Step;

CalendarGrid november() {
    DayGridModel model;
    model.month = 11;
    model.leadingBlanks = 0;
    return DayGridView::layoutOf(model, 228);
}

CalendarGrid february2023() {
    DayGridModel model;
    model.month = 2;
    model.leadingBlanks = 3;
    return DayGridView::layoutOf(model, 228);
}

TEST(CalendarGrid, CellsShareTheWidthOfTheView) {
    EXPECT_EQ(november().cellWidth(), 30);
    EXPECT_EQ(november().cellRect(1), QRectF(0, 22, 30, 30));
    EXPECT_EQ(november().cellRect(7), QRectF(198, 22, 30, 30));
    EXPECT_EQ(november().cellRect(30), QRectF(33, 22 + 4 * 33, 30, 30));
    EXPECT_EQ(MonthHeatView::layoutOf(31, 220).cellWidth(), 28);
    EXPECT_EQ(MonthHeatView::layoutOf(31, 220).cellRect(31), QRectF(64, 72, 28, 14));
    EXPECT_DOUBLE_EQ(MonthHeatView::layoutOf(31, 100).cellWidth(), (100 - 24) / 7.0);
}

TEST(CalendarGrid, LeadingBlanksMoveTheDays) {
    EXPECT_EQ(february2023().cellRect(1), QRectF(99, 22, 30, 30));
    EXPECT_EQ(february2023().cellRect(5), QRectF(0, 55, 30, 30));
    EXPECT_EQ(february2023().rowCount(), 5);
    CalendarGrid latest = november();
    latest.dayCount = 31;
    latest.leadingBlanks = 6;
    EXPECT_EQ(latest.rowCount(), 6);
    EXPECT_EQ(latest.cellRect(31).bottom(), DayGridView::gridHeight);
    EXPECT_EQ(CalendarGrid{}.rowCount(), 0);
}

TEST(CalendarGrid, FebruaryHasTwentyNineCellsInEveryYear) {
    EXPECT_EQ(february2023().dayCount, 29);
    EXPECT_EQ(february2023().dayAt(february2023().cellRect(29).center()), 29);
}

TEST(CalendarGrid, ACellHoldsItsFirstEdgesAndNotItsLast) {
    struct Row {
        QPointF point;
        std::optional<int> day;
    };
    const std::vector<Row> rows = {
        {{0, 22}, 1},
        {{29.99, 22}, 1},
        {{30, 22}, std::nullopt},
        {{32.99, 30}, std::nullopt},
        {{33, 30}, 2},
        {{10, 21.99}, std::nullopt},
        {{10, 51.99}, 1},
        {{10, 52}, std::nullopt},
        {{10, 54.99}, std::nullopt},
        {{10, 55}, 8},
        {{227.99, 22}, 7},
        {{228, 22}, std::nullopt},
        {{-0.01, 30}, std::nullopt},
        {{66, 154}, std::nullopt},
        {{10, 5}, std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(november().dayAt(row.point), row.day) << row.point.x() << ", " << row.point.y();
    }
    EXPECT_EQ(february2023().dayAt({10, 30}), std::nullopt) << "a blank ahead of day 1";
}

TEST(CalendarGrid, HeatCellsAreFoundTheSameWay) {
    const CalendarGrid grid = MonthHeatView::layoutOf(29, 220);
    EXPECT_EQ(grid.dayAt({0, 0}), 1);
    EXPECT_EQ(grid.dayAt({27.9, 13.9}), 1);
    EXPECT_EQ(grid.dayAt({28, 5}), std::nullopt);
    EXPECT_EQ(grid.dayAt({32, 0}), 2);
    EXPECT_EQ(grid.dayAt({5, 14}), std::nullopt);
    EXPECT_EQ(grid.dayAt({5, 72}), 29);
    EXPECT_EQ(grid.dayAt({40, 72}), std::nullopt);
}

TEST(CalendarGrid, KnowsTheDayOfARowAndColumn) {
    EXPECT_EQ(february2023().dayIn(0, 2), std::nullopt);
    EXPECT_EQ(february2023().dayIn(0, 3), 1);
    EXPECT_EQ(february2023().dayIn(4, 3), 29);
    EXPECT_EQ(february2023().dayIn(4, 4), std::nullopt);
    EXPECT_EQ(february2023().dayIn(1, 7), std::nullopt);
    EXPECT_EQ(february2023().dayIn(-1, 0), std::nullopt);
}

TEST(CalendarGrid, StepsStayInTheMonth) {
    struct Row {
        int day;
        Step step;
        int expected;
    };
    const std::vector<Row> rows = {
        {21, Step::Left, 20}, {21, Step::Right, 22}, {21, Step::Up, 14},   {21, Step::Down, 28},
        {1, Step::Left, 1},   {30, Step::Right, 30}, {7, Step::Up, 7},     {24, Step::Down, 24},
        {8, Step::Up, 1},     {23, Step::Down, 30},  {21, Step::First, 1}, {21, Step::Last, 30},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(november().stepped(row.day, row.step), row.expected) << row.day;
    }
}

TEST(SidebarLayout, HasItsFullGapsWhereThereIsRoom) {
    const SidebarLayout layout = SidebarLayout::of(740);
    EXPECT_EQ(layout.month, 64);
    EXPECT_EQ(layout.grid, 104);
    EXPECT_EQ(layout.today, 335);
    EXPECT_EQ(layout.stats, 389);
    EXPECT_EQ(layout.foot, 696);
    EXPECT_EQ(SidebarLayout::of(546).stats, 389);
}

TEST(SidebarLayout, ShrinksItsGapsInTheSmallestWindow) {
    const SidebarLayout layout = SidebarLayout::of(520);
    EXPECT_EQ(layout.month, 56);
    EXPECT_EQ(layout.grid, 96);
    EXPECT_EQ(layout.today, 317);
    EXPECT_EQ(layout.stats, 363);
    EXPECT_EQ(layout.foot, 476);
    EXPECT_GT(layout.foot, layout.stats + SidebarLayout::statsHeight);
}

TEST(SidebarLayout, ShrinksStepByStep) {
    for (int height = 500; height < 560; ++height) {
        const SidebarLayout low = SidebarLayout::of(height);
        const SidebarLayout high = SidebarLayout::of(height + 1);
        EXPECT_GE(high.stats, low.stats);
        EXPECT_LE(high.stats - low.stats, 3);
    }
}

}  // namespace
}  // namespace velmar
