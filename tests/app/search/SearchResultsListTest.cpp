// The list of hits where there are more than are laid out at once.
#include "DiaryApp/Search/SearchResultsList.h"

#include <QtWidgets/QScrollBar>

#include "DiaryApp/Search/SearchRowDelegate.h"
#include "DiaryApp/Search/SearchRowHeights.h"
#include "DiaryApp/Search/SnippetLayout.h"
#include "tests/app/search/SearchPaneFixture.h"

namespace velmar {
namespace {

// Letters so narrow, or so wide, that a line's height can't be told by their number.
const QString kNarrow = QStringLiteral("ill it, till it, fill it, lilt, tilt, if it, ill.");
const QString kWide = QStringLiteral("WOMMM WOMMM WOMMM WOMMM");

class SearchResultsListTest : public test::SearchPaneFixture {
protected:
    static SearchSession many(int hits) {
        SearchSession made = canal();
        made.result->hits.clear();
        for (int i = 0; i < hits; ++i) {
            const QString& snippet = i % 5 == 0 ? kWide : kNarrow;
            made.result->hits.push_back(
                {diary::MonthDay{1, 1}.advanced(i % 300), 2026 - i / 300, snippet, {}, {{0, 3}}});
        }
        return made;
    }

    [[nodiscard]] QModelIndex line(int row) { return list().model()->index(row, 0); }
    [[nodiscard]] QScrollBar& bar() { return *list().verticalScrollBar(); }

    // As high as the line is with its snippet laid out.
    [[nodiscard]] int exactHeight(const QModelIndex& index) {
        const QString text = index.data(Qt::AccessibleTextRole).toString();
        const double width = SearchRowDelegate::snippetWidth(list().width());
        if (text.contains(kWide)) {
            return SearchRowDelegate::hitHeight(SnippetLayout::lineCount(kWide, width));
        }
        if (!text.contains(kNarrow)) return SearchRowDelegate::headHeight;
        return SearchRowDelegate::hitHeight(SnippetLayout::lineCount(kNarrow, width));
    }

    // The first line in view.
    [[nodiscard]] QModelIndex top() { return list().indexAt({0, 0}); }

    void expectExactWindow() {
        int shown = 0;
        for (int row = top().row(); row < list().model()->rowCount(); ++row, ++shown) {
            const QRect rect = list().visualRect(line(row));
            if (rect.top() >= list().viewport()->height()) break;
            EXPECT_EQ(rect.height(), exactHeight(line(row))) << "line " << row;
            const QModelIndex next = line(row + 1);
            const int below = rect.bottom() + 1;
            EXPECT_EQ(next.isValid() ? list().visualRect(next).top() : below, below);
            EXPECT_EQ(list().indexAt(rect.center()).row(), row);
        }
        EXPECT_GT(shown, 5);
    }

    // Whether the whole list is as high as its lines are.
    [[nodiscard]] bool isWhole() {
        int height = 0;
        for (int row = 0; row < list().model()->rowCount(); ++row) height += exactHeight(line(row));
        return bar().maximum() == height - list().viewport()->height();
    }
};

TEST_F(SearchResultsListTest, WhatShowsIsExactAtOnceAndTheRestFollows) {
    show(many(500));
    expectExactWindow();
    EXPECT_FALSE(isWhole());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isWhole(); }, 10000));
    expectExactWindow();
}

TEST_F(SearchResultsListTest, ALineFarBelowIsSelectedInViewAndStaysThere) {
    SearchSession session = many(500);
    session.selected = 400;
    show(session);
    const QModelIndex selected = list().currentIndex();
    EXPECT_EQ(selected.row(), 402);
    expectExactWindow();
    const QRect before = list().visualRect(selected);
    EXPECT_TRUE(list().viewport()->rect().contains(before));
    // The lines above turn out lower and higher than they were taken to be.
    EXPECT_TRUE(QTest::qWaitFor([this] { return isWhole(); }, 10000));
    EXPECT_EQ(list().visualRect(selected), before);
}

