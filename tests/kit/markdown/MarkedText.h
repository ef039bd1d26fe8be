// Texts with their caret or selection written into them: one "|" is the caret, two enclose the
// selection. "- one|" is the caret behind "one".
#pragma once

#include <QtCore/QString>
#include <optional>

#include "DiaryKit/Markdown/MarkdownChange.h"
#include "tests/support/MarkdownSteps.h"
#include "tests/support/Printing.h"

namespace diary::test {

inline TextWithSelection unmarked(const QString& marked) {
    const qsizetype start = marked.indexOf(u'|');
    const qsizetype end = marked.lastIndexOf(u'|');
    QString text = marked;
    text.remove(u'|');
    return {text, {start, end > start ? end - 1 - start : 0}};
}

inline QString marked(TextWithSelection result) {
    if (result.selection.length > 0) result.text.insert(result.selection.end(), u'|');
    return result.text.insert(result.selection.location, u'|');
}

// The marked text that the change makes; "none" if there is no change.
inline QString outcome(const std::optional<MarkdownChange>& change, const QString& text) {
    return change ? marked(applied(*change, text)) : QStringLiteral("none");
}

// The marked text after the first step alone: what one undo of a change of two steps leaves.
inline QString afterFirstStep(const MarkdownChange& change, const QString& text) {
    return marked(applied(MarkdownChange{{change.steps.front()}}, text));
}

// A row of a table: what is done to a marked text, and the marked text that comes of it.
struct ChangeRow {
    const char* name;
    const char16_t* before;
    const char16_t* after;
};

inline QString text(const char16_t* units) {
    return QString::fromUtf16(units);
}

template <typename Info>
std::string rowName(const Info& row) {
    return row.param.name;
}

}  // namespace diary::test
