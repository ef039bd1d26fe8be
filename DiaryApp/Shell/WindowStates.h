// What the views' models are made from, taken from the session, the store and the search as they
// are now. Main thread; they read no day file that the session hasn't read, but what is told of the
// whole vault looks at each of its files.
#pragma once

#include <set>

#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/EntryModel.h"
#include "DiaryApp/Navigation/RailModel.h"
#include "DiaryApp/Navigation/SidebarModel.h"
#include "DiaryApp/Navigation/YearOverviewModel.h"
#include "DiaryApp/Search/SearchController.h"
#include "DiaryApp/Session/WritingSession.h"
#include "DiaryApp/Settings/Settings.h"

namespace velmar::windowstates {

[[nodiscard]] TopBarView::Model topBar(const WritingSession& session);
// What the sidebar tells of the vault, kept for as long as the store has nothing new to say: each
// asking looks at every file's stamp.
struct VaultFacts {
    int revision = -1;
    int month = 0;
    std::set<int> daysWithContent;
    diary::Overview overview;
};
void refresh(VaultFacts& facts, diary::DiaryStore& store, int month);

[[nodiscard]] SidebarState sidebar(const WritingSession& session, const VaultFacts& facts);
[[nodiscard]] EntryState entry(const WritingSession& session, const SearchController& search,
                               const Settings& settings);
[[nodiscard]] RailState rail(const WritingSession& session, const SearchController& search);
[[nodiscard]] YearOverviewModel yearOverview(diary::DiaryStore& store);

}  // namespace velmar::windowstates
