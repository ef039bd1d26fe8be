#include "DiaryApp/Entry/MatchPill.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <cmath>
#include <numbers>
#include <utility>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kHeight = 34;
constexpr int kRight = 34;
constexpr int kBottom = 22;
constexpr int kPaddingLeft = 15;
constexpr int kPaddingRight = 5;
constexpr int kLabelGap = 8;
constexpr double kIcon = 15;
constexpr int kFadeMilliseconds = 120;
constexpr double kRestOpacity = 0.8;
constexpr double kHoverFill = 0.16;
constexpr double kPressedFill = 0.26;
constexpr double kRingOpacity = 0.55;
// The shadow: how far down, how soft, how strong.
constexpr int kShadowDrop = 6;
constexpr int kShadowBlur = 18;
constexpr int kShadowRoom = kShadowBlur;
constexpr double kShadowOpacity = 0.18;
constexpr double kDarkShadowOpacity = 0.45;

QFont labelFont() {
    return fonts::mono(12);
}

// On dark paper a shadow is black, whatever the ink.
QColor shadowColor(double share) {
    if (!theme::tokens().isDark()) return theme::color(Token::InkStrong, kShadowOpacity * share);
    QColor black = theme::none();
    black.setAlphaF(static_cast<float>(kDarkShadowOpacity * share));
    return black;
}

// Rings upon each other, each with the part of the whole that a soft edge leaves to it.
void paintShadow(QPainter& painter, const QRectF& box) {
    painter.setPen(Qt::NoPen);
    for (int step = -kShadowBlur; step <= kShadowBlur; ++step) {
        const double grow = step;
        const double share =
            (1 + std::cos(std::numbers::pi * step / kShadowBlur)) / (2 * kShadowBlur);
        const QRectF ring = box.adjusted(-grow, -grow, grow, grow);
        if (ring.height() <= 0) continue;
        painter.setBrush(shadowColor(share));
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }
}

// As much larger than the pill as the shadow reaches. Dozens of rings take as long as a page, and
// all that moves on the page beneath asks for them again, so they are painted once.
class PillShadow : public QWidget {
public:
    PillShadow(const MatchPill* pill, QWidget* parent) : QWidget(parent), m_pill(pill) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const Look look = {size(), devicePixelRatioF(), shadowColor(1)};
        if (std::exchange(m_look, look) != look) m_picture = picture();
        QPainter painter(this);
        painter.setOpacity(m_pill->opacity());
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    struct Look {
        QSize size;
        double pixelRatio = 0;
        QColor color;

        bool operator==(const Look&) const = default;
    };

    [[nodiscard]] QPixmap picture() const {
        QPixmap made(m_look.size * m_look.pixelRatio);
        made.setDevicePixelRatio(m_look.pixelRatio);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        painter.setRenderHint(QPainter::Antialiasing);
        paintShadow(painter,
                    QRectF(rect()).adjusted(kShadowRoom, kShadowRoom, -kShadowRoom, -kShadowRoom));
        return made;
    }

    const MatchPill* m_pill;
    // What the picture was painted for.
    Look m_look;
    QPixmap m_picture;
};

}  // namespace

PillButton::PillButton(const QString& iconName, QWidget* parent)
    : QAbstractButton(parent), m_iconName(iconName) {
    setFocusPolicy(Qt::TabFocus);
    // Repaints it when the pointer comes and goes.
    setAttribute(Qt::WA_Hover);
    resize(side, side);
}

void PillButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto* pill = static_cast<const MatchPill*>(parentWidget());
    painter.setOpacity(pill->opacity());
    const double fill = isDown() ? kPressedFill : underMouse() ? kHoverFill : 0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::color(Token::PillText, fill));
    painter.drawEllipse(rect());
    if (m_hasRing) {
        painter.setPen(QPen(theme::color(Token::PillText, kRingOpacity), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
    const QRectF icon((width() - kIcon) / 2, (height() - kIcon) / 2, kIcon, kIcon);
    icons::paint(painter, icon, m_iconName,
                 theme::color(Token::PillText, fill > 0 ? 1 : kRestOpacity));
}

void PillButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

void PillButton::focusInEvent(QFocusEvent* event) {
    m_hasRing = event->reason() == Qt::TabFocusReason ||
                event->reason() == Qt::BacktabFocusReason ||
                event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
}

void PillButton::focusOutEvent(QFocusEvent* event) {
    m_hasRing = false;
    QAbstractButton::focusOutEvent(event);
}

MatchPill::MatchPill(QWidget* parent)
    : QWidget(parent),
      m_previous(new PillButton(QStringLiteral("chevron-up"), this)),
      m_next(new PillButton(QStringLiteral("chevron-down"), this)),
      m_shadow(new PillShadow(this, parent)) {
    hide();
    m_fade.setStartValue(0.0);
    m_fade.setEndValue(1.0);
    m_fade.setDuration(kFadeMilliseconds);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this] {
        update();
        m_shadow->update();
    });
    connect(&m_fade, &QVariantAnimation::finished, this, [this] {
        if (m_fade.direction() == QAbstractAnimation::Backward) hide();
    });
    retranslate();
}

void MatchPill::retranslate() {
    const auto name = [](PillButton* button, const QString& text, QKeyCombination keys) {
        button->setAccessibleName(text);
        const QString key = QKeySequence(keys).toString(QKeySequence::NativeText);
        button->setToolTip(text + QStringLiteral("   ") + key);
    };
    name(m_previous, qtTrId("Find Previous"), Qt::CTRL | Qt::SHIFT | Qt::Key_G);
    name(m_next, qtTrId("Find Next"), Qt::CTRL | Qt::Key_G);
    showLabel();
}

void MatchPill::setMatches(const std::optional<EntryModel::Matches>& matches) {
    if (matches) {
        m_matches = *matches;
        showLabel();
    }
    fade(matches.has_value());
}

void MatchPill::showLabel() {
    m_label = qtTrId("MatchOf").arg(m_matches.current + 1).arg(m_matches.count);
    setAccessibleName(m_label);
    place();
    update();
}

void MatchPill::fade(bool isIn) {
    const bool wasIn =
        isVisibleTo(parentWidget()) && m_fade.direction() == QAbstractAnimation::Forward;
    if (isIn == wasIn) return;
    m_fade.setDirection(isIn ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (isIn) {
        show();
        raiseAll();
    }
    if (motion::duration(kFadeMilliseconds) > 0 && parentWidget()->isVisible()) {
        if (m_fade.state() != QAbstractAnimation::Running) m_fade.start();
        return;
    }
    m_fade.stop();
    m_fade.setCurrentTime(isIn ? kFadeMilliseconds : 0);
    setVisible(isIn);
}

void MatchPill::place() {
    const double text = QFontMetricsF(labelFont()).horizontalAdvance(m_label);
    resize(kPaddingLeft + static_cast<int>(std::ceil(text)) + kLabelGap + 2 * PillButton::side +
               kPaddingRight,
           kHeight);
    move(parentWidget()->width() - kRight - width(), parentWidget()->height() - kBottom - kHeight);
    m_next->move(width() - kPaddingRight - PillButton::side, (kHeight - PillButton::side) / 2);
    m_previous->move(m_next->x() - PillButton::side, m_next->y());
    m_shadow->setGeometry(geometry()
                              .translated(0, kShadowDrop)
                              .adjusted(-kShadowRoom, -kShadowRoom, kShadowRoom, kShadowRoom));
}

void MatchPill::raiseAll() {
    m_shadow->raise();
    raise();
}

void MatchPill::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_shadow->show();
}

void MatchPill::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_shadow->hide();
}

void MatchPill::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity());
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::color(Token::PillBg));
    painter.drawRoundedRect(rect(), kHeight / 2.0, kHeight / 2.0);
    paintLine(painter, rect().adjusted(kPaddingLeft, 0, 0, 0), m_label,
              {labelFont(), kHeight, Token::PillText});
}

}  // namespace velmar
