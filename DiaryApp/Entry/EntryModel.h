// What the page shows for the day in view, made from the session's state alone. Nothing here knows
// a widget; EntryView.h shows it.
#pragma once

#include <QtCore/QString>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Session/PastEntry.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

// The matches of a search in the text in view.
struct MatchCount {
    int count = 0;
    // 0-based.
    int current = 0;

    bool operator==(const MatchCount&) const = default;
};

// The part of the session's state that the page depends on.
struct EntryState {
    diary::MonthDay day;
    int viewedYear = 0;
    int currentYear = 0;
    QString draft;
    // Newest year first.
    std::vector<PastEntry> pastEntries;
    bool showGapYears = true;
    Language language = Language::en;
    // The whole file; asked only where its source shows.
    QString rawText = {};
    bool showSource = false;
    bool showAllYears = false;
    // A year's body in the file, trimmed; empty where there is none. Asked only for years that
    // aren't in view, whose draft counts instead, and only where all years show.
    std::function<QString(int year)> body = {};
    // Present while a search has its hit in the day and year in view.
    std::optional<MatchCount> matches = std::nullopt;
};

struct EntryModel {
    using Matches = MatchCount;

    // All years of the day, newest first. AllYearsModel.h makes it.
    struct AllYears {
        struct Year {
            int year = 0;
            QString ago;
            QString body;
            bool isCurrent = false;

            bool operator==(const Year&) const = default;
        };

        // A run of years without text.
        struct Gap {
            QString label;
            // The newest of them, which is the one to be filled in first.
            int firstYear = 0;

            bool operator==(const Gap&) const = default;
        };

        using Row = std::variant<Year, Gap>;

        // Span, counts and a hint in one line; see summaryParts().
        QString summary;
        std::vector<Row> rows;

        bool operator==(const AllYears&) const = default;
    };

    // The year's text, to be written in.
    struct Editor {
        QString draft;
        QString placeholder;
        Token textColor = Token::Ink;

        bool operator==(const Editor&) const = default;
    };

    // A hint in place of the editor.
    struct Empty {
        QString text;

        bool operator==(const Empty&) const = default;
    };

    struct Block {
        QString mark;
        Token markColor = Token::Accent;
        QString ago;
        std::variant<Editor, Empty> kind;

        bool operator==(const Block&) const = default;
    };

    QString fileName;
    QString ordinal;
    QString dayKey;
    QString weekdayName;
    QString subtitle;
    // The file as it is; shown in place of everything else.
    std::optional<QString> sourceText;
    Block block;
    // The years between the oldest entry and this year that have none.
    std::optional<QString> gapLine;
    // Shown in place of the block.
    std::optional<AllYears> allYears;
    // Only where the block shows.
    std::optional<Matches> matches;

    bool operator==(const EntryModel&) const = default;
};

// Texts come in the installed language; calendar names in the state's.
[[nodiscard]] EntryModel entryModel(const EntryState& state);

}  // namespace velmar
