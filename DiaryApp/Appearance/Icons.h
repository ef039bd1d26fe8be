// Line icons, drawn in any colour and sharp at any scale.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QPainter>

namespace velmar::icons {

// Draws the icon of this name ("chevron-left") into the square. Rendered once for each colour, size
// and scale. A name without an icon draws nothing.
void paint(QPainter& painter, const QRectF& square, const QString& name, const QColor& color);

[[nodiscard]] bool exists(const QString& name);

}  // namespace velmar::icons
