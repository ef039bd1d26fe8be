#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QScrollArea>

#include "DiaryApp/Navigation/MonthHeatView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/Navigation/YearOverviewView.h"
#include "NavigationFixture.h"

namespace velmar {
namespace {

using diary::MonthDay;

class YearOverviewTest : public NavigationTest {
protected:
    YearOverviewTest() {
        controller.onPick = [this](MonthDay day) { picked.push_back(day); };
        controller.present(model(), {3, 7});
        EXPECT_TRUE(QTest::qWaitForWindowActive(controller.window()));
    }

    [[nodiscard]] YearOverviewModel model() const {
        return yearOverviewModel(counts, {214, 2014, 231}, sidebar.language);
    }

    [[nodiscard]] MonthHeatView* heat(int month) const { return controller.view()->heat(month); }

    [[nodiscard]] QColor shadeOf(int month, int day) const {
        const QImage image = heat(month)->grab().toImage();
        return image.pixelColor(heat(month)->cellRect(day).center().toPoint());
    }

    QHash<MonthDay, int> counts = {
        {{3, 7}, 3}, {{3, 8}, 1}, {{3, 9}, 2}, {{3, 10}, 12}, {{2, 29}, 2}};
    YearOverviewController controller;
    std::vector<MonthDay> picked;
};

TEST_F(YearOverviewTest, ShowsOneWindowOfItsSize) {
    EXPECT_TRUE(controller.isVisible());
    EXPECT_EQ(controller.view()->size(), QSize(860, 836));
    EXPECT_EQ(controller.window()->width(), 860);
    EXPECT_EQ(controller.window()->minimumSize(), controller.window()->maximumSize());
    EXPECT_EQ(controller.window()->windowTitle(), QStringLiteral("Year Calendar"));
    EXPECT_FALSE(controller.window()->testAttribute(Qt::WA_QuitOnClose));
    QWidget* window = controller.window();
    controller.present(model(), {3, 7});
    EXPECT_EQ(controller.window(), window);
}

TEST_F(YearOverviewTest, KeysBeginAtTheDayThatIsOpen) {
    EXPECT_TRUE(heat(3)->hasFocus());
    QTest::keyClick(controller.window()->focusWidget(), Qt::Key_Right);
    QTest::keyClick(controller.window()->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(picked, std::vector<MonthDay>({{3, 8}}));
}

TEST_F(YearOverviewTest, ALowScreenGetsALowerWindowThatScrolls) {
    const int available = controller.window()->screen()->availableSize().height();
    const int height = controller.window()->height();
    EXPECT_EQ(height, qMin(836, available - 48));
    EXPECT_EQ(controller.window()->findChild<QScrollArea*>()->height(), height);
}

TEST_F(YearOverviewTest, MonthsStandInRowsOfThree) {
    const QPoint reach(MonthHeatView::reach, MonthHeatView::reach);
    EXPECT_EQ(heat(1)->pos() + reach, QPoint(49, 131));
    EXPECT_EQ(heat(3)->pos() + reach, QPoint(593, 131));
    EXPECT_EQ(heat(4)->pos() + reach, QPoint(49, 297));
    EXPECT_EQ(heat(12)->pos() + reach, QPoint(593, 629));
}

TEST_F(YearOverviewTest, ShadesGoByTheNumberOfYears) {
    const auto& shades = theme::tokens().heatShades();
    EXPECT_EQ(shadeOf(3, 6), shades[0]);
    EXPECT_EQ(shadeOf(3, 8), shades[1]);
    EXPECT_EQ(shadeOf(3, 9), shades[2]);
    EXPECT_EQ(shadeOf(3, 7), shades[3]);
    EXPECT_EQ(shadeOf(3, 10), shades[3]);
}

TEST_F(YearOverviewTest, TheLeapDayHasALine) {
    const QRectF cell = heat(2)->cellRect(29);
    const QImage image = heat(2)->grab().toImage();
    const QPoint top(qRound(cell.center().x()), qRound(cell.top()));
    EXPECT_EQ(image.pixelColor(top), theme::color(Token::Accent));
    const QImage march = heat(3)->grab().toImage();
    EXPECT_EQ(march.pixelColor(top), theme::tokens().heatShades()[0]);
}

TEST_F(YearOverviewTest, AClickPicksItsDate) {
    QTest::mouseClick(heat(2), Qt::LeftButton, {}, heat(2)->cellRect(29).center().toPoint());
    QTest::mouseClick(heat(12), Qt::LeftButton, {}, heat(12)->cellRect(31).center().toPoint());
    QTest::mouseClick(heat(2), Qt::LeftButton, {}, {220, 82});
    EXPECT_EQ(picked, (std::vector<MonthDay>{{2, 29}, {12, 31}}));
    EXPECT_TRUE(controller.isVisible());
}

TEST_F(YearOverviewTest, KeysWalkAndPick) {
    heat(1)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(heat(1), Qt::Key_Down);
    QTest::keyClick(heat(1), Qt::Key_Right);
    QTest::keyClick(heat(1), Qt::Key_Return);
    QTest::keyClick(heat(1), Qt::Key_PageUp);
    EXPECT_TRUE(heat(12)->hasFocus());
    QTest::keyClick(heat(12), Qt::Key_End);
    QTest::keyClick(heat(12), Qt::Key_PageDown);
    QTest::keyClick(heat(1), Qt::Key_PageDown);
    EXPECT_TRUE(heat(2)->hasFocus());
    QTest::keyClick(heat(2), Qt::Key_Space);
    EXPECT_EQ(picked, (std::vector<MonthDay>{{1, 9}, {2, 29}}));
    QTest::keyClick(heat(2), Qt::Key_Tab);
    EXPECT_TRUE(heat(3)->hasFocus());
}

TEST_F(YearOverviewTest, DatesHaveNames) {
    EXPECT_EQ(heat(3)->cellName(7), QStringLiteral("March 7 · 3 years"));
    EXPECT_EQ(heat(3)->cellName(8), QStringLiteral("March 8 · 1 year"));
    EXPECT_EQ(heat(3)->cellName(1), QStringLiteral("March 1 · not written"));
    QAccessibleInterface* march = QAccessible::queryAccessibleInterface(heat(3));
    EXPECT_EQ(march->role(), QAccessible::Table);
    EXPECT_EQ(march->text(QAccessible::Name), QStringLiteral("March"));
    EXPECT_EQ(march->childCount(), 31);
    EXPECT_EQ(march->child(6)->text(QAccessible::Name), QStringLiteral("March 7 · 3 years"));
    march->child(6)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(picked, (std::vector<MonthDay>{{3, 7}}));
}

TEST_F(YearOverviewTest, EscapeAndCtrlWClose) {
    QTest::keyClick(controller.window(), Qt::Key_Escape);
    EXPECT_FALSE(controller.isVisible());
    controller.present(model(), {3, 7});
    EXPECT_TRUE(QTest::qWaitForWindowActive(controller.window()));
    heat(5)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(heat(5), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(controller.isVisible());
    controller.present(model(), {3, 7});
    controller.close();
    EXPECT_FALSE(controller.isVisible());
}

TEST_F(YearOverviewTest, FollowsLanguageAndPalette) {
    setLanguage(Language::zhHans);
    theme::setPalette(diary::Palette::ink);
    controller.update(model());
    controller.restyle();
    EXPECT_EQ(controller.window()->windowTitle(), QStringLiteral("年历"));
    EXPECT_EQ(heat(3)->accessibleName(), QStringLiteral("三月"));
    EXPECT_EQ(heat(3)->cellName(7), QStringLiteral("三月七日 · 3 年"));
    EXPECT_EQ(shadeOf(3, 7), theme::tokens().heatShades()[3]);
    EXPECT_EQ(controller.view()->grab().toImage().pixelColor(5, 5), theme::color(Token::Paper));
}

}  // namespace
}  // namespace velmar
