// Archives that were made to hurt: each is refused or gives less, in bounded time and memory.
#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>
#include <random>

#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::kMebibyte;
using diary::testing::kMostMemory;
using diary::testing::peakMemory;
using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

constexpr qint64 kMostSeconds = 10;

class HostileArchive : public ::testing::Test {
protected:
    void TearDown() override {
        // The processor's time, since others may be at work on the machine.
        EXPECT_LT((std::clock() - m_start) / CLOCKS_PER_SEC, kMostSeconds);
        EXPECT_LT(peakMemory(), kMostMemory);
    }

    // Reads all there is, as a reader of a source would, and gives the number of files that failed.
    int readAll(const QByteArray& bytes) {
        EXPECT_LT(bytes.size(), kMebibyte);
        const QString path = m_package.add(QStringLiteral("x.zip"), bytes);
        int failed = 0;
        try {
            const ImportPackage package(path);
            for (const QString& file : package.paths()) {
                (void)package.head(file, 2048);
                try {
                    (void)package.text(file);
                } catch (const ImportError&) {
                    ++failed;
                }
            }
        } catch (const ImportError& error) {
            EXPECT_EQ(error.kind(), ImportError::Kind::badArchive);
            return -1;
        }
        return failed;
    }

    TemporaryPackage m_package;
    std::clock_t m_start = std::clock();
};

QByteArray zip64Size(quint64 size) {
    QByteArray extra;
    ZipBuilder::append<quint16>(extra, 0x0001);
    ZipBuilder::append<quint16>(extra, 8);
    ZipBuilder::append<quint64>(extra, size);
    return extra;
}

TEST_F(HostileArchive, MayClaimAnySizeOfAnEntry) {
    ZipBuilder zip;
    for (const quint64 size : {quint64{1} << 42, quint64{1} << 62, ~quint64{0}, quint64{1} << 30}) {
        zip.add({.name = QByteArray::number(size),
                 .packed = diary::testing::deflated("x"),
                 .method = 8,
                 .size = 0xFFFFFFFF,
                 .extra = zip64Size(size)});
    }
    EXPECT_EQ(readAll(zip.bytes()), 4);
}

TEST_F(HostileArchive, MayHoldHundredsOfTimesItsSize) {
    ZipBuilder zip;
    // Two entries of 100 MB each in 200 kB.
    zip.add(ZipBuilder::packed("a.json", QByteArray(100 * kMebibyte, ' ')));
    zip.add(ZipBuilder::packed("b.json", QByteArray(100 * kMebibyte, ' ')));
    EXPECT_EQ(readAll(zip.bytes()), 2);
}

