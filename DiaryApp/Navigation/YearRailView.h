// The column right of the page: the years of the day in view as cards, the chip for all of them at
// once, and the card that adds one.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <vector>

#include "DiaryApp/Navigation/RailModel.h"

class QScrollArea;

namespace velmar {

class AddYearCard;
class AllYearsChip;
class RailCard;

class YearRailView : public QWidget {
    Q_OBJECT

public:
    using Card = RailModel::Card;

    explicit YearRailView(QWidget* parent = nullptr);

    std::function<void(int)> onPickYear;
    std::function<void(int)> onAddYear;
    // The click on the chip: the wish to show all years, or no longer.
    std::function<void(bool)> onSetAllYears;

    // Cards of years that stay keep their widgets, and with them focus and hover.
    void update(const RailModel& model);
    // For another day, whose cards begin at the top; ahead of its update().
    void scrollToTop();
    // The fixed texts, again in another language; those of the model come with the next update().
    void retranslate();

    // In the order of the model.
    [[nodiscard]] const std::vector<RailCard*>& cards() const { return m_cards; }
    [[nodiscard]] AddYearCard* addYearCard() const { return m_addYear; }
    [[nodiscard]] AllYearsChip* chip() const { return m_chip; }

    static constexpr int railWidth = 252;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    void arrangeCards(const RailModel& model);
    void showActiveCard(const RailModel& model);
    [[nodiscard]] RailCard* takeCard(int year);
    void place();
    [[nodiscard]] bool isScrollable() const;

    QString m_footer;
    // 0 while no card is active.
    int m_activeYear = 0;
    AllYearsChip* m_chip;
    QScrollArea* m_area;
    QWidget* m_list;
    AddYearCard* m_addYear;
    std::vector<RailCard*> m_cards;
    // Cards without a year now, kept for the next day.
    std::vector<RailCard*> m_spare;
};

}  // namespace velmar
