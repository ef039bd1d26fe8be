// When a draft goes to disk: every such point, and nothing else.
#include "tests/app/session/SessionFixture.h"

namespace velmar::test {
namespace {

using namespace std::chrono_literals;

class FlushPoints : public SessionFixture {
protected:
    FlushPoints() {
        session->open(today, Focus::Editor);
        session->draftChanged(QStringLiteral("words"));
    }
    void expectSaved() const {
        EXPECT_EQ(file(), u"# 11-21\n\n## 2026\n\nwords\n");
        EXPECT_FALSE(session->isDirty());
        EXPECT_FALSE(told.isEdited);
        EXPECT_EQ(timers.armedCount(), 0);
    }
};

TEST_F(FlushPoints, TheTimerSavesOneSecondAfterTheLastKeystroke) {
    EXPECT_TRUE(told.isEdited);
    timers.advance(999ms);
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
    timers.advance(1ms);
    expectSaved();
}

TEST_F(FlushPoints, TheTimerNeverFiresWhileKeysKeepComing) {
    for (int i = 0; i < 50; ++i) {
        timers.advance(900ms);
        session->draftChanged(QStringLiteral("words"));
    }
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
    session->applicationResignedActive();
    expectSaved();
}

TEST_F(FlushPoints, Saving) {
    session->flushSaveIfDirty();
    expectSaved();
}

TEST_F(FlushPoints, LosingTheActiveState) {
    session->applicationResignedActive();
    expectSaved();
}

TEST_F(FlushPoints, OpeningADay) {
    session->open(MonthDay{3, 7}, Focus::Editor);
    expectSaved();
}

TEST_F(FlushPoints, PickingAYear) {
    session->pickYear(2020, Focus::Editor);
    expectSaved();
}

TEST_F(FlushPoints, EnteringAllYears) {
    session->setAllYears(true);
    expectSaved();
}

TEST_F(FlushPoints, TogglingTheSource) {
    session->toggleSourceView();
    expectSaved();
}

TEST_F(FlushPoints, Closing) {
    session->close();
    expectSaved();
}

TEST_F(FlushPoints, AnImportAboutToWrite) {
    EXPECT_TRUE(session->importWillWrite());
    expectSaved();
}

TEST_F(FlushPoints, PickingTheYearInViewIsNone) {
    session->pickYear(2026, Focus::Editor);
    EXPECT_TRUE(session->isDirty());
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
}

TEST_F(FlushPoints, ARemoteRefreshIsNone) {
    session->performRemoteRefresh();
    EXPECT_TRUE(session->isDirty());
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
}

}  // namespace
}  // namespace velmar::test
