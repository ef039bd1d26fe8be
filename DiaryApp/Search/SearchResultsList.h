// The list of hits. It shows which one is selected and tells a click; keys are the pane's. Only
// what is visible is painted.
#pragma once

#include <QtWidgets/QListView>
#include <functional>

#include "DiaryApp/Search/SearchPaneState.h"

namespace velmar {

class SearchResultsModel;

class SearchResultsList : public QListView {
    Q_OBJECT

public:
    explicit SearchResultsList(QWidget* parent = nullptr);

    // The number of the hit that was clicked.
    std::function<void(int)> onSelect;

    // Replaces all rows, and goes back to the top.
    void setGroups(std::vector<SearchPaneState::Group> groups);
    // Marks this hit's row, and no other, and brings it into view.
    void select(std::optional<int> hit);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void clickedAt(const QModelIndex& index);

    SearchResultsModel* m_model;
    bool m_showsFocus = false;
};

}  // namespace velmar
