// The year calendar's content: twelve months of heat, the legend, and the sum. It has one fixed
// size; its window is YearOverviewController's.
#pragma once

#include <QtWidgets/QWidget>
#include <array>
#include <functional>

#include "DiaryApp/Navigation/YearOverviewModel.h"

namespace velmar {

class MonthHeatView;

class YearOverviewView : public QWidget {
    Q_OBJECT

public:
    explicit YearOverviewView(QWidget* parent = nullptr);

    std::function<void(diary::MonthDay)> onPick;

    void update(const YearOverviewModel& model);

    // Gives the day's cell the keys, with no ring until one is pressed.
    void focusDay(diary::MonthDay day);

    // 1 is January.
    [[nodiscard]] MonthHeatView* heat(int month) const { return m_heats[month - 1]; }

    static constexpr QSize viewSize{860, 836};

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void turn(int month, int delta);
    void paintMonth(QPainter& painter, const YearOverviewModel::Month& month) const;
    void paintLegend(QPainter& painter) const;
    void paintTotal(QPainter& painter) const;

    YearOverviewModel m_model;
    std::array<MonthHeatView*, 12> m_heats{};
};

}  // namespace velmar
