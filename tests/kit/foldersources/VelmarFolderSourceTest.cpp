#include "DiaryKit/FolderSources/VelmarFolderSource.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <ctime>
#include <random>

#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/kit/import/TemporaryPackage.h"

namespace diary {
namespace {

using Kind = ImportIssue::Kind;

constexpr int kThisYear = 2026;

ImportIssue issue(Kind kind, const char16_t* file, const char16_t* detail = nullptr) {
    return {kind, QString::fromUtf16(file),
            detail != nullptr ? std::optional(QString::fromUtf16(detail)) : std::nullopt};
}

ImportedEntry section(DiaryDay day, const char16_t* body) {
    return {.day = day, .body = QString::fromUtf16(body), .isVelmarSection = true};
}

class VelmarFolderSourceTest : public ::testing::Test {
protected:
    void add(const char* name, const QByteArray& bytes) {
        m_files.add(QString::fromUtf8(name), bytes);
    }
    ImportBatch read() {
        return VelmarFolderSource::read(m_files.root(), QStringLiteral("Vault"), kThisYear);
    }
    // Of one file of 4 March.
    ImportBatch readDay(const QByteArray& bytes) {
        add("03-04.md", bytes);
        return read();
    }

    testing::TemporaryPackage m_files;
};

TEST_F(VelmarFolderSourceTest, ReadsSectionsVerbatim) {
    add("12-31.md", "# 12-31\n\n## 2020\n\n### 09:30\n\nLate.\n");
    add("01-02.md", "# 01-02\n\n## 2023\n\n\tb \n  c\n\n## 2021\n\na\n\n## 2024\n \n");
    const ImportBatch batch = read();
    EXPECT_EQ(batch.source, ImportSource::velmarFolder);
    EXPECT_EQ(batch.name, QStringLiteral("Vault"));
    EXPECT_EQ(batch.entries,
              (std::vector{section({2023, 1, 2}, u"b \n  c"), section({2021, 1, 2}, u"a"),
                           section({2020, 12, 31}, u"### 09:30\n\nLate.")}));
    EXPECT_TRUE(batch.issues.empty());
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped());
    EXPECT_EQ(batch.reportURL, std::nullopt);
}

TEST_F(VelmarFolderSourceTest, PrefersTheFolderItselfToItsOutputFolder) {
    add("03-04.md", "# 03-04\n\n## 2020\n\nhere\n");
    add("output/03-05.md", "# 03-05\n\n## 2020\n\nthere\n");
    EXPECT_EQ(VelmarFolderSource::dayFolder(m_files.root()), m_files.root());
    const ImportBatch batch = read();
    EXPECT_EQ(batch.entries, std::vector{section({2020, 3, 4}, u"here")});
    EXPECT_EQ(batch.issues, std::vector{issue(Kind::ignoredFile, u"output/")});
}

TEST_F(VelmarFolderSourceTest, FindsTheFirstOutputFolderWithDayFiles) {
    add("输出/notes.md", "x");
    add("出力/01-01.md", "");
    EXPECT_EQ(VelmarFolderSource::dayFolder(m_files.root()), m_files.path(QStringLiteral("出力")));
    add("output/01-01.md", "");
    EXPECT_EQ(VelmarFolderSource::dayFolder(m_files.root() + u'/'),
              m_files.path(QStringLiteral("output")));
    EXPECT_EQ(VelmarFolderSource::dayFolder(m_files.path(QStringLiteral("出力"))),
              m_files.path(QStringLiteral("出力")));
}

TEST_F(VelmarFolderSourceTest, CountsTheNamesOfDayFiles) {
    for (const char* name : {"01-01.md", "02-31.md", "13-01.md", "1-01.md", "01-01.MD", ".x"}) {
        add(name, "");
    }
    EXPECT_EQ(VelmarFolderSource::dayFileCount(m_files.root()), 2);
    EXPECT_EQ(VelmarFolderSource::dayFileCount(m_files.path(QStringLiteral("missing"))), 0);
    EXPECT_EQ(VelmarFolderSource::dayFileCount(m_files.path(QStringLiteral("01-01.md"))), 0);
}

TEST_F(VelmarFolderSourceTest, RefusesAFolderWithoutDayFiles) {
    add("notes.md", "# 03-04\n\n## 2020\n\nx\n");
    try {
        (void)read();
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
    }
    EXPECT_THROW((void)VelmarFolderSource::read(m_files.path(QStringLiteral("missing")), QString(),
                                                kThisYear),
                 ImportError);
}

TEST_F(VelmarFolderSourceTest, TellsDaysThatNoMonthHasFromNamesOfOtherFiles) {
    for (const char* name : {"02-30.md", "04-31.md", "01-32.md", "00-10.md", "13-01.md"}) {
        add(name, "# x\n\n## 2020\n\nx\n");
    }
    const ImportBatch batch = read();
    EXPECT_TRUE(batch.entries.empty());
    EXPECT_EQ(
        batch.issues,
        (std::vector{issue(Kind::ignoredFile, u"00-10.md"), issue(Kind::ignoredFile, u"01-32.md"),
                     issue(Kind::invalidDate, u"02-30.md"), issue(Kind::invalidDate, u"04-31.md"),
                     issue(Kind::ignoredFile, u"13-01.md")}));
}

TEST_F(VelmarFolderSourceTest, LeavesOutTheLeapDayOfACommonYear) {
    add("02-29.md", "# 02-29\n\n## 2023\n\nno\n\n## 2024\n\nyes\n");
    const ImportBatch batch = read();
    EXPECT_EQ(batch.entries, std::vector{section({2024, 2, 29}, u"yes")});
    EXPECT_EQ(batch.issues, std::vector{issue(Kind::invalidDate, u"02-29.md", u"2023")});
}

TEST_F(VelmarFolderSourceTest, LeavesOutYearsThatCannotBe) {
    const ImportBatch batch =
        readDay("# 03-04\n\n## 1899\n\na\n\n## 1900\n\nb\n\n## 2026\n\nc\n\n## 2027\n\n# d\n");
    EXPECT_EQ(batch.entries,
              (std::vector{section({1900, 3, 4}, u"b"), section({2026, 3, 4}, u"c")}));
    EXPECT_EQ(batch.issues, (std::vector{issue(Kind::yearOutOfRange, u"03-04.md", u"1899"),
                                         issue(Kind::yearOutOfRange, u"03-04.md", u"2027")}));
}

TEST_F(VelmarFolderSourceTest, JoinsAYearThatComesTwice) {
    const ImportBatch batch = readDay(
        "# 03-04\n\n## 2020\n\na\n\n## 2021\n\nm\n\n## 2020\n\n## 2020\n\nb\n\n## 2022\n\n"
        "## 2022\n\nc\n");
    EXPECT_EQ(batch.entries,
              (std::vector{section({2020, 3, 4}, u"a\n\nb"), section({2021, 3, 4}, u"m"),
                           section({2022, 3, 4}, u"c")}));
    EXPECT_EQ(batch.issues, (std::vector{issue(Kind::duplicateYear, u"03-04.md", u"2020"),
                                         issue(Kind::duplicateYear, u"03-04.md", u"2020"),
                                         issue(Kind::duplicateYear, u"03-04.md", u"2022")}));
}

TEST_F(VelmarFolderSourceTest, TakesAFileWithoutTextForAnEmptyOne) {
    const ImportBatch batch = readDay("\n\n");
    EXPECT_TRUE(batch.entries.empty());
    EXPECT_TRUE(batch.issues.empty());
}

TEST_F(VelmarFolderSourceTest, ReportsWhatIsNoDayFileButHiddenFiles) {
    add("03-04.md", "# 03-04\n");
    add("photos/a.jpg", "x");
    add("03-05.md/a", "x");
    add("notes.txt", "x");
    add(".DS_Store", "x");
    add(".velmar/x", "x");
    EXPECT_EQ(read().issues, (std::vector{issue(Kind::ignoredFile, u"03-05.md/"),
                                          issue(Kind::ignoredFile, u"notes.txt"),
                                          issue(Kind::ignoredFile, u"photos/")}));
}

TEST_F(VelmarFolderSourceTest, PassesOverNamesThatAreNoText) {
    const QByteArray name = QFile::encodeName(m_files.root()) + "/\xFF.md";
    add("03-04.md", "# 03-04\n");
    FILE* const file = std::fopen(name.constData(), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_TRUE(read().issues.empty());
    // Qt can't name it, so the folder wouldn't go.
    EXPECT_EQ(std::remove(name.constData()), 0);
}

TEST_F(VelmarFolderSourceTest, ReportsFilesThatCannotBeRead) {
    add("03-04.md", "# 03-04\n\n## 2020\n\nx\n");
    QFile::link(QStringLiteral("missing"), m_files.path(QStringLiteral("03-05.md")));
    const QByteArray pipe = QFile::encodeName(m_files.path(QStringLiteral("03-06.md")));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    const ImportBatch batch = read();
    EXPECT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.issues, (std::vector{issue(Kind::unreadable, u"03-05.md"),
                                         issue(Kind::unreadable, u"03-06.md")}));
}

TEST_F(VelmarFolderSourceTest, ReadsFilesInOldCodePages) {
    add("03-04.md", "# 03-04\n\n## 2020\n\n\x93\xFA\x8BL\x82\xCC\n");
    add("03-05.md", "# 03-05\n\n## 2020\n\n\xC8\xD5\xBC\xC7\n");
    const ImportBatch batch = read();
    EXPECT_EQ(batch.entries,
              (std::vector{section({2020, 3, 4}, u"日記の"), section({2020, 3, 5}, u"日记")}));
    EXPECT_TRUE(batch.issues.empty());
}

TEST_F(VelmarFolderSourceTest, ChecksTheTitle) {
    for (const char* text : {"# 03-04", "\n\n\t# 03-04 \nx", "  # 03-04\n"}) {
        EXPECT_TRUE(readDay(text).issues.empty()) << text;
    }
    for (const char* text : {"x", "#03-04", "# 03-05", "# 3-4", "## 03-04", " \n# 03-04",
                             "# 03-04\r\n", "## 2020\n", "\xEF\xBB\xBF# 03-04"}) {
        EXPECT_EQ(readDay(text).issues, std::vector{issue(Kind::titleMismatch, u"03-04.md")})
            << text;
    }
    EXPECT_EQ(readDay("x\n\n## 2020\n\ny").entries, std::vector{section({2020, 3, 4}, u"y")});
}

TEST_F(VelmarFolderSourceTest, ClosesAFence) {
    const ImportBatch batch = readDay("# 03-04\n\n## 2020\n\na\n  ```swift\n# x\n\n## 2021\n\nb\n");
    EXPECT_EQ(batch.entries,
              std::vector{section({2020, 3, 4}, u"a\n  ```swift\n# x\n\n## 2021\n\nb\n```")});
    EXPECT_EQ(batch.issues, std::vector{issue(Kind::unclosedFence, u"03-04.md", u"2020")});
}

TEST_F(VelmarFolderSourceTest, ReportsHeadingsThatAreTooHigh) {
    const ImportBatch batch =
        readDay("# 03-04\n\n## 2020\n\n```\n# a\n```\n### b\n\n## 2021\n\nx\n# A · b\n## c\n");
    EXPECT_EQ(batch.entries, (std::vector{section({2020, 3, 4}, u"```\n# a\n```\n### b"),
                                          section({2021, 3, 4}, u"x\n# A · b\n## c")}));
    EXPECT_EQ(batch.issues,
              std::vector{issue(Kind::undemotedHeading, u"03-04.md", u"2021 · # A · b")});
}

TEST_F(VelmarFolderSourceTest, FindsTheReportBesideTheFolder) {
    add("output/03-04.md", "# 03-04\n");
    EXPECT_EQ(read().reportURL, std::nullopt);
    add("レポート.md", "r");
    EXPECT_EQ(read().reportURL, m_files.path(QStringLiteral("レポート.md")));
    add("report.md", "r");
    const QString report = m_files.path(QStringLiteral("report.md"));
    EXPECT_EQ(read().reportURL, report);
    EXPECT_EQ(
        VelmarFolderSource::read(m_files.path(QStringLiteral("output/")), {}, kThisYear).reportURL,
        report);
    add("报告.md", "r");
    EXPECT_EQ(read().reportURL, m_files.path(QStringLiteral("报告.md")));
}

TEST(VelmarFolderNames, AreThoseOfWorkspaces) {
    for (std::size_t index = 0; index < AgentWorkspace::kLanguages.size(); ++index) {
        const auto& names = AgentWorkspace::names(AgentWorkspace::kLanguages[index]);
        EXPECT_EQ(VelmarFolderSource::outputFolderNames[index], names.output);
        EXPECT_EQ(VelmarFolderSource::reportNames[index], names.report);
    }
}

TEST(UndemotedHeading, IsALineOfOneOrTwoMarksOutsideOfFences) {
    const auto line = [](QStringView body) { return VelmarFolderSource::undemotedHeading(body); };
    EXPECT_EQ(line(u"### a\n## b\n# c"), QStringLiteral("## b"));
    EXPECT_EQ(line(u"```\n# a\n```\n# b "), QStringLiteral("# b "));
    EXPECT_EQ(line(u"a\r\n# b\r\n"), QStringLiteral("# b\r"));
    for (const QStringView none :
         {u"", u" # a", u"#a", u"#\ta", u"### a", u"```\n# a", u"  ```x\n# a\n", u"a # b", u"#"}) {
        EXPECT_EQ(line(none), std::nullopt) << none.toUtf8().toStdString();
    }
}

// Whatever the file holds, a section that is taken over leaves the one behind it in peace.
TEST_F(VelmarFolderSourceTest, GivesBodiesThatSwallowNothing) {
    const QStringList pieces = {
        QStringLiteral("```"), QStringLiteral("\n"),          QStringLiteral("\r\n"),
        QStringLiteral("\r"),  QStringLiteral(" "),           QStringLiteral("\u00A0"),
        QStringLiteral("a"),   QStringLiteral("\n## 2020\n"), QStringLiteral("\n## 2021\n")};
    std::mt19937 random(20261121);  // NOLINT: the same texts in every run.
    for (int round = 0; round < 1000; ++round) {
        QString text = QStringLiteral("# 03-04\n\n## 2020\n");
        for (auto length = random() % 16; length > 0; --length) {
            text += pieces[static_cast<qsizetype>(random() % 9)];
        }
        for (const ImportedEntry& entry : readDay(text.toUtf8()).entries) {
            EXPECT_FALSE(YearSectionParser::leavesFenceOpen(entry.body)) << text.toStdString();
            EXPECT_EQ(entry.day.monthDay(), (MonthDay{3, 4}));
        }
    }
}

TEST_F(VelmarFolderSourceTest, ReadsAFileOfManySectionsInLinearTime) {
    const auto secondsOf = [this](int sections) {
        const QByteArray text =
            "# 03-04\n" + QByteArray("## 2020\na\n## 2021\n# b\n").repeated(sections / 2);
        const std::clock_t start = std::clock();
        EXPECT_EQ(readDay(text).entries.size(), 2U);
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    };
    const double half = secondsOf(100'000);
    EXPECT_LT(secondsOf(200'000), 8 * half + 0.1);
}

}  // namespace
}  // namespace diary
