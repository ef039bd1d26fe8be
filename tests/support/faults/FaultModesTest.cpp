// What the fault library promises, each mode on a small program.
#include <sys/stat.h>

#include <cerrno>

#include "tests/support/TemporaryVault.h"
#include "tests/support/faults/FaultyRun.h"

namespace diary::test {
namespace {

QString latin1(const char* text) {
    return QString::fromLatin1(text);
}

class FaultModes : public testing::Test {
protected:
    FaultModes() {
        m_vault.write(QStringLiteral("a"), "old");
        QDir(m_vault.path()).mkdir(QStringLiteral("empty"));
    }

    FaultyRun run(const char* way, const Faults& faults) const {
        return runWriter(latin1(way), m_vault.path(), faults);
    }
    // The same, and the program must not survive it.
    void killed(const char* way, const Faults& faults) const {
        EXPECT_FALSE(run(way, faults).isEnded) << way;
    }
    void powerCutAtExit(const char* way, const char* keep) const {
        killed(way,
               {{latin1("POWERCUT_AT"), latin1("exit")}, {latin1("POWERCUT_KEEP"), latin1(keep)}});
    }
    [[nodiscard]] QByteArray bytes(const char* name) const { return m_vault.read(latin1(name)); }
    [[nodiscard]] bool exists(const char* name) const { return m_vault.exists(latin1(name)); }
    // The names of the counted calls in their order.
    [[nodiscard]] QByteArrayList calls(const char* way, const Faults& faults = {}) const {
        return callsOfWriter(latin1(way), m_vault.path(), faults);
    }

