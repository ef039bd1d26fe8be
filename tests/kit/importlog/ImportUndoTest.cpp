#include "DiaryKit/Import/ImportUndo.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/Printing.h"

namespace diary::ImportLog {
namespace {

using namespace test;
using State = ImportRecord::State;

const QString kDay = QStringLiteral("01-02.md");

// A vault with one day, the import of one entry into its 2024, what the user makes of the file
// since, and what undoing that gives.
struct Story {
    const char* name;
    // None if the day had no file.
    const char* before;
    // None if the file is gone.
    const char* edited;
    UndoResult result;
    // None if the file is gone.
    const char* after;
};

class UndoStories : public testing::TestWithParam<Story> {};

TEST_P(UndoStories, EndAsPromised) {
    const Story& story = GetParam();
    const TemporaryVault vault;
    if (story.before) vault.write(kDay, story.before);
    const ImportBatch batch = batchOf({entry({2024, 1, 2}, QStringLiteral("imported"))});
    const ImportRecord record = importInto(vault.path(), batch);
    QFile::remove(vault.filePath(kDay));
    if (story.edited) vault.write(kDay, story.edited);
    EXPECT_EQ(undo(record, vault.path(), moment(9)), story.result);
    EXPECT_EQ(vault.exists(kDay), story.after != nullptr);
    if (story.after) {
        EXPECT_EQ(vault.read(kDay), story.after);
    }
    const ImportRecord undone = onlyRecord(vault.path());
    EXPECT_EQ(undone.state, State::undone);
    EXPECT_EQ(undone.undoneAt, moment(9));
}

constexpr auto kNew = "# 01-02\n\n## 2024\n\nimported\n";
constexpr auto kOld = "# 01-02\n\n## 2024\n\nold\n";
constexpr auto kAppended = "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported\n";
constexpr UndoResult kRestored = {.restored = 1};
constexpr UndoResult kEdited = {.edited = 1};
constexpr UndoResult kNotFound = {.notFound = 1};

const Story kStories[] = {
    {"NewDayUntouched", nullptr, kNew, kRestored, nullptr},
    {"AppendedUntouched", kOld, kAppended, kRestored, kOld},
    {"OddSpacingComesBackByteForByte", "# 01-02\n\n\n## 2024\nold  \n\n",
     "# 01-02\n\n\n## 2024\nold\n\n---\n\nimported\n", kRestored,
     "# 01-02\n\n\n## 2024\nold  \n\n"},
    {"AnotherYearWasWritten", "# 01-02\n\n## 2020\n\nolder\n",
     "# 01-02\n\n## 2020\n\nolder and more\n\n## 2024\n\nimported\n", kEdited,
     "# 01-02\n\n## 2020\n\nolder and more\n"},
    {"AParagraphBehindStays", nullptr, "# 01-02\n\n## 2024\n\nimported\n\nmine\n", kEdited,
     "# 01-02\n\n## 2024\n\nmine\n"},
    {"AParagraphBehindAppendedStays", kOld,
     "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported\n\nmine\n", kEdited,
     "# 01-02\n\n## 2024\n\nold\n\nmine\n"},
    {"TheOldTextWasDeleted", kOld, "# 01-02\n\n## 2024\n\n---\n\nimported\n", kEdited,
     "# 01-02\n\n## 2024\n\n"},
    {"TheOldTextAndRuleWereDeleted", kOld, "# 01-02\n\n## 2024\n\nimported\n\nmine\n", kEdited,
     "# 01-02\n\n## 2024\n\nmine\n"},
    {"TwiceInTheSectionStaysTwice", kOld, "# 01-02\n\n## 2024\n\nmore\n\nimported\n\nimported\n",
     kNotFound, "# 01-02\n\n## 2024\n\nmore\n\nimported\n\nimported\n"},
    {"TheImportedSectionWasDeleted", "# 01-02\n\n## 2020\n\nolder\n",
     "# 01-02\n\n## 2020\n\nolder!\n", kNotFound, "# 01-02\n\n## 2020\n\nolder!\n"},
    {"OnlyTheTitleIsLeft", nullptr, "# 01-02\n\n\n## 2024\n\nimported\n", kEdited, nullptr},
    {"AnotherYearKeepsTheNewFile", nullptr, "# 01-02\n\n## 2023\n\nmine\n\n## 2024\n\nimported\n",
     kEdited, "# 01-02\n\n## 2023\n\nmine\n"},
    {"ADeletedFileStaysDeleted", kOld, nullptr, {}, nullptr},
    {"AlreadyReverted", kOld, kOld, {}, kOld},
    {"Reworded", kOld, "# 01-02\n\n## 2024\n\nold\n\n---\n\nretold\n", kNotFound,
     "# 01-02\n\n## 2024\n\nold\n\n---\n\nretold\n"},
    {"AWordThatGrewOutOfItStays", nullptr, "# 01-02\n\n## 2024\n\nimportedness\n", kNotFound,
     "# 01-02\n\n## 2024\n\nimportedness\n"},
    {"ASentenceAroundItStays", kOld, "# 01-02\n\n## 2024\n\nso it was imported today\n", kNotFound,
     "# 01-02\n\n## 2024\n\nso it was imported today\n"},
    {"ASentenceBehindOnItsLineStays", kOld,
     "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported, they say\n", kNotFound,
     "# 01-02\n\n## 2024\n\nold\n\n---\n\nimported, they say\n"},
    {"AnOlderCopyOfTheWordsStays", "# 01-02\n\n## 2024\n\nimported\n\nold\n",
     "# 01-02\n\n## 2024\n\nimported\n\nold\n\nmine\n", kNotFound,
     "# 01-02\n\n## 2024\n\nimported\n\nold\n\nmine\n"},
    {"TheUsersRuleAtTheHeadStays", kOld, "# 01-02\n\n## 2024\n\n---\n\nold\n\nimported\n", kEdited,
     "# 01-02\n\n## 2024\n\n---\n\nold\n"},
};

INSTANTIATE_TEST_SUITE_P(All, UndoStories, testing::ValuesIn(kStories),
                         [](const testing::TestParamInfo<Story>& one) { return one.param.name; });

class UndoTest : public testing::Test {
protected:
    // The failure of undoing, as operation and code.
    [[nodiscard]] std::pair<FileOperation, int> failure(const ImportRecord& record) const {
        try {
            undo(record, m_vault.path(), moment(9));
        } catch (const FileError& error) {
            return {error.operation(), error.code()};
        }
        return {FileOperation::Move, 0};
    }

