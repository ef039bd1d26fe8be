// Line icons, drawn in any colour and sharp at any scale.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar::icons {

// Draws the icon of this name ("chevron-left") into the square. Rendered once for each colour, size
// and scale. A name without an icon draws nothing.
void paint(QPainter& painter, const QRectF& square, const QString& name, const QColor& color);

// The icon for what Qt paints, in the colour that the token has at each paint.
[[nodiscard]] QIcon icon(const QString& name, Token token);

[[nodiscard]] bool exists(const QString& name);

}  // namespace velmar::icons
