#include "DiaryKit/FolderSources/MarkdownNote.h"

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Foundation/TextSets.h"

namespace diary::MarkdownFolderSource {

using namespace Qt::StringLiterals;

namespace {

QString tagOf(QStringView text) {
    return text::trimmedOf(text, u" \"'#").toString();
}

// "[a, b c]", "a b", "#a, #b"
void addTags(QStringView value, QStringList& tags) {
    value = text::trimmedOf(value, u"[]");
    for (const QStringView list : value.split(u',')) {
        for (const QStringView word : list.split(u' ', Qt::SkipEmptyParts)) {
            const QString tag = tagOf(word);
            if (!tag.isEmpty()) tags << tag;
        }
    }
}

void readFrontmatter(QStringView block, Frontmatter& note) {
    bool isInTagList = false;
    for (const QStringView whole : block.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringView line = text::trimmedOfBlanks(whole);
        if (isInTagList && line.startsWith("- "_L1)) {
            note.tags << tagOf(line.sliced(2));
            continue;
        }
        isInTagList = false;
        const qsizetype colon = line.indexOf(u':');
        if (colon < 0) continue;
        const QString key = line.first(colon).toString().toLower();
        const QStringView value = text::trimmedOfBlanks(line.sliced(colon + 1));
        if (key == "tags"_L1 || key == "tag"_L1) {
            isInTagList = value.isEmpty();
            addTags(value, note.tags);
        } else if (!note.date && (key == "date"_L1 || key == "created"_L1 || key == "day"_L1)) {
            note.date = DateLine::day(text::trimmedOf(value, u"\"'"));
        }
    }
}

}  // namespace

Frontmatter splitFrontmatter(QString text) {
    constexpr qsizetype kOpening = 4;
    text = text::withoutCarriageReturnPairs(std::move(text));
    const qsizetype closing = text.startsWith("---\n"_L1) ? text.indexOf("\n---"_L1, kOpening) : -1;
    if (closing < 0) return {.body = text};
    Frontmatter note;
    readFrontmatter(QStringView(text).sliced(kOpening, closing - kOpening), note);
    const qsizetype lineEnd = text.indexOf(u'\n', closing + 1);
    if (lineEnd >= 0) note.body = text.sliced(lineEnd + 1);
    return note;
}

QString dropDateTitle(const QString& text) {
    if (!text.startsWith(u'#')) return text;
    const qsizetype lineEnd = text.indexOf(u'\n');
    const auto match =
        DateLine::match(QStringView(text).first(lineEnd < 0 ? text.size() : lineEnd));
    if (!match || !match->rest.isEmpty()) return text;
    return lineEnd < 0 ? QString() : text::trimmed(QStringView(text).sliced(lineEnd)).toString();
}

}  // namespace diary::MarkdownFolderSource
