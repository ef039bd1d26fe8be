#include "DiaryKit/Vault/SectionSave.h"

#include <gtest/gtest.h>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

constexpr MonthDay kDay{1, 2};

// One stay of the editor: saves build on what the last one wrote.
struct Stay {
    QString file;
    int year = 2026;
    std::optional<QString> lastWritten = {};

    QString save(QStringView draft) {
        const auto saved = savingDraft(draft, year, kDay, file, lastWritten);
        EXPECT_TRUE(saved);
        if (!saved) return {};
        lastWritten = saved->written;
        return file = saved->text;
    }
};

TEST(SavingDraft, WritesTheYearAndLeavesTheOthers) {
    Stay stay{QStringLiteral("# 01-02\n\n## 2025\n\nold\n")};
    EXPECT_EQ(stay.save(u"new"), u"# 01-02\n\n## 2025\n\nold\n\n## 2026\n\nnew\n");
    EXPECT_EQ(stay.save(u"newer "), u"# 01-02\n\n## 2025\n\nold\n\n## 2026\n\nnewer\n");
}

TEST(SavingDraft, TellsWhatItReplaces) {
    const auto saved = savingDraft(u"mine", 2026, kDay, u"## 2026\n\ntheirs\n", {});
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->replacedBody, u"theirs");
}

TEST(SavingDraft, ClosesAFenceSoThatLaterYearsStayYears) {
    Stay stay{QStringLiteral("## 2025\n\na\n\n## 2027\n\nb\n")};
    stay.save(u"```\ncode");
    EXPECT_EQ(stay.file, u"## 2025\n\na\n\n## 2026\n\n```\ncode\n```\n\n## 2027\n\nb\n");
    stay.save(u"```\ncode\nmore");
    EXPECT_EQ(stay.file, u"## 2025\n\na\n\n## 2026\n\n```\ncode\nmore\n```\n\n## 2027\n\nb\n");
    stay.save(u"```\ncode\n```");
    EXPECT_EQ(stay.file, u"## 2025\n\na\n\n## 2026\n\n```\ncode\n```\n\n## 2027\n\nb\n");
}

TEST(SavingDraft, DoublesNothingWhileAHeaderIsTypedIntoIt) {
    Stay stay{QStringLiteral("# 01-02\n")};
    const QString typed = QStringLiteral("foo\n## 2024\nbar");
    for (qsizetype length = 1; length <= typed.size(); ++length) stay.save(typed.first(length));
    EXPECT_EQ(stay.file, u"# 01-02\n\n## 2026\n\nfoo\n## 2024\nbar\n");
    stay.save(u"foo\n## 20245\nbar");
    EXPECT_EQ(stay.file, u"# 01-02\n\n## 2026\n\nfoo\n## 20245\nbar\n");
    stay.save(u"foo");
    EXPECT_EQ(stay.file, u"# 01-02\n\n## 2026\n\nfoo\n");
}

TEST(SavingDraft, NeverTouchesAYearThatTheFileHeldBefore) {
    Stay stay{QStringLiteral("## 2024\n\nold\n\n## 2026\n\n\n\n## 2027\n\nlater\n")};
    stay.save(u"foo\n## 2024\nbar");
    stay.save(u"foo\n## 2024\nbar more");
    EXPECT_EQ(stay.file,
              u"## 2024\n\nold\n\n## 2026\n\nfoo\n## 2024\nbar more\n\n## 2027\n\nlater\n");
    stay.save(u"foo");
    EXPECT_EQ(stay.file, u"## 2024\n\nold\n\n## 2026\n\nfoo\n\n## 2027\n\nlater\n");
}

TEST(SavingDraft, LeavesWhatAnotherWriterPutBetween) {
    Stay stay{QStringLiteral("# 01-02\n")};
    stay.save(u"foo\n## 2024\nbar");
    stay.file = YearSectionParser::replacingBody(u"theirs", 2025, kDay, stay.file);
    stay.save(u"foo\n## 2024\nbar more");
    EXPECT_EQ(YearSectionParser::body(2025, stay.file), u"theirs");
    EXPECT_EQ(stay.file.count(QLatin1String("bar")), 1);
}

TEST(SavingDraft, LeavesAnEmbeddedYearThatAnotherWriterChanged) {
    Stay stay{QStringLiteral("# 01-02\n")};
    stay.save(u"foo\n## 2024\nbar");
    stay.file.replace(QLatin1String("bar"), QLatin1String("bar and theirs"));
    stay.save(u"foo\n## 2024\nbar more");
    EXPECT_TRUE(stay.file.contains(QLatin1String("bar and theirs")));
    EXPECT_TRUE(stay.file.contains(QLatin1String("bar more")));
}

TEST(SavingDraft, FindsItsTextBehindAHeaderThatEndsTheFileWithCr) {
    Stay stay{QStringLiteral("# 01-02\n\n## 2026\r")};
    stay.save(u"words");
    EXPECT_EQ(YearSectionParser::body(2026, stay.file), u"words");
}

TEST(SavingDraft, RefusesAYearThatNoHeaderCanHold) {
    EXPECT_FALSE(savingDraft(u"words", 12026, kDay, u"# 01-02\n", {}));
    EXPECT_FALSE(savingDraft(u"words", 7, kDay, u"# 01-02\n", {}));
}

TEST(SavingDraft, EmptiesAYearButKeepsItsHeader) {
    Stay stay{QStringLiteral("# 01-02\n\n## 2026\n\na\n")};
    EXPECT_EQ(stay.save(u"  \n"), u"# 01-02\n\n## 2026\n\n");
}

}  // namespace
}  // namespace diary
