// The mark of Velmar: six growth rings, one of them this year's.
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainter>

namespace velmar {

// Draws the mark into the square, in the palette in force; made for 88 pixels.
void paintRingsMark(QPainter& painter, const QRectF& square);

}  // namespace velmar
