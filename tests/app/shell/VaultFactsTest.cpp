#include "DiaryApp/Shell/VaultFacts.h"

#include <gmock/gmock.h>

#include <QtTest/QTest>

#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace velmar {
namespace {

using diary::MonthDay;
using testing::ElementsAre;

class VaultFactsTest : public testing::Test {
protected:
    VaultFactsTest() {
        vault.write(QStringLiteral("03-07.md"), "## 2020\na\n## 2024\nb\n");
        facts.onChanged = [this] { ++changes; };
    }

    bool waitForChanges(int count) {
        return QTest::qWaitFor([this, count] { return changes == count; }, 10000);
    }

    [[nodiscard]] static VaultFacts::FirstScan scanOf(const QString& root) {
        std::promise<diary::ArchiveScan> scan;
        scan.set_value(diary::scanArchive(root, {}, {}));
        return scan.get_future().share();
    }

    diary::test::TemporaryVault vault;
    diary::DiaryStore store{vault.path()};
    VaultFacts facts{store};
    int changes = 0;
};

TEST_F(VaultFactsTest, AreThereAtOnceAfterAScanThatHasEnded) {
    EXPECT_FALSE(facts.areKnown());
    facts.begin(scanOf(vault.path()));
    EXPECT_TRUE(facts.areKnown());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(facts.archive().overview, (diary::Overview{1, 2020, 1}));
    EXPECT_TRUE(store.cachedYears({3, 7})) << "the store learns what was found";
}

TEST_F(VaultFactsTest, ComeInTheBackground) {
    facts.begin({});
    EXPECT_FALSE(facts.areKnown());
    EXPECT_TRUE(waitForChanges(1));
    EXPECT_THAT(facts.archive().contentYears, ElementsAre(2020, 2024));
}

TEST_F(VaultFactsTest, FollowAScanThatStillRuns) {
    std::promise<diary::ArchiveScan> scan;
    facts.begin(scan.get_future().share());
    EXPECT_FALSE(facts.areKnown());
    scan.set_value(diary::scanArchive(vault.path(), {}, {}));
    EXPECT_TRUE(waitForChanges(1));
    EXPECT_EQ(facts.archive().overview.daysWithContent, 1);
}

TEST_F(VaultFactsTest, FollowWhatTheStoreWrites) {
    facts.begin(scanOf(vault.path()));
    store.save(QStringLiteral("# 03-08\n\n## 2026\n\nnew\n"), {3, 8});
    EXPECT_EQ(facts.archive().overview.daysWithContent, 1) << "nothing is read meanwhile";
    facts.refresh();
    EXPECT_TRUE(waitForChanges(2));
    EXPECT_EQ(facts.archive().heatCounts.value({3, 8}), 1);
}

TEST_F(VaultFactsTest, FollowChangesFromOutsideOnceTheStoreHearsOfThem) {
    facts.begin(scanOf(vault.path()));
    vault.write(QStringLiteral("03-07.md"), "# 03-07\n");
    vault.write(QStringLiteral("05-01.md"), "## 1999\na\n");
    facts.refresh();
    QTest::qWait(20);
    EXPECT_EQ(changes, 1) << "the store has nothing new to say";
    store.invalidateCaches();
    facts.refresh();
    EXPECT_TRUE(waitForChanges(2));
    EXPECT_EQ(facts.archive().overview, (diary::Overview{1, 1999, 2}));
}

TEST_F(VaultFactsTest, LookOnceMoreForWhatIsWrittenDuringALook) {
    facts.begin({});
    store.save(QStringLiteral("# 03-08\n\n## 2026\n\nnew\n"), {3, 8});
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return facts.archive().overview.daysWithContent == 2; }, 10000));
}

TEST_F(VaultFactsTest, LookOnceMoreForWhatIsWrittenDuringTheFirstScan) {
    std::promise<diary::ArchiveScan> scan;
    facts.begin(scan.get_future().share());
    const diary::ArchiveScan found = diary::scanArchive(vault.path(), {}, {});
    store.save(QStringLiteral("# 03-08\n\n## 2026\n\nnew\n"), {3, 8});
    scan.set_value(found);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return facts.archive().overview.daysWithContent == 2; }, 10000));
    EXPECT_EQ(store.overview().fileCount, 2) << "the store knows its new file, too";
}

TEST_F(VaultFactsTest, TellNothingWhereNothingChanged) {
    facts.begin(scanOf(vault.path()));
    const int before = store.revision();
    facts.lookAgain();
    EXPECT_TRUE(QTest::qWaitFor([&] { return store.revision() != before; }, 10000));
    EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace velmar
