// What the views' models are made from, taken from the session, the store and the search as they
// are now. Main thread; they read no day file that the session hasn't read, but the sidebar and
// the year calendar list the vault's folder where that hasn't been done.
#pragma once

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
// Without days and numbers while the vault wasn't looked through.
[[nodiscard]] SidebarState sidebar(const WritingSession& session, bool isVaultKnown);
[[nodiscard]] EntryState entry(const WritingSession& session, const SearchController& search,
                               const Settings& settings);
[[nodiscard]] RailState rail(const WritingSession& session, const SearchController& search);
[[nodiscard]] YearOverviewModel yearOverview(diary::DiaryStore& store);

}  // namespace velmar::windowstates
