// A workspace from its making to a clean output: an agent converts with every fault that a check
// knows, is told of them, and converts again.
#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"
#include "DiaryKit/FolderSources/VelmarFolderSource.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using AgentWorkspace::Language;
using Kind = ImportIssue::Kind;

constexpr int kThisYear = 2026;

QString s(const char* text) {
    return QString::fromUtf8(text);
}

ImportIssue issue(Kind kind, const char* file) {
    return {.kind = kind, .file = s(file)};
}

ImportIssue issue(Kind kind, const char* file, const char* detail) {
    return {.kind = kind, .file = s(file), .detail = s(detail)};
}

ImportedEntry entry(const DiaryDay& day, const char* body) {
    return {.day = day, .body = s(body), .isVelmarSection = true};
}

class AgentOutput : public testing::TestWithParam<Language> {
protected:
    void SetUp() override {
        write(m_files.filePath(s("old.json")), "[]");
        m_workspace = AgentWorkspace::createImport(
            m_files.filePath(s("old.json")), s("Old Diary"), m_files.path(), GetParam(),
            QTimeZone("Asia/Tokyo"), QDateTime(QDate(2026, 11, 21), QTime(12, 0)));
    }

    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    [[nodiscard]] QString inWorkspace(const QString& name) const {
        return m_workspace + u'/' + name;
    }
    [[nodiscard]] QString inOutput(const char* name) const {
        return inWorkspace(AgentWorkspace::names(GetParam()).output) + u'/' + s(name);
    }
    void put(const char* name, const QByteArray& bytes) const { write(inOutput(name), bytes); }

    void convertBadly() const {
        put("02-29.md", "# 02-29\n\n## 2023\n\nno such day\n\n## 2024\n\nleap day\n");
        put("02-30.md", "# 02-30\n\n## 2020\n\nno such day\n");
        put("03-04.md",
            "# March 4\n\n## 1899\n\ntoo early\n\n## 2019\n\nmorning\n\n## 2020\n\n"
            "# Walk · by the lake\n\ntext\n\n## 2019\n\nevening\n\n## 2027\n\ntoo late\n\n"
            "## 2021\n\n```\ncode\n");
        put("11-21.md", "# 11-21\n\n## 2026\n\ntoday\n");
        put("2021.md", "a note");
        put(".DS_Store", "hidden");
        ASSERT_TRUE(QDir().mkpath(inOutput("2021")));
        ASSERT_TRUE(QFile::link(s("nothing"), inOutput("12-31.md")));
    }

    void convertWell() const {
        put("02-29.md", "# 02-29\n\n## 2024\n\nleap day\n");
        put("03-04.md",
            "# 03-04\n\n## 2019\n\nmorning\n\nevening\n\n## 2020\n\n### Walk · by the lake\n\n"
            "text\n\n## 2021\n\n```\ncode\n```\n");
        for (const char* name : {"02-30.md", "12-31.md", "2021.md"}) {
            ASSERT_TRUE(QFile::remove(inOutput(name)));
        }
        ASSERT_TRUE(QDir().rmdir(inOutput("2021")));
    }

    // As the wizard checks: the workspace as a whole.
    [[nodiscard]] ImportBatch check() const {
        return VelmarFolderSource::read(m_workspace, QFileInfo(m_workspace).fileName(), kThisYear);
    }

    const QTemporaryDir m_files;
    QString m_workspace;
};

const std::vector<ImportIssue>& faults() {
    static const std::vector<ImportIssue> all = {
        issue(Kind::invalidDate, "02-29.md", "2023"),
        issue(Kind::invalidDate, "02-30.md"),
        issue(Kind::titleMismatch, "03-04.md"),
        issue(Kind::duplicateYear, "03-04.md", "2019"),
        issue(Kind::yearOutOfRange, "03-04.md", "1899"),
        issue(Kind::undemotedHeading, "03-04.md", "2020 · # Walk · by the lake"),
        issue(Kind::yearOutOfRange, "03-04.md", "2027"),
        issue(Kind::unclosedFence, "03-04.md", "2021"),
        issue(Kind::unreadable, "12-31.md"),
        issue(Kind::ignoredFile, "2021/"),
        issue(Kind::ignoredFile, "2021.md")};
    return all;
}

