// The rules of the search pane: when a search runs, which answer counts, which hit is in view and
// which of its matches is the current one. It knows no window: it tells a SearchHost.
//
// Answers that are older than the newest search are dropped, never cancelled. Main thread.
#pragma once

#include <map>
#include <memory>

#include "DiaryApp/Search/SearchHost.h"
#include "DiaryApp/Search/SearchSession.h"
#include "DiaryApp/Session/OneShotTimer.h"

namespace velmar {

// What the match pill shows: `current` counts from 0.
struct OpenHitMatches {
    int count = 0;
    int current = 0;

    bool operator==(const OpenHitMatches&) const = default;
};

// Whether opening a hit shows its year alone or all years of its day.
enum class OpenHit { OneYear, AllYears };

class SearchController {
public:
    // A pause in typing after which the search runs.
    static constexpr std::chrono::milliseconds searchDelay{200};
    enum class Run { AfterPause, Immediately };
    enum class HitFocus { Editor, Unchanged };

    explicit SearchController(SearchHost host, const MakeOneShotTimer& makeTimer);

    [[nodiscard]] bool isOpen() const { return m_session.has_value(); }
    // Absent while no search is open.
    [[nodiscard]] const std::optional<SearchSession>& session() const { return m_session; }
    [[nodiscard]] const QString& lastSearchQuery() const { return m_lastSearchQuery; }

    // Opens the search, with the line of the last one, and puts the focus into the field.
    void showSearch();
    // Closes it and leads back to the calendar and the editor. Nothing if none is open.
    void exitSearch();

    // The pane's callbacks.
    void searchQueryChanged(const QString& text, Run run);
    void setScope(std::optional<int> year);
    void select(int index) { showHit(index, HitFocus::Unchanged); }
    // To the next (1) or previous (-1) hit, around the ends.
    void move(int delta);
    // Where the line or the year is newer than the hits, the answer is asked for at once and opened
    // when it comes: whoever types fast presses Return ahead of it.
    void openSelected(OpenHit as);
    // Clears a line with text; leaves the search where there is none.
    void escape();
    void useRecentSearch(const QString& text);

    // To the next (1) or previous (-1) match in the selected hit's text, around the ends. Nothing
    // if that hit isn't what the one-year view shows.
    void stepMatch(int delta);
    // Marks the matches in the page that is shown now, or clears all marks. To be called after
    // each change of the page.
    void applySearchHighlights(SearchScroll scroll);

    // The first key into a saved draft: marked ranges don't fit the text any more.
    void draftBecameDirty();
    // What the years with text are, which wasn't known when the search was opened.
    void contentYearsBecameKnown();
    // The vault was looked at again: files that a search missed may have arrived.
    void vaultRefreshed();

    // Present while the page shows the selected hit and matches are left in its text.
    [[nodiscard]] std::optional<OpenHitMatches> openHitMatches() const;
    // Where the words of the last result stand in the year's text of the day in view, as it is
    // now. Empty without words, or where one of them is missing.
    [[nodiscard]] std::vector<diary::TextRange> liveMatchRanges(int ofYear) const;
    // The number of matches in each year of the day, as the last result has it.
    [[nodiscard]] std::map<int, int> railHits(const diary::MonthDay& day) const;

private:
    void takeContentYears(SearchSession& session);
    // A repeated search leaves the selection where it is, if the hit is found again.
    enum class Selection { Anew, Kept };

    void askAnew();
    void runSearch(Selection selection = Selection::Anew);
    void searchFinished(diary::SearchResult result, const diary::SearchQuery& query, int request,
                        Selection selection);
    [[nodiscard]] bool keepSelection(SearchSession& session, const diary::SearchResult& result,
                                     const diary::SearchQuery& query);
    void takeResult(SearchSession& session, diary::SearchResult result,
                    const diary::SearchQuery& query);
    void showHit(int index, HitFocus focus);
    void clearResult(SearchSession& session);
    [[nodiscard]] bool bringIntoView(const diary::SearchHit& hit);
    [[nodiscard]] const diary::SearchHit* selectedHit() const;
    [[nodiscard]] bool showsSelectedHit() const;
    // Index of the hit for what is in view, or else 0; nothing without hits.
    [[nodiscard]] std::optional<int> hitInView(const std::vector<diary::SearchHit>& hits) const;
    // Everything that shows the search, where no hit is brought into view.
    void renderAround();

    SearchHost m_host;
    std::optional<SearchSession> m_session;
    QString m_lastSearchQuery;
    std::unique_ptr<OneShotTimer> m_searchDebounce;
    // What the session's result answers.
    diary::SearchQuery m_answered;
    // Counts the searches that were started; only the newest one's answer is taken.
    int m_searchRequest = 0;
    int m_generation = 0;
    bool m_needsContentYears = false;
    // The line or the year was changed, and what it finds isn't here yet.
    bool m_isAnswerDue = false;
    // How to open what is found then.
    std::optional<OpenHit> m_openWhenFound;
};

}  // namespace velmar
