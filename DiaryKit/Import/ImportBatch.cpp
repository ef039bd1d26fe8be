#include "DiaryKit/Import/ImportBatch.h"

#include <algorithm>

namespace diary {

std::optional<YearRange> ImportBatch::years() const {
    if (entries.empty()) return std::nullopt;
    YearRange range{entries.front().day.year, entries.front().day.year};
    for (const ImportedEntry& entry : entries) {
        range.first = std::min(range.first, entry.day.year);
        range.last = std::max(range.last, entry.day.year);
    }
    return range;
}

}  // namespace diary
