#include "DiaryApp/Appearance/CheckBox.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kBox = 16;
constexpr int kHeight = 20;
constexpr int kGap = 10;
constexpr double kRadius = 4;
constexpr double kLine = 1.5;
constexpr double kMarkLine = 1.8;
constexpr double kDot = 6;
constexpr int kMarkMilliseconds = 100;
constexpr double kDisabledOpacity = 0.45;

QFont labelFont() {
    return fonts::sans(13.5);
}

// The first part of a path of straight lines, up to this share of its length.
QPainterPath beginning(const QPainterPath& whole, double share) {
    QPainterPath part(whole.elementAt(0));
    double rest = whole.length() * share;
    for (int i = 1; i < whole.elementCount() && rest > 0; ++i) {
        const QPointF from = whole.elementAt(i - 1);
        const QPointF to = whole.elementAt(i);
        const double length = QLineF(from, to).length();
        part.lineTo(from + (to - from) * std::min(1.0, rest / length));
        rest -= length;
    }
    return part;
}

}  // namespace

CheckBox::CheckBox(const QString& text, QWidget* parent, Shape shape)
    : QAbstractButton(parent),
      m_shape(shape),
      m_box(new QWidget(this)),
      m_hover(this),
      m_ring(m_box, shape == Shape::Round ? kBox / 2.0 : kRadius) {
    setText(text);
    setCheckable(true);
    setAutoExclusive(shape == Shape::Round);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_box->setGeometry(0, (kHeight - kBox) / 2, kBox, kBox);
    m_box->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_drawing.setDuration(kMarkMilliseconds);
    connect(&m_drawing, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_mark = value.toDouble();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, &CheckBox::markChanged);
    connect(this, &QAbstractButton::clicked, this, [this](bool isOn) {
        if (onChanged) onChanged(isOn);
    });
}

void CheckBox::markChanged(bool isOn) {
    m_drawing.stop();
    if (!isOn || !isVisible() || motion::isReduced()) {
        m_mark = isOn ? 1 : 0;
        update();
        return;
    }
    m_drawing.setStartValue(0.0);
    m_drawing.setEndValue(1.0);
    m_drawing.start();
}

QSize CheckBox::sizeHint() const {
    if (text().isEmpty()) return {kBox, kHeight};
    const double width = QFontMetricsF(labelFont()).horizontalAdvance(text());
    return {kBox + kGap + static_cast<int>(std::ceil(width)), kHeight};
}

bool CheckBox::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void CheckBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
    paintBox(painter);
    if (isChecked()) paintMark(painter);
    painter.restore();
    const QRectF words = QRectF(rect()).adjusted(kBox + kGap, 0, 0, 0);
    paintLine(painter, words, text(),
              {labelFont(), kHeight, isEnabled() ? Token::InkMed : Token::Faint});
}

void CheckBox::paintBox(QPainter& painter) const {
    using theme::color;
    const bool isFilled = isChecked() && m_shape == Shape::Square;
    const double over = isDown() ? 1 : m_hover.share();
    const QColor accent = theme::mixed(color(Token::Accent), color(Token::AccentDeep), over);
    const QColor line = theme::mixed(color(Token::BoxBorder), color(Token::CardBorderActive), over);
    const double inset = isFilled ? 0 : kLine / 2;
    const double radius = m_shape == Shape::Round ? kBox / 2.0 : kRadius;
    painter.setPen(isFilled ? QPen(Qt::NoPen) : QPen(isChecked() ? accent : line, kLine));
    if (isFilled) {
        painter.setBrush(accent);
    } else {
        painter.setBrush(color(isDown() ? Token::HoverBg : Token::CardBgActive));
    }
    painter.drawRoundedRect(QRectF(m_box->geometry()).adjusted(inset, inset, -inset, -inset),
                            radius - inset, radius - inset);
}

void CheckBox::paintMark(QPainter& painter) const {
    const QRectF box = m_box->geometry();
    if (m_shape == Shape::Round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::mixed(theme::color(Token::Accent), theme::color(Token::AccentDeep),
                                      isDown() ? 1 : m_hover.share()));
        painter.drawEllipse(box.center(), kDot / 2 * m_mark, kDot / 2 * m_mark);
        return;
    }
    // The same mark as a ticked box has in the diary's text.
    QPainterPath mark(box.topLeft() + QPointF(4.2, 8.4));
    mark.lineTo(box.topLeft() + QPointF(6.9, 11.1));
    mark.lineTo(box.topLeft() + QPointF(11.8, 5.2));
    painter.setPen(
        QPen(theme::color(Token::Paper), kMarkLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(beginning(mark, m_mark));
}

void CheckBox::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void CheckBox::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

void CheckBox::keyPressEvent(QKeyEvent* event) {
    QAbstractButton::keyPressEvent(event);
    if (event->isAccepted()) m_ring.keyUsed();
}

}  // namespace velmar
