#include "DiaryKit/Documents/OdtText.h"

#include "tests/kit/documents/Documents.h"

namespace diary {
namespace {

using testing::Odt;

struct Row {
    const char* name;
    QByteArray body;
    QString text;
};

class OdtTextTest : public ::testing::TestWithParam<Row> {};

TEST_P(OdtTextTest, reads) {
    EXPECT_EQ(Odt(GetParam().body).text(), GetParam().text);
}

const Row kRows[] = {
    {"paragraphsAndHeadingsAreLines",
     "<text:h>2024-03-05</text:h><text:p>a</text:p><text:p/>"
     "<text:p>b</text:p>",
     QStringLiteral("2024-03-05\na\n\nb")},
    {"whiteSpaceIsCollapsedAndCountedBlanksAreNot",
     "<text:p> \n a <text:span> b</text:span>\tc<text:s text:c=\"3\"/>d<text:s/> e</text:p>",
     QStringLiteral("a b c   d  e")},
    {"tabsAndLineBreaks",
     "<text:p>a<text:tab/>b<text:line-break/>c<text:soft-page-break/></text:p>",
     QStringLiteral("a\tb\nc")},
    {"deletionsAreLeftOut",
     "<text:tracked-changes><text:deletion><text:p>old</text:p></text:deletion>"
     "</text:tracked-changes><text:p>a<text:change text:change-id=\"1\"/>"
     "<text:change-start/>new<text:change-end/></text:p>",
     QStringLiteral("anew")},
    {"itemsAreLines",
     "<text:list><text:list-item><text:p>a</text:p><text:list><text:list-item><text:p>b</text:p>"
     "</text:list-item></text:list></text:list-item></text:list>",
     QStringLiteral("a\nb")},
    {"aNoteComesBehindItsParagraph",
     "<text:p>a<text:note><text:note-citation>1</text:note-citation><text:note-body>"
     "<text:p>foot</text:p></text:note-body></text:note>b</text:p><text:p>c</text:p>",
     QStringLiteral("ab\nfoot\nc")},
    {"aTextBoxComesBehindItsParagraph",
     "<text:p>a<draw:frame><draw:text-box><text:p>1</text:p><text:p>2</text:p></draw:text-box>"
     "<svg:title>picture</svg:title></draw:frame>b</text:p>",
     QStringLiteral("ab\n1\n2")},
    {"aBoxOfThePageComesBehindTheFirstParagraph",
     "<draw:frame><draw:text-box><text:p>box</text:p></draw:text-box></draw:frame>"
     "<text:p>a</text:p><text:p>b</text:p>",
     QStringLiteral("a\nbox\nb")},
    {"annotationsAreLeftOut",
     "<text:p>a<office:annotation><text:p>x</text:p></office:annotation>"
     "</text:p>",
     QStringLiteral("a")},
    {"rowsAreLinesAndCellsStandBetweenTabs",
     "<table:table><table:table-column/><table:table-header-rows><table:table-row>"
     "<table:table-cell><text:p>a</text:p></table:table-cell><table:covered-table-cell/>"
     "<table:table-cell><text:p>b</text:p></table:table-cell></table:table-row>"
     "</table:table-header-rows><table:table-row><table:table-cell/><table:table-cell>"
     "<text:p>c</text:p><text:p>d</text:p></table:table-cell></table:table-row></table:table>"
     "<text:p>e</text:p>",
     QStringLiteral("a\tb\n\tc\nd\ne")},
    {"fieldsAreTheirResults",
     "<text:p><text:date text:date-value=\"2024-03-07\">07.03.24</text:date> "
     "<text:title>Diary</text:title></text:p>",
     QStringLiteral("07.03.24 Diary")},
    {"hiddenFieldsAndParagraphsAreLeftOut",
     "<text:p>a<text:hidden-text text:is-hidden=\"true\">x</text:hidden-text>"
     "<text:variable-set text:display=\"none\">5</text:variable-set></text:p>"
     "<text:p><text:hidden-paragraph text:is-hidden=\"true\"/>x</text:p><text:p>b</text:p>",
     QStringLiteral("a\n\nb")},
    {"hiddenSectionsAreLeftOut",
     "<text:section text:display=\"none\"><text:p>x</text:p></text:section>"
     "<text:section><text:p>a</text:p></text:section>",
     QStringLiteral("a")},
    {"aTableOfContentsIsReadWithoutItsTemplate",
     "<text:table-of-content><text:table-of-content-source><text:index-title-template>x"
     "</text:index-title-template></text:table-of-content-source><text:index-body><text:p>a"
     "</text:p></text:index-body></text:table-of-content>",
     QStringLiteral("a")},
    {"readingsOfRubyTextAreLeftOut",
     "<text:p><text:ruby><text:ruby-base>漢</text:ruby-base><text:ruby-text>かん</text:ruby-text>"
     "</text:ruby></text:p>",
     QStringLiteral("漢")},
};

INSTANTIATE_TEST_SUITE_P(Rows, OdtTextTest, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

const QByteArray kHidden =
    "<style:style style:name=\"H\"><style:text-properties text:display=\"none\"/></style:style>"
    "<style:style style:name=\"D\" style:parent-style-name=\"H\"/>";

TEST(OdtStyles, hideSpansAndParagraphs) {
    const Odt document(
        "<text:p>a<text:span text:style-name=\"H\">x<text:span text:style-name=\"N\">y"
        "</text:span></text:span><text:span>b</text:span></text:p>"
        "<text:p text:style-name=\"D\">z</text:p><text:p>c</text:p>",
        kHidden);
    EXPECT_EQ(document.text(), QStringLiteral("ab\n\nc"));
}

TEST(OdtBlanks, areCountedWithinReason) {
    const QString text = Odt("<text:p>a<text:s text:c=\"2000000000\"/>"
                             "<text:s text:c=\"2000000000\"/><text:s text:c=\"-5\"/>b</text:p>")
                             .text();
    EXPECT_EQ(text.size(), 1'000'002);
}

}  // namespace
}  // namespace diary
