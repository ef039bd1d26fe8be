#include "DiaryApp/Navigation/SidebarView.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Navigation/DayGridView.h"
#include "DiaryApp/Navigation/PaneSlide.h"
#include "DiaryApp/Navigation/SidebarLayout.h"
#include "DiaryApp/Navigation/SidebarParts.h"

namespace velmar {

namespace {

using Layout = SidebarLayout;

constexpr int kLineWidth = 1;
// Down to here search button and field share one place, with room for the field's halo.
constexpr int kStillHeight = Layout::searchTop + Layout::searchHeight + 4;

void call(const std::function<void()>& action) {
    if (action) action();
}

}  // namespace

SidebarView::SidebarView(QWidget* parent)
    : QWidget(parent),
      m_calendar(new QWidget(this)),
      m_search(new SearchButton(m_calendar)),
      m_month(new MonthHead(m_calendar)),
      m_grid(new DayGridView(m_calendar)),
      m_today(new TodayButton(m_calendar)),
      m_stats(new StatsView(m_calendar)),
      m_foot(new SidebarFoot(m_calendar)),
      m_slide(new PaneSlide(this)) {
    setFixedWidth(Layout::sidebarWidth);
    wire();
    retranslate();
}

void SidebarView::wire() {
    connect(m_search, &SearchButton::clicked, this, [this] { call(onShowSearch); });
    connect(m_month->previous(), &Button::clicked, this, [this] { call(onPreviousMonth); });
    connect(m_month->next(), &Button::clicked, this, [this] { call(onNextMonth); });
    connect(m_today, &TodayButton::clicked, this, [this] { call(onToday); });
    connect(m_foot->yearCalendar(), &DoorButton::clicked, this,
            [this] { call(onShowYearOverview); });
    connect(m_foot->settings(), &DoorButton::clicked, this, [this] { call(onShowSettings); });
    m_grid->onPreviousMonth = [this] { call(onPreviousMonth); };
    m_grid->onNextMonth = [this] { call(onNextMonth); };
    m_grid->onSelectDay = [this](int day) {
        if (onSelectDay) onSelectDay(day);
    };
}

void SidebarView::update(const SidebarModel& model) {
    m_month->setMonth(model.monthTitle, model.grid.year);
    m_grid->update(model.grid);
    m_today->setTexts(model.todayTitle, model.todayDate);
    m_stats->update(model.stats);
}

void SidebarView::setSearchPane(QWidget* pane) {
    m_searchPane = pane;
    pane->setParent(this);
    pane->hide();
    place();
}

QWidget* SidebarView::shownPane() const {
    return m_mode == Mode::Search && m_searchPane ? m_searchPane : m_calendar;
}

void SidebarView::setMode(Mode mode, Animated animated) {
    if (mode == m_mode) return;
    QWidget* from = shownPane();
    m_mode = mode;
    QWidget* to = shownPane();
    if (from == to) return;
    const QRect moving(0, kStillHeight, to->width(), height() - kStillHeight);
    const bool moves = animated == Animated::Yes && isVisible();
    const QPixmap before = moves ? from->grab(moving) : QPixmap();
    to->show();
    from->hide();
    m_slide->finish();
    if (moves) m_slide->run(moving, before, to->grab(moving));
}

bool SidebarView::isMoving() const {
    return m_slide->isRunning();
}

void SidebarView::retranslate() {
    setAccessibleName(qtTrId("AccessibleSidebar"));
    m_search->retranslate();
    m_month->retranslate();
    m_foot->retranslate();
}

void SidebarView::resizeEvent(QResizeEvent* /*event*/) {
    m_slide->finish();
    place();
}

void SidebarView::place() {
    const QRect inner(0, 0, width() - kLineWidth, height());
    const Layout layout = Layout::of(height());
    m_calendar->setGeometry(inner);
    if (m_searchPane) m_searchPane->setGeometry(inner);
    m_search->setGeometry(Layout::left, Layout::searchTop, Layout::contentWidth,
                          Layout::searchHeight);
    m_month->setGeometry(Layout::left, layout.month, Layout::contentWidth + MonthHead::reach,
                         Layout::monthHeight);
    m_grid->move(Layout::left - DayGridView::reach, layout.grid - DayGridView::reach);
    m_today->setGeometry(Layout::left, layout.today, Layout::contentWidth, Layout::todayHeight);
    m_stats->setGeometry(Layout::left, layout.stats, Layout::contentWidth, Layout::statsHeight);
    m_foot->setGeometry(0, layout.foot, inner.width(), Layout::footHeight);
}

void SidebarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Panel));
    const double pixel = 1 / devicePixelRatioF();
    painter.fillRect(QRectF(width() - pixel, 0, pixel, height()), theme::color(Token::Border));
}

}  // namespace velmar
