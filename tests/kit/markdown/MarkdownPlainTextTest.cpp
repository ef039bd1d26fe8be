#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

struct PlainRow {
    const char* name;
    const char16_t* markdown;
    const char16_t* plain;
};

class PlainText : public testing::TestWithParam<PlainRow> {};

TEST_P(PlainText, IsOneLineWithoutMarks) {
    EXPECT_EQ(MarkdownEditing::plainText(test::text(GetParam().markdown)),
              test::text(GetParam().plain));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PlainText,
    testing::Values(PlainRow{"JoinsLinesByTwoSpaces", u"one\n\ntwo\n", u"one  two"},
                    PlainRow{"DropsMarkers", u"# T\n- [x] a\n> b\n  12. c", u"T  a  b  c"},
                    PlainRow{"DropsRules", u"a\n---\nb", u"a  b"},
                    PlainRow{"DropsMarks", u"**a** __b__ ~~c~~ `d` *e*", u"a b c d e"},
                    PlainRow{"KeepsSingleUnderscores", u"_a_ b_c", u"_a_ b_c"},
                    PlainRow{"KeepsStarsBetweenWords", u"2 * 3 * 4", u"2 * 3 * 4"},
                    PlainRow{"KeepsEscapedStars", u"\\*a*", u"\\*a*"},
                    PlainRow{"KeepsTheTitlesOfLinks", u"see [it](https://e.org) [x]()",
                             u"see it x"},
                    PlainRow{"KeepsWhatIsNoLink", u"[a] (b) [c](d", u"[a] (b) [c](d"},
                    PlainRow{"DropsMarksOnlyLines", u"a\n```\n****\nb", u"a  b"},
                    PlainRow{"TrimsSpacesAndTabs", u"- \t a \t\n b", u"a  b"},
                    PlainRow{"KeepsIdeographicSpaces", u"\u3000a\u3000", u"\u3000a\u3000"},
                    PlainRow{"OfNothing", u"\n \n---", u""}),
    test::rowName<testing::TestParamInfo<PlainRow>>);

}  // namespace
}  // namespace diary
