#include "DiaryApp/Appearance/Theme.h"

#include <algorithm>

namespace velmar {

namespace {

// Eight bits a channel, rounded to the nearest, as screens show it.
QColor fromSRGB(const diary::SRGB& color) {
    return {qRound(color.r * 255), qRound(color.g * 255), qRound(color.b * 255)};
}

Tokens& current() {
    static Tokens tokens(diary::Palette::paper);
    return tokens;
}

}  // namespace

Tokens::Tokens(diary::Palette palette) : m_palette(palette) {
    const diary::ThemeTokens tokens = diary::tokenColors(palette);
    std::ranges::transform(tokens.colors, m_colors.begin(), fromSRGB);
    std::ranges::transform(tokens.heatShades, m_heatShades.begin(), fromSRGB);
}

namespace theme {

const Tokens& tokens() {
    return current();
}

const QColor& color(Token token) {
    return current()[token];
}

QColor color(Token token, double opacity) {
    QColor result = current()[token];
    result.setAlphaF(static_cast<float>(opacity));
    return result;
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float a, float b) {
        return a + (b - a) * static_cast<float>(std::clamp(share, 0.0, 1.0));
    };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

QColor veil() {
    if (!tokens().isDark()) return color(Token::InkStrong, 0.22);
    return QColor::fromRgbF(0, 0, 0, 0.5F);
}

QColor none() {
    return QColor(Qt::transparent);
}

void setPalette(diary::Palette palette) {
    current() = Tokens(palette);
}

}  // namespace theme

}  // namespace velmar