TEST_F(SearchResultsListTest, ScrollingMeetsExactLinesEverywhere) {
    show(many(500));
    for (const double share : {0.9, 0.3, 1.0, 0.5}) {
        bar().setValue(static_cast<int>(bar().maximum() * share));
        expectExactWindow();
    }
}

TEST_F(SearchResultsListTest, ItsKeysReachTheEndAndTheStart) {
    SearchSession session = many(500);
    pane.onSelect = [&](int index) {
        session.selected = index;
        show(session);
    };
    show(session);
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(session.selected, 499);
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
    expectExactWindow();
    QTest::keyClick(&list(), Qt::Key_Home);
    EXPECT_EQ(session.selected, 0);
    EXPECT_EQ(bar().value(), 0);
    expectExactWindow();
}

TEST_F(SearchResultsListTest, OtherRowsAndAnotherWidthAreMeasuredAnew) {
    show(many(500));
    ASSERT_TRUE(QTest::qWaitFor([this] { return isWhole(); }, 10000));
    SearchSession others = many(300);
    std::ranges::reverse(others.result->hits);
    others.generation = 2;
    show(others);
    expectExactWindow();
    list().resize(200, list().height());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isWhole(); }, 10000));
    expectExactWindow();
}

// 50 Chinese letters would fill four lines.
TEST_F(SearchResultsListTest, ASnippetOfAnyScriptTakesTwoLinesAndShowsItsMatch) {
    const double width = SearchRowDelegate::snippetWidth(268);
    const QString before(14, QChar(u'雨'));
    const QString after(30, QChar(u'雪'));
    const QString text = u'…' + before + QStringLiteral("运河") + after + u'…';
    const SnippetLayout layout(text, {{15, 2}}, width);
    EXPECT_EQ(layout.lineCount(), 2);
    const std::vector<QRectF> marks = layout.markBoxes();
    double marked = 0;
    for (const QRectF& mark : marks) {
        EXPECT_LE(mark.right(), width);
        EXPECT_LE(mark.bottom(), 2 * SnippetLayout::lineHeight);
        marked += mark.width();
    }
    EXPECT_NEAR(marked, 2 * 14, 1) << "both letters, each 14 wide";
    EXPECT_EQ(SnippetLayout::likelyLineCount(text, width), 2);
    EXPECT_EQ(SnippetLayout::lineCount(QStringLiteral("今天下雨"), width), 1);
}

TEST_F(SearchResultsListTest, AHeightIsLikelyUntilItIsMeasured) {
    SearchResultsModel model;
    SearchPaneState::Group group{QStringLiteral("2026"), {}, {}};
    for (const QString& snippet : {kNarrow, kWide, QStringLiteral("今天下雨，在家里读书")}) {
        group.rows.push_back({0, QStringLiteral("11-21"), {}, {}, snippet, {}});
    }
    model.setGroups({group});
    SearchRowHeights heights(model);
    heights.setWidth(268);
    EXPECT_EQ(heights.height(0), SearchRowDelegate::headHeight);
    EXPECT_EQ(heights.firstUnmeasured(), 1);
    EXPECT_FALSE(heights.measure(0));
    const int likely = heights.height(2);
    EXPECT_TRUE(heights.measure(2)) << "wide letters need more lines than their number tells";
    EXPECT_GT(heights.height(2), likely);
    EXPECT_FALSE(heights.measure(2)) << "a second time it is what it was";
    EXPECT_FALSE(heights.measure(3)) << "Chinese is as wide as it is taken to be";
    heights.measure(1);
    EXPECT_EQ(heights.firstUnmeasured(), -1);
    heights.setWidth(200);
    EXPECT_EQ(heights.firstUnmeasured(), 0) << "all is open at another width";
}

}  // namespace
}  // namespace velmar
