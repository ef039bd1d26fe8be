// The looks of buttons as tables: colours by kind and state, measures by size.
#pragma once

#include <QtGui/QColor>

namespace velmar {

enum class ButtonKind {
    // No box at rest: the bars' buttons.
    Quiet,
    // A box with a line.
    Plain,
    // The one that acts; at most one on a sheet.
    Filled,
    // Takes something away.
    Danger,
    // Words in a line of text.
    Link,
};

enum class ButtonSize {
    // 28 high, as the bars have them.
    Bar,
    // 28 high, with smaller corners and icon.
    Small,
    // 32 high.
    Regular,
    // 40 high, as wide as the sheet that it stands on.
    Sheet,
    // As high as a line of text.
    Line,
};

enum class ButtonState { Rest, Hover, Pressed, Disabled };

struct ButtonColors {
    QColor fill;
    // See-through where the kind has no line.
    QColor line;
    QColor text;
    QColor icon;
};

// Lengths in logical pixels.
struct ButtonMeasures {
    int height = 0;
    double fontSize = 0;
    double radius = 0;
    double iconSize = 0;
    // From the box's edge to the text, where no icon stands before it.
    double padding = 0;
};

// In the palette in force.
[[nodiscard]] ButtonColors buttonColors(ButtonKind kind, ButtonState state);

// 0 gives the colours of `from`, 1 those of `to`.
[[nodiscard]] ButtonColors mixed(const ButtonColors& from, const ButtonColors& to, double share);

[[nodiscard]] ButtonMeasures buttonMeasures(ButtonKind kind, ButtonSize size);

}  // namespace velmar
