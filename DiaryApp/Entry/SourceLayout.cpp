#include "DiaryApp/Entry/SourceLayout.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

// From here on scripts are as wide as they are high, as a rule.
constexpr char16_t kFirstWide = 0x1100;

int topOf(const QTextBlock& block) {
    return block.firstLineNumber() * SourceLayout::rowHeight;
}

}  // namespace

int estimatedRows(QStringView text, double narrow, double wide, double width) {
    int rows = 1;
    double x = 0;
    double word = 0;
    for (const QChar character : text) {
        const bool isWide = character.unicode() >= kFirstWide;
        const double advance = isWide ? wide : narrow;
        const bool isBlank = character == u' ';
        // Blanks hang over the edge; all else that doesn't fit begins a row with its word.
        if (!isBlank && x + word + advance > width) {
            ++rows;
            // A word longer than a row breaks anywhere.
            if (x == 0) word = 0;
            x = 0;
        }
        word += advance;
        if (!isBlank && !isWide) continue;
        x += word;
        word = 0;
    }
    return rows;
}

SourceLayout::SourceLayout(QTextDocument* document, const QFont& font)
    : QAbstractTextDocumentLayout(document) {
    setFont(font);
}

void SourceLayout::setFont(const QFont& font) {
    const QFontMetricsF metrics(font);
    m_narrow = metrics.horizontalAdvance(QStringLiteral("0"));
    m_wide = metrics.horizontalAdvance(QStringLiteral("永"));
    m_baseline = fonts::baseline(font, rowHeight);
}

QSizeF SourceLayout::documentSize() const {
    return {qMax(0.0, width()), double(document()->lineCount()) * rowHeight};
}

QRectF SourceLayout::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

QRectF SourceLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid()) return {};
    return {0, double(topOf(block)), qMax(0.0, width()), double(block.lineCount()) * rowHeight};
}

QTextBlock SourceLayout::blockAt(double y) const {
    const int row = static_cast<int>(std::floor(y / rowHeight));
    return document()->findBlockByLineNumber(qBound(0, row, document()->lineCount() - 1));
}

void SourceLayout::documentChanged(int from, int /*removed*/, int added) {
    if (width() <= 0) return;
    QTextBlock block = document()->findBlock(from);
    for (; block.isValid() && block.position() <= from + added; block = block.next()) {
        block.layout()->clearLayout();
        block.setLineCount(estimatedRows(block.text(), m_narrow, m_wide, width()));
    }
    Q_EMIT documentSizeChanged(documentSize());
    Q_EMIT update(QRectF(0, 0, 1e9, 1e9));
}

int SourceLayout::layOut(int top, int bottom, int anchor) {
    int grown = 0;
    QTextBlock block = blockAt(top);
    for (; block.isValid() && topOf(block) <= bottom; block = block.next()) {
        const int before = block.lineCount();
        ensureLaidOut(block);
        if (topOf(block) < anchor) grown += block.lineCount() - before;
    }
    return grown * rowHeight;
}

void SourceLayout::ensureLaidOut(const QTextBlock& block) const {
    QTextLayout* layout = block.layout();
    if (layout->lineCount() > 0) return;
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->beginLayout();
    int row = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(qMax(1.0, width()));
        line.setPosition({0, row++ * rowHeight + m_baseline - line.ascent()});
    }
    layout->endLayout();
    QTextBlock(block).setLineCount(layout->lineCount());
}

void SourceLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF({}, documentSize());
    painter->setPen(theme::color(Token::InkSource));
    for (QTextBlock block = blockAt(clip.top()); block.isValid() && topOf(block) < clip.bottom();
         block = block.next()) {
        ensureLaidOut(block);
        block.layout()->setPosition(QPointF(0, topOf(block)));
        for (const Selection& selection : context.selections) {
            drawSelection(*painter, block, selection);
        }
        block.layout()->draw(painter, {}, {}, clip);
    }
}

// Whole rows, where a text layout would fill only the height of the letters.
void SourceLayout::drawSelection(QPainter& painter, const QTextBlock& block,
                                 const Selection& selection) const {
    const int from = selection.cursor.selectionStart() - block.position();
    const int to = selection.cursor.selectionEnd() - block.position();
    for (int row = 0; row < block.layout()->lineCount(); ++row) {
        const QTextLine line = block.layout()->lineAt(row);
        const int lineEnd = line.textStart() + line.textLength();
        const int start = qMax(from, line.textStart());
        const int end = qMin(to, lineEnd);
        // The line break at a paragraph's end is as wide as a letter.
        const bool hasBreak = row + 1 == block.layout()->lineCount() && from <= lineEnd &&
                              to > lineEnd && block.next().isValid();
        if (start >= end && !hasBreak) continue;
        const double one = line.cursorToX(start);
        const double other = line.cursorToX(end) + (hasBreak ? m_narrow : 0);
        painter.fillRect(
            QRectF(qMin(one, other), topOf(block) + row * rowHeight, qAbs(other - one), rowHeight),
            theme::color(Token::SelectionBg));
    }
}

int SourceLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block = blockAt(point.y());
    ensureLaidOut(block);
    const int row = static_cast<int>(std::floor(point.y() / rowHeight)) - block.firstLineNumber();
    const QTextLine line = block.layout()->lineAt(qBound(0, row, block.lineCount() - 1));
    if (!line.isValid()) return accuracy == Qt::ExactHit ? -1 : block.position();
    const QRectF natural = line.naturalTextRect();
    const bool isOnText = point.x() >= natural.left() && point.x() <= natural.right() &&
                          point.y() >= 0 && point.y() < documentSize().height();
    if (accuracy == Qt::ExactHit && !isOnText) return -1;
    return block.position() + line.xToCursor(point.x());
}

}  // namespace velmar
