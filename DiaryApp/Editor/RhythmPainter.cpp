#include "DiaryApp/Editor/RhythmPainter.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGlyphRun>
#include <QtGui/QPainterPath>
#include <QtGui/QTextLayout>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Editor/RhythmLayout.h"

namespace velmar {

namespace {

using diary::MarkdownDecoration;
using Kind = diary::MarkdownLinePrefix::Kind;

constexpr int kTextEdge = RhythmLayout::markRoom + RhythmLayout::gutter;
constexpr int kMarkGap = 5;
constexpr int kBulletShift = 1;
constexpr double kBoxRadius = 4;
constexpr double kBoxLine = 1.5;
constexpr double kCheckLine = 1.8;
constexpr int kBarInset = 6;
constexpr double kBarWidth = 3;
constexpr double kPillHeight = 19;
constexpr double kPillPadding = 8;
constexpr double kPillGap = 8;
constexpr double kCodeHeight = 23;
constexpr double kCodeRadius = 4;
constexpr double kFenceInset = 10;
constexpr double kFenceRadius = 8;
constexpr double kMarkRadius = 3;
constexpr double kMarkGrowth = 1;
constexpr double kMarkLine = 1.5;

// Where the text of an item of this level has its marker.
double left(const MarkdownDecoration& decoration, const RhythmStyle& style) {
    return kTextEdge + double(style.metrics().indentStep()) * double(decoration.level);
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}

// Where the last character of a stretch ends. Behind the first letter of a ligature that is within
// its glyph, though Qt's trailing edges are those of whole glyphs.
double trailingEdge(const QTextLine& line, int at) {
    const double edge = line.cursorToX(at, QTextLine::Trailing);
    if (at + 1 >= line.textStart() + line.textLength()) return edge;
    if (line.cursorToX(at + 1, QTextLine::Trailing) != edge) return edge;
    return line.cursorToX(at + 1, QTextLine::Leading);
}

// The rows' parts from one character to another, each as high as the row. Characters are asked one
// by one, since in a line of two directions a stretch of text may stand in several places.
QList<QRectF> rowsOf(const QTextBlock& block, int from, int to, const RhythmLayout& layout) {
    QList<QRectF> parts;
    const QTextLayout* lines = block.layout();
    const double height = layout.lineHeight();
    for (int number = 0; number < lines->lineCount(); ++number) {
        const QTextLine line = lines->lineAt(number);
        const int end = qMin(to, line.textStart() + line.textLength());
        const double top = layout.top(block) + number * height;
        for (int at = qMax(from, line.textStart()); at < end; ++at) {
            const double one = line.cursorToX(at, QTextLine::Leading);
            const double other =
                at + 1 == end ? trailingEdge(line, at) : line.cursorToX(at, QTextLine::Trailing);
            const QRectF part(qMin(one, other), top, qAbs(other - one), height);
            const bool isNext = !parts.isEmpty() && parts.last().top() == top &&
                                part.left() <= parts.last().right() + 0.01 &&
                                part.right() >= parts.last().left() - 0.01;
            isNext ? void(parts.last() |= part) : parts.append(part);
        }
    }
    return parts;
}

// Composed text takes places in the layout that the document hasn't.
int shownStart(const QTextBlock& block, int offset) {
    const QTextLayout* layout = block.layout();
    const auto composed = static_cast<int>(layout->preeditAreaText().size());
    return offset < layout->preeditAreaPosition() ? offset : offset + composed;
}

int shownEnd(const QTextBlock& block, int offset) {
    const QTextLayout* layout = block.layout();
    const auto composed = static_cast<int>(layout->preeditAreaText().size());
    return offset <= layout->preeditAreaPosition() ? offset : offset + composed;
}

// This much of the mark, from the left, in a box of 16 sides.
QPainterPath checkMark(const QPointF& origin, double side, double share) {
    const QLineF down(QPointF(4.2, 8.4), QPointF(6.9, 11.1));
    const QLineF up(down.p2(), QPointF(11.8, 5.2));
    const double drawn = share * (down.length() + up.length());
    QPainterPath check(origin + down.p1() * side);
    check.lineTo(origin + down.pointAt(qMin(1.0, drawn / down.length())) * side);
    if (drawn > down.length()) {
        check.lineTo(origin + up.pointAt((drawn - down.length()) / up.length()) * side);
    }
    return check;
}

}  // namespace

RhythmPainter::RhythmPainter(QPainter& painter, const RhythmLayout& layout,
                             const RhythmStyle& style, const Context& context)
    : m_painter(painter), m_layout(layout), m_style(style), m_context(context) {}

QRectF RhythmPainter::rowOf(const QTextBlock& block, int offset, const RhythmLayout& layout) {
    const QTextLine line = block.layout()->lineForTextPosition(offset);
    const int number = line.isValid() ? line.lineNumber() : 0;
    const double height = layout.lineHeight();
    return {0, layout.top(block) + number * height, layout.documentSize().width(), height};
}

QRect RhythmPainter::taskBox(const MarkdownDecoration& task, const QRectF& row,
                             const RhythmStyle& style) {
    const int side = style.metrics().taskBox();
    return {qRound(left(task, style)), qRound(row.center().y() - side / 2.0), side, side};
}

void RhythmPainter::drawBlock(const QTextBlock& block) {
    drawGrounds(block);
    drawMarks(block);
    drawSelections(block);
    if (const BlockStyle* style = BlockStyle::of(block)) {
        for (const MarkdownDecoration& each : style->styling.decorations) {
            drawDecoration(block, each);
        }
    }
    m_painter.setPen(m_style.textColor());
    block.layout()->draw(&m_painter, {}, {}, m_context.clip);
    drawOblique(block);
}

void RhythmPainter::drawGrounds(const QTextBlock& block) {
    drawFence(block);
    const BlockStyle* style = BlockStyle::of(block);
    if (style != nullptr && style->isFenced) return;
    // The layout's own formats, whose places count composed text too.
    std::optional<QPair<int, int>> code;
    const auto fill = [&] {
        if (!code) return;
        for (const QRectF& part : rowsOf(block, code->first, code->second, m_layout)) {
            const double inset = (part.height() - kCodeHeight) / 2;
            fillRounded(m_painter, part.adjusted(0, inset, 0, -inset), kCodeRadius,
                        theme::color(Token::HoverBg));
        }
    };
    for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        if (!range.format.boolProperty(RhythmStyle::kCode)) continue;
        // The ticks at both ends have a look of their own and belong to the same ground.
        if (code && code->second == range.start) {
            code->second += range.length;
            continue;
        }
        fill();
        code = {range.start, range.start + range.length};
    }
    fill();
}

