#include "DiaryApp/Search/SearchPaneState.h"

#include <gmock/gmock.h>

#include "tests/support/Printing.h"

namespace velmar {
namespace {

using diary::MonthDay;
using diary::SearchHit;
using diary::SearchQuery;
using diary::SearchResult;
using diary::TextRange;

using Group = SearchPaneState::Group;
using Notice = SearchPaneState::Notice;
using NoResults = SearchPaneState::NoResults;
using Recents = SearchPaneState::Recents;
using Row = SearchPaneState::Row;

class SearchPaneStateTest : public testing::Test {
protected:
    SearchPaneStateTest() { speak(Language::en); }
    ~SearchPaneStateTest() override { localization::install(Language::en); }

    void speak(Language language) {
        localization::install(language);
        context.language = language;
    }

    static SearchHit hit(MonthDay day, int year, int matches) {
        SearchHit made{day, year, QStringLiteral("snippet"), {{0, 3}}, {}};
        for (int i = 0; i < matches; ++i) made.ranges.push_back({i * 10, 3});
        return made;
    }

    void find(const QString& query, std::vector<SearchHit> hits) {
        session.query = query;
        session.result = SearchResult{std::move(hits), 0, false};
        session.terms = SearchQuery::parsing(query).terms;
    }

    [[nodiscard]] SearchPaneState state() const { return searchPaneState(session, context); }

    [[nodiscard]] QString countLine() const { return state().countLine.value_or(QString()); }

