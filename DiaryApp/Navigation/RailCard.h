// The cards of the year rail: one for a year, and the one that adds a year.
#pragma once

#include <functional>
#include <vector>

#include "DiaryApp/Appearance/CardButton.h"
#include "DiaryApp/Navigation/RailModel.h"

class QMenu;

namespace velmar {

class RailCard : public CardButton {
    Q_OBJECT

public:
    explicit RailCard(QWidget* parent);

    // Repaints only what has changed, so that a keystroke costs one card.
    void update(const RailModel::Card& card);
    [[nodiscard]] const RailModel::Card& card() const { return m_card; }
    [[nodiscard]] int year() const { return m_card.year; }

    static constexpr int cardHeight = 107;

protected:
    void paintContent(QPainter& painter) const override;
    // A click reports; which year is in view is told by update() alone.
    void nextCheckState() override {}

private:
    void paintHead(QPainter& painter, const QRectF& inner) const;
    void paintFoot(QPainter& painter, const QRectF& inner) const;

    RailModel::Card m_card;
};

class AddYearCard : public CardButton {
    Q_OBJECT

public:
    explicit AddYearCard(QWidget* parent);

    std::function<void(int)> onAddYear;

    void setYears(const std::vector<int>& years);
    void retranslate();
    // The menu of the years, newest first; made anew at each opening. Absent before the first.
    [[nodiscard]] QMenu* menu() const { return m_menu; }

    static constexpr int cardHeight = 40;

protected:
    void paintContent(QPainter& painter) const override;

private:
    void openMenu();

    std::vector<int> m_years;
    QMenu* m_menu = nullptr;
};

}  // namespace velmar
