// The colours in force. Views ask for a token at each paint and hold no colour of their own, so a
// change of palette shows with the next paint. Main thread only.
#pragma once

#include <QtGui/QColor>
#include <array>

#include "DiaryKit/Appearance/ThemeTokens.h"

namespace velmar {

using diary::Token;

// All colours of one palette. May be made for any palette, for instance for a swatch.
class Tokens {
public:
    explicit Tokens(diary::Palette palette);

    [[nodiscard]] const QColor& operator[](Token token) const {
        return m_colors[static_cast<std::size_t>(token)];
    }
    // For 0, 1, 2, and 3 or more years.
    [[nodiscard]] const std::array<QColor, 4>& heatShades() const { return m_heatShades; }
    [[nodiscard]] diary::Palette palette() const { return m_palette; }
    [[nodiscard]] bool isDark() const { return diary::palette::isDark(m_palette); }

private:
    diary::Palette m_palette;
    std::array<QColor, diary::kTokenCount> m_colors;
    std::array<QColor, 4> m_heatShades;
};

namespace theme {

// The colours in force; those of "paper" before the first setPalette().
[[nodiscard]] const Tokens& tokens();
[[nodiscard]] const QColor& color(Token token);
// The colour with this opacity, 0 to 1.
[[nodiscard]] QColor color(Token token, double opacity);

// Between the two colours: 0 is `from`, 1 is `to`.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, double share);

// The veil over a window behind a sheet.
[[nodiscard]] QColor veil();
// Full transparency.
[[nodiscard]] QColor none();

// Puts the palette in force. Whoever calls this repaints; see appearance::apply().
void setPalette(diary::Palette palette);

}  // namespace theme

}  // namespace velmar
