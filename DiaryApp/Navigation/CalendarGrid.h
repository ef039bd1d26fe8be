// Where the days of a month stand, in rows of seven: rectangles, the day at a point, and the day
// that a key leads to. Pure geometry, shared by the sidebar's grid and the year calendar.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <optional>

namespace velmar {

struct CalendarGrid {
    enum class Step { Left, Right, Up, Down, First, Last };

    static constexpr int columns = 7;

    int dayCount = 0;
    // Empty cells ahead of day 1.
    int leadingBlanks = 0;
    // All lengths are pixels; the cells share the width.
    double width = 0;
    double gap = 0;
    double cellHeight = 0;
    double rowPitch = 0;
    double headerHeight = 0;

    [[nodiscard]] double cellWidth() const { return (width - gap * (columns - 1)) / columns; }
    [[nodiscard]] int row(int day) const { return (leadingBlanks + day - 1) / columns; }
    [[nodiscard]] int column(int day) const { return (leadingBlanks + day - 1) % columns; }
    [[nodiscard]] int rowCount() const { return dayCount > 0 ? row(dayCount) + 1 : 0; }

    [[nodiscard]] QRectF cellRect(int day) const;
    // A cell holds its left and top edges and not its right and bottom ones. Nothing between cells.
    [[nodiscard]] std::optional<int> dayAt(QPointF point) const;
    // The day of that cell; nothing for an empty one.
    [[nodiscard]] std::optional<int> dayIn(int row, int column) const;
    // Stays within the month: a step that would leave it leads nowhere.
    [[nodiscard]] int stepped(int day, Step step) const;

    bool operator==(const CalendarGrid&) const = default;
};

}  // namespace velmar
