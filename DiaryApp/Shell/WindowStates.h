// What the views' models are made from, taken from the session, the search and the facts about the
// vault as they are now. Main thread; they read no day file that the session hasn't read.
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
[[nodiscard]] SidebarState sidebar(const WritingSession& session,
                                   const diary::ArchiveSnapshot& archive);
[[nodiscard]] EntryState entry(const WritingSession& session, const SearchController& search,
                               const Settings& settings);
[[nodiscard]] RailState rail(const WritingSession& session, const SearchController& search);
[[nodiscard]] YearOverviewModel yearOverview(const diary::ArchiveSnapshot& archive);

}  // namespace velmar::windowstates
