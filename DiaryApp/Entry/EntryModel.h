// What the page shows for the day in view, made from the session's state alone. Nothing here knows
// a widget; EntryView.h shows it.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <variant>
#include <vector>

#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Session/PastEntry.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

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
};

struct EntryModel {
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
    Block block;
    // The years between the oldest entry and this year that have none.
    std::optional<QString> gapLine;

    bool operator==(const EntryModel&) const = default;
};

// Texts come in the installed language; calendar names in the state's.
[[nodiscard]] EntryModel entryModel(const EntryState& state);

}  // namespace velmar
