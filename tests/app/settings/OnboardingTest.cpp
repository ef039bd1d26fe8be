#include "DiaryApp/Settings/Onboarding.h"

#include "DiaryApp/Settings/VaultPlaces.h"
#include "SettingsFixture.h"

namespace velmar {
namespace {

using onboarding::Circumstances;

class OnboardingTest : public test::SettingsFixture {
protected:
    void makeCloudDrive() const {
        QDir().mkpath(home() + QStringLiteral("/Library/Mobile Documents/com~apple~CloudDocs"));
    }
    [[nodiscard]] bool isAsked() const {
        const Settings now = settings();
        return onboarding::isAsked(onboarding::circumstances(now));
    }
};

TEST(OnboardingRule, AsksWhereItIsNeededUnlessTheRunIsADevelopersOwn) {
    EXPECT_TRUE(onboarding::isAsked({.isNeeded = true}));
    EXPECT_FALSE(onboarding::isAsked({}));
    EXPECT_FALSE(onboarding::isAsked({.isNeeded = true, .hasForcedVault = true}));
    EXPECT_FALSE(onboarding::isAsked({.isNeeded = true, .isScripted = true}));
}

TEST(OnboardingRule, AForcedQuestionIsAskedWhateverElseHolds) {
    EXPECT_TRUE(onboarding::isAsked({.isForced = true}));
    EXPECT_TRUE(
        onboarding::isAsked({.hasForcedVault = true, .isScripted = true, .isForced = true}));
}

TEST_F(OnboardingTest, TheEnvironmentDecidesByItsPresence) {
    EXPECT_FALSE(isAsked());
    makeCloudDrive();
    EXPECT_TRUE(isAsked());
    set(QStringLiteral("DIARY_SCREENSHOT"), QString());
    EXPECT_FALSE(isAsked());
    set(QStringLiteral("DIARY_VIEW_ONBOARD"), QString());
    EXPECT_TRUE(isAsked());
    set(QStringLiteral("DIARY_ROOT"), QStringLiteral("/vault"));
    EXPECT_TRUE(isAsked());
}

TEST_F(OnboardingTest, AGivenVaultIsAnAnswer) {
    makeCloudDrive();
    set(QStringLiteral("DIARY_ROOT"), QStringLiteral("/vault"));
    EXPECT_FALSE(isAsked());
}

TEST_F(OnboardingTest, AnAnswerMakesTheFolderAndIsRemembered) {
    makeCloudDrive();
    Settings now = settings();
    const QString cloud = VaultPlaces(now).newICloudVaultURL();
    onboarding::choose(now, VaultChoice::cloud);
    EXPECT_TRUE(QDir(cloud).exists());
    EXPECT_EQ(now.vaultPath(), cloud);
    EXPECT_TRUE(now.hasOnboarded());
    EXPECT_FALSE(isAsked());

    onboarding::choose(now, VaultChoice::local);
    EXPECT_EQ(now.vaultPath(), home() + QStringLiteral("/Documents/Diary"));
    EXPECT_TRUE(QDir(home() + QStringLiteral("/Documents/Diary")).exists());
}

TEST_F(OnboardingTest, AFolderThatCannotBeMadeIsStoredAllTheSame) {
    touch(home() + QStringLiteral("/Documents"));
    Settings now = settings();
    onboarding::choose(now, VaultChoice::local);
    EXPECT_EQ(now.vaultPath(), home() + QStringLiteral("/Documents/Diary"));
    EXPECT_TRUE(now.hasOnboarded());
    EXPECT_FALSE(QDir(*now.vaultPath()).exists());
}

}  // namespace
}  // namespace velmar
