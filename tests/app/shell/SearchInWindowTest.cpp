// The search in the window put together: over real files, in the background, with its hits on the
// page.
#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/MatchPill.h"
#include "DiaryApp/Navigation/RailCard.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "tests/app/shell/ShellFixture.h"

namespace velmar {
namespace {

class SearchInWindowTest : public test::ShellFixture {
protected:
    SearchInWindowTest() {
        write(QStringLiteral("03-07"), 2019, QStringLiteral("canal, then bread, then canal"));
        write(QStringLiteral("05-01"), 2020, QStringLiteral("The canal in May."));
        controller = makeController();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
        controller->perform(Action::Find);
    }

    [[nodiscard]] SearchField* field() const {
        return window()->searchPane()->findChild<SearchField*>();
    }
    // What the pill says; nothing while it doesn't show.
    [[nodiscard]] QString pillText() const {
        const auto* pill = window()->entryView()->findChild<MatchPill*>();
        return pill != nullptr && pill->isVisible() ? pill->label() : QString();
    }
    [[nodiscard]] const SearchController& search() const { return controller->search(); }
    void find(const QString& text) {
        QTest::keyClicks(field(), text);
        EXPECT_TRUE(waitUntil([&] {
            return search().session() && search().session()->result &&
                   search().session()->query == text && !search().session()->isSearching;
        }));
    }
};

TEST_F(SearchInWindowTest, OpensThePaneAndTakesTheKeys) {
    EXPECT_EQ(window()->sidebar()->mode(), SidebarView::Mode::Search);
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(SearchInWindowTest, ShowsTheNewestHitWhileTyping) {
    find(QStringLiteral("canal"));
    EXPECT_EQ(search().session()->result->hits.size(), 2U);
    EXPECT_EQ(controller->session().currentMonthDay(), (diary::MonthDay{5, 1}));
    EXPECT_EQ(controller->session().viewedYear(), 2020);
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(SearchInWindowTest, TheKeysWalkTheHitsAndReturnOpensTheOne) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    EXPECT_EQ(window()->rail()->cards()[1]->card().hits, QStringLiteral("2 hits"));
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_TRUE(editor()->hasFocus());
    EXPECT_EQ(editor()->selection(), (diary::TextRange{0, 0}))
        << "a selected word would go with the next key";
    EXPECT_EQ(settings.recentSearches(), QStringList(QStringLiteral("canal")));
}

TEST_F(SearchInWindowTest, ReturnRightBehindTheLastLetterOpensWhatItFinds) {
    QTest::keyClicks(field(), QStringLiteral("may"));
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return editor()->hasFocus(); }));
    EXPECT_EQ(controller->session().currentMonthDay(), (diary::MonthDay{5, 1}));
    EXPECT_EQ(editor()->selection(), (diary::TextRange{13, 0}));
}

TEST_F(SearchInWindowTest, StepsThroughTheMatchesOfTheOpenHit) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(search().openHitMatches(), (OpenHitMatches{2, 0}));
    EXPECT_EQ(pillText(), u"1 of 2");
    QTest::keyClick(field(), Qt::Key_F3);
    EXPECT_EQ(search().openHitMatches(), (OpenHitMatches{2, 1}));
    EXPECT_EQ(pillText(), u"2 of 2");
    QTest::keyClick(field(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(search().openHitMatches(), (OpenHitMatches{2, 0}));
    QTest::keyClick(field(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(search().openHitMatches(), (OpenHitMatches{2, 1}));
}

TEST_F(SearchInWindowTest, EscapeEmptiesTheFieldAndThenLeaves) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_TRUE(search().isOpen());
    EXPECT_EQ(field()->text(), QString());
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_FALSE(search().isOpen());
    EXPECT_EQ(window()->sidebar()->mode(), SidebarView::Mode::Calendar);
    EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(SearchInWindowTest, EscapeInTheTextLeavesTheSearchAtOnce) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Return);
    ASSERT_TRUE(editor()->hasFocus());
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_FALSE(search().isOpen());
    EXPECT_EQ(search().lastSearchQuery(), u"canal");
}

TEST_F(SearchInWindowTest, SavesADraftBeforeAHitTakesItsPlace) {
    controller->perform(Action::Today);
    QTest::keyClicks(editor(), QStringLiteral("half a sen"));
    controller->perform(Action::Find);
    find(QStringLiteral("bread"));
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    EXPECT_EQ(onDisk(today.monthDay().headerTitle(), today.year), u"half a sen");
}

TEST_F(SearchInWindowTest, AllYearsKeepTheirViewWhenAnotherHitIsShown) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(controller->session().showAllYears());
    controller->search().move(1);
    EXPECT_TRUE(controller->session().showAllYears());
    EXPECT_EQ(controller->session().currentMonthDay(), (diary::MonthDay{3, 7}));
    EXPECT_EQ(controller->session().viewedYear(), 2019);
}

