// The search pane, which takes the sidebar's place while a search is open: the field, the years,
// the hits. It shows a state and calls back; what a callback means is SearchController's.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <optional>

#include "DiaryApp/Search/SearchHost.h"
#include "DiaryApp/Search/SearchPaneState.h"

namespace velmar {

class SearchCountLine;
class SearchField;
class SearchKeysHint;
class SearchNoResultsView;
class SearchNoticeBox;
class SearchRecentsView;
class SearchResultsList;
class SearchScopeChips;

class SearchPaneView : public QWidget {
    Q_OBJECT

public:
    using State = SearchPaneState;

    explicit SearchPaneView(QWidget* parent = nullptr);

    // What was typed, without what an input method still composes.
    std::function<void(const QString& text)> onQueryChanged;
    std::function<void(std::optional<int> year)> onScope;
    std::function<void(int index)> onSelect;
    std::function<void(bool inAllYears)> onOpen;
    std::function<void(int delta)> onMove;
    std::function<void()> onEscape;
    std::function<void(const QString& text)> onRecent;

    // Rows are made anew only with another generation; the selected one is brought into view.
    void render(State state);
    // The generation whose rows are shown; a state of that generation needs none. Absent where
    // they have to be made anew in any case.
    [[nodiscard]] std::optional<int> renderedGeneration() const { return m_renderedGeneration; }
    // The texts again in the installed language. To be followed by render().
    void retranslate();

    // Puts the text into the field without telling it as typed; not while something is composed
    // there.
    void setQuery(const QString& text);
    [[nodiscard]] bool isComposing() const;
    void focusField(FieldCaret caret);

    // The box of the search field, which the calendar's search button shares.
    [[nodiscard]] static QRect fieldBox() { return {20, 14, 228, 32}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    void setTabOrders();
    void renderEmpty(const State::Empty& empty);
    void useKey(int key, Qt::KeyboardModifiers modifiers);
    void place();

    SearchField* m_field;
    SearchScopeChips* m_chips;
    SearchCountLine* m_countLine;
    SearchNoticeBox* m_notice;
    SearchRecentsView* m_recents;
    SearchNoResultsView* m_noResults;
    SearchResultsList* m_list;
    SearchKeysHint* m_keys;
    std::optional<int> m_renderedGeneration;
};

}  // namespace velmar
