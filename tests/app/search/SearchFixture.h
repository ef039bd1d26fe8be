// A search on a diary of a few made-up pages: the fixture stands for the window and for the search
// in the background, whose answers a test gives when it wants to.
#pragma once

#include <gmock/gmock.h>

#include <map>

#include "DiaryApp/Search/SearchController.h"
#include "DiaryKit/Search/SearchMatch.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

namespace velmar::test {

using diary::MonthDay;
using diary::SearchHit;
using diary::SearchQuery;
using diary::SearchResult;
using diary::TextRange;

using Page = std::pair<MonthDay, int>;

class SearchFixture : public testing::Test {
protected:
    // A search that was started and isn't answered yet.
    struct Started {
        SearchQuery query;
        std::function<void(SearchResult)> finish;
    };

    SearchFixture() { controller = std::make_unique<SearchController>(host(), timers.maker()); }

    SearchHost host() {
        SearchHost made;
        wirePlaces(made);
        wireViews(made);
        made.startSearch = [this](const SearchQuery& query, auto finish) {
            started.push_back({query, std::move(finish)});
        };
        made.rememberSearch = [this](const QString& query) { remembered.append(query); };
        made.scriptedQuery = scriptedQuery;
        return made;
    }

    void wirePlaces(SearchHost& made) {
        made.currentMonthDay = [this] { return day; };
        made.viewedYear = [this] { return year; };
        made.showAllYears = [this] { return allYears; };
        made.draft = [this] { return pages[{day, year}]; };
        made.body = [this](int ofYear) { return pages[{day, ofYear}]; };
        made.contentYears = [this] { return contentYears; };
        made.open = [this](MonthDay to, int inYear) {
            calls.append(QStringLiteral("open %1 %2").arg(to.headerTitle()).arg(inYear));
            if (!canLeave) return false;
            day = to;
            year = inYear;
            if (drawn) drawn();
            return true;
        };
        made.pickYear = [this](int to) {
            calls.append(QStringLiteral("pick %1").arg(to));
            year = to;
            if (drawn) drawn();
            return true;
        };
        made.viewYearInAllYears = [this](int to) {
            calls.append(QStringLiteral("view %1").arg(to));
            year = to;
            return true;
        };
        made.setAllYears = [this](bool isOn) { allYears = isOn; };
    }

    void wireViews(SearchHost& made) {
        const auto note = [this](const char* name) {
            return [this, name] { calls.append(QLatin1String(name)); };
        };
        made.renderSidebar = note("sidebar");
        made.renderEntry = note("entry");
        made.renderRail = note("rail");
        made.renderStatus = note("status");
        made.switchSidebar = [this](bool isSearch) { showsSearch = isSearch; };
        made.setHighlights = [this](const SearchHost::Ranges& ranges, int current,
                                    SearchScroll scroll) {
            highlights = ranges;
            currentHighlight = current;
            if (scroll == SearchScroll::ToMatch) ++scrolls;
        };
        made.setAllYearsHighlights = [this](const auto& rangesOfYear) {
            for (const int each : {2026, 2025, 2021}) cards[each] = rangesOfYear(each);
        };
        made.clearHighlights = [this] {
            highlights.clear();
            ++clearings;
        };
        made.focusField = [this](FieldCaret caret) { carets.push_back(caret); };
        made.setFieldText = [this](const QString& text) { fieldText = text; };
        made.focusEditor = note("focusEditor");
        made.selectInEditor = [this](TextRange range) { selected = range; };
    }

    // Typed into the field, as the pane tells it.
    void type(const QString& text) {
        fieldText = text;
        controller->searchQueryChanged(text, SearchController::Run::AfterPause);
    }

    // What the vault's search would answer, from the pages; newest first.
    SearchResult found(const SearchQuery& query) {
        SearchResult result;
        for (auto page = pages.rbegin(); page != pages.rend(); ++page) {
            const auto& [place, text] = *page;
            if (query.year && *query.year != place.second) continue;
            if (query.monthDay && *query.monthDay != place.first) continue;
            const auto ranges = diary::matchRanges(query.terms, text);
            if (!ranges || text.isEmpty()) continue;
            result.hits.push_back({place.first, place.second, text, *ranges, *ranges});
        }
        std::ranges::stable_sort(result.hits, std::greater(), &SearchHit::year);
        return result;
    }

    // Answers the newest search.
    void answer() { started.back().finish(found(started.back().query)); }

    // Types, waits for the pause, and answers.
    void search(const QString& text) {
        type(text);
        timers.advance(SearchController::searchDelay);
        answer();
    }

    [[nodiscard]] const SearchSession& session() const { return *controller->session(); }

    // Called when a move has drawn everything again.
    std::function<void()> drawn;
    std::optional<std::vector<int>> contentYears = {{2021, 2026, 2019, 2025}};
    std::map<Page, QString> pages = {
        {{{11, 21}, 2026}, QStringLiteral("Frost on the canal. The canal was still.")},
        {{{11, 21}, 2025}, QStringLiteral("Rain.")},
        {{{11, 21}, 2021}, QStringLiteral("The canal by night.")},
        {{{10, 2}, 2026}, QStringLiteral("Swam in the canal, and a boat went by.")},
        {{{3, 7}, 2025}, QStringLiteral("A boat.")},
    };
    MonthDay day{11, 21};
    int year = 2026;
    bool allYears = false;
    bool canLeave = true;
    std::optional<QString> scriptedQuery;

    QStringList calls;
    std::vector<Started> started;
    QStringList remembered;
    QString fieldText;
    std::vector<FieldCaret> carets;
    bool showsSearch = false;
    SearchHost::Ranges highlights;
    int currentHighlight = -1;
    int scrolls = 0;
    int clearings = 0;
    std::map<int, SearchHost::Ranges> cards;
    std::optional<TextRange> selected;
    ManualTimers timers;
    std::unique_ptr<SearchController> controller;
};

}  // namespace velmar::test
