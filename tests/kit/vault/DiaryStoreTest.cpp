#include "DiaryKit/Vault/DiaryStore.h"

#include <gmock/gmock.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>

#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MonthDay kDay{1, 2};

class Store : public testing::Test {
protected:
    test::TemporaryVault vault;
    DiaryStore store{vault.path()};
};

TEST_F(Store, LivesInDocumentsDiaryByDefault) {
    EXPECT_EQ(DiaryStore().rootURL(), QDir::homePath() + QLatin1String("/Documents/Diary"));
}

TEST_F(Store, WritesNothingForABlankDayWithoutAFile) {
    DiaryStore elsewhere(vault.filePath(QStringLiteral("not made")));
    elsewhere.save(QStringLiteral("# 01-02\n\n## 2024\n\n"), kDay);
    EXPECT_FALSE(vault.exists(QStringLiteral("not made")));
}

TEST_F(Store, KeepsTheFileOfAnEmptiedDay) {
    vault.write(QStringLiteral("01-02.md"), "# 01-02\n\n## 2024\n\na\n");
    store.save(QStringLiteral("# 01-02\n"), kDay);
    EXPECT_EQ(vault.read(QStringLiteral("01-02.md")), "# 01-02\n");
}

TEST_F(Store, ReadsADayThatWasNeverWrittenAsItsTitle) {
    EXPECT_EQ(store.loadText(kDay), u"# 01-02\n");
    EXPECT_EQ(DiaryStore(QStringLiteral("/nowhere/at all")).loadText(kDay), u"# 01-02\n");
}

TEST_F(Store, ThrowsWhenTheFolderCannotBeMade) {
    vault.write(QStringLiteral("file"), "");
    DiaryStore blocked(vault.filePath(QStringLiteral("file/vault")));
    EXPECT_THROW(blocked.save(QStringLiteral("words"), kDay), FileError);
}

TEST_F(Store, KnowsTheYearsOfWhatItSavedWithoutReading) {
    store.save(QStringLiteral("# 01-02\n\n## 2024\n\na\n"), kDay);
    const auto entry = store.cachedYears(kDay);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->mtime, store.modificationDate(kDay));
    EXPECT_THAT(entry->years, ElementsAre(2024));
    EXPECT_TRUE(scanArchive(vault.path(), {{kDay, *entry}}, {}).fresh.isEmpty());
}

TEST_F(Store, SeesANewFileOnlyAfterItsListingIsDropped) {
    EXPECT_THAT(store.allContentYears(), IsEmpty());
    vault.write(QStringLiteral("03-07.md"), "## 2020\na\n");
    EXPECT_THAT(store.allContentYears(), IsEmpty());
    store.invalidateCaches();
    EXPECT_THAT(store.allContentYears(), ElementsAre(2020));
}

TEST_F(Store, TellsWhatTheVaultHolds) {
    vault.write(QStringLiteral("03-07.md"), "## 2020\na\n## 2024\nb\n");
    vault.write(QStringLiteral("03-08.md"), "## 2019\na\n");
    vault.write(QStringLiteral("04-01.md"), "# 04-01\n\n## 2001\n\n");
    EXPECT_EQ(store.overview(), (Overview{2, 2019, 3}));
    EXPECT_EQ(store.contentYearCounts(), (QHash<MonthDay, int>{{{3, 7}, 2}, {{3, 8}, 1}}));
    EXPECT_THAT(store.daysWithContent(3), ElementsAre(7, 8));
    EXPECT_THAT(store.daysWithContent(4), IsEmpty());
}

TEST_F(Store, PicksAmongDaysWithContentOnly) {
    EXPECT_EQ(store.randomDayWithContent(), std::nullopt);
    vault.write(QStringLiteral("03-07.md"), "# 03-07\n\n## 2020\n\n");
    store.invalidateCaches();
    EXPECT_EQ(store.randomDayWithContent(), std::nullopt);
    vault.write(QStringLiteral("03-08.md"), "## 2020\na\n");
    vault.write(QStringLiteral("03-09.md"), "## 2020\na\n");
    store.invalidateCaches();
    int bound = 0;
    EXPECT_EQ(store.randomDayWithContent([&](int count) { return bound = count, count - 1; }),
              (MonthDay{3, 9}));
    EXPECT_EQ(bound, 2);
}

class Evicted : public Store {
protected:
    Evicted() {
        vault.write(QStringLiteral(".03-07.md.icloud"), "placeholder");
        vault.write(QStringLiteral("03-08.md"), "## 2020\na\n");
    }
    QStringList asked;
    DiaryStore evicted{vault.path(), DownloadService([this](const QString& path) {
                           asked += path.section(QLatin1Char('/'), -1);
                       })};
};

TEST_F(Evicted, FilesCountAsFilesButNotAsWritten) {
    EXPECT_EQ(evicted.overview(), (Overview{1, 2020, 2}));
    EXPECT_THAT(asked, ElementsAre(QStringLiteral("03-07.md")));
    const ArchiveSnapshot snapshot = scanArchive(vault.path(), {}, {}).snapshot;
    EXPECT_EQ(snapshot.overview, (Overview{1, 2020, 2}));
    EXPECT_THAT(snapshot.awaitingDownload, ElementsAre(MonthDay{3, 7}));
}

