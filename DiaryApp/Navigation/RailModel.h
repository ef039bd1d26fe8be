// What the year rail shows of the day in view: a card for this year and one for each other year
// with writing, and the years that can be added. Nothing here knows a widget; YearRailView.h shows
// it.
#pragma once

#include <QtCore/QString>
#include <map>
#include <optional>
#include <vector>

#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Session/PastEntry.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

// The part of the session's state that the rail depends on.
struct RailState {
    diary::MonthDay day;
    int viewedYear = 0;
    int currentYear = 0;
    // The text of the year in view, as it is typed.
    QString draft;
    // The text of the current year in the file; not looked at while that year is in view.
    QString currentBody;
    // Newest year first.
    std::vector<PastEntry> pastEntries;
    bool showAllYears = false;
    // The number of matches by year, of a search that found something on this day.
    std::map<int, int> hits;
};

struct RailModel {
    struct Card {
        // Also what a click picks.
        int year = 0;
        Token yearColor = Token::RailYear;
        // "407 chars"
        QString meta;
        // The beginning of the text without its markers, or a word that there is none.
        QString snippet;
        Token snippetColor = Token::RailSnippet;
        // "3 years ago"; empty for years ahead.
        QString ago;
        Token background = Token::CardBg;
        Token border = Token::CardBorder;
        // The year in view, unless all years are.
        bool isActive = false;
        // "2 hits"
        std::optional<QString> hits;

        bool operator==(const Card&) const = default;
    };

    // The current year first, then the others from the newest to the oldest.
    std::vector<Card> cards;
    QString footer;
    // The years that can be added, newest first; may be empty.
    std::vector<int> addYears;
    // The number of years with text, this year's included.
    int writtenYearCount = 0;
    bool showsAllYears = false;

    bool operator==(const RailModel&) const = default;
};

// Texts come in the installed language.
[[nodiscard]] RailModel railModel(const RailState& state);

}  // namespace velmar
