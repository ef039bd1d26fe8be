#include "DiaryApp/Editor/GrowingTextView.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <algorithm>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace velmar {

using diary::MarkdownChange;
using diary::TextRange;

namespace {

constexpr double kDefaultSize = 16.5;
constexpr int kCheckMilliseconds = 100;

// What lies between all that both texts begin with and all that they end with. No pair of
// surrogates is cut.
DraftText::Edit editBetween(QStringView before, QStringView after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype prefix = 0;
    while (prefix < shorter && before[prefix] == after[prefix]) ++prefix;
    if (prefix > 0 && before[prefix - 1].isHighSurrogate()) --prefix;
    qsizetype suffix = 0;
    while (suffix < shorter - prefix &&
           before[before.size() - 1 - suffix] == after[after.size() - 1 - suffix]) {
        ++suffix;
    }
    if (suffix > 0 && before[before.size() - suffix].isLowSurrogate()) --suffix;
    return {prefix, before.size() - prefix - suffix, after.size() - prefix - suffix};
}

// Where a position of the old text stands in the new one: what lies in the changed part goes to the
// nearest place that is there.
qsizetype moved(qsizetype position, const DraftText::Edit& edit) {
    if (position <= edit.at) return position;
    const qsizetype end = edit.at + edit.removed;
    if (position >= end) return position + edit.added - edit.removed;
    return std::min(position, edit.at + edit.added);
}

}  // namespace

GrowingTextView::GrowingTextView(QWidget* parent)
    : QTextEdit(parent),
      m_style(fonts::serif(kDefaultSize), kDefaultSize, theme::color(Token::Ink)),
      m_layout(new RhythmLayout(document(), m_style)),
      m_highlighter(document(), m_style),
      m_styling(*document(), m_highlighter, m_draft),
      m_blink(appearance::caretFlashTime()) {
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(false);
    document()->setDocumentMargin(0);
    document()->setDefaultFont(m_style.body().font);
    document()->setDocumentLayout(m_layout);
    m_layout->setMarks(&m_marks);
    // The caret is painted here, in its own colour and height.
    setCursorWidth(0);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    m_check.setStartValue(0.0);
    m_check.setEndValue(1.0);
    m_check.setDuration(kCheckMilliseconds);
    connectDocument();
    load(QString());
}

void GrowingTextView::connectDocument() {
    const auto repaint = qOverload<>(&QWidget::update);
    connect(document(), &QTextDocument::contentsChange, this, &GrowingTextView::takeChange);
    connect(document(), &QTextDocument::contentsChanged, this, &GrowingTextView::announce);
    connect(m_layout, &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &GrowingTextView::announceHeight);
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] {
        settleCaret();
        repaintCaret();
        describeLine();
        if (onCaretMoved && !m_isLoading && !m_isApplying) onCaretMoved();
    });
    connect(this, &QTextEdit::selectionChanged, this, &GrowingTextView::settleCaret);
    // Qt repaints selections line by line, which leaves the rest of the rows as it was.
    connect(this, &QTextEdit::selectionChanged, viewport(), repaint);
    connect(&m_marks, &MatchMarks::changed, viewport(), repaint);
    connect(&m_blink, &CaretBlink::changed, this, &GrowingTextView::repaintCaret);
}

void GrowingTextView::load(const QString& draft) {
    m_marks.set({}, -1, false);
    showDraft(draft);
}

void GrowingTextView::showDraft(const QString& draft) {
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    dropComposition();
    setPlainText(m_draft.load(draft));
    moveCursor(QTextCursor::End);
    m_lastSelection = selection();
    m_hasChanged = false;
    m_isStale = false;
    viewport()->update();
}

// The undo history ends here on purpose. Another machine's change would have to lie beneath the
// user's own steps, and a document can only take it in as one more step on top of them. Then the
// first undo, which is meant for the user's last words, would take back the other machine's, and
// the next save would take them out of the file as well.
void GrowingTextView::reload(const QString& draft) {
    if (m_draft.text().isEmpty()) return load(draft);
    const DraftText::Edit edit = editBetween(m_draft.text(), draft);
    const qsizetype anchor = moved(textCursor().anchor(), edit);
    const qsizetype position = moved(textCursor().position(), edit);
    m_marks.edit(edit);
    showDraft(draft);
    QTextCursor caret = textCursor();
    caret.setPosition(static_cast<int>(anchor));
    caret.setPosition(static_cast<int>(position), QTextCursor::KeepAnchor);
    setTextCursor(caret);
}

