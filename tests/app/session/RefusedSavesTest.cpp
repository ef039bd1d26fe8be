// Saves that the system itself refuses: a full disk, another user's folder, a folder that is gone.
// The first failure is told once, the editor loses nothing, and the next success clears it.
#include <sys/stat.h>

#include <cerrno>

#include "tests/app/session/SessionFixture.h"
#include "tests/support/ForkedStep.h"
#include "tests/support/SystemRefusals.h"

namespace velmar::test {
namespace {

class RefusedSaves : public SessionFixture {
protected:
    // Saves the text twice more, and says what is wrong if it isn't refused as it should be.
    std::string refusedTwice(const QString& text) {
        session->draftChanged(text);
        session->flushSaveIfDirty();
        session->draftChanged(text + u'!');
        session->flushSaveIfDirty();
        if (told.saveErrors != 1) return "told " + std::to_string(told.saveErrors) + " times";
        if (!session->isDirty() || !told.isEdited) return "counts as saved";
        if (session->draft() != text + u'!') return "the draft is gone";
        return "";
    }

    std::string savedAfterAll() {
        session->flushSaveIfDirty();
        if (session->isDirty() || told.isEdited) return "still refused";
        return onDisk(2026) == session->draft() ? "" : "the file lacks the draft";
    }
};

TEST_F(RefusedSaves, ByAFullDisk) {
    const std::string words = diary::test::wordsOfFork([&]() -> std::string {
        if (!diary::test::mountSmallDisk(QFile::encodeName(vault.path()))) return "no mount";
        vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2001\n\nlong ago\n");
        vault.write(QStringLiteral("ballast"), QByteArray(40960, 'x'));
        session->open(today, Focus::Editor);
        std::string refused = refusedTwice(QString(30720, u'y'));
        if (!refused.empty()) return refused;
        if (file() != u"# 11-21\n\n## 2001\n\nlong ago\n") return "the old text is gone";
        QFile::remove(vault.filePath(QStringLiteral("ballast")));
        return savedAfterAll();
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(RefusedSaves, ByAnothersFolder) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbegun\n");
    const std::string words = diary::test::wordsOfFork([&]() -> std::string {
        if (::geteuid() == 0) {
            // The folders above the vault are the superuser's alone; a user of its own gets there
            // by the current folder only.
            if (!QDir::setCurrent(vault.path()) || !diary::test::becomeOrdinaryUser()) {
                return "no user";
            }
            qputenv("TMPDIR", "/tmp");
        } else if (::chmod(QFile::encodeName(vault.path()).constData(), 0500) != 0) {
            return "no mode";
        }
        diary::DiaryStore others(QStringLiteral("."), {}, clock);
        session = makeSession(others);
        session->open(today, Focus::Editor);
        if (session->draft() != u"begun") return "the file can't be read";
        std::string refused = refusedTwice(QStringLiteral("begun, and more"));
        session.reset();
        return refused;
    });
    EXPECT_EQ(words, "");
    EXPECT_EQ(onDisk(2026), u"begun");
}

TEST_F(RefusedSaves, ByADiskThatIsNotThere) {
    const std::string words = diary::test::wordsOfFork([&]() -> std::string {
        const QByteArray folder = QFile::encodeName(vault.path());
        if (!diary::test::mountSmallDisk(folder)) return "no mount";
        diary::DiaryStore mounted(vault.path(), {}, clock);
        session = makeSession(mounted);
        vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbegun\n");
        session->open(today, Focus::Editor);
        if (::umount(folder.constData()) != 0) return "no unmount";
        session->performRemoteRefresh();
        if (session->draft() != u"begun") return "the page went blank";
        std::string refused = refusedTwice(QStringLiteral("begun, and more"));
        if (!refused.empty()) return refused;
        if (vault.exists(QStringLiteral("11-21.md"))) return "written below the mount point";
        if (!diary::test::mountSmallDisk(folder)) return "no second mount";
        vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbegun\n");
        std::string saved = savedAfterAll();
        session.reset();
        return saved;
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(RefusedSaves, ByAFileWhereTheFolderWas) {
    session->open(today, Focus::Editor);
    QDir(vault.path()).removeRecursively();
    QFile intruder(vault.path());
    ASSERT_TRUE(intruder.open(QIODevice::WriteOnly));
    intruder.close();
    EXPECT_EQ(refusedTwice(QStringLiteral("words")), "");
    ASSERT_TRUE(intruder.remove());
    EXPECT_EQ(savedAfterAll(), "");
}

TEST_F(RefusedSaves, AreNoneWhenTheFolderIsRemovedWhileTyping) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbegun\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("begun, and more"));
    QDir(vault.path()).removeRecursively();
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"begun, and more");
    EXPECT_EQ(savedAfterAll(), "");
    EXPECT_EQ(told.saveErrors, 0);
}

}  // namespace
}  // namespace velmar::test
