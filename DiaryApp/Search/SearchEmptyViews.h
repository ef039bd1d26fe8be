// What stands in the list's place while there are no rows: the searches of late, or that nothing
// was found.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <vector>

#include "DiaryApp/Search/SearchPaneState.h"

namespace velmar {

class Button;
class RecentSearchRow;

class SearchRecentsView : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    // The search that was chosen.
    std::function<void(const QString&)> onRecent;
    // The keys lead up and out of the first row.
    std::function<void()> onLeft;

    void update(const SearchPaneState::Recents& recents);

    // Gives the first row the focus. False where there are none.
    bool focusFirst();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    void remake(const QStringList& searches);
    void focusRow(int row);
    [[nodiscard]] double hintTop() const;

    SearchPaneState::Recents m_recents;
    std::vector<RecentSearchRow*> m_rows;
};

class SearchNoResultsView : public QWidget {
    Q_OBJECT

public:
    explicit SearchNoResultsView(QWidget* parent = nullptr);

    std::function<void()> onResetScope;

    void update(const SearchPaneState::NoResults& nothing);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    [[nodiscard]] double hintTop() const;

    SearchPaneState::NoResults m_nothing;
    Button* m_reset;
};

}  // namespace velmar
