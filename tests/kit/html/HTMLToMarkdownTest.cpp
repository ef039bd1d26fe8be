#include "DiaryKit/Import/HTMLToMarkdown.h"

#include <gmock/gmock.h>

#include "tests/support/Printing.h"

namespace diary::HTMLToMarkdown {
namespace {

using testing::ElementsAre;

QString markdownOf(const char16_t* html) {
    return markdown(QString::fromUtf16(html));
}

struct Row {
    const char* name;
    const char16_t* html;
    const char16_t* markdown;
};

class Conversion : public testing::TestWithParam<Row> {};

TEST_P(Conversion, KeepsWhatMarkdownCanHold) {
    EXPECT_EQ(markdownOf(GetParam().html), QString::fromUtf16(GetParam().markdown));
}

INSTANTIATE_TEST_SUITE_P(
    Inline, Conversion,
    testing::Values(Row{"BlanksStayOutsideOfMarks", u"x<b> bold </b>y", u"x **bold** y"},
                    Row{"BlankEmphasisIsNone", u"a<i> </i>b", u"a b"},
                    Row{"Marks", u"<em>a</em> <del>b</del> <kbd>c</kbd> <mark>d</mark>",
                        u"*a* ~~b~~ `c` **d**"},
                    Row{"Link", u"<a href='http://a.b/?x&amp;y'> t <b>u</b></a>",
                        u"[t **u**](http://a.b/?x&y)"},
                    Row{"LinkWithinThePage", u"<a href='#top'>up</a>", u"up"},
                    Row{"LinkWithAScript", u"<a href='JavaScript:go()'>up</a>", u"up"},
                    Row{"LinkWithoutText", u"<a href='x.html'></a>", u"x.html"},
                    Row{"LinkThatIsItsText", u"<a href='http://a.b'>http://a.b</a>", u"http://a.b"},
                    Row{"MediaDisappear", u"a<img src=x><video>no</video>b", u"ab"},
                    Row{"ABreakEndsALine", u"a <br> b", u"a\nb"},
                    Row{"BlanksCollapse", u"a \n\t\r b", u"a b"},
                    Row{"Checkboxes", u"<input type=checkbox checked>a<input type=text><en-todo/>b",
                        u"[x] a[ ] b"},
                    Row{"ABlockInASpanHasItsOwnLine", u"a<span>b<div>c</div>d</span>",
                        u"ab\nc\nd"}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Blocks, Conversion,
    testing::Values(
        Row{"Paragraphs", u"<p>one<p>two", u"one\n\ntwo"},
        Row{"HeadingOnOneLine", u"<h2>a<br>b</h2>", u"## a b"},
        Row{"EmptyHeadingsGo", u"<h1> </h1>x", u"x"}, Row{"Rule", u"a<hr>b", u"a\n\n---\n\nb"},
        Row{"Quote", u"<blockquote><p>a</p><p>b<br>c</p></blockquote>", u"> a\n>\n> b\n> c"},
        Row{"Code", u"<pre>\n  a\n<b>b</b><br>c\n</pre>", u"```\n  a\nb\nc\n```"},
        Row{"TableAsRows", u"<table><tr><th>a</th><th>b</th></tr><tr></tr><tr><td>c<br>d</table>",
            u"a | b\nc d"},
        Row{"List", u"<ul><li>a<li>b</ul>", u"- a\n- b"},
        Row{"NumberedList", u"<ol start='3'><li>a<li>b</ol>", u"3. a\n4. b"},
        Row{"NumberedFromNonsense", u"<ol start='x'><li>a</ol>", u"1. a"},
        Row{"NestedList", u"<li>a<ul><li>b</ul></li>", u"- a\n  - b"},
        Row{"NestedInANumberedList", u"<ol><li>a<ul><li>b</ul></ol>", u"1. a\n   - b"},
        Row{"TodoByClass", u"<ul><li class='checked'>a<li data-checked=false>b</ul>",
            u"- [x] a\n- [ ] b"},
        Row{"TodoByInput", u"<ul><li><input type=checkbox checked>a</ul>", u"- [x] a"},
        Row{"ParagraphsInAnItem", u"<ul><li><p>a</p><p>b</p></ul>", u"- a b"},
        Row{"NothingOfNothing", u"<ul></ul><blockquote></blockquote><pre></pre>", u""}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(Conversion, GivesBlocksToBeJoined) {
    const HTMLDocument page =
        MiniHTML::parse(QStringLiteral("<h2>a</h2>\n<div><p>b <i>c</i></p></div>d"));
    EXPECT_THAT(blocks(page.root()), ElementsAre(u"## a", u"b *c*", u"d"));
}

TEST(Conversion, PutsAllOnOneLineWhereAskedTo) {
    const HTMLDocument page = MiniHTML::parse(QStringLiteral(" a<br><b>c</b><p>d</p>"));
    EXPECT_EQ(inlineText(page.root()), u"a **c** d");
}

TEST(Conversion, CountsUpToTheLargestNumber) {
    EXPECT_EQ(markdownOf(u"<ol start=9223372036854775807><li>a<li>b</ol>"),
              u"9223372036854775807. a\n9223372036854775807. b");
}

struct TidyRow {
    const char* name;
    const char16_t* text;
    const char16_t* tidied;
};

class Tidy : public testing::TestWithParam<TidyRow> {};

TEST_P(Tidy, LeavesOneBlankLineAtMost) {
    EXPECT_EQ(tidy(QString::fromUtf16(GetParam().text)), QString::fromUtf16(GetParam().tidied));
}

INSTANTIATE_TEST_SUITE_P(Rows, Tidy,
                         testing::Values(TidyRow{"Nothing", u"", u""},
                                         TidyRow{"ThreeBecomeOne", u"a\n\n\n\nb", u"a\n\nb"},
                                         TidyRow{"BlankLines", u"a\n \t\n\u3000\nb", u"a\n\nb"},
                                         TidyRow{"LineEnds", u"a \t\n b\u3000", u"a\n b\u3000"},
                                         TidyRow{"BothEnds", u"\n\n  a\n\n", u"  a"},
                                         TidyRow{"EveryNewline", u"\u2028\u000Ba\u0085", u"a"},
                                         TidyRow{"CarriageReturnsInside", u"a\r\n\r\n\r\nb",
                                                 u"a\r\n\r\n\r\nb"}),
                         [](const testing::TestParamInfo<TidyRow>& row) { return row.param.name; });

}  // namespace
}  // namespace diary::HTMLToMarkdown
