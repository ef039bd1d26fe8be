#include "DiaryApp/Search/RecentSearchRow.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kIconLeft = 10;
constexpr double kIconSize = 15;
constexpr double kTextLeft = 35;
constexpr double kRight = 10;
constexpr double kRadius = 8;

}  // namespace

RecentSearchRow::RecentSearchRow(QWidget* parent) : QAbstractButton(parent), m_ring(this, kRadius) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void RecentSearchRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::color(isDown() ? Token::GridHoverOutline : Token::HoverBg));
        painter.drawRoundedRect(QRectF(rect()), kRadius, kRadius);
    }
    icons::paint(painter, {kIconLeft, (height() - kIconSize) / 2, kIconSize, kIconSize},
                 QStringLiteral("clock"), theme::color(Token::Chevron));
    paintLine(painter, QRectF(rect()).adjusted(kTextLeft, 0, -kRight, 0), text(),
              {fonts::serif(14), double(height()), Token::InkMed});
}

void RecentSearchRow::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void RecentSearchRow::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

void RecentSearchRow::keyPressEvent(QKeyEvent* event) {
    m_ring.keyUsed();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmar
