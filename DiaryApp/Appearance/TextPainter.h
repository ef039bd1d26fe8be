// Single lines and paragraphs on a fixed line height, as the pages are set: the text is centred in
// its line by its font's ascent and descent, and long lines end in an ellipsis.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

struct TextLook {
    QFont font;
    double lineHeight = 0;
    Token color = Token::Ink;
};

// One line, elided at the rectangle's right edge; only AlignLeft and AlignRight count.
void paintLine(QPainter& painter, const QRectF& rect, const QString& text, const TextLook& look,
               Qt::Alignment alignment = Qt::AlignLeft);

// Wrapped text from the rectangle's top. Lines below its bottom are painted too; AlignHCenter
// centres each line.
void paintParagraph(QPainter& painter, const QRectF& rect, const QString& text,
                    const TextLook& look, Qt::Alignment alignment = Qt::AlignLeft);

// Wrapped text of at most this many lines; the last one is elided where there is more.
void paintLines(QPainter& painter, const QRectF& rect, const QString& text, const TextLook& look,
                int lineCount);

// The height of the same text wrapped at this width; a whole number of lines, at least one.
[[nodiscard]] double paragraphHeight(const QString& text, const TextLook& look, double width);

// A line of one device pixel at any scale, along the top of the rectangle's row of pixels.
void paintHairline(QPainter& painter, const QPointF& from, double width, Token color);

}  // namespace velmar
