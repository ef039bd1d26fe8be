#include "DiaryApp/Search/SearchPaneWiring.h"

#include "DiaryApp/Search/SearchController.h"
#include "DiaryApp/Search/SearchPaneView.h"

namespace velmar {

void wireSearchPane(SearchPaneView& pane, SearchController& controller) {
    SearchController* search = &controller;
    pane.onQueryChanged = [search](const QString& text) {
        search->searchQueryChanged(text, SearchController::Run::AfterPause);
    };
    pane.onScope = [search](std::optional<int> year) { search->setScope(year); };
    pane.onSelect = [search](int index) { search->select(index); };
    pane.onOpen = [search](bool inAllYears) {
        search->openSelected(inAllYears ? OpenHit::AllYears : OpenHit::OneYear);
    };
    pane.onMove = [search](int delta) { search->move(delta); };
    pane.onEscape = [search] { search->escape(); };
    pane.onRecent = [search](const QString& text) { search->useRecentSearch(text); };
}

}  // namespace velmar
