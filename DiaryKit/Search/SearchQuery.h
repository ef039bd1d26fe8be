// What a line in the search field asks for: dates are known by their form, everything else is a
// word to find. What matches a word is SearchMatch.h, the search itself VaultSearch.h.
#pragma once

#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

struct SearchQuery {
    // The words, as typed and in their order; all of them must occur.
    QStringList terms;
    std::optional<int> year;
    // Comes with a year only: "2024-03".
    std::optional<int> month;
    std::optional<MonthDay> monthDay;

    // Reads a line. Blanks, tabs and ideographic spaces separate; of two dates of one kind the
    // later counts. Years are 1900 to 2200, a number outside of them is a word. Pure; any thread.
    //   "2024"          -> year 2024
    //   "2024-03 rain"  -> year 2024, month 3, terms "rain"
    //   "03-07"         -> monthDay 7 March
    //   "2024-13 1899"  -> terms "2024-13", "1899"
    [[nodiscard]] static SearchQuery parsing(QStringView text);

    // Asks for nothing, and finds nothing.
    [[nodiscard]] bool isEmpty() const;

    // Has a date and no word: it finds every section of that date that has writing.
    [[nodiscard]] bool isDateOnly() const;

    bool operator==(const SearchQuery&) const = default;
};

}  // namespace diary
