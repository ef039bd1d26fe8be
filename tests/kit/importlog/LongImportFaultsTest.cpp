// An import of forty days and its undo that die, lose their power, or are refused a call. Each run
// of the tests visits a few calls of each; VELMAR_FAULT_EVERY_CALL=1 visits all.
#include <cerrno>

#include "tests/kit/importlog/CutOffImports.h"
#include "tests/support/Printing.h"
#include "tests/support/faults/ChosenCalls.h"

namespace diary::test {
namespace {

using State = ImportRecord::State;

constexpr int kLong = 40;
// So many calls of each run are visited where not all are.
constexpr int kVisited = 4;

std::string runName() {
    return testing::UnitTest::GetInstance()->current_test_info()->name();
}

// The calls to visit, and for a power cut the end of the program.
QStringList endsOf(const Mode& mode, int calls) {
    QStringList ends;
    for (const int call : chosenCalls(calls, kVisited, runName())) ends << QString::number(call);
    if (mode.isPowerCut()) ends << QStringLiteral("exit");
    return ends;
}

class LongApply : public testing::TestWithParam<Mode> {};

TEST_P(LongApply, LeavesWholeDaysAndBothWaysOut) {
    const Expected expected(kLong);
    const TemporaryVault counting;
    prepare(counting, kLong);
    const int calls = countedCalls(counting, applying(kLong));
    ASSERT_GE(calls, 400);
    for (const QString& end : endsOf(GetParam(), calls)) {
        SCOPED_TRACE("at call " + end.toStdString());
        const TemporaryVault vault;
        prepare(vault, kLong);
        cutOff(vault, applying(kLong), GetParam(), end);
        if (end == u"exit") {
            EXPECT_EQ(onlyRecord(vault.path()).state, State::done);
        }
        examineBothWaysOut(vault, expected);
        if (HasFailure()) break;
    }
}

INSTANTIATE_TEST_SUITE_P(All, LongApply, testing::ValuesIn(suddenEnds()), modeName);

// An import that is to be undone, and what the undo has to make of it.
class Undoable {
public:
    // Ahead of the undo.
    [[nodiscard]] const TemporaryVault& vault() const { return m_vault; }
    [[nodiscard]] const DayFiles& imported() const { return m_imported; }
    [[nodiscard]] const ImportRecord& record() const { return m_record; }
    // Behind it.
    [[nodiscard]] const DayFiles& undone() const { return m_undone; }
    [[nodiscard]] int calls() const { return m_calls; }

protected:
    // Keeps what the vault holds, and undoes a copy.
    void settle() {
        m_imported = dayFilesOf(m_vault);
        m_record = onlyRecord(m_vault.path());
        const TemporaryVault copy;
        copyVault(m_vault, copy);
        m_calls = countedCalls(copy, undoing());
        m_undone = dayFilesOf(copy);
    }

    TemporaryVault m_vault;

private:
    DayFiles m_imported;
    DayFiles m_undone;
    ImportRecord m_record;
    int m_calls = 0;
};

// The user went on writing in four of five days: behind the import, nothing but blank lines, in a
// year of their own, and the same words as the import.
class EditedUndoable : public Undoable {
public:
    EditedUndoable() {
        prepare(m_vault, kLong);
        const DayFiles old = dayFilesOf(m_vault);
        importDays(m_vault, kLong);
        MonthDay day{1, 1};
        for (int i = 0; i < kLong; ++i, day = day.advanced(1)) {
            m_vault.write(day.fileName(), m_vault.read(day.fileName()) + editOf(i, day));
        }
        settle();
        day = {1, 1};
        for (int i = 0; i < kLong; ++i, day = day.advanced(1)) expectUndone(i, day, old);
    }

private:
    enum Edit { None, Behind, BlankLines, OtherYear, SameWords, kEdits };

    static Edit editAt(int i) { return static_cast<Edit>((kLong - 1 - i) % kEdits); }

    static QByteArray editOf(int i, const MonthDay& day) {
        switch (editAt(i)) {
            case Behind:
                return "\nmine\n";
            case BlankLines:
                return "\n\n";
            case OtherYear:
                return "\n## 2025\n\nmine\n";
            case SameWords:
                return "\nwords of " + day.headerTitle().toLatin1() + "\n";
            default:
                return {};
        }
    }

