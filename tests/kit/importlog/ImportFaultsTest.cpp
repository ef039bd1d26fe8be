// An import and an undo that die, or lose their power, at every call that changes a file: each
// day's file is the old or the new one, whole; the record tells how far the import came; and
// keeping, undoing and importing again lead where they promise.
#include <QtCore/QDirIterator>
#include <algorithm>
#include <cerrno>
#include <string>

#include "DiaryKit/Files/AtomicFile.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/kit/importlog/WrittenBatch.h"
#include "tests/support/Printing.h"
#include "tests/support/faults/FaultyRun.h"

namespace diary::test {
namespace {

using State = ImportRecord::State;

struct Mode {
    std::string name;
    QString at;
    Faults rest;
};

std::vector<Mode> modes() {
    std::vector<Mode> all;
    for (const char* when : {"before", "after", "torn"}) {
        all.push_back({std::string("Killed_") + when,
                       QStringLiteral("KILL_AT"),
                       {{QStringLiteral("KILL_WHEN"), QString::fromLatin1(when)}}});
    }
    for (const char* keep : {"none", "names", "data"}) {
        all.push_back({std::string("PowerCutKeeping_") + keep,
                       QStringLiteral("POWERCUT_AT"),
                       {{QStringLiteral("POWERCUT_KEEP"), QString::fromLatin1(keep)}}});
    }
    return all;
}

// Of three days one has text in the imported year, one in another, and one has no file. The bytes
// are such as only a restored copy can bring back.
void prepare(const TemporaryVault& vault, int days) {
    MonthDay day{1, 1};
    for (int i = 0; i < days; ++i, day = day.advanced(1)) {
        const QByteArray title = day.headerTitle().toLatin1();
        if (i % 3 == 0) vault.write(day.fileName(), "# " + title + "\n\n\n## 2024\nold  \n\n");
        if (i % 3 == 1) vault.write(day.fileName(), "# " + title + "\n## 2020\n\nolder");
    }
}

FaultyRun runWriter(const TemporaryVault& vault, const QStringList& action, const Faults& faults) {
    return runWithFaults(QStringLiteral(VELMAR_IMPORT_WRITER), QStringList{vault.path()} + action,
                         vault.path().section(u'/', 0, -2), faults);
}

// Copies a vault, hidden files too.
void copyVault(const TemporaryVault& from, const TemporaryVault& to) {
    QDirIterator files(from.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(from.path()).relativeFilePath(files.next());
        to.write(name, from.read(name));
    }
}

class ImportFaults : public testing::TestWithParam<Mode> {
protected:
    static constexpr int kDays = 3;

    static QStringList applying(int days) {
        return {QStringLiteral("apply"), QStringLiteral("dayOne"), QString::number(days),
                QStringLiteral("words")};
    }