TEST_F(SearchInWindowTest, TypingIntoTheHitTakesItsMarksAway) {
    find(QStringLiteral("bread"));
    QTest::keyClick(field(), Qt::Key_Return);
    ASSERT_TRUE(editor()->hasFocus());
    ASSERT_EQ(pillText(), u"1 of 1");
    QTest::keyClicks(editor(), QStringLiteral("B"));
    EXPECT_TRUE(waitUntil([&] { return pillText().isEmpty(); }));
    controller->perform(Action::Undo);
    EXPECT_EQ(editor()->draft(), u"canal, then bread, then canal");
}

TEST_F(SearchInWindowTest, FormatCommandsLeaveTheDayAloneWhileTheFieldHasTheFocus) {
    find(QStringLiteral("bread"));
    for (const Action action : {Action::Bold, Action::InlineCode, Action::Link, Action::Heading1}) {
        controller->perform(action);
    }
    EXPECT_EQ(editor()->draft(), u"canal, then bread, then canal");
    EXPECT_FALSE(controller->session().isDirty());
}

TEST_F(SearchInWindowTest, AnAnswerThatComesWhileSomeoneWritesTurnsNoPage) {
    controller->perform(Action::Today);
    QTest::keyClicks(editor(), QStringLiteral("Dear diary, "));
    controller->perform(Action::Find);
    QTest::keyClicks(field(), QStringLiteral("bread"));
    editor()->setFocus();
    QTest::keyClicks(editor(), QStringLiteral("today"));
    ASSERT_TRUE(waitUntil([&] { return search().session()->result.has_value(); }));
    QTest::keyClicks(editor(), QStringLiteral(" was long"));
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay());
    EXPECT_EQ(editor()->draft(), u"Dear diary, today was long");
}

TEST_F(SearchInWindowTest, AnAnswerTurnsNoPageWhileTheWriterIsInAnotherWindow) {
    controller->perform(Action::Today);
    QTest::keyClicks(field(), QStringLiteral("bread"));
    editor()->setFocus();
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_FALSE(editor()->hasFocus());
    ASSERT_TRUE(waitUntil([&] { return search().session()->result.has_value(); }));
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay());
}

TEST_F(SearchInWindowTest, ReturnOpensTheYearOutOfAllYearsAndOutOfTheSource) {
    find(QStringLiteral("bread"));
    controller->perform(Action::AllYears);
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_FALSE(controller->session().showAllYears());
    EXPECT_EQ(controller->session().viewedYear(), 2019);
    EXPECT_TRUE(editor()->hasFocus());
    controller->perform(Action::ToggleSource);
    controller->perform(Action::Find);
    EXPECT_FALSE(search().openHitMatches()) << "nothing to step through in the source";
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_FALSE(controller->session().showSource());
    EXPECT_TRUE(editor()->hasFocus());
}

TEST_F(SearchInWindowTest, TheTabKeyLeadsFromTheFieldIntoThePane) {
    find(QStringLiteral("canal"));
    QTest::keyClick(field(), Qt::Key_Tab);
    EXPECT_TRUE(window()->searchPane()->isAncestorOf(window()->focusWidget()));
    window()->topBar()->findChildren<QWidget*>().last()->setFocus();
    QTest::keyClick(window()->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window()->focusWidget(), field());
}

TEST_F(SearchInWindowTest, TheEditCommandsActOnTheFieldThatHasTheFocus) {
    find(QStringLiteral("canal"));
    controller->perform(Action::SelectAll);
    EXPECT_EQ(field()->selectedText(), u"canal");
    controller->perform(Action::Cut);
    EXPECT_EQ(field()->text(), QString());
    controller->perform(Action::Undo);
    EXPECT_EQ(field()->text(), u"canal");
    EXPECT_EQ(editor()->draft(), u"The canal in May.");
}

}  // namespace
}  // namespace velmar
