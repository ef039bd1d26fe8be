#include <gtest/gtest.h>

#include <ctime>

#include "DiaryKit/AppSources/DaylioSource.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/MemoryOfStep.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using DaylioSource::Moods;
using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

const QString kBackup = QStringLiteral("backup.daylio");

class DaylioBackupTest : public ::testing::Test {
protected:
    static QByteArray zip(const QByteArray& name, const QByteArray& bytes) {
        ZipBuilder builder;
        builder.add(ZipBuilder::packed(name, bytes));
        return builder.bytes();
    }

    ImportBatch readPicked(const QString& name, const QByteArray& bytes, const Moods& moods = {}) {
        const ImportPackage package(m_files.add(name, bytes));
        return DaylioSource::readBackup(package, QStringLiteral("Export"), moods);
    }
    ImportBatch read(const QByteArray& json, const Moods& moods = {}) {
        return readPicked(kBackup, json.toBase64(), moods);
    }
    // The only entry of a backup with some moods and tags.
    ImportedEntry readEntry(const QByteArray& members, const Moods& moods = {}) {
        const ImportBatch batch = read(R"({"dayEntries": [{)" + members + R"(}], "customMoods": [
                {"id": 1, "custom_name": "", "predefined_name_id": 1},
                {"id": 2, "custom_name": "So so", "predefined_name_id": 2},
                {"id": 3, "predefined_name_id": 9}, {"id": 4, "custom_name": 5}],
                "tags": [{"id": 5, "name": "tea"}, {"id": 6, "name": "a walk"}, {"id": 7}]})",
                                       moods);
        EXPECT_EQ(batch.entries.size(), 1U) << members.toStdString();
        return batch.entries.empty() ? ImportedEntry() : batch.entries.front();
    }
    bool isRecognised(const QString& name, const QByteArray& bytes) {
        try {
            (void)readPicked(name, bytes);
            return true;
        } catch (const ImportError& error) {
            EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
            return false;
        }
    }

    TemporaryPackage m_files;
    const QByteArray m_oneEntry = R"({"dayEntries": [{"datetime": 0, "note": "x"}]})";
};

TEST_F(DaylioBackupTest, ReadsAnEntry) {
    const ImportBatch batch = read(R"({"version": 15, "assets": [{}, 1], "dayEntries": [
        {"id": 9, "minute": 6, "hour": 14, "datetime": 1614834367999, "timeZoneOffset": 32400000,
         "mood": 1, "tags": [6, 5], "note": "<b>Bold</b><br>second &amp; line<div>third</div>",
         "note_title": "A title", "assets": [3, 4]}],
        "tags": [{"id": 5, "name": "tea"}, {"id": 6, "name": "a walk"}],
        "customMoods": [{"id": 1, "custom_name": "", "predefined_name_id": 1}]})");
    EXPECT_EQ(batch.source, ImportSource::daylio);
    EXPECT_EQ(batch.name, QStringLiteral("Export"));
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped{.photos = 2});
    const ImportedEntry expected{
        .day = {2021, 3, 4},
        .time = ImportedEntry::Time{14, 6},
        .title = QStringLiteral("A title"),
        .body = QStringLiteral("**rad** · a walk · tea\n\n**Bold**\nsecond & line\n\nthird"),
    };
    EXPECT_EQ(batch.entries, std::vector<ImportedEntry>{expected});
}

TEST_F(DaylioBackupTest, TakesTheBackupAsAZipOrAsItsText) {
    const QByteArray text = m_oneEntry.toBase64();
    EXPECT_TRUE(isRecognised(kBackup, text));
    EXPECT_TRUE(isRecognised(QStringLiteral("My diary.Daylio"), text));
    // What applications make: the text beside the photos, in a zip.
    ZipBuilder export_;
    export_.add(ZipBuilder::packed("assets/photos/a.jpg", "photo"));
    export_.add(ZipBuilder::packed("backup.daylio", text));
    EXPECT_TRUE(isRecognised(QStringLiteral("Export.daylio"), export_.bytes()));
    EXPECT_TRUE(isRecognised(QStringLiteral("Export.zip"), export_.bytes()));
    // A backup that is a zip itself: its first entry counts, whatever its name.
    const QByteArray inner = zip("text", text);
    EXPECT_TRUE(isRecognised(QStringLiteral("inner.daylio"), inner));
    EXPECT_TRUE(isRecognised(QStringLiteral("outer.zip"), zip("backup.daylio", inner)));
    EXPECT_TRUE(isRecognised(QStringLiteral("outer.daylio"), zip("backup.daylio", inner)));
}

TEST_F(DaylioBackupTest, ReadsAnUnpackedFolder) {
    for (const QByteArray& bytes : {m_oneEntry.toBase64(), zip("text", m_oneEntry.toBase64())}) {
        m_files.add(kBackup, bytes);
        const ImportPackage package(m_files.root());
        EXPECT_EQ(DaylioSource::readBackup(package, QString(), {}).entries.size(), 1U);
    }
}

