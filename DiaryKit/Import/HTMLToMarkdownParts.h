// What the parts of the converter call of one another: inline text (HTMLToMarkdownInline.cpp),
// lists (HTMLToMarkdownLists.cpp) and all other blocks (HTMLToMarkdown.cpp) hold each other. Not
// for use outside DiaryKit/Import.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::HTMLToMarkdown {

// How many constructs are around the one being written. Only they cost a step of the program's own
// stack; plain tags are walked through.
struct Nesting {
    int depth = 0;

    [[nodiscard]] bool isExhausted() const { return depth >= kMaxNesting; }
    [[nodiscard]] Nesting deeper() const { return {depth + 1}; }
};

// Appends the node as inline text. A block within it stands on lines of its own.
void appendInline(const HTMLNode& node, Nesting nesting, QString& out);

// The node's children as inline text, on one line.
[[nodiscard]] QString lineOfChildren(const HTMLNode& node, Nesting nesting);

// The text with its line ends as blanks, trimmed.
[[nodiscard]] QString onOneLine(QString text);

[[nodiscard]] bool isCheckbox(const HTMLNode& node);

// "[x] " or "[ ] ".
[[nodiscard]] QLatin1String todo(bool isDone);

// Appends the list's items, and the lists within them, each line behind `indent`.
void appendListLines(const HTMLNode& list, const QString& indent, Nesting nesting,
                     QStringList& lines);

// The lines of an item that stands in no list.
[[nodiscard]] QString itemOutsideList(const HTMLNode& item, Nesting nesting);

// The blocks of the node's children.
[[nodiscard]] QStringList blocksBelow(const HTMLNode& top, Nesting nesting);

}  // namespace diary::HTMLToMarkdown
