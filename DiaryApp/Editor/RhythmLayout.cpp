#include "DiaryApp/Editor/RhythmLayout.h"

#include <QtGui/QTextDocument>
#include <cmath>

#include "DiaryApp/Editor/BlockStyle.h"
#include "DiaryApp/Editor/RhythmPainter.h"

namespace velmar {

namespace {

// What a control asks for its caret, beyond what a line has anyway.
constexpr int kCaretMargin = 2;

QTextOption optionFor(const QTextBlock& block, QTextOption::WrapMode mode) {
    QTextOption option;
    option.setWrapMode(mode);
    option.setTextDirection(block.textDirection());
    return option;
}

}  // namespace

RhythmLayout::RhythmLayout(QTextDocument* document, const RhythmStyle& style)
    : QAbstractTextDocumentLayout(document), m_style(&style) {}

double RhythmLayout::width() const {
    return document()->pageSize().width();
}

int RhythmLayout::top(const QTextBlock& block) const {
    return block.firstLineNumber() * lineHeight();
}

int RhythmLayout::rowAt(double y) const {
    const int row = static_cast<int>(std::floor(y / lineHeight()));
    return qBound(0, row, document()->lineCount() - 1);
}

int RhythmLayout::positionAt(double y) const {
    return document()->findBlockByLineNumber(rowAt(y)).position();
}

QSizeF RhythmLayout::documentSize() const {
    return {qMax(0.0, width()), double(document()->lineCount()) * lineHeight()};
}

QRectF RhythmLayout::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

QRectF RhythmLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid()) return {};
    return {0, double(top(block)), qMax(0.0, width()), double(block.lineCount()) * lineHeight()};
}

void RhythmLayout::documentChanged(int from, int /*removed*/, int added) {
    // Before the first show there is no width to lay anything out at.
    if (width() <= 0) return;
    const bool isAll = std::exchange(m_laidOutWidth, width()) != width() ||
                       std::exchange(m_laidOutLineHeight, lineHeight()) != lineHeight();
    QTextBlock block = isAll ? document()->begin() : document()->findBlock(from);
    const QTextBlock first = block;
    const int end = from + added;
    bool hasMoved = isAll;
    for (; block.isValid() && (isAll || block.position() <= end); block = block.next()) {
        if (layOut(block)) hasMoved = true;
    }
    // Blocks that came or went aren't seen by the line counts of those that are left, so where the
    // next one stands is compared.
    const bool isShifted = block.isValid() && block.layout()->position().y() != top(block);
    moveBlocks(hasMoved || isShifted ? first : QTextBlock());
    if (std::exchange(m_announced, documentSize()) != documentSize()) {
        Q_EMIT documentSizeChanged(documentSize());
    }
    const QTextBlock last = block.isValid() ? block.previous() : document()->lastBlock();
    QRectF changed = blockBoundingRect(first) | blockBoundingRect(last);
    if (hasMoved || isShifted) changed.setBottom(1e9);
    // Letters may reach a little over their row.
    const double reach = lineHeight() / 2.0;
    Q_EMIT update(changed.adjusted(0, -reach, 0, reach));
}

// Who asks a layout for a character's place, as screen readers do, reads its position.
void RhythmLayout::moveBlocks(QTextBlock from) const {
    int row = from.isValid() ? from.firstLineNumber() : 0;
    for (; from.isValid(); row += from.lineCount(), from = from.next()) {
        from.layout()->setPosition(QPointF(0, row * lineHeight()));
    }
}

// True if the block has another number of lines now.
bool RhythmLayout::layOut(const QTextBlock& block) {
    QTextLayout* layout = block.layout();
    layOutLines(block, false);
    // A marker of no width before one long word would be left alone in the first row, since lines
    // may break behind its blank.
    const auto hidden = hiddenAt(block, 0);
    const bool isMarkerAlone = hidden && layout->lineCount() > 1 &&
                               layout->lineAt(0).textLength() <= hidden->length &&
                               hidden->end() < block.length() - 1;
    if (isMarkerAlone) layOutLines(block, true);
    const bool isChanged = block.lineCount() != layout->lineCount();
    QTextBlock(block).setLineCount(layout->lineCount());
    layout->setPosition(QPointF(0, top(block)));
    return isChanged;
}

void RhythmLayout::layOutLines(const QTextBlock& block, bool breaksFirstAnywhere) {
    QTextLayout* layout = block.layout();
    const QTextOption usual = optionFor(block, QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(usual);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    int number = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        const bool isAnywhere = breaksFirstAnywhere && number == 0;
        if (isAnywhere) layout->setTextOption(optionFor(block, QTextOption::WrapAnywhere));
        place(line, block, number++);
        if (isAnywhere) layout->setTextOption(usual);
    }
    layout->endLayout();
}

