// Writes that the system itself refuses: a real full disk, real permissions.
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/KeptTexts.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/ForkedStep.h"
#include "tests/support/SystemRefusals.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using test::becomeOrdinaryUser;
using test::kNobody;
using test::mountSmallDisk;

QString day() {
    return QStringLiteral("03-07.md");
}

// The code that the write fails with; 0 if it doesn't.
int writeCode(const QString& path, const QByteArray& bytes) {
    try {
        atomicfile::write(path, bytes);
    } catch (const FileError& error) {
        return error.code();
    }
    return 0;
}

QStringList allNames(const QString& folder) {
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

class RefusedWrites : public testing::Test {
protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may mount or change the user";
    }

    // Runs the step in a process whose current folder is the vault. Paths are relative there,
    // since an ordinary user can't pass the folders above.
    [[nodiscard]] std::string inVault(const std::function<std::string()>& step) const {
        return test::wordsOfFork([&]() -> std::string {
            if (!QDir::setCurrent(m_vault.path())) return "no vault";
            return step();
        });
    }

    test::TemporaryVault m_vault;
};

std::string growUntilFull(const QString& path) {
    QByteArray bytes = "old";
    for (int size = 1024; size < 1024 * 1024; size += 1024) {
        const QByteArray next(size, 'x');
        const int code = writeCode(path, next);
        if (code == 0) {
            bytes = next;
            continue;
        }
        if (code != ENOSPC) return "failed with " + std::to_string(code);
        return atomicfile::read(path) == bytes ? "" : "the old bytes are gone";
    }
    return "never full";
}

TEST_F(RefusedWrites, OfAFullDiskLeaveTheOldBytesAndNoTemporary) {
    const QByteArray folder = QFile::encodeName(m_vault.path());
    const std::string words = test::wordsOfFork([&]() -> std::string {
        if (!mountSmallDisk(folder)) return "no mount";
        std::string grown = growUntilFull(m_vault.filePath(day()));
        if (!grown.empty()) return grown;
        if (allNames(m_vault.path()) != QStringList{day()}) return "a temporary was left";
        // Once there is room again, all goes on.
        QFile::remove(m_vault.filePath(day()));
        return writeCode(m_vault.filePath(day()), "short") == 0 ? "" : "still full";
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(RefusedWrites, OfKeptTextsGoToTheNextFolderWhenTheFirstIsFull) {
    const QString small = m_vault.filePath(QStringLiteral("small"));
    const QString other = m_vault.filePath(QStringLiteral("other"));
    QDir().mkpath(small);
    const std::string words = test::wordsOfFork([&]() -> std::string {
        if (!mountSmallDisk(QFile::encodeName(small))) return "no mount";
        const KeptTexts texts(m_vault.path(), {small, other});
        const QByteArray bytes(100'000, 'x');
        const KeptText text = texts.keep(QStringLiteral("03-07"), 2024, KeptReason::UnsavedDraft,
                                         bytes, QDateTime::fromSecsSinceEpoch(1'000'000));
        if (!text.path.startsWith(other)) return "kept in the full folder";
        if (atomicfile::read(text.path) != bytes) return "kept in part";
        const auto listed = texts.list(QStringLiteral("03-07"), KeptReason::UnsavedDraft);
        return listed == std::vector{text} ? "" : "something else is listed";
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(RefusedWrites, ToAnothersFolderLeaveTheOldBytes) {
    m_vault.write(day(), "old");
    ASSERT_EQ(::chmod(QFile::encodeName(m_vault.path()).constData(), 0755), 0);
    EXPECT_EQ(inVault([]() -> std::string {
                  if (!becomeOrdinaryUser()) return "still the superuser";
                  const int code = writeCode(day(), "new");
                  return code == EACCES ? "" : "failed with " + std::to_string(code);
              }),
              "");
    EXPECT_EQ(m_vault.read(day()), "old");
    EXPECT_EQ(m_vault.names(), QStringList{day()});
}

TEST_F(RefusedWrites, OfAnOwnerThatMayNotBeSetGoOnWithoutIt) {
    m_vault.write(day(), "old");
    const QByteArray vault = QFile::encodeName(m_vault.path());
    const QByteArray file = QFile::encodeName(m_vault.filePath(day()));
    ASSERT_EQ(::chown(vault.constData(), kNobody, kNobody), 0);
    ASSERT_EQ(::chmod(file.constData(), 0640), 0);
    EXPECT_EQ(inVault([]() -> std::string {
                  if (!becomeOrdinaryUser()) return "still the superuser";
                  return writeCode(day(), "new") == 0 ? "" : "the write failed";
              }),
              "");
    EXPECT_EQ(m_vault.read(day()), "new");
    struct stat status {};
    ASSERT_EQ(::stat(file.constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    EXPECT_EQ(status.st_uid, kNobody);
}

TEST_F(RefusedWrites, ReadsOfAClosedFileSayWhy) {
    m_vault.write(day(), "old");
    ASSERT_EQ(::chmod(QFile::encodeName(m_vault.filePath(day())).constData(), 0600), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(m_vault.path()).constData(), 0755), 0);
    EXPECT_EQ(inVault([]() -> std::string {
                  if (!becomeOrdinaryUser()) return "still the superuser";
                  try {
                      (void)atomicfile::read(day());
                  } catch (const FileError& error) {
                      return error.code() == EACCES ? "" : error.what();
                  }
                  return "it was read";
              }),
              "");
}

}  // namespace
}  // namespace diary
