// An import and an undo of few days that die, or lose their power, at every call that changes a
// file: each day's file is the old or the new one, whole; the record tells how far the import came;
// and keeping, undoing and importing again lead where they promise.
#include <cerrno>

#include "tests/kit/importlog/CutOffImports.h"
#include "tests/support/Printing.h"

namespace diary::test {
namespace {

using State = ImportRecord::State;

class ImportFaults : public testing::TestWithParam<Mode> {};

TEST_P(ImportFaults, OfApplyLeaveWholeDaysAndBothWaysOut) {
    const Expected expected(3);
    const TemporaryVault counting;
    prepare(counting, expected.days);
    const int calls = countedCalls(counting, applying(expected.days));
    ASSERT_GE(calls, 40);
    for (int call = 1; call <= calls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, expected.days);
        cutOff(vault, applying(expected.days), GetParam(), QString::number(call));
        examineBothWaysOut(vault, expected);
    }
}

TEST_P(ImportFaults, OfKeepingLeaveTheSameDaysAndBothWaysOut) {
    const Expected expected(3);
    const auto cutOffInTheMiddle = [&](const TemporaryVault& vault) {
        prepare(vault, expected.days);
        cutOff(vault, applying(expected.days), suddenEnds().front(), QStringLiteral("24"));
        EXPECT_EQ(onlyRecord(vault.path()).state, State::writing);
        EXPECT_GE(onlyRecord(vault.path()).days, 1);
    };
    const TemporaryVault counting;
    cutOffInTheMiddle(counting);
    const int calls = countedCalls(counting, keeping());
    ASSERT_GE(calls, 5);
    for (int call = 1; call <= calls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        cutOffInTheMiddle(vault);
        const DayFiles days = dayFilesOf(vault);
        const ImportRecord record = onlyRecord(vault.path());
        cutOff(vault, keeping(), GetParam(), QString::number(call));
        EXPECT_EQ(dayFilesOf(vault), days);
        EXPECT_EQ(onlyRecord(vault.path()).files, record.files);
        EXPECT_NE(onlyRecord(vault.path()).state, State::undone);
        expectNoTemporaries(vault);
        const TemporaryVault copy;
        copyVault(vault, copy);
        keepAndImportAgain(copy, expected);
        undoAll(vault, expected.old);
    }
}

// An import that the user went on writing in, in two of its days.
class EditedImport {
public:
    EditedImport() {
        prepare(m_vault, kDays);
        m_old = dayFilesOf(m_vault);
        importDays(m_vault, kDays);
        const QString second = QStringLiteral("01-02.md");
        m_vault.write(second, m_vault.read(second) + "\nmine\n");
        const QString third = QStringLiteral("01-03.md");
        m_vault.write(third, m_vault.read(third) + "\n\n");
    }

    static constexpr int kDays = 6;
    TemporaryVault m_vault;
    DayFiles m_old;
};

TEST_P(ImportFaults, OfUndoLeaveWholeDaysAndASecondTry) {
    const EditedImport counted;
    const DayFiles imported = dayFilesOf(counted.m_vault);
    const int calls = countedCalls(counted.m_vault, undoing());
    ASSERT_GE(calls, 20);
    const DayFiles undone = dayFilesOf(counted.m_vault);
    EXPECT_FALSE(undone.contains(QStringLiteral("01-03.md")));
    EXPECT_EQ(undone.at(QStringLiteral("01-02.md")),
              "# 01-02\n## 2020\n\nolder\n\n## 2024\n\nmine\n");
    EXPECT_EQ(undone.at(QStringLiteral("01-01.md")), counted.m_old.at(QStringLiteral("01-01.md")));
    for (int call = 1; call <= calls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const EditedImport one;
        cutOff(one.m_vault, undoing(), GetParam(), QString::number(call));
        for (const auto& [name, bytes] : dayFilesOf(one.m_vault)) {
            const auto end = undone.find(name);
            EXPECT_TRUE(bytes == imported.at(name) || (end != undone.end() && bytes == end->second))
                << name.toStdString() << bytes.toStdString();
        }
        const ImportRecord record = onlyRecord(one.m_vault.path());
        EXPECT_TRUE(record.state == State::done || record.state == State::undone);
        if (record.state == State::undone) {
            EXPECT_EQ(dayFilesOf(one.m_vault), undone);
        }
        ImportLog::undo(record, one.m_vault.path(), moment(90));
        EXPECT_EQ(dayFilesOf(one.m_vault), undone);
        EXPECT_EQ(onlyRecord(one.m_vault.path()).state, State::undone);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ImportFaults, testing::ValuesIn(suddenEnds()), modeName);

// Each call fails in its turn, with a full disk or without permission: the import stops there with
// an error, or comes to its end where the failure doesn't matter.
class RefusedCalls : public testing::TestWithParam<int> {};

TEST_P(RefusedCalls, StopTheImportAsACrashDoes) {
    const Expected expected(3);
    int stopped = 0;
    constexpr int kMoreThanAllCalls = 100;
    for (int call = 1; call <= kMoreThanAllCalls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, expected.days);
        const FaultyRun run = runWriter(vault, applying(expected.days),
                                        {{QStringLiteral("FAIL_AT"), QString::number(call)},
                                         {QStringLiteral("ERRNO"), QString::number(GetParam())},
                                         {QStringLiteral("FAIL_FOREVER"), QStringLiteral("1")}});
        EXPECT_TRUE(run.isEnded);
        EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1);
        if (run.exitCode == 1) {
            ++stopped;
        } else {
            EXPECT_EQ(dayFilesOf(vault), expected.imported);
        }
        examineBothWaysOut(vault, expected);
    }
    EXPECT_GE(stopped, 40);
}

INSTANTIATE_TEST_SUITE_P(All, RefusedCalls, testing::Values(ENOSPC, EACCES),
                         [](const testing::TestParamInfo<int>& one) {
                             return one.param == ENOSPC ? "FullDisk" : "NoPermission";
                         });

}  // namespace
}  // namespace diary::test
