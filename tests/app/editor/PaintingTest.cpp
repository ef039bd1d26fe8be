// What is painted, by its colours, and whether all that changes is painted again.
#include <QtGui/QPaintEvent>

#include "DiaryApp/Editor/RhythmPainter.h"
#include "tests/app/editor/PaintingFixture.h"

namespace velmar {
namespace {

using PaintingTest = PaintingFixture;

TEST_F(PaintingTest, AQuoteThatWrapsHasOneBar) {
    editor.load(QStringLiteral("> ") + QStringLiteral("word ").repeated(30));
    ASSERT_EQ(block(0).lineCount(), 3);
    const QRect bar = extent(picture(), Token::QuoteBar, QRect(0, 0, kEdge + 3, 4 * kLine));
    EXPECT_EQ(bar.left(), kEdge);
    EXPECT_EQ(bar.width(), 3);
    EXPECT_NEAR(bar.top(), 6, 1);
    EXPECT_NEAR(bar.bottom(), 3 * kLine - 7, 1);
}

TEST_F(PaintingTest, TheBarOfAQuoteEndsWhereItsLineEnds) {
    const QRect edge(0, 0, kEdge + 3, 9 * kLine);
    // A line separator begins a row of the same paragraph, and a line of its own.
    editor.load(QStringLiteral("> one\u2028two"));
    ASSERT_EQ(block(0).lineCount(), 2);
    EXPECT_NEAR(extent(picture(), Token::QuoteBar, edge).bottom(), kLine - 7, 1);
    editor.load(QStringLiteral("one\u2028> two"));
    EXPECT_NEAR(extent(picture(), Token::QuoteBar, edge).top(), kLine + 6, 1);
    // A CR ends a line and begins no row.
    const QString words = QStringLiteral("word ").repeated(30);
    editor.load(QStringLiteral("> one\r") + words);
    ASSERT_GT(block(0).lineCount(), 2);
    EXPECT_NEAR(extent(picture(), Token::QuoteBar, edge).bottom(), kLine - 7, 1);
    editor.load(QStringLiteral("> ") + words + QStringLiteral("\r> two"));
    const QRect both = extent(picture(), Token::QuoteBar, edge);
    EXPECT_NEAR(both.top(), 6, 1);
    EXPECT_NEAR(both.bottom(), block(0).lineCount() * kLine - 7, 1);
    editor.load(QStringLiteral(">"));
    EXPECT_NEAR(extent(picture(), Token::QuoteBar, edge).bottom(), kLine - 7, 1);
}

TEST_F(PaintingTest, ARuleReachesFromEdgeToEdge) {
    editor.load(QStringLiteral("---\na"));
    EXPECT_EQ(extent(picture(), Token::Border, row(0)), QRect(kEdge, 17, 660 - 22 - kEdge, 1));
}

TEST_F(PaintingTest, AFenceIsOneGroundWithoutGaps) {
    editor.load(QStringLiteral("a\n```\n\ncode\n```\nb"));
    const QImage image = picture();
    const QRect ground = extent(image, Token::HoverBg, QRect(0, 0, 660, 6 * kLine));
    EXPECT_EQ(ground, QRect(30, kLine, 620, 4 * kLine));
    for (int y = kLine; y < 5 * kLine; ++y) {
        EXPECT_EQ(image.pixel(630, y), theme::color(Token::HoverBg).rgb()) << y;
    }
}

TEST_F(PaintingTest, AnUnclosedFenceTakesTheRestOfTheText) {
    editor.load(QStringLiteral("```\na\n# b\n- c"));
    const QRect ground = extent(picture(), Token::HoverBg, QRect(0, 0, 660, 4 * kLine));
    EXPECT_EQ(ground.bottom(), 4 * kLine - 1);
    EXPECT_TRUE(BlockStyle::of(block(2))->styling.decorations.empty());
}

TEST_F(PaintingTest, TheMarksOfADeepHeadingAreNotClipped) {
    editor.load(QStringLiteral("###### six"));
    const double width = QFontMetricsF(fonts::mono(10)).horizontalAdvance(QStringLiteral("######"));
    EXPECT_GE(kEdge - 5 - width, 0);
    const QImage image = picture();
    const QRgb blank = image.pixel(0, kLine - 1);
    QRect inked;
    for (int y = 0; y < kLine; ++y) {
        for (int at = 0; at < kEdge - 2; ++at) {
            if (image.pixel(at, y) != blank) inked |= QRect(at, y, 1, 1);
        }
    }
    EXPECT_LE(inked.right(), kEdge - 5);
    EXPECT_NEAR(inked.width(), width, 3);
}

TEST_F(PaintingTest, AYearHeadingHasItsPillAndAFencedOneHasNot) {
    editor.load(QStringLiteral("## 2024\n## 2024 trip\n### 2024\n##  2024  \n```\n## 2024\n```"));
    const QImage image = picture();
    QList<int> rowsWithPill;
    for (int number = 0; number < 7; ++number) {
        const QRect pill = extent(image, Token::AccentSoft, row(number));
        if (pill.isEmpty()) continue;
        rowsWithPill.append(number);
        EXPECT_EQ(pill.height(), 19);
        EXPECT_EQ(pill.top() - number * kLine, 8);
        const QTextLine line = block(number).layout()->lineAt(0);
        EXPECT_NEAR(pill.left(), line.naturalTextRect().right() + 8, 2);
    }
    EXPECT_EQ(rowsWithPill, (QList<int>{0, 3}));
    // The line itself has the accent's colour.
    EXPECT_FALSE(extent(image, Token::Accent, QRect(kEdge, 0, 50, kLine)).isEmpty());
}

TEST_F(PaintingTest, TheSelectionFillsWholeRowsWithoutGaps) {
    editor.load(QStringLiteral("# Heading\n- item\nlast"));
    editor.selectAll();
    const QImage image = picture();
    for (int y = 0; y < 3 * kLine; ++y) {
        // Behind the text's start, and in the bar of a selected line break.
        EXPECT_NE(image.pixel(kEdge + 20, y), image.pixel(655, y)) << y;
    }
    EXPECT_EQ(extent(image, Token::SelectionBg, row(0)).left(), kEdge);
    EXPECT_EQ(extent(image, Token::SelectionBg, row(1)).left(), kEdge + 18);
    EXPECT_EQ(extent(image, Token::SelectionBg, row(1)).height(), kLine);
}

TEST_F(PaintingTest, APartOfALigatureCanBeSelected) {
    editor.load(QStringLiteral("find"));
    select(0, 1);
    EXPECT_NEAR(extent(picture(), Token::SelectionBg, row(0)).right() + 1, x(0, 1), 1);
    select(1, 2);
    EXPECT_NEAR(extent(picture(), Token::SelectionBg, row(0)).left(), x(0, 1), 1);
    EXPECT_NEAR(extent(picture(), Token::SelectionBg, row(0)).right() + 1, x(0, 2), 1);
    // A letter and its accent have one edge.
    editor.load(QStringLiteral("e\u0301a"));
    select(0, 2);
    EXPECT_NEAR(extent(picture(), Token::SelectionBg, row(0)).right() + 1, x(0, 2), 1);
}

// Collects what a widget repaints.
class Repaints : public QObject {
public:
    QRegion region;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(PaintingTest, EveryPixelThatChangesIsRepainted) {
    editor.load(everything());
    editor.setFixedHeight(editor.textHeight());
    const auto expectRepainted = [&](const char* what, const std::function<void()>& act) {
        const QImage before = editor.viewport()->grab().toImage();
        QCoreApplication::processEvents();
        Repaints repaints;
        editor.viewport()->installEventFilter(&repaints);
        act();
        QCoreApplication::processEvents();
        editor.viewport()->removeEventFilter(&repaints);
        const QImage after = editor.viewport()->grab().toImage();
        ASSERT_EQ(before.size(), after.size());
        int stale = 0;
        for (int y = 0; y < after.height(); ++y) {
            for (int at = 0; at < after.width(); ++at) {
                if (before.pixel(at, y) == after.pixel(at, y)) continue;
                stale += repaints.region.contains(QPoint(at, y)) ? 0 : 1;
            }
        }
        EXPECT_EQ(stale, 0) << what;
        EXPECT_NE(before, after) << what;
    };
    expectRepainted("selecting", [&] { editor.selectAll(); });
    expectRepainted("a click", [&] { caretAt(20); });
    expectRepainted("a mark", [&] { keys("`"); });
    expectRepainted("extending", [&] { press(Qt::Key_Down, Qt::ShiftModifier); });
    expectRepainted("collapsing", [&] { press(Qt::Key_Right); });
    expectRepainted("a new line", [&] { press(Qt::Key_Return); });
    expectRepainted("one line less", [&] { editor.undo(); });
    expectRepainted("a command", [&] { editor.command(u"task"); });
    expectRepainted("composing", [&] { compose(QStringLiteral("かな")); });
    expectRepainted("cancelling", [&] { compose(QString()); });
    caretAt(0);
    expectRepainted("moving", [&] { press(Qt::Key_Down); });
    load(QStringLiteral("``|\na\n\n"));
    expectRepainted("a fence over empty lines", [&] { keys("`"); });
    expectRepainted("no fence", [&] { press(Qt::Key_Backspace); });
    load(QStringLiteral("|"));
    editor.setPlaceholder(QStringLiteral("Write"));
    expectRepainted("the first letter", [&] { keys("i"); });
    expectRepainted("none again", [&] { press(Qt::Key_Backspace); });
}

TEST_F(PaintingTest, TheMarkOfATaskIsDrawnWhenItIsChecked) {
    load(QStringLiteral("- [ ] a|\n- [x] b"));
    const auto inked = [this](int number) {
        const QImage image = picture();
        const QRgb ground = theme::color(Token::Accent).rgb();
        int count = 0;
        for (int y = 3; y < 13; ++y) {
            for (int at = 3; at < 13; ++at) {
                const QPoint pixel(kEdge + at, number * kLine + 9 + y);
                count += image.pixel(pixel) != ground ? 1 : 0;
            }
        }
        return count;
    };
    const int whole = inked(1);
    ASSERT_GT(whole, 10);
    editor.command(u"check");
    EXPECT_LT(inked(0), whole);
    EXPECT_EQ(inked(1), whole);
    EXPECT_TRUE(QTest::qWaitFor([&] { return inked(0) == whole; }));
}

TEST_F(PaintingTest, BulletsAlternateByLevel) {
    // A hollow bullet has a blank middle; both are small and stand left of the text.
    editor.load(QStringLiteral("- a\n  - b\n    - c"));
    const auto& decorations = [&](int number) -> const diary::MarkdownDecoration& {
        return BlockStyle::of(block(number))->styling.decorations.at(0);
    };
    EXPECT_EQ(decorations(0).level, 0);
    EXPECT_EQ(decorations(1).level, 1);
    EXPECT_EQ(decorations(2).level, 2);
    const QImage image = picture();
    const auto bullet = [&](int number) {
        return image.copy(kEdge + number * 21, number * kLine, 14, kLine);
    };
    EXPECT_EQ(bullet(0), bullet(2));
    EXPECT_NE(bullet(0), bullet(1));
}

}  // namespace
}  // namespace velmar