void GrowingTextView::edit(const QString& draft) {
    if (isReadOnly()) return;
    confirmComposition();
    const DraftText::Edit edit = editBetween(m_draft.text(), draft);
    apply(MarkdownChange::replace({edit.at, edit.removed}, draft.mid(edit.at, edit.added),
                                  {edit.at + edit.added, 0}));
}

void GrowingTextView::setPlaceholder(const QString& text) {
    m_placeholder = text;
    viewport()->update();
}

void GrowingTextView::restyle(const QFont& body, double fontSize, const QColor& color) {
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    m_style = RhythmStyle(body, fontSize, color);
    m_highlighter.setStyle(m_style);
    document()->setDefaultFont(body);
    setFont(body);
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
    // What is composed keeps its look; the edit that ends it brings the new one.
    if (!isComposing()) m_highlighter.restyleAll(m_draft.text());
    document()->markContentsDirty(0, document()->characterCount());
    viewport()->update();
}

void GrowingTextView::setInert(bool inert) {
    m_isInert = inert;
    setAttribute(Qt::WA_TransparentForMouseEvents, inert);
    viewport()->setAttribute(Qt::WA_TransparentForMouseEvents, inert);
    setTextInteractionFlags(inert ? Qt::NoTextInteraction : Qt::TextEditorInteraction);
    setFocusPolicy(inert ? Qt::NoFocus : Qt::StrongFocus);
}

void GrowingTextView::takeChange(int position, int removed, int added) {
    if (m_isLoading) return m_highlighter.restyleAll(m_draft.text());
    takeText(position, removed, added);
    // A composition isn't disturbed: its paragraph keeps its look, and so do all others.
    if (isComposing()) {
        m_isStale = true;
        m_highlighter.keepLook(textCursor().block());
    } else if (std::exchange(m_isStale, false)) {
        m_highlighter.restyleAll(m_draft.text());
        viewport()->update();
    } else if (m_highlighter.restyle(m_draft.text(), position, added)) {
        // Laid out together with the edit.
        m_highlighter.settle(m_draft.text(), shownEnd());
        viewport()->update();
    }
}

// The document's texts are read only where it changed. Its last line break isn't part of the text.
void GrowingTextView::takeText(int position, int removed, int added) {
    const int end = qMin(position + added, document()->characterCount() - 1);
    QString shown;
    shown.reserve(qMax(0, end - position));
    for (QTextBlock block = document()->findBlock(position);
         block.isValid() && block.position() < end; block = block.next()) {
        const int from = qMax(0, position - block.position());
        const int length = qMin(end - block.position(), block.length() - 1) - from;
        if (length > 0) shown.append(QStringView(block.text()).sliced(from, length));
        if (block.position() + block.length() <= end) shown.append(QLatin1Char('\n'));
    }
    const auto edit = m_draft.replace(position, removed, shown);
    if (!edit) return;
    m_hasChanged = true;
    m_marks.edit(*edit);
}

void GrowingTextView::announce() {
    if (m_isLoading) return;
    settleShown();
    settleCaret();
    describeLine();
    if (m_draft.text().size() < 2) viewport()->update();  // The placeholder comes or goes.
    if (std::exchange(m_hasChanged, false) && onTextChanged) onTextChanged(m_draft.text());
}

// Where the last paragraph begins that is on the screen.
int GrowingTextView::shownEnd() const {
    return m_layout->positionAt(viewport()->visibleRegion().boundingRect().bottom());
}

void GrowingTextView::settleShown() {
    // Paragraphs that need fewer rows now bring up others from below.
    while (m_styling.settleTo(shownEnd())) continue;
    m_styling.start();
}

// The page takes another height at once, but not in the middle of a paint.
void GrowingTextView::announceHeight() {
    if (m_isPainting) {
        QMetaObject::invokeMethod(this, &GrowingTextView::announceHeight, Qt::QueuedConnection);
    } else if (onHeightChanged) {
        onHeightChanged();
    }
}

