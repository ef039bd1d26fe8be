// The settings and the first start's sheet, painted in several palettes and languages. The pictures
// go to the folder that VELMAR_GALLERY names, to be looked at; the test itself asks for grounds and
// for texts that fit.
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextLabel.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Settings/VaultPlaces.h"
#include "DiaryApp/SettingsWindow/OnboardingSheet.h"
#include "SettingsWindowFixture.h"

namespace velmar {
namespace {

struct Scene {
    const char* name;
    const char* palette;
    Language language;
};

class SettingsGallery : public test::SettingsWindowFixture,
                        public testing::WithParamInterface<Scene> {
protected:
    void SetUp() override {
        const auto palette = diary::palette::parse(QString::fromLatin1(GetParam().palette));
        ASSERT_TRUE(palette);
        Settings chosen = settings();
        chosen.setLanguageOverride(localization::code(GetParam().language));
        chosen.setLastUpdateCheck(test::moment(9, 12));
        if (diary::palette::isDark(*palette)) {
            chosen.setAppearanceMode(diary::AppearanceMode::dark);
            chosen.setDarkPalette(*palette);
        } else {
            chosen.setLightPalette(*palette);
        }
        QDir().mkpath(VaultPlaces(chosen).iCloudDriveRoot());
        chosen.setVaultPath(VaultPlaces(chosen).localVaultURL());
        hidden = {3, true};
        localization::install(GetParam().language);
        appearance::apply(chosen);
    }
    void TearDown() override { theme::setPalette(diary::Palette::paper); }

    static void save(const QImage& image, const char* kind) {
        const QString target = qEnvironmentVariable("VELMAR_GALLERY");
        if (target.isEmpty()) return;
        const QString name =
            QStringLiteral("%1-%2.png").arg(QLatin1String(kind), QLatin1String(GetParam().name));
        ASSERT_TRUE(image.save(QDir(target).filePath(name)));
    }
};

TEST_P(SettingsGallery, SettingsFitTheirWindow) {
    open();
    controller->window()->resize(740, 836);
    controller->setUpdateStatus({UpdateStatus::State::UpToDate, QStringLiteral("1.4.0")});
    const QImage image = controller->window()->grab().toImage();
    save(image, "settings");
    EXPECT_EQ(image.size(), QSize(740, 836));
    EXPECT_EQ(image.pixelColor(5, 5), theme::color(Token::Paper));
    EXPECT_EQ(image.pixelColor(100, 178 - 1), theme::color(Token::BorderSoft));
    EXPECT_LE(controller->window()->view()->layout()->minimumSize().width(), 740);
    EXPECT_LE(controller->window()->view()->layout()->minimumSize().height(), 836);
    for (const auto* each : controller->window()->findChildren<TextLabel*>()) {
        EXPECT_GE(each->width(), each->sizeHint().width()) << each->text().toStdString();
    }
    for (const auto* each : controller->window()->findChildren<SettingsSection*>()) {
        EXPECT_TRUE(each->hasWholeTitle()) << each->accessibleName().toStdString();
    }
    const auto* sample = control<QLabel>(qtTrId("Settings.Sample").toUtf8().constData());
    EXPECT_GE(sample->width(),
              QFontMetricsF(fonts::body(*stored, 16.5)).horizontalAdvance(sample->text()));
    for (const auto* each : controller->window()->findChildren<QAbstractButton*>()) {
        EXPECT_GE(each->width(), each->sizeHint().width()) << each->text().toStdString();
    }
}

TEST_P(SettingsGallery, TheFirstStartsSheetIsPainted) {
    QWidget window;
    window.resize(1360, 840);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto* sheet = OnboardingSheet::show(&window, {});
    const QImage image = window.grab().toImage();
    save(image, "onboarding");
    const bool isDark = theme::tokens().isDark();
    EXPECT_EQ(image.pixelColor(sheet->panel().topLeft().toPoint() + QPoint(20, 20)),
              theme::color(isDark ? Token::CardBg : Token::CardBgActive));
}

INSTANTIATE_TEST_SUITE_P(Scenes, SettingsGallery,
                         testing::Values(Scene{"paper", "paper", Language::en},
                                         Scene{"ink", "ink", Language::en},
                                         Scene{"celadon", "celadon", Language::zhHans},
                                         Scene{"indigo", "indigo", Language::ja}),
                         [](const auto& scene) { return scene.param.name; });

}  // namespace
}  // namespace velmar
