#include "DiaryApp/Entry/EntryModel.h"

#include <gtest/gtest.h>

namespace velmar {
namespace {

class EntryModelTest : public testing::Test {
protected:
    EntryModelTest() { localization::install(Language::en); }

    EntryState state{.day = {11, 21},
                     .viewedYear = 2026,
                     .currentYear = 2026,
                     .draft = QStringLiteral("First frost"),
                     .pastEntries = {}};
};

const EntryModel::Editor* editorOf(const EntryModel& model) {
    return std::get_if<EntryModel::Editor>(&model.block.kind);
}

TEST_F(EntryModelTest, ShowsThisYear) {
    const EntryModel model = entryModel(state);
    EXPECT_EQ(model.fileName, QStringLiteral("11-21.md"));
    EXPECT_EQ(model.dayKey, QStringLiteral("11-21"));
    EXPECT_EQ(model.ordinal, QStringLiteral("Day 325 / 365"));
    EXPECT_EQ(model.weekdayName, QStringLiteral("Saturday, November 21"));
    EXPECT_EQ(model.subtitle, QStringLiteral("This file has 0 past-year sections"));
    EXPECT_EQ(model.block.mark, QStringLiteral("2026"));
    EXPECT_EQ(model.block.markColor, Token::Accent);
    EXPECT_EQ(model.block.ago, QStringLiteral("This year"));
    ASSERT_NE(editorOf(model), nullptr);
    EXPECT_EQ(editorOf(model)->draft, QStringLiteral("First frost"));
    EXPECT_EQ(editorOf(model)->placeholder, QStringLiteral("Write about this day in 2026…"));
    EXPECT_FALSE(model.gapLine);
}

TEST_F(EntryModelTest, ShowsAPastYear) {
    state.viewedYear = 2021;
    state.pastEntries = {{2021, QStringLiteral("x")}};
    const EntryModel model = entryModel(state);
    EXPECT_EQ(model.weekdayName, QStringLiteral("Sunday, November 21"));
    EXPECT_EQ(model.subtitle, QStringLiteral("This file has 1 past-year section"));
    EXPECT_EQ(model.block.markColor, Token::RailYear);
    EXPECT_EQ(model.block.ago, QStringLiteral("5 years ago"));
    EXPECT_EQ(editorOf(model)->placeholder, QStringLiteral("Write about this day in 2021…"));
    state.viewedYear = 2025;
    EXPECT_EQ(entryModel(state).block.ago, QStringLiteral("1 year ago"));
}

TEST_F(EntryModelTest, AFutureYearIsNoTimeAgo) {
    state.viewedYear = 2027;
    const EntryModel model = entryModel(state);
    EXPECT_TRUE(model.block.ago.isEmpty());
    EXPECT_EQ(model.block.mark, QStringLiteral("2027"));
    EXPECT_NE(editorOf(model), nullptr);
}

TEST_F(EntryModelTest, LeapDayOfThisCommonYearIsAHint) {
    state.day = {2, 29};
    const EntryModel model = entryModel(state);
    ASSERT_TRUE(std::holds_alternative<EntryModel::Empty>(model.block.kind));
    EXPECT_EQ(std::get<EntryModel::Empty>(model.block.kind).text,
              QStringLiteral("There is no February 29 this year. Its years stand on the right; the "
                             "next one comes in 2028."));
    EXPECT_TRUE(model.block.ago.isEmpty());
    EXPECT_EQ(model.weekdayName, QStringLiteral("February 29"));
    EXPECT_EQ(model.ordinal, QStringLiteral("Day 60 / 365"));
}

TEST_F(EntryModelTest, LeapDayOfAPastCommonYearCanBeWritten) {
    state.day = {2, 29};
    state.viewedYear = 2025;
    EXPECT_NE(editorOf(entryModel(state)), nullptr);
    state.viewedYear = 2024;
    EXPECT_EQ(entryModel(state).ordinal, QStringLiteral("Day 60 / 366"));
    state.currentYear = 2024;
    EXPECT_NE(editorOf(entryModel(state)), nullptr);
    EXPECT_EQ(entryModel(state).block.ago, QStringLiteral("This year"));
}

TEST_F(EntryModelTest, GapLineListsTheYearsBetween) {
    struct Row {
        std::vector<int> written;
        QString expected;
    };
    const std::vector<Row> rows = {
        {{2024, 2020}, QStringLiteral("Not written: 2025 · 2023 · 2022 · 2021")},
        {{2025}, QString()},
        {{2025, 2024, 2023}, QString()},
        {{2024}, QStringLiteral("Not written: 2025")},
        {{2028}, QString()},
        {{2028, 2024}, QStringLiteral("Not written: 2025")},
    };
    for (const Row& row : rows) {
        state.pastEntries.clear();
        for (const int year : row.written) state.pastEntries.push_back({year, QStringLiteral("x")});
        EXPECT_EQ(entryModel(state).gapLine.value_or(QString()), row.expected);
    }
}

TEST_F(EntryModelTest, GapLineCanBeSwitchedOff) {
    state.pastEntries = {{2020, QStringLiteral("x")}};
    EXPECT_TRUE(entryModel(state).gapLine);
    state.showGapYears = false;
    EXPECT_FALSE(entryModel(state).gapLine);
}

TEST_F(EntryModelTest, TheSourceIsTheWholeFile) {
    EXPECT_FALSE(entryModel(state).sourceText);
    state.rawText = QStringLiteral("# 11-21\n\n## 2026\nx\n");
    EXPECT_FALSE(entryModel(state).sourceText);
    state.showSource = true;
    EXPECT_EQ(entryModel(state).sourceText, state.rawText);
}

TEST_F(EntryModelTest, TheSourceOfAnEmptyFileSaysSo) {
    struct Row {
        Language language;
        QString expected;
    };
    const std::vector<Row> rows = {{Language::en, QStringLiteral("(empty file)")},
                                   {Language::zhHans, QStringLiteral("（空文件）")},
                                   {Language::ja, QStringLiteral("（空のファイル）")}};
    state.showSource = true;
    for (const Row& row : rows) {
        localization::install(row.language);
        EXPECT_EQ(entryModel(state).sourceText, row.expected);
    }
}

TEST_F(EntryModelTest, CountsTheMatchesOfTheYearInView) {
    using Matches = EntryModel::Matches;
    struct Row {
        std::optional<Matches> given;
        std::optional<Matches> expected;
    };
    const std::vector<Row> rows = {
        {std::nullopt, std::nullopt},   {Matches{0, 0}, std::nullopt},
        {Matches{3, 0}, Matches{3, 0}}, {Matches{3, 2}, Matches{3, 2}},
        {Matches{3, 5}, Matches{3, 2}},
    };
    for (const Row& row : rows) {
        state.matches = row.given;
        EXPECT_EQ(entryModel(state).matches, row.expected);
    }
}

TEST_F(EntryModelTest, MatchesCountOnlyWhereTheYearCanBeRead) {
    state.matches = EntryModel::Matches{3, 0};
    state.showAllYears = true;
    EXPECT_FALSE(entryModel(state).matches);
    state.showAllYears = false;
    state.showSource = true;
    EXPECT_FALSE(entryModel(state).matches);
}

TEST_F(EntryModelTest, TheHintOfTheLeapDayTellsWhereToGoInEveryLanguage) {
    state.day = {2, 29};
    for (const Language language : {Language::en, Language::zhHans, Language::ja}) {
        localization::install(language);
        const EntryModel model = entryModel(state);
        const QString text = std::get<EntryModel::Empty>(model.block.kind).text;
        EXPECT_TRUE(text.contains(QStringLiteral("2028"))) << text.toStdString();
        const bool namesTheRail = text.contains(QStringLiteral("right")) ||
                                  text.contains(QStringLiteral("右侧")) ||
                                  text.contains(QStringLiteral("右側"));
        EXPECT_TRUE(namesTheRail) << text.toStdString();
    }
}

TEST_F(EntryModelTest, ShowsTheWeekdayAloneInChineseAndJapanese) {
    state.language = Language::zhHans;
    EXPECT_EQ(entryModel(state).weekdayName, QStringLiteral("星期六"));
    state.language = Language::ja;
    EXPECT_EQ(entryModel(state).weekdayName, QStringLiteral("土曜日"));
    state.day = {2, 29};
    EXPECT_TRUE(entryModel(state).weekdayName.isEmpty());
}

}  // namespace
}  // namespace velmar
