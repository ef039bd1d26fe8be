// Records and journals that no import wrote, of up to a megabyte: what they tell is read or passed
// over, and undone, in bounded time and memory.
#include <ctime>

#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/Printing.h"

namespace diary::test {
namespace {

using diary::testing::kMebibyte;
using diary::testing::kMostMemory;
using diary::testing::peakMemory;
using State = ImportRecord::State;

class HostileRecord : public ::testing::Test {
protected:
    void TearDown() override {
        // The processor's time, since others may be at work on the machine.
        constexpr qint64 kMostSeconds = 10;
        EXPECT_LT((std::clock() - m_start) / CLOCKS_PER_SEC, kMostSeconds);
        EXPECT_LT(peakMemory(), kMostMemory);
    }

    static ImportRecord record(std::vector<ImportRecord::File> files, State state = State::done) {
        return {
            .id = QStringLiteral("r"), .state = state, .at = moment(), .files = std::move(files)};
    }

    // Keeps the record, with the bytes as its journal, as a sync service would bring it.
    void bring(const ImportRecord& record, const QByteArray& journal = {}) const {
        const QByteArray bytes = record.encoded();
        EXPECT_LT(bytes.size() + journal.size(), kMebibyte);
        m_vault.write(QStringLiteral(".velmar/imports/r.json"), bytes);
        if (!journal.isEmpty())
            m_vault.write(importsPath(record, QStringLiteral("/journal.jsonl")), journal);
    }

    ImportLog::UndoResult undo() const {
        return ImportLog::undo(onlyRecord(m_vault.path()), m_vault.path(), moment());
    }

    TemporaryVault m_vault;

private:
    std::clock_t m_start = std::clock();
};

TEST_F(HostileRecord, MayNestDeep) {
    const QByteArray deep = QByteArray(900'000, '[');
    const QByteArray line = R"({"day":"01-02","existed":false,"added":)";
    EXPECT_FALSE(ImportRecord::decode(deep));
    EXPECT_FALSE(ImportRecord::decode(R"({"files":)" + deep));
    EXPECT_FALSE(ImportRecord::File::decode(line + deep + QByteArray(900'000, ']') + '}'));
    bring(record({}, State::writing), line + deep + '\n' + line + "[]}\n");
    EXPECT_EQ(onlyRecord(m_vault.path()).days, 1);
}

TEST_F(HostileRecord, MayHaveAJournalOfShortLines) {
    QByteArray journal(300'000, '\n');
    journal += QByteArray("{}\n").repeated(100'000);
    for (int i = 0; i < 8'000; ++i) {
        journal += R"({"day":")" + QByteArray::number(i) +
                   R"(","existed":true,"added":[]})"
                   "\n";
    }
    bring(record({}, State::writing), journal);
    EXPECT_EQ(onlyRecord(m_vault.path()).days, 8'000);
    EXPECT_EQ(undo(), ImportLog::UndoResult());
}

// A day with a year for each addition, far more than any diary has.
QByteArray longDay(int years) {
    QByteArray text = "# 01-02\n";
    for (int year = 1; year <= years; ++year) {
        text +=
            "\n## " + QByteArray::number(year).rightJustified(4, '0') + "\n\nmine\n\n---\n\ntea\n";
    }
    return text;
}

TEST_F(HostileRecord, MayTellOfOneDayThousandsOfTimes) {
    constexpr int kTimes = 2'500;
    m_vault.write(QStringLiteral("01-02.md"), longDay(2'500));
    bring(record(std::vector<ImportRecord::File>(
        kTimes, {.day = QStringLiteral("01-02"),
                 .after = QStringLiteral("x"),
                 .added = {{.year = 2024, .text = QStringLiteral("coffee")}}})));
    EXPECT_EQ(undo(), (ImportLog::UndoResult{.notFound = kTimes}));
}

TEST_F(HostileRecord, MayAddThousandsOfTimesToOneDay) {
    constexpr int kYears = 5'000;
    ImportRecord::File file{.day = QStringLiteral("01-02"), .after = QStringLiteral("x")};
    for (int year = 1; year <= kYears; ++year) {
        file.added.push_back({.year = year, .text = QStringLiteral("tea"), .appended = true});
    }
    m_vault.write(QStringLiteral("01-02.md"), longDay(kYears));
    bring(record({file}));
    EXPECT_EQ(undo(), (ImportLog::UndoResult{.edited = 1}));
    EXPECT_EQ(m_vault.read(QStringLiteral("01-02.md")).count("tea"), 0);
    EXPECT_EQ(m_vault.read(QStringLiteral("01-02.md")).count("mine"), kYears);
}

TEST_F(HostileRecord, MayAddThousandsOfTimesToOneYear) {
    constexpr int kTimes = 4'500;
    ImportRecord::File file{.day = QStringLiteral("01-02"), .after = QStringLiteral("x")};
    for (int time = 0; time < kTimes; ++time) {
        file.added.push_back({.year = 2024, .text = QStringLiteral("tea %1\nend").arg(time)});
    }
    QByteArray text = "# 01-02\n\n## 2024\n";
    for (int time = 0; time < 12'000; ++time)
        text += "\ntea " + QByteArray::number(time) + "\nend\n";
    m_vault.write(QStringLiteral("01-02.md"), text);
    bring(record({file}));
    constexpr int kMostOfOneYear = 100;
    EXPECT_EQ(undo(), (ImportLog::UndoResult{.edited = 1, .notFound = kTimes - kMostOfOneYear}));
}

}  // namespace
}  // namespace diary::test
