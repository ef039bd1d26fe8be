#include "DiaryKit/Import/UniqueJoined.h"

#include <algorithm>
#include <vector>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary {

std::optional<QString> uniqueJoined(std::span<const std::optional<QString>> parts,
                                    QStringView separator) {
    std::vector<QStringView> kept;
    for (const std::optional<QString>& part : parts) {
        if (!part) continue;
        const QStringView trimmed = text::trimmed(*part);
        if (trimmed.isEmpty() || std::find(kept.begin(), kept.end(), trimmed) != kept.end()) {
            continue;
        }
        kept.push_back(trimmed);
    }
    if (kept.empty()) return std::nullopt;
    QString joined = kept.front().toString();
    for (std::size_t index = 1; index < kept.size(); ++index) {
        joined.append(separator).append(kept[index]);
    }
    return joined;
}

}  // namespace diary
