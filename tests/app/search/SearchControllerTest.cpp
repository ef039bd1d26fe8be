#include "DiaryApp/Search/SearchController.h"

#include "tests/app/search/SearchFixture.h"

namespace velmar {
namespace {

using namespace std::chrono_literals;
using test::MonthDay;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

class SearchControllerTest : public test::SearchFixture {};

TEST_F(SearchControllerTest, OpensWithTheYearsOfTheVaultAndTheFocusInTheField) {
    controller->showSearch();
    ASSERT_TRUE(controller->isOpen());
    EXPECT_TRUE(showsSearch);
    EXPECT_THAT(session().years, ElementsAre(2026, 2025, 2021, 2019));
    EXPECT_THAT(carets, ElementsAre(FieldCaret::SelectAll));
    EXPECT_THAT(started, IsEmpty());
    EXPECT_EQ(session().query, QString());
}

TEST_F(SearchControllerTest, YearsThatAreNotKnownYetComeLaterAndOnce) {
    contentYears.reset();
    controller->contentYearsBecameKnown();
    controller->showSearch();
    EXPECT_THAT(session().years, IsEmpty());
    contentYears = {2021, 2026};
    calls.clear();
    controller->contentYearsBecameKnown();
    EXPECT_THAT(session().years, ElementsAre(2026, 2021));
    EXPECT_THAT(calls, Contains(QStringLiteral("sidebar")));
    contentYears = {2021, 2026, 2027};
    controller->contentYearsBecameKnown();
    EXPECT_THAT(session().years, ElementsAre(2026, 2021));
}

TEST_F(SearchControllerTest, ShowingAnOpenSearchOnlyTakesTheFocus) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->move(1);
    const SearchSession before = session();
    controller->showSearch();
    EXPECT_EQ(session(), before);
    EXPECT_EQ(started.size(), 1U);
    EXPECT_EQ(carets.back(), FieldCaret::SelectAll);
}

TEST_F(SearchControllerTest, WithoutASearchNothingHappens) {
    controller->searchQueryChanged(QStringLiteral("canal"), SearchController::Run::Immediately);
    controller->setScope(2025);
    controller->select(0);
    controller->move(1);
    controller->openSelected(OpenHit::OneYear);
    controller->escape();
    controller->exitSearch();
    controller->useRecentSearch(QStringLiteral("canal"));
    controller->stepMatch(1);
    controller->applySearchHighlights(SearchScroll::Stay);
    controller->draftBecameDirty();
    controller->vaultRefreshed();
    EXPECT_FALSE(controller->isOpen());
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_THAT(started, IsEmpty());
    EXPECT_EQ(clearings, 0);
    EXPECT_TRUE(controller->lastSearchQuery().isEmpty());
}

TEST_F(SearchControllerTest, EachKeyStartsThePauseAnew) {
    controller->showSearch();
    type(QStringLiteral("c"));
    timers.advance(199ms);
    type(QStringLiteral("ca"));
    timers.advance(199ms);
    type(QStringLiteral("can"));
    timers.advance(199ms);
    EXPECT_THAT(started, IsEmpty());
    timers.advance(1ms);
    ASSERT_EQ(started.size(), 1U);
    EXPECT_EQ(started[0].query.terms, QStringList{QStringLiteral("can")});
    EXPECT_TRUE(session().isSearching);
    EXPECT_EQ(timers.armedCount(), 0);
}

TEST_F(SearchControllerTest, AnAnswerThatANewerSearchOvertookIsDropped) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    timers.advance(200ms);
    type(QStringLiteral("canal"));
    timers.advance(200ms);
    ASSERT_EQ(started.size(), 2U);
    const int generation = session().generation;
    started[0].finish(found(started[0].query));
    EXPECT_FALSE(session().result);
    EXPECT_TRUE(session().isSearching);
    EXPECT_EQ(session().generation, generation);
    answer();
    ASSERT_TRUE(session().result);
    EXPECT_EQ(session().result->hits.size(), 3U);
    EXPECT_FALSE(session().isSearching);
    started[0].finish(found(started[0].query));
    EXPECT_EQ(session().result->hits.size(), 3U);
}

