// What the search pane shows, computed from the search in one go and compared by value in tests.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>
#include <variant>
#include <vector>

#include "DiaryApp/Search/SearchSession.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {

struct SearchPaneState {
    // One hit. `hits` is there for two matches and more.
    struct Row {
        // Position in SearchResult::hits.
        int index = 0;
        QString date;
        QString weekday;
        std::optional<QString> hits;
        QString snippet;
        std::vector<diary::TextRange> snippetRanges;

        bool operator==(const Row&) const = default;
    };

    // The hits of a year; `count` is empty where it would only count the rows.
    struct Group {
        QString title;
        QString count;
        std::vector<Row> rows;

        bool operator==(const Group&) const = default;
    };

    // Why the list may not be all there is.
    struct Notice {
        enum class Kind { Pending, Truncated };
        Kind kind = Kind::Pending;
        QString text;

        bool operator==(const Notice&) const = default;
    };

    // What stands in place of the rows.
    struct Recents {
        QStringList searches;
        QString hint;

        bool operator==(const Recents&) const = default;
    };
    struct NoResults {
        QString message;
        QString hint;
        // The text of the button that leads back from a year to all of them.
        std::optional<QString> resetScope;

        bool operator==(const NoResults&) const = default;
    };
    using Empty = std::variant<std::monostate, Recents, NoResults>;

    std::vector<int> scopeYears;
    std::optional<int> scope;
    std::optional<QString> countLine;
    bool isSearching = false;
    std::optional<Notice> notice;
    std::vector<Group> groups;
    // Index of the selected hit.
    std::optional<int> selected;
    Empty empty;
    // The rows are those of the last state if this is; they may be left out then.
    int generation = 0;

    bool operator==(const SearchPaneState&) const = default;
};

// What the state depends on besides the search.
struct SearchPaneContext {
    int currentYear = 0;
    // Newest first.
    QStringList recentSearches;
    Language language = Language::en;
    // The generation whose rows are shown already. They aren't made again.
    std::optional<int> shownGeneration = {};
};

// The texts are in the installed language, the dates in the context's. Pure but for that.
[[nodiscard]] SearchPaneState searchPaneState(const SearchSession& session,
                                              const SearchPaneContext& context);

// What was found, in numbers: "14 hits · 9 days · 4 years"; of a date alone "Mar 7 · 6 years",
// "March 2024 · 12 days", "2024 · 200 days". The scope stands in for the query's year.
[[nodiscard]] QString searchCountLine(const diary::SearchQuery& query, std::optional<int> scope,
                                      const diary::SearchResult& result, Language language);

}  // namespace velmar
