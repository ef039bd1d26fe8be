#include "DiaryApp/Appearance/CardButton.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QFocusFrame>

#include "DiaryApp/Appearance/Motion.h"

namespace velmar {

namespace {

constexpr int kHoverMilliseconds = 90;

}  // namespace

void paintCard(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
               const QColor& line, Qt::PenStyle style) {
    QPen pen(line, 1, style);
    if (style == Qt::DashLine) pen.setDashPattern({3, 2.5});
    painter.setPen(pen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

CardButton::CardButton(double radius, QWidget* parent) : QAbstractButton(parent), m_radius(radius) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    m_hover.setStartValue(0.0);
    m_hover.setEndValue(1.0);
    m_hover.setDuration(kHoverMilliseconds);
    m_hover.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_hover, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

void CardButton::setGround(const Ground& ground) {
    m_ground = ground;
    update();
}

double CardButton::hoverShare() const {
    return m_hover.currentValue().toDouble();
}

QColor CardButton::hovered(Token rest, Token hover) const {
    return theme::mixed(theme::color(rest), theme::color(hover), hoverShare());
}

bool CardButton::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) fadeHover(true);
    if (event->type() == QEvent::HoverLeave) fadeHover(false);
    return QAbstractButton::event(event);
}

void CardButton::fadeHover(bool isOver) {
    m_hover.setDirection(isOver ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (!motion::isReduced() && isVisible()) {
        if (m_hover.state() != QAbstractAnimation::Running) m_hover.start();
    } else {
        m_hover.setCurrentTime(isOver ? kHoverMilliseconds : 0);
    }
}

void CardButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor rest = m_ground.isDashed ? theme::none() : theme::color(m_ground.fill);
    paintCard(painter, rect(), m_radius, isDown() ? theme::color(Token::HoverBg) : rest,
              hovered(m_ground.line, m_ground.hoverLine),
              m_ground.isDashed ? Qt::DashLine : Qt::SolidLine);
    paintContent(painter);
}

void CardButton::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    const bool byKeyboard = event->reason() == Qt::TabFocusReason ||
                            event->reason() == Qt::BacktabFocusReason ||
                            event->reason() == Qt::ShortcutFocusReason;
    if (!byKeyboard) return;
    if (m_ring == nullptr) m_ring = new QFocusFrame(this);
    m_ring->setWidget(this);
}

void CardButton::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    if (m_ring != nullptr) m_ring->setWidget(nullptr);
}

// Return presses the card as Space does.
void CardButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmar
