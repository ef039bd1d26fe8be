#include "DiaryApp/Appearance/Stepper.h"

#include <QtGui/QAccessible>
#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <algorithm>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/HoverFade.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kHeight = 32;
constexpr int kHalf = 32;
constexpr int kMiddle = 52;
constexpr int kWidth = 2 * kHalf + kMiddle + 2;
constexpr double kRadius = 8;
// Inside the line, so that a pressed half follows the corners.
constexpr double kHalfRadius = 5;

void paintCentred(QPainter& painter, const QRectF& box, const QFont& font, const QString& text) {
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    painter.setFont(font);
    painter.drawText(QPointF(box.left() + (box.width() - width) / 2,
                             box.top() + fonts::baseline(font, box.height())),
                     text);
}

}  // namespace

class Stepper::Half : public QAbstractButton {
public:
    Half(const QString& sign, QWidget* parent) : QAbstractButton(parent), m_hover(this) {
        setText(sign);
        setFocusPolicy(Qt::NoFocus);
        setAutoRepeat(true);
        setAttribute(Qt::WA_Hover);
    }
    [[nodiscard]] QSize sizeHint() const override { return {kHalf, kHeight - 2}; }

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
        if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
        return QAbstractButton::event(event);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        using theme::color;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isDown()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(color(Token::HoverBg));
            painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), kHalfRadius,
                                    kHalfRadius);
        }
        const QColor over =
            theme::mixed(color(Token::ChromeText), color(Token::InkMed), m_hover.share());
        painter.setPen(isEnabled() ? over : color(Token::Faint));
        paintCentred(painter, rect(), fonts::sans(16), text());
    }

private:
    HoverFade m_hover;
};

Stepper::Stepper(QWidget* parent)
    : QWidget(parent),
      m_smaller(new Half(QString(QChar(0x2212)), this)),
      m_larger(new Half(QStringLiteral("+"), this)),
      m_ring(this) {
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    access::installControls();
    m_smaller->setGeometry(1, 1, kHalf, kHeight - 2);
    m_larger->setGeometry(kWidth - 1 - kHalf, 1, kHalf, kHeight - 2);
    connect(m_smaller, &QAbstractButton::clicked, this, [this] { step(-kStep); });
    connect(m_larger, &QAbstractButton::clicked, this, [this] { step(kStep); });
}

void Stepper::setStepNames(const QString& smaller, const QString& larger) {
    m_smaller->setAccessibleName(smaller);
    m_larger->setAccessibleName(larger);
    m_smaller->setToolTip(smaller);
    m_larger->setToolTip(larger);
}

void Stepper::setRange(double minimum, double maximum) {
    m_minimum = minimum;
    m_maximum = maximum;
    valueChanged();
}

void Stepper::setValue(double value) {
    m_value = value;
    valueChanged();
}

void Stepper::change(double value) {
    const double bounded = std::clamp(value, m_minimum, m_maximum);
    if (qFuzzyCompare(bounded, m_value)) return;
    m_value = bounded;
    valueChanged();
    QAccessibleValueChangeEvent changed(this, m_value);
    QAccessible::updateAccessibility(&changed);
    if (onChanged) onChanged(m_value);
}

void Stepper::valueChanged() {
    m_smaller->setEnabled(m_value - kStep >= m_minimum);
    m_larger->setEnabled(m_value + kStep <= m_maximum);
    update();
}

// A step that would lead out of the range isn't taken, so that halves stay halves.
void Stepper::step(double by) {
    const bool isPossible = by < 0 ? m_smaller->isEnabled() : m_larger->isEnabled();
    if (isPossible) change(m_value + by);
}

QString Stepper::valueText() const {
    return QString::number(m_value);
}

QAbstractButton* Stepper::smaller() const {
    return m_smaller;
}

QAbstractButton* Stepper::larger() const {
    return m_larger;
}

QSize Stepper::sizeHint() const {
    return {kWidth, kHeight};
}

void Stepper::paintEvent(QPaintEvent* /*event*/) {
    using theme::color;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(isEnabled() ? Token::Border : Token::BorderSoft), 1));
    painter.setBrush(color(isEnabled() ? Token::CardBgActive : Token::CardBg));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    const QRectF middle(1 + kHalf, 1, kMiddle, kHeight - 2);
    painter.fillRect(QRectF(middle.left(), middle.top(), 1, middle.height()),
                     color(Token::BorderSoft));
    painter.fillRect(QRectF(middle.right() - 1, middle.top(), 1, middle.height()),
                     color(Token::BorderSoft));
    painter.setPen(color(isEnabled() ? Token::InkMed : Token::Faint));
    paintCentred(painter, middle, fonts::mono(12.5), valueText());
}

void Stepper::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void Stepper::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

void Stepper::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Right:
        case Qt::Key_Plus:
            step(kStep);
            return;
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Minus:
            step(-kStep);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace velmar
