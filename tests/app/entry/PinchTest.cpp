#include "DiaryApp/Entry/Pinch.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmar {
namespace {

using Act = Pinch::Act;
using Acts = std::vector<std::optional<Act>>;

Acts gesture(Pinch& pinch, const std::vector<double>& magnifications) {
    pinch.begin();
    Acts acts;
    for (const double each : magnifications) acts.push_back(pinch.add(each));
    return acts;
}

TEST(Pinch, ActsWhenAllOfItFirstExceedsTheThreshold) {
    struct Row {
        std::vector<double> magnifications;
        Acts expected;
    };
    const std::vector<Row> rows = {
        {{-0.1, -0.1}, {std::nullopt, Act::Close}},
        {{0.1, 0.1}, {std::nullopt, Act::Open}},
        {{0.18}, {std::nullopt}},
        {{-0.18}, {std::nullopt}},
        {{0.1, -0.1, 0.1}, {std::nullopt, std::nullopt, std::nullopt}},
        {{-0.2}, {Act::Close}},
    };
    for (const Row& row : rows) {
        Pinch pinch;
        EXPECT_EQ(gesture(pinch, row.magnifications), row.expected);
    }
}

TEST(Pinch, ActsOnceAGestureHoweverItGoesOn) {
    Pinch pinch;
    EXPECT_EQ(gesture(pinch, {-0.2, -0.2, 0.9, -0.9}),
              (Acts{Act::Close, std::nullopt, std::nullopt, std::nullopt}));
    EXPECT_EQ(gesture(pinch, {0.2}), Acts{Act::Open});
}

TEST(Pinch, AGestureDoesNotGoOnFromTheLastOne) {
    Pinch pinch;
    EXPECT_EQ(gesture(pinch, {0.15}), Acts{std::nullopt});
    EXPECT_EQ(gesture(pinch, {0.15}), Acts{std::nullopt});
}

TEST(Pinch, OneStepOfTheWheelIsEnough) {
    Pinch wheel;
    EXPECT_EQ(wheel.turn(-120, 1000), Act::Close);
    Pinch other;
    EXPECT_EQ(other.turn(120, 1000), Act::Open);
}

TEST(Pinch, SmallTurnsAddUpWithinABurst) {
    Pinch wheel;
    EXPECT_EQ(wheel.turn(-60, 1000), std::nullopt);
    EXPECT_EQ(wheel.turn(-60, 1200), Act::Close);
    Pinch slow;
    EXPECT_EQ(slow.turn(-60, 1000), std::nullopt);
    EXPECT_EQ(slow.turn(-60, 1301), std::nullopt);
}

TEST(Pinch, ABurstOfTurnsActsOnce) {
    Pinch wheel;
    EXPECT_EQ(wheel.turn(-120, 1000), Act::Close);
    for (quint64 time = 1100; time < 3000; time += 100) {
        EXPECT_EQ(wheel.turn(time % 200 == 0 ? 120 : -120, time), std::nullopt);
    }
    EXPECT_EQ(wheel.turn(120, 4000), Act::Open);
}

}  // namespace
}  // namespace velmar
