// The days of one month as cells under one tab stop: pointer and keys pick a day, and assistive
// tools find a table with a cell a day. What a cell looks like is the derived class's.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QWidget>
#include <optional>

#include "DiaryApp/Navigation/CalendarGrid.h"

namespace velmar {

class DayCellsView : public QWidget {
    Q_OBJECT

public:
    // How far the widget reaches beyond its cells on all sides, for the rings around them. The
    // grid's own lengths count from inside.
    static constexpr int reach = 4;

    [[nodiscard]] const CalendarGrid& grid() const { return m_grid; }
    // In the widget's coordinates.
    [[nodiscard]] QRectF cellRect(int day) const;
    [[nodiscard]] std::optional<int> dayAt(QPointF point) const;
    // The day that keys act on.
    [[nodiscard]] int focusDay() const { return m_focusDay; }
    [[nodiscard]] std::optional<int> hoveredDay() const { return m_hoveredDay; }
    // Within the month.
    void setFocusDay(int day);

    // What assistive tools say of a day and of a column; a column may have no name.
    [[nodiscard]] virtual QString cellName(int day) const = 0;
    [[nodiscard]] virtual QString cellDescription(int day) const;
    [[nodiscard]] virtual QString columnName(int column) const;
    [[nodiscard]] virtual bool isChosen(int day) const;

    // What a click, Return or Space on the day does.
    virtual void pick(int day) = 0;

protected:
    explicit DayCellsView(QWidget* parent);

    void setGrid(const CalendarGrid& grid);
    // A month back or ahead, by -1 or 1.
    virtual void turnPage(int delta) = 0;
    virtual void paintCell(QPainter& painter, int day) const = 0;
    // 0 to 1, how much of its hover look the cell has.
    [[nodiscard]] double hoverShare(int day) const;
    [[nodiscard]] bool showsRing() const { return m_showsRing && hasFocus(); }
    void paintCells(QPainter& painter, const QRectF& exposed) const;
    void paintRing(QPainter& painter, double radius) const;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void hover(std::optional<int> day);
    void updateCell(std::optional<int> day);
    void announceFocus();

    CalendarGrid m_grid;
    int m_focusDay = 1;
    std::optional<int> m_hoveredDay;
    std::optional<int> m_pressedDay;
    bool m_showsRing = false;
    QVariantAnimation m_hover;
};

}  // namespace velmar
