#include "DiaryApp/Appearance/Appearance.h"

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <QtGui/QFontInfo>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/Shadow.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {
namespace {

using diary::Palette;

class AppearanceTest : public testing::Test {
protected:
    AppearanceTest() { appearance::prepare(); }

    [[nodiscard]] Settings settings(const QString& forcedPalette = {}) const {
        QProcessEnvironment environment;
        if (!forcedPalette.isEmpty()) {
            environment.insert(QStringLiteral("DIARY_PALETTE"), forcedPalette);
        }
        return {std::make_unique<QSettings>(folder.filePath(QStringLiteral("s.ini")),
                                            QSettings::IniFormat),
                folder.path(), environment};
    }

    QTemporaryDir folder;
};

TEST_F(AppearanceTest, PicksThePaletteOfTheMode) {
    Settings chosen = settings();
    chosen.setLightPalette(Palette::celadon);
    chosen.setDarkPalette(Palette::indigo);
    EXPECT_EQ(appearance::chosenPalette(chosen, true), Palette::celadon);
    chosen.setAppearanceMode(diary::AppearanceMode::system);
    EXPECT_EQ(appearance::chosenPalette(chosen, true), Palette::indigo);
    EXPECT_EQ(appearance::chosenPalette(chosen, false), Palette::celadon);
}

TEST_F(AppearanceTest, TheEnvironmentsPaletteGoesBeforeAllUnlessUnknown) {
    EXPECT_EQ(appearance::chosenPalette(settings(QStringLiteral("indigo")), false),
              Palette::indigo);
    EXPECT_EQ(appearance::chosenPalette(settings(QStringLiteral("sepia")), false), Palette::paper);
}

TEST_F(AppearanceTest, ApplyTellsWhetherSomethingChanged) {
    appearance::apply(settings(QStringLiteral("plain")));
    EXPECT_FALSE(appearance::apply(settings(QStringLiteral("plain"))));
    EXPECT_TRUE(appearance::apply(settings(QStringLiteral("ink"))));
    EXPECT_EQ(theme::color(Token::Paper), Tokens(Palette::ink)[Token::Paper]);
    EXPECT_TRUE(theme::tokens().isDark());
}

TEST_F(AppearanceTest, FollowsWhatTheDesktopSaysInTheModeThatFollowsIt) {
    const bool before = appearance::systemIsDark();
    Settings chosen = settings();
    chosen.setAppearanceMode(diary::AppearanceMode::system);
    appearance::setSystemIsDark(false);
    appearance::apply(chosen);
    appearance::setSystemIsDark(true);
    EXPECT_TRUE(appearance::systemIsDark());
    EXPECT_TRUE(appearance::apply(chosen));
    EXPECT_EQ(theme::tokens().palette(), Palette::ink);
    EXPECT_FALSE(appearance::apply(chosen));
    chosen.setAppearanceMode(diary::AppearanceMode::light);
    EXPECT_TRUE(appearance::apply(chosen));
    EXPECT_EQ(theme::tokens().palette(), Palette::paper);
    appearance::setSystemIsDark(before);
}

TEST_F(AppearanceTest, FontsChangeWithTheSettingsAtOnce) {
    Settings chosen = settings();
    EXPECT_EQ(QFontInfo(fonts::body(chosen, 16.5)).family(), QStringLiteral("Source Serif 4"));
    chosen.setBodyFontFamily(QStringLiteral("IBM Plex Mono"));
    EXPECT_EQ(QFontInfo(fonts::body(chosen, 17.5)).family(), QStringLiteral("IBM Plex Mono"));
    EXPECT_EQ(fonts::body(chosen, 17.5).pixelSize(), 18);
    chosen.setBodyFontFamily(std::nullopt);
    EXPECT_EQ(QFontInfo(fonts::body(chosen, 16.5)).family(), QStringLiteral("Source Serif 4"));
}

TEST_F(AppearanceTest, ColoursAreRoundedToTheNearestOfEightBits) {
    EXPECT_EQ(Tokens(Palette::paper)[Token::Accent].name(), QStringLiteral("#b4432b"));
    EXPECT_EQ(Tokens(Palette::paper)[Token::Paper].name(), QStringLiteral("#fbf7f0"));
    EXPECT_EQ(Tokens(Palette::plain).heatShades()[3].name(), QStringLiteral("#3f4349"));
}

TEST_F(AppearanceTest, BringsItsFontsAlongInAllWeights) {
    struct Row {
        QFont font;
        const char* family;
        int weight;
    };
    const std::vector<Row> rows = {
        {fonts::serif(16.5), "Source Serif 4", 400},
        {fonts::serif(25, QFont::DemiBold), "Source Serif 4", 600},
        {fonts::serif(20.5, QFont::Bold), "Source Serif 4", 700},
        {fonts::sans(13.5), "Source Sans 3", 400},
        {fonts::sans(13.5, QFont::Medium), "Source Sans 3", 500},
        {fonts::sans(13, QFont::DemiBold), "Source Sans 3", 600},
        {fonts::mono(52, QFont::Light), "IBM Plex Mono", 300},
        {fonts::mono(11.5), "IBM Plex Mono", 400},
        {fonts::mono(13, QFont::Medium), "IBM Plex Mono", 500},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(QFontInfo(row.font).family(), QString::fromLatin1(row.family));
        EXPECT_EQ(QFontInfo(row.font).weight(), row.weight) << row.family;
    }
}

TEST_F(AppearanceTest, HalfPixelsRoundUp) {
    EXPECT_EQ(fonts::pixelSize(16.5), 17);
    EXPECT_EQ(fonts::pixelSize(16.4), 16);
    EXPECT_EQ(fonts::pixelSize(0.1), 1);
    EXPECT_EQ(fonts::serif(16.5).pixelSize(), 17);
}

TEST_F(AppearanceTest, AnUninstalledBodyFontIsPassedOver) {
    Settings chosen = settings();
    chosen.setBodyFontFamily(QStringLiteral("No Such Family"));
    EXPECT_EQ(fonts::body(chosen, 16.5), fonts::body(settings(), 16.5));
    chosen.setBodyFontFamily(QStringLiteral("IBM Plex Mono"));
    EXPECT_EQ(fonts::body(chosen, 16.5).families().first(), QStringLiteral("IBM Plex Mono"));
}

TEST_F(AppearanceTest, TheBodyFontFallsBackInAFixedOrder) {
    const auto family = [](const QStringList& installed, const std::optional<QString>& chosen) {
        return fonts::bodyFamily(chosen,
                                 [&](const QString& name) { return installed.contains(name); });
    };
    const QString charter = QStringLiteral("Charter");
    const QString pingFang = QStringLiteral("PingFang SC");
    const QString songti = QStringLiteral("Songti SC");
    const QString ours = QStringLiteral("Source Serif 4");
    EXPECT_EQ(family({songti, pingFang, charter}, charter), charter);
    EXPECT_EQ(family({songti, pingFang}, charter), pingFang);
    EXPECT_EQ(family({songti, pingFang}, std::nullopt), pingFang);
    EXPECT_EQ(family({songti}, std::nullopt), songti);
    EXPECT_EQ(family({}, charter), ours);
    EXPECT_EQ(family({QString()}, QString()), ours);
}

TEST_F(AppearanceTest, CjkShapesFollowTheLanguage) {
    fonts::setLanguage(Language::ja);
    EXPECT_EQ(fonts::serif(16).families().last(), QStringLiteral("Noto Serif CJK JP"));
    fonts::setLanguage(Language::zhHans);
    EXPECT_EQ(fonts::sans(16).families().last(), QStringLiteral("Noto Sans CJK SC"));
    fonts::setLanguage(Language::en);
}

TEST_F(AppearanceTest, IconsTakeTheirColour) {
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        icons::paint(painter, {0, 0, 32, 32}, QStringLiteral("chevron-left"),
                     theme::color(Token::Accent));
    }
    bool hasInk = false;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 255) hasInk = hasInk || pixel == theme::color(Token::Accent);
        }
    }
    EXPECT_TRUE(hasInk);
    EXPECT_FALSE(icons::exists(QStringLiteral("no-such-icon")));
}

// The style's sign for the menus that don't fit into a bar.
TEST_F(AppearanceTest, AnIconForQtTakesItsColourAtEachPaint) {
    const QIcon icon =
        QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    ASSERT_FALSE(icon.isNull());
    for (const Palette palette : {Palette::paper, Palette::ink}) {
        theme::setPalette(palette);
        const QImage image = icon.pixmap(QSize(24, 16), 2.0).toImage();
        EXPECT_EQ(image.size(), QSize(48, 32));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << "the ground shows through";
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == theme::color(Token::Chevron)) ++inked;
            }
        }
        EXPECT_GT(inked, 0);
    }
    theme::setPalette(Palette::paper);
}

TEST_F(AppearanceTest, AShadowIsDarkestBelowItsBoxAndFadesToNothing) {
    theme::setPalette(Palette::paper);
    QImage image(300, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        paintShadow(painter, {100, 100, 100, 100}, elevation::kPopover);
    }
    const auto alpha = [&](int x, int y) { return image.pixelColor(x, y).alphaF(); };
    EXPECT_NEAR(alpha(150, 162), 0.18, 0.01) << "the middle, which is lower than the box's";
    EXPECT_NEAR(alpha(150, 212), 0.09, 0.01) << "half at the lower edge";
    EXPECT_LT(alpha(150, 100), alpha(150, 199)) << "more falls below than above";
    EXPECT_EQ(alpha(150, 250), 0);
    EXPECT_EQ(alpha(10, 10), 0);
}

TEST_F(AppearanceTest, ParagraphsCountWholeLines) {
    const TextLook look = {fonts::serif(16.5), 30, Token::Ink};
    EXPECT_EQ(paragraphHeight(QString(), look, 300), 30);
    EXPECT_EQ(paragraphHeight(QStringLiteral("word"), look, 300), 30);
    const double wrapped = paragraphHeight(QStringLiteral("word ").repeated(60), look, 300);
    EXPECT_GT(wrapped, 60);
    EXPECT_EQ(wrapped / 30, static_cast<int>(wrapped / 30));
}

TEST_F(AppearanceTest, TheFocusRingComesOnlyWithTheKeyboard) {
    QWidget window;
    auto* first = new Button(Button::Kind::Quiet, &window);
    first->setText(QStringLiteral("First"));
    window.resize(200, 100);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(window.findChild<QFocusFrame*>(), nullptr);
    first->clearFocus();
    first->setFocus(Qt::TabFocusReason);
    auto* ring = window.findChild<QFocusFrame*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->widget(), first);
    first->clearFocus();
    EXPECT_EQ(ring->widget(), nullptr);
}

TEST_F(AppearanceTest, TheScrollBarTakesNoRoomAndShowsOnlyWhatScrolls) {
    QScrollArea area;
    auto* content = new QWidget;
    content->resize(100, 100);
    area.setFrameShape(QFrame::NoFrame);
    area.setWidget(content);
    OverlayScrollBar bar(&area);
    area.resize(300, 200);
    area.show();
    EXPECT_EQ(area.viewport()->width(), 300);
    EXPECT_FALSE(bar.isVisible());
    content->resize(100, 1000);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(area.viewport()->width(), 300);
    EXPECT_EQ(bar.geometry().right(), 299);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(6, 190));
    EXPECT_EQ(area.verticalScrollBar()->value(), 200);
}

}  // namespace
}  // namespace velmar
