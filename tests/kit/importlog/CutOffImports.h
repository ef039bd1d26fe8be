// Imports and undos that are cut off at one of their calls, and what has to hold of the vault then.
// For programs with VELMAR_IMPORT_WRITER, the path of import_writer.
#pragma once

#include <QtCore/QDirIterator>
#include <algorithm>
#include <string>

#include "DiaryKit/Files/AtomicFile.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/kit/importlog/WrittenBatch.h"
#include "tests/support/faults/FaultyRun.h"

namespace diary::test {

// How a run ends.
struct Mode {
    std::string name;
    // The variable that takes the call, and what goes with it.
    QString at;
    Faults rest;

    [[nodiscard]] bool isPowerCut() const { return at == u"POWERCUT_AT"; }
};

inline std::vector<Mode> suddenEnds() {
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

inline void PrintTo(const Mode& mode, std::ostream* out) {
    *out << mode.name;
}

inline std::string modeName(const testing::TestParamInfo<Mode>& one) {
    return one.param.name;
}

inline QStringList applying(int days) {
    return {QStringLiteral("apply"), QStringLiteral("dayOne"), QString::number(days),
            QStringLiteral("words")};
}

inline QStringList undoing() {
    return {QStringLiteral("undo")};
}

inline QStringList keeping() {
    return {QStringLiteral("keep")};
}

// Of three days one has text in the imported year, one in another, and one has no file. The bytes
// are such as only a restored copy can bring back. The last day has no file, so that in an undo no
// later write makes its removal last.
inline void prepare(const TemporaryVault& vault, int days) {
    MonthDay day{1, 1};
    for (int i = 0; i + 1 < days; ++i, day = day.advanced(1)) {
        const QByteArray title = day.headerTitle().toLatin1();
        if (i % 3 == 0) vault.write(day.fileName(), "# " + title + "\n\n\n## 2024\nold  \n\n");
        if (i % 3 == 1) vault.write(day.fileName(), "# " + title + "\n## 2020\n\nolder");
    }
}

inline ImportRecord importDays(const TemporaryVault& vault, int days, qint64 seconds = 0) {
    return importInto(vault.path(),
                      writtenBatch(QStringLiteral("dayOne"), days, QStringLiteral("words")),
                      seconds);
}

// Copies a vault, hidden files too.
inline void copyVault(const TemporaryVault& from, const TemporaryVault& to) {
    QDirIterator files(from.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(from.path()).relativeFilePath(files.next());
        to.write(name, from.read(name));
    }
}

inline FaultyRun runWriter(const TemporaryVault& vault, const QStringList& action,
                           const Faults& faults) {
    return runWithFaults(QStringLiteral(VELMAR_IMPORT_WRITER), QStringList{vault.path()} + action,
                         vault.path().section(u'/', 0, -2), faults);
}

// The number of calls of the action, which runs to its end.
inline int countedCalls(const TemporaryVault& vault, const QStringList& action,
                        Faults faults = {}) {
    const QTemporaryDir outside;
    faults[QStringLiteral("COUNT")] = outside.filePath(QStringLiteral("count"));
    EXPECT_EQ(runWriter(vault, action, faults).exitCode, 0);
    QFile file(outside.filePath(QStringLiteral("count")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return static_cast<int>(file.readAll().count('\n'));
}

// Runs the action up to the call, or to the end that a power cut follows ("exit").
inline void cutOff(const TemporaryVault& vault, const QStringList& action, const Mode& mode,
                   const QString& call) {
    Faults faults = mode.rest;
    faults[mode.at] = call;
    EXPECT_FALSE(runWriter(vault, action, faults).isEnded);
}

// What the vault holds before an import of so many days, and behind it.
struct Expected {
    int days;
    DayFiles old;
    DayFiles imported;

    explicit Expected(int count) : days(count) {
        const TemporaryVault vault;
        prepare(vault, days);
        old = dayFilesOf(vault);
        importDays(vault, days);
        imported = dayFilesOf(vault);
    }
};

inline bool isTold(const ImportRecord& record, const QString& fileName) {
    return std::any_of(record.files.begin(), record.files.end(),
                       [&](const auto& file) { return file.day == fileName.chopped(3); });
}

// The old texts that the record needs lie there, whole.
inline void expectCopies(const TemporaryVault& vault, const ImportRecord& record,
                         const DayFiles& old) {
    for (const ImportRecord::File& file : record.files) {
        const QString name = file.day + QLatin1String(".md");
        EXPECT_EQ(file.existed, old.contains(name)) << name.toStdString();
        if (!file.existed) continue;
        EXPECT_EQ(vault.read(importsPath(record, QLatin1String("/before/") + name)), old.at(name));
    }
}

// Every day is the old one or the imported one, whole; those imported are told, and at most the one
// that was to come next.
inline void examine(const TemporaryVault& vault, const Expected& expected) {
    const std::vector<ImportRecord> all = ImportLog::records(vault.path(), moment());
    ASSERT_LE(all.size(), 1U);
    const DayFiles now = dayFilesOf(vault);
    std::size_t changed = 0;
    for (const auto& [name, bytes] : now) {
        const auto old = expected.old.find(name);
        if (old != expected.old.end() && old->second == bytes) continue;
        ++changed;
        ASSERT_EQ(bytes, expected.imported.at(name)) << name.toStdString();
        ASSERT_FALSE(all.empty());
        EXPECT_TRUE(isTold(all.front(), name)) << name.toStdString();
    }
    for (const auto& [name, bytes] : expected.old) EXPECT_TRUE(now.contains(name));
    if (all.empty()) return;
    const ImportRecord& record = all.front();
    EXPECT_LE(record.files.size(), changed + 1);
    EXPECT_EQ(record.days, static_cast<int>(record.files.size()));
    expectCopies(vault, record, expected.old);
    if (record.state == ImportRecord::State::done) {
        EXPECT_EQ(now, expected.imported);
    } else {
        EXPECT_EQ(record.state, ImportRecord::State::writing);
    }
}

// The way out "keep": nothing changes but the record.
inline void keepAll(const TemporaryVault& vault) {
    const DayFiles before = dayFilesOf(vault);
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        ImportLog::markDone(record, vault.path());
        EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
    }
    EXPECT_EQ(dayFilesOf(vault), before);
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(record.state, ImportRecord::State::done);
    }
}

enum class Order { NewestFirst, OldestFirst };

// The way out "undo", of all imports: the old bytes are back.
inline void undoAll(const TemporaryVault& vault, const DayFiles& old,
                    Order order = Order::NewestFirst) {
    std::vector<ImportRecord> all = ImportLog::records(vault.path(), moment());
    if (order == Order::OldestFirst) std::reverse(all.begin(), all.end());
    for (const ImportRecord& record : all) {
        EXPECT_EQ(ImportLog::undo(record, vault.path(), moment(60)).notFound, 0);
        EXPECT_FALSE(vault.exists(importsPath(record, QStringLiteral("/journal.jsonl"))));
    }
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(record.state, ImportRecord::State::undone);
    }
    EXPECT_EQ(dayFilesOf(vault), old);
}

// Keeps what came in and imports the rest: everything is there, and once. Both can be undone.
inline void keepAndImportAgain(const TemporaryVault& vault, const Expected& expected) {
    keepAll(vault);
    importDays(vault, expected.days, 60);
    EXPECT_EQ(dayFilesOf(vault), expected.imported);
    undoAll(vault, expected.old);
}

// Imports again without a way out taken: everything is there, and once. Both can be undone.
inline void importAgainUndecided(const TemporaryVault& vault, const Expected& expected) {
    importDays(vault, expected.days, 60);
    EXPECT_EQ(dayFilesOf(vault), expected.imported);
    undoAll(vault, expected.old, Order::OldestFirst);
}

inline QStringList temporariesIn(const TemporaryVault& vault) {
    QDirIterator files(vault.path(), {QStringLiteral("*.tmp")}, QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    QStringList names;
    while (files.hasNext()) names << files.next();
    return names;
}

// The next start leaves nothing of a dead process behind.
inline void expectNoTemporaries(const TemporaryVault& vault) {
    atomicfile::removeAbandonedTemporaries(vault.path());
    ImportLog::removeAbandonedTemporaries(vault.path());
    EXPECT_EQ(temporariesIn(vault), QStringList());
}

// Looks at what the end of an import left, and takes both ways out, and neither.
inline void examineBothWaysOut(const TemporaryVault& vault, const Expected& expected) {
    examine(vault, expected);
    expectNoTemporaries(vault);
    const TemporaryVault kept;
    copyVault(vault, kept);
    keepAndImportAgain(kept, expected);
    const TemporaryVault undecided;
    copyVault(vault, undecided);
    importAgainUndecided(undecided, expected);
    undoAll(vault, expected.old);
}

}  // namespace diary::test
