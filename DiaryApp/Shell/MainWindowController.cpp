#include "DiaryApp/Shell/MainWindowController.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/Notices.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Shell/EditCommands.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryKit/Files/UserFolders.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace velmar {

namespace {

// Both follow the order of the Format menu.
std::optional<FormatCommand> formatCommandOf(Action action) {
    if (action < Action::Bold || action > Action::Outdent) return std::nullopt;
    return static_cast<FormatCommand>(static_cast<int>(action) - static_cast<int>(Action::Bold));
}

}  // namespace

MainWindowController::MainWindowController(Settings& settings,
                                           std::unique_ptr<diary::DiaryStore> store)
    : m_settings(settings),
      m_store(std::move(store)),
      m_window(std::make_unique<MainWindow>(settings)) {
    WritingSession::Environment environment;
    environment.conflictMarker = notices::conflictMarker;
    environment.otherMarkers = notices::conflictMarkers;
    environment.recoveryFolder = diary::userStateFolder() + QLatin1String("/recovery/") +
                                 m_store->keptTexts().folder().section(u'/', -1);
    m_session = std::make_unique<WritingSession>(*m_store, sessionView(), environment);
    m_alerts = std::make_unique<SessionAlerts>(*m_window, *m_session);
    m_window->setMenuBar(
        MainMenuBuilder::build(m_window.get(), [this](Action action) { perform(action); }));
    wire();
    m_observer = std::make_unique<diary::VaultObserver>(m_store->rootURL(), [this] {
        // On the observer's thread; the session's is the main one.
        QMetaObject::invokeMethod(
            this, [this] { m_session->scheduleRemoteRefresh(); }, Qt::QueuedConnection);
    });
    m_observer->start();
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
    view.renderEntry = [this] { renderEntry(); };
    view.renderStatus = [this] { renderStatus(); };
    view.scrollToTop = [this] { m_window->entryView()->scrollToTop(); };
    view.focusEditor = [this] { m_window->entryView()->focusEditor(); };
    view.setEdited = [this](bool isEdited) { m_window->setWindowModified(isEdited); };
    view.setEditable = [this](bool isOn) { m_window->entryView()->setEditable(isOn); };
    view.commitComposition = [this] { commitComposition(); };
    view.isComposing = [this] { return m_window->entryView()->editor()->isComposing(); };
    view.flash = [this](SessionNotice notice) { m_alerts->flash(notice); };
    view.showSaveError = [this](const diary::FileError& error) { m_alerts->showSaveError(error); };
    view.offerKeptDraft = [this](const diary::KeptText& kept) { m_alerts->offerKeptDraft(kept); };
    view.withdrawKeptDraft = [this] { m_alerts->withdrawKeptDraft(); };
    return view;
}

void MainWindowController::wire() {
    EntryView* entry = m_window->entryView();
    entry->onDraftChanged = [this](const QString& draft) { m_session->draftChanged(draft); };
    entry->onPreviousDay = [this] { perform(Action::PreviousDay); };
    entry->onNextDay = [this] { perform(Action::NextDay); };
    MainMenuBuilder::showStates(
        m_window->menuBar(), Menu::Format, [editor = entry->editor()](Action action) {
            const auto format = formatCommandOf(action);
            const bool isOn = format && editor->isVisible() && editor->canFormat();
            return MainMenuBuilder::ItemState{isOn, isOn && isChecked(*format, editor->context())};
        });
    m_window->topBar()->onRandom = [this] { perform(Action::RandomDay); };
    m_window->topBar()->onToggleSource = [this] { perform(Action::ToggleSource); };
    m_window->onClosing = [this] { return mayClose(); };
    m_window->onClosed = [this] { closeWindow(); };
}

void MainWindowController::show() {
    m_window->show();
    m_window->entryView()->focusEditor();
}

void MainWindowController::perform(Action action) {
    GrowingTextView* editor = m_window->entryView()->editor();
    if (const auto format = formatCommandOf(action)) return editor->perform(*format);
    switch (action) {
        case Action::Quit:
        case Action::Close:
            m_window->close();
            break;
        case Action::Save:
            m_session->flushSaveIfDirty();
            break;
        case Action::Undo:
        case Action::Redo:
        case Action::Cut:
        case Action::Copy:
        case Action::Paste:
        case Action::SelectAll:
            editcommands::perform(action, QApplication::focusWidget(), editor);
            break;
        case Action::OneYear:
            m_session->setAllYears(false);
            break;
        case Action::AllYears:
            m_session->setAllYears(true);
            break;
        case Action::ToggleSource:
            m_session->toggleSourceView();
            break;
        case Action::PreviousDay:
            m_session->goPreviousDay();
            break;
        case Action::NextDay:
            m_session->goNextDay();
            break;
        case Action::Today:
            m_session->goToToday();
            break;
        case Action::RandomDay:
            if (!m_session->goToRandomDay()) QApplication::beep();
            break;
        case Action::Hide:
        case Action::Minimize:
            m_window->showMinimized();
            break;
        case Action::Zoom:
            m_window->isMaximized() ? m_window->showNormal() : m_window->showMaximized();
            break;
        default:
            break;
    }
}

void MainWindowController::renderTopBar() {
    const QString fileName = m_session->currentMonthDay().fileName();
    const int currentYear = m_session->today().year;
    const QString currentBody =
        m_session->viewedYear() == currentYear ? m_session->draft() : m_session->body(currentYear);
    const auto past = static_cast<int>(m_session->pastEntries().size());
    const bool hasCurrent = !diary::text::trimmedOfBlanks(currentBody).isEmpty();
    m_window->topBar()->update({fileName, past + (hasCurrent ? 1 : 0), m_session->showSource()});
    m_window->setWindowTitle(fileName + QLatin1String("[*]"));
}

void MainWindowController::renderEntry() {
    EntryState state;
    state.day = m_session->currentMonthDay();
    state.viewedYear = m_session->viewedYear();
    state.currentYear = m_session->today().year;
    state.draft = m_session->draft();
    state.pastEntries = m_session->pastEntries();
    state.showGapYears = m_settings.showGapYears();
    state.language = localization::installedLanguage();
    m_window->entryView()->update(entryModel(state));
    m_window->entryView()->setEditable(!m_session->isImportWriting());
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
    m_observer->stop();
    if (onClosed) onClosed();
}

void MainWindowController::applicationBecameActive() {
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
    m_window->topBar()->retranslate();
    m_window->entryView()->retranslate();
    m_window->statusBar()->retranslate();
    renderTopBar();
    renderEntry();
    renderStatus();
}

void MainWindowController::restyle() {
    m_window->entryView()->restyle();
    m_window->update();
}

}  // namespace velmar
