#include "DiaryKit/Files/AtomicFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "DiaryKit/Files/TemporaryName.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using atomicfile::Replacing;

class AtomicFile : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const {
        return m_vault.filePath(QString::fromUtf8(name));
    }
    [[nodiscard]] QByteArray encoded(const char* name) const {
        return QFile::encodeName(path(name));
    }
    [[nodiscard]] struct stat status(const char* name) const {
        struct stat result {};
        EXPECT_EQ(::lstat(encoded(name).constData(), &result), 0) << name;
        return result;
    }
    void link(const char* target, const char* name) const {
        ASSERT_EQ(::symlink(target, encoded(name).constData()), 0);
    }
    // The code that the call fails with; 0 if it doesn't.
    template <typename Call>
    static int codeOf(FileOperation operation, Call call) {
        try {
            call();
        } catch (const FileError& error) {
            EXPECT_EQ(error.operation(), operation);
            return error.code();
        }
        return 0;
    }
    [[nodiscard]] int writeCode(const char* name) const {
        return codeOf(FileOperation::Write, [&] { atomicfile::write(path(name), "new"); });
    }
    [[nodiscard]] int readCode(const char* name) const {
        return codeOf(FileOperation::Read, [&] { (void)atomicfile::read(path(name)); });
    }

    test::TemporaryVault m_vault;
};

TEST_F(AtomicFile, WritesANewFileAndReplacesIt) {
    for (const auto durability :
         {atomicfile::Durability::Synced, atomicfile::Durability::Unsynced}) {
        atomicfile::write(path("03-07.md"), "old", durability);
        EXPECT_EQ(m_vault.read(QStringLiteral("03-07.md")), "old");
        atomicfile::write(path("03-07.md"), "newer", durability);
        EXPECT_EQ(m_vault.read(QStringLiteral("03-07.md")), "newer");
        EXPECT_EQ(m_vault.names(), QStringList{QStringLiteral("03-07.md")});
    }
}

TEST_F(AtomicFile, WritesAndReadsManyBytesAndNone) {
    const QByteArray many(5'000'000, 'x');
    atomicfile::write(path("a"), many);
    EXPECT_EQ(atomicfile::read(path("a")), many);
    atomicfile::write(path("a"), "");
    EXPECT_EQ(atomicfile::read(path("a")), "");
    EXPECT_FALSE(atomicfile::read(path("a")).isNull());
}

TEST_F(AtomicFile, KeepsTheModeOfTheFileItReplaces) {
    for (const mode_t mode : {0640U, 0600U, 0444U, 0755U}) {
        atomicfile::write(path("a"), "old");
        ASSERT_EQ(::chmod(encoded("a").constData(), mode), 0);
        atomicfile::write(path("a"), "new");
        EXPECT_EQ(status("a").st_mode & 07777U, mode);
    }
}

TEST_F(AtomicFile, GivesNewFilesTheModeOfTheProcessOrAPrivateOne) {
    const mode_t before = ::umask(027);
    atomicfile::write(path("open"), "text");
    atomicfile::write(path("private"), "text", atomicfile::Durability::Synced,
                      atomicfile::NewMode::Private);
    ::umask(before);
    EXPECT_EQ(status("open").st_mode & 07777U, 0640U);
    EXPECT_EQ(status("private").st_mode & 07777U, 0600U);
}

TEST_F(AtomicFile, KeepsTheOwnerWhereThisUserMaySetIt) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may give files away";
    atomicfile::write(path("a"), "old");
    ASSERT_EQ(::chown(encoded("a").constData(), 65534, 65533), 0);
    atomicfile::write(path("a"), "new");
    EXPECT_EQ(status("a").st_uid, 65534U);
    EXPECT_EQ(status("a").st_gid, 65533U);
}

TEST_F(AtomicFile, FollowsAChainOfLinks) {
    m_vault.write(QStringLiteral("sub/real.md"), "old");
    link("sub/real.md", "two.md");
    link("two.md", "one.md");
    atomicfile::write(path("one.md"), "new");
    EXPECT_EQ(m_vault.read(QStringLiteral("sub/real.md")), "new");
    EXPECT_TRUE(S_ISLNK(status("one.md").st_mode));
    EXPECT_TRUE(S_ISLNK(status("two.md").st_mode));
    EXPECT_EQ(QDir(path("sub")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("real.md")});
}

