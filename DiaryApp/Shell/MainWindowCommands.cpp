// What the menu and the views call back, and where each of it leads.
#include <QtCore/QFileInfo>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Desktop/FileManager.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Shell/EditCommands.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "DiaryApp/Shell/WindowStates.h"

namespace velmar {

namespace {

constexpr int kMonths = 12;

// Both follow the order of the Format menu.
std::optional<FormatCommand> formatCommandOf(Action action) {
    if (action < Action::Bold || action > Action::Outdent) return std::nullopt;
    return static_cast<FormatCommand>(static_cast<int>(action) - static_cast<int>(Action::Bold));
}

}  // namespace

void MainWindowController::wire() {
    m_window->setMenuBar(
        MainMenuBuilder::build(m_window.get(), [this](Action action) { perform(action); }));
    revealInFiles = [](const QString& path) { FileManager::reveal(path); };
    m_window->onFilesDropped = [this](const QList<QUrl>& files) {
        if (onImportDrop) onImportDrop(files);
    };
    m_window->onPageButton = [this](int step) {
        perform(step < 0 ? Action::PreviousDay : Action::NextDay);
    };
    m_window->onFirstPaint = [this] { completeWindow(); };
    wireMenu();
    wireEntry();
    wireColumns();
    m_window->onEscape = [this] { search().exitSearch(); };
    m_window->onClosing = [this] { return mayClose(); };
    m_window->onClosed = [this] { closeWindow(); };
}

void MainWindowController::wireMenu() {
    const QMenuBar* bar = m_window->menuBar();
    using State = MainMenuBuilder::ItemState;
    MainMenuBuilder::showStates(bar, Menu::Format, [this](Action action) {
        const GrowingTextView* editor = m_window->entryView()->editor();
        const auto format = formatCommandOf(action);
        const bool isOn = format && hasEditorFocus() && editor->canFormat();
        if (!format || !isCheckable(*format)) return State{isOn, {}};
        return State{isOn, isOn && isChecked(*format, editor->context())};
    });
    MainMenuBuilder::showStates(bar, Menu::View, [this](Action action) {
        const bool isAll = m_session->showAllYears();
        if (action == Action::OneYear) return State{true, !isAll};
        if (action == Action::AllYears) return State{true, isAll};
        return State{};
    });
    MainMenuBuilder::showStates(bar, Menu::Edit, [this](Action action) {
        const bool isStep = action == Action::FindNext || action == Action::FindPrevious;
        return State{!isStep || search().isOpen(), {}};
    });
}

void MainWindowController::wireEntry() {
    EntryView* entry = m_window->entryView();
    entry->onDraftChanged = [this](const QString& draft) { m_session->draftChanged(draft); };
    entry->onPreviousDay = [this] { perform(Action::PreviousDay); };
    entry->onNextDay = [this] { perform(Action::NextDay); };
    entry->onPreviousMatch = [this] { perform(Action::FindPrevious); };
    entry->onNextMatch = [this] { perform(Action::FindNext); };
    entry->onOpenYear = [this](int year) { m_session->pickYear(year, Focus::Editor); };
    entry->onPinch = [this](bool isClosing, std::optional<int> year) { pinch(isClosing, year); };
}

void MainWindowController::wireColumns() {
    m_window->topBar()->onRandom = [this] { perform(Action::RandomDay); };
    m_window->topBar()->onToggleSource = [this] { perform(Action::ToggleSource); };
    SidebarView* sidebar = m_window->sidebar();
    sidebar->onSelectDay = [this](int day) {
        m_session->open({m_session->currentMonthDay().month, day}, Focus::Editor);
    };
    sidebar->onPreviousMonth = [this] {
        openMonth((m_session->currentMonthDay().month + kMonths - 2) % kMonths + 1);
    };
    sidebar->onNextMonth = [this] { openMonth(m_session->currentMonthDay().month % kMonths + 1); };
    sidebar->onToday = [this] { perform(Action::Today); };
    sidebar->onShowYearOverview = [this] { perform(Action::YearCalendar); };
    sidebar->onShowSearch = [this] { perform(Action::Find); };
    sidebar->onShowSettings = [this] { perform(Action::Settings); };
    YearRailView* rail = m_window->rail();
    rail->onPickYear = [this](int year) { m_session->pickYear(year, Focus::Editor); };
    rail->onAddYear = [this](int year) { m_session->pickYear(year, Focus::Editor); };
    rail->onSetAllYears = [this](bool isOn) { m_session->setAllYears(isOn); };
}

// The commands of the Format menu act on the text that is being written, and on nothing else.
bool MainWindowController::hasEditorFocus() const {
    const EntryView* page = m_window->entryView();
    return page->showsEditor() && m_window->focusWidget() == page->editor();
}

// Whoever turns the months by keys goes on from there.
void MainWindowController::openMonth(int month) {
    const bool isByKeys = m_window->sidebar()->isAncestorOf(m_window->focusWidget());
    m_session->open({month, 1}, isByKeys ? Focus::Unchanged : Focus::Editor);
}

void MainWindowController::pinch(bool isClosing, std::optional<int> year) {
    if (isClosing) {
        m_session->setAllYears(true);
    } else if (m_session->showAllYears()) {
        m_session->pickYear(year.value_or(m_session->viewedYear()), Focus::Editor);
    }
}

void MainWindowController::perform(Action action) {
    EntryView& page = *m_window->entryView();
    if (const auto format = formatCommandOf(action)) {
        if (hasEditorFocus()) page.editor()->perform(*format);
        return;
    }
    switch (action) {
        case Action::Quit:
        case Action::Close:
            m_window->close();
            break;
        case Action::Save:
            m_session->flushSaveIfDirty();
            break;
        case Action::ShowInFinder:
            showInFinder();
            break;
        case Action::Undo:
        case Action::Redo:
        case Action::Cut:
        case Action::Copy:
        case Action::Paste:
        case Action::SelectAll:
            editcommands::perform(action, m_window->focusWidget(), page);
            break;
        case Action::Find:
            search().showSearch();
            break;
        case Action::FindNext:
            search().stepMatch(1);
            break;
        case Action::FindPrevious:
            search().stepMatch(-1);
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
        case Action::YearCalendar:
            showYearOverview();
            break;
        case Action::Hide:
        case Action::Minimize:
            m_window->showMinimized();
            break;
        case Action::Zoom:
            m_window->isMaximized() ? m_window->showNormal() : m_window->showMaximized();
            break;
        default:
            if (onApplicationCommand) onApplicationCommand(action);
            break;
    }
}

void MainWindowController::showYearOverview() {
    if (!m_yearOverview) {
        m_yearOverview = std::make_unique<YearOverviewController>();
        m_yearOverview->onPick = [this](diary::MonthDay day) {
            m_session->open(day, Focus::Editor);
        };
    }
    m_yearOverview->present(windowstates::yearOverview(m_vaultFacts->archive()),
                            m_session->currentMonthDay(), m_window.get());
    m_vaultFacts->lookAgain();
}

void MainWindowController::showInFinder() const {
    const QString file = m_store->fileURL(m_session->currentMonthDay());
    if (QFileInfo::exists(file)) return revealInFiles(file);
    // A vault that nothing was written in yet has no folder.
    QFileInfo::exists(m_store->rootURL()) ? revealInFiles(m_store->rootURL())
                                          : QApplication::beep();
}

}  // namespace velmar
