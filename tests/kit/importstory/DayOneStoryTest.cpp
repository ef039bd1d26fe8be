// Day One exports on their whole way: read from the archive, planned, written over a diary that has
// days of its own, cut off, kept, undone, imported again. One export is made here; those that lie
// beside the source folder, in ../shared/samples, take the same way where they are there.
#include <QtCore/QDirIterator>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <string_view>

#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/TextDecoding.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/kit/import/ZipBuilder.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/Printing.h"
#include "tests/support/faults/FaultyRun.h"

namespace diary::test {
namespace {

using State = ImportRecord::State;
using testing::ZipBuilder;

// An export: its archive's files.
struct Export {
    std::string name;
    std::map<QByteArray, QByteArray> files;
};

QByteArray journal(const QByteArrayList& entries) {
    return R"({"metadata": {"version": "1.0"}, "entries": [)" + entries.join(",\n") + "]}";
}

QByteArray entryJson(const QByteArray& date, const QByteArray& text, const QByteArray& more = {}) {
    return R"({"creationDate": ")" + date + R"(", "timeZone": "Asia/Tokyo", "text": ")" + text +
           '"' + (more.isEmpty() ? "" : ", " + more) + '}';
}

// What exports have in them: several entries a day, titles, headings, an open fence, escapes, links
// of their own, media, Chinese, a leap day, one entry twice, one empty and one without a date.
Export ownExport() {
    const QByteArray walk = entryJson("2021-03-04T10:00:00Z", R"(Walked to the sea\\. 晴れ)");
    return {
        "Own",
        {{"Journal.json",
          journal({walk, walk,
                   entryJson("2021-03-04T22:10:00Z", R"(# Late\n\n## 2020\n\n```\nopen code)"),
                   entryJson("2021-03-04T22:20:00Z", R"(See [it](dayone://view?entryId=1)\\!)"),
                   entryJson("2022-03-05T01:00:00Z", R"(1\\. Apples\n\n## 2023\n\nPears)",
                             R"("location": {"localityName": "Kyoto"}, "tags": ["a b", "#"])"),
                   entryJson("2024-02-29T02:00:00Z", R"(A day of its own\n\n---\n\nand more)",
                             R"("photos": [{}, {}], "isAllDay": true)"),
                   entryJson("2024-12-31T20:00:00Z", R"(![](dayone-moment://1)New year in Tokyo)"),
                   entryJson("2019-07-07T03:00:00Z", ""), entryJson("yesterday", "lost in time")})},
         {"旅.json", journal({entryJson("2023-07-08T03:00:00Z", "今天下雨，在家里读书。")})},
         {"photos/1.jpeg", QByteArray(5000, 'p')},
         {"__MACOSX/._Journal.json", "junk"}}};
}

// Journals that no story can be told of: two are cut short, and one has its first date so late that
// it isn't recognised.
constexpr std::array<std::string_view, 3> kWithoutStory = {
    "_constructed_entries_first_late_creationDate", "kulapard_invalid",
    "one_good_one_broken_Truncated"};

// The journals beside the source folder, each as an export of its own.
std::vector<Export> journals() {
    std::vector<Export> all;
    QDirIterator files(QStringLiteral(VELMAR_SOURCE_DIR "/../shared/samples/dayone"),
                       {QStringLiteral("*.json")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) continue;
        const QString name = file.fileName().section(u'/', -2).replace(u'/', u'_');
        std::string test = name.chopped(5).toStdString();
        std::replace_if(
            test.begin(), test.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
        all.push_back({test, {{"Journal.json", file.readAll()}}});
    }
    std::sort(all.begin(), all.end(),
              [](const Export& a, const Export& b) { return a.name < b.name; });
    return all;
}

bool hasStory(const Export& one) {
    return std::ranges::find(kWithoutStory, one.name) == kWithoutStory.end();
}

std::vector<Export> exports() {
    std::vector<Export> all = {ownExport()};
    std::ranges::copy_if(journals(), std::back_inserter(all), hasStory);
    return all;
}

// All files of the vault but what the import keeps for itself.
DayFiles filesOf(const TemporaryVault& vault) {
    DayFiles all;
    QDirIterator files(vault.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(vault.path()).relativeFilePath(files.next());
        if (!name.startsWith(QLatin1String(".velmar/imports/"))) all[name] = vault.read(name);
    }
    return all;
}

void archive(const Export& one, const QString& path) {
    ZipBuilder zip;
    for (const auto& [name, bytes] : one.files) zip.add(ZipBuilder::packed(name, bytes));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(zip.bytes());
}

// An archive of an export on the disk, and what is read from it.
class DayOneStory : public ::testing::TestWithParam<Export> {
protected:
    void SetUp() override {
        archive(GetParam(), m_archive);
        m_batch = DayOneSource::read(ImportPackage(m_archive), QStringLiteral("Export.zip"));
        for (const ImportedEntry& entry : m_batch.entries) {
            if (isKept(entry)) m_days.insert(entry.day.monthDay());
        }
        ASSERT_FALSE(m_days.empty());
    }

    static bool isKept(const ImportedEntry& entry) {
        return entry.title || !entry.body.trimmed().isEmpty();
    }

    // A diary with days of its own: of three days of the export one has text in the same year, one
    // in another, one none. The bytes are such as only a restored copy brings back.
    void prepare(const TemporaryVault& vault) const {
        int number = 0;
        for (const MonthDay& day : m_days) {
            const QByteArray title = "# " + day.headerTitle().toLatin1();
            const QByteArray year = QByteArray::number(yearOf(day));
            if (number % 3 == 0)
                vault.write(day.fileName(), title + "\n\n\n## " + year + "\nold  \n\n");
            if (number % 3 == 1) vault.write(day.fileName(), title + "\n## 1999\n\nolder");
            ++number;
        }
        vault.write(QStringLiteral("06-30.md"), "# 06-30\r\n\r\n## 2001\r\n\r\nnot of the export");
        vault.write(QStringLiteral("notes.md"), "of another program");
    }

    // The year of the day's first entry.
    [[nodiscard]] int yearOf(const MonthDay& day) const {
        for (const ImportedEntry& entry : m_batch.entries) {
            if (isKept(entry) && entry.day.monthDay() == day) return entry.day.year;
        }
        return 0;
    }

    // How many entries the export holds, each counted once, by their values alone.
    [[nodiscard]] int distinctEntries() const {
        std::vector<ImportedEntry> distinct;
        for (const ImportedEntry& entry : m_batch.entries) {
            const bool isNew = std::find(distinct.begin(), distinct.end(), entry) == distinct.end();
            if (isKept(entry) && isNew) distinct.push_back(entry);
        }
        return static_cast<int>(distinct.size());
    }

    [[nodiscard]] std::optional<ImportRecord> offered(const TemporaryVault& vault) const {
        return ImportLog::interruptedImport(vault.path(), QStringLiteral("this"), moment(9));
    }

    [[nodiscard]] FaultyRun importerRun(const TemporaryVault& vault, const Faults& faults) const {
        return runWithFaults(QStringLiteral(VELMAR_DAY_ONE_IMPORTER), {vault.path(), m_archive},
                             vault.path(), faults);
    }

    QTemporaryDir m_folder;
    QString m_archive = m_folder.filePath(QStringLiteral("Export.zip"));
    ImportBatch m_batch;
    std::set<MonthDay> m_days;
};

// Entries with a date, by the JSON alone.
int datedEntries(const Export& given) {
    static const QRegularExpression moment(QRegularExpression::anchoredPattern(QStringLiteral(
        "\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d(\\.\\d+)?(Z|[+-]\\d\\d:\\d\\d)")));
    int count = 0;
    for (const auto& [name, bytes] : given.files) {
        if (!name.endsWith(".json") || name.startsWith("__MACOSX")) continue;
        const QJsonArray entries =
            QJsonDocument::fromJson(TextDecoding::decode(bytes).toUtf8())[QLatin1String("entries")]
                .toArray();
        count +=
            static_cast<int>(std::count_if(entries.begin(), entries.end(), [](const auto& one) {
                const QString date = one.toObject()[QLatin1String("creationDate")].toString();
                return moment.match(date).hasMatch();
            }));
    }
    return count;
}

TEST_P(DayOneStory, ThePreviewTellsWhatIsThere) {
    const TemporaryVault vault;
    prepare(vault);
    const DayFiles before = filesOf(vault);
    EXPECT_EQ(static_cast<int>(m_batch.entries.size()), datedEntries(GetParam()));
    const ImportPlan plan = planIn(vault.path(), m_batch);
    const int kept =
        static_cast<int>(std::count_if(m_batch.entries.begin(), m_batch.entries.end(), isKept));
    EXPECT_EQ(plan.stats.entries, distinctEntries());
    EXPECT_EQ(plan.stats.duplicates, kept - distinctEntries());
    EXPECT_EQ(plan.stats.empty, static_cast<int>(m_batch.entries.size()) - kept);
    EXPECT_EQ(plan.stats.days, static_cast<int>(m_days.size()));
    EXPECT_EQ(plan.stats.newFiles, std::ranges::count_if(m_days, [&](const MonthDay& day) {
                  return !before.contains(day.fileName());
              }));
    EXPECT_GE(plan.stats.overlapping, 1);
    ASSERT_TRUE(plan.stats.years.has_value());
    for (const ImportedEntry& entry : m_batch.entries) {
        if (!isKept(entry)) continue;
        EXPECT_LE(plan.stats.years->first, entry.day.year);
        EXPECT_GE(plan.stats.years->last, entry.day.year);
    }
    EXPECT_FALSE(plan.samples.empty());
    EXPECT_LE(plan.samples.size(), 12U);
    EXPECT_EQ(filesOf(vault), before) << "a plan touches nothing";
}

TEST_P(DayOneStory, EveryEntryStandsInItsSectionBesideTheOldWords) {
    const TemporaryVault vault;
    prepare(vault);
    const DayFiles before = filesOf(vault);
    const ImportRecord record = importInto(vault.path(), m_batch);
    EXPECT_EQ(record.entries, distinctEntries());
    for (const ImportedEntry& entry : m_batch.entries) {
        if (!isKept(entry)) continue;
        const QString text = QString::fromUtf8(vault.read(entry.day.monthDay().fileName()));
        const QString body = YearSectionParser::body(entry.day.year, text);
        // Trimmed, since a section ends where its text ends.
        EXPECT_TRUE(body.contains(text::trimmed(EntryRenderer::prepare(entry.body))))
            << entry.body.toStdString();
        EXPECT_TRUE(body.contains(entry.title.value_or(QString())));
    }
    for (const auto& [name, bytes] : before) {
        if (name.endsWith(QLatin1String("06-30.md")) || name == QLatin1String("notes.md")) {
            EXPECT_EQ(vault.read(name), bytes);
        } else {
            EXPECT_TRUE(vault.read(name).contains(bytes.contains("older") ? "older" : "old"));
        }
    }
}

TEST_P(DayOneStory, AnUndoLeavesTheBytesFromBefore) {
    const TemporaryVault vault;
    prepare(vault);
    const DayFiles before = filesOf(vault);
    const ImportRecord record = importInto(vault.path(), m_batch);
    EXPECT_NE(filesOf(vault), before);
    EXPECT_EQ(ImportLog::undo(record, vault.path(), moment(9)),
              (ImportLog::UndoResult{.restored = static_cast<int>(m_days.size())}));
    EXPECT_EQ(filesOf(vault), before);
    EXPECT_EQ(importInto(vault.path(), m_batch, 60).entries, distinctEntries());
}

TEST_P(DayOneStory, ASecondImportKnowsEveryEntryAgain) {
    const TemporaryVault vault;
    prepare(vault);
    importInto(vault.path(), m_batch);
    const DayFiles imported = filesOf(vault);
    const ImportPlan again = planIn(vault.path(), m_batch);
    EXPECT_TRUE(again.changes.empty());
    EXPECT_EQ(again.stats.duplicates + again.stats.empty, static_cast<int>(m_batch.entries.size()));
    EXPECT_EQ(importInto(vault.path(), m_batch, 60).entries, 0);
    EXPECT_EQ(filesOf(vault), imported);
}

TEST_P(DayOneStory, WhatTheUserWroteSinceStaysThroughASecondImportAndTheUndo) {
    const TemporaryVault vault;
    prepare(vault);
    const DayFiles before = filesOf(vault);
    const ImportRecord record = importInto(vault.path(), m_batch);
    for (const MonthDay& day : m_days) {
        const QString text = QString::fromUtf8(vault.read(day.fileName()));
        const QString mine = YearSectionParser::body(yearOf(day), text) + QLatin1String("\n\nmine");
        vault.write(day.fileName(),
                    YearSectionParser::replacingBody(mine, yearOf(day), day, text).toUtf8());
    }
    const DayFiles edited = filesOf(vault);
    EXPECT_EQ(importInto(vault.path(), m_batch, 60).entries, 0);
    EXPECT_EQ(filesOf(vault), edited);
    const ImportLog::UndoResult undone = ImportLog::undo(record, vault.path(), moment(90));
    EXPECT_EQ(undone, (ImportLog::UndoResult{.edited = static_cast<int>(m_days.size())}));
    for (const MonthDay& day : m_days) {
        const QString text = QString::fromUtf8(vault.read(day.fileName()));
        const QString body = YearSectionParser::body(yearOf(day), text);
        const auto old = before.find(day.fileName());
        const bool hadText = old != before.end() && !old->second.contains("older");
        EXPECT_EQ(body, hadText ? QStringLiteral("old\n\nmine") : QStringLiteral("mine"))
            << day.headerTitle().toStdString();
    }
}

TEST_P(DayOneStory, AnEntryThatTheUserDeletedComesAgainAlone) {
    const TemporaryVault vault;
    importInto(vault.path(), m_batch);
    const ImportedEntry& entry = *std::ranges::find_if(m_batch.entries, isKept);
    const DayFiles imported = filesOf(vault);
    QFile::remove(vault.filePath(entry.day.monthDay().fileName()));
    const ImportPlan again = planIn(vault.path(), m_batch);
    ASSERT_EQ(again.changes.size(), 1U);
    EXPECT_EQ(again.changes[0].monthDay, entry.day.monthDay());
    importInto(vault.path(), m_batch, 60);
    EXPECT_EQ(filesOf(vault), imported);
}

// Keeps what came in and imports the rest, on a copy; undoes it on the other.
TEST_P(DayOneStory, CutOffAnywhereItLeadsBackAndOn) {
    const TemporaryVault whole;
    prepare(whole);
    const DayFiles before = filesOf(whole);
    const QTemporaryDir outside;
    const QString counts = outside.filePath(QStringLiteral("count"));
    ASSERT_EQ(importerRun(whole, {{QStringLiteral("COUNT"), counts}}).exitCode, 0);
    const DayFiles imported = filesOf(whole);
    QFile file(counts);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const int calls = static_cast<int>(file.readAll().count('\n'));
    constexpr int kPoints = 7;
    int offers = 0;
    for (int point = 0; point < kPoints && !HasFailure(); ++point) {
        const int call = 1 + (calls - 2) * point / (kPoints - 1);
        SCOPED_TRACE("at call " + std::to_string(call) + " of " + std::to_string(calls));
        const bool isPowerCut = point % 2 == 1;
        const QString at = isPowerCut ? QStringLiteral("POWERCUT_AT") : QStringLiteral("KILL_AT");
        for (const bool isKept : {true, false}) {
            const TemporaryVault vault;
            prepare(vault);
            EXPECT_FALSE(importerRun(vault, {{at, QString::number(call)}}).isEnded);
            for (const auto& [name, bytes] : filesOf(vault)) {
                if (name.contains(QLatin1String(".tmp"))) continue;
                const auto old = before.find(name);
                EXPECT_TRUE((old != before.end() && old->second == bytes) ||
                            imported.at(name) == bytes)
                    << name.toStdString();
            }
            atomicfile::removeAbandonedTemporaries(vault.path());
            ImportLog::removeAbandonedTemporaries(vault.path());
            const std::optional<ImportRecord> record = offered(vault);
            if (record) ++offers;
            if (isKept) {
                if (record) ImportLog::markDone(*record, vault.path());
                importInto(vault.path(), m_batch, 60);
                EXPECT_EQ(filesOf(vault), imported);
            } else {
                // At the last calls the import is whole already, and its record says so.
                for (const ImportRecord& one : ImportLog::records(vault.path(), moment(9))) {
                    EXPECT_TRUE(one.state == State::done || one == record);
                    ImportLog::undo(one, vault.path(), moment(60));
                }
                EXPECT_EQ(filesOf(vault), before);
            }
            EXPECT_EQ(offered(vault), std::nullopt);
        }
    }
    // The first calls come ahead of any record, and the last behind a whole one.
    EXPECT_GE(offers, kPoints / 2);
}

// A reader that learns one of them has a story to tell of it.
TEST(DayOneJournals, WithoutAStoryAreRefused) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Export.zip"));
    for (const Export& one : journals()) {
        if (hasStory(one)) continue;
        archive(one, path);
        EXPECT_ANY_THROW(
            (void)DayOneSource::read(ImportPackage(path), QStringLiteral("Export.zip")))
            << one.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, DayOneStory, ::testing::ValuesIn(exports()),
                         [](const auto& one) { return one.param.name; });

}  // namespace
}  // namespace diary::test
