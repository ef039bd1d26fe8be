#include "DiaryApp/Search/SearchPaneView.h"

#include <QtGui/QAccessible>
#include <QtGui/QAction>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Chip.h"
#include "DiaryApp/Search/RecentSearchRow.h"
#include "DiaryApp/Search/SearchPaneParts.h"
#include "tests/app/search/SearchPaneFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class SearchPaneViewTest : public test::SearchPaneFixture {
protected:
    SearchPaneViewTest() {
        pane.onQueryChanged = [this](const QString& text) { typed.append(text); };
        pane.onScope = [this](std::optional<int> year) { scopes.push_back(year); };
        pane.onSelect = [this](int index) { selects.push_back(index); };
        pane.onOpen = [this](bool inAllYears) { opens.push_back(inAllYears); };
        pane.onMove = [this](int delta) { moves.push_back(delta); };
        pane.onEscape = [this] { ++escapes; };
        pane.onRecent = [this](const QString& text) { recents.append(text); };
    }

    void compose(const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        if (!commit.isEmpty()) event.setCommitString(commit);
        QApplication::sendEvent(&field(), &event);
    }

    [[nodiscard]] std::vector<Chip*> chips() const {
        std::vector<Chip*> shown;
        for (Chip* chip : pane.findChildren<Chip*>()) {
            if (!chip->isHidden()) shown.push_back(chip);
        }
        return shown;
    }

    static SearchSession withoutQuery() {
        SearchSession made;
        made.years = {2026};
        made.generation = 1;
        return made;
    }

    // What stands on the chips, the one that is on in brackets.
    [[nodiscard]] QStringList chipTexts() const {
        QStringList texts;
        for (const Chip* chip : chips()) {
            texts.append(chip->isChecked() ? u'[' + chip->text() + u']' : chip->text());
        }
        return texts;
    }

    [[nodiscard]] QStringList lines() {
        QStringList all;
        for (int i = 0; i < list().model()->rowCount(); ++i) {
            const QVariant line = list().model()->index(i, 0).data(Qt::AccessibleTextRole);
            all.append(line.toString().section(u',', 0, 0));
        }
        return all;
    }

    QStringList typed;
    std::vector<std::optional<int>> scopes;
    std::vector<int> selects;
    std::vector<bool> opens;
    std::vector<int> moves;
    int escapes = 0;
    QStringList recents;
};

TEST_F(SearchPaneViewTest, TellsWhatIsTypedAndNothingThatIsComposed) {
    QTest::keyClicks(&field(), QStringLiteral("ca"));
    EXPECT_THAT(typed, ElementsAre(QStringLiteral("c"), QStringLiteral("ca")));
    compose(QStringLiteral("yun"));
    EXPECT_EQ(typed.size(), 2);
    EXPECT_TRUE(pane.isComposing());
    pane.setQuery(QStringLiteral("other"));
    EXPECT_EQ(field().text(), QStringLiteral("ca"));
    compose({}, QStringLiteral("运"));
    EXPECT_EQ(typed.last(), QStringLiteral("ca运"));
    pane.setQuery(QStringLiteral("other"));
    EXPECT_EQ(field().text(), QStringLiteral("other"));
    EXPECT_EQ(typed.size(), 3);
}

TEST_F(SearchPaneViewTest, SettingTheSameTextLeavesTheCaretAlone) {
    pane.setQuery(QStringLiteral("canal"));
    field().setCursorPosition(2);
    pane.setQuery(QStringLiteral("canal"));
    EXPECT_EQ(field().cursorPosition(), 2);
}