TEST_P(AgentOutput, IsReadAsFarAsItCanBeAndToldOfItsFaultsInOrder) {
    convertBadly();
    const ImportBatch batch = check();
    EXPECT_EQ(batch.issues, faults());
    const std::vector<ImportedEntry> entries = {
        entry({2024, 2, 29}, "leap day"),
        entry({2019, 3, 4}, "morning\n\nevening"),
        entry({2020, 3, 4}, "# Walk · by the lake\n\ntext"),
        entry({2021, 3, 4}, "```\ncode\n```"),
        entry({2026, 11, 21}, "today"),
    };
    EXPECT_EQ(batch.entries, entries);
    EXPECT_EQ(batch.source, ImportSource::velmarFolder);
    EXPECT_EQ(batch.name, AgentWorkspace::names(GetParam()).importFolder + s(" 2026-11-21"));
    EXPECT_EQ(batch.reportURL, std::nullopt);
}

TEST_P(AgentOutput, HasItsReportInTheWorkspacesLanguage) {
    convertBadly();
    const QString report = inWorkspace(AgentWorkspace::names(GetParam()).report);
    write(report, "three entries");
    EXPECT_EQ(check().reportURL, report);
}

TEST_P(AgentOutput, IsCleanOnceItsFaultsAreMended) {
    convertBadly();
    ASSERT_FALSE(check().issues.empty());
    convertWell();
    const ImportBatch batch = check();
    EXPECT_EQ(batch.issues, std::vector<ImportIssue>());
    const std::vector<ImportedEntry> entries = {
        entry({2024, 2, 29}, "leap day"),
        entry({2019, 3, 4}, "morning\n\nevening"),
        entry({2020, 3, 4}, "### Walk · by the lake\n\ntext"),
        entry({2021, 3, 4}, "```\ncode\n```"),
        entry({2026, 11, 21}, "today"),
    };
    EXPECT_EQ(batch.entries, entries);
    // What was converted from is as it was.
    const QString source = inWorkspace(AgentWorkspace::names(GetParam()).source);
    QFile original(source + s("/old.json"));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), QByteArray("[]"));
}

// The empty output of a new workspace is no folder of day files yet.
TEST_P(AgentOutput, OfANewWorkspaceIsNoneYet) {
    EXPECT_EQ(VelmarFolderSource::dayFolder(m_workspace), std::nullopt);
}

constexpr char kEnglishPrompt[] =
    R"(Velmar found the problems below when checking output/. Fix them following the rules in VELMAR.md, rerun the check and update report.md:

- 02-29.md: this date doesn't exist (in 2023); check how the dates were worked out.
- 02-30.md: this date doesn't exist; check how the dates were worked out.
- 03-04.md: the first line should be `# MM-DD`, matching the file name.
- 03-04.md: `## 2019` appears more than once; a year must be a single section.
- 03-04.md: the year 1899 can't be right; check how the dates were worked out.
- 03-04.md: the 2020 section has a line "# Walk"; headings in the text move down two levels.
- 03-04.md: the year 2027 can't be right; check how the dates were worked out.
- 03-04.md: a code block in the 2021 section is never closed.
- 12-31.md: can't be read; write it as UTF-8.
- 2021/: remove the subfolder; all files go directly in output/.
- 2021.md: not an MM-DD.md; output/ should only hold day files.)";

TEST(FixPrompt, TellsEveryFaultToTheLetter) {
    EXPECT_EQ(AgentWorkspace::fixPrompt(faults(), Language::english), s(kEnglishPrompt));
}

TEST_P(AgentOutput, HasAFixPromptThatNamesTheFileAndYearOfEachFault) {
    const QStringList lines = AgentWorkspace::fixPrompt(faults(), GetParam()).split(u'\n');
    const AgentWorkspace::Names& names = AgentWorkspace::names(GetParam());
    ASSERT_EQ(lines.size(), static_cast<qsizetype>(faults().size()) + 2);
    EXPECT_TRUE(lines[0].contains(names.output + u'/') && lines[0].contains(names.report));
    EXPECT_EQ(lines[1], QString());
    for (std::size_t at = 0; at < faults().size(); ++at) {
        const ImportIssue& fault = faults()[at];
        const QString& line = lines[static_cast<qsizetype>(at) + 2];
        EXPECT_TRUE(line.startsWith(s("- ") + fault.file)) << line.toStdString();
        const QStringList details = fault.detail.value_or(QString()).split(s(" · "));
        EXPECT_TRUE(line.contains(details.value(0))) << line.toStdString();
        EXPECT_TRUE(line.contains(details.value(1))) << line.toStdString();
        EXPECT_FALSE(line.contains(u'{')) << line.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, AgentOutput, testing::ValuesIn(AgentWorkspace::kLanguages),
                         [](const auto& language) {
                             return AgentWorkspace::code(language.param).remove(u'-').toStdString();
                         });

}  // namespace
}  // namespace diary