// Rows of a fenced block touch. Only its first and its last have round corners, so each paragraph
// draws its part of a rectangle that reaches into its neighbours.
void RhythmPainter::drawFence(const QTextBlock& block) {
    const auto isFenced = [](const QTextBlock& each) {
        const BlockStyle* style = BlockStyle::of(each);
        return style != nullptr && style->isFenced;
    };
    if (!isFenced(block)) return;
    const QRectF rows = m_layout.blockBoundingRect(block);
    const double reach = 2 * kFenceRadius;
    const bool isFirst = !isFenced(block.previous()) ||
                         BlockStyle::of(block)->fenceAhead == BlockStyle::Fence::Closed;
    const bool isLast =
        !isFenced(block.next()) || BlockStyle::of(block)->fenceBehind == BlockStyle::Fence::Closed;
    const QColor& color = theme::color(Token::HoverBg);
    if (!isFirst && !isLast) {
        const double left = RhythmLayout::markRoom + kFenceInset;
        return m_painter.fillRect(rows.adjusted(left, 0, -kFenceInset, 0), color);
    }
    const QRectF ground = rows.adjusted(RhythmLayout::markRoom + kFenceInset, isFirst ? 0 : -reach,
                                        -kFenceInset, isLast ? 0 : reach);
    m_painter.save();
    m_painter.setClipRect(rows, Qt::IntersectClip);
    fillRounded(m_painter, ground, kFenceRadius, theme::color(Token::HoverBg));
    m_painter.restore();
}

void RhythmPainter::drawSelections(const QTextBlock& block) {
    const int start = block.position();
    const int length = block.length();
    for (const auto& selection : m_context.selections) {
        const int from = qMax(0, selection.cursor.selectionStart() - start);
        const int to = qMin(length, selection.cursor.selectionEnd() - start);
        if (from < to) drawSelection(block, from, to);
    }
}

