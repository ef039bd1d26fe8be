// The list of hits. It shows which one is selected and tells a click, and where its own keys went:
// Page Down, Home and the like, and the first digits of a date. The arrows, Return and Escape are
// the pane's. Only what is visible is laid out and painted at once; the other lines get their exact
// heights when the program is idle, or when they come into view.
#pragma once

#include <QtCore/QBasicTimer>
#include <QtWidgets/QListView>
#include <functional>

#include "DiaryApp/Search/SearchPaneState.h"
#include "DiaryApp/Search/SearchRowHeights.h"

namespace velmar {

class SearchResultsList : public QListView {
    Q_OBJECT

public:
    explicit SearchResultsList(QWidget* parent = nullptr);

    // The number of the hit that was clicked or that a key went to.
    std::function<void(int)> onSelect;

    // Replaces all rows, and goes back to the top.
    void setGroups(std::vector<SearchPaneState::Group> groups);
    // Marks this hit's row, and no other, and brings it into view.
    void select(std::optional<int> hit);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

protected:
    // Stops at hits only, never at the head of a year.
    [[nodiscard]] QModelIndex moveCursor(CursorAction action,
                                         Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void tellHit(const QModelIndex& index);
    [[nodiscard]] bool isHit(const QModelIndex& index) const;

    void measureShown();
    // Measures the lines that the window would show together with this one.
    void measureAround(int row);
    void measureIdly();
    // With the heights as they are now. What stands at the top of the window stays there.
    void layOutAnew();

    SearchResultsModel* m_model;
    SearchRowHeights m_heights;
    QBasicTimer m_idle;
    bool m_isLayingOut = false;
    bool m_showsFocus = false;
};

}  // namespace velmar