TEST_F(SearchPaneViewTest, KeysOfTheFieldAreThePanes) {
    show(canal());
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Up);
    EXPECT_THAT(moves, ElementsAre(1, -1));
    QTest::keyClick(&field(), Qt::Key_Return);
    QTest::keyClick(&field(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&field(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(opens, ElementsAre(false, true, false));
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(field().text(), QStringLiteral("canal"));
}

TEST_F(SearchPaneViewTest, KeysWithOtherModifiersStayTheFields) {
    show(canal());
    QTest::keyClick(&field(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&field(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(moves.empty());
    EXPECT_TRUE(opens.empty());
}

TEST_F(SearchPaneViewTest, ACompositionKeepsItsKeys) {
    compose(QStringLiteral("yun"));
    QTest::keyClick(&field(), Qt::Key_Escape);
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(escapes, 0);
    EXPECT_TRUE(moves.empty());
    EXPECT_TRUE(opens.empty());
}

TEST_F(SearchPaneViewTest, ItsKeysGoBeforeTheMenus) {
    show(canal());
    int commands = 0;
    for (const QKeySequence& key :
         {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::Key_Escape)}) {
        auto* command = new QAction(&window);
        command->setShortcut(key);
        QObject::connect(command, &QAction::triggered, command, [&commands] { ++commands; });
        window.addAction(command);
    }
    // Through the window, as the system hands keys over.
    QTest::keyClick(window.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_THAT(opens, ElementsAre(true));
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(commands, 0);
}

TEST_F(SearchPaneViewTest, TheListHasTheSameKeys) {
    show(canal());
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_THAT(moves, ElementsAre(1));
    EXPECT_THAT(opens, ElementsAre(true));
    EXPECT_EQ(escapes, 1);
}

TEST_F(SearchPaneViewTest, TheFieldTakesTheFocusAsAsked) {
    pane.setQuery(QStringLiteral("canal"));
    list().setFocus();
    pane.focusField(FieldCaret::SelectAll);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(field().selectedText(), QStringLiteral("canal"));
    pane.focusField(FieldCaret::AtEnd);
    EXPECT_FALSE(field().hasSelectedText());
    EXPECT_EQ(field().cursorPosition(), 5);
}

TEST_F(SearchPaneViewTest, ThreeYearsHaveChipsAndTheOthersAMenu) {
    SearchSession session = canal();
    show(session);
    EXPECT_THAT(chipTexts(),
                ElementsAre(QStringLiteral("[All]"), QStringLiteral("2026"), QStringLiteral("2025"),
                            QStringLiteral("2024"), QString()));
    session.scope = 2025;
    show(session);
    EXPECT_THAT(chipTexts(),
                ElementsAre(QStringLiteral("All"), QStringLiteral("2026"), QStringLiteral("[2025]"),
                            QStringLiteral("2024"), QString()));
    session.scope = 2019;
    show(session);
    EXPECT_THAT(chipTexts(),
                ElementsAre(QStringLiteral("All"), QStringLiteral("2026"), QStringLiteral("2025"),
                            QStringLiteral("2024"), QStringLiteral("[2019]")));
    for (const Chip* chip : chips()) EXPECT_LE(chip->x() + chip->width(), 228);
    session.years = {2026, 2025, 2024};
    session.scope = {};
    show(session);
    EXPECT_EQ(chips().size(), 4U);
    session.years = {};
    show(session);
    EXPECT_THAT(chipTexts(), ElementsAre(QStringLiteral("[All]")));
}

TEST_F(SearchPaneViewTest, ChipsTellTheirYear) {
    SearchSession session = canal();
    show(session);
    QTest::mouseClick(chips()[2], Qt::LeftButton);
    QTest::mouseClick(chips()[0], Qt::LeftButton);
    EXPECT_THAT(scopes, ElementsAre(2025, std::nullopt));
    // The chips show what the search says, not what was clicked.
    EXPECT_TRUE(chips()[0]->isChecked());
    session.scope = 2021;
    show(session);
    QTest::mouseClick(chips()[4], Qt::LeftButton);
    auto* menu = pane.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList items;
    for (const QAction* item : menu->actions()) {
        items.append(item->isChecked() ? u'[' + item->text() + u']' : item->text());
    }
    EXPECT_THAT(items, ElementsAre(QStringLiteral("2023"), QStringLiteral("[2021]"),
                                   QStringLiteral("2019")));
    menu->actions()[2]->trigger();
    menu->close();
    EXPECT_EQ(scopes.back(), 2019);
}

TEST_F(SearchPaneViewTest, RowsStandUnderTheirYears) {
    show(canal());
    EXPECT_THAT(
        lines(),
        ElementsAre(QStringLiteral("This year"), QStringLiteral("11-21"), QStringLiteral("10-02"),
                    QStringLiteral("06-09"), QStringLiteral("02-17"), QStringLiteral("2025"),
                    QStringLiteral("12-02"), QStringLiteral("08-08"), QStringLiteral("2021"),
                    QStringLiteral("11-21"), QStringLiteral("05-01")));
    EXPECT_EQ(list().y(), 121);
    EXPECT_EQ(lineOf(QStringLiteral("11-21")), QRect(0, 34, 268, 74));
    EXPECT_EQ(lineOf(QStringLiteral("2025")), QRect(0, 34 + 4 * 74, 268, 34));
    list().verticalScrollBar()->setValue(0);
    EXPECT_EQ(lineOf(QStringLiteral("05-01")).height(), 55);
}

TEST_F(SearchPaneViewTest, RowsAreMadeAnewOnlyWithAnotherGeneration) {
    SearchSession session = canal();
    show(session);
    session.result->hits.resize(2);
    session.selected = 1;
    show(session);
    EXPECT_EQ(lines().size(), 11);
    EXPECT_EQ(list().currentIndex().data().toString().left(5), QStringLiteral("10-02"));
    session.generation = 2;
    show(session);
    EXPECT_EQ(lines().size(), 3);
    session.result->hits.resize(1);
    session.selected = 0;
    // Another language has other texts for the same rows.
    pane.retranslate();
    show(session);
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(SearchPaneViewTest, OneRowIsSelectedAndBroughtIntoView) {
    SearchSession session = canal();
    session.selected = 7;
    show(session);
    const QModelIndex last = list().currentIndex();
    EXPECT_EQ(last.row(), 10);
    EXPECT_EQ(list().selectionModel()->selectedIndexes(), QModelIndexList{last});
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(last)));
    EXPECT_GT(list().verticalScrollBar()->value(), 0);
    session.selected = 0;
    show(session);
    // The first hit brings its year along.
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    session.selected = {};
    show(session);
    EXPECT_TRUE(list().selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(SearchPaneViewTest, RenderingTheSameSelectionDoesNotScrollBack) {
    SearchSession session = canal();
    show(session);
    list().verticalScrollBar()->setValue(60);
    session.isSearching = true;
    show(session);
    EXPECT_EQ(list().verticalScrollBar()->value(), 60);
}

TEST_F(SearchPaneViewTest, AClickTellsTheHitAndLeavesTheFocusInTheField) {
    show(canal());
    QWidget* rows = list().viewport();
    QTest::mouseClick(rows, Qt::LeftButton, {}, lineOf(QStringLiteral("12-02")).center());
    QTest::mouseClick(rows, Qt::LeftButton, {}, lineOf(QStringLiteral("2025")).center());
    EXPECT_THAT(selects, ElementsAre(4));
    EXPECT_TRUE(field().hasFocus());
    // What is selected is the search's to say.
    EXPECT_EQ(list().selectionModel()->selectedIndexes().first().row(), 1);
}

TEST_F(SearchPaneViewTest, KeysThatMoveInTheListTellTheHit) {
    SearchSession session = canal();
    // As the search does: what is told is selected.
    pane.onSelect = [&](int index) {
        selects.push_back(index);
        session.selected = index;
        show(session);
    };
    show(session);
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_THAT(selects, ElementsAre(7));
    EXPECT_EQ(list().selectionModel()->selectedIndexes(), QModelIndexList{list().currentIndex()});
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(selects.size(), 1U);
    // The first line is the head of a year, so Home goes below it.
    QTest::keyClick(&list(), Qt::Key_Home);
    EXPECT_THAT(selects, ElementsAre(7, 0));
    QTest::keyClick(&list(), Qt::Key_PageDown);
    ASSERT_EQ(selects.size(), 3U);
    EXPECT_GT(selects.back(), 0);
    QTest::keyClick(&list(), Qt::Key_PageUp);
    QTest::keyClick(&list(), Qt::Key_PageUp);
    EXPECT_EQ(selects.back(), 0);
    EXPECT_EQ(list().currentIndex().row(), 1);
    EXPECT_TRUE(moves.empty());
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(SearchPaneViewTest, DigitsInTheListGoToADate) {
    show(canal());
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&list(), QStringLiteral("02"));
    ASSERT_FALSE(selects.empty());
    EXPECT_EQ(selects.back(), 3);
    EXPECT_EQ(field().text(), QStringLiteral("canal"));
}

TEST_F(SearchPaneViewTest, StepsInTheListPassTheHeads) {
    SearchSession session = canal();
    session.selected = 4;
    show(session);
    list().setFocus(Qt::TabFocusReason);
    // With Shift, the arrows are the list's.
    QTest::keyClick(&list(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(selects, ElementsAre(3, 4));
}

TEST_F(SearchPaneViewTest, RecentSearchesStandInForTheRows) {
    show(withoutQuery());
    EXPECT_FALSE(list().isVisible());
    const auto rows = pane.findChildren<RecentSearchRow*>();
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(rows[1]->geometry().translated(rows[1]->parentWidget()->pos()),
              QRect(10, 160, 248, 34));
    QTest::mouseClick(rows[1], Qt::LeftButton);
    QTest::keyClick(rows[3], Qt::Key_Return);
    EXPECT_THAT(recents, ElementsAre(QStringLiteral("herons 2025"), QStringLiteral("2024-03")));
    show(canal());
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(rows[0]->isVisible());
}

TEST_F(SearchPaneViewTest, TheArrowsLeadFromTheEmptyFieldThroughTheRecentSearchesAndBack) {
    show(withoutQuery());
    const auto rows = pane.findChildren<RecentSearchRow*>();
    ASSERT_EQ(rows.size(), 5);
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_TRUE(rows[0]->hasFocus());
    const auto* ring = window.findChild<QFocusFrame*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->widget(), rows[0]);
    EXPECT_TRUE(ring->isVisible());
    for (int i = 1; i < 5; ++i) {
        QTest::keyClick(rows[i - 1], Qt::Key_Down);
        EXPECT_TRUE(rows[i]->hasFocus()) << i;
    }
    QTest::keyClick(rows[4], Qt::Key_Down);
    EXPECT_TRUE(rows[4]->hasFocus()) << "there is nothing below the last one";
    QTest::keyClick(rows[4], Qt::Key_Up);
    QTest::keyClick(rows[3], Qt::Key_Return);
    EXPECT_THAT(recents, ElementsAre(QStringLiteral("2024-03")));
    rows[0]->setFocus();
    QTest::keyClick(rows[0], Qt::Key_Up);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_TRUE(moves.empty());
}

TEST_F(SearchPaneViewTest, WithoutRecentSearchesTheArrowsStayInTheField) {
    const SearchPaneContext context{2026, {}, localization::installedLanguage()};
    pane.render(searchPaneState(withoutQuery(), context));
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(SearchPaneViewTest, ARecentSearchIsReadAsItWasTyped) {
    const SearchPaneContext context{
        2026, {QStringLiteral("R&D")}, localization::installedLanguage()};
    pane.render(searchPaneState(withoutQuery(), context));
    auto* row = pane.findChild<RecentSearchRow*>();
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row)->text(QAccessible::Name),
              QStringLiteral("R&D"));
    EXPECT_TRUE(row->shortcut().isEmpty()) << "its letters are no keys";
}

TEST_F(SearchPaneViewTest, NothingFoundLeadsOutOfAYear) {
    SearchSession session = canal();
    session.query = QStringLiteral("lighthouse");
    session.result->hits.clear();
    session.selected = {};
    show(session);
    auto* reset = pane.findChild<Button*>();
    ASSERT_NE(reset, nullptr);
    EXPECT_FALSE(reset->isVisible());
    EXPECT_FALSE(list().isVisible());
    session.scope = 2025;
    show(session);
    ASSERT_TRUE(reset->isVisible());
    EXPECT_EQ(reset->text(), QStringLiteral("Search All Years"));
    QTest::mouseClick(reset, Qt::LeftButton);
    EXPECT_THAT(scopes, ElementsAre(std::nullopt));
}

TEST_F(SearchPaneViewTest, ANoticeMovesTheRowsDown) {
    SearchSession session = canal();
    session.result->pendingDownloads = 2;
    show(session);
    auto* notice = pane.findChild<SearchNoticeBox*>();
    ASSERT_TRUE(notice->isVisible());
    EXPECT_EQ(notice->geometry(), QRect(20, 131, 228, 36));
    EXPECT_EQ(list().y(), 167);
    EXPECT_EQ(notice->accessibleName(), QStringLiteral("2 days are still being fetched."));
    session.result->pendingDownloads = 0;
    show(session);
    EXPECT_FALSE(notice->isVisible());
    EXPECT_EQ(list().y(), 121);
}

TEST_F(SearchPaneViewTest, TheKeysTellWhatEscapeDoes) {
    const auto* keys = pane.findChild<SearchKeysHint*>();
    EXPECT_TRUE(keys->accessibleName().endsWith(QStringLiteral("Esc close")));
    QTest::keyClicks(&field(), QStringLiteral("c"));
    EXPECT_TRUE(keys->accessibleName().endsWith(QStringLiteral("Esc clear")));
    EXPECT_FALSE(keys->accessibleName().contains(u'['));
}

TEST_F(SearchPaneViewTest, TheFocusGoesFromTheFieldOverTheChipsToTheList) {
    show(canal());
    std::vector<QWidget*> order;
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget());
    }
    std::vector<QWidget*> expected;
    for (Chip* chip : chips()) expected.push_back(chip);
    expected.push_back(&list());
    EXPECT_EQ(order, expected);
}

TEST_F(SearchPaneViewTest, TheFieldStandsWhereTheSearchButtonDoes) {
    const int margin = SearchField::boxMargin;
    EXPECT_EQ(field().geometry().adjusted(margin, margin, -margin, -margin),
              QRect(20, 14, 228, 32));
    EXPECT_EQ(SearchPaneView::fieldBox(), QRect(20, 14, 228, 32));
}

TEST_F(SearchPaneViewTest, IsReadAloud) {
    SearchSession session = canal();
    session.selected = 1;
    show(session);
    QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&list());
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->role(), QAccessible::List);
    EXPECT_EQ(rows->text(QAccessible::Name), QStringLiteral("Search results"));
    EXPECT_EQ(rows->text(QAccessible::Description), QStringLiteral("13 hits · 8 days · 3 years"));
    ASSERT_EQ(rows->childCount(), 11);
    EXPECT_EQ(rows->child(0)->text(QAccessible::Name), QStringLiteral("This year, 8 hits"));
    EXPECT_EQ(rows->child(2)->text(QAccessible::Name),
              QStringLiteral("10-02, Fri, Oct 2, 3 hits, Swam in the canal on a dare, in October. "
                             "The ca…"));
    EXPECT_TRUE(rows->child(2)->state().selected);
    EXPECT_FALSE(rows->child(1)->state().selected);
    QAccessibleInterface* line = QAccessible::queryAccessibleInterface(&field());
    EXPECT_EQ(line->role(), QAccessible::EditableText);
    EXPECT_EQ(line->text(QAccessible::Name), QStringLiteral("Search the diary"));
    EXPECT_EQ(chips()[4]->accessibleName(), QStringLiteral("More years"));
}

TEST_F(SearchPaneViewTest, SpeaksTheInstalledLanguage) {
    show(canal());
    localization::install(Language::ja);
    pane.retranslate();
    show(canal());
    EXPECT_EQ(chipTexts().first(), QStringLiteral("[すべて]"));
    for (const Chip* chip : chips()) EXPECT_LE(chip->x() + chip->width(), 228);
    EXPECT_EQ(field().placeholderText(), QStringLiteral("言葉、2024、2024-03、03-07"));
    EXPECT_EQ(lines().first(), QStringLiteral("今年"));
    localization::install(Language::en);
}

}  // namespace
}  // namespace velmar
