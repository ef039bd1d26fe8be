#include "DiaryApp/Shell/WindowStates.h"

#include <set>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace velmar::windowstates {

namespace {

// The year's text as it is typed, or as the file has it.
QString liveBody(const WritingSession& session, int year) {
    return session.viewedYear() == year ? session.draft() : session.body(year);
}

std::set<int> daysWithContent(const diary::ArchiveSnapshot& archive, int month) {
    std::set<int> days;
    for (int day = 1; day <= diary::MonthDay::daysInCycleMonth[month - 1]; ++day) {
        if (archive.heatCounts.contains({month, day})) days.insert(day);
    }
    return days;
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

SidebarState sidebar(const WritingSession& session, const diary::ArchiveSnapshot& archive) {
    SidebarState state;
    state.day = session.currentMonthDay();
    state.viewedYear = session.viewedYear();
    state.today = session.today();
    state.daysWithContent = daysWithContent(archive, state.day.month);
    state.overview = archive.overview;
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

YearOverviewModel yearOverview(const diary::ArchiveSnapshot& archive) {
    return yearOverviewModel(archive.heatCounts, archive.overview,
                             localization::installedLanguage());
}

}  // namespace velmar::windowstates
