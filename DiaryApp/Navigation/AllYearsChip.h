// The chip over the year rail that shows all years of the day at once, with their number.
#pragma once

#include "DiaryApp/Appearance/Chip.h"

namespace velmar {

class AllYearsChip : public Chip {
    Q_OBJECT

public:
    explicit AllYearsChip(QWidget* parent = nullptr);

    // The number of written years, and whether all of them show now.
    void update(int count, bool isOn);
    void retranslate();

private:
    int m_count = 0;
};

}  // namespace velmar
