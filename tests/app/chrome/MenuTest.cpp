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
    EXPECT_THAT(titles(), ElementsAre(QStringLiteral("Diary"), QStringLiteral("File"),
                                      QStringLiteral("Edit"), QStringLiteral("Format"),
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
        for (const MenuKey& key : row.keys) {
            EXPECT_TRUE(keys.insert(key.keys.toCombined()).second) << row.title;
        }
    }
}

TEST_F(MenuTest, SeparatorsFallBehindTheirItems) {
    for (const QAction* each : bar->actions()) {
        const QMenu* menu = each->menu();
        const auto items = menu->actions();
        for (int i = 0; i + 1 < items.size(); ++i) {
            const bool expected = items[i] == MainMenuBuilder::item(bar, Action::Close) ||
                                  items[i] == MainMenuBuilder::item(bar, Action::Redo) ||
                                  items[i] == MainMenuBuilder::item(bar, Action::Link) ||
                                  items[i] == MainMenuBuilder::item(bar, Action::BodyText) ||
                                  items[i] == MainMenuBuilder::item(bar, Action::CheckToDo);
            if (!items[i]->isSeparator()) {
                EXPECT_EQ(items[i + 1]->isSeparator(), expected);
            }
        }
        ASSERT_FALSE(items.isEmpty());
        EXPECT_FALSE(items.last()->isSeparator());
    }
}

TEST_F(MenuTest, TextsFollowTheLanguage) {
    localization::install(Language::zhHans);
    MainMenuBuilder::retranslate(bar);
    EXPECT_EQ(titles().join(u' '), QStringLiteral("日记 文件 编辑 格式 前往 窗口"));
    EXPECT_EQ(MainMenuBuilder::item(bar, Action::Quit)->text(), QStringLiteral("退出 Velmar"));
    localization::install(Language::en);
}

TEST_F(MenuTest, AnOpenedMenuShowsWhatIsOffAndWhatIsOn) {
    MainMenuBuilder::showStates(bar, Menu::Format, [](Action action) {
        return MainMenuBuilder::ItemState{action != Action::Bold, action == Action::Quote};
    });
    QAction* bold = MainMenuBuilder::item(bar, Action::Bold);
    QAction* quote = MainMenuBuilder::item(bar, Action::Quote);
    auto* menu = qobject_cast<QMenu*>(bold->associatedObjects().value(0));
    ASSERT_NE(menu, nullptr);
    menu->popup({});
    EXPECT_FALSE(bold->isEnabled());
    EXPECT_FALSE(bold->isChecked());
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
