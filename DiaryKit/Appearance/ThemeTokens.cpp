#include "DiaryKit/Appearance/ThemeTokens.h"

#include <algorithm>
#include <variant>

namespace diary {

namespace {

using SpecMember = PaletteValue PaletteSpec::*;

struct FromSurface {
    double light;
    double dark;
    double hue;
    double chroma;
};

struct FromInk {
    double lightness;
    double hue;
    double chroma;
};

struct FromPill {
    double lightness;
};

using TokenSource = std::variant<SpecMember, FromSurface, FromInk, FromPill>;

struct TokenRow {
    const char* name;
    TokenSource source;
};

constexpr TokenSource fromSpec(SpecMember member) {
    return member;
}

constexpr TokenSource fromSurface(double light, double dark, double hue = 0, double chroma = 1) {
    return FromSurface{light, dark, hue, chroma};
}

constexpr TokenSource fromInk(double lightness, double hue = 0, double chroma = 1) {
    return FromInk{lightness, hue, chroma};
}

constexpr TokenSource fromPill(double lightness) {
    return FromPill{lightness};
}

// All faint text is a little greyer than the strong inks.
constexpr double kFaintChroma = 6.0 / 7.0;

// One row a token, in the order of the enumeration: lightness on light and on dark palettes, or the
// ink's lightness; then the hue's offset and the chroma's factor.
// clang-format off
constexpr std::array<TokenRow, kTokenCount> kTable = {{
    {"accent", fromSpec(&PaletteSpec::accent)},
    {"accentDeep", fromSpec(&PaletteSpec::accentDeep)},
    {"accentSoft", fromSpec(&PaletteSpec::accentSoft)},
    {"paper", fromSurface(0.978, 0.215)},
    {"panel", fromSurface(0.963, 0.195, 0, 1.1)},
    {"bar", fromSurface(0.958, 0.185, 0, 1.2)},
    {"border", fromSurface(0.90, 0.31, -5, 1.2)},
    {"borderSoft", fromSurface(0.92, 0.275, -5, 1.2)},
    {"cardBorder", fromSurface(0.905, 0.30, -5, 1.2)},
    {"cardBorderHover", fromSurface(0.80, 0.42, -7, 1.2)},
    {"cardBorderActive", fromSurface(0.62, 0.60, -15, 1.4)},
    {"cardBg", fromSurface(0.972, 0.245)},
    {"cardBgActive", fromSurface(0.99, 0.29, 0, 1.2)},
    {"hoverBg", fromSurface(0.91, 0.30, -5, 1.4)},
    {"gridHoverOutline", fromSurface(0.81, 0.45, -5, 1.2)},
    {"quoteBar", fromSurface(0.86, 0.42, -13, 2.2)},
    {"selectionBg", fromSpec(&PaletteSpec::selection)},
    {"inkStrong", fromInk(0.24)},
    {"ink", fromInk(0.28)},
    {"inkTitle", fromInk(0.30)},
    {"inkMed", fromInk(0.34)},
    {"inkSource", fromInk(0.36)},
    {"serifAside", fromInk(0.48, 6)},
    {"pastText", fromInk(0.52, 6)},
    {"chromeText", fromInk(0.55, 10, kFaintChroma)},
    {"chevron", fromInk(0.58, 10, kFaintChroma)},
    {"railSnippet", fromInk(0.58, 12, kFaintChroma)},
    {"statLabel", fromInk(0.60, 12, kFaintChroma)},
    {"statusText", fromInk(0.60, 14, kFaintChroma)},
    {"railFoot", fromInk(0.64, 16, kFaintChroma)},
    {"daySubText", fromInk(0.65, 16, kFaintChroma)},
    {"sectionHead", fromInk(0.66, 16, kFaintChroma)},
    {"footnote", fromInk(0.67, 16, kFaintChroma)},
    {"emptyText", fromInk(0.68, 18, kFaintChroma)},
    {"agoText", fromInk(0.70, 18, kFaintChroma)},
    {"faint", fromInk(0.72, 18, kFaintChroma)},
    {"ghostDay", fromInk(0.73, 18, kFaintChroma)},
    {"placeholder", fromInk(0.75, 20, kFaintChroma)},
    {"boxBorder", fromInk(0.76, 16)},
    {"pillBg", fromInk(0.30)},
    {"pillText", fromPill(0.96)},
    {"railTextActive", fromInk(0.38, 2)},
    {"railYear", fromInk(0.42, 4)},
}};
// clang-format on

struct ValueOf {
    Palette palette;

    PaletteValue operator()(SpecMember member) const { return palette::spec(palette).*member; }
    PaletteValue operator()(const FromSurface& s) const {
        return palette::surface(palette, s.light, s.dark, s.hue, s.chroma);
    }
    PaletteValue operator()(const FromInk& s) const {
        return palette::ink(palette, s.lightness, s.hue, s.chroma);
    }
    PaletteValue operator()(const FromPill& s) const {
        return palette::onPill(palette, s.lightness);
    }
};

}  // namespace

QLatin1String tokenName(Token token) {
    return QLatin1String(kTable[static_cast<std::size_t>(token)].name);
}

ThemeTokens tokenColors(Palette palette) {
    ThemeTokens tokens;
    std::ranges::transform(kTable, tokens.colors.begin(), [&](const TokenRow& row) {
        return palette::srgb(std::visit(ValueOf{palette}, row.source));
    });
    std::ranges::transform(palette::spec(palette).heat, tokens.heatShades.begin(), palette::srgb);
    return tokens;
}

}  // namespace diary