TEST_F(AtomicFile, MakesTheTargetOfALinkThatLeadsToNothing) {
    m_vault.write(QStringLiteral("sub/other"), "");
    link("sub/real.md", "one.md");
    atomicfile::write(path("one.md"), "new");
    EXPECT_EQ(m_vault.read(QStringLiteral("sub/real.md")), "new");
    EXPECT_TRUE(S_ISLNK(status("one.md").st_mode));
}

TEST_F(AtomicFile, RefusesALinkThatLeadsToItself) {
    link("b", "a");
    link("a", "b");
    EXPECT_EQ(writeCode("a"), ELOOP);
    EXPECT_EQ(readCode("a"), ELOOP);
}

TEST_F(AtomicFile, RefusesWhatIsNoFile) {
    QDir(m_vault.path()).mkdir(QStringLiteral("folder"));
    ASSERT_EQ(::mkfifo(encoded("pipe").constData(), 0600), 0);
    EXPECT_EQ(writeCode("folder"), EISDIR);
    EXPECT_EQ(writeCode("pipe"), EINVAL);
    EXPECT_EQ(readCode("folder"), EISDIR);
    EXPECT_EQ(readCode("pipe"), EINVAL);
    EXPECT_EQ(m_vault.names(), QStringList{QStringLiteral("folder")});
    EXPECT_TRUE(S_ISFIFO(status("pipe").st_mode));
}

TEST_F(AtomicFile, FailsWithoutTheFolderAndMakesNone) {
    EXPECT_EQ(writeCode("none/a"), ENOENT);
    EXPECT_EQ(readCode("none/a"), ENOENT);
    EXPECT_EQ(atomicfile::tryRead(path("none/a")), std::nullopt);
    EXPECT_TRUE(m_vault.names().isEmpty());
}

TEST_F(AtomicFile, NamesThePathThatFailed) {
    try {
        (void)atomicfile::read(path("none"));
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.path(), path("none"));
        EXPECT_STRNE(error.what(), "");
    }
}

TEST_F(AtomicFile, TakesNamesAsLongAsTheFileSystemDoes) {
    const QString name(255, u'x');
    atomicfile::write(m_vault.filePath(name), "text");
    EXPECT_EQ(m_vault.names(), QStringList{name});
}

