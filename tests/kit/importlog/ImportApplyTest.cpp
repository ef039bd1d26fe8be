#include "DiaryKit/Import/ImportApply.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/Printing.h"

namespace diary::ImportLog {
namespace {

using namespace test;
using testing::ElementsAre;

const QString kDay = QStringLiteral("01-02.md");
constexpr auto kOld = "# 01-02\n\n## 2024\n\nold\n";

ImportBatch oneEntry(const QString& body = QStringLiteral("imported")) {
    return batchOf({entry({2024, 1, 2}, body)});
}

ImportBatch threeDays() {
    return batchOf({entry({2024, 1, 1}, QStringLiteral("first")),
                    entry({2024, 1, 2}, QStringLiteral("second")),
                    entry({2024, 1, 3}, QStringLiteral("third"))});
}

TEST(ImportApply, WritesTheDayAndTellsIt) {
    const TemporaryVault vault;
    vault.write(kDay, kOld);
    const ImportRecord record = importInto(vault.path(), oneEntry());
    const QByteArray now = "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported\n";
    EXPECT_EQ(vault.read(kDay), now);
    ASSERT_EQ(record.files.size(), 1U);
    const ImportRecord::File& file = record.files[0];
    EXPECT_EQ(file.day, u"01-02");
    EXPECT_TRUE(file.existed);
    EXPECT_EQ(file.before, hash(QString::fromUtf8(kOld)));
    EXPECT_EQ(file.after, hash(QString::fromUtf8(now)));
    EXPECT_EQ(file.committed, true);
    ASSERT_EQ(file.added.size(), 1U);
    EXPECT_TRUE(file.added[0].appended);
    EXPECT_EQ(file.added[0].entryTexts, QStringList{QStringLiteral("imported")});
    EXPECT_EQ(vault.read(importsPath(record, QStringLiteral("/before/01-02.md"))), kOld);
    EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
}

TEST(ImportApply, GivesTheRecordThatIsReadBack) {
    const TemporaryVault vault;
    ImportBatch batch = threeDays();
    batch.skipped = {.photos = 3, .undated = 1};
    ApplyContext context = contextOf(vault.path());
    context.label = QStringLiteral("Other");
    context.now = context.now.addMSecs(700);
    const ImportRecord record = apply(planIn(vault.path(), batch), batch, {}, context);
    EXPECT_EQ(record, onlyRecord(vault.path()));
    EXPECT_EQ(record.state, ImportRecord::State::done);
    EXPECT_EQ(record.at, moment());
    EXPECT_EQ(record.by, u"Host");
    EXPECT_EQ(record.deviceID, QStringLiteral("this"));
    EXPECT_EQ(record.label, QStringLiteral("Other"));
    EXPECT_EQ(record.entries, 3);
    EXPECT_EQ(record.days, 3);
    EXPECT_EQ(record.skipped, batch.skipped);
    EXPECT_TRUE(record.id.startsWith(idStem(moment(), QTimeZone::utc(), batch.source)));
}

TEST(ImportApply, TellsHowFarItIs) {
    const TemporaryVault vault;
    std::vector<Progress> told;
    ApplyContext context = contextOf(vault.path());
    context.progress = [&](const Progress& one) { told.push_back(one); };
    const ImportBatch batch = threeDays();
    apply(planIn(vault.path(), batch), batch, {}, context);
    EXPECT_THAT(told, ElementsAre(Progress{0, 3, MonthDay{1, 1}}, Progress{1, 3, MonthDay{1, 2}},
                                  Progress{2, 3, MonthDay{1, 3}}, Progress{3, 3, std::nullopt}));
}

TEST(ImportApply, RefusesAPlanOfOtherOptionsAndTouchesNothing) {
    const TemporaryVault vault;
    const ImportBatch batch = oneEntry();
    const ImportPlan plan = planIn(vault.path(), batch);
    ImportOptions others;
    others.weather = true;
    try {
        apply(plan, batch, others, contextOf(vault.path()));
        ADD_FAILURE() << "not refused";
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::stalePlan);
    }
    EXPECT_TRUE(vault.names().isEmpty());
}

TEST(ImportApply, LeavesADoneRecordWithoutFilesIfEverythingArrivedMeanwhile) {
    const TemporaryVault vault;
    // Two entries of a section are known by the records alone.
    const ImportBatch batch = batchOf({entryAt({2024, 1, 2}, {8, 0}, QStringLiteral("early")),
                                       entryAt({2024, 1, 2}, {20, 0}, QStringLiteral("late"))});
    const ImportPlan plan = planIn(vault.path(), batch);
    importInto(vault.path(), batch);
    const DayFiles before = dayFilesOf(vault);
    const ImportRecord record = apply(plan, batch, {}, contextOf(vault.path(), 60));
    EXPECT_EQ(record.state, ImportRecord::State::done);
    EXPECT_TRUE(record.files.empty());
    EXPECT_EQ(record.entries, 0);
    EXPECT_EQ(record.days, 0);
    EXPECT_EQ(dayFilesOf(vault), before);
}

TEST(ImportApply, AddsNothingThatARecordTellsOfThatArrivedMeanwhile) {
    const TemporaryVault vault;
    const ImportBatch batch = batchOf({entryAt({2024, 1, 2}, {8, 0}, QStringLiteral("early")),
                                       entryAt({2024, 1, 2}, {20, 0}, QStringLiteral("late"))});
    const ImportRecord first = importInto(vault.path(), batch);
    const QString path = QStringLiteral(".velmar/imports/%1.json").arg(first.id);
    const QByteArray bytes = vault.read(path);
    const DayFiles before = dayFilesOf(vault);
    // The day has come with the sync, its record comes whole behind the plan.
    vault.write(path, bytes.chopped(3));
    const ImportPlan plan = planIn(vault.path(), batch);
    ASSERT_EQ(plan.stats.entries, 2);
    vault.write(path, bytes);
    EXPECT_TRUE(apply(plan, batch, {}, contextOf(vault.path(), 60)).files.empty());
    EXPECT_EQ(dayFilesOf(vault), before);
}

TEST(ImportApply, AddsNothingTheSecondTime) {
    const TemporaryVault vault;
    vault.write(kDay, kOld);
    importInto(vault.path(), threeDays());
    const DayFiles before = dayFilesOf(vault);
    EXPECT_EQ(importInto(vault.path(), threeDays(), 60).entries, 0);
    EXPECT_EQ(dayFilesOf(vault), before);
}

TEST(ImportApply, GivesTwoImportsOfOneSecondTheirOwnRecords) {
    const TemporaryVault vault;
    const ImportRecord one = importInto(vault.path(), oneEntry());
    const ImportRecord two = importInto(vault.path(), oneEntry(QStringLiteral("other words")));
    EXPECT_NE(one.id, two.id);
    EXPECT_EQ(records(vault.path(), moment()).size(), 2U);
}

TEST(ImportApply, KeepsNoCopyOfADayThatHadNoFile) {
    const TemporaryVault vault;
    const ImportRecord record = importInto(vault.path(), oneEntry());
    EXPECT_FALSE(record.files[0].existed);
    EXPECT_EQ(record.files[0].before, std::nullopt);
    EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/before/01-02.md"))));
    EXPECT_TRUE(vault.exists(importsPath(record, QStringLiteral("/before"))));
}

TEST(ImportApply, AddsToWhatTheDayHoldsAtItsTurn) {
    const TemporaryVault vault;
    const ImportBatch batch = oneEntry();
    const ImportPlan plan = planIn(vault.path(), batch);
    vault.write(kDay, "# 01-02\n\n## 2024\n\nwritten meanwhile\n");
    const ImportRecord record = apply(plan, batch, {}, contextOf(vault.path()));
    EXPECT_EQ(vault.read(kDay), "# 01-02\n\n## 2024\n\nwritten meanwhile\n\n---\n\nimported\n");
    EXPECT_TRUE(record.files[0].existed);
    EXPECT_EQ(vault.read(importsPath(record, QStringLiteral("/before/01-02.md"))),
              "# 01-02\n\n## 2024\n\nwritten meanwhile\n");
}

// The day's file is made the journal's other name, so it changes between being read and written.
TEST(ImportApply, NeverWritesOverWhatAnotherProgramWritesAtThatMoment) {
    const TemporaryVault vault;
    const ImportBatch batch = oneEntry();
    ApplyContext context = contextOf(vault.path());
    context.progress = [&](const Progress& one) {
        if (!one.current) return;
        const QString journal =
            importsPath(onlyRecord(vault.path()), QStringLiteral("/journal.jsonl"));
        ASSERT_EQ(::link(QFile::encodeName(vault.filePath(journal)).constData(),
                         QFile::encodeName(vault.filePath(kDay)).constData()),
                  0);
    };
    try {
        apply(planIn(vault.path(), batch), batch, {}, context);
        ADD_FAILURE() << "not stopped";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), ESTALE);
    }
    EXPECT_TRUE(vault.read(kDay).startsWith(R"({"added":)"));
    EXPECT_EQ(onlyRecord(vault.path()).state, ImportRecord::State::writing);
}

