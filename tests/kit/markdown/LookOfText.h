// The look of single characters.
#pragma once

#include "DiaryKit/Markdown/MarkdownHighlighting.h"

namespace diary::test {

// What the character at `at` looks like.
inline MarkdownAttributes lookAt(const MarkdownStyling& styling, qsizetype at) {
    for (const MarkdownRun& run : styling.runs) {
        if (at >= run.range.location && at < run.range.end()) return run.attributes;
    }
    return {};
}

}  // namespace diary::test
