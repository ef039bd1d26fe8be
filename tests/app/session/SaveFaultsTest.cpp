// A writing session that dies, or loses its power, at every call that changes a file: the day's
// file is the old or the new text, whole, no word of a copy is lost, and the next start works.
#include <string>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"
#include "tests/support/faults/FaultyRun.h"

namespace velmar::test {
namespace {

using diary::test::Faults;
using diary::test::FaultyRun;
using diary::test::TemporaryVault;
namespace YearSectionParser = diary::YearSectionParser;

const QString kDayFile = QStringLiteral("11-21.md");
const QString kCopy = QStringLiteral("11-21.sync-conflict-20261121-100000-ABCDEFG.md");

struct Mode {
    std::string name;
    QString at;
    Faults rest;
};

// What the vault holds before the session starts.
enum class Before { NoFolder, OldYears, OldYearsAndCopy };

using Case = std::tuple<Mode, Before>;

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

std::string nameOf(const testing::TestParamInfo<Case>& one) {
    static const char* const names[] = {"_NoFolder", "_OldYears", "_OldYearsAndCopy"};
    return std::get<0>(one.param).name + names[static_cast<int>(std::get<1>(one.param))];
}

class SaveFaults : public testing::TestWithParam<Case> {
protected:
    static constexpr auto kOld = "# 11-21\n\n## 2001\n\nlong ago\n\n## 2026\n\nbegun\n";

    static void prepare(const TemporaryVault& vault) {
        const Before before = std::get<1>(GetParam());
        if (before == Before::NoFolder) {
            QDir(vault.path()).removeRecursively();
            return;
        }
        vault.write(kDayFile, kOld);
        if (before == Before::OldYearsAndCopy) {
            vault.write(kCopy,
                        "# 11-21\n\n## 2015\n\nelsewhere\n\n## 2026\n\nof the other machine\n");
        }
    }

    // Two saves, with faults below the vault's parent, so that making the vault counts too.
    static FaultyRun runSession(const TemporaryVault& vault, const Faults& faults) {
        return diary::test::runWithFaults(
            QStringLiteral(VELMAR_SESSION_WRITER),
            {vault.path(), QStringLiteral("11-21"), QStringLiteral("2026"), QStringLiteral("2"),
             QStringLiteral("round")},
            vault.path().section(u'/', 0, -2), faults);
    }

    static int countedCalls() {
        const TemporaryVault vault;
        prepare(vault);
        const QTemporaryDir outside;
        Faults faults = std::get<0>(GetParam()).rest;
        faults[QStringLiteral("COUNT")] = outside.filePath(QStringLiteral("count"));
        EXPECT_EQ(runSession(vault, faults).exitCode, 0);
        QFile file(outside.filePath(QStringLiteral("count")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return static_cast<int>(file.readAll().count('\n'));
    }

    static QString body(const TemporaryVault& vault, int year) {
        return YearSectionParser::body(year, QString::fromUtf8(vault.read(kDayFile)));
    }

    static bool isOldOrNewWhole(const TemporaryVault& vault) {
        const bool hadFile = std::get<1>(GetParam()) != Before::NoFolder;
        if (!vault.exists(kDayFile)) return !hadFile;
        const QString text = QString::fromUtf8(vault.read(kDayFile));
        const QString start = hadFile ? QStringLiteral("begun") : QString();
        const QString merged = QStringLiteral("begun\n\n\n\nof the other machine");
        const QString written = YearSectionParser::body(2026, text);
        const QString line = start.isEmpty() ? start : start + u'\n';
        const QString mergedLine = merged + u'\n';
        const QStringList states = {start,
                                    line + QStringLiteral("round 0"),
                                    line + QStringLiteral("round 0\nround 1"),
                                    merged,
                                    mergedLine + QStringLiteral("round 0"),
                                    mergedLine + QStringLiteral("round 0\nround 1")};
        return states.contains(written) && text.endsWith(u'\n') &&
               (!hadFile || YearSectionParser::body(2001, text) == u"long ago");
    }

    // The copy's words stand in the day's file, or the copy still lies where it was.
    static bool hasCopysWords(const TemporaryVault& vault) {
        return vault.exists(kCopy) || (body(vault, 2015) == u"elsewhere" &&
                                       body(vault, 2026).contains(u"of the other machine"));
    }

    static void examine(const TemporaryVault& vault, const FaultyRun& run, int call) {
        EXPECT_TRUE(isOldOrNewWhole(vault)) << "at call " << call << ":\n"
                                            << vault.read(kDayFile).constData();
        if (run.output.contains("saved 1")) {
            EXPECT_TRUE(body(vault, 2026).contains(u"round 1")) << "at call " << call;
        } else if (run.output.contains("saved 0")) {
            EXPECT_TRUE(body(vault, 2026).contains(u"round 0")) << "at call " << call;
        }
        if (std::get<1>(GetParam()) == Before::OldYearsAndCopy) {
            EXPECT_TRUE(hasCopysWords(vault)) << "at call " << call;
        }
    }

    // The next start takes in what is still to be taken in, saves, and leaves nothing behind.
    static void startAgain(const TemporaryVault& vault, int call) {
        diary::atomicfile::removeAbandonedTemporaries(vault.path());
        const FaultyRun run = runSession(vault, {});
        EXPECT_EQ(run.exitCode, 0) << "at call " << call;
        EXPECT_TRUE(body(vault, 2026).contains(u"round 1")) << "at call " << call;
        QStringList names = vault.names();
        names.removeAll(QStringLiteral(".velmar"));
        EXPECT_EQ(names, QStringList{kDayFile}) << "at call " << call;
        if (std::get<1>(GetParam()) != Before::OldYearsAndCopy) return;
        EXPECT_EQ(body(vault, 2015), u"elsewhere") << "at call " << call;
        EXPECT_EQ(body(vault, 2026).count(u"of the other machine"), 1) << "at call " << call;
        EXPECT_TRUE(vault.exists(QStringLiteral(".velmar/conflicts/") + kCopy));
    }
};

TEST_P(SaveFaults, LeaveTheOldOrTheNewTextAndAWorkingStart) {
    const int calls = countedCalls();
    ASSERT_GE(calls, 10);
    for (int call = 1; call <= calls; ++call) {
        const TemporaryVault vault;
        prepare(vault);
        Faults faults = std::get<0>(GetParam()).rest;
        faults[std::get<0>(GetParam()).at] = QString::number(call);
        const FaultyRun run = runSession(vault, faults);
        EXPECT_FALSE(run.isEnded) << "at call " << call;
        examine(vault, run, call);
        startAgain(vault, call);
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(All, SaveFaults,
                         testing::Combine(testing::ValuesIn(modes()),
                                          testing::Values(Before::NoFolder, Before::OldYears,
                                                          Before::OldYearsAndCopy)),
                         nameOf);

}  // namespace
}  // namespace velmar::test
