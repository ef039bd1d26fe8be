// The pane and its rules together, led by real keys and clicks.
#include "DiaryApp/Search/SearchPaneWiring.h"

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Chip.h"
#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Search/RecentSearchRow.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "DiaryApp/Search/SearchResultsList.h"
#include "tests/app/search/SearchFixture.h"

#include <QtTest/QTest>

namespace velmar {
namespace {

using testing::ElementsAre;

class SearchPaneWiringTest : public test::SearchFixture {
protected:
    SearchPaneWiringTest() {
        localization::install(Language::en);
        appearance::prepare();
        pane = std::make_unique<SearchPaneView>(&window);
        controller = std::make_unique<SearchController>(wiredHost(), timers.maker());
        wireSearchPane(*pane, *controller);
        window.resize(600, 740);
        pane->setGeometry(0, 0, 268, 740);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        controller->showSearch();
    }

    SearchHost wiredHost() {
        SearchHost made = host();
        made.renderSidebar = [this] {
            if (!controller->isOpen()) return;
            pane->setQuery(session().query);
            pane->render(searchPaneState(
                session(), {2026, remembered, Language::en, pane->renderedGeneration()}));
        };
        drawn = made.renderSidebar;
        made.focusField = [this](FieldCaret caret) { pane->focusField(caret); };
        made.setFieldText = [this](const QString& text) { pane->setQuery(text); };
        return made;
    }

    [[nodiscard]] SearchField& field() { return *pane->findChild<SearchField*>(); }
    [[nodiscard]] SearchResultsList& list() { return *pane->findChild<SearchResultsList*>(); }

    void typeAndFind(const QString& text) {
        QTest::keyClicks(&field(), text);
        timers.advance(SearchController::searchDelay);
        answer();
    }

    QWidget window;
    std::unique_ptr<SearchPaneView> pane;
};

TEST_F(SearchPaneWiringTest, TypingFindsAndTheArrowsWalkWithoutLeavingTheField) {
    typeAndFind(QStringLiteral("canal"));
    EXPECT_EQ(started.size(), 1U);
    EXPECT_EQ(list().model()->rowCount(), 5);
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_EQ(day, (diary::MonthDay{10, 2}));
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_EQ(year, 2021);
    EXPECT_EQ(list().currentIndex().row(), 4);
    EXPECT_TRUE(field().hasFocus());
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(calls.last(), QStringLiteral("focusEditor"));
    EXPECT_THAT(remembered, ElementsAre(QStringLiteral("canal")));
}

TEST_F(SearchPaneWiringTest, EscapeClearsAndASecondOneLeaves) {
    typeAndFind(QStringLiteral("canal"));
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_TRUE(field().text().isEmpty());
    EXPECT_TRUE(controller->isOpen());
    EXPECT_FALSE(list().isVisible());
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(controller->isOpen());
}

TEST_F(SearchPaneWiringTest, AChipNarrowsAndGivesTheFieldItsFocusBack) {
    typeAndFind(QStringLiteral("canal"));
    Chip* year2021 = pane->findChildren<Chip*>().at(3);
    ASSERT_EQ(year2021->text(), QStringLiteral("2021"));
    QTest::mouseClick(year2021, Qt::LeftButton);
    answer();
    EXPECT_TRUE(year2021->isChecked());
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(field().cursorPosition(), 5);
}

TEST_F(SearchPaneWiringTest, ARecentSearchRunsFromItsRow) {
    remembered = {QStringLiteral("boat")};
    controller->exitSearch();
    controller->showSearch();
    auto* row = pane->findChild<RecentSearchRow*>();
    ASSERT_NE(row, nullptr);
    QTest::mouseClick(row, Qt::LeftButton);
    EXPECT_EQ(field().text(), QStringLiteral("boat"));
    ASSERT_EQ(started.size(), 1U);
    answer();
    EXPECT_EQ(list().model()->rowCount(), 4);
}

TEST_F(SearchPaneWiringTest, ComingBackShowsTheKeptLineSelectedAndItsHits) {
    typeAndFind(QStringLiteral("canal"));
    controller->exitSearch();
    controller->showSearch();
    EXPECT_EQ(field().selectedText(), QStringLiteral("canal"));
    EXPECT_FALSE(list().isVisible());
    answer();
    EXPECT_EQ(list().model()->rowCount(), 5);
    EXPECT_TRUE(list().isVisible());
}

}  // namespace
}  // namespace velmar
