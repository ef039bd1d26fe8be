#include <random>

#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include "tests/app/editor/EditorFixture.h"

namespace velmar {
namespace {

using GrowingTextViewTest = EditorFixture;

const QString& hostile() {
    static const QString text = QStringLiteral(
        "a\r\nb\rc\u2029d\u2028e\u00A0f\uFDD0g\uFDD1h\uFFFCi\u200Bj\tk  \n\n\U0001F600 "
        "\u0301x\uFEFF\n");
    return text;
}

TEST_F(GrowingTextViewTest, LoadsWithoutACallbackAndPutsTheCaretAtTheEnd) {
    editor.load(QStringLiteral("one\ntwo"));
    EXPECT_TRUE(drafts.isEmpty());
    EXPECT_EQ(editor.textCursor().position(), 7);
    EXPECT_FALSE(editor.document()->isUndoAvailable());
}

TEST_F(GrowingTextViewTest, AnotherStateOfTheTextLeavesTheCaretAtItsWord) {
    const struct {
        const char* before;
        const char* after;
        const char* shown;
    } rows[] = {
        {"one| two", "zero one two", "zero one| two"},
        {"one two|", "one two three", "one two| three"},
        {"one |two", "one", "one|"},
        {"one |two| three", "zero, one two three", "zero, one |two| three"},
        {"|", "theirs", "theirs|"},
        {"mine|", "", "|"},
    };
    for (const auto& row : rows) {
        load(QString::fromLatin1(row.before));
        editor.reload(QString::fromLatin1(row.after));
        EXPECT_EQ(shown().toStdString(), row.shown);
    }
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(GrowingTextViewTest, UndoNeverTakesBackWhatAnotherMachineWrote) {
    load(QStringLiteral("one|\ntwo"));
    keys(" more");
    editor.reload(QStringLiteral("one more\ntwo\nfrom elsewhere"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.draft(), QStringLiteral("one more\ntwo\nfrom elsewhere"));
    keys("!");
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), QStringLiteral("one more|\ntwo\nfrom elsewhere"));
}

TEST_F(GrowingTextViewTest, KeepsEveryCharacterThatWasNotTyped) {
    editor.load(hostile());
    EXPECT_EQ(editor.draft(), hostile());
    QTest::keyClicks(&editor, QStringLiteral("end"));
    EXPECT_EQ(editor.draft(), hostile() + QStringLiteral("end"));
    caretAt(0);
    QTest::keyClicks(&editor, QStringLiteral("start"));
    EXPECT_EQ(editor.draft(), QStringLiteral("start") + hostile() + QStringLiteral("end"));
}

TEST_F(GrowingTextViewTest, UndoAndRedoOfALargeDeletionGiveBackTheExactText) {
    editor.load(hostile());
    editor.selectAll();
    QTest::keyClick(&editor, Qt::Key_Delete);
    EXPECT_TRUE(editor.draft().isEmpty());
    editor.undo();
    EXPECT_EQ(editor.draft(), hostile());
    editor.redo();
    EXPECT_TRUE(editor.draft().isEmpty());
}

TEST_F(GrowingTextViewTest, CopiesTheExactText) {
    editor.load(hostile());
    editor.selectAll();
    editor.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), hostile());
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_FALSE(data->hasHtml());
}

