#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using test::ChangeRow;
using test::unmarked;
using Style = MarkdownBlockStyle::Kind;

struct BlockRow {
    const char* name;
    MarkdownBlockStyle style;
    const char16_t* before;
    const char16_t* after;
};

class SetBlock : public testing::TestWithParam<BlockRow> {};

TEST_P(SetBlock, GivesTheLineItsMarker) {
    const TextWithSelection before = unmarked(test::text(GetParam().before));
    const auto change = MarkdownEditing::setBlock(GetParam().style, before.text, before.selection);
    EXPECT_EQ(test::outcome(change, before.text), test::text(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(
    Styles, SetBlock,
    testing::Values(
        BlockRow{"Heading", {Style::heading, 2}, u"one|", u"## one|"},
        BlockRow{"HeadingOfAnotherLevel", {Style::heading, 3}, u"# one|", u"### one|"},
        BlockRow{"HeadingDropsTheIndentation", {Style::heading, 1}, u"  - one|", u"# one|"},
        BlockRow{"Bullet", {Style::bullet}, u"one|", u"- one|"},
        BlockRow{"BulletKeepsTheIndentation", {Style::bullet}, u"  3. one|", u"  - one|"},
        BlockRow{"BulletOfATask", {Style::bullet}, u"- [x] one|", u"- one|"},
        BlockRow{"BulletOfAQuote", {Style::bullet}, u"> one|", u"- one|"},
        BlockRow{"Task", {Style::task}, u"    * one|", u"    - [ ] one|"},
        BlockRow{"OrderedFirst", {Style::ordered}, u"one|", u"1. one|"},
        BlockRow{"OrderedBehindAnother", {Style::ordered}, u"7. a\none|", u"7. a\n8. one|"},
        BlockRow{"OrderedBehindADeeperOne", {Style::ordered}, u"  7. a\none|", u"  7. a\n1. one|"},
        BlockRow{"OrderedAtItsOwnLevel", {Style::ordered}, u"  3. a\n  - b|", u"  3. a\n  4. b|"},
        BlockRow{"OrderedBehindABlankLine", {Style::ordered}, u"7. a\n\none|", u"7. a\n\n1. one|"},
        BlockRow{"Quote", {Style::quote}, u"  - one|", u"> one|"},
        BlockRow{"Plain", {Style::plain}, u"## one|", u"one|"},
        BlockRow{"PlainDropsTheIndentation", {Style::plain}, u"  - one|", u"one|"},
        BlockRow{"PlainOfPlain", {Style::plain}, u"one|", u"none"},
        BlockRow{"PlainOfARule", {Style::plain}, u"---|", u"none"},
        BlockRow{"MarkerAheadOfARule", {Style::quote}, u"---|", u"> ---|"}),
    test::rowName<testing::TestParamInfo<BlockRow>>);

INSTANTIATE_TEST_SUITE_P(
    Toggles, SetBlock,
    testing::Values(BlockRow{"HeadingOff", {Style::heading, 2}, u"## one|", u"one|"},
                    BlockRow{"BulletOffWithItsIndentation", {Style::bullet}, u"  + one|", u"one|"},
                    BlockRow{"TaskOff", {Style::task}, u"- [x] one|", u"one|"},
                    BlockRow{"OrderedOff", {Style::ordered}, u"12. one|", u"one|"},
                    BlockRow{"QuoteOff", {Style::quote}, u">one|", u"one|"}),
    test::rowName<testing::TestParamInfo<BlockRow>>);

INSTANTIATE_TEST_SUITE_P(
    Selections, SetBlock,
    testing::Values(
        BlockRow{"StaysOutOfTheNewMarker", {Style::heading, 2}, u"|one", u"## |one"},
        BlockRow{"LeavesTheOldMarker", {Style::bullet}, u"-| [ ] one", u"- |one"},
        BlockRow{"KeepsItsEnds", {Style::quote}, u"a |b c| d", u"> a |b c| d"},
        BlockRow{"StartsBehindTheMarkerAtLeast", {Style::task}, u"|on|e", u"- [ ] |on|e"},
        BlockRow{
            "OfSeveralLinesCountsAtItsStart", {Style::bullet}, u"o|ne\ntw|o", u"- o|ne\ntw|o"}),
    test::rowName<testing::TestParamInfo<BlockRow>>);

TEST(BlockStyle, TellsLists) {
    EXPECT_TRUE((MarkdownBlockStyle{Style::bullet}.isList()));
    EXPECT_TRUE((MarkdownBlockStyle{Style::task}.isList()));
    EXPECT_TRUE((MarkdownBlockStyle{Style::ordered}.isList()));
    EXPECT_FALSE((MarkdownBlockStyle{Style::heading, 1}.isList()));
    EXPECT_FALSE((MarkdownBlockStyle{Style::plain}.isList()));
    EXPECT_FALSE((MarkdownBlockStyle{Style::quote}.isList()));
}

class Indent : public testing::TestWithParam<ChangeRow> {};
TEST_P(Indent, MovesAnItemIn) {
    const TextWithSelection before = unmarked(test::text(GetParam().before));
    EXPECT_EQ(test::outcome(MarkdownEditing::indent(before.text, before.selection), before.text),
              test::text(GetParam().after));
}
INSTANTIATE_TEST_SUITE_P(Rows, Indent,
                         testing::Values(ChangeRow{"Bullet", u"a\n- b|", u"a\n  - b|"},
                                         ChangeRow{"Task", u" - [ ] |b|", u"   - [ ] |b|"},
                                         ChangeRow{"Ordered", u"|1. b", u"  |1. b"},
                                         ChangeRow{"PlainLineStays", u"b|", u"none"},
                                         ChangeRow{"QuoteStays", u"> b|", u"none"},
                                         ChangeRow{"RuleStays", u"---|", u"none"}),
                         test::rowName<testing::TestParamInfo<ChangeRow>>);

class Outdent : public testing::TestWithParam<ChangeRow> {};
TEST_P(Outdent, MovesAnItemOut) {
    const TextWithSelection before = unmarked(test::text(GetParam().before));
    EXPECT_EQ(test::outcome(MarkdownEditing::outdent(before.text, before.selection), before.text),
              test::text(GetParam().after));
}
INSTANTIATE_TEST_SUITE_P(
    Rows, Outdent,
    testing::Values(ChangeRow{"OneLevel", u"    - b|", u"  - b|"},
                    ChangeRow{"TheOneSpaceThereIs", u" - b|", u"- b|"},
                    ChangeRow{"CaretInTheIndentation", u"a\n |  - b", u"a\n| - b"},
                    ChangeRow{"SelectionFromTheIndentation", u"|   - |b", u"| - |b"},
                    ChangeRow{"OutermostStays", u"- b|", u"none"},
                    ChangeRow{"PlainLineStays", u"  b|", u"none"}),
    test::rowName<testing::TestParamInfo<ChangeRow>>);

QString toggled(const QString& marked, qsizetype position) {
    const TextWithSelection before = unmarked(marked);
    return test::outcome(MarkdownEditing::toggleTask(position, before.text, before.selection),
                         before.text);
}

TEST(ToggleTask, ChecksAndOpensFromAnywhereInTheLine) {
    EXPECT_EQ(toggled(QStringLiteral("a\n  - [ ] b|"), 2), u"a\n  - [x] b|");
    EXPECT_EQ(toggled(QStringLiteral("a\n  - [x] b|"), 11), u"a\n  - [ ] b|");
    EXPECT_EQ(toggled(QStringLiteral("+ [X] b|"), 3), u"+ [ ] b|");
}

TEST(ToggleTask, LeavesASelectionElsewhereAlone) {
    EXPECT_EQ(toggled(QStringLiteral("|on|e\n- [ ] b"), 5), u"|on|e\n- [x] b");
}

TEST(ToggleTask, DoesNothingWhereNoTaskIs) {
    EXPECT_EQ(toggled(QStringLiteral("- [x]|"), 2), u"none");
    EXPECT_EQ(toggled(QStringLiteral("- a|"), 2), u"none");
    EXPECT_EQ(toggled(QStringLiteral("|- [ ] a\nb"), 9), u"none");
}

}  // namespace
}  // namespace diary
