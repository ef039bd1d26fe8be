#include "DiaryApp/Navigation/CalendarGrid.h"

namespace velmar {

QRectF CalendarGrid::cellRect(int day) const {
    return {column(day) * (cellWidth() + gap), headerHeight + row(day) * rowPitch, cellWidth(),
            cellHeight};
}

std::optional<int> CalendarGrid::dayAt(QPointF point) const {
    for (int day = 1; day <= dayCount; ++day) {
        const QRectF cell = cellRect(day);
        const bool isInside = point.x() >= cell.left() && point.x() < cell.right() &&
                              point.y() >= cell.top() && point.y() < cell.bottom();
        if (isInside) return day;
    }
    return std::nullopt;
}

std::optional<int> CalendarGrid::dayIn(int row, int column) const {
    if (row < 0 || column < 0 || column >= columns) return std::nullopt;
    const int day = row * columns + column - leadingBlanks + 1;
    if (day < 1 || day > dayCount) return std::nullopt;
    return day;
}

int CalendarGrid::stepped(int day, Step step) const {
    int next = day;
    switch (step) {
        case Step::Left:
            next = day - 1;
            break;
        case Step::Right:
            next = day + 1;
            break;
        case Step::Up:
            next = day - columns;
            break;
        case Step::Down:
            next = day + columns;
            break;
        case Step::First:
            return 1;
        case Step::Last:
            return dayCount;
    }
    return next >= 1 && next <= dayCount ? next : day;
}

}  // namespace velmar
