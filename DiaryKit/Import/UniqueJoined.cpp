#include "DiaryKit/Import/UniqueJoined.h"

#include <QtCore/QSet>
#include <vector>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary {

std::optional<QString> uniqueJoined(std::span<const std::optional<QString>> parts,
                                    QStringView separator) {
    std::vector<QStringView> kept;
    // A page may name a hundred thousand places.
    QSet<QStringView> seen;
    for (const std::optional<QString>& part : parts) {
        if (!part) continue;
        const QStringView trimmed = text::trimmed(*part);
        if (trimmed.isEmpty() || seen.contains(trimmed)) continue;
        seen.insert(trimmed);
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
