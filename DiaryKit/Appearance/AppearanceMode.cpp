#include "DiaryKit/Appearance/AppearanceMode.h"

#include <array>

namespace diary::appearance_mode {

namespace {

constexpr std::array<std::pair<AppearanceMode, QLatin1String>, 3> kRawValues = {
    {{AppearanceMode::light, QLatin1String("light")},
     {AppearanceMode::dark, QLatin1String("dark")},
     {AppearanceMode::system, QLatin1String("system")}}};

}  // namespace

std::optional<AppearanceMode> parse(QStringView raw) {
    for (const auto& [mode, name] : kRawValues) {
        if (name == raw) return mode;
    }
    return std::nullopt;
}

QString rawValue(AppearanceMode mode) {
    return kRawValues[static_cast<std::size_t>(mode)].second;
}

Palette palette(AppearanceMode mode, Palette light, Palette dark, bool systemIsDark) {
    const bool takesDark =
        mode == AppearanceMode::dark || (mode == AppearanceMode::system && systemIsDark);
    return takesDark ? dark : light;
}

}  // namespace diary::appearance_mode
