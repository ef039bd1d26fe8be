// Leads the search to the window around it: what it asks of the session and the page, and what the
// pane calls back.
#pragma once

#include <QtCore/QObject>

#include "DiaryApp/Search/SearchController.h"
#include "DiaryApp/Session/WritingSession.h"
#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/Shell/VaultFacts.h"

namespace velmar {

class MainWindow;

// Main thread. Window, session, facts and settings outlive it.
class SearchWiring : public QObject {
    Q_OBJECT

public:
    SearchWiring(MainWindow& window, WritingSession& session, const VaultFacts& facts,
                 const SessionView& view, Settings& settings);

    [[nodiscard]] SearchController& search() { return m_search; }

    // The search's part of the sidebar.
    void renderPane();

private:
    [[nodiscard]] SearchHost host(const SessionView& view);
    void addPage(SearchHost& host);
    void addPane(SearchHost& host);

    MainWindow& m_window;
    WritingSession& m_session;
    const VaultFacts& m_facts;
    Settings& m_settings;
    SearchController m_search;
};

}  // namespace velmar
