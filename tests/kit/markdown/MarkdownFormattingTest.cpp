#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using test::unmarked;

struct WrapRow {
    const char* name;
    const char16_t* marker;
    const char16_t* before;
    const char16_t* after;
};

class Wrap : public testing::TestWithParam<WrapRow> {};

TEST_P(Wrap, PutsMarksAroundOrTakesThemAway) {
    const TextWithSelection before = unmarked(test::text(GetParam().before));
    const MarkdownChange change =
        MarkdownEditing::wrap(test::text(GetParam().marker), before.text, before.selection);
    EXPECT_EQ(test::outcome(change, before.text), test::text(GetParam().after));
}

INSTANTIATE_TEST_SUITE_P(
    Selections, Wrap,
    testing::Values(WrapRow{"Wraps", u"**", u"a |word| b", u"a **|word|** b"},
                    WrapRow{"UnwrapsAround", u"**", u"**|word|**", u"|word|"},
                    WrapRow{"UnwrapsInside", u"**", u"|**word**|", u"|word|"},
                    WrapRow{"WrapsMarksWithNothingInside", u"**", u"|****|", u"**|****|**"},
                    WrapRow{"ItalicLeavesTheStarsOfBoldAlone", u"*", u"**|word|**",
                            u"***|word|***"},
                    WrapRow{"ItalicLeavesSelectedBoldAlone", u"*", u"|**word**|", u"*|**word**|*"},
                    WrapRow{"ItalicUnwrapsAround", u"*", u"a*|b|*c", u"a|b|c"},
                    WrapRow{"ItalicUnwrapsInside", u"*", u"|*b*|", u"|b|"},
                    WrapRow{"CodeUnwrapsAround", u"`", u"`|b|`", u"|b|"},
                    WrapRow{"StrikeUnwrapsInside", u"~~", u"|~~b~~|", u"|b|"},
                    WrapRow{"HalfAMarkIsNone", u"**", u"*|b|*", u"***|b|***"}),
    test::rowName<testing::TestParamInfo<WrapRow>>);

INSTANTIATE_TEST_SUITE_P(
    Carets, Wrap,
    testing::Values(WrapRow{"InsertAPair", u"**", u"a|b", u"a**|**b"},
                    WrapRow{"RemoveAnEmptyPair", u"**", u"a**|**b", u"a|b"},
                    WrapRow{"ItalicLeavesTheEmptyBoldPair", u"*", u"**|**", u"***|***"},
                    WrapRow{"LeapOverTheClosingMark", u"**", u"**a|**b", u"**a**|b"},
                    WrapRow{"LeapOverAClosingTick", u"`", u"`a|`", u"`a`|"},
                    WrapRow{"InsertAheadOfAMarkThatClosesNothing", u"`", u"a|`", u"a`|``"},
                    WrapRow{"ItalicDoesntLeapIntoBold", u"*", u"**a|**", u"**a*|***"}),
    test::rowName<testing::TestParamInfo<WrapRow>>);

QString linked(const QString& marked) {
    const TextWithSelection before = unmarked(marked);
    return test::outcome(MarkdownEditing::link(before.text, before.selection), before.text);
}

TEST(Link, AsksForWhatIsMissing) {
    EXPECT_EQ(linked(QStringLiteral("a|b")), u"a[|]()b");
    EXPECT_EQ(linked(QStringLiteral("a |word| b")), u"a [word](|) b");
}

QString pasted(const QString& marked, QStringView clipboard) {
    const TextWithSelection before = unmarked(marked);
    return test::outcome(MarkdownEditing::pasteLink(clipboard, before.text, before.selection),
                         before.text);
}

TEST(PastedAddress, TurnsTheSelectionIntoALink) {
    EXPECT_EQ(pasted(QStringLiteral("see |it|"), u"https://e.org/x"),
              u"see [it](https://e.org/x)|");
    EXPECT_EQ(pasted(QStringLiteral("|a|"), u" HTTP://E.org\n"), u"[a](HTTP://E.org)|");
    EXPECT_EQ(pasted(QStringLiteral("|a|"), u"\u3000https://e.org/日記?q=1#two"),
              u"[a](https://e.org/日記?q=1#two)|");
    EXPECT_EQ(pasted(QStringLiteral("|a|"), u"http://localhost:8080"),
              u"[a](http://localhost:8080)|");
}

struct PasteRow {
    const char* name;
    const char16_t* before;
    const char16_t* clipboard;
};

class OrdinaryPaste : public testing::TestWithParam<PasteRow> {};

TEST_P(OrdinaryPaste, IsLeftToTheTextView) {
    EXPECT_EQ(pasted(test::text(GetParam().before), test::text(GetParam().clipboard)), u"none");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OrdinaryPaste,
    testing::Values(PasteRow{"WithoutASelection", u"a|", u"https://e.org"},
                    PasteRow{"OverTwoLines", u"|a\nb|", u"https://e.org"},
                    PasteRow{"OfWords", u"|a|", u"https://e.org and more"},
                    PasteRow{"OfTwoLines", u"|a|", u"https://e.org\nhttps://f.org"},
                    PasteRow{"WithAnExoticSpace", u"|a|", u"https://e.org/\u00A0x"},
                    PasteRow{"WithoutAScheme", u"|a|", u"e.org"},
                    PasteRow{"OfAFileTransfer", u"|a|", u"ftp://e.org"},
                    PasteRow{"OfAMailAddress", u"|a|", u"mailto:a@e.org"},
                    PasteRow{"OfAScript", u"|a|", u"javascript:x"},
                    PasteRow{"OfABrokenAddress", u"|a|", u"http://[e.org"},
                    PasteRow{"OfNothing", u"|a|", u" \n"}),
    test::rowName<testing::TestParamInfo<PasteRow>>);

}  // namespace
}  // namespace diary
