#include "DiaryApp/Navigation/SidebarView.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Navigation/DayGridView.h"
#include "DiaryApp/Navigation/SidebarParts.h"
#include "NavigationFixture.h"

namespace velmar {
namespace {

using Mode = SidebarView::Mode;
using Animated = SidebarView::Animated;

class SidebarViewTest : public NavigationTest {
protected:
    SidebarViewTest() {
        view.onPreviousMonth = [this] { calls.append(QStringLiteral("previous")); };
        view.onNextMonth = [this] { calls.append(QStringLiteral("next")); };
        view.onSelectDay = [this](int day) { calls.append(QString::number(day)); };
        view.onToday = [this] { calls.append(QStringLiteral("today")); };
        view.onShowYearOverview = [this] { calls.append(QStringLiteral("year")); };
        view.onShowSearch = [this] { calls.append(QStringLiteral("search")); };
        view.onShowSettings = [this] { calls.append(QStringLiteral("settings")); };
        view.resize(268, 740);
        view.update(sidebarModel(sidebar));
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    // A pane with its field where the search button is.
    QWidget* addPane() {
        auto* pane = new QWidget;
        field = new QLineEdit(pane);
        field->setGeometry(20, 14, 228, 32);
        view.setSearchPane(pane);
        return pane;
    }

    template <typename Part>
    [[nodiscard]] Part* part() const {
        return view.findChild<Part*>();
    }

    // What stands at the point, of all that is shown.
    [[nodiscard]] QWidget* at(int x, int y) const { return view.childAt(x, y); }

    SidebarView view;
    QLineEdit* field = nullptr;
    QStringList calls;
};

TEST_F(SidebarViewTest, PartsStandWhereTheyBelong) {
    EXPECT_EQ(view.width(), 268);
    EXPECT_EQ(part<SearchButton>()->geometry(), QRect(20, 14, 228, 32));
    EXPECT_EQ(part<TodayButton>()->geometry(), QRect(20, 335, 228, 36));
    EXPECT_EQ(view.grid()->geometry(), QRect(16, 100, 236, 225));
    EXPECT_EQ(part<StatsView>()->geometry(), QRect(20, 389, 228, 81));
    EXPECT_EQ(part<SidebarFoot>()->geometry(), QRect(0, 696, 267, 44));
    view.resize(268, 520);
    EXPECT_EQ(part<TodayButton>()->y(), 317);
    EXPECT_EQ(part<SidebarFoot>()->y(), 476);
}

TEST_F(SidebarViewTest, EveryControlCallsBack) {
    QTest::mouseClick(part<SearchButton>(), Qt::LeftButton);
    QTest::mouseClick(part<MonthHead>()->previous(), Qt::LeftButton);
    QTest::mouseClick(part<MonthHead>()->next(), Qt::LeftButton);
    view.grid()->pick(9);
    QTest::keyClick(view.grid(), Qt::Key_PageUp);
    QTest::keyClick(part<TodayButton>(), Qt::Key_Return);
    QTest::mouseClick(part<SidebarFoot>()->yearCalendar(), Qt::LeftButton);
    QTest::keyClick(part<SidebarFoot>()->settings(), Qt::Key_Space);
    EXPECT_EQ(calls.join(u' '),
              QStringLiteral("search previous next 9 previous today year settings"));
}

TEST_F(SidebarViewTest, AbsentCallbacksAreNoHarm) {
    SidebarView silent;
    silent.update(sidebarModel(sidebar));
    silent.resize(268, 740);
    silent.grid()->pick(3);
    silent.findChild<TodayButton*>()->click();
    EXPECT_EQ(silent.mode(), Mode::Calendar);
}

TEST_F(SidebarViewTest, TabWalksFromTheTopDown) {
    part<SearchButton>()->setFocus();
    QStringList order;
    for (int i = 0; i < 7; ++i) {
        const QWidget* focus = view.focusWidget();
        order.append(focus == view.grid()                ? QStringLiteral("grid")
                     : focus->accessibleName().isEmpty() ? focus->property("text").toString()
                                                         : focus->accessibleName());
        QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(QStringLiteral("; ")),
              QStringLiteral("Search; Previous Month; Next Month; grid; Back to Today, Nov 21; "
                             "Year Calendar; Settings"));
}

TEST_F(SidebarViewTest, TooltipsTellTheKeys) {
    EXPECT_EQ(part<SearchButton>()->toolTip(), QStringLiteral("Search   Ctrl+F"));
    EXPECT_EQ(part<TodayButton>()->toolTip(), QStringLiteral("Back to Today   Ctrl+T"));
    EXPECT_EQ(part<SidebarFoot>()->yearCalendar()->toolTip(),
              QStringLiteral("Year Calendar   Ctrl+Y"));
    EXPECT_EQ(part<SidebarFoot>()->settings()->toolTip(), QStringLiteral("Settings   Ctrl+,"));
    EXPECT_EQ(part<MonthHead>()->next()->toolTip(), QStringLiteral("Next Month"));
}

TEST_F(SidebarViewTest, FactsAreReadAloud) {
    EXPECT_EQ(part<StatsView>()->accessibleName(),
              QStringLiteral("Days written 214 / 365, Earliest year 2014, Files 231"));
    sidebar.overview.reset();
    view.update(sidebarModel(sidebar));
    EXPECT_EQ(part<StatsView>()->accessibleName(),
              QStringLiteral("Days written, Earliest year, Files"));
    EXPECT_EQ(part<MonthHead>()->accessibleName(), QStringLiteral("November 2026"));
    EXPECT_EQ(view.accessibleName(), QStringLiteral("Calendar"));
}

TEST_F(SidebarViewTest, TextsFollowTheLanguage) {
    const int before = part<SidebarFoot>()->yearCalendar()->width();
    setLanguage(Language::ja);
    view.retranslate();
    view.update(sidebarModel(sidebar));
    EXPECT_EQ(part<SearchButton>()->text(), QStringLiteral("検索"));
    EXPECT_EQ(part<SidebarFoot>()->settings()->text(), QStringLiteral("設定"));
    EXPECT_EQ(part<TodayButton>()->text(), QStringLiteral("今日に戻る"));
    EXPECT_EQ(part<MonthHead>()->previous()->accessibleName(), QStringLiteral("前の月"));
    const DoorButton* calendar = part<SidebarFoot>()->yearCalendar();
    EXPECT_NE(calendar->width(), before);
    EXPECT_EQ(calendar->width(), calendar->sizeHint().width());
    EXPECT_EQ(part<SidebarFoot>()->settings()->geometry().right(), 254);
}

TEST_F(SidebarViewTest, TheSearchPaneTakesThePlace) {
    QWidget* pane = addPane();
    EXPECT_FALSE(pane->isVisible());
    view.setMode(Mode::Search, Animated::No);
    EXPECT_TRUE(pane->isVisible());
    EXPECT_FALSE(part<SearchButton>()->isVisible());
    EXPECT_EQ(pane->geometry(), QRect(0, 0, 267, 740));
    EXPECT_EQ(at(100, 30), field);
    EXPECT_FALSE(view.isMoving());
    view.resize(268, 600);
    EXPECT_EQ(pane->height(), 600);
    view.setMode(Mode::Calendar, Animated::No);
    EXPECT_FALSE(pane->isVisible());
    EXPECT_EQ(at(100, 30), part<SearchButton>());
}

TEST_F(SidebarViewTest, WithoutAPaneTheCalendarStays) {
    view.setMode(Mode::Search, Animated::Yes);
    EXPECT_EQ(view.mode(), Mode::Search);
    EXPECT_TRUE(part<SearchButton>()->isVisible());
    EXPECT_FALSE(view.isMoving());
}

TEST_F(SidebarViewTest, TheChangeMovesAndComesToRest) {
    QWidget* pane = addPane();
    view.setMode(Mode::Search, Animated::Yes);
    EXPECT_TRUE(view.isMoving());
    EXPECT_TRUE(pane->isVisible()) << "the field takes keys from the start";
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("canal"));
    EXPECT_EQ(field->text(), QStringLiteral("canal"));
    EXPECT_EQ(at(100, 30), field) << "nothing moves where button and field stand";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.isMoving(); }, 5000));
    const QRect below(0, 60, 268, 680);
    const QImage moved = view.grab(below).toImage();
    view.setMode(Mode::Calendar, Animated::No);
    view.setMode(Mode::Search, Animated::No);
    EXPECT_EQ(view.grab(below).toImage(), moved);
}

TEST_F(SidebarViewTest, AChangeBackEndsTheOneThatRuns) {
    QWidget* pane = addPane();
    view.setMode(Mode::Search, Animated::Yes);
    view.setMode(Mode::Calendar, Animated::Yes);
    EXPECT_TRUE(view.isMoving());
    EXPECT_FALSE(pane->isVisible());
    view.setMode(Mode::Search, Animated::No);
    EXPECT_FALSE(view.isMoving());
    EXPECT_TRUE(pane->isVisible());
}

TEST_F(SidebarViewTest, AResizeEndsTheMotion) {
    addPane();
    view.setMode(Mode::Search, Animated::Yes);
    view.resize(268, 640);
    EXPECT_FALSE(view.isMoving());
}

TEST_F(SidebarViewTest, ReducedMotionIsImmediate) {
    addPane();
    motion::setReduced(true);
    view.setMode(Mode::Search, Animated::Yes);
    EXPECT_FALSE(view.isMoving());
    EXPECT_EQ(at(100, 30), field);
}

}  // namespace
}  // namespace velmar
