// The lines of a Markdown text. A line ends at LF, CR, CR LF, U+0085, U+2028 or U+2029. LF and CR
// aren't part of the line; the rarer three stay in it, as its last unit.
#pragma once

#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Foundation/TextRange.h"
#include "DiaryKit/Markdown/MarkdownLinePrefix.h"

namespace diary {

// Whether the unit ends a line, as one of the six ends or a part of CR LF.
[[nodiscard]] bool endsMarkdownLine(QChar unit);

// The range of the line that holds the position; a position outside the text counts as its nearest
// end. Between a CR and its LF is the line that they end. ("a\nbc", 3) -> location 2, length 2
[[nodiscard]] TextRange markdownLineRange(QStringView text, qsizetype at);

// Where the line behind the one of this range begins, or nothing behind the last. A text that ends
// with a line end has an empty last line.
[[nodiscard]] std::optional<qsizetype> markdownNextLine(QStringView text, TextRange line);

// A line with what it starts with. The view points into the text that it was made from.
struct MarkdownLine {
    TextRange range;
    QStringView text;
    MarkdownLinePrefix prefix;

    [[nodiscard]] static MarkdownLine at(QStringView text, qsizetype position);
    // The text behind the prefix.
    [[nodiscard]] QStringView content() const { return text.sliced(prefix.length); }
};

}  // namespace diary
