#include "DiaryKit/Import/MiniHTML.h"

#include <gmock/gmock.h>

#include "tests/support/Printing.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The tree as a text: "p(one) b(two)".
QString outline(const HTMLNode& node) {
    if (node.isText()) return node.text().toString();
    QStringList children;
    for (const HTMLNode* child = node.firstChild(); child; child = child->nextSibling()) {
        children << outline(*child);
    }
    const QString inner = children.join(u' ');
    return node.tag().isEmpty() ? inner : node.tag().toString() + u'(' + inner + u')';
}

QString outlineOf(const char16_t* html) {
    return outline(MiniHTML::parse(QString::fromUtf16(html)).root());
}

struct Row {
    const char* name;
    const char16_t* html;
    const char16_t* outline;
};

class Tree : public testing::TestWithParam<Row> {};

TEST_P(Tree, IsWhatATolerantReaderMakes) {
    EXPECT_EQ(outlineOf(GetParam().html), QString::fromUtf16(GetParam().outline));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Tree,
    testing::Values(
        Row{"NothingGivesNothing", u"", u""}, Row{"ABlankStartsNoTag", u"a < b", u"a < b"},
        Row{"ADigitStartsATag", u"x<3 and>y", u"x 3(y)"}, Row{"ASignAtTheEndIsText", u"a<", u"a<"},
        Row{"AParagraphClosesTheOpenOne", u"<p>one<p>two", u"p(one) p(two)"},
        Row{"AnyBlockClosesAParagraph", u"<p>a<div>b</div>", u"p(a) div(b)"},
        Row{"AParagraphIsClosedThroughOthers", u"<p>a<b>b<p>c", u"p(a b(b)) p(c)"},
        Row{"AnItemClosesTheOpenOne", u"<ul><li>a<li>b</ul>", u"ul(li(a) li(b))"},
        Row{"AnItemNeverClosesAnOuterOne", u"<li>a<ul><li>b</ul>c", u"li(a ul(li(b)) c)"},
        Row{"ClosingClosesAllAbove", u"<div><b>a</div>b", u"div(b(a)) b"},
        Row{"UnmatchedClosingIsIgnored", u"a</i></x>b", u"a b"},
        Row{"VoidTagsHoldNothing", u"<br>a<img>b", u"br() a img() b"},
        Row{"SelfClosedTagsHoldNothing", u"<b/>a<x-y />b", u"b() a x-y() b"},
        Row{"ASlashAndABlankDoNotClose", u"<b/ >a", u"b(a)"},
        Row{"UnknownTagsNest", u"<x>a<X>b</x>c</X>d", u"x(a x(b) c) d"},
        Row{"CommentsGo", u"a<!-- <b> -->b", u"a b"},
        Row{"AnEmptyCommentIsNoEnd", u"a<!-->b-->c", u"a c"},
        Row{"AnOpenCommentCutsTheRest", u"a<!-- b<p>c", u"a"},
        Row{"DeclarationsGo", u"<!doctype html><?xml?>a", u"a"},
        Row{"ScriptsGo", u"a<script>if (x<y) '</p>'</SCRIPT >b", u"a b"},
        Row{"AnOpenScriptCutsTheRest", u"a<style>b<p>c", u"a"},
        Row{"ATagCutShortTakesEffect", u"a<p class='x", u"a p()"}),
    [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST(Attributes, AreReadInEveryForm) {
    const HTMLDocument page =
        MiniHTML::parse(QStringLiteral("<a HREF = \"x?a&amp;b\" b='\"' c=d/e f =g checked>"));
    const HTMLNode& a = *page.root().firstChild();
    EXPECT_EQ(a.attribute(u"href"), u"x?a&b");
    EXPECT_EQ(a.attribute(u"b"), u"\"");
    EXPECT_EQ(a.attribute(u"c"), u"d/e");
    EXPECT_EQ(a.attribute(u"f"), u"g");
    EXPECT_EQ(a.attribute(u"checked"), u"");
    EXPECT_EQ(a.attribute(u"missing"), std::nullopt);
    EXPECT_THAT(a.attributes(), SizeIs(5));
}

TEST(Attributes, OfOneNameTheLastCounts) {
    const HTMLDocument page = MiniHTML::parse(QStringLiteral("<p id=a ID=b>"));
    EXPECT_EQ(page.root().firstChild()->attribute(u"id"), u"b");
    EXPECT_EQ(page.root().firstChild()->attributes().value(QStringLiteral("id")), u"b");
}

TEST(Classes, AreSplitAtBlanks) {
    const HTMLDocument page = MiniHTML::parse(QStringLiteral("<p class=' memo  big\tred '>"));
    const HTMLNode& p = *page.root().firstChild();
    EXPECT_THAT(p.classes(), ElementsAre(u"memo", u"big\tred"));
    EXPECT_TRUE(p.hasClass(u"memo"));
    EXPECT_FALSE(p.hasClass(u"big"));
}

TEST(Search, FindsDescendantsInDocumentOrder) {
    const HTMLDocument page = MiniHTML::parse(
        QStringLiteral("<div class=x><p>1</p><div class=x>2<p class=x>3</p></div></div><p>4</p>"));
    const HTMLNode& outer = *page.root().firstChild();
    EXPECT_THAT(page.root().allOfTag(u"p"), SizeIs(3));
    EXPECT_THAT(outer.allOfTag(u"p"), SizeIs(2));
    EXPECT_THAT(page.root().allOfClass(u"x"), SizeIs(3));
    EXPECT_THAT(outer.allOfClass(u"x"), SizeIs(2)) << "the node itself isn't looked at";
    EXPECT_EQ(outer.firstOfClass(u"x")->textContent(), u"23");
    EXPECT_EQ(page.root().firstOfClass(u"y"), nullptr);
    EXPECT_EQ(outer.first([](const HTMLNode& node) { return node.text() == u"4"; }), nullptr);
    EXPECT_EQ(outer.firstChild()->parent(), &outer);
}

TEST(TextContent, HasALineEndForEachBreak) {
    const HTMLDocument page = MiniHTML::parse(QStringLiteral("<p>a<br>b <i>c&lt;</i></p>d"));
    EXPECT_EQ(page.root().textContent(), u"a\nb c<d");
}

struct EntityRow {
    const char* name;
    const char16_t* text;
    const char16_t* decoded;
};

class Entities : public testing::TestWithParam<EntityRow> {};

TEST_P(Entities, AreDecodedOnce) {
    EXPECT_EQ(MiniHTML::decodeEntities(QString::fromUtf16(GetParam().text)),
              QString::fromUtf16(GetParam().decoded));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Entities,
    testing::Values(EntityRow{"Once", u"&amp;lt;", u"&lt;"},
                    EntityRow{"Unknown", u"&unknown;", u"&unknown;"},
                    EntityRow{"UpperCase", u"&AMP;", u"&AMP;"},
                    EntityRow{"Hexadecimal", u"&#x1F600;", u"😀"},
                    EntityRow{"UpperX", u"&#X41;", u"A"}, EntityRow{"Decimal", u"&#65;", u"A"},
                    EntityRow{"Surrogate", u"&#xD800;", u"&#xD800;"},
                    EntityRow{"BeyondUnicode", u"&#x110000;", u"&#x110000;"},
                    EntityRow{"SignedNumber", u"&#+65;", u"&#+65;"},
                    EntityRow{"NoDigits", u"&#;&#x;", u"&#;&#x;"},
                    EntityRow{"TenBehind", u"&#x010FFFF;", u"\U0010FFFF"},
                    EntityRow{"ElevenBehind", u"&#x0010FFFF;", u"&#x0010FFFF;"},
                    EntityRow{"NoSemicolon", u"a & b &amp", u"a & b &amp"},
                    EntityRow{"AFailedOneHidesNoOther", u"&x&amp;", u"&x&"},
                    EntityRow{"PairsCountOnce", u"&😀😀&lt;", u"&😀😀<"}),
    [](const testing::TestParamInfo<EntityRow>& row) { return row.param.name; });

TEST(Document, StaysValidWhenMoved) {
    HTMLDocument page = MiniHTML::parse(QStringLiteral("<P Class=a>one &amp; two"));
    const HTMLNode* p = page.root().firstChild();
    const HTMLDocument moved = std::move(page);
    EXPECT_EQ(moved.root().firstChild(), p);
    EXPECT_EQ(p->textContent(), u"one & two");
    EXPECT_TRUE(p->hasClass(u"a"));
    EXPECT_THAT(p->allOfTag(u"p"), IsEmpty());
}

}  // namespace
}  // namespace diary
