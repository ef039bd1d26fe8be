// Where everything stands on the page, from the page's width and the heights of its parts. All
// numbers are logical pixels from the page's top left corner. The left edge of all text is one x.
#pragma once

#include <QtCore/QRectF>
#include <optional>
#include <vector>

namespace velmar {

struct PageParts {
    double width = 0;
    // The smallest height that the page may have: the visible part of the window.
    double leastHeight = 0;
    // Either an editor of this height, or a hint whose text is this high.
    std::optional<double> editorHeight;
    double hintTextHeight = 0;
    // Absent without a line of missing years.
    std::optional<double> gapTextHeight;
};

struct PageLayout {
    QRectF head;
    QRectF yearRow;
    // Empty where the page has no editor, or no hint.
    QRectF editor;
    QRectF hint;
    QRectF hintText;
    QRectF gapLine;
    double height = 0;

    // The column of a page of this width, and the text in it: where they begin, and their widths.
    [[nodiscard]] static double columnWidth(double pageWidth);
    [[nodiscard]] static double columnLeft(double pageWidth);
    [[nodiscard]] static double textWidth(double pageWidth);
    [[nodiscard]] static double textLeft(double pageWidth);
    [[nodiscard]] static double hintTextWidth(double pageWidth);
};

[[nodiscard]] PageLayout layOutPage(const PageParts& parts);

// A row of the page that shows all years: a card, whose inner edges are the column's, so that its
// text keeps the place that it has on the page of one year, or a row between cards.
struct YearRowParts {
    enum class Kind { Card, Gap };

    Kind kind = Kind::Card;
    double textHeight = 0;
    // Of the pictures above the text; 0 without any.
    double picturesHeight = 0;
};

struct CardLayout {
    // In coordinates of the card.
    QRectF head;
    // Empty without pictures.
    QRectF pictures;
    // As wide as the column.
    QRectF text;
    double height = 0;
};

[[nodiscard]] CardLayout layOutCard(double pageWidth, const YearRowParts& parts);

struct AllYearsLayout {
    QRectF head;
    // One for each row.
    std::vector<QRectF> rows;
    double height = 0;
};

[[nodiscard]] AllYearsLayout layOutAllYears(double pageWidth, double leastHeight,
                                            const std::vector<YearRowParts>& rows);

}  // namespace velmar
