// What a line of Markdown starts with. Commands, highlighting and drawing all ask this one parser,
// so that what is typed, what is coloured and what is drawn agree on what a line is.
#pragma once

#include <QtCore/QStringView>

namespace diary {

struct MarkdownLinePrefix {
    enum class Kind { heading, task, ordered, plain, bullet, quote, rule };

    Kind kind = Kind::plain;
    // A heading's level from 1 to 6, an ordered item's number, 1 for a checked task; 0 otherwise.
    int value = 0;
    // The spaces ahead of a list's marker; 0 for every kind that is no list.
    qsizetype indent = 0;
    // Where the text proper starts: indentation, marker and the space behind it, in UTF-16 units.
    // 0 where there is no marker, and for a rule, which is marker through and through.
    qsizetype length = 0;

    // Parses a line, given without its terminator.
    //   "## a" -> heading 2, length 3     "  - [x] a" -> checked task, indent 2, length 8
    //   " ***" -> rule                    "- - -" -> bullet, length 2
    [[nodiscard]] static MarkdownLinePrefix parse(QStringView line);

    // Tasks, ordered items and bullets.
    [[nodiscard]] bool isList() const;
    // The nesting level of a list item: two spaces are one level.
    [[nodiscard]] qsizetype level() const { return indent / 2; }
    [[nodiscard]] bool isChecked() const { return kind == Kind::task && value != 0; }

    bool operator==(const MarkdownLinePrefix&) const = default;
};

}  // namespace diary
