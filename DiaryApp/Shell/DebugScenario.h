// The scripted run that DIARY_SCREENSHOT turns on: it brings the window into the state that the
// other variables ask for, waits, writes the window's picture as a PNG, and ends the application.
#pragma once

#include <functional>

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

class MainWindowController;

namespace debugscenario {

// Whether this is a scripted run.
[[nodiscard]] bool isRequested(const Settings& settings);

// Applies DIARY_VIEW_DAY, DIARY_VIEW_YEAR, DIARY_TYPE_TEXT and DIARY_EDITOR_SCRIPT in this order,
// writes the editor's text to DIARY_EDITOR_OUT once its script has run, waits
// DIARY_SCREENSHOT_DELAY seconds (0.5 if unset), writes the picture, and calls `finish` with the
// exit code: 1 if the picture can't be written. Returns at once.
void run(const Settings& settings, MainWindowController& controller,
         std::function<void(int)> finish);

}  // namespace debugscenario

}  // namespace velmar
