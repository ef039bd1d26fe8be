#include "DiaryApp/Editor/DraftEditor.h"

#include <QtCore/QMimeData>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtWidgets/QScrollBar>
#include <cmath>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kLeastHeight = 76;
constexpr int kCaretWidth = 2;
// Qt puts the baseline of a line of fixed height at four fifths of it.
constexpr double kFixedBaseline = 0.8;

}  // namespace

DraftEditor::DraftEditor(QWidget* parent)
    : QTextEdit(parent), m_blink(appearance::caretFlashTime()) {
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(false);
    // The caret is painted here, in its own colour and height.
    setCursorWidth(0);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    connect(document(), &QTextDocument::contentsChange, this, &DraftEditor::takeChange);
    connect(document(), &QTextDocument::contentsChanged, this, &DraftEditor::announce);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            [this] {
                if (onHeightChanged) onHeightChanged();
            });
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] {
        viewport()->update();
        if (onCaretMoved && !m_isLoading) onCaretMoved();
    });
    connect(this, &QTextEdit::selectionChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&m_blink, &CaretBlink::changed, viewport(), qOverload<>(&QWidget::update));
    load(QString());
}

void DraftEditor::load(const QString& draft) {
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    if (isComposing()) QGuiApplication::inputMethod()->reset();
    const QString shown = m_draft.load(draft);
    setPlainText(shown);
    setRhythm();
    moveCursor(QTextCursor::End);
    m_hasChanged = false;
    viewport()->update();
}

void DraftEditor::setPlaceholder(const QString& text) {
    m_placeholder = text;
    viewport()->update();
}

void DraftEditor::restyle(const QFont& font, const QColor& color) {
    const QScopedValueRollback<bool> loading(m_isLoading, true);
    document()->setDefaultFont(font);
    setFont(font);
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
    viewport()->update();
}

// The line height and the gutters are formats of the document, which loading a text resets. They
// must not be steps that the user could undo.
void DraftEditor::setRhythm() {
    document()->setUndoRedoEnabled(false);
    QTextFrameFormat frame = document()->rootFrame()->frameFormat();
    frame.setLeftMargin(gutter);
    frame.setRightMargin(gutter);
    document()->rootFrame()->setFrameFormat(frame);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setLineHeight(rhythm, QTextBlockFormat::FixedHeight);
    all.mergeBlockFormat(format);
    document()->setUndoRedoEnabled(true);
}

// The document's texts are read only where it changed. Its last line break isn't part of the text.
void DraftEditor::takeChange(int position, int removed, int added) {
    if (m_isLoading) return;
    const int end = qMin(position + added, document()->characterCount() - 1);
    QString shown;
    shown.reserve(qMax(0, end - position));
    for (int i = position; i < end; ++i) {
        const QChar character = document()->characterAt(i);
        shown.append(character == QChar::ParagraphSeparator ? QChar(u'\n') : character);
    }
    if (m_draft.replace(position, removed, shown)) m_hasChanged = true;
}

void DraftEditor::announce() {
    viewport()->update();
    if (m_isLoading || !std::exchange(m_hasChanged, false)) return;
    if (onDraftChanged) onDraftChanged(m_draft.text());
}

int DraftEditor::textHeight() const {
    return qMax(kLeastHeight, static_cast<int>(std::ceil(document()->size().height())));
}

double DraftEditor::rhythmShift() const {
    return kFixedBaseline * rhythm - fonts::baseline(document()->defaultFont(), rhythm);
}

bool DraftEditor::isComposing() const {
    const QTextLayout* layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

// The row of the rhythm that the caret stands in. Qt's own rectangle of the caret tells where the
// line's glyphs begin, which differs with the fonts that stand in for missing letters.
double DraftEditor::caretRowTop() const {
    const QTextCursor caret = textCursor();
    const QTextBlock block = caret.block();
    const QTextLine line = block.layout()->lineForTextPosition(caret.positionInBlock());
    const double blockTop = document()->documentLayout()->blockBoundingRect(block).top();
    return blockTop + (line.isValid() ? line.lineNumber() * rhythm : 0);
}

QRect DraftEditor::caretRect() const {
    const QFontMetricsF metrics(document()->defaultFont());
    const double height = std::ceil(metrics.ascent() + metrics.descent()) + 2;
    // The text's middle stands in the middle of its ascent and descent, above the fixed line's.
    const double baseline = caretRowTop() + kFixedBaseline * rhythm;
    const double middle = baseline - (metrics.ascent() - metrics.descent()) / 2;
    return {qRound(QRectF(cursorRect()).left()) - 1, qRound(middle - height / 2), kCaretWidth,
            static_cast<int>(height)};
}

void DraftEditor::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    QPainter painter(viewport());
    paintPlaceholder(painter);
    paintCaret(painter);
}

void DraftEditor::paintCaret(QPainter& painter) const {
    if (!m_blink.isLit() || isReadOnly() || textCursor().hasSelection()) return;
    painter.fillRect(caretRect(), theme::color(Token::Accent));
}

void DraftEditor::paintPlaceholder(QPainter& painter) const {
    if (!m_draft.text().isEmpty() || isComposing()) return;
    const QRectF line(gutter, rhythmShift(), viewport()->width() - 2 * gutter, rhythm);
    paintLine(painter, line, m_placeholder,
              {document()->defaultFont(), rhythm, Token::Placeholder});
}

void DraftEditor::keyPressEvent(QKeyEvent* event) {
    m_blink.wake();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isPlain = !event->modifiers().testFlag(Qt::ControlModifier) &&
                         !event->modifiers().testFlag(Qt::AltModifier);
    // Shift and Return would put a line separator into the text, which other programs don't expect.
    if (isReturn && isPlain && !isReadOnly()) {
        textCursor().insertBlock();
        ensureCursorVisible();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void DraftEditor::inputMethodEvent(QInputMethodEvent* event) {
    m_blink.wake();
    QTextEdit::inputMethodEvent(event);
    viewport()->update();
    if (onCaretMoved) onCaretMoved();
}

void DraftEditor::mousePressEvent(QMouseEvent* event) {
    m_blink.wake();
    QTextEdit::mousePressEvent(event);
}

void DraftEditor::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    m_blink.wake();
}

void DraftEditor::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    m_blink.stop();
}

void DraftEditor::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

QMimeData* DraftEditor::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    const int from = cursor.selectionStart();
    auto* copied = new QMimeData;
    copied->setText(m_draft.text().mid(from, cursor.selectionEnd() - from));
    return copied;
}

void DraftEditor::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !source->hasText()) return;
    textCursor().insertText(DraftText::pasted(source->text()));
    ensureCursorVisible();
}

}  // namespace velmar
