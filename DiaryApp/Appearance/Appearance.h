// Puts the chosen look in force for the whole application. Main thread only.
#pragma once

#include "DiaryApp/Settings/Settings.h"
#include "DiaryKit/Appearance/Palette.h"

namespace velmar::appearance {

// Once, before the first window: fonts, style, and a caret that Qt doesn't blink by itself (the
// editor does, and stops when nothing is typed). A second call does nothing.
void prepare();

// The palette by the settings and the system: DIARY_PALETTE goes before all if it names one.
[[nodiscard]] diary::Palette chosenPalette(const Settings& settings, bool systemIsDark);

// Puts the palette in force and repaints everything. True if it is another one than before.
bool apply(const Settings& settings);

// Whether the desktop asks for a dark look: as setSystemIsDark() was told last, and before that by
// the colours that the desktop gave at prepare().
[[nodiscard]] bool systemIsDark();

// What the desktop itself says. Counts from the next apply() on.
void setSystemIsDark(bool isDark);

// The time of one blink of a caret as the desktop has it, on and off, in milliseconds; 0 where
// carets don't blink. Known after prepare().
[[nodiscard]] int caretFlashTime();

}  // namespace velmar::appearance
