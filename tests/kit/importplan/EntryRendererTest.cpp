#include "DiaryKit/Import/EntryRenderer.h"

#include <gmock/gmock.h>

#include <QtCore/QCryptographicHash>

#include "tests/support/Printing.h"

namespace diary::EntryRenderer {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr DiaryDay kDay{2024, 3, 7};

struct Row {
    const char* name;
    const char16_t* body;
    const char16_t* prepared;
};

class Prepare : public testing::TestWithParam<Row> {};

TEST_P(Prepare, MakesWhatASectionCanHold) {
    EXPECT_EQ(prepare(QString::fromUtf16(GetParam().body)),
              QString::fromUtf16(GetParam().prepared));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Prepare,
    testing::Values(Row{"Hashtag", u"#tag", u"#tag"}, Row{"Title", u"# Title", u"### Title"},
                    Row{"Second", u"## 2024", u"#### 2024"}, Row{"Fourth", u"#### a", u"###### a"},
                    Row{"Sixth", u"###### a", u"###### a"},
                    Row{"Seventh", u"####### a", u"####### a"}, Row{"MarkAlone", u"#", u"###"},
                    Row{"Tab", u"#\ta", u"###\ta"}, Row{"Indented", u"    # x", u"    # x"},
                    Row{"CrLf", u"# a\r\nb", u"### a\nb"},
                    Row{"Fenced", u"```\n# a\n```\n# b", u"```\n# a\n```\n### b"},
                    Row{"IndentedFence", u"  ```\n# a\n  ```", u"  ```\n# a\n  ```"},
                    Row{"OpenFence", u"```\n## 2024\n", u"```\n## 2024\n\n```"},
                    Row{"Blanks", u"\n\na  \n\n\n\nb\t\n", u"a\n\nb"}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(MetaLine, ShowsWhatTheOptionsShow) {
    const ImportedEntry entry{
        .day = kDay,
        .place = QStringLiteral("Hangzhou"),
        .weather = QStringLiteral("8°"),
        .mood = QStringLiteral("happy"),
        .tags = {QStringLiteral("##"), QStringLiteral(" #a "), QStringLiteral("b c")}};
    EXPECT_THAT(metaLine(entry, {}), Optional(QStringLiteral("Hangzhou · happy · #a #b c")));
    ImportOptions none;
    none.place = none.mood = none.tags = false;
    EXPECT_EQ(metaLine(entry, none), std::nullopt);
    none.weather = true;
    EXPECT_THAT(metaLine(entry, none), Optional(QStringLiteral("8°")));
}

TEST(MetaLine, IsAbsentWhereOnlyEmptyTagsAreLeft) {
    EXPECT_EQ(metaLine({.tags = {QStringLiteral("##"), QStringLiteral(" ")}}, {}), std::nullopt);
}

TEST(Section, SeparatesEntriesByTheirHeadings) {
    const std::vector<ImportedEntry> entries = {
        {.day = kDay, .time = {{7, 52}}, .body = QStringLiteral("Walked.")},
        {.day = kDay,
         .time = {{21, 40}},
         .title = QStringLiteral("By the lake"),
         .body = QStringLiteral("Crowded."),
         .place = QStringLiteral("Hangzhou")}};
    EXPECT_EQ(section(entries, {}, Placement::Alone),
              u"### 07:52\n\nWalked.\n\n### 21:40 · By the lake\n\nCrowded.\n\nHangzhou");
}

TEST(Section, HasNoTimeForAnEntryThatIsAlone) {
    const std::vector<ImportedEntry> alone = {
        {.day = kDay, .time = {{7, 52}}, .body = QStringLiteral("a")}};
    EXPECT_EQ(section(alone, {}, Placement::Alone), u"a");
    EXPECT_EQ(section(alone, {}, Placement::Appended), u"### 07:52\n\na");
    ImportOptions withTime;
    withTime.timeForSingle = true;
    EXPECT_EQ(section(alone, withTime, Placement::Alone), u"### 07:52\n\na");
}

TEST(Blocks, BeginWithARuleWhereAFurtherEntryHasNoHeading) {
    const std::vector<ImportedEntry> entries = {
        {.day = kDay}, {.day = kDay, .body = QStringLiteral("b")}, {.day = kDay}};
    EXPECT_THAT(blocks(entries, {}, Placement::Alone),
                ElementsAre(std::nullopt, Optional(QStringLiteral("---\n\nb")),
                            Optional(QStringLiteral("---"))))
        << "all entries count, also one that renders to nothing";
}

TEST(Blocks, TakeAWholeSectionVerbatim) {
    const std::vector<ImportedEntry> whole = {{.day = kDay,
                                               .time = {{7, 52}},
                                               .title = QStringLiteral("t"),
                                               .body = QStringLiteral("\n# a  \n\n\n\nb\n"),
                                               .isVelmarSection = true}};
    EXPECT_THAT(blocks(whole, {}, Placement::Appended),
                ElementsAre(Optional(QStringLiteral("# a  \n\n\n\nb"))));
}

TEST(Blocks, ShowATitleWithoutABody) {
    const std::vector<ImportedEntry> titled = {{.day = kDay, .title = QStringLiteral(" T # ")}};
    EXPECT_THAT(blocks(titled, {}, Placement::Alone),
                ElementsAre(Optional(QStringLiteral("###  T # "))));
}

TEST(Blocks, AreAbsentWhereOnlyHiddenDetailsAreLeft) {
    const std::vector<ImportedEntry> hidden = {{.day = kDay, .weather = QStringLiteral("8°")}};
    EXPECT_THAT(blocks(hidden, {}, Placement::Alone), ElementsAre(std::nullopt));
    EXPECT_EQ(section(hidden, {}, Placement::Alone), u"");
}

TEST(Identity, IsTheDigestOfTheseBytes) {
    const ImportedEntry entry{.day = {999, 3, 7},
                              .time = {{7, 5}},
                              .body = QStringLiteral("a/b\"\\\b\f\n\r\t\x01\x1f\x7f日\u2028"),
                              .mood = QStringLiteral(""),
                              .tags = {QStringLiteral("x"), QStringLiteral("y")}};
    const QByteArray json =
        R"(["dayOne","999","03-07","07:05",null,"a\/b\"\\\b\f\n\r\t\u0001\u001f)"
        "\x7f\xE6\x97\xA5\xE2\x80\xA8"
        R"(",null,null,"",null,"false","x","y"])";
    EXPECT_EQ(
        identity(entry, ImportSource::dayOne),
        QString::fromLatin1(QCryptographicHash::hash(json, QCryptographicHash::Sha256).toHex()));
}

TEST(Identity, NeverChangesBetweenVersions) {
    EXPECT_EQ(identity({.day = {2024, 1, 2}, .body = QStringLiteral("text")}, ImportSource::dayOne),
              u"1c259f61428eca73840fad83058d1f67bb4918753e1e260bcd16db09bce5e480");
}

TEST(Identity, DependsOnTheOrderOfTagsAndOnTheSource) {
    ImportedEntry entry{.day = kDay, .tags = {QStringLiteral("a"), QStringLiteral("b")}};
    const QString before = identity(entry, ImportSource::flomo);
    EXPECT_NE(before, identity(entry, ImportSource::journey));
    entry.tags = {QStringLiteral("b"), QStringLiteral("a")};
    EXPECT_NE(before, identity(entry, ImportSource::flomo));
}

TEST(WholeSection, IsMatchedByWhatItWouldBeRenderedTo) {
    ImportedEntry entry{
        .day = kDay, .body = QStringLiteral("# a"), .weather = QStringLiteral("8°")};
    ImportOptions options;
    EXPECT_FALSE(matchesWholeSection(entry, u"### a", options)) << "it has a weather to show";
    options.weather = true;
    EXPECT_TRUE(matchesWholeSection(entry, u"### a\n\n8°", options));
    EXPECT_FALSE(matchesWholeSection(entry, u"### a", options));
    entry.time = {7, 5};
    EXPECT_FALSE(matchesWholeSection(entry, u"### a\n\n8°", options));
    EXPECT_FALSE(matchesWholeSection({.day = kDay}, u"", options));
}

TEST(WholeSection, OfAnotherVaultIsMatchedWithAllItsDetails) {
    const ImportedEntry whole{.day = kDay,
                              .time = {{7, 5}},
                              .body = QStringLiteral("a\n"),
                              .journal = QStringLiteral("j"),
                              .isVelmarSection = true};
    EXPECT_TRUE(matchesWholeSection(whole, u"a", {}));
}

}  // namespace
}  // namespace diary::EntryRenderer
