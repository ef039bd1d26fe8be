#include "DiaryKit/FolderSources/MarkdownFolderSource.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/ZipBuilder.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using MarkdownFolderSource::Flavor;

class MarkdownFolder : public ::testing::Test {
protected:
    [[nodiscard]] ImportBatch read() const {
        return MarkdownFolderSource::read(ImportPackage(files.path()), QStringLiteral("Notes"));
    }
    [[nodiscard]] Flavor flavor() const {
        return MarkdownFolderSource::flavor(ImportPackage(files.path()));
    }

    const test::TemporaryVault files;
};

TEST_F(MarkdownFolder, OfObsidianIsDatedByItsSettingsThenByItsNamesThenByItsFrontMatter) {
    files.write(QStringLiteral(".obsidian/daily-notes.json"),
                R"({"format":"DD.MM.YYYY","folder":"/daily/"})");
    files.write(QStringLiteral("daily/04.03.2021.md"), "# 2021-03-04\n![[a.png]]text");
    files.write(QStringLiteral("Trip 2021-03-05.md"), "five");
    files.write(QStringLiteral("ideas.md"), "no date");
    files.write(QStringLiteral("old.md"), "---\ndate: 2020-01-02\ntags: t\n---\ny");
    files.write(QStringLiteral("picture.png"), "2021-03-06");

    const ImportBatch batch = read();
    EXPECT_EQ(batch.source, ImportSource::markdownFolder);
    EXPECT_EQ(batch.name, QStringLiteral("Notes"));
    ASSERT_EQ(batch.entries.size(), 3U);
    EXPECT_EQ(batch.entries[0].day, (DiaryDay{2021, 3, 5}));
    EXPECT_EQ(batch.entries[1].day, (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(batch.entries[1].body, QStringLiteral("text"));
    EXPECT_EQ(batch.entries[2].day, (DiaryDay{2020, 1, 2}));
    EXPECT_EQ(batch.entries[2].tags, QStringList(QStringLiteral("t")));
    EXPECT_EQ(batch.skipped.photos, 1);
    EXPECT_EQ(batch.skipped.undated, 1);
    EXPECT_EQ(flavor(), Flavor::obsidian);
}

TEST_F(MarkdownFolder, WithBrokenSettingsLosesOnlyTheirPattern) {
    for (const char* settings : {"{", "[]", "\"x\"", "", "{\"format\": 3}"}) {
        files.write(QStringLiteral(".obsidian/daily-notes.json"), settings);
        files.write(QStringLiteral("2021-03-04.md"), "x");
        EXPECT_EQ(read().entries.size(), 1U) << settings;
    }
}

TEST_F(MarkdownFolder, DoesntWaitForSettingsThatAreAPipe) {
    files.write(QStringLiteral("2021-03-04.md"), "x");
    ASSERT_TRUE(QDir().mkpath(files.filePath(QStringLiteral(".obsidian"))));
    const QString settings = files.filePath(QStringLiteral(".obsidian/daily-notes.json"));
    ASSERT_EQ(mkfifo(QFile::encodeName(settings).constData(), 0600), 0);
    EXPECT_EQ(read().entries.size(), 1U);
}

TEST_F(MarkdownFolder, TellsItsFlavorByItsPaths) {
    files.write(QStringLiteral("2021-03-04.md"), "x");
    EXPECT_EQ(flavor(), Flavor::generic);
    files.write(QStringLiteral("Diary/Data/x.png"), "x");
    EXPECT_EQ(flavor(), Flavor::generic);
    files.write(QStringLiteral("Diary/2021/03-04.md"), "x");
    EXPECT_EQ(flavor(), Flavor::diarly);
    files.write(QStringLiteral("journals/2021_03_04.org"), "x");
    EXPECT_EQ(flavor(), Flavor::logseq);
    files.write(QStringLiteral(".obsidian/app.json"), "{}");
    EXPECT_EQ(flavor(), Flavor::obsidian);
}

TEST_F(MarkdownFolder, InAZipIsNeverOfObsidian) {
    diary::testing::ZipBuilder zip;
    zip.add(diary::testing::ZipBuilder::packed("notes/.obsidian/daily-notes.json",
                                               R"({"format":"DD.MM.YYYY"})"));
    zip.add(diary::testing::ZipBuilder::packed("notes/2021-03-04.md", "x"));
    zip.add(diary::testing::ZipBuilder::packed("notes/04.03.2020.md", "y"));
    files.write(QStringLiteral("notes.zip"), zip.bytes());
    const ImportPackage package(files.filePath(QStringLiteral("notes.zip")));
    EXPECT_EQ(MarkdownFolderSource::flavor(package), Flavor::generic);
    const ImportBatch batch = MarkdownFolderSource::read(package, QString());
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries[0].body, QStringLiteral("x"));
    EXPECT_EQ(batch.skipped.undated, 1);
}

TEST_F(MarkdownFolder, WithoutADateIsEmpty) {
    files.write(QStringLiteral("ideas.md"), "no date");
    try {
        const ImportBatch batch = read();
        FAIL() << batch.entries.size();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::empty);
    }
    EXPECT_TRUE(MarkdownFolderSource::datedNotes(ImportPackage(files.path())).empty());
}

TEST_F(MarkdownFolder, KeepsADayWithNothingOnIt) {
    files.write(QStringLiteral("2021-03-04.md"), "");
    const ImportBatch batch = read();
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries[0].body, QString());
}

TEST_F(MarkdownFolder, GivesNotesWithADateInTheirPathForRecognition) {
    files.write(QStringLiteral("2021-03-04.md"), "x");
    files.write(QStringLiteral("old.md"), "---\ndate: 2020-01-02\n---\ny");
    files.write(QStringLiteral("sub/2021-03-05.txt"), "x");
    const auto notes = MarkdownFolderSource::datedNotes(ImportPackage(files.path()));
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].path, QStringLiteral("2021-03-04.md"));
    EXPECT_EQ(notes[1].path, QStringLiteral("sub/2021-03-05.txt"));
    EXPECT_EQ(notes[1].day, (DiaryDay{2021, 3, 5}));
}

}  // namespace
}  // namespace diary
