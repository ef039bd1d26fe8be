#include "DiaryApp/Entry/AllYearsPage.h"

#include <QtGui/QAccessible>
#include <QtGui/QTextDocument>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Entry/GapRow.h"
#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;
using testing::Key;

class AllYearsPageTest : public EntryViewFixture {
protected:
    void writeManyYears(int count, int lines) {
        for (int i = 1; i <= count; ++i) write(2026 - i, manyLines(lines));
    }

    bool isAllLaidOut() {
        for (const auto& [year, card] : view.yearCards()) {
            if (!card->isLaidOut()) return false;
        }
        return true;
    }

    GapRow* firstGap() { return allYears().findChild<GapRow*>(); }

    QRect inView(const QWidget& widget) { return {widget.mapTo(&view, QPoint()), widget.size()}; }
};

TEST_F(AllYearsPageTest, ShowsACardForEachYearInTheOrderOfTheModel) {
    write(2024, QStringLiteral("two"));
    write(2020, QStringLiteral("three"));
    state.draft = QStringLiteral("one");
    showAllYears();
    EXPECT_THAT(view.yearCards(), ElementsAre(Key(2020), Key(2024), Key(2026)));
    EXPECT_LT(card(2026).geometry().bottom(), card(2024).y());
    EXPECT_LT(card(2024).geometry().bottom(), card(2020).y());
    EXPECT_EQ(card(2026).text()->draft(), QStringLiteral("one"));
    EXPECT_EQ(card(2020).text()->draft(), QStringLiteral("three"));
    EXPECT_TRUE(card(2020).text()->isVisible());
}

TEST_F(AllYearsPageTest, TextsAreForReadingAndLetClicksThrough) {
    write(2025, QStringLiteral("- [ ] a task"));
    showAllYears();
    GrowingTextView* text = card(2025).text();
    EXPECT_TRUE(text->isReadOnly());
    EXPECT_TRUE(text->isInert());
    EXPECT_EQ(text->focusPolicy(), Qt::NoFocus);
    const QPoint middle = allYears().widget()->mapFromGlobal(
        text->mapToGlobal(QPoint(text->width() / 2, text->height() / 2)));
    EXPECT_EQ(allYears().widget()->childAt(middle), &card(2025));
}

TEST_F(AllYearsPageTest, AClickAnywhereOnACardOpensItsYear) {
    write(2025, manyLines(3));
    showAllYears();
    for (const QPoint point : {QPoint(5, 5), card(2025).rect().center(),
                               QPoint(card(2025).width() - 5, card(2025).height() - 5)}) {
        QTest::mouseClick(&card(2025), Qt::LeftButton, {}, point);
    }
    EXPECT_THAT(opened, ElementsAre(2025, 2025, 2025));
}

TEST_F(AllYearsPageTest, FillInOpensTheNewestMissingYear) {
    write(2020, QStringLiteral("x"));
    showAllYears();
    ASSERT_NE(firstGap(), nullptr);
    EXPECT_EQ(firstGap()->button()->text(), QStringLiteral("Fill in"));
    EXPECT_EQ(firstGap()->button()->accessibleName(), QStringLiteral("Fill in 2025"));
    QTest::mouseClick(firstGap()->button(), Qt::LeftButton);
    EXPECT_THAT(opened, ElementsAre(2025));
}

TEST_F(AllYearsPageTest, TabLeadsThroughCardsAndGapsAndReturnAndSpaceOpen) {
    write(2024, QStringLiteral("x"));
    showAllYears();
    ASSERT_EQ(QApplication::focusWidget(), &allYears());
    QList<QWidget*> visited;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.append(QApplication::focusWidget());
    }
    EXPECT_EQ(visited, (QList<QWidget*>{allYears().head()->previous(), allYears().head()->next(),
                                        &card(2026), firstGap()->button(), &card(2024)}));
    QTest::keyClick(&card(2024), Qt::Key_Return);
    QTest::keyClick(&card(2024), Qt::Key_Space);
    QTest::keyClick(&card(2024), Qt::Key_Backtab);
    QTest::keyClick(firstGap()->button(), Qt::Key_Return);
    EXPECT_THAT(opened, ElementsAre(2024, 2024, 2025));
}

TEST_F(AllYearsPageTest, TheRingShowsAfterTheKeyboardOnly) {
    showAllYears();
    const auto hasRing = [this] {
        for (const QFocusFrame* ring : window.findChildren<QFocusFrame*>()) {
            if (ring->widget() == &card(2026) && ring->isVisible()) return true;
        }
        return false;
    };
    card(2026).setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(hasRing());
    card(2026).clearFocus();
    card(2026).setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(hasRing());
    card(2026).clearFocus();
    EXPECT_FALSE(hasRing());
}

TEST_F(AllYearsPageTest, ACardIsAButtonThatSaysItsYearAndItsFirstWords) {
    write(2025, QStringLiteral("## Rain\n**all** day"));
    write(2024, QString(300, u'x'));
    showAllYears();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&card(2025));
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::Button);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("2025, 1 year ago, Rain all day"));
    EXPECT_EQ(card(2026).accessibleName(),
              QStringLiteral("2026, This year, Nothing written yet this year"));
    EXPECT_LT(card(2024).accessibleName().size(), 120);
}

TEST_F(AllYearsPageTest, ACardSaysWhatAClickDoes) {
    write(2025, QStringLiteral("Rain all day"));
    showAllYears();
    const auto description = [this](int year) {
        return QAccessible::queryAccessibleInterface(&card(year))->text(QAccessible::Description);
    };
    EXPECT_EQ(description(2026), QStringLiteral("Keep writing"));
    EXPECT_EQ(description(2025), QStringLiteral("Open"));
}

