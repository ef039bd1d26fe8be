// Marks inside a line: bold, italic, struck, code and links. Each function gives all matches from
// left to right, none overlapping another, in time linear in the text; ranges are in UTF-16 units.
// No match reaches across an LF, so the matches of a text are those of its paragraphs.
//
// They are written by hand because every keystroke runs them over all that it touched. The patterns
// that they stand for, in ICU syntax, are given with each; a test holds one against the other.
#pragma once

#include <QtCore/QStringView>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary::markdowninline {

struct Link {
    TextRange range;
    TextRange title;
    TextRange address;

    bool operator==(const Link&) const = default;
};

enum class EmptyAddress { Allowed, Refused };

// \*\*[^*\n]+\*\*
[[nodiscard]] std::vector<TextRange> starBold(QStringView text);

// \*\*[^*\n]+\*\*|__[^_\n]+__
[[nodiscard]] std::vector<TextRange> bold(QStringView text);

// (?<![*\\])\*(?![*\s])[^*\n]+?(?<![*\s])\*(?!\*)
[[nodiscard]] std::vector<TextRange> starItalic(QStringView text);

// The same, or (?<![\w_])_[^_\n]+_(?![\w_])
[[nodiscard]] std::vector<TextRange> italic(QStringView text);

// ~~[^~\n]+~~
[[nodiscard]] std::vector<TextRange> strike(QStringView text);

// `[^`\n]+`
[[nodiscard]] std::vector<TextRange> code(QStringView text);

// \[([^\]\n]*)\]\(([^)\n]*)\), with + for the last * where an empty address is refused.
[[nodiscard]] std::vector<Link> links(QStringView text, EmptyAddress emptyAddress);

}  // namespace diary::markdowninline
