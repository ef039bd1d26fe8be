#include "DiaryApp/Shell/SearchWiring.h"

#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Search/BackgroundSearch.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "DiaryApp/Search/SearchPaneWiring.h"
#include "DiaryApp/Shell/MainWindow.h"

namespace velmar {

SearchWiring::SearchWiring(MainWindow& window, WritingSession& session, const VaultFacts& facts,
                           const SessionView& view, Settings& settings)
    : m_window(window),
      m_session(session),
      m_facts(facts),
      m_settings(settings),
      m_search(host(view), makeEventLoopTimer) {
    m_window.onSearchPaneMade = [this](SearchPaneView* pane) { wireSearchPane(*pane, m_search); };
}

SearchHost SearchWiring::host(const SessionView& view) {
    SearchHost host;
    host.currentMonthDay = [this] { return m_session.currentMonthDay(); };
    host.viewedYear = [this] { return m_session.viewedYear(); };
    host.showAllYears = [this] { return m_session.showAllYears(); };
    host.showSource = [this] { return m_session.showSource(); };
    host.draft = [this] { return m_session.draft(); };
    host.body = [this](int year) { return m_session.body(year); };
    host.contentYears = [this]() -> std::optional<std::vector<int>> {
        if (!m_facts.areKnown()) return std::nullopt;
        const std::set<int>& years = m_facts.archive().contentYears;
        return std::vector<int>(years.begin(), years.end());
    };
    host.open = [this](diary::MonthDay day, int year) {
        return m_session.open(day, Focus::Unchanged, year);
    };
    host.pickYear = [this](int year) { return m_session.pickYear(year, Focus::Unchanged); };
    host.viewYearInAllYears = [this](int year) { return m_session.viewYearAmongAll(year); };
    host.setAllYears = [this](bool isOn) { m_session.setAllYears(isOn); };
    host.renderSidebar = view.renderSidebar;
    host.renderEntry = view.renderEntry;
    host.renderRail = view.renderRail;
    host.renderStatus = view.renderStatus;
    host.startSearch = backgroundSearch(m_session.store().rootURL(), {}, this);
    host.rememberSearch = [this](const QString& query) { m_settings.rememberSearch(query); };
    host.scriptedQuery = m_settings.environment(QStringLiteral("DIARY_SEARCH_QUERY"));
    addPage(host);
    addPane(host);
    return host;
}

void SearchWiring::addPage(SearchHost& host) {
    EntryView* page = m_window.entryView();
    host.setHighlights = [page](const SearchHost::Ranges& ranges, int current,
                                SearchScroll scroll) {
        const bool scrolls = scroll == SearchScroll::ToMatch;
        page->setHighlights(ranges, current,
                            scrolls ? EntryView::Scroll::ToMatch : EntryView::Scroll::None);
    };
    host.setAllYearsHighlights = [page](const auto& rangesOfYear) {
        std::map<int, SearchHost::Ranges> ranges;
        for (const auto& [year, card] : page->yearCards()) ranges[year] = rangesOfYear(year);
        page->setYearHighlights(ranges);
    };
    host.showYear = [page](int year) { page->showYear(year); };
    host.clearHighlights = [page] { page->clearHighlights(); };
    // Also while another window is in front: the keys come back to where they were.
    host.isWriting = [this, page] {
        return page->showsEditor() && m_window.focusWidget() == page->editor();
    };
    host.leaveSource = [this] {
        if (m_session.showSource()) m_session.toggleSourceView();
    };
    host.focusEditor = [page] { page->focusEditor(); };
    host.selectInEditor = [page](diary::TextRange range) {
        page->focusEditor();
        // Nothing is selected: the next key would take the word's place.
        page->editor()->selectRange({range.location, 0});
    };
}

void SearchWiring::addPane(SearchHost& host) {
    host.switchSidebar = [this](bool showsSearch) {
        if (showsSearch) m_window.searchPane();
        m_window.sidebar()->setMode(
            showsSearch ? SidebarView::Mode::Search : SidebarView::Mode::Calendar,
            SidebarView::Animated::Yes);
    };
    host.focusField = [this](FieldCaret caret) { m_window.searchPane()->focusField(caret); };
    host.setFieldText = [this](const QString& text) { m_window.searchPane()->setQuery(text); };
}

void SearchWiring::renderPane() {
    const auto& session = m_search.session();
    if (!session) return;
    SearchPaneView* pane = m_window.searchPane();
    pane->setQuery(session->query);
    pane->render(searchPaneState(*session, {.currentYear = m_session.today().year,
                                            .recentSearches = m_settings.recentSearches(),
                                            .language = localization::installedLanguage(),
                                            .shownGeneration = pane->renderedGeneration()}));
}

}  // namespace velmar
