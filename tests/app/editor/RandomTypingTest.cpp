// A long evening at random: keys, commands, the mouse, undo and input methods. The draft, the
// document and what is shown must agree at every look, and undo must lead back to the start.
#include <random>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"
#include "tests/app/editor/EditorFixture.h"

namespace velmar {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kSteps = 8'000;
#elif defined(NDEBUG)
constexpr int kSteps = 100'000;
#else
constexpr int kSteps = 25'000;
#endif

const QString& start() {
    static const QString text = QStringLiteral(
        "# 日記\n- one\n- [ ] two\n1. three\n2. four\n> five\n---\n```\ncode\n```\n**a** "
        "*b*\r\nend");
    return text;
}

class RandomTypingTest : public EditorFixture {
protected:
    int pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    void step() {
        switch (pick(14)) {
            case 0:
                return command();
            case 1:
                return input();
            case 2:
                return edit();
            case 3:
                return click();
            case 4:
            case 5:
                return move();
            case 6:
                return caretAt(pick(editor.document()->characterCount()));
            default:
                return typeOne();
        }
    }

    void typeOne() {
        static const QString letters = QStringLiteral("ab  **``~~#>-12.[x]()_|\"好。＃・　—\n\t");
        const QChar letter = letters[pick(int(letters.size()))];
        if (letter == u'\n') return press(Qt::Key_Return);
        if (letter == u'\t') return press(pick(2) != 0 ? Qt::Key_Tab : Qt::Key_Backtab);
        if (letter.unicode() < 0x80) return QTest::keyClick(&editor, letter.toLatin1());
        commit(letter);
    }

    void command() {
        const auto table = formatTable();
        editor.perform(table[std::size_t(pick(int(table.size())))].command);
    }

    void input() {
        static const QStringList pieces = {QStringLiteral("に"), QStringLiteral("にほ"),
                                           QStringLiteral("ni hao"), QString()};
        compose(pieces[pick(3)], pick(4) == 0 ? QStringLiteral("文") : QString());
        if (pick(3) == 0) compose(pieces[pick(4)]);
        if (pick(5) == 0) editor.undo();
        pick(2) == 0 ? compose(QString()) : commit(QStringLiteral("日本"));
    }

    void edit() {
        switch (pick(6)) {
            case 0:
                return editor.cut();
            case 1:
                return editor.paste();
            case 2:
                return press(Qt::Key_Delete);
            case 3:
                return editor.redo();
            case 4:
                return editor.undo();
            default:
                return press(Qt::Key_Backspace);
        }
    }

    void click() {
        const QPoint point(pick(editor.width()), pick(editor.textHeight()));
        if (pick(3) == 0) return QTest::mouseDClick(editor.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseClick(editor.viewport(), Qt::LeftButton,
                          pick(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier, point);
    }

    void move() {
        static constexpr std::array keys = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,
                                            Qt::Key_Down, Qt::Key_Home,   Qt::Key_End,
                                            Qt::Key_Left, Qt::Key_PageUp, Qt::Key_PageDown};
        press(keys[std::size_t(pick(int(keys.size())))],
              pick(5) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
    }

    // The document's text with what stands in for folded characters.
    [[nodiscard]] QString documentText() const {
        QString text;
        for (QTextBlock each = block(0); each.isValid(); each = each.next()) {
            if (each.blockNumber() > 0) text += u'\n';
            text += each.text();
        }
        return text;
    }

    // Whether text, looks, lines and positions are those that the draft alone would give.
    void expectAgreement(int number) {
        editor.settleLook();
        const QString& draft = editor.draft();
        ASSERT_EQ(documentText().replace(QChar(u'\uFFF0'), QChar(u'\r')), draft) << number;
        const diary::MarkdownBlockMetrics metrics{16.5};
        const auto whole = diary::MarkdownHighlighting::highlight(draft, metrics);
        std::size_t next = 0;
        int rows = 0;
        for (QTextBlock each = block(0); each.isValid(); each = each.next()) {
            const BlockStyle* style = BlockStyle::of(each);
            ASSERT_NE(style, nullptr);
            const auto formats = each.layout()->formats();
            ASSERT_EQ(std::size_t(formats.size()), style->styling.runs.size()) << number;
            for (diary::MarkdownRun run : style->styling.runs) {
                run.range.location += each.position();
                ASSERT_LT(next, whole.runs.size()) << number;
                ASSERT_EQ(run, whole.runs[next++]) << number << ": " << draft.toStdString();
            }
            ASSERT_EQ(each.layout()->position().y(), rows * editor.lineHeight());
            rows += each.layout()->lineCount();
        }
        ASSERT_EQ(next, whole.runs.size()) << number;
        ASSERT_EQ(editor.document()->lineCount(), rows);
        for (const auto& run : whole.runs) {
            if (!run.attributes.isHidden) continue;
            const QTextBlock at = editor.document()->findBlock(int(run.range.location));
            const int from = int(run.range.location) - at.position();
            const int to = from + int(run.range.length);
            if (at.layout()->lineForTextPosition(from).lineNumber() !=
                at.layout()->lineForTextPosition(to).lineNumber()) {
                continue;
            }
            ASSERT_EQ(x(at.blockNumber(), from), x(at.blockNumber(), to)) << number;
        }
    }

    // Looks at it now and then, and begins anew when the text has become this long.
    void typeSteps(int count, int betweenLooks, int longest) {
        for (int number = 0; number < count; ++number) {
            step();
            if (number % betweenLooks == 0) {
                ASSERT_NO_FATAL_FAILURE(expectAgreement(number));
            }
            if (editor.draft().size() > longest) {
                editor.selectAll();
                press(Qt::Key_Backspace);
            }
        }
    }

private:
    std::mt19937 m_random{20261121};
};

TEST_F(RandomTypingTest, TextAndDisplayAgreeAndUndoLeadsBackToTheStart) {
    editor.load(start());
    editor.setPageHeight(300);
    ASSERT_NO_FATAL_FAILURE(typeSteps(kSteps, 500, 3000));
    compose(QString());
    press(Qt::Key_Home);
    press(Qt::Key_End);
    expectAgreement(kSteps);
    const QTextCursor caret = editor.textCursor();
    EXPECT_FALSE(hiddenAt(caret.block(), caret.positionInBlock()));
    while (editor.document()->isUndoAvailable()) editor.undo();
    EXPECT_EQ(editor.draft(), start());
    expectAgreement(kSteps + 1);
}

// Only two of its lines are shown, so that most of what fences change is left for later.
TEST_F(RandomTypingTest, WhatIsBelowTheScreenAgreesToo) {
    editor.resize(660, 2 * editor.lineHeight());
    editor.load(start().repeated(20));
    editor.setPageHeight(68);
    ASSERT_NO_FATAL_FAILURE(typeSteps(kSteps / 10, 50, 6000));
    compose(QString());
    while (editor.document()->isUndoAvailable()) editor.undo();
    EXPECT_EQ(editor.draft(), start().repeated(20));
    expectAgreement(kSteps);
}

}  // namespace
}  // namespace velmar
