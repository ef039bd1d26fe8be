// Years that aren't written, between the cards of those that are, and a button that opens the
// newest of them.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/Entry/EntryModel.h"

namespace velmar {

class Button;

class GapRow : public QWidget {
    Q_OBJECT

public:
    explicit GapRow(QWidget* page);

    // Also after a change of language.
    void setGap(const EntryModel::AllYears::Gap& gap);
    [[nodiscard]] int firstYear() const { return m_gap.firstYear; }
    [[nodiscard]] Button* button() const { return m_button; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    EntryModel::AllYears::Gap m_gap;
    Button* m_button;
};

}  // namespace velmar
