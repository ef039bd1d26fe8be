// Makes the menu bar and the shortcuts from the table of commands.
#pragma once

#include <QtWidgets/QMenuBar>
#include <functional>
#include <optional>

#include "DiaryApp/Chrome/MenuTable.h"

namespace velmar {

class MainMenuBuilder {
public:
    using Dispatch = std::function<void(Action)>;

    // The menu bar of a window: all rows of the table, their texts in the installed language. Each
    // command calls `dispatch`. To follow a change of language call retranslate().
    [[nodiscard]] static QMenuBar* build(QWidget* window, const Dispatch& dispatch);

    // Sets the texts again, in the language that is installed now.
    static void retranslate(QMenuBar* bar);

    // How a command stands whenever its menu is opened. The keys of a command that is off work
    // again once the menu has closed; whoever gets the command asks then whether it may run.
    struct ItemState {
        bool isEnabled = true;
        // Absent for a command that is never checked.
        std::optional<bool> isChecked = {};
    };
    using StateOf = std::function<ItemState(Action)>;
    static void showStates(const QMenuBar* bar, Menu menu, StateOf stateOf);

    // The command's item in a bar made here; null if the table has none.
    [[nodiscard]] static QAction* item(const QMenuBar* bar, Action action);
};

}  // namespace velmar
