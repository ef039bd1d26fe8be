#include "DiaryApp/Settings/Onboarding.h"

#include <QtCore/QDir>

#include "DiaryApp/Settings/VaultPlaces.h"

namespace velmar::onboarding {

bool isAsked(const Circumstances& circumstances) {
    if (circumstances.isForced) return true;
    return circumstances.isNeeded && !circumstances.hasForcedVault && !circumstances.isScripted;
}

Circumstances circumstances(const Settings& settings) {
    const auto isSet = [&](const char* name) {
        return settings.environment(QLatin1String(name)).has_value();
    };
    const VaultPlaces places(settings);
    return {.isNeeded = places.needsOnboarding(),
            .hasForcedVault = places.devVaultURL().has_value(),
            .isScripted = isSet("DIARY_SCREENSHOT"),
            .isForced = isSet("DIARY_VIEW_ONBOARD")};
}

void choose(Settings& settings, VaultChoice choice) {
    const VaultPlaces places(settings);
    const QString folder =
        choice == VaultChoice::cloud ? places.iCloudVaultURL() : places.localVaultURL();
    QDir().mkpath(folder);
    settings.setVaultPath(folder);
    settings.setHasOnboarded(true);
}

}  // namespace velmar::onboarding