TEST_F(Evicted, FilesAreAskedForWhenTheyAreLookedAt) {
    EXPECT_TRUE(evicted.isAwaitingDownload(MonthDay{3, 7}));
    EXPECT_FALSE(evicted.isAwaitingDownload(MonthDay{3, 8}));
    EXPECT_FALSE(evicted.isAwaitingDownload(MonthDay{3, 9}));
    EXPECT_EQ(evicted.loadText(MonthDay{3, 7}), u"# 03-07\n");
    EXPECT_EQ(asked.size(), 2);
}

TEST_F(Evicted, FilesAreReadOnceTheyArrive) {
    EXPECT_THAT(evicted.daysWithContent(3), ElementsAre(8));
    vault.write(QStringLiteral("03-07.md"), "## 2021\nb\n");
    QFile::remove(vault.filePath(QStringLiteral(".03-07.md.icloud")));
    evicted.invalidateCaches();
    EXPECT_THAT(evicted.daysWithContent(3), ElementsAre(7, 8));
}

TEST_F(Store, LeavesAnEmptyHeaderOutOfTheHeatMap) {
    vault.write(QStringLiteral("03-07.md"), "# 03-07\n\n## 2020\n\n");
    const ArchiveSnapshot snapshot = scanArchive(vault.path(), {}, {}).snapshot;
    EXPECT_EQ(snapshot.overview, (Overview{0, std::nullopt, 1}));
    EXPECT_TRUE(snapshot.heatCounts.isEmpty());
}

TEST_F(Store, KeepsAnEntryThatIsNewerThanAScansFinding) {
    vault.write(QStringLiteral("01-02.md"), "## 2020\nold\n");
    const ArchiveScan scan = scanArchive(vault.path(), {}, {});
    store.save(QStringLiteral("## 2020\nold\n## 2026\nnew\n"), kDay);
    store.adopt(scan);
    EXPECT_THAT(store.cachedYears(kDay)->years, ElementsAre(2020, 2026));
}

TEST_F(Store, ReadsAgainOnlyWhatChanged) {
    vault.write(QStringLiteral("01-02.md"), "## 2020\na\n");
    vault.write(QStringLiteral("01-03.md"), "## 2021\na\n");
    const ArchiveScan first = scanArchive(vault.path(), {}, {});
    EXPECT_EQ(first.fresh.size(), 2);
    vault.write(QStringLiteral("01-03.md"), "## 2021\na\n## 2022\nb\n");
    const ArchiveScan second = scanArchive(vault.path(), first.fresh, {});
    EXPECT_EQ(second.fresh.keys(), QList{(MonthDay{1, 3})});
    EXPECT_EQ(second.snapshot.heatCounts, (QHash<MonthDay, int>{{{1, 2}, 1}, {{1, 3}, 2}}));
}

TEST_F(Store, HandsOnASnapshotFromTheBackground) {
    vault.write(QStringLiteral("01-02.md"), "## 2020\na\n");
    std::optional<ArchiveSnapshot> snapshot;
    store.loadArchiveSnapshot([&](const ArchiveSnapshot& found) { snapshot = found; });
    while (!snapshot) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(snapshot->overview, (Overview{1, 2020, 1}));
    EXPECT_TRUE(store.cachedYears(kDay));
}

TEST_F(Store, AnswersNobodyWhenItIsGone) {
    {
        DiaryStore brief(vault.path());
        brief.loadArchiveSnapshot([](const ArchiveSnapshot&) { ADD_FAILURE(); });
    }
    bool isDone = false;
    store.loadArchiveSnapshot([&](const ArchiveSnapshot&) { isDone = true; });
    while (!isDone) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST_F(Store, HasNoConflictsWithoutCopies) {
    EXPECT_EQ(store.resolveConflicts(kDay, QStringLiteral("(both)")), DiaryStore::Conflicts::None);
    EXPECT_FALSE(vault.exists(QStringLiteral("01-02.md")));
}

TEST_F(Store, LeavesAVersionInPlaceThatCannotBeMovedAndDoublesNothing) {
    vault.write(QStringLiteral("01-02.md"), "# 01-02\n\n## 2024\n\nA\n");
    vault.write(QStringLiteral("01-02 (conflicting copy).md"), "## 2024\nB\n");
    vault.write(QStringLiteral(".velmar"), "a file where the folder belongs");
    EXPECT_EQ(store.resolveConflicts(kDay, QStringLiteral("(both)")),
              DiaryStore::Conflicts::Merged);
    const QByteArray merged = vault.read(QStringLiteral("01-02.md"));
    EXPECT_EQ(merged, "# 01-02\n\n## 2024\n\nA\n\n(both)\n\nB\n");
    EXPECT_TRUE(vault.exists(QStringLiteral("01-02 (conflicting copy).md")));
    EXPECT_EQ(store.resolveConflicts(kDay, QStringLiteral("(both)")), DiaryStore::Conflicts::None);
    EXPECT_EQ(vault.read(QStringLiteral("01-02.md")), merged);
}

}  // namespace
}  // namespace diary
