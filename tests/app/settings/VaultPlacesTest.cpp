#include "DiaryApp/Settings/VaultPlaces.h"

#include "SettingsFixture.h"

namespace velmar {
namespace {

class VaultPlacesTest : public test::SettingsFixture {
protected:
    [[nodiscard]] QString inHome(const char* path) const {
        return home() + QLatin1Char('/') + QString::fromUtf8(path);
    }

    void makeCloudDrive() const {
        QDir().mkpath(inHome("Library/Mobile Documents/com~apple~CloudDocs"));
    }
};

constexpr const char* kVelmar = "Library/Mobile Documents/com~apple~CloudDocs/Velmar";
constexpr const char* kDiary = "Library/Mobile Documents/com~apple~CloudDocs/Diary";
constexpr const char* kContainer = "Library/Mobile Documents/iCloud~com~thesk77~velmar/Documents";

TEST_F(VaultPlacesTest, DefaultsToDocumentsDiary) {
    const Settings fresh = settings();
    EXPECT_EQ(VaultPlaces(fresh).vaultURL(), inHome("Documents/Diary"));
    EXPECT_FALSE(VaultPlaces(fresh).needsOnboarding());
}

TEST_F(VaultPlacesTest, TheEnvironmentStandsAboveTheStoredPathAndThatAboveTheDefault) {
    Settings chosen = settings();
    chosen.setVaultPath(QStringLiteral("/somewhere/else/"));
    EXPECT_EQ(VaultPlaces(chosen).vaultURL(), QStringLiteral("/somewhere/else"));
    set(QStringLiteral("DIARY_ROOT"), QStringLiteral("/forced"));
    const Settings forced = settings();
    EXPECT_EQ(VaultPlaces(forced).vaultURL(), QStringLiteral("/forced"));
    set(QStringLiteral("DIARY_ROOT"), QString());
    const Settings empty = settings();
    EXPECT_FALSE(VaultPlaces(empty).devVaultURL());
}

TEST_F(VaultPlacesTest, ALocalDiaryGoesBeforeTheCloud) {
    makeCloudDrive();
    touch(inHome(kVelmar) + QStringLiteral("/01-01.md"));
    const Settings fresh = settings();
    EXPECT_EQ(VaultPlaces(fresh).defaultVaultURL(), inHome(kVelmar));
    touch(inHome("Documents/Diary/01-01.md"));
    EXPECT_EQ(VaultPlaces(fresh).defaultVaultURL(), inHome("Documents/Diary"));
}

TEST_F(VaultPlacesTest, TheFirstCloudPlaceWithADiaryIsTaken) {
    makeCloudDrive();
    const Settings fresh = settings();
    const VaultPlaces places(fresh);
    EXPECT_EQ(places.iCloudVaultURL(), inHome(kVelmar));
    QDir().mkpath(inHome(kContainer));
    EXPECT_EQ(places.iCloudVaultURL(), inHome(kContainer));
    touch(inHome(kContainer) + QStringLiteral("/01-01.md"));
    EXPECT_EQ(places.iCloudVaultURL(), inHome(kContainer));
    touch(inHome(kDiary) + QStringLiteral("/.01-01.md.icloud"));
    EXPECT_EQ(places.iCloudVaultURL(), inHome(kDiary));
    touch(inHome(kVelmar) + QStringLiteral("/02-02.md"));
    EXPECT_EQ(places.iCloudVaultURL(), inHome(kVelmar));
}

TEST_F(VaultPlacesTest, AsksOnlyWhereThereIsACloudDriveAndNoDiary) {
    const Settings fresh = settings();
    const VaultPlaces places(fresh);
    EXPECT_FALSE(places.needsOnboarding());
    makeCloudDrive();
    EXPECT_TRUE(places.needsOnboarding());
    touch(inHome(kDiary) + QStringLiteral("/01-01.md"));
    EXPECT_FALSE(places.needsOnboarding());
}

TEST_F(VaultPlacesTest, OffersTheCloudOnlyWhereThereIsOne) {
    const Settings fresh = settings();
    EXPECT_FALSE(VaultPlaces(fresh).hasCloudPlace());
    QDir().mkpath(inHome(kContainer));
    EXPECT_TRUE(VaultPlaces(fresh).hasCloudPlace());
    QDir(home()).rmdir(QString::fromUtf8(kContainer));
    EXPECT_FALSE(VaultPlaces(fresh).hasCloudPlace());
    makeCloudDrive();
    EXPECT_TRUE(VaultPlaces(fresh).hasCloudPlace());
}

TEST_F(VaultPlacesTest, NeverAsksAfterAChoice) {
    makeCloudDrive();
    Settings chosen = settings();
    EXPECT_TRUE(VaultPlaces(chosen).needsOnboarding());
    chosen.setVaultPath(QStringLiteral("/vault"));
    EXPECT_FALSE(VaultPlaces(chosen).needsOnboarding());
    chosen.setVaultPath(std::nullopt);
    chosen.setHasOnboarded(true);
    EXPECT_FALSE(VaultPlaces(chosen).needsOnboarding());
}

TEST_F(VaultPlacesTest, DiaryFilesAreToldByTheirEndings) {
    EXPECT_FALSE(VaultPlaces::hasDiaryFiles(inHome("not there")));
    touch(inHome("a/notes.txt"));
    touch(inHome("a/.md.swp"));
    EXPECT_FALSE(VaultPlaces::hasDiaryFiles(inHome("a")));
    touch(inHome("a/.03-07.md.icloud"));
    EXPECT_TRUE(VaultPlaces::hasDiaryFiles(inHome("a")));
    touch(inHome("b/readme.md"));
    EXPECT_TRUE(VaultPlaces::hasDiaryFiles(inHome("b")));
}

}  // namespace
}  // namespace velmar