void RhythmPainter::drawSelection(const QTextBlock& block, int from, int to) {
    const QColor& color = theme::color(Token::SelectionBg);
    const int length = block.length() - 1;
    for (const QRectF& part : rowsOf(block, from, qMin(to, length), m_layout)) {
        if (part.width() > 0) m_painter.fillRect(part, color);
    }
    // A selected line break shows as a short bar at the end of its row.
    if (to <= length) return;
    const QTextLine last = block.layout()->lineAt(block.layout()->lineCount() - 1);
    if (!last.isValid()) return;
    const QRectF row = rowOf(block, length, m_layout);
    m_painter.fillRect(QRectF(last.cursorToX(length), row.top(), row.height() / 4, row.height()),
                       color);
}

QList<QRectF> RhythmPainter::markBoxes(const QTextBlock& block, diary::TextRange range,
                                       const RhythmLayout& layout, const RhythmStyle& style) {
    const int from = qMax(0, static_cast<int>(range.location) - block.position());
    const int to = qMin(block.length() - 1, static_cast<int>(range.end()) - block.position());
    QList<QRectF> boxes;
    if (from >= to) return boxes;
    const FontFace& face = style.face(fontAt(block, from));
    for (const QRectF& part : rowsOf(block, shownStart(block, from), shownEnd(block, to), layout)) {
        if (part.width() <= 0) continue;
        // The row's baseline is that of its first letter.
        const int row = qRound(part.top() - layout.top(block)) / layout.lineHeight();
        const int first = block.layout()->lineAt(row).textStart();
        const FontFace& lineFace = style.face(fontAt(block, first));
        const double baseline =
            part.top() + rhythmBaseline(layout.lineHeight(), lineFace.ascent, lineFace.descent);
        boxes.append(QRectF(QPointF(part.left(), baseline - face.ascent),
                            QPointF(part.right(), baseline + face.descent))
                         .adjusted(-kMarkGrowth, -kMarkGrowth, kMarkGrowth, kMarkGrowth));
    }
    return boxes;
}

void RhythmPainter::drawMarks(const QTextBlock& block) {
    for (const MatchMarks::Mark& mark : m_marks) {
        for (const QRectF& box : markBoxes(block, mark.range, m_layout, m_style)) {
            drawMark(box, mark.weight);
        }
    }
}

void RhythmPainter::drawMark(const QRectF& box, double weight) {
    const QColor ground =
        theme::mixed(theme::color(Token::AccentSoft), theme::color(Token::SelectionBg), weight);
    fillRounded(m_painter, box, kMarkRadius + kMarkGrowth, ground);
    if (weight <= 0) return;
    const QRectF inside = box.adjusted(kMarkGrowth, kMarkGrowth, -kMarkGrowth, -kMarkGrowth);
    m_painter.save();
    m_painter.setClipRect(inside.adjusted(0, inside.height() - kMarkLine, 0, 0), Qt::IntersectClip);
    fillRounded(m_painter, inside, kMarkRadius, theme::color(Token::Accent, weight));
    m_painter.restore();
}

// The same face sheared: a real italic would be another design, and Qt's own slant is steeper.
void RhythmPainter::drawOblique(const QTextBlock& block) {
    const QTextLayout* layout = block.layout();
    for (const QTextLayout::FormatRange& range : layout->formats()) {
        if (!range.format.hasProperty(RhythmStyle::kOblique)) continue;
        m_painter.setPen(range.format.colorProperty(RhythmStyle::kOblique));
        for (int number = 0; number < layout->lineCount(); ++number) {
            const QTextLine line = layout->lineAt(number);
            const int from = qMax(range.start, line.textStart());
            const int to = qMin(range.start + range.length, line.textStart() + line.textLength());
            if (from >= to) continue;
            const double baseline = layout->position().y() + line.y() + line.ascent();
            m_painter.save();
            m_painter.translate(0, baseline);
            m_painter.shear(-diary::MarkdownAttributes::kObliqueness, 0);
            for (const QGlyphRun& run : line.glyphRuns(from, to - from)) {
                m_painter.drawGlyphRun(layout->position() - QPointF(0, baseline), run);
            }
            m_painter.restore();
        }
    }
}

