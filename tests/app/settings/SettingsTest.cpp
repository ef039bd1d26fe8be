#include "DiaryApp/Settings/Settings.h"

#include <gmock/gmock.h>

#include "SettingsFixture.h"

namespace velmar {
namespace {

using diary::AppearanceMode;
using diary::Palette;
using testing::ElementsAre;

class SettingsTest : public test::SettingsFixture {};

TEST_F(SettingsTest, HasDefaultsWhereNothingIsStored) {
    const Settings fresh = settings();
    EXPECT_FALSE(fresh.vaultPath());
    EXPECT_FALSE(fresh.hasOnboarded());
    EXPECT_EQ(fresh.appearanceMode(), AppearanceMode::light);
    EXPECT_EQ(fresh.lightPalette(), Palette::paper);
    EXPECT_EQ(fresh.darkPalette(), Palette::ink);
    EXPECT_FALSE(fresh.bodyFontFamily());
    EXPECT_EQ(fresh.editorFontSize(), 16.5);
    EXPECT_TRUE(fresh.showGapYears());
    EXPECT_TRUE(fresh.showPhotos());
    EXPECT_EQ(fresh.photoStyle(), PhotoStyle::mosaic);
    EXPECT_TRUE(fresh.autoUpdate());
    EXPECT_FALSE(fresh.lastUpdateCheck());
    EXPECT_FALSE(fresh.lastLaunchedVersion());
    EXPECT_FALSE(fresh.languageOverride());
    EXPECT_TRUE(fresh.recentSearches().isEmpty());
    EXPECT_FALSE(fresh.ranBefore());
}

TEST_F(SettingsTest, KeepsWhatWasSet) {
    const QDateTime moment(QDate(2026, 11, 21), QTime(8, 15), Qt::UTC);
    {
        Settings first = settings();
        first.setVaultPath(QStringLiteral("/vault"));
        first.setHasOnboarded(true);
        first.setAppearanceMode(AppearanceMode::system);
        first.setLightPalette(Palette::celadon);
        first.setDarkPalette(Palette::indigo);
        first.setBodyFontFamily(QStringLiteral("Georgia"));
        first.setEditorFontSize(18);
        first.setShowGapYears(false);
        first.setShowPhotos(false);
        first.setPhotoStyle(PhotoStyle::timeline);
        first.setAutoUpdate(false);
        first.setLastUpdateCheck(moment);
        first.setLastLaunchedVersion(QStringLiteral("0.1.0"));
        first.setLanguageOverride(QStringLiteral("ja"));
    }
    const Settings second = settings();
    EXPECT_EQ(second.vaultPath(), QStringLiteral("/vault"));
    EXPECT_TRUE(second.hasOnboarded());
    EXPECT_EQ(second.appearanceMode(), AppearanceMode::system);
    EXPECT_EQ(second.lightPalette(), Palette::celadon);
    EXPECT_EQ(second.darkPalette(), Palette::indigo);
    EXPECT_EQ(second.bodyFontFamily(), QStringLiteral("Georgia"));
    EXPECT_EQ(second.editorFontSize(), 18);
    EXPECT_FALSE(second.showGapYears());
    EXPECT_FALSE(second.showPhotos());
    EXPECT_EQ(second.photoStyle(), PhotoStyle::timeline);
    EXPECT_FALSE(second.autoUpdate());
    EXPECT_EQ(second.lastUpdateCheck(), moment);
    EXPECT_EQ(second.lastLaunchedVersion(), QStringLiteral("0.1.0"));
    EXPECT_EQ(second.languageOverride(), QStringLiteral("ja"));
}

TEST_F(SettingsTest, TakesNoPaletteOfTheOtherSide) {
    store(QStringLiteral("lightPalette"), QStringLiteral("ink"));
    store(QStringLiteral("darkPalette"), QStringLiteral("paper"));
    EXPECT_EQ(settings().lightPalette(), Palette::paper);
    EXPECT_EQ(settings().darkPalette(), Palette::ink);
}

TEST_F(SettingsTest, UnknownRawValuesReadAsDefaults) {
    for (const char* key :
         {"appearanceMode", "lightPalette", "darkPalette", "photoStyle", "editorFontSize"}) {
        store(QString::fromLatin1(key), QStringLiteral("sepia"));
    }
    EXPECT_EQ(settings().appearanceMode(), AppearanceMode::light);
    EXPECT_EQ(settings().lightPalette(), Palette::paper);
    EXPECT_EQ(settings().darkPalette(), Palette::ink);
    EXPECT_EQ(settings().photoStyle(), PhotoStyle::mosaic);
    EXPECT_EQ(settings().editorFontSize(), 16.5);
}

TEST_F(SettingsTest, TheEnvironmentsPhotoStyleGoesFirstEvenIfUnknown) {
    store(QStringLiteral("photoStyle"), QStringLiteral("strip"));
    EXPECT_EQ(settings().photoStyle(), PhotoStyle::strip);
    set(QStringLiteral("DIARY_PHOTO_STYLE"), QStringLiteral("timeline"));
    EXPECT_EQ(settings().photoStyle(), PhotoStyle::timeline);
    set(QStringLiteral("DIARY_PHOTO_STYLE"), QStringLiteral("carousel"));
    EXPECT_EQ(settings().photoStyle(), PhotoStyle::mosaic);
}

TEST_F(SettingsTest, SettingNothingRemovesTheLanguage) {
    Settings chosen = settings();
    chosen.setLanguageOverride(QStringLiteral("ja"));
    chosen.setLanguageOverride(std::nullopt);
    EXPECT_FALSE(chosen.languageOverride());
    EXPECT_FALSE(settings().languageOverride());
}

TEST_F(SettingsTest, AnyTraceOfUseCountsAsRanBefore) {
    Settings onboarded = settings();
    onboarded.setHasOnboarded(true);
    EXPECT_TRUE(onboarded.ranBefore());
    onboarded.setHasOnboarded(false);
    EXPECT_FALSE(onboarded.ranBefore());
    onboarded.setVaultPath(QStringLiteral("/vault"));
    EXPECT_TRUE(onboarded.ranBefore());
    onboarded.setVaultPath(std::nullopt);
    EXPECT_FALSE(onboarded.ranBefore());
    onboarded.setLastUpdateCheck(QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_TRUE(onboarded.ranBefore());
}

TEST_F(SettingsTest, RemembersTheLastFiveSearches) {
    Settings searching = settings();
    for (const char* query : {"one", "two", "three", " two ", "", "  \t", "four", "five", "six"}) {
        searching.rememberSearch(QString::fromLatin1(query));
    }
    EXPECT_THAT(searching.recentSearches(),
                ElementsAre(QStringLiteral("six"), QStringLiteral("five"), QStringLiteral("four"),
                            QStringLiteral("two"), QStringLiteral("three")));
}

TEST_F(SettingsTest, OffersTheInstalledBodyFontsInTheMenusOrder) {
    EXPECT_THAT(
        Settings::availableBodyFonts({QStringLiteral("Georgia"), QStringLiteral("Arial"),
                                      QStringLiteral("Songti SC"), QStringLiteral("LXGW WenKai")}),
        ElementsAre(QStringLiteral("Songti SC"), QStringLiteral("LXGW WenKai"),
                    QStringLiteral("Georgia")));
    EXPECT_TRUE(Settings::availableBodyFonts({}).isEmpty());
}

}  // namespace
}  // namespace velmar
