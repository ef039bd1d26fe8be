#include "DiaryApp/Settings/VaultPlaces.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>

namespace velmar {

QString VaultPlaces::vaultURL() const {
    if (const auto forced = devVaultURL()) return *forced;
    if (const auto stored = m_settings.vaultPath()) return QDir::cleanPath(*stored);
    return defaultVaultURL();
}

std::optional<QString> VaultPlaces::devVaultURL() const {
    const auto root = m_settings.environment(QStringLiteral("DIARY_ROOT"));
    if (!root || root->isEmpty()) return std::nullopt;
    return QDir::cleanPath(QDir::current().absoluteFilePath(*root));
}

QString VaultPlaces::defaultVaultURL() const {
    QString local = localVaultURL();
    if (hasDiaryFiles(local)) return local;
    return QDir(iCloudDriveRoot()).exists() ? iCloudVaultURL() : local;
}

QString VaultPlaces::localVaultURL() const {
    return inHome(QStringLiteral("Documents/Diary"));
}

QString VaultPlaces::iCloudVaultURL() const {
    const QString container = containerVaultURL();
    for (const QString& place : {newICloudVaultURL(), legacyICloudVaultURL(), container}) {
        if (hasDiaryFiles(place)) return place;
    }
    return QDir(container).exists() ? container : newICloudVaultURL();
}

QString VaultPlaces::iCloudDriveRoot() const {
    return inHome(QStringLiteral("Library/Mobile Documents/com~apple~CloudDocs"));
}

QString VaultPlaces::newICloudVaultURL() const {
    return iCloudDriveRoot() + QStringLiteral("/Velmar");
}

QString VaultPlaces::legacyICloudVaultURL() const {
    return iCloudDriveRoot() + QStringLiteral("/Diary");
}

QString VaultPlaces::containerVaultURL() const {
    return inHome(QStringLiteral("Library/Mobile Documents/iCloud~com~thesk77~velmar/Documents"));
}

bool VaultPlaces::hasCloudPlace() const {
    return QDir(iCloudDriveRoot()).exists() || QDir(containerVaultURL()).exists();
}

bool VaultPlaces::needsOnboarding() const {
    if (m_settings.hasOnboarded() || m_settings.vaultPath()) return false;
    return QDir(iCloudDriveRoot()).exists() && !hasDiaryFiles(localVaultURL()) &&
           !hasDiaryFiles(iCloudVaultURL());
}

bool VaultPlaces::hasDiaryFiles(const QString& folder) {
    QDirIterator names(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (names.hasNext()) {
        const QString path = names.next();
        if (path.endsWith(QLatin1String(".md")) || path.endsWith(QLatin1String(".md.icloud"))) {
            return true;
        }
    }
    return false;
}

QString VaultPlaces::inHome(const QString& path) const {
    return m_settings.homeFolder() + QLatin1Char('/') + path;
}

}  // namespace velmar
