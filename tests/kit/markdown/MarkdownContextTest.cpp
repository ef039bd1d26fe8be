#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using Kind = MarkdownContext::Kind;

struct ContextRow {
    const char* name;
    const char16_t* text;
    MarkdownContext context;
};

class Context : public testing::TestWithParam<ContextRow> {};

TEST_P(Context, IsWhatTheCaretStandsIn) {
    const TextWithSelection text = test::unmarked(test::text(GetParam().text));
    const MarkdownContext context = MarkdownEditing::context(text.text, text.selection);
    EXPECT_EQ(context.kind, GetParam().context.kind);
    EXPECT_EQ(context.value, GetParam().context.value);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Context,
    testing::Values(ContextRow{"Heading", u"### a|", {Kind::heading, 3}},
                    ContextRow{"OpenTask", u"- [ ] a|", {Kind::task, 0}},
                    ContextRow{"CheckedTask", u"|- [x] a", {Kind::task, 1}},
                    ContextRow{"Ordered", u"7. a|", {Kind::ordered, 0}},
                    ContextRow{"Bullet", u"  * a|", {Kind::bullet, 0}},
                    ContextRow{"Quote", u"b\n>a|", {Kind::quote, 0}},
                    ContextRow{"PlainText", u"a|", {Kind::plain, 0}},
                    ContextRow{"RuleIsPlain", u"---|", {Kind::plain, 0}},
                    ContextRow{"Selection", u"# |a|", {Kind::selection, 0}},
                    ContextRow{"SelectionInAFence", u"```\n|a|", {Kind::selection, 0}},
                    ContextRow{"FenceIsPlain", u"```\n- a|", {Kind::plain, 0}}),
    test::rowName<testing::TestParamInfo<ContextRow>>);

struct FenceRow {
    const char* name;
    const char16_t* text;  // The caret is the position.
    bool isInside;
};

class InsideFence : public testing::TestWithParam<FenceRow> {};

TEST_P(InsideFence, IsToldByTheLinesAbove) {
    const TextWithSelection text = test::unmarked(test::text(GetParam().text));
    EXPECT_EQ(MarkdownEditing::isInsideFence(text.text, text.selection.location),
              GetParam().isInside);
}

INSTANTIATE_TEST_SUITE_P(Rows, InsideFence,
                         testing::Values(FenceRow{"FirstLine", u"```|", false},
                                         FenceRow{"BehindOpening", u"```\n|", true},
                                         FenceRow{"OpeningLineItself", u"a\n```|", false},
                                         FenceRow{"ClosingLineItself", u"```\na\n|```", true},
                                         FenceRow{"BehindClosing", u"```\na\n```\n|", false},
                                         FenceRow{"WithoutPartner", u"a\n```\nb\n\nc|", true},
                                         FenceRow{"Indented", u"     ```\n|", true},
                                         FenceRow{"IndentedByATab", u"\t```\n|", false},
                                         FenceRow{"WithInfoText", u"```swift x\n|", true},
                                         FenceRow{"FourTicks", u"````\n|", true},
                                         FenceRow{"TwoTicks", u"``\n|", false},
                                         FenceRow{"TicksFurtherIn", u"a ```\n|", false},
                                         FenceRow{"TwoRunsInOneLine", u"``` ```\n|", true},
                                         FenceRow{"BehindCrLf", u"a\r\n```\r\n|", true},
                                         FenceRow{"BehindLineSeparator", u"a\u2028```\n|", true}),
                         test::rowName<testing::TestParamInfo<FenceRow>>);

}  // namespace
}  // namespace diary
