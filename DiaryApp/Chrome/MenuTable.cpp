#include "DiaryApp/Chrome/MenuTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QtGlobal>
#include <array>

namespace velmar {

namespace {

constexpr std::array kSettings = {QKeyCombination(Qt::CTRL | Qt::Key_Comma)};
constexpr std::array kHide = {QKeyCombination(Qt::CTRL | Qt::Key_H)};
constexpr std::array kQuit = {QKeyCombination(Qt::CTRL | Qt::Key_Q)};
constexpr std::array kClose = {QKeyCombination(Qt::CTRL | Qt::Key_W)};
constexpr std::array kSave = {QKeyCombination(Qt::CTRL | Qt::Key_S)};
constexpr std::array kImport = {QKeyCombination(Qt::CTRL | Qt::SHIFT | Qt::Key_I)};
constexpr std::array kExport = {QKeyCombination(Qt::CTRL | Qt::SHIFT | Qt::Key_E)};
constexpr std::array kUndo = {QKeyCombination(Qt::CTRL | Qt::Key_Z)};
constexpr std::array kRedo = {QKeyCombination(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)};
constexpr std::array kCut = {QKeyCombination(Qt::CTRL | Qt::Key_X)};
constexpr std::array kCopy = {QKeyCombination(Qt::CTRL | Qt::Key_C)};
constexpr std::array kPaste = {QKeyCombination(Qt::CTRL | Qt::Key_V)};
constexpr std::array kSelectAll = {QKeyCombination(Qt::CTRL | Qt::Key_A)};
constexpr std::array kFind = {QKeyCombination(Qt::CTRL | Qt::Key_F)};
// F3 is what a hand on another application expects.
constexpr std::array kFindNext = {QKeyCombination(Qt::CTRL | Qt::Key_G),
                                  QKeyCombination(Qt::Key_F3)};
constexpr std::array kFindPrevious = {QKeyCombination(Qt::CTRL | Qt::SHIFT | Qt::Key_G),
                                      QKeyCombination(Qt::SHIFT | Qt::Key_F3)};
constexpr std::array kBold = {QKeyCombination(Qt::CTRL | Qt::Key_B)};
constexpr std::array kItalic = {QKeyCombination(Qt::CTRL | Qt::Key_I)};
constexpr std::array kStrikethrough = {QKeyCombination(Qt::CTRL | Qt::SHIFT | Qt::Key_X)};
constexpr std::array kInlineCode = {QKeyCombination(Qt::CTRL | Qt::Key_E)};
constexpr std::array kLink = {QKeyCombination(Qt::CTRL | Qt::Key_K)};
constexpr std::array kHeading1 = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_1)};
constexpr std::array kHeading2 = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_2)};
constexpr std::array kHeading3 = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_3)};
constexpr std::array kBodyText = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_0)};
constexpr std::array kBulletedList = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_U)};
constexpr std::array kNumberedList = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_O)};
constexpr std::array kToDo = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_X)};
constexpr std::array kQuote = {QKeyCombination(Qt::CTRL | Qt::ALT | Qt::Key_Q)};
constexpr std::array kCheckToDo = {QKeyCombination(Qt::CTRL | Qt::Key_Return)};
constexpr std::array kIndent = {QKeyCombination(Qt::CTRL | Qt::Key_BracketRight)};
constexpr std::array kOutdent = {QKeyCombination(Qt::CTRL | Qt::Key_BracketLeft)};
constexpr std::array kOneYear = {QKeyCombination(Qt::CTRL | Qt::Key_1)};
constexpr std::array kAllYears = {QKeyCombination(Qt::CTRL | Qt::Key_2)};
constexpr std::array kToggleSource = {QKeyCombination(Qt::CTRL | Qt::Key_U)};
constexpr std::array kPrevious = {QKeyCombination(Qt::ALT | Qt::Key_Left),
                                  QKeyCombination(Qt::CTRL | Qt::Key_Left)};
constexpr std::array kNext = {QKeyCombination(Qt::ALT | Qt::Key_Right),
                              QKeyCombination(Qt::CTRL | Qt::Key_Right)};
constexpr std::array kToday = {QKeyCombination(Qt::CTRL | Qt::Key_T)};
constexpr std::array kRandom = {QKeyCombination(Qt::CTRL | Qt::Key_R)};
constexpr std::array kYearCalendar = {QKeyCombination(Qt::CTRL | Qt::Key_Y)};
constexpr std::array kMinimize = {QKeyCombination(Qt::CTRL | Qt::Key_M)};

constexpr bool kSeparator = true;

