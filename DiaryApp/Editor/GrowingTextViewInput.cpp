// Keys, input methods, mouse, clipboard and drags of the text view.
#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtWidgets/QMenu>

#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace velmar {

namespace {

namespace editing = diary::MarkdownEditing;

constexpr int kDragStep = 50;

bool isSpace(const QString& text) {
    return text == QLatin1String(" ") || text == QStringView(u"\u3000");
}

bool isMark(const QString& text) {
    return text == QLatin1String("*") || text == QLatin1String("`") || text == QLatin1String("~");
}

bool hasFiles(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

// Whether a sentence has ended right ahead of what comes next.
bool endsSentence(QStringView text) {
    static constexpr QStringView wide = u"。！？";
    static constexpr QStringView narrow = u".!?…";
    if (text.isEmpty()) return false;
    if (wide.contains(text.back())) return true;
    if (text.back() != u' ') return false;
    while (!text.isEmpty() && text.back() == u' ') text.chop(1);
    return !text.isEmpty() && (narrow.contains(text.back()) || wide.contains(text.back()));
}

bool isCaretKey(int key) {
    return key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_Left ||
           key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

}  // namespace

void GrowingTextView::keyPressEvent(QKeyEvent* event) {
    m_blink.wake();
    if (isReadOnly() && event->key() == Qt::Key_Space) return event->ignore();
    if (event->matches(QKeySequence::Undo)) return undo();
    if (event->matches(QKeySequence::Redo)) return redo();
    if (editingKey(*event)) return event->accept();
    const bool isHome = event->matches(QKeySequence::MoveToStartOfLine) ||
                        event->matches(QKeySequence::MoveToStartOfBlock);
    // Home leads to the start of the line's text; it isn't a step to the left.
    if (isHome) m_lastSelection.reset();
    if (!isReadOnly()) breakUndoAtSentence(event->text());
    if (isCaretKey(event->key())) confirmComposition();
    QTextEdit::keyPressEvent(event);
    // The page may have been scrolled away from a caret that can't go further.
    if (isCaretKey(event->key()) && onCaretMoved) onCaretMoved();
}

// True if the key has been dealt with.
bool GrowingTextView::editingKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool isCommand = modifiers.testFlag(Qt::ControlModifier) ||
                           modifiers.testFlag(Qt::AltModifier) ||
                           modifiers.testFlag(Qt::MetaModifier);
    const bool extends = modifiers.testFlag(Qt::ShiftModifier);
    switch (event.key()) {
        case Qt::Key_Direction_L:
        case Qt::Key_Direction_R:
            // Would set a format of the document, which undo would count.
            return true;
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (isCommand) return false;
            movePage(event.key() == Qt::Key_PageUp ? QTextCursor::Up : QTextCursor::Down, extends);
            return true;
        default:
            break;
    }
    if (isCommand || isReadOnly()) return false;
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            pressReturn();
            return true;
        case Qt::Key_Backspace:
            return canFormat() && !textCursor().hasSelection() &&
                   applyIfAny(editing::backspace(draft(), selection()));
        case Qt::Key_Tab:
            return extends ? pressBacktab() : pressTab();
        case Qt::Key_Backtab:
            return pressBacktab();
        default:
            return typed(event.text());
    }
}

// Qt would put a line separator into the text for Shift and Return, which other programs don't
// expect, and reset the formats of an empty line.
void GrowingTextView::pressReturn() {
    if (canFormat() && applyIfAny(editing::newline(draft(), selection()))) return;
    confirmComposition();
    breakUndo();
    textCursor().insertBlock();
    ensureCursorVisible();
}

bool GrowingTextView::pressTab() {
    if (!canFormat()) return false;
    if (applyIfAny(editing::indent(draft(), selection()))) return true;
    // A step of its own: undo takes the tab back, and not the words before it.
    breakUndo();
    textCursor().insertText(QStringLiteral("\t"));
    breakUndo();
    return true;
}

bool GrowingTextView::pressBacktab() {
    if (!canFormat()) return false;
    if (applyIfAny(editing::outdent(draft(), selection()))) return true;
    const auto line = diary::markdownLineRange(draft(), selection().location);
    const auto text = QStringView(draft()).sliced(line.location, line.length);
    return diary::MarkdownLinePrefix::parse(text).isList();
}

// Whether a command takes the text that is being typed.
bool GrowingTextView::typed(const QString& text) {
    if (!canFormat()) return false;
    if (isSpace(text)) return applyIfAny(editing::space(text, draft(), selection()));
    return isMark(text) && applyIfAny(editing::overtype(text, draft(), selection()));
}

