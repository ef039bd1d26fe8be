#include "DiaryKit/Appearance/OKLCH.h"

#include <gtest/gtest.h>

namespace diary {
namespace {

constexpr double kExact = 1e-9;

TEST(OKLCH, FullLightnessIsWhiteAndNoneIsBlack) {
    const SRGB white = OKLCH::srgb(1, 0, 0);
    EXPECT_NEAR(white.r, 1, kExact);
    EXPECT_NEAR(white.g, 1, kExact);
    EXPECT_NEAR(white.b, 1, kExact);
    EXPECT_EQ(OKLCH::srgb(0, 0, 0), (SRGB{0, 0, 0}));
}

TEST(OKLCH, NoChromaIsGreyWhateverTheHue) {
    for (double hue = -360; hue <= 720; hue += 15) {
        const SRGB grey = OKLCH::srgb(0.6, 0, hue);
        EXPECT_NEAR(grey.r, grey.g, 1e-6) << hue;
        EXPECT_NEAR(grey.g, grey.b, 1e-6) << hue;
        EXPECT_GT(grey.r, 0.4);
        EXPECT_LT(grey.r, 0.6);
    }
}

TEST(OKLCH, ReturnsThePrimariesOfTheScreen) {
    const SRGB red = OKLCH::srgb(0.6279553606, 0.2576833077, 29.2338851923);
    EXPECT_NEAR(red.r, 1, 1e-4);
    EXPECT_NEAR(red.g, 0, 1e-4);
    EXPECT_NEAR(red.b, 0, 1e-4);
}

TEST(OKLCH, ClipsEachChannelOutsideSRGB) {
    const SRGB color = OKLCH::srgb(0.7, 0.4, 150);
    EXPECT_EQ(color.r, 0);
    EXPECT_NEAR(color.g, 0.865, 0.2);
    EXPECT_GE(color.b, 0);
    const SRGB bright = OKLCH::srgb(1.3, 0, 0);
    EXPECT_NEAR(bright.g, 1, kExact);
    EXPECT_LE(bright.g, 1);
}

}  // namespace
}  // namespace diary
