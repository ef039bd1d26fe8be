// An open search: what was asked, what was found, and where the user is in it. A value; its rules
// are SearchController's.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

#include "DiaryKit/Search/VaultSearch.h"

namespace velmar {

struct SearchSession {
    // The line as typed.
    QString query;
    // A year chosen with a chip; it goes before a year in the query.
    std::optional<int> scope;
    // The years with text when the search was opened, newest first.
    std::vector<int> years;
    // The last search that finished; absent while nothing is searched.
    std::optional<diary::SearchResult> result;
    // The words of that result.
    QStringList terms;
    // Index of the selected hit.
    std::optional<int> selected;
    // Index among the matches in the selected hit's live text.
    int currentMatch = 0;
    bool isSearching = false;
    // Goes up whenever the list of rows changes, across searches too.
    int generation = 0;

    bool operator==(const SearchSession&) const = default;
};

}  // namespace velmar
