// Soft shadows, for what floats and passes: sheets, popovers, bars over the page.
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainter>

namespace velmar {

// Lengths in logical pixels; opacity from 0 to 1, which dark palettes overrule.
struct Elevation {
    double offset = 0;
    double blur = 0;
    double opacity = 0;
};

namespace elevation {
inline constexpr Elevation kMatchPill = {6, 18, 0.18};
inline constexpr Elevation kUndoBar = {10, 28, 0.22};
inline constexpr Elevation kPopover = {12, 34, 0.18};
inline constexpr Elevation kSheet = {18, 48, 0.22};
}  // namespace elevation

// Paints the shadow of a box; the box itself comes on top afterwards. Painted from a cache, so a
// box that changes its size with every frame is better off without.
void paintShadow(QPainter& painter, const QRectF& box, const Elevation& elevation);

}  // namespace velmar
