// What a search has found, as it is marked in the text.
#include "DiaryApp/Editor/MatchMarks.h"

#include <QtGui/QPainter>

#include "tests/app/editor/PaintingFixture.h"

namespace velmar {
namespace {

using diary::TextRange;

// A place of "0123456789" and what it becomes.
struct Moved {
    const char* name;
    TextRange range;
    DraftText::Edit edit;
    TextRange expected;
};

class MovedMarksTest : public testing::TestWithParam<Moved> {};

TEST_P(MovedMarksTest, KeepToTheirWords) {
    MatchMarks marks;
    marks.set({GetParam().range}, -1, false);
    marks.edit(GetParam().edit);
    EXPECT_EQ(marks.range(0), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Edits, MovedMarksTest,
                         testing::Values(Moved{"ahead", {4, 3}, {0, 2, 5}, {7, 3}},
                                         Moved{"behind", {4, 3}, {7, 2, 0}, {4, 3}},
                                         Moved{"typed_at_its_start", {4, 3}, {4, 0, 1}, {5, 3}},
                                         Moved{"typed_at_its_end", {4, 3}, {7, 0, 1}, {4, 3}},
                                         Moved{"typed_within", {4, 3}, {5, 0, 1}, {4, 4}},
                                         Moved{"its_start_replaced", {4, 3}, {2, 3, 1}, {3, 2}},
                                         Moved{"its_end_replaced", {4, 3}, {6, 3, 2}, {4, 2}},
                                         Moved{"gone", {4, 3}, {3, 5, 0}, {3, 0}},
                                         Moved{"replaced_exactly", {4, 3}, {4, 3, 6}, {10, 0}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MatchMarks, GivesTheMarksThatHaveAPartInTheAskedPlaces) {
    MatchMarks marks;
    marks.set({{0, 2}, {5, 2}, {7, 0}, {9, 2}}, 1, false);
    EXPECT_EQ(marks.marksIn(6, 10), (std::vector<MatchMarks::Mark>{{{5, 2}, 1}, {{9, 2}, 0}}));
    EXPECT_TRUE(marks.marksIn(2, 5).empty());
    EXPECT_EQ(marks.range(4), std::nullopt);
    EXPECT_EQ(marks.range(-1), std::nullopt);
}

TEST(MatchMarks, TheCurrentOneGoesOverToTheNextInTime) {
    MatchMarks marks;
    marks.set({{0, 2}, {5, 2}}, 0, true);
    // Marks that are new look as they should at once.
    EXPECT_EQ(marks.marksIn(0, 9), (std::vector<MatchMarks::Mark>{{{0, 2}, 1}, {{5, 2}, 0}}));
    int changes = 0;
    QObject::connect(&marks, &MatchMarks::changed, &marks, [&] { ++changes; });
    marks.set({{0, 2}, {5, 2}}, 1, true);
    EXPECT_EQ(marks.marksIn(0, 9), (std::vector<MatchMarks::Mark>{{{0, 2}, 1}, {{5, 2}, 0}}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return marks.marksIn(5, 6)[0].weight == 1; }));
    EXPECT_EQ(marks.marksIn(0, 1)[0].weight, 0);
    EXPECT_GT(changes, 1);
    // Where nothing shall move it is there at once.
    marks.set({{0, 2}, {5, 2}}, 0, false);
    EXPECT_EQ(marks.marksIn(0, 9), (std::vector<MatchMarks::Mark>{{{0, 2}, 1}, {{5, 2}, 0}}));
}

class MatchMarksTest : public PaintingFixture {
protected:
    // Marks each place of the word.
    void mark(const QString& word, int current = -1) {
        std::vector<TextRange> ranges;
        for (qsizetype at = 0; (at = editor.draft().indexOf(word, at)) >= 0; at += word.size()) {
            ranges.push_back({at, word.size()});
        }
        editor.setMatches(ranges, current);
    }
    // The box of a mark, as its ground fills it.
    [[nodiscard]] QRect ground(const QImage& image, int rowNumber, Token token) const {
        return extent(image, token, row(rowNumber));
    }
};

TEST_F(MatchMarksTest, AMarkIsAPixelLargerThanItsLettersAndLiesBehindThem) {
    editor.load(QStringLiteral("we find this"));
    const QImage plain = picture();
    mark(QStringLiteral("find"));
    const QImage image = picture();
    const FontFace face(fonts::serif(16.5));
    const int baseline = rhythmBaseline(kLine, face.ascent, face.descent);
    const QRect found = ground(image, 0, Token::AccentSoft);
    EXPECT_NEAR(found.left(), x(0, 3) - 1, 1);
    EXPECT_NEAR(found.right() + 1, x(0, 7) + 1, 1);
    EXPECT_EQ(found.top(), baseline - face.ascent - 1);
    EXPECT_EQ(found.bottom() + 1, baseline + face.descent + 1);
    // Letters are as dark as before, and its corners are round.
    const QRgb ink = theme::color(Token::Ink).rgb();
    const auto darkest = [&](const QImage& of) {
        int least = 255;
        for (int at = found.left(); at <= found.right(); ++at) {
            for (int y = 0; y < kLine; ++y) least = qMin(least, qGray(of.pixel(at, y)));
        }
        return least;
    };
    EXPECT_NEAR(darkest(image), darkest(plain), 6);
    EXPECT_LE(darkest(image), qGray(ink) + 40);
    EXPECT_NE(image.pixel(found.topLeft()), theme::color(Token::AccentSoft).rgb());
}

TEST_F(MatchMarksTest, TheCurrentMatchHasItsOwnGroundAndALineBelow) {
    editor.load(QStringLiteral("oak and oak"));
    mark(QStringLiteral("oak"), 1);
    const QImage image = picture();
    const QRect other = ground(image, 0, Token::AccentSoft);
    EXPECT_NEAR(other.left(), x(0, 0) - 1, 1);
    EXPECT_LE(other.right(), x(0, 3) + 1);
    const QRect current = ground(image, 0, Token::SelectionBg);
    EXPECT_NEAR(current.left(), x(0, 8) - 1, 1);
    const QRect line = extent(image, Token::Accent, row(0));
    EXPECT_NEAR(line.left(), x(0, 8), 4);
    EXPECT_NEAR(line.right(), x(0, 11), 4);
    // The one whole pixel of its one and a half, inside of the box's edge.
    EXPECT_EQ(line.height(), 1);
    EXPECT_EQ(line.bottom(), editor.matchRect(1).bottom() - 1);
    mark(QStringLiteral("oak"), 0);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return ground(picture(), 0, Token::AccentSoft).left() > x(0, 4); }));
    EXPECT_LT(extent(picture(), Token::Accent, row(0)).right(), x(0, 4));
}

TEST_F(MatchMarksTest, HiddenMarkersTakeNoPartInAMark) {
    editor.load(QStringLiteral("- find\n# find\n> find"));
    editor.setMatches({{0, 6}, {7, 6}, {14, 6}}, -1);
    const QImage image = picture();
    for (int number = 0; number < 3; ++number) {
        const QRect found = ground(image, number, Token::AccentSoft);
        EXPECT_NEAR(found.left(), x(number, 2) - 1, 1) << number;
        EXPECT_NEAR(found.right() + 1, x(number, 6) + 1, 1) << number;
    }
    // A heading's mark is as high as its letters.
    EXPECT_GT(editor.matchRect(1).height(), editor.matchRect(0).height());
    // Of a marker alone nothing shows, and it has a place all the same.
    editor.setMatches({{0, 1}}, 0);
    EXPECT_TRUE(extent(picture(), Token::SelectionBg, row(0)).isEmpty());
    EXPECT_EQ(editor.matchRect(0).top(), 0);
    EXPECT_EQ(editor.matchRect(0).left(), kEdge + 18);
}

TEST_F(MatchMarksTest, AMarkThatWrapsHasABoxInEachRow) {
    editor.load(QStringLiteral("- ") + QStringLiteral("word ").repeated(40));
    editor.setMatches({{2, editor.draft().size() - 3}}, -1);
    const int rows = block(0).lineCount();
    ASSERT_GE(rows, 2);
    const QImage image = picture();
    for (int number = 0; number < rows; ++number) {
        const QRect found = ground(image, number, Token::AccentSoft);
        EXPECT_NEAR(found.left(), kEdge + 18 - 1, 1) << number;
        EXPECT_LT(found.height(), kLine);
    }
    EXPECT_GT(editor.matchRect(0).height(), (rows - 1) * kLine);
}

TEST_F(MatchMarksTest, AMarkMayReachOverParagraphsAndDirections) {
    editor.load(QStringLiteral("one\nab العربية cd\nend"));
    editor.setMatches({{0, editor.draft().size()}}, -1);
    const QImage image = picture();
    for (int number = 0; number < 3; ++number) {
        EXPECT_FALSE(ground(image, number, Token::AccentSoft).isEmpty()) << number;
    }
    EXPECT_NEAR(ground(image, 1, Token::AccentSoft).right() + 1,
                block(1).layout()->lineAt(0).naturalTextRect().right() + 1, 1);
}

TEST_F(MatchMarksTest, TheSelectionLiesOverMarks) {
    editor.load(QStringLiteral("find"));
    mark(QStringLiteral("find"));
    editor.selectAll();
    const QImage image = picture();
    const QRect left = ground(image, 0, Token::AccentSoft);
    // Only the mark's edge pixels are beside the letters.
    EXPECT_TRUE(left.isEmpty() || left.width() <= 1 || left.left() < x(0, 0));
    EXPECT_EQ(extent(image, Token::SelectionBg, row(0)).height(), kLine);
}

TEST_F(MatchMarksTest, MarksStayAtTheirWordsWhileTheTextIsEdited) {
    load(QStringLiteral("|say find\nthen find"));
    mark(QStringLiteral("find"), 1);
    const QRect before = editor.matchRect(1);
    press(Qt::Key_Return);
    EXPECT_EQ(editor.matchRect(1), before.translated(0, kLine));
    editor.undo();
    EXPECT_EQ(editor.matchRect(1), before);
    // What is composed ahead of a word moves its mark, though the draft doesn't have it yet.
    caretAt(9);
    compose(QStringLiteral("かな"));
    const QRect found = extent(picture(), Token::SelectionBg, row(1));
    EXPECT_NEAR(found.left(), before.left() + (x(1, 2) - x(1, 0)), 1.5);
    compose(QString());
    EXPECT_EQ(editor.matchRect(1), before);
}

TEST_F(MatchMarksTest, MarksStayAtTheirWordsWhenAnotherMachinesTextComesIn) {
    editor.load(QStringLiteral("say find"));
    mark(QStringLiteral("find"), 0);
    editor.reload(QStringLiteral("new\nsay find"));
    EXPECT_EQ(editor.matchRect(0).top() / kLine, 1);
    EXPECT_NEAR(editor.matchRect(0).left(), x(1, 4) - 1, 1);
}

TEST_F(MatchMarksTest, NoRangeAndAnotherTextHaveNoMarks) {
    editor.load(QStringLiteral("find"));
    mark(QStringLiteral("find"));
    EXPECT_FALSE(ground(picture(), 0, Token::AccentSoft).isEmpty());
    editor.setMatches({}, -1);
    EXPECT_TRUE(ground(picture(), 0, Token::AccentSoft).isEmpty());
    EXPECT_TRUE(editor.matchRect(0).isEmpty());
    mark(QStringLiteral("find"));
    editor.load(QStringLiteral("find"));
    EXPECT_TRUE(ground(picture(), 0, Token::AccentSoft).isEmpty());
}

TEST_F(MatchMarksTest, RangesBeyondTheTextAreCut) {
    editor.load(QStringLiteral("find"));
    editor.setMatches({{2, 90}, {50, 3}, {-4, 5}}, 0);
    EXPECT_NEAR(editor.matchRect(0).right() + 1, x(0, 4) + 1, 1);
    EXPECT_EQ(editor.matchRect(1).top(), 0);
    EXPECT_NEAR(editor.matchRect(2).right() + 1, x(0, 1) + 1, 1.01);
    editor.selectRange({2, 90});
    EXPECT_EQ(shown(), QStringLiteral("fi|nd|"));
    editor.selectRange({90, 1});
    EXPECT_EQ(shown(), QStringLiteral("find|"));
    editor.selectRange({1, 2});
    EXPECT_EQ(shown(), QStringLiteral("f|in|d"));
}

TEST_F(MatchMarksTest, AnInertTextHasMarksToo) {
    editor.load(QStringLiteral("find"));
    editor.setReadOnly(true);
    editor.setInert(true);
    mark(QStringLiteral("find"));
    EXPECT_FALSE(ground(picture(), 0, Token::AccentSoft).isEmpty());
}

}  // namespace
}  // namespace velmar
