// The chips that narrow a search to a year: all years, the newest three, and one that opens a menu
// of the others. A scoped year among the others stands on that last chip.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <optional>
#include <vector>

namespace velmar {

class Chip;

class SearchScopeChips : public QWidget {
    Q_OBJECT

public:
    // The years that have a chip of their own.
    static constexpr int inlineYears = 3;

    explicit SearchScopeChips(QWidget* parent = nullptr);

    // The chosen year, or none for all of them.
    std::function<void(std::optional<int>)> onScope;

    // Newest first.
    void update(const std::vector<int>& years, std::optional<int> scope);
    void retranslate();

    // The years that the last chip's menu lists.
    [[nodiscard]] std::vector<int> overflowYears() const;

    // All chips in the order of the keyboard's focus, hidden ones too.
    [[nodiscard]] std::vector<QWidget*> chips() const;

private:
    void place();
    void showMenu();
    void choose(std::optional<int> year);

    std::vector<int> m_years;
    std::optional<int> m_scope;
    Chip* m_all;
    std::vector<Chip*> m_inline;
    Chip* m_overflow;
};

}  // namespace velmar
