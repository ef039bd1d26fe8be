// Paints the text and what stands for its hidden markers: bullets, numbers, boxes, bars, rules,
// heading marks and the warning beside a heading that reads as a year. One is made for each paint.
#pragma once

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>

#include "DiaryApp/Editor/BlockStyle.h"
#include "DiaryApp/Editor/RhythmStyle.h"

namespace velmar {

class RhythmLayout;

class RhythmPainter {
public:
    using Context = QAbstractTextDocumentLayout::PaintContext;

    RhythmPainter(QPainter& painter, const RhythmLayout& layout, const RhythmStyle& style,
                  const Context& context);

    // Grounds of code, then search marks and selection, then decorations, then the text.
    void drawBlock(const QTextBlock& block);

    // The row that shows the character, as wide as the document.
    [[nodiscard]] static QRectF rowOf(const QTextBlock& block, int offset,
                                      const RhythmLayout& layout);
    // The box of a task whose first row is this one.
    [[nodiscard]] static QRect taskBox(const diary::MarkdownDecoration& task, const QRectF& row,
                                       const RhythmStyle& style);

private:
    void drawGrounds(const QTextBlock& block);
    void drawFence(const QTextBlock& block);
    void drawSelections(const QTextBlock& block);
    void drawSelection(const QTextBlock& block, int from, int to, const QTextCharFormat& format);
    [[nodiscard]] QList<QRectF> rowsOf(const QTextBlock& block, int from, int to) const;
    void drawOblique(const QTextBlock& block);

    void drawDecoration(const QTextBlock& block, const diary::MarkdownDecoration& decoration);
    void drawHeading(const QTextBlock& block, const diary::MarkdownDecoration& heading,
                     const QRectF& row);
    void drawPill(const QTextBlock& block, int offset, int year, const QRectF& row);
    void drawBox(const QRect& box, bool isChecked);
    void drawQuote(const QTextBlock& block, const diary::MarkdownDecoration& quote);
    void drawRule(const QRectF& row);
    void drawText(const QFont& font, const QColor& color, double x, const QRectF& row,
                  const QString& text);

    QPainter& m_painter;
    const RhythmLayout& m_layout;
    const RhythmStyle& m_style;
    const Context& m_context;
};

}  // namespace velmar
