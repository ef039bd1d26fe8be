// The colours of the interface by role, as data: one row a token, each derived from a palette.
// Views ask for a token and never hold a colour of their own.
#pragma once

#include <QtCore/QLatin1String>
#include <array>
#include <cstddef>

#include "DiaryKit/Appearance/Palette.h"

namespace diary {

// Grounds and lines first, then inks from the strongest to the faintest, then pill and rail.
enum class Token {
    Accent,
    AccentDeep,
    AccentSoft,
    Paper,
    Panel,
    Bar,
    Border,
    BorderSoft,
    CardBorder,
    CardBorderHover,
    CardBorderActive,
    CardBg,
    CardBgActive,
    HoverBg,
    GridHoverOutline,
    QuoteBar,
    SelectionBg,
    InkStrong,
    Ink,
    InkTitle,
    InkMed,
    InkSource,
    SerifAside,
    PastText,
    ChromeText,
    Chevron,
    RailSnippet,
    StatLabel,
    StatusText,
    RailFoot,
    DaySubText,
    SectionHead,
    Footnote,
    EmptyText,
    AgoText,
    Faint,
    GhostDay,
    Placeholder,
    BoxBorder,
    PillBg,
    PillText,
    RailTextActive,
    RailYear,
};

inline constexpr std::size_t kTokenCount = static_cast<std::size_t>(Token::RailYear) + 1;

// All colours of one palette.
struct ThemeTokens {
    std::array<SRGB, kTokenCount> colors;
    // The calendar's shades for 0, 1, 2, and 3 or more years.
    std::array<SRGB, 4> heatShades;

    [[nodiscard]] const SRGB& operator[](Token token) const {
        return colors[static_cast<std::size_t>(token)];
    }
};

// The token's name, "cardBgActive".
[[nodiscard]] QLatin1String tokenName(Token token);

// Computes all colours; a few microseconds.
[[nodiscard]] ThemeTokens tokenColors(Palette palette);

}  // namespace diary
