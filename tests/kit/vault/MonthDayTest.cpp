#include "DiaryKit/Vault/MonthDay.h"

#include <gtest/gtest.h>

#include "DiaryKit/Vault/DiaryDay.h"

namespace diary {
namespace {

TEST(MonthDay, AcceptsKeysOfTheFormMmDd) {
    EXPECT_EQ(MonthDay::parse(u"03-07.md"), (MonthDay{3, 7}));
    EXPECT_EQ(MonthDay::parse(u"02-30.md"), (MonthDay{2, 30}));
    EXPECT_EQ(MonthDay::parse(u"02-31.md"), (MonthDay{2, 31}));
    for (const QStringView name :
         {u"13-01.md", u"00-10.md", u"01-00.md", u"1-02.md", u"01-32.md", u"01-02.txt", u"01-02.MD",
          u"0102.md", u"01-2a.md", u"٠1-02.md", u"01-02.md ", u""}) {
        EXPECT_FALSE(MonthDay::parse(name)) << name.toUtf8().constData();
    }
}

TEST(MonthDay, AdvancesThroughTheCycleAndAroundItsEnds) {
    EXPECT_EQ((MonthDay{12, 31}).advanced(1), (MonthDay{1, 1}));
    EXPECT_EQ((MonthDay{1, 1}).advanced(-1), (MonthDay{12, 31}));
    EXPECT_EQ((MonthDay{2, 28}).advanced(1), (MonthDay{2, 29}));
    EXPECT_EQ((MonthDay{6, 15}).advanced(366 * 3), (MonthDay{6, 15}));
    EXPECT_EQ((MonthDay{6, 15}).advanced(-366 * 3 - 1), (MonthDay{6, 14}));
}

TEST(MonthDay, CountsThePositionInCycleAndYear) {
    EXPECT_EQ((MonthDay{2, 29}).ordinalInCycle(), 60);
    EXPECT_EQ((MonthDay{3, 1}).ordinalInCycle(), 61);
    EXPECT_EQ((MonthDay{12, 31}).ordinalInCycle(), 366);
    EXPECT_EQ((MonthDay{3, 1}).ordinal(2023), 60);
    EXPECT_EQ((MonthDay{2, 29}).ordinal(2023), 60);
    EXPECT_EQ((MonthDay{3, 1}).ordinal(2024), 61);
    EXPECT_EQ((MonthDay{2, 29}).daysInYear(2023), 366);
    EXPECT_EQ((MonthDay{3, 1}).daysInYear(2023), 365);
    EXPECT_EQ((MonthDay{3, 1}).daysInYear(2024), 366);
}

TEST(MonthDay, HasNoWeekdayOnALeapDayOfACommonYear) {
    EXPECT_EQ((MonthDay{2, 29}).weekday(2023), std::nullopt);
    EXPECT_EQ((MonthDay{2, 29}).weekday(2024), 5);  // A Thursday.
}

TEST(DiaryDay, AdvancesByTheRealCalendar) {
    EXPECT_EQ((DiaryDay{2023, 2, 28}).advanced(1), (DiaryDay{2023, 3, 1}));
    EXPECT_EQ((DiaryDay{2024, 2, 28}).advanced(1), (DiaryDay{2024, 2, 29}));
    EXPECT_EQ((DiaryDay{2026, 1, 1}).advanced(-1), (DiaryDay{2025, 12, 31}));
}

TEST(DiaryDay, StandsAtNoonAndReadsTheClockItIsGiven) {
    EXPECT_EQ((DiaryDay{2026, 11, 21}).date().time(), QTime(12, 0));
    const FixedClock clock(QDateTime(QDate(2026, 11, 21), QTime(23, 59), Qt::UTC));
    EXPECT_EQ(DiaryDay::today(clock), (DiaryDay{2026, 11, 21}));
    EXPECT_EQ((DiaryDay{2026, 11, 21}).weekday(), 7);
}

}  // namespace
}  // namespace diary
