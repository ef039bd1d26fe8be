// One of the searches of late, as a button as wide as the list.
#pragma once

#include <QtWidgets/QAbstractButton>

#include "DiaryApp/Appearance/FocusRing.h"

namespace velmar {

class RecentSearchRow : public QAbstractButton {
    Q_OBJECT

public:
    explicit RecentSearchRow(QWidget* parent = nullptr);

    static constexpr int rowHeight = 34;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    FocusRing m_ring;
};

}  // namespace velmar
