// What the highlighter found in one paragraph, kept on its block: the layout, the painter and the
// caret read it from there. It travels with the block when text ahead of it comes and goes.
#pragma once

#include <QtGui/QTextBlock>
#include <optional>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"

namespace velmar {

struct BlockStyle : QTextBlockUserData {
    using Fence = diary::MarkdownHighlighting::Fence;

    diary::MarkdownStyling styling;
    Fence fenceAhead = Fence::Closed;
    Fence fenceBehind = Fence::Closed;
    // The fence that the styling was computed with.
    Fence fenceOfLook = Fence::Closed;
    // Whether the whole paragraph belongs to a fenced block.
    bool isFenced = false;
    // The paragraph's length when it was styled.
    int length = 0;

    // Null where nothing was styled yet.
    [[nodiscard]] static BlockStyle* of(const QTextBlock& block) {
        return static_cast<BlockStyle*>(block.userData());
    }

    // Whether a fence has opened or closed ahead of the paragraph since it was styled.
    [[nodiscard]] bool hasOldLook() const { return fenceOfLook != fenceAhead; }
    // The left edge of a line that begins at this character of the paragraph.
    [[nodiscard]] int indentAt(int offset) const;
    // The font of the character.
    [[nodiscard]] diary::MarkdownFont fontAt(int offset) const;
    // The whole hidden stretch that holds the character.
    [[nodiscard]] std::optional<diary::TextRange> hiddenAt(int offset) const;

private:
    [[nodiscard]] const diary::MarkdownRun* runAt(int offset) const;
};

// Those of a block that may have no style yet.
[[nodiscard]] int indentAt(const QTextBlock& block, int offset);
[[nodiscard]] diary::MarkdownFont fontAt(const QTextBlock& block, int offset);
// In positions of the block.
[[nodiscard]] std::optional<diary::TextRange> hiddenAt(const QTextBlock& block, int offset);

}  // namespace velmar