TEST_F(AllYearsPageTest, ThisYearsEmptyCardHasARowAndNoText) {
    state.draft = QStringLiteral(" \n");
    showAllYears();
    EXPECT_EQ(card(2026).text(), nullptr);
    EXPECT_EQ(card(2026).height(), 1 + 12 + 26 + 34 + 12 + 1);
    state.draft = QStringLiteral("one\ntwo");
    show();
    ASSERT_NE(card(2026).text(), nullptr);
    EXPECT_EQ(card(2026).height(), 1 + 12 + 26 + 68 + 12 + 1);
}

TEST_F(AllYearsPageTest, CardsAreKeptFromOneModelToTheNext) {
    write(2025, QStringLiteral("old"));
    write(2024, QStringLiteral("gone"));
    showAllYears();
    const YearCard* before = &card(2025);
    const GrowingTextView* text = card(2025).text();
    state.pastEntries.clear();
    bodies.erase(2024);
    write(2025, QStringLiteral("new"));
    show();
    EXPECT_EQ(&card(2025), before);
    EXPECT_EQ(card(2025).text(), text);
    EXPECT_EQ(card(2025).text()->draft(), QStringLiteral("new"));
    EXPECT_THAT(view.yearCards(), ElementsAre(Key(2025), Key(2026)));
}

TEST_F(AllYearsPageTest, WhatIsOutOfViewIsLaidOutLaterAndThenNothingRuns) {
    writeManyYears(20, 12);
    showAllYears();
    EXPECT_TRUE(card(2026).isLaidOut());
    EXPECT_TRUE(card(2025).isLaidOut());
    EXPECT_FALSE(card(2006).isLaidOut());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isAllLaidOut(); }));
    EXPECT_EQ(card(2006).height(), 1 + 12 + 26 + 12 * 34 + 12 + 1);
    EXPECT_LT(card(2007).geometry().bottom(), card(2006).y());
}

TEST_F(AllYearsPageTest, TheEndShowsAsSoonAsOneScrollsThere) {
    writeManyYears(20, 12);
    showAllYears();
    QScrollBar* bar = allYears().verticalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_TRUE(isAllLaidOut());
}

TEST_F(AllYearsPageTest, NoTextIsLaidOutTwiceForOneWidth) {
    write(2025, manyLines(5));
    showAllYears();
    int changes = 0;
    QObject::connect(card(2025).text()->document()->documentLayout(),
                     &QAbstractTextDocumentLayout::update, &view, [&] { ++changes; });
    show();
    window.resize(840, 700);
    EXPECT_EQ(changes, 0);
    window.resize(600, 700);
    EXPECT_GT(changes, 0);
}

TEST_F(AllYearsPageTest, LongTextsWrapAnewAtAnotherWidth) {
    write(2025, QStringLiteral("word ").repeated(60));
    showAllYears();
    const int wide = card(2025).height();
    window.resize(500, 740);
    EXPECT_GT(card(2025).height(), wide);
}

TEST_F(AllYearsPageTest, TheHeadTellsSpanCountsAndHint) {
    write(2024, QStringLiteral("x"));
    state.draft = QStringLiteral("y");
    showAllYears();
    EXPECT_EQ(allYears().head()->accessibleName(),
              QStringLiteral("11-21, 2024 – 2026, 2 years written · 1 not written, "
                             "Click a year to write in it"));
}

TEST_F(AllYearsPageTest, TextStandsWhereItStandsOnThePageOfOneYear) {
    state.draft = QStringLiteral("x");
    show();
    const int before = inView(editor()).left();
    showAllYears();
    EXPECT_EQ(inView(*card(2026).text()).left(), before);
}

TEST_F(AllYearsPageTest, MarksAreShownInTheirYearsAndLastUntilTheTextChanges) {
    writeManyYears(12, 12);
    showAllYears();
    view.setYearHighlights({{2025, {{0, 4}}}, {2014, {{5, 4}}}});
    EXPECT_FALSE(card(2025).text()->matchRect(0).isEmpty());
    EXPECT_TRUE(card(2026).text() == nullptr);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isAllLaidOut(); }));
    EXPECT_FALSE(card(2014).text()->matchRect(0).isEmpty());
    EXPECT_TRUE(card(2020).text()->matchRect(0).isEmpty());
    view.setYearHighlights({{2020, {{0, 4}}}});
    EXPECT_TRUE(card(2025).text()->matchRect(0).isEmpty());
    EXPECT_FALSE(card(2020).text()->matchRect(0).isEmpty());
    view.clearHighlights();
    EXPECT_TRUE(card(2020).text()->matchRect(0).isEmpty());
}

TEST_F(AllYearsPageTest, AYearCanBeBroughtIntoView) {
    writeManyYears(20, 12);
    showAllYears();
    view.showYear(2010);
    const QRect shown = inView(card(2010));
    EXPECT_GE(shown.top(), 0);
    EXPECT_LT(shown.top(), view.height() / 2);
    const int value = allYears().verticalScrollBar()->value();
    view.showYear(1999);
    EXPECT_EQ(allYears().verticalScrollBar()->value(), value);
}

TEST_F(AllYearsPageTest, KeysScrollWhereNoCardHasTheFocus) {
    writeManyYears(6, 12);
    showAllYears();
    QScrollBar* bar = allYears().verticalScrollBar();
    QTest::keyClick(&allYears(), Qt::Key_PageDown);
    EXPECT_GT(bar->value(), 0);
    QTest::keyClick(&allYears(), Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(&allYears(), Qt::Key_Space);
    EXPECT_GT(bar->value(), 0);
    QTest::keyClick(&allYears(), Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
}

}  // namespace
}  // namespace velmar
