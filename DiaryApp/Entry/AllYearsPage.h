// All years of one day, below each other: cards that open a year, and lines for years between them
// that aren't written. Cards are kept from one model to the next, and their texts are laid out as
// they come into view, the rest while nothing else is to be done.
#pragma once

#include <QtCore/QBasicTimer>
#include <functional>
#include <map>
#include <vector>

#include "DiaryApp/Entry/PageScroll.h"
#include "DiaryApp/Entry/YearCard.h"

namespace velmar {

class DayHead;
class GapRow;

class AllYearsPage : public PageScroll {
    Q_OBJECT

public:
    explicit AllYearsPage(const Settings& settings, QWidget* parent = nullptr);

    // With the year of a card, or the newest of a line of missing years.
    std::function<void(int year)> onOpenYear;

    // All years of the day that has this key.
    void update(const QString& dayKey, const EntryModel::AllYears& years);
    void retranslate();
    void restyle();

    // Marks what a search has found in the years' texts; years that aren't named lose their marks.
    void setMatches(const std::map<int, std::vector<diary::TextRange>>& ranges);
    // Scrolls to the year's card, if it has one.
    void glideToYear(int year);

    [[nodiscard]] const std::map<int, YearCard*>& yearCards() const { return m_cards; }
    // The year of the card at this place of the screen.
    [[nodiscard]] std::optional<int> yearAt(const QPoint& global) const;
    [[nodiscard]] DayHead* head() const { return m_head; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    // Exactly one of them.
    struct Row {
        YearCard* card = nullptr;
        GapRow* gap = nullptr;
    };

    void showRows(const std::vector<EntryModel::AllYears::Row>& rows);
    [[nodiscard]] YearCard* cardOf(int year);
    [[nodiscard]] GapRow* gapRow(std::size_t index);
    void dropCardsBut(const std::map<int, YearCard*>& kept);
    void orderTabs() const;
    void place();
    void layOutVisible();
    [[nodiscard]] YearCard* nextToLayOut(int above) const;
    void layOut(YearCard* card);

    CardStyle m_style;
    const Settings& m_settings;
    DayHead* m_head;
    std::vector<Row> m_rows;
    std::map<int, YearCard*> m_cards;
    // Those at the end may be unused at present.
    std::vector<GapRow*> m_gaps;
    QBasicTimer m_idle;
    bool m_isPlacing = false;
};

}  // namespace velmar
