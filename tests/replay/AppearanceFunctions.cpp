// Palettes and tokens in their JSON shapes. Fractions are rounded to six decimals.
#include <QtCore/QJsonArray>
#include <cmath>

#include "DiaryKit/Appearance/AppearanceMode.h"
#include "DiaryKit/Appearance/Palette.h"
#include "DiaryKit/Appearance/ThemeTokens.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

double rounded(double value) {
    return std::round(value * 1e6) / 1e6;
}

double number(const QJsonObject& in, const char* key, double absent = 0) {
    return in[QLatin1String(key)].toDouble(absent);
}

Palette paletteOf(const QJsonObject& in, const char* key = "palette") {
    return palette::parse(in[QLatin1String(key)].toString()).value_or(Palette::paper);
}

QJsonArray json(const SRGB& color) {
    return {rounded(color.r), rounded(color.g), rounded(color.b)};
}

QJsonArray json(const PaletteTint& tint) {
    return {tint.c, tint.h};
}

QJsonObject json(const PaletteValue& value) {
    QJsonObject out{{QStringLiteral("srgb"), json(palette::srgb(value))}};
    if (const auto* hex = std::get_if<HexColor>(&value)) {
        out[QLatin1String("hex")] = QString::asprintf("%06X", hex->rgb);
    } else {
        const OKLCH& color = std::get<OKLCH>(value);
        out[QLatin1String("oklch")] =
            QJsonArray{rounded(color.l), rounded(color.c), rounded(color.h)};
    }
    return out;
}

QJsonValue parsed(const QJsonObject& in) {
    const auto found = palette::parse(in[QLatin1String("raw")].toString());
    if (!found) return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("isDark"), palette::isDark(*found)},
                       {QStringLiteral("index"), static_cast<int>(*found)}};
}

QJsonValue specOf(const QJsonObject& in) {
    const PaletteSpec& spec = palette::spec(paletteOf(in));
    QJsonArray heat;
    for (const PaletteValue& shade : spec.heat) heat.append(json(shade));
    return QJsonObject{{QStringLiteral("surface"), json(spec.surface)},
                       {QStringLiteral("ink"), json(spec.ink)},
                       {QStringLiteral("accent"), json(spec.accent)},
                       {QStringLiteral("accentSoft"), json(spec.accentSoft)},
                       {QStringLiteral("accentDeep"), json(spec.accentDeep)},
                       {QStringLiteral("selection"), json(spec.selection)},
                       {QStringLiteral("heat"), heat}};
}

QJsonValue tokensOf(const QJsonObject& in) {
    const ThemeTokens tokens = tokenColors(paletteOf(in));
    QJsonObject out;
    for (std::size_t i = 0; i < kTokenCount; ++i) {
        out[tokenName(static_cast<Token>(i))] = json(tokens.colors[i]);
    }
    QJsonArray heat;
    for (const SRGB& shade : tokens.heatShades) heat.append(json(shade));
    out[QLatin1String("heatShades")] = heat;
    return out;
}

QJsonValue modePalette(const QJsonObject& in) {
    const auto mode = appearance_mode::parse(in[QLatin1String("mode")].toString());
    return palette::rawValue(appearance_mode::palette(mode.value_or(AppearanceMode::light),
                                                      paletteOf(in, "light"), paletteOf(in, "dark"),
                                                      in[QLatin1String("systemIsDark")].toBool()));
}

}  // namespace

void addAppearanceFunctions(Table& table) {
    table[QStringLiteral("OKLCH.srgb")] = [](const QJsonObject& in) -> QJsonValue {
        return json(OKLCH::srgb(number(in, "l"), number(in, "c"), number(in, "h")));
    };
    table[QStringLiteral("Palette.parse")] = parsed;
    table[QStringLiteral("Palette.spec")] = specOf;
    table[QStringLiteral("Palette.surface")] = [](const QJsonObject& in) -> QJsonValue {
        return json(palette::surface(paletteOf(in), number(in, "light"), number(in, "dark"),
                                     number(in, "hue"), number(in, "chroma", 1)));
    };
    table[QStringLiteral("Palette.ink")] = [](const QJsonObject& in) -> QJsonValue {
        return json(palette::ink(paletteOf(in), number(in, "lightness"), number(in, "hue"),
                                 number(in, "chroma", 1)));
    };
    table[QStringLiteral("Palette.onPill")] = [](const QJsonObject& in) -> QJsonValue {
        return json(palette::onPill(paletteOf(in), number(in, "lightness")));
    };
    table[QStringLiteral("Theme.tokens")] = tokensOf;
    table[QStringLiteral("AppearanceMode.palette")] = modePalette;
}

}  // namespace diary::replay
