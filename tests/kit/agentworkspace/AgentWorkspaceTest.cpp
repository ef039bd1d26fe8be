#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QtCore/QDirIterator>
#include <QtCore/QTemporaryDir>
#include <cerrno>

#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using AgentWorkspace::Language;
using AgentWorkspace::Target;

const QDateTime kNoon(QDate(2026, 11, 15), QTime(12, 0));

// What stands below a folder, folders with a slash behind them.
QStringList listing(const QString& path) {
    QStringList names;
    QDirIterator item(path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (item.hasNext()) {
        item.next();
        const bool isFolder = item.fileInfo().isDir() && !item.fileInfo().isSymLink();
        names << QDir(path).relativeFilePath(item.filePath());
        if (isFolder) names.last() += u'/';
    }
    names.sort();
    return names;
}

QByteArray content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

class AgentWorkspaceFolders : public testing::Test {
protected:
    [[nodiscard]] QString parent() const { return m_parent.path(); }

    QString import(const QString& source, Language language = Language::english) {
        return AgentWorkspace::createImport(source, QStringLiteral("Old Diary"), parent(), language,
                                            QTimeZone("Asia/Tokyo"), kNoon);
    }
    QString exportAll(const QString& vault) {
        return AgentWorkspace::createExport(vault, Target::word, parent(), Language::english,
                                            QTimeZone("Asia/Tokyo"), kNoon);
    }

    const test::TemporaryVault m_files;

private:
    QTemporaryDir m_parent;
};

TEST_F(AgentWorkspaceFolders, OfOneDayAreNumbered) {
    m_files.write(QStringLiteral("export.zip"), "PK");
    const QString zip = m_files.filePath(QStringLiteral("export.zip"));
    EXPECT_EQ(QDir(import(zip)).dirName(), QStringLiteral("Velmar Import 2026-11-15"));
    EXPECT_EQ(QDir(import(zip)).dirName(), QStringLiteral("Velmar Import 2026-11-15 2"));
    EXPECT_EQ(QDir(import(zip)).dirName(), QStringLiteral("Velmar Import 2026-11-15 3"));
}

TEST_F(AgentWorkspaceFolders, PassOverANameThatAFileTook) {
    QFile taken(parent() + QStringLiteral("/Velmar Export 2026-11-15"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    EXPECT_EQ(QDir(exportAll(m_files.path())).dirName(),
              QStringLiteral("Velmar Export 2026-11-15 2"));
}

TEST_F(AgentWorkspaceFolders, OfAnImportHoldAZipAsItIsAndAreNamedInTheirLanguage) {
    m_files.write(QStringLiteral("备份.zip"), QByteArray("PK\3\4\0\xff", 6));
    const QString folder = import(m_files.filePath(QStringLiteral("备份.zip")), Language::japanese);
    EXPECT_EQ(QDir(folder).dirName(), QStringLiteral("Velmar 取り込み 2026-11-15"));
    QStringList expected = {QStringLiteral("AGENTS.md"),         QStringLiteral("CLAUDE.md"),
                            QStringLiteral("VELMAR.md"),         QStringLiteral("元データ/"),
                            QStringLiteral("元データ/备份.zip"), QStringLiteral("出力/")};
    expected.sort();
    EXPECT_EQ(listing(folder), expected);
    EXPECT_EQ(content(folder + QStringLiteral("/元データ/备份.zip")),
              QByteArray("PK\3\4\0\xff", 6));
    EXPECT_EQ(QString::fromUtf8(content(folder + QStringLiteral("/VELMAR.md"))),
              AgentWorkspace::importSpec(QStringLiteral("Old Diary"), QTimeZone("Asia/Tokyo"),
                                         Language::japanese));
    EXPECT_EQ(content(folder + QStringLiteral("/AGENTS.md")),
              content(folder + QStringLiteral("/CLAUDE.md")));
}

TEST_F(AgentWorkspaceFolders, OfAnImportHoldAFolderWithAllThatIsInIt) {
    m_files.write(QStringLiteral("a.txt"), "a");
    m_files.write(QStringLiteral("2020/.hidden"), "b");
    QFile::link(QStringLiteral(".."), m_files.filePath(QStringLiteral("2020/around")));
    ASSERT_EQ(mkfifo(QFile::encodeName(m_files.filePath(QStringLiteral("pipe"))).constData(), 0600),
              0);
    const QString folder = import(m_files.path() + u'/');
    EXPECT_EQ(
        listing(folder + QStringLiteral("/source")),
        QStringList({QStringLiteral("my väult/"), QStringLiteral("my väult/2020/"),
                     QStringLiteral("my väult/2020/.hidden"),
                     QStringLiteral("my väult/2020/around"), QStringLiteral("my väult/a.txt")}));
}

TEST_F(AgentWorkspaceFolders, OfAnImportHoldAFolderThatMayNotBeWrittenTo) {
    m_files.write(QStringLiteral("2020/a.txt"), "a");
    const QString readOnly = m_files.filePath(QStringLiteral("2020"));
    ASSERT_EQ(chmod(QFile::encodeName(readOnly).constData(), 0555), 0);
    const QString folder = import(m_files.path());
    chmod(QFile::encodeName(readOnly).constData(), 0755);
    EXPECT_EQ(content(folder + QStringLiteral("/source/my väult/2020/a.txt")), QByteArray("a"));
}

TEST_F(AgentWorkspaceFolders, MadeInsideTheFolderThatTheyCopyDontCopyThemselves) {
    m_files.write(QStringLiteral("a.txt"), "a");
    const QString folder = AgentWorkspace::createImport(m_files.path(), QString(), m_files.path(),
                                                        Language::english, QTimeZone::utc(), kNoon);
    EXPECT_EQ(listing(folder + QStringLiteral("/source")),
              QStringList({QStringLiteral("my väult/"), QStringLiteral("my väult/a.txt")}));
}

TEST_F(AgentWorkspaceFolders, TellWhichFileOfTheSourceIsMissing) {
    try {
        import(m_files.filePath(QStringLiteral("gone.zip")));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), ENOENT);
        EXPECT_EQ(error.path(), m_files.filePath(QStringLiteral("gone.zip")));
    }
}

TEST_F(AgentWorkspaceFolders, ThatCantBeMadeAreAFailureOfTheirParent) {
    m_files.write(QStringLiteral("a.txt"), "a");
    const QString file = m_files.filePath(QStringLiteral("a.txt"));
    EXPECT_THROW(AgentWorkspace::createImport(file, QString(), file, Language::english,
                                              QTimeZone::utc(), kNoon),
                 FileError);
}

TEST_F(AgentWorkspaceFolders, OfAnExportOfAnEmptyVaultAreComplete) {
    const QString folder = exportAll(m_files.path());
    EXPECT_EQ(QDir(folder).dirName(), QStringLiteral("Velmar Export 2026-11-15"));
    EXPECT_EQ(listing(folder),
              QStringList({QStringLiteral("AGENTS.md"), QStringLiteral("CLAUDE.md"),
                           QStringLiteral("VELMAR.md"), QStringLiteral("diary/"),
                           QStringLiteral("output/")}));
    EXPECT_EQ(QString::fromUtf8(content(folder + QStringLiteral("/VELMAR.md"))),
              AgentWorkspace::exportSpec(Target::word, QTimeZone("Asia/Tokyo"), Language::english));
}

TEST_F(AgentWorkspaceFolders, OfAnExportHoldDayFilesOnly) {
    m_files.write(QStringLiteral("01-02.md"), "# 01-02\n\n## 2020\n\nx\n");
    m_files.write(QStringLiteral("02-29.md"), "");
    m_files.write(QStringLiteral("notes.md"), "n");
    m_files.write(QStringLiteral("2020/01-02.md"), "n");
    m_files.write(QStringLiteral(".velmar/hidden-photos.json"), "{}");
    m_files.write(QStringLiteral(".velmar/imports/x.json"), "{}");
    QFile::link(QStringLiteral("nothing"), m_files.filePath(QStringLiteral("03-04.md")));
    const QStringList before = listing(m_files.path());

    const QString folder = exportAll(m_files.path());
    EXPECT_EQ(listing(folder + QStringLiteral("/diary")),
              QStringList({QStringLiteral("01-02.md"), QStringLiteral("02-29.md")}));
    EXPECT_EQ(content(folder + QStringLiteral("/diary/01-02.md")),
              QByteArray("# 01-02\n\n## 2020\n\nx\n"));
    EXPECT_EQ(listing(m_files.path()), before);
}

TEST_F(AgentWorkspaceFolders, OfAnExportOfAMissingVaultAreEmptyAndMakeNoVault) {
    const QString missing = m_files.filePath(QStringLiteral("missing"));
    const QString folder = exportAll(missing);
    EXPECT_TRUE(QDir(folder + QStringLiteral("/diary")).isEmpty());
    EXPECT_FALSE(QFileInfo::exists(missing));
}

TEST(AgentWorkspaceLanguage, IsThatOfAnyCode) {
    EXPECT_EQ(AgentWorkspace::language(u"zh-Hant"), Language::chinese);
    EXPECT_EQ(AgentWorkspace::language(u"ja-JP"), Language::japanese);
    EXPECT_EQ(AgentWorkspace::language(u"fr"), Language::english);
    EXPECT_EQ(AgentWorkspace::language(u""), Language::english);
    for (Language language : AgentWorkspace::kLanguages) {
        EXPECT_EQ(AgentWorkspace::language(AgentWorkspace::code(language)), language);
    }
}

}  // namespace
}  // namespace diary
