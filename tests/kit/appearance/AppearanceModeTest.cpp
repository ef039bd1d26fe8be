#include "DiaryKit/Appearance/AppearanceMode.h"

#include <gtest/gtest.h>

namespace diary {
namespace {

TEST(AppearanceMode, PicksTheChosenSide) {
    using enum AppearanceMode;
    for (const bool systemIsDark : {false, true}) {
        EXPECT_EQ(appearance_mode::palette(light, Palette::celadon, Palette::indigo, systemIsDark),
                  Palette::celadon);
        EXPECT_EQ(appearance_mode::palette(dark, Palette::celadon, Palette::indigo, systemIsDark),
                  Palette::indigo);
    }
    EXPECT_EQ(appearance_mode::palette(system, Palette::celadon, Palette::indigo, true),
              Palette::indigo);
    EXPECT_EQ(appearance_mode::palette(system, Palette::celadon, Palette::indigo, false),
              Palette::celadon);
}

TEST(AppearanceMode, DoesNotQuestionThePair) {
    EXPECT_EQ(appearance_mode::palette(AppearanceMode::system, Palette::ink, Palette::paper, false),
              Palette::ink);
    EXPECT_EQ(appearance_mode::palette(AppearanceMode::system, Palette::ink, Palette::paper, true),
              Palette::paper);
}

TEST(AppearanceMode, RawValueReadsBack) {
    for (const auto mode : {AppearanceMode::light, AppearanceMode::dark, AppearanceMode::system}) {
        EXPECT_EQ(appearance_mode::parse(appearance_mode::rawValue(mode)), mode);
    }
    EXPECT_EQ(appearance_mode::rawValue(AppearanceMode::system), QStringLiteral("system"));
    EXPECT_FALSE(appearance_mode::parse(u"auto"));
    EXPECT_FALSE(appearance_mode::parse(u""));
}

}  // namespace
}  // namespace diary
