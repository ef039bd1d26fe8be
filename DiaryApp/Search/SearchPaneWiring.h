// The one place where the pane and its rules meet.
#pragma once

namespace velmar {

class SearchController;
class SearchPaneView;

// Leads what the pane calls back to the search. The search must outlive the pane's events.
void wireSearchPane(SearchPaneView& pane, SearchController& controller);

}  // namespace velmar