TEST(ImportApply, MakesAFileAnewThatVanishedSinceThePlan) {
    const TemporaryVault vault;
    vault.write(kDay, kOld);
    const ImportBatch batch = oneEntry();
    const ImportPlan plan = planIn(vault.path(), batch);
    QFile::remove(vault.filePath(kDay));
    const ImportRecord record = apply(plan, batch, {}, contextOf(vault.path()));
    EXPECT_EQ(vault.read(kDay), "# 01-02\n\n## 2024\n\nimported\n");
    EXPECT_FALSE(record.files[0].existed);
}

TEST(ImportApply, ReportsNothingOfAYearWithoutAHeader) {
    const TemporaryVault vault;
    ImportBatch batch = batchOf({entry({999, 1, 2}, QStringLiteral("long ago")),
                                 entry({2024, 1, 2}, QStringLiteral("imported"))});
    const ImportRecord record = importInto(vault.path(), batch);
    EXPECT_EQ(record.entries, 1);
    EXPECT_EQ(vault.read(kDay), "# 01-02\n\n## 2024\n\nimported\n");
    // A plan from elsewhere that claims such a year is planned anew at the day's turn.
    ImportPlan plan = planIn(vault.path(), oneEntry(QStringLiteral("more")));
    plan.changes[0].additions[0].year = 999;
    plan.changes[0].additions[0].entries[0].day.year = 999;
    EXPECT_EQ(apply(plan, batch, {}, contextOf(vault.path(), 60)).entries, 0);
}

