#include "DiaryKit/Vault/YearSectionParser.h"

#include <gmock/gmock.h>

#include "tests/support/Printing.h"

namespace diary::YearSectionParser {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MonthDay kDay{1, 2};

std::vector<int> years(QStringView text) {
    std::vector<int> found;
    for (const Section& section : sections(text)) found.push_back(section.year);
    return found;
}

struct HeaderRow {
    const char* name;
    const char16_t* line;
    int year;  // -1: no header.
};

class YearHeader : public testing::TestWithParam<HeaderRow> {};

TEST_P(YearHeader, IsWhatTheFormatSays) {
    const std::vector<int> found = years(QString::fromUtf16(GetParam().line));
    if (GetParam().year < 0) {
        EXPECT_THAT(found, IsEmpty());
    } else {
        EXPECT_THAT(found, ElementsAre(GetParam().year));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, YearHeader,
    testing::Values(
        HeaderRow{"Plain", u"## 2024", 2024}, HeaderRow{"Tab", u"##\t2024", 2024},
        HeaderRow{"ManyBlanks", u"## \t  2024", 2024},
        HeaderRow{"TrailingBlank", u"## 2024 ", 2024}, HeaderRow{"TrailingCr", u"## 2024\r", 2024},
        HeaderRow{"PaddedYear", u"## 0999", 999}, HeaderRow{"YearZero", u"## 0000", 0},
        HeaderRow{"NoBlank", u"##2024", -1}, HeaderRow{"ThreeMarks", u"### 2024", -1},
        HeaderRow{"TwoDigits", u"## 24", -1}, HeaderRow{"FiveDigits", u"## 20245", -1},
        HeaderRow{"WordsBehind", u"## 2024 trip", -1}, HeaderRow{"DateBehind", u"## 2024-01", -1},
        HeaderRow{"Indented", u" ## 2024", -1}, HeaderRow{"CrLf", u"## 2024\r\nmore", -1},
        HeaderRow{"OtherDigits", u"## ２０２４", -1}),
    [](const testing::TestParamInfo<HeaderRow>& row) { return row.param.name; });

TEST(Sections, KeepAFencedHeaderInTheBodyAround) {
    const QString text = QStringLiteral("## 2023\n```\n## 2024\n```\nmore\n## 2025\n");
    EXPECT_THAT(years(text), ElementsAre(2023, 2025));
    EXPECT_EQ(body(2023, text), u"```\n## 2024\n```\nmore");
}

TEST(Sections, RunToTheEndBehindAFenceThatIsNeverClosed) {
    EXPECT_THAT(years(u"## 2023\n```\n## 2024\n"), ElementsAre(2023));
    EXPECT_THAT(years(u"```\n## 2023\n"), IsEmpty());
}

TEST(Sections, IgnoreTildeFencesAndFencesBehindATab) {
    EXPECT_THAT(years(u"## 2023\n~~~\n## 2024\n"), ElementsAre(2023, 2024));
    EXPECT_THAT(years(u"## 2023\n\t```\n## 2024\n"), ElementsAre(2023, 2024));
    EXPECT_THAT(years(u"## 2023\n   ```\n## 2024\n"), ElementsAre(2023));
}

TEST(Sections, SeeAFileWithCrLfLineEndsAsOneLine) {
    EXPECT_THAT(years(u"# 01-02\r\n\r\n## 2024\r\n\r\ntext\r\n"), IsEmpty());
}

TEST(Sections, EndAtATextWithoutLf) {
    const auto found = sections(u"# 01-02\n\n## 2024");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].headerRange, (TextRange{9, 7}));
    EXPECT_EQ(found[0].bodyRange, (TextRange{16, 0}));
}

TEST(Sections, KeepALineThatOnlyBeginsLikeAHeader) {
    EXPECT_EQ(body(2023, u"## 2023\na\n## 2024 trip\nb\n"), u"a\n## 2024 trip\nb");
}

TEST(YearsWithContent, LeaveOutEmptySections) {
    const QString text = QStringLiteral("# 01-02\n\n## 2023\n\n \u3000\n## 2024\n\nx\n");
    EXPECT_THAT(yearsWithContent(text), ElementsAre(2024));
    EXPECT_THAT(years(text), ElementsAre(2023, 2024));
}

TEST(EffectivelyEmpty, HoldsForTitleAndEmptyHeadersOnly) {
    EXPECT_TRUE(isEffectivelyEmpty(u"# 01-02\n\n## 2023\n\n  ## 2024 \n", u"01-02"));
    EXPECT_TRUE(isEffectivelyEmpty(u"", u"01-02"));
    EXPECT_TRUE(isEffectivelyEmpty(u"## 2024\r", u"01-02"));
    EXPECT_FALSE(isEffectivelyEmpty(u"## 2024\r\n", u"01-02"));
    EXPECT_FALSE(isEffectivelyEmpty(u"# 01-03\n", u"01-02"));
    EXPECT_FALSE(isEffectivelyEmpty(u"# 01-02\n### x\n", u"01-02"));
}

