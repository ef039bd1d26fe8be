// Where lines, hidden markers and decorations stand.
#include <QtGui/QFontDatabase>

#include "DiaryApp/Editor/RhythmPainter.h"
#include "tests/app/editor/PaintingFixture.h"

namespace velmar {
namespace {

using RhythmLayoutTest = EditorFixture;

TEST_F(RhythmLayoutTest, TheBaselineIsCentredIfThereIsMoreThanAPixelToSpare) {
    EXPECT_EQ(rhythmBaseline(34, 18, 6), 23);
    EXPECT_EQ(rhythmBaseline(34, 24, 8), 25);
    // One pixel to spare, none, and less than none: the text stands on the line's bottom.
    EXPECT_EQ(rhythmBaseline(34, 25, 8), 26);
    EXPECT_EQ(rhythmBaseline(34, 26, 8), 26);
    EXPECT_EQ(rhythmBaseline(34, 40, 10), 24);
}

TEST_F(RhythmLayoutTest, CodeHasTheFirstFamilyThatIsThere) {
    const auto first = [](const QStringList& installed) {
        return codeFamilies([&](const QString& family) { return installed.contains(family); })[0];
    };
    const QString menlo = QStringLiteral("Menlo");
    const QString plex = QStringLiteral("IBM Plex Mono");
    EXPECT_EQ(first({plex, menlo}), menlo);
    EXPECT_EQ(first({plex}), plex);
    EXPECT_EQ(first({}), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    // Chinese and Japanese letters have their stand-in in each case.
    EXPECT_EQ(codeFamilies([](const QString&) { return false; }).mid(1),
              fonts::mono(10).families().mid(1));
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

}  // namespace
}  // namespace velmar