TEST_F(GrowingTextViewTest, CutTakesTheTextAway) {
    editor.load(QStringLiteral("one two\r\nthree"));
    select(4, 9);
    editor.cut();
    EXPECT_EQ(editor.draft(), QStringLiteral("one three"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("two\r\n"));
    ASSERT_FALSE(drafts.isEmpty());
    EXPECT_EQ(drafts.last(), QStringLiteral("one three"));
}

TEST_F(GrowingTextViewTest, PastesPlainTextWithPlainLineEnds) {
    auto* data = new QMimeData;
    data->setHtml(QStringLiteral("<b>x</b>"));
    data->setText(QStringLiteral("x\r\ny\u00A0z\rw"));
    QGuiApplication::clipboard()->setMimeData(data);
    editor.load(QStringLiteral("ab"));
    caretAt(1);
    editor.paste();
    EXPECT_EQ(editor.draft(), QStringLiteral("ax\ny\u00A0z\nwb"));
    editor.undo();
    EXPECT_EQ(editor.draft(), QStringLiteral("ab"));
}

TEST_F(GrowingTextViewTest, ReturnBreaksTheLineWithShiftToo) {
    QTest::keyClicks(&editor, QStringLiteral("a"));
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClicks(&editor, QStringLiteral("b"));
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&editor, QStringLiteral("c"));
    EXPECT_EQ(editor.draft(), QStringLiteral("a\nb\nc"));
}

TEST_F(GrowingTextViewTest, TextInCompositionIsNoPartOfTheDraft) {
    editor.load(QStringLiteral("ab"));
    caretAt(1);
    compose(QStringLiteral("ni"));
    compose(QStringLiteral("ni hao"));
    EXPECT_EQ(editor.draft(), QStringLiteral("ab"));
    EXPECT_TRUE(drafts.isEmpty());
    commit(QStringLiteral("你好"));
    EXPECT_EQ(editor.draft(), QStringLiteral("a你好b"));
    EXPECT_EQ(drafts, QStringList{QStringLiteral("a你好b")});
}

