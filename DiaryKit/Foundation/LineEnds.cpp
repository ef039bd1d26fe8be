#include "DiaryKit/Foundation/LineEnds.h"

#include <utility>

namespace diary::text {

QString withoutCarriageReturnPairs(QString text) {
    const qsizetype first = text.indexOf(QLatin1String("\r\n"));
    if (first < 0) return text;
    const qsizetype size = text.size();
    QChar* const units = text.data();
    qsizetype kept = first;
    for (qsizetype at = first; at < size; ++at) {
        const bool isPair = units[at] == u'\r' && at + 1 < size && units[at + 1] == u'\n';
        if (!isPair) units[kept++] = units[at];
    }
    text.truncate(kept);
    return text;
}

QString withLineFeeds(QString text) {
    text = withoutCarriageReturnPairs(std::move(text));
    if (text.contains(u'\r')) text.replace(u'\r', u'\n');
    return text;
}

}  // namespace diary::text
