// Paints the text and what stands for its hidden markers: bullets, numbers, boxes, bars, rules,
// heading marks and the warning beside a heading that reads as a year. One is made for each paint.
#pragma once

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>

#include "DiaryApp/Editor/BlockStyle.h"
#include "DiaryApp/Editor/MatchMarks.h"
#include "DiaryApp/Editor/RhythmStyle.h"

namespace velmar {

class RhythmLayout;

class RhythmPainter {
public:
    using Context = QAbstractTextDocumentLayout::PaintContext;

    RhythmPainter(QPainter& painter, const RhythmLayout& layout, const RhythmStyle& style,
                  const Context& context);

    // What a search found in the rows that are drawn; none unless told.
    void setMarks(std::vector<MatchMarks::Mark> marks) { m_marks = std::move(marks); }
    // Grounds of code, then marks of a search, the selection, decorations, and the text.
    void drawBlock(const QTextBlock& block);

    // The row that shows the character, as wide as the document.
    [[nodiscard]] static QRectF rowOf(const QTextBlock& block, int offset,
                                      const RhythmLayout& layout);
    // The box of a task whose first row is this one.
    [[nodiscard]] static QRect taskBox(const diary::MarkdownDecoration& task, const QRectF& row,
                                       const RhythmStyle& style);
    // What a mark of these positions of the document covers in this block: as high as the letters,
    // and a pixel more on each side.
    [[nodiscard]] static QList<QRectF> markBoxes(const QTextBlock& block, diary::TextRange range,
                                                 const RhythmLayout& layout,
                                                 const RhythmStyle& style);

private:
    void drawGrounds(const QTextBlock& block);
    void drawFence(const QTextBlock& block);
    void drawSelections(const QTextBlock& block);
    void drawSelection(const QTextBlock& block, int from, int to);
    void drawMarks(const QTextBlock& block);
    void drawMark(const QRectF& box, double weight);
    void drawOblique(const QTextBlock& block);

    void drawDecoration(const QTextBlock& block, const diary::MarkdownDecoration& decoration);
    void drawHeading(const QTextBlock& block, const diary::MarkdownDecoration& heading,
                     const QRectF& row);
    void drawPill(const QTextBlock& block, int offset, int year, const QRectF& row);
    void drawBox(const QRect& box, bool isChecked, double share);
    void drawQuote(const QTextBlock& block, const diary::MarkdownDecoration& quote);
    void drawRule(const QRectF& row);
    void drawText(const QFont& font, const QColor& color, double x, const QRectF& row,
                  const QString& text);

    QPainter& m_painter;
    const RhythmLayout& m_layout;
    const RhythmStyle& m_style;
    const Context& m_context;
    std::vector<MatchMarks::Mark> m_marks;
};

}  // namespace velmar
