#include "DiaryApp/Appearance/RingsMark.h"

#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

void paintRingsMark(QPainter& painter, const QRectF& square) {
    icons::paint(painter, square, QStringLiteral("mark-rings"),
                 theme::color(Token::CardBorderHover));
    icons::paint(painter, square, QStringLiteral("mark-ring"), theme::color(Token::Accent));
}

}  // namespace velmar
