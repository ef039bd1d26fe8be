// What a crash interrupts is offered at the next start.
#include <sys/wait.h>
#include <unistd.h>

#include "tests/app/session/SessionFixture.h"

namespace velmar::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class Recovery : public SessionFixture {
protected:
    // The identity of a process that was, and is no more.
    static diary::ProcessIdentity deadProcess() {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(0);
        diary::ProcessIdentity identity = diary::ProcessIdentity::current();
        identity.pid = child;
        ::waitpid(child, nullptr, 0);
        return identity;
    }

    // Types without a pause for longer than the recovery's delay, so that nothing is saved.
    void typeOn(const QString& text) {
        session->open(today, Focus::Editor);
        for (int i = 0; i < 7; ++i) {
            session->draftChanged(text);
            timers.advance(900ms);
        }
    }

    [[nodiscard]] QStringList remembered() const {
        QStringList texts;
        const auto filter = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
        for (const QString& folder : QDir(recovery.path()).entryList(filter)) {
            const QDir own(recovery.filePath(folder));
            for (const QString& name : own.entryList(QDir::Files)) {
                QFile draft(own.filePath(name));
                if (draft.open(QIODevice::ReadOnly)) texts += QString::fromUtf8(draft.readAll());
            }
        }
        return texts;
    }
};

TEST_F(Recovery, RemembersADraftThatIsNeverLeftAlone) {
    typeOn(QStringLiteral("a sentence without end"));
    EXPECT_FALSE(vault.exists(QStringLiteral("11-21.md")));
    EXPECT_THAT(remembered(), ElementsAre(QStringLiteral("a sentence without end")));
}

TEST_F(Recovery, ForgetsItAfterTheSave) {
    typeOn(QStringLiteral("a sentence without end"));
    timers.advance(1s);
    EXPECT_EQ(onDisk(2026), u"a sentence without end");
    EXPECT_THAT(remembered(), IsEmpty());
}

TEST_F(Recovery, OffersTheDraftOfADeadProcess) {
    diary::RecoveryDrafts(recovery.path(), deadProcess())
        .remember(QStringLiteral("11-21"), 2026, QStringLiteral("cut off"));
    session = makeSession();
    session->open(today, Focus::Editor);
    ASSERT_TRUE(told.offered);
    session->putBack(diary::KeptText(*told.offered));
    EXPECT_EQ(onDisk(2026), u"cut off");
    EXPECT_THAT(remembered(), IsEmpty());
}

TEST_F(Recovery, OffersNothingThatWasSavedAfterAll) {
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2026\n\ncut off\n");
    diary::RecoveryDrafts(recovery.path(), deadProcess())
        .remember(QStringLiteral("11-21"), 2026, QStringLiteral("cut off"));
    session = makeSession();
    session->open(today, Focus::Editor);
    EXPECT_FALSE(told.offered);
    EXPECT_THAT(remembered(), IsEmpty());
}

TEST_F(Recovery, PassesOverForeignFiles) {
    diary::RecoveryDrafts(recovery.path(), deadProcess())
        .remember(QStringLiteral("11-21"), 2026, QStringLiteral("cut off"));
    const auto filter = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
    const QString own = recovery.filePath(QDir(recovery.path()).entryList(filter).constFirst());
    for (const char* name : {"x.md", "11-21.md", "11-21 .md", "11-21 2026.md.bak", "a"}) {
        QFile foreign(own + u'/' + QLatin1String(name));
        ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    }
    session = makeSession();
    EXPECT_THAT(kept(diary::KeptReason::UnsavedDraft), ElementsAre(QStringLiteral("cut off")));
}

TEST_F(Recovery, LeavesTheDraftOfALivingProcessAlone) {
    typeOn(QStringLiteral("still typing"));
    const auto second = makeSession();
    EXPECT_THAT(kept(diary::KeptReason::UnsavedDraft), IsEmpty());
    EXPECT_THAT(remembered(), ElementsAre(QStringLiteral("still typing")));
}

}  // namespace
}  // namespace velmar::test
