// The first start's question: where the diary is to live. The sheet that asks it is elsewhere; here
// is when it is asked, and what an answer does.
#pragma once

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

enum class VaultChoice { cloud, local };

namespace onboarding {

// What decides whether the question is asked.
struct Circumstances {
    // There is a cloud drive, no diary anywhere, and nothing chosen yet.
    bool isNeeded = false;
    // DIARY_ROOT: the vault is given.
    bool hasForcedVault = false;
    // DIARY_SCREENSHOT: nobody is there to answer.
    bool isScripted = false;
    // DIARY_VIEW_ONBOARD: asked whatever else holds.
    bool isForced = false;

    bool operator==(const Circumstances&) const = default;
};

[[nodiscard]] bool isAsked(const Circumstances& circumstances);

// Those of now, from the settings, the environment and the disk.
[[nodiscard]] Circumstances circumstances(const Settings& settings);

// Makes the chosen folder, stores it as the vault, and never asks again. A folder that can't be
// made is stored all the same; the first save tells.
void choose(Settings& settings, VaultChoice choice);

}  // namespace onboarding

}  // namespace velmar
