// What keys, commands, the mouse and the clipboard do to a text, and how it is undone.
#include <QtGui/QAccessible>
#include <QtGui/QDropEvent>
#include <QtWidgets/QMenu>

#include "tests/app/editor/EditorFixture.h"

namespace velmar {
namespace {

class EditingKeysTest : public EditorFixture {
protected:
    // The drafts that undo goes back through, up to the first one.
    QStringList undoAll() {
        QStringList steps;
        while (editor.document()->isUndoAvailable()) {
            editor.undo();
            steps.append(editor.draft());
        }
        return steps;
    }

    void clickAt(const QPoint& point, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(editor.viewport(), Qt::LeftButton, modifiers, point);
    }

    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        editor.paste();
    }
};

TEST_F(EditingKeysTest, ATabIsUndoneByItself) {
    load(QStringLiteral("|"));
    QTest::keyClicks(&editor, QStringLiteral("words"));
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(editor.draft(), u"words\t");
    editor.undo();
    EXPECT_EQ(editor.draft(), u"words");
    editor.redo();
    EXPECT_EQ(editor.draft(), u"words\t");
}

TEST_F(EditingKeysTest, ACaretThatCanGoNoFurtherIsBroughtBackIntoView) {
    load(QStringLiteral("words|"));
    int brought = 0;
    editor.onCaretMoved = [&] { ++brought; };
    QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
    EXPECT_GT(brought, 0);
}

TEST_F(EditingKeysTest, ReturnInAListIsUndoneMarkerFirst) {
    load(QStringLiteral("- one|"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), QStringLiteral("- one\n- |"));
    EXPECT_EQ(drafts, (QStringList{QStringLiteral("- one\n"), QStringLiteral("- one\n- ")}));
    editor.undo();
    EXPECT_EQ(shown(), QStringLiteral("- one\n|"));
    editor.undo();
    EXPECT_EQ(shown(), QStringLiteral("- one|"));
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    editor.redo();
    editor.redo();
    EXPECT_EQ(editor.draft(), QStringLiteral("- one\n- "));
}

TEST_F(EditingKeysTest, TypingAroundAStepIsUndoneByItself) {
    load(QStringLiteral("- one|"));
    keys(" x");
    press(Qt::Key_Return);
    keys("abc");
    EXPECT_EQ(editor.draft(), QStringLiteral("- one x\n- abc"));
    EXPECT_EQ(undoAll(), (QStringList{QStringLiteral("- one x\n- "), QStringLiteral("- one x\n"),
                                      QStringLiteral("- one x"), QStringLiteral("- one")}));
}

TEST_F(EditingKeysTest, ARewrittenMarkerIsUndoneToWhatWasTyped) {
    load(QStringLiteral("|"));
    commit(QStringLiteral("——"));
    keys(" ");
    EXPECT_EQ(shown(), QStringLiteral("- |"));
    editor.undo();
    EXPECT_EQ(editor.draft(), QStringLiteral("—— "));
    editor.undo();
    EXPECT_EQ(editor.draft(), QStringLiteral("——"));
}

TEST_F(EditingKeysTest, AMarkerTypedAsItIsMakesNoStepOfItsOwn) {
    load(QStringLiteral("|"));
    keys("- one");
    EXPECT_EQ(undoAll(), QStringList{QString()});
}

TEST_F(EditingKeysTest, TypingIsUndoneSentenceBySentence) {
    load(QStringLiteral("|"));
    keys("One two. Three four! Five");
    EXPECT_EQ(undoAll(), (QStringList{QStringLiteral("One two. Three four! "),
                                      QStringLiteral("One two. "), QString()}));
    load(QStringLiteral("|"));
    commit(QStringLiteral("雨が降る。"));
    commit(QStringLiteral("帰る"));
    EXPECT_EQ(undoAll(), (QStringList{QStringLiteral("雨が降る。"), QString()}));
}

TEST_F(EditingKeysTest, StylesAreNoStepsOfUndo) {
    load(QStringLiteral("|"));
    keys("# a **b** `c` [d](e)");
    EXPECT_EQ(undoAll(), QStringList{QString()});
}

TEST_F(EditingKeysTest, ShiftAndEnterAreReturnToo) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        load(QStringLiteral("> a|"));
        press(key, Qt::ShiftModifier);
        EXPECT_EQ(shown(), QStringLiteral("> a\n> |"));
    }
    load(QStringLiteral("- |"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), QStringLiteral("|"));
}

