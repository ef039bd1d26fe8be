#include "DiaryKit/Appearance/Palette.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace diary {
namespace {

using testing::ElementsAre;

double lightness(const PaletteValue& value) {
    return std::get<OKLCH>(value).l;
}

TEST(Palette, StandsInTheOrderInWhichItIsOffered) {
    EXPECT_THAT(palette::all(), ElementsAre(Palette::paper, Palette::plain, Palette::osmanthus,
                                            Palette::celadon, Palette::ink, Palette::indigo));
    EXPECT_THAT(palette::light(),
                ElementsAre(Palette::paper, Palette::plain, Palette::osmanthus, Palette::celadon));
    EXPECT_THAT(palette::dark(), ElementsAre(Palette::ink, Palette::indigo));
    for (const Palette each : palette::light()) EXPECT_FALSE(palette::isDark(each));
    for (const Palette each : palette::dark()) EXPECT_TRUE(palette::isDark(each));
}

TEST(Palette, RawValueReadsBack) {
    for (const Palette each : palette::all()) {
        EXPECT_EQ(palette::parse(palette::rawValue(each)), each);
    }
    EXPECT_EQ(palette::rawValue(Palette::osmanthus), QStringLiteral("osmanthus"));
}

TEST(Palette, UnknownRawValueGivesNone) {
    for (const char* raw : {"", "dark", "Paper", "paper ", "PAPER", "sepia"}) {
        EXPECT_FALSE(palette::parse(QString::fromLatin1(raw))) << raw;
    }
}

TEST(Palette, OnlyPaperHasHexAccents) {
    const PaletteSpec& paper = palette::spec(Palette::paper);
    EXPECT_EQ(paper.accent, PaletteValue(HexColor{0xB4432B}));
    EXPECT_EQ(paper.accentSoft, PaletteValue(HexColor{0xF3E3DC}));
    EXPECT_EQ(paper.accentDeep, PaletteValue(HexColor{0x8F3421}));
    for (const Palette each : palette::all()) {
        const PaletteSpec& spec = palette::spec(each);
        const bool isPaper = each == Palette::paper;
        EXPECT_EQ(std::holds_alternative<HexColor>(spec.accent), isPaper);
        EXPECT_EQ(std::holds_alternative<HexColor>(spec.accentSoft), isPaper);
        EXPECT_EQ(std::holds_alternative<HexColor>(spec.accentDeep), isPaper);
        EXPECT_TRUE(std::holds_alternative<OKLCH>(spec.selection));
        for (const PaletteValue& shade : spec.heat) {
            EXPECT_TRUE(std::holds_alternative<OKLCH>(shade));
        }
    }
}

TEST(Palette, SpecHoldsItsValues) {
    const PaletteSpec& indigo = palette::spec(Palette::indigo);
    EXPECT_EQ(indigo.surface, (PaletteTint{0.022, 262}));
    EXPECT_EQ(indigo.ink, (PaletteTint{0.012, 250}));
    EXPECT_EQ(indigo.accent, PaletteValue(OKLCH{0.80, 0.120, 80}));
    EXPECT_EQ(indigo.selection, PaletteValue(OKLCH{0.40, 0.060, 262}));
    EXPECT_EQ(indigo.heat[3], PaletteValue(OKLCH{0.80, 0.120, 80}));
}

TEST(Palette, InkIsMirroredOnDarkPalettes) {
    EXPECT_NEAR(lightness(palette::ink(Palette::ink, 0.24)), 0.93, 1e-12);
    EXPECT_NEAR(lightness(palette::ink(Palette::ink, 0.76)), 0.488, 1e-12);
    EXPECT_NEAR(lightness(palette::ink(Palette::indigo, 0.24)), 0.93, 1e-12);
    EXPECT_EQ(lightness(palette::ink(Palette::paper, 0.24)), 0.24);
    EXPECT_EQ(lightness(palette::ink(Palette::plain, 0.76)), 0.76);
}

TEST(Palette, SurfaceTakesTheLightnessOfItsSide) {
    EXPECT_EQ(palette::surface(Palette::celadon, 0.978, 0.215),
              PaletteValue(OKLCH{0.978, 0.010, 165}));
    EXPECT_EQ(palette::surface(Palette::indigo, 0.978, 0.215),
              PaletteValue(OKLCH{0.215, 0.022, 262}));
}

TEST(Palette, HueIsAnOffsetAndChromaAFactor) {
    const OKLCH surface = std::get<OKLCH>(palette::surface(Palette::paper, 0.9, 0.3, -5, 1.2));
    EXPECT_NEAR(surface.c, 0.012, 1e-12);
    EXPECT_EQ(surface.h, 80);
    const OKLCH ink = std::get<OKLCH>(palette::ink(Palette::paper, 0.5, 16, 0.5));
    EXPECT_NEAR(ink.c, 0.007, 1e-12);
    EXPECT_EQ(ink.h, 76);
}

TEST(Palette, PillTextIsTheGroundOfADarkPalette) {
    EXPECT_EQ(palette::onPill(Palette::paper, 0.96), PaletteValue(OKLCH{0.96, 0.010, 85}));
    EXPECT_EQ(palette::onPill(Palette::ink, 0.96), PaletteValue(OKLCH{0.215, 0.009, 60}));
    EXPECT_EQ(palette::onPill(Palette::ink, 0.1), PaletteValue(OKLCH{0.215, 0.009, 60}));
}

TEST(Palette, HexConvertsByteForByte) {
    EXPECT_EQ(palette::srgb(HexColor{0xB4432B}), (SRGB{180 / 255.0, 67 / 255.0, 43 / 255.0}));
    EXPECT_EQ(palette::srgb(HexColor{0x000000}), (SRGB{0, 0, 0}));
    EXPECT_EQ(palette::srgb(HexColor{0xFFFFFF}), (SRGB{1, 1, 1}));
}

}  // namespace
}  // namespace diary
