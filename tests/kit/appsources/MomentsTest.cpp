#include "DiaryKit/AppSources/Moments.h"

#include <gtest/gtest.h>

#include <limits>

namespace diary {
namespace {

TEST(IsoMoment, TakesOneFormOnly) {
    const auto seconds = [](QStringView text) { return isoMoment(text)->toSecsSinceEpoch(); };
    EXPECT_EQ(seconds(u"1970-01-01T00:00:00Z"), 0);
    EXPECT_EQ(seconds(u"1970-01-01T00:00:01.999Z"), 1);
    EXPECT_EQ(seconds(u"1970-01-01T09:00:00+09:00"), 0);
    EXPECT_EQ(seconds(u"1969-12-31T19:00:00-05:00"), 0);
    for (const QStringView text :
         {u"", u"x", u"2021-03-04", u"2021-03-04T05:06:07", u"2021-03-04 05:06:07Z",
          u"2021-03-04T05:06:07z", u"2021-03-04T05:06Z", u"2021-13-01T00:00:00Z",
          u"2021-02-30T00:00:00Z", u"2021-03-04T24:00:00Z", u"2021-03-04T05:06:60Z",
          u"2021-03-04T05:06:07+0900", u"2021-03-04T05:06:07+24:00", u"2021-03-04T05:06:07.Z",
          u"2021-03-04T05:06:07Z ", u"0000-01-01T00:00:00Z", u"٢٠٢١-03-04T05:06:07Z"}) {
        EXPECT_FALSE(isoMoment(text)) << text.toUtf8().toStdString();
    }
}

TEST(MomentSince1970, IsWhatCalendarsReach) {
    EXPECT_EQ(momentSince1970(0), QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(momentSince1970(-0.5).time(), QTime(23, 59, 59, 999));
    EXPECT_EQ(momentSince1970(8.64e15).date(), QDate(275760, 9, 13));
    EXPECT_TRUE(momentSince1970(-8.64e15).isValid());
    for (const double beyond : {8.65e15, -1e17, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(momentSince1970(beyond).isValid()) << beyond;
    }
}

}  // namespace
}  // namespace diary