TEST_F(EditingKeysTest, BackspaceTakesAMarkerAway) {
    load(QStringLiteral("- [ ] |a"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), QStringLiteral("|a"));
    load(QStringLiteral("a **|**"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), QStringLiteral("a |"));
    // A selection is deleted as anywhere.
    load(QStringLiteral("- |ab|c"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), QStringLiteral("- |c"));
}

TEST_F(EditingKeysTest, TabIndentsAnItemAndIsATabElsewhere) {
    load(QStringLiteral("- a|"));
    press(Qt::Key_Tab);
    EXPECT_EQ(shown(), QStringLiteral("  - a|"));
    load(QStringLiteral("a|"));
    press(Qt::Key_Tab);
    EXPECT_EQ(shown(), QStringLiteral("a\t|"));
}

TEST_F(EditingKeysTest, ShiftTabOutdentsAndDoesNothingAtTheOutermostLevel) {
    load(QStringLiteral("  - a|"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(shown(), QStringLiteral("- a|"));
    drafts.clear();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(shown(), QStringLiteral("- a|"));
    EXPECT_TRUE(editor.hasFocus());
    load(QStringLiteral("plain|"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(shown(), QStringLiteral("plain|"));
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(EditingKeysTest, AMarkSteppedOverIsNotTypedTwice) {
    load(QStringLiteral("*word|*"));
    keys("*");
    EXPECT_EQ(shown(), QStringLiteral("*word*|"));
    load(QStringLiteral("`word|`"));
    keys("`");
    EXPECT_EQ(shown(), QStringLiteral("`word`|"));
}

TEST_F(EditingKeysTest, LeftFromTheTextLeadsToThePreviousLineAndRightBack) {
    load(QStringLiteral("one\n- |two"));
    press(Qt::Key_Left);
    EXPECT_EQ(shown(), QStringLiteral("one|\n- two"));
    press(Qt::Key_Right);
    EXPECT_EQ(shown(), QStringLiteral("one\n- |two"));
    load(QStringLiteral("# |two"));
    press(Qt::Key_Left);
    EXPECT_EQ(shown(), QStringLiteral("# |two"));
    load(QStringLiteral("a\n---|\nb"));
    press(Qt::Key_Left);
    EXPECT_EQ(shown(), QStringLiteral("a|\n---\nb"));
}

TEST_F(EditingKeysTest, HomeStaysInItsLine) {
    load(QStringLiteral("one\n- two|"));
    press(Qt::Key_Home);
    EXPECT_EQ(shown(), QStringLiteral("one\n- |two"));
    press(Qt::Key_Home);
    EXPECT_EQ(shown(), QStringLiteral("one\n- |two"));
    press(Qt::Key_End);
    EXPECT_EQ(shown(), QStringLiteral("one\n- two|"));
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(editor.textCursor().position(), 4);
}

TEST_F(EditingKeysTest, UpAndDownKeepTheirColumn) {
    load(QStringLiteral("long line of text|\n- \n# x\n---\nlong line of text"));
    const double column = x(0, 17);
    for (int row = 0; row < 4; ++row) press(Qt::Key_Down);
    EXPECT_EQ(x(4, editor.textCursor().positionInBlock()), column);
    for (int row = 0; row < 4; ++row) press(Qt::Key_Up);
    EXPECT_EQ(editor.textCursor().position(), 17);
}

TEST_F(EditingKeysTest, PageKeysGoByThePageAround) {
    editor.load(QStringLiteral("line\n").repeated(40));
    editor.setPageHeight(10 * 34);
    caretAt(0);
    press(Qt::Key_PageDown);
    EXPECT_EQ(editor.textCursor().blockNumber(), 9);
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(editor.textCursor().blockNumber(), 18);
    EXPECT_TRUE(editor.textCursor().hasSelection());
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(editor.textCursor().blockNumber(), 0);
}

TEST_F(EditingKeysTest, AClickOnAHiddenMarkerPutsTheCaretBehindIt) {
    editor.load(QStringLiteral("a\n## heading"));
    clickAt({RhythmLayout::markRoom + 22, 34 + 17});
    EXPECT_EQ(shown(), QStringLiteral("a\n## |heading"));
    clickAt({2, 34 + 17});
    EXPECT_EQ(shown(), QStringLiteral("a\n## |heading"));
}

TEST_F(EditingKeysTest, MouseSelectsWordsAndStretches) {
    editor.load(QStringLiteral("- one two three"));
    const QPoint two(int(x(0, 7)), 17);
    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, two);
    EXPECT_EQ(shown(), QStringLiteral("- one |two| three"));
    clickAt({int(x(0, 2)), 17});
    clickAt({int(x(0, 9)), 17}, Qt::ShiftModifier);
    EXPECT_EQ(shown(), QStringLiteral("- |one two| three"));
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, QPoint(int(x(0, 15)), 17));
    QTest::mouseMove(editor.viewport(), QPoint(1, 17));
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, QPoint(1, 17));
    EXPECT_EQ(shown(), QStringLiteral("- |one two three|"));
}

TEST_F(EditingKeysTest, AClickOnABoxChecksItsTaskAndLeavesTheSelection) {
    load(QStringLiteral("- [ ] a\n- [x] |b|"));
    const QPoint first(RhythmLayout::markRoom + 22 + 8, 17);
    clickAt(first);
    EXPECT_EQ(shown(), QStringLiteral("- [x] a\n- [x] |b|"));
    QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(shown().count(QStringLiteral("|b|")), 1);
    clickAt(first + QPoint(0, 34));
    EXPECT_TRUE(editor.draft().endsWith(QStringLiteral("- [ ] b")));
    editor.setReadOnly(true);
    const QString before = editor.draft();
    clickAt(first);
    EXPECT_EQ(editor.draft(), before);
}

TEST_F(EditingKeysTest, AHandThatTremblesOnABoxSelectsNothing) {
    load(QStringLiteral("- [ ] a\n- [x] |b"));
    const QPoint box(RhythmLayout::markRoom + 22 + 8, 17);
    QTest::mousePress(editor.viewport(), Qt::LeftButton, {}, box);
    const QPointF moved = box + QPoint(3, 2);
    QMouseEvent move(QEvent::MouseMove, moved, editor.viewport()->mapToGlobal(moved), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(editor.viewport(), &move);
    QTest::mouseRelease(editor.viewport(), Qt::LeftButton, {}, box + QPoint(3, 2));
    EXPECT_EQ(shown(), QStringLiteral("- [x] a\n- [x] |b"));
}

TEST_F(EditingKeysTest, TheMouseIsAnArrowOverABox) {
    editor.load(QStringLiteral("- [ ] a"));
    QTest::mouseMove(editor.viewport(), QPoint(RhythmLayout::markRoom + 22 + 8, 17));
    EXPECT_EQ(editor.viewport()->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(editor.viewport(), QPoint(200, 17));
    EXPECT_EQ(editor.viewport()->cursor().shape(), Qt::IBeamCursor);
}

TEST_F(EditingKeysTest, AnInertViewGetsNoClick) {
    QWidget beneath;
    beneath.resize(660, 200);
    GrowingTextView inert(&beneath);
    inert.load(QStringLiteral("- [ ] a"));
    inert.setGeometry(beneath.rect());
    inert.setInert(true);
    beneath.show();
    EXPECT_EQ(beneath.childAt(100, 17), nullptr);
    EXPECT_FALSE(inert.canFormat());
    EXPECT_EQ(inert.focusPolicy(), Qt::NoFocus);
}

TEST_F(EditingKeysTest, AnAddressPastedOverWordsBecomesALink) {
    load(QStringLiteral("see |here| now"));
    paste(QStringLiteral("https://example.org/a"));
    EXPECT_EQ(editor.draft(), QStringLiteral("see [here](https://example.org/a) now"));
    // Over several lines it is plain text.
    load(QStringLiteral("|a\nb|"));
    paste(QStringLiteral("https://example.org/a"));
    EXPECT_EQ(editor.draft(), QStringLiteral("https://example.org/a"));
}

TEST_F(EditingKeysTest, APasteIsUndoneByItself) {
    load(QStringLiteral("|"));
    keys("ab");
    paste(QStringLiteral("cd"));
    keys("ef");
    EXPECT_EQ(undoAll(), (QStringList{QStringLiteral("abcd"), QStringLiteral("ab"), QString()}));
}

TEST_F(EditingKeysTest, CopyGivesTheMarkdownWithItsMarkers) {
    load(QStringLiteral("|- **a**\n- [x] b|"));
    editor.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("- **a**\n- [x] b"));
}

TEST_F(EditingKeysTest, CommandsRunByName) {
    load(QStringLiteral("a |word| b"));
    editor.command(u"bold");
    EXPECT_EQ(editor.draft(), QStringLiteral("a **word** b"));
    for (const FormatRow& row : formatTable()) {
        EXPECT_EQ(formatCommand(QString::fromLatin1(row.name)), row.command);
    }
    load(QStringLiteral("a|"));
    const QList<QPair<QString, QString>> blocks = {
        {QStringLiteral("bullet"), QStringLiteral("- a")},
        {QStringLiteral("indent"), QStringLiteral("  - a")},
        {QStringLiteral("outdent"), QStringLiteral("- a")},
        {QStringLiteral("task"), QStringLiteral("- [ ] a")},
        {QStringLiteral("check"), QStringLiteral("- [x] a")},
        {QStringLiteral("ordered"), QStringLiteral("1. a")},
        {QStringLiteral("quote"), QStringLiteral("> a")},
        {QStringLiteral("body"), QStringLiteral("a")},
    };
    for (const auto& [name, expected] : blocks) {
        editor.command(name);
        EXPECT_EQ(editor.draft(), expected) << name.toStdString();
    }
    editor.command(u"nonsense");
    EXPECT_EQ(editor.draft(), QStringLiteral("a"));
}

TEST_F(EditingKeysTest, BoldOnAnEmptyLineWaitsForItsWords) {
    load(QStringLiteral("|"));
    editor.command(u"bold");
    EXPECT_EQ(shown(), QStringLiteral("**|**")) << "though four stars alone are a rule";
    keys("word");
    EXPECT_EQ(shown(), QStringLiteral("**word|**"));
    load(QStringLiteral("|"));
    editor.command(u"bold");
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), QStringLiteral("|"));
}

TEST_F(EditingKeysTest, NoCommandRunsWhereTheTextCannotBeEdited) {
    load(QStringLiteral("- a|"));
    editor.setReadOnly(true);
    editor.command(u"bold");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    EXPECT_EQ(editor.draft(), QStringLiteral("- a"));
    // A refused step leaves the text but takes its selection.
    editor.apply({{{{0, 3}, QStringLiteral("x"), {2, 1}}}});
    EXPECT_EQ(shown(), QStringLiteral("- |a|"));
}

TEST_F(EditingKeysTest, TheContextMenuHasTheCommandsWithTheirMarks) {
    load(QStringLiteral("- [ ] a|"));
    const std::unique_ptr<QMenu> menu(editor.makeContextMenu());
    QMenu* format = menu->actions().last()->menu();
    ASSERT_NE(format, nullptr);
    QStringList checked;
    int count = 0;
    int checkable = 0;
    for (const QAction* item : format->actions()) {
        if (item->isSeparator()) continue;
        ++count;
        EXPECT_TRUE(item->isEnabled());
        if (item->isChecked()) checked.append(item->text());
        if (item->isCheckable()) ++checkable;
    }
    EXPECT_EQ(count, 16);
    EXPECT_EQ(checkable, 8) << "the kinds of a line, whichever this one is of";
    EXPECT_EQ(checked, QStringList{QStringLiteral("To-Do")});
    format->actions().first()->trigger();
    EXPECT_EQ(shown(), QStringLiteral("- [ ] a**|**"));
    editor.setReadOnly(true);
    const std::unique_ptr<QMenu> readOnly(editor.makeContextMenu());
    EXPECT_FALSE(readOnly->actions().last()->menu()->actions().first()->isEnabled());
}

TEST_F(EditingKeysTest, TypedTextTakesTheRoadOfKeys) {
    load(QStringLiteral("|"));
    editor.type(QStringLiteral("＃＃ 章\n-\u3000a\nb\n\n1. c\nd"));
    EXPECT_EQ(editor.draft(), QStringLiteral("## 章\n- a\n- b\n1. c\n2. d"));
}

TEST_F(EditingKeysTest, FilesAreTheParentsAndTextIsTheViews) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.md"))});
    QDragEnterEvent withFiles({50, 17}, Qt::CopyAction, &files, Qt::LeftButton, {});
    withFiles.ignore();
    QCoreApplication::sendEvent(editor.viewport(), &withFiles);
    EXPECT_FALSE(withFiles.isAccepted());
    QMimeData text;
    text.setText(QStringLiteral("words"));
    QDragEnterEvent withText({50, 17}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(editor.viewport(), &withText);
    EXPECT_TRUE(withText.isAccepted());
    QDropEvent drop({50, 17}, Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(editor.viewport(), &drop);
    EXPECT_EQ(editor.draft(), QStringLiteral("words"));
}

TEST_F(EditingKeysTest, TheCaretIsAsTallAsItsFont) {
    load(QStringLiteral("# head|\nbody"));
    const int large = editor.caretRect().height();
    press(Qt::Key_Down);
    const int small = editor.caretRect().height();
    EXPECT_GT(large, small);
    EXPECT_LE(small, 28);
    EXPECT_EQ(editor.caretRect().width(), 2);
    EXPECT_NEAR(editor.caretRect().center().y(), 34 + 17, 1);
}

TEST_F(EditingKeysTest, AssistiveTechnologyReadsTextCaretAndPlaces) {
    load(QStringLiteral("- [x] done\nnext|"));
    editor.setAccessibleName(QStringLiteral("Entry"));
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&editor);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->role(), QAccessible::EditableText);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Entry"));
    QAccessibleTextInterface* text = view->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), QStringLiteral("- [x] done\nnext"));
    EXPECT_EQ(text->cursorPosition(), 15);
    const int row = text->characterRect(12).center().y() - text->characterRect(8).center().y();
    EXPECT_EQ(row, 34);
    text->setCursorPosition(2);
    EXPECT_EQ(editor.textCursor().position(), 6);
}

