#include "DiaryApp/Entry/AllYearsModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmar {

// Read by GoogleTest where a value isn't the expected one.
static void PrintTo(const SummaryParts& parts, std::ostream* out) {
    *out << parts.span.toStdString() << " | " << parts.counts.toStdString() << " | "
         << parts.hint.toStdString();
}

namespace {

using AllYears = EntryModel::AllYears;

class AllYearsModelTest : public testing::Test {
protected:
    AllYearsModelTest() {
        localization::install(Language::en);
        state.body = [](int year) { return QStringLiteral("body of %1").arg(year); };
    }

    void write(const std::vector<int>& years) {
        state.pastEntries.clear();
        for (const int year : years) {
            state.pastEntries.push_back({year, QStringLiteral("body of %1").arg(year)});
        }
    }

    // "2026*" is this year, "(2021 – 2023 not written: 2023)" a run of missing ones.
    QStringList rows() {
        QStringList rows;
        for (const AllYears::Row& row : allYearsModel(state).rows) {
            if (const auto* year = std::get_if<AllYears::Year>(&row)) {
                rows.append(QString::number(year->year) +
                            QLatin1String(year->isCurrent ? "*" : ""));
            } else {
                const auto& gap = std::get<AllYears::Gap>(row);
                rows.append(QStringLiteral("(%1: %2)").arg(gap.label).arg(gap.firstYear));
            }
        }
        return rows;
    }

    const AllYears::Year& yearRow(const AllYears& model, int year) {
        for (const AllYears::Row& row : model.rows) {
            const auto* found = std::get_if<AllYears::Year>(&row);
            if (found != nullptr && found->year == year) return *found;
        }
        ADD_FAILURE() << "no row of " << year;
        static const AllYears::Year none;
        return none;
    }

    QString counts() { return summaryParts(allYearsModel(state).summary).counts; }
    QString span() { return summaryParts(allYearsModel(state).summary).span; }

    EntryState state{.day = {11, 21},
                     .viewedYear = 2026,
                     .currentYear = 2026,
                     .draft = QStringLiteral("now"),
                     .pastEntries = {},
                     .showAllYears = true};
};

TEST_F(AllYearsModelTest, IsPartOfTheModelOnlyWhereAllYearsShow) {
    EXPECT_EQ(entryModel(state).allYears, allYearsModel(state));
    state.showAllYears = false;
    EXPECT_FALSE(entryModel(state).allYears);
}

TEST_F(AllYearsModelTest, ListsYearsAndRunsOfMissingOnesNewestFirst) {
    struct Row {
        std::vector<int> written;
        QStringList expected;
    };
    const auto text = [](const char* each) { return QString::fromUtf8(each); };
    const std::vector<Row> cases = {
        {{}, {text("2026*")}},
        {{2025}, {text("2026*"), text("2025")}},
        {{2024, 2020},
         {text("2026*"), text("(2025 not written: 2025)"), text("2024"),
          text("(2021 – 2023 not written: 2023)"), text("2020")}},
        {{2024, 2023},
         {text("2026*"), text("(2025 not written: 2025)"), text("2024"), text("2023")}},
        // A year ahead of this one is no row, and starts no run.
        {{2028}, {text("2026*")}},
        {{2028, 2024}, {text("2026*"), text("(2025 not written: 2025)"), text("2024")}},
    };
    for (const Row& row : cases) {
        write(row.written);
        EXPECT_EQ(rows(), row.expected);
    }
}

TEST_F(AllYearsModelTest, OnTheLeapDayOnlyLeapYearsCountAndThisOne) {
    state.day = {2, 29};
    write({2024, 2012});
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("2026*"), QStringLiteral("2024"),
                                   QStringLiteral("(2016 – 2020 not written: 2020)"),
                                   QStringLiteral("2012")}));
    EXPECT_EQ(counts(), QStringLiteral("3 years written · 2 not written"));
    write({2024, 2020});
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("2026*"), QStringLiteral("2024"),
                                   QStringLiteral("2020")}));
    EXPECT_EQ(counts(), QStringLiteral("3 years written"));
}

TEST_F(AllYearsModelTest, ThisYearIsARowAlsoWhenItIsEmpty) {
    state.draft.clear();
    write({2025});
    const AllYears model = allYearsModel(state);
    const AllYears::Year& current = yearRow(model, 2026);
    EXPECT_TRUE(current.isCurrent);
    EXPECT_TRUE(current.body.isEmpty());
    EXPECT_EQ(current.ago, QStringLiteral("This year"));
}

TEST_F(AllYearsModelTest, TheYearInViewShowsItsDraftAndTheOthersTheirBodies) {
    write({2025, 2020});
    state.viewedYear = 2025;
    const AllYears model = allYearsModel(state);
    EXPECT_EQ(yearRow(model, 2025).body, QStringLiteral("now"));
    EXPECT_EQ(yearRow(model, 2026).body, QStringLiteral("body of 2026"));
    EXPECT_EQ(yearRow(model, 2020).body, QStringLiteral("body of 2020"));
    EXPECT_EQ(yearRow(model, 2025).ago, QStringLiteral("1 year ago"));
    EXPECT_EQ(yearRow(model, 2020).ago, QStringLiteral("6 years ago"));
    EXPECT_FALSE(yearRow(model, 2020).isCurrent);
}

