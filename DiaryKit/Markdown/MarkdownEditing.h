// The editor's whole command logic, free of any interface: each key that gets special treatment and
// each formatting command is a function from text and selection to a change, or to nothing. Nothing
// means that the command has no opinion and the text view does its ordinary thing.
//
// Positions and lengths are in UTF-16 units; a selection handed in must lie in the text. Nothing
// here throws. Inside a fenced block (isInsideFence) the typing keys are those of plain text.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Foundation/TextRange.h"
#include "DiaryKit/Markdown/MarkdownChange.h"

namespace diary {

// A block format that a command can ask for.
struct MarkdownBlockStyle {
    enum class Kind { heading, plain, bullet, task, ordered, quote };

    Kind kind = Kind::plain;
    // A heading's level, from 1 to 6.
    int level = 0;

    [[nodiscard]] bool isList() const {
        return kind == Kind::bullet || kind == Kind::task || kind == Kind::ordered;
    }
};

// What the format menu shows for the caret.
struct MarkdownContext {
    enum class Kind { heading, task, plain, bullet, ordered, quote, selection };

    Kind kind = Kind::plain;
    // A heading's level, 1 for a checked task; 0 otherwise.
    int value = 0;

    bool operator==(const MarkdownContext&) const = default;
};

namespace MarkdownEditing {

// Return. Repeats the marker of a list item or a quote on a new line and counts the items below
// anew; on an empty item it ends the item instead.
//   "- [x] done|" -> "- [x] done\n- [ ] |"     "  - |" -> "- |"     "- |" -> "|"
[[nodiscard]] std::optional<MarkdownChange> newline(QStringView text, TextRange selection);

// Delete backward without a selection: takes a marker away right behind it, its indentation stays;
// takes both halves of an empty pair of inline marks.   "  - |x" -> "  |x"     "**|**" -> "|"
[[nodiscard]] std::optional<MarkdownChange> backspace(QStringView text, TextRange selection);

// A typed space, " " or U+3000: rewrites a marker's look-alike ahead of it in a second step.
//   "——|" -> "- |"     "１２。|" -> "12. |"
[[nodiscard]] std::optional<MarkdownChange> space(QStringView typed, QStringView text,
                                                  TextRange selection);

// The marker that a line's start becomes once the space behind it has been typed, or nothing if it
// is no marker, or already is one as it stands. ("＃＃", " ") -> "## "
[[nodiscard]] std::optional<QString> markdownMarker(QStringView typed, QStringView space);

// A typed "*", "`" or "~" ahead of the same character: steps over it if it is part of a closing
// mark.   "*word|*" -> "*word*|"
[[nodiscard]] std::optional<MarkdownChange> overtype(QStringView typed, QStringView text,
                                                     TextRange selection);

// Whether the column of the line lies in the closing mark of a match. False for other markers than
// "*", "`" and "~".
[[nodiscard]] bool isInClosingMarker(qsizetype column, QStringView line, QChar marker);

// Bold, italic, struck and code: puts the marker around the selection, or takes it away; without a
// selection inserts or removes an empty pair, or leaps over the closing mark.
[[nodiscard]] MarkdownChange wrap(QStringView marker, QStringView text, TextRange selection);

// "[title]()", with the caret where something is missing.
[[nodiscard]] MarkdownChange link(QStringView text, TextRange selection);

// A pasted web address over a selection within a line: turns the selection into a link.
[[nodiscard]] std::optional<MarkdownChange> pasteLink(QStringView pasted, QStringView text,
                                                      TextRange selection);

// Gives the line at the selection's start a block format, or takes it away if the line has it. The
// selection never falls back into the marker.
[[nodiscard]] std::optional<MarkdownChange> setBlock(MarkdownBlockStyle style, QStringView text,
                                                     TextRange selection);

// Moves a list item one level, of two spaces, in or out.
[[nodiscard]] std::optional<MarkdownChange> indent(QStringView text, TextRange selection);
[[nodiscard]] std::optional<MarkdownChange> outdent(QStringView text, TextRange selection);

// Checks or opens the task whose line holds the position; the selection stays.
[[nodiscard]] std::optional<MarkdownChange> toggleTask(qsizetype linePosition, QStringView text,
                                                       TextRange selection);

[[nodiscard]] MarkdownContext context(QStringView text, TextRange selection);

// Whether lines of three back-ticks, indented or not, ahead of the position's line leave a block
// open. The line itself doesn't count. Scans from the text's start, at the speed of a search.
[[nodiscard]] bool isInsideFence(QStringView text, qsizetype position);

// The text in one line, for previews: without markers, marks and addresses, lines joined by two
// spaces.   "# T\n- [x] **a** [l](u)" -> "T  a l"
[[nodiscard]] QString plainText(QStringView markdown);

}  // namespace MarkdownEditing

}  // namespace diary