TEST(ImportApply, StopsAtADayThatIsNotUtf8WithAnInterruptedRecord) {
    const TemporaryVault vault;
    vault.write(kDay, "# 01-02\n\n## 2024\n\n\xFF\n");
    const ImportBatch batch = threeDays();
    try {
        importInto(vault.path(), batch);
        ADD_FAILURE() << "not stopped";
    } catch (const FileError& error) {
        EXPECT_EQ(error.operation(), FileOperation::Decode);
    }
    EXPECT_EQ(vault.read(kDay), "# 01-02\n\n## 2024\n\n\xFF\n");
    EXPECT_EQ(vault.read(QStringLiteral("01-01.md")), "# 01-01\n\n## 2024\n\nfirst\n");
    EXPECT_FALSE(vault.exists(QStringLiteral("01-03.md")));
    const ImportRecord record = onlyRecord(vault.path());
    EXPECT_EQ(record.state, ImportRecord::State::writing);
    EXPECT_EQ(record.days, 1);
    EXPECT_EQ(record.entries, 1);
    EXPECT_EQ(undo(record, vault.path(), moment()), (UndoResult{.restored = 1}));
    EXPECT_FALSE(vault.exists(QStringLiteral("01-01.md")));
}

TEST(ImportApply, KeepsALinkInTheDaysPlace) {
    const TemporaryVault vault;
    const QString target = QStringLiteral("elsewhere/day.md");
    vault.write(target, kOld);
    ASSERT_TRUE(QFile::link(vault.filePath(target), vault.filePath(kDay)));
    const ImportRecord record = importInto(vault.path(), oneEntry());
    EXPECT_EQ(vault.read(target), "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported\n");
    EXPECT_EQ(undo(record, vault.path(), moment()), (UndoResult{.restored = 1}));
    EXPECT_EQ(vault.read(target), kOld);
    EXPECT_FALSE(QFile::symLinkTarget(vault.filePath(kDay)).isEmpty());
}

TEST(ImportApply, EndsAsAfterACrashWhenProgressThrows) {
    const TemporaryVault vault;
    ApplyContext context = contextOf(vault.path());
    context.progress = [](const Progress& one) {
        if (one.done == 2) throw std::runtime_error("enough");
    };
    const ImportBatch batch = threeDays();
    EXPECT_THROW(apply(planIn(vault.path(), batch), batch, {}, context), std::runtime_error);
    const ImportRecord record = onlyRecord(vault.path());
    EXPECT_EQ(record.state, ImportRecord::State::writing);
    EXPECT_EQ(record.days, 2);
    const std::vector<ImportRecord> all = records(vault.path(), moment());
    EXPECT_EQ(interrupted(all, QStringLiteral("this")).size(), 1U);
    EXPECT_TRUE(interrupted(all, QStringLiteral("other")).empty());
}

TEST(ImportApply, WritesTwoLinesForEachDay) {
    const TemporaryVault vault;
    ApplyContext context = contextOf(vault.path());
    QByteArray journal;
    context.progress = [&](const Progress& one) {
        if (one.current) return;
        for (const ImportRecord& record : records(vault.path(), moment())) {
            journal = vault.read(importsPath(record, QStringLiteral("/journal.jsonl")));
        }
    };
    const ImportBatch batch = threeDays();
    apply(planIn(vault.path(), batch), batch, {}, context);
    std::vector<std::pair<QString, bool>> lines;
    for (const QByteArray& line : journal.split('\n')) {
        if (line.isEmpty()) continue;
        const auto file = ImportRecord::File::decode(line);
        ASSERT_TRUE(file.has_value());
        lines.emplace_back(file->day, file->committed.value_or(false));
    }
    EXPECT_TRUE(journal.endsWith('\n'));
    EXPECT_THAT(lines, ElementsAre(std::pair(QStringLiteral("01-01"), false),
                                   std::pair(QStringLiteral("01-01"), true),
                                   std::pair(QStringLiteral("01-02"), false),
                                   std::pair(QStringLiteral("01-02"), true),
                                   std::pair(QStringLiteral("01-03"), false),
                                   std::pair(QStringLiteral("01-03"), true)));
}

}  // namespace
}  // namespace diary::ImportLog
