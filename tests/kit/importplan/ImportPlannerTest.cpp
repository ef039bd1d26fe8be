#include "DiaryKit/Import/ImportPlanner.h"

#include <gmock/gmock.h>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/kit/importplan/Entries.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary::ImportPlanner {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Trait = ImportPlan::Sample::Trait;

constexpr DiaryDay kDay{2024, 3, 7};
constexpr MonthDay kMonthDay{3, 7};

TEST(Plan, KeepsATitleAloneAndDropsNothingness) {
    const ImportPlan plan = planOn({}, batchOf({{.day = kDay, .title = QStringLiteral("T")},
                                                entry(kDay, QStringLiteral(" \n"))}));
    EXPECT_EQ(plan.stats.entries, 1);
    EXPECT_EQ(plan.stats.empty, 1);
    EXPECT_EQ(plan.changes[0].additions[0].text, u"### T");
}

TEST(Plan, CountsAnEmptyEntryOfAnExcludedJournalOnce) {
    ImportOptions options;
    options.excludedJournals = {QStringLiteral("Work")};
    ImportedEntry excluded = entry(kDay, QString());
    excluded.journal = QStringLiteral("Work");
    ImportedEntry other = entry(kDay, QStringLiteral("a"));
    other.journal = QStringLiteral("work");
    const ImportPlan plan = planOn({}, batchOf({excluded, other}), {}, options);
    EXPECT_EQ(plan.stats.excluded, 1);
    EXPECT_EQ(plan.stats.empty, 0);
    EXPECT_EQ(plan.stats.entries, 1);
    EXPECT_EQ(plan.options, options);
}

TEST(Plan, OrdersByTimeAndLeavesTiesInTheBatchsOrder) {
    const ImportPlan plan = planOn({}, batchOf({entry(kDay, QStringLiteral("later")),
                                                entryAt(kDay, {9, 30}, QStringLiteral("c")),
                                                entryAt(kDay, {9, 5}, QStringLiteral("b")),
                                                entryAt(kDay, {9, 30}, QStringLiteral("d")),
                                                entry(kDay, QStringLiteral("last"))}));
    QStringList order;
    for (const ImportedEntry& one : plan.changes[0].additions[0].entries) order << one.body;
    EXPECT_THAT(order, ElementsAre(u"b", u"c", u"d", u"later", u"last"));
    EXPECT_EQ(plan.changes[0].entryCount, 5);
}

TEST(Plan, GoesByDaysAndYears) {
    const ImportPlan plan = planOn(
        {{{1, 2}, QStringLiteral("# 01-02\n")}},
        batchOf({entry({2024, 3, 7}, QStringLiteral("a")), entry({2022, 3, 7}, QStringLiteral("b")),
                 entry({2023, 1, 2}, QStringLiteral("c")),
                 entry({2023, 2, 29}, QStringLiteral("no leap year, the same file"))}));
    ASSERT_THAT(plan.changes, SizeIs(3));
    EXPECT_EQ(plan.changes[0].monthDay, (MonthDay{1, 2}));
    EXPECT_TRUE(plan.changes[0].existed);
    EXPECT_EQ(plan.changes[1].monthDay, (MonthDay{2, 29}));
    EXPECT_EQ(plan.changes[2].additions[0].year, 2022);
    EXPECT_EQ(plan.changes[2].additions[1].year, 2024);
    EXPECT_EQ(plan.stats.years, (YearRange{2022, 2024}));
    EXPECT_EQ(plan.stats.days, 3);
    EXPECT_EQ(plan.stats.newFiles, 2);
}

TEST(Plan, TakesEqualEntriesOnce) {
    const ImportPlan plan =
        planOn({}, batchOf({entry(kDay, QStringLiteral("a")), entry(kDay, QStringLiteral("a")),
                            entry({2023, 3, 7}, QStringLiteral("a"))}));
    EXPECT_EQ(plan.stats.entries, 2);
    EXPECT_EQ(plan.stats.duplicates, 1);
}

TEST(Plan, AppendsBehindTextThatIsThere) {
    const Files files = {{kMonthDay, QStringLiteral("# 03-07\n\n## 2024\n\nold\n")}};
    const ImportPlan plan = planOn(files, batchOf({entryAt(kDay, {7, 5}, QStringLiteral("new"))}));
    const ImportPlan::Addition& addition = plan.changes[0].additions[0];
    EXPECT_TRUE(addition.appended);
    EXPECT_EQ(addition.text, u"### 07:05\n\nnew");
    EXPECT_EQ(plan.stats.overlapping, 1);
    ASSERT_THAT(plan.samples, SizeIs(1));
    EXPECT_EQ(plan.samples[0].existing, u"old");
    EXPECT_THAT(plan.samples[0].traits, ElementsAre(Trait::appended));
}