bool GrowingTextView::isComposing() const {
    const QTextLayout* layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

bool GrowingTextView::canFormat() const {
    return !isReadOnly() && !m_isInert && !m_isApplying && !isComposing();
}

TextRange GrowingTextView::selection() const {
    const QTextCursor cursor = textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

diary::MarkdownContext GrowingTextView::context() const {
    return diary::MarkdownEditing::context(draft(), selection());
}

void GrowingTextView::perform(FormatCommand command) {
    if (!canFormat()) return;
    const bool isChange = applyIfAny(formatChange(command, draft(), selection()));
    if (isChange && command == FormatCommand::ToggleTask) {
        const auto line = diary::markdownLineRange(draft(), selection().location);
        drawCheck(static_cast<int>(line.location));
    }
}

void GrowingTextView::command(QStringView name) {
    if (const auto found = formatCommand(name)) perform(*found);
}

bool GrowingTextView::applyIfAny(const Change& change) {
    if (change) apply(*change);
    return change.has_value();
}

void GrowingTextView::apply(const MarkdownChange& change) {
    {
        const QScopedValueRollback<bool> applying(m_isApplying, true);
        for (const MarkdownChange::Step& step : change.steps) {
            breakUndo();
            if (step.changesText() && !isReadOnly()) {
                // Undo puts the caret back to where an edit block found its cursor.
                QTextCursor cursor = textCursor();
                cursor.beginEditBlock();
                cursor.setPosition(static_cast<int>(step.range.location));
                cursor.setPosition(static_cast<int>(step.range.end()), QTextCursor::KeepAnchor);
                cursor.insertText(m_draft.shown(step.replacement));
                cursor.endEditBlock();
            }
            selectRange(step.selection);
        }
        breakUndo();
    }
    // Where a command put the caret it stays: between the marks of "****" too, which are a rule
    // until something is typed there.
    m_lastSelection = selection();
    if (onCaretMoved) onCaretMoved();
}

TextRange GrowingTextView::clamped(TextRange range) const {
    const qsizetype start = std::clamp<qsizetype>(range.location, 0, m_draft.text().size());
    const qsizetype end = std::clamp<qsizetype>(range.end(), start, m_draft.text().size());
    return {start, end - start};
}

void GrowingTextView::selectRange(TextRange range) {
    const TextRange inside = clamped(range);
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(inside.location));
    cursor.setPosition(static_cast<int>(inside.end()), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

// A document that counts as unmodified merges the next edit into no earlier one.
void GrowingTextView::breakUndo() {
    document()->setModified(false);
}

void GrowingTextView::confirmComposition() {
    if (!isComposing()) return;
    QGuiApplication::inputMethod()->commit();
    if (!isComposing()) return;
    // An input method that doesn't commit when asked.
    QInputMethodEvent commit;
    commit.setCommitString(textCursor().block().layout()->preeditAreaText());
    QCoreApplication::sendEvent(this, &commit);
}

void GrowingTextView::dropComposition() {
    if (!isComposing()) return;
    QGuiApplication::inputMethod()->reset();
    QInputMethodEvent none;
    if (isComposing()) QTextEdit::inputMethodEvent(&none);
}

void GrowingTextView::undo() {
    dropComposition();
    QTextEdit::undo();
}

void GrowingTextView::redo() {
    dropComposition();
    QTextEdit::redo();
}

// The caret never rests in a hidden marker, where typing would spoil it.
void GrowingTextView::settleCaret() {
    m_styling.settleTo(textCursor().position());
    if (m_isApplying || m_isLoading || m_isSettling || isComposing()) return;
    const QScopedValueRollback<bool> settling(m_isSettling, true);
    QTextCursor caret = textCursor();
    if (const auto place = caretOutsideHiddenMarker(caret)) {
        // The column that Up and Down aim for stays what it was.
        const int column = caret.verticalMovementX();
        caret.setPosition(*place);
        caret.setVerticalMovementX(column);
        setTextCursor(caret);
    }
    m_lastSelection = selection();
}

std::optional<int> GrowingTextView::caretOutsideHiddenMarker(const QTextCursor& caret) const {
    if (caret.hasSelection()) return std::nullopt;
    const QTextBlock block = caret.block();
    const auto hidden = hiddenAt(block, caret.positionInBlock());
    if (!hidden) return std::nullopt;
    const int start = block.position() + static_cast<int>(hidden->location);
    const int end = block.position() + static_cast<int>(hidden->end());
    // Whoever stood at the text's start is moving left, out of the line.
    const bool comesFromText = m_lastSelection == TextRange{end, 0};
    return comesFromText && start > 0 ? start - 1 : end;
}

}  // namespace velmar
