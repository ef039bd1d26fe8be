#include "DiaryApp/Editor/BlockStyle.h"

#include <algorithm>

namespace velmar {

using diary::MarkdownBlockMetrics;
using diary::MarkdownFont;
using diary::MarkdownRun;
using diary::TextRange;

const MarkdownRun* BlockStyle::runAt(int offset) const {
    const auto& runs = styling.runs;
    const auto behind =
        std::upper_bound(runs.begin(), runs.end(), offset,
                         [](int at, const MarkdownRun& run) { return at < run.range.end(); });
    if (behind == runs.end() || behind->range.location > offset) return nullptr;
    return &*behind;
}

int BlockStyle::indentAt(int offset) const {
    const MarkdownRun* run = runAt(offset);
    return run != nullptr ? run->attributes.indent : MarkdownBlockMetrics::kTextEdge;
}

MarkdownFont BlockStyle::fontAt(int offset) const {
    const MarkdownRun* run = runAt(offset);
    return run != nullptr ? run->attributes.font : MarkdownFont::body;
}

std::optional<TextRange> BlockStyle::hiddenAt(int offset) const {
    const MarkdownRun* run = runAt(offset);
    if (run == nullptr || !run->attributes.isHidden) return std::nullopt;
    // Runs of another look, as a mark that crosses the marker, may touch.
    const MarkdownRun* first = run;
    while (first != styling.runs.data()) {
        const MarkdownRun* ahead = first - 1;
        if (!ahead->attributes.isHidden || ahead->range.end() != first->range.location) break;
        first = ahead;
    }
    const MarkdownRun* last = run;
    const MarkdownRun* end = styling.runs.data() + styling.runs.size();
    while (last + 1 != end && last[1].attributes.isHidden &&
           last[1].range.location == last->range.end()) {
        ++last;
    }
    return TextRange{first->range.location, last->range.end() - first->range.location};
}

int indentAt(const QTextBlock& block, int offset) {
    const BlockStyle* style = BlockStyle::of(block);
    return style != nullptr ? style->indentAt(offset) : MarkdownBlockMetrics::kTextEdge;
}

MarkdownFont fontAt(const QTextBlock& block, int offset) {
    const BlockStyle* style = BlockStyle::of(block);
    return style != nullptr ? style->fontAt(offset) : MarkdownFont::body;
}

std::optional<TextRange> hiddenAt(const QTextBlock& block, int offset) {
    const BlockStyle* style = BlockStyle::of(block);
    return style != nullptr ? style->hiddenAt(offset) : std::nullopt;
}

}  // namespace velmar
