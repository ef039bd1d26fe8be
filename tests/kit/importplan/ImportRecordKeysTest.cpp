#include "DiaryKit/Import/ImportRecordKeys.h"

#include <gmock/gmock.h>

#include "tests/support/Printing.h"

namespace diary::ImportLog {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr MonthDay kDay{3, 7};

struct Row {
    const char* name;
    const char16_t* entry;
    const char16_t* body;
    bool isThere;
};

class Recognition : public testing::TestWithParam<Row> {};

TEST_P(Recognition, LastsAsLongAsTheTextCanBeFound) {
    EXPECT_EQ(
        isStillThere(QString::fromUtf16(GetParam().entry), QString::fromUtf16(GetParam().body)),
        GetParam().isThere);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Recognition,
    testing::Values(
        Row{"WordForWord", u"\nBread and ink.\n", u"a\n\nBread and ink.\n\nb", true},
        Row{"Gone", u"Bread and ink.", u"Something else.", false},
        Row{"NothingIsNowhere", u" \n", u"a", false},
        Row{"WithoutItsRule", u"---\n\nBread", u"Bread", true},
        Row{"OnlyARule", u"---\n", u"a", false},
        Row{"RuleAloneIsFoundAsText", u"---", u"a\n\n---\n\nb", true},
        Row{"ByItsHeading", u"### 07:52\n\nwords", u"  ### 07:52 \n\nwholly others", true},
        Row{"ByNoOtherHeading", u"#### 07:52\n\nwords", u"#### 07:52\n\nxyz", false},
        Row{"Retouched", u"今天下雨了在家里读书喝茶", u"今天下雨了在家里看书喝茶", true},
        Row{"Rewritten", u"今天下雨了在家里读书喝茶", u"今天晴了出门走路喝水", false},
        Row{"FewPairsTellNothing", u"abcdef", u"abcdeg", false},
        Row{"SevenTenthsSuffice", u"abcdefghijk", u"abcdefgh", true},
        Row{"LessDoesNot", u"abcdefghijk", u"abcdefg", false},
        Row{"BlanksDoNotCount", u"a b c d e f g h", u"ab\ncd ef\tgh", true}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(Bigrams, ArePairsOfCharactersThatPeopleSee) {
    EXPECT_EQ(bigramCount(u""), 0);
    EXPECT_EQ(bigramCount(u"a"), 0);
    EXPECT_EQ(bigramCount(u"ab ab"), 2);
    EXPECT_EQ(bigramCount(u"👨‍👩‍👧e\u0301"), 1);
}

TEST(Hash, IsOfTheUtf8Bytes) {
    EXPECT_EQ(hash(u""), u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hash(u"é"), hash(QStringLiteral("\u00E9")));
    EXPECT_NE(hash(u"é"), hash(u"e\u0301"));
}

class EntryKeys : public testing::Test {
protected:
    EntryKeys() {
        m_record.state = ImportRecord::State::done;
        m_record.source = ImportSource::dayOne;
        m_record.files = {{.day = QStringLiteral("03-07"), .after = QStringLiteral("digest")}};
        m_record.files[0].added = {
            {.year = 2024,
             .text = QStringLiteral("one\n\ntwo"),
             .entryKeys = QStringList{QStringLiteral("k1"), QStringLiteral("k2")},
             .entryTexts = QStringList{QStringLiteral("one"), QStringLiteral("two")}}};
    }

    [[nodiscard]] QSet<QString> keys(const std::optional<QString>& text,
                                     ImportSource source = ImportSource::dayOne) const {
        return entryKeys({&m_record, 1}, source, kDay, text);
    }

    ImportRecord::File& file() { return m_record.files[0]; }

    ImportRecord m_record;
    const QString m_text = QStringLiteral("# 03-07\n\n## 2024\n\none\n\ntwo\n");
};

TEST_F(EntryKeys, AreThoseOfTextsThatAreStillThere) {
    EXPECT_THAT(keys(m_text), UnorderedElementsAre(u"k1", u"k2"));
    EXPECT_THAT(keys(QStringLiteral("## 2024\ntwo")), UnorderedElementsAre(u"k2"));
    EXPECT_THAT(keys(QStringLiteral("## 2023\none\n\ntwo")), IsEmpty()) << "another year";
}

TEST_F(EntryKeys, AreNoneWhereTheFileIsGone) {
    EXPECT_THAT(keys(std::nullopt), IsEmpty());
}

TEST_F(EntryKeys, AreNoneOfUndoneImportsAndOtherSources) {
    EXPECT_THAT(keys(m_text, ImportSource::flomo), IsEmpty());
    m_record.state = ImportRecord::State::undone;
    EXPECT_THAT(keys(m_text), IsEmpty());
}

TEST_F(EntryKeys, AreNoneOfOtherDaysAndOlderFiles) {
    file().after = std::nullopt;
    EXPECT_THAT(keys(m_text), IsEmpty());
    file().after = QStringLiteral("digest");
    file().day = QStringLiteral("03-08");
    EXPECT_THAT(keys(m_text), IsEmpty());
}

TEST_F(EntryKeys, OfAnAnnouncedWriteCountOnlyIfItHappened) {
    file().committed = false;
    EXPECT_THAT(keys(m_text), IsEmpty());
    file().after = hash(m_text);
    EXPECT_THAT(keys(m_text), UnorderedElementsAre(u"k1", u"k2"));
}

TEST_F(EntryKeys, WithoutTextsOfTheirOwnStandOrFallTogether) {
    file().added[0].entryTexts = std::nullopt;
    EXPECT_THAT(keys(m_text), UnorderedElementsAre(u"k1", u"k2"));
    EXPECT_THAT(keys(QStringLiteral("## 2024\none")), IsEmpty());
    file().added[0].text.clear();
    EXPECT_THAT(keys(m_text), IsEmpty()) << "nothing is found nowhere";
    file().added[0].entryKeys = std::nullopt;
    EXPECT_THAT(keys(m_text), IsEmpty());
}

TEST_F(EntryKeys, AreSoughtInTheFirstSectionOfAYear) {
    EXPECT_THAT(keys(QStringLiteral("## 2024\none\n## 2024\ntwo")), UnorderedElementsAre(u"k1"));
}

}  // namespace
}  // namespace diary::ImportLog
