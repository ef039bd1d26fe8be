// Pages made to hurt: trees as deep as the text is long, megabytes in one tag, and constructs that
// ask for more text than they hold. Each must be survived in bounded time and memory, with its
// words in place.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <ctime>

#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

// Of processor time; generous, since sanitizers slow the work down. Anything quadratic takes
// minutes.
constexpr double kMaxSeconds = 10;
constexpr qsizetype kMaxUnits = 64 * 1024 * 1024;
[[maybe_unused]] constexpr long kMaxKilobytes = 512 * 1024;

QString repeated(const char* piece, int times) {
    return QString::fromUtf8(piece).repeated(times);
}

// The most memory that this process has ever held, in kilobytes.
[[maybe_unused]] long peakKilobytes() {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

struct Page {
    const char* name;
    QString html;
    // Words that must come out, in this order.
    QStringList words;
};

class HostilePage : public testing::TestWithParam<Page> {};

TEST_P(HostilePage, IsSurvivedWithItsWords) {
    const std::clock_t start = std::clock();
    const HTMLDocument page = MiniHTML::parse(GetParam().html);
    const QString markdown = HTMLToMarkdown::markdown(page.root());
    const QString line = HTMLToMarkdown::inlineText(page.root());
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kMaxSeconds);
    EXPECT_LT(markdown.size(), kMaxUnits);
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(peakKilobytes(), kMaxKilobytes);
#endif
    for (const QString& made : {markdown, line}) {
        qsizetype at = 0;
        for (const QString& word : GetParam().words) {
            at = made.indexOf(word, at);
            ASSERT_GE(at, 0) << word.toStdString();
        }
    }
}

QStringList words() {
    return {QStringLiteral("first"), QStringLiteral("last")};
}

Page nested(const char* name, const char* opening, int times) {
    return {name, QStringLiteral("first ") + repeated(opening, times) + QStringLiteral(" last"),
            words()};
}

std::vector<Page> pages() {
    constexpr int kDeep = 100000;
    return {
        nested("Divisions", "<div>", kDeep),
        nested("Spans", "<span>", kDeep),
        nested("Bold", "<b>", kDeep),
        nested("BoldWithText", "<b>a ", kDeep),
        nested("Links", "<a href=x>", kDeep),
        nested("SpansAndDivisions", "<span><div>a", kDeep / 2),
        nested("Quotes", "<blockquote>a<br>b", kDeep / 4),
        nested("Lists", "<ul><li>a", kDeep),
        nested("WideLists", "<ol start=-9223372036854775808><li>a", kDeep / 4),
        nested("ListsInDivisions", "<li><div><ul>", kDeep / 4),
        nested("Tables", "<table><tbody><tr><td>a", kDeep / 4),
        nested("TablesWithoutBody", "<table><tr><td>a", kDeep / 4),
        nested("TablesInItems", "<li><table><tr><td><b>", kDeep / 4),
        // Of a table only rows are told, so "last" goes.
        {"TableBodiesOnly",
         QStringLiteral("first ") + repeated("<tbody>", kDeep),
         {QStringLiteral("first")}},
        nested("Headings", "<h3>", kDeep),
        nested("Preformatted", "<pre>", kDeep),
        nested("Unknown", "<x-y>", kDeep),
        {"ClosingTagsThatMatchNothing",
         QStringLiteral("first") + repeated("<b>", kDeep) + repeated("</i></x></p>", kDeep) +
             QStringLiteral(" last"),
         words()},
        {"ParagraphsBelowADeepOne",
         QStringLiteral("first<p>") + repeated("<i>", kDeep) + repeated("<p>", kDeep) +
             QStringLiteral(" last"),
         words()},
        {"ManyItemsAtTheDeepest",
         QStringLiteral("first") + repeated("<ul><li>a", 80) + repeated("<li>a", 180000) +
             QStringLiteral(" last"),
         words()},
        {"ManyLinesInDeepQuotes",
         QStringLiteral("first") + repeated("<blockquote>", 80) + repeated("a<br>", 60000) +
             QStringLiteral(" last"),
         words()},
        {"MuchTextInDeepTables",
         QStringLiteral("first") + repeated("<table><tbody><tr><td>", 40) +
             repeated("many words ", 80000) + QStringLiteral(" last"),
         words()},
        {"AnAttributeOfMegabytes",
         QStringLiteral("first<p title='") + repeated("&amp;x ", 1 << 20) +
             QStringLiteral("'>last"),
         words()},
        {"ManyAttributes",
         QStringLiteral("first<p ") + repeated("a=b ", 250000) + QStringLiteral(">last"), words()},
        {"ManyClasses",
         QStringLiteral("first<ul><li class='") + repeated("a ", 500000) + QStringLiteral("'>last"),
         words()},
        {"ManyUnknownTags",
         [] {
             QString html = QStringLiteral("first");
             for (int i = 0; i < kDeep; ++i) html += QStringLiteral("<t%1>").arg(i);
             return html + QStringLiteral(" last");
         }(),
         words()},
        {"AmpersandsOnly",
         QStringLiteral("first ") + repeated("&", 1000000) + QStringLiteral(" last"), words()},
        {"SignsOnly", QStringLiteral("first ") + repeated("<", 1000000) + QStringLiteral(" last"),
         words()},
        {"BreaksOnly", QStringLiteral("first") + repeated("<br>", 250000) + QStringLiteral("last"),
         words()},
        {"ScriptsWithFalseEnds",
         QStringLiteral("first<script>") + repeated("</scrip", 140000) +
             QStringLiteral("</script>last"),
         words()},
    };
}

INSTANTIATE_TEST_SUITE_P(Pages, HostilePage, testing::ValuesIn(pages()),
                         [](const testing::TestParamInfo<Page>& page) { return page.param.name; });

TEST(Flattening, KeepsMarksUpToItsBound) {
    const QString html = repeated("<b>", HTMLToMarkdown::kMaxNesting) + u'x';
    const QString marks = QString(2 * HTMLToMarkdown::kMaxNesting, u'*');
    EXPECT_EQ(HTMLToMarkdown::markdown(MiniHTML::parse(html).root()), marks + u'x' + marks);
    const QString deeper = QStringLiteral("<b>") + html;
    EXPECT_EQ(HTMLToMarkdown::markdown(MiniHTML::parse(deeper).root()), marks + u'x' + marks);
}

TEST(Flattening, LeavesPlainTagsAsDeepAsTheyAre) {
    const QString html = repeated("<div><section>", 10000) + QStringLiteral("<b>x</b><hr><p>y");
    EXPECT_EQ(HTMLToMarkdown::markdown(MiniHTML::parse(html).root()), u"**x**\n\n---\n\ny");
}

}  // namespace
}  // namespace diary
