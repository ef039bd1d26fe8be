#include "DiaryKit/Documents/DocxText.h"

#include "tests/kit/documents/Documents.h"

namespace diary {
namespace {

using testing::Docx;

struct Row {
    const char* name;
    QByteArray body;
    QString text;
};

class DocxTextTest : public ::testing::TestWithParam<Row> {};

TEST_P(DocxTextTest, reads) {
    EXPECT_EQ(Docx(GetParam().body).text(), GetParam().text);
}

QByteArray cell(const QByteArray& content) {
    return "<w:tc>" + content + "</w:tc>";
}

QByteArray row(const QByteArray& cells) {
    return "<w:tr>" + cells + "</w:tr>";
}

const Row kRows[] = {
    {"aParagraphIsALine", Docx::paragraph("a") + Docx::paragraph("b"), QStringLiteral("a\nb")},
    {"anEmptyParagraphIsAnEmptyLine", Docx::paragraph("a") + "<w:p/>" + Docx::paragraph("b"),
     QStringLiteral("a\n\nb")},
    {"runsOfAParagraphAreJoined",
     "<w:p>" + Docx::run("202") + "<w:proofErr/>" + Docx::run("4") + "</w:p>",
     QStringLiteral("2024")},
    {"blanksStayAsTheyAre", Docx::paragraph(" a  b "), QStringLiteral(" a  b ")},
    {"breaksTabsAndHyphens",
     "<w:p><w:pPr><w:tabs><w:tab w:val=\"left\"/></w:tabs></w:pPr><w:r><w:t>a</w:t><w:tab/>"
     "<w:t>b</w:t><w:br/><w:t>c</w:t><w:cr/><w:t>d</w:t><w:noBreakHyphen/><w:softHyphen/></w:r>"
     "</w:p>",
     QStringLiteral("a\tb\nc\nd\u2011\u00AD")},
    {"aPageBreakStartsALine",
     "<w:p><w:r><w:lastRenderedPageBreak/><w:br w:type=\"page\"/><w:t>2024-03-11</w:t></w:r></w:p>",
     QStringLiteral("\n2024-03-11")},
    {"insertionsStayAndDeletionsGo",
     "<w:p><w:ins>" + Docx::run("new ") +
         "</w:ins><w:del><w:r><w:delText>old</w:delText>"
         "<w:t>older</w:t></w:r></w:del>" +
         Docx::run("kept") + "</w:p>",
     QStringLiteral("new kept")},
    {"whatWasMovedStandsWhereItCame",
     "<w:p><w:moveFrom>" + Docx::run("a") + "</w:moveFrom>" + Docx::run("b") + "<w:moveTo>" +
         Docx::run("a") + "</w:moveTo></w:p>",
     QStringLiteral("ba")},
    {"aDeletedParagraphMarkJoins",
     "<w:p><w:pPr><w:rPr><w:del/></w:rPr></w:pPr>" + Docx::run("a") + "</w:p>" +
         Docx::paragraph("b"),
     QStringLiteral("ab")},
    {"aLargeInitialBelongsToItsWord",
     "<w:p><w:pPr><w:framePr w:dropCap=\"drop\"/></w:pPr>" + Docx::run("W") + "</w:p>" +
         Docx::paragraph("ords"),
     QStringLiteral("Words")},
    {"formerFormattingDoesNotHide",
     "<w:p><w:r><w:rPr><w:rPrChange><w:rPr><w:vanish/></w:rPr></w:rPrChange></w:rPr><w:t>a</w:t>"
     "</w:r></w:p>",
     QStringLiteral("a")},
    {"hiddenTextIsLeftOut",
     "<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:t>secret</w:t></w:r>" + Docx::run("seen") +
         "<w:r><w:rPr><w:vanish w:val=\"false\"/></w:rPr><w:t>!</w:t></w:r></w:p>",
     QStringLiteral("seen!")},
    {"aHiddenParagraphMarkHidesNoText",
     "<w:p><w:pPr><w:rPr><w:vanish/></w:rPr></w:pPr>" + Docx::run("a") + "</w:p>",
     QStringLiteral("a")},
    {"aFieldsResultIsReadAndItsCodeIsNot",
     "<w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText>DATE</w:instrText>"
     "<w:t>code</w:t></w:r><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>" +
         Docx::run("inner code") + "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
         Docx::run("inner result") +
         "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>"
         "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
         Docx::run("2024-03-12") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>" +
         Docx::run(" after") + "</w:p>",
     QStringLiteral("2024-03-12 after")},
    {"aSimpleFieldIsItsResult",
     "<w:p><w:fldSimple w:instr=\"DATE\">" + Docx::run("today") + "</w:fldSimple></w:p>",
     QStringLiteral("today")},
    {"anUnfinishedFieldLosesNothingBehindIt",
     "<w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r></w:p>" + Docx::paragraph("a"),
     QStringLiteral("\na")},
    {"linksControlsAndTagsAreReadThrough",
     "<w:p><w:hyperlink>" + Docx::run("a") +
         "</w:hyperlink><w:sdt><w:sdtPr><w:t>x</w:t></w:sdtPr>"
         "<w:sdtContent>" +
         Docx::run("b") + "</w:sdtContent></w:sdt><w:smartTag>" + Docx::run("c") +
         "</w:smartTag></w:p>",
     QStringLiteral("abc")},
    {"headingsAndItemsArePlainLines",
     "<w:p><w:pPr><w:pStyle w:val=\"Heading1\"/></w:pPr>" + Docx::run("2024-03-05") +
         "</w:p><w:p><w:pPr><w:numPr><w:numId w:val=\"1\"/></w:numPr></w:pPr>" + Docx::run("item") +
         "</w:p>",
     QStringLiteral("2024-03-05\nitem")},
    {"rowsAreLinesAndCellsStandBetweenTabs",
     Docx::paragraph("x") + "<w:tbl>" +
         row(cell(Docx::paragraph("a")) + cell(Docx::paragraph("b"))) +
         row(cell("<w:p/>") + cell(Docx::paragraph("d"))) + "</w:tbl>" + Docx::paragraph("y"),
     QStringLiteral("x\na\tb\n\td\ny")},
    {"aCellKeepsItsParagraphs",
     "<w:tbl>" +
         row(cell(Docx::paragraph("2024-03-05")) +
             cell(Docx::paragraph("a") + Docx::paragraph("b"))) +
         "</w:tbl>",
     QStringLiteral("2024-03-05\ta\nb")},
    {"aTableInACell",
     "<w:tbl>" +
         row(cell(Docx::paragraph("a") + "<w:tbl>" +
                  row(cell(Docx::paragraph("1")) + cell(Docx::paragraph("2"))) + "</w:tbl>") +
             cell(Docx::paragraph("b"))) +
         "</w:tbl>",
     QStringLiteral("a\n1\t2\tb")},
    {"aTextBoxComesBehindItsParagraph",
     "<w:p>" + Docx::run("before ") + "<w:r><w:pict><w:txbxContent>" + Docx::paragraph("box 1") +
         Docx::paragraph("box 2") + "</w:txbxContent></w:pict></w:r>" + Docx::run("after") +
         "</w:p>" + Docx::paragraph("next"),
     QStringLiteral("before after\nbox 1\nbox 2\nnext")},
    {"ofTwoFormsOneIsRead",
     "<w:p><w:r><mc:AlternateContent><mc:Choice><w:t>a</w:t></mc:Choice><mc:Fallback><w:t>a</w:t>"
     "</mc:Fallback></mc:AlternateContent></w:r></w:p>",
     QStringLiteral("a")},
    {"theOtherFormIsReadWhereTheFirstHasNoText",
     "<w:p><w:r><mc:AlternateContent><mc:Choice/><mc:Fallback><w:t>b</w:t></mc:Fallback>"
     "</mc:AlternateContent></w:r></w:p>",
     QStringLiteral("b")},
    {"readingsOfRubyTextAreLeftOut",
     "<w:p><w:r><w:ruby><w:rt>" + Docx::run("かん") + "</w:rt><w:rubyBase>" + Docx::run("漢") +
         "</w:rubyBase></w:ruby></w:r></w:p>",
     QStringLiteral("漢")},
    {"symbolsAreTheirCharacters", "<w:p><w:r><w:sym w:char=\"2603\"/></w:r></w:p>",
     QStringLiteral("\u2603")},
};

INSTANTIATE_TEST_SUITE_P(Rows, DocxTextTest, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

const QByteArray kReference = "<w:r><w:footnoteReference w:id=\"2\"/></w:r>";

QByteArray note(const QByteArray& kind, const QByteArray& text) {
    return "<w:" + kind + " w:id=\"2\">" + Docx::paragraph(text) + "</w:" + kind + ">";
}

TEST(DocxParts, aNoteComesBehindTheParagraphThatRefersToIt) {
    Docx document("<w:p>" + Docx::run("a") + kReference + Docx::run("b") + "</w:p>" + "<w:p>" +
                  Docx::run("c") + "<w:r><w:endnoteReference w:id=\"2\"/></w:r></w:p>" +
                  Docx::paragraph("d"));
    document
        .footnotes("<w:footnote w:type=\"separator\" w:id=\"2\">" + Docx::paragraph("---") +
                   "</w:footnote>" + note("footnote", " foot"))
        .endnotes(note("endnote", "end"));
    EXPECT_EQ(document.text(), QStringLiteral("ab\nfoot\nc\nend\nd"));
}

TEST(DocxParts, aNoteIsToldOnce) {
    Docx document("<w:p>" + kReference + kReference + "</w:p>");
    document.footnotes(note("footnote", "once"));
    EXPECT_EQ(document.text(), QStringLiteral("\nonce"));
}

TEST(DocxParts, hiddenTextRefersToNoNote) {
    Docx document("<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:footnoteReference w:id=\"2\"/></w:r>" +
                  Docx::run("a") + "</w:p>");
    document.footnotes(note("footnote", "foot"));
    EXPECT_EQ(document.text(), QStringLiteral("a"));
}

TEST(DocxParts, aStyleMayHideByTheOneItIsBasedOn) {
    Docx document(
        "<w:p><w:r><w:rPr><w:rStyle w:val=\"Derived\"/></w:rPr><w:t>a</w:t></w:r>"
        "<w:r><w:rPr><w:rStyle w:val=\"Shown\"/></w:rPr><w:t>b</w:t></w:r></w:p>"
        "<w:p><w:pPr><w:pStyle w:val=\"Derived\"/></w:pPr><w:r><w:t>c</w:t></w:r>"
        "<w:r><w:rPr><w:vanish w:val=\"0\"/></w:rPr><w:t>d</w:t></w:r></w:p>");
    document.styles(
        "<w:style w:styleId=\"Hidden\"><w:rPr><w:vanish/></w:rPr></w:style>"
        "<w:style w:styleId=\"Derived\"><w:basedOn w:val=\"Hidden\"/></w:style>"
        "<w:style w:styleId=\"Shown\"><w:basedOn w:val=\"Hidden\"/><w:rPr>"
        "<w:vanish w:val=\"false\"/></w:rPr></w:style>"
        "<w:style w:styleId=\"Round\"><w:basedOn w:val=\"Round\"/></w:style>");
    EXPECT_EQ(document.text(), QStringLiteral("b\nd"));
}

TEST(DocxParts, theMainPartMayHaveAnyName) {
    testing::ZipBuilder zip;
    zip.add(testing::ZipBuilder::stored("_rels/.rels",
                                        "<Relationships><Relationship Type=\"x/officeDocument\""
                                        " Target=\"/word/document2.xml\"/></Relationships>"));
    zip.add(testing::ZipBuilder::stored(
        "word/document2.xml",
        "<document xmlns=\"w\"><body><p><r><t>named</t></r></p></body></document>"));
    const testing::TemporaryPackage folder;
    EXPECT_EQ(documents::docxText(folder.add(QStringLiteral("a.docx"), zip.bytes())),
              QStringLiteral("named"));
}

TEST(DocxParts, aPartMayBeInUtf16) {
    const QString xml = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"UTF-16\"?><document>"
        "<body><p><r><t>\u65E5\u8BB0</t></r></p></body></document>");
    QByteArray bytes = "\xFF\xFE";
    bytes.append(reinterpret_cast<const char*>(xml.utf16()), xml.size() * 2);
    testing::ZipBuilder zip;
    zip.add(testing::ZipBuilder::stored("word/document.xml", bytes));
    const testing::TemporaryPackage folder;
    EXPECT_EQ(documents::docxText(folder.add(QStringLiteral("a.docx"), zip.bytes())),
              QStringLiteral("\u65E5\u8BB0"));
}

}  // namespace
}  // namespace diary
