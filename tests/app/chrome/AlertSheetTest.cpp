#include "DiaryApp/Chrome/AlertSheet.h"

#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/SheetArrival.h"

namespace velmar {
namespace {

class AlertSheetTest : public testing::Test {
protected:
    AlertSheetTest() {
        window.resize(900, 600);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.show();
        field.setFocus();
        sheet = AlertSheet::show(&window, QStringLiteral("Title"), QStringLiteral("One\nTwo"),
                                 [this] { ++closed; });
    }

    QWidget window;
    QLineEdit field{&window};
    QPointer<AlertSheet> sheet;
    int closed = 0;
};

TEST_F(AlertSheetTest, CoversTheWindowAndFollowsIt) {
    EXPECT_EQ(sheet->geometry(), window.rect());
    window.resize(1000, 700);
    EXPECT_EQ(sheet->geometry(), window.rect());
    EXPECT_EQ(sheet->accessibleName(), QStringLiteral("Title"));
}

TEST_F(AlertSheetTest, OkAndEscapeCloseIt) {
    QTest::mouseClick(sheet->button(), Qt::LeftButton);
    EXPECT_EQ(closed, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isNull(); }));
    EXPECT_EQ(window.focusWidget(), &field);

    sheet = AlertSheet::show(&window, QStringLiteral("Again"), QString(), [this] { ++closed; });
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    EXPECT_EQ(closed, 2);
}

TEST_F(AlertSheetTest, TabStaysOnTheSheet) {
    EXPECT_EQ(window.focusWidget(), sheet->button());
    QTest::keyClick(sheet->button(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->button());
}

TEST_F(AlertSheetTest, PresentsItselfAsADialog) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(sheet)->role(), QAccessible::Dialog);
    EXPECT_EQ(sheet->cancelButton(), nullptr);
}

class SheetArrivalTest : public AlertSheetTest {
protected:
    ~SheetArrivalTest() override { motion::setReduced(false); }

    [[nodiscard]] QColor pixel(const QPoint& place) {
        const QImage image = window.grab().toImage();
        return image.pixelColor(place * image.devicePixelRatio());
    }
    static QColor ground() {
        return theme::color(theme::tokens().isDark() ? Token::CardBg : Token::CardBgActive);
    }
    // A place of the sheet's ground, and one of the veil.
    [[nodiscard]] QPoint onPanel() const {
        return sheet->panel().bottomLeft().toPoint() + QPoint(20, -20);
    }
    const QPoint besidePanel{40, 580};
};

TEST_F(SheetArrivalTest, ComesFromNothingToAllOfIt) {
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    const QColor bare = pixel(besidePanel);
    sheet = AlertSheet::show(&window, QStringLiteral("Title"), QStringLiteral("One"));
    EXPECT_TRUE(sheet->isArriving());
    EXPECT_EQ(pixel(besidePanel), bare);
    EXPECT_NE(pixel(onPanel()), ground());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !sheet->isArriving(); }));
    EXPECT_NE(pixel(besidePanel), bare);
    EXPECT_EQ(pixel(onPanel()), ground());
}

TEST_F(SheetArrivalTest, EndsInThePictureThatStays) {
    auto* arrival = sheet->findChild<SheetArrival*>();
    ASSERT_NE(arrival, nullptr);
    ASSERT_TRUE(arrival->isVisible());
    auto* time = arrival->findChild<QVariantAnimation*>();
    ASSERT_NE(time, nullptr);
    time->pause();
    time->setCurrentTime(SheetArrival::panelDuration - 1);
    const QImage last = window.grab().toImage();
    arrival->finish();
    const QImage stays = window.grab().toImage();
    int worst = 0;
    for (int y = 0; y < stays.height(); ++y) {
        for (int x = 0; x < stays.width(); ++x) {
            const QColor a = last.pixelColor(x, y);
            const QColor b = stays.pixelColor(x, y);
            worst = std::max({worst, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                              std::abs(a.blue() - b.blue())});
        }
    }
    EXPECT_LE(worst, 4);
}

TEST_F(SheetArrivalTest, IsPlacedAndTakesInputFromTheFirst) {
    ASSERT_TRUE(sheet->isArriving());
    EXPECT_EQ(sheet->childAt(sheet->button()->geometry().center()), sheet->button());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      sheet->button()->geometry().center());
    EXPECT_EQ(closed, 1);
}

TEST_F(SheetArrivalTest, AResizedWindowEndsIt) {
    ASSERT_TRUE(sheet->isArriving());
    window.resize(1000, 700);
    EXPECT_FALSE(sheet->isArriving());
    EXPECT_EQ(pixel(onPanel()), ground());
}

TEST_F(SheetArrivalTest, IsThereAtOnceWithReducedMotion) {
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    motion::setReduced(true);
    sheet = AlertSheet::show(&window, QStringLiteral("Title"), QStringLiteral("One"));
    EXPECT_FALSE(sheet->isArriving());
    EXPECT_EQ(pixel(onPanel()), ground());
}

class QuestionTest : public AlertSheetTest {
protected:
    QuestionTest() {
        QTest::keyClick(sheet->button(), Qt::Key_Escape);
        sheet = AlertSheet::ask(&window, QStringLiteral("Restore all?"), QStringLiteral("All."),
                                {QStringLiteral("Restore"), QStringLiteral("Cancel")},
                                [this] { ++confirmed; });
    }

    int confirmed = 0;
};

TEST_F(QuestionTest, OnlyTheActingButtonConfirms) {
    EXPECT_EQ(window.focusWidget(), sheet->button());
    EXPECT_LT(sheet->cancelButton()->x(), sheet->button()->x());
    QTest::mouseClick(sheet->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(confirmed, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isNull(); }));
    EXPECT_EQ(window.focusWidget(), &field);
}

TEST_F(QuestionTest, ReturnConfirmsAndEscapeCancels) {
    QTest::keyClick(sheet->button(), Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
    sheet = AlertSheet::ask(&window, QStringLiteral("Again?"), QString(),
                            {QStringLiteral("Yes"), QStringLiteral("No")}, [this] { ++confirmed; });
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(QuestionTest, TabGoesRoundOnTheSheet) {
    QTest::keyClick(sheet->button(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->cancelButton());
    QTest::keyClick(sheet->cancelButton(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->button());
    QTest::keyClick(sheet->button(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), sheet->cancelButton());
    QTest::keyClick(sheet->cancelButton(), Qt::Key_Return);
    EXPECT_EQ(confirmed, 0);
}

TEST_F(AlertSheetTest, MenuKeysDoNotActBehindIt) {
    int actions = 0;
    MainMenuBuilder::build(&window, [&](Action) { ++actions; })->show();
    QTest::keyClick(sheet->button(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(actions, 0);
    QTest::keyClick(sheet->button(), Qt::Key_Return);
    EXPECT_EQ(closed, 1);
    QTest::keyClick(&field, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(actions, 1);
}

}  // namespace
}  // namespace velmar
