#include "DiaryKit/Documents/RtfText.h"

#include "tests/kit/documents/Documents.h"

namespace diary {
namespace {

struct Row {
    const char* name;
    QByteArray rtf;
    QString text;
};

class RtfTextTest : public ::testing::TestWithParam<Row> {};

TEST_P(RtfTextTest, reads) {
    EXPECT_EQ(documents::rtfText(GetParam().rtf), GetParam().text);
}

QByteArray rtf(const QByteArray& content) {
    return "{\\rtf1\\ansi\\ansicpg1252 " + content + "}";
}

const Row kText[] = {
    {"paragraphsAreLines", rtf("a\\par b\\par\\par c\\par"),
     QStringLiteral("a\nb\n\nc\n").chopped(1)},
    {"lineEndsOfTheFileAreNone", rtf("a\r\nb\nc"), QStringLiteral("abc")},
    {"breaksTabsAndSections", rtf("a\\tab b\\line c\\sect d\tE"), QStringLiteral("a\tb\nc\nd\tE")},
    {"escapedCharacters", rtf("\\{a\\}\\\\"), QStringLiteral("{a}\\")},
    {"spacesAndHyphensOfTheirOwn", rtf("a\\~b\\-c\\_d"), QStringLiteral("a\u00A0b\u00ADc\u2011d")},
    {"charactersThatAreWords", rtf("\\ldblquote a\\rdblquote\\emdash\\bullet "),
     QStringLiteral("\u201Ca\u201D\u2014\u2022")},
    {"aWordEndsAtItsBlankOrNumber", rtf("\\b bold\\b0 plain\\fs24x"), QStringLiteral("boldplainx")},
    {"unknownWordsAreNothing", rtf("a\\whatisthis12 b"), QStringLiteral("ab")},
    {"whatFollowsTheLastBraceIsNoText", rtf("a") + QByteArray("b\0c", 3), QStringLiteral("a")},
    {"aCutTextIsReadAsFarAsItGoes", "{\\rtf1 a{\\b b\\'e", QStringLiteral("ab")},
    {"closingBracesWithoutAnOpeningOne", "{\\rtf1 a}}}}b", QStringLiteral("a")},
    {"aBadByteIsTheTextItIs", rtf("\\'zz\\'\\'41"), QStringLiteral("zzA")},
    {"binaryDataIsNoText", rtf("a{\\pict\\bin5 }}}{\\ }b\\bin3 {{{c"), QStringLiteral("abc")},
    {"aparagraphEndOfApple", rtf("a\\\nb\\\r\nc\\\n"), QStringLiteral("a\nb\nc")},
    {"numbersWithoutEnd", rtf("\\u99999999999999999999 ?a\\uc-5 b"), QStringLiteral("ab")},
};

const Row kUnicode[] = {
    {"aUnicodeCharacterSkipsItsStandIn", rtf("\\u8216\\'93hi\\u8217?\\u945a"),
     QStringLiteral("‘hi’α")},
    {"asManyAsAreSaid", rtf("{\\uc2\\u228\\'E8a}b{\\uc0\\u24180 3}"), QStringLiteral("äb年3")},
    {"theCountIsTheGroups", rtf("{\\uc0 }\\u24180?x"), QStringLiteral("年x")},
    {"aGroupEndsTheStandIn", rtf("{\\u24180}x"), QStringLiteral("年x")},
    {"aParagraphIsNoStandIn", rtf("\\u24180\\par x"), QStringLiteral("年\nx")},
    {"numbersAreSigned", rtf("\\u-10179?\\u-8704?"), QStringLiteral("😀")},
    {"wholeCodePointsAreTaken", rtf("\\u128512?"), QStringLiteral("😀")},
    {"aLineSeparatorIsALineEnd", rtf("a\\uc0\\u8232 b\\u8233 c"), QStringLiteral("a\nb\nc")},
    {"controlCharactersAreLeftOut", rtf("a\\u0?\\u7?\\'00\\'0d\\'09b"), QStringLiteral("a\tb")},
    {"halfACharacterIsNone", rtf("\\u-10179?a\\u-8704?"), QStringLiteral("\uFFFDa\uFFFD")},
    {"ofTwoFormsTheUnicodeOne", rtf("{\\upr{ascii \\b x}{\\*\\ud{unicode \\u24180?}}}!"),
     QStringLiteral("unicode 年!")},
};

const Row kGroups[] = {
    {"tablesAndInfoAreNoText",
     rtf("{\\fonttbl{\\f0 Helvetica;}}{\\colortbl;\\red1;}{\\stylesheet{\\s0 Normal;}}"
         "{\\info{\\title T}{\\author A}}{\\pict 0102}a"),
     QStringLiteral("a")},
    {"aGroupThatMayBeLeftOutIs", rtf("{\\*\\unknown x{y}}{\\*\\generator z;}a"),
     QStringLiteral("a")},
    {"headersAndFootersAreLeftOut", rtf("{\\header h\\par}{\\footerf f}a"), QStringLiteral("a")},
    {"hiddenTextIsLeftOut", rtf("a{\\v x\\par}\\v y\\v0 b\\v z\\plain c"), QStringLiteral("abc")},
    {"deletionsAreLeftOut", rtf("a{\\deleted x}{\\revised new}"), QStringLiteral("anew")},
    {"aFieldIsItsResult", rtf("{\\field{\\*\\fldinst{HYPERLINK \"https://x\"}}{\\fldrslt link}}"),
     QStringLiteral("link")},
    {"aNoteComesBehindItsParagraph",
     rtf("a{\\super\\chftn}{\\footnote\\pard\\plain{\\chftn} foot\\par second}b\\par c"),
     QStringLiteral("ab\n foot\nsecond\nc")},
    {"aNoteAtTheEnd", rtf("a{\\*\\footnote foot}"), QStringLiteral("a\nfoot")},
    {"aTextBoxComesBehindItsParagraph",
     rtf("a{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv 1}}{\\shptxt box\\par}}{\\shprslt{box}}}b\\par"),
     QStringLiteral("ab\nbox")},
    {"markersOfItemsAreLeftOut", rtf("{\\listtext\\tab \\'b7\\tab}a\\par{\\pntext 1.\\tab}b"),
     QStringLiteral("a\nb")},
    {"rowsAreLinesAndCellsStandBetweenTabs",
     rtf("x\\par\\trowd\\cellx1 a\\cell b\\cell\\row\\trowd\\cell c\\par d\\cell\\row\\pard y"),
     QStringLiteral("x\na\tb\n\tc\nd\ny")},
    {"aRowThatIsNotDescribed", rtf("\\trowd a\\cell b\\cell\\row\\cell d\\cell\\row"),
     QStringLiteral("a\tb\n\td")},
    {"aTableInACell",
     rtf("\\trowd\\pard\\intbl\\itap2 1\\nestcell 2\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}"
         "{\\nonesttables\\par}\\pard\\intbl a\\cell b\\cell\\row"),
     QStringLiteral("1\t2\na\tb")},
    {"anAttachmentIsNoText", rtf("a {{\\NeXTGraphic photo.jpg \\width640}\\'ac} b"),
     QStringLiteral("a  b")},
};

const QByteArray kFonts =
    "{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset128 B;}{\\f2\\fcharset134 C;}"
    "{\\f3\\fcharset136 D;}{\\f4\\fcharset129 E;}{\\f5\\fcharset204 {\\*\\falt \\f0} F;}"
    "{\\f6\\fcharset0\\cpg1250 G;}}";

const Row kCodePages[] = {
    {"western", rtf("caf\\'e9 \\'93a\\'94"), QStringLiteral("café “a”")},
    {"shiftJisWithAHalfWrittenOut", rtf(kFonts + "\\f1\\'83z\\'83X\\'83\\'67"),
     QStringLiteral("ホスト")},
    {"shiftJisWithABackslash", rtf(kFonts + "\\f1\\'95\\'5c\\'8f\\\\"), QStringLiteral("表十")},
    {"gbk", rtf(kFonts + "\\f2 2024\\'c4\\'ea\\f0\\'e9"), QStringLiteral("2024年é")},
    {"big5", rtf(kFonts + "\\f3\\'a4\\'e9"), QStringLiteral("日")},
    {"korean", rtf(kFonts + "\\f4\\'c0\\'cf"), QStringLiteral("일")},
    {"russian", rtf(kFonts + "\\f5\\'e4"), QStringLiteral("д")},
    {"aCodePageOfTheFont", rtf(kFonts + "\\f6\\'e8"), QStringLiteral("č")},
    {"rawBytes", rtf(kFonts + "\\f2\xC4\xEA"), QStringLiteral("年")},
    {"theFontIsTheGroups", rtf(kFonts + "{\\f2\\'c4\\'ea}\\'e9"), QStringLiteral("年é")},
    {"theDocumentsOwn", "{\\rtf1\\ansi\\ansicpg936 \\'c4\\'ea}", QStringLiteral("年")},
    {"theDefaultFont", "{\\rtf1\\ansi\\deff2" + kFonts + "\\'c4\\'ea\\f0\\'e9\\plain\\'d4\\'c2}",
     QStringLiteral("年é月")},
    {"mac", "{\\rtf1\\mac \\'8e}", QStringLiteral("é")},
    {"pairsInAWesternFontOfAnEasternText",
     "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fcharset0 A;}}\\f0 2024\\'c4\\'ea \\b\\'d4\\'c2}",
     QStringLiteral("2024年 月")},
    {"aWesternWordInAnEasternText",
     "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fcharset0 A;}}\\f0 caf\\'e9 \\'93hi\\'94}",
     QStringLiteral("café “hi”")},
    {"anUnknownCodePageIsWestern", "{\\rtf1\\ansi\\ansicpg31999 \\'e9}", QStringLiteral("é")},
    {"halfACharacterAtTheEnd", rtf(kFonts + "\\f2 a\\'c4\\par b"), QStringLiteral("a\uFFFD\nb")},
};

const auto kName = [](const auto& row) { return std::string(row.param.name); };
INSTANTIATE_TEST_SUITE_P(Text, RtfTextTest, ::testing::ValuesIn(kText), kName);
INSTANTIATE_TEST_SUITE_P(Unicode, RtfTextTest, ::testing::ValuesIn(kUnicode), kName);
INSTANTIATE_TEST_SUITE_P(Groups, RtfTextTest, ::testing::ValuesIn(kGroups), kName);
INSTANTIATE_TEST_SUITE_P(CodePages, RtfTextTest, ::testing::ValuesIn(kCodePages), kName);

TEST(RtfText, otherBytesAreRefused) {
    for (const char* bytes : {"", "a", "{\\html}", "\\rtf1 a"}) {
        EXPECT_EQ(testing::importError([&] { (void)documents::rtfText(bytes); }),
                  ImportError::Kind::unrecognized)
            << bytes;
    }
}

}  // namespace
}  // namespace diary
