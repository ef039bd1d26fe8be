// How the window tells what became of a text: what the status bar says once, the offer of a draft
// that was kept, and the alert after a failed save.
#pragma once

#include <functional>

#include "DiaryApp/Session/SessionView.h"

namespace velmar {

class MainWindow;
class WritingSession;

// Main thread. The window and the session outlive it.
class SessionAlerts {
public:
    SessionAlerts(MainWindow& window, WritingSession& session);

    void flash(SessionNotice notice);
    // An alert over the window; returns at once.
    void showSaveError(const diary::FileError& error);
    void offerKeptDraft(const diary::KeptText& kept);
    void withdrawKeptDraft();
    // The offer, again in the installed language.
    void retranslate();

    // Whether the alert about a failed save is still to be read.
    [[nodiscard]] bool isAlerting() const { return m_isAlerting; }
    // Called once the alert that is open now has been read.
    void whenRead(std::function<void()> then) { m_whenRead = std::move(then); }

private:
    MainWindow& m_window;
    WritingSession& m_session;
    bool m_isAlerting = false;
    // What the status bar offers to put back.
    std::optional<diary::KeptText> m_offered;
    std::function<void()> m_whenRead;
};

}  // namespace velmar
