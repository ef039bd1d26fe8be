#include "DiaryApp/Appearance/Button.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QPainter>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"

namespace velmar {

namespace {

constexpr double kIconGap = 7;
// An icon has air of its own, so it stands nearer to the edge than text does.
constexpr double kIconOutdent = 3;
constexpr double kUnderlineOffset = 3;

ButtonSize usualSize(ButtonKind kind) {
    switch (kind) {
        case ButtonKind::Quiet:
            return ButtonSize::Bar;
        case ButtonKind::Link:
            return ButtonSize::Line;
        default:
            return ButtonSize::Regular;
    }
}

}  // namespace

Button::Button(Kind kind, QWidget* parent)
    : QAbstractButton(parent),
      m_kind(kind),
      m_size(usualSize(kind)),
      m_hover(this),
      m_ring(this, buttonMeasures(kind, m_size).radius) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Button::setButtonSize(Size size) {
    m_size = size;
    m_ring.setCornerRadius(buttonMeasures(m_kind, size).radius);
    updateGeometry();
    update();
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
    const ButtonMeasures measures = buttonMeasures(m_kind, m_size);
    if (text().isEmpty()) return {measures.height, measures.height};
    return {static_cast<int>(std::ceil(2 * measures.padding + labelWidth())), measures.height};
}

// Of icon and text, from where text would begin.
double Button::labelWidth() const {
    const double textWidth = QFontMetricsF(labelFont()).horizontalAdvance(text());
    if (m_iconName.isEmpty()) return textWidth;
    return buttonMeasures(m_kind, m_size).iconSize + kIconGap - kIconOutdent + textWidth;
}

bool Button::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ButtonColors now = colors();
    const double radius = buttonMeasures(m_kind, m_size).radius;
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(now.line.alpha() > 0 ? QPen(now.line, 1) : QPen(Qt::NoPen));
    painter.setBrush(now.fill);
    painter.drawRoundedRect(now.line.alpha() > 0 ? box : QRectF(rect()), radius, radius);
    paintLabel(painter, now);
}

void Button::paintLabel(QPainter& painter, const ButtonColors& colors) const {
    const double icon = buttonMeasures(m_kind, m_size).iconSize;
    const double y = std::floor((height() - icon) / 2);
    if (text().isEmpty()) {
        icons::paint(painter, {std::floor((width() - icon) / 2), y, icon, icon}, m_iconName,
                     colors.icon);
        return;
    }
    double x = (width() - labelWidth()) / 2;
    if (!m_iconName.isEmpty()) {
        x = std::floor(x) - kIconOutdent;
        icons::paint(painter, {x, y, icon, icon}, m_iconName, colors.icon);
        x += icon + kIconGap;
    }
    const double baseline = fonts::baseline(labelFont(), height());
    painter.setFont(labelFont());
    painter.setPen(colors.text);
    painter.drawText(QPointF(x, baseline), text());
    if (m_kind == Kind::Link && m_hover.share() > 0 && isEnabled()) {
        const double width = QFontMetricsF(labelFont()).horizontalAdvance(text());
        painter.fillRect(QRectF(x, baseline + kUnderlineOffset, width, 1), colors.text);
    }
}

QFont Button::labelFont() const {
    return fonts::sans(buttonMeasures(m_kind, m_size).fontSize, QFont::Medium);
}

ButtonColors Button::colors() const {
    if (!isEnabled()) return buttonColors(m_kind, ButtonState::Disabled);
    if (isDown()) return buttonColors(m_kind, ButtonState::Pressed);
    return mixed(buttonColors(m_kind, ButtonState::Rest), buttonColors(m_kind, ButtonState::Hover),
                 m_hover.share());
}

void Button::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void Button::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
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
