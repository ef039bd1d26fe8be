#include "DiaryApp/Chrome/MenuTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QtGlobal>
#include <array>

namespace velmar {

namespace {

constexpr std::array kQuit = {MenuKey{Qt::CTRL | Qt::Key_Q}};
constexpr std::array kClose = {MenuKey{Qt::CTRL | Qt::Key_W}};
constexpr std::array kSave = {MenuKey{Qt::CTRL | Qt::Key_S}};
constexpr std::array kUndo = {MenuKey{Qt::CTRL | Qt::Key_Z}};
constexpr std::array kRedo = {MenuKey{Qt::CTRL | Qt::SHIFT | Qt::Key_Z}};
constexpr std::array kCut = {MenuKey{Qt::CTRL | Qt::Key_X}};
constexpr std::array kCopy = {MenuKey{Qt::CTRL | Qt::Key_C}};
constexpr std::array kPaste = {MenuKey{Qt::CTRL | Qt::Key_V}};
constexpr std::array kSelectAll = {MenuKey{Qt::CTRL | Qt::Key_A}};
constexpr std::array kPrevious = {MenuKey{Qt::ALT | Qt::Key_Left},
                                  MenuKey{Qt::CTRL | Qt::Key_Left, KeyReach::OutsideText}};
constexpr std::array kNext = {MenuKey{Qt::ALT | Qt::Key_Right},
                              MenuKey{Qt::CTRL | Qt::Key_Right, KeyReach::OutsideText}};
constexpr std::array kToday = {MenuKey{Qt::CTRL | Qt::Key_T}};
constexpr std::array kRandom = {MenuKey{Qt::CTRL | Qt::Key_R}};
constexpr std::array kMinimize = {MenuKey{Qt::CTRL | Qt::Key_M}};

constexpr bool kSeparator = true;

constexpr std::array kTable = {
    MenuRow{Menu::Diary, QT_TRID_NOOP("Quit %@"), Action::Quit, kQuit},
    MenuRow{Menu::File, QT_TRID_NOOP("Close"), Action::Close, kClose, kSeparator},
    MenuRow{Menu::File, QT_TRID_NOOP("Save"), Action::Save, kSave},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Undo"), Action::Undo, kUndo},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Redo"), Action::Redo, kRedo, kSeparator},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Cut"), Action::Cut, kCut},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Copy"), Action::Copy, kCopy},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Paste"), Action::Paste, kPaste},
    MenuRow{Menu::Edit, QT_TRID_NOOP("Select All"), Action::SelectAll, kSelectAll},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Previous Day"), Action::PreviousDay, kPrevious},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Next Day"), Action::NextDay, kNext},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Today"), Action::Today, kToday},
    MenuRow{Menu::Navigate, QT_TRID_NOOP("Random Day"), Action::RandomDay, kRandom},
    MenuRow{Menu::Window, QT_TRID_NOOP("Minimize"), Action::Minimize, kMinimize},
    MenuRow{Menu::Window, QT_TRID_NOOP("Zoom"), Action::Zoom, {}},
};

constexpr std::array kMenuTitles = {QT_TRID_NOOP("Diary"), QT_TRID_NOOP("File"),
                                    QT_TRID_NOOP("Edit"), QT_TRID_NOOP("Navigate"),
                                    QT_TRID_NOOP("Window")};

}  // namespace

std::span<const MenuRow> menuTable() {
    return kTable;
}

const char* menuTitle(Menu menu) {
    return kMenuTitles[static_cast<std::size_t>(menu)];
}

}  // namespace velmar
