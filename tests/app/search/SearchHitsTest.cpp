// The hits of a search: walking them, opening one, and the matches in its text.
#include "DiaryApp/Search/SearchController.h"
#include "tests/app/search/SearchFixture.h"

namespace velmar {
namespace {

using test::MonthDay;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

class SearchHitsTest : public test::SearchFixture {};

TEST_F(SearchHitsTest, MovingGoesAroundTheEnds) {
    controller->showSearch();
    controller->move(1);
    EXPECT_FALSE(session().selected);
    search(QStringLiteral("canal"));
    ASSERT_EQ(session().selected, 0);
    controller->move(1);
    EXPECT_EQ(session().selected, 1);
    EXPECT_EQ(day, (MonthDay{10, 2}));
    controller->move(1);
    controller->move(1);
    EXPECT_EQ(session().selected, 0);
    controller->move(-1);
    EXPECT_EQ(session().selected, 2);
    EXPECT_EQ(year, 2021);
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
}

TEST_F(SearchHitsTest, SelectingOutsideOfTheHitsIsNothing) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    calls.clear();
    controller->select(3);
    controller->select(-1);
    EXPECT_EQ(session().selected, 0);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(SearchHitsTest, MatchesAreSteppedThroughAroundTheEnds) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    EXPECT_EQ(controller->openHitMatches(), (OpenHitMatches{2, 0}));
    controller->stepMatch(1);
    EXPECT_EQ(controller->openHitMatches(), (OpenHitMatches{2, 1}));
    EXPECT_EQ(currentHighlight, 1);
    controller->stepMatch(1);
    EXPECT_EQ(currentHighlight, 0);
    controller->stepMatch(-1);
    EXPECT_EQ(currentHighlight, 1);
    EXPECT_EQ(highlights.size(), 2U);
    EXPECT_EQ(scrolls, 4);
}

TEST_F(SearchHitsTest, ThereIsNoStepAwayFromTheSelectedHit) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    year = 2025;
    EXPECT_EQ(controller->openHitMatches(), std::nullopt);
    controller->stepMatch(1);
    EXPECT_EQ(session().currentMatch, 0);
    year = 2026;
    allYears = true;
    controller->stepMatch(1);
    EXPECT_EQ(session().currentMatch, 0);
    allYears = false;
    search(QStringLiteral("11-21 2026"));
    controller->stepMatch(1);
    EXPECT_EQ(session().currentMatch, 0);
    EXPECT_EQ(controller->openHitMatches(), std::nullopt);
}

TEST_F(SearchHitsTest, MatchesFollowTheTextAsItIsWritten) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->stepMatch(1);
    pages[{day, year}] = QStringLiteral("The canal.");
    EXPECT_EQ(controller->openHitMatches(), (OpenHitMatches{1, 0}));
    controller->applySearchHighlights(SearchScroll::Stay);
    EXPECT_EQ(highlights, (SearchHost::Ranges{{4, 5}}));
    pages[{day, year}] = QStringLiteral("The river.");
    EXPECT_EQ(controller->openHitMatches(), std::nullopt);
    controller->applySearchHighlights(SearchScroll::Stay);
    EXPECT_THAT(highlights, IsEmpty());
}

TEST_F(SearchHitsTest, TheFirstKeyIntoTheDraftClearsTheMarks) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->draftBecameDirty();
    EXPECT_THAT(highlights, IsEmpty());
}

TEST_F(SearchHitsTest, ReturnOpensTheHitAtItsFirstMatchAndRemembersTheLine) {
    controller->showSearch();
    controller->openSelected(OpenHit::OneYear);
    EXPECT_THAT(remembered, IsEmpty());
    search(QStringLiteral("canal"));
    controller->stepMatch(1);
    controller->openSelected(OpenHit::OneYear);
    EXPECT_THAT(remembered, ElementsAre(QStringLiteral("canal")));
    EXPECT_EQ(calls.last(), QStringLiteral("focusEditor"));
    EXPECT_EQ(selected, (diary::TextRange{13, 5}));
    EXPECT_EQ(session().currentMatch, 0);
    EXPECT_TRUE(controller->isOpen());
}

TEST_F(SearchHitsTest, ReturnAheadOfTheAnswerOpensWhatItFinds) {
    controller->showSearch();
    search(QStringLiteral("rain"));
    ASSERT_EQ(year, 2025);
    type(QStringLiteral("boat"));
    controller->openSelected(OpenHit::OneYear);
    EXPECT_EQ(started.back().query.terms, QStringList(QStringLiteral("boat"))) << "at once";
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor")))) << "the old hit isn't meant";
    EXPECT_THAT(remembered, IsEmpty());
    const std::size_t searches = started.size();
    answer();
    EXPECT_EQ(day, (MonthDay{10, 2}));
    EXPECT_EQ(calls.last(), QStringLiteral("focusEditor"));
    EXPECT_THAT(remembered, ElementsAre(QStringLiteral("boat")));
    timers.advance(SearchController::searchDelay);
    EXPECT_EQ(started.size(), searches) << "and no second time";
}