TEST_F(SearchControllerTest, AnAnswerToAClosedSearchIsDropped) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    timers.advance(200ms);
    controller->exitSearch();
    calls.clear();
    answer();
    EXPECT_THAT(calls, IsEmpty());
    controller->showSearch();
    ASSERT_EQ(started.size(), 2U);
    started[0].finish(found(started[0].query));
    EXPECT_FALSE(session().result);
}

TEST_F(SearchControllerTest, ClosingBeforeThePauseSearchesNothing) {
    controller->showSearch();
    type(QStringLiteral("boat"));
    controller->exitSearch();
    timers.advance(1s);
    EXPECT_THAT(started, IsEmpty());
}

TEST_F(SearchControllerTest, TheHitInViewIsSelectedElseTheFirst) {
    year = 2021;
    controller->showSearch();
    search(QStringLiteral("canal"));
    EXPECT_EQ(session().selected, 2);
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("pick 2021"))));
    search(QStringLiteral("boat"));
    EXPECT_EQ(session().selected, 0);
    EXPECT_EQ(day, (MonthDay{10, 2}));
    EXPECT_EQ(year, 2026);
    EXPECT_THAT(calls, Contains(QStringLiteral("open 10-02 2026")));
    EXPECT_THAT(calls, Not(Contains(QStringLiteral("focusEditor"))));
}

TEST_F(SearchControllerTest, AHitOfAnotherDayAndYearIsOpenedAndDrawnOnce) {
    controller->showSearch();
    type(QStringLiteral("2025 boat"));
    timers.advance(SearchController::searchDelay);
    calls.clear();
    answer();
    // Opening draws everything itself, with the hit already selected.
    EXPECT_EQ(calls, QStringList(QStringLiteral("open 03-07 2025")));
    EXPECT_EQ(session().selected, 0);
    EXPECT_EQ(highlights, (SearchHost::Ranges{{2, 4}}));
    EXPECT_EQ(scrolls, 1);
}

TEST_F(SearchControllerTest, ADayThatCannotBeLeftStaysInView) {
    canLeave = false;
    controller->showSearch();
    search(QStringLiteral("boat"));
    EXPECT_EQ(day, (MonthDay{11, 21}));
    EXPECT_EQ(year, 2026);
    EXPECT_EQ(session().selected, 0);
    EXPECT_THAT(highlights, IsEmpty());
}

TEST_F(SearchControllerTest, InTheAllYearsViewAHitsYearComesIntoViewThere) {
    allYears = true;
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->select(2);
    EXPECT_TRUE(allYears);
    EXPECT_EQ(year, 2021);
    EXPECT_THAT(calls, Contains(QStringLiteral("view 2021")));
    EXPECT_EQ(calls.count(QStringLiteral("status")), 1);
    EXPECT_THAT(
        cards,
        ElementsAre(Pair(2021, ElementsAre(diary::TextRange{4, 5})), Pair(2025, IsEmpty()),
                    Pair(2026, ElementsAre(diary::TextRange{13, 5}, diary::TextRange{24, 5}))));
}

TEST_F(SearchControllerTest, NothingFoundClearsTheMarks) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    EXPECT_THAT(highlights, Not(IsEmpty()));
    search(QStringLiteral("lighthouse"));
    EXPECT_THAT(highlights, IsEmpty());
    EXPECT_FALSE(session().selected);
    ASSERT_TRUE(session().result);
    EXPECT_THAT(session().result->hits, IsEmpty());
    EXPECT_EQ(day, (MonthDay{11, 21}));
}

TEST_F(SearchControllerTest, ADateInAnEmptyVaultIsAnAnswerWithoutHits) {
    pages.clear();
    controller->showSearch();
    search(QStringLiteral("03-07"));
    ASSERT_TRUE(session().result);
    EXPECT_EQ(*session().result, diary::SearchResult());
    EXPECT_FALSE(session().selected);
}

