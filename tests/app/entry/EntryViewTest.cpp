#include "DiaryApp/Entry/EntryView.h"

#include <gtest/gtest.h>

#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Button.h"
#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

using EntryViewTest = EntryViewFixture;

TEST_F(EntryViewTest, TypingCallsBackWithTheDraft) {
    QTest::keyClicks(&editor(), QStringLiteral("ab"));
    EXPECT_EQ(drafts, (QStringList{QStringLiteral("a"), QStringLiteral("ab")}));
    EXPECT_EQ(view.draft(), QStringLiteral("ab"));
}

TEST_F(EntryViewTest, NewLabelsLeaveTheEditorAlone) {
    QTest::keyClicks(&editor(), QStringLiteral("abc"));
    QTest::keyClick(&editor(), Qt::Key_Left);
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QCoreApplication::sendEvent(&editor(), &composing);
    state.draft = view.draft();
    state.pastEntries = {{2020, QStringLiteral("x")}};
    show();
    EXPECT_EQ(editor().textCursor().position(), 2);
    EXPECT_TRUE(editor().document()->isUndoAvailable());
    EXPECT_EQ(editor().textCursor().block().layout()->preeditAreaText(), QStringLiteral("ni"));
    EXPECT_EQ(drafts.size(), 3);
}

TEST_F(EntryViewTest, AnotherDayLoadsItsDraftWithoutHistory) {
    QTest::keyClicks(&editor(), QStringLiteral("abc"));
    state.day = {11, 22};
    state.draft = QStringLiteral("the next day");
    show();
    EXPECT_EQ(view.draft(), QStringLiteral("the next day"));
    EXPECT_FALSE(editor().document()->isUndoAvailable());
    EXPECT_EQ(drafts.size(), 3);
}

TEST_F(EntryViewTest, AnotherYearWithAnEqualDraftHasNoHistoryEither) {
    QTest::keyClicks(&editor(), QStringLiteral("abc"));
    state.viewedYear = 2025;
    state.draft = QStringLiteral("abc");
    show();
    EXPECT_FALSE(editor().document()->isUndoAvailable());
}

TEST_F(EntryViewTest, AReloadedDraftIsShown) {
    state.draft = QStringLiteral("from elsewhere");
    show();
    EXPECT_EQ(view.draft(), QStringLiteral("from elsewhere"));
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(EntryViewTest, TheHintTakesTheEditorsPlace) {
    state.day = {2, 29};
    show();
    EXPECT_FALSE(editor().isVisible());
    state.viewedYear = 2024;
    show();
    EXPECT_TRUE(editor().isVisible());
}

TEST_F(EntryViewTest, TheHintsPageTakesTheKeys) {
    state.day = {2, 29};
    show();
    EXPECT_EQ(window.focusWidget(), &oneYear());
    window.setFocus();
    view.focusEditor();
    EXPECT_EQ(window.focusWidget(), &oneYear());
    state.day = {3, 1};
    show();
    view.focusEditor();
    EXPECT_EQ(window.focusWidget(), &editor());
}

// As with the year calendar, which stands ahead of the window while a day is picked in it.
TEST_F(EntryViewTest, TheHintsPageTakesTheKeysBehindAnotherWindowToo) {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_FALSE(editor().hasFocus());
    state.day = {2, 29};
    show();
    EXPECT_EQ(window.focusWidget(), &oneYear());
}

TEST_F(EntryViewTest, ScrollsAsAWholeAndKeepsTheCaretInView) {
    state.draft = manyLines(60);
    show();
    EXPECT_EQ(editor().height() >= 60 * editor().lineHeight(), true);
    view.scrollToTop();
    EXPECT_EQ(oneYear().verticalScrollBar()->value(), 0);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    const QPoint caret = editor().mapTo(oneYear().viewport(), editor().caretRect().center());
    EXPECT_TRUE(oneYear().viewport()->rect().contains(caret)) << caret.y();
    EXPECT_GT(oneYear().verticalScrollBar()->value(), 0);
}

TEST_F(EntryViewTest, GrowsWhileTyping) {
    state.draft = manyLines(3);
    show();
    const int before = editor().height();
    QTest::keyClick(&editor(), Qt::Key_Return);
    EXPECT_EQ(editor().height(), before + editor().lineHeight());
}

TEST_F(EntryViewTest, TakesNoInputWhileItIsNotEditable) {
    view.setEditable(false);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    show();
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_TRUE(view.draft().isEmpty());
    view.setEditable(true);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_EQ(view.draft(), QStringLiteral("x"));
}

TEST_F(EntryViewTest, TheStepsCallBack) {
    int steps = 0;
    view.onPreviousDay = [&] { steps -= 1; };
    view.onNextDay = [&] { steps += 10; };
    auto* head = view.findChild<DayHead*>();
    ASSERT_NE(head, nullptr);
    QTest::mouseClick(head->previous(), Qt::LeftButton);
    EXPECT_EQ(steps, -1);
    QTest::mouseClick(head->next(), Qt::LeftButton);
    EXPECT_EQ(steps, 9);
    EXPECT_EQ(head->next()->accessibleName(), QStringLiteral("Next Day"));
}

}  // namespace
}  // namespace velmar
