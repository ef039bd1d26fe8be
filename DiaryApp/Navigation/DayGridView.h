// The month in the sidebar: a cell for each day, with the weekdays of the year in view above.
#pragma once

#include <functional>

#include "DiaryApp/Navigation/DayCellsView.h"
#include "DiaryApp/Navigation/SidebarModel.h"

namespace velmar {

class DayGridView : public DayCellsView {
    Q_OBJECT

public:
    explicit DayGridView(QWidget* parent = nullptr);

    // The day of the month in view.
    std::function<void(int)> onSelectDay;
    // Page Up and Page Down.
    std::function<void()> onPreviousMonth;
    std::function<void()> onNextMonth;

    // The key's cell goes to the selected day when that or the month changes.
    void update(const DayGridModel& model);
    [[nodiscard]] const DayGridModel& model() const { return m_model; }

    [[nodiscard]] QString cellName(int day) const override;
    [[nodiscard]] QString cellDescription(int day) const override;
    [[nodiscard]] QString columnName(int column) const override;
    [[nodiscard]] bool isChosen(int day) const override;
    void pick(int day) override;

    // Of the cells, without the reach around them. The height has room for six rows.
    static constexpr int gridWidth = 228;
    static constexpr int gridHeight = 217;

    // The layout of a month in a grid of this width.
    [[nodiscard]] static CalendarGrid layoutOf(const DayGridModel& model, double width);

protected:
    void turnPage(int delta) override;
    void paintCell(QPainter& painter, int day) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Look {
        QColor ink;
        QColor dot;
        bool isStrong = false;
    };
    [[nodiscard]] Look lookOf(int day) const;
    void paintGround(QPainter& painter, int day) const;
    void paintWeekdays(QPainter& painter) const;

    DayGridModel m_model;
};

}  // namespace velmar
