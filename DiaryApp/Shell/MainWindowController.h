// The main window with its writing session: it computes what each view shows, hands it over, and
// leads what the views call back to the session. The session's rules are WritingSession's.
#pragma once

#include <QtCore/QObject>
#include <memory>

#include "DiaryApp/Chrome/MenuTable.h"
#include "DiaryApp/Session/WritingSession.h"
#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/Shell/SessionAlerts.h"
#include "DiaryKit/Files/VaultObserver.h"

namespace velmar {

class MainWindow;

// Main thread. The window shows the vault from construction on; show() brings it up.
class MainWindowController : public QObject {
    Q_OBJECT

public:
    MainWindowController(Settings& settings, std::unique_ptr<diary::DiaryStore> store);
    ~MainWindowController() override;

    void show();
    [[nodiscard]] MainWindow* window() const { return m_window.get(); }
    [[nodiscard]] WritingSession& session() const { return *m_session; }

    void perform(Action action);

    void applicationBecameActive();
    void applicationResignedActive();
    void calendarDayChanged();
    // The texts again in the installed language, the fonts and colours of the settings.
    void retranslate();
    void restyle();

    // The end is told once the window has closed.
    std::function<void()> onClosed;

private:
    [[nodiscard]] SessionView sessionView();
    void wire();
    void renderTopBar();
    void renderEntry();
    void renderStatus();
    void commitComposition() const;
    void closeWindow();
    [[nodiscard]] bool mayClose();

    Settings& m_settings;
    std::unique_ptr<diary::DiaryStore> m_store;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<WritingSession> m_session;
    std::unique_ptr<SessionAlerts> m_alerts;
    std::unique_ptr<diary::VaultObserver> m_observer;
};

}  // namespace velmar
