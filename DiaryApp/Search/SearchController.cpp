#include "DiaryApp/Search/SearchController.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "DiaryKit/Search/SearchMatch.h"

namespace velmar {

namespace {

template <typename... Parameters, typename... Arguments>
void call(const std::function<void(Parameters...)>& callable, Arguments&&... arguments) {
    if (callable) callable(std::forward<Arguments>(arguments)...);
}

template <typename Answer, typename... Parameters, typename... Arguments>
Answer ask(const std::function<Answer(Parameters...)>& callable, Arguments&&... arguments) {
    return callable ? callable(std::forward<Arguments>(arguments)...) : Answer();
}

int wrapped(int index, int count) {
    return ((index % count) + count) % count;
}

}  // namespace

SearchController::SearchController(SearchHost host, const MakeOneShotTimer& makeTimer)
    : m_host(std::move(host)), m_searchDebounce(makeTimer()) {}

void SearchController::showSearch() {
    if (!m_session) {
        m_session.emplace();
        m_session->query = m_lastSearchQuery;
        takeContentYears(*m_session);
        m_session->generation = ++m_generation;
        call(m_host.renderSidebar);
        call(m_host.switchSidebar, true);
        if (!m_session->query.isEmpty()) {
            askAnew();
            runSearch();
        }
    }
    call(m_host.focusField, FieldCaret::SelectAll);
    if (!m_host.scriptedQuery) return;
    if (*m_host.scriptedQuery != m_session->query) {
        call(m_host.setFieldText, *m_host.scriptedQuery);
    }
    searchQueryChanged(*m_host.scriptedQuery, Run::Immediately);
}

void SearchController::takeContentYears(SearchSession& session) {
    const std::optional<std::vector<int>> years = ask(m_host.contentYears);
    m_needsContentYears = !years;
    session.years = years.value_or(std::vector<int>());
    std::ranges::sort(session.years, std::greater());
}

void SearchController::contentYearsBecameKnown() {
    if (!m_session || !m_needsContentYears) return;
    takeContentYears(*m_session);
    call(m_host.renderSidebar);
}

void SearchController::exitSearch() {
    if (!m_session) return;
    m_searchDebounce->stop();
    ++m_searchRequest;
    m_isAnswerDue = false;
    m_openWhenFound.reset();
    m_lastSearchQuery = m_session->query;
    m_session.reset();
    call(m_host.switchSidebar, false);
    call(m_host.renderSidebar);
    call(m_host.clearHighlights);
    call(m_host.renderEntry);
    call(m_host.renderRail);
    call(m_host.focusEditor);
}

void SearchController::searchQueryChanged(const QString& text, Run run) {
    if (!m_session) return;
    askAnew();
    m_session->query = text;
    m_lastSearchQuery = text;
    m_searchDebounce->stop();
    if (run == Run::Immediately) {
        runSearch();
    } else {
        m_searchDebounce->start(searchDelay, [this] { runSearch(); });
    }
}

// The question is another one; what is shown answers it no more.
void SearchController::askAnew() {
    m_isAnswerDue = true;
    m_openWhenFound.reset();
}

void SearchController::runSearch(Selection selection) {
    if (!m_session) return;
    m_searchDebounce->stop();
    diary::SearchQuery query = diary::SearchQuery::parsing(m_session->query);
    const int request = ++m_searchRequest;
    if (query.isEmpty()) return clearResult(*m_session);
    if (m_session->scope) query.year = m_session->scope;
    m_session->isSearching = true;
    call(m_host.renderSidebar);
    call(m_host.startSearch, query, [this, query, request, selection](diary::SearchResult result) {
        searchFinished(std::move(result), query, request, selection);
    });
}

void SearchController::clearResult(SearchSession& session) {
    m_isAnswerDue = false;
    session.result.reset();
    session.terms.clear();
    session.selected.reset();
    session.currentMatch = 0;
    session.isSearching = false;
    session.generation = ++m_generation;
    renderAround();
}

void SearchController::renderAround() {
    call(m_host.clearHighlights);
    call(m_host.renderSidebar);
    call(m_host.renderEntry);
    call(m_host.renderRail);
}

void SearchController::searchFinished(diary::SearchResult result, const diary::SearchQuery& query,
                                      int request, Selection selection) {
    if (!m_session || request != m_searchRequest) return;
    // It may still be the answer to what the line was a key ago.
    m_isAnswerDue = m_searchDebounce->isArmed();
    if (selection == Selection::Kept && keepSelection(*m_session, result, query)) {
        takeResult(*m_session, std::move(result), query);
        return renderAround();
    }
    m_session->selected = hitInView(result.hits);
    m_session->currentMatch = 0;
    takeResult(*m_session, std::move(result), query);
    const std::optional<OpenHit> as = std::exchange(m_openWhenFound, std::nullopt);
    if (!m_session->selected || ask(m_host.isWriting)) return renderAround();
    showHit(*m_session->selected, HitFocus::Unchanged);
    if (as) openSelected(*as);
}

// The user hasn't asked for anything, so the page isn't turned and the match stepped to stays.
bool SearchController::keepSelection(SearchSession& session, const diary::SearchResult& result,
                                     const diary::SearchQuery& query) {
    const diary::SearchHit* before = selectedHit();
    if (before == nullptr || query != m_answered) return false;
    const auto again = std::ranges::find_if(result.hits, [before](const diary::SearchHit& hit) {
        return hit.monthDay == before->monthDay && hit.year == before->year;
    });
    if (again == result.hits.end()) return false;
    session.selected = static_cast<int>(again - result.hits.begin());
    return true;
}

void SearchController::takeResult(SearchSession& session, diary::SearchResult result,
                                  const diary::SearchQuery& query) {
    session.result = std::move(result);
    session.terms = query.terms;
    session.isSearching = false;
    session.generation = ++m_generation;
    m_answered = query;
}

std::optional<int> SearchController::hitInView(const std::vector<diary::SearchHit>& hits) const {
    if (hits.empty()) return std::nullopt;
    const diary::MonthDay day = ask(m_host.currentMonthDay);
    const int year = ask(m_host.viewedYear);
    const auto inView = std::ranges::find_if(
        hits, [&](const diary::SearchHit& hit) { return hit.monthDay == day && hit.year == year; });
    return inView == hits.end() ? 0 : static_cast<int>(inView - hits.begin());
}

void SearchController::showHit(int index, HitFocus focus) {
    if (!m_session || !m_session->result) return;
    const std::vector<diary::SearchHit>& hits = m_session->result->hits;
    if (index < 0 || index >= static_cast<int>(hits.size())) return;
    m_session->selected = index;
    m_session->currentMatch = 0;
    // A copy: what follows may run another search.
    const diary::SearchHit hit = hits[static_cast<std::size_t>(index)];
    // What is opened for writing needs the page of its year.
    if (focus == HitFocus::Editor && ask(m_host.showAllYears)) call(m_host.setAllYears, false);
    if (!bringIntoView(hit)) {
        call(m_host.renderEntry);
        call(m_host.renderSidebar);
        call(m_host.renderRail);
    }
    applySearchHighlights(SearchScroll::ToMatch);
    if (focus == HitFocus::Unchanged) return;
    call(m_host.leaveSource);
    call(m_host.focusEditor);
    const std::vector<diary::TextRange> ranges = liveMatchRanges(hit.year);
    if (showsSelectedHit() && !ranges.empty()) call(m_host.selectInEditor, ranges.front());
}

// True if everything that is shown now was drawn on the way. A day that can't be left stays in
// view, with its draft.
bool SearchController::bringIntoView(const diary::SearchHit& hit) {
    if (ask(m_host.currentMonthDay) != hit.monthDay) {
        return ask(m_host.open, hit.monthDay, hit.year);
    }
    if (ask(m_host.viewedYear) == hit.year) return false;
    if (!ask(m_host.showAllYears)) return ask(m_host.pickYear, hit.year);
    if (ask(m_host.viewYearInAllYears, hit.year)) call(m_host.renderStatus);
    return false;
}

const diary::SearchHit* SearchController::selectedHit() const {
    if (!m_session || !m_session->result || !m_session->selected) return nullptr;
    return &m_session->result->hits[static_cast<std::size_t>(*m_session->selected)];
}

bool SearchController::showsSelectedHit() const {
    const diary::SearchHit* hit = selectedHit();
    return hit != nullptr && !ask(m_host.showAllYears) && !ask(m_host.showSource) &&
           hit->monthDay == ask(m_host.currentMonthDay) && hit->year == ask(m_host.viewedYear);
}

void SearchController::applySearchHighlights(SearchScroll scroll) {
    if (!m_session) return;
    if (ask(m_host.showAllYears) && !m_session->terms.isEmpty()) {
        call(m_host.setAllYearsHighlights, [this](int year) { return liveMatchRanges(year); });
        if (scroll == SearchScroll::ToMatch) call(m_host.showYear, ask(m_host.viewedYear));
        return;
    }
    const std::optional<OpenHitMatches> matches = openHitMatches();
    if (matches) {
        call(m_host.setHighlights, liveMatchRanges(ask(m_host.viewedYear)), matches->current,
             scroll);
    } else {
        call(m_host.clearHighlights);
    }
}

std::vector<diary::TextRange> SearchController::liveMatchRanges(int ofYear) const {
    if (!m_session || m_session->terms.isEmpty()) return {};
    const QString text =
        ofYear == ask(m_host.viewedYear) ? ask(m_host.draft) : ask(m_host.body, ofYear);
    return diary::matchRanges(m_session->terms, text).value_or(std::vector<diary::TextRange>());
}

std::optional<OpenHitMatches> SearchController::openHitMatches() const {
    if (!m_session || !showsSelectedHit()) return std::nullopt;
    const auto count = static_cast<int>(liveMatchRanges(ask(m_host.viewedYear)).size());
    if (count == 0) return std::nullopt;
    return OpenHitMatches{count, std::min(m_session->currentMatch, count - 1)};
}

void SearchController::stepMatch(int delta) {
    const std::optional<OpenHitMatches> matches = openHitMatches();
    if (!m_session || !matches) return;
    m_session->currentMatch = wrapped(matches->current + delta, matches->count);
    applySearchHighlights(SearchScroll::ToMatch);
}

std::map<int, int> SearchController::railHits(const diary::MonthDay& day) const {
    std::map<int, int> counts;
    if (!m_session || !m_session->result) return counts;
    for (const diary::SearchHit& hit : m_session->result->hits) {
        if (hit.monthDay == day) counts.emplace(hit.year, static_cast<int>(hit.matchCount()));
    }
    return counts;
}

void SearchController::setScope(std::optional<int> year) {
    if (!m_session) return;
    askAnew();
    m_session->scope = year;
    runSearch();
    call(m_host.focusField, FieldCaret::AtEnd);
}

void SearchController::move(int delta) {
    if (!m_session || !m_session->result || m_session->result->hits.empty()) return;
    const auto count = static_cast<int>(m_session->result->hits.size());
    showHit(wrapped(m_session->selected.value_or(-1) + delta, count), HitFocus::Unchanged);
}

void SearchController::openSelected(OpenHit as) {
    if (!m_session) return;
    if (m_searchDebounce->isArmed()) runSearch();
    if (m_isAnswerDue) {
        m_openWhenFound = as;
        return;
    }
    if (!m_session->selected) return;
    const int selected = *m_session->selected;
    call(m_host.rememberSearch, m_session->query);
    if (as == OpenHit::AllYears) {
        call(m_host.setAllYears, true);
        applySearchHighlights(SearchScroll::Stay);
    } else {
        showHit(selected, HitFocus::Editor);
    }
}

void SearchController::escape() {
    if (!m_session) return;
    if (m_session->query.isEmpty()) return exitSearch();
    call(m_host.setFieldText, QString());
    searchQueryChanged(QString(), Run::Immediately);
}

void SearchController::useRecentSearch(const QString& text) {
    if (!m_session) return;
    call(m_host.setFieldText, text);
    searchQueryChanged(text, Run::Immediately);
    call(m_host.focusField, FieldCaret::AtEnd);
}

void SearchController::draftBecameDirty() {
    if (m_session) call(m_host.clearHighlights);
}

void SearchController::vaultRefreshed() {
    if (m_session && m_session->result && m_session->result->pendingDownloads >= 1) {
        runSearch(Selection::Kept);
    }
}

}  // namespace velmar