constexpr std::array kTable = {
    MenuRow{Menu::Diary, QT_TRID_NOOP("About %@"), Action::About, {}},
    MenuRow{
        Menu::Diary, QT_TRID_NOOP("Check for Updates…"), Action::CheckForUpdates, {}, kSeparator},
    MenuRow{Menu::Diary, QT_TRID_NOOP("Settings…"), Action::Settings, kSettings, kSeparator},
    MenuRow{Menu::Diary, QT_TRID_NOOP("Hide %@"), Action::Hide, kHide, kSeparator},
    MenuRow{Menu::Diary, QT_TRID_NOOP("Quit %@"), Action::Quit, kQuit},
    MenuRow{Menu::File, QT_TRID_NOOP("Close"), Action::Close, kClose, kSeparator},
    MenuRow{Menu::File, QT_TRID_NOOP("Save"), Action::Save, kSave, kSeparator},
    MenuRow{Menu::File, QT_TRID_NOOP("Import…"), Action::Import, kImport},
    MenuRow{Menu::File, QT_TRID_NOOP("Import Records…"), Action::ImportRecords, {}},
    MenuRow{Menu::File, QT_TRID_NOOP("Export…"), Action::Export, kExport, kSeparator},
    MenuRow{Menu::File, QT_TRID_NOOP("Show in Finder"), Action::ShowInFinder, {}},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Undo"), Action::Undo, kUndo},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Redo"), Action::Redo, kRedo, kSeparator},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Cut"), Action::Cut, kCut},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Copy"), Action::Copy, kCopy},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Paste"), Action::Paste, kPaste},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Select All"), Action::SelectAll, kSelectAll, kSeparator},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Find…"), Action::Find, kFind},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Find Next"), Action::FindNext, kFindNext},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Find Previous"), Action::FindPrevious, kFindPrevious},
    MenuRow{Menu::Format, QT_TRID_NOOP("Bold"), Action::Bold, kBold},
    MenuRow{Menu::Format, QT_TRID_NOOP("Italic"), Action::Italic, kItalic},
    MenuRow{Menu::Format, QT_TRID_NOOP("Strikethrough"), Action::Strikethrough, kStrikethrough},
    MenuRow{Menu::Format, QT_TRID_NOOP("Inline Code"), Action::InlineCode, kInlineCode},
    MenuRow{Menu::Format, QT_TRID_NOOP("Link"), Action::Link, kLink, kSeparator},
    MenuRow{Menu::Format, QT_TRID_NOOP("Heading 1"), Action::Heading1, kHeading1},
    MenuRow{Menu::Format, QT_TRID_NOOP("Heading 2"), Action::Heading2, kHeading2},
    MenuRow{Menu::Format, QT_TRID_NOOP("Heading 3"), Action::Heading3, kHeading3},
    MenuRow{Menu::Format, QT_TRID_NOOP("Body Text"), Action::BodyText, kBodyText, kSeparator},
    MenuRow{Menu::Format, QT_TRID_NOOP("Bulleted List"), Action::BulletedList, kBulletedList},
    MenuRow{Menu::Format, QT_TRID_NOOP("Numbered List"), Action::NumberedList, kNumberedList},
    MenuRow{Menu::Format, QT_TRID_NOOP("To-Do"), Action::ToDo, kToDo},
    MenuRow{Menu::Format, QT_TRID_NOOP("Quote"), Action::Quote, kQuote},
    MenuRow{Menu::Format, QT_TRID_NOOP("Check To-Do"), Action::CheckToDo, kCheckToDo, kSeparator},
    MenuRow{Menu::Format, QT_TRID_NOOP("Indent"), Action::Indent, kIndent},
    MenuRow{Menu::Format, QT_TRID_NOOP("Outdent"), Action::Outdent, kOutdent},
    MenuRow{Menu::View, QT_TRID_NOOP("One Year"), Action::OneYear, kOneYear},
    MenuRow{Menu::View, QT_TRID_NOOP("All Years"), Action::AllYears, kAllYears},
    MenuRow{Menu::View, QT_TRID_NOOP("Toggle Source"), Action::ToggleSource, kToggleSource},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Previous Day"), Action::PreviousDay, kPrevious},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Next Day"), Action::NextDay, kNext},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Today"), Action::Today, kToday},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Random Day"), Action::RandomDay, kRandom},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Year Calendar"), Action::YearCalendar, kYearCalendar},
    MenuRow{Menu::Window, QT_TRID_NOOP("Minimize"), Action::Minimize, kMinimize},
    MenuRow{Menu::Window, QT_TRID_NOOP("Zoom"), Action::Zoom, {}},
};

constexpr std::array kMenuTitles = {
    QT_TRID_NOOP("Diary"), QT_TRID_NOOP("File"),     QT_TRID_NOOP("Edit"),  QT_TRID_NOOP("Format"),
    QT_TRID_NOOP("View"),  QT_TRID_NOOP("Navigate"), QT_TRID_NOOP("Window")};

}  // namespace

std::span<const MenuRow> menuTable() {
    return kTable;
}

const char* menuTitle(Menu menu) {
    return kMenuTitles[static_cast<std::size_t>(menu)];
}

}  // namespace velmar
