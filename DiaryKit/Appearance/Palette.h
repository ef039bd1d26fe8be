// The six palettes. Each is a small set of tints and accents; all other colours are derived from it
// (ThemeTokens.h holds the table of the derived ones). Pure arithmetic and data.
#pragma once

#include <QtCore/QString>
#include <array>
#include <optional>
#include <span>
#include <variant>

#include "DiaryKit/Appearance/OKLCH.h"

namespace diary {

// In the order in which they are offered. Raw values are stored in the settings.
enum class Palette { paper, plain, osmanthus, celadon, ink, indigo };

// A 24-bit sRGB colour, 0xRRGGBB.
struct HexColor {
    int rgb = 0;

    bool operator==(const HexColor&) const = default;
};

// One colour as a palette holds it.
using PaletteValue = std::variant<OKLCH, HexColor>;

// Base chroma and hue of a family of colours.
struct PaletteTint {
    double c = 0;
    double h = 0;

    bool operator==(const PaletteTint&) const = default;
};

struct PaletteSpec {
    // Of all backgrounds and lines.
    PaletteTint surface;
    // Of all text.
    PaletteTint ink;
    PaletteValue accent;
    PaletteValue accentSoft;
    PaletteValue accentDeep;
    PaletteValue selection;
    // The calendar's shades, from a day that was never written to the fullest.
    std::array<PaletteValue, 4> heat;
};

namespace palette {

// The palette of a raw value such as "celadon"; case matters.
[[nodiscard]] std::optional<Palette> parse(QStringView raw);
[[nodiscard]] QString rawValue(Palette palette);

[[nodiscard]] std::span<const Palette> all();
[[nodiscard]] std::span<const Palette> light();
[[nodiscard]] std::span<const Palette> dark();
[[nodiscard]] bool isDark(Palette palette);

[[nodiscard]] const PaletteSpec& spec(Palette palette);

// A background or line: lightness `dark` on a dark palette, else `light`; `hue` is an offset in
// degrees and `chroma` a factor, both on the palette's surface tint.
[[nodiscard]] PaletteValue surface(Palette palette, double light, double dark, double hue = 0,
                                   double chroma = 1);

// A text colour, given by its lightness on a light palette. On a dark one the lightness is
// mirrored: ink(0.24), the strongest, becomes 0.93, and fainter inks go towards the ground.
[[nodiscard]] PaletteValue ink(Palette palette, double lightness, double hue = 0,
                               double chroma = 1);

// The text on a pill: the surface tint with this lightness, on a dark palette always 0.215.
[[nodiscard]] PaletteValue onPill(Palette palette, double lightness);

[[nodiscard]] SRGB srgb(const PaletteValue& value);

}  // namespace palette

}  // namespace diary
