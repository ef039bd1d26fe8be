// The ways through the days and years, by mouse and keyboard, in the window put together.
#include <gmock/gmock.h>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/YearCard.h"
#include "DiaryApp/Navigation/AllYearsChip.h"
#include "DiaryApp/Navigation/DayGridView.h"
#include "DiaryApp/Navigation/MonthHeatView.h"
#include "DiaryApp/Navigation/RailCard.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/Navigation/YearOverviewView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "tests/app/shell/ShellFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class NavigationTest : public test::ShellFixture {
protected:
    NavigationTest() {
        write(QStringLiteral("03-07"), 2019, QStringLiteral("An old year."));
        controller = makeController();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
        open(3, 7);
    }

    void open(int month, int day) {
        ASSERT_TRUE(controller->session().open({month, day}, Focus::Editor));
    }
    [[nodiscard]] diary::MonthDay inView() const { return controller->session().currentMonthDay(); }
    [[nodiscard]] SidebarView* sidebar() const { return window()->sidebar(); }
    [[nodiscard]] YearRailView* rail() const { return window()->rail(); }
    [[nodiscard]] bool isChecked(Action action) const {
        QAction* item = MainMenuBuilder::item(window()->menuBar(), action);
        auto* menu = qobject_cast<QMenu*>(item->associatedObjects().value(0));
        menu->popup({});
        const bool checked = item->isChecked();
        menu->close();
        return checked;
    }
    [[nodiscard]] bool isEnabled(Action action) const {
        QAction* item = MainMenuBuilder::item(window()->menuBar(), action);
        auto* menu = qobject_cast<QMenu*>(item->associatedObjects().value(0));
        menu->popup({});
        const bool enabled = item->isEnabled();
        menu->close();
        return enabled;
    }
};

TEST_F(NavigationTest, AClickInTheGridOpensThatDayOfTheMonth) {
    DayGridView* grid = sidebar()->grid();
    const CalendarGrid cells = DayGridView::layoutOf(grid->model(), grid->width());
    QTest::mouseClick(grid, Qt::LeftButton, {}, cells.cellRect(21).center().toPoint());
    EXPECT_EQ(inView(), (diary::MonthDay{3, 21}));
    EXPECT_EQ(grid->model().selectedDay, 21);
}

TEST_F(NavigationTest, TheMonthsWrapAndBeginOnTheirFirstDay) {
    sidebar()->onNextMonth();
    EXPECT_EQ(inView(), (diary::MonthDay{4, 1}));
    open(12, 31);
    sidebar()->onNextMonth();
    EXPECT_EQ(inView(), (diary::MonthDay{1, 1}));
    sidebar()->onPreviousMonth();
    EXPECT_EQ(inView(), (diary::MonthDay{12, 1}));
    sidebar()->onToday();
    EXPECT_EQ(inView(), today.monthDay());
}

