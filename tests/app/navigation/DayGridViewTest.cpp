#include "DiaryApp/Navigation/DayGridView.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>

#include "NavigationFixture.h"

namespace velmar {
namespace {

class DayGridViewTest : public NavigationTest {
protected:
    DayGridViewTest() {
        before.setFocusPolicy(Qt::TabFocus);
        before.resize(10, 10);
        grid.move(20, 20);
        grid.onSelectDay = [this](int day) { picked.push_back(day); };
        grid.onPreviousMonth = [this] { --turned; };
        grid.onNextMonth = [this] { ++turned; };
        window.resize(300, 300);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        before.setFocus();
        show();
    }

    void show() { grid.update(sidebarModel(sidebar).grid); }

    [[nodiscard]] QPoint at(double x, double y) const {
        return {static_cast<int>(x) + DayGridView::reach, static_cast<int>(y) + DayGridView::reach};
    }
    void click(QPoint point) { QTest::mouseClick(&grid, Qt::LeftButton, {}, point); }
    void press(int key) { QTest::keyClick(&grid, static_cast<Qt::Key>(key)); }

    [[nodiscard]] QAccessibleInterface* accessible() {
        return QAccessible::queryAccessibleInterface(&grid);
    }

    QWidget window;
    QWidget before{&window};
    DayGridView grid{&window};
    std::vector<int> picked;
    int turned = 0;
};

TEST_F(DayGridViewTest, AClickOpensItsDay) {
    click(at(198 + 15, 22 + 2 * 33 + 15));
    click(at(0, 22));
    click(at(29, 51));
    EXPECT_EQ(picked, (std::vector{21, 1, 1}));
}

TEST_F(DayGridViewTest, BetweenCellsNothingIsHit) {
    click(at(31, 30));
    click(at(10, 53));
    click(at(10, 10));
    click(at(100, 22 + 4 * 33 + 15));
    EXPECT_TRUE(picked.empty());
}

TEST_F(DayGridViewTest, APressThatEndsElsewhereOpensNothing) {
    QTest::mousePress(&grid, Qt::LeftButton, {}, at(10, 30));
    QTest::mouseRelease(&grid, Qt::LeftButton, {}, at(45, 30));
    QTest::mouseClick(&grid, Qt::RightButton, {}, at(10, 30));
    EXPECT_TRUE(picked.empty());
}

TEST_F(DayGridViewTest, TheLeapDayOpensInEveryYear) {
    sidebar.day = {2, 1};
    sidebar.viewedYear = 2023;
    show();
    EXPECT_EQ(grid.grid().dayCount, 29);
    click(grid.cellRect(29).center().toPoint());
    EXPECT_EQ(picked, std::vector{29});
}

TEST_F(DayGridViewTest, ThePointerIsFollowed) {
    QTest::mouseMove(&grid, at(10, 30));
    QMouseEvent over(QEvent::MouseMove, at(10, 30), grid.mapToGlobal(at(10, 30)), Qt::NoButton,
                     Qt::NoButton, {});
    QCoreApplication::sendEvent(&grid, &over);
    EXPECT_EQ(grid.hoveredDay(), 1);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&grid, &leave);
    EXPECT_EQ(grid.hoveredDay(), std::nullopt);
}

TEST_F(DayGridViewTest, IsOneTabStopThatBeginsAtTheChosenDay) {
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.focusDay(), 21);
    press(Qt::Key_Tab);
    EXPECT_FALSE(grid.hasFocus());
}

TEST_F(DayGridViewTest, KeysMoveAndOpen) {
    grid.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    EXPECT_EQ(grid.focusDay(), 13);
    press(Qt::Key_Return);
    press(Qt::Key_End);
    press(Qt::Key_Space);
    press(Qt::Key_Right);
    EXPECT_EQ(grid.focusDay(), 30);
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    press(Qt::Key_Enter);
    EXPECT_EQ(picked, (std::vector{13, 30, 8}));
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageUp);
    EXPECT_EQ(turned, 1);
}

TEST_F(DayGridViewTest, TheKeysCellFollowsTheDayInView) {
    grid.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Left);
    sidebar.daysWithContent.insert(3);
    show();
    EXPECT_EQ(grid.focusDay(), 20) << "the day in view is the same";
    sidebar.day = {2, 1};
    show();
    EXPECT_EQ(grid.focusDay(), 1);
}

