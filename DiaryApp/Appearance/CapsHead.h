// The small heads over groups: capitals set apart in Latin letters; in Chinese and Japanese, which
// have none, the text as it is.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QPainter>

namespace velmar {

inline constexpr double kCapsHeadHeight = 14;

// At the rectangle's left, on its first line, in the form of the installed language.
void paintCapsHead(QPainter& painter, const QRectF& rect, const QString& text);

}  // namespace velmar