TEST_F(NavigationTest, TheCycleWrapsFromTheFirstDayToTheLast) {
    open(1, 1);
    QTest::keyClick(editor(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(inView(), (diary::MonthDay{12, 31}));
}

TEST_F(NavigationTest, TheGridShowsTheWrittenDaysOnceTheVaultIsKnown) {
    EXPECT_TRUE(waitUntil([&] { return sidebar()->grid()->model().daysWithContent.contains(7); }));
    EXPECT_EQ(sidebar()->grid()->model().daysWithContent.size(), 1U);
}

TEST_F(NavigationTest, ACardOfTheRailOpensItsYear) {
    ASSERT_EQ(rail()->cards().size(), 2U);
    EXPECT_EQ(rail()->cards()[1]->year(), 2019);
    QTest::mouseClick(rail()->cards()[1], Qt::LeftButton);
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    EXPECT_EQ(editor()->draft(), u"An old year.");
    EXPECT_TRUE(rail()->cards()[1]->card().isActive);
    EXPECT_FALSE(rail()->cards()[0]->card().isActive);
}

TEST_F(NavigationTest, AnAddedYearIsWrittenOnceItHasText) {
    rail()->onAddYear(2021);
    EXPECT_EQ(controller->session().viewedYear(), 2021);
    EXPECT_EQ(rail()->cards().size(), 3U);
    QTest::keyClicks(editor(), QStringLiteral("Filled in."));
    controller->perform(Action::Save);
    EXPECT_EQ(onDisk(QStringLiteral("03-07"), 2021), u"Filled in.");
    EXPECT_EQ(onDisk(QStringLiteral("03-07"), 2019), u"An old year.");
}

TEST_F(NavigationTest, TheRailFollowsWhatIsTyped) {
    QTest::keyClicks(editor(), QStringLiteral("Now."));
    EXPECT_EQ(rail()->cards()[0]->card().snippet, u"Now.");
    EXPECT_EQ(rail()->cards()[0]->card().meta, u"4 chars");
}

TEST_F(NavigationTest, TheChipAndTheKeysTurnAllYearsOnAndOff) {
    QTest::mouseClick(rail()->chip(), Qt::LeftButton);
    EXPECT_TRUE(controller->session().showAllYears());
    EXPECT_TRUE(isChecked(Action::AllYears));
    EXPECT_FALSE(isChecked(Action::OneYear));
    EXPECT_FALSE(isEnabled(Action::Bold));
    controller->perform(Action::OneYear);
    EXPECT_FALSE(controller->session().showAllYears());
    EXPECT_TRUE(isChecked(Action::OneYear));
    EXPECT_TRUE(isEnabled(Action::Bold));
}

TEST_F(NavigationTest, ACardOfAllYearsLeadsToItsEditor) {
    controller->perform(Action::AllYears);
    ASSERT_TRUE(window()->entryView()->yearCards().contains(2019));
    QTest::mouseClick(window()->entryView()->yearCards().at(2019), Qt::LeftButton);
    EXPECT_FALSE(controller->session().showAllYears());
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(NavigationTest, FingersThatCloseShowAllYearsAndThatOpenPickOne) {
    EntryView* page = window()->entryView();
    page->onPinch(true, std::nullopt);
    EXPECT_TRUE(controller->session().showAllYears());
    page->onPinch(false, 2019);
    EXPECT_FALSE(controller->session().showAllYears());
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    page->onPinch(false, 2020);
    EXPECT_EQ(controller->session().viewedYear(), 2019) << "one year is open already";
    page->onPinch(true, std::nullopt);
    page->onPinch(false, std::nullopt);
    EXPECT_EQ(controller->session().viewedYear(), 2019);
}

TEST_F(NavigationTest, NoCommandTouchesTheDraftWhileItIsOutOfSight) {
    QTest::keyClicks(editor(), QStringLiteral("words"));
    controller->perform(Action::SelectAll);
    for (const Action view : {Action::AllYears, Action::ToggleSource}) {
        controller->perform(view);
        for (const Action command : {Action::Undo, Action::Redo, Action::Cut, Action::Paste,
                                     Action::Bold, Action::Heading1, Action::Indent}) {
            controller->perform(command);
            EXPECT_EQ(controller->session().draft(), u"words");
        }
    }
}

TEST_F(NavigationTest, TheSourceShowsTheFileWithWhatWasTyped) {
    QTest::keyClicks(editor(), QStringLiteral("words"));
    controller->perform(Action::ToggleSource);
    EXPECT_TRUE(controller->session().showSource());
    EXPECT_EQ(onDisk(QStringLiteral("03-07"), today.year), u"words");
    EXPECT_FALSE(window()->entryView()->showsEditor());
    controller->perform(Action::ToggleSource);
    EXPECT_TRUE(window()->entryView()->showsEditor());
    EXPECT_EQ(editor()->draft(), u"words");
}

TEST_F(NavigationTest, EditCommandsLeaveTheDayAloneWhileACardHasTheFocus) {
    QTest::keyClicks(editor(), QStringLiteral("words"));
    rail()->cards()[0]->setFocus(Qt::TabFocusReason);
    for (const Action action :
         {Action::SelectAll, Action::Cut, Action::Paste, Action::Undo, Action::Bold}) {
        controller->perform(action);
    }
    EXPECT_EQ(editor()->draft(), u"words");
}

TEST_F(NavigationTest, WhoTurnsTheMonthsByKeysGoesOnFromThere) {
    sidebar()->grid()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(sidebar()->grid(), Qt::Key_PageUp);
    EXPECT_EQ(inView(), (diary::MonthDay{2, 1}));
    EXPECT_TRUE(sidebar()->grid()->hasFocus());
    editor()->setFocus();
    sidebar()->onNextMonth();
    EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(NavigationTest, TheFileManagerShowsTheDayOrElseTheVault) {
    QStringList shown;
    controller->revealInFiles = [&](const QString& path) { shown.append(path); };
    controller->perform(Action::ShowInFinder);
    open(3, 8);
    controller->perform(Action::ShowInFinder);
    EXPECT_THAT(shown, ElementsAre(vault.filePath(QStringLiteral("03-07.md")), vault.path()));
}

TEST_F(NavigationTest, TheRailBringsTheOpenYearsCardIntoView) {
    QByteArray file = "# 05-05\n";
    for (int year = 2001; year < 2021; ++year) {
        file += "\n## " + QByteArray::number(year) + "\n\ntext\n";
    }
    vault.write(QStringLiteral("05-05.md"), file);
    open(5, 5);
    ASSERT_EQ(rail()->cards().size(), 21U);
    const RailCard* last = rail()->cards().back();
    EXPECT_TRUE(last->visibleRegion().isEmpty());
    controller->session().pickYear(2001, Focus::Unchanged);
    EXPECT_TRUE(waitUntil([&] { return last->visibleRegion().boundingRect() == last->rect(); }));
}

TEST_F(NavigationTest, DroppedFilesAreHandedOn) {
    QList<QUrl> dropped;
    controller->onImportDrop = [&](const QList<QUrl>& files) { dropped = files; };
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/export.zip"))});
    QDragEnterEvent enter({300, 300}, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({300, 300}, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window(), &drop);
    EXPECT_EQ(dropped, files.urls());
}

TEST_F(NavigationTest, TheYearCalendarOpensADayAndClosesWithTheWindow) {
    controller->perform(Action::YearCalendar);
    YearOverviewController* overview = controller->yearOverviewControllerIfMade();
    ASSERT_NE(overview, nullptr);
    EXPECT_TRUE(overview->isVisible());
    overview->onPick({2, 29});
    EXPECT_EQ(inView(), (diary::MonthDay{2, 29}));
    window()->close();
    EXPECT_FALSE(overview->isVisible());
}

TEST_F(NavigationTest, ADayInViewMovedFromMidTypingIsSavedFirst) {
    QTest::keyClicks(editor(), QStringLiteral("half a sen"));
    sidebar()->onSelectDay(8);
    EXPECT_EQ(onDisk(QStringLiteral("03-07"), today.year), u"half a sen");
}

TEST_F(NavigationTest, CommandsOfTheApplicationAreHandedOn) {
    for (const Action action : {Action::Settings, Action::Import, Action::ImportRecords,
                                Action::Export, Action::About, Action::CheckForUpdates}) {
        controller->perform(action);
    }
    sidebar()->onShowSettings();
    EXPECT_THAT(commands,
                ElementsAre(Action::Settings, Action::Import, Action::ImportRecords, Action::Export,
                            Action::About, Action::CheckForUpdates, Action::Settings));
}

TEST_F(NavigationTest, EverythingFollowsTheLanguage) {
    ASSERT_TRUE(waitUntil([&] { return sidebar()->grid()->model().daysWithContent.contains(7); }));
    localization::install(Language::ja);
    controller->retranslate();
    EXPECT_EQ(rail()->cards()[1]->card().ago, qtTrId("%d years ago", today.year - 2019));
    EXPECT_EQ(sidebar()->grid()->model().language, Language::ja);
}

}  // namespace
}  // namespace velmar