TEST(EnsuringSection, AppendsTheFirstSectionBehindTheTitle) {
    const EnsuredSection ensured = ensuringSection(2024, kDay, u"# 01-02\n");
    EXPECT_EQ(ensured.text, u"# 01-02\n\n## 2024\n\n");
    EXPECT_EQ(ensured.caretUTF16Offset, ensured.text.size());
}

TEST(EnsuringSection, MakesTheWholeFileOutOfWhiteSpace) {
    EXPECT_EQ(ensuringSection(2024, kDay, u" \n\t\n").text, u"# 01-02\n\n## 2024\n\n");
}

TEST(EnsuringSection, InsertsInAscendingOrder) {
    EXPECT_EQ(ensuringSection(2024, kDay, u"# 01-02\n\n## 2025\n\nb\n").text,
              u"# 01-02\n\n## 2024\n\n\n\n## 2025\n\nb\n");
    EXPECT_EQ(ensuringSection(2024, kDay, u"## 2023\n\na\n\n## 2025\n\nb\n").text,
              u"## 2023\n\na\n\n## 2024\n\n\n\n## 2025\n\nb\n");
}

TEST(EnsuringSection, PutsTheCaretBehindTheLastWordOfAnExistingYear) {
    const EnsuredSection ensured = ensuringSection(2024, kDay, u"## 2024\n\na b \n\n");
    EXPECT_EQ(ensured.caretUTF16Offset, 12);
    EXPECT_EQ(ensured.text, u"## 2024\n\na b \n\n");
}

TEST(EnsuringSection, ClosesAFenceThatIsOpenAhead) {
    const QString text = QStringLiteral("# 01-02\n\n## 2023\n\n```\ncode\n");
    const EnsuredSection ensured = ensuringSection(2024, kDay, text);
    EXPECT_EQ(ensured.text, u"# 01-02\n\n## 2023\n\n```\ncode\n```\n\n## 2024\n\n");
    EXPECT_THAT(years(ensured.text), ElementsAre(2023, 2024));
}

TEST(EnsuringSection, CountsASpaceUnderACombiningMarkAsText) {
    EXPECT_EQ(ensuringSection(2024, kDay, QStringLiteral("a \u0301")).text,
              QStringLiteral("a \u0301\n\n## 2024\n\n"));
}

TEST(AppendingBody, MakesNoSectionForBlanks) {
    EXPECT_EQ(appendingBody(u" \t\n", u"---", 2024, kDay, u"# 01-02\n"), u"# 01-02\n");
}

TEST(AppendingBody, SetsItselfOffFromWhatIsThere) {
    const QString once = appendingBody(u"a", u"---", 2024, kDay, u"");
    EXPECT_EQ(once, u"# 01-02\n\n## 2024\n\na\n");
    EXPECT_EQ(appendingBody(u"b", u"---", 2024, kDay, once),
              u"# 01-02\n\n## 2024\n\na\n\n---\n\nb\n");
}

TEST(ReplacingBody, WritesTheFormThatTheApplicationWrites) {
    EXPECT_EQ(replacingBody(u"words", 2024, kDay, u"# 01-02\n"), u"# 01-02\n\n## 2024\n\nwords\n");
}

TEST(ReplacingBody, LeavesOtherYearsAsTheyAre) {
    EXPECT_EQ(replacingBody(u"new", 2024, kDay, u"# x\n\n## 2023\n a \n## 2024\nold\n## 2025\n b"),
              u"# x\n\n## 2023\n a \n## 2024\n\nnew\n\n## 2025\n b");
}

TEST(ReplacingBody, KeepsTheHeaderOfAnEmptiedYear) {
    EXPECT_EQ(replacingBody(u" ", 2024, kDay, u"# 01-02\n\n## 2024\n\na\n"),
              u"# 01-02\n\n## 2024\n\n");
}

TEST(ReplacingBody, FollowsAHeaderWithoutLfDirectly) {
    EXPECT_EQ(replacingBody(u"a", 2024, kDay, u"# 01-02\n\n## 2024"), u"# 01-02\n\n## 2024\na\n");
}

TEST(ReplacingBody, ActsOnTheFirstOfARepeatedYear) {
    EXPECT_EQ(replacingBody(u"new", 2024, kDay, u"## 2024\na\n## 2024\nb\n"),
              u"## 2024\n\nnew\n\n## 2024\nb\n");
}

TEST(RemovingSection, LeavesATextThatIsEffectivelyEmptyButNotEmpty) {
    const QString left = removingSection(2024, u"# 01-02\n\n## 2024\n\na\n");
    EXPECT_EQ(left, u"# 01-02\n");
    EXPECT_TRUE(isEffectivelyEmpty(left, u"01-02"));
}

TEST(RemovingSection, LeavesATextWithoutTheYearAlone) {
    EXPECT_EQ(removingSection(2020, u"## 2024\na"), u"## 2024\na");
}

}  // namespace
}  // namespace diary::YearSectionParser
