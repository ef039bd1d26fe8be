// The atomic write under every fault at every one of its calls.
#include <cerrno>
#include <string>
#include <tuple>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "tests/support/TemporaryVault.h"
#include "tests/support/faults/FaultyRun.h"

namespace diary::test {
namespace {

// A way of going wrong, less the call at which it does.
struct Mode {
    std::string name;
    const char* at;
    Faults rest;
    // Whether the program lives on, and so has to clean up after itself.
    bool isSurvived = false;
};

std::vector<Mode> powerCuts() {
    std::vector<Mode> result;
    for (const char* keep : {"none", "names", "data"}) {
        result.push_back({std::string("PowerCutKeeping_") + keep,
                          "POWERCUT_AT",
                          {{QStringLiteral("POWERCUT_KEEP"), QString::fromLatin1(keep)}}});
    }
    return result;
}

std::vector<Mode> allModes() {
    std::vector<Mode> result = powerCuts();
    for (const char* when : {"before", "after", "torn"}) {
        result.push_back({std::string("Killed_") + when,
                          "KILL_AT",
                          {{QStringLiteral("KILL_WHEN"), QString::fromLatin1(when)}}});
    }
    for (const int code : {ENOSPC, EIO, EDQUOT, EACCES}) {
        result.push_back({"FailingWith_" + std::to_string(code),
                          "FAIL_AT",
                          {{QStringLiteral("ERRNO"), QString::number(code)}},
                          true});
    }
    // A disk that is full stays full for writes, and still lets files be removed.
    result.push_back({"FullDisk",
                      "FAIL_AT",
                      {{QStringLiteral("ERRNO"), QString::number(ENOSPC)},
                       {QStringLiteral("FAIL_FOREVER"), QStringLiteral("1")},
                       {QStringLiteral("ONLY"), QStringLiteral("open,openat,write,fsync")}},
                      true});
    return result;
}

// The mode, and the bytes before the write; a null array for no file.
using Case = std::tuple<Mode, QByteArray>;

std::string nameOf(const testing::TestParamInfo<Case>& info) {
    return std::get<0>(info.param).name +
           (std::get<1>(info.param).isNull() ? "_NewFile" : "_OldFile");
}

class AtomicFileFaults : public testing::TestWithParam<Case> {
protected:
    [[nodiscard]] static QByteArray before() { return std::get<1>(GetParam()); }

    static void examine(const TemporaryVault& vault, const FaultyRun& run, qsizetype call) {
        const QByteArray after = vault.read(QStringLiteral("a"));
        const QByteArray another = vault.read(QStringLiteral("b"));
        const bool isNew = after == "new text";
        EXPECT_TRUE(isNew || (after == before() && after.isNull() == before().isNull()))
            << "at call " << call << ": " << after.constData();
        EXPECT_TRUE(another.isNull() || another == "another") << "at call " << call;
        if (run.output == "saved") {
            EXPECT_TRUE(isNew) << "at call " << call;
        }
        if (!std::get<0>(GetParam()).isSurvived) {
            atomicfile::removeAbandonedTemporaries(vault.path());
        }
        for (const QString& name : vault.names()) {
            EXPECT_TRUE(name == QStringLiteral("a") || name == QStringLiteral("b"))
                << name.toStdString() << " was left at call " << call;
        }
    }
};

TEST_P(AtomicFileFaults, LeaveOldOrNewBytesWhole) {
    const Mode& mode = std::get<0>(GetParam());
    Faults counting = mode.rest;
    counting.erase(QStringLiteral("FAIL_FOREVER"));
    const TemporaryVault counted;
    if (!before().isNull()) counted.write(QStringLiteral("a"), before());
    const qsizetype calls =
        callsOfWriter(QStringLiteral("atomic-file"), counted.path(), counting).size();
    // Two files, each of which is opened, written and synced at least.
    ASSERT_GE(calls, 6);
    for (qsizetype call = 1; call <= calls; ++call) {
        const TemporaryVault vault;
        if (!before().isNull()) vault.write(QStringLiteral("a"), before());
        Faults faults = mode.rest;
        faults[QString::fromLatin1(mode.at)] = QString::number(call);
        const FaultyRun run = runWriter(QStringLiteral("atomic-file"), vault.path(), faults);
        EXPECT_EQ(run.isEnded, mode.isSurvived) << "at call " << call;
        examine(vault, run, call);
    }
}

INSTANTIATE_TEST_SUITE_P(All, AtomicFileFaults,
                         testing::Combine(testing::ValuesIn(allModes()),
                                          testing::Values(QByteArray(), QByteArray("old"))),
                         nameOf);

class AtomicFilePowerCut : public AtomicFileFaults {};

TEST_P(AtomicFilePowerCut, BehindTheWritesTakesNothing) {
    const TemporaryVault vault;
    if (!before().isNull()) vault.write(QStringLiteral("a"), before());
    Faults faults = std::get<0>(GetParam()).rest;
    faults[QStringLiteral("POWERCUT_AT")] = QStringLiteral("exit");
    const FaultyRun run = runWriter(QStringLiteral("atomic-file"), vault.path(), faults);
    EXPECT_FALSE(run.isEnded);
    EXPECT_EQ(vault.read(QStringLiteral("a")), "new text");
    EXPECT_EQ(vault.read(QStringLiteral("b")), "another");
    EXPECT_EQ(vault.names().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(All, AtomicFilePowerCut,
                         testing::Combine(testing::ValuesIn(powerCuts()),
                                          testing::Values(QByteArray(), QByteArray("old"))),
                         nameOf);

}  // namespace
}  // namespace diary::test
