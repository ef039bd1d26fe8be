#include "DiaryApp/Settings/VaultFolder.h"

#include "SettingsFixture.h"
#include "tests/support/ForkedStep.h"
#include "tests/support/SystemRefusals.h"

namespace velmar {
namespace {

using vaultfolder::Problem;
using vaultfolder::problem;

class VaultFolderTest : public test::SettingsFixture {
protected:
    [[nodiscard]] QString inHome(const char* path) const {
        return home() + QLatin1Char('/') + QString::fromUtf8(path);
    }
};

TEST_F(VaultFolderTest, AFolderThatIsThereOrCanBeMadeIsFine) {
    QDir().mkpath(inHome("Tägebuch"));
    EXPECT_EQ(problem(inHome("Tägebuch")), std::nullopt);
    EXPECT_EQ(problem(inHome("Tägebuch/")), std::nullopt);
    EXPECT_EQ(problem(inHome("not/yet/there")), std::nullopt);
    EXPECT_FALSE(QDir(inHome("not")).exists()) << "asking makes nothing";
}

TEST_F(VaultFolderTest, AFileIsNoFolder) {
    touch(inHome("notes.txt"));
    EXPECT_EQ(problem(inHome("notes.txt")), Problem::NotAFolder);
    EXPECT_EQ(problem(inHome("notes.txt/diary")), Problem::CannotBeMade);
    EXPECT_EQ(problem(QString()), Problem::CannotBeMade);
}

TEST_F(VaultFolderTest, ALinkCountsAsWhatItLeadsTo) {
    QDir().mkpath(inHome("real"));
    QFile::link(inHome("real"), inHome("link"));
    EXPECT_EQ(problem(inHome("link")), std::nullopt);
    QFile::link(inHome("gone"), inHome("dangling"));
    EXPECT_EQ(problem(inHome("dangling")), Problem::NotAFolder);
}

// The superuser may write anywhere, so the question is asked as somebody else.
TEST_F(VaultFolderTest, AFolderOfSomebodyElsesIsNotWritable) {
    if (::geteuid() != 0) {
        const QFile::Permissions closed = QFile::ReadOwner | QFile::ExeOwner;
        QDir().mkpath(inHome("closed"));
        QFile::setPermissions(inHome("closed"), closed);
        EXPECT_EQ(problem(inHome("closed")), Problem::NotWritable);
        EXPECT_EQ(problem(inHome("closed/new")), Problem::CannotBeMade);
        return;
    }
    const QTemporaryDir open(QStringLiteral("/tmp/velmar-folder-XXXXXX"));
    QFile::setPermissions(open.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                           QFile::ReadOther | QFile::ExeOther);
    const std::string words = diary::test::wordsOfFork([&]() -> std::string {
        if (!diary::test::becomeOrdinaryUser()) return "still the superuser";
        if (problem(open.path()) != Problem::NotWritable) return "writable";
        if (problem(open.filePath(QStringLiteral("new"))) != Problem::CannotBeMade)
            return "makeable";
        return {};
    });
    EXPECT_EQ(words, "");
}

}  // namespace
}  // namespace velmar
