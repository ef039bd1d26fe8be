#include "DiaryApp/Shell/MainWindowController.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>

#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/Notices.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/WindowStates.h"
#include "DiaryKit/Files/UserFolders.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace velmar {

MainWindowController::MainWindowController(Settings& settings,
                                           std::unique_ptr<diary::DiaryStore> store,
                                           const FirstScan& scan)
    : m_settings(settings),
      m_store(std::move(store)),
      m_window(std::make_unique<MainWindow>(settings)),
      m_vaultFacts(std::make_unique<VaultFacts>(*m_store)) {
    WritingSession::Environment environment;
    environment.conflictMarker = notices::conflictMarker;
    environment.otherMarkers = notices::conflictMarkers;
    environment.recoveryFolder = diary::userStateFolder() + QLatin1String("/recovery/") +
                                 m_store->keptTexts().folder().section(u'/', -1);
    const SessionView view = sessionView();
    m_session = std::make_unique<WritingSession>(*m_store, view, environment);
    m_alerts = std::make_unique<SessionAlerts>(*m_window, *m_session);
    m_searchWiring =
        std::make_unique<SearchWiring>(*m_window, *m_session, *m_vaultFacts, view, settings);
    wire();
    m_observer = std::make_unique<diary::VaultObserver>(m_store->rootURL(), [this] {
        // On the observer's thread; the session's is the main one.
        QMetaObject::invokeMethod(
            this, [this] { m_session->scheduleRemoteRefresh(); }, Qt::QueuedConnection);
    });
    m_observer->start();
    m_vaultFacts->onChanged = [this] { vaultFactsChanged(); };
    m_vaultFacts->begin(scan);
    m_session->open(m_session->currentMonthDay(), Focus::Editor);
}

MainWindowController::~MainWindowController() {
    m_observer->stop();
    // The window outlives the session by a moment, and may still have something to tell.
    m_window->entryView()->onDraftChanged = {};
    m_window->onClosing = {};
    m_window->onClosed = {};
}

SessionView MainWindowController::sessionView() {
    SessionView view;
    view.renderTopBar = [this] { renderTopBar(); };
    view.renderSidebar = [this] { renderSidebar(); };
    view.renderEntry = [this] { renderEntry(); };
    view.renderRail = [this] { renderRail(); };
    view.renderStatus = [this] { renderStatus(); };
    view.scrollToTop = [this] { m_window->entryView()->scrollToTop(); };
    view.focusEditor = [this] { m_window->entryView()->focusEditor(); };
    view.clearSearchHighlights = [this] { search().draftBecameDirty(); };
    view.remoteRefreshed = [this] { search().vaultRefreshed(); };
    view.setEdited = [this](bool isEdited) { m_window->setWindowModified(isEdited); };
    view.setEditable = [this](bool isOn) { m_window->entryView()->setEditable(isOn); };
    view.editDraft = [this](const QString& draft) { m_window->entryView()->editDraft(draft); };
    view.commitComposition = [this] { commitComposition(); };
    view.isComposing = [this] { return m_window->entryView()->editor()->isComposing(); };
    view.flash = [this](SessionNotice notice) { m_alerts->flash(notice); };
    view.showSaveError = [this](const diary::FileError& error) { m_alerts->showSaveError(error); };
    view.offerKeptDraft = [this](const diary::KeptText& kept) { m_alerts->offerKeptDraft(kept); };
    view.withdrawKeptDraft = [this] { m_alerts->withdrawKeptDraft(); };
    return view;
}

void MainWindowController::show() {
    m_window->show();
    m_window->entryView()->focusEditor();
}

void MainWindowController::vaultFactsChanged() {
    renderSidebar();
    search().contentYearsBecameKnown();
    if (m_yearOverview && m_yearOverview->isVisible()) {
        m_yearOverview->update(windowstates::yearOverview(m_vaultFacts->archive()));
    }
}

