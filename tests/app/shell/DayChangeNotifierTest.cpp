#include "DiaryApp/Shell/DayChangeNotifier.h"

#include <gtest/gtest.h>

namespace velmar {
namespace {

TEST(DayChangeNotifier, TellsADayOnceHoweverOftenItLooks) {
    diary::FixedClock clock(QDateTime::currentDateTime());
    int told = 0;
    DayChangeNotifier notifier(clock, [&] { ++told; });
    notifier.check();
    EXPECT_EQ(told, 0);
    clock.set(clock.now().addDays(1));
    notifier.check();
    notifier.check();
    EXPECT_EQ(told, 1);
}

TEST(DayChangeNotifier, TellsADaySleptOverAndAClockSetBack) {
    diary::FixedClock clock(QDateTime::currentDateTime());
    int told = 0;
    DayChangeNotifier notifier(clock, [&] { ++told; });
    clock.set(clock.now().addDays(30));
    notifier.check();
    clock.set(clock.now().addDays(-2));
    notifier.check();
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace velmar
