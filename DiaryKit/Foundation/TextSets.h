// The sets of white space that the day file format is defined by, and what is trimmed by them.
// Two sets differ on exotic code points only, and both differ from what Qt calls a space, so
// nothing else in the kit may decide by QChar::isSpace().
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace diary::text {

// The Unicode property White_Space (PropList of UAX #44).
[[nodiscard]] bool isWhiteSpace(char32_t codePoint);

// U+000A to U+000D, U+0085, U+2028, U+2029.
[[nodiscard]] bool isNewline(char32_t codePoint);

// General category Z, U+000A to U+000D, U+0085, and the tab: what bodies are trimmed of.
[[nodiscard]] bool isWhitespaceOrNewline(char32_t codePoint);

// General category Zs and the tab.
[[nodiscard]] bool isBlank(char32_t codePoint);

// The view without white space and newlines at both ends. "\n a b\t\n" -> "a b"
[[nodiscard]] QStringView trimmed(QStringView text);

// The view without blanks at both ends; line ends stay.
[[nodiscard]] QStringView trimmedOfBlanks(QStringView text);

// The view without any of those units at both ends.  "[a]", "[]" -> "a"
[[nodiscard]] QStringView trimmedOf(QStringView text, QStringView units);

// The view without its trailing characters that are White_Space. By grapheme clusters (UAX #29),
// so a space that carries a combining mark is content: "a \u0301" stays as it is.
[[nodiscard]] QStringView withoutTrailingWhiteSpace(QStringView text);

// The same at the front.
[[nodiscard]] QStringView withoutLeadingWhiteSpace(QStringView text);

// The view without its leading newline characters, and only those.
[[nodiscard]] QStringView withoutLeadingNewlines(QStringView text);

// Whether any character isn't White_Space.
[[nodiscard]] bool hasContent(QStringView text);

// The number of characters (grapheme clusters) that aren't White_Space: "a b\u0301" -> 2
// Fast enough for every keystroke: full segmentation runs only around characters that need it.
[[nodiscard]] int contentCharacterCount(QStringView text);

// Whether the unit at `position`, a printable ASCII character, is all of what people see as one
// character (grapheme cluster): no mark belongs to it. "a,\u0301b", 1 -> false
[[nodiscard]] bool standsAlone(QStringView text, qsizetype position);

// Whether two texts are canonically equivalent (UAX #15). Equal texts are found so cheaply.
[[nodiscard]] bool canonicallyEqual(QStringView a, QStringView b);

// The next lone LF at or behind `from`, or -1. The LF of a CR LF pair ends no line of a day file.
[[nodiscard]] qsizetype indexOfLineEnd(QStringView text, qsizetype from);

}  // namespace diary::text
