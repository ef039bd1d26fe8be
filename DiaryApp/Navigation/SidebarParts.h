// The parts of the sidebar that paint themselves, but for the grid of days.
#pragma once

#include <array>

#include "DiaryApp/Appearance/CardButton.h"
#include "DiaryApp/Navigation/SidebarModel.h"

namespace velmar {

class Button;

// Stands where the search field will be, and looks like it.
class SearchButton : public CardButton {
    Q_OBJECT

public:
    explicit SearchButton(QWidget* parent);

    void retranslate();

protected:
    void paintContent(QPainter& painter) const override;

private:
    QString m_key;
};

// The name of the month in view and its year, and the steps to its neighbours.
class MonthHead : public QWidget {
    Q_OBJECT

public:
    explicit MonthHead(QWidget* parent);

    void setMonth(const QString& title, int year);
    void retranslate();

    [[nodiscard]] Button* previous() const { return m_previous; }
    [[nodiscard]] Button* next() const { return m_next; }

    // The right button reaches this far beyond the column, so that its icon ends with it.
    static constexpr int reach = 6;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString m_title;
    int m_year = 0;
    Button* m_previous;
    Button* m_next;
};

class TodayButton : public CardButton {
    Q_OBJECT

public:
    explicit TodayButton(QWidget* parent);

    void setTexts(const QString& title, const QString& date);

protected:
    void paintContent(QPainter& painter) const override;

private:
    QString m_date;
};

class StatsView : public QWidget {
    Q_OBJECT

public:
    explicit StatsView(QWidget* parent);

    void update(const std::array<SidebarModel::Stat, 3>& stats);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<SidebarModel::Stat, 3> m_stats;
};

// A quiet button of the sidebar's foot: an icon and its text, lighter than the bars' buttons.
class DoorButton : public CardButton {
    Q_OBJECT

public:
    DoorButton(const QString& icon, QWidget* parent);

    void setTexts(const QString& text, const QKeySequence& keys);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintGround(QPainter& painter) const override;
    void paintContent(QPainter& painter) const override;

private:
    QString m_icon;
};

// The two doors at the sidebar's bottom.
class SidebarFoot : public QWidget {
    Q_OBJECT

public:
    explicit SidebarFoot(QWidget* parent);

    void retranslate();

    [[nodiscard]] DoorButton* yearCalendar() const { return m_yearCalendar; }
    [[nodiscard]] DoorButton* settings() const { return m_settings; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    DoorButton* m_yearCalendar;
    DoorButton* m_settings;
};

}  // namespace velmar
