#include "DiaryKit/Import/ZipArchive.h"

#include <gtest/gtest.h>

#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

class ZipArchiveTest : public ::testing::Test {
protected:
    std::unique_ptr<ZipArchive> open(const QByteArray& bytes) {
        return std::make_unique<ZipArchive>(m_package.add(QStringLiteral("x.zip"), bytes));
    }

    static QByteArray oneFile(const QByteArray& comment = {}) {
        ZipBuilder zip;
        zip.add(ZipBuilder::packed("a.md", "Hello, hello, hello"));
        return zip.bytes(comment);
    }

    TemporaryPackage m_package;
};

void expectBadArchive(const std::function<void()>& action) {
    try {
        action();
        FAIL() << "Nothing was thrown.";
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::badArchive);
    }
}

TEST_F(ZipArchiveTest, ReadsStoredAndPackedEntriesInTheirOrder) {
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("z.txt", "stored"));
    zip.add(ZipBuilder::packed("dir/", ""));
    zip.add(ZipBuilder::packed("a.txt", QByteArray(100'000, 'a')));
    const auto archive = open(zip.bytes());
    ASSERT_EQ(archive->entries().size(), 3U);
    EXPECT_EQ(archive->entries()[0].path, QStringLiteral("z.txt"));
    EXPECT_TRUE(archive->entries()[1].isDirectory());
    EXPECT_EQ(archive->contents(archive->entries()[0]), QByteArray("stored"));
    EXPECT_EQ(archive->contents(archive->entries()[2]), QByteArray(100'000, 'a'));
    EXPECT_EQ(archive->prefix(archive->entries()[0], 3), QByteArray("sto"));
    EXPECT_EQ(archive->prefix(archive->entries()[2], 3), QByteArray("aaa"));
    EXPECT_EQ(archive->prefix(archive->entries()[2], 200'000), QByteArray(100'000, 'a'));
}

TEST_F(ZipArchiveTest, ReadsEntriesOfNoBytes) {
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("a", ""));
    // Not even a stream: with no size there is nothing to unpack.
    zip.add({.name = "b", .packed = "\xFF\xFF", .method = 8, .size = 0});
    const auto archive = open(zip.bytes());
    EXPECT_EQ(archive->contents(archive->entries()[0]), QByteArray());
    EXPECT_EQ(archive->contents(archive->entries()[1]), QByteArray());
}

TEST_F(ZipArchiveTest, FindsItsEndBehindTheLongestComment) {
    EXPECT_EQ(open(oneFile(QByteArray(65'535, 'c')))->entries().size(), 1U);
    expectBadArchive([&] { open(oneFile(QByteArray(65'535, 'c')) + 'c'); });
    expectBadArchive([&] { open(QByteArray(21, '\0')); });
    expectBadArchive([&] { open(QByteArray(100, '\0')); });
}

TEST_F(ZipArchiveTest, ListsAllEntriesOfALargeArchive) {
    ZipBuilder zip;
    for (int i = 0; i < 70'000; ++i) {
        zip.add(ZipBuilder::stored("e" + QByteArray::number(i), "x"));
    }
    const auto archive = open(zip.zip64Bytes());
    ASSERT_EQ(archive->entries().size(), 70'000U);
    EXPECT_EQ(archive->entries().back().path, QStringLiteral("e69999"));
    EXPECT_EQ(archive->contents(archive->entries().back()), QByteArray("x"));
    // Some tools write no ZIP64 and let the count run over.
    EXPECT_EQ(open(zip.bytesWithCount(70'000 - 65'536))->entries().size(), 70'000U);
}

TEST_F(ZipArchiveTest, TakesSizesOfZip64FromTheExtraField) {
    ZipBuilder zip;
    QByteArray extra;
    ZipBuilder::append<quint16>(extra, 0x0001);
    ZipBuilder::append<quint16>(extra, 8);
    ZipBuilder::append<quint64>(extra, 5);
    zip.add({.name = "a", .packed = "12345", .size = 0xFFFFFFFF, .extra = extra});
    const auto archive = open(zip.bytes());
    EXPECT_EQ(archive->entries()[0].size, 5U);
    EXPECT_EQ(archive->entries()[0].compressedSize, 5U);
}

TEST_F(ZipArchiveTest, ReadsNamesOfAnyEncoding) {
    QByteArray unicodePath;
    ZipBuilder::append<quint16>(unicodePath, 0x7075);
    const QByteArray name = QStringLiteral("日記.md").toUtf8();
    ZipBuilder::append<quint16>(unicodePath, static_cast<quint16>(name.size() + 5));
    unicodePath += QByteArray(5, '\1') + name;

    ZipBuilder zip;
    zip.add({.name = name, .flags = 1U << 11});
    zip.add({.name = "\x93\xFA\x8BL/\x82\xC9\x82\xC1\x82\xAB.md"});
    zip.add({.name = "\xC8\xD5\xBC\xC7.md"});
    zip.add({.name = "plain.md", .extra = unicodePath});
    zip.add({.name = "bad\xFF\xFEname.md", .flags = 1U << 11});
    const auto archive = open(zip.bytes());
    EXPECT_EQ(archive->entries()[0].path, QStringLiteral("日記.md"));
    EXPECT_EQ(archive->entries()[1].path, QStringLiteral("日記/にっき.md"));
    EXPECT_EQ(archive->entries()[2].path, QStringLiteral("日记.md"));
    EXPECT_EQ(archive->entries()[3].path, QStringLiteral("日記.md"));
    EXPECT_EQ(archive->entries()[4].path, QStringLiteral("bad\u00FF\u00FEname.md"));
}

TEST_F(ZipArchiveTest, FailsOnlyTheEntryThatHasTheFault) {
    ZipBuilder zip;
    zip.add({.name = "encrypted", .packed = "x", .flags = 1});
    zip.add({.name = "lzma", .packed = "x", .method = 14});
    zip.add({.name = "damaged", .packed = "\xFF\xFF\xFF", .method = 8, .size = 10});
    zip.add({.name = "short", .packed = diary::testing::deflated("abc"), .method = 8, .size = 4});
    zip.add(ZipBuilder::packed("good", "good"));
    const auto archive = open(zip.bytes());
    for (std::size_t i = 0; i < 4; ++i) {
        expectBadArchive([&] { (void)archive->contents(archive->entries()[i]); });
        expectBadArchive([&] { (void)archive->prefix(archive->entries()[i], 1); });
    }
    EXPECT_EQ(archive->contents(archive->entries()[4]), QByteArray("good"));
}

TEST_F(ZipArchiveTest, TakesTheBytesAskedForFromALongerStream) {
    ZipBuilder zip;
    zip.add({.name = "long", .packed = diary::testing::deflated("abcdef"), .method = 8, .size = 3});
    const auto archive = open(zip.bytes());
    EXPECT_EQ(archive->contents(archive->entries()[0]), QByteArray("abc"));
}

TEST_F(ZipArchiveTest, RefusesWhatCannotBeRead) {
    expectBadArchive([&] { ZipArchive(m_package.path(QStringLiteral("absent.zip"))); });
    expectBadArchive([&] { ZipArchive(m_package.root()); });
    expectBadArchive([&] { ZipArchive(QStringLiteral("/dev/zero")); });
    EXPECT_FALSE(ZipArchive::looksLikeZip(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(ZipArchive::looksLikeZip(m_package.root()));
}

TEST_F(ZipArchiveTest, LooksLikeItselfByItsFirstBytes) {
    EXPECT_TRUE(ZipArchive::looksLikeZip(m_package.add(QStringLiteral("a"), "PK\3\4")));
    EXPECT_TRUE(ZipArchive::looksLikeZip(m_package.add(QStringLiteral("b"), "PK\5\6 rest")));
    EXPECT_FALSE(ZipArchive::looksLikeZip(m_package.add(QStringLiteral("c"), "PK\3")));
    EXPECT_FALSE(ZipArchive::looksLikeZip(m_package.add(QStringLiteral("d"), "PK\7\10")));
    EXPECT_FALSE(ZipArchive::looksLikeZip(m_package.path(QStringLiteral("absent"))));
}

}  // namespace
}  // namespace diary
