// A hit's snippet laid out: up to two lines, the last one elided, with its matches as rectangles.
// The first match begins some 15 letters from the start, so it is seen in any script.
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QTextLayout>
#include <vector>

#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryKit/Foundation/TextRange.h"

namespace velmar {

class SnippetLayout {
public:
    static constexpr int maximumLines = 2;
    static constexpr double lineHeight = 19;

    SnippetLayout(const QString& text, const std::vector<diary::TextRange>& marks, double width);

    [[nodiscard]] int lineCount() const { return m_layout.lineCount(); }

    // The lines that `text` takes at this width.
    [[nodiscard]] static int lineCount(const QString& text, double width);
    // About as many, told by the number and the script of its letters alone.
    [[nodiscard]] static int likelyLineCount(const QString& text, double width);

    // What the marks cover, a rectangle for each line.
    [[nodiscard]] std::vector<QRectF> markBoxes() const;

    // Paints marks and text from this point on.
    void paint(QPainter& painter, const QPointF& topLeft, Token color) const;

private:
    void layOut();
    [[nodiscard]] QString elided() const;
    double m_width;
    std::vector<diary::TextRange> m_marks;
    QTextLayout m_layout;
};

}  // namespace velmar
