#include "DiaryApp/SettingsWindow/PathField.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {
constexpr int kHeight = 32;
constexpr double kRadius = 8;
constexpr QRectF kIcon(11, 8, 16, 16);
constexpr int kTextLeft = 35;
constexpr int kTextRight = 11;
constexpr int kLeastWidth = 120;
}  // namespace

PathField::PathField(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PathField::setPath(const QString& shown, const QString& whole) {
    setText(shown);
    setToolTip(whole);
}

QSize PathField::sizeHint() const {
    return minimumSizeHint();
}

QSize PathField::minimumSizeHint() const {
    return {kLeastWidth, kHeight};
}

void PathField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::color(Token::Border), 1));
    painter.setBrush(theme::color(Token::CardBgActive));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    icons::paint(painter, kIcon, QStringLiteral("folder"), theme::color(Token::Chevron));
    const QFont font = fonts::mono(12.5);
    const QRectF place = QRectF(rect()).adjusted(kTextLeft, 0, -kTextRight, 0);
    const QString shown = QFontMetricsF(font).elidedText(text(), Qt::ElideMiddle, place.width());
    paintLine(painter, place, shown, {font, kHeight, Token::InkMed});
}

}  // namespace velmar
