// Where lines, hidden markers and decorations stand.
#include <QtGui/QPaintEvent>

#include "DiaryApp/Editor/RhythmPainter.h"
#include "tests/app/editor/EditorFixture.h"

namespace velmar {
namespace {

using RhythmLayoutTest = EditorFixture;

constexpr int kLine = 34;
constexpr int kEdge = RhythmLayout::markRoom + RhythmLayout::gutter;

// A line of every block and mark, in several scripts.
const QString& everything() {
    static const QString text = QStringLiteral(
        "# Heading 一级标题\n## 2024\n###### six\nplain **bold** *it* ~~s~~ `c` [a](b)\n- bullet\n"
        "  - nested\n- [ ] open\n- [x] checked 済み\n12. ordered\n> quote\n---\n```\ncode\n```\n"
        "\U0001F600 العربية\n\n");
    return text;
}

TEST_F(RhythmLayoutTest, TheBaselineIsCentredIfThereIsMoreThanAPixelToSpare) {
    EXPECT_EQ(rhythmBaseline(34, 18, 6), 23);
    EXPECT_EQ(rhythmBaseline(34, 24, 8), 25);
    // One pixel to spare, none, and less than none: the text stands on the line's bottom.
    EXPECT_EQ(rhythmBaseline(34, 25, 8), 26);
    EXPECT_EQ(rhythmBaseline(34, 26, 8), 26);
    EXPECT_EQ(rhythmBaseline(34, 40, 10), 24);
}

TEST_F(RhythmLayoutTest, TheLineHeightFollowsTheSize) {
    EXPECT_EQ(editor.lineHeight(), 34);
    editor.restyle(fonts::serif(20), 20, Qt::black);
    EXPECT_EQ(editor.lineHeight(), 41);
}

TEST_F(RhythmLayoutTest, EveryLineHasTheSameHeightWhateverItsFont) {
    editor.load(everything());
    const auto* layout = editor.document()->documentLayout();
    int rows = 0;
    for (QTextBlock each = block(0); each.isValid(); each = each.next()) {
        const QRectF rect = layout->blockBoundingRect(each);
        EXPECT_EQ(rect.top(), rows * kLine) << each.text().toStdString();
        EXPECT_EQ(each.layout()->position().y(), rect.top());
        ASSERT_EQ(each.layout()->lineCount(), each.lineCount());
        rows += each.lineCount();
        EXPECT_EQ(rect.height(), each.lineCount() * kLine);
    }
    EXPECT_EQ(layout->documentSize().height(), rows * kLine);
    EXPECT_EQ(editor.textHeight(), rows * kLine + 4);
}

TEST_F(RhythmLayoutTest, TheEmptyLastLineIsAsHighAsAllOthers) {
    editor.load(QStringLiteral("# a\nb\n"));
    EXPECT_EQ(editor.document()->documentLayout()->documentSize().height(), 3 * kLine);
    const int first = editor.caretRect().center().y();
    EXPECT_EQ(first / kLine, 2);
    press(Qt::Key_Up);
    EXPECT_EQ(first - editor.caretRect().center().y(), kLine);
}

TEST_F(RhythmLayoutTest, GlyphsStandInTheMiddleOfTheirLine) {
    editor.load(QStringLiteral("# Heading\nplain\n日記\n`code`"));
    for (int number = 0; number < 4; ++number) {
        const QTextLine line = block(number).layout()->lineAt(0);
        const double baseline = line.y() + line.ascent();
        EXPECT_NEAR(baseline, number == 0 ? 25 : 23, 1.01) << number;
        EXPECT_EQ(baseline, std::round(baseline)) << number;
    }
    // The letters that stand in don't move the line.
    EXPECT_EQ(block(1).layout()->lineAt(0).y() + block(1).layout()->lineAt(0).ascent(),
              block(2).layout()->lineAt(0).y() + block(2).layout()->lineAt(0).ascent());
}

TEST_F(RhythmLayoutTest, HiddenMarkersHaveNoWidth) {
    const QStringList lines = {
        QStringLiteral("# a"),     QStringLiteral("###### a"),  QStringLiteral("- a"),
        QStringLiteral("+ 好"),    QStringLiteral("- [ ] a"),   QStringLiteral("- [x] あ"),
        QStringLiteral("> a"),     QStringLiteral(">a"),        QStringLiteral("123456789. a"),
        QStringLiteral("    - a"), QStringLiteral("> العربية"), QStringLiteral("* a **b**"),
    };
    for (const double size : {12.0, 16.5, 24.0}) {
        editor.restyle(fonts::serif(size), size, Qt::black);
        editor.load(lines.join(u'\n'));
        for (int number = 0; number < lines.size(); ++number) {
            const auto hidden = hiddenAt(block(number), 0);
            ASSERT_TRUE(hidden) << lines[number].toStdString();
            const int end = int(hidden->end());
            EXPECT_EQ(x(number, end) - x(number, 0), 0) << lines[number].toStdString();
            if (!lines[number].contains(QStringLiteral("ع"))) {
                EXPECT_EQ(x(number, 0), RhythmLayout::markRoom + indentAt(block(number), 0));
            }
        }
    }
}

TEST_F(RhythmLayoutTest, NothingOfARuleIsShownAndItsTextStays) {
    editor.load(QStringLiteral("a\n_____\nb"));
    EXPECT_EQ(x(1, 5) - x(1, 0), 0);
    EXPECT_EQ(editor.draft(), QStringLiteral("a\n_____\nb"));
}

TEST_F(RhythmLayoutTest, WrappedLinesKeepTheIndent) {
    editor.load(QStringLiteral("- ") + QStringLiteral("word ").repeated(60) +
                QStringLiteral("\n  - [ ] ") + QStringLiteral("日記").repeated(80) +
                QStringLiteral("\n> ") + QStringLiteral("word ").repeated(60));
    const QList<int> indents = {22 + 18, 22 + 21 + 16 + 9, 36};
    for (int number = 0; number < 3; ++number) {
        ASSERT_GT(block(number).layout()->lineCount(), 2);
        for (int row = 0; row < block(number).layout()->lineCount(); ++row) {
            EXPECT_EQ(block(number).layout()->lineAt(row).x(),
                      RhythmLayout::markRoom + indents[number]);
        }
    }
}

TEST_F(RhythmLayoutTest, AMarkerIsNotLeftAloneAheadOfAWordThatFillsItsLine) {
    for (const auto& marker : {QStringLiteral("- "), QStringLiteral("- [ ] "), QStringLiteral("# "),
                               QStringLiteral("> "), QStringLiteral("1. ")}) {
        editor.load(marker + QString(200, u'w'));
        EXPECT_GT(block(0).layout()->lineAt(0).textLength(), marker.size() + 10);
        EXPECT_EQ(x(0, int(marker.size())) - x(0, 0), 0);
    }
}

TEST_F(RhythmLayoutTest, NoClickEverLandsInAHiddenMarker) {
    editor.load(everything());
    const auto* layout = editor.document()->documentLayout();
    const int height = int(layout->documentSize().height());
    for (int y = -20; y < height + 20; y += 11) {
        for (int at = 0; at < editor.width(); at += 7) {
            const int position = layout->hitTest(QPointF(at, y), Qt::FuzzyHit);
            const QTextBlock found = editor.document()->findBlock(position);
            ASSERT_FALSE(hiddenAt(found, position - found.position())) << at << ',' << y;
        }
    }
}

TEST_F(RhythmLayoutTest, AClickBeyondAWrappedRowStaysInIt) {
    editor.load(QStringLiteral("word ").repeated(60));
    const auto* layout = editor.document()->documentLayout();
    ASSERT_GT(block(0).lineCount(), 2);
    const int position = layout->hitTest(QPointF(editor.width() - 1, kLine / 2), Qt::FuzzyHit);
    EXPECT_EQ(block(0).layout()->lineForTextPosition(position).lineNumber(), 0);
    EXPECT_EQ(layout->hitTest(QPointF(editor.width() - 1, kLine / 2), Qt::ExactHit), -1);
}

TEST_F(RhythmLayoutTest, BoxesStandAtTheirLevelInTheMiddleOfTheirLine) {
    editor.load(QStringLiteral("a\n- [ ] b\n  - [x] c"));
    const auto* layout = qobject_cast<RhythmLayout*>(editor.document()->documentLayout());
    const auto boxes = layout->taskBoxes(QRectF(0, 0, 700, 1000));
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].rect, QRect(kEdge, kLine + 9, 16, 16));
    EXPECT_EQ(boxes[0].position, 2);
    EXPECT_EQ(boxes[1].rect, QRect(kEdge + 21, 2 * kLine + 9, 16, 16));
    EXPECT_EQ(layout->taskBoxes(QRectF(0, 0, 700, 10)).size(), 0U);
}

TEST_F(RhythmLayoutTest, BlocksThatComeAndGoMoveThoseBehindThem) {
    editor.load(QStringLiteral("a\nb\nc"));
    caretAt(1);
    press(Qt::Key_Return);
    EXPECT_EQ(block(3).layout()->position().y(), 3 * kLine);
    press(Qt::Key_Backspace);
    EXPECT_EQ(block(2).layout()->position().y(), 2 * kLine);
    editor.resize(200, 400);
    editor.load(QStringLiteral("word ").repeated(20) + QStringLiteral("\nb"));
    EXPECT_EQ(block(1).layout()->position().y(), block(0).lineCount() * kLine);
    editor.resize(660, 400);
    EXPECT_EQ(block(0).lineCount(), 2);
    EXPECT_EQ(block(1).layout()->position().y(), 2 * kLine);
}

// What is painted, by the colour that each decoration has.
class PaintingTest : public EditorFixture {
protected:
    [[nodiscard]] QImage picture() {
        editor.clearFocus();
        editor.setFixedHeight(editor.textHeight());
        return editor.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    // The rectangle that the pixels of exactly this colour fill.
    [[nodiscard]] static QRect extent(const QImage& image, Token token, const QRect& within) {
        const QRgb wanted = theme::color(token).rgb();
        const QRect area = within & image.rect();
        QRect found;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int at = area.left(); at <= area.right(); ++at) {
                if (image.pixel(at, y) == wanted) found |= QRect(at, y, 1, 1);
            }
        }
        return found;
    }
    [[nodiscard]] static QRect row(int number) { return {0, number * kLine, 660, kLine}; }
};

