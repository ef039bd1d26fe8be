// Colours as lightness, chroma and hue, the space in which every colour of the interface is
// derived, and their way to sRGB.
#pragma once

namespace diary {

// An opaque sRGB colour; each channel is gamma-encoded and in 0 to 1.
struct SRGB {
    double r = 0;
    double g = 0;
    double b = 0;

    bool operator==(const SRGB&) const = default;
};

// A colour in OKLCH: lightness 0 to 1, chroma from 0, hue in degrees (any multiple of a turn).
struct OKLCH {
    double l = 0;
    double c = 0;
    double h = 0;

    bool operator==(const OKLCH&) const = default;

    // The colour in sRGB. What lies outside sRGB is clipped channel by channel; there is no gamut
    // mapping. srgb(1, 0, 0) is white and srgb(0, 0, 0) black, up to rounding of doubles.
    [[nodiscard]] static SRGB srgb(double l, double c, double h);
};

}  // namespace diary