    void expectUndone(int i, const MonthDay& day, const DayFiles& old) const {
        const auto found = undone().find(day.fileName());
        const auto before = old.find(day.fileName());
        const Edit edit = editAt(i);
        const bool isMine = edit == Behind || edit == OtherYear;
        ASSERT_EQ(found != undone().end(), isMine || edit == SameWords || before != old.end()) << i;
        if (found == undone().end()) return;
        EXPECT_EQ(found->second.count("words of"), edit == SameWords ? 1 : 0)
            << found->second.toStdString();
        EXPECT_EQ(found->second.count("mine\n"), isMine ? 1 : 0) << found->second.toStdString();
        if (before == old.end()) return;
        if (edit == None) {
            EXPECT_EQ(found->second, before->second);
        }
        EXPECT_TRUE(found->second.contains("old"));
    }
};

// The import itself was cut off, between the two lines that its journal has for the 20th day.
class CutOffUndoable : public Undoable {
public:
    CutOffUndoable() {
        prepare(m_vault, kLong);
        const DayFiles old = dayFilesOf(m_vault);
        constexpr int kSomewhereInTheMiddle = 235;
        cutOff(m_vault, applying(kLong), suddenEnds().front(),
               QString::number(kSomewhereInTheMiddle));
        settle();
        EXPECT_EQ(record().state, State::writing);
        EXPECT_GE(record().days, kLong / 4);
        EXPECT_LE(record().days, 3 * kLong / 4);
        EXPECT_EQ(undone(), old);
    }
};

// Each day is as it was ahead of the undo or as the undo leaves it, and the record is untouched
// until all are.
void examineUndo(const TemporaryVault& vault, const Undoable& whole) {
    const DayFiles now = dayFilesOf(vault);
    for (const auto& [name, bytes] : whole.imported()) {
        const auto found = now.find(name);
        const auto end = whole.undone().find(name);
        if (found == now.end()) {
            EXPECT_EQ(end, whole.undone().end()) << name.toStdString();
        } else if (found->second != bytes) {
            ASSERT_NE(end, whole.undone().end()) << name.toStdString();
            EXPECT_EQ(found->second, end->second) << name.toStdString();
        }
    }
    EXPECT_LE(now.size(), whole.imported().size());
    const ImportRecord record = onlyRecord(vault.path());
    if (record.state == State::undone) {
        EXPECT_EQ(now, whole.undone());
    } else {
        EXPECT_EQ(record, whole.record());
    }
}

// The same undo once more, unless it is done, ends where the first was to end.
void undoAgain(const TemporaryVault& vault, const Undoable& whole) {
    const ImportRecord record = onlyRecord(vault.path());
    if (record.state == State::undone) return;
    ImportLog::undo(record, vault.path(), moment(90));
    EXPECT_EQ(dayFilesOf(vault), whole.undone());
    EXPECT_EQ(onlyRecord(vault.path()).state, State::undone);
    EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
    EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/undo.jsonl"))));
}

// Behind a cut-off undo of a cut-off import both ways are still open.
void examineBothWaysOutOfUndo(const TemporaryVault& vault, const Undoable& whole) {
    examineUndo(vault, whole);
    expectNoTemporaries(vault);
    if (onlyRecord(vault.path()).state == State::writing) {
        const TemporaryVault copy;
        copyVault(vault, copy);
        keepAndImportAgain(copy, Expected(kLong));
    }
    undoAgain(vault, whole);
}

class LongUndo : public testing::TestWithParam<Mode> {
protected:
    static void leavesWholeDays(const Undoable& whole) {
        ASSERT_GE(whole.calls(), 80);
        for (const QString& end : endsOf(GetParam(), whole.calls())) {
            SCOPED_TRACE("at call " + end.toStdString());
            const TemporaryVault vault;
            copyVault(whole.vault(), vault);
            cutOff(vault, undoing(), GetParam(), end);
            if (end == u"exit") {
                EXPECT_EQ(onlyRecord(vault.path()).state, State::undone);
            }
            examineBothWaysOutOfUndo(vault, whole);
            if (HasFailure()) break;
        }
    }
};

TEST_P(LongUndo, OfAnEditedImportLeavesWholeDaysAndASecondTry) {
    leavesWholeDays(EditedUndoable());
}

TEST_P(LongUndo, OfACutOffImportLeavesWholeDaysAndBothWaysOut) {
    leavesWholeDays(CutOffUndoable());
}

INSTANTIATE_TEST_SUITE_P(All, LongUndo, testing::ValuesIn(suddenEnds()), modeName);

// A call that fails, alone or with all that follow.
struct Refusal {
    std::string name;
    int code;
    bool isForever;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

std::vector<Refusal> refusals() {
    return {{"FullDisk", ENOSPC, true},     {"FullDiskForAMoment", ENOSPC, false},
            {"NoPermission", EACCES, true}, {"NoPermissionForAMoment", EACCES, false},
            {"BrokenDisk", EIO, true},      {"BrokenDiskForAMoment", EIO, false}};
}

class RefusedLong : public testing::TestWithParam<Refusal> {
protected:
    // Gives whether the program came to its end in spite of the refusal.
    static bool ends(const TemporaryVault& vault, const QStringList& action, int call) {
        Faults faults = {{QStringLiteral("FAIL_AT"), QString::number(call)},
                         {QStringLiteral("ERRNO"), QString::number(GetParam().code)}};
        if (GetParam().isForever) faults[QStringLiteral("FAIL_FOREVER")] = QStringLiteral("1");
        const FaultyRun run = runWriter(vault, action, faults);
        EXPECT_TRUE(run.isEnded);
        EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.output.toStdString();
        // What can be cleared away is cleared away at once.
        if (!GetParam().isForever) {
            EXPECT_EQ(temporariesIn(vault), QStringList());
        }
        return run.exitCode == 0;
    }
};

TEST_P(RefusedLong, ApplyStopsAsACrashDoes) {
    const Expected expected(kLong);
    const TemporaryVault counting;
    prepare(counting, kLong);
    for (const int call :
         chosenCalls(countedCalls(counting, applying(kLong)), kVisited, runName())) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, kLong);
        if (ends(vault, applying(kLong), call)) {
            EXPECT_EQ(dayFilesOf(vault), expected.imported);
        }
        examineBothWaysOut(vault, expected);
        if (HasFailure()) break;
    }
}

TEST_P(RefusedLong, UndoLeavesWholeDaysAndASecondTry) {
    const EditedUndoable whole;
    for (const int call : chosenCalls(whole.calls(), kVisited, runName())) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        copyVault(whole.vault(), vault);
        if (ends(vault, undoing(), call)) {
            EXPECT_EQ(onlyRecord(vault.path()).state, State::undone);
        }
        examineBothWaysOutOfUndo(vault, whole);
        if (HasFailure()) break;
    }
}

INSTANTIATE_TEST_SUITE_P(All, RefusedLong, testing::ValuesIn(refusals()),
                         [](const auto& one) { return one.param.name; });

}  // namespace
}  // namespace diary::test
