#include "DiaryKit/Appearance/ThemeTokens.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <cmath>

namespace diary {
namespace {

QString hex(const SRGB& color) {
    const auto byte = [](double channel) {
        return QStringLiteral("%1").arg(std::lround(channel * 255), 2, 16, QLatin1Char('0'));
    };
    return QStringLiteral("#%1%2%3").arg(byte(color.r), byte(color.g), byte(color.b)).toUpper();
}

void expectNear(const SRGB& a, const SRGB& b) {
    EXPECT_NEAR(a.r, b.r, 1e-12);
    EXPECT_NEAR(a.g, b.g, 1e-12);
    EXPECT_NEAR(a.b, b.b, 1e-12);
}

TEST(ThemeTokens, NamesAreAllDifferent) {
    QSet<QString> names;
    for (std::size_t i = 0; i < kTokenCount; ++i) names.insert(tokenName(static_cast<Token>(i)));
    EXPECT_EQ(names.size(), 43);
    EXPECT_EQ(tokenName(Token::Accent), QLatin1String("accent"));
    EXPECT_EQ(tokenName(Token::CardBgActive), QLatin1String("cardBgActive"));
    EXPECT_EQ(tokenName(Token::RailYear), QLatin1String("railYear"));
}

TEST(ThemeTokens, DarkInksAreMirrored) {
    const ThemeTokens ink = tokenColors(Palette::ink);
    expectNear(ink[Token::InkStrong], OKLCH::srgb(0.93, 0.012, 82));
    expectNear(ink[Token::Placeholder], OKLCH::srgb(0.4965, 0.012 * 6 / 7, 102));
}

TEST(ThemeTokens, ActiveCardLineIsNearlyTheSameOnBothSides) {
    expectNear(tokenColors(Palette::paper)[Token::CardBorderActive],
               OKLCH::srgb(0.62, 0.010 * 1.4, 70));
    expectNear(tokenColors(Palette::ink)[Token::CardBorderActive],
               OKLCH::srgb(0.60, 0.009 * 1.4, 45));
}

TEST(ThemeTokens, PapersAccentsAreItsHexColours) {
    const ThemeTokens paper = tokenColors(Palette::paper);
    EXPECT_EQ(hex(paper[Token::Accent]), QStringLiteral("#B4432B"));
    EXPECT_EQ(hex(paper[Token::AccentSoft]), QStringLiteral("#F3E3DC"));
    EXPECT_EQ(hex(paper[Token::AccentDeep]), QStringLiteral("#8F3421"));
}

// Only the accents, the selection and the shades come from the palette as they are; a palette's
// hexadecimal accents lend no other token their hue.
TEST(ThemeTokens, PapersOtherColoursAreComputedFromItsTints) {
    const ThemeTokens paper = tokenColors(Palette::paper);
    expectNear(paper[Token::Paper], OKLCH::srgb(0.978, 0.010, 85));
    expectNear(paper[Token::Border], OKLCH::srgb(0.90, 0.010 * 1.2, 80));
    expectNear(paper[Token::InkStrong], OKLCH::srgb(0.24, 0.014, 60));
    expectNear(paper[Token::ChromeText], OKLCH::srgb(0.55, 0.014 * 0.8571428571428571, 70));
}

TEST(ThemeTokens, TextOnAPillIsLightOnLightPalettesAndDarkOnDarkOnes) {
    const auto expected = [](Palette palette, double lightness) {
        const auto surface = palette::spec(palette).surface;
        return OKLCH::srgb(lightness, surface.c, surface.h);
    };
    expectNear(tokenColors(Palette::celadon)[Token::PillText], expected(Palette::celadon, 0.96));
    expectNear(tokenColors(Palette::indigo)[Token::PillText], expected(Palette::indigo, 0.215));
}

TEST(ThemeTokens, HeatShadesAreThePalettesOwn) {
    for (const Palette each : palette::all()) {
        const ThemeTokens tokens = tokenColors(each);
        for (std::size_t i = 0; i < tokens.heatShades.size(); ++i) {
            EXPECT_EQ(tokens.heatShades[i], palette::srgb(palette::spec(each).heat[i]));
        }
    }
}

// The designer's list of all colours, where the drawings are at hand.
TEST(ThemeTokens, AgreeWithTheDesignersList) {
    QFile file(QStringLiteral(VELMAR_SOURCE_DIR "/../shared/design/tokens.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        ASSERT_FALSE(qEnvironmentVariableIsSet("VELMAR_REQUIRE_SHARED")) << "the drawings are gone";
        GTEST_SKIP() << "the drawings aren't here";
    }
    const QJsonObject palettes =
        QJsonDocument::fromJson(file.readAll())[QLatin1String("palettes")].toObject();
    ASSERT_EQ(palettes.size(), 6);
    for (const Palette each : palette::all()) {
        const QJsonObject listed = palettes[palette::rawValue(each)].toObject();
        const ThemeTokens tokens = tokenColors(each);
        for (std::size_t i = 0; i < kTokenCount; ++i) {
            const QLatin1String name = tokenName(static_cast<Token>(i));
            EXPECT_EQ(hex(tokens.colors[i]), listed[name].toString())
                << palette::rawValue(each).toStdString() << ' ' << name.data();
        }
        const QJsonArray heat = listed[QLatin1String("heatShades")].toArray();
        ASSERT_EQ(heat.size(), 4);
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(hex(tokens.heatShades[i]), heat[static_cast<int>(i)].toString());
        }
    }
}

}  // namespace
}  // namespace diary
