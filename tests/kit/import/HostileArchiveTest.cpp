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

// Each entry's stream quotes the local header of the next one and then goes on as that one does, so
// that all of them end in the same bytes. Gives the whole, each entry's place in it and its size.
struct Quoted {
    QByteArray bytes;
    std::vector<qsizetype> places = {};
    std::vector<quint64> sizes = {};
};

Quoted quotedEntries(int count, const QByteArray& last) {
    constexpr qsizetype kHeader = 30 + 6;
    QByteArrayList pieces = {diary::testing::deflated(last)};
    std::vector<quint64> sizes = {static_cast<quint64>(last.size())};
    for (int i = count - 1; i >= 0; --i) {
        const QByteArray name = QByteArray::number(i).rightJustified(6, '0');
        ZipBuilder header;
        header.add({.name = name, .method = 8});
        const QByteArray local = header.bytes().first(kHeader);
        pieces.prepend(local);
        if (i == 0) break;
        // A block of DEFLATE that holds its bytes as they are.
        QByteArray quote(1, '\0');
        ZipBuilder::append<quint16>(quote, kHeader);
        ZipBuilder::append<quint16>(quote, static_cast<quint16>(~kHeader));
        pieces.prepend(quote);
        sizes.insert(sizes.begin(), sizes.front() + kHeader);
    }
    Quoted quoted{.bytes = pieces.join(), .sizes = std::move(sizes)};
    constexpr qsizetype kQuote = 5;
    for (int i = 0; i < count; ++i) quoted.places.push_back(i * (kHeader + kQuote));
    return quoted;
}

TEST_F(HostileArchive, MayQuoteEachEntryInTheOneBefore) {
    constexpr int kEntries = 3'000;
    constexpr qsizetype kHeader = 30 + 6;
    const Quoted quoted = quotedEntries(kEntries, QByteArray(8 * kMebibyte, ' '));
    ZipBuilder zip;
    zip.add({.name = "000000",
             .packed = quoted.bytes.sliced(kHeader),
             .method = 8,
             .size = quoted.sizes[0]});
    for (int i = 1; i < kEntries; ++i) {
        const auto at = static_cast<size_t>(i);
        zip.add({.name = QByteArray::number(i).rightJustified(6, '0'),
                 .packed = quoted.bytes.sliced(quoted.places[at] + kHeader),
                 .method = 8,
                 .size = quoted.sizes[at],
                 .place = static_cast<quint64>(quoted.places[at])});
    }
    // They are sound, so the first are read; together they would give 24 gigabytes.
    const int failed = readAll(zip.bytes());
    EXPECT_GT(failed, kEntries - 10);
    EXPECT_LT(failed, kEntries);
}

TEST_F(HostileArchive, MayStoreEachEntryInTheOneBefore) {
    constexpr int kEntries = 3'000;
    constexpr qsizetype kHeader = 30 + 6;
    QByteArray all;
    for (int i = 0; i < kEntries; ++i) {
        ZipBuilder one;
        one.add(ZipBuilder::stored(QByteArray::number(i).rightJustified(6, '0'), ""));
        all += one.bytes().first(kHeader);
    }
    all += QByteArray(400'000, 'x');
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("000000", all.sliced(kHeader)));
    for (int i = 1; i < kEntries; ++i) {
        zip.add({.name = QByteArray::number(i).rightJustified(6, '0'),
                 .packed = all.sliced((i + 1) * kHeader),
                 .place = static_cast<quint64>(i * kHeader)});
    }
    const int failed = readAll(zip.bytes());
    EXPECT_GT(failed, kEntries - 100);
    EXPECT_LT(failed, kEntries);
}

TEST_F(HostileArchive, MayClaimAnyNumberOfEntriesAnywhere) {
    ZipBuilder zip;
    zip.add(ZipBuilder::stored("a", "x"));
    const QByteArray whole = zip.zip64Bytes();
    // Behind the end record of 22 bytes, its locator of 20 and most of the record of 56.
    const qsizetype record = whole.size() - 22 - 20 - 56;
    for (const quint64 claimed : {quint64{2}, quint64{1} << 40, quint64{1} << 63, ~quint64{0}}) {
        for (const qsizetype field : {32, 48}) {
            QByteArray changed = whole;
            qToLittleEndian(claimed, changed.data() + record + field);
            EXPECT_EQ(readAll(changed), -1) << claimed << " at " << field;
        }
    }
    EXPECT_EQ(readAll(whole), 0);
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