TEST_F(DaylioBackupTest, PassesOverWhatIsNotBase64) {
    QByteArray wrapped = m_oneEntry.toBase64();
    for (qsizetype at = 10; at < wrapped.size(); at += 12) wrapped.insert(at, "\r\n");
    EXPECT_EQ(readPicked(kBackup, wrapped).entries.size(), 1U);
    EXPECT_EQ(readPicked(kBackup, "\xEF\xBB\xBF -.\xFF" + wrapped + "\n-\t").entries.size(), 1U);
}

TEST_F(DaylioBackupTest, RefusesWhatIsNoBackup) {
    EXPECT_FALSE(isRecognised(kBackup, "nothing"));
    EXPECT_FALSE(isRecognised(kBackup, ""));
    EXPECT_FALSE(isRecognised(kBackup, m_oneEntry));
    EXPECT_FALSE(isRecognised(kBackup, QByteArray("[]").toBase64()));
    EXPECT_FALSE(isRecognised(kBackup, QByteArray("\"\"").toBase64()));
    EXPECT_FALSE(isRecognised(kBackup, (m_oneEntry + "x").toBase64()));
    EXPECT_FALSE(isRecognised(kBackup, m_oneEntry.chopped(1).toBase64()));
    EXPECT_FALSE(isRecognised(kBackup, QByteArray("{\"a\": \"\xFF\"}").toBase64()));
    EXPECT_FALSE(isRecognised(kBackup, zip("text", "nothing")));
    EXPECT_FALSE(isRecognised(kBackup, ZipBuilder().bytes()));
    EXPECT_FALSE(isRecognised(QStringLiteral("text.txt"), m_oneEntry.toBase64()));
    EXPECT_FALSE(
        isRecognised(QStringLiteral("deep.zip"), zip("deep/backup.daylio", m_oneEntry.toBase64())));
}

TEST_F(DaylioBackupTest, RefusesAFolderWithoutASoundBackupAtItsTop) {
    const auto isFolderRecognised = [this] {
        try {
            (void)DaylioSource::readBackup(ImportPackage(m_files.root()), QString(), {});
            return true;
        } catch (const ImportError& error) {
            EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
            return false;
        }
    };
    m_files.add(QStringLiteral("deep/backup.daylio"), m_oneEntry.toBase64());
    EXPECT_FALSE(isFolderRecognised());
    const QByteArray sound = zip("text", m_oneEntry.toBase64());
    m_files.add(kBackup, sound.chopped(1));
    EXPECT_FALSE(isFolderRecognised());
    m_files.add(kBackup, sound);
    EXPECT_TRUE(isFolderRecognised());
    QFile::remove(m_files.path(kBackup));
    QFile::link(QStringLiteral("missing"), m_files.path(kBackup));
    EXPECT_FALSE(isFolderRecognised());
}

TEST_F(DaylioBackupTest, NamesMoods) {
    const Moods moods = {{QStringLiteral("so so"), QStringLiteral("Meh")}};
    EXPECT_EQ(readEntry(R"("datetime": 0, "mood": 1)").body, QStringLiteral("**rad**"));
    EXPECT_EQ(readEntry(R"("datetime": 0, "mood": 2)").body, QStringLiteral("**So so**"));
    EXPECT_EQ(readEntry(R"("datetime": 0, "mood": 2.0)", moods).body, QStringLiteral("**Meh**"));
    for (const char* mood : {"3", "4", "5", "-1", "\"1\"", "true", "1.5", "1e300", "null"}) {
        const QByteArray members = R"("datetime": 0, "mood": )" + QByteArray(mood);
        EXPECT_EQ(readEntry(members).body, QString()) << mood;
        EXPECT_EQ(readEntry(members + R"(, "tags": [5])").body, QStringLiteral("tea")) << mood;
        EXPECT_EQ(readEntry(members + R"(, "note": "x")").body, QStringLiteral("x")) << mood;
    }
}

TEST_F(DaylioBackupTest, NamesActivities) {
    const auto bodyOf = [this](const QByteArray& tags) {
        return readEntry(R"("datetime": 0, "tags": )" + tags).body;
    };
    EXPECT_EQ(bodyOf("[6, 8, 5, 7]"), QStringLiteral("a walk · tea"));
    EXPECT_EQ(bodyOf("[5, \"6\"]"), QString());
    EXPECT_EQ(bodyOf("[5, 6.5]"), QString());
    EXPECT_EQ(bodyOf("5"), QString());
}

TEST_F(DaylioBackupTest, TakesListsWithOtherThingsInThemForNone) {
    const ImportBatch batch =
        read(R"({"customMoods": [{"id": 1, "custom_name": "a"}, 1], "assets": {"a": 1},
                 "tags": [null, {"id": 1, "name": "b"}],
                 "dayEntries": [1, {"datetime": 0, "mood": 1, "tags": [1], "note": "x"}, [], {}]})");
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries.front().body, QStringLiteral("x"));
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped{.undated = 1});
}

