// The formatting commands as data: their names for scripts, their texts, and what each does to a
// text. The editor's context menu is made from this table.
#pragma once

#include <QtCore/QStringView>
#include <optional>
#include <span>

#include "DiaryKit/Markdown/MarkdownEditing.h"

namespace velmar {

// In the order of the menu.
enum class FormatCommand {
    Bold,
    Italic,
    Strikethrough,
    Code,
    Link,
    Heading1,
    Heading2,
    Heading3,
    Body,
    Bullet,
    Ordered,
    Task,
    Quote,
    ToggleTask,
    Indent,
    Outdent,
};

struct FormatRow {
    FormatCommand command;
    // For scripted runs.
    const char* name;
    // Key of the text.
    const char* title;
    bool hasSeparatorBehind = false;
};

[[nodiscard]] std::span<const FormatRow> formatTable();
// "bold" -> Bold; nothing for a name that there isn't.
[[nodiscard]] std::optional<FormatCommand> formatCommand(QStringView name);

// What the command does to the text; nothing if it has nothing to do there.
[[nodiscard]] std::optional<diary::MarkdownChange> formatChange(FormatCommand command,
                                                                QStringView text,
                                                                diary::TextRange selection);
// Whether the command is a state that a line can be in, which its item shows.
[[nodiscard]] bool isCheckable(FormatCommand command);
// Whether the command's item is checked where the caret stands in such a context.
[[nodiscard]] bool isChecked(FormatCommand command, diary::MarkdownContext context);

}  // namespace velmar
