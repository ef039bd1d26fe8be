// What an editing command does to the text: steps, each of which can be undone alone. Typing Return
// in a list is a line break first and the new marker second, so one undo takes the marker back and
// leaves the line break.
#pragma once

#include <QtCore/QString>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary {

struct MarkdownChange {
    struct Step {
        // What is replaced, in the text as it stands once the steps before have been applied.
        TextRange range;
        QString replacement;
        // What is selected once this step has been applied.
        TextRange selection;

        // False if the step only moves the selection.
        [[nodiscard]] bool changesText() const {
            return range.length > 0 || !replacement.isEmpty();
        }
        bool operator==(const Step&) const = default;
    };

    std::vector<Step> steps;

    // A change that touches no text.
    [[nodiscard]] static MarkdownChange select(TextRange range) {
        return {{Step{{range.location, 0}, QString(), range}}};
    }
    // A change of one step.
    [[nodiscard]] static MarkdownChange replace(TextRange range, QString replacement,
                                                TextRange selection) {
        return {{Step{range, std::move(replacement), selection}}};
    }

    bool operator==(const MarkdownChange&) const = default;
};

}  // namespace diary
