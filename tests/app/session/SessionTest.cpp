#include "tests/app/session/SessionFixture.h"

namespace velmar::test {
namespace {

using namespace std::chrono_literals;
using diary::YearSectionParser::replacingBody;
using testing::ElementsAre;

class Session : public SessionFixture {
protected:
    // As another machine would, whose sync service puts the whole file in place.
    void writeRemotely(int year, QStringView body, const MonthDay& day = today) const {
        const QString before =
            file(day).isEmpty() ? QStringLiteral("# ") + day.headerTitle() + u'\n' : file(day);
        vault.write(day.fileName(), replacingBody(body, year, day, before).toUtf8());
    }
};

TEST_F(Session, OpensADayInTheCurrentYear) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nold\n\n## 2026\n\nnew\n");
    session->open(today, Focus::Editor);
    session->pickYear(2020, Focus::Unchanged);
    EXPECT_EQ(session->draft(), u"old");
    session->open(today, Focus::Unchanged);
    EXPECT_EQ(session->viewedYear(), 2026);
    EXPECT_EQ(session->draft(), u"new");
    EXPECT_EQ(told.focused, 1);
}

TEST_F(Session, OpensADayInAGivenYearAndRendersItOnce) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nold\n\n## 2026\n\nnew\n");
    session->open(today, Focus::Unchanged, 2020);
    EXPECT_EQ(session->viewedYear(), 2020);
    EXPECT_EQ(session->draft(), u"old");
    EXPECT_EQ(told.renders.count(QStringLiteral("entry")), 1);
    session->draftChanged(QStringLiteral("older"));
    session->open(today.advanced(1), Focus::Unchanged, 2020);
    EXPECT_EQ(file(), u"# 11-21\n\n## 2020\n\nolder\n\n## 2026\n\nnew\n");
}

TEST_F(Session, RendersInOrderWhenADayOpens) {
    session->open(today, Focus::Editor);
    EXPECT_THAT(told.renders, ElementsAre(QStringLiteral("topBar"), QStringLiteral("sidebar"),
                                          QStringLiteral("entry"), QStringLiteral("rail"),
                                          QStringLiteral("status")));
    EXPECT_EQ(told.scrolled, 1);
}

TEST_F(Session, LeavesNoFileForADayThatWasTypedIntoAndClearedAgain) {
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("a"));
    session->draftChanged(QString());
    timers.advance(1s);
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
    EXPECT_FALSE(session->isDirty());
}

TEST_F(Session, LeavesAnEmptyHeaderInAFileThatExisted) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nold\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("a"));
    session->draftChanged(QString());
    timers.advance(1s);
    EXPECT_EQ(file(), u"# 11-21\n\n## 2020\n\nold\n\n## 2026\n\n");
}

TEST_F(Session, MakesTheVaultAtTheFirstRealSave) {
    QDir(vault.path()).removeRecursively();
    session->open(today, Focus::Editor);
    EXPECT_FALSE(QDir(vault.path()).exists());
    session->draftChanged(QStringLiteral("first"));
    timers.advance(1s);
    EXPECT_EQ(onDisk(2026), u"first");
}

TEST_F(Session, KeepsAnotherYearThatArrivedWhileDirty) {
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("mine"));
    writeRemotely(2025, u"theirs");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"mine");
    timers.advance(1s);
    EXPECT_EQ(onDisk(2025), u"theirs");
    EXPECT_EQ(onDisk(2026), u"mine");
    EXPECT_TRUE(told.notices.empty());
}

TEST_F(Session, TakesARemoteChangeWhileClean) {
    session->open(today, Focus::Editor);
    writeRemotely(2026, u"theirs");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"theirs");
}

TEST_F(Session, TakesARemoteChangeThatIsDatedEarlier) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nnow\n");
    session->open(today, Focus::Editor);
    writeRemotely(2026, u"from an older backup");
    QFile file(vault.filePath(QStringLiteral("11-21.md")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2001, 1, 1), QTime(0, 0)),
                                 QFileDevice::FileModificationTime));
    file.close();
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"from an older backup");
}

