#include "DiaryApp/Shell/MainWindowController.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/Notices.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
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
    view.flash = [this](SessionNotice notice) { flash(notice); };
    view.showSaveError = [this](const diary::FileError& error) { showSaveError(error); };
    view.offerKeptDraft = [this](const diary::KeptText& kept) { offerKeptDraft(kept); };
    view.withdrawKeptDraft = [this] { withdrawKeptDraft(); };
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
    m_window->topBar()->onToday = [this] { perform(Action::Today); };
    m_window->topBar()->onRandom = [this] { perform(Action::RandomDay); };
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
            editor->undo();
            break;
        case Action::Redo:
            editor->redo();
            break;
        case Action::Cut:
            editor->cut();
            break;
        case Action::Copy:
            editor->copy();
            break;
        case Action::Paste:
            editor->paste();
            break;
        case Action::SelectAll:
            editor->selectAll();
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
    m_window->topBar()->update(fileName, past + (hasCurrent ? 1 : 0));
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

void MainWindowController::flash(SessionNotice notice) {
    const QString day = m_session->currentMonthDay().headerTitle();
    const int year = m_session->viewedYear();
    const auto kept = [&](diary::KeptReason reason, std::optional<int> ofYear) {
        return notices::kept(reason, day, ofYear);
    };
    QString text;
    switch (notice) {
        case SessionNotice::MergedRemote:
            text = notices::mergedRemote();
            break;
        case SessionNotice::KeptOverwritten:
            text = kept(diary::KeptReason::Overwritten, year);
            break;
        case SessionNotice::KeptUndecodable:
            text = kept(diary::KeptReason::Undecodable, {});
            break;
        case SessionNotice::KeptDraft:
            text = kept(diary::KeptReason::UnsavedDraft, year);
            break;
        case SessionNotice::KeptMerge:
            text = kept(diary::KeptReason::UnsavedMerge, {});
            break;
        case SessionNotice::CannotLeave:
            text = notices::cannotLeave(day);
            break;
    }
    m_window->statusBar()->flash(text);
}

void MainWindowController::showSaveError(const diary::FileError& error) {
    m_isAlerting = true;
    AlertSheet::show(m_window.get(),
                     notices::saveFailedTitle(m_session->currentMonthDay().fileName()),
                     notices::saveFailedText(error), [this] {
                         m_isAlerting = false;
                         if (m_closesAfterAlert) m_window->close();
                     });
}

void MainWindowController::offerKeptDraft(const diary::KeptText& kept) {
    m_isOfferPinned = true;
    m_window->statusBar()->pin(
        notices::keptDraftOffer(m_session->currentMonthDay().headerTitle(), kept.year),
        notices::putBack(), [this, kept] { m_session->putBack(kept); });
}

// The bar may hold another notice by then, which isn't this one's to take down.
void MainWindowController::withdrawKeptDraft() {
    if (std::exchange(m_isOfferPinned, false)) m_window->statusBar()->unpin();
}

// A failed save can't keep the window open, but its first alert is read before it closes.
bool MainWindowController::mayClose() {
    commitComposition();
    m_session->flushSaveIfDirty();
    m_closesAfterAlert = m_isAlerting;
    // Whoever ends the session may not wait for the alert.
    if (m_isAlerting) m_session->keepUnsavedDraft();
    return !m_isAlerting;
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
