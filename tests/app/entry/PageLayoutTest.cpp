#include "DiaryApp/Entry/PageLayout.h"

#include <gtest/gtest.h>

namespace velmar {
namespace {

PageParts parts(double width, std::optional<double> editor, std::optional<double> gap) {
    PageParts result;
    result.width = width;
    result.editorHeight = editor;
    result.hintTextHeight = 60;
    result.gapTextHeight = gap;
    return result;
}

TEST(PageLayout, CentresAColumnOfSixHundredAndForty) {
    EXPECT_EQ(PageLayout::columnWidth(840), 640);
    EXPECT_EQ(PageLayout::columnWidth(560), 512);
    EXPECT_EQ(PageLayout::columnWidth(20), 0);
    const PageLayout page = layOutPage(parts(840, 102, 18));
    EXPECT_EQ(page.editor, QRectF(100, 173, 640, 102));
    EXPECT_EQ(page.head, QRectF(122, 26, 596, 96));
    EXPECT_EQ(page.yearRow, QRectF(122, 142, 596, 20));
    EXPECT_EQ(page.gapLine, QRectF(122, 301, 596, 31));
}

TEST(PageLayout, AllTextHasOneLeftEdge) {
    for (const double width : {300.0, 560.0, 841.0, 1360.0}) {
        const PageLayout page = layOutPage(parts(width, 76, 18));
        EXPECT_EQ(page.head.left(), page.yearRow.left());
        EXPECT_EQ(page.head.left(), page.gapLine.left());
        EXPECT_EQ(page.head.left(), page.editor.left() + 22);
    }
}

TEST(PageLayout, TheHintStandsInPlaceOfTheEditor) {
    const PageLayout page = layOutPage(parts(840, std::nullopt, 18));
    EXPECT_TRUE(page.editor.isEmpty());
    EXPECT_EQ(page.hint, QRectF(122, 184, 596, 114));
    EXPECT_EQ(page.hintText, QRectF(153, 211, 534, 60));
    EXPECT_EQ(page.hintText.width(), PageLayout::hintTextWidth(840));
    EXPECT_EQ(page.gapLine.top(), 324);
}

TEST(PageLayout, FillsTheWindowAndGrowsBeyondIt) {
    PageParts small = parts(840, 76, std::nullopt);
    small.leastHeight = 740;
    EXPECT_EQ(layOutPage(small).height, 740);
    EXPECT_TRUE(layOutPage(small).gapLine.isEmpty());
    small.editorHeight = 3400;
    EXPECT_EQ(layOutPage(small).height, 173 + 3400 + 40);
}

TEST(CardLayout, StandsInTheColumnWithRoomForPictures) {
    const CardLayout plain = layOutCard(840, {YearRowParts::Kind::Card, 68, 0});
    EXPECT_EQ(plain.head, QRectF(23, 13, 596, 26));
    EXPECT_TRUE(plain.pictures.isEmpty());
    EXPECT_EQ(plain.text, QRectF(1, 39, 640, 68));
    EXPECT_EQ(plain.height, 120);
    const CardLayout pictures = layOutCard(840, {YearRowParts::Kind::Card, 68, 164});
    EXPECT_EQ(pictures.pictures, QRectF(23, 45, 596, 164));
    EXPECT_EQ(pictures.text, QRectF(1, 213, 640, 68));
    EXPECT_EQ(pictures.height, 294);
}

TEST(AllYearsLayout, PutsTwelvePixelsBetweenCardsAndNoneBesideGaps) {
    const YearRowParts card{YearRowParts::Kind::Card, 68, 0};
    const YearRowParts gap{YearRowParts::Kind::Gap, 0, 0};
    const AllYearsLayout page = layOutAllYears(840, 0, {card, card, gap, card, gap});
    EXPECT_EQ(page.head, layOutPage(parts(840, 76, {})).head);
    EXPECT_EQ(page.rows, (std::vector<QRectF>{{99, 140, 642, 120},
                                              {99, 272, 642, 120},
                                              {100, 392, 640, 44},
                                              {99, 436, 642, 120},
                                              {100, 556, 640, 44}}));
    EXPECT_EQ(page.height, 640);
    EXPECT_EQ(layOutAllYears(840, 740, {card}).height, 740);
}

TEST(AllYearsLayout, TextKeepsItsPlaceFromOneYearToAll) {
    for (const double width : {300.0, 560.0, 841.0, 1360.0}) {
        const YearRowParts card{YearRowParts::Kind::Card, 68, 0};
        const AllYearsLayout page = layOutAllYears(width, 0, {card});
        const double text = page.rows[0].left() + layOutCard(width, card).text.left();
        EXPECT_EQ(text, layOutPage(parts(width, 76, {})).editor.left());
    }
}

}  // namespace
}  // namespace velmar
