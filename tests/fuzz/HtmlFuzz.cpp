// Any text as HTML: the tree is whole, decoding its texts never makes them longer, and conversion
// ends with tidy Markdown that holds no more than its bounds allow.
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/MiniHTML.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {
namespace {

void checkTree(const QString& html, const HTMLNode& root) {
    qsizetype units = 0;
    for (const HTMLNode* node = root.next(root); node; node = node->next(root)) {
        require(node->parent() != nullptr, "each node has a parent", {html});
        require(node->isText() == node->tag().isEmpty(), "only texts have no tag", {html});
        require(!node->isText() || !node->text().isEmpty(), "no text is empty", {html});
        require(!node->isText() || !node->firstChild(), "a text has no children", {html});
        units += node->text().size();
    }
    require(units <= html.size(), "texts are no longer than their source", {html});
}

// Each unit may be repeated for each table row around it, and each line carries an indent and the
// marks around it.
qsizetype bound(const QString& html) {
    constexpr qsizetype kRows = qsizetype{1} << HTMLToMarkdown::kMaxRowDepth;
    constexpr qsizetype kMarks = HTMLToMarkdown::kMaxIndent + 8 * HTMLToMarkdown::kMaxNesting;
    return (html.size() + 1) * kRows * kMarks;
}

void check(const QString& html) {
    const HTMLDocument document = MiniHTML::parse(html);
    checkTree(html, document.root());
    const QString markdown = HTMLToMarkdown::markdown(document.root());
    require(markdown.size() <= bound(html), "Markdown stays within its bound", {html, markdown});
    require(!markdown.contains(QLatin1String("\n\n\n")), "there are no two blank lines in a row",
            {html, markdown});
    const QString line = HTMLToMarkdown::inlineText(document.root());
    require(!line.contains(u'\n'), "inline text is one line", {html, line});
    require(MiniHTML::decodeEntities(html).size() <= html.size(), "decoding shortens", {html});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const QString& html : diary::fuzz::pieces(data, size)) diary::fuzz::check(html);
    return 0;
}
