// What happens to the window ahead of its first paint, while its columns are still to come.
#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Navigation/RailCard.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "tests/app/shell/ShellFixture.h"

namespace velmar {
namespace {

class StartTest : public test::ShellFixture {
protected:
    StartTest() {
        write(QStringLiteral("03-07"), 2019, QStringLiteral("canal, then bread"));
        controller = std::make_unique<MainWindowController>(
            settings, std::make_unique<diary::DiaryStore>(vault.path()));
        controller->onClosed = [this] { ++closed; };
        controller->show();
        // Keys come to an active window only, which the event loop would make it too late.
        QApplication::setActiveWindow(window());
    }

    bool waitForColumns() {
        return waitUntil([this] { return window()->rail()->isVisible(); });
    }
};

TEST_F(StartTest, KeysGoIntoTheText) {
    ASSERT_FALSE(window()->hasColumns());
    QTest::keyClicks(editor(), QStringLiteral("early"));
    ASSERT_TRUE(waitForColumns());
    QTest::keyClicks(editor(), QStringLiteral(" words"));
    EXPECT_EQ(editor()->draft(), u"early words");
    EXPECT_EQ(window()->rail()->cards()[0]->card().snippet, u"early words");
}

TEST_F(StartTest, TheSearchOpensAndTakesTheKeys) {
    ASSERT_FALSE(window()->hasColumns());
    controller->perform(Action::Find);
    auto* field = window()->searchPane()->findChild<SearchField*>();
    ASSERT_EQ(window()->focusWidget(), field);
    QTest::keyClicks(field, QStringLiteral("bread"));
    ASSERT_TRUE(waitForColumns());
    EXPECT_EQ(window()->sidebar()->mode(), SidebarView::Mode::Search);
    EXPECT_TRUE(field->isVisible());
    EXPECT_EQ(field->text(), u"bread");
    EXPECT_EQ(window()->focusWidget(), field);
    EXPECT_TRUE(waitUntil([this] { return controller->session().viewedYear() == 2019; }));
}

TEST_F(StartTest, AnotherDayOpens) {
    controller->perform(Action::NextDay);
    ASSERT_TRUE(waitForColumns());
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay().advanced(1));
}

TEST_F(StartTest, QuittingSavesAndBringsNoColumns) {
    QTest::keyClicks(editor(), QStringLiteral("early"));
    controller->perform(Action::Quit);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(onDisk(today.monthDay().headerTitle(), today.year), u"early");
    QTest::qWait(50);
    EXPECT_FALSE(window()->hasColumns());
}

TEST_F(StartTest, ABeginningActivityThatEndsAtOnceIsNoHarm) {
    controller->applicationBecameActive();
    controller->applicationResignedActive();
    ASSERT_TRUE(waitForColumns());
    EXPECT_FALSE(controller->session().isDirty());
}

}  // namespace
}  // namespace velmar
