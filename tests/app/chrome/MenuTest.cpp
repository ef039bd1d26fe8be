#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <set>

#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class MenuTest : public testing::Test {
protected:
    MenuTest() {
        localization::install(Language::en);
        QCoreApplication::setApplicationName(QStringLiteral("Velmar"));
        bar = MainMenuBuilder::build(&window, [this](Action action) { done.push_back(action); });
        window.resize(400, 300);
        window.show();
        window.setFocusPolicy(Qt::StrongFocus);
        window.setFocus();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] QStringList titles() const {
        QStringList result;
        for (const QAction* each : bar->actions()) result.append(each->text());
        return result;
    }

    QWidget window;
    QMenuBar* bar = nullptr;
    std::vector<Action> done;
};

TEST_F(MenuTest, HasTheMenusInTheirOrder) {
    EXPECT_THAT(titles(),
                ElementsAre(QStringLiteral("Diary"), QStringLiteral("File"), QStringLiteral("Edit"),
                            QStringLiteral("Format"), QStringLiteral("View"),
                            QStringLiteral("Navigate"), QStringLiteral("Window")));
    EXPECT_EQ(MainMenuBuilder::item(bar, Action::Quit)->text(), QStringLiteral("Quit Velmar"));
}

TEST_F(MenuTest, EveryCommandStandsOnceAndIsDispatched) {
    std::set<Action> seen;
    for (const MenuRow& row : menuTable()) {
        EXPECT_TRUE(seen.insert(row.action).second);
        QAction* item = MainMenuBuilder::item(bar, row.action);
        ASSERT_NE(item, nullptr);
        EXPECT_FALSE(item->text().isEmpty());
        item->trigger();
        ASSERT_FALSE(done.empty());
        EXPECT_EQ(done.back(), row.action);
    }
}

TEST_F(MenuTest, NoKeyHasTwoCommands) {
    std::set<int> keys;
    for (const MenuRow& row : menuTable()) {
        for (const QKeyCombination key : row.keys) {
            EXPECT_TRUE(keys.insert(key.toCombined()).second) << row.title;
        }
    }
}

TEST_F(MenuTest, SeparatorsFallBehindTheirItems) {
    const std::set<Action> lasts = {Action::CheckForUpdates,
                                    Action::Settings,
                                    Action::Hide,
                                    Action::Close,
                                    Action::Save,
                                    Action::Export,
                                    Action::Redo,
                                    Action::SelectAll,
                                    Action::Link,
                                    Action::BodyText,
                                    Action::CheckToDo};
    for (const QAction* each : bar->actions()) {
        const auto items = each->menu()->actions();
        for (int i = 0; i + 1 < items.size(); ++i) {
            const bool expected = std::ranges::any_of(lasts, [&](Action action) {
                return items[i] == MainMenuBuilder::item(bar, action);
            });
            if (!items[i]->isSeparator()) {
                EXPECT_EQ(items[i + 1]->isSeparator(), expected);
            }
        }
        ASSERT_FALSE(items.isEmpty());
        EXPECT_FALSE(items.last()->isSeparator());
    }
}

