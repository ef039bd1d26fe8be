#include "DiaryKit/Files/FileStamp.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "DiaryKit/Files/AtomicFile.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

// Of a file that must be there.
FileStamp stampOf(const QString& path) {
    const std::optional<FileStamp> stamp = fileStamp(path);
    EXPECT_TRUE(stamp);
    return stamp.value_or(FileStamp{});
}

TEST(FileStamp, IsAbsentForAMissingFile) {
    const test::TemporaryVault vault;
    EXPECT_EQ(fileStamp(vault.filePath(QStringLiteral("03-07.md"))), std::nullopt);
}

TEST(FileStamp, StaysWhileNobodyWrites) {
    const test::TemporaryVault vault;
    const QString path = vault.filePath(QStringLiteral("03-07.md"));
    vault.write(QStringLiteral("03-07.md"), "text");
    const auto before = fileStamp(path);
    ASSERT_TRUE(before);
    EXPECT_EQ(before.value_or(FileStamp{}).size, 4);
    (void)atomicfile::read(path);
    EXPECT_EQ(fileStamp(path), before);
}

TEST(FileStamp, TellsTheModificationMomentToTheNanosecond) {
    const test::TemporaryVault vault;
    vault.write(QStringLiteral("03-07.md"), "text");
    const QString path = vault.filePath(QStringLiteral("03-07.md"));
    const timespec times[2] = {{.tv_sec = 5, .tv_nsec = 7}, {.tv_sec = 12, .tv_nsec = 345'678'901}};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    EXPECT_EQ(stampOf(path).modified, 12'345'678'901);
}

TEST(FileStamp, DiffersAfterAReplacementOfTheSameLengthAndMoment) {
    const test::TemporaryVault vault;
    const QString path = vault.filePath(QStringLiteral("03-07.md"));
    const timespec times[2] = {{.tv_sec = 9, .tv_nsec = 0}, {.tv_sec = 9, .tv_nsec = 0}};
    atomicfile::write(path, "one");
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    const FileStamp before = stampOf(path);
    atomicfile::write(path, "two");
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    EXPECT_EQ(stampOf(path).modified, before.modified);
    EXPECT_NE(stampOf(path), before);
}

}  // namespace
}  // namespace diary