    [[nodiscard]] ImportRecord imported() const {
        m_vault.write(kDay, kOld);
        return importInto(m_vault.path(),
                          batchOf({entry({2024, 1, 2}, QStringLiteral("imported"))}));
    }

    void put(const ImportRecord& record) const {
        m_vault.write(importsPath(record, QStringLiteral(".json")), record.encoded());
    }

    static QString copyOf(const ImportRecord& record) {
        return importsPath(record, QStringLiteral("/before/01-02.md"));
    }

    void expectUntouched(const ImportRecord& record) const {
        EXPECT_EQ(m_vault.read(kDay), kAppended);
        EXPECT_EQ(onlyRecord(m_vault.path()), record);
    }

    TemporaryVault m_vault;
};

TEST_F(UndoTest, NeverWritesADamagedCopyOverADay) {
    const ImportRecord record = imported();
    m_vault.write(copyOf(record), "# 01-02\n\n## 2024\n\nold?\n");
    EXPECT_EQ(failure(record), std::pair(FileOperation::Read, EBADMSG));
    expectUntouched(record);
    m_vault.write(copyOf(record), "\xFF");
    EXPECT_EQ(failure(record), std::pair(FileOperation::Read, EILSEQ));
    expectUntouched(record);
    QFile::remove(m_vault.filePath(copyOf(record)));
    EXPECT_EQ(failure(record), std::pair(FileOperation::Read, ENOENT));
    expectUntouched(record);
    m_vault.write(copyOf(record), kOld);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kRestored);
}

// The first day is cut and the second stops the undo. What the user wrote in the first says the
// same as the import did there.
TEST_F(UndoTest, ASecondTryLeavesAloneWhatTheFirstHasCut) {
    const QString next = QStringLiteral("01-03.md");
    m_vault.write(next, "# 01-03\n\n## 2024\n\nold\n");
    const ImportRecord record =
        importInto(m_vault.path(), batchOf({entry({2024, 1, 2}, QStringLiteral("imported")),
                                            entry({2024, 1, 3}, QStringLiteral("imported"))}));
    const QByteArray mine = "# 01-02\n\n## 2024\n\nimported\n";
    m_vault.write(kDay, mine + "\nimported\n");
    const QByteArray imported = m_vault.read(next);
    m_vault.write(next, "\xFF");
    const QString journal = importsPath(record, QStringLiteral("/undo.jsonl"));
    m_vault.write(journal, "{\"day\":\"01-");
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(failure(record), std::pair(FileOperation::Decode, EILSEQ));
        EXPECT_EQ(m_vault.read(kDay), mine);
        EXPECT_EQ(onlyRecord(m_vault.path()), record);
    }
    m_vault.write(next, imported);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kRestored);
    EXPECT_EQ(m_vault.read(kDay), mine);
    EXPECT_FALSE(m_vault.exists(journal));
}

