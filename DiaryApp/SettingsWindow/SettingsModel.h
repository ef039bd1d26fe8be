// What the settings window shows, computed from the settings and what is around them. Texts are in
// the language that is installed.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Settings/Settings.h"
#include "DiaryKit/Appearance/Palette.h"

namespace velmar {

struct HiddenPhotosStatus {
    int count = 0;
    // Whether the list of hidden photos lies in a folder that the cloud keeps in step.
    bool isSynced = false;

    bool operator==(const HiddenPhotosStatus&) const = default;
};

struct UpdateStatus {
    enum class State { Unsupported, Idle, Checking, UpToDate, Downloading, Ready, Failed };

    State state = State::Unsupported;
    // The version in use for UpToDate, the new one for Downloading and Ready; else unused.
    QString version;

    bool operator==(const UpdateStatus&) const = default;
};

// What the settings themselves don't hold.
struct SettingsFacts {
    QStringList installedFamilies;
    bool systemIsDark = false;
    Language effectiveLanguage = Language::en;
    HiddenPhotosStatus hiddenPhotos;
    UpdateStatus update;
    // In local time.
    QDateTime now;
};

struct SettingsModel {
    struct Swatch {
        diary::Palette palette = diary::Palette::paper;
        // The palette of its set, light or dark.
        bool isChosen = false;
        // Its set is what shows under the present mode.
        bool isInForce = false;

        bool operator==(const Swatch&) const = default;
    };

    diary::AppearanceMode mode = diary::AppearanceMode::light;
    // All palettes in their order, the light ones first.
    std::vector<Swatch> swatches;

    // The first stands for the default.
    QStringList fonts;
    int font = 0;
    // The family that the diary is set in now.
    QString bodyFamily;
    double fontSize = 0;
    bool showGapYears = true;

    PhotoStyle photoStyle = PhotoStyle::mosaic;
    bool showPhotos = true;
    QString hiddenPhotos;
    int hiddenPhotoCount = 0;

    QString vaultPath;
    // The same with the home folder as "~".
    QString shownVaultPath;
    bool hasCloudPlace = false;
    // A folder is stored that could be forgotten.
    bool hasChosenVault = false;

    // The first stands for the system's.
    QStringList languages;
    int language = 0;
    QString effectiveLanguage;

    bool autoUpdate = true;
    bool canUpdate = false;
    bool isUpdating = false;
    QString updateStatus;

    bool operator==(const SettingsModel&) const = default;
};

[[nodiscard]] SettingsModel settingsModel(const Settings& settings, const SettingsFacts& facts);

// The font to store for an entry of the model's fonts; absent for the default.
[[nodiscard]] std::optional<QString> fontAt(const SettingsModel& model, int index);

// The language to store for an entry of the model's languages; absent for the system's.
[[nodiscard]] std::optional<QString> languageAt(int index);

// "/home/ada/Documents/Diary" in the home "/home/ada" -> "~/Documents/Diary". Only whole folders
// count: "/home/adam" stays.
[[nodiscard]] QString abbreviatedPath(const QString& path, const QString& homeFolder);

}  // namespace velmar
