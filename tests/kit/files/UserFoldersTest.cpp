#include "DiaryKit/Files/UserFolders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include "tests/support/Environment.h"

namespace diary {
namespace {

mode_t modeOf(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class UserFolders : public testing::Test {
protected:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    void makeFolder(const QString& name) const { QDir(m_folder.path()).mkpath(name); }
    void makeFile(const QString& name) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QTemporaryDir m_folder;
};

TEST_F(UserFolders, RuntimeFolderIsMadeInTheGivenOne) {
    const test::Environment given("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    const QString folder = userRuntimeFolder();
    EXPECT_EQ(folder, path(QStringLiteral("velmar")));
    EXPECT_EQ(modeOf(folder), 0700U);
}

TEST_F(UserFolders, RuntimeFolderFallsBackWhereAFileStandsInItsPlace) {
    makeFile(QStringLiteral("velmar"));
    const test::Environment given("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    const test::Environment temporary("TMPDIR", m_folder.path().toUtf8());
    const QString folder = userRuntimeFolder();
    EXPECT_FALSE(folder.isEmpty());
    EXPECT_NE(folder, path(QStringLiteral("velmar")));
    EXPECT_EQ(modeOf(folder), 0700U);
}

TEST_F(UserFolders, RuntimeFolderIgnoresARelativePath) {
    const test::Environment given("XDG_RUNTIME_DIR", "run");
    const test::Environment temporary("TMPDIR", m_folder.path().toUtf8());
    EXPECT_TRUE(QDir::isAbsolutePath(userRuntimeFolder()));
}

TEST_F(UserFolders, TemporaryFolderRefusesALink) {
    makeFolder(QStringLiteral("elsewhere"));
    const QString name = QStringLiteral("velmar-%1").arg(::geteuid());
    ASSERT_TRUE(QFile::link(path(QStringLiteral("elsewhere")), path(name)));
    const test::Environment temporary("TMPDIR", m_folder.path().toUtf8());
    EXPECT_EQ(userTemporaryFolder(), QString());
}

TEST_F(UserFolders, TemporaryFolderIsClosedToOthers) {
    const QString name = QStringLiteral("velmar-%1").arg(::geteuid());
    makeFolder(name);
    ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), 0777), 0);
    const test::Environment temporary("TMPDIR", m_folder.path().toUtf8());
    EXPECT_EQ(userTemporaryFolder(), path(name));
    EXPECT_EQ(modeOf(path(name)), 0700U);
}

TEST_F(UserFolders, TemporaryFolderRefusesAnothersFolder) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can give a folder away";
    const QString name = QStringLiteral("velmar-%1").arg(::geteuid());
    makeFolder(name);
    ASSERT_EQ(::chown(QFile::encodeName(path(name)).constData(), 65534, 65534), 0);
    const test::Environment temporary("TMPDIR", m_folder.path().toUtf8());
    EXPECT_EQ(userTemporaryFolder(), QString());
}

TEST_F(UserFolders, StateFolderFollowsTheEnvironmentAndIsNotMade) {
    const test::Environment given("XDG_STATE_HOME", m_folder.path().toUtf8());
    EXPECT_EQ(userStateFolder(), path(QStringLiteral("velmar")));
    EXPECT_FALSE(QFile::exists(userStateFolder()));
}

TEST_F(UserFolders, StateFolderLiesAtHomeByDefault) {
    const test::Environment given("XDG_STATE_HOME", "state");
    const test::Environment home("HOME", m_folder.path().toUtf8());
    EXPECT_EQ(userStateFolder(), path(QStringLiteral(".local/state/velmar")));
}

TEST_F(UserFolders, ResolvedPathIsOneForAllSpellings) {
    makeFolder(QStringLiteral("real/vault"));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("real")), path(QStringLiteral("link"))));
    const QString key = resolvedPath(path(QStringLiteral("real/vault")));
    for (const auto& spelling : {"real/vault/", "real//vault", "real/./vault", "link/vault",
                                 "real/../link/vault", "link/../real/vault"}) {
        EXPECT_EQ(resolvedPath(path(QString::fromLatin1(spelling))), key) << spelling;
    }
}

TEST_F(UserFolders, ResolvedPathIsTheSameBeforeAndAfterTheVaultIsMade) {
    makeFolder(QStringLiteral("real"));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("real")), path(QStringLiteral("link"))));
    const QString spelling = path(QStringLiteral("link/new/./vault/"));
    const QString before = resolvedPath(spelling);
    makeFolder(QStringLiteral("real/new/vault"));
    EXPECT_EQ(resolvedPath(spelling), before);
}

TEST_F(UserFolders, ResolvedPathFollowsALinkThatLeadsToNothingYet) {
    ASSERT_TRUE(QFile::link(QStringLiteral("disk/vault"), path(QStringLiteral("link"))));
    const QString before = resolvedPath(path(QStringLiteral("link")));
    makeFolder(QStringLiteral("disk/vault"));
    EXPECT_EQ(resolvedPath(path(QStringLiteral("link"))), before);
    EXPECT_EQ(before, resolvedPath(path(QStringLiteral("disk/vault"))));
}

TEST_F(UserFolders, ResolvedPathOfAnEndlessLinkEnds) {
    ASSERT_TRUE(QFile::link(QStringLiteral("b"), path(QStringLiteral("a"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("a"), path(QStringLiteral("b"))));
    EXPECT_FALSE(resolvedPath(path(QStringLiteral("a"))).isEmpty());
}

}  // namespace
}  // namespace diary