// The first try told what it would cut, and may have died ahead of it or behind it.
TEST_F(UndoTest, ASecondTryIsNotSureOfADayThatWasEditedSinceTheFirst) {
    const ImportRecord record = imported();
    const QString edited = QString::fromLatin1(kAppended) + QLatin1String("\nimported\n");
    const QByteArray told =
        ImportRecord::File{.day = QStringLiteral("01-02"),
                           .existed = true,
                           .after = hash(QStringLiteral("# 01-02\n\n## 2024\n\nold\n\nimported\n")),
                           .before = hash(edited)}
            .encoded();
    const QString journal = importsPath(record, QStringLiteral("/undo.jsonl"));
    m_vault.write(journal, "{\n" + told + "\n{\"day\":\"01-");
    const QByteArray sinceThen = "# 01-02\n\n## 2024\n\nold\n\nimported\n\nmore\n";
    m_vault.write(kDay, sinceThen);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kNotFound);
    EXPECT_EQ(m_vault.read(kDay), sinceThen);
    // A day that is as it was ahead of the first try is cut now.
    m_vault.write(importsPath(record, QStringLiteral(".json")), record.encoded());
    m_vault.write(journal, "{\n" + told + "\n{\"day\":\"01-");
    m_vault.write(kDay, edited.toUtf8());
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kEdited);
    EXPECT_EQ(m_vault.read(kDay), "# 01-02\n\n## 2024\n\nold\n\nimported\n");
    EXPECT_FALSE(m_vault.exists(journal));
}

// The day's file is made the journal's other name, so it changes between being read and written.
TEST_F(UndoTest, NeverWritesOverWhatAnotherProgramWritesAtThatMoment) {
    const ImportRecord record = imported();
    const QByteArray edited = QByteArray(kAppended) + "\nmine\n";
    const QString journal = importsPath(record, QStringLiteral("/undo.jsonl"));
    m_vault.write(journal, edited);
    QFile::remove(m_vault.filePath(kDay));
    ASSERT_EQ(::link(QFile::encodeName(m_vault.filePath(journal)).constData(),
                     QFile::encodeName(m_vault.filePath(kDay)).constData()),
              0);
    EXPECT_EQ(failure(record), std::pair(FileOperation::Write, ESTALE));
    EXPECT_TRUE(m_vault.read(kDay).startsWith(edited));
    EXPECT_EQ(onlyRecord(m_vault.path()), record);
}

TEST_F(UndoTest, StopsAtARecordThatContradictsItself) {
    ImportRecord record = imported();
    record.files[0].existed = false;
    put(record);
    EXPECT_EQ(failure(record), std::pair(FileOperation::Read, EBADMSG));
    EXPECT_EQ(m_vault.read(kDay), kAppended);
}

TEST_F(UndoTest, StopsAtADayThatIsNotUtf8) {
    const ImportRecord record = imported();
    m_vault.write(kDay, "\xFF");
    EXPECT_EQ(failure(record), std::pair(FileOperation::Decode, EILSEQ));
    EXPECT_EQ(m_vault.read(kDay), "\xFF");
    EXPECT_EQ(onlyRecord(m_vault.path()), record);
}

TEST_F(UndoTest, PassesOverADayThatDoesNotRead) {
    ImportRecord record = imported();
    record.files[0].day = QStringLiteral("../01-02");
    put(record);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), UndoResult());
    EXPECT_EQ(m_vault.read(kDay), kAppended);
}

TEST_F(UndoTest, AnAnnouncedWriteThatIsNotSeenIsNotFound) {
    ImportRecord record = imported();
    record.files[0].committed = false;
    put(record);
    // The digest alone tells that it happened, even where the second line was lost.
    m_vault.write(kDay, "# 01-02\n\n## 2024\n\nold and new\n");
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kNotFound);
    EXPECT_EQ(m_vault.read(kDay), "# 01-02\n\n## 2024\n\nold and new\n");
    put(record);
    m_vault.write(kDay, kAppended);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kRestored);
    EXPECT_EQ(m_vault.read(kDay), kOld);
}

