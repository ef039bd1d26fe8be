#include "DiaryApp/Entry/MatchPill.h"

#include "DiaryApp/Appearance/Theme.h"
#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

class MatchPillTest : public EntryViewFixture {
protected:
    void showMatches(int count, int current) {
        state.matches = EntryModel::Matches{count, current};
        show();
    }

    MatchPill* pill() { return view.findChild<MatchPill*>(); }
};

TEST_F(MatchPillTest, ShowsOnlyWhereThereAreMatches) {
    EXPECT_EQ(pill(), nullptr);
    showMatches(2, 0);
    ASSERT_NE(pill(), nullptr);
    EXPECT_TRUE(pill()->isVisible());
    EXPECT_EQ(pill()->label(), QStringLiteral("1 of 2"));
    showMatches(2, 1);
    EXPECT_EQ(pill()->label(), QStringLiteral("2 of 2"));
    EXPECT_EQ(pill()->accessibleName(), QStringLiteral("2 of 2"));
    state.matches.reset();
    show();
    EXPECT_FALSE(pill()->isVisible());
}

TEST_F(MatchPillTest, StandsInTheLowerRightCorner) {
    showMatches(2, 0);
    EXPECT_EQ(pill()->height(), 34);
    EXPECT_EQ(pill()->geometry().right() + 1, view.width() - 34);
    EXPECT_EQ(pill()->geometry().bottom() + 1, view.height() - 22);
    const int before = pill()->x();
    window.resize(740, 640);
    EXPECT_EQ(pill()->x(), before - 100);
    EXPECT_EQ(pill()->geometry().bottom() + 1, view.height() - 22);
}

TEST_F(MatchPillTest, ItsButtonsStepAndNameTheirKeys) {
    int steps = 0;
    view.onPreviousMatch = [&] { steps -= 1; };
    view.onNextMatch = [&] { steps += 10; };
    showMatches(2, 0);
    QTest::mouseClick(pill()->previous(), Qt::LeftButton);
    EXPECT_EQ(steps, -1);
    QTest::mouseClick(pill()->next(), Qt::LeftButton);
    pill()->next()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(pill()->next(), Qt::Key_Return);
    QTest::keyClick(pill()->next(), Qt::Key_Space);
    EXPECT_EQ(steps, 29);
    EXPECT_EQ(pill()->previous()->accessibleName(), QStringLiteral("Find Previous"));
    EXPECT_EQ(pill()->next()->toolTip(), QStringLiteral("Find Next   Ctrl+G"));
    EXPECT_EQ(pill()->previous()->toolTip(), QStringLiteral("Find Previous   Ctrl+Shift+G"));
}

TEST_F(MatchPillTest, FadesInAndOut) {
    motion::setReduced(false);
    showMatches(2, 0);
    EXPECT_LT(pill()->opacity(), 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return pill()->opacity() == 1; }));
    state.matches.reset();
    show();
    EXPECT_TRUE(pill()->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !pill()->isVisible(); }));
}

TEST_F(MatchPillTest, MatchesThatComeBackWhileItFadesOutBringItBack) {
    motion::setReduced(false);
    showMatches(2, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return pill()->opacity() == 1; }));
    state.matches.reset();
    show();
    showMatches(3, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return pill()->opacity() == 1; }));
    EXPECT_TRUE(pill()->isVisible());
}

TEST_F(MatchPillTest, ItsShadowLetsClicksThrough) {
    showMatches(2, 0);
    const QPoint above = pill()->geometry().topLeft() + QPoint(30, -4);
    EXPECT_NE(view.childAt(above), nullptr);
    EXPECT_TRUE(oneYear().isAncestorOf(view.childAt(above)));
}

TEST_F(MatchPillTest, SpeaksTheLanguageAfterAChange) {
    showMatches(2, 0);
    localization::install(Language::ja);
    view.retranslate();
    EXPECT_EQ(pill()->label(), QStringLiteral("1 / 2"));
    EXPECT_EQ(pill()->next()->accessibleName(), QStringLiteral("次を検索"));
}

}  // namespace
}  // namespace velmar
