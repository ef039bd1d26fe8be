#include "DiaryKit/AppSources/WeatherDegrees.h"

#include <cmath>

namespace diary {

std::optional<QString> weatherDegrees(std::optional<double> celsius) {
    if (!celsius || !std::isfinite(*celsius)) return std::nullopt;
    // Adding 0 takes the sign off a zero.
    return QString::number(std::round(*celsius) + 0.0, 'f', 0) + u'°';
}

}  // namespace diary