    SearchSession session{.query = {},
                          .scope = {},
                          .years = {2026, 2025, 2019},
                          .result = {},
                          .terms = {},
                          .selected = {},
                          .currentMatch = 0,
                          .isSearching = false,
                          .generation = 7};
    SearchPaneContext context{.currentYear = 2026,
                              .recentSearches = {QStringLiteral("canal"), QStringLiteral("03-07")},
                              .language = Language::en};
};

TEST_F(SearchPaneStateTest, AnEmptyLineShowsTheRecentSearches) {
    SearchPaneState expected;
    expected.scopeYears = {2026, 2025, 2019};
    expected.empty = Recents{
        {QStringLiteral("canal"), QStringLiteral("03-07")},
        QStringLiteral(
            "Several words must all be there. A year, a month or a date narrows the search.")};
    expected.generation = 7;
    EXPECT_EQ(state(), expected);
    session.query = QStringLiteral(" \t　");
    EXPECT_EQ(state(), expected);
}

TEST_F(SearchPaneStateTest, AChipOnAnEmptyLineShowsTheRecentSearchesToo) {
    session.scope = 2025;
    const SearchPaneState shown = state();
    EXPECT_TRUE(std::holds_alternative<Recents>(shown.empty));
    EXPECT_EQ(shown.scope, 2025);
    EXPECT_FALSE(shown.countLine);
}

TEST_F(SearchPaneStateTest, TheFirstSearchShowsNothingButThatItRuns) {
    session.query = QStringLiteral("canal");
    session.isSearching = true;
    SearchPaneState expected;
    expected.scopeYears = {2026, 2025, 2019};
    expected.isSearching = true;
    expected.generation = 7;
    EXPECT_EQ(state(), expected);
}

TEST_F(SearchPaneStateTest, NoHitsSaysSoAndLeadsOutOfAYear) {
    find(QStringLiteral("light %1"), {});
    SearchPaneState expected;
    expected.scopeYears = {2026, 2025, 2019};
    expected.generation = 7;
    NoResults nothing{QStringLiteral("Nothing with “light %1”"),
                      QStringLiteral("Try fewer words, or other ones."), std::nullopt};
    expected.empty = nothing;
    EXPECT_EQ(state(), expected);
    session.scope = 2025;
    expected.scope = 2025;
    nothing.resetScope = QStringLiteral("Search All Years");
    expected.empty = nothing;
    EXPECT_EQ(state(), expected);
}

TEST_F(SearchPaneStateTest, ADateInAnEmptyVaultHasNoResults) {
    find(QStringLiteral("03-07"), {});
    EXPECT_TRUE(std::holds_alternative<NoResults>(state().empty));
}

TEST_F(SearchPaneStateTest, HitsAreGroupedByRunsOfAYear) {
    find(QStringLiteral("canal"),
         {hit({11, 21}, 2026, 2), hit({10, 2}, 2026, 1), hit({12, 2}, 2025, 3)});
    session.selected = 1;
    SearchPaneState expected;
    expected.scopeYears = {2026, 2025, 2019};
    expected.countLine = QStringLiteral("6 hits · 3 days · 2 years");
    expected.selected = 1;
    expected.generation = 7;
    const std::vector<TextRange> marks = {{0, 3}};
    expected.groups = {
        Group{QStringLiteral("This year"),
              QStringLiteral("3 hits"),
              {Row{0, QStringLiteral("11-21"), QStringLiteral("Sat, Nov 21"),
                   QStringLiteral("2 hits"), QStringLiteral("snippet"), marks},
               Row{1, QStringLiteral("10-02"), QStringLiteral("Fri, Oct 2"), std::nullopt,
                   QStringLiteral("snippet"), marks}}},
        Group{QStringLiteral("2025"),
              QStringLiteral("3 hits"),
              {Row{2, QStringLiteral("12-02"), QStringLiteral("Tue, Dec 2"),
                   QStringLiteral("3 hits"), QStringLiteral("snippet"), marks}}},
    };
    EXPECT_EQ(state(), expected);
}

TEST_F(SearchPaneStateTest, RowsThatAreShownAreNotMadeAgain) {
    find(QStringLiteral("canal"), {hit({11, 21}, 2026, 2)});
    context.shownGeneration = session.generation;
    SearchPaneState expected = state();
    EXPECT_TRUE(expected.groups.empty());
    EXPECT_EQ(expected.countLine, QStringLiteral("2 hits · 1 day · 1 year"));
    context.shownGeneration = session.generation - 1;
    EXPECT_EQ(state().groups.size(), 1U);
    expected.groups = state().groups;
    EXPECT_EQ(state(), expected);
}

TEST_F(SearchPaneStateTest, AWeekdayStandsAloneInChineseAndJapanese) {
    find(QStringLiteral("canal"), {hit({11, 21}, 2026, 2)});
    speak(Language::zhHans);
    EXPECT_EQ(state().groups[0].rows[0].weekday, QStringLiteral("星期六"));
    EXPECT_EQ(state().groups[0].title, QStringLiteral("今年"));
    EXPECT_EQ(state().groups[0].rows[0].hits, QStringLiteral("2 处"));
    speak(Language::ja);
    EXPECT_EQ(state().groups[0].rows[0].weekday, QStringLiteral("土曜日"));
    EXPECT_EQ(state().groups[0].count, QStringLiteral("2 件"));
}

TEST_F(SearchPaneStateTest, LeapDayOfACommonYearHasNoWeekday) {
    find(QStringLiteral("canal"), {hit({2, 29}, 2025, 1), hit({2, 29}, 2024, 1)});
    EXPECT_EQ(state().groups[0].rows[0].weekday, QString());
    EXPECT_EQ(state().groups[1].rows[0].weekday, QStringLiteral("Thu, Feb 29"));
    speak(Language::ja);
    EXPECT_EQ(state().groups[0].rows[0].weekday, QString());
}

TEST_F(SearchPaneStateTest, ADateAloneCountsNoHits) {
    find(QStringLiteral("03-07"), {hit({3, 7}, 2026, 0), hit({3, 7}, 2025, 0)});
    const SearchPaneState shown = state();
    for (const Group& group : shown.groups) {
        EXPECT_EQ(group.count, QString());
        EXPECT_FALSE(group.rows[0].hits);
    }
    EXPECT_EQ(shown.countLine, QStringLiteral("Mar 7 · 2 years"));
}

TEST_F(SearchPaneStateTest, CountLineFollowsTheKindOfTheQuery) {
    const std::vector<SearchHit> hits = {hit({3, 7}, 2025, 2), hit({3, 1}, 2025, 1)};
    struct Line {
        QString query;
        std::optional<int> scope;
        QString english;
        QString chinese;
        QString japanese;
    };
    const std::vector<Line> lines = {
        {QStringLiteral("canal"),
         {},
         QStringLiteral("3 hits · 2 days · 1 year"),
         QStringLiteral("3 处 · 2 天 · 1 年"),
         QStringLiteral("3 件 · 2 日 · 1 年")},
        {QStringLiteral("canal 2025-03"),
         {},
         QStringLiteral("3 hits · 2 days · 1 year"),
         QStringLiteral("3 处 · 2 天 · 1 年"),
         QStringLiteral("3 件 · 2 日 · 1 年")},
        {QStringLiteral("03-07"),
         {},
         QStringLiteral("Mar 7 · 2 years"),
         QStringLiteral("03-07 · 2 年"),
         QStringLiteral("03-07 · 2 年分")},
        {QStringLiteral("02-29"),
         {},
         QStringLiteral("Feb 29 · 2 years"),
         QStringLiteral("02-29 · 2 年"),
         QStringLiteral("02-29 · 2 年分")},
        {QStringLiteral("02-31"),
         {},
         QStringLiteral("02-31 · 2 years"),
         QStringLiteral("02-31 · 2 年"),
         QStringLiteral("02-31 · 2 年分")},
        {QStringLiteral("03-07 2025-03"),
         {},
         QStringLiteral("Mar 7 · 2 years"),
         QStringLiteral("03-07 · 2 年"),
         QStringLiteral("03-07 · 2 年分")},
        {QStringLiteral("2025-03"),
         {},
         QStringLiteral("March 2025 · 2 days"),
         QStringLiteral("2025 年三月 · 2 天"),
         QStringLiteral("2025 年 3月 · 2 日分")},
        {QStringLiteral("2024-03"), 2025, QStringLiteral("March 2025 · 2 days"),
         QStringLiteral("2025 年三月 · 2 天"), QStringLiteral("2025 年 3月 · 2 日分")},
        {QStringLiteral("2025"),
         {},
         QStringLiteral("2025 · 2 days"),
         QStringLiteral("2025 年 · 2 天"),
         QStringLiteral("2025 年 · 2 日分")},
        {QStringLiteral("2024"), 2025, QStringLiteral("2025 · 2 days"),
         QStringLiteral("2025 年 · 2 天"), QStringLiteral("2025 年 · 2 日分")},
    };
    for (const Line& line : lines) {
        SCOPED_TRACE(line.query.toStdString());
        find(line.query, hits);
        session.scope = line.scope;
        speak(Language::en);
        EXPECT_EQ(countLine(), line.english);
        speak(Language::zhHans);
        EXPECT_EQ(countLine(), line.chinese);
        speak(Language::ja);
        EXPECT_EQ(countLine(), line.japanese);
    }
}

TEST_F(SearchPaneStateTest, OneOfEachHasItsSingular) {
    find(QStringLiteral("canal"), {hit({3, 7}, 2025, 1)});
    EXPECT_EQ(countLine(), QStringLiteral("1 hit · 1 day · 1 year"));
    EXPECT_EQ(state().groups[0].count, QStringLiteral("1 hit"));
    find(QStringLiteral("03-07"), {hit({3, 7}, 2025, 0)});
    EXPECT_EQ(countLine(), QStringLiteral("Mar 7 · 1 year"));
}

TEST_F(SearchPaneStateTest, FilesToComeGoBeforeALimitReached) {
    find(QStringLiteral("canal"), {hit({3, 7}, 2025, 1)});
    EXPECT_FALSE(state().notice);
    session.result->truncated = true;
    EXPECT_EQ(state().notice,
              (Notice{Notice::Kind::Truncated,
                      QStringLiteral("The first 500 hits, counted from December back. Narrow the "
                                     "search to see the rest.")}));
    session.result->pendingDownloads = 2;
    EXPECT_EQ(state().notice,
              (Notice{Notice::Kind::Pending, QStringLiteral("2 days are still being fetched.")}));
    session.result->pendingDownloads = 1;
    EXPECT_EQ(state().notice->text, QStringLiteral("1 day is still being fetched."));
}

TEST_F(SearchPaneStateTest, FilesToComeAreToldWithoutHitsToo) {
    find(QStringLiteral("canal"), {});
    session.result->pendingDownloads = 1;
    EXPECT_TRUE(state().notice);
    EXPECT_TRUE(std::holds_alternative<NoResults>(state().empty));
}

}  // namespace
}  // namespace velmar