TEST_F(UndoTest, IsFinalAndLeavesALaterImportOfTheSameEntriesAlone) {
    const ImportRecord record = imported();
    undo(record, m_vault.path(), moment(9));
    importInto(m_vault.path(), batchOf({entry({2024, 1, 2}, QStringLiteral("imported"))}), 60);
    // A window may still show the record as it was.
    EXPECT_EQ(undo(record, m_vault.path(), moment(90)), UndoResult());
    EXPECT_EQ(m_vault.read(kDay), kAppended);
}

// A sync service may bring back an older file.
TEST_F(UndoTest, KnowsMoreThanARecordThatFellBackToItsBeginning) {
    const ImportRecord record = imported();
    ImportRecord begun = record;
    begun.state = State::writing;
    begun.files.clear();
    put(begun);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kRestored);
    EXPECT_EQ(m_vault.read(kDay), kOld);
    EXPECT_EQ(onlyRecord(m_vault.path()).files, record.files);
}

TEST_F(UndoTest, KnowsMoreThanAJournalThatIsGone) {
    ImportRecord record = imported();
    record.state = State::writing;
    ImportRecord begun = record;
    begun.files.clear();
    put(begun);
    EXPECT_EQ(undo(record, m_vault.path(), moment(9)), kRestored);
    EXPECT_EQ(m_vault.read(kDay), kOld);
}

TEST_F(UndoTest, LetsTheSameEntriesBeImportedAgain) {
    const ImportRecord record = imported();
    undo(record, m_vault.path(), moment(9));
    const ImportRecord again =
        importInto(m_vault.path(), batchOf({entry({2024, 1, 2}, QStringLiteral("imported"))}), 60);
    EXPECT_EQ(again.entries, 1);
    EXPECT_EQ(m_vault.read(kDay), kAppended);
}

TEST_F(UndoTest, TwoImportsAreUndoneInEitherOrder) {
    const ImportRecord first = imported();
    const ImportRecord second =
        importInto(m_vault.path(), batchOf({entry({2024, 1, 2}, QStringLiteral("second"))}), 60);
    EXPECT_EQ(undo(first, m_vault.path(), moment(90)), kEdited);
    EXPECT_EQ(m_vault.read(kDay), "# 01-02\n\n## 2024\n\nold\n\n---\n\nsecond\n");
    EXPECT_EQ(undo(second, m_vault.path(), moment(95)), kEdited);
    EXPECT_EQ(m_vault.read(kDay), kOld);
}

// The text without the addition; nothing if it wasn't cut.
std::optional<QString> cutting(const ImportRecord::Added& added, const QString& text) {
    SectionedText day({1, 2}, text);
    if (cutOut(added, std::nullopt, false, day) == Cut::Made) return day.text();
    EXPECT_EQ(day.text(), text);
    return std::nullopt;
}

TEST(CuttingOut, ClosesAFenceThatTheAdditionHadClosed) {
    const ImportRecord::Added added{.year = 2023, .text = QStringLiteral("code\n```")};
    const auto cut = cutting(
        added, QStringLiteral("# 01-02\n\n## 2023\n\n```\ncode\n```\n\n## 2024\n\nlater\n"));
    ASSERT_TRUE(cut.has_value());
    EXPECT_EQ(YearSectionParser::body(2024, *cut), u"later");
}

TEST(CuttingOut, ClosesAFenceThatWhiteSpaceHid) {
    const ImportRecord::Added added{.year = 2023, .text = QStringLiteral("imported")};
    const auto cut = cutting(
        added,
        QStringLiteral("# 01-02\n\n## 2023\n\n\u2029```\nmine\n\nimported\n\n## 2024\n\nlater\n"));
    ASSERT_TRUE(cut.has_value());
    EXPECT_EQ(YearSectionParser::body(2023, *cut), u"```\nmine\n```");
    EXPECT_EQ(YearSectionParser::body(2024, *cut), u"later");
}

TEST(CuttingOut, AnOldRecordListsWhatTheDayHeldBefore) {
    const ImportRecord::Added added{.year = 2024, .text = QStringLiteral("imported")};
    const QString text = QStringLiteral("# 01-02\n\n## 2024\n\nimported\n\nmine\n");
    SectionedText day({1, 2}, text);
    const SectionedText backup({1, 2}, QString::fromLatin1(kNew));
    EXPECT_EQ(cutOut(added, backup, true, day), Cut::NotNeeded);
    EXPECT_EQ(day.text(), text);
    EXPECT_EQ(cutOut(added, std::nullopt, true, day), Cut::Made);
    EXPECT_EQ(day.text(), QStringLiteral("# 01-02\n\n## 2024\n\nmine\n"));
}

}  // namespace
}  // namespace diary::ImportLog
