#include <gtest/gtest.h>

#include <QtCore/QList>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using test::ChangeRow;
using test::unmarked;

constexpr QStringView kIdeographicSpace = u"\u3000";

struct MarkerRow {
    const char* name;
    const char16_t* typed;
    const char16_t* marker;  // "none": nothing is rewritten.
};

class Marker : public testing::TestWithParam<MarkerRow> {};

TEST_P(Marker, IsWhatTheLookAlikeStandsFor) {
    const auto marker = MarkdownEditing::markdownMarker(test::text(GetParam().typed), u" ");
    EXPECT_EQ(marker.value_or(QStringLiteral("none")), test::text(GetParam().marker));
}

INSTANTIATE_TEST_SUITE_P(
    LookAlikes, Marker,
    testing::Values(MarkerRow{"WideNumberSigns", u"＃＃", u"## "},
                    MarkerRow{"MixedNumberSigns", u"#＃", u"## "},
                    MarkerRow{"SevenNumberSigns", u"＃＃＃＃＃＃＃", u"none"},
                    MarkerRow{"IndentedNumberSign", u"  ＃", u"none"},
                    MarkerRow{"WideQuote", u"＞", u"> "}, MarkerRow{"DoubleQuote", u"》", u"> "},
                    MarkerRow{"AngleQuote", u"〉", u"> "},
                    MarkerRow{"IndentedQuote", u" ＞", u"none"},
                    MarkerRow{"WideDash", u"－", u"- "}, MarkerRow{"EmDash", u"—", u"- "},
                    MarkerRow{"TwoEmDashes", u"——", u"- "}, MarkerRow{"EnDash", u"–", u"- "},
                    MarkerRow{"MiddleDot", u"·", u"- "}, MarkerRow{"KatakanaDot", u"・", u"- "},
                    MarkerRow{"Bullet", u"•", u"- "}, MarkerRow{"WideStar", u"＊", u"- "},
                    MarkerRow{"WidePlus", u"＋", u"- "}, MarkerRow{"IndentedDash", u"  —", u"  - "},
                    MarkerRow{"ThreeEmDashes", u"———", u"none"},
                    MarkerRow{"OtherDash", u"―", u"none"}),
    test::rowName<testing::TestParamInfo<MarkerRow>>);

INSTANTIATE_TEST_SUITE_P(
    Numbers, Marker,
    testing::Values(
        MarkerRow{"WideDigits", u"１２。", u"12. "}, MarkerRow{"WideDot", u"3．", u"3. "},
        MarkerRow{"IndentedNumber", u"  ３.", u"  3. "}, MarkerRow{"PaddedNumber", u"007.", u"7. "},
        MarkerRow{"PositiveNumber", u"+5.", u"5. "}, MarkerRow{"NegativeNumber", u"-5．", u"-5. "},
        MarkerRow{"NineDigits", u"１２３４５６７８９.", u"123456789. "},
        MarkerRow{"TenDigits", u"１２３４５６７８９０.", u"none"},
        MarkerRow{"NoDigits", u"。", u"none"}, MarkerRow{"SignOnly", u"+.", u"none"},
        MarkerRow{"OtherDigits", u"٣.", u"none"}, MarkerRow{"LettersBetween", u"1a.", u"none"}),
    test::rowName<testing::TestParamInfo<MarkerRow>>);

INSTANTIATE_TEST_SUITE_P(
    TypedAsTheyAre, Marker,
    testing::Values(MarkerRow{"Dash", u"-", u"none"}, MarkerRow{"Star", u"*", u"none"},
                    MarkerRow{"Plus", u"  +", u"none"}, MarkerRow{"Heading", u"##", u"none"},
                    MarkerRow{"Quote", u">", u"none"}, MarkerRow{"Number", u"12.", u"none"},
                    MarkerRow{"NegativeAsTyped", u"-5.", u"none"}, MarkerRow{"Empty", u"", u"none"},
                    MarkerRow{"SpacesOnly", u"  ", u"none"}, MarkerRow{"Word", u"one", u"none"}),
    test::rowName<testing::TestParamInfo<MarkerRow>>);

TEST(MarkerBeforeAnIdeographicSpace, IsRewrittenEvenIfItIsAscii) {
    EXPECT_EQ(MarkdownEditing::markdownMarker(u"-", kIdeographicSpace), u"- ");
    EXPECT_EQ(MarkdownEditing::markdownMarker(u"#", kIdeographicSpace), u"# ");
    EXPECT_EQ(MarkdownEditing::markdownMarker(u" *", kIdeographicSpace), u" * ");
}

QString typedSpace(const QString& marked, QStringView space) {
    const TextWithSelection before = unmarked(marked);
    return test::outcome(MarkdownEditing::space(space, before.text, before.selection), before.text);
}

TEST(Space, RewritesTheMarkerAheadOfIt) {
    EXPECT_EQ(typedSpace(QStringLiteral("a\n——|b"), kIdeographicSpace), u"a\n- |b");
    EXPECT_EQ(typedSpace(QStringLiteral("１２。|"), u" "), u"12. |");
    EXPECT_EQ(typedSpace(QStringLiteral("＃＃|"), u" "), u"## |");
}

TEST(Space, IsOrdinaryWhereNothingIsRewritten) {
    EXPECT_EQ(typedSpace(QStringLiteral("  ＃|"), u" "), u"none");
    EXPECT_EQ(typedSpace(QStringLiteral("-|"), u" "), u"none");
    EXPECT_EQ(typedSpace(QStringLiteral("|—|"), u" "), u"none");
    EXPECT_EQ(typedSpace(QStringLiteral("```\n——|"), kIdeographicSpace), u"none");
}

