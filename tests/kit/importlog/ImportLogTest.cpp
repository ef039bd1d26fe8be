#include "DiaryKit/Import/ImportLog.h"

#include <gmock/gmock.h>

#include "DiaryKit/Import/HistoryCache.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/Printing.h"

namespace diary::ImportLog {
namespace {

using namespace test;
using State = ImportRecord::State;

const QString kJournal = QStringLiteral("/journal.jsonl");

ImportRecord recordOf(const QString& id, State state = State::done, qint64 seconds = 0) {
    return {.id = id,
            .state = state,
            .source = ImportSource::dayOne,
            .name = QStringLiteral("Export"),
            .at = moment(seconds),
            .by = QStringLiteral("Host")};
}

ImportRecord::File fileOf(const QString& day, bool committed) {
    return {.day = day,
            .after = QStringLiteral("digest"),
            .added = {{.year = 2024,
                       .text = QStringLiteral("words"),
                       .entryKeys = QStringList{QStringLiteral("a"), QStringLiteral("b")}}},
            .committed = committed};
}

class ImportLogTest : public testing::Test {
protected:
    void put(const ImportRecord& record) const {
        m_vault.write(importsPath(record, QStringLiteral(".json")), record.encoded());
    }

    [[nodiscard]] QStringList listed(qint64 seconds = 0) const {
        QStringList ids;
        for (const auto& one : records(m_vault.path(), moment(seconds))) ids.append(one.id);
        return ids;
    }

