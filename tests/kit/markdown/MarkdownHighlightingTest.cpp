#include "DiaryKit/Markdown/MarkdownHighlighting.h"

#include <gmock/gmock.h>

#include "tests/kit/markdown/LookOfText.h"
#include "tests/kit/markdown/MarkedText.h"

namespace diary {
namespace {

using Kind = MarkdownLinePrefix::Kind;
using MarkdownHighlighting::Fence;
using test::lookAt;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr MarkdownBlockMetrics kMetrics{17};

MarkdownStyling highlight(const QString& text) {
    return MarkdownHighlighting::highlight(text, kMetrics);
}

// The characters for which `isSo` holds, for instance those that are hidden.
template <typename Predicate>
QString stretch(const QString& text, Predicate isSo) {
    const MarkdownStyling styling = highlight(text);
    QString found;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (isSo(lookAt(styling, at))) found += text[at];
    }
    return found;
}

QString hidden(const QString& text) {
    return stretch(text, [](const MarkdownAttributes& look) { return look.isHidden; });
}

QString colored(const QString& text, MarkdownColor color) {
    return stretch(text, [color](const MarkdownAttributes& look) { return look.color == color; });
}

struct DecorationRow {
    const char* name;
    const char16_t* line;
    const char16_t* hidden;
    MarkdownDecoration decoration;
    int indent;
};

class BlockLine : public testing::TestWithParam<DecorationRow> {};

TEST_P(BlockLine, HidesItsMarkerBehindADrawing) {
    const QString line = test::text(GetParam().line);
    const MarkdownStyling styling = highlight(line);
    MarkdownDecoration wanted = GetParam().decoration;
    wanted.length = line.size();
    EXPECT_THAT(styling.decorations, ElementsAre(wanted));
    EXPECT_EQ(hidden(line), test::text(GetParam().hidden));
    EXPECT_EQ(lookAt(styling, 0).indent, GetParam().indent);
    EXPECT_EQ(lookAt(styling, line.size() - 1).indent, GetParam().indent);
}

// At a size of 17: a level is 22 wide, a number 27, a bullet 19, a box 16 with 9 behind it.
INSTANTIATE_TEST_SUITE_P(
    Rows, BlockLine,
    testing::Values(
        DecorationRow{"Heading", u"### a", u"### ", {0, Kind::heading, 3, 0, {}}, 22},
        DecorationRow{"OpenTask", u"- [ ] a", u"- [ ] ", {0, Kind::task, 0, 0, {}}, 47},
        DecorationRow{"CheckedTask", u"  - [X] a", u"  - [X] ", {0, Kind::task, 1, 1, {}}, 69},
        DecorationRow{"Ordered", u"12. a", u"12. ", {0, Kind::ordered, 12, 0, {}}, 49},
        DecorationRow{"Bullet", u"- a", u"- ", {0, Kind::bullet, 0, 0, {}}, 41},
        DecorationRow{"DeepBullet", u"    - a", u"    - ", {0, Kind::bullet, 0, 2, {}}, 85},
        DecorationRow{"Quote", u"> a", u"> ", {0, Kind::quote, 0, 0, {}}, 36},
        DecorationRow{"Rule", u" ---  ", u" ---  ", {0, Kind::rule, 0, 0, {}}, 22}),
    test::rowName<testing::TestParamInfo<DecorationRow>>);

TEST(Highlighting, LeavesOrdinaryTextAlone) {
    EXPECT_EQ(highlight(QStringLiteral("one\n\n  two 日記 😀\n")), MarkdownStyling());
    EXPECT_EQ(highlight(QString()), MarkdownStyling());
}

struct YearRow {
    const char* name;
    const char16_t* line;
    std::optional<int> year;
    bool isAccent;
};

class YearHeading : public testing::TestWithParam<YearRow> {};

TEST_P(YearHeading, StandsOut) {
    const QString line = test::text(GetParam().line);
    const MarkdownStyling styling = highlight(line);
    ASSERT_EQ(styling.decorations.size(), 1U);
    EXPECT_EQ(styling.decorations.front().year, GetParam().year);
    EXPECT_EQ(colored(line, MarkdownColor::accent), GetParam().isAccent ? line : QString());
}

INSTANTIATE_TEST_SUITE_P(Rows, YearHeading,
                         testing::Values(YearRow{"Year", u"## 2024", 2024, true},
                                         YearRow{"YearAmongSpaces", u"##  2024  ", 2024, true},
                                         YearRow{"YearBeforeATab", u"## 2024\t", 2024, true},
                                         YearRow{"PaddedYear", u"## 0999", 999, true},
                                         YearRow{"WordsBehind", u"## 2024 trip", {}, false},
                                         YearRow{"OtherLevel", u"### 2024", {}, false},
                                         YearRow{"FiveDigits", u"## 20245", {}, false},
                                         YearRow{"ThreeDigits", u"## 202", {}, false},
                                         YearRow{"TabAhead", u"## \t2024", {}, false},
                                         YearRow{"NoDigits", u"##   ", {}, false},
                                         YearRow{"WideDigitsHeadNoYear", u"## ２０２４", {}, true}),
                         test::rowName<testing::TestParamInfo<YearRow>>);

TEST(Fences, TakeEverythingBetweenThem) {
    const QString text = QStringLiteral("a\n```\n## 2024\n**b**\n```\n## 2024");
    const MarkdownStyling styling = highlight(text);
    EXPECT_THAT(styling.decorations,
                ElementsAre(MarkdownDecoration{24, Kind::heading, 2, 0, 2024, 7}));
    EXPECT_EQ(stretch(text, [](const auto& look) { return look.font == MarkdownFont::mono; }),
              u"```## 2024**b**```");
    const MarkdownAttributes look = lookAt(styling, 16);
    EXPECT_EQ(look.color, MarkdownColor::inkSource);
    EXPECT_TRUE(look.hasCodeBackground);
    EXPECT_FALSE(look.isBold);
}

TEST(Fences, RunToTheEndIfTheyAreNeverClosed) {
    const QString text = QStringLiteral("a\n```swift\n- b\n\n**c**");
    EXPECT_THAT(highlight(text).decorations, IsEmpty());
    EXPECT_EQ(colored(text, MarkdownColor::inkSource), u"```swift- b**c**");
}

TEST(Fences, AreNotIndented) {
    EXPECT_EQ(colored(QStringLiteral(" ```\na"), MarkdownColor::inkSource), u"");
}

TEST(Fences, ReachFromParagraphToParagraph) {
    using MarkdownHighlighting::fenceBehind;
    EXPECT_EQ(fenceBehind(u"```", Fence::Closed), Fence::Open);
    EXPECT_EQ(fenceBehind(u"```", Fence::Open), Fence::Closed);
    EXPECT_EQ(fenceBehind(u"a ```", Fence::Open), Fence::Open);
    EXPECT_EQ(fenceBehind(u"", Fence::Closed), Fence::Closed);
    EXPECT_EQ(fenceBehind(u"```\u2028a\u2028```", Fence::Closed), Fence::Closed);
}

TEST(CheckedTask, IsStruckBehindItsMarker) {
    const QString text = QStringLiteral("- [x] done\n- [ ] open");
    const auto isStruck = [](const MarkdownAttributes& look) { return look.isStruck; };
    EXPECT_EQ(stretch(text, isStruck), u"done");
    EXPECT_EQ(colored(text, MarkdownColor::faint), u"done");
}

TEST(Bold, KeepsTheSizeOfAHeading) {
    const MarkdownStyling styling = highlight(QStringLiteral("# **bold**"));
    EXPECT_EQ(lookAt(styling, 5).font, MarkdownFont::heading1);
    EXPECT_TRUE(lookAt(styling, 5).isBold);
    EXPECT_EQ(lookAt(styling, 2).color, MarkdownColor::faint);
}

TEST(Bold, TakesBothKindsOfMarks) {
    const auto isBold = [](const MarkdownAttributes& look) { return look.isBold; };
    EXPECT_EQ(stretch(QStringLiteral("a **b** __c__ **d*"), isBold), u"**b**__c__");
}

TEST(Italic, NeedsMarksAtWords) {
    const auto isOblique = [](const MarkdownAttributes& look) { return look.isOblique; };
    EXPECT_EQ(stretch(QStringLiteral("2 * 3 * 4"), isOblique), u"");
    EXPECT_EQ(stretch(QStringLiteral("*a b* _c d_"), isOblique), u"a bc d");
    EXPECT_EQ(stretch(QStringLiteral("\\*a* x_y_z 日_記_"), isOblique), u"");
}

TEST(Code, HasItsOwnFontAlsoInAHeading) {
    const MarkdownStyling styling = highlight(QStringLiteral("## `c` **`d`**"));
    for (const qsizetype at : {4, 10}) {
        EXPECT_EQ(lookAt(styling, at).font, MarkdownFont::mono);
        EXPECT_EQ(lookAt(styling, at).color, MarkdownColor::accent);
        EXPECT_TRUE(lookAt(styling, at).hasCodeBackground);
        EXPECT_FALSE(lookAt(styling, at).isBold);
    }
    EXPECT_EQ(lookAt(styling, 3).color, MarkdownColor::faint);
}

TEST(Strike, IsDimmedWithFaintMarks) {
    const QString text = QStringLiteral("a ~~b~~");
    EXPECT_EQ(colored(text, MarkdownColor::daySubText), u"b");
    EXPECT_EQ(colored(text, MarkdownColor::faint), u"~~~~");
}

TEST(Link, ShowsItsTitleAndFadesItsAddress) {
    const QString text = QStringLiteral("[t](u) [n]()");
    EXPECT_EQ(colored(text, MarkdownColor::accent), u"t");
    EXPECT_EQ(colored(text, MarkdownColor::faint), u"u");
}

TEST(Metrics, FollowTheFontSize) {
    constexpr MarkdownBlockMetrics metrics{20};
    EXPECT_EQ(metrics.indentStep(), 26);
    EXPECT_EQ(metrics.taskBox(), 19);
    EXPECT_EQ(metrics.taskWidth(), 30);
    EXPECT_EQ(metrics.orderedWidth(), 32);
    EXPECT_EQ(metrics.bulletWidth(), 22);
}

}  // namespace
}  // namespace diary
