#include "DiaryApp/Settings/Formatters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Environment.h"

namespace velmar {
namespace {

using testing::ElementsAre;

QString written(Language language, int month, int day, int year) {
    return Formatters::of(language).written({month, day}, year, QStringLiteral("EEEEMMMMd"),
                                            QStringLiteral("MMMMd"));
}

TEST(Formatters, WritesTheDayWithItsWeekday) {
    EXPECT_EQ(written(Language::en, 11, 21, 2026), QStringLiteral("Saturday, November 21"));
    EXPECT_EQ(written(Language::en, 11, 21, 2021), QStringLiteral("Sunday, November 21"));
    EXPECT_EQ(written(Language::en, 2, 29, 2024), QStringLiteral("Thursday, February 29"));
}

TEST(Formatters, WritesLeapDayOfACommonYearWithoutAWeekday) {
    EXPECT_EQ(written(Language::en, 2, 29, 2026), QStringLiteral("February 29"));
}

TEST(Formatters, CountsGregorianDaysInOldYears) {
    EXPECT_EQ(written(Language::en, 10, 4, 1582), QStringLiteral("Monday, October 4"));
}

TEST(Formatters, WritesNothingInChineseAndJapanese) {
    EXPECT_TRUE(written(Language::zhHans, 11, 21, 2026).isEmpty());
    EXPECT_TRUE(written(Language::ja, 11, 21, 2026).isEmpty());
}

TEST(Formatters, NamesWeekdays) {
    EXPECT_EQ(Formatters::of(Language::en).weekdayName(1), QStringLiteral("Sunday"));
    EXPECT_EQ(Formatters::of(Language::zhHans).weekdayName(7), QStringLiteral("星期六"));
    EXPECT_EQ(Formatters::of(Language::ja).weekdayName(7), QStringLiteral("土曜日"));
    EXPECT_TRUE(Formatters::of(Language::en).weekdayName(0).isEmpty());
    EXPECT_TRUE(Formatters::of(Language::en).weekdayName(8).isEmpty());
}

TEST(Formatters, NamesMonths) {
    EXPECT_EQ(Formatters::of(Language::en).monthName(11), QStringLiteral("November"));
    EXPECT_EQ(Formatters::of(Language::zhHans).monthName(11), QStringLiteral("十一月"));
    EXPECT_EQ(Formatters::of(Language::ja).monthName(11), QStringLiteral("11月"));
    EXPECT_TRUE(Formatters::of(Language::en).monthName(13).isEmpty());
}

TEST(Formatters, NamesDays) {
    EXPECT_EQ(Formatters::of(Language::en).dayName(2, 29), QStringLiteral("February 29"));
    EXPECT_EQ(Formatters::of(Language::ja).dayName(3, 7), QStringLiteral("3月7日"));
    EXPECT_EQ(Formatters::of(Language::zhHans).dayName(10, 30), QStringLiteral("十月三十日"));
    EXPECT_EQ(Formatters::of(Language::zhHans).dayName(12, 21), QStringLiteral("十二月二十一日"));
    // No such date: the month's name and the number.
    EXPECT_EQ(Formatters::of(Language::en).dayName(4, 31), QStringLiteral("April 31"));
}

TEST(Formatters, CountsInChineseNumerals) {
    const std::vector<std::pair<int, const char*>> rows = {
        {1, "一"},    {9, "九"},      {10, "十"},   {11, "十一"},   {19, "十九"},
        {20, "二十"}, {21, "二十一"}, {30, "三十"}, {31, "三十一"},
    };
    for (const auto& [number, text] : rows) {
        EXPECT_EQ(Formatters::chineseNumber(number), QString::fromUtf8(text));
    }
}

TEST(Formatters, BeginsTheWeekAsThePlaceOfTheDesktopsDatesDoes) {
    const Formatters& english = Formatters::of(Language::en);
    const diary::test::Environment all("LC_ALL", "");
    const diary::test::Environment time("LC_TIME", "de_DE.UTF-8@euro");
    EXPECT_EQ(english.firstWeekday(), 2);
    EXPECT_EQ(english.weekdayColumns().first(), QStringLiteral("Mo"));

    const diary::test::Environment american("LC_TIME", "en_US.UTF-8");
    EXPECT_EQ(Formatters::of(Language::zhHans).firstWeekday(), 1);
    EXPECT_EQ(Formatters::of(Language::zhHans).weekdayColumns().first(), QStringLiteral("日"));

    const diary::test::Environment none("LC_TIME", "C.UTF-8");
    EXPECT_EQ(english.firstWeekday(), 1);
}

TEST(Formatters, HeadsTheColumnsFromTheWeeksFirstDay) {
    const diary::test::Environment all("LC_ALL", "C.UTF-8");
    const Formatters& english = Formatters::of(Language::en);
    EXPECT_EQ(english.firstWeekday(), 1);
    EXPECT_THAT(english.weekdayColumns(),
                ElementsAre(QStringLiteral("Su"), QStringLiteral("Mo"), QStringLiteral("Tu"),
                            QStringLiteral("We"), QStringLiteral("Th"), QStringLiteral("Fr"),
                            QStringLiteral("Sa")));
    for (const Language language : {Language::zhHans, Language::ja}) {
        const QStringList columns = Formatters::of(language).weekdayColumns();
        EXPECT_EQ(columns.size(), 7);
        for (const QString& column : columns) EXPECT_EQ(column.size(), 1);
    }
}

TEST(Formatters, TellsADayFromToday) {
    localization::install(Language::en);
    const QDate today(2026, 11, 21);
    EXPECT_EQ(Formatters::relativeDay(today, today), QStringLiteral("today"));
    EXPECT_EQ(Formatters::relativeDay(today.addDays(-1), today), QStringLiteral("yesterday"));
    EXPECT_EQ(Formatters::relativeDay(today.addDays(-2), today), QStringLiteral("2 days ago"));
    EXPECT_EQ(Formatters::relativeDay(today.addDays(3), today), QStringLiteral("today"));
}

}  // namespace
}  // namespace velmar
