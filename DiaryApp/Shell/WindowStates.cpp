#include "DiaryApp/Shell/WindowStates.h"

#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace velmar::windowstates {

namespace {

// The year's text as it is typed, or as the file has it.
QString liveBody(const WritingSession& session, int year) {
    return session.viewedYear() == year ? session.draft() : session.body(year);
}

}  // namespace

TopBarView::Model topBar(const WritingSession& session) {
    const QString current = liveBody(session, session.today().year);
    // A text of line ends alone counts here, unlike in the rail.
    const bool hasCurrent = !diary::text::trimmedOfBlanks(current).isEmpty();
    return {session.currentMonthDay().fileName(),
            static_cast<int>(session.pastEntries().size()) + (hasCurrent ? 1 : 0),
            session.showSource()};
}

void refresh(VaultFacts& facts, diary::DiaryStore& store, int month) {
    if (facts.revision == store.revision() && facts.month == month) return;
    facts.daysWithContent = store.daysWithContent(month);
    facts.month = month;
    if (facts.revision != store.revision()) facts.overview = store.overview();
    facts.revision = store.revision();
}

SidebarState sidebar(const WritingSession& session, const VaultFacts& facts) {
    SidebarState state;
    state.day = session.currentMonthDay();
    state.viewedYear = session.viewedYear();
    state.today = session.today();
    state.daysWithContent = facts.daysWithContent;
    state.overview = facts.overview;
    state.language = localization::installedLanguage();
    return state;
}

EntryState entry(const WritingSession& session, const SearchController& search,
                 const Settings& settings) {
    EntryState state;
    state.day = session.currentMonthDay();
    state.viewedYear = session.viewedYear();
    state.currentYear = session.today().year;
    state.draft = session.draft();
    state.pastEntries = session.pastEntries();
    state.showGapYears = settings.showGapYears();
    state.language = localization::installedLanguage();
    state.rawText = session.rawText();
    state.showSource = session.showSource();
    state.showAllYears = session.showAllYears();
    state.body = [&session](int year) { return session.body(year); };
    if (const auto matches = search.openHitMatches()) {
        state.matches = MatchCount{matches->count, matches->current};
    }
    return state;
}

RailState rail(const WritingSession& session, const SearchController& search) {
    const diary::MonthDay day = session.currentMonthDay();
    const int currentYear = session.today().year;
    return {.day = day,
            .viewedYear = session.viewedYear(),
            .currentYear = currentYear,
            .draft = session.draft(),
            .currentBody = session.body(currentYear),
            .pastEntries = session.pastEntries(),
            .showAllYears = session.showAllYears(),
            .hits = search.railHits(day)};
}

YearOverviewModel yearOverview(diary::DiaryStore& store) {
    return yearOverviewModel(store.contentYearCounts(), store.overview(),
                             localization::installedLanguage());
}

}  // namespace velmar::windowstates