TEST_F(GrowingTextViewTest, ACancelledCompositionChangesNothing) {
    editor.load(QStringLiteral("a\r\nb"));
    caretAt(2);
    compose(QStringLiteral("かな"));
    compose(QString());
    EXPECT_EQ(editor.draft(), QStringLiteral("a\r\nb"));
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(GrowingTextViewTest, LoadingDropsAComposition) {
    editor.load(QStringLiteral("first"));
    compose(QStringLiteral("xyz"));
    editor.load(QStringLiteral("second"));
    EXPECT_EQ(editor.draft(), QStringLiteral("second"));
    EXPECT_TRUE(drafts.isEmpty());
}

TEST_F(GrowingTextViewTest, ReadOnlyTakesNoInput) {
    editor.load(QStringLiteral("text"));
    editor.setReadOnly(true);
    QTest::keyClicks(&editor, QStringLiteral("x"));
    QTest::keyClick(&editor, Qt::Key_Return);
    QGuiApplication::clipboard()->setText(QStringLiteral("y"));
    editor.paste();
    EXPECT_EQ(editor.draft(), QStringLiteral("text"));
}

TEST_F(GrowingTextViewTest, GrowsWithItsText) {
    EXPECT_EQ(editor.textHeight(), 76);
    editor.load(QStringLiteral("1\n2\n3\n4"));
    EXPECT_EQ(editor.textHeight(), 4 * 34 + 4);
}

// Random work on the document against a plain string that gets the same edits.
TEST_F(GrowingTextViewTest, TheCaretStandsInItsRowWhateverTheLettersThere) {
    editor.load(QString());
    const int first = editor.caretRect().center().y();
    for (const QString& text : {QStringLiteral("latin"), QStringLiteral("日記を書く"),
                                QStringLiteral("e\u0301\U0001F600")}) {
        editor.load(text);
        EXPECT_EQ(editor.caretRect().center().y(), first) << text.toStdString();
        editor.load(text + QStringLiteral("\n\n") + text);
        EXPECT_EQ(editor.caretRect().center().y(), first + 2 * 34);
    }
    editor.load(QString(200, u'w'));
    caretAt(200);
    EXPECT_EQ((editor.caretRect().center().y() - first) % 34, 0);
    EXPECT_GT(editor.caretRect().center().y(), first);
}

TEST_F(GrowingTextViewTest, FollowsTenThousandRandomEdits) {
    std::mt19937 random(20261121);
    const auto pick = [&](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    const QStringList pieces = {QStringLiteral("a"),     QStringLiteral("wort "),
                                QStringLiteral("\n"),    QStringLiteral("好"),
                                QStringLiteral("x\ny"),  QStringLiteral("\U0001F600"),
                                QStringLiteral("\u00A0")};
    QString model = hostile();
    editor.load(model);
    for (int step = 0; step < 10'000; ++step) {
        const int from = pick(static_cast<int>(model.size()) + 1);
        const int length = pick(4) == 0 ? pick(6) : 0;
        const int to = qMin(from + length, static_cast<int>(model.size()));
        const QString piece = pick(3) == 0 ? QString() : pieces[pick(int(pieces.size()))];
        QTextCursor cursor(editor.document());
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        // A caret doesn't stand inside a pair of surrogates, so the document may have taken less.
        const int start = cursor.selectionStart();
        const int end = cursor.selectionEnd();
        cursor.insertText(piece);
        model.replace(start, end - start, piece);
        ASSERT_EQ(editor.draft(), model) << "step " << step;
        if (model.size() > 400) {
            model = hostile();
            editor.load(model);
        }
    }
    EXPECT_FALSE(drafts.isEmpty());
}

TEST_F(GrowingTextViewTest, UndoneToTheStartTheDraftIsTheLoadedOne) {
    std::mt19937 random(7);
    editor.load(hostile());
    for (int step = 0; step < 300; ++step) {
        const int size = editor.document()->characterCount() - 1;
        caretAt(static_cast<int>(random() % static_cast<unsigned>(size + 1)));
        if (random() % 3 == 0) {
            QTest::keyClick(&editor, Qt::Key_Backspace);
        } else {
            QTest::keyClick(&editor, static_cast<char>('a' + random() % 26));
        }
        ASSERT_EQ(editor.draft().size(), editor.document()->characterCount() - 1);
    }
    EXPECT_NE(editor.draft(), hostile());
    while (editor.document()->isUndoAvailable()) editor.undo();
    EXPECT_EQ(editor.draft(), hostile());
}

// The field is as high as its text; the page around it shows a part of it.
TEST_F(GrowingTextViewTest, ThePageScrollsWhileASelectionIsDraggedBeyondIt) {
    QScrollArea page;
    auto* view = new GrowingTextView;
    view->restyle(fonts::serif(16.5), 16.5, theme::color(Token::Ink));
    page.resize(700, 200);
    page.setWidget(view);
    view->resize(660, 200);
    view->load(QStringLiteral("line\n").repeated(60));
    view->resize(660, view->textHeight());
    view->onCaretMoved = [&] { page.ensureVisible(0, view->caretRect().center().y(), 0, 34); };
    page.show();
    page.verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    QScrollBar* bar = page.verticalScrollBar();
    QWidget* surface = view->viewport();
    const auto at = [&](int y) { return surface->mapFromGlobal(page.mapToGlobal(QPoint(100, y))); };
    const auto drag = [&](int y) {
        QCursor::setPos(page.mapToGlobal(QPoint(100, y)));
        QMouseEvent move(QEvent::MouseMove, at(y), page.mapToGlobal(QPoint(100, y)), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(surface, &move);
    };
    QTest::mousePress(surface, Qt::LeftButton, {}, at(60));
    drag(120);
    EXPECT_EQ(bar->value(), 0);
    // The mouse rests below the page: the selection goes on growing, and the page with it.
    drag(260);
    const int first = bar->value();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->value() > first + 6 * 34; }));
    const qsizetype grown = view->selection().length;
    EXPECT_GT(grown, 8 * 5);
    // And upwards again.
    drag(-80);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->value() == 0; }));
    EXPECT_LT(view->selection().length, grown);
    drag(260);
    QTest::mouseRelease(surface, Qt::LeftButton, {}, at(260));
    const int last = bar->value();
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar->value() != last; }, 150));
}

}  // namespace
}  // namespace velmar