TEST_F(SearchControllerTest, AnEmptiedLineHasNoResultAndEachListANumberOfItsOwn) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    const int generation = session().generation;
    type(QStringLiteral("  "));
    timers.advance(200ms);
    EXPECT_EQ(started.size(), 1U);
    EXPECT_FALSE(session().result);
    EXPECT_THAT(session().terms, IsEmpty());
    EXPECT_FALSE(session().selected);
    EXPECT_GT(session().generation, generation);
    EXPECT_THAT(highlights, IsEmpty());
}

TEST_F(SearchControllerTest, AnEmptiedLineAlsoDropsTheRunningSearch) {
    controller->showSearch();
    type(QStringLiteral("canal"));
    timers.advance(200ms);
    controller->escape();
    answer();
    EXPECT_FALSE(session().result);
    EXPECT_FALSE(session().isSearching);
}

TEST_F(SearchControllerTest, AChipGoesBeforeTheYearOfTheLine) {
    controller->showSearch();
    search(QStringLiteral("2025-03 boat 10-02"));
    carets.clear();
    controller->setScope(2026);
    ASSERT_EQ(started.size(), 2U);
    const diary::SearchQuery& query = started[1].query;
    EXPECT_EQ(query.year, 2026);
    EXPECT_EQ(query.month, 3);
    EXPECT_EQ(query.monthDay, (MonthDay{10, 2}));
    EXPECT_THAT(carets, ElementsAre(FieldCaret::AtEnd));
    controller->setScope({});
    EXPECT_EQ(started[2].query.year, 2025);
}

TEST_F(SearchControllerTest, AChipAloneSearchesNothing) {
    controller->showSearch();
    controller->setScope(2025);
    EXPECT_THAT(started, IsEmpty());
    EXPECT_EQ(session().scope, 2025);
    EXPECT_FALSE(session().isSearching);
}

TEST_F(SearchControllerTest, AChipSearchesWhatWasTypedOnce) {
    controller->showSearch();
    type(QStringLiteral("canal"));
    controller->setScope(2026);
    ASSERT_EQ(started.size(), 1U);
    timers.advance(1s);
    EXPECT_EQ(started.size(), 1U);
}

TEST_F(SearchControllerTest, EscapeClearsTheLineThenLeaves) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->escape();
    EXPECT_TRUE(controller->isOpen());
    EXPECT_TRUE(fieldText.isEmpty());
    EXPECT_TRUE(session().query.isEmpty());
    EXPECT_FALSE(session().result);
    EXPECT_TRUE(showsSearch);
    calls.clear();
    controller->escape();
    EXPECT_FALSE(controller->isOpen());
    EXPECT_FALSE(showsSearch);
    EXPECT_THAT(highlights, IsEmpty());
    EXPECT_THAT(calls, ElementsAre(QStringLiteral("sidebar"), QStringLiteral("entry"),
                                   QStringLiteral("rail"), QStringLiteral("focusEditor")));
}

TEST_F(SearchControllerTest, ComingBackBringsTheLineWhichRunsAgain) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    const int generation = session().generation;
    controller->setScope(2026);
    controller->exitSearch();
    EXPECT_EQ(controller->lastSearchQuery(), QStringLiteral("canal"));
    controller->showSearch();
    EXPECT_EQ(session().query, QStringLiteral("canal"));
    EXPECT_FALSE(session().scope);
    EXPECT_FALSE(session().result);
    EXPECT_TRUE(session().isSearching);
    // A pane that still holds the old rows must not take them for the new ones.
    EXPECT_GT(session().generation, generation);
    ASSERT_EQ(started.size(), 3U);
    answer();
    EXPECT_EQ(session().result->hits.size(), 3U);
}

TEST_F(SearchControllerTest, ARecentSearchRunsAtOnce) {
    controller->showSearch();
    carets.clear();
    controller->useRecentSearch(QStringLiteral("boat"));
    EXPECT_EQ(fieldText, QStringLiteral("boat"));
    EXPECT_THAT(carets, ElementsAre(FieldCaret::AtEnd));
    ASSERT_EQ(started.size(), 1U);
    timers.advance(1s);
    EXPECT_EQ(started.size(), 1U);
}