TEST_F(AllYearsModelTest, TheSpanRunsFromTheOldestYearToThisOne) {
    EXPECT_EQ(span(), QStringLiteral("2026"));
    write({2028});
    EXPECT_EQ(span(), QStringLiteral("2026"));
    write({2028, 2024, 2020});
    EXPECT_EQ(span(), QStringLiteral("2020 – 2026"));
}

TEST_F(AllYearsModelTest, CountsWhatIsWrittenAndWhatIsMissing) {
    EXPECT_EQ(counts(), QStringLiteral("1 year written"));
    write({2025});
    EXPECT_EQ(counts(), QStringLiteral("2 years written"));
    write({2024, 2020});
    EXPECT_EQ(counts(), QStringLiteral("3 years written · 4 not written"));
    state.draft = QStringLiteral(" \n");
    EXPECT_EQ(counts(), QStringLiteral("2 years written · 4 not written"));
    write({2024});
    EXPECT_EQ(counts(), QStringLiteral("1 year written · 1 not written"));
    write({});
    EXPECT_EQ(counts(), QStringLiteral("0 years written"));
    // An entry ahead of this year counts as written, though it is no row.
    write({2028});
    EXPECT_EQ(counts(), QStringLiteral("1 year written"));
}

TEST_F(AllYearsModelTest, WhatIsTypedThisYearCountsBeforeAnySave) {
    state.draft.clear();
    state.body = {};
    EXPECT_EQ(counts(), QStringLiteral("0 years written"));
    state.draft = QStringLiteral("F");
    EXPECT_EQ(counts(), QStringLiteral("1 year written"));
    // In another year's view this year's body in the file counts.
    state.viewedYear = 2024;
    EXPECT_EQ(counts(), QStringLiteral("0 years written"));
    state.body = [](int year) { return year == 2026 ? QStringLiteral("x") : QString(); };
    EXPECT_EQ(counts(), QStringLiteral("1 year written"));
}

TEST_F(AllYearsModelTest, SpeaksEveryLanguage) {
    struct Row {
        Language language;
        QString summary;
        QString gap;
        QString alone;
    };
    const std::vector<Row> cases = {
        {Language::en,
         QStringLiteral(
             "2020 – 2026　3 years written · 4 not written · Click a year to write in it"),
         QStringLiteral("2021 – 2023 not written"),
         QStringLiteral("2026　1 year written · Click a year to write in it")},
        {Language::zhHans, QStringLiteral("2020 – 2026　写过 3 年 · 4 年未写 · 点击年份即可书写"),
         QStringLiteral("2021 – 2023 未写"), QStringLiteral("2026　写过 1 年 · 点击年份即可书写")},
        {Language::ja,
         QStringLiteral("2020 – 2026　3 年分を記入 · 4 年分は未記入 · 年をクリックして書く"),
         QStringLiteral("2021 – 2023 未記入"),
         QStringLiteral("2026　1 年分を記入 · 年をクリックして書く")},
    };
    for (const Row& row : cases) {
        localization::install(row.language);
        write({2024, 2020});
        const AllYears model = allYearsModel(state);
        EXPECT_EQ(model.summary, row.summary);
        EXPECT_EQ(std::get<AllYears::Gap>(model.rows.at(3)).label, row.gap);
        write({});
        EXPECT_EQ(allYearsModel(state).summary, row.alone);
    }
}

TEST(WrittenYearCount, CountsPastEntriesAndThisYearIfItIsNotBlank) {
    const std::vector<PastEntry> two = {{2024, QStringLiteral("x")}, {2020, QStringLiteral("y")}};
    EXPECT_EQ(writtenYearCount(two, u"z"), 3);
    EXPECT_EQ(writtenYearCount(two, u""), 2);
    EXPECT_EQ(writtenYearCount(two, u" \n\t\u3000"), 2);
    EXPECT_EQ(writtenYearCount({}, u""), 0);
}

TEST(SummaryParts, SplitAtTheWideBlankAndTheLastDot) {
    struct Row {
        QString summary;
        SummaryParts expected;
    };
    const auto text = [](const char* each) { return QString::fromUtf8(each); };
    const std::vector<Row> cases = {
        {text("2020 – 2026　3 written · 4 not · Click"),
         {text("2020 – 2026"), text("3 written · 4 not"), text("Click")}},
        {text("2026　1 written · Click"), {text("2026"), text("1 written"), text("Click")}},
        {text("2026　1 written"), {text("2026"), text("1 written"), QString()}},
        {text("2026 · Click"), {text("2026 · Click"), QString(), QString()}},
        {QString(), {}},
    };
    for (const Row& row : cases) EXPECT_EQ(summaryParts(row.summary), row.expected);
}

}  // namespace
}  // namespace velmar
