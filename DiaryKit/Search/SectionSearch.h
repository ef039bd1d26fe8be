// The search within one day file's bytes. Most files don't hold the words at all, and are told so
// by their bytes; text is made of those sections only that may.
#pragma once

#include <QtCore/QByteArrayView>
#include <vector>

#include "DiaryKit/Search/ByteNeedle.h"
#include "DiaryKit/Search/CaseFolding.h"
#include "DiaryKit/Search/SearchQuery.h"
#include "DiaryKit/Search/SearchResult.h"

namespace diary {

class SectionSearch {
public:
    explicit SectionSearch(const SearchQuery& query);

    // The day's hits in file order, `limit` of them at most. Of a year that stands twice the first
    // section counts. The query's month and day aren't looked at. Any thread.
    [[nodiscard]] std::vector<SearchHit> hits(const MonthDay& day, QByteArrayView bytes,
                                              int limit) const;

private:
    [[nodiscard]] bool mayMatch(QByteArrayView bytes) const;
    [[nodiscard]] std::optional<SearchHit> hit(const MonthDay& day, int year,
                                               QByteArrayView body) const;

    SearchQuery m_query;
    casefolding::FoldedTerms m_terms;
    // The rarest first.
    std::vector<ByteNeedle> m_needles;
};

}  // namespace diary
