// The scripted run that DIARY_SCREENSHOT turns on: it brings the windows into the state that the
// other variables ask for, waits, writes their pictures as PNGs, and ends the application.
#pragma once

#include <functional>

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

class AppDelegate;

namespace debugscenario {

// Whether this is a scripted run.
[[nodiscard]] bool isRequested(const Settings& settings);

// Applies in this order, as far as they are set: DIARY_VIEW_DAY, DIARY_VIEW_YEAR, DIARY_VIEW_ALL,
// DIARY_VIEW_SOURCE, DIARY_VIEW_SETTINGS, DIARY_VIEW_SEARCH, DIARY_FULLSCREEN, DIARY_VIEW_YEARCAL,
// DIARY_SWITCH_PALETTE, DIARY_TYPE_TEXT and DIARY_EDITOR_SCRIPT, whose text goes to
// DIARY_EDITOR_OUT. Then it waits DIARY_SCREENSHOT_DELAY seconds (0.5 if unset), writes the picture
// of the key window, and that of the settings with the suffix ".settings.png" if they are open, and
// calls `finish` with the exit code: 1 if a picture can't be written. Returns at once.
void run(Settings& settings, AppDelegate& application, std::function<void(int)> finish);

}  // namespace debugscenario

}  // namespace velmar
