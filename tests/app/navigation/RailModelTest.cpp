#include <gmock/gmock.h>

#include "DiaryApp/Navigation/Snippet.h"
#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "NavigationFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class RailModelTest : public NavigationTest {
protected:
    [[nodiscard]] RailModel model() const { return railModel(rail); }

    [[nodiscard]] std::vector<int> years() const {
        const RailModel shown = model();
        std::vector<int> list(shown.cards.size());
        std::ranges::transform(shown.cards, list.begin(), &RailModel::Card::year);
        return list;
    }

    [[nodiscard]] RailModel::Card card(int year) const {
        const RailModel shown = model();
        for (const RailModel::Card& each : shown.cards) {
            if (each.year == year) return each;
        }
        ADD_FAILURE() << "no card of " << year;
        return {};
    }
};

TEST_F(RailModelTest, BeginsWithThisYear) {
    const RailModel::Card expected{
        .year = 2026,
        .yearColor = Token::Accent,
        .meta = QStringLiteral("51 chars"),
        .snippet = QStringLiteral("First frost on the canal  Woke at seven to whi…"),
        .snippetColor = Token::RailTextActive,
        .ago = QStringLiteral("This year · writing"),
        .background = Token::CardBgActive,
        .border = Token::CardBorderActive,
        .isActive = true,
        .hits = std::nullopt,
    };
    EXPECT_EQ(model().cards.front(), expected);
    EXPECT_THAT(years(), ElementsAre(2026, 2025, 2023, 2021, 2018));
}

TEST_F(RailModelTest, ShowsOtherYearsAtRest) {
    const RailModel::Card expected{
        .year = 2023,
        .yearColor = Token::RailYear,
        .meta = QStringLiteral("39 chars"),
        .snippet = QStringLiteral("The clinic, then the long tram home with my fo…"),
        .snippetColor = Token::RailSnippet,
        .ago = QStringLiteral("3 years ago"),
        .background = Token::CardBg,
        .border = Token::CardBorder,
        .isActive = false,
        .hits = std::nullopt,
    };
    EXPECT_EQ(card(2023), expected);
    EXPECT_EQ(card(2025).ago, QStringLiteral("1 year ago"));
}

TEST_F(RailModelTest, TheYearInViewIsActiveAndShowsTheDraft) {
    rail.viewedYear = 2021;
    rail.draft = QStringLiteral("Rewritten");
    EXPECT_TRUE(card(2021).isActive);
    EXPECT_EQ(card(2021).snippet, QStringLiteral("Rewritten"));
    EXPECT_EQ(card(2021).yearColor, Token::Accent);
    EXPECT_FALSE(card(2026).isActive);
    EXPECT_EQ(card(2026).snippet, QStringLiteral("First frost"));
    EXPECT_EQ(card(2026).yearColor, Token::RailYear);
    EXPECT_EQ(card(2026).ago, QStringLiteral("This year · writing"));
}

TEST_F(RailModelTest, NoCardIsActiveWhileAllYearsShow) {
    rail.showAllYears = true;
    const RailModel shown = model();
    for (const RailModel::Card& each : shown.cards) {
        EXPECT_FALSE(each.isActive) << each.year;
        EXPECT_EQ(each.yearColor, Token::RailYear);
        EXPECT_EQ(each.background, Token::CardBg);
        EXPECT_EQ(each.border, Token::CardBorder);
        EXPECT_EQ(each.snippetColor, Token::RailSnippet);
    }
    EXPECT_TRUE(model().showsAllYears);
}

TEST_F(RailModelTest, AnEmptyYearSaysSo) {
    rail.draft = QStringLiteral(" \n\t");
    EXPECT_EQ(card(2026).snippet, QStringLiteral("Not written yet"));
    EXPECT_EQ(card(2026).snippetColor, Token::EmptyText);
    EXPECT_EQ(card(2026).meta, QStringLiteral("0 chars"));
    rail.draft = QStringLiteral("x");
    EXPECT_EQ(card(2026).meta, QStringLiteral("1 char"));
}

