#include "DiaryApp/Search/RecentSearchRow.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kIconLeft = 10;
constexpr double kIconSize = 15;
constexpr double kTextLeft = 35;
constexpr double kRight = 10;
constexpr double kRadius = 8;

}  // namespace

RecentSearchRow::RecentSearchRow(const QString& search, QWidget* parent)
    : QAbstractButton(parent), m_ring(this, kRadius) {
    setText(search);
    // An "&" is a letter of what was searched, and marks no key.
    setShortcut(QKeySequence());
    setAccessibleName(search);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void RecentSearchRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::color(isDown() ? Token::GridHoverOutline : Token::HoverBg));
        painter.drawRoundedRect(QRectF(rect()), kRadius, kRadius);
    }
    icons::paint(painter, {kIconLeft, (height() - kIconSize) / 2, kIconSize, kIconSize},
                 QStringLiteral("clock"), theme::color(Token::Chevron));
    paintLine(painter, QRectF(rect()).adjusted(kTextLeft, 0, -kRight, 0), text(),
              {fonts::serif(14), double(height()), Token::InkMed});
}

void RecentSearchRow::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void RecentSearchRow::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

void RecentSearchRow::keyPressEvent(QKeyEvent* event) {
    m_ring.keyUsed();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return click();
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (onStep) onStep(event->key() == Qt::Key_Up ? -1 : 1);
            return;
        default:
            QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace velmar
