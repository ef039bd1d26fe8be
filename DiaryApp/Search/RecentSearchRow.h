// One of the searches of late, as a button as wide as the list.
#pragma once

#include <QtWidgets/QAbstractButton>
#include <functional>

#include "DiaryApp/Appearance/FocusRing.h"

namespace velmar {

class RecentSearchRow : public QAbstractButton {
    Q_OBJECT

public:
    explicit RecentSearchRow(const QString& search, QWidget* parent = nullptr);

    // Down (1) or Up (-1) was pressed here.
    std::function<void(int delta)> onStep;

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
