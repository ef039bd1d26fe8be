// What the sidebar shows beside the page: the month in view as a grid of days, the way back to
// today, and three facts about the whole diary. Nothing here knows a widget; SidebarView.h shows
// it.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <array>
#include <optional>
#include <set>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Vault/ArchiveSnapshot.h"
#include "DiaryKit/Vault/DiaryDay.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

// The part of the session's and the store's state that the sidebar depends on.
struct SidebarState {
    diary::MonthDay day;
    int viewedYear = 0;
    diary::DiaryDay today;
    // Day numbers of the month in view.
    std::set<int> daysWithContent;
    // Absent until the vault is looked through.
    std::optional<diary::Overview> overview;
    Language language = Language::en;
};

// One month. February always has 29 days here: a date is a place of its own, in every year.
struct DayGridModel {
    int month = 1;
    int year = 0;
    int selectedDay = 1;
    // The day number of today's date, if it lies in this month; the year doesn't count.
    std::optional<int> today;
    std::set<int> daysWithContent;
    // Over the columns, from the language's first day of the week on.
    QStringList weekdaySymbols;
    // Cells ahead of day 1, 0 to 6, as the year in view has its weekdays.
    int leadingBlanks = 0;
    Language language = Language::en;

    bool operator==(const DayGridModel&) const = default;
};

struct SidebarModel {
    struct Stat {
        QString label;
        // Empty while it isn't known.
        QString value;
        // What stands fainter behind the value, " / 365"; may be empty.
        QString suffix;

        bool operator==(const Stat&) const = default;
    };

    QString monthTitle;
    DayGridModel grid;
    QString todayTitle;
    // "Nov 21", or "11-21" in the languages that write no date there.
    QString todayDate;
    std::array<Stat, 3> stats;

    bool operator==(const SidebarModel&) const = default;
};

// Texts come in the installed language; calendar names in the state's.
[[nodiscard]] SidebarModel sidebarModel(const SidebarState& state);

}  // namespace velmar
