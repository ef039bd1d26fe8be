#include "DiaryApp/Entry/PageLayout.h"

#include <algorithm>
#include <cmath>

#include "DiaryApp/Editor/GrowingTextView.h"

namespace velmar {

namespace {

constexpr double kWidestColumn = 640;
constexpr double kSideMargin = 24;
constexpr double kGutter = GrowingTextView::gutter;

constexpr double kHeadTop = 26;
// The key's line, the hairline below it, and the folio line.
constexpr double kHeadHeight = 60 + 10 + 26;
constexpr double kYearRowGap = 20;
constexpr double kYearRowHeight = 20;
// One less than below photos, as drawn.
constexpr double kEditorGap = 11;
constexpr double kHintGap = 22;
constexpr double kHintPaddingX = 30;
constexpr double kHintPaddingY = 26;
constexpr double kLine = 1;
constexpr double kGapLineGap = 26;
constexpr double kGapTextGap = 12;
constexpr double kBottom = 40;

}  // namespace

double PageLayout::columnWidth(double pageWidth) {
    return std::max(0.0, std::min(kWidestColumn, pageWidth - 2 * kSideMargin));
}

double PageLayout::textWidth(double pageWidth) {
    return std::max(0.0, columnWidth(pageWidth) - 2 * kGutter);
}

double PageLayout::hintTextWidth(double pageWidth) {
    return std::max(0.0, textWidth(pageWidth) - 2 * (kHintPaddingX + kLine));
}

PageLayout layOutPage(const PageParts& parts) {
    PageLayout page;
    const double column = PageLayout::columnWidth(parts.width);
    const double left = std::floor((parts.width - column) / 2);
    const double edge = left + kGutter;
    const double text = PageLayout::textWidth(parts.width);

    page.head = {edge, kHeadTop, text, kHeadHeight};
    page.yearRow = {edge, page.head.bottom() + kYearRowGap, text, kYearRowHeight};
    double bottom = page.yearRow.bottom();
    if (parts.editorHeight) {
        page.editor = {left, bottom + kEditorGap, column, *parts.editorHeight};
        bottom = page.editor.bottom();
    } else {
        const double height = parts.hintTextHeight + 2 * (kHintPaddingY + kLine);
        page.hint = {edge, bottom + kHintGap, text, height};
        page.hintText = page.hint.adjusted(kHintPaddingX + kLine, kHintPaddingY + kLine,
                                           -kHintPaddingX - kLine, -kHintPaddingY - kLine);
        bottom = page.hint.bottom();
    }
    if (parts.gapTextHeight) {
        page.gapLine = {edge, bottom + kGapLineGap, text,
                        kLine + kGapTextGap + *parts.gapTextHeight};
        bottom = page.gapLine.bottom();
    }
    page.height = std::max(parts.leastHeight, std::ceil(bottom + kBottom));
    return page;
}

}  // namespace velmar