TEST_F(RailModelTest, CharactersAreCountedWithoutBlanks) {
    rail.draft = QStringLiteral(" é👩‍👩‍👧 字\n\n## a ");
    EXPECT_EQ(card(2026).meta, QStringLiteral("6 chars"));
}

TEST_F(RailModelTest, AnAddedYearStandsAmongTheOthers) {
    rail.viewedYear = 2022;
    rail.draft.clear();
    EXPECT_THAT(years(), ElementsAre(2026, 2025, 2023, 2022, 2021, 2018));
    EXPECT_TRUE(card(2022).isActive);
    EXPECT_EQ(card(2022).snippet, QStringLiteral("Not written yet"));
    EXPECT_EQ(card(2022).ago, QStringLiteral("4 years ago"));
    EXPECT_EQ(model().writtenYearCount, 5) << "an added year isn't written yet";
    EXPECT_EQ(model().footer, QStringLiteral("Spanning 9 years · earliest 2018"));
}

TEST_F(RailModelTest, AYearAheadIsNoTimeAgo) {
    rail.viewedYear = 2028;
    rail.draft = QStringLiteral("From the future");
    EXPECT_THAT(years(), ElementsAre(2026, 2028, 2025, 2023, 2021, 2018));
    EXPECT_TRUE(card(2028).ago.isEmpty());
}

TEST_F(RailModelTest, AYearThatStandsTwiceShowsTheDraftOnce) {
    rail.pastEntries = {{2021, QStringLiteral("first")}, {2021, QStringLiteral("second")}};
    rail.viewedYear = 2021;
    rail.draft = QStringLiteral("first, edited");
    ASSERT_EQ(years(), (std::vector{2026, 2021, 2021}));
    EXPECT_EQ(model().cards[1].snippet, QStringLiteral("first, edited"));
    EXPECT_EQ(model().cards[2].snippet, QStringLiteral("second"));
}

TEST_F(RailModelTest, HitsStandOnTheirYears) {
    rail.hits = {{2026, 2}, {2021, 1}, {1999, 4}};
    EXPECT_EQ(card(2026).hits, QStringLiteral("2 hits"));
    EXPECT_EQ(card(2021).hits, QStringLiteral("1 hit"));
    EXPECT_EQ(card(2025).hits, std::nullopt);
}

TEST_F(RailModelTest, TheFooterSpansFromTheOldestYear) {
    EXPECT_EQ(model().footer, QStringLiteral("Spanning 9 years · earliest 2018"));
    rail.pastEntries = {{2025, QStringLiteral("x")}};
    EXPECT_EQ(model().footer, QStringLiteral("Spanning 2 years · earliest 2025"));
    rail.pastEntries.clear();
    EXPECT_EQ(model().footer, QStringLiteral("This day is still empty"));
    rail.pastEntries = {{2028, QStringLiteral("x")}};
    EXPECT_EQ(model().footer, QStringLiteral("Spanning 1 year · earliest 2028"));
}

TEST_F(RailModelTest, YearsWithoutACardCanBeAdded) {
    EXPECT_THAT(model().addYears,
                ElementsAre(2024, 2022, 2020, 2019, 2017, 2016, 2015, 2014, 2013, 2012, 2011));
    rail.viewedYear = 2022;
    EXPECT_THAT(model().addYears,
                ElementsAre(2024, 2020, 2019, 2017, 2016, 2015, 2014, 2013, 2012, 2011));
}

TEST_F(RailModelTest, OnlyLeapYearsCanBeAddedToTheLeapDay) {
    rail.day = {2, 29};
    rail.pastEntries = {{2020, QStringLiteral("x")}};
    EXPECT_THAT(model().addYears, ElementsAre(2024, 2016, 2012));
}

TEST_F(RailModelTest, NothingIsLeftToAddBehindSixteenYears) {
    rail.pastEntries.clear();
    for (int year = 2025; year > 2009; --year) {
        rail.pastEntries.push_back({year, QStringLiteral("x")});
    }
    EXPECT_TRUE(model().addYears.empty());
}

