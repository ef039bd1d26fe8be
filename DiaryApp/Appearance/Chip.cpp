#include "DiaryApp/Appearance/Chip.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QStyle>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr double kRadius = Chip::chipHeight / 2.0;
// Icons have a margin of their own around what is drawn, which the chip's spacing leaves out.
constexpr double kIconMargin = 2;
constexpr double kLeadingIcon = 14;
constexpr double kTrailingIcon = 12;
constexpr int kHoverMilliseconds = 90;

}  // namespace

Chip::Chip(Size size, QWidget* parent) : QAbstractButton(parent), m_size(size) {
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_hover.setStartValue(0.0);
    m_hover.setEndValue(1.0);
    m_hover.setDuration(kHoverMilliseconds);
    m_hover.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_hover, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

void Chip::setIconName(const QString& name, IconPlace place) {
    m_iconName = name;
    m_iconPlace = place;
    updateGeometry();
    update();
}

Chip::Measures Chip::measures() const {
    if (m_size == Size::Small) return {7, 2, 11};
    return {11, 6, 11.5};
}

double Chip::iconSize() const {
    if (m_iconName.isEmpty()) return 0;
    return m_iconPlace == IconPlace::Leading ? kLeadingIcon : kTrailingIcon;
}

double Chip::contentWidth() const {
    const QFontMetricsF metrics(fonts::mono(measures().fontSize));
    const double textWidth = text().isEmpty() ? 0 : metrics.horizontalAdvance(text());
    if (m_iconName.isEmpty()) return textWidth;
    const double iconWidth = iconSize() - 2 * kIconMargin;
    return text().isEmpty() ? iconWidth : textWidth + measures().gap + iconWidth;
}

QSize Chip::sizeHint() const {
    return {static_cast<int>(std::ceil(contentWidth() + 2 * measures().padding)), chipHeight};
}

bool Chip::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) fadeHover(true);
    if (event->type() == QEvent::HoverLeave) fadeHover(false);
    return QAbstractButton::event(event);
}

void Chip::fadeHover(bool isOver) {
    m_hover.setDirection(isOver ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
    if (isAnimated && isVisible()) {
        if (m_hover.state() != QAbstractAnimation::Running) m_hover.start();
    } else {
        m_hover.setCurrentTime(isOver ? kHoverMilliseconds : 0);
    }
}

Chip::Colors Chip::restColors() const {
    using theme::color;
    if (isChecked()) return {color(Token::PillBg), color(Token::PillBg), color(Token::PillText)};
    return {color(Token::CardBg), color(Token::CardBorder), color(Token::ChromeText)};
}

Chip::Colors Chip::colors() const {
    using theme::color;
    if (!isEnabled()) {
        return {color(Token::CardBg), color(Token::CardBorder), color(Token::Faint)};
    }
    const Colors rest = restColors();
    // A chip that is on looks the same under the pointer: there is nothing more to choose.
    if (isChecked()) return rest;
    if (isDown()) {
        return {color(Token::HoverBg), color(Token::CardBorderHover), color(Token::InkMed)};
    }
    const double share = m_hover.currentValue().toDouble();
    return {rest.fill, theme::mixed(rest.line, color(Token::CardBorderHover), share),
            theme::mixed(rest.text, color(Token::InkMed), share)};
}

void Chip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colors now = colors();
    painter.setPen(QPen(now.line, 1));
    painter.setBrush(now.fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    paintContent(painter, now.text);
}

void Chip::paintContent(QPainter& painter, const QColor& color) const {
    const double left = (width() - contentWidth()) / 2;
    const double right = left + contentWidth();
    const double size = iconSize();
    const bool leads = m_iconPlace == IconPlace::Leading;
    if (!m_iconName.isEmpty()) {
        const double x = leads ? left - kIconMargin : right + kIconMargin - size;
        icons::paint(painter, {x, (height() - size) / 2, size, size}, m_iconName, color);
    }
    if (text().isEmpty()) return;
    const QFont font = fonts::mono(measures().fontSize);
    const double shift =
        !m_iconName.isEmpty() && leads ? size - 2 * kIconMargin + measures().gap : 0;
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(left + shift, fonts::baseline(font, height())), text());
}

void Chip::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    const bool byKeyboard = event->reason() == Qt::TabFocusReason ||
                            event->reason() == Qt::BacktabFocusReason ||
                            event->reason() == Qt::ShortcutFocusReason;
    if (!byKeyboard) return;
    if (m_ring == nullptr) m_ring = new QFocusFrame(this);
    m_ring->setWidget(this);
}

void Chip::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    if (m_ring != nullptr) m_ring->setWidget(nullptr);
}

void Chip::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmar
