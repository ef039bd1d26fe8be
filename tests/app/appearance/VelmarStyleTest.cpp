// What Qt paints itself, in the style of the application: menus and tooltips.
#include "DiaryApp/Appearance/VelmarStyle.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {
namespace {

class VelmarStyleTest : public testing::TestWithParam<diary::Palette> {
protected:
    VelmarStyleTest() {
        appearance::prepare();
        theme::setPalette(GetParam());
    }
    ~VelmarStyleTest() override {
        QToolTip::hideText();
        theme::setPalette(diary::Palette::paper);
    }

    // The tooltip on the screen; null if there is none.
    static QWidget* tooltip() {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            if (each->inherits("QTipLabel") && each->isVisible()) return each;
        }
        return nullptr;
    }

    // Whether anything but the ground is painted at the right end of the item's row.
    static bool hasArrow(QMenu& menu, QAction* item) {
        const QRect row = menu.actionGeometry(item);
        const QImage image = menu.grab(row.adjusted(row.width() - 30, 4, -4, -4)).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != image.pixel(0, 0)) return true;
            }
        }
        return false;
    }
};

TEST_P(VelmarStyleTest, ATooltipIsRoundAndItsCornersShowWhatLiesBelow) {
    QWidget window;
    window.resize(300, 200);
    window.show();
    QToolTip::showText(window.mapToGlobal(QPoint(20, 20)), QStringLiteral("Random Day"), &window);
    QWidget* tip = tooltip();
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->testAttribute(Qt::WA_TranslucentBackground));
    const QImage image = tip->grab().toImage();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint corner : {QPoint(0, 0), {right, 0}, {0, bottom}, {right, bottom}}) {
        EXPECT_EQ(image.pixelColor(corner).alpha(), 0) << corner.x() << ' ' << corner.y();
    }
    EXPECT_EQ(image.pixelColor(right / 2, 0), theme::color(Token::Border));
    const Token ground = theme::tokens().isDark() ? Token::CardBg : Token::CardBgActive;
    EXPECT_EQ(image.pixelColor(right / 2, 2), theme::color(ground));
}

TEST_P(VelmarStyleTest, AnItemThatOpensAMenuHasAnArrow) {
    QMenu menu;
    QAction* plain = menu.addAction(QStringLiteral("Select All"));
    QAction* parent = menu.addMenu(QStringLiteral("Format"))->menuAction();
    menu.popup({});
    EXPECT_TRUE(hasArrow(menu, parent));
    EXPECT_FALSE(hasArrow(menu, plain));
    menu.close();
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, VelmarStyleTest,
                         testing::Values(diary::Palette::paper, diary::Palette::ink));

}  // namespace
}  // namespace velmar
