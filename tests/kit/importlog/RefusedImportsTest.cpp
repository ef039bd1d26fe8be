// Imports that the system itself refuses: a real full disk, real permissions.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/kit/importlog/WrittenBatch.h"
#include "tests/support/ForkedStep.h"
#include "tests/support/SystemRefusals.h"

namespace diary::test {
namespace {

constexpr int kDays = 60;

class RefusedImports : public testing::Test {
protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only the superuser may mount or change the user";
    }

    // Runs the step in a process whose current folder is the vault. Paths are relative there,
    // since an ordinary user can't pass the folders above.
    [[nodiscard]] std::string inVault(const std::function<std::string()>& step) const {
        return wordsOfFork([&]() -> std::string {
            if (!QDir::setCurrent(m_vault.path())) return "no vault";
            return step();
        });
    }

    TemporaryVault m_vault;
};

// The code that the import fails with; 0 if it doesn't.
int importCode(const ImportBatch& batch) {
    try {
        importInto(QStringLiteral("."), batch);
    } catch (const FileError& error) {
        return error.code();
    }
    return 0;
}

// Fills the disk with an import, makes room again, and undoes it.
std::string fillAndUndo() {
    const QString filler = QStringLiteral("filler");
    atomicfile::write(filler, QByteArray(16'384, 'x'));
    const ImportBatch batch =
        writtenBatch(QStringLiteral("dayOne"), kDays, QString(500, QLatin1Char('x')));
    if (const int code = importCode(batch); code != ENOSPC) {
        return "failed with " + std::to_string(code);
    }
    const auto all = ImportLog::records(QStringLiteral("."), moment());
    if (all.size() != 1) return "no record";
    if (all[0].state != ImportRecord::State::writing) return "not interrupted";
    if (all[0].days < 2 || all[0].days >= kDays) return "days: " + std::to_string(all[0].days);
    QFile::remove(filler);
    const ImportLog::UndoResult result = ImportLog::undo(all[0], QStringLiteral("."), moment(9));
    if (result.restored < all[0].days - 1) return "restored: " + std::to_string(result.restored);
    const QStringList left = QDir().entryList({QStringLiteral("*.md")}, QDir::Files);
    return left.join(u' ').toStdString();
}

TEST_F(RefusedImports, AFullDiskInterruptsAndUndoWorksWithRoom) {
    const std::string words = wordsOfFork([&]() -> std::string {
        if (!mountSmallDisk(QFile::encodeName(m_vault.path()))) return "no mount";
        return QDir::setCurrent(m_vault.path()) ? fillAndUndo() : "no vault";
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(RefusedImports, WithoutPermissionNothingIsTouched) {
    m_vault.write(QStringLiteral("01-01.md"), "# 01-01\n\n## 2024\n\nold\n");
    ASSERT_EQ(::chmod(QFile::encodeName(m_vault.path()).constData(), 0755), 0);
    EXPECT_EQ(inVault([]() -> std::string {
                  if (!becomeOrdinaryUser()) return "no user";
                  const ImportBatch batch =
                      writtenBatch(QStringLiteral("dayOne"), 3, QStringLiteral("words"));
                  const int code = importCode(batch);
                  return code == EACCES ? "" : "failed with " + std::to_string(code);
              }),
              "");
    EXPECT_EQ(m_vault.names(), QStringList{QStringLiteral("01-01.md")});
    EXPECT_EQ(m_vault.read(QStringLiteral("01-01.md")), "# 01-01\n\n## 2024\n\nold\n");
}

}  // namespace
}  // namespace diary::test