    static int countedCalls(const TemporaryVault& vault, const QStringList& action) {
        const QTemporaryDir outside;
        Faults faults = GetParam().rest;
        faults[QStringLiteral("COUNT")] = outside.filePath(QStringLiteral("count"));
        EXPECT_EQ(runWriter(vault, action, faults).exitCode, 0);
        QFile file(outside.filePath(QStringLiteral("count")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return static_cast<int>(file.readAll().count('\n'));
    }

    static FaultyRun runUpTo(const TemporaryVault& vault, const QStringList& action, int call) {
        Faults faults = GetParam().rest;
        faults[GetParam().at] = QString::number(call);
        return runWriter(vault, action, faults);
    }
};

// What the vault holds before an import of so many days, and behind it.
struct Expected {
    DayFiles old;
    DayFiles imported;

    explicit Expected(int days) {
        const TemporaryVault vault;
        prepare(vault, days);
        old = dayFilesOf(vault);
        importInto(vault.path(),
                   writtenBatch(QStringLiteral("dayOne"), days, QStringLiteral("words")));
        imported = dayFilesOf(vault);
    }
};

bool isTold(const ImportRecord& record, const QString& fileName) {
    return std::any_of(record.files.begin(), record.files.end(),
                       [&](const auto& file) { return file.day == fileName.chopped(3); });
}

// Every day is the old one or the imported one, whole, and those imported are told.
void examine(const TemporaryVault& vault, const Expected& expected) {
    const std::vector<ImportRecord> all = ImportLog::records(vault.path(), moment());
    ASSERT_LE(all.size(), 1U);
    const DayFiles now = dayFilesOf(vault);
    for (const auto& [name, bytes] : now) {
        const auto old = expected.old.find(name);
        if (old != expected.old.end() && old->second == bytes) continue;
        ASSERT_EQ(bytes, expected.imported.at(name)) << name.toStdString();
        ASSERT_FALSE(all.empty());
        EXPECT_TRUE(isTold(all.front(), name)) << name.toStdString();
    }
    for (const auto& [name, bytes] : expected.old) EXPECT_TRUE(now.contains(name));
    if (all.empty()) return;
    const bool isDone = all.front().state == State::done;
    EXPECT_TRUE(isDone || all.front().state == State::writing);
    if (isDone) {
        EXPECT_EQ(now, expected.imported);
    }
}

// Keeps what came in and imports the rest: everything is there, and once.
void keepAndImportAgain(const TemporaryVault& vault, const Expected& expected, int days) {
    const DayFiles before = dayFilesOf(vault);
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        ImportLog::markDone(record, vault.path());
    }
    EXPECT_EQ(dayFilesOf(vault), before);
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(record.state, State::done);
        EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
    }
    importInto(vault.path(), writtenBatch(QStringLiteral("dayOne"), days, QStringLiteral("words")),
               60);
    EXPECT_EQ(dayFilesOf(vault), expected.imported);
}

void undoAll(const TemporaryVault& vault, const Expected& expected) {
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(ImportLog::undo(record, vault.path(), moment(60)).notFound, 0);
        EXPECT_EQ(onlyRecord(vault.path()).state, State::undone);
        EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
    }
    EXPECT_EQ(dayFilesOf(vault), expected.old);
}

// The next start leaves nothing of a dead process behind.
void expectNoTemporaries(const TemporaryVault& vault) {
    atomicfile::removeAbandonedTemporaries(vault.path());
    ImportLog::removeAbandonedTemporaries(vault.path());
    QDirIterator files(vault.path(), {QStringLiteral("*.tmp")}, QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    EXPECT_FALSE(files.hasNext()) << files.next().toStdString();
}

// Looks at what the end left, and takes both ways out.
void examineBothWaysOut(const TemporaryVault& vault, const Expected& expected, int days) {
    examine(vault, expected);
    expectNoTemporaries(vault);
    const TemporaryVault copy;
    copyVault(vault, copy);
    keepAndImportAgain(copy, expected, days);
    undoAll(vault, expected);
}

TEST_P(ImportFaults, OfApplyLeaveWholeDaysAndBothWaysOut) {
    const Expected expected(kDays);
    const TemporaryVault counting;
    prepare(counting, kDays);
    const int calls = countedCalls(counting, applying(kDays));
    ASSERT_GE(calls, 40);
    for (int call = 1; call <= calls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, kDays);
        EXPECT_FALSE(runUpTo(vault, applying(kDays), call).isEnded);
        examineBothWaysOut(vault, expected, kDays);
    }
}

TEST_P(ImportFaults, OfALongApplyLeaveWholeDaysAndBothWaysOut) {
    constexpr int kLong = 40;
    constexpr int kSteps = 6;
    const Expected expected(kLong);
    const TemporaryVault counting;
    prepare(counting, kLong);
    const int calls = countedCalls(counting, applying(kLong));
    ASSERT_GE(calls, 400);
    // Other calls for each mode, spread over the whole.
    const int first = 1 + static_cast<int>(std::hash<std::string>()(GetParam().name) % 37);
    for (int call = first; call <= calls && !HasFailure(); call += calls / kSteps) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, kLong);
        EXPECT_FALSE(runUpTo(vault, applying(kLong), call).isEnded);
        examineBothWaysOut(vault, expected, kLong);
    }
}

// An import that the user went on writing in, in two of its days. The last day is one to remove,
// so that no later write makes its removal last.
class EditedImport {
public:
    EditedImport() {
        prepare(m_vault, kDays);
        m_old = dayFilesOf(m_vault);
        importInto(m_vault.path(),
                   writtenBatch(QStringLiteral("dayOne"), kDays, QStringLiteral("words")));
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
    const QStringList undoing = {QStringLiteral("undo")};
    const EditedImport counted;
    const DayFiles imported = dayFilesOf(counted.m_vault);
    const int calls = countedCalls(counted.m_vault, undoing);
    ASSERT_GE(calls, 20);
    const DayFiles undone = dayFilesOf(counted.m_vault);
    EXPECT_FALSE(undone.contains(QStringLiteral("01-03.md")));
    EXPECT_EQ(undone.at(QStringLiteral("01-02.md")),
              "# 01-02\n## 2020\n\nolder\n\n## 2024\n\nmine\n");
    EXPECT_EQ(undone.at(QStringLiteral("01-01.md")), counted.m_old.at(QStringLiteral("01-01.md")));
    for (int call = 1; call <= calls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const EditedImport one;
        EXPECT_FALSE(runUpTo(one.m_vault, undoing, call).isEnded);
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

INSTANTIATE_TEST_SUITE_P(All, ImportFaults, testing::ValuesIn(modes()),
                         [](const testing::TestParamInfo<Mode>& one) { return one.param.name; });

// Each call fails in its turn, with a full disk or without permission: the import stops there with
// an error, or comes to its end where the failure doesn't matter.
class RefusedCalls : public testing::TestWithParam<int> {};

TEST_P(RefusedCalls, StopTheImportAsACrashDoes) {
    constexpr int kDays = 3;
    const Expected expected(kDays);
    const QStringList applying = {QStringLiteral("apply"), QStringLiteral("dayOne"),
                                  QString::number(kDays), QStringLiteral("words")};
    int stopped = 0;
    constexpr int kMoreThanAllCalls = 100;
    for (int call = 1; call <= kMoreThanAllCalls && !HasFailure(); ++call) {
        SCOPED_TRACE("at call " + std::to_string(call));
        const TemporaryVault vault;
        prepare(vault, kDays);
        const FaultyRun run = runWriter(vault, applying,
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
        examineBothWaysOut(vault, expected, kDays);
    }
    EXPECT_GE(stopped, 40);
}

INSTANTIATE_TEST_SUITE_P(All, RefusedCalls, testing::Values(ENOSPC, EACCES),
                         [](const testing::TestParamInfo<int>& one) {
                             return one.param == ENOSPC ? "FullDisk" : "NoPermission";
                         });

}  // namespace
}  // namespace diary::test
