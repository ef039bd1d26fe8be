#include "DiaryApp/Navigation/MonthHeatView.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QToolTip>
#include <algorithm>

#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

namespace {

constexpr double kGap = 4;
constexpr double kCellHeight = 14;
constexpr double kRowPitch = 18;
constexpr double kRadius = 3;
constexpr double kOutlineWidth = 1.5;
constexpr double kLeapInset = 0.75;
constexpr double kHoverOutset = 1;
constexpr diary::MonthDay kLeapDay{2, 29};

}  // namespace

MonthHeatView::MonthHeatView(QWidget* parent) : DayCellsView(parent) {
    setFixedSize(gridWidth + 2 * reach, gridHeight + 2 * reach);
}

CalendarGrid MonthHeatView::layoutOf(int dayCount, double width) {
    return {
        .dayCount = dayCount,
        .leadingBlanks = 0,
        .width = width,
        .gap = kGap,
        .cellHeight = kCellHeight,
        .rowPitch = kRowPitch,
        .headerHeight = 0,
    };
}

void MonthHeatView::update(const YearOverviewModel::Month& month, Language language) {
    m_month = month;
    m_language = language;
    setGrid(layoutOf(static_cast<int>(month.counts.size()), gridWidth));
    setAccessibleName(month.name);
    setAccessibleDescription(month.dayCount);
    QWidget::update();
}

QString MonthHeatView::cellName(int day) const {
    const QString name = Formatters::of(m_language).dayName(m_month.month, day);
    const int count = countOf(day);
    return count > 0 ? qtTrId("HeatCell", count).arg(name) : qtTrId("HeatCellEmpty").arg(name);
}

void MonthHeatView::pick(int day) {
    if (onPick) onPick({m_month.month, day});
}

void MonthHeatView::turnPage(int delta) {
    if (onTurn) onTurn(delta);
}

void MonthHeatView::paintCell(QPainter& painter, int day) const {
    const QRectF cell = cellRect(day);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::tokens().heatShades()[std::clamp(countOf(day), 0, 3)]);
    painter.drawRoundedRect(cell, kRadius, kRadius);
    if (diary::MonthDay{m_month.month, day} != kLeapDay) return;
    painter.setPen(QPen(theme::color(Token::Accent), kOutlineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cell.adjusted(kLeapInset, kLeapInset, -kLeapInset, -kLeapInset),
                            kRadius - kLeapInset, kRadius - kLeapInset);
}

void MonthHeatView::paintHoverOutline(QPainter& painter) const {
    const std::optional<int> day = hoveredDay();
    if (!day) return;
    const double out = kHoverOutset + kOutlineWidth / 2;
    painter.setPen(QPen(theme::color(Token::CardBorderActive, hoverShare(*day)), kOutlineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cellRect(*day).adjusted(-out, -out, out, out), kRadius + out,
                            kRadius + out);
}

void MonthHeatView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCells(painter, event->rect());
    paintHoverOutline(painter);
    paintRing(painter, kRadius);
}

bool MonthHeatView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return DayCellsView::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto day = dayAt(help->pos());
    if (day) {
        QToolTip::showText(help->globalPos(), cellName(*day), this, cellRect(*day).toAlignedRect());
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace velmar