TEST_F(HostileArchive, MayPointManyEntriesAtTheSameBytes) {
    ZipBuilder zip;
    ZipBuilder::Item item = ZipBuilder::packed("0.json", QByteArray(8 * kMebibyte, ' '));
    zip.add(item);
    for (int i = 1; i < 10'000; ++i) {
        item.name = QByteArray::number(i) + ".json";
        item.sharesBytesOf = 0;
        zip.add(item);
    }
    // A few are read before the archive has given out what it may.
    const int failed = readAll(zip.bytes());
    EXPECT_GT(failed, 9'900);
    EXPECT_LT(failed, 10'000);
}

TEST_F(HostileArchive, MayPointManyEntriesAtTheSameStoredBytes) {
    ZipBuilder zip;
    ZipBuilder::Item item = ZipBuilder::stored("0.json", QByteArray(400'000, 'x'));
    zip.add(item);
    for (int i = 1; i < 10'000; ++i) {
        item.name = QByteArray::number(i) + ".json";
        item.sharesBytesOf = 0;
        zip.add(item);
    }
    EXPECT_GT(readAll(zip.bytes()), 9'800);
}

TEST_F(HostileArchive, MayNestItselfInItself) {
    ZipBuilder inner;
    inner.add(ZipBuilder::stored("a", "x"));
    ZipBuilder outer;
    outer.add(ZipBuilder::stored("inner.zip", inner.bytes()));
    EXPECT_EQ(readAll(outer.bytes()), 0);
    // The last end record counts, here one in a comment that leads to the inner archive.
    EXPECT_EQ(readAll(outer.bytes(inner.bytes())), -1);
}

TEST_F(HostileArchive, MayNameFilesOutsideOfItself) {
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("../../climbed.md", "x"));
    zip.add(ZipBuilder::stored("/etc/absolute.md", "x"));
    zip.add(ZipBuilder::stored("..\\..\\windows.md", "x"));
    zip.add(ZipBuilder::stored(QByteArray("nul\0l.md", 8), "x"));
    zip.add(ZipBuilder::stored("folder\\..", "x"));
    zip.add(ZipBuilder::stored("ok.md", "x"));
    const ImportPackage package(m_package.add(QStringLiteral("x.zip"), zip.bytes()));
    EXPECT_FALSE(package.paths().contains(QStringLiteral("../../climbed.md")));

    int refused = 0;
    for (const QString& path : package.paths()) {
        try {
            package.withFile(path, [](const QString& file) {
                const QString folder = QFileInfo(QFileInfo(file).path()).fileName();
                EXPECT_TRUE(folder.startsWith(QLatin1String("VelmarImport-")));
                EXPECT_TRUE(QFile::exists(file));
            });
        } catch (const ImportError& error) {
            EXPECT_EQ(error.kind(), ImportError::Kind::badArchive);
            ++refused;
        }
    }
    // "/etc/absolute.md" and "ok.md" have names that can be used as they are. The one that begins
    // with ".." counts as hidden; of the others two have no name that a file could have.
    EXPECT_EQ(package.paths().size(), 4);
    EXPECT_EQ(refused, 2);
}

TEST_F(HostileArchive, MayBeCutAtAnyByte) {
    ZipBuilder zip;
    zip.add(ZipBuilder::packed("a.md", "Some words, some words"));
    zip.add({.name = "b.md", .packed = "x", .size = 0xFFFFFFFF, .extra = zip64Size(1)});
    const QByteArray whole = zip.zip64Bytes();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        EXPECT_LE(readAll(whole.first(length)), 0) << length;
    }
}

TEST_F(HostileArchive, MayHaveAnyByteChanged) {
    ZipBuilder zip;
    zip.add(ZipBuilder::packed("a.md", "Some words, some words"));
    zip.add({.name = "b.md", .packed = "x", .size = 0xFFFFFFFF, .extra = zip64Size(1)});
    const QByteArray whole = zip.zip64Bytes();
    std::mt19937 random(20261121);  // NOLINT: the same changes in every run.
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (int round = 0; round < 3; ++round) {
            QByteArray changed = whole;
            changed[at] = static_cast<char>(round == 0 ? 0xFF : random() & 0xFF);
            EXPECT_LE(readAll(changed), 2);
        }
    }
}

TEST_F(HostileArchive, IsMappedAndNotReadWhereItIsLarge) {
    constexpr qint64 kSize = 2048 * kMebibyte;
    // One stored entry that fills two gigabytes of a file without blocks on the disk.
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("big.json", ""));
    QByteArray small = zip.bytes();
    const QByteArray local = small.first(30 + 8);
    QByteArray tail = small.sliced(local.size());
    const auto put = [&](qsizetype at, quint32 value) { qToLittleEndian(value, tail.data() + at); };
    put(20, static_cast<quint32>(kSize - 1024));
    put(24, static_cast<quint32>(kSize - 1024));
    put(tail.size() - 6, static_cast<quint32>(local.size() + kSize - 1024));
    const QString path = m_package.add(QStringLiteral("big.zip"), local);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(local.size() + kSize - 1024));
    ASSERT_EQ(file.write(tail), tail.size());
    file.close();

    const qint64 before = peakMemory();
    const ImportPackage package(path);
    ASSERT_EQ(package.paths(), QStringList(QStringLiteral("big.json")));
    EXPECT_EQ(package.head(QStringLiteral("big.json"), 8), QString(8, QChar(u'\0')));
    EXPECT_LT(peakMemory() - before, 32 * kMebibyte);

    // Cut short behind our back, it has nothing to give; reading the mapping would end the process.
    ASSERT_EQ(::truncate(QFile::encodeName(path).constData(), 100), 0);
    EXPECT_THROW((void)package.data(QStringLiteral("big.json")), ImportError);
    EXPECT_EQ(package.head(QStringLiteral("big.json"), 8), QString());
}

}  // namespace
}  // namespace diary