TEST_F(DaylioBackupTest, TakesTheLastOfARepeatedKey) {
    const ImportBatch batch =
        read(R"({"dayEntries": [{}, {}], "assets": [1], "assets": [], "tags": [],
                 "dayEntries": [{"datetime": 0, "tags": [1], "tags": [2, 1], "note": "x",
                                 "note": null}],
                 "tags": [{"id": 1, "name": "a"}, {"id": 2, "name": "b"}, {"id": 1, "name": "c"}]})");
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries.front().body, QStringLiteral("b · c"));
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped());
}

TEST_F(DaylioBackupTest, PutsMomentsOnTheClockOfTheirPlace) {
    const auto momentOf = [this](const QByteArray& members) {
        const ImportedEntry entry = readEntry(members);
        return QStringLiteral("%1-%2-%3 %4")
            .arg(entry.day.year)
            .arg(entry.day.month)
            .arg(entry.day.day)
            .arg(entry.time ? entry.time->text() : QString())
            .toStdString();
    };
    EXPECT_EQ(momentOf(R"("datetime": 0, "timeZoneOffset": -18000000)"), "1969-12-31 19:00");
    EXPECT_EQ(momentOf(R"("datetime": 0, "timeZoneOffset": 20700000)"), "1970-1-1 05:45");
    EXPECT_EQ(momentOf(R"("datetime": 0, "timeZoneOffset": 64800000)"), "1970-1-1 18:00");
    EXPECT_EQ(momentOf(R"("datetime": -0.5, "timeZoneOffset": 0)"), "1969-12-31 23:59");
    // Without an offset that clocks may have, the machine's zone counts: UTC in tests.
    for (const char* offset : {"64801000", "1e400", "\"3600000\"", "null"}) {
        EXPECT_EQ(momentOf(R"("datetime": 0, "timeZoneOffset": )" + QByteArray(offset)),
                  "1970-1-1 00:00");
    }
}

TEST_F(DaylioBackupTest, CountsEntriesWithoutAMoment) {
    EXPECT_EQ(
        read(R"({"dayEntries": [{}, {"datetime": "0"}, {"datetime": null}, {"datetime": 1e400},
                                      {"datetime": -1e17}, {"datetime": false}]})")
            .skipped,
        ImportBatch::Skipped{.undated = 6});
}

TEST_F(DaylioBackupTest, LeavesAnEmptyTitleOut) {
    EXPECT_EQ(readEntry(R"("datetime": 0, "note_title": "")").title, std::nullopt);
    EXPECT_EQ(readEntry(R"("datetime": 0, "note_title": 1)").title, std::nullopt);
    EXPECT_EQ(readEntry(R"("datetime": 0, "note_title": "T")").title, QStringLiteral("T"));
}

TEST_F(DaylioBackupTest, ReadsABackupWithoutEntries) {
    EXPECT_TRUE(read("{}").entries.empty());
    EXPECT_TRUE(read(R"({"dayEntries": {}})").entries.empty());
}

// The bytes of the file are decoded where they stand, and nothing else of that size is made.
TEST_F(DaylioBackupTest, HoldsALargeBackupOnce) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "freed memory is kept for a while";
#endif
    constexpr qint64 kSize = 48 * diary::testing::kMebibyte;
    const QByteArray json = R"({"unknown": ")" + QByteArray(kSize / 4 * 3, 'a') +
                            R"(", "dayEntries": [{"datetime": 0, "note": "x"}]})";
    const QByteArray text = json.toBase64();
    const ImportPackage plain(m_files.add(kBackup, text));
    ZipBuilder export_;
    export_.add(ZipBuilder::stored("backup.daylio", text));
    const ImportPackage zipped(m_files.add(QStringLiteral("x.zip"), export_.bytes()));
    for (const ImportPackage* package : {&plain, &zipped}) {
        const qint64 memory = diary::testing::memoryOfStep([&] {
            const ImportBatch batch = DaylioSource::readBackup(*package, QString(), {});
            if (batch.entries.size() != 1) throw ImportError(ImportError::Kind::empty);
        });
        EXPECT_LT(memory, kSize * 5 / 4);
    }
}

// A name of a million letters, asked for by each of many short entries.
TEST_F(DaylioBackupTest, RefusesABackupMadeToFillTheMemory) {
    const QByteArray name(1'000'000, 'a');
    const QByteArray tag = R"({"tags": [{"id": 1, "name": ")" + name + R"("}], )";
    const QByteArray mood = R"({"customMoods": [{"id": 1, "custom_name": ")" + name + R"("}], )";
    const std::clock_t start = std::clock();
    EXPECT_FALSE(isRecognised(kBackup, (tag + R"("dayEntries": [{"datetime": 0, "tags": [)" +
                                        QByteArray("1,").repeated(100'000) + "1]}]}")
                                           .toBase64()));
    EXPECT_FALSE(
        isRecognised(kBackup, (mood + R"("dayEntries": [)" +
                               QByteArray(R"({"datetime":0,"mood":1},)").repeated(10'000) + "{}]}")
                                  .toBase64()));
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    EXPECT_LT(diary::testing::peakMemory(), diary::testing::kMostMemory);
}

}  // namespace
}  // namespace diary
