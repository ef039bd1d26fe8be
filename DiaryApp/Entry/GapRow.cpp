#include "DiaryApp/Entry/GapRow.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Editor/GrowingTextView.h"

namespace velmar {

namespace {

constexpr int kRight = 8;
constexpr int kGap = 14;
constexpr double kLabelHeight = 16;
constexpr double kLineOpacity = 0.7;

TextLook labelLook() {
    return {fonts::mono(11.5), kLabelHeight, Token::Footnote};
}

}  // namespace

GapRow::GapRow(QWidget* page) : QWidget(page), m_button(new Button(Button::Kind::Quiet, this)) {
    m_button->setIconName(QStringLiteral("plus"));
}

void GapRow::setGap(const EntryModel::AllYears::Gap& gap) {
    m_gap = gap;
    setAccessibleName(gap.label);
    m_button->setText(qtTrId("Fill in"));
    m_button->setAccessibleName(qtTrId("AccessibleFillIn").arg(gap.firstYear));
    m_button->setToolTip(m_button->accessibleName());
    place();
    update();
}

void GapRow::place() {
    m_button->resize(m_button->sizeHint());
    m_button->move(width() - kRight - m_button->width(), (height() - m_button->height()) / 2);
}

void GapRow::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

void GapRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const TextLook look = labelLook();
    const double left = GrowingTextView::gutter;
    const double right = m_button->x() - kGap;
    const QRectF label(left, (height() - kLabelHeight) / 2, right - left, kLabelHeight);
    paintLine(painter, label, m_gap.label, look);
    const double from = left + QFontMetricsF(look.font).horizontalAdvance(m_gap.label) + kGap;
    if (from >= right) return;
    QPen pen(theme::color(Token::CardBorderHover, kLineOpacity), 1);
    pen.setDashPattern({3, 3});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    const double middle = height() / 2.0 + 0.5;
    painter.drawLine(QPointF(from, middle - 1), QPointF(right, middle - 1));
}

}  // namespace velmar
