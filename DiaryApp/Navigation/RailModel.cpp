#include "DiaryApp/Navigation/RailModel.h"

#include <algorithm>

#include "DiaryApp/Navigation/Snippet.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace velmar {

namespace {

constexpr diary::MonthDay kLeapDay{2, 29};
// How far back the years to add reach.
constexpr int kAddableYears = 15;

RailModel::Card card(const RailState& state, int year, QStringView wholeBody, const QString& ago) {
    const QStringView body = diary::text::trimmed(wholeBody);
    const bool isActive = year == state.viewedYear && !state.showAllYears;
    RailModel::Card card;
    card.year = year;
    card.yearColor = isActive ? Token::Accent : Token::RailYear;
    card.meta = qtTrId("%d chars", diary::text::contentCharacterCount(body));
    card.snippet = body.isEmpty() ? qtTrId("Not written yet") : snippetOf(body);
    card.snippetColor = body.isEmpty() ? Token::EmptyText
                        : isActive     ? Token::RailTextActive
                                       : Token::RailSnippet;
    card.ago = ago;
    card.background = isActive ? Token::CardBgActive : Token::CardBg;
    card.border = isActive ? Token::CardBorderActive : Token::CardBorder;
    card.isActive = isActive;
    const auto hits = state.hits.find(year);
    if (hits != state.hits.end()) card.hits = qtTrId("SearchHits", hits->second);
    return card;
}

RailModel::Card pastCard(const RailState& state, const PastEntry& entry) {
    const int distance = state.currentYear - entry.year;
    const QString ago = distance < 1 ? QString() : qtTrId("%d years ago", distance);
    return card(state, entry.year, entry.body, ago);
}

const QString& currentBody(const RailState& state) {
    return state.viewedYear == state.currentYear ? state.draft : state.currentBody;
}

// The other years as the rail lists them: the year in view has the text that is being typed, also
// when it was only just added.
std::vector<PastEntry> listedEntries(const RailState& state) {
    std::vector<PastEntry> entries = state.pastEntries;
    if (state.viewedYear == state.currentYear) return entries;
    // A file may hold a year twice; what is edited is the first of them.
    const auto viewed = std::ranges::find(entries, state.viewedYear, &PastEntry::year);
    if (viewed != entries.end()) {
        viewed->body = state.draft;
        return entries;
    }
    entries.push_back({state.viewedYear, state.draft});
    std::ranges::stable_sort(entries, std::greater(), &PastEntry::year);
    return entries;
}

QString footer(const RailState& state) {
    if (state.pastEntries.empty()) return qtTrId("This day is still empty");
    const int earliest = state.pastEntries.back().year;
    // Entries of years ahead alone, after a clock was set back, span this year at the least.
    const int span = std::max(1, state.currentYear - earliest + 1);
    return qtTrId("Spanning %d years · earliest %@", span).arg(earliest);
}

std::vector<int> addableYears(const RailState& state, const std::vector<RailModel::Card>& cards) {
    std::vector<int> years;
    for (int year = state.currentYear - 1; year >= state.currentYear - kAddableYears; --year) {
        const bool hasCard = std::ranges::find(cards, year, &RailModel::Card::year) != cards.end();
        const bool hasDay = state.day != kLeapDay || diary::MonthDay::isLeapYear(year);
        if (!hasCard && hasDay) years.push_back(year);
    }
    return years;
}

}  // namespace

RailModel railModel(const RailState& state) {
    RailModel model;
    const QString& current = currentBody(state);
    model.cards.push_back(card(state, state.currentYear, current, qtTrId("This year · writing")));
    for (const PastEntry& entry : listedEntries(state)) {
        model.cards.push_back(pastCard(state, entry));
    }
    model.footer = footer(state);
    model.addYears = addableYears(state, model.cards);
    const bool isCurrentWritten = !diary::text::trimmed(current).isEmpty();
    model.writtenYearCount =
        static_cast<int>(state.pastEntries.size()) + (isCurrentWritten ? 1 : 0);
    model.showsAllYears = state.showAllYears;
    return model;
}

}  // namespace velmar
