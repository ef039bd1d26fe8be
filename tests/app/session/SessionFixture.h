// A writing session on a vault of its own, at noon of 21 November 2026, with a window that only
// remembers what it was told.
#pragma once

#include <gmock/gmock.h>

#include "DiaryApp/Session/WritingSession.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace velmar::test {

using diary::MonthDay;

// What the session told the window.
struct Told {
    QStringList renders;
    std::vector<SessionNotice> notices;
    int saveErrors = 0;
    int focused = 0;
    int scrolled = 0;
    int highlightsCleared = 0;
    int remoteRefreshes = 0;
    bool isEdited = false;
    bool isEditable = true;
    bool isComposing = false;
    std::function<void()> onCommitComposition;
    std::optional<diary::KeptText> offered;
};

class SessionFixture : public testing::Test {
protected:
    static constexpr MonthDay today{11, 21};

    SessionFixture() { session = makeSession(); }

    std::unique_ptr<WritingSession> makeSession() { return makeSession(store); }

    std::unique_ptr<WritingSession> makeSession(diary::DiaryStore& in) {
        WritingSession::Environment environment;
        environment.clock = &clock;
        environment.makeTimer = timers.maker();
        environment.conflictMarker = [] { return QStringLiteral("(also written elsewhere)"); };
        environment.otherMarkers = [] {
            return QStringList{QStringLiteral("(also written elsewhere)"),
                               QStringLiteral("(ailleurs aussi)")};
        };
        environment.recoveryFolder = recovery.path();
        return std::make_unique<WritingSession>(in, view(), environment);
    }

    SessionView view() {
        const auto render = [this](const char* name) {
            return [this, name] { told.renders.append(QLatin1String(name)); };
        };
        SessionView callbacks;
        callbacks.renderTopBar = render("topBar");
        callbacks.renderSidebar = render("sidebar");
        callbacks.renderEntry = render("entry");
        callbacks.renderRail = render("rail");
        callbacks.renderStatus = render("status");
        callbacks.scrollToTop = [this] { ++told.scrolled; };
        callbacks.focusEditor = [this] { ++told.focused; };
        callbacks.clearSearchHighlights = [this] { ++told.highlightsCleared; };
        callbacks.remoteRefreshed = [this] { ++told.remoteRefreshes; };
        callbacks.setEdited = [this](bool isEdited) { told.isEdited = isEdited; };
        callbacks.setEditable = [this](bool isEditable) { told.isEditable = isEditable; };
        callbacks.commitComposition = [this] {
            if (told.onCommitComposition) std::exchange(told.onCommitComposition, {})();
        };
        callbacks.isComposing = [this] { return told.isComposing; };
        callbacks.flash = [this](SessionNotice notice) { told.notices.push_back(notice); };
        callbacks.showSaveError = [this](const diary::FileError&) { ++told.saveErrors; };
        callbacks.offerKeptDraft = [this](const diary::KeptText& kept) { told.offered = kept; };
        callbacks.withdrawKeptDraft = [this] { told.offered.reset(); };
        return callbacks;
    }

    // Puts a folder where the day's file belongs, so that it can be neither read nor written,
    // whoever runs the test.
    void blockFile(const MonthDay& day) const {
        QFile::remove(store.fileURL(day));
        QDir().mkpath(store.fileURL(day) + QLatin1String("/in the way"));
    }
    void unblockFile(const MonthDay& day) const { QDir(store.fileURL(day)).removeRecursively(); }

    [[nodiscard]] QString file(const MonthDay& day = today) const {
        return QString::fromUtf8(vault.read(day.fileName()));
    }
    [[nodiscard]] QString onDisk(int year, const MonthDay& day = today) const {
        return diary::YearSectionParser::body(year, file(day));
    }
    [[nodiscard]] QStringList kept(diary::KeptReason reason, const MonthDay& day = today) const {
        QStringList texts;
        for (const diary::KeptText& one : store.keptTexts().list(day.headerTitle(), reason)) {
            QFile keptFile(one.path);
            if (keptFile.open(QIODevice::ReadOnly)) texts += QString::fromUtf8(keptFile.readAll());
        }
        return texts;
    }

    diary::FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC)};
    ManualTimers timers;
    diary::test::TemporaryVault vault;
    QTemporaryDir recovery;
    diary::DiaryStore store{vault.path(), {}, clock};
    Told told;
    std::unique_ptr<WritingSession> session;
};

}  // namespace velmar::test
