#include "DiaryApp/Search/SearchPaneState.h"

#include <set>
#include <utility>

#include "DiaryApp/Settings/Formatters.h"
#include "DiaryKit/Vault/DiaryStore.h"

namespace velmar {

namespace {

using Row = SearchPaneState::Row;
using Group = SearchPaneState::Group;

// Any leap year, so that 29 February is a date of it.
constexpr int kLeapYear = 2024;

int sumOfMatches(const std::vector<diary::SearchHit>& hits) {
    qsizetype sum = 0;
    for (const diary::SearchHit& hit : hits) sum += hit.matchCount();
    return static_cast<int>(sum);
}

int distinctYears(const std::vector<diary::SearchHit>& hits) {
    std::set<int> years;
    for (const diary::SearchHit& hit : hits) years.insert(hit.year);
    return static_cast<int>(years.size());
}

QString weekday(const diary::SearchHit& hit, const Formatters& formatters) {
    const std::optional<int> weekday = hit.monthDay.weekday(hit.year);
    if (!weekday) return {};
    const QString written =
        formatters.written(hit.monthDay, hit.year, QStringLiteral("EEEMMMd"), QString());
    return written.isEmpty() ? formatters.weekdayName(*weekday) : written;
}

Row row(int index, const diary::SearchHit& hit, const Formatters& formatters) {
    Row made;
    made.index = index;
    made.date = hit.monthDay.headerTitle();
    made.weekday = weekday(hit, formatters);
    const auto matches = static_cast<int>(hit.ranges.size());
    if (matches >= 2) made.hits = qtTrId("SearchHits", matches);
    made.snippet = hit.snippet;
    made.snippetRanges = hit.snippetRanges;
    return made;
}

// One group for each run of hits of one year.
std::vector<Group> groups(const std::vector<diary::SearchHit>& hits, bool isDateOnly,
                          const SearchPaneContext& context) {
    const Formatters& formatters = Formatters::of(context.language);
    std::vector<Group> made;
    for (std::size_t first = 0; first < hits.size();) {
        const int year = hits[first].year;
        qsizetype matches = 0;
        Group group;
        std::size_t next = first;
        for (; next < hits.size() && hits[next].year == year; ++next) {
            matches += hits[next].matchCount();
            group.rows.push_back(row(static_cast<int>(next), hits[next], formatters));
        }
        group.title = year == context.currentYear ? qtTrId("This year") : QString::number(year);
        if (!isDateOnly) group.count = qtTrId("SearchHits", static_cast<int>(matches));
        made.push_back(std::move(group));
        first = next;
    }
    return made;
}

SearchPaneState::Recents recents(const SearchPaneContext& context) {
    return {context.recentSearches, qtTrId("SearchHint")};
}

SearchPaneState::NoResults noResults(const SearchSession& session) {
    SearchPaneState::NoResults made{qtTrId("SearchNoResultsFor").arg(session.query),
                                    qtTrId("SearchNoResultsHint"), std::nullopt};
    if (session.scope) made.resetScope = qtTrId("SearchScopeBackToAll");
    return made;
}

std::optional<SearchPaneState::Notice> notice(const diary::SearchResult& result) {
    using Kind = SearchPaneState::Notice::Kind;
    if (result.pendingDownloads >= 1) {
        return {{Kind::Pending, qtTrId("SearchPending", result.pendingDownloads)}};
    }
    if (result.truncated) {
        return {{Kind::Truncated, qtTrId("SearchTruncated").arg(diary::DiaryStore::searchLimit)}};
    }
    return std::nullopt;
}

}  // namespace

SearchPaneState searchPaneState(const SearchSession& session, const SearchPaneContext& context) {
    SearchPaneState state;
    state.scopeYears = session.years;
    state.scope = session.scope;
    state.isSearching = session.isSearching;
    state.selected = session.selected;
    state.generation = session.generation;
    const diary::SearchQuery query = diary::SearchQuery::parsing(session.query);
    if (query.isEmpty()) {
        state.empty = recents(context);
        return state;
    }
    if (!session.result) return state;
    state.notice = notice(*session.result);
    if (session.result->hits.empty()) {
        state.empty = noResults(session);
        return state;
    }
    if (session.generation != context.shownGeneration) {
        state.groups = groups(session.result->hits, query.isDateOnly(), context);
    }
    state.countLine = searchCountLine(query, session.scope, *session.result, context.language);
    return state;
}

QString searchCountLine(const diary::SearchQuery& query, std::optional<int> scope,
                        const diary::SearchResult& result, Language language) {
    const Formatters& formatters = Formatters::of(language);
    const auto hits = static_cast<int>(result.hits.size());
    if (!query.isDateOnly()) {
        return qtTrId("SearchCount")
            .arg(qtTrId("SearchHits", sumOfMatches(result.hits)), qtTrId("SearchDays", hits),
                 qtTrId("SearchYears", distinctYears(result.hits)));
    }
    if (query.monthDay) {
        const QString date = formatters.written(*query.monthDay, kLeapYear, QStringLiteral("MMMd"),
                                                QStringLiteral("MMMd"));
        return qtTrId("SearchDayYears", hits)
            .arg(date.isEmpty() ? query.monthDay->headerTitle() : date);
    }
    // Without a day there is a year, the scope's or the query's.
    const QString year = QString::number(scope ? *scope : query.year.value_or(0));
    if (query.month) {
        return qtTrId("SearchMonthDays", hits).arg(formatters.monthName(*query.month), year);
    }
    return qtTrId("SearchYearDays", hits).arg(year);
}

}  // namespace velmar
