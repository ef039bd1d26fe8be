// Input methods: what is composed is shown and disturbs nothing, what is committed is typed.
#include "tests/app/editor/EditorFixture.h"

namespace velmar {
namespace {

class CompositionTest : public EditorFixture {
protected:
    [[nodiscard]] QList<QTextLayout::FormatRange> formats(int number) const {
        return block(number).layout()->formats();
    }
};

TEST_F(CompositionTest, NothingIsRestyledWhileComposing) {
    load(QStringLiteral("# 見出し|\n- item **b**"));
    const auto heading = formats(0);
    const auto item = formats(1);
    compose(QStringLiteral("にほん"));
    EXPECT_EQ(formats(1), item);
    // The marker stays hidden and the composed text has the heading's font and its underline.
    EXPECT_EQ(x(0, 2) - x(0, 0), 0);
    const auto composing = formats(0);
    EXPECT_EQ(composing.first().length, heading.first().length);
    EXPECT_EQ(composing.at(1).start + composing.at(1).length, 5 + 3);
    EXPECT_EQ(composing.at(1).format.intProperty(QTextFormat::FontPixelSize), 23);
    EXPECT_TRUE(composing.last().format.fontUnderline());
    compose(QStringLiteral("日本"));
    EXPECT_EQ(x(0, 2) - x(0, 0), 0);
    commit(QStringLiteral("日本"));
    EXPECT_EQ(editor.draft(), QStringLiteral("# 見出し日本\n- item **b**"));
    EXPECT_EQ(formats(0).last().start + formats(0).last().length, 7);
    for (const auto& each : formats(0)) EXPECT_FALSE(each.format.fontUnderline());
}

TEST_F(CompositionTest, TheFirstEditBehindItRestylesEverything) {
    load(QStringLiteral("a|\nb"));
    compose(QStringLiteral("x"));
    // The text changes elsewhere while something is composed.
    QTextCursor elsewhere(editor.document());
    elsewhere.movePosition(QTextCursor::End);
    elsewhere.insertText(QStringLiteral("\n# c"));
    EXPECT_TRUE(formats(2).isEmpty());
    commit(QStringLiteral("y"));
    EXPECT_EQ(editor.draft(), QStringLiteral("ay\nb\n# c"));
    EXPECT_EQ(formats(2).size(), 2);
}

TEST_F(CompositionTest, AnEmptyHeadingLendsItsLookToWhatIsComposed) {
    load(QStringLiteral("# |"));
    compose(QStringLiteral("かな"));
    EXPECT_EQ(x(0, 2) - x(0, 0), 0);
    const QTextLine line = block(0).layout()->lineAt(0);
    EXPECT_GT(line.cursorToX(4) - line.cursorToX(2), 2 * 20);
}

TEST_F(CompositionTest, ACancelledCompositionLeavesEverythingAsItWas) {
    load(QStringLiteral("- [ ] 待办|"));
    const auto before = formats(0);
    compose(QStringLiteral("ni"));
    compose(QStringLiteral("ni hao"));
    compose(QString());
    EXPECT_EQ(shown(), QStringLiteral("- [ ] 待办|"));
    EXPECT_EQ(formats(0), before);
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(CompositionTest, NoCommandRunsWhileComposing) {
    load(QStringLiteral("- a|"));
    compose(QStringLiteral("か"));
    EXPECT_FALSE(editor.canFormat());
    editor.command(u"bold");
    press(Qt::Key_Tab);
    EXPECT_FALSE(editor.draft().startsWith(QStringLiteral("  -")));
    EXPECT_FALSE(editor.draft().contains(QStringLiteral("**")));
}

TEST_F(CompositionTest, ReturnConfirmsTheCompositionAndBreaksTheLinePlainly) {
    load(QStringLiteral("- a|"));
    compose(QStringLiteral("か"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), QStringLiteral("- aか\n|"));
    EXPECT_TRUE(editor.document()->firstBlock().layout()->preeditAreaText().isEmpty());
}

TEST_F(CompositionTest, KeysThatLeaveTheParagraphConfirmTheComposition) {
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Home}) {
        load(QStringLiteral("a\nb|"));
        compose(QStringLiteral("か"));
        press(key);
        EXPECT_EQ(editor.draft(), QStringLiteral("a\nbか"));
        EXPECT_FALSE(editor.isComposing());
        EXPECT_TRUE(editor.document()->lastBlock().layout()->preeditAreaText().isEmpty());
    }
}

TEST_F(CompositionTest, WideMarkersThatAreCommittedAreRewritten) {
    // As a Chinese input method commits them.
    load(QStringLiteral("|"));
    commit(QStringLiteral("＃"));
    commit(QStringLiteral("＃"));
    commit(QStringLiteral("\u3000"));
    EXPECT_EQ(shown(), QStringLiteral("## |"));
    load(QStringLiteral("|"));
    commit(QStringLiteral("１２。"));
    commit(QStringLiteral("\u3000"));
    EXPECT_EQ(shown(), QStringLiteral("12. |"));
    // As a Japanese one does.
    load(QStringLiteral("|"));
    commit(QStringLiteral("・"));
    commit(QStringLiteral("\u3000"));
    EXPECT_EQ(shown(), QStringLiteral("- |"));
    load(QStringLiteral("|"));
    commit(QStringLiteral("》"));
    commit(QStringLiteral(" "));
    EXPECT_EQ(shown(), QStringLiteral("> |"));
}

TEST_F(CompositionTest, ACommittedMarkStepsOverTheClosingOne) {
    load(QStringLiteral("*字|*"));
    commit(QStringLiteral("*"));
    EXPECT_EQ(shown(), QStringLiteral("*字*|"));
}

TEST_F(CompositionTest, APartCommittedAndTheRestComposedKeepsTheLook) {
    load(QStringLiteral("> 引用|"));
    compose(QStringLiteral("かきく"));
    compose(QStringLiteral("く"), QStringLiteral("書き"));
    EXPECT_EQ(editor.draft(), QStringLiteral("> 引用書き"));
    EXPECT_EQ(x(0, 2) - x(0, 0), 0);
    commit(QStringLiteral("句"));
    EXPECT_EQ(editor.draft(), QStringLiteral("> 引用書き句"));
}

TEST_F(CompositionTest, TheInputMethodKnowsTheTextAndTheCaretsPlace) {
    load(QStringLiteral("one\n- two|"));
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("- two"));
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImCursorPosition).toInt(), 5);
    compose(QStringLiteral("かな"));
    const QRect caret = editor.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_NEAR(caret.left(), x(1, 7), 1.5);
    EXPECT_EQ(caret.center().y() / 34, 1);
    EXPECT_EQ(editor.caretRect().center().y() / 34, 1);
    EXPECT_NEAR(editor.caretRect().left(), x(1, 7), 2);
    // An input method asks for the place of its window by an event, and takes one without a width
    // for none.
    QInputMethodQueryEvent asked(Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(&editor, &asked);
    const QRect told = asked.value(Qt::ImCursorRectangle).toRectF().toRect();
    EXPECT_TRUE(told.isValid());
    EXPECT_EQ(told, editor.caretRect());
}

TEST_F(CompositionTest, UndoDropsWhatIsComposed) {
    load(QStringLiteral("|"));
    keys("ab");
    compose(QStringLiteral("にほ"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), QStringLiteral("|"));
    EXPECT_TRUE(block(0).layout()->preeditAreaText().isEmpty());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown(), QStringLiteral("ab|"));
}

TEST_F(CompositionTest, AWholeCompositionIsUndoneAtOnce) {
    load(QStringLiteral("|"));
    compose(QStringLiteral("に"));
    compose(QStringLiteral("にほん"));
    commit(QStringLiteral("日本"));
    editor.undo();
    EXPECT_EQ(editor.draft(), QString());
    EXPECT_FALSE(editor.document()->isUndoAvailable());
}

}  // namespace
}  // namespace velmar
