// What a search needs of the window around it: the day in view, ways to move, and what to draw
// again. Each callable may be absent, for tests; those that answer then answer with nothing.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "DiaryKit/Search/VaultSearch.h"

namespace velmar {

// Where the caret of the search field goes when the field gets the focus.
enum class FieldCaret { SelectAll, AtEnd };

enum class SearchScroll { ToMatch, Stay };

struct SearchHost {
    using Ranges = std::vector<diary::TextRange>;

    // The day and year in view.
    std::function<diary::MonthDay()> currentMonthDay;
    std::function<int()> viewedYear;
    std::function<bool()> showAllYears;
    std::function<bool()> showSource;
    // Whether the editor has the keys. An answer that comes then doesn't turn the page: the next
    // letters would go to another day.
    std::function<bool()> isWriting;
    // The text of the viewed year as it is being written.
    std::function<QString()> draft;
    // The trimmed text of another year of the day in view.
    std::function<QString(int year)> body;
    // All years of the vault with text, in any order; absent while they aren't known yet.
    std::function<std::optional<std::vector<int>>()> contentYears;

    // Moves without touching the focus. They save the draft first, and draw everything again; false
    // where saving failed and the day or year isn't left. With all years shown they stay shown by
    // open(), the given one being the viewed one.
    std::function<bool(diary::MonthDay, int year)> open;
    std::function<bool(int year)> pickYear;
    // Makes the year the viewed one and its text the draft, and stays in the all-years view.
    std::function<bool(int year)> viewYearInAllYears;
    std::function<void(bool isOn)> setAllYears;

    std::function<void()> renderSidebar;
    std::function<void()> renderEntry;
    std::function<void()> renderRail;
    std::function<void()> renderStatus;
    // Brings the search pane into the sidebar's place, or the calendar back.
    std::function<void(bool showsSearch)> switchSidebar;

    // Marks the ranges in the editor's text, the one at `current` as the current match.
    std::function<void(const Ranges& ranges, int current, SearchScroll scroll)> setHighlights;
    // Marks ranges in every card of the all-years view; asks for those of a year's text.
    std::function<void(const std::function<Ranges(int year)>& rangesOfYear)> setAllYearsHighlights;
    // Brings the year's card into view, where all years show.
    std::function<void(int year)> showYear;
    std::function<void()> clearHighlights;

    std::function<void(FieldCaret caret)> focusField;
    // Sets the field's text without telling it as typed.
    std::function<void(const QString& text)> setFieldText;
    // Back from the source to the page, to be written on.
    std::function<void()> leaveSource;
    std::function<void()> focusEditor;
    // Gives the editor the focus, and puts the caret at the range if it lies within the text.
    std::function<void(diary::TextRange range)> selectInEditor;

    // Searches in the background and brings the result to the main thread. Must not call `finish`
    // before it returns, nor once the controller is gone.
    std::function<void(const diary::SearchQuery& query,
                       std::function<void(diary::SearchResult)> finish)>
        startSearch;
    std::function<void(const QString& query)> rememberSearch;
    // A query that a scripted run puts into the field whenever the search is shown.
    std::optional<QString> scriptedQuery;
};

}  // namespace velmar