TEST_F(SearchControllerTest, AScriptedQueryRunsAtOnceWhenTheSearchIsShown) {
    scriptedQuery = QStringLiteral("boat");
    controller = std::make_unique<SearchController>(host(), timers.maker());
    controller->showSearch();
    EXPECT_EQ(fieldText, QStringLiteral("boat"));
    EXPECT_EQ(session().query, QStringLiteral("boat"));
    ASSERT_EQ(started.size(), 1U);
    EXPECT_EQ(started[0].query.terms, QStringList{QStringLiteral("boat")});
}

TEST_F(SearchControllerTest, FilesThatWereMissingAreSearchedAgainAfterARefresh) {
    controller->showSearch();
    search(QStringLiteral("canal"));
    controller->vaultRefreshed();
    EXPECT_EQ(started.size(), 1U);
    type(QStringLiteral("boat"));
    timers.advance(200ms);
    diary::SearchResult partial = found(started.back().query);
    partial.pendingDownloads = 1;
    started.back().finish(partial);
    controller->vaultRefreshed();
    EXPECT_EQ(started.size(), 3U);
    EXPECT_TRUE(session().isSearching);
    // The rows stay until the new answer is there.
    EXPECT_TRUE(session().result);
}

class RepeatedSearchTest : public test::SearchFixture {
protected:
    // "canal" was found on three pages, and a file is still to come.
    RepeatedSearchTest() {
        controller->showSearch();
        type(QStringLiteral("canal"));
        timers.advance(SearchController::searchDelay);
        answerPartly();
    }

    void answerPartly() {
        diary::SearchResult partial = found(started.back().query);
        partial.pendingDownloads = 1;
        started.back().finish(partial);
    }

    // A file of a newer year arrives, whose hit goes ahead of the others.
    void refresh() {
        pages[{{1, 2}, 2027}] = QStringLiteral("The canal, once more.");
        controller->vaultRefreshed();
    }

    [[nodiscard]] const diary::SearchHit& selectedHit() const {
        return session().result->hits.at(static_cast<std::size_t>(session().selected.value()));
    }
};

TEST_F(RepeatedSearchTest, KeepsTheHitAndTheMatchThatAreSelected) {
    ASSERT_EQ(session().selected, 0);
    controller->stepMatch(1);
    refresh();
    answer();
    EXPECT_EQ(session().result->hits.size(), 4U);
    EXPECT_EQ(session().selected, 1);
    EXPECT_EQ(selectedHit().monthDay, (MonthDay{11, 21}));
    EXPECT_EQ(selectedHit().year, 2026);
    EXPECT_EQ(session().currentMatch, 1);
}

TEST_F(RepeatedSearchTest, TurnsNoPageThatTheUserWentTo) {
    controller->select(2);
    ASSERT_EQ(year, 2021);
    day = {3, 7};
    year = 2025;
    refresh();
    calls.clear();
    answer();
    EXPECT_EQ(selectedHit().year, 2021);
    EXPECT_EQ(day, (MonthDay{3, 7}));
    EXPECT_THAT(calls, ElementsAre(QStringLiteral("sidebar"), QStringLiteral("entry"),
                                   QStringLiteral("rail")));
}

TEST_F(RepeatedSearchTest, SelectsAnewWhereTheHitIsGone) {
    controller->select(2);
    pages[{{11, 21}, 2021}] = QStringLiteral("The river by night.");
    refresh();
    answer();
    EXPECT_EQ(session().selected, 0);
    EXPECT_EQ(selectedHit().year, 2027);
}

TEST_F(RepeatedSearchTest, AnotherLineIsNoRepetition) {
    controller->select(2);
    day = {3, 7};
    year = 2025;
    // The pause after the last key isn't over yet.
    type(QStringLiteral("the"));
    refresh();
    answer();
    EXPECT_EQ(session().terms, QStringList(QStringLiteral("the")));
    EXPECT_EQ(session().selected, 0);
}

TEST_F(RepeatedSearchTest, IsTheSystemsDoing) {
    controller->select(2);
    day = {3, 7};
    year = 2025;
    controller->useRecentSearch(QStringLiteral("canal"));
    answer();
    EXPECT_EQ(session().selected, 0) << "who searches again wants the first hit";
}

}  // namespace
}  // namespace velmar
