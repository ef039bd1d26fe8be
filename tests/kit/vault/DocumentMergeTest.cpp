#include "DiaryKit/Vault/DocumentMerge.h"

#include <gtest/gtest.h>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"

namespace diary::YearSectionParser {
namespace {

constexpr MonthDay kDay{1, 2};
const QString kMarker = QStringLiteral("(both)");

QString merged(QStringView current, QStringView other) {
    return mergingDocuments(current, other, kDay, kMarker);
}

QString taken(QStringView current, QStringView version) {
    return mergingVersion(current, version, kDay, kMarker);
}

TEST(MergingDocuments, TakesAYearThatOnlyTheOtherHasInItsPlace) {
    EXPECT_EQ(merged(u"# 01-02\n\n## 2023\n\na\n\n## 2025\n\nc\n", u"# 01-02\n\n## 2024\n\nb\n"),
              u"# 01-02\n\n## 2023\n\na\n\n## 2024\n\nb\n\n## 2025\n\nc\n");
}

TEST(MergingDocuments, BringsEqualSidesIntoNormalForm) {
    EXPECT_EQ(merged(u"# 01-02\n## 2024\na\n\n\n", u"# 01-02\n## 2024\na\n\n\n"),
              u"# 01-02\n\n## 2024\n\na\n");
}

TEST(MergingDocuments, TakesTheLaterStateOfOneText) {
    EXPECT_EQ(merged(u"## 2024\nA", u"## 2024\nA more"), u"# 01-02\n\n## 2024\n\nA more\n");
    EXPECT_EQ(merged(u"## 2024\nA more", u"## 2024\nA"), u"# 01-02\n\n## 2024\n\nA more\n");
    EXPECT_EQ(merged(u"## 2024\n", u"## 2024\nB"), u"# 01-02\n\n## 2024\n\nB\n");
    EXPECT_EQ(merged(u"## 2024\nA", u"## 2024\n"), u"# 01-02\n\n## 2024\n\nA\n");
}

TEST(MergingDocuments, KeepsBothOfTwoTextsWithTheMarkerBetween) {
    EXPECT_EQ(merged(u"## 2024\nA", u"## 2024\nB"), u"# 01-02\n\n## 2024\n\nA\n\n(both)\n\nB\n");
}

TEST(MergingDocuments, TakesTheHeadOfTheCurrentSideFirst) {
    EXPECT_EQ(merged(u"mine\n## 2024\nA", u"theirs\n## 2023\nB"),
              u"mine\n\n## 2023\n\nB\n\n## 2024\n\nA\n");
    EXPECT_EQ(merged(u"## 2024\nA", u"theirs\n## 2023\nB"),
              u"theirs\n\n## 2023\n\nB\n\n## 2024\n\nA\n");
}

TEST(MergingDocuments, CountsCanonicallyEquivalentTextsAsEqual) {
    EXPECT_EQ(merged(QStringLiteral("## 2024\ncafé"), QStringLiteral("## 2024\ncafe\u0301")),
              QStringLiteral("# 01-02\n\n## 2024\n\ncafé\n"));
}

TEST(MergingDocuments, KeepsBothBodiesOfAYearThatStandsTwice) {
    EXPECT_EQ(merged(u"## 2024\nA\n## 2024\nB\n## 2024\nA\n## 2024\n", u""),
              u"# 01-02\n\n## 2024\n\nA\n\nB\n");
}

TEST(MergingDocuments, ClosesOpenFencesSoThatTheySwallowNothing) {
    const QString text = merged(u"## 2023\n```\nA", u"## 2023\nB\n\n## 2024\nC");
    EXPECT_EQ(text, u"# 01-02\n\n## 2023\n\n```\nA\n```\n\n(both)\n\nB\n\n## 2024\n\nC\n");
    EXPECT_EQ(body(2024, text), u"C");
    EXPECT_EQ(body(2024, merged(u"```\nhead", u"## 2024\nC")), u"C");
}

TEST(MergingVersion, LeavesOutATextThatIsHeldAlready) {
    const QString once = taken(u"## 2024\nA", u"## 2024\nB");
    EXPECT_EQ(taken(once, u"## 2024\nB"), once);
    EXPECT_EQ(taken(once, u"## 2024\nA"), once);
    EXPECT_EQ(taken(once, once), once);
}

TEST(MergingVersion, TakesAVersionThatHoldsTheCurrentText) {
    EXPECT_EQ(taken(u"## 2024\nB", u"## 2024\nA\n\n(both)\n\nB"),
              u"# 01-02\n\n## 2024\n\nA\n\n(both)\n\nB\n");
}

TEST(MergingVersion, DoesNotMistakeAPartOfALineForTheText) {
    EXPECT_EQ(taken(u"## 2024\nI saw B today", u"## 2024\nB"),
              u"# 01-02\n\n## 2024\n\nI saw B today\n\n(both)\n\nB\n");
}

TEST(MergingVersion, ReadsAVersionWithCrLfLineEnds) {
    EXPECT_EQ(taken(u"## 2024\nA", u"# 01-02\r\n\r\n## 2023\r\n\r\nold\r\n"),
              u"# 01-02\n\n## 2023\n\nold\n\n## 2024\n\nA\n");
}

TEST(HoldsOnOwnLines, NeedsLineEndsAround) {
    EXPECT_TRUE(holdsOnOwnLines(u"a\nb c\nd", u"b c"));
    EXPECT_TRUE(holdsOnOwnLines(u"xb\nb", u"b"));
    EXPECT_FALSE(holdsOnOwnLines(u"a\nb c\nd", u"b"));
    EXPECT_FALSE(holdsOnOwnLines(u"a", u""));
}

}  // namespace
}  // namespace diary::YearSectionParser
