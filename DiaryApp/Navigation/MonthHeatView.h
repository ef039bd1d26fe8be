// One month of the year calendar: a cell for each date, the darker the more years were written.
#pragma once

#include <functional>

#include "DiaryApp/Navigation/DayCellsView.h"
#include "DiaryApp/Navigation/YearOverviewModel.h"

namespace velmar {

class MonthHeatView : public DayCellsView {
    Q_OBJECT

public:
    explicit MonthHeatView(QWidget* parent = nullptr);

    std::function<void(diary::MonthDay)> onPick;
    // Page Up and Page Down: a month back or ahead, by -1 or 1.
    std::function<void(int)> onTurn;

    void update(const YearOverviewModel::Month& month, Language language);

    // "March 7 · 3 years"
    [[nodiscard]] QString cellName(int day) const override;
    void pick(int day) override;

    // Of the cells, without the reach around them. The height has room for five rows.
    static constexpr int gridWidth = 220;
    static constexpr int gridHeight = 86;

    [[nodiscard]] static CalendarGrid layoutOf(int dayCount, double width);

protected:
    void turnPage(int delta) override;
    void paintCell(QPainter& painter, int day) const override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] int countOf(int day) const { return m_month.counts[day - 1]; }
    void paintHoverOutline(QPainter& painter) const;

    YearOverviewModel::Month m_month;
    Language m_language = Language::en;
};

}  // namespace velmar
