#include "DiaryApp/Navigation/YearRailView.h"

#include <gmock/gmock.h>

#include <QtTest/QTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Navigation/AllYearsChip.h"
#include "DiaryApp/Navigation/RailCard.h"
#include "NavigationFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;

// Counts how often widgets paint themselves.
class PaintCount : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

class YearRailViewTest : public NavigationTest {
protected:
    YearRailViewTest() {
        view.onPickYear = [this](int year) { picked.push_back(year); };
        view.onAddYear = [this](int year) { added.push_back(year); };
        view.onSetAllYears = [this](bool isOn) { wishes.push_back(isOn); };
        view.resize(252, 740);
        update();
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    void update() { view.update(railModel(rail)); }

    [[nodiscard]] std::vector<int> years() const {
        std::vector<int> list;
        for (const RailCard* card : view.cards()) list.push_back(card->year());
        return list;
    }

    [[nodiscard]] QRect place(const QWidget* widget) const {
        return {widget->mapTo(&view, QPoint()), widget->size()};
    }

    [[nodiscard]] QScrollBar* scrollBar() const {
        return view.findChild<QScrollArea*>()->verticalScrollBar();
    }

    YearRailView view;
    std::vector<int> picked;
    std::vector<int> added;
    std::vector<bool> wishes;
};

TEST_F(YearRailViewTest, CardsStandAtTheirPitch) {
    EXPECT_THAT(years(), ElementsAre(2026, 2025, 2023, 2021, 2018));
    EXPECT_EQ(place(view.cards()[0]), QRect(16, 56, 220, 107));
    EXPECT_EQ(place(view.cards()[4]), QRect(16, 56 + 4 * 115, 220, 107));
    EXPECT_EQ(place(view.addYearCard()), QRect(16, 56 + 5 * 115, 220, 40));
    EXPECT_EQ(place(view.chip()).right(), 235);
    EXPECT_EQ(place(view.chip()).top(), 18);
}

TEST_F(YearRailViewTest, AClickPicksItsYear) {
    QTest::mouseClick(view.cards()[2], Qt::LeftButton);
    QTest::keyClick(view.cards()[3], Qt::Key_Return);
    QTest::keyClick(view.cards()[0], Qt::Key_Space);
    EXPECT_THAT(picked, ElementsAre(2023, 2021, 2026));
    EXPECT_TRUE(view.cards()[0]->isChecked()) << "only the model says which year is in view";
    EXPECT_FALSE(view.cards()[2]->isChecked());
}

TEST_F(YearRailViewTest, CardsHaveNames) {
    rail.hits = {{2021, 1}};
    update();
    EXPECT_EQ(view.cards()[3]->accessibleName(),
              QStringLiteral("2021, 42 chars, First night in the new flat. No curtains, one …, "
                             "5 years ago, 1 hit"));
    EXPECT_EQ(view.accessibleName(), QStringLiteral("Years of this day"));
    EXPECT_EQ(view.accessibleDescription(), QStringLiteral("Spanning 9 years · earliest 2018"));
}

TEST_F(YearRailViewTest, AKeystrokeRepaintsOneCard) {
    PaintCount other;
    PaintCount own;
    QCoreApplication::processEvents();
    view.cards()[0]->installEventFilter(&own);
    for (std::size_t i = 1; i < view.cards().size(); ++i) {
        view.cards()[i]->installEventFilter(&other);
    }
    const std::vector<RailCard*> before = view.cards();
    rail.draft = QStringLiteral("x");
    update();
    QCoreApplication::processEvents();
    EXPECT_EQ(view.cards(), before);
    EXPECT_GT(own.count, 0);
    EXPECT_EQ(other.count, 0);
}

TEST_F(YearRailViewTest, CardsOfYearsThatStayKeepFocus) {
    RailCard* card = view.cards()[3];
    card->setFocus(Qt::TabFocusReason);
    rail.viewedYear = 2022;
    rail.draft.clear();
    update();
    EXPECT_THAT(years(), ElementsAre(2026, 2025, 2023, 2022, 2021, 2018));
    EXPECT_EQ(view.cards()[4], card);
    EXPECT_TRUE(card->hasFocus());
    EXPECT_EQ(place(card).top(), 56 + 4 * 115);
}

TEST_F(YearRailViewTest, TabWalksTheYearsInTheirOrder) {
    rail.viewedYear = 2022;
    update();
    view.chip()->setFocus(Qt::TabFocusReason);
    std::vector<int> walked;
    for (std::size_t i = 0; i < view.cards().size(); ++i) {
        QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
        const auto* card = qobject_cast<RailCard*>(view.focusWidget());
        ASSERT_NE(card, nullptr);
        walked.push_back(card->year());
    }
    EXPECT_EQ(walked, years());
    QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(view.focusWidget(), view.addYearCard());
}

TEST_F(YearRailViewTest, AnotherDayReusesTheCards) {
    const std::vector<RailCard*> before = view.cards();
    rail.pastEntries = {{2010, QStringLiteral("x")}};
    update();
    EXPECT_THAT(years(), ElementsAre(2026, 2010));
    EXPECT_EQ(view.findChildren<RailCard*>().size(), static_cast<qsizetype>(before.size()));
    EXPECT_EQ(std::ranges::count_if(before, &QWidget::isVisible), 2);
    rail.pastEntries = {{2025, QStringLiteral("x")}, {2024, QStringLiteral("x")},
                        {2023, QStringLiteral("x")}, {2022, QStringLiteral("x")},
                        {2021, QStringLiteral("x")}, {2020, QStringLiteral("x")}};
    update();
    EXPECT_EQ(view.findChildren<RailCard*>().size(), 7);
    for (const RailCard* card : view.cards()) EXPECT_TRUE(card->isVisible());
    QTest::mouseClick(view.cards()[1], Qt::LeftButton);
    EXPECT_THAT(picked, ElementsAre(2025));
}

TEST_F(YearRailViewTest, APastYearCanBeAdded) {
    EXPECT_TRUE(view.addYearCard()->isVisible());
    EXPECT_EQ(view.addYearCard()->text(), QStringLiteral("Add a past year"));
    QTest::mouseClick(view.addYearCard(), Qt::LeftButton);
    QMenu* menu = view.addYearCard()->menu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 11);
    EXPECT_EQ(menu->actions().first()->text(), QStringLiteral("2024"));
    menu->actions().at(1)->trigger();
    EXPECT_THAT(added, ElementsAre(2022));
    menu->close();
}

