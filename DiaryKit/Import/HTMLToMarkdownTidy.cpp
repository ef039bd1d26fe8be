#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/HTMLToMarkdownTrimming.h"

namespace diary::HTMLToMarkdown {

namespace {

QStringView withoutTrailingBlanks(QStringView line) {
    while (!line.isEmpty() && (line.back() == u' ' || line.back() == u'\t')) line.chop(1);
    return line;
}

}  // namespace

QString tidy(QStringView text) {
    QString tidied;
    tidied.reserve(text.size());
    bool isBehindBlank = false;
    bool isFirst = true;
    for (const QStringView whole : text.tokenize(u'\n')) {
        const QStringView line = withoutTrailingBlanks(whole);
        const bool isBlank = text::trimmedOfBlanks(line).isEmpty();
        if (isBlank && isBehindBlank) continue;
        if (!isFirst) tidied += u'\n';
        if (!isBlank) tidied += line;
        isBehindBlank = isBlank;
        isFirst = false;
    }
    return trimmedOfNewlines(tidied).toString();
}

}  // namespace diary::HTMLToMarkdown