TEST_F(AtomicFile, ReadsOldOrNewBytesWholeWhileOthersWrite) {
    const QByteArray old(70'000, 'a');
    const QByteArray other(90'000, 'b');
    atomicfile::write(path("a"), old);
    std::atomic<bool> isDone = false;
    std::thread writer([&] {
        for (int i = 0; i < 50; ++i) {
            atomicfile::write(path("a"), i % 2 == 0 ? other : old,
                              atomicfile::Durability::Unsynced);
        }
        isDone = true;
    });
    while (!isDone) {
        const QByteArray bytes = atomicfile::read(path("a"));
        ASSERT_TRUE(bytes == old || bytes == other);
    }
    writer.join();
}

TEST_F(AtomicFile, ReadsFilesWhoseSizeTheSystemDoesNotTell) {
    EXPECT_FALSE(atomicfile::read(QStringLiteral("/proc/self/stat")).isEmpty());
}

TEST_F(AtomicFile, WritesOverNothingButWhatIsExpected) {
    const auto code = [&](const std::optional<QByteArray>& expected, const char* bytes) {
        return codeOf(FileOperation::Write,
                      [&] { atomicfile::writeOver(path("a"), expected, bytes); });
    };
    EXPECT_EQ(code("old", "x"), ESTALE) << "it is gone";
    EXPECT_EQ(code(std::nullopt, "first"), 0);
    EXPECT_EQ(code(std::nullopt, "x"), ESTALE) << "it has come";
    EXPECT_EQ(code("firs", "x"), ESTALE);
    EXPECT_EQ(atomicfile::read(path("a")), "first");
    EXPECT_EQ(code("first", "second"), 0);
    EXPECT_EQ(atomicfile::read(path("a")), "second");
    EXPECT_EQ(m_vault.names().size(), 1) << "no temporary is left";
}

TEST_F(AtomicFile, MakesFoldersWithThoseAboveThem) {
    atomicfile::makeFolder(path("a/b/c"));
    EXPECT_TRUE(QFileInfo(path("a/b/c")).isDir());
    EXPECT_NO_THROW(atomicfile::makeFolder(path("a/b/c/")));
    atomicfile::makePrivateFolder(path("a/p/q"));
    EXPECT_EQ(status("a/p").st_mode & 0777U, 0700U);
    EXPECT_EQ(status("a/p/q").st_mode & 0777U, 0700U);
}

TEST_F(AtomicFile, TakesALinkToAFolderForAFolder) {
    atomicfile::makeFolder(path("real"));
    link("real", "link");
    EXPECT_NO_THROW(atomicfile::makeFolder(path("link")));
    atomicfile::makeFolder(path("link/sub"));
    EXPECT_TRUE(QFileInfo(path("real/sub")).isDir());
}

TEST_F(AtomicFile, MakesNoFolderWhereAFileStands) {
    m_vault.write(QStringLiteral("file"), "");
    const auto code = [&](const char* name) {
        return codeOf(FileOperation::MakeFolder, [&] { atomicfile::makeFolder(path(name)); });
    };
    EXPECT_EQ(code("file"), EEXIST);
    EXPECT_EQ(code("file/sub"), ENOTDIR);
}

TEST_F(AtomicFile, MovesAndReplaces) {
    m_vault.write(QStringLiteral("sub/a"), "new");
    m_vault.write(QStringLiteral("b"), "old");
    atomicfile::move(path("sub/a"), path("b"));
    EXPECT_EQ(m_vault.read(QStringLiteral("b")), "new");
    EXPECT_FALSE(m_vault.exists(QStringLiteral("sub/a")));
}

TEST_F(AtomicFile, MovesWithoutReplacingIfAsked) {
    m_vault.write(QStringLiteral("a"), "new");
    m_vault.write(QStringLiteral("b"), "old");
    const auto moveTo = [&](const char* to) {
        return codeOf(FileOperation::Move,
                      [&] { atomicfile::move(path("a"), path(to), Replacing::No); });
    };
    EXPECT_EQ(moveTo("b"), EEXIST);
    EXPECT_EQ(m_vault.read(QStringLiteral("b")), "old");
    EXPECT_EQ(moveTo("c"), 0);
    EXPECT_EQ(m_vault.read(QStringLiteral("c")), "new");
    EXPECT_EQ(moveTo("d"), ENOENT);
}

TEST_F(AtomicFile, RemovesOnlyTemporariesOfTheDead) {
    ProcessIdentity dead = ProcessIdentity::current();
    test::ChildProcess child([](const auto&) { return 0; });
    dead.pid = child.pid();
    child.join();
    ProcessIdentity foreign = dead;
    foreign.host = QStringLiteral("elsewhere");
    const QString day = QStringLiteral("03-07.md");
    m_vault.write(temporaryName(day, dead), "dead");
    m_vault.write(temporaryName(day, dead), "dead");
    const QString living = temporaryName(day, ProcessIdentity::current());
    const QString others = temporaryName(day, foreign);
    const QStringList staying = {living, others, day, QStringLiteral(".~lock.03-07.md#")};
    for (const QString& name : staying) m_vault.write(name, "stays");
    EXPECT_EQ(atomicfile::removeAbandonedTemporaries(m_vault.path()), 2);
    EXPECT_THAT(m_vault.names(), testing::UnorderedElementsAreArray(staying));
    EXPECT_EQ(atomicfile::removeAbandonedTemporaries(m_vault.path()), 0);
    EXPECT_EQ(atomicfile::removeAbandonedTemporaries(path("none")), 0);
}

}  // namespace
}  // namespace diary
