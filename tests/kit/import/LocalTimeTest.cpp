#include "DiaryKit/Import/LocalTime.h"

#include <gtest/gtest.h>

namespace diary {
namespace {

TEST(LocalTime, KnowsWhichDaysTheCalendarHas) {
    EXPECT_TRUE(LocalTime::isValid(2024, 2, 29));
    EXPECT_TRUE(LocalTime::isValid(2000, 2, 29));
    EXPECT_TRUE(LocalTime::isValid(2023, 12, 31));
    EXPECT_FALSE(LocalTime::isValid(2023, 2, 29));
    EXPECT_FALSE(LocalTime::isValid(1900, 2, 29));
    EXPECT_FALSE(LocalTime::isValid(2023, 2, 30));
    EXPECT_FALSE(LocalTime::isValid(2023, 4, 31));
    EXPECT_FALSE(LocalTime::isValid(2023, 0, 1));
    EXPECT_FALSE(LocalTime::isValid(2023, 13, 1));
    EXPECT_FALSE(LocalTime::isValid(2023, 1, 0));
}

TEST(LocalTime, TakesIdentifiersInTheirExactCaseAndAbbreviations) {
    for (const char* name : {"Europe/Paris", "US/Pacific", "Asia/Calcutta", "GMT", "UTC"}) {
        const auto zone = LocalTime::namedZone(QString::fromLatin1(name));
        ASSERT_TRUE(zone) << name;
        EXPECT_EQ(zone->id(), QByteArray(name));
    }
    EXPECT_EQ(LocalTime::zone(u"JST").id(), QByteArray("Asia/Tokyo"));
    EXPECT_EQ(LocalTime::zone(u"PST").id(), QByteArray("America/Los_Angeles"));
}

TEST(LocalTime, TakesTheCurrentZoneForNamesThatAreNone) {
    for (const QStringView name :
         {u"", u"Nowhere/City", u"asia", u"Asia", u"europe/paris", u"XYZ", u"XYZ3", u"<+03>-3",
          u"UTC+3", u"GMT+0900", u"/etc/localtime", u"../zoneinfo/UTC", u"tzdata.zi", u"東京"}) {
        EXPECT_FALSE(LocalTime::namedZone(name)) << name.toUtf8().constData();
        EXPECT_EQ(LocalTime::zone(name), QTimeZone::systemTimeZone()) << name.toUtf8().constData();
    }
}

TEST(LocalTime, SplitsAMomentOnTheWallClockOfItsZone) {
    const QDateTime moment(QDate(2021, 3, 4), QTime(23, 30), Qt::UTC);
    EXPECT_EQ(LocalTime::split(moment, LocalTime::zone(u"Asia/Tokyo")),
              (LocalTime::DayAndTime{{2021, 3, 5}, {8, 30}}));
    EXPECT_EQ(LocalTime::split(moment, QTimeZone::utc()),
              (LocalTime::DayAndTime{{2021, 3, 4}, {23, 30}}));
    EXPECT_EQ(LocalTime::split(QDateTime(), QTimeZone::utc()),
              (LocalTime::DayAndTime{{2000, 1, 1}, {0, 0}}));
}

}  // namespace
}  // namespace diary
