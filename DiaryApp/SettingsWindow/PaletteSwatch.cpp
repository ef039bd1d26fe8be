#include "DiaryApp/SettingsWindow/PaletteSwatch.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <array>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kWidth = 78;
constexpr int kHeight = 58;
constexpr int kPitch = 88;
constexpr double kRadius = 8;
constexpr int kNameGap = 7;
constexpr int kNameHeight = 16;
constexpr int kSideWidth = 19;
constexpr double kDimmed = 0.5;

struct Bar {
    QRectF place;
    Token color;
};

// The lines of text on the page and the entries of its sidebar, inside of the page's line.
constexpr std::array kBars = {
    Bar{{28, 11, 34, 2}, Token::InkStrong}, Bar{{28, 18, 40, 2}, Token::PastText},
    Bar{{28, 25, 26, 2}, Token::PastText},  Bar{{6, 23, 9, 2}, Token::Faint},
    Bar{{6, 29, 9, 2}, Token::Faint},       Bar{{6, 35, 9, 2}, Token::Faint},
};
constexpr QRectF kDot(7, 9, 7, 7);
constexpr QRectF kFirstChip(28, 42, 9, 7);
constexpr double kChipPitch = 11;

QString nameOf(diary::Palette palette) {
    switch (palette) {
        case diary::Palette::paper:
            return qtTrId("Palette.paper");
        case diary::Palette::plain:
            return qtTrId("Palette.plain");
        case diary::Palette::osmanthus:
            return qtTrId("Palette.osmanthus");
        case diary::Palette::celadon:
            return qtTrId("Palette.celadon");
        case diary::Palette::ink:
            return qtTrId("Palette.ink");
        case diary::Palette::indigo:
            break;
    }
    return qtTrId("Palette.indigo");
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, radius, radius);
}

}  // namespace

PaletteSwatch::PaletteSwatch(diary::Palette palette, QWidget* parent)
    : QAbstractButton(parent),
      m_tokens(palette),
      m_frame(new QWidget(this)),
      m_hover(this),
      m_ring(m_frame, kRadius + kMargin) {
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    m_frame->setGeometry(0, 0, kWidth + 2 * kMargin, kHeight + 2 * kMargin);
    m_frame->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PaletteSwatch::update(const SettingsModel::Swatch& swatch) {
    setText(nameOf(palette()));
    m_isInForce = swatch.isInForce;
    if (swatch.isChosen) setChecked(true);
    QWidget::update();
}

QSize PaletteSwatch::sizeHint() const {
    return {kWidth + 2 * kMargin, kMargin + kHeight + kNameGap + kNameHeight};
}

bool PaletteSwatch::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void PaletteSwatch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!isDimmed()) {
        paintAll(painter);
        return;
    }
    // Dimmed as a whole, so that what lies on the page doesn't show it through.
    const qreal scale = devicePixelRatioF();
    QPixmap whole(size() * scale);
    whole.setDevicePixelRatio(scale);
    whole.fill(theme::none());
    {
        QPainter inner(&whole);
        paintAll(inner);
    }
    painter.setOpacity(kDimmed);
    painter.drawPixmap(0, 0, whole);
}

void PaletteSwatch::paintAll(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF page(kMargin, kMargin, kWidth, kHeight);
    paintPage(painter, page);
    if (isChecked()) paintRing(painter, page);
    const bool stands = isChecked() && m_isInForce;
    const QFont font = fonts::sans(12.5, stands ? QFont::Medium : QFont::Normal);
    const double width = QFontMetricsF(font).horizontalAdvance(text());
    paintLine(painter,
              QRectF(qMax(0.0, page.center().x() - width / 2), page.bottom() + kNameGap,
                     qMin(width + 1, page.width() + 2 * kMargin), kNameHeight),
              text(), {font, kNameHeight, stands ? Token::InkMed : Token::ChromeText});
}

void PaletteSwatch::paintPage(QPainter& painter, const QRectF& page) const {
    const QRectF edge = page.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    QPainterPath shape;
    shape.addRoundedRect(edge, kRadius, kRadius);
    painter.setClipPath(shape);
    painter.fillRect(page, m_tokens[Token::Paper]);
    const QRectF side(page.left(), page.top(), kSideWidth + 1, page.height());
    painter.fillRect(side, m_tokens[Token::Panel]);
    painter.fillRect(QRectF(side.right() - 1, side.top(), 1, side.height()),
                     m_tokens[Token::BorderSoft]);
    painter.restore();
    for (const Bar& bar : kBars) {
        fillRounded(painter, bar.place.translated(page.topLeft()), 1, m_tokens[bar.color]);
    }
    fillRounded(painter, kDot.translated(page.topLeft()), kDot.width() / 2,
                m_tokens[Token::Accent]);
    QRectF chip = kFirstChip.translated(page.topLeft());
    for (const QColor& shade : m_tokens.heatShades()) {
        fillRounded(painter, chip, 2, shade);
        chip.translate(kChipPitch, 0);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme::mixed(m_tokens[Token::Border], m_tokens[Token::CardBorderHover],
                                     isDown() ? 1 : m_hover.share()),
                        1));
    painter.drawPath(shape);
}

// The choice of the set that isn't in force is marked too, but not as what is seen now.
void PaletteSwatch::paintRing(QPainter& painter, const QRectF& page) const {
    painter.setBrush(Qt::NoBrush);
    if (m_isInForce) {
        painter.setPen(QPen(theme::color(Token::Accent), 2));
    } else {
        painter.setPen(QPen(theme::color(Token::BoxBorder), 1));
    }
    painter.drawRoundedRect(page.adjusted(-3, -3, 3, 3), kRadius + 3, kRadius + 3);
}

void PaletteSwatch::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void PaletteSwatch::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

SwatchGroup::SwatchGroup(std::span<const diary::Palette> palettes, QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    access::setRole(this, QAccessible::Grouping);
    int x = 0;
    for (const diary::Palette each : palettes) {
        auto* swatch = new PaletteSwatch(each, this);
        swatch->setGeometry(QRect(QPoint(x, 0), swatch->sizeHint()));
        // Arrow keys choose as clicks do; only a change by the user comes as a click.
        connect(swatch, &QAbstractButton::clicked, this, [this, each] {
            if (onPicked) onPicked(each);
        });
        m_swatches.push_back(swatch);
        x += kPitch;
    }
}

void SwatchGroup::update(const std::vector<SettingsModel::Swatch>& swatches) {
    for (const SettingsModel::Swatch& each : swatches) {
        for (PaletteSwatch* mine : m_swatches) {
            if (mine->palette() == each.palette) mine->update(each);
        }
    }
}

QSize SwatchGroup::sizeHint() const {
    const QSize one = m_swatches.front()->sizeHint();
    return {one.width() + kPitch * (static_cast<int>(m_swatches.size()) - 1), one.height()};
}

}  // namespace velmar