TEST_F(YearRailViewTest, WithoutYearsToAddThereIsNoSuchCard) {
    rail.pastEntries.clear();
    for (int year = 2025; year > 2009; --year) {
        rail.pastEntries.push_back({year, QStringLiteral("x")});
    }
    update();
    EXPECT_FALSE(view.addYearCard()->isVisible());
    rail.pastEntries.pop_back();
    rail.pastEntries.pop_back();
    update();
    EXPECT_TRUE(view.addYearCard()->isVisible());
}

TEST_F(YearRailViewTest, TheChipShowsTheCountAndReportsAWish) {
    EXPECT_EQ(view.chip()->text(), QStringLiteral("All · 5"));
    EXPECT_FALSE(view.chip()->isChecked());
    QTest::mouseClick(view.chip(), Qt::LeftButton);
    EXPECT_FALSE(view.chip()->isChecked());
    rail.showAllYears = true;
    update();
    EXPECT_TRUE(view.chip()->isChecked());
    QTest::keyClick(view.chip(), Qt::Key_Return);
    EXPECT_EQ(wishes, (std::vector{true, false}));
}

TEST_F(YearRailViewTest, CardsScrollUnderTheFooter) {
    EXPECT_EQ(scrollBar()->maximum(), 0);
    view.resize(252, 520);
    EXPECT_GT(scrollBar()->maximum(), 0);
    EXPECT_EQ(view.childAt(100, 490), nullptr) << "the footer is the rail's own";
    view.cards()[4]->setFocus(Qt::OtherFocusReason);
    view.cards()[3]->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(view.cards()[3], Qt::Key_Tab);
    EXPECT_TRUE(view.cards()[4]->hasFocus());
    EXPECT_LE(place(view.cards()[4]).bottom(), 476) << "what has the focus is scrolled to";
    view.scrollToTop();
    EXPECT_EQ(scrollBar()->value(), 0);
}

TEST_F(YearRailViewTest, AKeystrokeLeavesTheScrollPlace) {
    view.resize(252, 520);
    scrollBar()->setValue(100);
    rail.draft += u'x';
    update();
    EXPECT_EQ(scrollBar()->value(), 100);
}

TEST_F(YearRailViewTest, TextsFollowTheLanguage) {
    setLanguage(Language::zhHans);
    view.retranslate();
    update();
    EXPECT_EQ(view.chip()->text(), QStringLiteral("全部 · 5"));
    EXPECT_EQ(view.addYearCard()->text(), QStringLiteral("补写往年"));
    EXPECT_EQ(place(view.chip()).right(), 235);
    EXPECT_EQ(view.accessibleName(), QStringLiteral("这一天的各年"));
}

TEST_F(YearRailViewTest, LineEndsOfUnusualKindsStayOnTheCard) {
    rail.draft = QStringLiteral("one\u2028two\u2029three\rfour\vfive");
    update();
    const QImage image = view.cards()[0]->grab().toImage();
    rail.draft = QStringLiteral("one two three four five");
    update();
    EXPECT_EQ(view.cards()[0]->grab().toImage(), image);
}

}  // namespace
}  // namespace velmar