TEST_F(Session, WaitsWithARemoteChangeUntilACompositionEnds) {
    session->open(today, Focus::Editor);
    told.isComposing = true;
    writeRemotely(2026, u"theirs");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), QString());
    timers.advance(2s);
    EXPECT_EQ(session->draft(), QString());
    told.isComposing = false;
    timers.advance(300ms);
    EXPECT_EQ(session->draft(), u"theirs");
}

TEST_F(Session, DoesNotReloadForItsOwnWrite) {
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("words "));
    session->flushSaveIfDirty();
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"words ");
}

TEST_F(Session, MakesOneRefreshOfTwoNotices) {
    session->open(today, Focus::Editor);
    told.renders.clear();
    session->scheduleRemoteRefresh();
    timers.advance(200ms);
    session->scheduleRemoteRefresh();
    timers.advance(299ms);
    EXPECT_TRUE(told.renders.isEmpty());
    timers.advance(1ms);
    EXPECT_THAT(told.renders, ElementsAre(QStringLiteral("sidebar")));
}

TEST_F(Session, ReportsTheFirstFailureOnceAndForgetsItAfterASuccess) {
    session->open(today, Focus::Editor);
    blockFile(today);
    session->draftChanged(QStringLiteral("a"));
    timers.advance(1s);
    session->draftChanged(QStringLiteral("ab"));
    timers.advance(1s);
    EXPECT_EQ(told.saveErrors, 1);
    EXPECT_TRUE(session->isDirty());
    EXPECT_EQ(session->draft(), u"ab");
    unblockFile(today);
    timers.advance(1h);
    EXPECT_TRUE(session->isDirty()) << "nobody asked for another try";
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026), u"ab");
    EXPECT_FALSE(session->isDirty());
    blockFile(today);
    session->draftChanged(QStringLiteral("abc"));
    timers.advance(1s);
    EXPECT_EQ(told.saveErrors, 2);
}

TEST_F(Session, NeverWritesATemplateOverAFileThatItCouldNotRead) {
    blockFile(today);
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->draft(), QString());
    session->draftChanged(QStringLiteral("a"));
    session->flushSaveIfDirty();
    EXPECT_TRUE(QDir(store.fileURL(today)).exists(QStringLiteral("in the way")));
    EXPECT_TRUE(session->isDirty());
}

TEST_F(Session, JoinsWhatWasWrittenOnAPageThatCouldNotBeRead) {
    blockFile(today);
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("evening"));
    unblockFile(today);
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nold\n\n## 2026\n\nmorning\n");
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026), u"morning\n\nevening");
    EXPECT_EQ(onDisk(2020), u"old");
    EXPECT_EQ(session->draft(), u"morning\n\nevening");
}

TEST_F(Session, ReadsAPageAtTheNextRefreshThatCouldNotBeReadAtFirst) {
    blockFile(today);
    session->open(today, Focus::Editor);
    unblockFile(today);
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nmorning\n");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"morning");
}

TEST_F(Session, LeavesAPageAloneWhoseFileCanNoLongerBeRead) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\nmorning\n");
    session->open(today, Focus::Editor);
    blockFile(today);
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), u"morning");
}

TEST_F(Session, KeepsWhatIsInTheEditorWhenOnlyOtherYearsChange) {
    session->open(today, Focus::Editor);
    const QString typed = QStringLiteral("Morning.\n## 2024\nbar\n\n");
    session->draftChanged(typed);
    session->flushSaveIfDirty();
    writeRemotely(2020, u"theirs");
    session->performRemoteRefresh();
    EXPECT_EQ(session->draft(), typed);
    EXPECT_EQ(session->body(2020), u"theirs");
    session->draftChanged(typed + QStringLiteral("More."));
    session->flushSaveIfDirty();
    EXPECT_EQ(file().count(QLatin1String("bar")), 1);
    EXPECT_EQ(onDisk(2020), u"theirs");
}

TEST_F(Session, TakesACompositionInBeforeTheDayIsLeft) {
    session->open(today, Focus::Editor);
    told.onCommitComposition = [this] { session->draftChanged(QStringLiteral("composed")); };
    session->open(MonthDay{3, 7}, Focus::Editor);
    EXPECT_EQ(onDisk(2026), u"composed");
}

