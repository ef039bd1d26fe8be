#include "DiaryApp/Appearance/CardButton.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

namespace velmar {

void paintCard(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
               const QColor& line, Qt::PenStyle style) {
    QPen pen(line, 1, style);
    if (style == Qt::DashLine) pen.setDashPattern({3, 2.5});
    painter.setPen(pen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

CardButton::CardButton(double radius, QWidget* parent)
    : QAbstractButton(parent), m_radius(radius), m_hover(this), m_ring(this, radius) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void CardButton::setGround(const Ground& ground) {
    m_ground = ground;
    update();
}

QColor CardButton::hovered(Token rest, Token hover) const {
    return theme::mixed(theme::color(rest), theme::color(hover), hoverShare());
}

bool CardButton::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void CardButton::paintGround(QPainter& painter) const {
    const QColor rest = m_ground.isDashed ? theme::none() : theme::color(m_ground.fill);
    paintCard(painter, rect(), m_radius, isDown() ? theme::color(Token::HoverBg) : rest,
              hovered(m_ground.line, m_ground.hoverLine),
              m_ground.isDashed ? Qt::DashLine : Qt::SolidLine);
}

void CardButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    paintContent(painter);
}

void CardButton::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void CardButton::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

// Return presses the card as Space does.
void CardButton::keyPressEvent(QKeyEvent* event) {
    m_ring.keyUsed();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmar
