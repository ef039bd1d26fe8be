#include "DiaryKit/Import/ImportPackage.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

QByteArray zipOf(const QByteArrayList& names) {
    ZipBuilder zip;
    for (const QByteArray& name : names) zip.add(ZipBuilder::packed(name, "in " + name));
    return zip.bytes();
}

class ImportPackageTest : public ::testing::Test {
protected:
    TemporaryPackage m_files;
};

TEST_F(ImportPackageTest, OpensAZipWhateverItIsCalled) {
    const ImportPackage package(m_files.add(QStringLiteral("diary.txt"), zipOf({"b.md", "a.md"})));
    EXPECT_TRUE(package.isZip());
    EXPECT_EQ(package.paths(), QStringList({QStringLiteral("a.md"), QStringLiteral("b.md")}));
    EXPECT_EQ(package.data(QStringLiteral("a.md")), QByteArray("in a.md"));
    EXPECT_EQ(package.text(QStringLiteral("b.md")), QStringLiteral("in b.md"));
    EXPECT_EQ(package.head(QStringLiteral("b.md"), 2), QStringLiteral("in"));
    EXPECT_EQ(package.fileURL(QStringLiteral("a.md")), std::nullopt);
}

TEST_F(ImportPackageTest, TakesADocumentForOneFile) {
    for (const char* name : {"a.docx", "A.ODT", "b.rtfd"}) {
        const QString path = m_files.add(QString::fromLatin1(name), zipOf({"word/document.xml"}));
        const ImportPackage package(path);
        EXPECT_FALSE(package.isZip() || package.isFolder()) << name;
        EXPECT_EQ(package.paths(), QStringList(QString::fromLatin1(name)));
        EXPECT_EQ(package.fileURL(QString()), path);
    }
    m_files.add(QStringLiteral("folder.rtfd/TXT.rtf"));
    const ImportPackage package(m_files.path(QStringLiteral("folder.rtfd/")));
    EXPECT_FALSE(package.isFolder());
    EXPECT_EQ(package.paths(), QStringList(QStringLiteral("folder.rtfd")));
    EXPECT_THROW((void)package.data(QStringLiteral("folder.rtfd")), FileError);
    EXPECT_EQ(package.head(QStringLiteral("folder.rtfd"), 10), QString());
}

TEST_F(ImportPackageTest, ReadsASingleFileWhateverThePath) {
    const ImportPackage package(m_files.add(QStringLiteral("note.txt"), "caf\xE9"));
    EXPECT_EQ(package.text(QStringLiteral("other")), QStringLiteral("café"));
    EXPECT_EQ(package.head(QString(), 3), QStringLiteral("caf"));
}

TEST_F(ImportPackageTest, FailsWhereNothingIsThere) {
    const ImportPackage package(m_files.path(QStringLiteral("absent.zip")));
    EXPECT_EQ(package.paths(), QStringList(QStringLiteral("absent.zip")));
    EXPECT_THROW((void)package.data(QStringLiteral("absent.zip")), FileError);
    EXPECT_EQ(package.head(QStringLiteral("absent.zip"), 10), QString());
    EXPECT_THROW(ImportPackage(m_files.add(QStringLiteral("bad.zip"), "PK\3\4 and no more")),
                 ImportError);
}

TEST_F(ImportPackageTest, PassesOverTheJunkOfAZip) {
    ZipBuilder zip;
    for (const char* name : {"__MACOSX/a.md", ".DS_Store", "x/.git/b.md", "../up.md", "dir/"}) {
        zip.add(ZipBuilder::stored(name, "x"));
    }
    EXPECT_TRUE(ImportPackage(m_files.add(QStringLiteral("x.zip"), zip.bytes())).paths().isEmpty());
    EXPECT_TRUE(ImportPackage::isJunk(u"a//.b"));
    EXPECT_FALSE(ImportPackage::isJunk(u"/a/b./c__MACOSX"));
}

TEST_F(ImportPackageTest, TakesTheLaterOfTwoEntriesOfOnePath) {
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("a", "first"));
    zip.add(ZipBuilder::stored("a", "second"));
    const ImportPackage package(m_files.add(QStringLiteral("x.zip"), zip.bytes()));
    EXPECT_EQ(package.paths().size(), 1);
    EXPECT_EQ(package.data(QStringLiteral("a")), QByteArray("second"));
    try {
        (void)package.data(QStringLiteral("b"));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), ENOENT);
    }
}

TEST_F(ImportPackageTest, ListsTheFilesOfAFolder) {
    for (const char* name : {"b.md", "a.md", "x/c.md", "assets/1.png", "x/y/assets/2.png",
                             "logseq/bak.md", "x/node_modules/n.md", "Assets/kept.png",
                             ".obsidian/app.json", "x/.hidden", "note.rtfd/TXT.rtf", "assets.md"}) {
        m_files.add(QString::fromLatin1(name));
    }
    const ImportPackage package(m_files.root());
    EXPECT_TRUE(package.isFolder());
    const QStringList expected = {QStringLiteral("Assets/kept.png"), QStringLiteral("a.md"),
                                  QStringLiteral("assets.md"),       QStringLiteral("b.md"),
                                  QStringLiteral("note.rtfd"),       QStringLiteral("x/c.md")};
    EXPECT_EQ(package.paths(), expected);
    EXPECT_EQ(package.data(QStringLiteral("x/c.md")), QByteArray("x"));
    EXPECT_EQ(package.fileURL(QStringLiteral("x/c.md")), m_files.path(QStringLiteral("x/c.md")));
    EXPECT_EQ(package.pathsWithExtensions({QStringLiteral("md")}).size(), 4);
}

TEST_F(ImportPackageTest, SortsNamesAlikeOnAllSystems) {
    // Composed and decomposed forms sort as one; what lies beyond the 16-bit plane goes last.
    for (const QString& name : {QStringLiteral("e\u0301.md"), QStringLiteral("f.md"),
                                QStringLiteral("\U0001F600.md"), QStringLiteral("\uFF5E.md")}) {
        m_files.add(name);
    }
    const QStringList expected = {QStringLiteral("f.md"), QStringLiteral("e\u0301.md"),
                                  QStringLiteral("\uFF5E.md"), QStringLiteral("\U0001F600.md")};
    EXPECT_EQ(ImportPackage::listFolder(m_files.root()), expected);
}

TEST_F(ImportPackageTest, ListsNoLoopsPipesDevicesOrNamesThatAreNoText) {
    m_files.add(QStringLiteral("a.md"));
    const auto encoded = [&](const char* name) {
        return QFile::encodeName(m_files.path(QString::fromLatin1(name)));
    };
    ASSERT_EQ(::symlink(".", encoded("loop").constData()), 0);
    ASSERT_EQ(::symlink("a.md", encoded("link.md").constData()), 0);
    ASSERT_EQ(::symlink("nowhere", encoded("dangling.md").constData()), 0);
    ASSERT_EQ(::symlink("/dev/zero", encoded("zero.md").constData()), 0);
    ASSERT_EQ(::mkfifo(encoded("pipe.md").constData(), 0600), 0);
    const QByteArray badName = QFile::encodeName(m_files.root()) + "/bad\xFF.md";
    FILE* const bad = std::fopen(badName.constData(), "w");
    ASSERT_NE(bad, nullptr);
    std::fclose(bad);

    const ImportPackage package(m_files.root());
    EXPECT_EQ(package.paths(), QStringList({QStringLiteral("a.md"), QStringLiteral("dangling.md"),
                                            QStringLiteral("link.md")}));
    ASSERT_EQ(::unlink(badName.constData()), 0);
    EXPECT_THROW((void)package.data(QStringLiteral("dangling.md")), FileError);
    EXPECT_EQ(package.head(QStringLiteral("dangling.md"), 10), QString());
    EXPECT_EQ(package.data(QStringLiteral("link.md")), QByteArray("x"));
    // Picked by themselves they are read no more than in a folder.
    const ImportPackage pipe(m_files.path(QStringLiteral("pipe.md")));
    EXPECT_EQ(pipe.head(QString(), 10), QString());
    EXPECT_THROW((void)pipe.data(QString()), FileError);
}

TEST_F(ImportPackageTest, StopsListingAtItsLimit) {
    for (int i = 0; i < 20; ++i) m_files.add(QStringLiteral("d%1/%1.md").arg(i));
    EXPECT_EQ(ImportPackage::listFolder(m_files.root(), 7).size(), 7);
    EXPECT_EQ(ImportPackage::listFolder(m_files.root()).size(), 20);
    EXPECT_TRUE(ImportPackage::listFolder(m_files.path(QStringLiteral("absent"))).isEmpty());
}

TEST_F(ImportPackageTest, LendsAFileOfAZipAndTakesItBack) {
    const ImportPackage package(m_files.add(QStringLiteral("x.zip"), zipOf({"d/note.docx"})));
    QString lent;
    const qint64 size = package.withFile(QStringLiteral("d/note.docx"), [&](const QString& path) {
        lent = path;
        EXPECT_TRUE(path.endsWith(QLatin1String("/note.docx")));
        return QFileInfo(path).size();
    });
    EXPECT_EQ(size, QByteArray("in d/note.docx").size());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(lent).path()));

    EXPECT_THROW(package.withFile(QStringLiteral("d/note.docx"),
                                  [&](const QString& path) {
                                      lent = path;
                                      throw std::runtime_error("reader failed");
                                  }),
                 std::runtime_error);
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(lent).path()));
}

TEST_F(ImportPackageTest, LendsTheFileItselfElsewhere) {
    const QString path = m_files.add(QStringLiteral("d/a.md"));
    const auto same = [](const QString& file) { return file; };
    EXPECT_EQ(ImportPackage(m_files.root()).withFile(QStringLiteral("d/a.md"), same), path);
    EXPECT_EQ(ImportPackage(path).withFile(QStringLiteral("a.md"), same), path);
    EXPECT_TRUE(QFile::exists(path));
}

}  // namespace
}  // namespace diary
