// What the vault's Markdown can hold of an HTML tree: headings, emphasis, links, lists, to-dos,
// quotes, code, rules, and tables as plain rows. Media disappear.
//
// Markdown repeats a list's indent and a quote's mark on each line, and rows of nested tables are
// told once for each table around them, so a hostile tree could ask for far more text than it
// holds. Beyond the bounds below, which no page made for people reaches, tags count as if they
// weren't there and their words stay. Pure; any thread.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/Import/MiniHTML.h"

namespace diary::HTMLToMarkdown {

// Emphasis, links, list items, quotes and the like within one another.
inline constexpr int kMaxNesting = 64;
// Table rows within one another.
inline constexpr int kMaxRowDepth = 5;
// Columns that a list item is moved to the right.
inline constexpr qsizetype kMaxIndent = 160;

// The Markdown blocks of the node's children, to be joined with blank lines.
//   "<h2>a</h2><p>b <i>c</i></p>" -> "## a", "b *c*"
[[nodiscard]] QStringList blocks(const HTMLNode& node);

// The node's children on one line, without what makes blocks.  "a<br><b>c</b>" -> "a **c**"
[[nodiscard]] QString inlineText(const HTMLNode& node);

// The blocks joined with blank lines, tidied.
[[nodiscard]] QString markdown(const HTMLNode& node);
// The same of a whole text.  "<p>a</p><p>b" -> "a\n\nb"
[[nodiscard]] QString markdown(const QString& html);

// The text without blanks and tabs at its lines' ends, with runs of blank lines shortened to one
// empty line, and without newlines at both ends. Knows nothing of fences.
//   "a \n\n \n\nb\n" -> "a\n\nb"
[[nodiscard]] QString tidy(QStringView text);

}  // namespace diary::HTMLToMarkdown
