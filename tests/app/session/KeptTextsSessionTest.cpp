// What the session has to let go of is kept outside the vault first.
#include "tests/app/session/SessionFixture.h"

namespace velmar::test {
namespace {

using diary::KeptReason;
using testing::ElementsAre;
using testing::IsEmpty;

class KeptBySession : public SessionFixture {
protected:
    KeptBySession() { session->open(today, Focus::Editor); }
};

TEST_F(KeptBySession, AnotherMachinesTextOfTheYearInView) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbefore\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("mine"));
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\ntheirs\n");
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026), u"mine");
    EXPECT_THAT(kept(KeptReason::Overwritten), ElementsAre(QStringLiteral("theirs")));
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::KeptOverwritten));
}

TEST_F(KeptBySession, NothingOfWhatItLoadedOrWroteItself) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbefore\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("once"));
    session->flushSaveIfDirty();
    session->draftChanged(QStringLiteral("twice"));
    session->flushSaveIfDirty();
    EXPECT_THAT(kept(KeptReason::Overwritten), IsEmpty());
    EXPECT_THAT(told.notices, IsEmpty());
}

TEST_F(KeptBySession, TheBytesOfAFileThatIsNotUtf8) {
    const QByteArray bytes("# 11-21\n\n## 2020\n\ncaf\xE9\n");
    vault.write(QStringLiteral("11-21.md"), bytes);
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("mine"));
    session->flushSaveIfDirty();
    session->draftChanged(QStringLiteral("mine again"));
    session->flushSaveIfDirty();
    const auto texts = store.keptTexts().list(today.headerTitle(), KeptReason::Undecodable);
    ASSERT_EQ(texts.size(), 1U);
    QFile keptFile(texts[0].path);
    ASSERT_TRUE(keptFile.open(QIODevice::ReadOnly));
    EXPECT_EQ(keptFile.readAll(), bytes);
    EXPECT_EQ(onDisk(2020), QStringLiteral("caf\uFFFD"));
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::KeptUndecodable));
}

TEST_F(KeptBySession, ADraftThatCannotBeSavedWhenItsDayIsLeft) {
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    EXPECT_TRUE(session->open(MonthDay{3, 7}, Focus::Editor));
    EXPECT_FALSE(session->isDirty());
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
    EXPECT_THAT(told.notices, ElementsAre(SessionNotice::KeptDraft));
    session->flushSaveIfDirty();
    EXPECT_FALSE(vault.exists(QStringLiteral("03-07.md")));
}

TEST_F(KeptBySession, ADraftThatCannotBeSavedWhenItsYearIsLeft) {
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    session->pickYear(2020, Focus::Editor);
    EXPECT_EQ(session->draft(), QString());
    unblockFile(today);
    session->draftChanged(QStringLiteral("of 2020"));
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2020), u"of 2020");
    EXPECT_EQ(onDisk(2026), QString());
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
}

TEST_F(KeptBySession, ADraftThatCannotBeSavedAtTheEnd) {
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    session->close();
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
}

TEST_F(KeptBySession, ADraftIsOfferedWhenItsDayOpensAgainAndPutBack) {
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    session->open(MonthDay{3, 7}, Focus::Editor);
    EXPECT_FALSE(told.offered);
    unblockFile(today);
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nthere\n");
    session->open(today, Focus::Editor);
    ASSERT_TRUE(told.offered);
    session->putBack(diary::KeptText(*told.offered));
    EXPECT_EQ(session->draft(), u"there\n\nprecious");
    EXPECT_EQ(onDisk(2026), u"there\n\nprecious");
    EXPECT_FALSE(told.offered);
    session->open(today, Focus::Editor);
    EXPECT_FALSE(told.offered);
}

TEST_F(KeptBySession, ALaterStateOfTheFilesTextIsPutBackInItsPlace) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nMorning walk.\n");
    store.keptTexts().keep(today.headerTitle(), 2026, diary::KeptReason::UnsavedDraft,
                           "Morning walk. And then the rain.\n", clock.now());
    session->open(today, Focus::Editor);
    ASSERT_TRUE(told.offered);
    session->putBack(diary::KeptText(*told.offered));
    EXPECT_EQ(onDisk(2026), u"Morning walk. And then the rain.");
}

TEST_F(KeptBySession, AnEarlierStateOfTheFilesTextChangesNothing) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nMorning walk. And then rain.\n");
    store.keptTexts().keep(today.headerTitle(), 2026, diary::KeptReason::UnsavedDraft,
                           "Morning walk.", clock.now());
    session->open(today, Focus::Editor);
    ASSERT_TRUE(told.offered);
    session->putBack(diary::KeptText(*told.offered));
    EXPECT_EQ(onDisk(2026), u"Morning walk. And then rain.");
    EXPECT_FALSE(told.offered);
}

TEST_F(KeptBySession, IsSaidOnceHoweverOftenTheSameTextComesBack) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nbefore\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("mine"));
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\ntheirs\n");
    session->flushSaveIfDirty();
    session->draftChanged(QStringLiteral("mine as well"));
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\ntheirs\n");
    session->flushSaveIfDirty();
    EXPECT_EQ(std::count(told.notices.begin(), told.notices.end(), SessionNotice::KeptOverwritten),
              1);
}

TEST_F(KeptBySession, ADraftIsKeptBeforeTheWindowWaitsForItsAlert) {
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    session->flushSaveIfDirty();
    session->keepUnsavedDraft();
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
    EXPECT_TRUE(session->isDirty());
    session->close();
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
}

TEST_F(KeptBySession, WhoLeavesLearnsWhetherTheDraftWasSavedOrKept) {
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("saved"));
    EXPECT_EQ(session->leave(), Leaving::Saved);
    EXPECT_EQ(onDisk(2026), u"saved");
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    EXPECT_EQ(session->leave(), Leaving::Kept);
    EXPECT_FALSE(session->isDirty());
    EXPECT_THAT(kept(KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("precious")));
    EXPECT_EQ(told.notices.back(), SessionNotice::KeptDraft);
}

TEST_F(KeptBySession, TheDayIsNotLeftWhileADraftCanBeNeitherSavedNorKept) {
    diary::DiaryStore nowhere(vault.path(), {}, clock, diary::KeptTexts(vault.path(), {}));
    session = makeSession(nowhere);
    session->open(today, Focus::Editor);
    blockFile(today);
    session->draftChanged(QStringLiteral("precious"));
    EXPECT_FALSE(session->open(MonthDay{3, 7}, Focus::Editor));
    EXPECT_FALSE(session->pickYear(2020, Focus::Editor));
    EXPECT_EQ(session->leave(), Leaving::Refused);
    EXPECT_TRUE(session->isDirty());
    EXPECT_EQ(session->draft(), u"precious");
    EXPECT_EQ(session->currentMonthDay(), today);
    EXPECT_EQ(told.notices.back(), SessionNotice::CannotLeave);
    unblockFile(today);
    EXPECT_TRUE(session->open(MonthDay{3, 7}, Focus::Editor));
    EXPECT_EQ(onDisk(2026), u"precious");
    session.reset();
}

TEST_F(KeptBySession, NothingIsOverwrittenThatCannotBeKept) {
    diary::DiaryStore nowhere(vault.path(), {}, clock, diary::KeptTexts(vault.path(), {}));
    session = makeSession(nowhere);
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("mine"));
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\ntheirs\n");
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026), u"theirs");
    EXPECT_TRUE(session->isDirty());
    EXPECT_EQ(told.saveErrors, 1);
    session.reset();
}

}  // namespace
}  // namespace velmar::test
