#include "DiaryApp/Search/BackgroundSearch.h"

#include "DiaryKit/Foundation/Background.h"
#include "DiaryKit/Vault/DiaryStore.h"

namespace velmar {

std::function<void(const diary::SearchQuery& query,
                   std::function<void(diary::SearchResult)> finish)>
backgroundSearch(QString root, diary::DownloadService downloads, QObject* context) {
    return [root = std::move(root), downloads = std::move(downloads), context](
               const diary::SearchQuery& query, std::function<void(diary::SearchResult)> finish) {
        const auto work = [root, downloads, query] {
            return diary::DiaryStore::search(root, query, diary::DiaryStore::searchLimit,
                                             downloads);
        };
        diary::background::run(diary::background::Urgency::UserWaits, context, work,
                               std::move(finish));
    };
}

}  // namespace velmar
