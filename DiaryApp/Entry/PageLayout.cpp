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

constexpr double kCardsGap = 18;
constexpr double kCardGap = 12;
constexpr double kCardPadding = 12;
constexpr double kCardHead = 26;
constexpr double kAbovePictures = 6;
constexpr double kBelowPictures = 4;
constexpr double kGapRowHeight = 44;

QRectF headRect(double pageWidth) {
    return {PageLayout::textLeft(pageWidth), kHeadTop, PageLayout::textWidth(pageWidth),
            kHeadHeight};
}

}  // namespace

double PageLayout::columnWidth(double pageWidth) {
    return std::max(0.0, std::min(kWidestColumn, pageWidth - 2 * kSideMargin));
}

double PageLayout::columnLeft(double pageWidth) {
    return std::floor((pageWidth - columnWidth(pageWidth)) / 2);
}

double PageLayout::textLeft(double pageWidth) {
    return columnLeft(pageWidth) + kGutter;
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
    const double left = PageLayout::columnLeft(parts.width);
    const double edge = PageLayout::textLeft(parts.width);
    const double text = PageLayout::textWidth(parts.width);

    page.head = headRect(parts.width);
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

CardLayout layOutCard(double pageWidth, const YearRowParts& parts) {
    const double column = PageLayout::columnWidth(pageWidth);
    CardLayout card;
    card.head = {kLine + kGutter, kLine + kCardPadding, PageLayout::textWidth(pageWidth),
                 kCardHead};
    double bottom = card.head.bottom();
    if (parts.picturesHeight > 0) {
        card.pictures = {card.head.left(), bottom + kAbovePictures, card.head.width(),
                         parts.picturesHeight};
        bottom = card.pictures.bottom() + kBelowPictures;
    }
    card.text = {kLine, bottom, column, parts.textHeight};
    card.height = card.text.bottom() + kCardPadding + kLine;
    return card;
}

AllYearsLayout layOutAllYears(double pageWidth, double leastHeight,
                              const std::vector<YearRowParts>& rows) {
    AllYearsLayout page;
    page.head = headRect(pageWidth);
    const double left = PageLayout::columnLeft(pageWidth);
    const double column = PageLayout::columnWidth(pageWidth);
    double y = page.head.bottom() + kCardsGap;
    bool isBelowCard = false;
    for (const YearRowParts& row : rows) {
        if (row.kind == YearRowParts::Kind::Gap) {
            page.rows.emplace_back(left, y, column, kGapRowHeight);
        } else {
            if (isBelowCard) y += kCardGap;
            const double height = layOutCard(pageWidth, row).height;
            page.rows.emplace_back(left - kLine, y, column + 2 * kLine, height);
        }
        isBelowCard = row.kind == YearRowParts::Kind::Card;
        y = page.rows.back().bottom();
    }
    page.height = std::max(leastHeight, std::ceil(y + kBottom));
    return page;
}

}  // namespace velmar
