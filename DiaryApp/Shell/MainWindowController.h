// The main window with its writing session: it computes what each view shows, hands it over, and
// leads what the views call back to the session. The session's rules are WritingSession's, those of
// the search SearchController's.
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <memory>

#include "DiaryApp/Chrome/MenuTable.h"
#include "DiaryApp/Session/WritingSession.h"
#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/Shell/SearchWiring.h"
#include "DiaryApp/Shell/SessionAlerts.h"
#include "DiaryApp/Shell/VaultFacts.h"
#include "DiaryKit/Files/VaultObserver.h"

namespace velmar {

class MainWindow;
class YearOverviewController;

// Main thread. The window shows the vault from construction on; show() brings it up.
class MainWindowController : public QObject {
    Q_OBJECT

public:
    // A look through the vault that has begun already. Until it ends the sidebar has no numbers.
    using FirstScan = VaultFacts::FirstScan;

    // Without a scan it is begun here.
    MainWindowController(Settings& settings, std::unique_ptr<diary::DiaryStore> store,
                         const FirstScan& scan = {});
    ~MainWindowController() override;

    void show();
    [[nodiscard]] MainWindow* window() const { return m_window.get(); }
    [[nodiscard]] WritingSession& session() const { return *m_session; }
    [[nodiscard]] SessionAlerts& alerts() const { return *m_alerts; }
    [[nodiscard]] SearchController& search() const { return m_searchWiring->search(); }
    // Null until the year calendar was shown once.
    [[nodiscard]] YearOverviewController* yearOverviewControllerIfMade() const {
        return m_yearOverview.get();
    }

    void perform(Action action);
    void showYearOverview();

    // Ends the session and hides the window, which another takes the place of. onClosed isn't
    // called.
    void retire();

    void applicationBecameActive();
    void applicationResignedActive();
    void calendarDayChanged();
    // The texts again in the installed language, the fonts and colours of the settings.
    void retranslate();
    void restyle();
    // What of the page follows a setting: the font and its size, the line of missing years.
    void readingChanged();

    // Commands that aren't this window's: the settings, the import, what is about the program.
    std::function<void(Action)> onApplicationCommand;
    // Shows a file or folder in the desktop's file manager.
    std::function<void(const QString&)> revealInFiles;
    // Files were dropped on the window, for an import; absent while there is none.
    std::function<void(const QList<QUrl>&)> onImportDrop;
    // The end is told once the window has closed.
    std::function<void()> onClosed;

private:
    [[nodiscard]] SessionView sessionView();
    void wire();
    void wireMenu();
    void wireEntry();
    void wireColumns();
    void completeWindow();
    void vaultFactsChanged();
    void renderTopBar();
    void renderSidebar();
    void renderEntry();
    void renderRail();
    void renderStatus();
    void pinch(bool isClosing, std::optional<int> year);
    void openMonth(int month);
    void showInFinder() const;
    [[nodiscard]] bool hasEditorFocus() const;
    void commitComposition() const;
    void closeWindow();
    [[nodiscard]] bool mayClose();

    Settings& m_settings;
    std::unique_ptr<diary::DiaryStore> m_store;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<VaultFacts> m_vaultFacts;
    std::unique_ptr<WritingSession> m_session;
    std::unique_ptr<SessionAlerts> m_alerts;
    std::unique_ptr<SearchWiring> m_searchWiring;
    std::unique_ptr<YearOverviewController> m_yearOverview;
    std::unique_ptr<diary::VaultObserver> m_observer;
    // The application became active before the window had its columns.
    bool m_isActivationDue = false;
    diary::MonthDay m_railDay;
};

}  // namespace velmar
