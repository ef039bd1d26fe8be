#include "DiaryApp/Navigation/DayGridView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

namespace {

constexpr double kGap = 3;
constexpr double kCellHeight = 30;
constexpr double kRowPitch = 33;
constexpr double kHeaderHeight = 22;
constexpr double kRadius = 8;
// A day's digits stand half a pixel above the middle, away from the dot.
constexpr double kDayLine = 29;
constexpr double kWeekdayLine = 16;
constexpr double kWeekdaySpacing = 0.4;
constexpr double kDotSize = 3;
constexpr double kDotBottom = 3.5;
constexpr double kChosenDotOpacity = 0.7;

void paintCentred(QPainter& painter, const QRectF& rect, const QString& text, const QFont& font,
                  double lineHeight) {
    const double x = rect.center().x() - QFontMetricsF(font).horizontalAdvance(text) / 2;
    painter.setFont(font);
    painter.drawText(QPointF(x, rect.top() + fonts::baseline(font, lineHeight)), text);
}

}  // namespace

DayGridView::DayGridView(QWidget* parent) : DayCellsView(parent) {
    setFixedSize(gridWidth + 2 * reach, gridHeight + 2 * reach);
}

CalendarGrid DayGridView::layoutOf(const DayGridModel& model, double width) {
    return {
        .dayCount = diary::MonthDay::daysInCycleMonth[model.month - 1],
        .leadingBlanks = model.leadingBlanks,
        .width = width,
        .gap = kGap,
        .cellHeight = kCellHeight,
        .rowPitch = kRowPitch,
        .headerHeight = kHeaderHeight,
    };
}

void DayGridView::update(const DayGridModel& model) {
    if (model == m_model) return;
    const bool isElsewhere =
        model.month != m_model.month || model.selectedDay != m_model.selectedDay;
    m_model = model;
    setGrid(layoutOf(model, gridWidth));
    if (isElsewhere) setFocusDay(model.selectedDay);
    setAccessibleName(qtTrId("AccessibleDayGrid")
                          .arg(Formatters::of(model.language).monthName(model.month))
                          .arg(model.year));
    QWidget::update();
}

QString DayGridView::cellName(int day) const {
    const QString name = Formatters::of(m_model.language).dayName(m_model.month, day);
    return m_model.daysWithContent.contains(day) ? qtTrId("AccessibleDayWritten").arg(name) : name;
}

QString DayGridView::cellDescription(int day) const {
    return m_model.today == day ? qtTrId("AccessibleDayToday") : QString();
}

QString DayGridView::columnName(int column) const {
    return m_model.weekdaySymbols.value(column);
}

bool DayGridView::isChosen(int day) const {
    return day == m_model.selectedDay;
}

void DayGridView::pick(int day) {
    if (onSelectDay) onSelectDay(day);
}

void DayGridView::turnPage(int delta) {
    const std::function<void()>& turn = delta < 0 ? onPreviousMonth : onNextMonth;
    if (turn) turn();
}

DayGridView::Look DayGridView::lookOf(int day) const {
    const bool isWritten = m_model.daysWithContent.contains(day);
    Look look{theme::color(isWritten ? Token::InkMed : Token::GhostDay),
              theme::color(Token::CardBorderActive), isWritten};
    if (m_model.today == day) {
        look = {theme::color(Token::Accent), theme::color(Token::Accent), true};
    }
    if (isChosen(day)) {
        look = {theme::color(Token::PillText), theme::color(Token::PillText, kChosenDotOpacity),
                true};
    }
    if (!isWritten) look.dot = theme::none();
    return look;
}

void DayGridView::paintGround(QPainter& painter, int day) const {
    const QRectF cell = cellRect(day);
    if (isChosen(day)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::color(Token::PillBg));
        painter.drawRoundedRect(cell, kRadius, kRadius);
        return;
    }
    const double share = hoverShare(day);
    if (share <= 0) return;
    painter.setPen(QPen(theme::color(Token::GridHoverOutline, share), 1));
    painter.setBrush(theme::color(Token::HoverBg, share));
    painter.drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), kRadius - 0.5, kRadius - 0.5);
}

void DayGridView::paintCell(QPainter& painter, int day) const {
    paintGround(painter, day);
    const QRectF cell = cellRect(day);
    const Look look = lookOf(day);
    painter.setPen(look.ink);
    paintCentred(painter, cell, QString::number(day),
                 fonts::mono(12, look.isStrong ? QFont::Medium : QFont::Normal), kDayLine);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.dot);
    painter.drawEllipse(QRectF(cell.center().x() - kDotSize / 2,
                               cell.bottom() - kDotBottom - kDotSize, kDotSize, kDotSize));
}

void DayGridView::paintWeekdays(QPainter& painter) const {
    painter.setPen(theme::color(Token::SectionHead));
    const QFont font = fonts::spaced(fonts::mono(10, QFont::Medium), kWeekdaySpacing);
    const double pitch = grid().cellWidth() + kGap;
    for (int column = 0; column < m_model.weekdaySymbols.size(); ++column) {
        const QRectF place(reach + column * pitch, reach, grid().cellWidth(), kWeekdayLine);
        paintCentred(painter, place, m_model.weekdaySymbols[column], font, kWeekdayLine);
    }
}

void DayGridView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintWeekdays(painter);
    paintCells(painter, event->rect());
    paintRing(painter, kRadius);
}

}  // namespace velmar