TEST_F(DayGridViewTest, ShowsItsRingAfterTheKeyboardOnly) {
    const QImage plain = grid.grab().toImage();
    grid.setFocus(Qt::TabFocusReason);
    const QImage ringed = grid.grab().toImage();
    EXPECT_NE(plain, ringed);
    // To the right of the chosen cell, where a ring two pixels away runs.
    const QPoint right = at(228 + 2, 22 + 2 * 33 + 15);
    EXPECT_NE(ringed.pixelColor(right), plain.pixelColor(right));
    before.setFocus();
    grid.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(grid.grab().toImage(), plain);
}

TEST_F(DayGridViewTest, IsATableForAssistiveTools) {
    QAccessibleInterface* table = accessible();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Days of November 2026"));
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->tableInterface()->columnCount(), 7);
    EXPECT_EQ(table->tableInterface()->rowCount(), 5);
    EXPECT_EQ(table->tableInterface()->columnDescription(6), QStringLiteral("Sa"));
    EXPECT_EQ(table->tableInterface()->cellAt(2, 6), table->child(20));
    EXPECT_EQ(table->tableInterface()->cellAt(4, 2), nullptr);
    EXPECT_EQ(table->childCount(), 30);
    EXPECT_EQ(table->child(30), nullptr);
}

TEST_F(DayGridViewTest, EveryDayHasANameAndAState) {
    QAccessibleInterface* chosen = accessible()->child(20);
    ASSERT_NE(chosen, nullptr);
    EXPECT_EQ(chosen->role(), QAccessible::Cell);
    EXPECT_EQ(chosen->text(QAccessible::Name), QStringLiteral("November 21, written"));
    EXPECT_EQ(chosen->text(QAccessible::Description), QStringLiteral("Today"));
    EXPECT_TRUE(chosen->state().selected);
    EXPECT_EQ(chosen->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(chosen->tableCellInterface()->columnIndex(), 6);
    EXPECT_EQ(accessible()->indexOfChild(chosen), 20);
    EXPECT_EQ(chosen->parent(), accessible());
    QAccessibleInterface* plain = accessible()->child(21);
    EXPECT_EQ(plain->text(QAccessible::Name), QStringLiteral("November 22"));
    EXPECT_FALSE(plain->state().selected);
    EXPECT_TRUE(plain->text(QAccessible::Description).isEmpty());
    const QPoint corner = grid.mapToGlobal(at(0, 22 + 3 * 33));
    EXPECT_EQ(plain->rect(), QRect(corner, QSize(30, 30)));
    EXPECT_EQ(accessible()->childAt(corner.x() + 3, corner.y() + 3), plain);
}

TEST_F(DayGridViewTest, AssistiveToolsFindFocusAndOpenDays) {
    EXPECT_EQ(accessible()->focusChild(), nullptr);
    grid.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    QAccessibleInterface* focused = accessible()->focusChild();
    ASSERT_NE(focused, nullptr);
    EXPECT_EQ(focused, accessible()->child(21));
    EXPECT_TRUE(focused->state().focused);
    ASSERT_NE(focused->actionInterface(), nullptr);
    focused->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(picked, std::vector{22});
}

TEST_F(DayGridViewTest, CellsOfAShorterMonthAreNoLongerValid) {
    sidebar.day = {12, 31};
    show();
    QAccessibleInterface* last = accessible()->child(30);
    ASSERT_NE(last, nullptr);
    EXPECT_TRUE(last->isValid());
    sidebar.day = {11, 1};
    show();
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(accessible()->childCount(), 30);
}

TEST_F(DayGridViewTest, NamesFollowTheLanguage) {
    setLanguage(Language::zhHans);
    show();
    EXPECT_EQ(grid.cellName(21), QStringLiteral("十一月二十一日，写过"));
    EXPECT_EQ(grid.cellName(22), QStringLiteral("十一月二十二日"));
    EXPECT_EQ(grid.accessibleName(), QStringLiteral("2026 年十一月的日子"));
    setLanguage(Language::ja);
    show();
    EXPECT_EQ(grid.cellName(21), QStringLiteral("11月21日、記入済み"));
}

}  // namespace
}  // namespace velmar
