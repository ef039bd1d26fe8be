#include "DiaryApp/Entry/SourcePage.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QClipboard>
#include <QtGui/QTextBlock>
#include <QtWidgets/QScrollBar>

#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

TEST(EstimatedRows, BreaksBehindBlanksAndWideCharacters) {
    struct Row {
        QString text;
        int expected;
    };
    // Ten narrow or five wide characters in a row.
    const auto text = [](const char* each) { return QString::fromUtf8(each); };
    const std::vector<Row> rows = {
        {QString(), 1},
        {text("a"), 1},
        {text("0123456789"), 1},
        {text("01234567890"), 2},
        {text("0123456789          "), 1},
        {text("0123 5678 abc"), 2},
        {text("0123 567890 bc"), 2},
        {text("ab 01234567890123456789"), 3},
        {text("七点醒来对"), 1},
        {text("七点醒来对岸"), 2},
        {text("七点ab醒来"), 1},
        {text("七点abc醒来"), 2},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(estimatedRows(row.text, 1, 2, 10), row.expected) << row.text.toStdString();
    }
}

class SourcePageTest : public EntryViewFixture {
protected:
    QScrollBar* bar() { return source().verticalScrollBar(); }
    SourceText& text() { return *source().text(); }

    // Of the character, in the page's visible part.
    int rowTop(int position) {
        QTextCursor cursor(text().document());
        cursor.setPosition(position);
        const QTextBlock block = cursor.block();
        const QRectF rect = text().document()->documentLayout()->blockBoundingRect(block);
        return text().mapTo(source().viewport(), rect.topLeft().toPoint()).y();
    }
};

TEST_F(SourcePageTest, ShowsTheFileInRowsOfTwentyFour) {
    showSource(QStringLiteral("# 11-21\n\n## 2026\nx"));
    EXPECT_EQ(text().toPlainText(), state.rawText);
    EXPECT_EQ(text().geometry(), QRect(122, 34, 596, 4 * 24));
    EXPECT_EQ(text().accessibleName(), QStringLiteral("Source of 11-21.md"));
}

TEST_F(SourcePageTest, AnEmptyFileSaysSo) {
    showSource(QString());
    EXPECT_EQ(text().toPlainText(), QStringLiteral("(empty file)"));
}

TEST_F(SourcePageTest, TheTextCanBeSelectedAndCopiedButNotChanged) {
    showSource(QStringLiteral("# 11-21"));
    QTest::mousePress(text().viewport(), Qt::LeftButton, {}, {1, 12});
    QTest::mouseMove(text().viewport(), {500, 12});
    QTest::mouseRelease(text().viewport(), Qt::LeftButton, {}, {500, 12});
    QTest::keyClick(&text(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("# 11-21"));
    QTest::keyClicks(&text(), QStringLiteral("x"));
    QTest::keyClick(&text(), Qt::Key_Delete);
    EXPECT_EQ(text().toPlainText(), QStringLiteral("# 11-21"));
    QGuiApplication::clipboard()->clear();
    view.selectAll();
    view.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("# 11-21"));
}

TEST_F(SourcePageTest, AnotherRenderKeepsTheSelection) {
    showSource(QStringLiteral("# 11-21"));
    text().selectAll();
    show();
    EXPECT_TRUE(text().textCursor().hasSelection());
    showSource(QStringLiteral("# 11-22"));
    EXPECT_FALSE(text().textCursor().hasSelection());
}

TEST_F(SourcePageTest, KeysScroll) {
    showSource(manyLines(200));
    QTest::keyClick(&text(), Qt::Key_Down);
    EXPECT_GT(bar()->value(), 0);
    QTest::keyClick(&text(), Qt::Key_End);
    EXPECT_EQ(bar()->value(), bar()->maximum());
    QTest::keyClick(&text(), Qt::Key_Home);
    EXPECT_EQ(bar()->value(), 0);
    QTest::keyClick(&text(), Qt::Key_Space);
    EXPECT_GT(bar()->value(), 300);
}

TEST_F(SourcePageTest, AClickFindsItsCharacter) {
    showSource(QStringLiteral("first line\nsecond line\nthird"));
    const double advance = QFontMetricsF(text().font()).horizontalAdvance(QStringLiteral("0"));
    const QTextCursor cursor =
        text().cursorForPosition(QPoint(qRound(7 * advance), SourceLayout::rowHeight + 12));
    EXPECT_EQ(cursor.position(), 11 + 7);
    EXPECT_EQ(text().cursorForPosition(QPoint(2000, 12)).position(), 10);
    EXPECT_EQ(text().cursorForPosition(QPoint(0, 2000)).block().text(), QStringLiteral("third"));
}

TEST_F(SourcePageTest, WhatStandsAtTheTopStaysThereWhenWhatIsAboveTurnsOutHigher) {
    // Estimates break nowhere within a hyphened word; the layout does.
    const QString hyphens = QStringLiteral("a-").repeated(200) + u'\n';
    const QString wide = QStringLiteral("mmm ").repeated(100) + u'\n';
    showSource((hyphens + wide).repeated(60));
    bar()->setValue(bar()->maximum());
    for (int i = 0; i < 40; ++i) {
        const int value = bar()->value();
        const int anchor = text().cursorForPosition(QPoint(0, value + 300)).block().position();
        const int before = rowTop(anchor);
        bar()->setValue(value - 100);
        ASSERT_EQ(rowTop(anchor), before + 100) << "step " << i;
    }
}

TEST_F(SourcePageTest, TheLastRowIsReachedAndShownWhole) {
    showSource((QStringLiteral("word ").repeated(100) + u'\n').repeated(50) +
               QStringLiteral("the end"));
    QTest::keyClick(&text(), Qt::Key_End);
    const int last = rowTop(static_cast<int>(state.rawText.size()));
    EXPECT_LE(last + 24, source().viewport()->height());
    EXPECT_GT(last, 0);
}

TEST_F(SourcePageTest, ALongFileLaysOutOnlyWhatShows) {
    const QString line = QStringLiteral("Nothing much happened but the rain, which fell. ");
    showSource((line.repeated(4) + u'\n').repeated(10000));
    int laidOut = 0;
    for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
        if (block.layout()->lineCount() > 0) ++laidOut;
    }
    EXPECT_GT(laidOut, 5);
    EXPECT_LT(laidOut, 100);
    EXPECT_GT(text().height(), 10000 * 24);
}

}  // namespace
}  // namespace velmar
