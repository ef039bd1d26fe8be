// Copies that a sync service leaves beside a day's file are taken in when the day opens and at each
// refresh.
#include "tests/app/session/SessionFixture.h"

namespace velmar::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kCopy = QStringLiteral("11-21.sync-conflict-20261121-100000-ABCDEFG.md");

class Conflicts : public SessionFixture {};

TEST_F(Conflicts, AreMergedWhenTheDayOpens) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nhere\n");
    vault.write(kCopy, "# 11-21\n\n## 2026\n\nthere\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->draft(), u"here\n\n(also written elsewhere)\n\nthere");
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::MergedRemote));
    EXPECT_FALSE(vault.exists(kCopy));
    EXPECT_TRUE(vault.exists(QStringLiteral(".velmar/conflicts/") + kCopy));
}

TEST_F(Conflicts, AreMergedOldestFirst) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nhere\n");
    vault.write(QStringLiteral("11-21.sync-conflict-20261121-110000-ABCDEFG.md"),
                "# 11-21\n\n## 2026\n\nsecond\n");
    vault.write(kCopy, "# 11-21\n\n## 2026\n\nfirst\n");
    session->open(today, Focus::Editor);
    EXPECT_LT(session->draft().indexOf(QLatin1String("first")),
              session->draft().indexOf(QLatin1String("second")));
}

TEST_F(Conflicts, AreMergedAtARefreshAndReloaded) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nhere\n");
    session->open(today, Focus::Editor);
    vault.write(kCopy, "# 11-21\n\n## 2025\n\nthere\n");
    session->performRemoteRefresh();
    EXPECT_EQ(session->body(2025), u"there");
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::MergedRemote));
}

TEST_F(Conflicts, AreMergedIntoTheFileWhileDirtyAndKeptFromTheDraft) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nhere\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("here, more"));
    vault.write(kCopy, "# 11-21\n\n## 2026\n\nthere\n");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"here, more");
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026), u"here, more");
    EXPECT_THAT(kept(diary::KeptReason::Overwritten),
                ElementsAre(QStringLiteral("here\n\n(also written elsewhere)\n\nthere")));
}

TEST_F(Conflicts, GiveADayItsTextWhoseFileIsMissing) {
    vault.write(QStringLiteral("11-21-fedora-safeBackup-0001.md"), "# 11-21\n\n## 2026\n\nthere\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->draft(), u"there");
}

TEST_F(Conflicts, AreLeftAloneWhereTheNameOnlyLooksLikeACopy) {
    vault.write(QStringLiteral("11-21-LAPTOP.md"), "a shopping list\n");
    vault.write(QStringLiteral("11-21-2024.md"), "# trip\n\n## 2024\n\na\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->draft(), QString());
    EXPECT_THAT(told.notices, IsEmpty());
    EXPECT_TRUE(vault.exists(QStringLiteral("11-21-LAPTOP.md")));
    EXPECT_TRUE(vault.exists(QStringLiteral("11-21-2024.md")));
}

TEST_F(Conflicts, AreKeptWhenTheMergeCannotBeSaved) {
    vault.write(kCopy, "# 11-21\n\n## 2026\n\nthere\n");
    // A link into nowhere: it reads as a missing file and can't be written.
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/nowhere/11-21.md"), store.fileURL(today)));
    session->open(today, Focus::Editor);
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::KeptMerge));
    EXPECT_THAT(kept(diary::KeptReason::UnsavedMerge),
                ElementsAre(QStringLiteral("# 11-21\n\n## 2026\n\nthere\n")));
    EXPECT_TRUE(vault.exists(QStringLiteral(".velmar/conflicts/") + kCopy));
}

TEST_F(Conflicts, DoNotDoubleAMergeThatAnotherMachineMadeInAnotherLanguage) {
    const QByteArray ours("# 11-21\n\n## 2026\n\nhere\n\n(also written elsewhere)\n\nthere\n");
    vault.write(QStringLiteral("11-21.md"), ours);
    vault.write(kCopy, "# 11-21\n\n## 2026\n\nhere\n\n(ailleurs aussi)\n\nthere\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(file().toUtf8(), ours);
    EXPECT_FALSE(vault.exists(kCopy));
}

TEST_F(Conflicts, DoNotDoubleATextThatTwoMachinesTakeIn) {
    const QByteArray main("# 11-21\n\n## 2026\n\nhere\n");
    const QByteArray copy("# 11-21\n\n## 2026\n\nthere\n");
    vault.write(QStringLiteral("11-21.md"), main);
    vault.write(kCopy, copy);
    session->open(today, Focus::Editor);
    const QString merged = file();
    // The other machine merged too; its result arrives, and the copy comes back late.
    vault.write(kCopy, copy);
    session->performRemoteRefresh();
    EXPECT_EQ(file(), merged);
    EXPECT_FALSE(vault.exists(kCopy));
}

}  // namespace
}  // namespace velmar::test
