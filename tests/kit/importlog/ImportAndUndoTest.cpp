// One process keeps or undoes an import that another is still writing, or undoing: it is refused,
// nothing is half told, and once the other has ended everything can be taken back.
#include <gtest/gtest.h>

#include <QtCore/QProcess>
#include <cerrno>

#include "DiaryKit/Foundation/FileError.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/kit/importlog/WrittenBatch.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Printing.h"

namespace diary::test {
namespace {

using State = ImportRecord::State;

const QString kThisMachine = QStringLiteral("this");

// An import in a process of its own, of so many days, that takes a day at each step.
class SteppedImport {
public:
    static constexpr int kDays = 4;

    explicit SteppedImport(const TemporaryVault& vault) {
        m_process.start(QStringLiteral(VELMAR_IMPORT_WRITER),
                        {vault.path(), QStringLiteral("stepwise"), QStringLiteral("dayOne"),
                         QString::number(kDays), QStringLiteral("words")});
        awaitDay(0);
    }

    // Lets it write up to this day.
    void stepTo(int day) {
        while (m_day < day) {
            m_process.write("\n");
            awaitDay(m_day + 1);
        }
    }

    void finish() {
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.waitForFinished(kDeadline));
        EXPECT_EQ(m_process.exitCode(), 0);
        EXPECT_TRUE(m_process.readAll().endsWith("done\n"));
    }

    void kill() {
        m_process.kill();
        EXPECT_TRUE(m_process.waitForFinished(kDeadline));
    }

private:
    static constexpr int kDeadline = 60'000;

    void awaitDay(int day) {
        while (!m_process.canReadLine()) ASSERT_TRUE(m_process.waitForReadyRead(kDeadline));
        ASSERT_EQ(m_process.readLine(), "day " + QByteArray::number(day) + '\n');
        m_day = day;
    }

    QProcess m_process;
    int m_day = 0;
};

class ImportAndUndo : public testing::Test {
protected:
    ImportAndUndo() {
        m_vault.write(QStringLiteral("01-01.md"), "# 01-01\n\n\n## 2024\nold  \n\n");
        m_vault.write(QStringLiteral("01-03.md"), "# 01-03\n## 2020\n\nolder");
        m_old = dayFilesOf(m_vault);
    }

    [[nodiscard]] ImportRecord listed() const { return onlyRecord(m_vault.path()); }

    [[nodiscard]] std::optional<ImportRecord> offered() const {
        return ImportLog::interruptedImport(m_vault.path(), kThisMachine, moment(9));
    }

    // The code of the failure; 0 without one.
    template <typename Action>
    static int refusal(Action action) {
        try {
            action();
        } catch (const FileError& error) {
            EXPECT_EQ(error.operation(), FileOperation::Coordinate);
            return error.code();
        }
        return 0;
    }

    [[nodiscard]] int refusalOfUndo(const ImportRecord& record) const {
        return refusal([&] { ImportLog::undo(record, m_vault.path(), moment(9)); });
    }

    // The bytes from before the import, with its record undone.
    void expectOldBytes() const {
        EXPECT_EQ(dayFilesOf(m_vault), m_old);
        EXPECT_EQ(listed().state, State::undone);
    }

