#include "DiaryApp/Appearance/Button.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QPainter>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QStyle>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kQuietHeight = 28;
constexpr int kHeight = 32;
constexpr int kIconSize = 16;
constexpr int kIconGap = 7;
constexpr double kRadius = 8;
constexpr int kHoverMilliseconds = 90;

}  // namespace

Button::Button(Kind kind, QWidget* parent) : QAbstractButton(parent), m_kind(kind) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_hover.setStartValue(0.0);
    m_hover.setEndValue(1.0);
    m_hover.setDuration(kHoverMilliseconds);
    m_hover.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_hover, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

void Button::setIconName(const QString& name) {
    m_iconName = name;
    updateGeometry();
    update();
}

void Button::setHint(const QString& text, const QKeySequence& shortcut) {
    const QString key = shortcut.toString(QKeySequence::NativeText);
    setToolTip(key.isEmpty() ? text : text + QStringLiteral("   ") + key);
}

QSize Button::sizeHint() const {
    const bool isQuiet = m_kind == Kind::Quiet;
    if (text().isEmpty()) return {kQuietHeight, kQuietHeight};
    const double padding = isQuiet ? 8 : 14;
    double width = 2 * padding + QFontMetricsF(labelFont()).horizontalAdvance(text());
    // Quiet buttons have a little more room behind the text, to balance the icon's own margin.
    if (!m_iconName.isEmpty()) width += kIconSize + kIconGap + 3;
    return {static_cast<int>(std::ceil(width)), isQuiet ? kQuietHeight : kHeight};
}

bool Button::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) fadeHover(true);
    if (event->type() == QEvent::HoverLeave) fadeHover(false);
    return QAbstractButton::event(event);
}

void Button::fadeHover(bool isOver) {
    m_hover.setDirection(isOver ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
    if (isAnimated && isVisible()) {
        if (m_hover.state() != QAbstractAnimation::Running) m_hover.start();
    } else {
        m_hover.setCurrentTime(isOver ? kHoverMilliseconds : 0);
    }
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colors now = colors();
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(now.line.alpha() > 0 ? QPen(now.line, 1) : QPen(Qt::NoPen));
    painter.setBrush(now.fill);
    painter.drawRoundedRect(now.line.alpha() > 0 ? box : QRectF(rect()), kRadius, kRadius);
    paintLabel(painter, now);
}

void Button::paintLabel(QPainter& painter, const Colors& colors) const {
    const bool hasIcon = !m_iconName.isEmpty();
    const double y = (height() - kIconSize) / 2.0;
    if (text().isEmpty()) {
        icons::paint(painter, {(width() - kIconSize) / 2.0, y, kIconSize, kIconSize}, m_iconName,
                     colors.icon);
        return;
    }
    const double textWidth = QFontMetricsF(labelFont()).horizontalAdvance(text());
    double x = hasIcon ? 8 : (width() - textWidth) / 2;
    if (hasIcon) {
        icons::paint(painter, {x, y, kIconSize, kIconSize}, m_iconName, colors.icon);
        x += kIconSize + kIconGap;
    }
    painter.setFont(labelFont());
    painter.setPen(colors.text);
    painter.drawText(QPointF(x, fonts::baseline(labelFont(), height())), text());
}

QFont Button::labelFont() const {
    return fonts::sans(m_kind == Kind::Quiet ? 13 : 13.5, QFont::Medium);
}

Button::Colors Button::colors() const {
    if (!isEnabled()) return disabledColors();
    if (isDown()) return pressedColors();
    const double share = m_hover.currentValue().toDouble();
    const Colors rest = restColors();
    const Colors hover = hoverColors();
    return {theme::mixed(rest.fill, hover.fill, share), theme::mixed(rest.line, hover.line, share),
            theme::mixed(rest.text, hover.text, share), theme::mixed(rest.icon, hover.icon, share)};
}

Button::Colors Button::restColors() const {
    using theme::color;
    switch (m_kind) {
        case Kind::Quiet:
            return {color(Token::HoverBg, 0), theme::none(), color(Token::ChromeText),
                    color(Token::Chevron)};
        case Kind::Plain:
            return {color(Token::CardBgActive), color(Token::Border), color(Token::InkMed),
                    color(Token::Chevron)};
        case Kind::Filled:
            break;
    }
    return {color(Token::Accent), theme::none(), color(Token::Paper), color(Token::Paper)};
}

Button::Colors Button::hoverColors() const {
    using theme::color;
    switch (m_kind) {
        case Kind::Quiet:
            return {color(Token::HoverBg), theme::none(), color(Token::InkMed),
                    color(Token::Chevron)};
        case Kind::Plain:
            return {color(Token::CardBgActive), color(Token::CardBorderHover), color(Token::Ink),
                    color(Token::Chevron)};
        case Kind::Filled:
            break;
    }
    return {color(Token::AccentDeep), theme::none(), color(Token::Paper), color(Token::Paper)};
}

Button::Colors Button::pressedColors() const {
    using theme::color;
    switch (m_kind) {
        case Kind::Quiet:
            return {color(Token::GridHoverOutline), theme::none(), color(Token::Ink),
                    color(Token::Chevron)};
        case Kind::Plain:
            return {color(Token::HoverBg), color(Token::CardBorderHover), color(Token::Ink),
                    color(Token::Chevron)};
        case Kind::Filled:
            break;
    }
    return {theme::mixed(color(Token::AccentDeep), color(Token::InkStrong), 0.14), theme::none(),
            color(Token::Paper), color(Token::Paper)};
}

Button::Colors Button::disabledColors() const {
    using theme::color;
    switch (m_kind) {
        case Kind::Quiet:
            return {theme::none(), theme::none(), color(Token::Faint), color(Token::Faint)};
        case Kind::Plain:
            return {color(Token::CardBg), color(Token::BorderSoft), color(Token::Faint),
                    color(Token::Faint)};
        case Kind::Filled:
            break;
    }
    return {color(Token::HoverBg), theme::none(), color(Token::Faint), color(Token::Faint)};
}

void Button::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    const bool byKeyboard = event->reason() == Qt::TabFocusReason ||
                            event->reason() == Qt::BacktabFocusReason ||
                            event->reason() == Qt::ShortcutFocusReason;
    if (!byKeyboard) return;
    if (m_ring == nullptr) m_ring = new QFocusFrame(this);
    m_ring->setWidget(this);
}

void Button::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    if (m_ring != nullptr) m_ring->setWidget(nullptr);
}

// Return presses the button as Space does, as it does everywhere outside dialogs' default buttons.
void Button::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmar
