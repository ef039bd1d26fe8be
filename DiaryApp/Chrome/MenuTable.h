// The commands of the menu as data: one row a command, in the order in which they stand.
#pragma once

#include <QtCore/QKeyCombination>
#include <span>

namespace velmar {

enum class Menu { Diary, File, Edit, Format, View, Navigate, Window };

enum class Action {
    About,
    CheckForUpdates,
    Settings,
    Hide,
    Quit,
    Close,
    Save,
    Import,
    ImportRecords,
    Export,
    ShowInFinder,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Find,
    FindNext,
    FindPrevious,
    Bold,
    Italic,
    Strikethrough,
    InlineCode,
    Link,
    Heading1,
    Heading2,
    Heading3,
    BodyText,
    BulletedList,
    NumberedList,
    ToDo,
    Quote,
    CheckToDo,
    Indent,
    Outdent,
    OneYear,
    AllYears,
    ToggleSource,
    PreviousDay,
    NextDay,
    Today,
    RandomDay,
    YearCalendar,
    Minimize,
    Zoom,
};

struct MenuRow {
    Menu menu;
    // Key of the text.
    const char* title;
    Action action;
    // The first one is shown behind the title. A text field keeps for itself what it uses, such as
    // Ctrl+Left, which moves by words.
    std::span<const QKeyCombination> keys;
    bool hasSeparatorBehind = false;
};

[[nodiscard]] std::span<const MenuRow> menuTable();
// Key of the menu's own title.
[[nodiscard]] const char* menuTitle(Menu menu);

}  // namespace velmar
