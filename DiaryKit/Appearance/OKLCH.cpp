#include "DiaryKit/Appearance/OKLCH.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace diary {

namespace {

double cubed(double x) {
    return x * x * x;
}

// The transfer function of sRGB, from linear light.
double gammaEncoded(double linear) {
    const double x = std::clamp(linear, 0.0, 1.0);
    return x <= 0.0031308 ? 12.92 * x : 1.055 * std::pow(x, 1.0 / 2.4) - 0.055;
}

}  // namespace

SRGB OKLCH::srgb(double l, double c, double h) {
    const double angle = h * std::numbers::pi / 180;
    const double a = c * std::cos(angle);
    const double b = c * std::sin(angle);

    const double longCone = cubed(l + 0.3963377774 * a + 0.2158037573 * b);
    const double mediumCone = cubed(l - 0.1055613458 * a - 0.0638541728 * b);
    const double shortCone = cubed(l - 0.0894841775 * a - 1.2914855480 * b);

    return {
        gammaEncoded(4.0767416621 * longCone - 3.3077115913 * mediumCone +
                     0.2309699292 * shortCone),
        gammaEncoded(-1.2684380046 * longCone + 2.6097574011 * mediumCone -
                     0.3413193965 * shortCone),
        gammaEncoded(-0.0041960863 * longCone - 0.7034186147 * mediumCone +
                     1.7076147010 * shortCone),
    };
}

}  // namespace diary