TEST_F(Session, ShowsAYearAsItIsOnDiskAfterASaveThatFailed) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nbefore\n");
    session->open(today, Focus::Editor);
    blockFile(today);
    session->draftChanged(QStringLiteral("a"));
    session->flushSaveIfDirty();
    unblockFile(today);
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nnewer\n");
    blockFile(today);
    session->flushSaveIfDirty();
    unblockFile(today);
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nnewer\n");
    session->pickYear(2020, Focus::Editor);
    EXPECT_EQ(session->draft(), u"newer");
}

TEST_F(Session, StartsNoImportOnTextThatCannotBeSaved) {
    session->open(today, Focus::Editor);
    blockFile(today);
    session->draftChanged(QStringLiteral("a"));
    EXPECT_FALSE(session->importWillWrite());
    EXPECT_TRUE(told.isEditable);
    unblockFile(today);
    EXPECT_TRUE(session->importWillWrite());
    EXPECT_FALSE(told.isEditable);
    EXPECT_FALSE(session->importWillWrite());
}

TEST_F(Session, ReloadsTheDayAfterAnImport) {
    session->open(today, Focus::Editor);
    ASSERT_TRUE(session->importWillWrite());
    writeRemotely(2026, u"imported");
    session->importDidWrite();
    EXPECT_FALSE(session->isImportWriting());
    EXPECT_EQ(session->draft(), u"imported");
}

TEST_F(Session, StaysOnItsDayWhenTheCalendarDayChanges) {
    session->open(today, Focus::Editor);
    clock.set(QDateTime(QDate(2026, 11, 22), QTime(0, 0), Qt::UTC));
    told.renders.clear();
    session->calendarDayChanged();
    EXPECT_EQ(session->currentMonthDay(), today);
    EXPECT_THAT(told.renders, ElementsAre(QStringLiteral("topBar"), QStringLiteral("sidebar"),
                                          QStringLiteral("entry"), QStringLiteral("rail"),
                                          QStringLiteral("status")));
    session->draftChanged(QStringLiteral("still typing"));
    told.renders.clear();
    session->calendarDayChanged();
    EXPECT_FALSE(told.renders.contains(QStringLiteral("entry")));
    session->goToToday();
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{11, 22}));
}

TEST_F(Session, KeepsTheYearInViewOverTheTurnOfTheYear) {
    clock.set(QDateTime(QDate(2026, 12, 31), QTime(23, 59), Qt::UTC));
    session->open(MonthDay{12, 31}, Focus::Editor);
    session->draftChanged(QStringLiteral("midnight"));
    clock.set(QDateTime(QDate(2027, 1, 1), QTime(0, 1), Qt::UTC));
    session->calendarDayChanged();
    session->flushSaveIfDirty();
    EXPECT_EQ(onDisk(2026, MonthDay{12, 31}), u"midnight");
    EXPECT_EQ(onDisk(2027, MonthDay{12, 31}), QString());
}

TEST_F(Session, WalksTheDaysOfTheCycle) {
    session->open(MonthDay{1, 1}, Focus::Editor);
    session->goPreviousDay();
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{12, 31}));
    session->open(MonthDay{2, 28}, Focus::Editor);
    session->goNextDay();
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{2, 29}));
}

TEST_F(Session, FindsNoRandomDayInAnEmptyDiary) {
    session->open(today, Focus::Editor);
    EXPECT_FALSE(session->goToRandomDay());
    vault.write(QStringLiteral("03-07.md"), "# 03-07\n\n## 2020\n\na\n");
    store.invalidateCaches();
    EXPECT_TRUE(session->goToRandomDay());
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{3, 7}));
}

TEST_F(Session, ListsPastEntriesNewestFirstWithoutThisYearAndBlanks) {
    vault.write(QStringLiteral("11-21.md"),
                "## 2020\na\n## 2026\nnow\n## 2023\n\n## 2024\nb\n## 2030\nlater\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->pastEntries(), (std::vector<PastEntry>{{2030, QStringLiteral("later")},
                                                              {2024, QStringLiteral("b")},
                                                              {2020, QStringLiteral("a")}}));
}

