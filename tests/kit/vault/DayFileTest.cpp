#include "DiaryKit/Vault/DayFile.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary::dayfile {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MonthDay kDay{1, 2};

int codeOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const FileError& error) {
        return error.code();
    }
    return 0;
}

class DayFile : public testing::Test {
protected:
    test::TemporaryVault vault;
};

TEST_F(DayFile, ListsFilesAndPlaceholdersOnce) {
    for (const char* name :
         {"01-02.md", ".01-03.md.icloud", ".01-02.md.icloud", "notes.md", ".DS_Store",
          "01-04.md.nextcloud", "01-05.sync-conflict.md", ".~01-06.md.host.b00t.1.2.3.tmp"}) {
        vault.write(QString::fromLatin1(name), "x");
    }
    EXPECT_THAT(dayFiles(vault.path()),
                ElementsAre(MonthDay{1, 2}, MonthDay{1, 3}, MonthDay{1, 4}));
    EXPECT_THAT(dayFiles(vault.filePath(QStringLiteral("nowhere"))), IsEmpty());
}

TEST_F(DayFile, ReadsTolerantly) {
    EXPECT_EQ(existingText(vault.path(), kDay), std::nullopt);
    vault.write(QStringLiteral("01-02.md"), "caf\xE9");
    EXPECT_EQ(existingText(vault.path(), kDay), QStringLiteral("caf\uFFFD"));
}

TEST_F(DayFile, KeepsAByteOrderMark) {
    vault.write(QStringLiteral("01-02.md"), "\xEF\xBB\xBF# 01-02\n");
    EXPECT_EQ(existingText(vault.path(), kDay), QStringLiteral("\uFEFF# 01-02\n"));
    rewrite(vault.path(), kDay, [](const std::optional<Content>& existing) {
        return existing->text + QStringLiteral("\n## 2024\n\na\n");
    });
    EXPECT_EQ(vault.read(QStringLiteral("01-02.md")), "\xEF\xBB\xBF# 01-02\n\n## 2024\n\na\n");
}

TEST_F(DayFile, RunsTheModificationOfAMissingFileWithoutText) {
    bool ran = false;
    modifyingFile(vault.path(), kDay, [&](const QString& path, const std::optional<QString>& text) {
        ran = true;
        EXPECT_EQ(text, std::nullopt);
        EXPECT_EQ(path, vault.filePath(QStringLiteral("01-02.md")));
    });
    EXPECT_TRUE(ran);
}

TEST_F(DayFile, RunsNoModificationOfAFileItCannotReadFaithfully) {
    const auto modify = [&] {
        modifyingFile(vault.path(), kDay,
                      [](const QString&, const std::optional<QString>&) { ADD_FAILURE(); });
    };
    vault.write(QStringLiteral("01-02.md"), "caf\xE9");
    EXPECT_EQ(codeOf(modify), EILSEQ);
    QFile::remove(vault.filePath(QStringLiteral("01-02.md")));
    QDir().mkpath(vault.filePath(QStringLiteral("01-02.md")));
    EXPECT_EQ(codeOf(modify), EISDIR);
}

TEST_F(DayFile, PassesOnWhatAModificationThrows) {
    EXPECT_EQ(codeOf([&] {
                  modifyingFile(vault.path(), kDay,
                                [](const QString& path, const std::optional<QString>&) {
                                    throw FileError(FileOperation::Write, path, ENOSPC);
                                });
              }),
              ENOSPC);
}

// A sync service takes no part in the coordination.
TEST_F(DayFile, ModifiesWhatAnotherProgramHasWrittenMeanwhile) {
    const QString name = QStringLiteral("01-02.md");
    vault.write(name, "old");
    int runs = 0;
    modifyingFile(vault.path(), kDay, [&](const QString& path, const std::optional<QString>& text) {
        if (++runs == 1) vault.write(name, "theirs");
        atomicfile::writeOver(path, text->toUtf8(), text->toUtf8() + " and ours");
    });
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(vault.read(name), "theirs and ours");
}

TEST_F(DayFile, RewritesWhatAnotherProgramHasWrittenMeanwhile) {
    const QString name = QStringLiteral("01-02.md");
    for (const bool isThere : {true, false}) {
        QFile::remove(vault.filePath(name));
        if (isThere) vault.write(name, "old");
        int asked = 0;
        const Rewritten written =
            rewrite(vault.path(), kDay, [&](const std::optional<Content>& existing) {
                if (++asked == 1) vault.write(name, "theirs");
                return (existing ? existing->text : QString()) + QStringLiteral(" and ours");
            });
        EXPECT_EQ(asked, 2);
        EXPECT_EQ(written.text, QStringLiteral("theirs and ours"));
        EXPECT_EQ(vault.read(name), "theirs and ours");
    }
}

TEST_F(DayFile, GivesUpOnAFileThatNeverRests) {
    int runs = 0;
    EXPECT_EQ(codeOf([&] {
                  modifyingFile(vault.path(), kDay,
                                [&](const QString& path, const std::optional<QString>& text) {
                                    const QByteArray bytes = QByteArray::number(++runs);
                                    vault.write(QStringLiteral("01-02.md"), bytes);
                                    atomicfile::writeOver(
                                        path, text ? std::optional(text->toUtf8()) : std::nullopt,
                                        "ours");
                                });
              }),
              ESTALE);
    EXPECT_GT(runs, 1);
    EXPECT_EQ(vault.read(QStringLiteral("01-02.md")), QByteArray::number(runs));
}

TEST_F(DayFile, LetsAModificationCoordinateAnotherFile) {
    modifyingFile(vault.path(), kDay, [&](const QString&, const std::optional<QString>&) {
        modifyingFile(vault.path(), MonthDay{3, 7},
                      [](const QString& path, const std::optional<QString>&) {
                          atomicfile::write(path, "inner");
                      });
        EXPECT_EQ(existingText(vault.path(), MonthDay{3, 7}), u"inner");
    });
}

TEST_F(DayFile, RewritesNothingWhereTheBytesStayTheSame) {
    vault.write(QStringLiteral("01-02.md"), "# 01-02\n");
    const auto before = fileStamp(path(vault.path(), kDay));
    const Rewritten written = rewrite(
        vault.path(), kDay, [](const std::optional<Content>& existing) { return existing->text; });
    EXPECT_EQ(written.stamp, before);
    EXPECT_EQ(fileStamp(path(vault.path(), kDay)), before);
}

TEST_F(DayFile, TellsTheStampOfWhatItWrote) {
    const Rewritten written = rewrite(vault.path(), kDay, [](const std::optional<Content>&) {
        return QStringLiteral("# 01-02\n\n## 2024\n\na\n");
    });
    EXPECT_TRUE(written.stamp);
    EXPECT_EQ(written.stamp, fileStamp(path(vault.path(), kDay)));
}

}  // namespace
}  // namespace diary::dayfile