TEST_F(PaintingTest, AQuoteThatWrapsHasOneBar) {
    editor.load(QStringLiteral("> ") + QStringLiteral("word ").repeated(30));
    ASSERT_EQ(block(0).lineCount(), 3);
    const QRect bar = extent(picture(), Token::QuoteBar, QRect(0, 0, kEdge + 3, 4 * kLine));
    EXPECT_EQ(bar.left(), kEdge);
    EXPECT_EQ(bar.width(), 3);
    EXPECT_NEAR(bar.top(), 6, 1);
    EXPECT_NEAR(bar.bottom(), 3 * kLine - 7, 1);
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

TEST_F(PaintingTest, AMarkOfTheSearchLiesBehindTheText) {
    editor.load(QStringLiteral("- find this"));
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(editor.document());
    mark.cursor.setPosition(2);
    mark.cursor.setPosition(6, QTextCursor::KeepAnchor);
    mark.format.setBackground(theme::color(Token::AccentSoft));
    mark.format.setProperty(RhythmStyle::kMark, true);
    editor.setExtraSelections({mark});
    const QRect found = extent(picture(), Token::AccentSoft, row(0));
    EXPECT_NEAR(found.left(), x(0, 2), 1.5);
    EXPECT_NEAR(found.right(), x(0, 6), 1.5);
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
