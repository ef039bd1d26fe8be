// How Markdown looks while it is written: which characters are hidden because a drawing stands in
// for them, which are bold, faint or code. A value for a text, with no fonts, colours or widgets;
// the editor turns it into formats. The text itself is never changed.
//
// A paragraph is what stands between two LFs. Its look depends on itself and on whether a fence is
// open ahead of it, so an editor restyles the paragraph that changed, and those behind it only as
// long as the fence differs from what it was. All of it is linear in the text.
#pragma once

#include <QtCore/QStringView>
#include <cmath>
#include <optional>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"
#include "DiaryKit/Markdown/MarkdownLinePrefix.h"

namespace diary {

// The lengths of a text's layout that follow from its font size, in the unit of the size.
struct MarkdownBlockMetrics {
    // Where all text begins; heading marks are drawn in this gutter.
    static constexpr int kTextEdge = 22;
    static constexpr int kQuoteIndent = 36;

    double fontSize = 0;

    // The width of one list level.
    [[nodiscard]] int indentStep() const { return rounded(1.3); }
    // The side of a task's box, and the widths of what stands ahead of an item's text.
    [[nodiscard]] int taskBox() const { return rounded(0.94); }
    [[nodiscard]] int taskWidth() const { return taskBox() + rounded(0.55); }
    [[nodiscard]] int orderedWidth() const { return rounded(1.6); }
    [[nodiscard]] int bulletWidth() const { return rounded(1.1); }

private:
    [[nodiscard]] int rounded(double factor) const {
        return static_cast<int>(std::lround(fontSize * factor));
    }
};

enum class MarkdownFont : quint8 {
    body,
    mono,
    heading1,
    heading2,
    heading3,
    heading4,
    heading5,
    heading6
};

// The names of colour tokens; `base` is what the editor was given for its text.
enum class MarkdownColor : quint8 { base, accent, faint, daySubText, inkSource };

// What one character looks like. As made, it is ordinary text.
struct MarkdownAttributes {
    // The slant of oblique text, drawn with the upright font.
    static constexpr double kObliqueness = 0.18;

    MarkdownFont font = MarkdownFont::body;
    MarkdownColor color = MarkdownColor::base;
    // Also set wherever the font is a heading's.
    bool isBold = false;
    bool isOblique = false;
    bool isStruck = false;
    // On a background of the token `hoverBg`.
    bool hasCodeBackground = false;
    // Takes no space and isn't seen; the caret never rests in it.
    bool isHidden = false;
    // Of the line, and of the rows it wraps into.
    int indent = MarkdownBlockMetrics::kTextEdge;

    bool operator==(const MarkdownAttributes&) const = default;
};

// A stretch of characters that look the same and not like ordinary text.
struct MarkdownRun {
    TextRange range;
    MarkdownAttributes attributes;

    bool operator==(const MarkdownRun&) const = default;
};

// What is drawn in place of a block's marker, anchored at the line's first character.
struct MarkdownDecoration {
    qsizetype at = 0;
    // Never `plain`.
    MarkdownLinePrefix::Kind kind = MarkdownLinePrefix::Kind::rule;
    // As in the prefix: a heading's level, an item's number, 1 for a checked task.
    int value = 0;
    // The nesting level of a list item.
    qsizetype level = 0;
    // The year of a heading that reads as the header of a year's section.
    std::optional<int> year;
    // The length of the line, with what ends it unless that is an LF or a CR.
    qsizetype length = 0;

    bool operator==(const MarkdownDecoration&) const = default;
};

// Runs in order, none touching another of the same look, and decorations in order.
struct MarkdownStyling {
    std::vector<MarkdownRun> runs;
    std::vector<MarkdownDecoration> decorations;

    bool operator==(const MarkdownStyling&) const = default;
};

namespace MarkdownHighlighting {

// Whether a line of three back-ticks has opened a block that isn't closed yet.
enum class Fence : bool { Closed, Open };

// The fence behind a paragraph, given the one ahead of it. The paragraph holds no LF.
[[nodiscard]] Fence fenceBehind(QStringView paragraph, Fence ahead);

// The look of one paragraph; positions count from its start.
[[nodiscard]] MarkdownStyling paragraph(QStringView paragraph, Fence ahead,
                                        const MarkdownBlockMetrics& metrics);

// The look of a whole text. An LF carries nothing and ends a run.
[[nodiscard]] MarkdownStyling highlight(QStringView text, const MarkdownBlockMetrics& metrics);

}  // namespace MarkdownHighlighting

}  // namespace diary