TEST(Plan, SkipsSectionsWithTextWhereToldTo) {
    const Files files = {{kMonthDay, QStringLiteral("# 03-07\n\n## 2024\n\nold\n\n## 2022\n")}};
    ImportOptions options;
    options.conflict = ImportOptions::Conflict::skip;
    const ImportPlan plan =
        planOn(files,
               batchOf({entry(kDay, QStringLiteral("a")), entry(kDay, QStringLiteral("b")),
                        entry({2022, 3, 7}, QStringLiteral("c"))}),
               {}, options);
    EXPECT_EQ(plan.stats.overlapping, 1);
    EXPECT_EQ(plan.stats.skippedForConflict, 2);
    EXPECT_EQ(plan.stats.entries, 1);
    EXPECT_EQ(plan.changes[0].additions[0].year, 2022);
    EXPECT_FALSE(plan.changes[0].additions[0].appended) << "a section without text is free";
}

TEST(Plan, KnowsAnEntryThatIsAWholeSectionAlready) {
    const Files files = {{kMonthDay, QStringLiteral("# 03-07\n\n## 2024\n\nby hand\n")}};
    const ImportPlan plan = planOn(files, batchOf({entry(kDay, QStringLiteral("by hand"))}));
    EXPECT_THAT(plan.changes, IsEmpty());
    EXPECT_EQ(plan.stats.duplicates, 1);
    EXPECT_EQ(plan.stats.years, std::nullopt);
}

TEST(Plan, LooksForHeadingsInTheRawBody) {
    const auto traits = [](const QString& body, bool isWhole) {
        ImportedEntry one = entry(kDay, body);
        one.isVelmarSection = isWhole;
        return planOn({}, batchOf({one})).samples.at(0).traits;
    };
    EXPECT_THAT(traits(QStringLiteral("#tag"), false), ElementsAre(Trait::headings));
    EXPECT_THAT(traits(QStringLiteral("a\n# b"), false), ElementsAre(Trait::headings));
    EXPECT_THAT(traits(QStringLiteral("a\n# b"), true), IsEmpty());
    EXPECT_THAT(traits(QStringLiteral("### b"), true), ElementsAre(Trait::headings));
}

TEST(Plan, AddsNothingTheSecondTime) {
    const ImportBatch batch = batchOf({entryAt(kDay, {7, 5}, QStringLiteral("one")),
                                       entry(kDay, QStringLiteral("two\n\n# three")),
                                       entry({2022, 12, 31}, QStringLiteral("four"))});
    Files files = {{kMonthDay, QStringLiteral("# 03-07\n\n## 2024\n\nold\n")}};
    const ImportPlan first = planOn(files, batch);
    EXPECT_EQ(first.stats.entries, 3);
    const ImportRecord record = written(first, batch.source, files);
    const ImportPlan second = planOn(files, batch, {record});
    EXPECT_THAT(second.changes, IsEmpty());
    EXPECT_EQ(second.stats.duplicates, 3);
}

TEST(Plan, BringsBackWhatTheUserDeleted) {
    const ImportBatch batch = batchOf({entryAt(kDay, {7, 5}, QStringLiteral("the first")),
                                       entryAt(kDay, {9, 5}, QStringLiteral("the second"))});
    Files files;
    const ImportRecord record = written(planOn(files, batch), batch.source, files);
    files[kMonthDay].remove(QStringLiteral("### 09:05\n\nthe second"));
    const ImportPlan again = planOn(files, batch, {record});
    ASSERT_THAT(again.changes, SizeIs(1));
    EXPECT_EQ(again.changes[0].additions[0].text, u"### 09:05\n\nthe second");
    EXPECT_EQ(again.stats.duplicates, 1);
}

TEST(Plan, IsNotKeptBackByAnUndoneImport) {
    const ImportBatch batch = batchOf(
        {entryAt(kDay, {7, 5}, QStringLiteral("a")), entryAt(kDay, {8, 5}, QStringLiteral("b"))});
    Files files;
    ImportRecord record = written(planOn(files, batch), batch.source, files);
    record.state = ImportRecord::State::undone;
    EXPECT_EQ(planOn(files, batch, {record}).stats.entries, 2);
}

TEST(Plan, KnowsEntriesOfItsOwnSourceOnly) {
    const std::vector<ImportedEntry> entries = {entryAt(kDay, {7, 5}, QStringLiteral("a"))};
    Files files;
    const ImportRecord record =
        written(planOn(files, batchOf(entries)), ImportSource::dayOne, files);
    EXPECT_EQ(planOn(files, batchOf(entries, ImportSource::journey), {record}).stats.entries, 1);
}

