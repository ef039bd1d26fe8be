// Where everything stands on the page, from the page's width and the heights of its parts. All
// numbers are logical pixels from the page's top left corner. The left edge of all text is one x.
#pragma once

#include <QtCore/QRectF>
#include <optional>

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

    // The width of the column for a page of this width, and of the text in it.
    [[nodiscard]] static double columnWidth(double pageWidth);
    [[nodiscard]] static double textWidth(double pageWidth);
    [[nodiscard]] static double hintTextWidth(double pageWidth);
};

[[nodiscard]] PageLayout layOutPage(const PageParts& parts);

}  // namespace velmar
