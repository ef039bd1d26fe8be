#include "DiaryKit/Appearance/Palette.h"

#include <cstddef>

namespace diary::palette {

namespace {

constexpr std::array kAll = {Palette::paper,   Palette::plain, Palette::osmanthus,
                             Palette::celadon, Palette::ink,   Palette::indigo};
constexpr std::size_t kLightCount = 4;

constexpr std::array<QLatin1String, kAll.size()> kRawValues = {
    QLatin1String("paper"),   QLatin1String("plain"), QLatin1String("osmanthus"),
    QLatin1String("celadon"), QLatin1String("ink"),   QLatin1String("indigo")};

// Only "paper" has accents in hex: they are the colours of a printed seal, and stay as they are.
constexpr std::array<PaletteSpec, kAll.size()> kSpecs = {{
    {.surface = {0.010, 85},
     .ink = {0.014, 60},
     .accent = HexColor{0xB4432B},
     .accentSoft = HexColor{0xF3E3DC},
     .accentDeep = HexColor{0x8F3421},
     .selection = OKLCH{0.90, 0.050, 40},
     .heat = {OKLCH{0.925, 0.010, 82}, OKLCH{0.87, 0.045, 40}, OKLCH{0.74, 0.090, 38},
              OKLCH{0.55, 0.130, 34}}},
    {.surface = {0.003, 250},
     .ink = {0.006, 262},
     .accent = OKLCH{0.33, 0.012, 262},
     .accentSoft = OKLCH{0.935, 0.005, 250},
     .accentDeep = OKLCH{0.28, 0.010, 262},
     .selection = OKLCH{0.885, 0.012, 250},
     .heat = {OKLCH{0.93, 0.003, 250}, OKLCH{0.84, 0.006, 252}, OKLCH{0.67, 0.009, 256},
              OKLCH{0.38, 0.012, 262}}},
    {.surface = {0.022, 86},
     .ink = {0.022, 58},
     .accent = OKLCH{0.55, 0.125, 60},
     .accentSoft = OKLCH{0.93, 0.050, 80},
     .accentDeep = OKLCH{0.43, 0.100, 55},
     .selection = OKLCH{0.89, 0.070, 82},
     .heat = {OKLCH{0.925, 0.026, 86}, OKLCH{0.87, 0.070, 82}, OKLCH{0.76, 0.115, 72},
              OKLCH{0.58, 0.130, 60}}},
    {.surface = {0.010, 165},
     .ink = {0.018, 205},
     .accent = OKLCH{0.50, 0.080, 192},
     .accentSoft = OKLCH{0.93, 0.030, 185},
     .accentDeep = OKLCH{0.40, 0.070, 195},
     .selection = OKLCH{0.885, 0.040, 185},
     .heat = {OKLCH{0.925, 0.011, 165}, OKLCH{0.86, 0.040, 180}, OKLCH{0.72, 0.070, 187},
              OKLCH{0.52, 0.085, 192}}},
    {.surface = {0.009, 60},
     .ink = {0.012, 82},
     .accent = OKLCH{0.70, 0.130, 38},
     .accentSoft = OKLCH{0.33, 0.050, 38},
     .accentDeep = OKLCH{0.85, 0.080, 42},
     .selection = OKLCH{0.40, 0.070, 38},
     .heat = {OKLCH{0.27, 0.009, 60}, OKLCH{0.38, 0.060, 38}, OKLCH{0.52, 0.100, 37},
              OKLCH{0.70, 0.130, 38}}},
    {.surface = {0.022, 262},
     .ink = {0.012, 250},
     .accent = OKLCH{0.80, 0.120, 80},
     .accentSoft = OKLCH{0.35, 0.050, 80},
     .accentDeep = OKLCH{0.88, 0.080, 85},
     .selection = OKLCH{0.40, 0.060, 262},
     .heat = {OKLCH{0.29, 0.022, 262}, OKLCH{0.40, 0.050, 78}, OKLCH{0.58, 0.090, 78},
              OKLCH{0.80, 0.120, 80}}},
}};

// Keeps the dark palettes' inks between the ground and a white that doesn't glare.
double mirrored(double lightness) {
    return (lightness - 0.24) * -0.85 + 0.93;
}

constexpr double kPillInkOnDark = 0.215;

}  // namespace

std::optional<Palette> parse(QStringView raw) {
    for (const Palette each : kAll) {
        if (kRawValues[static_cast<std::size_t>(each)] == raw) return each;
    }
    return std::nullopt;
}

QString rawValue(Palette palette) {
    return kRawValues[static_cast<std::size_t>(palette)];
}

std::span<const Palette> all() {
    return kAll;
}
std::span<const Palette> light() {
    return all().first(kLightCount);
}
std::span<const Palette> dark() {
    return all().subspan(kLightCount);
}
bool isDark(Palette palette) {
    return static_cast<std::size_t>(palette) >= kLightCount;
}

const PaletteSpec& spec(Palette palette) {
    return kSpecs[static_cast<std::size_t>(palette)];
}

PaletteValue surface(Palette palette, double light, double dark, double hue, double chroma) {
    const PaletteTint& tint = spec(palette).surface;
    return OKLCH{isDark(palette) ? dark : light, chroma * tint.c, hue + tint.h};
}

PaletteValue ink(Palette palette, double lightness, double hue, double chroma) {
    const PaletteTint& tint = spec(palette).ink;
    return OKLCH{isDark(palette) ? mirrored(lightness) : lightness, chroma * tint.c, hue + tint.h};
}

PaletteValue onPill(Palette palette, double lightness) {
    const PaletteTint& tint = spec(palette).surface;
    return OKLCH{isDark(palette) ? kPillInkOnDark : lightness, tint.c, tint.h};
}

SRGB srgb(const PaletteValue& value) {
    if (const auto* hex = std::get_if<HexColor>(&value)) {
        return {((hex->rgb >> 16) & 0xFF) / 255.0, ((hex->rgb >> 8) & 0xFF) / 255.0,
                (hex->rgb & 0xFF) / 255.0};
    }
    const OKLCH& color = std::get<OKLCH>(value);
    return OKLCH::srgb(color.l, color.c, color.h);
}

}  // namespace diary::palette
