#include "DiaryApp/Navigation/DayCellsView.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Navigation/DayCellsAccessible.h"

namespace velmar {

namespace {

constexpr int kHoverMilliseconds = 90;
constexpr double kRingGap = 2;
constexpr double kRingWidth = 2;

std::optional<CalendarGrid::Step> stepOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return CalendarGrid::Step::Left;
        case Qt::Key_Right:
            return CalendarGrid::Step::Right;
        case Qt::Key_Up:
            return CalendarGrid::Step::Up;
        case Qt::Key_Down:
            return CalendarGrid::Step::Down;
        case Qt::Key_Home:
            return CalendarGrid::Step::First;
        case Qt::Key_End:
            return CalendarGrid::Step::Last;
        default:
            return std::nullopt;
    }
}

}  // namespace

DayCellsView::DayCellsView(QWidget* parent) : QWidget(parent) {
    installDayCellsAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setContentsMargins(reach, reach, reach, reach);
    m_hover.setStartValue(0.0);
    m_hover.setEndValue(1.0);
    m_hover.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_hover, &QVariantAnimation::valueChanged, this, [this] { updateCell(m_hoveredDay); });
}

QRectF DayCellsView::cellRect(int day) const {
    return m_grid.cellRect(day).translated(reach, reach);
}

std::optional<int> DayCellsView::dayAt(QPointF point) const {
    return m_grid.dayAt(point - QPointF(reach, reach));
}

QString DayCellsView::cellDescription(int /*day*/) const {
    return {};
}

QString DayCellsView::columnName(int /*column*/) const {
    return {};
}

bool DayCellsView::isChosen(int /*day*/) const {
    return false;
}

void DayCellsView::setGrid(const CalendarGrid& grid) {
    if (grid == m_grid) return;
    m_grid = grid;
    m_hoveredDay.reset();
    m_pressedDay.reset();
    setFocusDay(m_focusDay);
    update();
}

void DayCellsView::setFocusDay(int day) {
    const int next = std::clamp(day, 1, std::max(1, m_grid.dayCount));
    if (next == m_focusDay) return;
    m_focusDay = next;
    if (!hasFocus()) return;
    update();
    announceFocus();
}

void DayCellsView::announceFocus() {
    QAccessibleEvent moved(this, QAccessible::Focus);
    moved.setChild(m_focusDay - 1);
    QAccessible::updateAccessibility(&moved);
}

double DayCellsView::hoverShare(int day) const {
    return m_hoveredDay == day ? m_hover.currentValue().toDouble() : 0;
}

void DayCellsView::paintCells(QPainter& painter, const QRectF& exposed) const {
    for (int day = 1; day <= m_grid.dayCount; ++day) {
        if (cellRect(day).adjusted(-reach, -reach, reach, reach).intersects(exposed)) {
            paintCell(painter, day);
        }
    }
}

void DayCellsView::paintRing(QPainter& painter, double radius) const {
    if (!showsRing()) return;
    const double out = kRingGap + kRingWidth / 2;
    painter.setPen(QPen(theme::color(Token::Accent, 0.55), kRingWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cellRect(m_focusDay).adjusted(-out, -out, out, out), radius + kRingGap,
                            radius + kRingGap);
}

void DayCellsView::updateCell(std::optional<int> day) {
    if (!day) return;
    update(cellRect(*day).adjusted(-reach, -reach, reach, reach).toAlignedRect());
}

void DayCellsView::hover(std::optional<int> day) {
    if (day == m_hoveredDay) return;
    updateCell(m_hoveredDay);
    m_hoveredDay = day;
    m_hover.stop();
    const int duration = motion::duration(kHoverMilliseconds);
    m_hover.setDuration(duration);
    if (day && duration > 0) {
        m_hover.start();
    } else {
        m_hover.setCurrentTime(duration);
    }
    updateCell(m_hoveredDay);
}

void DayCellsView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_pressedDay = dayAt(event->position());
}

void DayCellsView::mouseMoveEvent(QMouseEvent* event) {
    hover(dayAt(event->position()));
}

void DayCellsView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const std::optional<int> pressed = std::exchange(m_pressedDay, std::nullopt);
    if (pressed && pressed == dayAt(event->position())) pick(*pressed);
}

void DayCellsView::leaveEvent(QEvent* /*event*/) {
    hover(std::nullopt);
}

void DayCellsView::keyPressEvent(QKeyEvent* event) {
    m_showsRing = true;
    update();
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (const auto step = stepOf(event->key())) {
        setFocusDay(m_grid.stepped(m_focusDay, *step));
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            pick(m_focusDay);
            return;
        case Qt::Key_PageUp:
            turnPage(-1);
            return;
        case Qt::Key_PageDown:
            turnPage(1);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void DayCellsView::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    // A focus that only comes back with its window has the ring that it had.
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        m_showsRing = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                      reason == Qt::ShortcutFocusReason;
    }
    update();
    announceFocus();
}

void DayCellsView::focusOutEvent(QFocusEvent* /*event*/) {
    update();
}

}  // namespace velmar
