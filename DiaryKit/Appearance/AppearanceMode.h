// Which of the two chosen palettes applies.
#pragma once

#include <optional>

#include "DiaryKit/Appearance/Palette.h"

namespace diary {

// Raw values are stored in the settings.
enum class AppearanceMode { light, dark, system };

namespace appearance_mode {

// The mode of a raw value such as "system"; case matters.
[[nodiscard]] std::optional<AppearanceMode> parse(QStringView raw);
[[nodiscard]] QString rawValue(AppearanceMode mode);

// The palette in force. The pair is taken as it is: a dark palette given as `light` is returned.
[[nodiscard]] Palette palette(AppearanceMode mode, Palette light, Palette dark, bool systemIsDark);

}  // namespace appearance_mode

}  // namespace diary
