// A change carried out on a text, as the editor does it: one step after another.
#pragma once

#include <QtCore/QString>
#include <optional>

#include "DiaryKit/Markdown/MarkdownChange.h"

namespace diary {

struct TextWithSelection {
    QString text;
    TextRange selection;

    bool operator==(const TextWithSelection&) const = default;
};

inline TextWithSelection applied(const MarkdownChange& change, QStringView text) {
    TextWithSelection result{text.toString(), {}};
    for (const MarkdownChange::Step& step : change.steps) {
        result.text.replace(step.range.location, step.range.length, step.replacement);
        result.selection = step.selection;
    }
    return result;
}

// Without a change the text stays and nothing is selected.
inline TextWithSelection applied(const std::optional<MarkdownChange>& change, QStringView text) {
    return applied(change.value_or(MarkdownChange{}), text);
}

}  // namespace diary
