// The column left of the page: the month in view, the way to today, and the doors to search, year
// calendar and settings. While a search is open its pane takes the column over.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

#include "DiaryApp/Navigation/SidebarModel.h"

namespace velmar {

class DayGridView;
class MonthHead;
class PaneSlide;
class SearchButton;
class SidebarFoot;
class StatsView;
class TodayButton;

class SidebarView : public QWidget {
    Q_OBJECT

public:
    enum class Mode { Calendar, Search };
    enum class Animated { No, Yes };

    explicit SidebarView(QWidget* parent = nullptr);

    std::function<void()> onPreviousMonth;
    std::function<void()> onNextMonth;
    // The day number of the month in view.
    std::function<void(int)> onSelectDay;
    std::function<void()> onToday;
    std::function<void()> onShowYearOverview;
    std::function<void()> onShowSearch;
    std::function<void()> onShowSettings;

    void update(const SidebarModel& model);

    // The pane becomes a child of the sidebar, as wide as it without the line at its right edge and
    // as high. Its field belongs where the search button is: 228 x 32 at (20, 14). Once, before the
    // first setMode().
    void setSearchPane(QWidget* pane);
    // Without a pane the calendar stays. Focus is the caller's to move.
    void setMode(Mode mode, Animated animated);
    [[nodiscard]] Mode mode() const { return m_mode; }
    // Whether a change of mode still moves.
    [[nodiscard]] bool isMoving() const;

    // The fixed texts, again in another language; those of the model come with the next update().
    void retranslate();

    [[nodiscard]] DayGridView* grid() const { return m_grid; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    void place();
    [[nodiscard]] QWidget* shownPane() const;

    Mode m_mode = Mode::Calendar;
    // Holds everything of the calendar, so that it goes and comes as one.
    QWidget* m_calendar;
    SearchButton* m_search;
    MonthHead* m_month;
    DayGridView* m_grid;
    TodayButton* m_today;
    StatsView* m_stats;
    SidebarFoot* m_foot;
    QWidget* m_searchPane = nullptr;
    PaneSlide* m_slide;
};

}  // namespace velmar