TEST_F(Session, ClearsSearchMarksAtTheFirstEditOnly) {
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("a"));
    session->draftChanged(QStringLiteral("ab"));
    EXPECT_EQ(told.highlightsCleared, 1);
}

TEST_F(Session, ShowsSourceOrAllYearsButNeverBoth) {
    session->open(today, Focus::Editor);
    session->toggleSourceView();
    EXPECT_TRUE(session->showSource());
    session->setAllYears(true);
    EXPECT_FALSE(session->showSource());
    session->toggleSourceView();
    EXPECT_FALSE(session->showAllYears());
}

TEST_F(Session, TheRailLearnsThatTheSourceTookThePlaceOfAllYears) {
    session->open(today, Focus::Editor);
    session->setAllYears(true);
    told.renders.clear();
    session->toggleSourceView();
    EXPECT_THAT(told.renders, ElementsAre(QStringLiteral("entry"), QStringLiteral("topBar"),
                                          QStringLiteral("rail")));
}

TEST_F(Session, LooksAtAnotherYearWithoutLeavingTheViewOfAll) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\nold\n");
    session->open(today, Focus::Editor);
    EXPECT_TRUE(session->viewYearAmongAll(2020));
    EXPECT_EQ(session->viewedYear(), 2026) << "outside of the view of all years";
    session->setAllYears(true);
    told.renders.clear();
    EXPECT_TRUE(session->viewYearAmongAll(2020));
    EXPECT_EQ(session->viewedYear(), 2020);
    EXPECT_EQ(session->draft(), u"old");
    EXPECT_TRUE(session->showAllYears());
    EXPECT_THAT(told.renders, ElementsAre(QStringLiteral("status")));
}

TEST_F(Session, KeepsADraftThatCannotBeSavedBeforeAnotherYearAmongAllIsViewed) {
    session->open(today, Focus::Editor);
    blockFile(today);
    session->draftChanged(QStringLiteral("unsaved"));
    session->setAllYears(true);
    ASSERT_TRUE(session->isDirty());
    EXPECT_TRUE(session->viewYearAmongAll(2020));
    EXPECT_THAT(kept(diary::KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("unsaved")));
    EXPECT_FALSE(session->isDirty());
}

TEST_F(Session, TellsOfEachLookAtTheFolder) {
    session->open(today, Focus::Editor);
    session->performRemoteRefresh();
    EXPECT_EQ(told.remoteRefreshes, 1);
    writeRemotely(2026, u"from elsewhere");
    session->performRemoteRefresh();
    EXPECT_EQ(told.remoteRefreshes, 2);
    EXPECT_EQ(session->draft(), u"from elsewhere");
}

TEST_F(Session, WritesAFenceThatIsLeftOpenWithItsEnd) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2020\n\na\n\n## 2027\n\nlater\n");
    session->open(today, Focus::Editor);
    session->draftChanged(QStringLiteral("```\ncode"));
    session->flushSaveIfDirty();
    session->draftChanged(QStringLiteral("```\ncode, more"));
    session->flushSaveIfDirty();
    EXPECT_EQ(session->draft(), u"```\ncode, more");
    EXPECT_EQ(onDisk(2026), u"```\ncode, more\n```");
    EXPECT_EQ(onDisk(2027), u"later");
    EXPECT_TRUE(told.notices.empty());
}

TEST_F(Session, MakesAYearOfItsOwnOutOfATypedHeaderWhenTheDayOpensAgain) {
    session->open(today, Focus::Editor);
    const QString typed = QStringLiteral("foo\n## 2024\nbar");
    for (qsizetype length = 1; length <= typed.size(); ++length) {
        session->draftChanged(typed.first(length));
        session->flushSaveIfDirty();
    }
    EXPECT_EQ(file(), u"# 11-21\n\n## 2026\n\nfoo\n## 2024\nbar\n");
    session->open(today, Focus::Editor);
    EXPECT_EQ(session->draft(), u"foo");
    EXPECT_EQ(onDisk(2024), u"bar");
    EXPECT_TRUE(told.notices.empty());
}

}  // namespace
}  // namespace velmar::test