void RhythmPainter::drawDecoration(const QTextBlock& block, const MarkdownDecoration& decoration) {
    const QRectF row = rowOf(block, static_cast<int>(decoration.at), m_layout);
    const QColor& sub = theme::color(Token::DaySubText);
    const double x = left(decoration, m_style);
    switch (decoration.kind) {
        case Kind::heading:
            return drawHeading(block, decoration, row);
        case Kind::bullet: {
            const bool isHollow = decoration.level % 2 == 1;
            return drawText(isHollow ? m_style.hollowBulletFont() : m_style.bulletFont(), sub,
                            x + kBulletShift, row, QString(isHollow ? QChar(u'◦') : QChar(u'•')));
        }
        case Kind::ordered:
            return drawText(m_style.markFont(), sub, x, row,
                            QString::number(decoration.value) + QLatin1Char('.'));
        case Kind::task:
            return drawBox(taskBox(decoration, row, m_style), decoration.value != 0,
                           m_layout.checkShare(block.position() + static_cast<int>(decoration.at)));
        case Kind::quote:
            return drawQuote(block, decoration);
        case Kind::rule:
            return drawRule(row);
        case Kind::plain:
            return;
    }
}

void RhythmPainter::drawText(const QFont& font, const QColor& color, double x, const QRectF& row,
                             const QString& text) {
    m_painter.setFont(font);
    m_painter.setPen(color);
    m_painter.drawText(QPointF(x, row.top() + fonts::baseline(font, row.height())), text);
}

void RhythmPainter::drawHeading(const QTextBlock& block, const MarkdownDecoration& heading,
                                const QRectF& row) {
    const QString marks(heading.value, QLatin1Char('#'));
    const double width = QFontMetricsF(m_style.markFont()).horizontalAdvance(marks);
    drawText(m_style.markFont(), theme::color(Token::Faint), kTextEdge - kMarkGap - width, row,
             marks);
    if (heading.year) drawPill(block, static_cast<int>(heading.at), *heading.year, row);
}

void RhythmPainter::drawPill(const QTextBlock& block, int offset, int year, const QRectF& row) {
    const QTextLine line = block.layout()->lineForTextPosition(offset);
    const QString text = qtTrId("YearSectionWarning").arg(year);
    const double width = QFontMetricsF(m_style.pillFont()).horizontalAdvance(text);
    const QRectF pill(line.naturalTextRect().right() + kPillGap,
                      qRound(row.center().y() - kPillHeight / 2), width + 2 * kPillPadding,
                      kPillHeight);
    fillRounded(m_painter, pill, kPillHeight / 2, theme::color(Token::AccentSoft));
    drawText(m_style.pillFont(), theme::color(Token::AccentDeep), pill.left() + kPillPadding, pill,
             text);
}

void RhythmPainter::drawBox(const QRect& box, bool isChecked, double share) {
    const QRectF rect(box);
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(isChecked ? QPen(Qt::NoPen) : QPen(theme::color(Token::BoxBorder), kBoxLine));
    m_painter.setBrush(theme::color(isChecked ? Token::Accent : Token::CardBgActive));
    const double inset = isChecked ? 0 : kBoxLine / 2;
    m_painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), kBoxRadius - inset,
                              kBoxRadius - inset);
    if (isChecked) {
        const double side = rect.width() / 16;
        const QPainterPath check = checkMark(rect.topLeft(), side, share);
        m_painter.setPen(QPen(theme::color(Token::Paper), kCheckLine * side, Qt::SolidLine,
                              Qt::RoundCap, Qt::RoundJoin));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPath(check);
    }
    m_painter.restore();
}

void RhythmPainter::drawQuote(const QTextBlock& block, const MarkdownDecoration& quote) {
    const QRectF first = rowOf(block, static_cast<int>(quote.at), m_layout);
    // A line may end within its paragraph, where the next row begins.
    const qsizetype end = quote.at + qMax<qsizetype>(0, quote.length - 1);
    const QRectF last = rowOf(block, static_cast<int>(end), m_layout);
    const double height = qMax(0.0, last.bottom() - first.top() - 2 * kBarInset);
    fillRounded(m_painter, {kTextEdge, first.top() + kBarInset, kBarWidth, height}, kBarWidth / 2,
                theme::color(Token::QuoteBar));
}

void RhythmPainter::drawRule(const QRectF& row) {
    const double right = row.right() - RhythmLayout::gutter;
    m_painter.fillRect(QRectF(kTextEdge, qRound(row.center().y() - 0.5), right - kTextEdge, 1),
                       theme::color(Token::Border));
}

}  // namespace velmar