TEST_F(SearchHitsTest, ReturnAheadOfTheAnswerOpensAllYearsOfWhatItFinds) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    controller->openSelected(OpenHit::AllYears);
    answer();
    EXPECT_EQ(day, (MonthDay{10, 2}));
    EXPECT_TRUE(allYears);
}

TEST_F(SearchHitsTest, ReturnAheadOfTheAnswerIsForgottenWithTheNextKey) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    controller->openSelected(OpenHit::OneYear);
    type(QStringLiteral("boats"));
    answer();
    search(QStringLiteral("canal"));
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
}

TEST_F(SearchHitsTest, ReturnOpensNoHitOfTheLineBefore) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    timers.advance(SearchController::searchDelay);
    type(QStringLiteral("canal"));
    answer();
    ASSERT_EQ(day, (MonthDay{10, 2})) << "the last line's hit shows until the next one's is found";
    controller->openSelected(OpenHit::OneYear);
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
    answer();
    EXPECT_EQ(remembered, QStringList(QStringLiteral("canal")));
}

TEST_F(SearchHitsTest, ReturnAheadOfTheAnswerTurnsNoPageOnceSomeoneWrites) {
    SearchHost writing = host();
    bool isWriting = false;
    writing.isWriting = [&] { return isWriting; };
    controller = std::make_unique<SearchController>(writing, timers.maker());
    controller->showSearch();
    type(QStringLiteral("boat"));
    controller->openSelected(OpenHit::OneYear);
    isWriting = true;
    answer();
    EXPECT_EQ(day, (MonthDay{11, 21}));
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
}

TEST_F(SearchHitsTest, ReturnInAnEmptyLineIsNothing) {
    controller->showSearch();
    controller->openSelected(OpenHit::OneYear);
    search(QStringLiteral("canal"));
    controller->searchQueryChanged(QString(), SearchController::Run::AfterPause);
    controller->openSelected(OpenHit::OneYear);
    EXPECT_FALSE(session().result) << "the line asks for nothing any more";
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
    EXPECT_THAT(remembered, IsEmpty());
}

TEST_F(SearchHitsTest, AHitOfADateAloneOpensWithoutASelection) {
    controller->showSearch();
    search(QStringLiteral("11-21"));
    controller->openSelected(OpenHit::OneYear);
    EXPECT_EQ(calls.last(), QStringLiteral("focusEditor"));
    EXPECT_FALSE(selected);
}

TEST_F(SearchHitsTest, OpeningInAllYearsMarksTheCardsAndStaysInTheField) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    scrolls = 0;
    controller->openSelected(OpenHit::AllYears);
    EXPECT_TRUE(allYears);
    EXPECT_THAT(remembered, ElementsAre(QStringLiteral("canal")));
    EXPECT_THAT(cards[2026], testing::SizeIs(2));
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
    EXPECT_EQ(scrolls, 0);
}

TEST_F(SearchHitsTest, TheRailGetsTheHitsOfTheDay) {
    EXPECT_THAT(controller->railHits(day), IsEmpty());
    controller->showSearch();
    search(QStringLiteral("canal"));
    EXPECT_THAT(controller->railHits(day), ElementsAre(Pair(2021, 1), Pair(2026, 2)));
    EXPECT_THAT(controller->railHits({10, 2}), ElementsAre(Pair(2026, 1)));
    EXPECT_THAT(controller->railHits({1, 1}), IsEmpty());
    search(QStringLiteral("03-07"));
    EXPECT_THAT(controller->railHits({3, 7}), ElementsAre(Pair(2025, 1)));
}

TEST_F(SearchHitsTest, LiveMatchesAreNoneUnlessEveryWordIsThere) {
    controller->showSearch();
    search(QStringLiteral("canal frost"));
    EXPECT_EQ(controller->liveMatchRanges(2026), (SearchHost::Ranges{{0, 5}, {13, 5}, {24, 5}}));
    EXPECT_THAT(controller->liveMatchRanges(2021), IsEmpty());
    search(QStringLiteral("11-21"));
    EXPECT_THAT(controller->liveMatchRanges(2026), IsEmpty());
}

}  // namespace
}  // namespace velmar