// The page is what was opened. The columns beside it take as long, and the fonts of other scripts
// in the rail's snippets longer than everything else.
void MainWindowController::completeWindow() {
    if (m_isActivationDue) {
        applicationBecameActive();  // Renders the sidebar as well.
    } else {
        renderSidebar();
    }
    renderRail();
}

void MainWindowController::renderTopBar() {
    const TopBarView::Model model = windowstates::topBar(*m_session);
    m_window->topBar()->update(model);
    m_window->setWindowTitle(model.fileName + QLatin1String("[*]"));
}

void MainWindowController::renderSidebar() {
    if (!m_window->hasColumns()) return;  // It comes a moment after the first page.
    m_vaultFacts->refresh();
    SidebarState sidebar = windowstates::sidebar(*m_session, m_vaultFacts->archive());
    if (!m_vaultFacts->areKnown()) sidebar.overview.reset();
    m_window->sidebar()->update(sidebarModel(sidebar));
    m_searchWiring->renderPane();
}

void MainWindowController::renderEntry() {
    const EntryState state = windowstates::entry(*m_session, search(), m_settings);
    m_window->entryView()->update(entryModel(state));
    m_window->entryView()->setEditable(!m_session->isImportWriting());
    search().applySearchHighlights(SearchScroll::Stay);
}

void MainWindowController::renderRail() {
    if (!m_window->hasColumns()) return;
    const diary::MonthDay day = m_session->currentMonthDay();
    if (std::exchange(m_railDay, day) != day) m_window->rail()->scrollToTop();
    m_window->rail()->update(railModel(windowstates::rail(*m_session, search())));
}

void MainWindowController::renderStatus() {
    const int characters = diary::text::contentCharacterCount(m_session->draft());
    m_window->statusBar()->update(m_store->fileURL(m_session->currentMonthDay()),
                                  notices::viewing(m_session->viewedYear(), characters));
}

// A failed save can't keep the window open, but its first alert is read before it closes.
bool MainWindowController::mayClose() {
    commitComposition();
    m_session->flushSaveIfDirty();
    if (!m_alerts->isAlerting()) return true;
    // Whoever ends the session may not wait for the alert.
    m_session->keepUnsavedDraft();
    m_alerts->whenRead([this] { m_window->close(); });
    return false;
}

void MainWindowController::commitComposition() const {
    const bool isComposing = m_window->entryView()->editor()->isComposing();
    if (isComposing) QGuiApplication::inputMethod()->commit();
}

void MainWindowController::closeWindow() {
    m_session->close();
    if (m_yearOverview) m_yearOverview->close();
    m_observer->stop();
    if (onClosed) onClosed();
}

void MainWindowController::retire() {
    onClosed = {};
    closeWindow();
    m_window->rememberFrame();
    m_window->hide();
}

// A start brings this between the first paint and its arrival on the screen; looking through the
// vault's files again would hold the page back.
void MainWindowController::applicationBecameActive() {
    m_isActivationDue = !m_window->hasColumns();
    if (m_isActivationDue) return;
    m_session->applicationBecameActive();
    m_store->warmEvictedFiles();
}

void MainWindowController::applicationResignedActive() {
    m_session->applicationResignedActive();
}

void MainWindowController::calendarDayChanged() {
    m_session->calendarDayChanged();
}

void MainWindowController::retranslate() {
    MainMenuBuilder::retranslate(m_window->menuBar());
    m_window->retranslate();
    m_alerts->retranslate();
    renderTopBar();
    renderSidebar();
    renderEntry();
    renderRail();
    renderStatus();
    if (m_yearOverview) m_yearOverview->update(windowstates::yearOverview(m_vaultFacts->archive()));
}

void MainWindowController::restyle() {
    m_window->entryView()->restyle();
    m_window->update();
    if (m_yearOverview) m_yearOverview->restyle();
}

void MainWindowController::readingChanged() {
    restyle();
    renderEntry();
}

}  // namespace velmar
