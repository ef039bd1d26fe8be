// The application's way to run a search: over copies, on the pool, with the answer on the main
// thread.
#pragma once

#include <QtCore/QObject>
#include <functional>

#include "DiaryKit/Search/VaultSearch.h"

namespace velmar {

// For SearchHost::startSearch. Answers come only while `context`, an object of the main thread
// that must not outlive the search's controller, is there.
[[nodiscard]] std::function<void(const diary::SearchQuery& query,
                                 std::function<void(diary::SearchResult)> finish)>
backgroundSearch(QString root, diary::DownloadService downloads, QObject* context);

}  // namespace velmar