TEST(Space, ComesBackAsTypedByOneUndo) {
    const auto change = MarkdownEditing::space(kIdeographicSpace, u"——", {2, 0});
    ASSERT_TRUE(change);
    ASSERT_EQ(change->steps.size(), 2U);
    EXPECT_EQ(test::afterFirstStep(*change, QStringLiteral("——")), u"——\u3000|");
}

QString overtyped(const QString& marked, QStringView typed) {
    const TextWithSelection before = unmarked(marked);
    return test::outcome(MarkdownEditing::overtype(typed, before.text, before.selection),
                         before.text);
}

TEST(Overtype, StepsOverAClosingMark) {
    EXPECT_EQ(overtyped(QStringLiteral("*word|*"), u"*"), u"*word*|");
    EXPECT_EQ(overtyped(QStringLiteral("**word|**"), u"*"), u"**word*|*");
    EXPECT_EQ(overtyped(QStringLiteral("**word*|*"), u"*"), u"**word**|");
    EXPECT_EQ(overtyped(QStringLiteral("a\n`word|`"), u"`"), u"a\n`word`|");
    EXPECT_EQ(overtyped(QStringLiteral("~~word|~~"), u"~"), u"~~word~|~");
}

TEST(Overtype, ChangesNoText) {
    const auto change = MarkdownEditing::overtype(u"*", u"*word*", {5, 0});
    ASSERT_TRUE(change);
    EXPECT_EQ(*change, MarkdownChange::select({6, 0}));
    EXPECT_FALSE(change->steps.front().changesText());
}

TEST(Overtype, InsertsAheadOfAMarkThatClosesNothing) {
    EXPECT_EQ(overtyped(QStringLiteral("a |* b"), u"*"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("|*word*"), u"*"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("*word|"), u"*"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("*word|*"), u"`"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("*wor|d*|"), u"*"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("*word|*"), u"**"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("_word|_"), u"_"), u"none");
    EXPECT_EQ(overtyped(QStringLiteral("*one\nword|*"), u"*"), u"none");
}

TEST(ClosingMark, IsAsWideAsTheOpeningOne) {
    const auto columns = [](QStringView line, QChar marker) {
        QList<qsizetype> inside;
        for (qsizetype at = 0; at <= line.size(); ++at) {
            if (MarkdownEditing::isInClosingMarker(at, line, marker)) inside.append(at);
        }
        return inside;
    };
    EXPECT_EQ(columns(u"**a** *b*", u'*'), (QList<qsizetype>{3, 4, 8}));
    EXPECT_EQ(columns(u"~~a~~", u'~'), (QList<qsizetype>{3, 4}));
    EXPECT_EQ(columns(u"`a` `b`", u'`'), (QList<qsizetype>{2, 6}));
    EXPECT_EQ(columns(u"__a__", u'_'), QList<qsizetype>());
    EXPECT_EQ(columns(u"\\*a*", u'*'), QList<qsizetype>());
}

class Backspace : public testing::TestWithParam<ChangeRow> {};

TEST_P(Backspace, Removes) {
    const TextWithSelection before = unmarked(test::text(GetParam().before));
    EXPECT_EQ(test::outcome(MarkdownEditing::backspace(before.text, before.selection), before.text),
              test::text(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(Markers, Backspace,
                         testing::Values(ChangeRow{"TheMarkerAloneInAnItem", u"  - |one",
                                                   u"  |one"},
                                         ChangeRow{"TheMarkerOfAnEmptyItem", u"  - |", u"  |"},
                                         ChangeRow{"ATasksWholeMarker", u"- [x] |a", u"|a"},
                                         ChangeRow{"ANumber", u" 12. |a", u" |a"},
                                         ChangeRow{"AQuotesMarker", u"a\n> |", u"a\n|"},
                                         ChangeRow{"AHeadingsMarker", u"## |a", u"|a"},
                                         ChangeRow{"NothingFurtherIn", u"- a|", u"none"},
                                         ChangeRow{"NothingInsideTheMarker", u"-| a", u"none"},
                                         ChangeRow{"NothingBehindARule", u"---|", u"none"},
                                         ChangeRow{"NothingInsideAFence", u"```\n- |a", u"none"},
                                         ChangeRow{"NothingAtTheStart", u"|- a", u"none"},
                                         ChangeRow{"NothingWithASelection", u"- |a|", u"none"}),
                         test::rowName<testing::TestParamInfo<ChangeRow>>);

INSTANTIATE_TEST_SUITE_P(Pairs, Backspace,
                         testing::Values(ChangeRow{"BothBoldMarks", u"**|**", u"|"},
                                         ChangeRow{"BothStars", u"a*|*b", u"a|b"},
                                         ChangeRow{"BothTildes", u"~~|~~", u"|"},
                                         ChangeRow{"BothTicks", u"`|`", u"|"},
                                         ChangeRow{"OneStarEachOfUnevenOnes", u"**|*", u"*|"},
                                         ChangeRow{"NothingOfOneTildeEach", u"~|~", u"none"},
                                         ChangeRow{"NothingOfHalfAPair", u"**|a", u"none"},
                                         ChangeRow{"NothingOfAPairInAFence", u"```\n`|`", u"none"}),
                         test::rowName<testing::TestParamInfo<ChangeRow>>);

}  // namespace
}  // namespace diary
