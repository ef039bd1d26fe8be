// Where the vault is: the folder in force, and the folders that a first start considers. Each call
// looks at the disk afresh. All answers are absolute paths without a slash at the end.
#pragma once

#include <QtCore/QString>
#include <optional>

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

class VaultPlaces {
public:
    explicit VaultPlaces(const Settings& settings) : m_settings(settings) {}

    // The folder in force: DIARY_ROOT, else the stored one, else the default place.
    [[nodiscard]] QString vaultURL() const;

    // DIARY_ROOT, if it is set and not empty.
    [[nodiscard]] std::optional<QString> devVaultURL() const;

    // Documents/Diary if it holds diary files, else the cloud's folder if there is a cloud drive,
    // else Documents/Diary.
    [[nodiscard]] QString defaultVaultURL() const;

    // Documents/Diary in the home folder, literally, whatever the desktop calls its documents.
    [[nodiscard]] QString localVaultURL() const;

    // The first cloud place with diary files; without any, the container if it exists, else Velmar
    // in the cloud drive.
    [[nodiscard]] QString iCloudVaultURL() const;

    [[nodiscard]] QString iCloudDriveRoot() const;
    [[nodiscard]] QString newICloudVaultURL() const;
    [[nodiscard]] QString legacyICloudVaultURL() const;
    [[nodiscard]] QString containerVaultURL() const;

    // Whether there is a cloud folder to offer: the drive's, or the application's own.
    [[nodiscard]] bool hasCloudPlace() const;

    // Whether the user has to be asked for a place. Never true for someone with a diary.
    [[nodiscard]] bool needsOnboarding() const;

    // Whether any name in the folder ends in ".md" or ".md.icloud". A folder that can't be listed
    // has none.
    [[nodiscard]] static bool hasDiaryFiles(const QString& folder);

private:
    [[nodiscard]] QString inHome(const QString& path) const;

    const Settings& m_settings;
};

}  // namespace velmar
