// Where things are in the text view, and what it paints on top of its text.
#include <QtCore/QScopedValueRollback>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtWidgets/QStyle>
#include <cmath>

#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Editor/GrowingTextView.h"

namespace velmar {

namespace {

constexpr int kLeastHeight = 76;
constexpr int kRoomBelow = 4;
constexpr int kCaretWidth = 2;

}  // namespace

void GrowingTextView::setMatches(std::vector<diary::TextRange> ranges, int current) {
    for (diary::TextRange& range : ranges) range = clamped(range);
    m_marks.set(std::move(ranges), current, isAnimated());
}

bool GrowingTextView::isAnimated() const {
    return isVisible() && style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

// The mark of a task that has just been checked is drawn from left to right.
void GrowingTextView::drawCheck(int position) {
    if (!isAnimated()) return;
    m_check.stop();
    m_check.disconnect(this);
    connect(&m_check, &QVariantAnimation::valueChanged, this, [this, position](const QVariant& at) {
        m_layout->setFreshCheck(position, at.toDouble());
        viewport()->update();
    });
    m_layout->setFreshCheck(position, 0);
    m_check.start();
}

QRect GrowingTextView::matchRect(int index) const {
    const auto range = m_marks.range(index);
    if (range) m_styling.settleTo(static_cast<int>(range->end()));
    return range ? m_layout->markRect(*range).toAlignedRect() : QRect();
}

int GrowingTextView::textHeight() const {
    const int height = static_cast<int>(std::ceil(m_layout->documentSize().height())) + kRoomBelow;
    return isReadOnly() ? height : qMax(kLeastHeight, height);
}

QRect GrowingTextView::caretRect() const {
    // Qt's rectangle has the right x and row, with composed text too, but not the right height.
    const QRectF line(cursorRect());
    const int row = static_cast<int>(std::floor(line.center().y() / lineHeight()));
    const QTextCursor caret = textCursor();
    const int last = qMax(0, caret.block().length() - 2);
    const FontFace& face = m_style.face(fontAt(caret.block(), qMin(caret.positionInBlock(), last)));
    const int height = face.height + 2;
    const int baseline = rhythmBaseline(lineHeight(), face.ascent, face.descent);
    const double middle = row * lineHeight() + baseline - (face.ascent - face.descent) / 2.0;
    return {qRound(line.left()) - 1, qRound(middle - height / 2.0), kCaretWidth, height};
}

void GrowingTextView::paintEvent(QPaintEvent* event) {
    const QScopedValueRollback<bool> isPainting(m_isPainting, true);
    while (m_styling.settleTo(m_layout->positionAt(event->rect().bottom()))) continue;
    QTextEdit::paintEvent(event);
    QPainter painter(viewport());
    paintPlaceholder(painter);
    paintCaret(painter);
}

// Whole rows, so that what touches the caret is painted with it.
void GrowingTextView::repaintCaret() {
    viewport()->update(m_caretRow);
    const QRect caret = caretRect();
    m_caretRow = {0, caret.top() - 2, viewport()->width(), caret.height() + 4};
    viewport()->update(m_caretRow);
}

void GrowingTextView::paintCaret(QPainter& painter) const {
    if (!m_blink.isLit() || isReadOnly() || m_isInert || textCursor().hasSelection()) return;
    painter.fillRect(caretRect(), theme::color(Token::Accent));
}

void GrowingTextView::paintPlaceholder(QPainter& painter) const {
    if (!m_draft.text().isEmpty() || isComposing()) return;
    const int left = markRoom + gutter;
    const QRectF line(left, 0, viewport()->width() - left - gutter, lineHeight());
    paintLine(painter, line, m_placeholder,
              {m_style.body().font, double(lineHeight()), Token::Placeholder});
}

}  // namespace velmar
