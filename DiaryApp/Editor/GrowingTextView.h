// The text field of the page: live Markdown on a fixed rhythm, as high as its text. It doesn't
// scroll; the page does. A thin layer between keys and diary::MarkdownEditing: it decides which
// command to ask, applies what comes back, and keeps undo and caret right. The text that counts is
// draft(), never the document's. Main thread only.
#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QTextEdit>
#include <functional>

#include "DiaryApp/Appearance/CaretBlink.h"
#include "DiaryApp/Editor/DraftText.h"
#include "DiaryApp/Editor/FormatCommand.h"
#include "DiaryApp/Editor/IdleStyling.h"
#include "DiaryApp/Editor/MarkdownHighlighter.h"
#include "DiaryApp/Editor/MatchMarks.h"
#include "DiaryApp/Editor/RhythmLayout.h"

namespace velmar {

class GrowingTextView : public QTextEdit {
    Q_OBJECT

public:
    explicit GrowingTextView(QWidget* parent = nullptr);

    // Called after each change of the draft by the user, with the new draft. Text in composition
    // isn't part of it.
    std::function<void(const QString&)> onTextChanged;
    // Called when the caret may have left the visible part of the page.
    std::function<void()> onCaretMoved;
    // Called when the height has changed.
    std::function<void()> onHeightChanged;

    // Shows another draft: the caret goes to its end and the undo history is cleared. No callback.
    void load(const QString& draft);
    // Shows another state of the same text: the caret, the selection and marks stay at their words,
    // and the undo history is cleared. No callback.
    void reload(const QString& draft);
    // Makes it another text as the user would, in one step that can be undone, with the caret
    // behind what came in. Nothing while it can't be edited.
    void edit(const QString& draft);
    // Whether an input method holds text here that isn't in the draft yet.
    [[nodiscard]] bool isComposing() const;
    [[nodiscard]] const QString& draft() const { return m_draft.text(); }

    void setPlaceholder(const QString& text);
    // The body's font, in pixels, the size as it is set, and the colour of the text. Also after a
    // change of palette. Undo and caret stay.
    void restyle(const QFont& body, double fontSize, const QColor& color);

    // Whether clicks go through to what lies beneath.
    [[nodiscard]] bool isInert() const { return m_isInert; }
    void setInert(bool inert);

    // The height of the text at the present width and 4 more, at least 76 where it can be edited.
    [[nodiscard]] int textHeight() const;
    [[nodiscard]] int lineHeight() const { return m_style.lineHeight(); }
    // Where the caret is, in the field's coordinates; as tall as its font.
    [[nodiscard]] QRect caretRect() const;
    // After a fence has opened or closed ahead of a long text, the paragraphs that aren't shown get
    // their look when the program is idle, or now.
    void settleLook() { m_styling.settleAll(); }
    // How far Page Up and Page Down go: the height of the page's visible part.
    void setPageHeight(int height) { m_pageHeight = height; }

    // Whether commands run: the view can be edited, none is running, and nothing is composed.
    [[nodiscard]] bool canFormat() const;
    void perform(FormatCommand command);
    // The command of this name; an unknown name does nothing.
    void command(QStringView name);
    [[nodiscard]] diary::MarkdownContext context() const;
    // The selection, whichever end the caret is at.
    [[nodiscard]] diary::TextRange selection() const;

    // Marks what a search has found, in UTF-16 units of the draft and in the order of the text;
    // `current` is the index of the match that is stepped to, or -1. Marks stay at their words
    // while these are edited, and another text that is loaded has none.
    void setMatches(std::vector<diary::TextRange> ranges, int current);
    // What the mark of this match covers, in the field's coordinates; empty if there is no such
    // one.
    [[nodiscard]] QRect matchRect(int index) const;
    // Selects a range of the draft, or what of it lies in the text, with the caret at its end.
    void selectRange(diary::TextRange range);

    // Types a text as keys would, character by character.
    void type(const QString& text);
    // Each step can be undone alone.
    void apply(const diary::MarkdownChange& change);

    // What is being composed is dropped first: Qt would leave it behind in its paragraph.
    void undo();
    void redo();

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    // The menu of the right mouse button; the caller owns it.
    [[nodiscard]] QMenu* makeContextMenu();

    // The room at the left of the text's column, and at both sides of the text within it.
    static constexpr int markRoom = RhythmLayout::markRoom;
    static constexpr int gutter = RhythmLayout::gutter;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    using Change = std::optional<diary::MarkdownChange>;

    void connectDocument();
    void showDraft(const QString& draft);
    void takeChange(int position, int removed, int added);
    void takeText(int position, int removed, int added);
    void announce();
    void announceHeight();
    void settleShown();
    [[nodiscard]] int shownEnd() const;

    bool applyIfAny(const Change& change);
    [[nodiscard]] diary::TextRange clamped(diary::TextRange range) const;
    void breakUndo();
    void dropComposition();
    // Takes what is composed into the text, as the input method would: the caret is about to leave
    // its paragraph, where it would stay behind and be seen without being there.
    void confirmComposition();
    void settleCaret();
    [[nodiscard]] std::optional<int> caretOutsideHiddenMarker(const QTextCursor& caret) const;

    bool editingKey(const QKeyEvent& event);
    void pressReturn();
    bool pressTab();
    bool pressBacktab();
    bool typed(const QString& text);
    void insertTyped(const QString& text);
    void breakUndoAtSentence(QStringView text);
    void movePage(QTextCursor::MoveOperation direction, bool extends);

    [[nodiscard]] QString spokenState(int position) const;
    void describeLine();
    void drawCheck(int position);
    [[nodiscard]] bool isAnimated() const;
    [[nodiscard]] std::optional<int> taskAt(const QPoint& point) const;
    bool toggleTaskAt(const QMouseEvent& event);
    void repaintCaret();
    void paintCaret(QPainter& painter) const;
    void paintPlaceholder(QPainter& painter) const;

    DraftText m_draft;
    RhythmStyle m_style;
    RhythmLayout* m_layout;
    MarkdownHighlighter m_highlighter;
    // Looking at a place brings it up to date.
    mutable IdleStyling m_styling;
    CaretBlink m_blink;
    QVariantAnimation m_check;
    MatchMarks m_marks;
    // Repeats the last move of a drag while the mouse is held outside of the visible page.
    QBasicTimer m_dragTimer;
    QString m_placeholder;
    int m_pageHeight = 0;
    // The row of the caret as it was last asked to be painted.
    QRect m_caretRow;
    // The last settled selection; nothing where the caret may not be taken to have moved by one.
    std::optional<diary::TextRange> m_lastSelection;
    bool m_isInert = false;
    // The mouse was pressed on a box and is still down.
    bool m_isBoxPressed = false;
    bool m_isApplying = false;
    bool m_isLoading = false;
    bool m_isSettling = false;
    bool m_isPainting = false;
    bool m_hasChanged = false;
    // Set while something is composed: the first edit behind it restyles everything.
    bool m_isStale = false;
};

}  // namespace velmar