// The whole table, as a user finds it: titles and keys in their order.
TEST_F(MenuTest, HasEveryCommandWithItsKey) {
    QStringList found;
    for (const MenuRow& row : menuTable()) {
        QAction* item = MainMenuBuilder::item(bar, row.action);
        QString line = item->text();
        for (const QKeySequence& key : item->shortcuts()) line += u' ' + key.toString();
        found.append(line);
    }
    EXPECT_EQ(found.join(u'\n'), QStringLiteral("About Velmar\n"
                                                "Check for Updates…\n"
                                                "Settings… Ctrl+,\n"
                                                "Hide Velmar Ctrl+H\n"
                                                "Quit Velmar Ctrl+Q\n"
                                                "Close Ctrl+W\n"
                                                "Save Ctrl+S\n"
                                                "Import… Ctrl+Shift+I\n"
                                                "Import Records…\n"
                                                "Export… Ctrl+Shift+E\n"
                                                "Show in Files\n"
                                                "Undo Ctrl+Z\n"
                                                "Redo Ctrl+Shift+Z\n"
                                                "Cut Ctrl+X\n"
                                                "Copy Ctrl+C\n"
                                                "Paste Ctrl+V\n"
                                                "Select All Ctrl+A\n"
                                                "Find… Ctrl+F\n"
                                                "Find Next Ctrl+G F3\n"
                                                "Find Previous Ctrl+Shift+G Shift+F3\n"
                                                "Bold Ctrl+B\n"
                                                "Italic Ctrl+I\n"
                                                "Strikethrough Ctrl+Shift+X\n"
                                                "Inline Code Ctrl+E\n"
                                                "Link Ctrl+K\n"
                                                "Heading 1 Ctrl+Alt+1\n"
                                                "Heading 2 Ctrl+Alt+2\n"
                                                "Heading 3 Ctrl+Alt+3\n"
                                                "Body Text Ctrl+Alt+0\n"
                                                "Bulleted List Ctrl+Alt+U\n"
                                                "Numbered List Ctrl+Alt+O\n"
                                                "To-Do Ctrl+Alt+X\n"
                                                "Quote Ctrl+Alt+Q\n"
                                                "Check To-Do Ctrl+Return\n"
                                                "Indent Ctrl+]\n"
                                                "Outdent Ctrl+[\n"
                                                "One Year Ctrl+1\n"
                                                "All Years Ctrl+2\n"
                                                "Toggle Source Ctrl+U\n"
                                                "Previous Day Alt+Left Ctrl+Left\n"
                                                "Next Day Alt+Right Ctrl+Right\n"
                                                "Today Ctrl+T\n"
                                                "Random Day Ctrl+R\n"
                                                "Year Calendar Ctrl+Y\n"
                                                "Minimize Ctrl+M\n"
                                                "Maximize"));
}

TEST_F(MenuTest, TextsFollowTheLanguage) {
    localization::install(Language::zhHans);
    MainMenuBuilder::retranslate(bar);
    EXPECT_EQ(titles().join(u' '), QStringLiteral("日记 文件 编辑 格式 视图 前往 窗口"));
    EXPECT_EQ(MainMenuBuilder::item(bar, Action::Quit)->text(), QStringLiteral("退出 Velmar"));
    localization::install(Language::en);
}

TEST_F(MenuTest, AnOpenedMenuShowsWhatIsOffAndWhatIsOn) {
    MainMenuBuilder::showStates(bar, Menu::Format, [](Action action) {
        if (action == Action::Bold) return MainMenuBuilder::ItemState{false, {}};
        return MainMenuBuilder::ItemState{true, action == Action::Quote};
    });
    QAction* bold = MainMenuBuilder::item(bar, Action::Bold);
    QAction* quote = MainMenuBuilder::item(bar, Action::Quote);
    auto* menu = qobject_cast<QMenu*>(bold->associatedObjects().value(0));
    ASSERT_NE(menu, nullptr);
    menu->popup({});
    EXPECT_FALSE(bold->isEnabled());
    EXPECT_FALSE(bold->isCheckable());
    EXPECT_TRUE(MainMenuBuilder::item(bar, Action::ToDo)->isCheckable())
        << "what can be checked can be while it isn't, too";
    EXPECT_FALSE(MainMenuBuilder::item(bar, Action::ToDo)->isChecked());
    EXPECT_TRUE(quote->isEnabled());
    EXPECT_TRUE(quote->isChecked());
    menu->close();
    EXPECT_TRUE(bold->isEnabled()) << "its key must work when the menu is closed";
}

TEST_F(MenuTest, BothKeysOfTheDaysWorkOutsideText) {
    QTest::keyClick(&window, Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_THAT(done, ElementsAre(Action::PreviousDay, Action::NextDay, Action::PreviousDay,
                                  Action::NextDay));
}

TEST_F(MenuTest, ATextFieldKeepsCtrlAndArrows) {
    QLineEdit field(QStringLiteral("two words"), &window);
    field.show();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_TRUE(done.empty());
    EXPECT_EQ(field.cursorPosition(), 4);
    QTest::keyClick(&field, Qt::Key_Left, Qt::AltModifier);
    EXPECT_THAT(done, ElementsAre(Action::PreviousDay));
}

}  // namespace
}  // namespace velmar
