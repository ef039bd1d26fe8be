#include "DiaryKit/Markdown/MarkdownLine.h"

#include <gtest/gtest.h>

#include "tests/kit/markdown/MarkedText.h"
#include "tests/kit/markdown/RandomMarkdown.h"

namespace diary {
namespace {

struct RangeRow {
    const char* name;
    const char16_t* text;
    int at;
    TextRange range;
};

class LineRange : public testing::TestWithParam<RangeRow> {};

TEST_P(LineRange, LeavesItsTerminatorOut) {
    const TextRange range = markdownLineRange(test::text(GetParam().text), GetParam().at);
    EXPECT_EQ(range.location, GetParam().range.location);
    EXPECT_EQ(range.length, GetParam().range.length);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LineRange,
    testing::Values(RangeRow{"EmptyText", u"", 0, {0, 0}},
                    RangeRow{"Middle", u"a\nbc\nd", 3, {2, 2}},
                    RangeRow{"AtTheTerminator", u"a\nbc", 1, {0, 1}},
                    RangeRow{"BehindTheLastLineEnd", u"a\n", 2, {2, 0}},
                    RangeRow{"AheadOfTheText", u"ab\nc", -5, {0, 2}},
                    RangeRow{"BehindTheText", u"a\nbc", 99, {2, 2}},
                    RangeRow{"InsideCrLf", u"a\r\nb", 2, {0, 1}},
                    RangeRow{"BehindCrLf", u"a\r\nb", 3, {3, 1}},
                    RangeRow{"LoneCr", u"a\rb", 2, {2, 1}},
                    RangeRow{"LineSeparatorStays", u"a\u2028b", 0, {0, 2}},
                    RangeRow{"ParagraphSeparatorStays", u"a\u2029b", 0, {0, 2}},
                    RangeRow{"NextLineStays", u"a\u0085b", 2, {2, 1}},
                    RangeRow{"VerticalTabEndsNothing", u"a\u000Bb", 0, {0, 3}}),
    test::rowName<testing::TestParamInfo<RangeRow>>);

TEST(NextLine, BeginsBehindTheWholeTerminator) {
    EXPECT_EQ(markdownNextLine(u"a\nb", {0, 1}), 2);
    EXPECT_EQ(markdownNextLine(u"a\r\nb", {0, 1}), 3);
    EXPECT_EQ(markdownNextLine(u"a\rb", {0, 1}), 2);
    EXPECT_EQ(markdownNextLine(u"a\u2028b", {0, 2}), 2);
}

TEST(NextLine, IsAnEmptyOneBehindALastLineEnd) {
    EXPECT_EQ(markdownNextLine(u"a\n", {0, 1}), 2);
    EXPECT_EQ(markdownNextLine(u"a\n", {2, 0}), std::nullopt);
    EXPECT_EQ(markdownNextLine(u"a", {0, 1}), std::nullopt);
}

TEST(Lines, CoverEveryTextOnceAndInOrder) {
    test::RandomMarkdown random(11);
    for (int round = 0; round < 2000; ++round) {
        const QString text = random.text(12);
        qsizetype behind = 0;
        for (qsizetype start = 0; start >= 0;) {
            ASSERT_GE(start, behind);
            ASSERT_LE(start - behind, 2);
            const TextRange line = markdownLineRange(text, start);
            ASSERT_EQ(line.location, start);
            for (qsizetype at = line.location; at < line.end(); ++at) {
                ASSERT_EQ(markdownLineRange(text, at), line);
            }
            behind = line.end();
            start = markdownNextLine(text, line).value_or(-1);
        }
        ASSERT_EQ(behind, text.size());
    }
}

}  // namespace
}  // namespace diary