TEST(Plan, ReportsNothingThatADayFileCannotHold) {
    const ImportPlan plan = planOn({}, batchOf({entry({999, 3, 7}, QStringLiteral("a")),
                                                entry({20240, 3, 7}, QStringLiteral("b")),
                                                entry({2024, 3, 7}, QStringLiteral("c"))}));
    EXPECT_EQ(plan.stats.entries, 1);
    EXPECT_EQ(plan.stats.years, (YearRange{2024, 2024}));
    ASSERT_THAT(plan.changes, SizeIs(1));
    EXPECT_THAT(plan.changes[0].additions, SizeIs(1));
    EXPECT_THAT(plan.samples, SizeIs(1));
}

TEST(Plan, ReportsNoBlankSections) {
    ImportedEntry blank = entry(kDay, QString());
    blank.title = QStringLiteral("T");
    blank.isVelmarSection = true;
    ImportedEntry other = blank;
    other.tags = {QStringLiteral("x")};
    const ImportPlan plan = planOn({}, batchOf({blank, other}));
    EXPECT_EQ(plan.stats.entries, 0) << "two blank texts are no text";
    EXPECT_THAT(plan.changes, IsEmpty());
}

// The text with the addition, or nothing if it can't be held.
std::optional<QString> appending(QStringView addition, int year, const MonthDay& monthDay,
                                 const QString& text) {
    SectionedText day(monthDay, text);
    if (ImportPlanner::append(addition, year, day)) return day.text();
    EXPECT_EQ(day.text(), text);
    return std::nullopt;
}

TEST(Appending, FindsWhatItWrote) {
    const QString text = QStringLiteral("# 03-07\n");
    EXPECT_EQ(appending(u"a\n", 2024, kMonthDay, text), u"# 03-07\n\n## 2024\n\na\n");
    EXPECT_EQ(appending(u" \n", 2024, kMonthDay, text), std::nullopt);
    EXPECT_EQ(appending(u"a", 999, kMonthDay, text), std::nullopt);
    EXPECT_EQ(appending(u"a\n## 2025\nb", 2024, kMonthDay, text), std::nullopt);
}

TEST(Appending, ClosesAnOpenFenceWhereTheAdditionWouldFallApart) {
    const QString text = QStringLiteral("# 03-07\n\n## 2024\n\n```\nopen\n");
    EXPECT_EQ(appending(u"```\n## 2023\n```", 2024, kMonthDay, text),
              u"# 03-07\n\n## 2024\n\n```\nopen\n\n```\n\n---\n\n```\n## 2023\n```\n");
    EXPECT_EQ(appending(u"plain", 2024, kMonthDay, text),
              u"# 03-07\n\n## 2024\n\n```\nopen\n\n---\n\nplain\n");
}

TEST(Plan, ClosesAFenceThatShowsOnceTheAdditionIsTrimmed) {
    const Files files = {{kMonthDay, QStringLiteral("# 03-07\n\n## 2025\n\nlater\n")}};
    const ImportPlan plan =
        planOn(files, batchOf({entry(kDay, QStringLiteral("\u3000```\ncode"))}));
    Files after = files;
    written(plan, ImportSource::dayOne, after);
    EXPECT_EQ(YearSectionParser::body(2024, after[kMonthDay]), u"```\ncode\n```");
    EXPECT_EQ(YearSectionParser::body(2025, after[kMonthDay]), u"later");
}

TEST(Plan, ReadsEachDayOfTheBatchOnce) {
    std::vector<MonthDay> asked;
    const ImportBatch batch =
        batchOf({entry(kDay, QStringLiteral("a")), entry({2023, 3, 7}, QStringLiteral("b")),
                 entry({2023, 1, 2}, QStringLiteral("c"))});
    const ImportPlan plan = ImportPlanner::plan(batch, {}, {}, [&](const MonthDay& day) {
        asked.push_back(day);
        return std::optional<QString>();
    });
    EXPECT_THAT(asked, ElementsAre(MonthDay{1, 2}, kMonthDay));
    EXPECT_EQ(plan.stats.newFiles, 2);
}

TEST(Plan, ReadsTheFilesOfAVault) {
    const TemporaryVault vault;
    vault.write(QStringLiteral("03-07.md"), "# 03-07\n\n## 2024\n\nold\n");
    const ImportBatch batch =
        batchOf({entry(kDay, QStringLiteral("old")), entry({2024, 3, 8}, QStringLiteral("new"))});
    const ImportPlan plan = ImportPlanner::plan(batch, {}, {}, vault.path());
    EXPECT_EQ(plan.stats.duplicates, 1);
    EXPECT_EQ(plan.stats.newFiles, 1);
    EXPECT_THAT(vault.names(), ElementsAre(u"03-07.md")) << "planning writes nothing";
}

}  // namespace
}  // namespace diary::ImportPlanner
