#include "DiaryApp/Navigation/AllYearsChip.h"

namespace velmar {

AllYearsChip::AllYearsChip(QWidget* parent) : Chip(Size::Regular, parent) {
    setIconName(QStringLiteral("rings"));
    retranslate();
}

void AllYearsChip::update(int count, bool isOn) {
    m_count = count;
    setChecked(isOn);
    const QString label = qtTrId("AllChip").arg(count);
    if (label == text()) return;
    setText(label);
    updateGeometry();
}

void AllYearsChip::retranslate() {
    setAccessibleName(qtTrId("AccessibleAllYears"));
    setToolTip(qtTrId("AccessibleAllYears"));
    update(m_count, isChecked());
}

}  // namespace velmar