void RhythmLayout::place(QTextLine& line, const QTextBlock& block, int number) const {
    const int indent = indentAt(block, line.textStart());
    line.setLineWidth(qMax(1.0, width() - markRoom - indent - gutter));
    const FontFace& face = m_style->face(fontAt(block, line.textStart()));
    const int baseline = rhythmBaseline(lineHeight(), face.ascent, face.descent);
    // The line's own ascent grows with the fonts that stand in for missing letters.
    line.setPosition({double(markRoom + indent), number * lineHeight() + baseline - line.ascent()});
}

int RhythmLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const int row = rowAt(point.y());
    const QTextBlock block = document()->findBlockByLineNumber(row);
    if (!block.isValid()) return accuracy == Qt::ExactHit ? -1 : 0;
    const QTextLayout* layout = block.layout();
    const int number = row - block.firstLineNumber();
    const QTextLine line = layout->lineAt(number);
    if (!line.isValid()) return block.position();
    if (accuracy == Qt::ExactHit) {
        const QRectF natural = line.naturalTextRect();
        const bool isInRow = point.y() >= 0 && point.y() < documentSize().height();
        if (!isInRow || point.x() < natural.left() || point.x() > natural.right()) return -1;
    }
    int offset = line.xToCursor(point.x());
    // The place behind a row's last character shows at the start of the next row.
    const bool isWrapped = number + 1 < layout->lineCount();
    if (isWrapped && offset >= line.textStart() + line.textLength()) {
        offset = layout->previousCursorPosition(line.textStart() + line.textLength());
    }
    if (const auto hidden = hiddenAt(block, offset)) offset = static_cast<int>(hidden->end());
    // Composed text has places of its own, which the document hasn't.
    return block.position() + qMin(offset, block.length() - 1);
}

std::vector<TaskBox> RhythmLayout::taskBoxes(const QRectF& within) const {
    std::vector<TaskBox> boxes;
    if (document()->lineCount() == 0) return boxes;
    QTextBlock block = document()->findBlockByLineNumber(rowAt(within.top()));
    for (; block.isValid() && top(block) <= within.bottom(); block = block.next()) {
        const BlockStyle* style = BlockStyle::of(block);
        if (style == nullptr) continue;
        for (const diary::MarkdownDecoration& each : style->styling.decorations) {
            if (each.kind != diary::MarkdownLinePrefix::Kind::task) continue;
            const QRectF row = RhythmPainter::rowOf(block, static_cast<int>(each.at), *this);
            boxes.push_back({RhythmPainter::taskBox(each, row, *m_style),
                             block.position() + static_cast<int>(each.at)});
        }
    }
    return boxes;
}

QRectF RhythmLayout::markRect(diary::TextRange range) const {
    QRectF rect;
    for (QTextBlock block = document()->findBlock(static_cast<int>(range.location));
         block.isValid() && block.position() <= range.end(); block = block.next()) {
        const auto boxes = RhythmPainter::markBoxes(block, range, *this, *m_style);
        for (const QRectF& box : boxes) rect |= box;
    }
    if (!rect.isNull()) return rect;
    const QTextBlock block = document()->findBlock(static_cast<int>(range.location));
    const int offset = static_cast<int>(range.location) - block.position();
    const QRectF row = RhythmPainter::rowOf(block, offset, *this);
    const QTextLine line = block.layout()->lineForTextPosition(offset);
    return {line.isValid() ? line.cursorToX(offset) : markRoom, row.top(), 0, row.height()};
}

std::vector<MatchMarks::Mark> RhythmLayout::marksIn(const QRectF& clip) const {
    if (m_marks == nullptr) return {};
    const QTextBlock first = document()->findBlockByLineNumber(rowAt(clip.top()));
    const QTextBlock last = document()->findBlockByLineNumber(rowAt(clip.bottom()));
    return m_marks->marksIn(first.position(), last.position() + last.length());
}

void RhythmLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF({}, documentSize());
    RhythmPainter rhythm(*painter, *this, *m_style, context);
    rhythm.setMarks(marksIn(clip));
    const QTextBlock first = document()->findBlockByLineNumber(rowAt(clip.top()));
    for (QTextBlock block = first; block.isValid() && top(block) < clip.bottom();
         block = block.next()) {
        rhythm.drawBlock(block);
    }
    if (m_showsDropCaret && context.cursorPosition >= 0) {
        const QTextBlock block = document()->findBlock(context.cursorPosition);
        block.layout()->drawCursor(painter, {}, context.cursorPosition - block.position(),
                                   kCaretMargin);
    }
}

}  // namespace velmar