void GrowingTextView::insertTyped(const QString& text) {
    if (typed(text)) return;
    breakUndoAtSentence(text);
    textCursor().insertText(text);
}

// Undo takes back a sentence at a time, where Qt would take all that was typed in one go.
void GrowingTextView::breakUndoAtSentence(QStringView text) {
    if (text.isEmpty() || text.front().isSpace() || !text.front().isPrint()) return;
    const qsizetype caret = textCursor().position();
    const QStringView before = QStringView(draft()).first(qMin(caret, draft().size()));
    if (endsSentence(before.last(qMin<qsizetype>(8, before.size())))) breakUndo();
}

void GrowingTextView::type(const QString& text) {
    if (isReadOnly()) return;
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const QString one = text.mid(at, isPair ? 2 : 1);
        at += one.size();
        if (one == QLatin1String("\n")) {
            pressReturn();
        } else if (one != QLatin1String("\t") || !pressTab()) {
            insertTyped(one);
        }
    }
}

// The view is as high as its text, so a page is what the page around it shows.
void GrowingTextView::movePage(QTextCursor::MoveOperation direction, bool extends) {
    confirmComposition();
    QTextCursor caret = textCursor();
    const auto mode = extends ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    const int rows = qMax(1, m_pageHeight / lineHeight() - 1);
    for (int row = 0; row < rows && caret.movePosition(direction, mode); ++row) continue;
    setTextCursor(caret);
}

void GrowingTextView::inputMethodEvent(QInputMethodEvent* event) {
    m_blink.wake();
    // Chinese and Japanese input methods hand over their wide blank and marks as committed text.
    // Nothing gets another look while something is composed.
    if (!event->preeditString().isEmpty()) m_styling.settleAll();
    const bool isTyped = !isComposing() && event->preeditString().isEmpty() &&
                         event->replacementLength() == 0 && event->replacementStart() == 0;
    if (isTyped && typed(event->commitString())) return event->accept();
    if (!isReadOnly()) breakUndoAtSentence(event->commitString());
    QTextEdit::inputMethodEvent(event);
    viewport()->update();
    if (onCaretMoved) onCaretMoved();
}

// Qt's own caret has no width here, and input methods take such a place for none: their window
// would stand in a corner of the screen.
QVariant GrowingTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImCursorRectangle) return QRectF(caretRect());
    return QTextEdit::inputMethodQuery(query);
}

std::optional<int> GrowingTextView::taskAt(const QPoint& point) const {
    if (isReadOnly() || isComposing()) return std::nullopt;
    for (const TaskBox& box : m_layout->taskBoxes(QRectF(point, QSizeF(1, 1)))) {
        if (box.rect.contains(point)) return box.position;
    }
    return std::nullopt;
}

bool GrowingTextView::toggleTaskAt(const QMouseEvent& event) {
    m_blink.wake();
    if (event.button() != Qt::LeftButton) return false;
    const auto task = taskAt(event.position().toPoint());
    if (task && canFormat() && applyIfAny(editing::toggleTask(*task, draft(), selection()))) {
        // The caret stays in its line, and two lines may be in one state.
        setAccessibleDescription(QString());
        setAccessibleDescription(spokenState(*task));
        drawCheck(*task);
    }
    return task.has_value();
}

// What the box of a to-do shows, in words; empty for other lines.
QString GrowingTextView::spokenState(int position) const {
    const QTextBlock block = document()->findBlock(position);
    const BlockStyle* style = BlockStyle::of(block);
    if (style == nullptr) return {};
    const int at = position - block.position();
    for (const diary::MarkdownDecoration& each : style->styling.decorations) {
        if (each.kind != diary::MarkdownLinePrefix::Kind::task) continue;
        if (at < each.at || at > each.at + each.length) continue;
        return each.value != 0 ? qtTrId("AccessibleTaskDone") : qtTrId("AccessibleTaskOpen");
    }
    return {};
}

// Screen readers read a description that changes while its field has the focus; they have nothing
// else for a box that stands in the text.
void GrowingTextView::describeLine() {
    setAccessibleDescription(spokenState(textCursor().position()));
}

void GrowingTextView::mousePressEvent(QMouseEvent* event) {
    m_isBoxPressed = toggleTaskAt(*event);
    if (!m_isBoxPressed) QTextEdit::mousePressEvent(event);
}

