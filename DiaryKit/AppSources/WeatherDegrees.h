// Temperatures as exports write them, for display.
#pragma once

#include <QtCore/QString>
#include <optional>

namespace diary {

// 21.5 -> "22°", halves away from zero; nothing for what is no finite number.
[[nodiscard]] std::optional<QString> weatherDegrees(std::optional<double> celsius);

}  // namespace diary
