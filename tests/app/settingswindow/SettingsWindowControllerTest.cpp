#include "DiaryApp/SettingsWindow/SettingsWindowController.h"

#include <gmock/gmock.h>

#include <QtGui/QGuiApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/CheckBox.h"
#include "DiaryApp/Appearance/ComboBox.h"
#include "DiaryApp/Appearance/SegmentedControl.h"
#include "DiaryApp/Appearance/Stepper.h"
#include "DiaryApp/Appearance/TextLabel.h"
#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Settings/VaultPlaces.h"
#include "DiaryApp/SettingsWindow/PaletteSwatch.h"
#include "SettingsWindowFixture.h"

namespace velmar {
namespace {

using diary::AppearanceMode;
using diary::Palette;

class SettingsWindowTest : public test::SettingsWindowFixture {
protected:
    void click(const char* name) const {
        QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton);
    }
    // Opens the box's menu and takes the entry.
    void takeFrom(const char* box, int entry) const {
        auto* combo = control<ComboBox>(box);
        combo->click();
        combo->menu()->actions().at(entry)->trigger();
        combo->menu()->close();
    }
    [[nodiscard]] AlertSheet* sheet() const {
        for (auto* each : controller->window()->findChildren<AlertSheet*>()) {
            if (each->isVisible()) return each;
        }
        return nullptr;
    }
    [[nodiscard]] bool shows(const char* text) const {
        for (const auto* each : controller->window()->findChildren<QLabel*>()) {
            if (each->text() == QString::fromUtf8(text)) return true;
        }
        return false;
    }
    [[nodiscard]] PaletteSwatch* swatch(const char* name) const {
        return control<PaletteSwatch>(name);
    }
};

TEST_F(SettingsWindowTest, HasItsSizeAndTitleAndClosesByKey) {
    open();
    EXPECT_EQ(controller->window()->width(), 740);
    EXPECT_EQ(controller->window()->view()->height(), 836);
    EXPECT_EQ(controller->window()->windowTitle(), QStringLiteral("Settings"));
    QTest::keyClick(controller->window(), Qt::Key_Escape);
    EXPECT_FALSE(controller->window()->isVisible());
    controller->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(controller->window()));
    QTest::keyClick(controller->window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(controller->window()->isVisible());
}

TEST_F(SettingsWindowTest, AModeIsStoredToldAndShown) {
    open();
    QTest::mouseClick(control<SegmentedControl>("Appearance")->segment(1), Qt::LeftButton);
    EXPECT_EQ(stored->appearanceMode(), AppearanceMode::dark);
    EXPECT_EQ(told, QStringList(QStringLiteral("appearance")));
    EXPECT_TRUE(swatch("Paper")->isDimmed());
    EXPECT_FALSE(swatch("Ink")->isDimmed());
}

TEST_F(SettingsWindowTest, APaletteIsStoredForItsSet) {
    open();
    QTest::mouseClick(swatch("Celadon"), Qt::LeftButton);
    EXPECT_EQ(stored->lightPalette(), Palette::celadon);
    EXPECT_EQ(stored->darkPalette(), Palette::ink);
    EXPECT_TRUE(swatch("Celadon")->isChecked());
    EXPECT_FALSE(swatch("Paper")->isChecked());
    EXPECT_EQ(told, QStringList(QStringLiteral("appearance")));
}

TEST_F(SettingsWindowTest, ADimmedPaletteCanBeChosenWithoutTouchingTheOtherSet) {
    open();
    ASSERT_TRUE(swatch("Indigo")->isDimmed());
    QTest::mouseClick(swatch("Indigo"), Qt::LeftButton);
    EXPECT_EQ(stored->darkPalette(), Palette::indigo);
    EXPECT_EQ(stored->lightPalette(), Palette::paper);
    EXPECT_TRUE(swatch("Indigo")->isChecked());
    EXPECT_TRUE(swatch("Paper")->isChecked());
}

TEST_F(SettingsWindowTest, ArrowKeysGoThroughThePalettesOfASet) {
    open();
    swatch("Paper")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(swatch("Paper"), Qt::Key_Right);
    EXPECT_EQ(stored->lightPalette(), Palette::plain);
    EXPECT_EQ(controller->window()->focusWidget(), swatch("Plain"));
}

TEST_F(SettingsWindowTest, WhatIsReadDifferentlyIsStoredAndTold) {
    open();
    takeFrom("Font", 2);
    EXPECT_EQ(stored->bodyFontFamily(), QStringLiteral("Georgia"));
    takeFrom("Font", 0);
    EXPECT_EQ(stored->bodyFontFamily(), std::nullopt);
    QTest::mouseClick(control<Stepper>("Font size")->larger(), Qt::LeftButton);
    EXPECT_EQ(stored->editorFontSize(), 17.5);
    click("Show the years not written under an entry");
    EXPECT_FALSE(stored->showGapYears());
    QTest::mouseClick(control<SegmentedControl>("Layout of photos")->segment(0), Qt::LeftButton);
    EXPECT_EQ(stored->photoStyle(), PhotoStyle::strip);
    click("Show the photos taken on the day");
    EXPECT_FALSE(stored->showPhotos());
    EXPECT_EQ(told.size(), 6);
    EXPECT_EQ(told.count(QStringLiteral("reading")), 6);
}

TEST_F(SettingsWindowTest, AnotherLanguageIsStoredToldAndThenShown) {
    open();
    controller->onLanguageChanged = [this] {
        localization::install(localization::effectiveLanguage(*stored));
        told += QStringLiteral("language");
    };
    takeFrom("Language", 3);
    EXPECT_EQ(told, QStringList(QStringLiteral("language")));
    EXPECT_EQ(stored->languageOverride(), QStringLiteral("ja"));
    EXPECT_EQ(controller->window()->windowTitle(), QStringLiteral("設定"));
    EXPECT_EQ(control<ComboBox>("言語")->currentText(), QStringLiteral("日本語"));
    takeFrom("言語", 0);
    EXPECT_EQ(stored->languageOverride(), std::nullopt);
    EXPECT_EQ(told.size(), 2);
}

TEST_F(SettingsWindowTest, AnewIsWhereItWas) {
    open();
    controller->window()->resize(740, 400);
    auto* bar = controller->window()->scrollArea()->verticalScrollBar();
    auto* language = control<ComboBox>("Language");
    language->setFocus(Qt::TabFocusReason);
    bar->setValue(300);
    controller->onLanguageChanged = [] { localization::install(Language::zhHans); };
    takeFrom("Language", 2);
    EXPECT_EQ(controller->window()->windowTitle(), QStringLiteral("设置"));
    EXPECT_EQ(bar->value(), 300);
    EXPECT_EQ(controller->window()->focusWidget(), language);
}

TEST_F(SettingsWindowTest, TabReachesWhatIsScrolledAway) {
    controller.reset();
    open();
    controller->window()->resize(740, 400);
    auto* check = control<QAbstractButton>("Import Records…");
    control<QAbstractButton>("Export…")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(controller->window()->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(controller->window()->focusWidget(), check);
    const QRect seen = controller->window()->scrollArea()->viewport()->rect();
    const QPoint at = check->mapTo(controller->window()->scrollArea()->viewport(), QPoint());
    EXPECT_TRUE(seen.contains(QRect(at, check->size()))) << at.y();
}

TEST_F(SettingsWindowTest, AChosenFolderIsStoredAndTold) {
    choice = home() + QStringLiteral("/Täglich");
    QDir().mkpath(choice);
    open();
    EXPECT_TRUE(shows("~/Documents/Diary"));
    click("Choose…");
    EXPECT_EQ(choosingBeganAt, home() + QStringLiteral("/Documents/Diary"));
    EXPECT_EQ(stored->vaultPath(), choice);
    EXPECT_EQ(told, QStringList(QStringLiteral("vault")));
    EXPECT_TRUE(shows("~/Täglich"));
}

TEST_F(SettingsWindowTest, ChoosingNothingChangesNothing) {
    open();
    click("Choose…");
    EXPECT_FALSE(choosingBeganAt.isEmpty());
    EXPECT_EQ(stored->vaultPath(), std::nullopt);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(SettingsWindowTest, AFolderThatCannotHoldTheDiaryIsRefused) {
    choice = home() + QStringLiteral("/notes.txt");
    touch(choice);
    open();
    click("Choose…");
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->accessibleDescription(),
              QStringLiteral("~/notes.txt is not a folder. Nothing was changed."));
    EXPECT_EQ(stored->vaultPath(), std::nullopt);
    EXPECT_TRUE(told.isEmpty());
    QTest::keyClick(sheet()->button(), Qt::Key_Escape);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_TRUE(controller->window()->isVisible()) << "Escape closes the alert alone";
}

TEST_F(SettingsWindowTest, TheCloudIsOfferedWhereThereIsOne) {
    open();
    EXPECT_FALSE(control<QAbstractButton>("Use Cloud Folder")->isVisible());
    EXPECT_FALSE(control<QAbstractButton>("Use Default")->isEnabled());
    QDir().mkpath(VaultPlaces(*stored).iCloudDriveRoot());
    controller->rebuildContent();
    ASSERT_TRUE(control<QAbstractButton>("Use Cloud Folder")->isVisible());
    click("Use Cloud Folder");
    EXPECT_EQ(stored->vaultPath(), VaultPlaces(*stored).newICloudVaultURL());
    click("Use Default");
    EXPECT_EQ(stored->vaultPath(), std::nullopt);
    EXPECT_EQ(told, QStringList({QStringLiteral("vault"), QStringLiteral("vault")}));
}

TEST_F(SettingsWindowTest, RestoringAllAsksFirst) {
    hidden = {3, false};
    open();
    ASSERT_TRUE(shows("3 photos hidden"));
    click("Restore All…");
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->accessibleDescription(),
              QStringLiteral("3 photos will be shown again on their days."));
    QTest::mouseClick(sheet()->cancelButton(), Qt::LeftButton);
    EXPECT_TRUE(told.isEmpty());

    controller->onRestoreAllHiddenPhotos = [this] { hidden.count = 0; };
    click("Restore All…");
    QTest::mouseClick(sheet()->button(), Qt::LeftButton);
    EXPECT_TRUE(shows("No photos hidden"));
    EXPECT_FALSE(control<QAbstractButton>("Restore All…")->isEnabled());
}

TEST_F(SettingsWindowTest, TheCountIsTakenAnewOnDemand) {
    open();
    EXPECT_TRUE(shows("No photos hidden"));
    hidden = {1, true};
    controller->refreshHiddenPhotos();
    EXPECT_TRUE(shows("1 photo hidden · kept in step through the diary folder"));
}

TEST_F(SettingsWindowTest, InAndOutCallBack) {
    open();
    click("Import…");
    click("Import Records…");
    click("Export…");
    EXPECT_EQ(told, QStringList({QStringLiteral("import"), QStringLiteral("records"),
                                 QStringLiteral("export")}));
}

TEST_F(SettingsWindowTest, UpdatesSayThatTheyAreUnsupportedUntilTheyAre) {
    open();
    EXPECT_TRUE(shows("This build of Velmar doesn’t update itself"));
    EXPECT_FALSE(control<QAbstractButton>("Check Now")->isEnabled());
    EXPECT_FALSE(control<CheckBox>("Look for updates once a day")->isEnabled());
    controller->setUpdateStatus({UpdateStatus::State::Idle, {}});
    EXPECT_TRUE(shows("Not checked yet"));
    click("Look for updates once a day");
    EXPECT_FALSE(stored->autoUpdate());
    click("Check Now");
    EXPECT_EQ(told, QStringList(QStringLiteral("check")));
    controller->setUpdateStatus({UpdateStatus::State::Checking, {}});
    EXPECT_FALSE(control<QAbstractButton>("Check Now")->isEnabled());
}

TEST_F(SettingsWindowTest, FontsThatAreInstalledMeanwhileAreOfferedOnce) {
    open();
    EXPECT_EQ(control<ComboBox>("Font")->choices().size(), 3);
    int counted = 0;
    controller->hiddenPhotosStatus = [&] {
        ++counted;
        return hidden;
    };
    families += QStringLiteral("Palatino");
    for (int i = 0; i < 9; ++i) Q_EMIT qGuiApp->fontDatabaseChanged();
    ASSERT_TRUE(QTest::qWaitFor([&] { return control<ComboBox>("Font")->choices().size() == 4; }));
    EXPECT_EQ(counted, 1);
}

TEST_F(SettingsWindowTest, EverythingWorksWithoutCallbacks) {
    open();
    for (auto* each : {&controller->onLanguageChanged, &controller->onVaultChanged,
                       &controller->onReadingChanged, &controller->onAppearanceChanged,
                       &controller->onImport, &controller->onExport}) {
        *each = {};
    }
    controller->hiddenPhotosStatus = {};
    click("Import…");
    QTest::mouseClick(swatch("Plain"), Qt::LeftButton);
    takeFrom("Language", 1);
    EXPECT_EQ(stored->languageOverride(), QStringLiteral("en"));
    EXPECT_EQ(stored->lightPalette(), Palette::plain);
}

TEST_F(SettingsWindowTest, EveryControlHasANameAndTheTabKeyReachesIt) {
    open();
    QDir().mkpath(VaultPlaces(*stored).iCloudDriveRoot());
    hidden = {2, false};
    controller->setUpdateStatus({UpdateStatus::State::Idle, {}});
    QList<QWidget*> order;
    control<SegmentedControl>("Appearance")->setFocus(Qt::TabFocusReason);
    do {
        order += controller->window()->focusWidget();
        QTest::keyClick(order.last(), Qt::Key_Tab);
    } while (!order.contains(controller->window()->focusWidget()) && order.size() < 40);
    for (const QWidget* each : order) {
        const auto* button = qobject_cast<const QAbstractButton*>(each);
        EXPECT_FALSE(each->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
            << each->metaObject()->className();
    }
    // Mode, two sets; font, size, years; style, show, restore; choose, cloud; import, export,
    // records; language; automatic, now. The default place is in use already.
    EXPECT_EQ(order.size(), 17);
    int y = 0;
    for (const QWidget* each : order) {
        const int now = each->mapTo(controller->window()->view(), QPoint(0, 0)).y();
        EXPECT_GE(now, y - 20) << "the order goes down the window";
        y = now;
    }
}

}  // namespace
}  // namespace velmar
