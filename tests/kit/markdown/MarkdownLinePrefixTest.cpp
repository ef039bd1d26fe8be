#include "DiaryKit/Markdown/MarkdownLinePrefix.h"

#include <gtest/gtest.h>

#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using Kind = MarkdownLinePrefix::Kind;

struct PrefixRow {
    const char* name;
    const char16_t* line;
    MarkdownLinePrefix prefix;
};

class LinePrefix : public testing::TestWithParam<PrefixRow> {};

TEST_P(LinePrefix, IsParsed) {
    const MarkdownLinePrefix prefix = MarkdownLinePrefix::parse(test::text(GetParam().line));
    EXPECT_EQ(prefix.kind, GetParam().prefix.kind);
    EXPECT_EQ(prefix.value, GetParam().prefix.value);
    EXPECT_EQ(prefix.indent, GetParam().prefix.indent);
    EXPECT_EQ(prefix.length, GetParam().prefix.length);
}

INSTANTIATE_TEST_SUITE_P(Headings, LinePrefix,
                         testing::Values(PrefixRow{"First", u"# a", {Kind::heading, 1, 0, 2}},
                                         PrefixRow{"Sixth", u"###### a", {Kind::heading, 6, 0, 7}},
                                         PrefixRow{"WithoutText", u"## ", {Kind::heading, 2, 0, 3}},
                                         PrefixRow{"MarksOnlyArePlain", u"##", {}},
                                         PrefixRow{"SevenMarksArePlain", u"####### a", {}},
                                         PrefixRow{"NoSpaceIsPlain", u"#a", {}},
                                         PrefixRow{"TabIsPlain", u"#\ta", {}},
                                         PrefixRow{"IndentedIsPlain", u" # a", {}}),
                         test::rowName<testing::TestParamInfo<PrefixRow>>);

INSTANTIATE_TEST_SUITE_P(
    Rules, LinePrefix,
    testing::Values(PrefixRow{"Dashes", u"---", {Kind::rule, 0, 0, 0}},
                    PrefixRow{"StarsBetweenSpaces", u"  ***  ", {Kind::rule, 0, 0, 0}},
                    PrefixRow{"Underscores", u"_____", {Kind::rule, 0, 0, 0}},
                    PrefixRow{"ThreeSpacesAhead", u"   ---", {Kind::rule, 0, 0, 0}},
                    PrefixRow{"FourSpacesAheadArePlain", u"    ---", {}},
                    PrefixRow{"TwoMarksArePlain", u"--", {}},
                    PrefixRow{"MixedMarksArePlain", u"--*", {}},
                    PrefixRow{"TextBehindIsPlain", u"---a", {}},
                    PrefixRow{"TabBehindIsPlain", u"---\t", {}},
                    PrefixRow{"SpacedMarksAreABullet", u"- - -", {Kind::bullet, 0, 0, 2}}),
    test::rowName<testing::TestParamInfo<PrefixRow>>);

INSTANTIATE_TEST_SUITE_P(
    Lists, LinePrefix,
    testing::Values(PrefixRow{"Dash", u"- a", {Kind::bullet, 0, 0, 2}},
                    PrefixRow{"IndentedStar", u"  * a", {Kind::bullet, 0, 2, 4}},
                    PrefixRow{"DeepPlus", u"      + ", {Kind::bullet, 0, 6, 8}},
                    PrefixRow{"MarkerAtTheEndIsPlain", u"-", {}},
                    PrefixRow{"TabBehindIsPlain", u"-\ta", {}},
                    PrefixRow{"OpenTask", u"- [ ] a", {Kind::task, 0, 0, 6}},
                    PrefixRow{"CheckedTask", u" * [x] a", {Kind::task, 1, 1, 7}},
                    PrefixRow{"CapitalCheckedTask", u"+ [X] ", {Kind::task, 1, 0, 6}},
                    PrefixRow{"TaskWithoutSpaceBehindIsABullet", u"- [x]", {Kind::bullet, 0, 0, 2}},
                    PrefixRow{"OtherMarkInTheBoxIsABullet", u"- [-] a", {Kind::bullet, 0, 0, 2}},
                    PrefixRow{"Ordered", u"1. a", {Kind::ordered, 1, 0, 3}},
                    PrefixRow{"OrderedFromZero", u"0. ", {Kind::ordered, 0, 0, 3}},
                    PrefixRow{"PaddedNumber", u"  007. a", {Kind::ordered, 7, 2, 7}},
                    PrefixRow{"NineDigits", u"999999999. a", {Kind::ordered, 999999999, 0, 11}},
                    PrefixRow{"TenDigitsArePlain", u"1234567890. a", {}},
                    PrefixRow{"ParenthesisIsPlain", u"1) a", {}},
                    PrefixRow{"DotAtTheEndIsPlain", u"1.", {}},
                    PrefixRow{"OtherDigitsArePlain", u"１. a", {}}),
    test::rowName<testing::TestParamInfo<PrefixRow>>);

INSTANTIATE_TEST_SUITE_P(
    Others, LinePrefix,
    testing::Values(PrefixRow{"Quote", u"> a", {Kind::quote, 0, 0, 2}},
                    PrefixRow{"QuoteWithoutSpace", u">a", {Kind::quote, 0, 0, 1}},
                    PrefixRow{"QuoteMarkAlone", u">", {Kind::quote, 0, 0, 1}},
                    PrefixRow{"IndentedQuoteIsPlain", u" > a", {}}, PrefixRow{"Empty", u"", {}},
                    PrefixRow{"Spaces", u"   ", {}}, PrefixRow{"Words", u"a - b", {}}),
    test::rowName<testing::TestParamInfo<PrefixRow>>);

TEST(LinePrefixLevel, IsHalfTheIndent) {
    EXPECT_EQ(MarkdownLinePrefix::parse(u" - a").level(), 0);
    EXPECT_EQ(MarkdownLinePrefix::parse(u"  - a").level(), 1);
    EXPECT_EQ(MarkdownLinePrefix::parse(u"     1. a").level(), 2);
}

TEST(LinePrefixKind, TellsLists) {
    EXPECT_TRUE(MarkdownLinePrefix::parse(u"- [ ] a").isList());
    EXPECT_TRUE(MarkdownLinePrefix::parse(u"1. a").isList());
    EXPECT_TRUE(MarkdownLinePrefix::parse(u"+ a").isList());
    EXPECT_FALSE(MarkdownLinePrefix::parse(u"> a").isList());
    EXPECT_FALSE(MarkdownLinePrefix::parse(u"# a").isList());
    EXPECT_FALSE(MarkdownLinePrefix::parse(u"---").isList());
}

}  // namespace
}  // namespace diary