// Each change of a description is an event of its own, which Qt sends for its widgets.
TEST_F(EditingKeysTest, AssistiveTechnologyReadsTheStateOfAToDo) {
    const auto spoken = [this] {
        return QAccessible::queryAccessibleInterface(&editor)->text(QAccessible::Description);
    };
    const QString done = QStringLiteral("To-do, done");
    const QString open = QStringLiteral("To-do, not done");
    load(QStringLiteral("- [ ] one\n- [x] two\nplain|"));
    EXPECT_EQ(spoken(), QString());
    press(Qt::Key_Up);
    EXPECT_EQ(spoken(), done);
    editor.command(u"check");
    EXPECT_EQ(spoken(), open);
    editor.undo();
    EXPECT_EQ(spoken(), done);
    // Another one, which the caret isn't at: checked, then open again.
    const QPoint box(RhythmLayout::markRoom + RhythmLayout::gutter + 8, 17);
    press(Qt::Key_Down);
    EXPECT_EQ(spoken(), QString());
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(spoken(), done);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(spoken(), open);
    press(Qt::Key_Left);
    EXPECT_EQ(spoken(), QString());
    // Code that looks like one has no box.
    load(QStringLiteral("```\n- [ ] one|"));
    EXPECT_EQ(spoken(), QString());
}

}  // namespace
}  // namespace velmar
