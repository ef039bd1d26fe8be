// Any text as a note: its rules make what their regular expressions make, and its front matter and
// title only ever go as a whole.
#include "DiaryKit/FolderSources/MarkdownNote.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/kit/foldersources/PatternCleaning.h"

namespace diary::fuzz {
namespace {

using MarkdownFolderSource::Flavor;

void checkFrontmatter(const QString& text) {
    const auto note = MarkdownFolderSource::splitFrontmatter(text);
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    require(plain.endsWith(note.body), "the body is the end of the text", {text, note.body});
    require(note.body == plain || plain.startsWith(QLatin1String("---\n")),
            "only front matter goes", {text, note.body});
    for (const QString& tag : note.tags) {
        require(plain.contains(tag) && !tag.contains(u'\n'), "a tag is a part of a line", {tag});
    }
    require(!note.date || LocalTime::isValid(note.date->year, note.date->month, note.date->day),
            "a date is one of the calendar", {text});
}

void checkCleaning(const QString& text) {
    // ICU's engine gives up, or takes its time, on longer ones.
    constexpr qsizetype kLongest = 4096;
    if (text.size() > kLongest) return;
    for (const Flavor flavor :
         {Flavor::obsidian, Flavor::logseq, Flavor::diarly, Flavor::generic}) {
        const auto cleaned = MarkdownFolderSource::clean(text, flavor);
        const auto expected = test::cleanedByPatterns(text, flavor);
        require(!expected || cleaned == *expected, "a rule does what its expression does",
                {text, cleaned.text, expected ? expected->text : QString()});
    }
}

void checkTitle(const QString& text) {
    const QString rest = MarkdownFolderSource::dropDateTitle(text);
    require(text.contains(rest), "what stays is a part of the text", {text, rest});
    require(rest == text || text.startsWith(u'#'), "only a heading goes", {text, rest});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const QString& text : diary::fuzz::pieces(data, size)) {
        diary::fuzz::checkFrontmatter(text);
        diary::fuzz::checkCleaning(text);
        diary::fuzz::checkTitle(text);
    }
    return 0;
}
