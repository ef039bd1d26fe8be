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

// Whether a key works while a text field has the focus.
enum class KeyReach {
    Everywhere,
    // A text field keeps the key for itself, as it does Ctrl+Left, which moves by words.
    OutsideText,
};

struct MenuKey {
    QKeyCombination keys;
    KeyReach reach = KeyReach::Everywhere;
};

struct MenuRow {
    Menu menu;
    // Key of the text.
    const char* title;
    Action action;
    // The first one is shown behind the title.
    std::span<const MenuKey> keys;
    bool hasSeparatorBehind = false;
};

[[nodiscard]] std::span<const MenuRow> menuTable();
// Key of the menu's own title.
[[nodiscard]] const char* menuTitle(Menu menu);

}  // namespace velmar
