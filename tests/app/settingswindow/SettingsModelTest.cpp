#include "DiaryApp/SettingsWindow/SettingsModel.h"

#include "SettingsWindowFixture.h"

namespace velmar {
namespace {

using diary::AppearanceMode;
using diary::Palette;

class SettingsModelTest : public test::SettingsWindowFixture {
protected:
    [[nodiscard]] SettingsModel model(const Settings& of) const {
        return settingsModel(of, {.installedFamilies = families,
                                  .systemIsDark = systemIsDark,
                                  .hiddenPhotos = hidden,
                                  .update = update,
                                  .now = test::moment(12, 0)});
    }
    [[nodiscard]] QList<Palette> inForce(const Settings& of) const {
        QList<Palette> palettes;
        for (const auto& each : model(of).swatches) {
            if (each.isInForce) palettes += each.palette;
        }
        return palettes;
    }

    UpdateStatus update;
};

TEST_F(SettingsModelTest, OnePaletteOfEachSetIsChosen) {
    Settings chosen = settings();
    chosen.setLightPalette(Palette::celadon);
    QList<Palette> palettes;
    for (const auto& each : model(chosen).swatches) {
        if (each.isChosen) palettes += each.palette;
    }
    EXPECT_EQ(palettes, QList<Palette>({Palette::celadon, Palette::ink}));
    EXPECT_EQ(model(chosen).swatches.size(), 6);
}

TEST_F(SettingsModelTest, TheSetInForceFollowsTheMode) {
    const QList<Palette> light = {Palette::paper, Palette::plain, Palette::osmanthus,
                                  Palette::celadon};
    const QList<Palette> dark = {Palette::ink, Palette::indigo};
    Settings chosen = settings();
    systemIsDark = true;
    EXPECT_EQ(inForce(chosen), light);
    chosen.setAppearanceMode(AppearanceMode::dark);
    EXPECT_EQ(inForce(chosen), dark);
    chosen.setAppearanceMode(AppearanceMode::system);
    EXPECT_EQ(inForce(chosen), dark);
    systemIsDark = false;
    EXPECT_EQ(inForce(chosen), light);
}

TEST_F(SettingsModelTest, PalettesOfTheWrongSetReadAsTheDefaults) {
    store(QStringLiteral("lightPalette"), QStringLiteral("ink"));
    store(QStringLiteral("darkPalette"), QStringLiteral("paper"));
    const SettingsModel made = model(settings());
    EXPECT_TRUE(made.swatches[0].isChosen);
    EXPECT_TRUE(made.swatches[4].isChosen);
    EXPECT_EQ(std::ranges::count_if(made.swatches, &SettingsModel::Swatch::isChosen), 2);
}

TEST_F(SettingsModelTest, FontsAreTheInstalledOnesInTheMenusOrderBehindTheDefault) {
    Settings chosen = settings();
    EXPECT_EQ(model(chosen).fonts,
              QStringList({QStringLiteral("Default (Source Serif 4)"), QStringLiteral("Charter"),
                           QStringLiteral("Georgia")}));
    EXPECT_EQ(model(chosen).font, 0);
    chosen.setBodyFontFamily(QStringLiteral("Georgia"));
    EXPECT_EQ(model(chosen).font, 2);
    EXPECT_EQ(model(chosen).bodyFamily, QStringLiteral("Georgia"));
    EXPECT_EQ(fontAt(model(chosen), 1), QStringLiteral("Charter"));
    EXPECT_EQ(fontAt(model(chosen), 0), std::nullopt);
    EXPECT_EQ(fontAt(model(chosen), 3), std::nullopt);
}

TEST_F(SettingsModelTest, TheDefaultIsNamedAfterWhatItStandsFor) {
    families += QStringLiteral("Songti SC");
    EXPECT_EQ(model(settings()).fonts.first(), QStringLiteral("Default (Songti SC)"));
    EXPECT_EQ(model(settings()).bodyFamily, QStringLiteral("Songti SC"));
}

TEST_F(SettingsModelTest, AStoredFontShowsWhileItIsInstalledAndElseTheDefault) {
    Settings chosen = settings();
    chosen.setBodyFontFamily(QStringLiteral("IBM Plex Mono"));
    EXPECT_EQ(model(chosen).fonts.last(), QStringLiteral("IBM Plex Mono"));
    EXPECT_EQ(model(chosen).font, 3);
    chosen.setBodyFontFamily(QStringLiteral("Kaiti SC"));
    EXPECT_EQ(model(chosen).font, 0);
    EXPECT_EQ(model(chosen).bodyFamily, QStringLiteral("Source Serif 4"));
    EXPECT_EQ(model(chosen).fonts.size(), 3);
}

TEST_F(SettingsModelTest, CountsHiddenPhotosAndTellsWhetherTheyTravel) {
    const Settings fresh = settings();
    EXPECT_EQ(model(fresh).hiddenPhotos, QStringLiteral("No photos hidden"));
    hidden = {1, false};
    EXPECT_EQ(model(fresh).hiddenPhotos, QStringLiteral("1 photo hidden"));
    hidden = {3, true};
    EXPECT_EQ(model(fresh).hiddenPhotos,
              QStringLiteral("3 photos hidden · kept in step through the diary folder"));
    EXPECT_EQ(model(fresh).hiddenPhotoCount, 3);
}

TEST_F(SettingsModelTest, APhotoStyleOfTheEnvironmentGoesFirst) {
    Settings chosen = settings();
    chosen.setPhotoStyle(PhotoStyle::strip);
    EXPECT_EQ(model(chosen).photoStyle, PhotoStyle::strip);
    set(QStringLiteral("DIARY_PHOTO_STYLE"), QStringLiteral("no such style"));
    EXPECT_EQ(model(settings()).photoStyle, PhotoStyle::mosaic);
}

TEST_F(SettingsModelTest, LanguagesHaveTheirOwnNames) {
    Settings chosen = settings();
    EXPECT_EQ(model(chosen).languages,
              QStringList({QStringLiteral("Same as the system"), QStringLiteral("English"),
                           QStringLiteral("简体中文"), QStringLiteral("日本語")}));
    EXPECT_EQ(model(chosen).language, 0);
    EXPECT_EQ(model(chosen).effectiveLanguage, QStringLiteral("English"));
    chosen.setLanguageOverride(QStringLiteral("ja"));
    EXPECT_EQ(model(chosen).language, 3);
    chosen.setLanguageOverride(QStringLiteral("fr"));
    EXPECT_EQ(model(chosen).language, 0);
    EXPECT_EQ(languageAt(0), std::nullopt);
    EXPECT_EQ(languageAt(2), QStringLiteral("zh-Hans"));
    EXPECT_EQ(languageAt(4), std::nullopt);
}

TEST_F(SettingsModelTest, PathsInTheHomeFolderBeginWithATilde) {
    const QString ada = QStringLiteral("/home/ada");
    EXPECT_EQ(abbreviatedPath(QStringLiteral("/home/ada/Documents/Diary"), ada),
              QStringLiteral("~/Documents/Diary"));
    EXPECT_EQ(abbreviatedPath(QStringLiteral("/home/adam"), ada), QStringLiteral("/home/adam"));
    EXPECT_EQ(abbreviatedPath(ada, ada), QStringLiteral("~"));
    EXPECT_EQ(abbreviatedPath(QStringLiteral("/vault"), QString()), QStringLiteral("/vault"));
    EXPECT_EQ(model(settings()).shownVaultPath, QStringLiteral("~/Documents/Diary"));
}

TEST_F(SettingsModelTest, TellsTheStateOfUpdates) {
    using State = UpdateStatus::State;
    Settings fresh = settings();
    const auto status = [&](State state, const char* version = "") {
        update = {state, QString::fromLatin1(version)};
        return model(fresh).updateStatus;
    };
    EXPECT_EQ(status(State::Unsupported),
              QStringLiteral("This build of Velmar doesn’t update itself"));
    EXPECT_FALSE(model(fresh).canUpdate);
    EXPECT_EQ(status(State::Idle), QStringLiteral("Not checked yet"));
    EXPECT_EQ(status(State::UpToDate, "1.4.0"),
              QStringLiteral("Velmar 1.4.0 is the newest version"));
    fresh.setLastUpdateCheck(test::moment(9, 12));
    EXPECT_EQ(status(State::Idle), QStringLiteral("Last checked today, 09:12"));
    EXPECT_EQ(status(State::UpToDate, "1.4.0"),
              QStringLiteral("Velmar 1.4.0 is the newest version · checked today, 09:12"));
    EXPECT_FALSE(model(fresh).isUpdating);
    EXPECT_EQ(status(State::Checking), QStringLiteral("Looking for updates…"));
    EXPECT_TRUE(model(fresh).isUpdating);
    EXPECT_EQ(status(State::Downloading, "1.5.0"), QStringLiteral("Downloading Velmar 1.5.0…"));
    EXPECT_EQ(status(State::Ready, "1.5.0"),
              QStringLiteral("Velmar 1.5.0 is ready and will be installed when you quit"));
    EXPECT_EQ(status(State::Failed), QStringLiteral("The last check failed"));
}

}  // namespace
}  // namespace velmar