// The second of two quick clicks on a box comes as a double click.
void GrowingTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    m_isBoxPressed = toggleTaskAt(*event);
    if (!m_isBoxPressed) QTextEdit::mouseDoubleClickEvent(event);
}

void GrowingTextView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const bool isDragging = event->buttons().testFlag(Qt::LeftButton);
    if (!isDragging && !m_isInert) {
        viewport()->setCursor(taskAt(point) ? Qt::ArrowCursor : Qt::IBeamCursor);
    }
    // A hand that trembles on a box selects nothing: the click ended with the press.
    if (isDragging && m_isBoxPressed) return;
    QTextEdit::mouseMoveEvent(event);
    // The page may have scrolled, and the text with it.
    const QPoint now = viewport()->mapFromGlobal(event->globalPosition().toPoint());
    const bool isOutside = isDragging && !viewport()->visibleRegion().contains(now);
    isOutside ? m_dragTimer.start(kDragStep, this) : m_dragTimer.stop();
}

void GrowingTextView::mouseReleaseEvent(QMouseEvent* event) {
    m_dragTimer.stop();
    if (!std::exchange(m_isBoxPressed, false)) QTextEdit::mouseReleaseEvent(event);
}

void GrowingTextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_dragTimer.timerId()) return QTextEdit::timerEvent(event);
    const QPointF global = QCursor::pos();
    QMouseEvent move(QEvent::MouseMove, viewport()->mapFromGlobal(global), global, Qt::NoButton,
                     Qt::LeftButton, QGuiApplication::keyboardModifiers());
    mouseMoveEvent(&move);
}

void GrowingTextView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = makeContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

QMenu* GrowingTextView::makeContextMenu() {
    auto* menu = new QMenu(this);
    const bool canEdit = !isReadOnly();
    const bool hasSelection = textCursor().hasSelection();
    const auto add = [menu, this](const QString& text, auto slot, bool isOn) {
        menu->addAction(text, this, slot)->setEnabled(isOn);
    };
    add(qtTrId("Undo"), &GrowingTextView::undo, canEdit && document()->isUndoAvailable());
    add(qtTrId("Redo"), &GrowingTextView::redo, canEdit && document()->isRedoAvailable());
    menu->addSeparator();
    add(qtTrId("Cut"), &QTextEdit::cut, canEdit && hasSelection);
    add(qtTrId("Copy"), &QTextEdit::copy, hasSelection);
    add(qtTrId("Paste"), &QTextEdit::paste, canPaste());
    add(qtTrId("Select All"), &QTextEdit::selectAll, !draft().isEmpty());
    menu->addSeparator();
    QMenu* format = menu->addMenu(qtTrId("Format"));
    const diary::MarkdownContext here = context();
    for (const FormatRow& row : formatTable()) {
        QAction* item = format->addAction(qtTrId(row.title));
        item->setEnabled(canFormat());
        item->setCheckable(isCheckable(row.command));
        item->setChecked(isChecked(row.command, here));
        connect(item, &QAction::triggered, this, [this, &row] { perform(row.command); });
        if (row.hasSeparatorBehind) format->addSeparator();
    }
    return menu;
}

// Files are the window's; text is taken in.
void GrowingTextView::dragEnterEvent(QDragEnterEvent* event) {
    if (hasFiles(event->mimeData())) return event->ignore();
    m_layout->setShowsDropCaret(true);
    QTextEdit::dragEnterEvent(event);
}

void GrowingTextView::dragLeaveEvent(QDragLeaveEvent* event) {
    m_layout->setShowsDropCaret(false);
    QTextEdit::dragLeaveEvent(event);
}

void GrowingTextView::dropEvent(QDropEvent* event) {
    m_layout->setShowsDropCaret(false);
    QTextEdit::dropEvent(event);
}

void GrowingTextView::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    m_blink.wake();
}

void GrowingTextView::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    m_blink.stop();
}

void GrowingTextView::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

QMimeData* GrowingTextView::createMimeDataFromSelection() const {
    const diary::TextRange range = selection();
    auto* copied = new QMimeData;
    copied->setText(draft().mid(range.location, range.length));
    return copied;
}

void GrowingTextView::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !source->hasText()) return;
    const QString text = DraftText::pasted(source->text());
    if (canFormat() && applyIfAny(editing::pasteLink(text, draft(), selection()))) return;
    breakUndo();
    textCursor().insertText(text);
    breakUndo();
    ensureCursorVisible();
}

}  // namespace velmar