    TemporaryVault m_vault;
};

TEST(DeviceID, IsMadeOnceAndStored) {
    QString stored;
    const DeviceIDStore store = {[&] { return stored; }, [&](const QString& one) { stored = one; }};
    const QString made = deviceID(store);
    EXPECT_EQ(made.size(), 36);
    EXPECT_EQ(made, stored);
    EXPECT_EQ(deviceID(store), made);
}

TEST_F(ImportLogTest, HasNoRecordsWithoutAFolder) {
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(ImportLogTest, ListsTheNewestFirstAndThoseOfOneMomentByName) {
    put(recordOf(QStringLiteral("b"), State::done, 10));
    put(recordOf(QStringLiteral("c"), State::done, 20));
    put(recordOf(QStringLiteral("a"), State::done, 10));
    EXPECT_EQ(listed(),
              (QStringList{QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(ImportLogTest, LeavesOutWhatIsNoRecord) {
    put(recordOf(QStringLiteral("good")));
    const QByteArray whole = recordOf(QStringLiteral("half")).encoded();
    for (qsizetype size = 0; size < whole.size() - 1; size += 7) {
        m_vault.write(QStringLiteral(".velmar/imports/half.json"), whole.first(size));
        EXPECT_EQ(listed(), QStringList{QStringLiteral("good")}) << size;
    }
    QDir(m_vault.path()).mkpath(QStringLiteral(".velmar/imports/folder.json"));
    EXPECT_EQ(listed(), QStringList{QStringLiteral("good")});
}

TEST_F(ImportLogTest, LeavesOutARecordThatLeadsOutOfTheFolder) {
    for (const char* id : {"../outside", "/tmp/x", "..", ".", "", "a/b"}) {
        ImportRecord record = recordOf(QString::fromLatin1(id));
        m_vault.write(QStringLiteral(".velmar/imports/x.json"), record.encoded());
        EXPECT_TRUE(listed().isEmpty()) << id;
    }
}

TEST_F(ImportLogTest, ListsAnUndoneImportForThirtyDays) {
    ImportRecord record = recordOf(QStringLiteral("one"), State::undone);
    record.undoneAt = moment();
    put(record);
    constexpr qint64 kDay = 86'400;
    EXPECT_EQ(listed(29 * kDay).size(), 1);
    EXPECT_EQ(listed(30 * kDay).size(), 1);
    EXPECT_TRUE(listed(30 * kDay + 1).isEmpty());
    EXPECT_TRUE(m_vault.exists(QStringLiteral(".velmar/imports/one.json")));
}

TEST_F(ImportLogTest, LastWordOfTheJournalCountsAtTheFirstPlace) {
    const ImportRecord record = recordOf(QStringLiteral("one"), State::writing);
    put(record);
    QByteArray journal;
    for (const auto& [day, committed] :
         {std::pair("01-02", false), {"03-04", false}, {"01-02", true}}) {
        journal += fileOf(QString::fromLatin1(day), committed).encoded() + '\n';
    }
    m_vault.write(importsPath(record, kJournal), journal);
    const ImportRecord read = onlyRecord(m_vault.path());
    EXPECT_EQ(read.files, (std::vector{fileOf(QStringLiteral("01-02"), true),
                                       fileOf(QStringLiteral("03-04"), false)}));
    EXPECT_EQ(read.days, 2);
    EXPECT_EQ(read.entries, 4);
}

TEST_F(ImportLogTest, AJournalCutAnywhereMergesToItsWholeLines) {
    const ImportRecord record = recordOf(QStringLiteral("one"), State::writing);
    const QByteArray first = fileOf(QStringLiteral("01-02"), true).encoded() + '\n';
    const QByteArray second = fileOf(QStringLiteral("01-03"), true).encoded();
    const QByteArray journal = first + second + '\n';
    const QString folder = directory(m_vault.path());
    for (qsizetype size = 0; size <= journal.size(); ++size) {
        m_vault.write(importsPath(record, kJournal), journal.first(size));
        // The line end itself may be missing.
        const qsizetype lines =
            (size >= first.size() - 1 ? 1 : 0) + (size >= first.size() + second.size() ? 1 : 0);
        EXPECT_EQ(mergingJournal(record, folder).files.size(), static_cast<size_t>(lines)) << size;
    }
}

TEST_F(ImportLogTest, AnEmptyJournalIsUndoneWithoutAChange) {
    const ImportRecord record = recordOf(QStringLiteral("one"), State::writing);
    put(record);
    m_vault.write(importsPath(record, kJournal), "");
    const ImportRecord read = onlyRecord(m_vault.path());
    EXPECT_EQ(interrupted(std::vector{read}, QStringLiteral("this")), std::vector{record});
    EXPECT_EQ(undo(read, m_vault.path(), moment(5)), UndoResult());
    const ImportRecord undone = onlyRecord(m_vault.path());
    EXPECT_EQ(undone.state, State::undone);
    EXPECT_EQ(undone.undoneAt, moment(5));
    EXPECT_FALSE(m_vault.exists(importsPath(record, kJournal)));
}

TEST_F(ImportLogTest, OffersNoImportOfAnotherMachine) {
    ImportRecord ours = recordOf(QStringLiteral("ours"), State::writing);
    ours.deviceID = QStringLiteral("this");
    ImportRecord theirs = recordOf(QStringLiteral("theirs"), State::writing);
    theirs.deviceID = QStringLiteral("other");
    const ImportRecord untold = recordOf(QStringLiteral("untold"), State::writing);
    const ImportRecord done = recordOf(QStringLiteral("done"));
    EXPECT_EQ(interrupted(std::vector{theirs, ours, done, untold}, QStringLiteral("this")),
              (std::vector{ours, untold}));
}

TEST_F(ImportLogTest, KeepingMakesThePartialImportDone) {
    const ImportRecord record = recordOf(QStringLiteral("one"), State::writing);
    put(record);
    m_vault.write(importsPath(record, kJournal),
                  fileOf(QStringLiteral("01-02"), true).encoded() + '\n');
    markDone(onlyRecord(m_vault.path()), m_vault.path());
    const ImportRecord read = onlyRecord(m_vault.path());
    EXPECT_EQ(read.state, State::done);
    EXPECT_EQ(read.files.size(), 1U);
    EXPECT_EQ(read.entries, 2);
    EXPECT_FALSE(m_vault.exists(importsPath(record, kJournal)));
}

// Two machines changed one record, and a sync service kept both under names of its own.
TEST_F(ImportLogTest, ListsARecordOnceThatASyncServiceHasCopied) {
    ImportRecord record = recordOf(QStringLiteral("one"), State::undone);
    record.undoneAt = moment();
    const QString copy = QStringLiteral(".velmar/imports/one (conflicted copy).json");
    m_vault.write(copy, recordOf(QStringLiteral("one")).encoded());
    EXPECT_EQ(onlyRecord(m_vault.path()).state, State::done) << "better than none";
    put(record);
    EXPECT_EQ(onlyRecord(m_vault.path()), record);
    HistoryCache history(directory(m_vault.path()), QStringLiteral("none.json"));
    ASSERT_EQ(history.records().size(), 1U);
    EXPECT_EQ(history.records()[0].state, State::undone);
}

TEST_F(ImportLogTest, HistoryReadsEachRecordOnce) {
    for (int i = 0; i < 20; ++i) put(recordOf(QStringLiteral("record-%1").arg(i)));
    m_vault.write(QStringLiteral(".velmar/imports/bad.json"), "{");
    HistoryCache history(directory(m_vault.path()), QStringLiteral("record-3.json"));
    for (int i = 0; i < 50; ++i) EXPECT_EQ(history.records().size(), 19U);
    EXPECT_EQ(history.readCount(), 20);
}

TEST_F(ImportLogTest, HistorySeesWhatChanges) {
    const ImportRecord writing = recordOf(QStringLiteral("one"), State::writing);
    put(writing);
    HistoryCache history(directory(m_vault.path()), QStringLiteral("none.json"));
    ASSERT_EQ(history.records().size(), 1U);
    m_vault.write(importsPath(writing, kJournal),
                  fileOf(QStringLiteral("01-02"), true).encoded() + '\n');
    EXPECT_EQ(history.records()[0].files.size(), 1U);
    ImportRecord undone = recordOf(QStringLiteral("one"), State::undone);
    put(undone);
    EXPECT_EQ(history.records()[0].state, State::undone);
    put(recordOf(QStringLiteral("two")));
    EXPECT_EQ(history.records().size(), 2U);
    QFile::remove(m_vault.filePath(importsPath(undone, QStringLiteral(".json"))));
    ASSERT_EQ(history.records().size(), 1U);
    EXPECT_EQ(history.records()[0].id, u"two");
    EXPECT_EQ(history.readCount(), 4);
}

}  // namespace
}  // namespace diary::ImportLog
