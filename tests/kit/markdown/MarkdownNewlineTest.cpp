#include <gtest/gtest.h>

#include <QtCore/QStringList>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using test::ChangeRow;
using test::unmarked;

std::optional<MarkdownChange> newline(const QString& marked) {
    const TextWithSelection before = unmarked(marked);
    return MarkdownEditing::newline(before.text, before.selection);
}

class Return : public testing::TestWithParam<ChangeRow> {};

TEST_P(Return, GoesOn) {
    const QString before = test::text(GetParam().before);
    EXPECT_EQ(test::outcome(newline(before), unmarked(before).text), test::text(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(
    Items, Return,
    testing::Values(ChangeRow{"RepeatsADash", u"- one|", u"- one\n- |"},
                    ChangeRow{"RepeatsAStar", u"* item|", u"* item\n* |"},
                    ChangeRow{"RepeatsAPlus", u"+ item|", u"+ item\n+ |"},
                    ChangeRow{"RepeatsTheIndentation", u"   - one|", u"   - one\n   - |"},
                    ChangeRow{"OpensTheNextTask", u"- [x] done|", u"- [x] done\n- [ ] |"},
                    ChangeRow{"CountsOn", u"9. one|", u"9. one\n10. |"},
                    ChangeRow{"DropsThePaddingOfNumbers", u"007. a|", u"007. a\n8. |"},
                    ChangeRow{"SpacesAQuote", u">one|", u">one\n> |"},
                    ChangeRow{"SplitsAnItem", u"- on|e", u"- on\n- |e"},
                    ChangeRow{"ReplacesTheSelection", u"- o|n|e", u"- o\n- |e"},
                    ChangeRow{"BreaksRightBehindTheMarker", u"- |one", u"- \n- |one"}),
    test::rowName<testing::TestParamInfo<ChangeRow>>);

INSTANTIATE_TEST_SUITE_P(EmptyItems, Return,
                         testing::Values(ChangeRow{"GoOneLevelOut", u"a\n  - |", u"a\n- |"},
                                         ChangeRow{"OfTasksGoOneLevelOut", u"    - [ ] |",
                                                   u"  - [ ] |"},
                                         ChangeRow{"EndTheList", u"a\n- |\nb", u"a\n|\nb"},
                                         ChangeRow{"OfOneSpaceEndTheList", u" - |", u"|"},
                                         ChangeRow{"OfBlanksEndTheList", u"1. \t\u3000|", u"|"},
                                         ChangeRow{"EndTheQuote", u"> |", u"|"},
                                         ChangeRow{"EndTheBareQuote", u">|", u"|"}),
                         test::rowName<testing::TestParamInfo<ChangeRow>>);

INSTANTIATE_TEST_SUITE_P(
    Elsewhere, Return,
    testing::Values(ChangeRow{"IsPlainInPlainText", u"one|", u"none"},
                    ChangeRow{"IsPlainInAHeading", u"# one|", u"none"},
                    ChangeRow{"IsPlainOnARule", u"---|", u"none"},
                    ChangeRow{"IsPlainInsideAMarker", u"-| one", u"none"},
                    ChangeRow{"IsPlainInTheIndentation", u" | - one", u"none"},
                    ChangeRow{"IsPlainIntoTheNextLine", u"- o|ne\nt|wo", u"none"},
                    ChangeRow{"IsPlainInsideAFence", u"```\n- one|", u"none"},
                    ChangeRow{"GoesOnBehindAFence", u"```\n```\n- a|", u"```\n```\n- a\n- |"}),
    test::rowName<testing::TestParamInfo<ChangeRow>>);

INSTANTIATE_TEST_SUITE_P(
    Counting, Return,
    testing::Values(
        ChangeRow{"GoesOnBelow", u"1. one|\n2. two\n3. three", u"1. one\n2. |\n3. two\n4. three"},
        ChangeRow{"LeavesWhatIsRightBelow", u"1. one|\n3. two", u"1. one\n2. |\n3. two"},
        ChangeRow{"StopsAtABlankLine", u"1. a|\n\n2. b", u"1. a\n2. |\n\n2. b"},
        ChangeRow{"StopsAtADeeperItem", u"1. a|\n2. b\n  1. c\n3. d",
                  u"1. a\n2. |\n3. b\n  1. c\n3. d"},
        ChangeRow{"StopsAtABullet", u"1. a|\n- b\n2. c", u"1. a\n2. |\n- b\n2. c"},
        ChangeRow{"KeepsTheIndentation", u"  1. a|\n  2. b", u"  1. a\n  2. |\n  3. b"},
        ChangeRow{"KeepsWhatFollowsAsItIs", u"1. a|\n2. b\nc\n\n2. d",
                  u"1. a\n2. |\n3. b\nc\n\n2. d"},
        ChangeRow{"TakesTheRestOfASplitItemAlong", u"1. a|b\n2. c", u"1. a\n2. |b\n3. c"}),
    test::rowName<testing::TestParamInfo<ChangeRow>>);

TEST(ReturnAndUndo, LeavesTheLineBreakAndTheOldNumbers) {
    const QString before = QStringLiteral("1. one|\n2. two\n3. three");
    const auto change = newline(before);
    ASSERT_TRUE(change);
    ASSERT_EQ(change->steps.size(), 2U);
    EXPECT_EQ(test::afterFirstStep(*change, unmarked(before).text), u"1. one\n|\n2. two\n3. three");
}

TEST(ReturnAndUndo, TakesNoLineBreakOnAnEmptyItem) {
    const auto change = newline(QStringLiteral("  - |"));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->steps.size(), 1U);
}

TEST(ReturnTwice, LeavesTheListLevelByLevel) {
    QString marked = QStringLiteral("  - |");
    marked = test::outcome(newline(marked), unmarked(marked).text);
    EXPECT_EQ(marked, u"- |");
    marked = test::outcome(newline(marked), unmarked(marked).text);
    EXPECT_EQ(marked, u"|");
}

TEST(ReturnInALongList, CountsItOn) {
    QString list;
    for (int number = 1; number <= 500; ++number) list += QStringLiteral("%1. item\n").arg(number);
    const auto change = MarkdownEditing::newline(list, {7, 0});
    ASSERT_TRUE(change);
    const QStringList lines = applied(*change, list).text.split(u'\n');
    ASSERT_EQ(lines.size(), 502);
    EXPECT_EQ(lines[1], u"2. ");
    for (int number = 3; number <= 501; ++number) {
        EXPECT_EQ(lines[number - 1], QStringLiteral("%1. item").arg(number));
    }
}

}  // namespace
}  // namespace diary