    TemporaryVault m_vault;
};

TEST_F(FaultModes, CountListsTheCallsThatChangeFiles) {
    EXPECT_EQ(calls("rename-with-sync"),
              (QByteArrayList{"open", "write", "fsync", "rename", "fsync"}));
    EXPECT_EQ(calls("make-folder"), (QByteArrayList{"mkdir", "open", "write", "fsync"}));
    EXPECT_EQ(calls("make-links"), (QByteArrayList{"symlink", "link"}));
    EXPECT_EQ(calls("shorten"), QByteArrayList{"truncate"});
    EXPECT_EQ(calls("remove-folder"), QByteArrayList{"rmdir"});
    EXPECT_EQ(calls("remove-file"), QByteArrayList{"unlink"});
}

TEST_F(FaultModes, CountSeesWhatQtDoes) {
    const QByteArrayList names = calls("qt");
    ASSERT_GE(names.size(), 4);
    EXPECT_TRUE(names[0].startsWith("open"));
    EXPECT_EQ(names[1], "write");
    EXPECT_TRUE(names.contains("unlink"));
    EXPECT_TRUE(names.last().startsWith("rename")) << names.join(' ').constData();
    EXPECT_EQ(bytes("a"), "new text");
}

TEST_F(FaultModes, CountMayBeNarrowedToSomeCalls) {
    EXPECT_EQ(calls("rename-with-sync", {{latin1("ONLY"), latin1("fsync,rename")}}),
              (QByteArrayList{"fsync", "rename", "fsync"}));
}

TEST_F(FaultModes, CallsOutsideTheRootsPass) {
    const TemporaryVault elsewhere;
    const FaultyRun run = runWithFaults(
        QStringLiteral(VELMAR_BINARY_DIR "/bin/velmar_faults_writer"),
        {latin1("in-place"), m_vault.path()}, elsewhere.path(), {{latin1("KILL_AT"), latin1("1")}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(bytes("a"), "new text");
}

TEST_F(FaultModes, TheSecondRootCountsToo) {
    const TemporaryVault elsewhere;
    const FaultyRun run =
        runWithFaults(QStringLiteral(VELMAR_BINARY_DIR "/bin/velmar_faults_writer"),
                      {latin1("in-place"), m_vault.path()}, elsewhere.path(),
                      {{latin1("ROOT2"), m_vault.path()}, {latin1("KILL_AT"), latin1("1")}});
    EXPECT_FALSE(run.isEnded);
    EXPECT_EQ(bytes("a"), "old");
}

TEST_F(FaultModes, KillComesBeforeOrAfterTheCall) {
    killed("in-place", {{latin1("KILL_AT"), latin1("1")}});
    EXPECT_EQ(bytes("a"), "old");
    killed("in-place", {{latin1("KILL_AT"), latin1("1")}, {latin1("KILL_WHEN"), latin1("after")}});
    EXPECT_EQ(bytes("a"), "");
    killed("in-place", {{latin1("KILL_AT"), latin1("2")}, {latin1("KILL_WHEN"), latin1("after")}});
    EXPECT_EQ(bytes("a"), "new text");
}

TEST_F(FaultModes, KillMayTearAWrite) {
    killed("in-place", {{latin1("KILL_AT"), latin1("2")}, {latin1("KILL_WHEN"), latin1("torn")}});
    EXPECT_EQ(bytes("a"), "new ");
}

TEST_F(FaultModes, KillBehindTheLastCallNeverComes) {
    EXPECT_EQ(run("in-place", {{latin1("KILL_AT"), latin1("3")}}).exitCode, 0);
}

TEST_F(FaultModes, FailureIsOfOneCallWithItsCode) {
    const FaultyRun result = run("atomic-file", {{latin1("ONLY"), latin1("write")},
                                                 {latin1("FAIL_AT"), latin1("1")},
                                                 {latin1("ERRNO"), QString::number(ENOSPC)}});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(bytes("a"), "old");
    EXPECT_EQ(m_vault.names(), (QStringList{latin1("a"), latin1("empty")}));
}

TEST_F(FaultModes, FailureMayLastForever) {
    const FaultyRun result = run(
        "atomic-file", {{latin1("FAIL_AT"), latin1("2")}, {latin1("FAIL_FOREVER"), latin1("1")}});
    EXPECT_EQ(result.exitCode, 1);
    // Nor could the temporary be removed.
    EXPECT_EQ(m_vault.names().size(), 3);
}

TEST_F(FaultModes, PowerCutEmptiesAFileRenamedWithoutSync) {
    powerCutAtExit("rename-without-sync", "names");
    EXPECT_EQ(bytes("a"), "");
    EXPECT_FALSE(exists("t"));
}

TEST_F(FaultModes, PowerCutUndoesARenameWithoutFolderSync) {
    for (const char* keep : {"data", "none"}) {
        powerCutAtExit("rename-without-folder-sync", keep);
        EXPECT_EQ(bytes("a"), "old") << keep;
        EXPECT_FALSE(exists("t"));
    }
}

TEST_F(FaultModes, PowerCutSparesWhatWasSynced) {
    for (const char* keep : {"none", "names", "data"}) {
        m_vault.write(latin1("a"), "old");
        powerCutAtExit("rename-with-sync", keep);
        EXPECT_EQ(bytes("a"), "new text") << keep;
        EXPECT_FALSE(exists("t"));
    }
}

TEST_F(FaultModes, PowerCutBringsUnsyncedBytesBack) {
    for (const char* way : {"in-place", "append", "shorten"}) {
        for (const char* keep : {"none", "names"}) {
            powerCutAtExit(way, keep);
            EXPECT_EQ(bytes("a"), "old") << way << keep;
        }
    }
    powerCutAtExit("in-place", "data");
    EXPECT_EQ(bytes("a"), "new text");
}

TEST_F(FaultModes, PowerCutUndoesNamesOfEveryKind) {
    ASSERT_EQ(::chmod(QFile::encodeName(m_vault.filePath(latin1("a"))).constData(), 0640), 0);
    for (const char* way :
         {"remove-file", "make-folder", "remove-folder", "make-links", "move-between-folders"}) {
        powerCutAtExit(way, "data");
        EXPECT_EQ(m_vault.names(), (QStringList{latin1("a"), latin1("empty")})) << way;
        EXPECT_EQ(bytes("a"), "old") << way;
        EXPECT_TRUE(QDir(m_vault.filePath(latin1("empty"))).isEmpty()) << way;
    }
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(m_vault.filePath(latin1("a"))).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(FaultModes, PowerCutKeepsNamesIfAsked) {
    powerCutAtExit("remove-file", "names");
    EXPECT_FALSE(exists("a"));
    powerCutAtExit("make-folder", "names");
    EXPECT_EQ(bytes("made/x"), "x");
}

TEST_F(FaultModes, PowerCutComesAheadOfItsCall) {
    killed("rename-with-sync",
           {{latin1("POWERCUT_AT"), latin1("4")}, {latin1("POWERCUT_KEEP"), latin1("names")}});
    EXPECT_EQ(bytes("a"), "old");
    EXPECT_EQ(bytes("t"), "new text");
}

}  // namespace
}  // namespace diary::test