    TemporaryVault m_vault;
    DayFiles m_old;
};

TEST_F(ImportAndUndo, AnImportThatIsBeingWrittenIsNeitherUndoneNorKept) {
    SteppedImport import(m_vault);
    import.stepTo(2);
    const ImportRecord half = listed();
    EXPECT_EQ(half.state, State::writing);
    EXPECT_EQ(half.days, 2);
    const DayFiles before = dayFilesOf(m_vault);
    EXPECT_EQ(refusalOfUndo(half), EBUSY);
    EXPECT_EQ(refusal([&] { ImportLog::markDone(half, m_vault.path()); }), EBUSY);
    EXPECT_EQ(dayFilesOf(m_vault), before);
    EXPECT_EQ(listed(), half);
    EXPECT_TRUE(ImportLog::isBeingWritten(half, m_vault.path()));
    EXPECT_EQ(offered(), std::nullopt);
    import.finish();
    EXPECT_EQ(listed().days, SteppedImport::kDays);
    EXPECT_EQ(listed().state, State::done);
}

TEST_F(ImportAndUndo, AListingFromTheMiddleUndoesAllOfAFinishedImport) {
    SteppedImport import(m_vault);
    import.stepTo(2);
    const ImportRecord half = listed();
    import.finish();
    EXPECT_EQ(ImportLog::undo(half, m_vault.path(), moment(9)),
              (ImportLog::UndoResult{.restored = SteppedImport::kDays}));
    expectOldBytes();
}

TEST_F(ImportAndUndo, AListingFromTheMiddleUndoesAllOfAKilledImport) {
    SteppedImport import(m_vault);
    import.stepTo(1);
    const ImportRecord early = listed();
    import.stepTo(3);
    import.kill();
    EXPECT_FALSE(ImportLog::isBeingWritten(early, m_vault.path()));
    ASSERT_TRUE(offered().has_value());
    EXPECT_EQ(offered()->days, 3);
    EXPECT_EQ(ImportLog::undo(early, m_vault.path(), moment(9)),
              (ImportLog::UndoResult{.restored = 3}));
    expectOldBytes();
    EXPECT_EQ(offered(), std::nullopt);
}

TEST_F(ImportAndUndo, KeepingFromAnOldListingTellsAllThatWasWritten) {
    SteppedImport import(m_vault);
    import.stepTo(1);
    const ImportRecord early = listed();
    import.stepTo(3);
    import.kill();
    ImportLog::markDone(early, m_vault.path());
    EXPECT_EQ(listed().state, State::done);
    EXPECT_EQ(listed().days, 3);
    ImportLog::undo(early, m_vault.path(), moment(9));
    expectOldBytes();
    // An undone import isn't kept by a window that still shows it as cut off.
    ImportLog::markDone(early, m_vault.path());
    expectOldBytes();
}

TEST_F(ImportAndUndo, OffersTheCutOffImportBesideOneThatIsBeingWritten) {
    SteppedImport dead(m_vault);
    dead.stepTo(1);
    dead.kill();
    const ImportRecord cutOff = listed();
    SteppedImport living(m_vault);
    living.stepTo(1);
    ASSERT_TRUE(offered().has_value());
    EXPECT_EQ(offered()->id, cutOff.id);
    living.kill();
}

TEST_F(ImportAndUndo, OffersNoImportOfAnotherMachine) {
    SteppedImport import(m_vault);
    import.stepTo(1);
    import.kill();
    EXPECT_EQ(ImportLog::interruptedImport(m_vault.path(), QStringLiteral("other"), moment(9)),
              std::nullopt);
    EXPECT_EQ(ImportLog::interruptedImport(m_vault.path() + QLatin1String("/none"), kThisMachine,
                                           moment(9)),
              std::nullopt);
}

// Whatever the moment, one of two undos does all of it and the other nothing.
TEST_F(ImportAndUndo, TwoUndosAtOnceTakeTheImportOutOnce) {
    constexpr int kRounds = 20;
    constexpr int kDays = 12;
    constexpr int kRefused = 100;
    int restored = 0;
    for (int round = 0; round < kRounds; ++round) {
        const TemporaryVault vault;
        const ImportRecord record = importInto(
            vault.path(), writtenBatch(QStringLiteral("dayOne"), kDays, QStringLiteral("words")));
        const auto undoing = [&](const ChildProcess::Side& test) {
            test.await();
            try {
                return ImportLog::undo(record, vault.path(), moment(9)).restored;
            } catch (const FileError& error) {
                return error.code() == EBUSY ? kRefused : kRefused + 1;
            }
        };
        ChildProcess one(undoing);
        ChildProcess two(undoing);
        one.tell();
        two.tell();
        for (ChildProcess* undo : {&one, &two}) {
            const int result = undo->join();
            EXPECT_TRUE(result == kDays || result == 0 || result == kRefused) << result;
            if (result == kDays) ++restored;
        }
        EXPECT_TRUE(dayFilesOf(vault).empty());
        EXPECT_EQ(onlyRecord(vault.path()).state, State::undone);
    }
    EXPECT_EQ(restored, kRounds);
}

}  // namespace
}  // namespace diary::test