TEST_F(RailModelTest, CountsTheWrittenYears) {
    EXPECT_EQ(model().writtenYearCount, 5);
    rail.draft = QStringLiteral(" \n");
    EXPECT_EQ(model().writtenYearCount, 4);
    rail.viewedYear = 2021;
    EXPECT_EQ(model().writtenYearCount, 5) << "this year's text is the file's now";
    rail.currentBody.clear();
    EXPECT_EQ(model().writtenYearCount, 4);
    EXPECT_FALSE(model().showsAllYears);
}

TEST_F(RailModelTest, SpeaksChineseAndJapanese) {
    rail.hits = {{2026, 2}};
    setLanguage(Language::zhHans);
    EXPECT_EQ(card(2026).meta, QStringLiteral("51 字"));
    EXPECT_EQ(card(2026).ago, QStringLiteral("今年 · 正在写"));
    EXPECT_EQ(card(2026).hits, QStringLiteral("2 处"));
    EXPECT_EQ(card(2025).ago, QStringLiteral("1 年前"));
    EXPECT_EQ(model().footer, QStringLiteral("跨越 9 年 · 始于 2018"));
    setLanguage(Language::ja);
    EXPECT_EQ(card(2026).meta, QStringLiteral("51 字"));
    EXPECT_EQ(card(2026).ago, QStringLiteral("今年 · 執筆中"));
    EXPECT_EQ(card(2026).hits, QStringLiteral("2 件"));
    EXPECT_EQ(model().footer, QStringLiteral("9 年間 · 最初は 2018 年"));
}

TEST(Snippet, IsCutBehindFortySixCharacters) {
    const QString text = QStringLiteral("x").repeated(46);
    EXPECT_EQ(snippetOf(QString()), QString());
    EXPECT_EQ(snippetOf(text), text);
    EXPECT_EQ(snippetOf(text + u'y'), text + u'…');
    EXPECT_EQ(snippetOf(text.first(45)), text.first(45));
}

TEST(Snippet, HasNoMarkers) {
    EXPECT_EQ(snippetOf(QStringLiteral("# T\n- [x] **a** [l](u)")), QStringLiteral("T  a l"));
    EXPECT_EQ(snippetOf(QStringLiteral("---")), QString());
}

TEST(Snippet, CutsBetweenCharactersAReaderSees) {
    const std::vector<QString> characters = {QStringLiteral("👩‍👩‍👧‍👦"),
                                             QStringLiteral("e\u0301"), QStringLiteral("🇫🇷"),
                                             QStringLiteral("字")};
    for (const QString& character : characters) {
        EXPECT_EQ(snippetOf(character.repeated(46)), character.repeated(46));
        EXPECT_EQ(snippetOf(character.repeated(47)), character.repeated(46) + u'…');
    }
    // Far more marks on one character than what is looked at first.
    const QString tall = u'a' + QStringLiteral("\u0301").repeated(500);
    EXPECT_EQ(snippetOf(tall.repeated(46)), tall.repeated(46));
    EXPECT_EQ(snippetOf(tall.repeated(47)), tall.repeated(46) + u'…');
}

// Only the first lines are read, so the result must not depend on where reading stops.
TEST(Snippet, IsTheBeginningOfTheWholePlainText) {
    const QStringList lines = {QStringLiteral("# Head"),
                               QStringLiteral("---"),
                               QString(),
                               QStringLiteral("- [ ] **bold** [link](https://example.org/a)"),
                               QStringLiteral("```"),
                               QStringLiteral("雨后*安静*")};
    for (int count = 0; count < 400; ++count) {
        QString text;
        for (int i = 0; i < count; ++i) text += lines[(i * 7 + count) % lines.size()] + u'\n';
        const QString plain = diary::MarkdownEditing::plainText(text);
        const QString expected = plain.size() > 46 ? plain.first(46) + u'…' : plain;
        ASSERT_EQ(snippetOf(text), expected) << count;
    }
}

TEST(Snippet, FindsTextFarBelowLinesWithoutAny) {
    const QString rules = QStringLiteral("---\n").repeated(1000);
    EXPECT_EQ(snippetOf(rules + QStringLiteral("at last")), QStringLiteral("at last"));
    EXPECT_EQ(snippetOf(rules + QStringLiteral("x").repeated(50)),
              QStringLiteral("x").repeated(46) + u'…');
}

}  // namespace
}  // namespace velmar
