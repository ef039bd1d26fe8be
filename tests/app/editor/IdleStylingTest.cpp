// A long text whose look changes as a whole: what is shown is right at once, the rest soon after,
// and nobody can see the difference.
#include <QtGui/QBackingStore>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"
#include "tests/app/editor/PaintingFixture.h"

namespace velmar {
namespace {

QString longText() {
    QString text = QStringLiteral("``\n");
    for (int number = 0; number < 120; ++number) {
        text += QStringLiteral("%1 **words** that need more room in another font, 日記も。 ")
                    .arg(number)
                    .repeated(1 + number % 9);
        text += number % 7 == 0 ? QStringLiteral("\n# %1\n\n").arg(number) : QStringLiteral("\n");
    }
    return text + QStringLiteral("- last");
}

class IdleStylingTest : public EditorFixture {
protected:
    IdleStylingTest() { load(longText()); }

    void load(const QString& text) {
        editor.load(text);
        caretAt(2);
        QCoreApplication::processEvents();
    }

    // Whether the block looks as the whole text asks for.
    [[nodiscard]] static bool isRight(const GrowingTextView& view, const QTextBlock& block) {
        auto fence = diary::MarkdownHighlighting::Fence::Closed;
        for (const QString& ahead : view.draft().first(block.position()).split(u'\n')) {
            fence = diary::MarkdownHighlighting::fenceBehind(ahead, fence);
        }
        const auto wanted = diary::MarkdownHighlighting::paragraph(block.text(), fence, {16.5});
        return BlockStyle::of(block)->styling == wanted &&
               std::size_t(block.layout()->formats().size()) == wanted.runs.size();
    }
    void expectAllRight() const {
        for (QTextBlock each = block(0); each.isValid(); each = each.next()) {
            ASSERT_TRUE(isRight(editor, each)) << each.text().toStdString();
            ASSERT_EQ(each.lineCount(), each.layout()->lineCount());
            ASSERT_EQ(each.layout()->position().y(), each.firstLineNumber() * kLine);
        }
    }
    // The height that a view has which never knew another text.
    [[nodiscard]] int freshHeight() const {
        GrowingTextView fresh;
        fresh.restyle(fonts::serif(16.5), 16.5, theme::color(Token::Ink));
        fresh.resize(editor.size());
        fresh.show();
        fresh.load(editor.draft());
        return fresh.textHeight();
    }
    [[nodiscard]] QTextBlock last() const { return editor.document()->lastBlock(); }
};

TEST_F(IdleStylingTest, WhatIsShownIsRightAtOnceAndTheRestSoon) {
    const int before = editor.textHeight();
    keys("`");
    const auto* layout = editor.document()->documentLayout();
    int shown = 0;
    for (QTextBlock each = block(0); layout->blockBoundingRect(each).top() < editor.height();
         each = each.next()) {
        EXPECT_TRUE(isRight(editor, each)) << ++shown;
    }
    EXPECT_FALSE(isRight(editor, last()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return isRight(editor, last()); }));
    expectAllRight();
    EXPECT_NE(editor.textHeight(), before);
    EXPECT_EQ(editor.textHeight(), freshHeight());
    press(Qt::Key_Backspace);
    editor.settleLook();
    expectAllRight();
    EXPECT_EQ(editor.textHeight(), before);
}

TEST_F(IdleStylingTest, TheFirstPaintIsTheLast) {
    const auto screen = [this] {
        return static_cast<QImage*>(editor.backingStore()->paintDevice())->copy();
    };
    for (const Qt::Key key : {Qt::Key_QuoteLeft, Qt::Key_Backspace}) {
        const QImage before = screen();
        QTest::keyClick(&editor, key);
        QCoreApplication::sendPostedEvents();
        const QImage first = screen();
        EXPECT_NE(first, before);
        EXPECT_FALSE(isRight(editor, last()));
        editor.settleLook();
        editor.viewport()->repaint();
        EXPECT_EQ(screen(), first);
        QCoreApplication::processEvents();
    }
}

TEST_F(IdleStylingTest, WhoScrollsAtOnceSeesWhatIsRight) {
    QScrollArea page;
    auto* view = new GrowingTextView;
    view->restyle(fonts::serif(16.5), 16.5, theme::color(Token::Ink));
    page.resize(700, 300);
    page.setWidget(view);
    int heights = 0;
    view->onHeightChanged = [&] {
        ++heights;
        view->resize(660, view->textHeight());
    };
    view->resize(660, 300);
    page.show();
    view->load(longText());
    view->selectRange({2, 0});
    QCoreApplication::processEvents();
    const int before = view->height();
    QTest::keyClick(view, Qt::Key_QuoteLeft);
    const QTextBlock end = view->document()->lastBlock();
    EXPECT_FALSE(isRight(*view, end));
    heights = 0;
    page.verticalScrollBar()->setValue(page.verticalScrollBar()->maximum());
    view->viewport()->repaint();
    EXPECT_TRUE(isRight(*view, end));
    // The page hears of it when the paint is over.
    EXPECT_EQ(heights, 0);
    QCoreApplication::processEvents();
    EXPECT_GT(heights, 0);
    EXPECT_EQ(view->height(), view->textHeight());
    EXPECT_NE(view->height(), before);
}

TEST_F(IdleStylingTest, WhereTheCaretGoesIsRight) {
    keys("`");
    press(Qt::Key_End, Qt::ControlModifier);
    expectAllRight();
    // The marker of the last line is text inside of the fence, and hidden outside of it.
    press(Qt::Key_Home);
    EXPECT_EQ(editor.textCursor().positionInBlock(), 0);
    caretAt(3);
    press(Qt::Key_Backspace);
    editor.selectRange({editor.draft().size() - 6, 0});
    EXPECT_EQ(editor.textCursor().positionInBlock(), 2);
}

TEST_F(IdleStylingTest, AFenceThatGoesAtOnceLeavesNothingToDo) {
    const auto lines = [this] { return last().layout()->lineAt(0).naturalTextRect(); };
    const QRectF before = lines();
    keys("`");
    press(Qt::Key_Backspace);
    expectAllRight();
    EXPECT_EQ(lines(), before);
    keys("`");
    EXPECT_TRUE(QTest::qWaitFor([this] { return isRight(editor, last()); }));
}

TEST_F(IdleStylingTest, EditsMeanwhileLoseNothing) {
    keys("`");
    // Text ahead of what isn't settled yet goes, so that it comes nearer.
    select(3, 400);
    press(Qt::Key_Delete);
    editor.settleLook();
    expectAllRight();
    keys("`");
    // Another fence far below, put in without the caret.
    QTextCursor far(last().previous());
    far.insertText(QStringLiteral("```\n"));
    editor.settleLook();
    expectAllRight();
    EXPECT_EQ(editor.textHeight(), freshHeight());
}

TEST_F(IdleStylingTest, NothingIsLeftToDoWhileSomethingIsComposed) {
    keys("`");
    compose(QStringLiteral("に"));
    // The caret's own paragraph keeps the look that it had.
    for (QTextBlock each = block(1); each.isValid(); each = each.next()) {
        ASSERT_TRUE(isRight(editor, each));
    }
    compose(QString());
    expectAllRight();
}

TEST_F(IdleStylingTest, UndoKnowsNothingOfIt) {
    keys("`");
    const int steps = editor.document()->availableUndoSteps();
    editor.settleLook();
    QCoreApplication::processEvents();
    EXPECT_EQ(editor.document()->availableUndoSteps(), steps);
    EXPECT_EQ(drafts.size(), 1);
    editor.undo();
    EXPECT_EQ(editor.draft(), longText());
    editor.settleLook();
    expectAllRight();
}

TEST_F(IdleStylingTest, AMatchIsWhereItWillBe) {
    keys("`");
    const qsizetype at = editor.draft().lastIndexOf(QStringLiteral("last"));
    editor.setMatches({{at, 4}}, 0);
    const QRect rect = editor.matchRect(0);
    editor.settleLook();
    EXPECT_EQ(editor.matchRect(0), rect);
    EXPECT_EQ(rect.center().y() / kLine, editor.document()->lineCount() - 1);
}

}  // namespace
}  // namespace velmar
